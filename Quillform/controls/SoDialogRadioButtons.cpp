#include <Quillform/controls/SoDialogRadioButtons.h>

#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <QRadioButton>
#include <Quillform/controls/SoDialogQRadioButtons.h>
#include <Quillform/core/So3DKeyboard.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoText.h>
#include <algorithm>

SO_QUILLFORM_SOURCE(SoDialogRadioButtons, "DialogRadioButtons")
SO_SKIN_SOURCE(SoDialogRadioButtons, "DialogRadioButtons.iv", "DialogRadioButtonsFrame", "DialogRadioButtonsItemFrame",
               "DialogRadioButtonsStateOff", "DialogRadioButtonsStateOn")

namespace {

/// What the group takes beside and around its entries, and beside its title, in pixels.
constexpr int entriesWidth = 48;
constexpr int entriesHeight = 30;
constexpr int titleWidth = 24;

/// The smallest size of the component: so much an entry and around them all.
constexpr int smallestWidth = 100;
constexpr int smallestEntry = 20;
constexpr int smallestRest = 28;

/// The group in the scene, in pixels.
constexpr int frameBorder = 3; // around the entries
constexpr int markSize = 12;
constexpr int markMargin = 5; // left of the mark, and between mark and text

/// Heights over the component's face of the group's plate and of the entries' plates, which stand on it.
constexpr float plateHeight = 1.0F;
constexpr float entryHeight = plateHeight + 1.0F;

} // namespace

