#include <Quillform/controls/SoDialogComboBox.h>

#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoHandleEventAction.h>
#include <Inventor/events/SoKeyboardEvent.h>
#include <Inventor/events/SoMouseButtonEvent.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <Quillform/controls/SoDialogQComboBox.h>
#include <Quillform/core/So3DKeyboard.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/core/SoText.h>
#include <algorithm>

SO_QUILLFORM_SOURCE(SoDialogComboBox, "DialogComboBox")
SO_SKIN_SOURCE(SoDialogComboBox, "DialogComboBox.iv", "DialogComboBoxFrame", "DialogComboBoxItemFrame",
               "DialogComboBoxButtonReleased", "DialogComboBoxButtonPressed")

namespace {

constexpr int buttonRoom = 30;  // what the button and the margins take beside the text, in pixels
constexpr int textMargin = 5;   // left of the text in the scene
constexpr int buttonInset = 2;  // between the button in the scene and the edge of the box
constexpr int largestList = 10; // entries in sight at a time
constexpr int smallestList = 3; // fewer are shown only if there are fewer
constexpr int wheelStep = 3;    // entries

/// Height of the box over the component's face; button and text stand on it.
constexpr float boxHeight = 1.0F;

/// The distance at which the list lies in front of the dialog.
constexpr float listGap = 0.1F;

} // namespace

