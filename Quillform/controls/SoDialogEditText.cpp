#include <Quillform/controls/SoDialogEditText.h>

#include <Inventor/actions/SoHandleEventAction.h>
#include <Inventor/events/SoKeyboardEvent.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <QBoxLayout>
#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/auditors/SoDialogEditTextAuditor.h>
#include <Quillform/controls/SoDialogQEditText.h>
#include <Quillform/core/So3DKeyboard.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/core/SoReadingOrder.h>
#include <Quillform/core/SoText.h>
#include <Quillform/core/SoTypedKey.h>
#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

SO_QUILLFORM_SOURCE(SoDialogEditText, "DialogEditText")
SO_SKIN_SOURCE(SoDialogEditText, "DialogEditText.iv", "DialogEditTextFrame", "DialogEditTextEditingFrame",
               "DialogEditTextDownButtonPressed", "DialogEditTextDownButtonReleased", "DialogEditTextUpButtonPressed",
               "DialogEditTextUpButtonReleased", "DialogEditTextScrollFrame", "DialogEditTextCursorFrame",
               "DialogEditTextCaretFrame")

namespace {

constexpr int smallestLineHeight = 20; // of an editor of one line, in pixels
constexpr int scrollBarSize = 14;      // thickness of a scroll bar in the scene
constexpr int textInset = 4;           // between the frame's sides and the text in the scene
constexpr int textInsetAbove = 3;      // between the frame's upper and lower side and a text of several lines
constexpr float caretWidth = 2.0F;
constexpr float frameDepth = 1.0F; // text, caret and scroll bars stand on the frame
constexpr float sideStep = 20.0F;  // of the left and right buttons
constexpr float roomAtEnd = 4.0F;  // behind the end of a line that is scrolled to

/// Room that the margins of the editor, and its scroll bar, take beside and above the text, in pixels.
constexpr int lineMargin = 10;
constexpr int multiLineMargin = 34;
constexpr int heightMargin = 12;

bool isPrintable(unsigned char c)
{
  return c >= 0x20 && (c < 0x7f || c >= 0xa0);
}

/// A text in which nothing but printable characters, and line feeds if \a keepsLines is set, has a shape.
QString withoutControls(QString text, bool keepsLines)
{
  for (QChar& c : text) {
    if (!isPrintable(static_cast<unsigned char>(c.toLatin1())) && !(keepsLines && c == '\n')) {
      c = ' ';
    }
  }
  return text;
}

} // namespace

