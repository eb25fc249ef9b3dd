#include <Quillform/containers/SoDialogGroup.h>

#include <QBoxLayout>
#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/auditors/SoDialogGroupAuditor.h>
#include <Quillform/controls/SoDialogSeparator.h>
#include <Quillform/core/SoDialogQFrame.h>
#include <algorithm>

SO_QUILLFORM_SOURCE(SoDialogGroup, "DialogGroup")

namespace {

constexpr int edgeMargin = 3; // between a visible edge and the children
constexpr int edgeLine = 1;   // the visible edge itself

/// The frame into which the children of a group build.
class GroupFrame : public SoDialogQFrame {
public:
  GroupFrame(QWidget* parent, SoDialogComponent* owner) : SoDialogQFrame(parent, owner, "SoDialogGroup")
  {
    setObjectName(nameOf("GroupWidget"));
    SoQuillform::setWidgetFont(this);
    setControl(this);
  }
};

} // namespace

SoDialogGroup::SoDialogGroup()
    : inherited(PartsLater()), m_children(this, {SoDialogComponent::getClassTypeId,
                                                 [this] {
                                                   updateAfterSceneGraphChange();
                                                 }}),
      m_box(1)
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogGroup);

  SO_QUILLFORM_ADD_FIELD(windowResizedByChildren, (TRUE));
  SO_QUILLFORM_ADD_FIELD(margin, (0));
  SO_QUILLFORM_ADD_FIELD(vScrollVisibility, (AUTO));
  SO_QUILLFORM_ADD_FIELD(hScrollVisibility, (AUTO));
  if (SO_KIT_IS_FIRST_INSTANCE()) {
    SO_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, NEVER);
    SO_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, ALWAYS);
    SO_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, AUTO);
  }
  SO_NODE_SET_SF_ENUM_TYPE(vScrollVisibility, ScrollVisibility);
  SO_NODE_SET_SF_ENUM_TYPE(hScrollVisibility, ScrollVisibility);
  SO_KIT_INIT_INSTANCE();
}

SoDialogGroup::~SoDialogGroup() = default;

SoChildElements* SoDialogGroup::getChildElements()
{
  return &m_children;
}

SoChildElements& SoDialogGroup::elements()
{
  return m_children;
}

SbBool SoDialogGroup::readChildren(SoInput* in)
{
  return m_children.readChildren(in);
}

SoBoxModel::Children SoDialogGroup::getComponents() const
{
  SoBoxModel::Children components;
  for (int i = 0; i < getNumChildren(); i++) {
    components.push_back(getChild(i));
  }
  return components;
}

// Auditors

void SoDialogGroup::addAuditor(SoDialogAuditor* auditor)
{
  inherited::addAuditor(auditor);
}

void SoDialogGroup::removeAuditor(SoDialogAuditor* auditor)
{
  inherited::removeAuditor(auditor);
}

void SoDialogGroup::applyAuditor(SoQuillform* caller)
{
  if (getAuditorListLength() == 0) {
    applyOuterAuditor(caller);
    return;
  }
  SoAuditorDispatch::applyDialogAuditors(this, nullptr, caller, SoAuditorDispatch::CONTROLS);
}

void SoDialogGroup::applyOuterAuditor(SoQuillform* caller)
{
  if (getParent()) {
    SoAuditorDispatch::handOn(this, caller);
  }
  else if (m_defaultAuditor) {
    SoAuditorDispatch::applyDefaultAuditor(m_defaultAuditor.get(), caller, SoAuditorDispatch::CONTROLS);
  }
}

void SoDialogGroup::applyAuditors()
{
  SoAuditorDispatch::applyToChildren(this);
}

SoQuillform* SoDialogGroup::searchForAuditorId(SbString id)
{
  return SoAuditorDispatch::searchForAuditorId(this, id);
}

// What the derived classes settle

int SoDialogGroup::getAxis() const
{
  return -1;
}

int SoDialogGroup::getSpacing() const
{
  return 0;
}