SoDialogComboBox::SoDialogComboBox() : inherited(PartsLater())
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogComboBox);

  typedef SoDialogComboBox Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::labelSep, "labelSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::labelSwitch, "labelSwitch", "SoSwitch", "labelSep", FALSE},
    {&Self::labelProp, "labelProp", "SoGroup", "labelSwitch", TRUE},
    {&Self::frameSep, "frameSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::frame, "frame", "SoGroup", "frameSep", TRUE},
    {&Self::textSep, "textSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::textProp, "textProp", "SoGroup", "textSep", TRUE},
    {&Self::buttonSep, "buttonSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::buttonSwitch, "buttonSwitch", "SoSwitch", "buttonSep", FALSE},
    {&Self::buttonReleased, "buttonReleased", "SoGroup", "buttonSwitch", TRUE},
    {&Self::buttonPressed, "buttonPressed", "SoGroup", "buttonSwitch", TRUE},
    {&Self::itemsSwitch, "itemsSwitch", "SoSwitch", "geomSwitch", FALSE},
    {&Self::itemStrucSep, "itemStrucSep", "SoSeparator", "itemsSwitch", FALSE},
    {&Self::itemSep, "itemSep", "SoSeparator", "itemStrucSep", FALSE},
    {&Self::itemFrame, "itemFrame", "SoGroup", "itemSep", TRUE},
    {&Self::itemTextSep, "itemTextSep", "SoSeparator", "itemStrucSep", FALSE},
    {&Self::itemTextProp, "itemTextProp", "SoGroup", "itemTextSep", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoDialogComboBox::~SoDialogComboBox() = default;

// Sizes

SbVec2i32 SoDialogComboBox::getComponentInitSize()
{
  if (m_initSize[0] == -1) {
    m_initSize.setValue(0, 0);
    fixItemsNumber();
    for (int i = 0; i < getNumItems(); i++) {
      const SbVec2i32 size = getLabelPixelSize(items[i], this);
      m_initSize.setValue(std::max(m_initSize[0], size[0]), std::max(m_initSize[1], size[1]));
    }
    m_initSize[0] += buttonRoom; // the height gets no margin: this is meant
    if (!labelVisibility.getValue()) {
      m_initSize[0] -= getLabelSize()[0]; // only then: this is meant
    }
  }
  return m_initSize;
}

void SoDialogComboBox::getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  inherited::getDefaultSize(size, min, max);
  size = getComponentSize();
  if (labelVisibility.getValue()) {
    size[0] += getLabelSize()[0] + 2;
  }
}

// Building

void SoDialogComboBox::createLabelWidget()
{
  if (!takesFrame()) {
    return;
  }
  setFrame(new SoDialogQComboBox(getWidget(), this));
  changeItems();
  changeLabel();
  changeLabelAlignment();
  changeEnable();
  changeLabelVisibility();
  changeEdgeStyle();
  addFrameToCell();
}

void SoDialogComboBox::placeWidgets()
{
  updateLabelWidget();
  updateComboBoxWidget();
}

int SoDialogComboBox::getTextHeight() const
{
  return items.getNum() > 0 ? getLabelPixelSize(items[0], this)[1] : 0;
}

QRect SoDialogComboBox::getBoxRect(const SbVec2i32& frame, int textHeight) const
{
  const bool hasLabel = labelVisibility.getValue();
  const int x = hasLabel ? getLabelSize()[0] + 5 : 3;
  const int w = hasLabel ? frame[0] - 6 - getLabelSize()[0] - 2 : frame[0] - 6;
  return {x, (frame[1] - 10 - textHeight) / 2 + 3, w, textHeight + 4};
}

void SoDialogComboBox::updateComboBoxWidget()
{
  if (auto* relay = getRelay<SoDialogQComboBox>()) {
    // The first entry sets the height, also when it is empty: this is meant.
    const QRect rect = getBoxRect(getFrameSize(), getTextHeight());
    relay->comboBoxWidgetPos(rect.x(), rect.y(), rect.width(), rect.height());
  }
}

QRect SoDialogComboBox::getSideLabelRect(int frameHeight) const
{
  const int textHeight = measureLabel()[1];
  return {3, (frameHeight - 6 - textHeight) / 2 + 3, getLabelSize()[0], textHeight};
}

void SoDialogComboBox::updateLabelWidget()
{
  placeSideLabel();
}

// Reactions

void SoDialogComboBox::changeItems()
{
  auto* relay = getRelay<SoDialogQComboBox>();
  if (!relay) {
    return;
  }
  int same = 0;
  while (same < std::min(relay->count(), items.getNum()) && relay->getItem(same) == SoText::toQt(items[same])) {
    ++same;
  }
  // Entries that were appended one by one, thousands of them perhaps, do not make all others anew.
  if (same < relay->count()) {
    relay->clear();
    same = 0;
  }
  for (int i = same; i < items.getNum(); i++) {
    relay->insertItem(SoText::toQt(items[i]), -1);
  }
  changeSelectedItem();
  updateComboBoxWidget();
}

void SoDialogComboBox::clampSelection(int count)
{
  if (count > 0 && selectedItem.getValue() >= count) {
    selectedItem = count - 1; // reported like any other change
  }
}

void SoDialogComboBox::changeSelectedItem()
{
  if (auto* relay = getRelay<SoDialogQComboBox>()) {
    clampSelection(relay->count());
    relay->setCurrentItem(selectedItem.getValue());
  }
}

void SoDialogComboBox::changeEnable()
{
  SoDialogComponent::changeEnable();
}

void SoDialogComboBox::changeLabel()
{
  showSideLabel();
  updateLabelWidget();
}

void SoDialogComboBox::changeLabelAlignment()
{
  alignSideLabel();
}

void SoDialogComboBox::changeLabelVisibility()
{
  if (auto* relay = getRelay<SoDialogQComboBox>()) {
    relay->setLabelVisibility(labelVisibility.getValue());
    updateComboBoxWidget();
  }
}

void SoDialogComboBox::changeEdgeStyle()
{
  inherited::changeEdgeStyle();
}

// The 3D form

void SoDialogComboBox::create3DChoice()
{
  create3DDialogComboBox();
}

void SoDialogComboBox::create3DDialogComboBox()
{
  if (m_frameTransform) {
    return;
  }
  fillFromSkin("frame", getSkin().getPart("DialogComboBoxFrame"));
  fillFromSkin("buttonReleased", getSkin().getPart("DialogComboBoxButtonReleased"));
  fillFromSkin("buttonPressed", getSkin().getPart("DialogComboBoxButtonPressed"));
  fillFromSkin("itemFrame", getSkin().getPart("DialogComboBoxItemFrame"));
  m_frameTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("frameSep"));
  m_buttonTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("buttonSep"));
  fadeWhenDisabled(makePart<SoSeparator>("buttonSep"));
  makePart<SoSwitch>("buttonSwitch")->whichChild = 0;
  create3DSideLabel("labelSwitch", "labelProp");
  fillFromSkin("textProp", SoTextSkin::getProperties());
  m_text3D.attach(makePart<SoSeparator>("textSep"), makePart<SoGroup>("textProp"), getTextLook());
  fillFromSkin("itemTextProp", SoTextSkin::getProperties());

  So3DEntryList::Parts parts = {};
  parts.list = makePart<SoSwitch>("itemsSwitch");
  parts.firstEntry = makePart<SoSeparator>("itemStrucSep");
  parts.firstPlate = makePart<SoSeparator>("itemSep");
  parts.firstText = makePart<SoSeparator>("itemTextSep");
  parts.plate = makePart<SoGroup>("itemFrame");
  parts.textProperties = makePart<SoGroup>("itemTextProp");
  parts.frame = makePart<SoGroup>("frame");
  parts.textLook = getTextLook();
  m_list.attach(parts);
  listenToPointer3D();
}

void SoDialogComboBox::update3D()
{
  set3DInactive(); // an open list would stand where the box was
  update3DComboBox();
  update3DLabel();
}

QRect SoDialogComboBox::getBoxRect3D() const
{
  // As in the window, but an empty first entry leaves room for the others.
  return getBoxRect(get3DSize(), std::max(getTextHeight(), getLabelPixelSize("X", this)[1]));
}

void SoDialogComboBox::update3DComboBox()
{
  const QRect box = getBoxRect3D();
  const int side = std::min(box.height() - 2 * buttonInset, box.width());
  So3DPlacement::place(m_frameTransform, box, get3DSize(), faceHeight);
  So3DPlacement::place(m_buttonTransform,
                       QRect(box.right() + 1 - buttonInset - side, box.y() + buttonInset, side, side), get3DSize(),
                       faceHeight + boxHeight);
  change3DItems();
}

void SoDialogComboBox::update3DLabel()
{
  update3DSideLabel();
}

void SoDialogComboBox::change3DLabelVisibility()
{
  inherited::change3DLabelVisibility();
  if (m_frameTransform) {
    update3DComboBox();
  }
}

void SoDialogComboBox::change3DItems()
{
  change3DSelectedItem();
}

void SoDialogComboBox::change3DSelectedItem()
{
  clampSelection(items.getNum());
  m_marked = -1;
  const QRect box = getBoxRect3D();
  m_text3D.setText(getSelectedText());
  m_text3D.fit(QRect(box.x() + textMargin, box.y(), box.width() - box.height() - textMargin, box.height()), get3DSize(),
               LEFT, faceHeight + boxHeight, getBoundingBoxAction());
  update3DList();
}

void SoDialogComboBox::update3DList()
{
  if (m_list.isOpen()) {
    m_list.show(items, getMarkedEntry(), getBoundingBoxAction());
  }
}

float SoDialogComboBox::getSeenHeight(float y)
{
  SbVec3f point = get3DParentTranslation() + SbVec3f(0.0F, y, 0.0F);
  getLocalToWorldMatrix().multVecMatrix(point, point);
  getViewVolume().projectToScreen(point, point);
  return point[1];
}

QRect SoDialogComboBox::getListRect(const QRect& box, int& inSight)
{
  const int rowHeight = getLabelPixelSize("X", this)[1] + 2;
  const float top = static_cast<float>(get3DSize()[1]) * 0.5F - static_cast<float>(box.y());
  const float bottom = top - static_cast<float>(box.height());
  const float seenBottom = getSeenHeight(bottom);
  const float seenRow = seenBottom - getSeenHeight(bottom - static_cast<float>(rowHeight));
  bool isBelow = true;
  inSight = std::clamp(items.getNum(), 1, largestList);
  if (seenRow > 0.0F) {
    const auto toRows = [seenRow](float room) {
      return static_cast<int>(std::clamp(room / seenRow, 0.0F, static_cast<float>(largestList)));
    };
    const int roomBelow = toRows(seenBottom);
    const int roomAbove = toRows(1.0F - getSeenHeight(top));
    isBelow = roomBelow >= std::min(inSight, roomAbove);
    inSight = std::min(inSight, std::max({roomBelow, roomAbove, smallestList}));
  }
  const int listHeight = inSight * rowHeight + 2;
  return {box.x(), isBelow ? box.y() + box.height() : box.y() - listHeight, box.width(), listHeight};
}

void SoDialogComboBox::open3DList()
{
  set3DCurrentActive(this); // first, so that no other open list is measured
  m_marked = -1;
  makePart<SoSwitch>("buttonSwitch")->whichChild = 1;

  SoGetBoundingBoxAction* measure = getBoundingBoxAction();
  measure->apply(this);
  const float ownFront = measure->getBoundingBox().getMax()[2];
  float front = ownFront;
  if (SoQuillform* top = getFirstTopParent(0, 1)) {
    measure->apply(top);
    front = measure->getBoundingBox().getMax()[2];
  }
  int inSight = 0;
  const QRect rect = getListRect(getBoxRect3D(), inSight);
  m_list.open(rect, get3DSize(), inSight, items.getNum(), ownFront - get3DParentTranslation()[2],
              front - ownFront + listGap);
  m_list.reveal(selectedItem.getValue());
  update3DList();
}

void SoDialogComboBox::close3DList()
{
  if (m_list.isOpen()) {
    m_list.close();
    makePart<SoSwitch>("buttonSwitch")->whichChild = 0;
  }
}

void SoDialogComboBox::set3DInactive()
{
  close3DList();
  inherited::set3DInactive();
}

void SoDialogComboBox::show3D(int show)
{
  if (show == 0) {
    set3DInactive();
  }
  inherited::show3D(show);
}

void SoDialogComboBox::close3DListIfDisabled()
{
  if (!enable.getValue() || !isEnabledByParents()) {
    set3DInactive();
  }
}

void SoDialogComboBox::change3DEnable()
{
  inherited::change3DEnable();
  close3DListIfDisabled();
}

void SoDialogComboBox::change3DWidgetEnable(int enabled)
{
  inherited::change3DWidgetEnable(enabled);
  close3DListIfDisabled();
}

void SoDialogComboBox::press3D()
{
  if (isUnderPointer(itemsSwitch.getValue())) {
    press3DList();
  }
  else if (isUnderPointer(frameSep.getValue()) || isUnderPointer(buttonSep.getValue()) ||
           isUnderPointer(textSep.getValue())) {
    if (m_list.isOpen()) {
      set3DInactive();
    }
    else {
      open3DList();
    }
  }
}

void SoDialogComboBox::press3DList()
{
  const auto isPressed = [this](SoNode* node) {
    return isUnderPointer(node) != FALSE;
  };
  if (m_list.pressBar(isPressed, getPointer3D())) {
    update3DList();
    return;
  }
  const int entry = m_list.getPressedEntry(isPressed);
  if (entry >= 0) {
    chooseIn3D(entry);
  }
  set3DInactive();
}

void SoDialogComboBox::drag3D()
{
  if (m_list.isOpen() && m_list.dragBar(getPointer3D())) {
    update3DList();
  }
}

void SoDialogComboBox::release3D()
{
  if (m_list.isOpen()) {
    m_list.releaseBar();
  }
}

void SoDialogComboBox::handleEvent(SoHandleEventAction* action)
{
  const SoEvent* event = action->getEvent();
  const bool isUp = SO_MOUSE_PRESS_EVENT(event, BUTTON4) != 0;
  const bool isDown = SO_MOUSE_PRESS_EVENT(event, BUTTON5) != 0;
  if ((isUp || isDown) && m_list.isOpen()) {
    const SoEventScope scope(this, action);
    if (isUnderPointer(itemsSwitch.getValue())) {
      m_list.scrollBy(isUp ? -wheelStep : wheelStep);
      update3DList();
      action->setHandled();
    }
  }
  inherited::handleEvent(action);
}

// Keys in the scene

bool SoDialogComboBox::usesKeys3D() const
{
  return true;
}

SbBool SoDialogComboBox::pressKey3D(const SoKeyboardEvent* event)
{
  const bool isPress = So3DKeyboard::isPress(event);
  if (!m_list.isOpen()) {
    const int entry = So3DKeyboard::step(event, selectedItem.getValue(), getNumItems(), largestList);
    if (isPress) {
      open3DList();
    }
    else if (entry >= 0 && entry != selectedItem.getValue()) {
      chooseIn3D(entry);
    }
    return isPress || entry >= 0;
  }
  const int marked = getMarkedEntry();
  if (isPress || event->getKey() == SoKeyboardEvent::ESCAPE) {
    if (isPress && marked >= 0 && marked < getNumItems()) {
      chooseIn3D(marked);
    }
    set3DInactive();
    return TRUE;
  }
  const int entry = So3DKeyboard::step(event, marked, getNumItems(), largestList);
  if (entry >= 0) {
    m_marked = entry;
    m_list.reveal(entry);
    update3DList();
  }
  return entry >= 0;
}

int SoDialogComboBox::getMarkedEntry() const
{
  return m_marked >= 0 ? m_marked : selectedItem.getValue();
}
