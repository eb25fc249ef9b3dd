#include <Quillform/containers/SoTabDialog.h>

#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <QBoxLayout>
#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/auditors/SoTabDialogAuditor.h>
#include <Quillform/containers/SoDialogQTabDialog.h>
#include <Quillform/core/So3DKeyboard.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoText.h>
#include <algorithm>

SO_QUILLFORM_SOURCE(SoTabDialog, "TabDialog")
SO_SKIN_SOURCE(SoTabDialog, "TabDialog.iv", "TabDialogSelectedTabFrame", "TabDialogUnselectedTabFrame",
               "TabDialogLeftButtonPressed", "TabDialogLeftButtonReleased", "TabDialogRightButtonPressed",
               "TabDialogRightButtonReleased", "TabDialogFrame")

namespace {

/// Height of the pane over the component's face; the pages stand on it.
constexpr float paneHeight = 1.0F;

/// The text of a page's tab, which has one line.
SbString getTabLabel(const SoTopComponent* page)
{
  std::string text = SoQuillform::convertToCString(page->label.getValue(), page).getString();
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text.c_str();
}

template <class Pages>
int findPage(const Pages& pages, const SoQuillform* page)
{
  const auto found = std::find(pages.begin(), pages.end(), page);
  return found != pages.end() ? static_cast<int>(found - pages.begin()) : -1;
}

} // namespace

