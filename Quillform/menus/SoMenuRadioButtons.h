#ifndef QUILLFORM_SOMENURADIOBUTTONS_H
#define QUILLFORM_SOMENURADIOBUTTONS_H

#include <Inventor/fields/SoMFString.h>
#include <Inventor/fields/SoSFInt32.h>
#include <Quillform/menus/SoMenuItem.h>
#include <vector>

class SoMenuQRadioButtons;
class SoMenuRadioButtonsAuditor;

/// Entries of a menu of which one is selected.
///
/// \code
/// MenuRadioButtons { auditorID "unit" items [ "&mm", "&cm", "m" ] selectedItem 1 accelerators [ "F5", "F6" ] }
/// \endcode
///
/// Choosing an entry calls the auditors, also when it is the one that was selected before. When `items` changes in a
/// window, the group moves to the end of its menu, until the menu is built again. The `label` is not shown.
///
/// File format, after the fields of SoQuillform, with the defaults:
/// \code
/// MenuRadioButtons {
///   items         ""   # SoMFString: text of each entry
///   selectedItem  0    # SoSFInt32:  index of the selected one
///   accelerators  ""   # SoMFString: shortcut of each entry, such as "Ctrl+Shift+S"
/// }
/// \endcode
///
/// Catalog, below `geomSwitch`:
/// \code
/// radioSep
///   itemsSep
///     itemSwtch
///       stateOff         # public, child 0
///       stateOn          # public, child 1
/// \endcode
class QUILLFORM_API SoMenuRadioButtons : public SoMenuItem {
  typedef SoMenuItem inherited;
  SO_QUILLFORM_HEADER(SoMenuRadioButtons);
  SO_KIT_CATALOG_ENTRY_HEADER(radioSep);
  SO_KIT_CATALOG_ENTRY_HEADER(itemsSep);
  SO_KIT_CATALOG_ENTRY_HEADER(itemSwtch);
  SO_KIT_CATALOG_ENTRY_HEADER(stateOff);
  SO_KIT_CATALOG_ENTRY_HEADER(stateOn);

public:
  SoMFString items;        ///< text of each entry; default one empty text
  SoSFInt32 selectedItem;  ///< index of the selected entry; default 0
  SoMFString accelerators; ///< shortcut of each entry; default one empty text

  SoMenuRadioButtons();

  SO_SKIN_HEADER();

  using SoQuillform::addAuditor;
  using SoQuillform::removeAuditor;
  void addAuditor(SoMenuRadioButtonsAuditor* auditor);    ///< adds an auditor at the end, unless it is in the list
  void removeAuditor(SoMenuRadioButtonsAuditor* auditor); ///< takes an auditor out of the list; it stays alive
  void applyDlgCptAuditor() override;

  SbString getSelectedText() const; ///< empty when no entry is selected

  /// Brings `selectedItem` into the range of the entries.
  void verifySelectedItem();

  void buildMenu(void* parentMenu, int asWidget, int index) override;
  void menuEvent(void* action, int id) override;
  void destroyWidget() override;
  void updateFromSensor(SoSensor* sensor) override;
  SbVec2i32 getItemInitSize() override;
  void changeEnable() override;
  void changeLabel() override;
  void changeSelectedItem(); ///< shows the selected entry in the window
  void changeItems();        ///< shows the entries in the window
  void changeAccelerators(); ///< gives the entries their shortcuts

  void insertMenuItem(int index) override; ///< makes the relays, with their actions

  void create3DItem(int index) override;
  void change3DSelectedItem(); ///< shows the selected entry in the scene
  void change3DItems();        ///< shows the entries in the scene
  void update3DAfterSkinChange() override;
  void draggerFinishCallback3D() override;
  Columns getColumns3D() const override;

protected:
  ~SoMenuRadioButtons() override;

  So3DMenuLine::Plates getPlates() const override;
  SbString getShownText() const override;
  void updateLines3D() override;
  int getNumLines3D() const override;
  int getLineUnderPointer3D() override;
  void setHeld3D(int line, bool held) override;

private:
  typedef std::vector<QPointer<SoMenuQRadioButtons>> Relays;

  /// One entry in the scene.
  struct Row {
    SoSeparator* mark; ///< below radioSep, which owns it
    SoSeparator* text; ///< below labelSep, which owns it
    SoTransform* markTransform;
    SoSwitch* state;
    So3DMenuLine line;
  };

  void makeRelays();
  void choose(int entry);
  void endRelays();
  SbString getEntryShortcut(int index) const;
  void addRow(SoSeparator* mark, SoSwitch* state);
  void setRowCount(int count);

  Relays m_relays;                 // one for each entry, once built
  int m_firstId = 0;               // of the first entry
  bool m_isInserted = false;       // the relays are made, if there are entries
  std::vector<SbString> m_refused; // see getShortcut
  std::vector<Row> m_rows;
};

#endif // QUILLFORM_SOMENURADIOBUTTONS_H
