#ifndef QUILLFORM_SOMENUITEM_H
#define QUILLFORM_SOMENUITEM_H

#include <QKeySequence>
#include <QPointer>
#include <Quillform/core/SoQuillform.h>
#include <Quillform/core/SoSkinFile.h>
#include <Quillform/menus/So3DMenuLine.h>

class QMenu;
class SoMenuBar;
class SoMenuPopup;
class SoMenuQItem;

/// Base of everything that stands in a pop-up menu, pop-up menus included. Its text is the `label`, with "&" before
/// the mnemonic letter.
///
/// It adds no fields to those of SoQuillform.
///
/// Catalog, below `geomSwitch`:
/// \code
/// itemFrameSep
///   frame            # public
/// labelSep
///   labelProp        # public
/// \endcode
///
/// In a window an entry is one action of the menu around it, or several; in the scene it is a line of the open menu.
/// There a press highlights the entry and a release over it chooses it; released elsewhere it chooses nothing.
class QUILLFORM_API SoMenuItem : public SoQuillform {
  typedef SoQuillform inherited;
  SO_QUILLFORM_HEADER(SoMenuItem);
  SO_KIT_CATALOG_ENTRY_HEADER(itemFrameSep);
  SO_KIT_CATALOG_ENTRY_HEADER(frame);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSep);
  SO_KIT_CATALOG_ENTRY_HEADER(labelProp);

public:
  SoMenuItem();

  SO_SKIN_HEADER();

  static constexpr int itemHeight = 18; ///< of every line of a menu in the scene, in pixels

  /// The identifier that the next action gets. They are never used again.
  static int ID;

  /// The menu bar above this item; nullptr when there is none.
  SoMenuBar* getMenuBar() const;

  /// \name Texts
  /// @{

  /// The part of \a label behind its first tab character; empty without one.
  static SbString getAccelerator(const SbString& label);

  /// Turns the text of a shortcut, such as "ctrl+shift+s", into one whose modifiers stand in the order Alt, Meta,
  /// Shift, Ctrl: "Shift+Ctrl+s". \a item and \a flags have no meaning.
  static SbString getKeyCombination(const SbString& accel, SoMenuItem* item, unsigned int flags);

  /// Stores in \a title the part of \a label before its first tab character, without the "&" that mark mnemonic
  /// letters. Returns the last letter so marked; 0 without one.
  static char buildTitleForMotifMenu(const SbString& label, SbString& title);

  /// The keys that a text made by getKeyCombination() stands for.
  static QKeySequence toKeySequence(const SbString& combination);
  /// @}

  /// \name Realisation
  /// @{

  /// Realises the item: as an action of \a parentMenu, a QMenu or QMenuBar, when \a asWidget is non-zero, else in 3D.
  /// \a index has no meaning: items stand in the order in which they are built.
  virtual void buildMenu(void* parentMenu, int asWidget, int index);

  /// The user has chosen the item. \a id tells the entries of a radio group apart; \a action has no meaning.
  virtual void menuEvent(void* action, int id);

  /// Without effect.
  virtual void destroyNoDeleteMenuItem();

  /// Adds the item to the end of the menu around it. \a index has no meaning.
  virtual void insertMenuItem(int index);
  void updateMenuItem() {} ///< without effect

  void destroyWidget() override;
  void updateFromSensor(SoSensor* sensor) override;
  void changeEnable() override;
  void changeLabel() override;

  /// The size that the item needs in a menu of the scene, without its shortcut, in pixels.
  virtual SbVec2i32 getItemInitSize();

  /// Sets the width of the item in the scene, unless it has one already and \a force is zero.
  virtual void setItemSize(SbVec2i32 size, int force);
  virtual SbVec2i32 getItemSize() const; ///< see setItemSize()
  /// @}

  /// \name 3D form
  /// @{

  /// What a menu in the scene lines up in columns, in pixels.
  struct Columns {
    int marks = 0;     ///< width of the marks at the left
    int shortcuts = 0; ///< width of the shortcuts and of the room before them
    int arrows = 0;    ///< width of the arrows of inner menus at the right
  };

  /// The columns that this item needs.
  virtual Columns getColumns3D() const;

  /// The columns that the menu around this item has.
  void setColumns3D(const Columns& columns);

  /// Keeps the plates of disabled menus from shining, in geometry that is being made; their texts are grey.
  static void insertPlateLook(SoSwitch* geometry);

  virtual void create3DItem(int index);   ///< makes the plate and the text
  virtual void update3DItem();            ///< places them
  virtual void draggerStartCallback3D();  ///< the item is held down
  virtual void draggerFinishCallback3D(); ///< it was released where it was pressed: its menus close
  void show3D(int show) override;
  void change3DLabel() override;
  void change3DEnable() override;
  void update3DAfterSkinChange() override;

  /// How many lines of the item the user can choose now.
  int getNumUsableLines3D() const;

  /// Shows or hides that the keyboard is at line \a line.
  virtual void setMarked3D(int line, bool marked);

  /// Chooses line \a line, as a press and a release there do.
  void choose3DLine(int line);
  /// @}

