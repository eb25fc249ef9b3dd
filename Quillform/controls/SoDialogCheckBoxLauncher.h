#ifndef QUILLFORM_SODIALOGCHECKBOXLAUNCHER_H
#define QUILLFORM_SODIALOGCHECKBOXLAUNCHER_H

#include <Quillform/controls/SoDialogCheckBox.h>
#include <Quillform/controls/SoLauncher.h>

/// A check box that opens other dialogs, its children, while it is checked.
///
/// \code
/// DialogCheckBoxLauncher {
///   onString "Statistics"
///   TopLevelDialog { label "Statistics" DialogLabel { label "12 frames per second" } }
/// }
/// \endcode
///
/// It adds no fields to those of SoDialogCheckBox; the dialogs follow the fields. When the user checks or unchecks it,
/// the auditors are called first, and then all dialogs are shown or hidden, in order, by what `state` is then. One
/// whose `state` is TRUE when the dialog around it is built shows its dialogs at once. When the user closes one of
/// them, `state` becomes FALSE; that calls no auditor. In all else it is like SoDialogPushButtonLauncher.
class QUILLFORM_API SoDialogCheckBoxLauncher : public SoLauncher<SoDialogCheckBox> {
  typedef SoLauncher<SoDialogCheckBox> inherited;
  SO_QUILLFORM_HEADER(SoDialogCheckBoxLauncher);

public:
  SoDialogCheckBoxLauncher();

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void eventNotify(unsigned int event, unsigned long data) override;
  void updateFromSensor(SoSensor* sensor) override;
  void launchedDialogClosed() override;

protected:
  ~SoDialogCheckBoxLauncher() override;

  void launchedDialogsChanged() override;
};

#endif // QUILLFORM_SODIALOGCHECKBOXLAUNCHER_H