SoDialogRadioButtons::SoDialogRadioButtons() : inherited(PartsLater())
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogRadioButtons);

  typedef SoDialogRadioButtons Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::frameSep, "frameSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::frame, "frame", "SoGroup", "frameSep", TRUE},
    {&Self::labelSep, "labelSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::labelSwitch, "labelSwitch", "SoSwitch", "labelSep", FALSE},
    {&Self::labelProp, "labelProp", "SoGroup", "labelSwitch", TRUE},
    {&Self::itemsSep, "itemsSep", "SoSwitch", "geomSwitch", FALSE},
    {&Self::itemSep, "itemSep", "SoSeparator", "itemsSep", FALSE},
    {&Self::itemFrameSep, "itemFrameSep", "SoSeparator", "itemSep", FALSE},
    {&Self::itemFrame, "itemFrame", "SoGroup", "itemFrameSep", TRUE},
    {&Self::itemBtnSep, "itemBtnSep", "SoSeparator", "itemSep", FALSE},
    {&Self::itemBtnSwtch, "itemBtnSwtch", "SoSwitch", "itemBtnSep", FALSE},
    {&Self::stateOff, "stateOff", "SoGroup", "itemBtnSwtch", TRUE},
    {&Self::stateOn, "stateOn", "SoGroup", "itemBtnSwtch", TRUE},
    {&Self::itemTextSep, "itemTextSep", "SoSeparator", "itemSep", FALSE},
    {&Self::itemTextProp, "itemTextProp", "SoGroup", "itemTextSep", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoDialogRadioButtons::~SoDialogRadioButtons() = default;

// Sizes

SbVec2i32 SoDialogRadioButtons::getComponentInitSize()
{
  SbVec2i32 titleSize = labelVisibility.getValue() ? measureLabel() : SbVec2i32(0, 0);
  fixItemsNumber();
  m_entriesSize.setValue(0, 0);
  for (int i = 0; i < getNumItems(); i++) {
    const SbVec2i32 size = getLabelPixelSize(SoText::withEscapes(items[i]), this);
    m_entriesSize.setValue(std::max(m_entriesSize[0], size[0]), m_entriesSize[1] + size[1]);
  }
  m_entriesSize += SbVec2i32(entriesWidth, entriesHeight);
  titleSize[0] += titleWidth;
  // A title that is wider than the entries gives its own height, too: this is meant.
  const SbVec2i32& wider = m_entriesSize[0] >= titleSize[0] ? m_entriesSize : titleSize;
  return {wider[0] - getLabelSize()[0] + 2, wider[1]};
}

void SoDialogRadioButtons::getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  inherited::getDefaultSize(size, min, max);
  size = getComponentSize();
  size[1] = std::max(size[1], m_entriesSize[1]);
  min.setValue(smallestWidth, getNumItems() * smallestEntry + smallestRest);
}

void SoDialogRadioButtons::resetSize()
{
  m_entriesSize.setValue(0, 0);
  m_entryRects.clear();
  inherited::resetSize();
}

bool SoDialogRadioButtons::hasSizeAsMinimum() const
{
  return true; // not minWidth and minHeight: this is meant
}

// Building

void SoDialogRadioButtons::createLabelWidget()
{
  if (!takesFrame()) {
    return;
  }
  setFrame(new SoDialogQRadioButtons(getWidget(), this));
  m_buttons.truncate(0);
  changeLabel();
  changeLabelAlignment();
  changeItems();
  changeEnable();
  changeEdgeStyle();
  addFrameToCell();
}

void SoDialogRadioButtons::createRadioButtonsWidget(int index)
{
  auto* relay = getRelay<SoDialogQRadioButtons>();
  if (!relay) {
    return;
  }
  QRadioButton* button = relay->addButton(index);
  m_buttons.insert(button, index);
  SoDialogQRadioButtons::setText(button, SoText::toQt(items[index]));
  if (index == selectedItem.getValue()) {
    relay->setButton(index);
  }
}

void SoDialogRadioButtons::placeWidgets()
{
  updateLabelWidget();
}

void SoDialogRadioButtons::updateLabelWidget()
{
  if (auto* relay = getRelay<SoDialogQRadioButtons>()) {
    const SbVec2i32 size = getFrameSize();
    relay->labelWidgetPos(3, 3, size[0] - 6, size[1] - 6);
  }
}

// Reactions

void SoDialogRadioButtons::changeItems()
{
  auto* relay = getRelay<SoDialogQRadioButtons>();
  if (!relay) {
    return;
  }
  fixItemsNumber();
  for (int i = 0; i < getNumItems(); i++) {
    if (i < m_buttons.getLength()) {
      SoDialogQRadioButtons::setText(static_cast<QRadioButton*>(m_buttons[i]), SoText::toQt(items[i]));
    }
    else {
      createRadioButtonsWidget(i);
    }
  }
  // The placeholder counts here: the first button keeps its text when the entries go. This is meant.
  for (int i = m_buttons.getLength() - 1; i >= items.getNum(); i--) {
    relay->removeButton(static_cast<QRadioButton*>(m_buttons[i]));
    m_buttons.remove(i);
  }
  if (isWidgetBuilt()) {
    changeSelectedItem();
  }
  if (isLive3D()) {
    change3DSelectedItem();
  }
}

void SoDialogRadioButtons::clampSelection()
{
  const int last = std::max(items.getNum() - 1, 0);
  m_watched.setQuietly(selectedItem, std::clamp(selectedItem.getValue(), 0, last));
}

void SoDialogRadioButtons::changeSelectedItem()
{
  clampSelection();
  if (auto* relay = getRelay<SoDialogQRadioButtons>()) {
    relay->setButton(selectedItem.getValue());
  }
}

void SoDialogRadioButtons::changeEnable()
{
  SoDialogComponent::changeEnable();
}

void SoDialogRadioButtons::changeLabel()
{
  if (auto* relay = getRelay<SoDialogQRadioButtons>()) {
    relay->setTitle(labelVisibility.getValue() ? SoText::toQt(convertToCString(label.getValue(), this)) : QString());
  }
  showSideLabel(); // which names the group, with a title or without
}

void SoDialogRadioButtons::changeLabelAlignment()
{
  alignSideLabel();
}

void SoDialogRadioButtons::changeLabelVisibility()
{
  changeLabel();
}

void SoDialogRadioButtons::changeEdgeStyle()
{
  inherited::changeEdgeStyle();
}

// The 3D form

void SoDialogRadioButtons::create3DChoice()
{
  create3DDialogRadioButtons();
}

void SoDialogRadioButtons::create3DDialogRadioButtons()
{
  if (m_frameTransform) {
    return;
  }
  fillFromSkin("frame", getSkin().getPart("DialogRadioButtonsFrame"));
  m_frameTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("frameSep"));
  create3DSideLabel("labelSwitch", "labelProp");

  fillFromSkin("itemFrame", getSkin().getPart("DialogRadioButtonsItemFrame"));
  fillFromSkin("stateOff", getSkin().getPart("DialogRadioButtonsStateOff"));
  fillFromSkin("stateOn", getSkin().getPart("DialogRadioButtonsStateOn"));
  fillFromSkin("itemTextProp", SoTextSkin::getProperties());
  addRow(makePart<SoSeparator>("itemSep"), makePart<SoSeparator>("itemFrameSep"), makePart<SoSeparator>("itemBtnSep"),
         makePart<SoSwitch>("itemBtnSwtch"), makePart<SoSeparator>("itemTextSep"));
  listenToPointer3D();
}

void SoDialogRadioButtons::addRow(SoSeparator* node, SoSeparator* plate, SoSeparator* mark, SoSwitch* state,
                                  SoSeparator* text)
{
  Row row{node, So3DPlacement::insertTransform(plate), So3DPlacement::insertTransform(mark), state, {}};
  fadeWhenDisabled(mark);
  row.text.attach(text, makePart<SoGroup>("itemTextProp"), getTextLook());
  m_rows.push_back(row);
}

void SoDialogRadioButtons::setRowCount(int count)
{
  auto* list = makePart<SoSwitch>("itemsSep");
  list->whichChild = count > 0 ? SO_SWITCH_ALL : SO_SWITCH_NONE;
  while (static_cast<int>(m_rows.size()) > std::max(count, 1)) {
    list->removeChild(m_rows.back().node);
    m_rows.pop_back();
  }
  while (static_cast<int>(m_rows.size()) < count) {
    auto* node = new SoSeparator;
    auto* plate = new SoSeparator;
    auto* mark = new SoSeparator;
    auto* state = new SoSwitch;
    auto* text = new SoSeparator;
    plate->addChild(makePart<SoGroup>("itemFrame"));
    state->addChild(makePart<SoGroup>("stateOff"));
    state->addChild(makePart<SoGroup>("stateOn"));
    mark->addChild(state);
    text->addChild(makePart<SoGroup>("itemTextProp"));
    node->addChild(plate);
    node->addChild(mark);
    node->addChild(text);
    list->addChild(node);
    addRow(node, plate, mark, state, text);
  }
}

