#ifndef QUILLFORM_SOMENUPOPUP_H
#define QUILLFORM_SOMENUPOPUP_H

#include <QMenu>
#include <Quillform/core/SoChildOperations.h>
#include <Quillform/menus/SoMenuItem.h>
#include <utility>
#include <vector>

/// A menu: below its title in a menu bar, or beside its line in the menu around it.
///
/// \code
/// MenuPopup {
///   label "&File"
///   MenuPushButton { auditorID "open" label "&Open..." accelerator "Ctrl+O" }
///   MenuSeparator { }
///   MenuPopup { label "&Recent" MenuPushButton { auditorID "last" label "plan.iv" } }
/// }
/// \endcode
///
/// Its children, the menu items, follow the fields. An item that is added, removed or replaced later appears or
/// disappears at once.
///
/// In the scene a press on the title opens and closes the menu, in front of everything else of the dialog. Choosing an
/// item closes it, and so does a press on anything else. SoMenuBar says what keys do.
///
/// It adds no fields to those of SoMenuItem.
///
/// Catalog, below `geomSwitch`:
/// \code
/// frameSep
///   frameSwitch
///     released         # public, child 0
///     pressed          # public, child 1
///     shapeReleased    # public, the arrow of a menu inside a menu; drawn at the end of its line
///     shapePressed     # public, likewise, while that menu is open
/// \endcode
class QUILLFORM_API SoMenuPopup : public SoMenuItem, public SoChildOperations<SoMenuItem> {
  typedef SoMenuItem inherited;
  SO_QUILLFORM_HEADER(SoMenuPopup);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSep);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(released);
  SO_KIT_CATALOG_ENTRY_HEADER(pressed);
  SO_KIT_CATALOG_ENTRY_HEADER(shapeReleased);
  SO_KIT_CATALOG_ENTRY_HEADER(shapePressed);

public:
  SoMenuPopup();

  SO_SKIN_HEADER();

  QMenu* getMenu() const; ///< nullptr before the build and after Qt destroyed it

  void applyAuditor(SoQuillform* caller) override;
  void updateAfterSceneGraphChange() override;

  /// Reads the elements that follow the fields; FALSE when one cannot be read.
  virtual SbBool readChildren(SoInput* in);
  using SoQuillform::getChildElements;
  SoChildElements* getChildElements() override;

  void buildMenu(void* parentMenu, int asWidget, int index) override;
  void destroyWidget() override;
  void changeEnable() override;
  void changeLabel() override;

  /// \name Steps of the build
  /// @{
  void insertMenuItem(int index) override; ///< makes the QMenu, once, with all its items
  void create3DPopup(int index);           ///< makes the 3D form
  void update3DPopup();                    ///< places the title
  void update3DChildrenSize();             ///< gives all items one width
  void update3DChildren();                 ///< builds the 3D forms of the items
  /// @}

  /// \name 3D form
  /// @{

  /// TRUE while the menu is open in the scene.
  SbBool isOpen3D() const;

  /// Opens the menu or closes it, with all menus inside it.
  void show3DChildren(int show);

  /// Opens the menu as a press on its title does: other menus close.
  void open3D();

  /// Closes the menu as a press on its title does.
  void close3D();
  void show3D(int show) override;
  SbBool shows3D(const SoQuillform* child) const override;
  void set3DParentTranslation(SbVec3f& translation) override;
  void change3DPosition() override;
  void change3DEnable() override;
  void change3DWidgetEnable(int enable) override;
  void set3DInactive() override;
  void update3DItem() override;
  void draggerStartCallback3D() override;
  Columns getColumns3D() const override;

  /// Puts the highlight of the keyboard on a line of an item of the menu, or nowhere when \a item is nullptr.
  void mark3D(SoMenuItem* item, int line);

  /// Puts it on the usable line that is \a step lines further down, around the ends of the menu; without a highlight,
  /// on the first one or, for a negative \a step, on the last one.
  void moveMark3D(int step);

  void unmark3D(const SoMenuItem* item); ///< takes it away from an item
  SoMenuItem* getMarkedItem3D() const;   ///< nullptr when no usable line has the highlight
  int getMarkedLine3D() const;           ///< in the marked item
  void verifyMark3D();                   ///< takes it away from what cannot be chosen any more
  void setMarked3D(int line, bool marked) override;
  /// @}

protected:
  ~SoMenuPopup() override;

  SoChildElements& elements() override; ///< the list of children
  So3DMenuLine::Plates getPlates() const override;
  SbString getShortcutText() const override;
  void updateLines3D() override;
  int getLineUnderPointer3D() override;
  void setHeld3D(int line, bool held) override;
  void release3D() override;

private:
  /// A line that can be chosen.
  typedef std::pair<SoMenuItem*, int> Stop;

  bool isInBar() const;
  std::vector<Stop> getStops3D() const;
  void showTitleLook();
  std::vector<SoMenuItem*> getItems() const;
  void buildItems();
  void removeMenu();
  void enableItems3D();
  void layOutItems3D();
  float getFront3D();
  QPoint getMenuCorner() const;

  SoChildElements m_children;            // in the node kit's own child list
  QPointer<QMenu> m_menu;                // owned by the menu or bar around it
  bool m_isBeingBuilt = true;            // until the first build has ended
  std::vector<SoMenuItem*> m_builtItems; // what stands in the QMenu, in order; for comparisons only

  bool m_isOpen = false;                   // in the scene
  bool m_isMarked = false;                 // the keyboard is at the menu's line in the menu around it
  Stop m_mark{nullptr, 0};                 // the line with the keyboard's highlight
  float m_lift = 0.0F;                     // of the open menu over the title's plane
  QSize m_menuSize;                        // of the open menu with its frame
  std::vector<QPoint> m_itemCorners;       // of the items, from the top-left corner of the open menu
  SoTransform* m_titleTransform = nullptr; // below frameSep, which owns it
  SoSwitch* m_arrow = nullptr;             // the nodes from here on stand below geomSwitch, which owns them
  SoTransform* m_arrowTransform = nullptr;
  SoSwitch* m_panel = nullptr; // the plate behind the items, shown while the menu is open
  SoTransform* m_panelTransform = nullptr;
};

#endif // QUILLFORM_SOMENUPOPUP_H
