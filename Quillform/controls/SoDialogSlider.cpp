#include <Quillform/controls/SoDialogSlider.h>

#include <Inventor/actions/SoHandleEventAction.h>
#include <Inventor/events/SoKeyboardEvent.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <Inventor/nodes/SoTriangleStripSet.h>
#include <Inventor/nodes/SoVertexProperty.h>
#include <Quillform/controls/SoDialogCheckBox.h>
#include <Quillform/controls/SoDialogCustomSlider.h>
#include <Quillform/controls/SoDialogEditText.h>
#include <Quillform/controls/SoDialogQSlider.h>
#include <Quillform/core/So3DKeyboard.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/core/SoText.h>
#include <Quillform/core/SoTypedKey.h>
#include <algorithm>
#include <cmath>
#include <utility>

SO_QUILLFORM_SOURCE(SoDialogSlider, "DialogSlider")
SO_SKIN_SOURCE(SoDialogSlider, "DialogSlider.iv", "DialogSliderFrame", "DialogSliderCursor")

namespace {

const SbVec2i32 ownSize(150, 30); // whatever the slider shows

constexpr int margin = 3; // around everything, in pixels
constexpr int toggleWidth = 16;
constexpr int gap = 2;         // between label, toggle, bar and value
constexpr int textMargin = 10; // around the text of the value, both sides together

// In the scene
constexpr int markSize = 13;         // side of the toggle
constexpr int barInset = 4;          // of the bar from the upper and lower side of the cursor
constexpr int valueInset = 3;        // of the text in its frame, left and right
constexpr float valueHeight = 1.0F;  // of the value's frame
constexpr float cursorHeight = 1.0F; // of the cursor's plane over the bar's
constexpr float halfCursor = static_cast<float>(SoQtBasicSlider::thumbWidth) * 0.5F; // of its width
constexpr float caretWidth = 1.5F;
constexpr int maxTyped = 40; // characters; no number needs more

} // namespace

SoDialogSlider::SoDialogSlider() : SoDialogSlider(SoValueFormat::REAL, "%3f")
{
  SO_KIT_INIT_INSTANCE();
}