protected:
  ~SoMenuItem() override;

  /// Heights over the item's plane, in scene units: the plate's front, and what texts and marks stand on.
  static constexpr float plateFace = 1.0F;
  static constexpr float textSurface = 2.0F; ///< what texts and marks stand on

  static constexpr int textMargin = 4;   ///< left and right of the texts, in pixels
  static constexpr int markColumn = 20;  ///< room for a mark left of the text
  static constexpr int arrowColumn = 14; ///< room for an arrow right of the shortcut

  /// The place of a dialog that an entry launches: beside its menu, so that it does not cover what was pressed.
  SbVec3f getLaunchPlaceBeside3D() const;

  SoMenuPopup* getMenuAround() const; ///< nullptr for an item that stands in no menu

  QMenu* getParentMenu() const; ///< given to buildMenu; nullptr for an item of a bar and after Qt destroyed it

  /// \name The action of an item that has one
  /// Its relay is made by the first build and lives as long as the node; menus come and go.
  /// @{
  void setRelay(SoMenuQItem* relay);       ///< keeps the relay
  SoMenuQItem* getRelay() const;           ///< nullptr before the first build and after Qt destroyed it
  void setShortcut(const SbString& accel); ///< gives the action its shortcut
  /// @}

  /// The text of the item as it is displayed, with its mnemonic mark.
  virtual SbString getShownText() const;

  /// What stands at the right end of the item's line in the scene.
  virtual SbString getShortcutText() const;

  /// What a relay gets for the shortcut text \a accel. Nothing, with a message, when that describes no shortcut;
  /// \a refused keeps the text that was complained of, so that this happens once.
  SbString getShortcut(const SbString& accel, SbString& refused) const;

  /// The name of the shortcut for the user: what follows a tab in \a text or else the one that \a accel describes.
  static SbString nameShortcut(const SbString& text, const SbString& accel);

  /// The room that a shortcut takes in its column, with the gap before it; 0 for none.
  static int getShortcutRoom(const SbString& shortcut);

  /// The geometry of the item's lines: that of commands, so that a menu is of one piece.
  virtual So3DMenuLine::Plates getPlates() const;

  /// The place of line \a index of the item.
  So3DMenuLine::Place getLinePlace(int index) const;

  /// A mark for line \a index: the rectangle from the top-left corner of the item.
  QRect getMarkRect(int index) const;

  /// Shows the texts of the item's lines.
  virtual void updateLines3D();

  /// Fits this item's menu around it again.
  void updateMenu3D();

  /// Closes the menus in which the item stands.
  void closeMenus3D();

  virtual int getNumLines3D() const;           ///< the lines that can be chosen while the item is enabled
  virtual int getLineUnderPointer3D();         ///< -1 when the pointer is elsewhere
  virtual void setHeld3D(int line, bool held); ///< shows that a line is held down
  int getPressedLine3D() const;                ///< the line that is held down; -1 when none is
  void press3D() override;
  void drag3D() override;
  void release3D() override;

  So3DMenuLine m_line; ///< the item's text in the scene

private:
  void finishPress3D(bool isOverLine);

  QPointer<SoMenuQItem> m_relay;           // see setRelay
  SbString m_refusedShortcut;              // see getShortcut
  QPointer<QWidget> m_parentMenu;          // the QMenu or QMenuBar around the item
  SbVec2i32 m_itemSize{0, 0};              // in the scene
  Columns m_columns;                       // of the menu around the item
  SoTransform* m_plateTransform = nullptr; // below itemFrameSep, which owns it
  int m_pressedLine = -1;                  // held down by the pointer
};

#endif // QUILLFORM_SOMENUITEM_H