SoDialogEditText::SoDialogEditText() : inherited(PartsLater())
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogEditText);

  SO_QUILLFORM_ADD_FIELD(editText, (""));
  SO_QUILLFORM_ADD_FIELD(editable, (TRUE));
  SO_QUILLFORM_ADD_FIELD(trigOnEnter, (TRUE));
  SO_QUILLFORM_ADD_FIELD(isNumeric, (FALSE));
  SO_QUILLFORM_ADD_FIELD(multiLine, (FALSE));
  SO_QUILLFORM_ADD_FIELD(wrapLine, (TRUE));

  typedef SoDialogEditText Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::labelSep, "labelSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::labelSwitch, "labelSwitch", "SoSwitch", "labelSep", FALSE},
    {&Self::labelProp, "labelProp", "SoGroup", "labelSwitch", TRUE},
    {&Self::scrollVSwitch, "scrollVSwitch", "SoSwitch", "geomSwitch", FALSE},
    {&Self::downSep, "downSep", "SoSeparator", "scrollVSwitch", FALSE},
    {&Self::downSwitch, "downSwitch", "SoSwitch", "downSep", FALSE},
    {&Self::downReleased, "downReleased", "SoGroup", "downSwitch", TRUE},
    {&Self::downPressed, "downPressed", "SoGroup", "downSwitch", TRUE},
    {&Self::upSep, "upSep", "SoSeparator", "scrollVSwitch", FALSE},
    {&Self::upSwitch, "upSwitch", "SoSwitch", "upSep", FALSE},
    {&Self::upReleased, "upReleased", "SoGroup", "upSwitch", TRUE},
    {&Self::upPressed, "upPressed", "SoGroup", "upSwitch", TRUE},
    {&Self::scrollVSep, "scrollVSep", "SoSeparator", "scrollVSwitch", FALSE},
    {&Self::scrollVBack, "scrollVBack", "SoSeparator", "scrollVSep", TRUE},
    {&Self::scrollVFrame, "scrollVFrame", "SoGroup", "scrollVBack", TRUE},
    {&Self::cursorVSep, "cursorVSep", "SoSeparator", "scrollVSep", FALSE},
    {&Self::cursorVFrame, "cursorVFrame", "SoGroup", "cursorVSep", TRUE},
    {&Self::scrollHSwitch, "scrollHSwitch", "SoSwitch", "geomSwitch", FALSE},
    {&Self::leftSep, "leftSep", "SoSeparator", "scrollHSwitch", FALSE},
    {&Self::leftSwitch, "leftSwitch", "SoSwitch", "leftSep", FALSE},
    {&Self::leftReleased, "leftReleased", "SoGroup", "leftSwitch", TRUE},
    {&Self::leftPressed, "leftPressed", "SoGroup", "leftSwitch", TRUE},
    {&Self::rightSep, "rightSep", "SoSeparator", "scrollHSwitch", FALSE},
    {&Self::rightSwitch, "rightSwitch", "SoSwitch", "rightSep", FALSE},
    {&Self::rightReleased, "rightReleased", "SoGroup", "rightSwitch", TRUE},
    {&Self::rightPressed, "rightPressed", "SoGroup", "rightSwitch", TRUE},
    {&Self::scrollHSep, "scrollHSep", "SoSeparator", "scrollHSwitch", FALSE},
    {&Self::scrollHBack, "scrollHBack", "SoSeparator", "scrollHSep", TRUE},
    {&Self::scrollHFrame, "scrollHFrame", "SoGroup", "scrollHBack", TRUE},
    {&Self::cursorHSep, "cursorHSep", "SoSeparator", "scrollHSep", FALSE},
    {&Self::cursorHFrame, "cursorHFrame", "SoGroup", "cursorHSep", TRUE},
    {&Self::editSep, "editSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::frameSep, "frameSep", "SoSeparator", "editSep", FALSE},
    {&Self::frameSwitch, "frameSwitch", "SoSwitch", "frameSep", FALSE},
    {&Self::frame, "frame", "SoGroup", "frameSwitch", TRUE},
    {&Self::editFrame, "editFrame", "SoGroup", "frameSwitch", TRUE},
    {&Self::textSep, "textSep", "SoSeparator", "editSep", FALSE},
    {&Self::textProp, "textProp", "SoGroup", "textSep", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoDialogEditText::~SoDialogEditText() = default;

// Auditors

void SoDialogEditText::addAuditor(SoDialogEditTextAuditor* auditor)
{
  inherited::addAuditor(auditor);
}

void SoDialogEditText::removeAuditor(SoDialogEditTextAuditor* auditor)
{
  inherited::removeAuditor(auditor);
}

void SoDialogEditText::applyDlgCptAuditor()
{
  SoAuditorDispatch::applyOwnAuditors(this, &SoDialogEditTextAuditor::dialogEditText);
}

// Sizes

SbVec2i32 SoDialogEditText::getComponentInitSize()
{
  if (m_initSize[0] == -1) {
    m_textSize = getLabelPixelSize(editText.getValue(), this) +
                 SbVec2i32(multiLine.getValue() ? multiLineMargin : lineMargin, heightMargin);
    m_initSize = m_textSize;
    if (!labelVisibility.getValue()) {
      m_initSize[0] -= getLabelSize()[0]; // only then: this is meant
    }
  }
  return m_initSize;
}

void SoDialogEditText::getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  inherited::getDefaultSize(size, min, max);
  if (labelVisibility.getValue()) {
    min[0] += getLabelSize()[0] + 2;
  }
  min[1] = std::max(min[1], m_initSize[1]);
}

// Building

void SoDialogEditText::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
  if (asWidget != 0) {
    createLabelWidget();
    placeWidgets();
  }
  else {
    create3DDialogEditText();
    update3D();
  }
  m_watched.watch(editable);
  m_watched.watch(editText);
  m_watched.watch(multiLine);
  m_watched.watch(wrapLine);
}

