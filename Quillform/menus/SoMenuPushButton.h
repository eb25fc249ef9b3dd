#ifndef QUILLFORM_SOMENUPUSHBUTTON_H
#define QUILLFORM_SOMENUPUSHBUTTON_H

#include <Quillform/menus/SoMenuItem.h>

class SoMenuPushButtonAuditor;

/// A command in a menu.
///
/// \code
/// MenuPushButton { auditorID "save" label "&Save" accelerator "Ctrl+S" }
/// \endcode
///
/// File format, after the fields of SoQuillform, with the default:
/// \code
/// MenuPushButton {
///   accelerator  ""   # SoSFString: shortcut, such as "Ctrl+Shift+S"; modifiers in any order
/// }
/// \endcode
///
/// Catalog, below `geomSwitch`:
/// \code
/// btnSep
///   btnSwtch
///     released         # public, child 0
///     pressed          # public, child 1
/// \endcode
class QUILLFORM_API SoMenuPushButton : public SoMenuItem {
  typedef SoMenuItem inherited;
  SO_QUILLFORM_HEADER(SoMenuPushButton);
  SO_KIT_CATALOG_ENTRY_HEADER(btnSep);
  SO_KIT_CATALOG_ENTRY_HEADER(btnSwtch);
  SO_KIT_CATALOG_ENTRY_HEADER(released);
  SO_KIT_CATALOG_ENTRY_HEADER(pressed);

public:
  SoSFString accelerator; ///< shortcut; default empty

  SoMenuPushButton();

  SO_SKIN_HEADER();

  using SoQuillform::addAuditor;
  using SoQuillform::removeAuditor;
  void addAuditor(SoMenuPushButtonAuditor* auditor);    ///< adds an auditor at the end, unless it is in the list
  void removeAuditor(SoMenuPushButtonAuditor* auditor); ///< takes an auditor out of the list; it stays alive
  void applyDlgCptAuditor() override;

  void buildMenu(void* parentMenu, int asWidget, int index) override;
  void menuEvent(void* action, int id) override;
  void updateFromSensor(SoSensor* sensor) override;
  void changeAccelerator(); ///< gives the entry its shortcut

  void insertMenuItem(int index) override; ///< makes the relay, with its action

  void create3DItem(int index) override;
  void update3DItem() override;
  void draggerFinishCallback3D() override;

protected:
  ~SoMenuPushButton() override;

  So3DMenuLine::Plates getPlates() const override;
  SbString getShortcutText() const override;
  void setHeld3D(int line, bool held) override;

  /// What a choice in the scene does once the menus are closed.
  virtual void choose3D();

private:
  SoTransform* m_buttonTransform = nullptr; // below btnSep, which owns it
};

#endif // QUILLFORM_SOMENUPUSHBUTTON_H
