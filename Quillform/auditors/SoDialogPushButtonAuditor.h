#ifndef QUILLFORM_SODIALOGPUSHBUTTONAUDITOR_H
#define QUILLFORM_SODIALOGPUSHBUTTONAUDITOR_H

#include <Quillform/auditors/SoAuditor.h>

class SoDialogPushButton;

/// Auditor of push buttons and push-button launchers.
class QUILLFORM_API SoDialogPushButtonAuditor : public SoAuditor {
  SO_TYPED_OBJECT_HEADER(SoDialogPushButtonAuditor);

public:
  /// Called after the user has operated \a cpt, whose fields hold what it shows.
  virtual void dialogPushButton(SoDialogPushButton* cpt) = 0;
};

#endif // QUILLFORM_SODIALOGPUSHBUTTONAUDITOR_H