SoTabDialog::SoTabDialog()
{
  SO_QUILLFORM_CONSTRUCTOR(SoTabDialog);

  SO_QUILLFORM_ADD_FIELD(selectedPage, (0));
  SO_QUILLFORM_ADD_FIELD(tabsLocation, (TOP));
  if (SO_KIT_IS_FIRST_INSTANCE()) {
    SO_NODE_DEFINE_ENUM_VALUE(TabsLocation, TOP);
    SO_NODE_DEFINE_ENUM_VALUE(TabsLocation, BOTTOM);
    SO_NODE_DEFINE_ENUM_VALUE(TabsLocation, LEFT);
    SO_NODE_DEFINE_ENUM_VALUE(TabsLocation, RIGHT);
  }
  SO_NODE_SET_SF_ENUM_TYPE(tabsLocation, TabsLocation);

  typedef SoTabDialog Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::pagesSep, "pagesSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::pageSwitch, "pageSwitch", "SoSwitch", "pagesSep", FALSE},
    {&Self::pageSep, "pageSep", "SoSeparator", "pageSwitch", FALSE},
    {&Self::labelSep, "labelSep", "SoSeparator", "pageSep", FALSE},
    {&Self::labelSwitch, "labelSwitch", "SoSwitch", "labelSep", FALSE},
    {&Self::unselected, "unselected", "SoGroup", "labelSwitch", TRUE},
    {&Self::selected, "selected", "SoGroup", "labelSwitch", TRUE},
    {&Self::textSep, "textSep", "SoSeparator", "pageSep", FALSE},
    {&Self::textProp, "textProp", "SoGroup", "textSep", TRUE},
    {&Self::buttonsSep, "buttonsSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::lButtonSep, "lButtonSep", "SoSeparator", "buttonsSep", FALSE},
    {&Self::lButtonSwtch, "lButtonSwtch", "SoSwitch", "lButtonSep", FALSE},
    {&Self::lButtonReleased, "lButtonReleased", "SoGroup", "lButtonSwtch", TRUE},
    {&Self::lButtonPressed, "lButtonPressed", "SoGroup", "lButtonSwtch", TRUE},
    {&Self::rButtonSep, "rButtonSep", "SoSeparator", "buttonsSep", FALSE},
    {&Self::rButtonSwtch, "rButtonSwtch", "SoSwitch", "rButtonSep", FALSE},
    {&Self::rButtonReleased, "rButtonReleased", "SoGroup", "rButtonSwtch", TRUE},
    {&Self::rButtonPressed, "rButtonPressed", "SoGroup", "rButtonSwtch", TRUE},
    {&Self::frameSep, "frameSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::frame, "frame", "SoGroup", "frameSep", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoTabDialog::~SoTabDialog() = default;

// Auditors

void SoTabDialog::addAuditor(SoTabDialogAuditor* auditor)
{
  SoQuillform::addAuditor(auditor);
}

void SoTabDialog::removeAuditor(SoTabDialogAuditor* auditor)
{
  SoQuillform::removeAuditor(auditor);
}

void SoTabDialog::applyDlgCptAuditor()
{
  SoAuditorDispatch::applyOwnAuditors(this, &SoTabDialogAuditor::tabDialog);
}

void SoTabDialog::applyAuditor(SoQuillform* caller)
{
  applyOuterAuditor(caller); // the tab dialog's own auditors hear of pages only
}

// Sizes

SbVec2i32 SoTabDialog::getComponentInitSize()
{
  if (m_initSize[0] != -1) {
    return m_initSize;
  }
  // The margin is a lower bound, not added: this is meant.
  const int margins = SoBoxModel::clampPixels(2LL * margin.getValue());
  SbVec2i32 natural(margins, margins);
  setChildrenLabelSize();
  for (SoTopComponent* page : getComponents()) {
    const SbVec2i32 size = static_cast<SoDialogComponent*>(page)->getComponentInitSize();
    natural.setValue(std::max(natural[0], size[0]), std::max(natural[1], size[1]));
  }
  const bool isBeside = tabsLocation.getValue() == LEFT || tabsLocation.getValue() == RIGHT;
  natural += isBeside ? SbVec2i32(SoTabPlan::borderHeight, SoTabPlan::borderWidth)
                      : SbVec2i32(SoTabPlan::borderWidth, SoTabPlan::borderHeight);
  m_initSize = natural;
  return m_initSize;
}

void SoTabDialog::getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  const SoBoxModel::Children pages = getComponents();
  m_leastPage.setValue(0, 0);
  size.setValue(0, 0);
  min.setValue(0, 0);
  max.setValue(0, 0);
  if (pages.empty()) {
    max.setValue(unbounded, unbounded);
  }
  for (SoTopComponent* page : pages) {
    SbVec2i32 pageSize(0, 0);
    SbVec2i32 pageMin(0, 0);
    SbVec2i32 pageMax(0, 0);
    page->getSize(pageSize, pageMin, pageMax);
    const SbVec2i32 pageLeast = SoBoxModel::getLeastSizeOf(page, pageSize, pageMin, pageMax);
    for (int i = 0; i < 2; i++) {
      size[i] = std::max(size[i], pageSize[i]);
      min[i] = std::max(min[i], pageMin[i]);
      max[i] = std::max(max[i], pageMax[i]);
      m_leastPage[i] = std::max(m_leastPage[i], pageLeast[i]);
    }
  }
  const auto around = static_cast<int>(std::clamp(2LL * margin.getValue(), -1LL * unbounded, 1LL * unbounded));
  for (int i = 0; i < 2; i++) {
    size[i] += around;
    min[i] += around;
    max[i] = max[i] > unbounded - around ? unbounded : max[i] + around;
  }
}

SbVec2i32 SoTabDialog::getLeastFrameSize() const
{
  // The window has its tabs above the pages whatever tabsLocation says, and both forms have one size.
  constexpr int large = 1000; // what stands around the pages is the same for every size
  QSize page(large, large);
  for (const int side : {static_cast<int>(TOP), tabsLocation.getValue()}) {
    page = page.boundedTo(SoTabPlan(QSize(large, large), side, getNumChildren() > 0).getPage().size());
  }
  const int around = large + 2 * SoTabPlan::inset;
  return m_leastPage + SbVec2i32(around - page.width(), around - page.height());
}

void SoTabDialog::fixSizeWithBorder(SbVec2i32& size, int times)
{
  // The same wherever the tabs are, unlike the initial size: this is meant.
  addBorder(size, SbVec2i32(SoTabPlan::borderWidth, SoTabPlan::borderHeight), times);
}

SoPlannedContents SoTabDialog::getPlannedContents()
{
  return SoDialogComponent::getPlannedContents(); // the pages are in no layout of the dialog
}

void SoTabDialog::setChildrenComponentSize()
{
  SoBoxModel::giveOwnComponentSizes(getComponents());
}

void SoTabDialog::setChildrenLabelSize()
{
  SoBoxModel::giveOwnLabelSizes(getComponents());
}

// Pages

void SoTabDialog::setSelectedPageQuietly(int page)
{
  const SoWatchedFields::Pause pause(m_watched, selectedPage);
  selectedPage = page;
}

void SoTabDialog::clampSelectedPage()
{
  const int page = std::max(std::min(selectedPage.getValue(), getNumChildren() - 1), 0);
  if (page != selectedPage.getValue()) {
    setSelectedPageQuietly(page);
  }
}

void SoTabDialog::followPages()
{
  const SoBoxModel::Children pages = getComponents();
  if (std::equal(pages.begin(), pages.end(), m_pages.begin(), m_pages.end())) {
    return;
  }
  const int before = selectedPage.getValue();
  if (before >= 0 && before < static_cast<int>(m_pages.size())) {
    const int now = findPage(pages, m_pages[static_cast<std::size_t>(before)]);
    if (now >= 0 && now != before) {
      setSelectedPageQuietly(now);
    }
  }
  m_pages.assign(pages.begin(), pages.end());
  m_pageLabels.clear();
  for (SoTopComponent* page : pages) {
    m_pageLabels.push_back(std::make_unique<SoFieldSensor>(pageLabelChangedCB, this));
    m_pageLabels.back()->setPriority(0);
    m_pageLabels.back()->attach(&page->label);
  }
}

void SoTabDialog::updateAfterSceneGraphChange()
{
  if (m_isFollowing) {
    followPages();
    if (!getFirstTopParent(0, 0)) {
      updatePages(); // nobody else builds the tab dialog anew
    }
  }
  inherited::updateAfterSceneGraphChange();
}

void SoTabDialog::updatePages()
{
  setChildrenLabelSize();
  setChildrenComponentSize();
  if (getRelay<SoDialogQTabDialog>()) {
    updateChildren();
  }
  if (isLive3D()) {
    change3DPages();
  }
}

void SoTabDialog::pageLabelChangedCB(void* data, SoSensor* /*sensor*/)
{
  auto* self = static_cast<SoTabDialog*>(data);
  if (self->isWidgetBuilt()) {
    self->updateTabLabels();
  }
  if (self->isLive3D()) {
    self->update3DTabs();
  }
}

// Building

QBoxLayout* SoTabDialog::getLayoutFor(const SoQuillform* child) const
{
  auto* relay = getRelay<SoDialogQTabDialog>();
  return relay ? relay->getLayout(findPage(m_tabs, child)) : nullptr;
}

SbBool SoTabDialog::hasVerticalCells() const
{
  return TRUE;
}

void SoTabDialog::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  m_isFollowing = true;
  followPages();
  inherited::buildWidget(parent, size, position, asWidget);
  m_watched.watch(selectedPage);
  m_watched.watch(tabsLocation);
}

void SoTabDialog::createGroupWidget()
{
  setFrame(new SoDialogQTabDialog(getWidget(), this));
  m_tabs.clear();
  changeEdgeStyle();
  changeEnable();
  changeLabel();
  addFrameToCell();
}

void SoTabDialog::followTabs()
{
  auto* relay = getRelay<SoDialogQTabDialog>();
  const SoBoxModel::Children pages = getComponents();
  for (std::size_t i = m_tabs.size(); i-- > 0;) {
    if (findPage(pages, static_cast<const SoQuillform*>(m_tabs[i])) < 0) {
      relay->removeTab(static_cast<int>(i));
      m_tabs.erase(m_tabs.begin() + static_cast<std::ptrdiff_t>(i));
    }
  }
  for (std::size_t i = 0; i < pages.size(); i++) {
    if (i >= m_tabs.size() || m_tabs[i] != pages[i]) {
      relay->insertTab(static_cast<int>(i), SoText::toQt(getTabLabel(pages[i])));
      m_tabs.insert(m_tabs.begin() + static_cast<std::ptrdiff_t>(i), pages[i]);
    }
  }
}

void SoTabDialog::updateChildren()
{
  if (takesFrame()) {
    createGroupWidget();
  }
  if (!getRelay<SoDialogQTabDialog>()) {
    return;
  }
  followTabs();
  for (SoTopComponent* page : getComponents()) {
    SbVec2i32 size(0, 0);
    SbVec2i32 place(0, 0);
    page->buildWidget(getLayoutFor(page)->parentWidget(), size, place, 1);
  }
  changeSelectedPage();
  placeWidgets();
}

void SoTabDialog::updateTabPageWidget(int page)
{
  for (int i = 0; i < getNumChildren(); i++) {
    QWidget* widget = getChild(i)->getWidget();
    if (widget && i != page) {
      widget->hide();
    }
  }
  QWidget* widget = page >= 0 && page < getNumChildren() ? getChild(page)->getWidget() : nullptr;
  if (widget) {
    widget->show();
  }
}

void SoTabDialog::placeWidgets()
{
  updateTabWidget();
}

void SoTabDialog::updateTabWidget()
{
  if (auto* relay = getRelay<SoDialogQTabDialog>()) {
    constexpr int inset = SoTabPlan::inset;
    const SbVec2i32 size = getFrameSize();
    relay->tabDialogWidgetPos(inset, inset, size[0] - 2 * inset, size[1] - 2 * inset);
  }
}

void SoTabDialog::updateTabLabels()
{
  if (auto* relay = getRelay<SoDialogQTabDialog>()) {
    for (std::size_t i = 0; i < m_tabs.size(); i++) {
      relay->setTabLabel(static_cast<int>(i), SoText::toQt(getTabLabel(m_tabs[i])));
    }
  }
}

// Reactions

void SoTabDialog::eventNotify(unsigned int event, unsigned long /*data*/)
{
  const int page = static_cast<int>(event);
  if (page == selectedPage.getValue() || page >= getNumChildren()) {
    return;
  }
  const auto show = [this] {
    if (isWidgetBuilt()) {
      changeSelectedPage();
    }
    if (isLive3D()) {
      change3DSelectedPage();
    }
  };
  setSelectedPageQuietly(page);
  show();
  applyDlgCptAuditor();
  show(); // an auditor may have selected another one
}

void SoTabDialog::updateFromSensor(SoSensor* sensor)
{
  const SoField* field = SoWatchedFields::getFired(sensor);
  if (field == &selectedPage) {
    if (isWidgetBuilt()) {
      changeSelectedPage();
    }
    if (isLive3D()) {
      change3DSelectedPage();
    }
  }
  else if (field == &tabsLocation) {
    m_initSize.setValue(-1, -1);
    if (isLive3D()) {
      change3DPages();
    }
  }
  else {
    inherited::updateFromSensor(sensor);
  }
}

void SoTabDialog::changeSelectedPage()
{
  clampSelectedPage();
  if (auto* relay = getRelay<SoDialogQTabDialog>()) {
    relay->setCurrentPage(selectedPage.getValue());
    updateTabPageWidget(selectedPage.getValue());
  }
}

// The 3D form

void SoTabDialog::create3DTabDialog()
{
  if (m_frameTransform) {
    return;
  }
  fillFromSkin("unselected", getSkin().getPart("TabDialogUnselectedTabFrame"));
  fillFromSkin("selected", getSkin().getPart("TabDialogSelectedTabFrame"));
  fillFromSkin("textProp", SoTextSkin::getProperties());
  fillFromSkin("lButtonReleased", getSkin().getPart("TabDialogLeftButtonReleased"));
  fillFromSkin("lButtonPressed", getSkin().getPart("TabDialogLeftButtonPressed"));
  fillFromSkin("rButtonReleased", getSkin().getPart("TabDialogRightButtonReleased"));
  fillFromSkin("rButtonPressed", getSkin().getPart("TabDialogRightButtonPressed"));
  fillFromSkin("frame", getSkin().getPart("TabDialogFrame"));
  m_frameTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("frameSep"));

  So3DTabBar::Parts parts = {};
  parts.tabs = makePart<SoSwitch>("pageSwitch");
  parts.firstTab = makePart<SoSeparator>("pageSep");
  parts.firstPlate = makePart<SoSeparator>("labelSep");
  parts.firstLooks = makePart<SoSwitch>("labelSwitch");
  parts.firstText = makePart<SoSeparator>("textSep");
  parts.looks[0] = makePart<SoGroup>("unselected");
  parts.looks[1] = makePart<SoGroup>("selected");
  parts.textProperties = makePart<SoGroup>("textProp");
  parts.textLook = getTextLook();
  parts.buttons[So3DTabBar::BACK] = makePart<SoSeparator>("lButtonSep");
  parts.buttons[So3DTabBar::FORTH] = makePart<SoSeparator>("rButtonSep");
  parts.buttonLooks[So3DTabBar::BACK] = makePart<SoSwitch>("lButtonSwtch");
  parts.buttonLooks[So3DTabBar::FORTH] = makePart<SoSwitch>("rButtonSwtch");
  m_bar3D.attach(parts);
  listenToPointer3D();
}

