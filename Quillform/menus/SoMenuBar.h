#ifndef QUILLFORM_SOMENUBAR_H
#define QUILLFORM_SOMENUBAR_H

#include <QMenuBar>
#include <Quillform/core/SoChildOperations.h>
#include <Quillform/core/SoSkinFile.h>
#include <Quillform/core/SoTopComponent.h>
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
  /// @}

protected:
  ~SoMenuBar() override;

  SoChildElements& elements() override; ///< the list of children
  void press3D() override;
  void release3D() override;

private:
  bool isFirstBar() const;
  std::vector<SoMenuPopup*> getMenus() const;
  void removeBar();
  void enableMenus3D();

  SoChildElements m_children;              // in the node kit's own child list
  QPointer<QMenuBar> m_bar;                // owned by the dialog's window
  bool m_isBeingBuilt = true;              // until the first build has ended
  SbVec2i32 m_size3D{0, 0};                // in the scene
  SoTransform* m_frameTransform = nullptr; // below frameSep, which owns it
};

#endif // QUILLFORM_SOMENUBAR_H
