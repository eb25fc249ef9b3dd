#include <Quillform/menus/SoMenuItem.h>

#include <Inventor/errors/SoDebugError.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <QMenu>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/core/SoText.h>
#include <Quillform/menus/SoMenuBar.h>
#include <Quillform/menus/SoMenuPopup.h>
#include <Quillform/menus/SoMenuPushButton.h>
#include <Quillform/menus/SoMenuQItem.h>
#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

SO_QUILLFORM_SOURCE(SoMenuItem, "MenuItem")
SO_SKIN_SOURCE(SoMenuItem, "MenuItem.iv", "MenuItemFrame")

namespace {

constexpr int markSize = 10;
constexpr int shortcutGap = 16; // between the longest text and the longest shortcut

/// A modifier as it may be written, and what it adds to the sum that stands for a set of modifiers.
struct Modifier {
  const char* word;
  std::uint16_t weight;
};

/// In the order in which they are looked for. There is no "meta": this is meant.
const Modifier modifiers[] = {
  {"Ctrl", 1},  {"CTRL", 1}, {"ctrl", 1}, {"Ctl", 1}, {"Shift", 2}, {"SHIFT", 2},
  {"shift", 2}, {"Meta", 4}, {"META", 4}, {"Alt", 8}, {"ALT", 8},   {"alt", 8},
};

bool isUsable(const QKeySequence& sequence)
{
  for (int i = 0; i < sequence.count(); i++) {
    if ((sequence[static_cast<uint>(i)] & ~static_cast<int>(Qt::KeyboardModifierMask)) == Qt::Key_unknown) {
      return false;
    }
  }
  return !sequence.isEmpty();
}

} // namespace

int SoMenuItem::ID = 0;