SoTabPlan SoTabDialog::getPlan3D() const
{
  const QSize size(get3DSize()[0] - 2 * SoTabPlan::inset, get3DSize()[1] - 2 * SoTabPlan::inset);
  return {size, tabsLocation.getValue(), getNumChildren() > 0};
}

std::vector<QRect> SoTabDialog::planChildren()
{
  const QRect room = getPlan3D().getPage().translated(SoTabPlan::inset, SoTabPlan::inset);
  std::vector<QRect> rects;
  for (SoTopComponent* page : getComponents()) {
    SoBoxModel box(1); // the layout that a page has to itself in the window
    box.measure({page});
    rects.push_back(box.plan({page}, room.size(), 0, 0, hasVerticalCells())[0].translated(room.topLeft()));
  }
  return rects;
}

float SoTabDialog::getFaceHeight() const
{
  return faceHeight + paneHeight;
}

void SoTabDialog::update3DChildren()
{
  create3DTabDialog();
  clampSelectedPage();
  inherited::update3DChildren();
  const QRect pane = getPlan3D().getPane().translated(SoTabPlan::inset, SoTabPlan::inset);
  So3DPlacement::place(m_frameTransform, pane, get3DSize(), faceHeight);
  m_bar3D.revealSelected();
  update3DTabs();
  show3DSelectedPage();
}