SoDialogSlider::SoDialogSlider(SoValueFormat::Kind kind, const char* defaultFormat)
    : inherited(PartsLater()), m_format(kind, defaultFormat)
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogSlider);

  SO_QUILLFORM_ADD_FIELD(valueVisible, (TRUE));
  SO_QUILLFORM_ADD_FIELD(format, ("%3f"));
  SO_QUILLFORM_ADD_FIELD(continuousTrigger, (FALSE));
  SO_QUILLFORM_ADD_FIELD(toggleVisible, (TRUE));
  SO_QUILLFORM_ADD_FIELD(fixedLimits, (FALSE));
  SO_QUILLFORM_ADD_FIELD(colors, (0.66F, 0.66F, 0.66F));
  SO_QUILLFORM_ADD_FIELD(shadedColors, (TRUE));

  typedef SoDialogSlider Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::labelSep, "labelSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::labelSwitch, "labelSwitch", "SoSwitch", "labelSep", FALSE},
    {&Self::labelProp, "labelProp", "SoGroup", "labelSwitch", TRUE},
    {&Self::checkSep, "checkSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::checkSwtch, "checkSwtch", "SoSwitch", "checkSep", FALSE},
    {&Self::checkStateOff, "checkStateOff", "SoGroup", "checkSwtch", TRUE},
    {&Self::checkStateOn, "checkStateOn", "SoGroup", "checkSwtch", TRUE},
    {&Self::sliderSep, "sliderSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::frameSep, "frameSep", "SoSeparator", "sliderSep", FALSE},
    {&Self::frame, "frame", "SoGroup", "frameSep", TRUE},
    {&Self::cursorSep, "cursorSep", "SoSeparator", "sliderSep", FALSE},
    {&Self::cursor, "cursor", "SoGroup", "cursorSep", TRUE},
    {&Self::edtSwtch, "edtSwtch", "SoSwitch", "geomSwitch", FALSE},
    {&Self::edtFrmSep, "edtFrmSep", "SoSeparator", "edtSwtch", FALSE},
    {&Self::edtFrmSwtch, "edtFrmSwtch", "SoSwitch", "edtFrmSep", FALSE},
    {&Self::valueFrame, "valueFrame", "SoGroup", "edtFrmSwtch", TRUE},
    {&Self::editValueFrame, "editValueFrame", "SoGroup", "edtFrmSwtch", TRUE},
    {&Self::editTextSep, "editTextSep", "SoSeparator", "edtSwtch", FALSE},
    {&Self::editTextProp, "editTextProp", "SoGroup", "editTextSep", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
}

SoDialogSlider::~SoDialogSlider() = default;

// Position and value

SoDialogSlider::Range SoDialogSlider::getRange() const
{
  return {0.0, 1.0, m_moved.value_or(0.0F)};
}

double SoDialogSlider::getValueAt(float position) const
{
  return position;
}

std::optional<double> SoDialogSlider::convertTyped(double typed) const
{
  return typed;
}

void SoDialogSlider::storeValue(double /*value*/) {}
void SoDialogSlider::storeLimits(double /*min*/, double /*max*/) {}

float SoDialogSlider::getSingleStep() const
{
  return 0.01F;
}

float SoDialogSlider::getPositionOf(double value) const
{
  const Range range = getRange();
  if (range.min == range.max) {
    return value > range.max ? 1.0F : 0.0F;
  }
  const double position = (value - range.min) / (range.max - range.min);
  return std::isnan(position) ? 0.0F : static_cast<float>(std::clamp(position, 0.0, 1.0));
}

float SoDialogSlider::getSliderPosition() const
{
  return m_moved ? *m_moved : getPositionOf(getRange().value);
}

double SoDialogSlider::getShownValue() const
{
  return m_typed ? *m_typed : m_moved ? getValueAt(*m_moved) : getRange().value;
}

SoQtBasicSlider::Scale SoDialogSlider::getScale() const
{
  const Range range = getRange();
  return {getShownValue(), range.min, range.max, getSingleStep() * std::abs(range.max - range.min)};
}

const SoValueFormat& SoDialogSlider::getFormat() const
{
  if (!m_formatText || *m_formatText != format.getValue()) {
    m_formatText = format.getValue();
    m_format.set(convertToCString(format.getValue(), this));
  }
  return m_format;
}

SbString SoDialogSlider::getValueText() const
{
  return getFormat().print(getShownValue());
}

void SoDialogSlider::setValueFromSlider(float position)
{
  m_moved = std::isnan(position) ? 0.0F : std::clamp(position, 0.0F, 1.0F);
  m_typed.reset();
}

void SoDialogSlider::setValueFromEdit(int fromQt)
{
  auto* relay = getRelay<SoDialogQSlider>();
  if (fromQt != 0 ? !relay : isBuilt3D() == 0) {
    return;
  }
  const std::optional<double> number = getFormat().read(fromQt != 0 ? relay->getText() : m_editText3D);
  const std::optional<double> typed = number ? convertTyped(*number) : std::nullopt;
  if (typed) {
    double value = *typed;
    Range range = getRange();
    if (fixedLimits.getValue()) {
      value = value > range.max ? range.max : value < range.min ? range.min : value;
    }
    else if (value > range.max || value < range.min) {
      range.max = value > range.max ? value : range.max;
      range.min = value < range.min ? value : range.min;
      storeLimits(range.min, range.max);
    }
    if (std::isfinite(value)) { // the limits may be anything
      m_moved = getPositionOf(value);
      m_typed = value;
    }
  }
  // Also of a text that was right: both forms show the value in the slider's own writing.
  showValue();
}

void SoDialogSlider::setValue()
{
  const double value = getShownValue();
  if (!std::isfinite(value)) {
    m_moved.reset(); // between such limits there is no value; the old one stays
    m_typed.reset();
  }
  else if (value != getRange().value) {
    storeValue(value);
    applyDlgCptAuditor();
  }
}

void SoDialogSlider::followValue()
{
  m_moved.reset();
  m_typed.reset();
  updateWidget();
  changeSliderValue();
  showValue();
}

void SoDialogSlider::dropUnfinished()
{
  m_pressed = NOTHING;
  set3DInactive();
  followValue();
}

// What the user does

void SoDialogSlider::changeValueFromSlider(float position)
{
  setValueFromSlider(position);
  if (continuousTrigger.getValue()) {
    setValue();
  }
  changeSliderValue(); // the motion may come from the scene
  showValue();
}

void SoDialogSlider::changeValueAfterFinish()
{
  setValue();
  changeSliderValue();
  showValue();
}

void SoDialogSlider::changeSliderFromEdit(int fromQt)
{
  setValueFromEdit(fromQt);
  updateWidget(); // the limits, and so the room for the value, may be others now
  changeSliderValue();
  setValue();
}

void SoDialogSlider::changeSliderFromSlider(float delta)
{
  setValueFromSlider(getSliderPosition() + delta);
  changeSliderValue();
  showValue();
}

void SoDialogSlider::setContinuousFromUser(bool continuous)
{
  {
    const SoWatchedFields::Pause pause(m_watched, continuousTrigger);
    continuousTrigger = continuous;
  }
  changeContinuousTrigger();
  change3DContinuousTrigger();
}

void SoDialogSlider::eventNotify(unsigned int event, unsigned long /*data*/)
{
  auto* relay = getRelay<SoDialogQSlider>();
  if (event == 1 && relay) {
    setContinuousFromUser(relay->isChecked());
  }
}

// Sizes

SbVec2i32 SoDialogSlider::getComponentInitSize()
{
  return ownSize;
}

void SoDialogSlider::getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  inherited::getDefaultSize(size, min, max);
  size = getComponentSize();
  if (labelVisibility.getValue()) {
    size[0] += getLabelSize()[0] + gap;
  }
}

bool SoDialogSlider::hasSizeAsMinimum() const
{
  return true; // not minWidth and minHeight: this is meant
}

int SoDialogSlider::getEditZoneWidth() const
{
  return m_editZoneWidth;
}

int SoDialogSlider::getSliderWidth() const
{
  return m_sliderWidth;
}

int SoDialogSlider::computeEditZoneWidth()
{
  int widest = getLabelPixelSize(getValueText(), nullptr)[0];
  for (const float position : {0.0F, 1.0F / 3.0F, 2.0F / 3.0F, 1.0F}) { // thirds have many decimals
    const SbString text = getFormat().print(getValueAt(position));
    widest = std::max(widest, getLabelPixelSize(text, nullptr)[0]);
  }
  return widest + textMargin;
}

SoDialogSlider::Places SoDialogSlider::getPlaces(const SbVec2i32& size) const
{
  const int labelColumn = labelVisibility.getValue() ? getLabelSize()[0] + gap : 0;
  const int toggleColumn = toggleVisible.getValue() ? toggleWidth + gap : 0;
  const int height = size[1] - 2 * margin;

  int barWidth = size[0] - 2 * margin - labelColumn - toggleColumn;
  // A value with a long text leaves half of the room to the bar.
  const int editWidth = std::min(m_editZoneWidth, std::max(barWidth / 2, 0));
  if (valueVisible.getValue()) {
    barWidth -= editWidth + gap;
  }
  const int textHeight = getLabelPixelSize(getValueText(), nullptr)[1];

  Places places;
  places.toggle = QRect(labelColumn + margin, margin, toggleWidth, height);
  places.bar = QRect(margin + labelColumn + toggleColumn, margin, barWidth, height);
  places.edit = QRect(barWidth + margin + gap + labelColumn + toggleColumn, (height - textHeight) / 2 + margin,
                      editWidth, textHeight);
  return places;
}

// Building

void SoDialogSlider::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  if (!isWidgetBuilt() && isBuilt3D() == 0) {
    m_moved.reset(); // nobody has watched the value so far
    m_typed.reset();
  }
  inherited::buildWidget(parent, size, position, asWidget);
  m_editZoneWidth = computeEditZoneWidth();
  if (asWidget != 0) {
    createLabelWidget();
    placeWidgets();
  }
  else {
    create3DDialogSlider();
    update3D();
  }
  m_watched.watch(valueVisible);
  m_watched.watch(format);
  m_watched.watch(continuousTrigger);
  m_watched.watch(toggleVisible);
  m_watched.watch(colors);
  m_watched.watch(shadedColors);
}

