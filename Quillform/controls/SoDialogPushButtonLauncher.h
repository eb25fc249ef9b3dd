#ifndef QUILLFORM_SODIALOGPUSHBUTTONLAUNCHER_H
#define QUILLFORM_SODIALOGPUSHBUTTONLAUNCHER_H

#include <Quillform/controls/SoDialogPushButton.h>
#include <Quillform/controls/SoLauncher.h>

/// A push button that opens other dialogs, its children.
///
/// \code
/// DialogPushButtonLauncher {
///   buttonLabel "Units..."
///   TopLevelDialog { label "Units" DialogComboBox { label "Length:" items [ "mm", "m" ] } }
/// }
/// \endcode
///
/// It adds no fields to those of SoDialogPushButton; the dialogs follow the fields. A press calls the auditors first
/// and then shows all dialogs, in order: as windows over the application's main window, or in the scene when the button
/// was pressed there. A launched dialog is built once, closes with the dialog around its launcher, and belongs to the
/// launcher. What its controls do and none of its auditors hears of goes on to the dialog around the launcher.
class QUILLFORM_API SoDialogPushButtonLauncher : public SoLauncher<SoDialogPushButton> {
  typedef SoLauncher<SoDialogPushButton> inherited;
  SO_QUILLFORM_HEADER(SoDialogPushButtonLauncher);

public:
  SoDialogPushButtonLauncher();

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void eventNotify(unsigned int event, unsigned long data) override;
  void draggerFinishCallback3D() override;

protected:
  ~SoDialogPushButtonLauncher() override;
};

#endif // QUILLFORM_SODIALOGPUSHBUTTONLAUNCHER_H
