#include <Quillform/core/SoDialogComponent.h>

#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <QBoxLayout>
#include <QLabel>
#include <QScopedValueRollback>
#include <Quillform/core/So3DKeyboard.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoBoxModel.h>
#include <Quillform/core/SoElementKinds.h>
#include <Quillform/core/SoPlannedItem.h>
#include <Quillform/core/SoText.h>
#include <algorithm>

SO_QUILLFORM_SOURCE(SoDialogComponent, "DialogComponent")
SO_SKIN_SOURCE(SoDialogComponent, "DialogComponent.iv", "DialogComponentEdgeStyleNone",
               "DialogComponentEdgeStyleShadowIn", "DialogComponentEdgeStyleShadowOut")

SoDialogComponent::SoDialogComponent() : SoDialogComponent(PartsLater())
{
  SO_KIT_INIT_INSTANCE();
}

SoDialogComponent::SoDialogComponent(const PartsLater& later)
    : inherited(later), m_sizes(m_watched, {&width, &height, &minWidth, &minHeight, &maxWidth, &maxHeight})
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogComponent);

  SO_QUILLFORM_ADD_FIELD(width, (0));
  SO_QUILLFORM_ADD_FIELD(height, (0));
  SO_QUILLFORM_ADD_FIELD(fixedWidth, (FALSE));
  SO_QUILLFORM_ADD_FIELD(fixedHeight, (FALSE));
  SO_QUILLFORM_ADD_FIELD(minWidth, (0));
  SO_QUILLFORM_ADD_FIELD(minHeight, (0));
  SO_QUILLFORM_ADD_FIELD(maxWidth, (0));
  SO_QUILLFORM_ADD_FIELD(maxHeight, (0));
  SO_QUILLFORM_ADD_FIELD(labelVisibility, (TRUE));
  SO_QUILLFORM_ADD_FIELD(edgeStyle, (NONE));
  if (SO_KIT_IS_FIRST_INSTANCE()) {
    SO_NODE_DEFINE_ENUM_VALUE(EdgeStyle, NONE);
    SO_NODE_DEFINE_ENUM_VALUE(EdgeStyle, SHADOW_IN);
    SO_NODE_DEFINE_ENUM_VALUE(EdgeStyle, SHADOW_OUT);
  }
  SO_NODE_SET_SF_ENUM_TYPE(edgeStyle, EdgeStyle);

  typedef SoDialogComponent Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::mainCptSeparator, "mainCptSeparator", "SoSeparator", "geomSwitch", FALSE},
    {&Self::edgeStyleSwitch, "edgeStyleSwitch", "SoSwitch", "mainCptSeparator", FALSE},
    {&Self::edgeStyleNone, "edgeStyleNone", "SoGroup", "edgeStyleSwitch", TRUE},
    {&Self::edgeStyleShadowIn, "edgeStyleShadowIn", "SoGroup", "edgeStyleSwitch", TRUE},
    {&Self::edgeStyleShadowOut, "edgeStyleShadowOut", "SoGroup", "edgeStyleSwitch", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
}

SoDialogComponent::~SoDialogComponent()
{
  // The relay may be on the call stack, and may outlive this node by the rest of the event.
  if (auto* relay = qobject_cast<SoDialogQFrame*>(m_frame.data())) {
    relay->forgetOwner();
  }
  if (m_frame) {
    m_frame->deleteLater();
  }
  delete m_cell.data();
}

// Sizes

void SoDialogComponent::getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  size.setValue(200, 28);
  min.setValue(25, 25);
  max.setValue(unbounded, unbounded);
}

void SoDialogComponent::getSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  // Qt knows no larger widgets. The maximum comes last: it wins over a larger minimum.
  m_sizes.getSize(size, min, max, QWIDGETSIZE_MAX,
                  [this](SbVec2i32& defaultSize, SbVec2i32& defaultMin, SbVec2i32& defaultMax) {
                    getDefaultFrameSize(defaultSize, defaultMin, defaultMax);
                  });
  if (fixedWidth.getValue()) {
    min[0] = max[0] = size[0];
  }
  if (fixedHeight.getValue()) {
    min[1] = max[1] = size[1];
  }
}