void SoDialogSlider::createLabelWidget()
{
  if (!takesFrame()) {
    return;
  }
  auto* relay = new SoDialogQSlider(getWidget(), this);
  setFrame(relay);
  relay->setFinishReported(!continuousTrigger.getValue());
  showColors();
  changeLabel();
  changeLabelAlignment();
  changeLabelVisibility();
  changeContinuousTrigger();
  changeToggleVisible();
  changeSliderValue();
  changeEditValue();
  changeEdgeStyle();
  changeValueVisible();
  changeEnable();
  addFrameToCell();
}

void SoDialogSlider::placeWidgets()
{
  updateSliderWidget();
  updateEditWidget();
  updateLabelWidget();
}

void SoDialogSlider::updateWidget()
{
  m_editZoneWidth = computeEditZoneWidth();
  updateSliderWidget();
  updateEditWidget();
  update3DSlider();
}

void SoDialogSlider::updateSliderWidget()
{
  if (auto* relay = getRelay<SoDialogQSlider>()) {
    const Places places = getPlaces(getFrameSize());
    m_sliderWidth = places.bar.width();
    relay->toggleWidgetPos(places.toggle.x(), places.toggle.y(), places.toggle.width(), places.toggle.height());
    relay->sliderWidgetPos(places.bar.x(), places.bar.y(), places.bar.width(), places.bar.height());
  }
}

