#ifndef QUILLFORM_SOTABDIALOG_H
#define QUILLFORM_SOTABDIALOG_H

#include <Inventor/sensors/SoFieldSensor.h>
#include <Quillform/containers/So3DTabBar.h>
#include <Quillform/containers/SoDialogGroup.h>
#include <Quillform/core/SoSkinFile.h>
#include <memory>

class SoTabDialogAuditor;

/// A group that shows one of its children at a time: each child is a page with a tab of its own, which shows the
/// child's label.
///
/// \code
/// TabDialog {
///   auditorID "settings"
///   RowDialog { label "Camera" DialogCheckBox { label "Follow:" } }
///   RowDialog { label "Light" DialogRealSlider { label "Brightness:" } }
/// }
/// \endcode
///
/// File format, after the fields of SoDialogGroup, with the defaults; the pages follow the fields:
/// \code
/// TabDialog {
///   selectedPage  0     # SoSFInt32: index of the page in front
///   tabsLocation  TOP   # SoSFEnum:  TOP, BOTTOM, LEFT or RIGHT, the side of the tabs in the scene
/// }
/// \endcode
///
/// The page that is selected stays selected when pages are added or removed; when it is removed itself, its neighbour
/// comes to the front. In a window the tabs are at the top, wherever they are in the scene.
///
/// What happens in the pages is reported to the auditors of the group or dialog around the tab dialog. The tab
/// dialog's own auditors hear of the pages that the user selects, and nobody else does.
///
/// Catalog, below `geomSwitch`:
/// \code
/// pagesSep
///   pageSwitch
///     pageSep
///       labelSep
///         labelSwitch
///           unselected     # public, child 0
///           selected       # public, child 1
///       textSep
///         textProp         # public
/// buttonsSep
///   lButtonSep
///     lButtonSwtch
///       lButtonReleased    # public, child 0
///       lButtonPressed     # public, child 1
///   rButtonSep
///     rButtonSwtch
///       rButtonReleased    # public, child 0
///       rButtonPressed     # public, child 1
/// frameSep
///   frame                  # public
/// \endcode
class QUILLFORM_API SoTabDialog : public SoDialogGroup {
  typedef SoDialogGroup inherited;
  SO_QUILLFORM_HEADER(SoTabDialog);
  SO_KIT_CATALOG_ENTRY_HEADER(pagesSep);
  SO_KIT_CATALOG_ENTRY_HEADER(pageSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(pageSep);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSep);
  SO_KIT_CATALOG_ENTRY_HEADER(labelSwitch);
  SO_KIT_CATALOG_ENTRY_HEADER(unselected);
  SO_KIT_CATALOG_ENTRY_HEADER(selected);
  SO_KIT_CATALOG_ENTRY_HEADER(textSep);
  SO_KIT_CATALOG_ENTRY_HEADER(textProp);
  SO_KIT_CATALOG_ENTRY_HEADER(buttonsSep);
  SO_KIT_CATALOG_ENTRY_HEADER(lButtonSep);
  SO_KIT_CATALOG_ENTRY_HEADER(lButtonSwtch);
  SO_KIT_CATALOG_ENTRY_HEADER(lButtonReleased);
  SO_KIT_CATALOG_ENTRY_HEADER(lButtonPressed);
  SO_KIT_CATALOG_ENTRY_HEADER(rButtonSep);
  SO_KIT_CATALOG_ENTRY_HEADER(rButtonSwtch);
  SO_KIT_CATALOG_ENTRY_HEADER(rButtonReleased);
  SO_KIT_CATALOG_ENTRY_HEADER(rButtonPressed);
  SO_KIT_CATALOG_ENTRY_HEADER(frameSep);
  SO_KIT_CATALOG_ENTRY_HEADER(frame);

public:
  /// The side of the tabs in the scene.
  enum TabsLocation { TOP = 0, BOTTOM = 1, LEFT = 2, RIGHT = 3 };