void SoDialogComponent::getDefaultFrameSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  getDefaultSize(size, min, max);
}

void SoDialogComponent::setSize(int width_, int height_, int minWidth_, int minHeight_, int maxWidth_, int maxHeight_)
{
  m_sizes.store({width_, height_, minWidth_, minHeight_, maxWidth_, maxHeight_});
  m_sizes.announce();
}

void SoDialogComponent::getDefaultState(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) const
{
  const SoSizingFields::Values authored = m_sizes.getAuthored();
  size.setValue(authored[0], authored[1]);
  min.setValue(authored[2], authored[3]);
  max.setValue(authored[4], authored[5]);
}

void SoDialogComponent::leaveRoomForContents(SbVec2i32& /*size*/, SbVec2i32& /*min*/, SbVec2i32& /*max*/) {}

SbVec2i32 SoDialogComponent::getFrameSize() const
{
  return {SoBoxModel::clampPixels(width.getValue()), SoBoxModel::clampPixels(height.getValue())};
}

SoSizingFields::Values SoDialogComponent::getAuthoredSizes() const
{
  return m_sizes.isCaptured() ? m_sizes.getAuthored() : m_sizes.getValues();
}

void SoDialogComponent::restoreAuthoredSizes()
{
  m_sizes.restore();
}

void SoDialogComponent::startFromAuthoredSizes()
{
  m_sizes.plan();
}

void SoDialogComponent::setDefaultState()
{
  m_sizes.markComputed(m_sizes.getAuthored(), unbounded);
  if (fixedWidth.getValue()) {
    minWidth.setDefault(TRUE);
    maxWidth.setDefault(TRUE);
  }
  if (fixedHeight.getValue()) {
    minHeight.setDefault(TRUE);
    maxHeight.setDefault(TRUE);
  }
}

void SoDialogComponent::resetSize()
{
  m_componentSize.setValue(0, 0);
  m_labelSize.setValue(0, 0);
  m_labelInitSize.setValue(0, 0);
  m_position.setValue(0, 0);
  m_initSize.setValue(-1, -1);
  m_sizes.captureOnce(); // of a component that was not built yet
  m_sizes.store(SoSizingFields::HEIGHT, 0);
  m_sizes.store(SoSizingFields::WIDTH, height.getValue());
}

void SoDialogComponent::setLabelSize(SbVec2i32& size)
{
  m_labelSize = size;
}

const SbVec2i32& SoDialogComponent::getLabelSize() const
{
  return m_labelSize;
}

void SoDialogComponent::setComponentSize(SbVec2i32& size)
{
  m_componentSize = size;
}

const SbVec2i32& SoDialogComponent::getComponentSize() const
{
  return m_componentSize;
}

SbVec2i32 SoDialogComponent::getComponentInitSize()
{
  return {0, 0};
}

SbVec2i32 SoDialogComponent::getLabelInitSize()
{
  m_labelInitSize = measureLabel();
  return m_labelInitSize;
}

const SbVec2i32& SoDialogComponent::measureLabel() const
{
  // A layout asks several times.
  const bool asOneLine = SoElementKinds::isSingleLineEdit(this); // which may change after the build
  if (m_measuredFontGeneration != getFontGeneration() || m_measuredAsOneLine != asOneLine ||
      m_measuredLabel != label.getValue()) {
    m_measuredFontGeneration = getFontGeneration();
    m_measuredAsOneLine = asOneLine;
    m_measuredLabel = label.getValue();
    m_measuredSize = getLabelPixelSize(m_measuredLabel, this);
  }
  return m_measuredSize;
}

void SoDialogComponent::get2DComponentSize(SbVec2i32& size, SbVec2i32& position) const
{
  // The three insets differ on purpose.
  const int inset = edgeStyle.getValue() == NONE ? 3 : edgeStyle.getValue() == SHADOW_IN ? 2 : 0;
  size = getFrameSize() - SbVec2i32(6, 6);
  position.setValue(inset, inset);
  if (labelVisibility.getValue()) {
    size[0] -= m_labelSize[0] + 2;
    position[0] += m_labelSize[0] + 2;
  }
}

