#ifndef QUILLFORM_SODIALOGCHECKBOXAUDITOR_H
#define QUILLFORM_SODIALOGCHECKBOXAUDITOR_H

#include <Quillform/auditors/SoAuditor.h>

class SoDialogCheckBox;

/// Auditor of check boxes and check-box launchers.
class QUILLFORM_API SoDialogCheckBoxAuditor : public SoAuditor {
  SO_TYPED_OBJECT_HEADER(SoDialogCheckBoxAuditor);

public:
  /// Called after the user has operated \a cpt, whose fields hold what it shows.
  virtual void dialogCheckBox(SoDialogCheckBox* cpt) = 0;
};

#endif // QUILLFORM_SODIALOGCHECKBOXAUDITOR_H