void SoDialogSlider::updateEditWidget()
{
  if (auto* relay = getRelay<SoDialogQSlider>()) {
    const QRect rect = getPlaces(getFrameSize()).edit;
    relay->editWidgetPos(rect.x(), rect.y(), rect.width(), rect.height());
  }
}

void SoDialogSlider::updateLabelWidget()
{
  placeSideLabel();
}

// Reactions

void SoDialogSlider::updateFromSensor(SoSensor* sensor)
{
  const SoField* field = SoWatchedFields::getFired(sensor);
  if (field == &valueVisible) {
    changeValueVisible();
    change3DValueVisible();
  }
  else if (field == &toggleVisible) {
    changeToggleVisible();
    change3DToggleVisible();
  }
  else if (field == &colors || field == &shadedColors) {
    showColors();
    change3DColors();
  }
  else if (field == &continuousTrigger) {
    changeContinuousTrigger();
    change3DContinuousTrigger();
  }
  else if (field == &format) {
    changeFormat();
  }
  else {
    inherited::updateFromSensor(sensor);
  }
}

void SoDialogSlider::showValue()
{
  if (m_editing3D) {
    m_editText3D = getFormat().printNumber(getShownValue()); // as in the window, another value replaces what is typed
  }
  changeEditValue();
  change3DSliderValue();
}

void SoDialogSlider::changeSliderValue()
{
  if (auto* relay = getRelay<SoDialogQSlider>()) {
    relay->getSlider()->setSteps(getSingleStep(), getPageStep());
    relay->getSlider()->setValue(getSliderPosition());
  }
}

void SoDialogSlider::changeEditValue()
{
  if (auto* relay = getRelay<SoDialogQSlider>()) {
    relay->setText(SoText::toQt(getValueText()));
  }
}

void SoDialogSlider::changeFormat()
{
  updateWidget();
  showValue();
}

void SoDialogSlider::changeValueVisible()
{
  if (auto* relay = getRelay<SoDialogQSlider>()) {
    relay->setEditVisibility(valueVisible.getValue());
    updateSliderWidget();
    updateEditWidget();
  }
}

void SoDialogSlider::changeToggleVisible()
{
  if (auto* relay = getRelay<SoDialogQSlider>()) {
    relay->setToggleVisibility(toggleVisible.getValue());
    updateSliderWidget();
    updateEditWidget();
  }
}