void SoDialogComponent::get3DComponentSize(SbVec2i32& size, SbVec2i32& position) const
{
  getControlRect3D(getFrameSize(), size, position);
}

void SoDialogComponent::getControlRect3D(const SbVec2i32& frame, SbVec2i32& size, SbVec2i32& position) const
{
  int sizeX = frame[0] - 6;
  int offset = 3;
  if (labelVisibility.getValue()) {
    offset = m_labelSize[0] + 5;
    sizeX -= m_labelSize[0] + 2;
  }
  size.setValue(sizeX, frame[1] - 6);
  position.setValue(static_cast<int>(offset + sizeX * 0.5 - frame[0] * 0.5), 0);
}

// Building

SbVec2i32 SoDialogComponent::chooseSize(const SbVec2i32& wanted)
{
  startFromAuthoredSizes();
  m_sizes.captureOnce();
  if (!getParent()) {
    // Nobody aligns a component that stands alone.
    SbVec2i32 labelSize = getLabelInitSize();
    setLabelSize(labelSize);
    const SbVec2i32 natural = getComponentInitSize();
    const int labelHeight = labelVisibility.getValue() ? m_labelInitSize[1] : 0;
    SbVec2i32 componentSize(std::max(natural[0], 0), std::max(labelHeight, natural[1]));
    setComponentSize(componentSize);
  }
  SbVec2i32 chosen(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  getSize(chosen, min, max);
  leaveRoomForContents(chosen, min, max);
  m_ownSize = chosen;
  for (int i = 0; i < 2; i++) {
    if (wanted[i] != 0) {
      chosen[i] = std::min(max[i], std::max(min[i], wanted[i]));
    }
  }
  if (fixedWidth.getValue()) {
    min[0] = max[0] = chosen[0];
  }
  if (fixedHeight.getValue()) {
    min[1] = max[1] = chosen[1];
  }
  m_sizes.store({chosen[0], chosen[1], min[0], min[1], max[0], max[1]});
  setDefaultState();
  return chosen;
}

void SoDialogComponent::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);

  const SbVec2i32 chosen = chooseSize(size);
  m_position = position;

  if (asWidget != 0) {
    m_widgetBuild = {parent, getFontGeneration(), m_labelSize, m_componentSize, m_sizes.getValues()};
    if (!m_componentWidget) {
      createComponentWidget(parent);
    }
    updateComponentWidget();
  }
  else {
    m_size3D = m_planned3D.value_or(chosen);
    create3DIfNeeded();
    update3DDialogComponent();
  }
  takeFrameSize();
  m_sizes.announce();
  m_watched.watch(labelVisibility);
  m_watched.watch(edgeStyle);
  m_watched.watch(width);
  m_watched.watch(height);
  m_watched.watch(minWidth);
  m_watched.watch(minHeight);
  m_watched.watch(maxWidth);
  m_watched.watch(maxHeight);
}

void SoDialogComponent::build3DInPlan(const QRect& rect)
{
  SbVec2i32 size(rect.width(), rect.height());
  SbVec2i32 place(rect.x(), rect.y());
  const QScopedValueRollback<std::optional<SbVec2i32>> planned(m_planned3D, size);
  buildWidget(nullptr, size, place, 0);
}

void SoDialogComponent::buildWidgetIfChanged(QWidget* parent)
{
  if (!isWidgetUpToDate(parent)) {
    SbVec2i32 size(0, 0);
    SbVec2i32 place(0, 0);
    buildWidget(parent, size, place, 1);
    m_watched.forgetChanges();
    return;
  }
  m_sizes.store(m_widgetBuild.sizes);
  setDefaultState();
  takeFrameSize();
  m_sizes.announce();
}