void SoDialogEditText::createLabelWidget()
{
  if (!takesFrame()) {
    return;
  }
  setFrame(new SoDialogQEditText(getWidget(), this, multiLine.getValue()));
  setUpRelay();
  addFrameToCell();
}

void SoDialogEditText::createEditTextWidget() {}

void SoDialogEditText::setUpRelay()
{
  // Without changeWrapLine: a new editor wraps until wrapLine changes. This is meant.
  changeEditText();
  changeEditable();
  changeLabel();
  changeLabelAlignment();
  changeEnable();
  changeLabelVisibility();
  changeEdgeStyle();
}

void SoDialogEditText::placeWidgets()
{
  updateEditTextWidget();
  updateLabelWidget();
}

QRect SoDialogEditText::getEditorRect(const SbVec2i32& frameSize) const
{
  int x = 3;
  int w = frameSize[0] - 6;
  const int h = frameSize[1] - 6;
  if (labelVisibility.getValue()) {
    x = getLabelSize()[0] + 5;
    w -= getLabelSize()[0] + 2;
  }
  if (multiLine.getValue()) {
    return {x, 3, w, h};
  }
  const int lineHeight = std::max(getLabelPixelSize(editText.getValue(), this)[1], smallestLineHeight);
  return {x, (h - lineHeight) / 2 + 3, w, lineHeight};
}

void SoDialogEditText::updateEditTextWidget()
{
  if (auto* relay = getRelay<SoDialogQEditText>()) {
    const QRect rect = getEditorRect(getFrameSize());
    relay->editTextWidgetPos(rect.x(), rect.y(), rect.width(), rect.height());
  }
}

void SoDialogEditText::updateLabelWidget()
{
  placeSideLabel();
}

void SoDialogEditText::setFocus()
{
  if (auto* relay = getRelay<SoDialogQEditText>()) {
    relay->setEditorFocus();
  }
}

// Reactions

void SoDialogEditText::eventNotify(unsigned int event, unsigned long /*data*/)
{
  if (auto* relay = getRelay<SoDialogQEditText>()) {
    const SbString text = SoText::fromQt(relay->getText());
    if (text != editText.getValue()) {
      const SoWatchedFields::Pause pause(m_watched, editText);
      editText = text;
    }
  }
  if (isLive3D()) {
    change3DEditText();
  }
  if (!trigOnEnter.getValue() || event == SoDialogQEditText::ENTER_PRESSED) {
    applyDlgCptAuditor();
  }
}

void SoDialogEditText::updateFromSensor(SoSensor* sensor)
{
  const SoField* field = SoWatchedFields::getFired(sensor);
  if (field == &editable) {
    changeEditable();
  }
  else if (field == &multiLine) {
    changeMultiLine();
    if (isLive3D()) {
      update3DEditText();
    }
  }
  else if (field == &wrapLine) {
    changeWrapLine();
    if (isLive3D()) {
      change3DEditText();
    }
  }
  else if (field == &editText) {
    if (isWidgetBuilt()) {
      changeEditText();
    }
    if (isLive3D()) {
      change3DEditText();
    }
  }
  else {
    inherited::updateFromSensor(sensor);
  }
}

SbString SoDialogEditText::getShownText() const
{
  return multiLine.getValue() ? convertToCString(editText.getValue(), this) : editText.getValue();
}

void SoDialogEditText::changeEditText()
{
  if (auto* relay = getRelay<SoDialogQEditText>()) {
    relay->setText(SoText::toQt(getShownText()));
    updateEditTextWidget();
  }
}

