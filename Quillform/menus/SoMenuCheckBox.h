#ifndef QUILLFORM_SOMENUCHECKBOX_H
#define QUILLFORM_SOMENUCHECKBOX_H

#include <Quillform/menus/SoMenuItem.h>

class SoMenuCheckBoxAuditor;

/// An entry of a menu that is on or off.
///
/// \code
/// MenuCheckBox { auditorID "grid" label "Show &grid" onString "Hide &grid" accelerator "Ctrl+G" }
/// \endcode
///
/// In a window, an entry whose `state` is TRUE when it is first built shows no check mark, and one whose `enable` is
/// FALSE can be chosen, until the field changes.
///
/// File format, after the fields of SoQuillform, with the defaults:
/// \code
/// MenuCheckBox {
///   state        FALSE   # SoSFBool:   whether the entry is on
///   onString     ""      # SoSFString: text instead of the label while it is on; empty for the label
///   accelerator  ""      # SoSFString: shortcut, such as "Ctrl+Shift+S"; modifiers in any order
/// }
/// \endcode
///
/// Catalog, below `geomSwitch`:
/// \code
/// chkSep
///   chkSwtch
///     stateOff         # public, child 0
///     stateOn          # public, child 1
/// \endcode
class QUILLFORM_API SoMenuCheckBox : public SoMenuItem {
  typedef SoMenuItem inherited;
  SO_QUILLFORM_HEADER(SoMenuCheckBox);
  SO_KIT_CATALOG_ENTRY_HEADER(chkSep);
  SO_KIT_CATALOG_ENTRY_HEADER(chkSwtch);
  SO_KIT_CATALOG_ENTRY_HEADER(stateOff);
  SO_KIT_CATALOG_ENTRY_HEADER(stateOn);

public:
  SoSFBool state;         ///< on; default FALSE
  SoSFString onString;    ///< text while on, empty for the label; default empty
  SoSFString accelerator; ///< shortcut; default empty

  SoMenuCheckBox();

  SO_SKIN_HEADER();

  using SoQuillform::addAuditor;
  using SoQuillform::removeAuditor;
  void addAuditor(SoMenuCheckBoxAuditor* auditor);    ///< adds an auditor at the end, unless it is in the list
  void removeAuditor(SoMenuCheckBoxAuditor* auditor); ///< takes an auditor out of the list; it stays alive
  void applyDlgCptAuditor() override;

  void buildMenu(void* parentMenu, int asWidget, int index) override;
  void menuEvent(void* action, int id) override;
  void updateFromSensor(SoSensor* sensor) override;
  SbVec2i32 getItemInitSize() override;
  void changeState();       ///< shows state in the window
  void changeOnString();    ///< shows the text in the window
  void changeAccelerator(); ///< gives the entry its shortcut

  void insertMenuItem(int index) override; ///< makes the relay, with its action

  void create3DItem(int index) override;
  void update3DItem() override;
  void change3DState();    ///< shows state in the scene
  void change3DOnString(); ///< shows the text in the scene
  void draggerFinishCallback3D() override;
  Columns getColumns3D() const override;

protected:
  ~SoMenuCheckBox() override;

  SbString getShownText() const override;
  SbString getShortcutText() const override;

private:
  SoTransform* m_markTransform = nullptr; // below chkSep, which owns it
};

#endif // QUILLFORM_SOMENUCHECKBOX_H
