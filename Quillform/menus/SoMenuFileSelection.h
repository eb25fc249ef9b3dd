#ifndef QUILLFORM_SOMENUFILESELECTION_H
#define QUILLFORM_SOMENUFILESELECTION_H

#include <Inventor/fields/SoMFString.h>
#include <Inventor/fields/SoSFInt32.h>
#include <Quillform/menus/SoMenuPushButton.h>

class SoMenuFileSelectionAuditor;

/// An entry of a menu that lets the user choose a file to open, or a name to save under.
///
/// \code
/// MenuFileSelection {
///   auditorID "open"  label "&Open..."  accelerator "Ctrl+O"
///   title "Open a scene"  filter [ "*.iv *.wrl", "Scenes", "*", "All files" ]  fileDirectory "$HOME"
/// }
/// \endcode
///
/// The auditors are called when the file dialog is closed, also when the user has cancelled it: `filename` is empty
/// then.
///
/// File format, after the fields of SoMenuPushButton, with the defaults:
/// \code
/// MenuFileSelection {
///   title          ""                          # SoSFString: title of the file dialog
///   filter         [ "*.iv", "Arborel file" ]  # SoMFString: pairs of a pattern and its description
///   defaultFilter  0                           # SoSFInt32:  kept, without effect
///   fileDirectory  "."                         # SoSFString: where the dialog begins; of the chosen file
///   filename       ""                          # SoSFString: the chosen file, without its directory
///   mode           OPEN                        # SoSFEnum:   OPEN or SAVE
/// }
/// \endcode
class QUILLFORM_API SoMenuFileSelection : public SoMenuPushButton {
  typedef SoMenuPushButton inherited;
  SO_QUILLFORM_HEADER(SoMenuFileSelection);

public:
  /// What the file is chosen for.
  enum Mode { OPEN = 1, SAVE = 2 };

  SoSFString title;         ///< of the file dialog; default empty
  SoMFString filter;        ///< pairs of a pattern and its description; default "*.iv", "Arborel file"
  SoSFInt32 defaultFilter;  ///< kept, without effect; default 0
  SoSFString fileDirectory; ///< where the dialog begins, later that of the chosen file; default "."
  SoSFString filename;      ///< the chosen file without its directory, empty after a cancel; default empty
  SoSFEnum mode;            ///< a Mode; default OPEN

  SoMenuFileSelection();

  using SoQuillform::addAuditor;
  using SoQuillform::removeAuditor;
  void addAuditor(SoMenuFileSelectionAuditor* auditor);    ///< adds an auditor at the end, unless it is in the list
  void removeAuditor(SoMenuFileSelectionAuditor* auditor); ///< takes an auditor out of the list; it stays alive
  void applyDlgCptAuditor() override;

  void openDialogBox();    ///< lets the user choose, and reports it
  void validateFilename(); ///< calls the auditors

  void menuEvent(void* action, int id) override;

protected:
  ~SoMenuFileSelection() override;

  void choose3D() override;
};

#endif // QUILLFORM_SOMENUFILESELECTION_H
