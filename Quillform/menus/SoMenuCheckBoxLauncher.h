#ifndef QUILLFORM_SOMENUCHECKBOXLAUNCHER_H
#define QUILLFORM_SOMENUCHECKBOXLAUNCHER_H

#include <Quillform/controls/SoLauncher.h>
#include <Quillform/menus/SoMenuCheckBox.h>

/// An entry of a menu that opens other dialogs, its children, while it is on.
///
/// \code
/// MenuCheckBoxLauncher {
///   label "&Statistics"
///   TopLevelDialog { label "Statistics" DialogLabel { label "12 frames per second" } }
/// }
/// \endcode
///
/// It adds no fields to those of SoMenuCheckBox; the dialogs follow the fields. When the user switches it on or off,
/// the auditors are called first, and then all dialogs are shown or hidden, in order, by what `state` is then. They are
/// built when it is first used, even when `state` is TRUE before. In all else it is like SoDialogCheckBoxLauncher.
class QUILLFORM_API SoMenuCheckBoxLauncher : public SoLauncher<SoMenuCheckBox> {
  typedef SoLauncher<SoMenuCheckBox> inherited;
  SO_QUILLFORM_HEADER(SoMenuCheckBoxLauncher);

public:
  SoMenuCheckBoxLauncher();

  void menuEvent(void* action, int id) override;
  void updateFromSensor(SoSensor* sensor) override;
  void launchedDialogClosed() override;
  SbVec3f getLaunchPlace3D() const override;

protected:
  ~SoMenuCheckBoxLauncher() override;
};

#endif // QUILLFORM_SOMENUCHECKBOXLAUNCHER_H