void SoTabDialog::change3DPages()
{
  update3DChildren();
}

void SoTabDialog::update3DTabs()
{
  std::vector<SbString> labels;
  for (SoTopComponent* page : getComponents()) {
    labels.push_back(getTabLabel(page));
  }
  m_bar3D.show({labels, selectedPage.getValue(), getPlan3D(), tabsLocation.getValue(),
                QPoint(SoTabPlan::inset, SoTabPlan::inset), get3DSize(), faceHeight},
               getBoundingBoxAction());
}

void SoTabDialog::change3DSelectedPage()
{
  clampSelectedPage();
  m_bar3D.revealSelected();
  update3DTabs();
  show3DSelectedPage();
}

SbBool SoTabDialog::shows3D(const SoQuillform* child) const
{
  return isShown3D() && getChild(selectedPage.getValue()) == child;
}

void SoTabDialog::show3DSelectedPage()
{
  for (SoTopComponent* page : getComponents()) {
    if (page->isShown3D() != shows3D(page)) {
      page->show3D(shows3D(page));
    }
  }
}

void SoTabDialog::change3DFirstPageLeft()
{
  m_bar3D.scroll(So3DTabBar::BACK);
  update3DTabs();
}

void SoTabDialog::change3DFirstPageRight()
{
  m_bar3D.scroll(So3DTabBar::FORTH);
  update3DTabs();
}