  SoSFInt32 selectedPage; ///< index of the page in front, kept within the pages once built; default 0
  SoSFEnum tabsLocation;  ///< a TabsLocation; default TOP

  SoTabDialog();

  SO_SKIN_HEADER();

  /// \name Auditors
  /// @{
  using SoQuillform::addAuditor;
  using SoQuillform::removeAuditor;
  void addAuditor(SoTabDialogAuditor* auditor);    ///< adds an auditor at the end, unless it is in the list
  void removeAuditor(SoTabDialogAuditor* auditor); ///< takes an auditor out of the list; it stays alive
  void applyDlgCptAuditor() override;
  void applyAuditor(SoQuillform* caller) override;
  /// @}

  /// \name Layout
  /// @{
  void getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override;
  SbVec2i32 getComponentInitSize() override;
  SoPlannedContents getPlannedContents() override;
  void fixSizeWithBorder(SbVec2i32& size, int times) override;
  void setChildrenComponentSize() override;
  void setChildrenLabelSize() override;
  void updateAfterSceneGraphChange() override;
  QBoxLayout* getLayoutFor(const SoQuillform* child) const override;
  SbBool hasVerticalCells() const override;
  /// @}

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void updateChildren() override;
  void update3DChildren() override;
  void updateFromSensor(SoSensor* sensor) override;

  /// The user has selected the page \a event.
  void eventNotify(unsigned int event, unsigned long data) override;

  /// Shows the selected page in the window. An index outside the pages becomes that of the nearest one.
  void changeSelectedPage();

  /// \name Steps of the build
  /// What is there already is not made again.
  /// @{
  void updateTabPageWidget(int page); ///< shows the contents of one page and hides the others
  void updateTabWidget();             ///< places the tabs
  void create3DTabDialog();           ///< makes the 3D form
  /// @}

  SbBool shows3D(const SoQuillform* child) const override;
  SbBool pressKey3D(const SoKeyboardEvent* event) override;
  QRect getKeyboardRect3D() const override;
  void change3DPages();          ///< places tabs and pages in the scene anew
  void change3DSelectedPage();   ///< as changeSelectedPage, in the scene
  void change3DFirstPageLeft();  ///< scrolls the tabs in the scene towards the first
  void change3DFirstPageRight(); ///< scrolls the tabs in the scene towards the last

protected:
  ~SoTabDialog() override;

  void placeWidgets() override;
  void createGroupWidget() override;
  std::vector<QRect> planChildren() override;
  float getFaceHeight() const override;
  bool usesKeys3D() const override;
  void press3D() override;
  void release3D() override;

private:
  static void pageLabelChangedCB(void* data, SoSensor* sensor);
  SbVec2i32 getLeastFrameSize() const override;
  void followPages();
  void updatePages();
  void followTabs();
  void clampSelectedPage();
  void setSelectedPageQuietly(int page);
  void updateTabLabels();
  SoTabPlan getPlan3D() const;
  void update3DTabs();
  void show3DSelectedPage();
  SoDialogComponent* getPressedPage();

  std::vector<const SoTopComponent*> m_pages;               // when they last changed; only compared, they may be gone
  std::vector<const SoTopComponent*> m_tabs;                // the pages that have a tab in the window; likewise
  std::vector<std::unique_ptr<SoFieldSensor>> m_pageLabels; // tell when the label of a page changes
  bool m_isFollowing = false;  // the first build has begun: the selected page stays selected
  SbVec2i32 m_leastPage{0, 0}; // what the pages, as they were measured last, may not go below
  So3DTabBar m_bar3D;
  SoTransform* m_frameTransform = nullptr;          // below frameSep, which owns it
  const SoDialogComponent* m_pressedPage = nullptr; // whose tab is held down in the scene; only compared
  int m_pressedButton = -1;                         // the scroll button that is held down in the scene
};

#endif // QUILLFORM_SOTABDIALOG_H
