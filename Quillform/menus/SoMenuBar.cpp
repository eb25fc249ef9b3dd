#include <Quillform/menus/SoMenuBar.h>

#include <Inventor/errors/SoDebugError.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <QBoxLayout>
#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/core/So3DKeyboard.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoDialogComponent.h>
#include <Quillform/core/SoRebuildScope.h>
#include <algorithm>

SO_QUILLFORM_SOURCE(SoMenuBar, "MenuBar")
SO_SKIN_SOURCE(SoMenuBar, "MenuBar.iv", "MenuBarFrame")

namespace {

constexpr int barHeight = 19;
constexpr int barMargin = 5;   // left and right of the titles
constexpr int titleMargin = 9; // around each title, both sides together
constexpr int titleGap = 1;    // between the edge of the bar and the titles of a large font

constexpr float barFace = 1.0F; // height of the plate's front in the scene

} // namespace

SoMenuBar::SoMenuBar()
    : m_children(this, {SoMenuPopup::getClassTypeId, [this] {
                          if (!m_isBeingBuilt) {
                            updateAfterSceneGraphChange();
                          }
                        }})
{
  SO_QUILLFORM_CONSTRUCTOR(SoMenuBar);

  typedef SoMenuBar Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::frameSep, "frameSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::frame, "frame", "SoGroup", "frameSep", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoMenuBar::~SoMenuBar()
{
  removeBar();
}

SoChildElements* SoMenuBar::getChildElements()
{
  return &m_children;
}

SoChildElements& SoMenuBar::elements()
{
  return m_children;
}

std::vector<SoMenuPopup*> SoMenuBar::getMenus() const
{
  std::vector<SoMenuPopup*> menus;
  for (int i = 0; i < getNumChildren(); i++) {
    menus.push_back(getChild(i));
  }
  return menus;
}

SbBool SoMenuBar::readChildren(SoInput* in)
{
  return m_children.readChildren(in);
}

bool SoMenuBar::isFirstBar() const
{
  const SoQuillform* around = getParent();
  const SoChildElements* siblings = around ? around->getChildElements() : nullptr;
  for (int i = 0; siblings && i < siblings->getNum(); i++) {
    if (const auto* bar = dynamic_cast<const SoMenuBar*>(siblings->get(i))) {
      return bar == this;
    }
  }
  return true;
}

void SoMenuBar::applyAuditor(SoQuillform* caller)
{
  SoAuditorDispatch::handOn(this, caller);
}

SoQuillform* SoMenuBar::searchForAuditorId(SbString id)
{
  return SoAuditorDispatch::searchForAuditorId(this, id);
}

void SoMenuBar::getSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  size.setValue(0, 0);
  min.setValue(0, 0);
  max.setValue(SoDialogComponent::unbounded, SoDialogComponent::unbounded);
  if (!isFirstBar()) {
    return; // it is not shown
  }
  size.setValue(2 * barMargin, std::max(barHeight, getLabelPixelSize("X", this)[1] + titleGap));
  for (const SoMenuPopup* menu : getMenus()) {
    size[0] += getLabelPixelSize(menu->label.getValue(), menu)[0] + titleMargin;
  }
}

// Building

void SoMenuBar::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  m_isBeingBuilt = true;
  inherited::buildWidget(parent, size, position, asWidget);
  if (!isFirstBar()) {
    SoDebugError::post("SoMenuBar::buildWidget", "%s", "A dialog shows only the first of its menu bars.");
    destroyWidget();
    show3D(0);
  }
  else if (asWidget != 0) {
    if (!existMenuBar()) {
      createMenuBar(parent);
    }
    updateMenuBar();
    updateChildren();
  }
  else {
    if (isBuilt3D() == 0) {
      create3DBar();
      setBuilt3D(1);
    }
    m_size3D = size;
    update3DBar();
    update3DChildren();
  }
  m_isBeingBuilt = false;
}

SbBool SoMenuBar::existMenuBar() const
{
  return FALSE; // this is meant
}

QMenuBar* SoMenuBar::getMenu(void* /*parent*/)
{
  if (!m_bar) {
    SbVec2i32 size(0, 0);
    SbVec2i32 position(0, 0);
    const QBoxLayout* layout = getParent() ? getParent()->getLayoutFor(this) : nullptr;
    buildWidget(layout ? layout->parentWidget() : nullptr, size, position, 1);
  }
  return m_bar;
}

void SoMenuBar::createMenuBar(QWidget* parent)
{
  {
    const SoRebuildScope rebuild;
    removeBar();
  }
  m_bar = new QMenuBar(parent);
  m_bar->setObjectName("ZEPSoMenuBar");
  m_bar->setNativeMenuBar(false); // it belongs to the dialog, also where programs have one bar for all windows
  setWidgetFont(m_bar);
  SbVec2i32 size(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  getSize(size, min, max);
  m_bar->setFixedHeight(size[1]); // as in the scene
  changeEnable();
  if (parent) {
    m_bar->show(); // a layout gives no room to a bar that does not say so
  }
  QLayout* layout = getParent() ? getParent()->getLayoutFor(this) : nullptr;
  if (layout) {
    layout->setMenuBar(m_bar);
  }
}

void SoMenuBar::removeBar()
{
  for (SoMenuPopup* menu : getMenus()) {
    menu->destroyWidget();
  }
  if (m_bar) {
    // Not at once: the event that ends the bar may come from one of its menus. Its shortcuts are dead from here on.
    m_bar->hide();
    m_bar->setParent(nullptr);
    m_bar->deleteLater();
    m_bar = nullptr;
  }
}

void SoMenuBar::updateChildren()
{
  const std::vector<SoMenuPopup*> menus = getMenus();
  for (std::size_t i = 0; i < menus.size(); i++) {
    menus[i]->buildMenu(static_cast<QWidget*>(m_bar), 1, static_cast<int>(i));
  }
}

void SoMenuBar::destroyWidget()
{
  removeBar();
  inherited::destroyWidget();
}

void SoMenuBar::updateAfterSceneGraphChange()
{
  if (SoQuillform* around = getParent()) {
    around->updateAfterSceneGraphChange();
    return;
  }
  // It stands alone.
  SbVec2i32 size = m_size3D;
  SbVec2i32 position(0, 0);
  if (m_bar) {
    buildWidget(m_bar->parentWidget(), size, position, 1);
  }
  if (isBuilt3D() != 0) {
    buildWidget(nullptr, size, position, 0);
  }
}

void SoMenuBar::changeEnable()
{
  if (m_bar) {
    m_bar->setEnabled(enable.getValue());
  }
}

// The 3D form

void SoMenuBar::create3DBar()
{
  apply3DParentTranslation();
  SoMenuItem::insertPlateLook(makePart<SoSwitch>("geomSwitch"));
  fillFromSkin("frame", getSkin().getPart("MenuBarFrame"));
  m_frameTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("frameSep"));
  listenToPointer3D();
}