bool SoDialogComponent::isWidgetUpToDate(const QWidget* parent) const
{
  const WidgetBuild& last = m_widgetBuild;
  return !isAlwaysBuilt() && !m_watched.hasChanges() && m_frame && m_cell && parent == last.parent &&
         getFontGeneration() == last.fontGeneration && m_labelSize == last.labelSize &&
         m_componentSize == last.componentSize;
}

bool SoDialogComponent::isAlwaysBuilt() const
{
  return false;
}

QBoxLayout* SoDialogComponent::createCell(bool verticalCell, std::unique_ptr<QSpacerItem>& spacer) const
{
  QBoxLayout* cell = nullptr;
  if (verticalCell) {
    cell = new QVBoxLayout;
  }
  else {
    cell = new QHBoxLayout;
  }
  spacer = std::make_unique<QSpacerItem>(0, 0);
  setSpare(*spacer, verticalCell);
  cell->setObjectName("ZEPSoDialogComponentLayout");
  cell->setSpacing(0);
  cell->setContentsMargins(0, 0, 0, 0);
  return cell;
}

void SoDialogComponent::setSpare(QSpacerItem& spacer, bool verticalCell) const
{
  if (verticalCell) {
    const bool grows = fixedHeight.getValue() || height.getValue() == maxHeight.getValue();
    spacer.changeSize(20, 0, QSizePolicy::Minimum, grows ? QSizePolicy::Expanding : QSizePolicy::Fixed);
  }
  else {
    const bool grows = fixedWidth.getValue() != FALSE;
    spacer.changeSize(0, 20, grows ? QSizePolicy::Expanding : QSizePolicy::Fixed, QSizePolicy::Minimum);
  }
}

void SoDialogComponent::createComponentWidget(QWidget* parent)
{
  m_componentWidget = parent;
  QBoxLayout* parentLayout = getParent() ? getParent()->getLayoutFor(this)
                             : parent    ? qobject_cast<QBoxLayout*>(parent->layout())
                                         : nullptr;
  delete m_cell.data();
  m_cell = createCell(getParent() && getParent()->hasVerticalCells(), m_spacer);
  if (parentLayout) {
    parentLayout->addLayout(m_cell, 0);
  }
  else if (parent && !parent->layout()) {
    parent->setLayout(m_cell); // a component that stands alone in a widget of the application
  }
}

bool SoDialogComponent::takesFrame() const
{
  return m_cell && !m_frame;
}

void SoDialogComponent::setFrame(QFrame* frame)
{
  m_frame = frame;
  m_componentWidget = frame;
}

bool SoDialogComponent::hasSizeAsMinimum() const
{
  return false;
}

QSize SoDialogComponent::getSmallestSize() const
{
  if (hasSizeAsMinimum()) {
    return {width.getValue(), height.getValue()};
  }
  // The maximum wins over a larger minimum; widgets would see it the other way round.
  return QSize(minWidth.getValue(), minHeight.getValue())
    .boundedTo({maxWidth.getValue(), maxHeight.getValue()})
    .expandedTo({0, 0}); // an empty group with a negative margin comes to less than nothing
}

SoCellLimits SoDialogComponent::getCellLimits() const
{
  SoCellLimits limits;
  limits.minimum = getSmallestSize();
  if (fixedWidth.getValue()) {
    limits.maximum.setWidth(width.getValue());
  }
  if (fixedHeight.getValue()) {
    limits.maximum.setHeight(height.getValue());
  }
  return limits;
}

void SoDialogComponent::addFrameToCell()
{
  if (auto* relay = qobject_cast<SoDialogQFrame*>(m_frame.data())) {
    relay->setComplete();
  }
  updateComponentWidget();
  m_cell->addWidget(m_frame, 0);
  m_cell->addItem(m_spacer.release());
  if (m_frame->parentWidget() && m_frame->parentWidget()->isVisible()) {
    m_frame->show(); // else a layout leaves it out until control returns to the event loop, and moves all others twice
  }
}