void SoDialogEditText::changeEditable()
{
  if (auto* relay = getRelay<SoDialogQEditText>()) {
    relay->setReadOnly(!editable.getValue());
  }
  updateUsability3D();
}

void SoDialogEditText::changeWrapLine()
{
  if (auto* relay = getRelay<SoDialogQEditText>()) {
    relay->setWrapLine(wrapLine.getValue());
  }
}

void SoDialogEditText::changeMultiLine()
{
  auto* old = getRelay<SoDialogQEditText>();
  if (!old) {
    return;
  }
  const QSize size = old->size();
  const bool wasVisible = old->isVisible();
  const bool hadFocus = old->hasEditorFocus();
  auto* relay = new SoDialogQEditText(old->parentWidget(), this, multiLine.getValue());
  // The old one may be on the call stack.
  old->forgetOwner();
  old->hide();
  old->setParent(nullptr);
  old->deleteLater();
  setFrame(relay);
  relay->resize(size);
  updateComponentWidget();
  getCell()->insertWidget(0, relay);
  setUpRelay();
  relay->setComplete();
  updateLabelWidget();
  updateEditTextWidget();
  if (wasVisible) {
    relay->show();
  }
  SoReadingOrder::applyTo(SoReadingOrder::getRoot(this), relay);
  if (hadFocus) {
    setFocus();
  }
}

void SoDialogEditText::changeEnable()
{
  inherited::changeEnable();
}

void SoDialogEditText::changeLabel()
{
  showSideLabel();
  updateLabelWidget();
}

void SoDialogEditText::changeLabelAlignment()
{
  alignSideLabel();
}

void SoDialogEditText::changeLabelVisibility()
{
  if (auto* relay = getRelay<SoDialogQEditText>()) {
    relay->setLabelVisibility(labelVisibility.getValue());
    updateEditTextWidget();
  }
}

void SoDialogEditText::changeEdgeStyle()
{
  inherited::changeEdgeStyle();
}

void SoDialogEditText::changeWidgetEnable(int /*enable*/) {}

// The 3D form

void SoDialogEditText::create3DDialogEditText()
{
  if (m_frameTransform) {
    return;
  }
  static const struct {
    const char* part;
    const char* skinPart;
  } looks[] = {
    {"downReleased", "DialogEditTextDownButtonReleased"},
    {"downPressed", "DialogEditTextDownButtonPressed"},
    {"upReleased", "DialogEditTextUpButtonReleased"},
    {"upPressed", "DialogEditTextUpButtonPressed"},
    {"leftReleased", "DialogEditTextDownButtonReleased"},
    {"leftPressed", "DialogEditTextDownButtonPressed"},
    {"rightReleased", "DialogEditTextUpButtonReleased"},
    {"rightPressed", "DialogEditTextUpButtonPressed"},
    {"scrollVFrame", "DialogEditTextScrollFrame"},
    {"scrollHFrame", "DialogEditTextScrollFrame"},
    {"cursorVFrame", "DialogEditTextCursorFrame"},
    {"cursorHFrame", "DialogEditTextCursorFrame"},
    {"frame", "DialogEditTextFrame"},
    {"editFrame", "DialogEditTextEditingFrame"},
  };
  for (const auto& look : looks) {
    fillFromSkin(look.part, getSkin().getPart(look.skinPart));
  }
  create3DSideLabel("labelSwitch", "labelProp");

  auto* caret = new SoSeparator;
  caret->addChild(getSkin().getPart("DialogEditTextCaretFrame"));
  m_caretTransform = So3DPlacement::insertTransform(caret);
  m_caretSwitch = new SoSwitch;
  m_caretSwitch->whichChild = SO_SWITCH_NONE;
  m_caretSwitch->addChild(caret);

  m_frameTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("frameSep"));
  makePart<SoSwitch>("frameSwitch")->whichChild = 0;
  fillFromSkin("textProp", SoTextSkin::getProperties());
  m_lines.attach(makePart<SoSeparator>("textSep"), makePart<SoGroup>("textProp"), getTextLook(),
                 getBoundingBoxAction());
  makePart<SoSeparator>("editSep")->addChild(m_caretSwitch);

  const auto attach = [](Scroller& scroller, So3DScrollBar::Direction direction, So3DScrollBar::Parts parts) {
    scroller.bar.attach(direction, parts);
    scroller.buttons[So3DScrollBar::BACK] = parts.buttons[So3DScrollBar::BACK];
    scroller.buttons[So3DScrollBar::FORTH] = parts.buttons[So3DScrollBar::FORTH];
    scroller.groove = parts.groove;
    scroller.cursor = parts.cursor;
  };
  attach(m_vertical, So3DScrollBar::VERTICAL,
         {makePart<SoSwitch>("scrollVSwitch"),
          {makePart<SoSeparator>("upSep"), makePart<SoSeparator>("downSep")},
          {makePart<SoSwitch>("upSwitch"), makePart<SoSwitch>("downSwitch")},
          makePart<SoSeparator>("scrollVBack"),
          makePart<SoSeparator>("cursorVSep")});
  attach(m_horizontal, So3DScrollBar::HORIZONTAL,
         {makePart<SoSwitch>("scrollHSwitch"),
          {makePart<SoSeparator>("leftSep"), makePart<SoSeparator>("rightSep")},
          {makePart<SoSwitch>("leftSwitch"), makePart<SoSwitch>("rightSwitch")},
          makePart<SoSeparator>("scrollHBack"),
          makePart<SoSeparator>("cursorHSep")});
  listenToPointer3D();
}