void SoMenuBar::update3DBar()
{
  const QRect rect(0, 0, m_size3D[0], m_size3D[1]);
  So3DPlacement::place(m_frameTransform, rect, m_size3D, 0.0F);
  update3DChildrenSize();
  change3DPosition();
  updateKeyboard3D();
}

void SoMenuBar::update3DChildrenSize()
{
  // In a dialog that is too narrow for them the titles are squeezed together.
  SbVec2i32 wanted(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  getSize(wanted, min, max);
  const float squeeze = std::min(1.0F, static_cast<float>(m_size3D[0] - 2 * barMargin) /
                                         static_cast<float>(std::max(wanted[0] - 2 * barMargin, 1)));
  for (SoMenuPopup* menu : getMenus()) {
    const int width = menu->getItemInitSize()[0] + titleMargin - 8;
    menu->setItemSize(SbVec2i32(std::max(static_cast<int>(static_cast<float>(width) * squeeze), 1), 0), 1);
    if (menu->isBuilt3D() != 0) {
      menu->update3DItem();
    }
  }
}

void SoMenuBar::update3DChildren()
{
  const std::vector<SoMenuPopup*> menus = getMenus();
  for (std::size_t i = 0; i < menus.size(); i++) {
    menus[i]->buildMenu(nullptr, 0, static_cast<int>(i));
    menus[i]->show3D(isShown3D());
  }
  enableMenus3D();
  change3DPosition();
  updateKeyboard3D();
}

void SoMenuBar::change3DPosition()
{
  const float height = static_cast<float>(SoMenuItem::itemHeight);
  SbVec3f corner =
    get3DParentTranslation() + SbVec3f(static_cast<float>(barMargin) - static_cast<float>(m_size3D[0]) * 0.5F,
                                       static_cast<float>(m_size3D[1]) * 0.5F, barFace);
  for (SoMenuPopup* menu : getMenus()) {
    const float width = static_cast<float>(menu->getItemSize()[0]);
    SbVec3f place = corner + SbVec3f(width * 0.5F, height * -0.5F, 0.0F);
    menu->set3DParentTranslation(place);
    corner[0] += width;
  }
}

void SoMenuBar::set3DParentTranslation(SbVec3f& translation)
{
  inherited::set3DParentTranslation(translation);
  change3DPosition();
}

void SoMenuBar::show3D(int show)
{
  const int isSeen = show != 0 && isFirstBar() ? 1 : 0;
  inherited::show3D(isSeen);
  for (SoMenuPopup* menu : getMenus()) {
    menu->show3D(isSeen);
  }
}

void SoMenuBar::enableMenus3D()
{
  for (SoMenuPopup* menu : getMenus()) {
    menu->change3DWidgetEnable(enable.getValue() && isEnabledByParents() ? 1 : 0);
  }
}

void SoMenuBar::change3DEnable()
{
  inherited::change3DEnable();
  enableMenus3D();
}

void SoMenuBar::change3DWidgetEnable(int enabled)
{
  inherited::change3DWidgetEnable(enabled);
  enableMenus3D();
}

void SoMenuBar::update3DAfterSkinChange()
{
  update3DBar();
}

void SoMenuBar::press3D()
{
  set3DCurrentActive(this); // an open menu closes
}

void SoMenuBar::release3D()
{
  set3DInactive();
}

// Keys in the scene

bool SoMenuBar::usesKeys3D() const
{
  return m_keys.getTitle() != nullptr;
}

void SoMenuBar::takeKeyboard3D()
{
  So3DKeyboard::take(this);
  m_keys.pointerUsed();
}

void SoMenuBar::updateKeyboard3D()
{
  if (usesKeys3D()) {
    So3DKeyboard::updateOutline(this);
  }
  else {
    So3DKeyboard::release(this);
  }
}

SbBool SoMenuBar::pressKey3D(const SoKeyboardEvent* event)
{
  return m_keys.press(event);
}

SbBox2f SoMenuBar::getKeyboardBox3D() const
{
  const SoMenuPopup* title = m_keys.getTitle();
  if (!title) {
    return inherited::getKeyboardBox3D();
  }
  constexpr float inset = 1.0F;
  const SbVec3f centre = title->get3DParentTranslation() - get3DParentTranslation();
  const SbVec2f half(static_cast<float>(title->getItemSize()[0]) * 0.5F - inset,
                     static_cast<float>(SoMenuItem::itemHeight) * 0.5F - inset);
  return {centre[0] - half[0], centre[1] - half[1], centre[0] + half[0], centre[1] + half[1]};
}
