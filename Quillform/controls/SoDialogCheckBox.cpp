#include <Quillform/controls/SoDialogCheckBox.h>

#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/auditors/SoDialogCheckBoxAuditor.h>
#include <Quillform/controls/SoDialogQCheckBox.h>
#include <Quillform/core/So3DKeyboard.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoText.h>
#include <algorithm>

SO_QUILLFORM_SOURCE(SoDialogCheckBox, "DialogCheckBox")
SO_SKIN_SOURCE(SoDialogCheckBox, "DialogCheckBox.iv", "DialogCheckBoxFrame", "DialogCheckBoxStateOff",
               "DialogCheckBoxStateOn")

namespace {
/// Room that the check mark and the margins take beside and above the text, in pixels.
const SbVec2i32 textMargin(26, 8);

constexpr int markSize = 13;            // side of the check mark in the scene
constexpr int frameSize = markSize + 4; // side of the frame around it
constexpr int markGap = 5;              // between the frame and the text
} // namespace

SoDialogCheckBox::SoDialogCheckBox() : inherited(PartsLater())
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogCheckBox);

  SO_QUILLFORM_ADD_FIELD(state, (FALSE));
  SO_QUILLFORM_ADD_FIELD(onString, (""));
  SO_QUILLFORM_ADD_FIELD(offString, (""));

  typedef SoDialogCheckBox Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::labelSep, "labelSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::labelSwitch, "labelSwitch", "SoSwitch", "labelSep", FALSE},
    {&Self::labelProp, "labelProp", "SoGroup", "labelSwitch", TRUE},
    {&Self::frameSep, "frameSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::frame, "frame", "SoGroup", "frameSep", TRUE},
    {&Self::stateSep, "stateSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::stateSwitch, "stateSwitch", "SoSwitch", "stateSep", FALSE},
    {&Self::stateOff, "stateOff", "SoGroup", "stateSwitch", TRUE},
    {&Self::stateOn, "stateOn", "SoGroup", "stateSwitch", TRUE},
    {&Self::onOffStringSep, "onOffStringSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::onOffStringProp, "onOffStringProp", "SoGroup", "onOffStringSep", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoDialogCheckBox::~SoDialogCheckBox() = default;

// Auditors

void SoDialogCheckBox::addAuditor(SoDialogCheckBoxAuditor* auditor)
{
  inherited::addAuditor(auditor);
}

void SoDialogCheckBox::removeAuditor(SoDialogCheckBoxAuditor* auditor)
{
  inherited::removeAuditor(auditor);
}

void SoDialogCheckBox::applyDlgCptAuditor()
{
  SoAuditorDispatch::applyOwnAuditors(this, &SoDialogCheckBoxAuditor::dialogCheckBox);
}

// Sizes

SbVec2i32 SoDialogCheckBox::getComponentInitSize()
{
  if (m_initSize[0] == -1) {
    m_onTextSize = getLabelPixelSize(onString.getValue(), nullptr) + textMargin;
    m_offTextSize = getLabelPixelSize(offString.getValue(), nullptr) + textMargin;
    m_initSize.setValue(std::max(m_onTextSize[0], m_offTextSize[0]), std::max(m_onTextSize[1], m_offTextSize[1]));
    if (!labelVisibility.getValue()) {
      m_initSize[0] -= getLabelSize()[0]; // only then: this is meant
    }
  }
  return m_initSize;
}

void SoDialogCheckBox::getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  inherited::getDefaultSize(size, min, max);
  size = getComponentSize();
  if (labelVisibility.getValue()) {
    size[0] += getLabelSize()[0] + 2;
  }
  size[1] = std::max({size[1], m_onTextSize[1], m_offTextSize[1]});
}

// Building

void SoDialogCheckBox::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
  if (asWidget != 0) {
    createLabelWidget();
    placeWidgets();
  }
  else {
    create3DDialogCheckBox();
    update3D();
  }
  m_watched.watch(state);
  m_watched.watch(onString);
  m_watched.watch(offString);
}

void SoDialogCheckBox::createLabelWidget()
{
  if (!takesFrame()) {
    return;
  }
  setFrame(new SoDialogQCheckBox(getWidget(), this));
  changeLabel();
  changeState();
  changeLabelAlignment();
  changeOnOffString();
  changeEnable();
  changeLabelVisibility();
  changeEdgeStyle();
  addFrameToCell();
}

void SoDialogCheckBox::placeWidgets()
{
  updateCheckBoxWidget();
  updateLabelWidget();
}

void SoDialogCheckBox::updateCheckBoxWidget()
{
  if (auto* relay = getRelay<SoDialogQCheckBox>()) {
    const QRect rect = getButtonRect();
    relay->checkWidgetPos(rect.x(), rect.y(), rect.width(), rect.height());
  }
}

void SoDialogCheckBox::updateLabelWidget()
{
  placeSideLabel();
}

// Reactions

void SoDialogCheckBox::setStateFromUser(bool checked)
{
  const SoWatchedFields::Pause pause(m_watched, state);
  state = checked;
}

void SoDialogCheckBox::eventNotify(unsigned int event, unsigned long /*data*/)
{
  setStateFromUser(event != 0);
  applyDlgCptAuditor();
  if (isWidgetBuilt()) {
    changeState();
  }
  if (isLive3D()) {
    change3DState();
  }
}

void SoDialogCheckBox::updateFromSensor(SoSensor* sensor)
{
  const SoField* field = SoWatchedFields::getFired(sensor);
  if (field == &state) {
    if (isWidgetBuilt()) {
      changeState();
    }
    if (isLive3D()) {
      change3DState();
    }
  }
  else if (field == &onString || field == &offString) {
    if (isWidgetBuilt()) {
      changeOnOffString();
    }
    if (isLive3D()) {
      change3DOnOffString();
    }
  }
  else {
    inherited::updateFromSensor(sensor);
  }
}

SbString SoDialogCheckBox::getShownText() const
{
  const bool showsOff = !state.getValue() && offString.getValue().getLength() > 0;
  return convertToCString(showsOff ? offString.getValue() : onString.getValue(), this);
}

void SoDialogCheckBox::changeState()
{
  if (auto* relay = getRelay<SoDialogQCheckBox>()) {
    relay->setChecked(state.getValue());
  }
  if (isWidgetBuilt()) {
    changeOnOffString();
  }
  if (isLive3D()) {
    change3DOnOffString();
  }
}

void SoDialogCheckBox::changeOnOffString()
{
  if (auto* relay = getRelay<SoDialogQCheckBox>()) {
    relay->setCheckLabel(SoText::toQt(getShownText()));
  }
}

void SoDialogCheckBox::changeEnable()
{
  inherited::changeEnable();
}

void SoDialogCheckBox::changeLabel()
{
  showSideLabel();
  updateLabelWidget();
}

void SoDialogCheckBox::changeLabelAlignment()
{
  alignSideLabel();
}

void SoDialogCheckBox::changeLabelVisibility()
{
  if (auto* relay = getRelay<SoDialogQCheckBox>()) {
    relay->setLabelVisibility(labelVisibility.getValue());
    updateCheckBoxWidget();
  }
}

void SoDialogCheckBox::changeEdgeStyle()
{
  inherited::changeEdgeStyle();
}

void SoDialogCheckBox::changeWidgetEnable(int /*enable*/) {}

// The 3D form

void SoDialogCheckBox::create3DDialogCheckBox()
{
  if (m_frameTransform) {
    return;
  }
  fillFromSkin("frame", getSkin().getPart("DialogCheckBoxFrame"));
  fillFromSkin("stateOff", getSkin().getPart("DialogCheckBoxStateOff"));
  fillFromSkin("stateOn", getSkin().getPart("DialogCheckBoxStateOn"));
  m_frameTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("frameSep"));
  m_stateTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("stateSep"));
  fadeWhenDisabled(makePart<SoSeparator>("stateSep"));
  create3DSideLabel("labelSwitch", "labelProp");
  fillFromSkin("onOffStringProp", SoTextSkin::getProperties());
  m_text3D.attach(makePart<SoSeparator>("onOffStringSep"), makePart<SoGroup>("onOffStringProp"), getTextLook());
  listenToPointer3D();
}