void SoDialogEditText::update3D()
{
  update3DEditText();
  update3DLabel();
}

void SoDialogEditText::update3DLabel()
{
  update3DSideLabel();
}

void SoDialogEditText::change3DLabel()
{
  inherited::change3DLabel();
}

void SoDialogEditText::change3DLabelAlignment()
{
  inherited::change3DLabelAlignment();
}

void SoDialogEditText::change3DLabelVisibility()
{
  inherited::change3DLabelVisibility();
  update3DEditText();
}

void SoDialogEditText::update3DAfterSkinChange()
{
  m_lines.forgetMeasures();
  inherited::update3DAfterSkinChange();
}

void SoDialogEditText::update3DEditText()
{
  change3DEditText(); // the frame of one line is as high as its text
}

QRect SoDialogEditText::getFrameRect3D() const
{
  const SbVec2i32& size = get3DSize();
  return getEditorRect(size) & QRect(0, 0, size[0], size[1]);
}

QRect SoDialogEditText::getTextRect3D() const
{
  const QRect frameRect = getFrameRect3D();
  if (!multiLine.getValue()) {
    // The line stands in the middle of its frame.
    const int lineHeight = std::min(static_cast<int>(std::lround(m_lines.getLineHeight())), frameRect.height());
    return {frameRect.x() + textInset, frameRect.y() + (frameRect.height() - lineHeight) / 2,
            frameRect.width() - 2 * textInset, lineHeight};
  }
  const int barBelow = m_horizontal.bar.isShown() ? scrollBarSize : 0;
  return {frameRect.x() + textInset, frameRect.y() + textInsetAbove, frameRect.width() - scrollBarSize - 2 * textInset,
          frameRect.height() - 2 * textInsetAbove - barBelow};
}

void SoDialogEditText::change3DEditText()
{
  if (!m_frameTransform) {
    return;
  }
  So3DPlacement::place(m_frameTransform, getFrameRect3D(), get3DSize(), faceHeight);
  setLines3D();
  update3DScrollBars();
  update3DTextPosition();
}

void SoDialogEditText::setLines3D()
{
  const bool isMultiLine = multiLine.getValue() != FALSE;
  const QString text = withoutControls(SoText::toQt(getShownText()), isMultiLine);
  if (isMultiLine) {
    m_lines.setLines(text, wrapLine.getValue() ? static_cast<float>(getTextRect3D().width()) : 0.0F);
  }
  else {
    m_lines.setLine(text);
  }
}