void SoDialogSlider::changeContinuousTrigger()
{
  if (auto* relay = getRelay<SoDialogQSlider>()) {
    relay->setChecked(continuousTrigger.getValue());
    relay->setFinishReported(!continuousTrigger.getValue());
  }
}

void SoDialogSlider::showColors()
{
  if (auto* relay = getRelay<SoDialogQSlider>()) {
    relay->getSlider()->setDrawingMethod(colors.getValues(0), colors.getNum(), shadedColors.getValue());
  }
}

void SoDialogSlider::setFocus()
{
  if (auto* relay = getRelay<SoDialogQSlider>()) {
    relay->getSlider()->setFocus();
  }
}

void SoDialogSlider::changeEnable()
{
  inherited::changeEnable();
  if (!enable.getValue()) {
    dropUnfinished();
  }
}

void SoDialogSlider::changeLabel()
{
  showSideLabel();
  updateLabelWidget();
}

void SoDialogSlider::changeLabelAlignment()
{
  alignSideLabel();
}

void SoDialogSlider::changeLabelVisibility()
{
  if (auto* relay = getRelay<SoDialogQSlider>()) {
    relay->setLabelVisibility(labelVisibility.getValue());
    updateSliderWidget();
    updateEditWidget();
  }
}

// The 3D form

void SoDialogSlider::create3DDialogSlider()
{
  if (m_frameTransform) {
    return;
  }
  fillFromSkin("checkStateOff", SoDialogCheckBox::getSkin().getPart("DialogCheckBoxStateOff"));
  fillFromSkin("checkStateOn", SoDialogCheckBox::getSkin().getPart("DialogCheckBoxStateOn"));
  fillFromSkin("frame", getSkin().getPart("DialogSliderFrame"));
  fillFromSkin("cursor", getSkin().getPart("DialogSliderCursor"));
  fillFromSkin("valueFrame", SoDialogEditText::getSkin().getPart("DialogEditTextFrame"));
  fillFromSkin("editValueFrame", SoDialogEditText::getSkin().getPart("DialogEditTextEditingFrame"));
  m_checkTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("checkSep"));
  m_cursorTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("cursorSep"));
  m_valueTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("edtFrmSep"));
  create3DColors();
  fadeWhenDisabled(makePart<SoSeparator>("sliderSep"));
  fadeWhenDisabled(makePart<SoSeparator>("checkSep"));
  makePart<SoSwitch>("edtFrmSwtch")->whichChild = 0;
  create3DSideLabel("labelSwitch", "labelProp");
  fillFromSkin("editTextProp", SoTextSkin::getProperties());
  create3DCaret();
  m_valueText3D.attach(makePart<SoSeparator>("editTextSep"), makePart<SoGroup>("editTextProp"), getTextLook());
  listenToPointer3D();
}

/// The mark behind the last character while the user types.
void SoDialogSlider::create3DCaret()
{
  m_caretSwitch = new SoSwitch;
  makePart<SoSeparator>("editTextSep")->addChild(m_caretSwitch);
  auto* caret = new SoSeparator;
  m_caretSwitch->addChild(caret);
  caret->addChild(SoDialogEditText::getSkin().getPart("DialogEditTextCaretFrame"));
  m_caretTransform = So3DPlacement::insertTransform(caret);
}

/// The bar's transform and, between it and the skin's frame, the strip that shows colours of the author.
void SoDialogSlider::create3DColors()
{
  auto* bar = makePart<SoSeparator>("frameSep");
  m_colors3D = new SoSeparator;
  bar->insertChild(m_colors3D, 0);
  m_frameTransform = So3DPlacement::insertTransform(bar);
}