void SoDialogComponent::updateComponentWidget()
{
  if (!m_frame) {
    return;
  }
  // All this first: a frame whose minimum grows is laid out at once, and the fields say its new size.
  const SoCellLimits limits = getCellLimits();
  const SbVec2i32 planned(width.getValue(), height.getValue());
  if (QLayoutItem* spacer = m_cell ? m_cell->itemAt(1) : nullptr) {
    setSpare(*spacer->spacerItem(), m_cell->direction() == QBoxLayout::TopToBottom); // the fields may be others now
    m_cell->invalidate();
  }
  setPlannedSize(planned);
  if (m_frame->sizePolicy().horizontalPolicy() != limits.horizontal ||
      m_frame->sizePolicy().verticalPolicy() != limits.vertical) {
    m_frame->setSizePolicy(limits.horizontal, limits.vertical);
  }
  m_frame->setMinimumSize(limits.minimum);
  m_frame->setMaximumSize(limits.maximum);
  if (!m_cell || !m_cell->parent()) {
    m_frame->resize(planned[0], planned[1]); // no layout gives it a size
  }
}

void SoDialogComponent::setPlannedSize(const SbVec2i32& size)
{
  if (auto* relay = qobject_cast<SoDialogQFrame*>(m_frame.data())) {
    relay->setComputedSize(QSize(size[0], size[1]));
  }
}

QLayoutItem* SoDialogComponent::createPlannedCell(const QSize& hint, QRect& rect, bool verticalCell)
{
  chooseSize({0, 0}); // the limits follow from it, as in the window
  std::unique_ptr<QSpacerItem> spacer;
  QBoxLayout* cell = createCell(verticalCell, spacer);
  cell->addItem(new SoPlannedItem(hint, getPlannedContents(), getCellLimits(), rect));
  cell->addItem(spacer.release());
  return cell;
}

SoPlannedContents SoDialogComponent::getPlannedContents()
{
  return {};
}

void SoDialogComponent::widgetResized(int newWidth, int newHeight)
{
  m_sizes.store(SoSizingFields::WIDTH, newWidth);
  m_sizes.store(SoSizingFields::HEIGHT, newHeight);
  m_sizes.announce();
  placeWidgets();
}

void SoDialogComponent::takeFrameSize()
{
  // A frame that keeps its size in the layout is not resized again, so nothing else would bring the size on screen
  // back into the fields. One that was not shown yet has only a provisional size.
  if (m_frame && m_frame->testAttribute(Qt::WA_Resized) && !m_frame->testAttribute(Qt::WA_PendingResizeEvent)) {
    m_sizes.store(SoSizingFields::WIDTH, m_frame->width());
    m_sizes.store(SoSizingFields::HEIGHT, m_frame->height());
  }
}

void SoDialogComponent::placeWidgets() {}

void SoDialogComponent::removeFrame()
{
  if (m_frame) {
    if (auto* relay = qobject_cast<SoDialogQFrame*>(m_frame.data())) {
      relay->forgetOwner();
    }
    // Out of the window at once, but one of its widgets may be on the call stack.
    m_frame->hide();
    m_frame->setParent(nullptr);
    m_frame->deleteLater();
  }
  m_frame = nullptr;
  m_componentWidget = nullptr;
  delete m_cell.data(); // with its spacer
}

void SoDialogComponent::destroyWidget()
{
  if (isWidgetBuilt()) {
    removeFrame();
  }
  inherited::destroyWidget();
}

QWidget* SoDialogComponent::getWidget() const
{
  return m_componentWidget;
}

QBoxLayout* SoDialogComponent::getLayout() const
{
  return m_cell;
}

QBoxLayout* SoDialogComponent::getCell() const
{
  return m_cell;
}

QWidget* SoDialogComponent::getLabelWidget()
{
  auto* relay = qobject_cast<SoDialogQFrame*>(m_frame.data());
  return relay ? relay->getLabel() : nullptr;
}

void SoDialogComponent::eventNotify(unsigned int /*event*/, unsigned long /*data*/) {}
void SoDialogComponent::setFocus() {}
void SoDialogComponent::changeWidgetEnable(int /*enable*/) {}
void SoDialogComponent::changeLabelVisibility() {}
void SoDialogComponent::changeLabelAlignment() {}

