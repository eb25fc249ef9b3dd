#include <Quillform/controls/SoDialogCustom.h>

#include <QHBoxLayout>

SO_QUILLFORM_SOURCE(SoDialogCustom, "DialogCustom")

SoDialogCustom::SoDialogCustom() : inherited(PartsLater())
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogCustom);
  SO_KIT_INIT_INSTANCE();
}

SoDialogCustom::~SoDialogCustom() = default;

QBoxLayout* SoDialogCustom::getLayout() const
{
  return m_contents;
}

bool SoDialogCustom::hasSizeAsMinimum() const
{
  return true;
}

SoCellLimits SoDialogCustom::getCellLimits() const
{
  SoCellLimits limits;
  limits.minimum = getSmallestSize();
  limits.maximum = QSize(fixedWidth.getValue() ? width.getValue() : maxWidth.getValue(),
                         fixedHeight.getValue() ? height.getValue() : maxHeight.getValue());
  return limits;
}

void SoDialogCustom::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
  if (asWidget == 0 || getRelay<SoDialogQFrame>()) {
    return; // what the application put into the frame stays
  }
  auto* frame = new SoDialogQFrame(getWidget(), this, "");
  frame->setObjectName(""); // the application may name its own frame
  setFrame(frame);
  addFrameToCell();
  m_contents = new QHBoxLayout(frame);
  m_contents->setObjectName("ZEPSoDialogQCustomLayout");
  m_contents->setContentsMargins(0, 0, 0, 0);
  m_contents->setSpacing(0);
  changeEdgeStyle();
  changeEnable();
  addChildWidget();
}

void SoDialogCustom::addChildWidget() {}

void SoDialogCustom::changeEdgeStyle()
{
  inherited::changeEdgeStyle();
}
