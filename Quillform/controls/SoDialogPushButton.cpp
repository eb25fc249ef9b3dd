#include <Quillform/controls/SoDialogPushButton.h>

#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/auditors/SoDialogPushButtonAuditor.h>
#include <Quillform/controls/SoDialogQPushButton.h>
#include <Quillform/core/So3DKeyboard.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoText.h>
#include <algorithm>

SO_QUILLFORM_SOURCE(SoDialogPushButton, "DialogPushButton")
SO_SKIN_SOURCE(SoDialogPushButton, "DialogPushButton.iv", "DialogPushButtonReleased", "DialogPushButtonPressed")

namespace {

/// Height of the released button over the component's face; its text stands on it in both looks.
constexpr float buttonHeight = 1.5F;

constexpr int textMargin = 12; // around the text on the button, both sides together

} // namespace

SoDialogPushButton::SoDialogPushButton() : inherited(PartsLater())
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogPushButton);

  SO_QUILLFORM_ADD_FIELD(buttonLabel, (""));

  typedef SoDialogPushButton Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::labelSep, "labelSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::labelSwitch, "labelSwitch", "SoSwitch", "labelSep", FALSE},
    {&Self::labelProp, "labelProp", "SoGroup", "labelSwitch", TRUE},
    {&Self::frameSep, "frameSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::frameSwitch, "frameSwitch", "SoSwitch", "frameSep", FALSE},
    {&Self::released, "released", "SoGroup", "frameSwitch", TRUE},
    {&Self::pressed, "pressed", "SoGroup", "frameSwitch", TRUE},
    {&Self::buttonLabelSep, "buttonLabelSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::buttonLabelProp, "buttonLabelProp", "SoGroup", "buttonLabelSep", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoDialogPushButton::~SoDialogPushButton()
{
  for (SoNode* look : m_ownLooks) {
    if (look) {
      look->unref();
    }
  }
}

// Auditors

void SoDialogPushButton::addAuditor(SoDialogPushButtonAuditor* auditor)
{
  inherited::addAuditor(auditor);
}

void SoDialogPushButton::removeAuditor(SoDialogPushButtonAuditor* auditor)
{
  inherited::removeAuditor(auditor);
}

void SoDialogPushButton::applyDlgCptAuditor()
{
  SoAuditorDispatch::applyOwnAuditors(this, &SoDialogPushButtonAuditor::dialogPushButton);
}

// Sizes

SbVec2i32 SoDialogPushButton::getComponentInitSize()
{
  if (m_initSize[0] == -1) {
    m_buttonTextSize = getLabelPixelSize(buttonLabel.getValue(), this) + SbVec2i32(textMargin, textMargin);
    m_initSize = m_buttonTextSize;
    if (!labelVisibility.getValue()) {
      m_initSize[0] -= getLabelSize()[0]; // only then: this is meant
    }
  }
  return m_initSize;
}

void SoDialogPushButton::getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  inherited::getDefaultSize(size, min, max);
  size = getComponentSize();
  if (labelVisibility.getValue()) {
    size[0] += getLabelSize()[0] + 2;
  }
  size[1] = std::max(size[1], m_buttonTextSize[1]);
}

SoCellLimits SoDialogPushButton::getCellLimits() const
{
  SoCellLimits limits = inherited::getCellLimits();
  limits.horizontal = fixedWidth.getValue() ? QSizePolicy::Fixed : QSizePolicy::Preferred;
  limits.vertical = fixedHeight.getValue() ? QSizePolicy::Fixed : QSizePolicy::Preferred;
  limits.maximum = QSize(maxWidth.getValue(), maxHeight.getValue());
  return limits;
}

// Building

void SoDialogPushButton::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
  if (asWidget != 0) {
    createLabelWidget();
    placeWidgets();
  }
  else {
    create3DDialogPushButton();
    update3D();
  }
  m_watched.watch(buttonLabel);
}

void SoDialogPushButton::createLabelWidget()
{
  if (!takesFrame()) {
    return;
  }
  setFrame(new SoDialogQPushButton(getWidget(), this));
  showSideLabel();
  changeLabelAlignment();
  changeButtonLabel();
  changeEnable();
  changeLabelVisibility();
  changeEdgeStyle();
  addFrameToCell();
}

void SoDialogPushButton::placeWidgets()
{
  updateButtonWidget();
  updateLabelWidget();
}

void SoDialogPushButton::updateButtonWidget()
{
  if (auto* relay = getRelay<SoDialogQPushButton>()) {
    const QRect rect = getButtonRect();
    relay->buttonWidgetPos(rect.x(), rect.y(), rect.width(), rect.height());
  }
}

void SoDialogPushButton::updateLabelWidget()
{
  placeSideLabel();
}

// Reactions

void SoDialogPushButton::eventNotify(unsigned int /*event*/, unsigned long /*data*/)
{
  if (isBuilt3D() != 0) {
    change3DButtonState(0);
  }
  applyDlgCptAuditor();
}

void SoDialogPushButton::updateFromSensor(SoSensor* sensor)
{
  if (SoWatchedFields::getFired(sensor) != &buttonLabel) {
    inherited::updateFromSensor(sensor);
    return;
  }
  if (isWidgetBuilt()) {
    changeButtonLabel();
  }
  if (isLive3D()) {
    change3DButtonLabel();
  }
}

void SoDialogPushButton::changeButtonLabel()
{
  if (auto* relay = getRelay<SoDialogQPushButton>()) {
    relay->setButtonLabel(SoText::toQt(convertToCString(buttonLabel.getValue(), this)));
  }
}