SoMenuItem::SoMenuItem()
{
  SO_QUILLFORM_CONSTRUCTOR(SoMenuItem);

  typedef SoMenuItem Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::itemFrameSep, "itemFrameSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::frame, "frame", "SoGroup", "itemFrameSep", TRUE},
    {&Self::labelSep, "labelSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::labelProp, "labelProp", "SoGroup", "labelSep", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoMenuItem::~SoMenuItem()
{
  SoMenuQItem::end(m_relay);
}

SoMenuBar* SoMenuItem::getMenuBar() const
{
  for (SoQuillform* around = getParent(); around; around = around->getParent()) {
    if (auto* bar = dynamic_cast<SoMenuBar*>(around)) {
      return bar;
    }
  }
  return nullptr;
}

// Texts

SbString SoMenuItem::getAccelerator(const SbString& label)
{
  const std::string text = label.getString();
  const std::size_t tab = text.find('\t');
  return tab == std::string::npos ? "" : text.c_str() + tab + 1;
}

SbString SoMenuItem::getKeyCombination(const SbString& accel, SoMenuItem* /*item*/, unsigned int /*flags*/)
{
  std::string key = accel.getString();
  std::uint16_t sum = 0;
  for (const Modifier& modifier : modifiers) {
    const std::string word = modifier.word;
    for (std::size_t at = key.find(word); at != std::string::npos; at = key.find(word)) {
      key.erase(at, word.size());
      sum = static_cast<std::uint16_t>(sum + modifier.weight); // twice "Ctrl" is as much as "Shift": this is meant
    }
  }
  key.erase(std::remove(key.begin(), key.end(), '+'), key.end());

  std::string combination;
  const auto take = [&combination, &sum](int above, const char* name, int weight) {
    if (sum > above) {
      combination += name;
      sum = static_cast<std::uint16_t>(sum - weight);
    }
  };
  take(7, "Alt+", 8);
  take(3, "Meta+", 4);
  take(1, "Shift+", 2);
  if (sum == 1) {
    combination += "Ctrl+";
  }
  return (combination + key).c_str();
}

char SoMenuItem::buildTitleForMotifMenu(const SbString& label, SbString& title)
{
  std::string shown;
  char mnemonic = 0;
  for (const char* at = label.getString(); *at != '\0' && *at != '\t'; ++at) {
    if (*at == '&') {
      ++at;
      if (*at == '\0') {
        break;
      }
      mnemonic = *at;
    }
    shown += *at;
  }
  title = shown.c_str();
  return mnemonic;
}

SbString SoMenuItem::getShownText() const
{
  return convertToCString(label.getValue(), this);
}

SbString SoMenuItem::getShortcutText() const
{
  return getAccelerator(getShownText());
}

QKeySequence SoMenuItem::toKeySequence(const SbString& combination)
{
  const QString text = SoText::toQt(combination);
  return text.isEmpty() ? QKeySequence() : QKeySequence(QObject::tr(text.toUtf8().constData())); // never of nothing
}

SbString SoMenuItem::getShortcut(const SbString& accel, SbString& refused) const
{
  const SbString combination = getKeyCombination(accel, nullptr, 0);
  const bool isAccepted = accel.getLength() == 0 || isUsable(toKeySequence(combination));
  if (!isAccepted && accel != refused) {
    SoDebugError::post("SoMenuItem::getShortcut",
                       "\"%s\" is no shortcut; the %s with the label \"%s\" and the auditorID \"%s\" gets none.",
                       accel.getString(), getTypeId().getName().getString(), label.getValue().getString(),
                       auditorID.getValue().getString());
  }
  refused = isAccepted ? SbString() : accel;
  return isAccepted ? combination : SbString();
}

SbString SoMenuItem::nameShortcut(const SbString& text, const SbString& accel)
{
  const SbString written = getAccelerator(text);
  if (written.getLength() > 0) {
    return written;
  }
  const QKeySequence sequence = toKeySequence(getKeyCombination(accel, nullptr, 0));
  return isUsable(sequence) ? SoText::fromQt(sequence.toString(QKeySequence::NativeText)) : SbString();
}

// Building

void SoMenuItem::buildMenu(void* parentMenu, int asWidget, int index)
{
  SbVec2i32 size(0, 0);
  SbVec2i32 position(0, 0);
  buildWidget(nullptr, size, position, asWidget);
  if (asWidget != 0) {
    m_parentMenu = static_cast<QWidget*>(parentMenu);
    if (m_relay && getParentMenu()) {
      m_relay->moveTo(getParentMenu());
    }
    else if (getParentMenu()) {
      insertMenuItem(index);
      updateMenuItem();
    }
    return;
  }
  if (isBuilt3D() == 0) {
    create3DItem(index);
    setBuilt3D(1);
  }
  update3DItem();
}

QMenu* SoMenuItem::getParentMenu() const
{
  return qobject_cast<QMenu*>(m_parentMenu);
}

void SoMenuItem::insertMenuItem(int /*index*/) {}

void SoMenuItem::setRelay(SoMenuQItem* relay)
{
  m_relay = relay;
}

SoMenuQItem* SoMenuItem::getRelay() const
{
  return m_relay;
}

void SoMenuItem::setShortcut(const SbString& accel)
{
  if (m_relay) {
    m_relay->setAccel(getShortcut(accel, m_refusedShortcut).getString());
  }
}

void SoMenuItem::destroyWidget()
{
  if (m_relay) {
    m_relay->takeOut();
  }
  m_parentMenu = nullptr;
  if (SoMenuPopup* menu = getMenuAround()) {
    menu->unmark3D(this); // it may leave the menu
  }
  inherited::destroyWidget();
}

// Reactions

void SoMenuItem::updateFromSensor(SoSensor* sensor)
{
  const SoField* field = SoWatchedFields::getFired(sensor);
  const bool standsInNoMenu = !isWidgetBuilt();
  inherited::updateFromSensor(sensor);
  // The action follows all the same, for the next menu.
  if (standsInNoMenu && field == &enable) {
    changeEnable();
  }
  else if (standsInNoMenu && field == &label) {
    changeLabel();
  }
}

void SoMenuItem::changeEnable()
{
  if (m_relay) {
    m_relay->setEnable(enable.getValue());
  }
}

void SoMenuItem::changeLabel()
{
  if (m_relay) {
    m_relay->setText(getShownText().getString());
  }
}

void SoMenuItem::menuEvent(void* /*action*/, int /*id*/) {}

void SoMenuItem::destroyNoDeleteMenuItem() {}

// Sizes

SbVec2i32 SoMenuItem::getItemInitSize()
{
  return {getLabelPixelSize(label.getValue(), this)[0] + 2 * textMargin, itemHeight};
}

void SoMenuItem::setItemSize(SbVec2i32 size, int force)
{
  if (m_itemSize == SbVec2i32(0, 0) || force != 0) {
    m_itemSize.setValue(size[0], getItemInitSize()[1]);
  }
}

SbVec2i32 SoMenuItem::getItemSize() const
{
  return m_itemSize;
}

SoMenuItem::Columns SoMenuItem::getColumns3D() const
{
  Columns columns;
  columns.shortcuts = getShortcutRoom(getShortcutText());
  return columns;
}

int SoMenuItem::getShortcutRoom(const SbString& shortcut)
{
  return shortcut.getLength() > 0 ? getLabelPixelSize(shortcut, nullptr)[0] + shortcutGap : 0;
}

void SoMenuItem::setColumns3D(const Columns& columns)
{
  m_columns = columns;
}

// The 3D form

void SoMenuItem::insertPlateLook(SoSwitch* geometry)
{
  auto* look = new SoMaterial;
  look->emissiveColor = SbColor(0.0F, 0.0F, 0.0F);
  for (SoField* field : {static_cast<SoField*>(&look->ambientColor), static_cast<SoField*>(&look->diffuseColor),
                         static_cast<SoField*>(&look->specularColor), static_cast<SoField*>(&look->shininess),
                         static_cast<SoField*>(&look->transparency)}) {
    field->setIgnored(TRUE);
  }
  geometry->insertChild(look, 2); // behind the pick style and the material of every element
}

void SoMenuItem::create3DItem(int /*index*/)
{
  insertPlateLook(makePart<SoSwitch>("geomSwitch"));
  loadFontProperties();
  apply3DParentTranslation();
  fillFromSkin("frame", getSkin().getPart("MenuItemFrame"));
  m_plateTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("itemFrameSep"));
  fillFromSkin("labelProp", SoTextSkin::getProperties());
  makePart<SoGroup>("labelProp");
  m_line.attach(makePart<SoSeparator>("labelSep"), makePart<SoGroup>("labelProp"), getTextLook(), getPlates());
  listenToPointer3D();
}

So3DMenuLine::Plates SoMenuItem::getPlates() const
{
  return {SoMenuPushButton::getSkin().getPart("MenuPushButtonReleased"),
          SoMenuPushButton::getSkin().getPart("MenuPushButtonPressed")};
}

So3DMenuLine::Place SoMenuItem::getLinePlace(int index) const
{
  So3DMenuLine::Place place;
  place.frame = m_itemSize;
  place.rect = QRect(0, index * itemHeight, m_itemSize[0], itemHeight);
  place.text = textMargin + m_columns.marks;
  place.shortcut = m_itemSize[0] - textMargin - m_columns.arrows;
  place.plate = plateFace;
  place.surface = textSurface;
  return place;
}

QRect SoMenuItem::getMarkRect(int index) const
{
  const int margin = (itemHeight - markSize) / 2;
  return {textMargin + (markColumn - markSize) / 2 - 2, index * itemHeight + margin, markSize, markSize};
}

void SoMenuItem::update3DItem()
{
  So3DPlacement::place(m_plateTransform, QRect(0, 0, m_itemSize[0], m_itemSize[1]), m_itemSize, 0.0F);
  updateLines3D();
}

void SoMenuItem::updateLines3D()
{
  if (m_line.isAttached()) {
    SbString title;
    buildTitleForMotifMenu(getShownText(), title);
    m_line.setTexts(title, getShortcutText());
    m_line.place(getLinePlace(0), LEFT, getBoundingBoxAction());
  }
}

void SoMenuItem::updateMenu3D()
{
  if (auto* bar = dynamic_cast<SoMenuBar*>(getParent())) {
    bar->update3DBar();
  }
  else if (SoMenuPopup* menu = getMenuAround()) {
    menu->update3DChildrenSize();
    menu->change3DPosition();
  }
  else {
    update3DItem();
  }
}

void SoMenuItem::change3DLabel()
{
  inherited::change3DLabel();
  updateMenu3D();
}

void SoMenuItem::update3DAfterSkinChange()
{
  inherited::change3DLabel();
  m_line.forgetExtents();
  update3DItem();
}

void SoMenuItem::show3D(int show)
{
  if (show == 0 && m_pressedLine >= 0) {
    setHeld3D(m_pressedLine, false);
    m_pressedLine = -1;
  }
  inherited::show3D(show);
}

SbVec3f SoMenuItem::getLaunchPlaceBeside3D() const
{
  constexpr float gap = 8.0F;
  const float right = static_cast<float>(m_itemSize[0]) * 0.5F + gap;
  SbVec3f place = get3DParentTranslation() + SbVec3f(right, static_cast<float>(itemHeight) * 0.5F, launchedHeight);
  if (const SoMenuBar* bar = getMenuBar()) {
    // An open menu lies in front of everything, the dialog included, which must not move with it then.
    place[2] = bar->get3DParentTranslation()[2] + launchedHeight;
  }
  return place;
}

void SoMenuItem::closeMenus3D()
{
  SoQuillform* outermost = nullptr;
  for (SoQuillform* around = getParent(); dynamic_cast<SoMenuPopup*>(around); around = around->getParent()) {
    outermost = around;
  }
  if (outermost) {
    outermost->set3DInactive();
  }
}

SoMenuPopup* SoMenuItem::getMenuAround() const
{
  return dynamic_cast<SoMenuPopup*>(getParent());
}

void SoMenuItem::change3DEnable()
{
  inherited::change3DEnable();
  if (SoMenuPopup* menu = getMenuAround()) {
    menu->verifyMark3D();
  }
}

// Keys in the scene

int SoMenuItem::getNumLines3D() const
{
  return 1;
}

int SoMenuItem::getNumUsableLines3D() const
{
  return enable.getValue() && isEnabledByParents() ? getNumLines3D() : 0;
}

void SoMenuItem::setMarked3D(int line, bool marked)
{
  setHeld3D(line, marked);
}

void SoMenuItem::choose3DLine(int line)
{
  const SoEventScope scope(this, SoEventScope::getAction());
  m_pressedLine = line;
  draggerStartCallback3D();
  finishPress3D(true);
}

// The pointer in the scene

int SoMenuItem::getLineUnderPointer3D()
{
  return isUnderPointer(geomSwitch.getValue()) ? 0 : -1;
}

void SoMenuItem::setHeld3D(int /*line*/, bool held)
{
  m_line.setHeld(held);
}

int SoMenuItem::getPressedLine3D() const
{
  return m_pressedLine;
}

void SoMenuItem::press3D()
{
  if (SoMenuBar* bar = getMenuBar()) {
    bar->takeKeyboard3D();
  }
  if (SoMenuPopup* menu = getMenuAround()) {
    menu->mark3D(nullptr, 0); // one line at a time is highlighted
  }
  m_pressedLine = getLineUnderPointer3D();
  if (m_pressedLine >= 0) {
    draggerStartCallback3D();
  }
}

void SoMenuItem::drag3D()
{
  if (m_pressedLine >= 0) {
    setHeld3D(m_pressedLine, getLineUnderPointer3D() == m_pressedLine);
  }
}

void SoMenuItem::release3D()
{
  finishPress3D(getLineUnderPointer3D() == m_pressedLine);
}

void SoMenuItem::finishPress3D(bool isOverLine)
{
  // An entry that was taken out, or whose menu was closed, while it was held down is not there to be chosen.
  if (m_pressedLine < 0) {
    return;
  }
  if (getParent() && isOverLine) {
    draggerFinishCallback3D();
  }
  else {
    setHeld3D(m_pressedLine, false);
  }
  m_pressedLine = -1;
}

void SoMenuItem::draggerStartCallback3D()
{
  setHeld3D(m_pressedLine, true);
}

void SoMenuItem::draggerFinishCallback3D()
{
  setHeld3D(m_pressedLine, false);
  closeMenus3D();
}