void SoDialogCheckBox::update3D()
{
  SbVec2i32 size(0, 0);
  SbVec2i32 centre(0, 0);
  getControlRect3D(get3DSize(), size, centre);
  const float x = static_cast<float>(centre[0]) - static_cast<float>(size[0] - frameSize) * 0.5F;
  So3DPlacement::place(m_frameTransform, SbVec2f(x, 0.0F), SbVec2f(frameSize, frameSize), faceHeight);
  So3DPlacement::place(m_stateTransform, SbVec2f(x, 0.0F), SbVec2f(markSize, markSize), faceHeight + 1.0F);
  change3DState();
  update3DSideLabel();
}

void SoDialogCheckBox::change3DState()
{
  makePart<SoSwitch>("stateSwitch")->whichChild = state.getValue() ? 1 : 0;
  change3DOnOffString();
}

void SoDialogCheckBox::change3DOnOffString()
{
  SbVec2i32 size(0, 0);
  SbVec2i32 centre(0, 0);
  getControlRect3D(get3DSize(), size, centre);
  const int left = centre[0] + (get3DSize()[0] - size[0]) / 2;
  const int textLeft = left + frameSize + markGap;
  m_text3D.setText(SoText::withoutMnemonic(getShownText()));
  m_text3D.fit(QRect(textLeft, 3, left + size[0] - textLeft, size[1]), get3DSize(), LEFT, faceHeight,
               getBoundingBoxAction());
}

void SoDialogCheckBox::change3DLabelVisibility()
{
  inherited::change3DLabelVisibility();
  if (m_frameTransform) {
    update3D();
  }
}

void SoDialogCheckBox::release3D()
{
  if (isUnderPointer(frameSep.getValue()) || isUnderPointer(stateSep.getValue()) ||
      isUnderPointer(onOffStringSep.getValue())) {
    draggerFinishCallback3D();
  }
}

void SoDialogCheckBox::draggerFinishCallback3D()
{
  set3DCurrentActive(this);
  set3DInactive();
  eventNotify(state.getValue() ? 0 : 1, 0);
}

// Keys in the scene

bool SoDialogCheckBox::usesKeys3D() const
{
  return true;
}

SbBool SoDialogCheckBox::pressWithKey3D()
{
  draggerFinishCallback3D();
  return TRUE;
}