void SoDialogEditText::update3DTextCache(int previousLine)
{
  if (!m_frameTransform) {
    return;
  }
  // A line that is not wrapped may have outgrown its room.
  if (multiLine.getValue() && (previousLine != m_lines.getNum() - 1 || !wrapLine.getValue())) {
    update3DScrollBars();
  }
  update3DTextPosition();
}

int SoDialogEditText::getRows3D() const
{
  return std::max(static_cast<int>(static_cast<float>(getTextRect3D().height()) / m_lines.getLineHeight()), 1);
}

void SoDialogEditText::update3DScrollBars()
{
  if (!m_frameTransform) {
    return;
  }
  const bool isMultiLine = multiLine.getValue() != FALSE;
  const bool isWide = isMultiLine && !wrapLine.getValue();
  m_horizontal.bar.show(isWide && m_lines.getWidth() > static_cast<float>(getTextRect3D().width()));
  m_vertical.bar.show(isMultiLine && m_lines.getNum() > getRows3D());

  const QRect rect = getFrameRect3D();
  const int barRight = m_vertical.bar.isShown() ? scrollBarSize : 0;
  const int barBelow = m_horizontal.bar.isShown() ? scrollBarSize : 0;
  const float height = faceHeight + frameDepth;
  m_vertical.bar.place(QRect(rect.right() + 1 - scrollBarSize, rect.y(), scrollBarSize, rect.height() - barBelow),
                       get3DSize(), height);
  m_horizontal.bar.place(QRect(rect.x(), rect.bottom() + 1 - scrollBarSize, rect.width() - barRight, scrollBarSize),
                         get3DSize(), height);
  update3DCursors();
}

void SoDialogEditText::update3DCursors()
{
  if (!m_frameTransform) {
    return;
  }
  const bool isMultiLine = multiLine.getValue() != FALSE;
  const float lineHeight = m_lines.getLineHeight();
  m_vertical.bar.setRange(isMultiLine ? static_cast<float>(m_lines.getNum()) * lineHeight : 0.0F,
                          static_cast<float>(getRows3D()) * lineHeight);
  m_horizontal.bar.setRange(m_horizontal.bar.isShown() ? m_lines.getWidth() + roomAtEnd : 0.0F,
                            static_cast<float>(getTextRect3D().width()));
}

void SoDialogEditText::update3DTextPosition()
{
  if (m_editing3D && multiLine.getValue()) {
    m_vertical.bar.scrollTo(m_vertical.bar.getEnd());
    const float lineWidth = m_lines.getWidth(m_lines.getNum() - 1);
    m_horizontal.bar.scrollTo(lineWidth + roomAtEnd - m_horizontal.bar.getPage());
  }
  update3DTextScrollPosition();
}

void SoDialogEditText::update3DTextScrollPosition()
{
  if (!m_frameTransform) {
    return;
  }
  const float height = faceHeight + frameDepth;
  if (m_editing3D && !multiLine.getValue()) {
    m_lines.showEnd(getTextRect3D(), get3DSize(), height);
  }
  else {
    const float first = m_vertical.bar.getScrolled() / m_lines.getLineHeight() + 0.5F;
    m_lines.show(getTextRect3D(), get3DSize(), static_cast<int>(first), m_horizontal.bar.getScrolled(), height);
  }
  float x = 0.0F;
  float y = 0.0F;
  float lineHeight = 0.0F;
  const bool showsCaret = m_editing3D && m_lines.getEnd(x, y, lineHeight);
  if (showsCaret) {
    So3DPlacement::place(m_caretTransform, SbVec2f(x + caretWidth, y), SbVec2f(caretWidth, lineHeight), height);
  }
  m_caretSwitch->whichChild = showsCaret ? 0 : SO_SWITCH_NONE;
}

// The pointer in the scene: the frame starts editing, the bars scroll

