#include <Quillform/menus/SoMenuRadioButtons.h>

#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/auditors/SoMenuRadioButtonsAuditor.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/menus/SoMenuQRadioButtons.h>
#include <algorithm>
#include <utility>

SO_QUILLFORM_SOURCE(SoMenuRadioButtons, "MenuRadioButtons")
SO_SKIN_SOURCE(SoMenuRadioButtons, "MenuRadioButtons.iv", "MenuRadioButtonsStateOn", "MenuRadioButtonsStateOff")

SoMenuRadioButtons::SoMenuRadioButtons()
{
  SO_QUILLFORM_CONSTRUCTOR(SoMenuRadioButtons);

  SO_QUILLFORM_ADD_FIELD(items, (""));
  SO_QUILLFORM_ADD_FIELD(selectedItem, (0));
  SO_QUILLFORM_ADD_FIELD(accelerators, (""));

  typedef SoMenuRadioButtons Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::radioSep, "radioSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::itemsSep, "itemsSep", "SoSeparator", "radioSep", FALSE},
    {&Self::itemSwtch, "itemSwtch", "SoSwitch", "itemsSep", FALSE},
    {&Self::stateOff, "stateOff", "SoGroup", "itemSwtch", TRUE},
    {&Self::stateOn, "stateOn", "SoGroup", "itemSwtch", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoMenuRadioButtons::~SoMenuRadioButtons()
{
  endRelays();
}

// Auditors

void SoMenuRadioButtons::addAuditor(SoMenuRadioButtonsAuditor* auditor)
{
  inherited::addAuditor(auditor);
}

void SoMenuRadioButtons::removeAuditor(SoMenuRadioButtonsAuditor* auditor)
{
  inherited::removeAuditor(auditor);
}

void SoMenuRadioButtons::applyDlgCptAuditor()
{
  SoAuditorDispatch::applyOwnAuditors(this, &SoMenuRadioButtonsAuditor::menuRadioButtons);
}

SbString SoMenuRadioButtons::getSelectedText() const
{
  const int index = selectedItem.getValue();
  return index >= 0 && index < items.getNum() ? items[index] : SbString();
}

// Building

SbVec2i32 SoMenuRadioButtons::getItemInitSize()
{
  int width = 0;
  for (int i = 0; i < items.getNum(); i++) {
    width = std::max(width, getLabelPixelSize(items[i], this)[0]);
  }
  return {width + markColumn + 2 * textMargin, itemHeight * items.getNum()};
}

void SoMenuRadioButtons::buildMenu(void* parentMenu, int asWidget, int index)
{
  inherited::buildMenu(parentMenu, asWidget, index);
  m_watched.watch(items);
  m_watched.watch(selectedItem);
  m_watched.watch(accelerators);
}

void SoMenuRadioButtons::insertMenuItem(int /*index*/)
{
  // Qt may have destroyed the relays, at the end of the application object.
  const bool isComplete = std::all_of(m_relays.cbegin(), m_relays.cend(),
                                      [](const QPointer<SoMenuQRadioButtons>& relay) { return !relay.isNull(); });
  if (!m_isInserted || !isComplete) {
    makeRelays();
  }
  for (SoMenuQRadioButtons* relay : m_relays) {
    relay->moveTo(getParentMenu());
  }
}

void SoMenuRadioButtons::makeRelays()
{
  endRelays();
  m_isInserted = true;
  m_firstId = ID;
  for (int i = 0; i < items.getNum(); i++) {
    m_relays.emplace_back(new SoMenuQRadioButtons(getParentMenu(), -1, ID++, this));
  }
  changeSelectedItem();
  changeLabel();
  changeAccelerators();
  changeEnable();
}

void SoMenuRadioButtons::endRelays()
{
  for (SoMenuQRadioButtons* relay : std::exchange(m_relays, {})) {
    SoMenuQItem::end(relay);
  }
}

void SoMenuRadioButtons::destroyWidget()
{
  for (SoMenuQRadioButtons* relay : m_relays) {
    if (relay) {
      relay->takeOut();
    }
  }
  inherited::destroyWidget();
}

// Reactions

void SoMenuRadioButtons::menuEvent(void* /*action*/, int id)
{
  choose(id - m_firstId);
}

void SoMenuRadioButtons::choose(int entry)
{
  const SoEventScope scope(this, SoEventScope::getAction());
  {
    const SoWatchedFields::Pause pause(m_watched, selectedItem);
    selectedItem = entry;
  }
  applyDlgCptAuditor();
  // Qt has unchecked the entry when it was the selected one already.
  changeSelectedItem();
  if (isLive3D()) {
    change3DSelectedItem();
  }
}

void SoMenuRadioButtons::updateFromSensor(SoSensor* sensor)
{
  const SoField* field = SoWatchedFields::getFired(sensor);
  if (field == &selectedItem) {
    changeSelectedItem();
    if (isLive3D()) {
      change3DSelectedItem();
    }
  }
  else if (field == &items) {
    changeItems();
    if (isLive3D()) {
      change3DItems();
    }
  }
  else if (field == &accelerators) {
    changeAccelerators();
    if (isLive3D()) {
      updateMenu3D();
    }
  }
  else {
    inherited::updateFromSensor(sensor);
  }
}

void SoMenuRadioButtons::verifySelectedItem()
{
  const int last = items.getNum() - 1;
  const int selected = selectedItem.getValue();
  const int verified = selected < 0 ? 0 : (last >= 0 ? std::min(selected, last) : selected);
  if (verified != selected) {
    {
      const SoWatchedFields::Pause pause(m_watched, selectedItem);
      selectedItem = verified;
    }
    changeSelectedItem();
    if (isLive3D()) {
      change3DSelectedItem();
    }
  }
}

void SoMenuRadioButtons::changeSelectedItem()
{
  for (std::size_t i = 0; i < m_relays.size(); i++) {
    if (m_relays[i]) {
      m_relays[i]->setChecked(static_cast<int>(i) == selectedItem.getValue());
    }
  }
}

void SoMenuRadioButtons::changeLabel()
{
  for (int i = 0; i < items.getNum() && i < static_cast<int>(m_relays.size()); i++) {
    if (SoMenuQRadioButtons* relay = m_relays[static_cast<std::size_t>(i)]) {
      relay->setText(items[i].getString());
    }
  }
}

void SoMenuRadioButtons::changeEnable()
{
  for (SoMenuQRadioButtons* relay : m_relays) {
    if (relay) {
      relay->setEnable(enable.getValue());
    }
  }
}

void SoMenuRadioButtons::changeItems()
{
  if (m_isInserted) {
    makeRelays(); // at the end of the menu: this is meant
  }
}

void SoMenuRadioButtons::changeAccelerators()
{
  m_refused.resize(m_relays.size());
  for (std::size_t i = 0; i < m_relays.size(); i++) {
    const bool hasOne = static_cast<int>(i) < accelerators.getNum();
    if (m_relays[i]) {
      const SbString accel = hasOne ? accelerators[static_cast<int>(i)] : SbString();
      m_relays[i]->setAccel(getShortcut(accel, m_refused[i]).getString());
    }
  }
}

// The 3D form

SbString SoMenuRadioButtons::getShownText() const
{
  return ""; // of the group as a whole
}

SbString SoMenuRadioButtons::getEntryShortcut(int index) const
{
  return nameShortcut(items[index], index < accelerators.getNum() ? accelerators[index] : SbString());
}

SoMenuItem::Columns SoMenuRadioButtons::getColumns3D() const
{
  Columns columns;
  columns.marks = markColumn;
  for (int i = 0; i < items.getNum(); i++) {
    columns.shortcuts = std::max(columns.shortcuts, getShortcutRoom(getEntryShortcut(i)));
  }
  return columns;
}

void SoMenuRadioButtons::create3DItem(int index)
{
  inherited::create3DItem(index);
  fillFromSkin("stateOff", getSkin().getPart("MenuRadioButtonsStateOff"));
  fillFromSkin("stateOn", getSkin().getPart("MenuRadioButtonsStateOn"));
  addRow(makePart<SoSeparator>("itemsSep"), makePart<SoSwitch>("itemSwtch"));
}

void SoMenuRadioButtons::addRow(SoSeparator* mark, SoSwitch* state)
{
  Row row = {mark, new SoSeparator, So3DPlacement::insertTransform(mark), state, {}};
  makePart<SoSeparator>("labelSep")->addChild(row.text);
  row.text->addChild(makePart<SoGroup>("labelProp"));
  row.line.attach(row.text, makePart<SoGroup>("labelProp"), getTextLook(), inherited::getPlates());
  m_rows.push_back(row);
}

void SoMenuRadioButtons::setRowCount(int count)
{
  auto* marks = makePart<SoSeparator>("radioSep");
  auto* texts = makePart<SoSeparator>("labelSep");
  while (static_cast<int>(m_rows.size()) > std::max(count, 1)) { // the first one is a part of the element
    marks->removeChild(m_rows.back().mark);
    texts->removeChild(m_rows.back().text);
    m_rows.pop_back();
  }
  while (static_cast<int>(m_rows.size()) < count) {
    auto* mark = new SoSeparator;
    auto* state = new SoSwitch;
    state->addChild(makePart<SoGroup>("stateOff"));
    state->addChild(makePart<SoGroup>("stateOn"));
    mark->addChild(state);
    marks->addChild(mark);
    addRow(mark, state);
  }
}

void SoMenuRadioButtons::updateLines3D()
{
  if (m_rows.empty()) {
    return;
  }
  setRowCount(items.getNum());
  for (int i = 0; i < items.getNum(); i++) {
    Row& row = m_rows[static_cast<std::size_t>(i)];
    SbString title;
    buildTitleForMotifMenu(items[i], title);
    row.line.setTexts(title, getEntryShortcut(i));
    row.line.place(getLinePlace(i), LEFT, getBoundingBoxAction());
    So3DPlacement::place(row.markTransform, getMarkRect(i), getItemSize(), textSurface);
  }
  change3DSelectedItem();
}

void SoMenuRadioButtons::change3DItems()
{
  updateMenu3D();
}

void SoMenuRadioButtons::change3DSelectedItem()
{
  for (std::size_t i = 0; i < m_rows.size(); i++) {
    const bool isSelected = static_cast<int>(i) == selectedItem.getValue();
    // Without entries the first row shows nothing.
    m_rows[i].state->whichChild = static_cast<int>(i) >= items.getNum() ? SO_SWITCH_NONE : (isSelected ? 1 : 0);
  }
}

void SoMenuRadioButtons::update3DAfterSkinChange()
{
  for (Row& row : m_rows) {
    row.line.forgetExtents();
  }
  inherited::update3DAfterSkinChange();
}

So3DMenuLine::Plates SoMenuRadioButtons::getPlates() const
{
  return {}; // each row has its own
}

int SoMenuRadioButtons::getNumLines3D() const
{
  return items.getNum();
}

int SoMenuRadioButtons::getLineUnderPointer3D()
{
  if (inherited::getLineUnderPointer3D() < 0) {
    return -1;
  }
  // Lines have no plates of their own: where on the group's plate the pointer is says which one it is.
  const float top = static_cast<float>(getItemSize()[1]) * 0.5F;
  const int line = static_cast<int>((top - getPointer3D()[1]) / static_cast<float>(itemHeight));
  return line >= 0 && line < items.getNum() ? line : -1;
}

void SoMenuRadioButtons::setHeld3D(int line, bool held)
{
  if (line >= 0 && line < static_cast<int>(m_rows.size())) {
    m_rows[static_cast<std::size_t>(line)].line.setHeld(held);
  }
}

void SoMenuRadioButtons::draggerFinishCallback3D()
{
  const int entry = getPressedLine3D();
  inherited::draggerFinishCallback3D();
  choose(entry);
}
