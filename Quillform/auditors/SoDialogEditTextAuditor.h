#ifndef QUILLFORM_SODIALOGEDITTEXTAUDITOR_H
#define QUILLFORM_SODIALOGEDITTEXTAUDITOR_H

#include <Quillform/auditors/SoAuditor.h>

class SoDialogEditText;

/// Auditor of edit fields.
class QUILLFORM_API SoDialogEditTextAuditor : public SoAuditor {
  SO_TYPED_OBJECT_HEADER(SoDialogEditTextAuditor);

public:
  /// Called after the user has operated \a cpt, whose fields hold what it shows.
  virtual void dialogEditText(SoDialogEditText* cpt) = 0;
};

#endif // QUILLFORM_SODIALOGEDITTEXTAUDITOR_H