void SoDialogComponent::changeEnable()
{
  if (m_frame) {
    m_frame->setEnabled(enable.getValue());
  }
}

void SoDialogComponent::changeEdgeStyle()
{
  if (m_frame) {
    const int style = (edgeStyle.getValue() == NONE ? QFrame::NoFrame : QFrame::Panel) |
                      (edgeStyle.getValue() == SHADOW_OUT ? QFrame::Raised : QFrame::Sunken);
    if (m_frame->frameStyle() != style && (edgeStyle.getValue() != NONE || m_frame->frameShape() != QFrame::NoFrame)) {
      m_frame->setFrameStyle(style);
    }
  }
}

void SoDialogComponent::changeWidth()
{
  m_sizes.captureOne(&width);
}

void SoDialogComponent::changeHeight()
{
  m_sizes.captureOne(&height);
}

void SoDialogComponent::changeMinMaxSize() {}

void SoDialogComponent::updateFromSensor(SoSensor* sensor)
{
  const SoField* field = SoWatchedFields::getFired(sensor);
  if (field == &labelVisibility) {
    if (isWidgetBuilt()) {
      changeLabelVisibility();
    }
    if (isLive3D()) {
      change3DLabelVisibility();
    }
  }
  else if (field == &edgeStyle) {
    if (isWidgetBuilt()) {
      changeEdgeStyle();
    }
    if (isLive3D()) {
      change3DEdgeStyle();
    }
  }
  else if (field == &width) {
    changeWidth();
  }
  else if (field == &height) {
    changeHeight();
  }
  else if (field == &minWidth || field == &minHeight || field == &maxWidth || field == &maxHeight) {
    m_sizes.captureOne(field); // the other three may hold what the layout computed
    changeMinMaxSize();
  }
  else {
    inherited::updateFromSensor(sensor);
  }
}

// The label beside the control

void SoDialogComponent::showSideLabel()
{
  if (auto* relay = getRelay<SoDialogQFrame>()) {
    relay->setLabel(SoText::toQt(convertToCString(label.getValue(), this)));
  }
}

void SoDialogComponent::alignSideLabel()
{
  if (auto* relay = getRelay<SoDialogQFrame>()) {
    relay->setAlignment(SoDialogQFrame::toQt(labelAlignment.getValue()));
  }
}

QRect SoDialogComponent::getSideLabelRect(int frameHeight) const
{
  const int textHeight = measureLabel()[1];
  // Centred in 3 pixels more than the control is: this is meant.
  return {3, (frameHeight - 3 - textHeight) / 2 + 3, m_labelSize[0], textHeight};
}

QRect SoDialogComponent::getButtonRect() const
{
  const int column = labelVisibility.getValue() ? m_labelSize[0] + 2 : 0;
  const SbVec2i32 size = getFrameSize();
  return {column + 2, 3, size[0] - 6 - column, size[1] - 6};
}

void SoDialogComponent::placeSideLabel()
{
  if (auto* relay = getRelay<SoDialogQFrame>()) {
    const QRect rect = getSideLabelRect(getFrameSize()[1]);
    relay->labelWidgetPos(rect.x(), rect.y(), rect.width(), rect.height());
  }
}

// The 3D form

void SoDialogComponent::create3DIfNeeded()
{
  if (!m_edgeTransform) {
    create3DDialogComponent();
    setBuilt3D(1);
  }
}

void SoDialogComponent::create3DDialogComponent()
{
  apply3DParentTranslation();
  loadFontProperties();
  m_edgeTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("mainCptSeparator"));
  fillFromSkin("edgeStyleNone", getSkin().getPart("DialogComponentEdgeStyleNone"));
  fillFromSkin("edgeStyleShadowIn", getSkin().getPart("DialogComponentEdgeStyleShadowIn"));
  fillFromSkin("edgeStyleShadowOut", getSkin().getPart("DialogComponentEdgeStyleShadowOut"));
}

