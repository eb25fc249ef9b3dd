#include <Quillform/controls/SoDialogSeparator.h>

#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <Quillform/controls/SoDialogQSeparator.h>
#include <Quillform/core/So3DPlacement.h>

SO_QUILLFORM_SOURCE(SoDialogSeparator, "DialogSeparator")
SO_SKIN_SOURCE(SoDialogSeparator, "DialogSeparator.iv", "DialogSeparatorVertical", "DialogSeparatorHorizontal")

namespace {
constexpr int thickness = 8; // of the separator with the room around its line, in pixels
constexpr int inset = 3;     // of the line within the separator
constexpr int lineWidth = 2;
} // namespace

SoDialogSeparator::SoDialogSeparator() : inherited(PartsLater())
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogSeparator);

  typedef SoDialogSeparator Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::frameSep, "frameSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::frameSwitch, "frameSwitch", "SoSwitch", "frameSep", FALSE},
    {&Self::vFrame, "vFrame", "SoGroup", "frameSwitch", TRUE},
    {&Self::hFrame, "hFrame", "SoGroup", "frameSwitch", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoDialogSeparator::~SoDialogSeparator() = default;

void SoDialogSeparator::setOrientationHorz(int isHorizontal)
{
  m_isHorizontal = isHorizontal;
}

void SoDialogSeparator::getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  const int across = m_isHorizontal != 0 ? 1 : 0;
  size.setValue(0, 0);
  size[across] = thickness;
  min = size;
  max.setValue(unbounded, unbounded);
  max[across] = thickness;
}

bool SoDialogSeparator::hasSizeAsMinimum() const
{
  return true;
}

SoCellLimits SoDialogSeparator::getCellLimits() const
{
  SoCellLimits limits = inherited::getCellLimits();
  if (m_isHorizontal != 0) {
    limits.maximum.setHeight(maxHeight.getValue());
  }
  else {
    limits.maximum.setWidth(maxWidth.getValue());
  }
  return limits;
}

void SoDialogSeparator::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
  if (asWidget != 0) {
    createSeparatorWidget();
    placeWidgets();
  }
  else {
    create3DSeparator();
    update3D();
  }
}

void SoDialogSeparator::createSeparatorWidget()
{
  if (!takesFrame()) {
    return;
  }
  setFrame(new SoDialogQSeparator(getWidget(), this));
  changeEdgeStyle();
  changeEnable();
  addFrameToCell();
}

void SoDialogSeparator::placeWidgets()
{
  if (auto* relay = getRelay<SoDialogQSeparator>()) {
    const bool isHorizontal = m_isHorizontal != 0;
    const SbVec2i32 size = getFrameSize();
    relay->separatorWidgetPos(inset, inset, isHorizontal ? size[0] - 2 * inset : lineWidth,
                              isHorizontal ? lineWidth : size[1] - 2 * inset, isHorizontal);
  }
}

void SoDialogSeparator::updateFromSensor(SoSensor* sensor)
{
  // Changes after the build are ignored, this is meant; sizes are remembered for the next one, and for files.
  const SoField* field = SoWatchedFields::getFired(sensor);
  if (field == &width || field == &height || field == &minWidth || field == &minHeight || field == &maxWidth ||
      field == &maxHeight) {
    inherited::updateFromSensor(sensor);
  }
}

void SoDialogSeparator::changeEdgeStyle()
{
  inherited::changeEdgeStyle();
}

void SoDialogSeparator::create3DSeparator()
{
  if (m_lineTransform) {
    return;
  }
  fillFromSkin("vFrame", getSkin().getPart("DialogSeparatorVertical"));
  fillFromSkin("hFrame", getSkin().getPart("DialogSeparatorHorizontal"));
  m_lineTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("frameSep"));
}

void SoDialogSeparator::update3D()
{
  makePart<SoSwitch>("frameSwitch")->whichChild = m_isHorizontal != 0 ? 1 : 0;
  const SbVec2f size(static_cast<float>(get3DSize()[0] - 2 * inset), static_cast<float>(get3DSize()[1] - 2 * inset));
  So3DPlacement::place(m_lineTransform, SbVec2f(0.0F, 0.0F), size, faceHeight);
}