QBoxLayout* SoDialogGroup::createGroupLayout(QWidget* frame)
{
  return new QVBoxLayout(frame);
}

void SoDialogGroup::addBorder(SbVec2i32& size, const SbVec2i32& border, int times)
{
  for (int i = 0; i < 2; i++) {
    if (times != 1) {
      size[i] += border[i] * times;
    }
    else {
      size[i] = size[i] < unbounded - border[i] + 1 ? size[i] + border[i] : unbounded;
    }
  }
}

void SoDialogGroup::fixSizeWithBorder(SbVec2i32& /*size*/, int /*times*/) {}
void SoDialogGroup::setChildrenComponentSize() {}
void SoDialogGroup::setChildrenLabelSize() {}

// Sizes

void SoDialogGroup::setLabelSize(SbVec2i32& size)
{
  inherited::setLabelSize(size);
  setChildrenLabelSize();
}

void SoDialogGroup::setComponentSize(SbVec2i32& size)
{
  inherited::setComponentSize(size);
  setChildrenComponentSize();
}

SbVec2i32 SoDialogGroup::getLabelInitSize()
{
  return {0, 0}; // a group shows no label of its own
}

SbVec2i32 SoDialogGroup::getComponentInitSize()
{
  if (m_initSize[0] != -1) {
    return m_initSize;
  }
  const int along = std::max(getAxis(), 0);
  const int across = 1 - along;
  // Across the children the margin is a lower bound, not added: this is meant.
  const int margins = SoBoxModel::clampPixels(2LL * margin.getValue());
  m_initSize.setValue(margins, margins);
  const SoBoxModel::Children children = getComponents();
  setChildrenLabelSize();
  for (SoTopComponent* child : children) {
    if (auto* separator = dynamic_cast<SoDialogSeparator*>(child)) {
      separator->setOrientationHorz(along == 1 ? TRUE : FALSE);
    }
    const SbVec2i32 natural = static_cast<SoDialogComponent*>(child)->getComponentInitSize();
    m_initSize[across] = std::max(m_initSize[across], natural[across]);
    m_initSize[along] = SoBoxModel::clampPixels(static_cast<long long>(m_initSize[along]) + natural[along]);
  }
  const long long gaps = (static_cast<long long>(children.size()) - 1) * getSpacing();
  m_initSize[along] = SoBoxModel::clampPixels(m_initSize[along] + gaps);
  return m_initSize;
}

void SoDialogGroup::getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  m_box.setAxis(std::max(getAxis(), 0));
  m_box.measure(getComponents());
  m_box.getTotal(size, min, max, margin.getValue(), getSpacing(), 0);
}

void SoDialogGroup::getDefaultFrameSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  inherited::getDefaultFrameSize(size, min, max);
  fixSizeWithBorder(size, 1);
  fixSizeWithBorder(min, 1);
  fixSizeWithBorder(max, 1);
}

SbVec2i32 SoDialogGroup::getLeastFrameSize() const
{
  const int around = 2 * getPlannedMargin();
  return m_box.getLeastSize(SoBoxModel::getLayoutSpacing(getSpacing())) + SbVec2i32(around, around);
}

void SoDialogGroup::leaveRoomForContents(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  SoSizingFields::Values authored = getAuthoredSizes();
  const SoSFBool* const fixed[] = {&fixedWidth, &fixedHeight};
  for (std::size_t i = 0; i < 2; i++) {
    if (fixed[i]->getValue() && authored[SoSizingFields::WIDTH + i] != 0) {
      authored[SoSizingFields::MIN_WIDTH + i] = authored[SoSizingFields::WIDTH + i]; // that is the minimum, too
    }
  }
  SoBoxModel::leaveRoom(getLeastFrameSize(), authored, size, min, max);
}

SoCellLimits SoDialogGroup::getCellLimits() const
{
  SoCellLimits limits = inherited::getCellLimits();
  limits.maximum = QSize(fixedWidth.getValue() ? width.getValue() : maxWidth.getValue(),
                         fixedHeight.getValue() ? height.getValue() : maxHeight.getValue())
                     .expandedTo({0, 0}); // as the minimum
  return limits;
}

