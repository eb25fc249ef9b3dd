#ifndef QUILLFORM_SOMENUPUSHBUTTONLAUNCHER_H
#define QUILLFORM_SOMENUPUSHBUTTONLAUNCHER_H

#include <Quillform/controls/SoLauncher.h>
#include <Quillform/menus/SoMenuPushButton.h>

/// A command in a menu that opens other dialogs, its children.
///
/// \code
/// MenuPushButtonLauncher {
///   label "&Settings..."
///   TopLevelDialog { label "Settings" DialogCheckBox { label "Axes:" } }
/// }
/// \endcode
///
/// It adds no fields to those of SoMenuPushButton; the dialogs follow the fields. When the entry is chosen, its
/// auditors are called first, and then all dialogs are shown, in order. In the scene they open beside the menu as soon
/// as the entry is pressed. In all else it is like SoDialogPushButtonLauncher.
class QUILLFORM_API SoMenuPushButtonLauncher : public SoLauncher<SoMenuPushButton> {
  typedef SoLauncher<SoMenuPushButton> inherited;
  SO_QUILLFORM_HEADER(SoMenuPushButtonLauncher);

public:
  SoMenuPushButtonLauncher();

  void buildMenu(void* parentMenu, int asWidget, int index) override;
  void menuEvent(void* action, int id) override;
  void draggerStartCallback3D() override;
  SbVec3f getLaunchPlace3D() const override;

protected:
  ~SoMenuPushButtonLauncher() override;
};

#endif // QUILLFORM_SOMENUPUSHBUTTONLAUNCHER_H