void SoDialogEditText::press3D()
{
  if (!pressScroller(m_vertical) && !pressScroller(m_horizontal) && isUnderPointer(editSep.getValue())) {
    start3DEditing();
  }
}

bool SoDialogEditText::pressScroller(Scroller& scroller)
{
  for (const auto button : {So3DScrollBar::BACK, So3DScrollBar::FORTH}) {
    if (isUnderPointer(scroller.buttons[button])) {
      m_pressed = &scroller;
      m_pressedButton = button;
      scroller.bar.press(button, true);
      return true;
    }
  }
  if (isUnderPointer(scroller.cursor)) {
    m_pressed = &scroller;
    m_pressedButton = -1;
    m_dragStart = scroller.bar.along(getPointer3D());
    m_scrolledAtStart = scroller.bar.getScrolled();
    return true;
  }
  if (isUnderPointer(scroller.groove)) {
    const auto side = static_cast<float>(scroller.bar.getSideOfCursor(getPointer3D()));
    scrollTo(scroller, scroller.bar.getScrolled() + side * scroller.bar.getPage());
    return true;
  }
  return false;
}

void SoDialogEditText::drag3D()
{
  if (m_pressed && m_pressedButton < 0) {
    const float moved = m_pressed->bar.along(getPointer3D()) - m_dragStart;
    scrollTo(*m_pressed, m_scrolledAtStart + m_pressed->bar.toContent(moved));
  }
}

void SoDialogEditText::release3D()
{
  Scroller* scroller = std::exchange(m_pressed, nullptr);
  if (!scroller || m_pressedButton < 0) {
    return;
  }
  const auto button = static_cast<So3DScrollBar::Button>(m_pressedButton);
  scroller->bar.press(button, false);
  if (isUnderPointer(scroller->buttons[button])) {
    const float step = scroller == &m_vertical ? m_lines.getLineHeight() : sideStep;
    scrollTo(*scroller, scroller->bar.getScrolled() + (button == So3DScrollBar::FORTH ? step : -step));
  }
}

void SoDialogEditText::scrollTo(Scroller& scroller, float scrolled)
{
  scroller.bar.scrollTo(scrolled);
  update3DTextScrollPosition();
}

void SoDialogEditText::move3DCursor(float delta)
{
  if (m_frameTransform) {
    scrollTo(m_vertical, m_vertical.bar.getScrolled() - delta);
  }
}

void SoDialogEditText::move3DCaret(int /*x*/, int /*y*/) {}

// Editing in the scene

SbBool SoDialogEditText::isEditing3D() const
{
  return m_editing3D;
}

void SoDialogEditText::start3DEditing()
{
  if (!editable.getValue()) {
    return;
  }
  set3DCurrentActive(this);
  // The auditors of the element that was active until now may have forbidden it meanwhile.
  if (get3DCurrentActive() == this && editable.getValue() && enable.getValue() && isEnabledByParents()) {
    m_editing3D = true;
    makePart<SoSwitch>("frameSwitch")->whichChild = 1;
    update3DTextPosition();
  }
}

void SoDialogEditText::stop3DEditing()
{
  m_editing3D = false;
  makePart<SoSwitch>("frameSwitch")->whichChild = 0;
  update3DTextScrollPosition();
}

void SoDialogEditText::finish3DEditing()
{
  if (!m_editing3D) {
    return;
  }
  const SoEventScope scope(this, SoEventScope::getAction());
  stop3DEditing();
  if (trigOnEnter.getValue()) {
    applyDlgCptAuditor();
  }
}

void SoDialogEditText::set3DInactive()
{
  const SoEventScope scope(this, SoEventScope::getAction()); // an auditor may release the element
  finish3DEditing();
  inherited::set3DInactive();
}

void SoDialogEditText::updateUsability3D()
{
  if (m_editing3D && !(editable.getValue() && enable.getValue() && isEnabledByParents() && isShown3D())) {
    stop3DEditing(); // by code: nobody is called
    inherited::set3DInactive();
  }
}

void SoDialogEditText::change3DEnable()
{
  inherited::change3DEnable();
  updateUsability3D();
}