void SoDialogComponent::create3DSideLabel(const char* switchName, const char* propertiesName)
{
  fillFromSkin(propertiesName, SoTextSkin::getProperties());
  m_sideLabelSwitch = makePart<SoSwitch>(switchName);
  m_sideLabel3D.attach(m_sideLabelSwitch, makePart<SoGroup>(propertiesName), getTextLook());
  SoDialogComponent::change3DLabelVisibility(); // the derived class has not made its own parts yet
}

void SoDialogComponent::update3DDialogComponent()
{
  So3DPlacement::place(m_edgeTransform, SbVec2f(0.0F, 0.0F),
                       SbVec2f(static_cast<float>(m_size3D[0]), static_cast<float>(m_size3D[1])), 0.0F);
  change3DEdgeStyle();
  So3DKeyboard::updateOutline(this);
}

SbBool SoDialogComponent::pressKey3D(const SoKeyboardEvent* event)
{
  return So3DKeyboard::isPress(event) && pressWithKey3D();
}

SbBool SoDialogComponent::pressWithKey3D()
{
  return FALSE;
}

QRect SoDialogComponent::getKeyboardRect3D() const
{
  return QRect(0, 0, m_size3D[0], m_size3D[1]).adjusted(1, 1, -1, -1);
}

SbBox2f SoDialogComponent::getKeyboardBox3D() const
{
  const QRect rect = getKeyboardRect3D();
  const float left = static_cast<float>(rect.x()) - static_cast<float>(m_size3D[0]) * 0.5F;
  const float top = static_cast<float>(m_size3D[1]) * 0.5F - static_cast<float>(rect.y());
  return {left, top - static_cast<float>(rect.height()), left + static_cast<float>(rect.width()), top};
}

void SoDialogComponent::update3DSideLabel()
{
  if (!m_sideLabel3D.isAttached()) {
    return;
  }
  m_sideLabel3D.setText(SoText::withoutMnemonic(convertToCString(label.getValue(), this)));
  m_sideLabel3D.fit(getSideLabelRect(m_size3D[1]), m_size3D, labelAlignment.getValue(), faceHeight,
                    getBoundingBoxAction());
  setLabelCacheBBox(m_sideLabel3D.getExtent());
}

void SoDialogComponent::update3D() {}

const SbVec2i32& SoDialogComponent::get3DSize() const
{
  return m_size3D;
}

void SoDialogComponent::change3DEdgeStyle()
{
  if (auto* edges = static_cast<SoSwitch*>(edgeStyleSwitch.getValue())) {
    edges->whichChild = edgeStyle.getValue();
  }
}

void SoDialogComponent::change3DLabel()
{
  inherited::change3DLabel();
  update3DSideLabel();
}

void SoDialogComponent::change3DLabelAlignment()
{
  update3DSideLabel();
}

void SoDialogComponent::change3DLabelVisibility()
{
  if (m_sideLabelSwitch) {
    m_sideLabelSwitch->whichChild = labelVisibility.getValue() ? SO_SWITCH_ALL : SO_SWITCH_NONE;
  }
}

void SoDialogComponent::update3DAfterSkinChange()
{
  inherited::change3DLabel();
  update3D();
}

void SoDialogComponent::getBoundingBox(SoGetBoundingBoxAction* action)
{
  if (isBuilt3D() == 0) {
    const SbBool wasNotifying = enableNotify(FALSE);
    SoQuillform* top = getFirstTopParent(0, 1);
    if (top && top != this && top->isBuilt3D() == 0) {
      top->setCanBeTraversed(0);
    }
    SbVec2i32 size(0, 0);
    SbVec2i32 position(0, 0);
    buildWidget(nullptr, size, position, 0);
    enableNotify(wasNotifying);
  }
  inherited::getBoundingBox(action);
}

// Files and copies

void SoDialogComponent::exchangeAuthoredValues(bool writing)
{
  inherited::exchangeAuthoredValues(writing);
  m_sizes.exchange();
}

void SoDialogComponent::copyContents(const SoFieldContainer* from, SbBool copyConnections)
{
  inherited::copyContents(from, copyConnections);
  m_sizes.copyFrom(static_cast<const SoDialogComponent*>(from)->m_sizes);
}
