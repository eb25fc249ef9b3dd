#ifndef QUILLFORM_SODIALOGCHOICEAUDITOR_H
#define QUILLFORM_SODIALOGCHOICEAUDITOR_H

#include <Quillform/auditors/SoAuditor.h>

class SoDialogChoice;

/// Auditor of combo boxes and radio buttons.
class QUILLFORM_API SoDialogChoiceAuditor : public SoAuditor {
  SO_TYPED_OBJECT_HEADER(SoDialogChoiceAuditor);

public:
  /// Called after the user has operated \a cpt, whose fields hold what it shows.
  virtual void dialogChoice(SoDialogChoice* cpt) = 0;
};

#endif // QUILLFORM_SODIALOGCHOICEAUDITOR_H
