#include <Quillform/controls/SoDialogLabel.h>

#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Quillform/controls/SoDialogQLabel.h>
#include <algorithm>

SO_QUILLFORM_SOURCE(SoDialogLabel, "DialogLabel")

SoDialogLabel::SoDialogLabel() : inherited(PartsLater())
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogLabel);

  typedef SoDialogLabel Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::labelSep, "labelSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::labelProp, "labelProp", "SoGroup", "labelSep", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoDialogLabel::~SoDialogLabel() = default;

// Sizes

SbVec2i32 SoDialogLabel::getComponentInitSize()
{
  if (m_initSize[0] == -1) {
    m_textSize = measureLabel();
    m_initSize.setValue(m_textSize[0] + 4 - getLabelSize()[0], m_textSize[1]);
  }
  return m_initSize;
}

SbVec2i32 SoDialogLabel::getLabelInitSize()
{
  return {0, 0}; // the text is the control, there is no label beside it
}

void SoDialogLabel::getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  inherited::getDefaultSize(size, min, max);
  m_componentSize.setValue(std::max(m_componentSize[0], min[0]), std::max(m_componentSize[1], min[1]));
  size = m_componentSize;
  size[1] = std::max(size[1], m_textSize[1]);
}

SoCellLimits SoDialogLabel::getCellLimits() const
{
  // Only a minimum: a label fills its cell, even when its width or height is fixed.
  SoCellLimits limits;
  limits.minimum = getSmallestSize();
  return limits;
}

// Building

void SoDialogLabel::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
  if (asWidget != 0) {
    createLabelWidget();
    placeWidgets();
  }
  else {
    create3DDialogLabel();
    update3D();
  }
}

void SoDialogLabel::createLabelWidget()
{
  if (!takesFrame()) {
    return;
  }
  setFrame(new SoDialogQLabel(getWidget(), this));
  changeLabelAlignment();
  showSideLabel();
  changeEnable(); // a label disabled by its author looks disabled from the start
  addFrameToCell();
}

QRect SoDialogLabel::getTextRect(const SbVec2i32& frame) const
{
  const int textHeight = measureLabel()[1];
  return {3, (frame[1] - 6 - textHeight) / 2 + 3, frame[0] - 6, textHeight};
}

void SoDialogLabel::placeWidgets()
{
  updateLabelWidget();
}

void SoDialogLabel::updateLabelWidget()
{
  if (auto* relay = getRelay<SoDialogQLabel>()) {
    const QRect rect = getTextRect(getFrameSize());
    relay->labelWidgetPos(rect.x(), rect.y(), rect.width(), rect.height());
  }
}

// Reactions

void SoDialogLabel::updateFromSensor(SoSensor* sensor)
{
  inherited::updateFromSensor(sensor);
}

void SoDialogLabel::changeEnable()
{
  inherited::changeEnable();
}

void SoDialogLabel::changeLabel()
{
  showSideLabel();
  updateLabelWidget();
}

void SoDialogLabel::changeLabelAlignment()
{
  alignSideLabel();
}

void SoDialogLabel::changeEdgeStyle()
{
  inherited::changeEdgeStyle();
}

void SoDialogLabel::changeWidgetEnable(int /*enable*/) {}

// The 3D form

void SoDialogLabel::create3DDialogLabel()
{
  if (m_text3D.isAttached()) {
    return;
  }
  fillFromSkin("labelProp", SoTextSkin::getProperties());
  m_text3D.attach(makePart<SoSeparator>("labelSep"), makePart<SoGroup>("labelProp"), getTextLook());
}

void SoDialogLabel::update3D()
{
  update3DLabel();
}

void SoDialogLabel::update3DLabel()
{
  if (!m_text3D.isAttached()) {
    return;
  }
  m_text3D.setText(convertToCString(label.getValue(), this));
  m_text3D.fit(getTextRect(get3DSize()), get3DSize(), labelAlignment.getValue(), faceHeight, getBoundingBoxAction());
  setLabelCacheBBox(m_text3D.getExtent());
}

void SoDialogLabel::change3DLabel()
{
  inherited::change3DLabel();
  update3DLabel();
}

void SoDialogLabel::change3DLabelAlignment()
{
  update3DLabel();
}