void SoDialogRadioButtons::update3D()
{
  update3DRadioButtons();
  update3DLabel();
}

bool SoDialogRadioButtons::hasTitle() const
{
  return labelVisibility.getValue() && label.getValue().getLength() > 0;
}

QRect SoDialogRadioButtons::getSideLabelRect(int /*frameHeight*/) const
{
  // The title stands above the group's plate.
  const int textHeight = measureLabel()[1];
  return {3, 3, get3DSize()[0] - 6, textHeight};
}

void SoDialogRadioButtons::computeNewButtonsHeight(const SbVec2i32& size)
{
  const int top = 3 + frameBorder + (hasTitle() ? getSideLabelRect(size[1]).height() : 0);
  const int room = std::max(size[1] - 3 - frameBorder - top, 0);
  const int count = getNumItems();
  m_entryRects.clear();
  for (int i = 0; i < count; i++) {
    // Rounded one by one, so that the entries fill the group whatever its height is.
    const int begin = top + room * i / count;
    const int end = top + room * (i + 1) / count;
    m_entryRects.emplace_back(3 + frameBorder, begin, size[0] - 2 * (3 + frameBorder), end - begin);
  }
}

void SoDialogRadioButtons::update3DRadioButtons()
{
  const SbVec2i32& size = get3DSize();
  const int top = 3 + (hasTitle() ? getSideLabelRect(size[1]).height() : 0);
  So3DPlacement::place(m_frameTransform, QRect(3, top, size[0] - 6, size[1] - 3 - top), size, faceHeight);
  change3DItems();
}

void SoDialogRadioButtons::update3DLabel()
{
  update3DSideLabel();
}

void SoDialogRadioButtons::change3DLabel()
{
  inherited::change3DLabel();
  update3DRadioButtons(); // the title's lines take room from the entries
}

void SoDialogRadioButtons::change3DLabelVisibility()
{
  inherited::change3DLabelVisibility();
  if (m_frameTransform) {
    update3DRadioButtons();
  }
}

void SoDialogRadioButtons::change3DItems()
{
  computeNewButtonsHeight(get3DSize());
  setRowCount(getNumItems());
  for (std::size_t i = 0; i < m_entryRects.size(); i++) {
    const QRect& rect = m_entryRects[i];
    const int mark = std::min(markSize, rect.height());
    Row& row = m_rows[i];
    So3DPlacement::place(row.plate, rect, get3DSize(), faceHeight + plateHeight);
    So3DPlacement::place(row.mark, QRect(rect.x() + markMargin, rect.y() + (rect.height() - mark) / 2, mark, mark),
                         get3DSize(), faceHeight + entryHeight);
    row.text.setText(items[static_cast<int>(i)]);
    row.text.fit(rect.adjusted(markSize + 2 * markMargin, 0, 0, 0), get3DSize(), LEFT, faceHeight + entryHeight,
                 getBoundingBoxAction());
  }
  change3DSelectedItem();
}

void SoDialogRadioButtons::change3DSelectedItem()
{
  clampSelection();
  for (std::size_t i = 0; i < m_rows.size(); i++) {
    m_rows[i].state->whichChild = static_cast<int>(i) == selectedItem.getValue() ? 1 : 0;
  }
}

int SoDialogRadioButtons::getEntryUnderPointer()
{
  int found = -1;
  for (int i = 0; i < getNumItems() && i < static_cast<int>(m_rows.size()); i++) {
    if (isUnderPointer(m_rows[static_cast<std::size_t>(i)].node)) {
      found = i;
    }
  }
  return found;
}

void SoDialogRadioButtons::press3D()
{
  m_pressedEntry = getEntryUnderPointer();
}

void SoDialogRadioButtons::release3D()
{
  const int entry = getEntryUnderPointer();
  if (!isUnderPointer(geomSwitch.getValue()) || entry != m_pressedEntry) {
    return; // released elsewhere: the press is taken back
  }
  set3DCurrentActive(this);
  set3DInactive();
  chooseIn3D(entry >= 0 ? entry : selectedItem.getValue());
}

// Keys in the scene

bool SoDialogRadioButtons::usesKeys3D() const
{
  return true;
}

SbBool SoDialogRadioButtons::pressKey3D(const SoKeyboardEvent* event)
{
  const int selected = selectedItem.getValue();
  const int entry =
    So3DKeyboard::isPress(event) ? selected : So3DKeyboard::step(event, selected, getNumItems(), getNumItems());
  if (entry < 0) {
    return FALSE;
  }
  if (entry != selected || So3DKeyboard::isPress(event)) {
    chooseIn3D(entry); // a press on the entry that is chosen is reported, as that of the mouse is
  }
  return TRUE;
}