void SoDialogSlider::change3DColors()
{
  if (!m_colors3D) {
    return;
  }
  m_colors3D->removeAllChildren();
  const int count = colors.getNum();
  if (colors.isDefault() || count == 0) {
    return; // the look is the skin's
  }
  // Each column of vertices has one colour. A colour of its own, or alone, needs two of them.
  const int columnsPerColor = shadedColors.getValue() && count > 1 ? 1 : 2;
  const int columns = count * columnsPerColor;
  constexpr float halfHeight = 0.42F;
  constexpr float surface = 1.02F; // just above the front face of the skin's frame
  auto* vertices = new SoVertexProperty;
  for (int i = 0; i < columns; i++) {
    const int color = i / columnsPerColor;
    const float x = columnsPerColor == 1 ? static_cast<float>(i) / static_cast<float>(count - 1)
                                         : static_cast<float>(color + i % 2) / static_cast<float>(count);
    for (int side = 0; side < 2; side++) {
      vertices->vertex.set1Value(2 * i + side, x - 0.5F, side == 0 ? halfHeight : -halfHeight, surface);
      vertices->orderedRGBA.set1Value(2 * i + side, colors[color].getPackedValue());
    }
  }
  vertices->normal = SbVec3f(0.0F, 0.0F, 1.0F);
  vertices->normalBinding = SoVertexProperty::OVERALL;
  vertices->materialBinding = SoVertexProperty::PER_VERTEX;
  auto* strip = new SoTriangleStripSet;
  strip->vertexProperty = vertices;
  strip->numVertices = 2 * columns;
  m_colors3D->addChild(strip);
}

void SoDialogSlider::update3D()
{
  m_editZoneWidth = computeEditZoneWidth();
  change3DContinuousTrigger();
  change3DColors();
  update3DSlider();
  update3DSideLabel();
}

void SoDialogSlider::update3DSlider()
{
  if (!m_frameTransform) {
    return;
  }
  const Places places = getPlaces(get3DSize());
  const QRect& toggle = places.toggle;
  const QRect mark(toggle.x() + (toggle.width() - markSize) / 2, toggle.y() + (toggle.height() - markSize) / 2,
                   markSize, markSize);
  So3DPlacement::place(m_checkTransform, mark, get3DSize(), faceHeight);
  So3DPlacement::place(m_frameTransform, places.bar.adjusted(0, barInset, 0, -barInset), get3DSize(), faceHeight);
  So3DPlacement::place(m_valueTransform, places.edit, get3DSize(), faceHeight);
  makePart<SoSwitch>("edtSwtch")->whichChild = valueVisible.getValue() ? SO_SWITCH_ALL : SO_SWITCH_NONE;
  change3DSliderValue();
}

void SoDialogSlider::change3DSliderValue()
{
  change3DEditValue();
  change3DCursor();
}

void SoDialogSlider::change3DCursor()
{
  if (!m_cursorTransform) {
    return;
  }
  const SbVec2f centre(getFirstCursorX() + getSliderPosition() * getCursorRoom(), 0.0F);
  const SbVec2f size(SoQtBasicSlider::thumbWidth, static_cast<float>(getPlaces(get3DSize()).bar.height()));
  So3DPlacement::place(m_cursorTransform, centre, size, faceHeight + cursorHeight);
}

void SoDialogSlider::change3DEditValue()
{
  if (!m_valueText3D.isAttached()) {
    return;
  }
  if (!m_editing3D) {
    m_editText3D = getFormat().printNumber(getShownValue());
  }
  m_valueText3D.setText(m_editing3D ? m_editText3D : getValueText());
  const Places places = getPlaces(get3DSize());
  m_valueText3D.fit(places.edit.adjusted(valueInset, 0, -valueInset, 0), get3DSize(), LEFT, faceHeight + valueHeight,
                    getBoundingBoxAction());
  m_caretSwitch->whichChild = m_editing3D ? 0 : SO_SWITCH_NONE;
  const bool isEmpty = m_editText3D.getLength() == 0;
  const QRect& edit = places.edit;
  const float left = static_cast<float>(edit.x() + valueInset) - static_cast<float>(get3DSize()[0]) * 0.5F;
  const SbVec2f end((isEmpty ? left : m_valueText3D.getRight()) + caretWidth, 0.0F);
  So3DPlacement::place(m_caretTransform, end, SbVec2f(caretWidth, static_cast<float>(edit.height()) - 4.0F),
                       faceHeight + valueHeight);
}