void SoDialogPushButton::changeEnable()
{
  inherited::changeEnable();
}

void SoDialogPushButton::changeLabel()
{
  showSideLabel();
  updateLabelWidget();
}

void SoDialogPushButton::changeLabelAlignment()
{
  alignSideLabel();
}

void SoDialogPushButton::changeLabelVisibility()
{
  if (auto* relay = getRelay<SoDialogQPushButton>()) {
    relay->setLabelVisibility(labelVisibility.getValue());
    updateButtonWidget();
  }
}

void SoDialogPushButton::changeEdgeStyle()
{
  inherited::changeEdgeStyle();
}

void SoDialogPushButton::changeWidgetEnable(int /*enable*/) {}

// The 3D form

void SoDialogPushButton::create3DDialogPushButton()
{
  if (m_buttonTransform) {
    return;
  }
  fillFromSkin("released", getSkin().getPart("DialogPushButtonReleased"));
  fillFromSkin("pressed", getSkin().getPart("DialogPushButtonPressed"));
  m_buttonTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("frameSep"));
  makePart<SoSwitch>("frameSwitch")->whichChild = 0;
  for (int child = 0; child < 2; child++) {
    setLook(child, m_ownLooks[child]); // what the application chose before this form existed
  }
  create3DSideLabel("labelSwitch", "labelProp");
  fillFromSkin("buttonLabelProp", SoTextSkin::getProperties());
  m_buttonText3D.attach(makePart<SoSeparator>("buttonLabelSep"), makePart<SoGroup>("buttonLabelProp"), getTextLook());
  listenToPointer3D();
}

void SoDialogPushButton::update3D()
{
  update3DButton();
  update3DLabel();
}

void SoDialogPushButton::update3DButton()
{
  SbVec2i32 size(0, 0);
  SbVec2i32 centre(0, 0);
  getControlRect3D(get3DSize(), size, centre);
  So3DPlacement::place(m_buttonTransform, SbVec2f(static_cast<float>(centre[0]), static_cast<float>(centre[1])),
                       SbVec2f(static_cast<float>(size[0]), static_cast<float>(size[1])), faceHeight);
  change3DButtonLabel();
}

void SoDialogPushButton::update3DLabel()
{
  update3DSideLabel();
}

void SoDialogPushButton::change3DLabel()
{
  inherited::change3DLabel();
}

void SoDialogPushButton::change3DLabelAlignment()
{
  inherited::change3DLabelAlignment();
}

void SoDialogPushButton::change3DLabelVisibility()
{
  inherited::change3DLabelVisibility();
  if (m_buttonTransform) {
    update3DButton();
  }
}

void SoDialogPushButton::change3DButtonLabel()
{
  if (!m_buttonText3D.isAttached()) {
    return;
  }
  SbVec2i32 size(0, 0);
  SbVec2i32 centre(0, 0);
  getControlRect3D(get3DSize(), size, centre);
  const int left = centre[0] + (get3DSize()[0] - size[0]) / 2;
  m_buttonText3D.setText(SoText::withoutMnemonic(convertToCString(buttonLabel.getValue(), this)));
  m_buttonText3D.fit(QRect(left + 1, 3, size[0] - 2, size[1]), get3DSize(), CENTER, faceHeight + buttonHeight,
                     getBoundingBoxAction());
}

void SoDialogPushButton::change3DButtonState(int state)
{
  if (auto* looks = static_cast<SoSwitch*>(frameSwitch.getValue())) {
    looks->whichChild = state != 0 ? 1 : 0;
  }
}

void SoDialogPushButton::set3DReleasedGeometry(SoNode* node)
{
  setLook(1, node); // the names and the children are crossed: this is meant
}

void SoDialogPushButton::set3DPressedGeometry(SoNode* node)
{
  setLook(0, node);
}

void SoDialogPushButton::setLook(int child, SoNode* node)
{
  if (!node) {
    return;
  }
  node->ref();
  if (m_ownLooks[child]) {
    m_ownLooks[child]->unref();
  }
  m_ownLooks[child] = node;
  // Before the 3D form exists there is nothing to replace; it will ask for the geometry.
  if (m_buttonTransform) {
    makePart<SoSwitch>("frameSwitch")->replaceChild(child, node);
    (child == 0 ? released : pressed).setValue(nullptr); // any kind of node may stand there from now on
  }
}

bool SoDialogPushButton::isPressable()
{
  return isUnderPointer(frameSep.getValue()) || isUnderPointer(buttonLabelSep.getValue());
}

void SoDialogPushButton::press3D()
{
  if (isPressable()) {
    draggerStartCallback3D();
  }
}

void SoDialogPushButton::draggerStartCallback3D()
{
  set3DCurrentActive(this);
  change3DButtonState(1);
}

void SoDialogPushButton::release3D()
{
  if (isPressable() && get3DCurrentActive() == this) {
    draggerFinishCallback3D();
  }
  else {
    // Released elsewhere: the press is taken back.
    set3DInactive();
    change3DButtonState(0);
  }
}

void SoDialogPushButton::draggerFinishCallback3D()
{
  set3DInactive();
  change3DButtonState(0);
  applyDlgCptAuditor();
}

// Keys in the scene

bool SoDialogPushButton::usesKeys3D() const
{
  return true;
}

SbBool SoDialogPushButton::pressWithKey3D()
{
  draggerStartCallback3D();
  draggerFinishCallback3D();
  return TRUE;
}