void SoDialogGroup::resetSize()
{
  inherited::resetSize();
  for (SoTopComponent* child : getComponents()) {
    child->resetSize();
  }
}

void SoDialogGroup::restoreAuthoredSizes()
{
  inherited::restoreAuthoredSizes();
  for (SoTopComponent* child : getComponents()) {
    child->restoreAuthoredSizes();
  }
}

void SoDialogGroup::startFromAuthoredSizes()
{
  inherited::startFromAuthoredSizes();
  for (SoTopComponent* child : getComponents()) {
    child->startFromAuthoredSizes();
  }
}

void SoDialogGroup::computeNewChildrenHeight(SbVec2i32& newSize)
{
  distribute(newSize, 1);
}

void SoDialogGroup::computeNewChildrenWidth(SbVec2i32& newSize)
{
  distribute(newSize, 0);
}

void SoDialogGroup::distribute(const SbVec2i32& newSize, int axis)
{
  SbVec2i32 defaultSize(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  getDefaultSize(defaultSize, min, max);
  fixSizeWithBorder(defaultSize, 1);
  m_box.distribute(newSize[axis], defaultSize[axis]);
}

void SoDialogGroup::updateAfterSceneGraphChange()
{
  if (windowResizedByChildren.getValue()) {
    restoreAuthoredSizes();
  }
  m_box.clear();
  m_initSize.setValue(-1, -1);
  m_labelInitSize.setValue(0, 0);
  if (getParent() && getParent()->canBeTraversed() != 0) {
    getParent()->updateAfterSceneGraphChange();
  }
}

// Building

QBoxLayout* SoDialogGroup::getLayoutFor(const SoQuillform* /*child*/) const
{
  return m_groupLayout;
}

bool SoDialogGroup::isAlwaysBuilt() const
{
  return true; // on its children
}

int SoDialogGroup::getContentsMargin() const
{
  return edgeStyle.getValue() != NONE ? edgeMargin : 0;
}

int SoDialogGroup::getPlannedMargin() const
{
  return getContentsMargin() + (edgeStyle.getValue() != NONE ? edgeLine : 0);
}

SoPlannedContents SoDialogGroup::getPlannedContents()
{
  m_box.measure(getComponents());
  return m_box.planContents(getComponents(), SoBoxModel::getLayoutSpacing(getSpacing()), getPlannedMargin(),
                            hasVerticalCells());
}

void SoDialogGroup::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  m_box.clear(); // every build, of both forms, gives the first child the first pixel
  const SoSizingFields::Values authored = getAuthoredSizes();
  SbVec2i32 total(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  if (std::find(authored.begin(), authored.end(), 0) == authored.end()) {
    getDefaultSize(total, min, max); // measures the children; for getSize() there is nothing to ask for
  }
  inherited::buildWidget(parent, size, position, asWidget);
  // Only what the author asks for is spread here; what the container adds is spread by the layout. The children are not
  // measured anew: a frame whose minimum has just grown may have been laid out, and their fields say that size.
  m_box.getTotal(total, min, max, margin.getValue(), getSpacing(), 0);
  fixSizeWithBorder(total, 1);
  const int axis = std::max(getAxis(), 0);
  m_box.distribute(m_ownSize[axis], total[axis]);
  if (asWidget != 0) {
    updateChildren();
  }
  else {
    update3DChildren();
    if (!getParent() && !m_defaultAuditor) {
      m_defaultAuditor = std::make_unique<SoDialogGroupAuditor>();
    }
  }
  if (!m_isEnableApplied) {
    m_isEnableApplied = true;
    changeWidgetEnable(enable.getValue());
  }
  if (asWidget == 0) {
    change3DWidgetEnable(isEnabledByParents());
  }
  m_watched.watch(windowResizedByChildren);
}

void SoDialogGroup::createGroupWidget()
{
  auto* frame = new GroupFrame(getWidget(), this);
  setFrame(frame);
  addFrameToCell();
  m_groupLayout = createGroupLayout(frame);
  m_groupLayout->setSpacing(0);
  m_groupLayout->setContentsMargins(0, 0, 0, 0);
  changeEdgeStyle();
  changeSpacing();
  changeEnable();
  changeLabel();
}

void SoDialogGroup::updateChildren()
{
  if (takesFrame()) {
    createGroupWidget();
  }
  if (m_groupLayout) {
    m_box.buildWidgets(getComponents(), getWidget(), m_groupLayout);
  }
}

void SoDialogGroup::destroyWidget()
{
  for (SoTopComponent* child : getComponents()) {
    child->destroyWidget();
  }
  inherited::destroyWidget();
}

void SoDialogGroup::changeSpacing()
{
  if (m_groupLayout) {
    m_groupLayout->setSpacing(SoBoxModel::getLayoutSpacing(getSpacing()));
  }
}

// Reactions

void SoDialogGroup::updateFromSensor(SoSensor* sensor)
{
  inherited::updateFromSensor(sensor);
}

void SoDialogGroup::changeEdgeStyle()
{
  inherited::changeEdgeStyle();
  if (m_groupLayout) {
    const int around = getContentsMargin();
    m_groupLayout->setContentsMargins(around, around, around, around);
  }
}

void SoDialogGroup::changeEnable()
{
  inherited::changeEnable();
  changeWidgetEnable(enable.getValue());
}

void SoDialogGroup::changeLabel()
{
  showSideLabel(); // shown nowhere in the window, it names the group
}

void SoDialogGroup::changeWidgetEnable(int enabled)
{
  for (SoTopComponent* child : getComponents()) {
    static_cast<SoDialogComponent*>(child)->changeWidgetEnable(enabled != 0 ? enable.getValue() : 0);
  }
}

// The 3D form

void SoDialogGroup::update3D()
{
  update3DChildren();
}

std::vector<QRect> SoDialogGroup::planChildren()
{
  return m_box.plan(getComponents(), QSize(get3DSize()[0], get3DSize()[1]), SoBoxModel::getLayoutSpacing(getSpacing()),
                    getPlannedMargin(), hasVerticalCells());
}

float SoDialogGroup::getFaceHeight() const
{
  return faceHeight;
}

void SoDialogGroup::update3DChildren()
{
  const SoBoxModel::Children children = getComponents();
  m_plan = planChildren();
  SoBoxModel::build3D(children, m_plan);
  for (SoTopComponent* child : children) {
    if (!shows3D(child)) {
      child->show3D(0);
    }
  }
  change3DPosition();
}

void SoDialogGroup::set3DParentTranslation(SbVec3f& translation)
{
  inherited::set3DParentTranslation(translation);
  change3DPosition();
}

void SoDialogGroup::change3DPosition()
{
  const SoBoxModel::Children children = getComponents();
  const SbVec2i32& size = get3DSize();
  for (std::size_t i = 0; i < children.size() && i < m_plan.size(); i++) {
    const QRect& rect = m_plan[i];
    const float x = static_cast<float>(rect.x()) + static_cast<float>(rect.width() - size[0]) * 0.5F;
    const float y = static_cast<float>(size[1] - rect.height()) * 0.5F - static_cast<float>(rect.y());
    SbVec3f translation = get3DParentTranslation() + SbVec3f(x, y, getFaceHeight());
    children[i]->set3DParentTranslation(translation);
  }
}

void SoDialogGroup::show3D(int show)
{
  inherited::show3D(show);
  for (SoTopComponent* child : getComponents()) {
    child->show3D(shows3D(child));
  }
}

void SoDialogGroup::change3DEnable()
{
  inherited::change3DEnable();
  for (SoTopComponent* child : getComponents()) {
    child->change3DWidgetEnable(enable.getValue() && isEnabledByParents());
  }
}

void SoDialogGroup::change3DWidgetEnable(int enabled)
{
  inherited::change3DWidgetEnable(enabled);
  for (SoTopComponent* child : getComponents()) {
    child->change3DWidgetEnable(enabled != 0 && enable.getValue() ? 1 : 0);
  }
}