void SoDialogSlider::change3DValueVisible()
{
  if (!valueVisible.getValue()) {
    finish3DEditing();
  }
  update3DSlider();
}

void SoDialogSlider::change3DToggleVisible()
{
  change3DContinuousTrigger();
  update3DSlider();
}

void SoDialogSlider::change3DContinuousTrigger()
{
  if (auto* states = static_cast<SoSwitch*>(checkSwtch.getValue())) {
    states->whichChild = !toggleVisible.getValue() ? SO_SWITCH_NONE : continuousTrigger.getValue() ? 1 : 0;
  }
}

void SoDialogSlider::change3DLabelVisibility()
{
  inherited::change3DLabelVisibility();
  update3DSlider();
}

void SoDialogSlider::change3DEnable()
{
  inherited::change3DEnable();
  if (!enable.getValue()) {
    dropUnfinished();
  }
}

void SoDialogSlider::change3DWidgetEnable(int enabled)
{
  inherited::change3DWidgetEnable(enabled);
  if (enabled == 0) {
    dropUnfinished();
  }
}

void SoDialogSlider::show3D(int show)
{
  inherited::show3D(show);
  if (show == 0 && m_pressed == BAR) {
    dropUnfinished(); // the release will not come
  }
  else if (show == 0) {
    m_pressed = NOTHING;
    set3DInactive();
  }
}

// Pointer and keys in the scene

float SoDialogSlider::getCursorRoom() const
{
  return static_cast<float>(std::max(getPlaces(get3DSize()).bar.width() - SoQtBasicSlider::thumbWidth, 1));
}

float SoDialogSlider::getFirstCursorX() const
{
  return static_cast<float>(getPlaces(get3DSize()).bar.x()) + halfCursor - static_cast<float>(get3DSize()[0]) * 0.5F;
}

float SoDialogSlider::getPointerOnBar()
{
  const float position = (getPointer3D()[0] - getFirstCursorX()) / getCursorRoom();
  return std::isfinite(position) ? position : getSliderPosition(); // the bar may be seen from its end
}

void SoDialogSlider::press3D()
{
  if (isUnderPointer(edtSwtch.getValue())) {
    start3DEditing();
    return;
  }
  set3DCurrentActive(this);
  finish3DEditing();
  if (isUnderPointer(checkSep.getValue())) {
    m_pressed = TOGGLE;
  }
  else if (isUnderPointer(sliderSep.getValue())) {
    m_pressed = BAR;
    const float pointer = getPointerOnBar();
    const float fromCursor = pointer - getSliderPosition();
    // Beside a slim cursor, too, the press is meant for it.
    const bool onCursor = isUnderPointer(cursorSep.getValue()) || std::abs(fromCursor) * getCursorRoom() <= halfCursor;
    m_grabOffset = onCursor ? fromCursor : 0.0F;
    if (!onCursor) {
      changeValueFromSlider(pointer);
    }
  }
}

void SoDialogSlider::drag3D()
{
  if (m_pressed == BAR) {
    const float position = std::clamp(getPointerOnBar() - m_grabOffset, 0.0F, 1.0F);
    if (position != getSliderPosition()) {
      changeValueFromSlider(position);
    }
  }
}

void SoDialogSlider::release3D()
{
  const Pressed pressed = std::exchange(m_pressed, NOTHING);
  if (!m_editing3D) {
    set3DInactive();
  }
  if (pressed == BAR && !continuousTrigger.getValue()) {
    changeValueAfterFinish();
  }
  else if (pressed == TOGGLE && isUnderPointer(checkSep.getValue())) {
    setContinuousFromUser(!continuousTrigger.getValue());
  }
}

SbBool SoDialogSlider::isEditing3D() const
{
  return m_editing3D;
}

void SoDialogSlider::start3DEditing()
{
  set3DCurrentActive(this);
  if (!m_editing3D) {
    m_editing3D = true;
    makePart<SoSwitch>("edtFrmSwtch")->whichChild = 1;
    change3DEditValue();
  }
}

