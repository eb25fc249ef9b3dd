#include <Quillform/menus/SoMenuPopup.h>

#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <QMenuBar>
#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoRebuildScope.h>
#include <Quillform/core/SoText.h>
#include <Quillform/menus/SoMenuBar.h>
#include <Quillform/menus/SoMenuSeparator.h>
#include <algorithm>

SO_QUILLFORM_SOURCE(SoMenuPopup, "MenuPopup")
SO_SKIN_SOURCE(SoMenuPopup, "MenuPopup.iv", "MenuPopupPressedFrame", "MenuPopupReleasedFrame", "MenuPopupReleasedShape",
               "MenuPopupPressedShape")

namespace {

constexpr int menuBorder = 1; // of the open menu's plate around the items
constexpr int arrowSize = 7;
constexpr int longestColumn = 504; // a longer menu goes on in a second column, in pixels

/// Heights in the scene.
constexpr float menuGap = 0.1F;   // between the menu and everything behind it
constexpr float panelFace = 1.1F; // of the items over the foot of the menu's plate

} // namespace

SoMenuPopup::SoMenuPopup()
    : m_children(this, {SoMenuItem::getClassTypeId, [this] {
                          if (!m_isBeingBuilt) {
                            updateAfterSceneGraphChange();
                          }
                        }})
{
  SO_QUILLFORM_CONSTRUCTOR(SoMenuPopup);

  typedef SoMenuPopup Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::frameSep, "frameSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::frameSwitch, "frameSwitch", "SoSwitch", "frameSep", FALSE},
    {&Self::released, "released", "SoGroup", "frameSwitch", TRUE},
    {&Self::pressed, "pressed", "SoGroup", "frameSwitch", TRUE},
    {&Self::shapeReleased, "shapeReleased", "SoGroup", "frameSwitch", TRUE},
    {&Self::shapePressed, "shapePressed", "SoGroup", "frameSwitch", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoMenuPopup::~SoMenuPopup()
{
  removeMenu();
}

SoChildElements* SoMenuPopup::getChildElements()
{
  return &m_children;
}

SoChildElements& SoMenuPopup::elements()
{
  return m_children;
}

std::vector<SoMenuItem*> SoMenuPopup::getItems() const
{
  std::vector<SoMenuItem*> items;
  for (int i = 0; i < getNumChildren(); i++) {
    items.push_back(getChild(i));
  }
  return items;
}

SbBool SoMenuPopup::readChildren(SoInput* in)
{
  return m_children.readChildren(in);
}

bool SoMenuPopup::isInBar() const
{
  return dynamic_cast<SoMenuBar*>(getParent()) != nullptr;
}

QMenu* SoMenuPopup::getMenu() const
{
  return m_menu;
}

void SoMenuPopup::applyAuditor(SoQuillform* caller)
{
  SoAuditorDispatch::handOn(this, caller);
}

// Building

void SoMenuPopup::buildMenu(void* parentMenu, int asWidget, int index)
{
  m_isBeingBuilt = true;
  const SbBool wasBuilt3D = isBuilt3D();
  inherited::buildMenu(parentMenu, asWidget, index);
  if (asWidget != 0) {
    insertMenuItem(index); // into a bar; into a menu that has happened
  }
  else {
    if (!wasBuilt3D) {
      create3DPopup(index);
    }
    update3DPopup();
    update3DChildren();
  }
  m_isBeingBuilt = false;
}

void SoMenuPopup::insertMenuItem(int /*index*/)
{
  if (m_menu) {
    return;
  }
  QMenuBar* bar = isInBar() ? static_cast<SoMenuBar*>(getParent())->getMenu() : nullptr;
  if (bar) {
    m_menu = bar->addMenu(QString());
  }
  else if (QMenu* around = getParentMenu()) {
    m_menu = around->addMenu(QString());
  }
  if (!m_menu) {
    return; // it stands nowhere
  }
  m_menu->setObjectName("ZEPSoMenuPopup");
  setWidgetFont(m_menu); // a menu inherits none
  changeLabel();
  changeEnable();
  m_builtItems.clear();
  buildItems();
}

void SoMenuPopup::buildItems()
{
  const std::vector<SoMenuItem*> items = getItems();
  // Items that were appended, one by one perhaps, do not make all others anew.
  const bool isLonger =
    m_builtItems.size() <= items.size() && std::equal(m_builtItems.cbegin(), m_builtItems.cend(), items.cbegin());
  if (!isLonger) {
    const SoRebuildScope rebuild;
    for (SoMenuItem* item : items) {
      item->destroyWidget();
    }
    m_menu->clear(); // separators
    m_builtItems.clear();
  }
  for (std::size_t i = m_builtItems.size(); i < items.size(); i++) {
    items[i]->buildMenu(static_cast<QWidget*>(m_menu), 1, -1);
  }
  m_builtItems = items;
}

void SoMenuPopup::removeMenu()
{
  m_builtItems.clear();
  if (m_menu) {
    // Not at once: the event that ends the menu may come from it.
    m_menu->hide();
    if (QWidget* around = m_menu->parentWidget()) {
      around->removeAction(m_menu->menuAction());
    }
    m_menu->deleteLater();
    m_menu = nullptr;
  }
}

void SoMenuPopup::destroyWidget()
{
  set3DInactive();
  for (SoMenuItem* item : getItems()) {
    item->destroyWidget();
  }
  removeMenu();
  inherited::destroyWidget();
}

void SoMenuPopup::updateAfterSceneGraphChange()
{
  if (m_menu) {
    buildItems();
  }
  if (isBuilt3D() != 0) {
    update3DChildren();
    change3DPosition();
  }
}

// Reactions

void SoMenuPopup::changeLabel()
{
  if (m_menu) {
    m_menu->setTitle(SoText::toQt(getShownText()));
  }
}

void SoMenuPopup::changeEnable()
{
  if (m_menu) {
    m_menu->setEnabled(enable.getValue());
  }
}

// The 3D form

void SoMenuPopup::create3DPopup(int /*index*/)
{
  fillFromSkin("released", getSkin().getPart("MenuPopupReleasedFrame"));
  fillFromSkin("pressed", getSkin().getPart("MenuPopupPressedFrame"));
  fillFromSkin("shapeReleased", getSkin().getPart("MenuPopupReleasedShape"));
  fillFromSkin("shapePressed", getSkin().getPart("MenuPopupPressedShape"));
  m_titleTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("frameSep"));
  makePart<SoSwitch>("frameSwitch")->whichChild = 0;

  // The switch of the frames shows one child only; the arrow stands beside it.
  auto* arrow = new SoSeparator;
  m_arrowTransform = So3DPlacement::insertTransform(arrow);
  m_arrow = new SoSwitch;
  m_arrow->addChild(makePart<SoGroup>("shapeReleased"));
  m_arrow->addChild(makePart<SoGroup>("shapePressed"));
  arrow->addChild(m_arrow);
  makePart<SoSeparator>("frameSep")->addChild(arrow);

  m_panel = new SoSwitch;
  auto* panel = new SoSeparator;
  m_panelTransform = So3DPlacement::insertTransform(panel);
  panel->addChild(SoMenuSeparator::getSkin().getPart("MenuSeparatorFrame"));
  m_panel->addChild(panel);
  makePart<SoSwitch>("geomSwitch")->addChild(m_panel);
}

So3DMenuLine::Plates SoMenuPopup::getPlates() const
{
  return {}; // the title has its own
}

SbString SoMenuPopup::getShortcutText() const
{
  return ""; // that of a whole menu would be without effect
}

SoMenuItem::Columns SoMenuPopup::getColumns3D() const
{
  Columns columns;
  columns.arrows = arrowColumn;
  return columns;
}

void SoMenuPopup::update3DPopup()
{
  const SbVec2i32 size = getItemSize();
  So3DPlacement::place(m_titleTransform, QRect(0, 0, size[0], size[1]), size, plateFace);
  if (!m_arrow) {
    return;
  }
  // The arrow is scaled with the title around it, which is undone here.
  const SbVec2f scale(static_cast<float>(std::max(size[0], 1)), static_cast<float>(std::max(size[1], 1)));
  const float right = 0.5F - (static_cast<float>(textMargin) + static_cast<float>(arrowSize) * 0.5F) / scale[0];
  const float side = static_cast<float>(arrowSize);
  So3DPlacement::place(m_arrowTransform, SbVec2f(right, 0.0F), SbVec2f(side / scale[0], side / scale[1]), 0.0F);
  m_arrow->whichChild = isInBar() ? SO_SWITCH_NONE : (m_isOpen ? 1 : 0);
}

void SoMenuPopup::update3DItem()
{
  inherited::update3DItem();
  update3DPopup();
}

void SoMenuPopup::updateLines3D()
{
  if (!isInBar()) {
    inherited::updateLines3D();
    return;
  }
  if (m_line.isAttached()) {
    SbString title;
    buildTitleForMotifMenu(getShownText(), title);
    So3DMenuLine::Place place = getLinePlace(0);
    place.text = 1;
    place.shortcut = place.rect.width() - 1;
    m_line.setTexts(title, "");
    m_line.place(place, CENTER, getBoundingBoxAction());
  }
}

void SoMenuPopup::update3DChildrenSize()
{
  const std::vector<SoMenuItem*> items = getItems();
  Columns columns;
  for (const SoMenuItem* item : items) {
    const Columns needed = item->getColumns3D();
    columns.marks = std::max(columns.marks, needed.marks);
    columns.shortcuts = std::max(columns.shortcuts, needed.shortcuts);
    columns.arrows = std::max(columns.arrows, needed.arrows);
  }
  int width = 0;
  for (SoMenuItem* item : items) {
    width = std::max(width, item->getItemInitSize()[0] - item->getColumns3D().marks);
  }
  width += columns.marks + columns.shortcuts + columns.arrows;
  m_itemCorners.clear();
  QPoint corner(menuBorder, menuBorder);
  m_menuSize = QSize(2 * menuBorder, 2 * menuBorder);
  for (SoMenuItem* item : items) {
    item->setColumns3D(columns);
    item->setItemSize(SbVec2i32(width, itemHeight), 1);
    const int height = item->getItemSize()[1];
    if (corner.y() > menuBorder && corner.y() + height > longestColumn) {
      corner = QPoint(corner.x() + width, menuBorder);
    }
    m_itemCorners.push_back(corner);
    corner.ry() += height;
    m_menuSize = m_menuSize.expandedTo(QSize(corner.x() + width + menuBorder, corner.y() + menuBorder));
    if (item->isBuilt3D() != 0) {
      item->update3DItem();
    }
  }
  verifyMark3D();
}

void SoMenuPopup::update3DChildren()
{
  update3DChildrenSize();
  for (SoMenuItem* item : getItems()) {
    item->buildMenu(nullptr, 0, -1);
    item->show3D(m_isOpen ? 1 : 0);
  }
  enableItems3D();
}

QPoint SoMenuPopup::getMenuCorner() const
{
  // From the top-left corner of the title: below it, or at its right, where the first item stands beside it.
  return isInBar() ? QPoint(0, itemHeight + 1) : QPoint(getItemSize()[0], -menuBorder);
}

void SoMenuPopup::change3DPosition()
{
  if (!m_panel || !m_isOpen || m_itemCorners.size() != static_cast<std::size_t>(getNumChildren())) {
    return;
  }
  const SbVec2i32 size = getItemSize();
  const QPoint corner = getMenuCorner();
  So3DPlacement::place(m_panelTransform, QRect(corner, m_menuSize), size, m_lift);
  const SbVec3f topLeft(static_cast<float>(corner.x()) - static_cast<float>(size[0]) * 0.5F,
                        static_cast<float>(size[1]) * 0.5F - static_cast<float>(corner.y()), m_lift + panelFace);
  const std::vector<SoMenuItem*> items = getItems();
  for (std::size_t i = 0; i < items.size(); i++) {
    const SbVec2i32 itemSize = items[i]->getItemSize();
    const QPoint& at = m_itemCorners[i];
    SbVec3f place = get3DParentTranslation() + topLeft +
                    SbVec3f(static_cast<float>(at.x()) + static_cast<float>(itemSize[0]) * 0.5F,
                            -static_cast<float>(at.y()) - static_cast<float>(itemSize[1]) * 0.5F, 0.0F);
    items[i]->set3DParentTranslation(place);
  }
}

void SoMenuPopup::set3DParentTranslation(SbVec3f& translation)
{
  inherited::set3DParentTranslation(translation);
  change3DPosition();
}

SbBool SoMenuPopup::isOpen3D() const
{
  return m_isOpen;
}

float SoMenuPopup::getFront3D()
{
  SoQuillform* outermost = this;
  while (outermost->getParent()) {
    outermost = outermost->getParent();
  }
  SoGetBoundingBoxAction* measure = getBoundingBoxAction();
  measure->apply(outermost);
  const SbBox3f box = measure->getBoundingBox();
  return box.isEmpty() ? 0.0F : box.getMax()[2];
}

void SoMenuPopup::show3DChildren(int show)
{
  SoSwitch* const panel = m_panel;
  if ((show != 0) == m_isOpen || !panel) {
    return;
  }
  if (show != 0) {
    m_lift = getFront3D() - get3DParentTranslation()[2] + menuGap; // while nothing of the menu is shown
  }
  m_isOpen = show != 0;
  mark3D(nullptr, 0);
  for (SoMenuItem* item : getItems()) {
    if (show == 0 && item->isOfType(getClassTypeId())) {
      static_cast<SoMenuPopup*>(item)->show3DChildren(0);
    }
    item->show3D(show);
  }
  showTitleLook();
  panel->whichChild = m_isOpen && getNumChildren() > 0 ? SO_SWITCH_ALL : SO_SWITCH_NONE;
  update3DPopup();
}

void SoMenuPopup::showTitleLook()
{
  makePart<SoSwitch>("frameSwitch")->whichChild = m_isOpen || m_isMarked ? 1 : 0;
}

void SoMenuPopup::show3D(int show)
{
  if (show == 0) {
    set3DInactive();
  }
  inherited::show3D(show);
}

SbBool SoMenuPopup::shows3D(const SoQuillform* /*child*/) const
{
  return m_isOpen && isShown3D();
}

void SoMenuPopup::set3DInactive()
{
  show3DChildren(0);
  inherited::set3DInactive();
}

void SoMenuPopup::enableItems3D()
{
  const bool isUsable = enable.getValue() && isEnabledByParents();
  if (!isUsable) {
    set3DInactive();
  }
  for (SoMenuItem* item : getItems()) {
    item->change3DWidgetEnable(isUsable ? 1 : 0);
  }
  verifyMark3D();
  if (isInBar()) {
    static_cast<SoMenuBar*>(getParent())->updateKeyboard3D();
  }
}

void SoMenuPopup::change3DEnable()
{
  inherited::change3DEnable();
  enableItems3D();
}

void SoMenuPopup::change3DWidgetEnable(int enabled)
{
  inherited::change3DWidgetEnable(enabled);
  enableItems3D();
}

// The pointer in the scene

int SoMenuPopup::getLineUnderPointer3D()
{
  const bool isOnTitle = isUnderPointer(frameSep.getValue()) || isUnderPointer(labelSep.getValue()) ||
                         isUnderPointer(itemFrameSep.getValue());
  return isOnTitle ? 0 : -1;
}

void SoMenuPopup::setHeld3D(int /*line*/, bool /*held*/) {}

void SoMenuPopup::release3D() {}

void SoMenuPopup::draggerStartCallback3D()
{
  if (m_isOpen) {
    close3D();
  }
  else {
    open3D();
  }
}

void SoMenuPopup::close3D()
{
  if (isInBar()) {
    set3DInactive();
  }
  else {
    show3DChildren(0);
  }
}

void SoMenuPopup::open3D()
{
  SoMenuPopup* around = getMenuAround();
  if (!around) {
    set3DCurrentActive(this);
  }
  else {
    for (SoMenuItem* item : around->getItems()) {
      if (auto* other = dynamic_cast<SoMenuPopup*>(item)) {
        other->show3DChildren(0);
      }
    }
  }
  show3DChildren(1);
  change3DPosition();
}

// Keys in the scene

std::vector<SoMenuPopup::Stop> SoMenuPopup::getStops3D() const
{
  std::vector<Stop> stops;
  for (SoMenuItem* item : getItems()) {
    for (int line = 0; line < item->getNumUsableLines3D(); line++) {
      stops.emplace_back(item, line);
    }
  }
  return stops;
}

void SoMenuPopup::mark3D(SoMenuItem* item, int line)
{
  const Stop before = std::exchange(m_mark, {item, line});
  if (before.first) {
    before.first->setMarked3D(before.second, false);
  }
  if (item) {
    item->setMarked3D(line, true);
  }
}

void SoMenuPopup::moveMark3D(int step)
{
  const std::vector<Stop> stops = getStops3D();
  if (stops.empty()) {
    return;
  }
  const auto marked = std::find(stops.begin(), stops.end(), m_mark);
  const int count = static_cast<int>(stops.size());
  int next = step < 0 ? count - 1 : 0;
  if (marked != stops.end()) {
    next = (static_cast<int>(marked - stops.begin()) + step + count) % count;
  }
  mark3D(stops[static_cast<std::size_t>(next)].first, stops[static_cast<std::size_t>(next)].second);
}

SoMenuItem* SoMenuPopup::getMarkedItem3D() const
{
  const std::vector<Stop> stops = getStops3D();
  return std::find(stops.begin(), stops.end(), m_mark) != stops.end() ? m_mark.first : nullptr;
}

int SoMenuPopup::getMarkedLine3D() const
{
  return m_mark.second;
}

void SoMenuPopup::unmark3D(const SoMenuItem* item)
{
  if (m_mark.first == item) {
    mark3D(nullptr, 0);
  }
}

void SoMenuPopup::verifyMark3D()
{
  if (m_mark.first && !getMarkedItem3D()) {
    mark3D(nullptr, 0);
  }
}

void SoMenuPopup::setMarked3D(int /*line*/, bool marked)
{
  m_isMarked = marked;
  if (isBuilt3D() != 0) {
    showTitleLook();
  }
}
