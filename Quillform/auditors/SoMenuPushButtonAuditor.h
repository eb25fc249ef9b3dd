#ifndef QUILLFORM_SOMENUPUSHBUTTONAUDITOR_H
#define QUILLFORM_SOMENUPUSHBUTTONAUDITOR_H

#include <Quillform/auditors/SoAuditor.h>

class SoMenuPushButton;

/// Auditor of menu push buttons and their launchers.
class QUILLFORM_API SoMenuPushButtonAuditor : public SoAuditor {
  SO_TYPED_OBJECT_HEADER(SoMenuPushButtonAuditor);

public:
  /// Called after the user has operated \a cpt, whose fields hold what it shows.
  virtual void menuPushButton(SoMenuPushButton* cpt) = 0;
};

#endif // QUILLFORM_SOMENUPUSHBUTTONAUDITOR_H