void SoDialogSlider::finish3DEditing()
{
  if (m_editing3D) {
    m_editing3D = false;
    makePart<SoSwitch>("edtFrmSwtch")->whichChild = 0;
    change3DEditValue();
  }
}

void SoDialogSlider::set3DInactive()
{
  finish3DEditing();
  inherited::set3DInactive();
}

void SoDialogSlider::handleEvent(SoHandleEventAction* action)
{
  const SoEvent* event = action->getEvent();
  if (m_editing3D && event->isOfType(SoKeyboardEvent::getClassTypeId())) {
    const SoEventScope scope(this, action);
    if (processKeyEvents(static_cast<const SoKeyboardEvent*>(event))) {
      action->setHandled();
    }
    return;
  }
  inherited::handleEvent(action);
}

/// True for a key that belongs to the value that is being typed.
bool SoDialogSlider::processKeyEvents(const SoKeyboardEvent* event)
{
  const int key = event->getKey();
  const bool ends = key == SoKeyboardEvent::RETURN || key == SoKeyboardEvent::PAD_ENTER;
  const bool cancels = key == SoKeyboardEvent::ESCAPE;
  const bool edits = key == SoKeyboardEvent::BACKSPACE || SoTypedKey::getCharacter(event) != '\0';
  if (!ends && !cancels && !edits) {
    return false;
  }
  if (event->getState() == SoButtonEvent::DOWN) {
    if (edits) {
      computeNewSliderEditValue(event);
    }
    else {
      const SbString typed = m_editText3D;
      set3DInactive();
      if (ends) {
        m_editText3D = typed;
        changeSliderFromEdit(0);
      }
    }
  }
  return true;
}

void SoDialogSlider::computeNewSliderEditValue(const SoKeyboardEvent* event)
{
  const int length = m_editText3D.getLength();
  const char character = SoTypedKey::getCharacter(event);
  if (event->getKey() == SoKeyboardEvent::BACKSPACE) {
    m_editText3D = length > 1 ? m_editText3D.getSubString(0, length - 2) : SbString();
  }
  else if (character != '\0' && length < maxTyped) {
    m_editText3D += character;
  }
  change3DEditValue();
}

// Keys in the scene

bool SoDialogSlider::usesKeys3D() const
{
  return true;
}

SbBool SoDialogSlider::pressKey3D(const SoKeyboardEvent* event)
{
  if (m_editing3D) {
    return FALSE; // the value that is typed stays as it is
  }
  const float step = getSingleStep();
  const float before = getSliderPosition();
  float position = before;
  switch (event->getKey()) {
  case SoKeyboardEvent::RETURN:
  case SoKeyboardEvent::PAD_ENTER:
    if (valueVisible.getValue()) {
      start3DEditing();
    }
    return valueVisible.getValue();
  case SoKeyboardEvent::SPACE:
    if (toggleVisible.getValue()) {
      setContinuousFromUser(!continuousTrigger.getValue());
    }
    return toggleVisible.getValue();
  case SoKeyboardEvent::LEFT_ARROW:
  case SoKeyboardEvent::DOWN_ARROW:
    position -= step;
    break;
  case SoKeyboardEvent::RIGHT_ARROW:
  case SoKeyboardEvent::UP_ARROW:
    position += step;
    break;
  case SoKeyboardEvent::PAGE_DOWN:
    position -= getPageStep();
    break;
  case SoKeyboardEvent::PAGE_UP:
    position += getPageStep();
    break;
  case SoKeyboardEvent::HOME:
    position = 0.0F;
    break;
  case SoKeyboardEvent::END:
    position = 1.0F;
    break;
  default:
    return FALSE;
  }
  position = std::clamp(position, 0.0F, 1.0F);
  if (position != before) {
    changeValueFromSlider(position);
    if (!continuousTrigger.getValue()) {
      changeValueAfterFinish();
    }
  }
  return TRUE;
}

float SoDialogSlider::getPageStep() const
{
  return std::max(getSingleStep(), 0.1F);
}