void SoDialogEditText::change3DWidgetEnable(int enabled)
{
  inherited::change3DWidgetEnable(enabled);
  updateUsability3D();
}

void SoDialogEditText::show3D(int show)
{
  inherited::show3D(show);
  updateUsability3D();
}

void SoDialogEditText::handleEvent(SoHandleEventAction* action)
{
  const SoEvent* event = action->getEvent();
  if (m_editing3D && SoKeyboardEvent::isKeyPressEvent(event, SoKeyboardEvent::ANY)) {
    const SoEventScope scope(this, action);
    if (processKeyEvents(static_cast<const SoKeyboardEvent*>(event))) {
      action->setHandled();
      return;
    }
  }
  inherited::handleEvent(action);
}

bool SoDialogEditText::processKeyEvents(const SoKeyboardEvent* event)
{
  if (event->getKey() == SoKeyboardEvent::RETURN) {
    if (event->wasShiftDown()) {
      insertCharTo3DText('\n');
    }
    else {
      finish3DEditing();
    }
    return true;
  }
  if (event->getKey() == SoKeyboardEvent::BACKSPACE) {
    removeCharIn3DText();
    return true;
  }
  // Of the keypad only the digits and the period write: this is meant.
  const bool isWriting =
    event->getKey() != SoKeyboardEvent::PAD_ADD && event->getKey() != SoKeyboardEvent::PAD_SUBTRACT;
  const char character = isWriting ? SoTypedKey::getCharacter(event) : '\0';
  if (character != '\0') {
    insertCharTo3DText(character);
  }
  return character != '\0';
}

void SoDialogEditText::insertCharTo3DText(char character)
{
  const char added[] = {character, '\0'};
  setTextFromUser(editText.getValue() + added);
}

void SoDialogEditText::removeCharIn3DText()
{
  std::string text = editText.getValue().getString();
  if (text.empty()) {
    return;
  }
  const auto getShownLength = [this, &text] {
    return multiLine.getValue() ? convertToCString(text.c_str(), this).getLength() : static_cast<int>(text.size());
  };
  // An escape is one character, and what is not shown goes with what is.
  const int length = getShownLength();
  do {
    text.pop_back();
  } while (!text.empty() && getShownLength() >= length);
  while (!text.empty()) {
    const char last = text.back();
    const int shown = getShownLength();
    text.pop_back();
    if (getShownLength() != shown) {
      text += last;
      break;
    }
  }
  setTextFromUser(text.c_str());
}

void SoDialogEditText::setTextFromUser(const SbString& text)
{
  const SoEventScope scope(this, SoEventScope::getAction());
  {
    const SoWatchedFields::Pause pause(m_watched, editText);
    editText = text;
  }
  if (isWidgetBuilt()) {
    changeEditText();
  }
  if (isLive3D()) {
    const int previousLine = m_lines.getNum() - 1;
    setLines3D();
    update3DTextCache(previousLine);
  }
  if (!trigOnEnter.getValue()) {
    applyDlgCptAuditor();
  }
}

// Keys in the scene while nothing is edited: the first one that writes starts it

bool SoDialogEditText::usesKeys3D() const
{
  return editable.getValue() != FALSE;
}

SbBool SoDialogEditText::pressKey3D(const SoKeyboardEvent* event)
{
  const int key = event->getKey();
  const bool opens = key == SoKeyboardEvent::RETURN || key == SoKeyboardEvent::PAD_ENTER;
  const bool writes = key == SoKeyboardEvent::BACKSPACE || SoTypedKey::getCharacter(event) != '\0';
  // While the text is edited, the keys that it has no use for are the application's. Who has used the mouse and has
  // ended the edit means the application with a letter, too.
  if (m_editing3D || (!opens && !(writes && So3DKeyboard::isOutlined()))) {
    return FALSE;
  }
  start3DEditing();
  if (m_editing3D && !opens) {
    processKeyEvents(event);
  }
  return TRUE;
}
