#ifndef QUILLFORM_SOMENUBAR_H
#define QUILLFORM_SOMENUBAR_H

#include <QMenuBar>
#include <Quillform/core/SoChildOperations.h>
#include <Quillform/core/SoSkinFile.h>
#include <Quillform/core/SoTopComponent.h>
#include <Quillform/menus/So3DMenuKeys.h>
#include <Quillform/menus/SoMenuPopup.h>

/// The menu bar of a dialog: a row of pop-up menus along its upper edge.
///
/// \code
/// TopLevelDialog {
///   MenuBar {
///     MenuPopup { label "&File" MenuPushButton { auditorID "quit" label "&Quit" accelerator "Ctrl+Q" } }
///     MenuPopup { label "&View" MenuCheckBox { auditorID "grid" label "&Grid" } }
///   }
/// }
/// \endcode
///
/// Its children, the pop-up menus, follow the fields. A dialog shows its first menu bar only, wherever that stands
/// among its children. The bar is made anew whenever the dialog is built.
///
/// It adds no fields to those of SoTopComponent.
///
/// In the scene Tab goes to the bar as to other elements. The left and right arrows go to the other titles, and Space,
/// Return and the up and down arrows open the menu. In an open menu the up and down arrows go to the entries that can
/// be chosen, the right arrow opens the menu inside or the next one of the bar, the left arrow closes the menu inside
/// or opens the one before, Space and Return choose, and Escape closes the innermost menu. Keys work in the same way in
/// a menu that was opened with the pointer; once it is closed they are the application's again.
///
/// Catalog, below `geomSwitch`:
/// \code
/// frameSep
///   frame            # public
/// \endcode
class QUILLFORM_API SoMenuBar : public SoTopComponent, public SoChildOperations<SoMenuPopup> {
  typedef SoTopComponent inherited;
  SO_QUILLFORM_HEADER(SoMenuBar);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSep);
  SO_KIT_CATALOG_ENTRY_HEADER(frame);

public:
  SoMenuBar();

  SO_SKIN_HEADER();

  /// The QMenuBar, made now if there is none. \a parent has no meaning.
  QMenuBar* getMenu(void* parent = nullptr);

  /// Makes a new QMenuBar inside \a parent and gives it to the dialog's layout; the one before goes, with its menus.
  void createMenuBar(QWidget* parent);

  /// FALSE in every case: the bar is made anew by every build.
  SbBool existMenuBar() const;

  void updateMenuBar() {} ///< without effect
  void updateChildren();  ///< builds the menus into the QMenuBar

  void applyAuditor(SoQuillform* caller) override;

  /// The first item, depth first, whose auditorID is \a id; nullptr when there is none.
  SoQuillform* searchForAuditorId(SbString id);

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void destroyWidget() override;
  void getSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override;
  void changeEnable() override;
  void updateAfterSceneGraphChange() override;

  /// Reads the elements that follow the fields; FALSE when one cannot be read.
  virtual SbBool readChildren(SoInput* in);
  using SoQuillform::getChildElements;
  SoChildElements* getChildElements() override;

  /// \name 3D form
  /// @{
  void create3DBar();          ///< makes the 3D form
  void update3DBar();          ///< places the bar and its titles
  void update3DChildrenSize(); ///< gives each title its width
  void update3DChildren();     ///< builds the 3D forms of the menus
  void show3D(int show) override;
  void set3DParentTranslation(SbVec3f& translation) override;
  void change3DPosition() override;
  void change3DEnable() override;
  void change3DWidgetEnable(int enable) override;
  void update3DAfterSkinChange() override;

  /// The user has pressed one of the menus, which gets his keys.
  void takeKeyboard3D();

  /// A title has come, gone or changed.
  void updateKeyboard3D();
  SbBool pressKey3D(const SoKeyboardEvent* event) override;
  SbBox2f getKeyboardBox3D() const override;
  /// @}

protected:
  ~SoMenuBar() override;

  SoChildElements& elements() override; ///< the list of children
  void press3D() override;
  void release3D() override;
  bool usesKeys3D() const override;

private:
  bool isFirstBar() const;
  std::vector<SoMenuPopup*> getMenus() const;
  void removeBar();
  void enableMenus3D();

  SoChildElements m_children;              // in the node kit's own child list
  QPointer<QMenuBar> m_bar;                // owned by the dialog's window
  bool m_isBeingBuilt = true;              // until the first build has ended
  SbVec2i32 m_size3D{0, 0};                // in the scene
  So3DMenuKeys m_keys{this};               // likewise
  SoTransform* m_frameTransform = nullptr; // below frameSep, which owns it
};

#endif // QUILLFORM_SOMENUBAR_H