// The pointer in the scene

SoDialogComponent* SoTabDialog::getPressedPage()
{
  return getChild(m_bar3D.getPressedTab([this](SoNode* node) { return isUnderPointer(node) != FALSE; }));
}

void SoTabDialog::press3D()
{
  set3DCurrentActive(this);
  m_pressedPage = getPressedPage();
  m_pressedButton = m_bar3D.getPressedButton([this](SoNode* node) { return isUnderPointer(node) != FALSE; });
  if (m_pressedButton >= 0) {
    m_bar3D.press(static_cast<So3DTabBar::Button>(m_pressedButton), true);
  }
}

void SoTabDialog::release3D()
{
  set3DInactive();
  const int button = std::exchange(m_pressedButton, -1);
  const SoDialogComponent* page = std::exchange(m_pressedPage, nullptr);
  if (button >= 0) {
    m_bar3D.press(static_cast<So3DTabBar::Button>(button), false);
    if (m_bar3D.getPressedButton([this](SoNode* node) { return isUnderPointer(node) != FALSE; }) == button) {
      button == So3DTabBar::BACK ? change3DFirstPageLeft() : change3DFirstPageRight();
    }
  }
  else if (page && page == getPressedPage()) {
    eventNotify(static_cast<unsigned int>(findChild(page)), 0);
  }
}

// Keys in the scene: the arrows select the neighbouring pages

bool SoTabDialog::usesKeys3D() const
{
  return getNumChildren() > 0;
}

SbBool SoTabDialog::pressKey3D(const SoKeyboardEvent* event)
{
  const int page = So3DKeyboard::step(event, selectedPage.getValue(), getNumChildren(), 1);
  if (page >= 0) {
    eventNotify(static_cast<unsigned int>(page), 0);
  }
  return page >= 0;
}

QRect SoTabDialog::getKeyboardRect3D() const
{
  const SoTabPlan plan = getPlan3D();
  return plan.getBarRect(0, plan.getBarLength()).translated(SoTabPlan::inset, SoTabPlan::inset).adjusted(-1, -1, 1, 1);
}
