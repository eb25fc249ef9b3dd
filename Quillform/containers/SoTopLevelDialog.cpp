#include <Quillform/containers/SoTopLevelDialog.h>

#include <Inventor/Qt/SoQt.h>
#include <Inventor/SbPlane.h>
#include <Inventor/SoPickedPoint.h>
#include <Inventor/actions/SoHandleEventAction.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/events/SoMouseButtonEvent.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <QEvent>
#include <QScopedValueRollback>
#include <QWidget>
#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/auditors/SoTopLevelAuditor.h>
#include <Quillform/core/So3DPlacement.h>
#include <Quillform/core/SoDialogComponent.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/core/SoReadingOrder.h>
#include <Quillform/core/SoText.h>
#include <Quillform/platform/SoInSceneMode.h>
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <utility>

SO_QUILLFORM_SOURCE_WITH_ALIAS(SoTopLevelDialog, "SoTopLevelDialog", "TopLevelDialog")
SO_SKIN_SOURCE(SoTopLevelDialog, "TopLevelDialog.iv", "TopLevelDialogFrame", "TopLevelDialogMinReleased",
               "TopLevelDialogMinPressed")

namespace {

/// The frame in the scene: a border around the contents, and a title bar above them, in scene units.
constexpr int border = 4;
constexpr int titleHeight = 19;
constexpr int barHeight = 20; // of a minimised dialog
constexpr int buttonSize = 14;
constexpr int buttonColumn = 24; // the right end of the title bar, where the button stands

constexpr int fewRows = 20; // that may change without a repaint of everything

/// Heights over the dialog's plane.
constexpr float frameFace = 1.0F;

/// Tells when a window has been closed or hidden, which is not when it was minimised.
class HideWatch : public QObject {
public:
  HideWatch(QWidget* window, std::function<void()> hidden) : QObject(window), m_hidden(std::move(hidden))
  {
    window->installEventFilter(this);
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override
  {
    if (event->type() == QEvent::Hide && !event->spontaneous()) {
      m_hidden();
    }
    return false;
  }

private:
  std::function<void()> m_hidden;
};

} // namespace

SoTopLevelDialog::SoTopLevelDialog()
    : inherited(PartsLater()), m_children(this, {SoTopComponent::getClassTypeId,
                                                 [this] {
                                                   if (!m_suppressUpdates) {
                                                     updateAfterSceneGraphChange();
                                                   }
                                                 }}),
      m_box(1), m_sizes(m_watched, {&width, &height, &minWidth, &minHeight, &maxWidth, &maxHeight}),
      m_defaultAuditor(std::make_unique<SoTopLevelAuditor>()), m_dragStart(0.0F, 0.0F, 0.0F),
      m_positionAtStart(0.0F, 0.0F, 0.0F)
{
  SO_QUILLFORM_CONSTRUCTOR(SoTopLevelDialog);

  SO_QUILLFORM_ADD_FIELD(width, (0));
  SO_QUILLFORM_ADD_FIELD(height, (0));
  SO_QUILLFORM_ADD_FIELD(position, (SbVec2i32(0, 0)));
  SO_QUILLFORM_ADD_FIELD(position3D, (0.0F, 0.0F, 0.0F));
  SO_QUILLFORM_ADD_FIELD(resizable, (TRUE));
  SO_QUILLFORM_ADD_FIELD(minWidth, (0));
  SO_QUILLFORM_ADD_FIELD(minHeight, (0));
  SO_QUILLFORM_ADD_FIELD(maxWidth, (largestWindow));
  SO_QUILLFORM_ADD_FIELD(maxHeight, (largestWindow));
  SO_QUILLFORM_ADD_FIELD(margin, (0));
  SO_QUILLFORM_ADD_FIELD(rowSpacing, (0));
  SO_QUILLFORM_ADD_FIELD(modalFrame, (FALSE));
  SO_QUILLFORM_ADD_FIELD(hideChildren, (FALSE));
  SO_QUILLFORM_ADD_FIELD(minimized, (FALSE));
  SO_QUILLFORM_ADD_FIELD(minimized3DPosition, (0.0F, 0.0F, 0.0F));
  SO_QUILLFORM_ADD_FIELD(independentMinimizedPosition, (TRUE));
  SO_QUILLFORM_ADD_FIELD(windowResizedByChildren, (FALSE));
  SO_QUILLFORM_ADD_FIELD(vScrollVisibility, (AUTO));
  SO_QUILLFORM_ADD_FIELD(hScrollVisibility, (AUTO));
  if (SO_KIT_IS_FIRST_INSTANCE()) {
    SO_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, NEVER);
    SO_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, ALWAYS);
    SO_NODE_DEFINE_ENUM_VALUE(ScrollVisibility, AUTO);
  }
  SO_NODE_SET_SF_ENUM_TYPE(vScrollVisibility, ScrollVisibility);
  SO_NODE_SET_SF_ENUM_TYPE(hScrollVisibility, ScrollVisibility);

  typedef SoTopLevelDialog Self;
  static const SoCatalogPart<Self> parts[] = {
    {&Self::frameSep, "frameSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::frame, "frame", "SoGroup", "frameSep", TRUE},
    {&Self::labelSep, "labelSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::labelProp, "labelProp", "SoGroup", "labelSep", TRUE},
    {&Self::minSep, "minSep", "SoSeparator", "geomSwitch", FALSE},
    {&Self::minSwtch, "minSwtch", "SoSwitch", "minSep", FALSE},
    {&Self::minReleased, "minReleased", "SoGroup", "minSwtch", TRUE},
    {&Self::minPressed, "minPressed", "SoGroup", "minSwtch", TRUE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
  SO_KIT_INIT_INSTANCE();
}

SoTopLevelDialog::~SoTopLevelDialog()
{
  if (m_base && m_buildInsideParent == 0) {
    removeBaseWidget();
  }
}

void SoTopLevelDialog::removeBaseWidget()
{
  delete m_hideWatch.data();
  // Not at once: the event that ends the dialog may come from one of its widgets.
  m_base->hide();
  m_base->deleteLater();
}

SoChildElements* SoTopLevelDialog::getChildElements()
{
  return &m_children;
}

SoChildElements& SoTopLevelDialog::elements()
{
  return m_children;
}

SoBoxModel::Children SoTopLevelDialog::getComponents() const
{
  SoBoxModel::Children components;
  for (int i = 0; i < getNumChildren(); i++) {
    components.push_back(getChild(i));
  }
  return components;
}

SoTopComponent* SoTopLevelDialog::widgetHasMenuBar() const
{
  for (SoTopComponent* child : getComponents()) {
    if (!child->isOfType(SoDialogComponent::getClassTypeId())) {
      return child; // everything else in a dialog is a component
    }
  }
  return nullptr;
}

SbBool SoTopLevelDialog::readChildren(SoInput* in)
{
  return m_children.readChildren(in);
}

// Opening and closing

QWidget* SoTopLevelDialog::buildDialog(QWidget* parent, int buildInsideParent)
{
  if (buildInsideParent != 0 && !parent) {
    SoDebugError::post("SoTopLevelDialog::buildDialog", "%s",
                       "There is no parent to build the dialog into; it gets a window of its own.");
    buildInsideParent = 0;
  }
  return build(parent, buildInsideParent, SoInSceneMode::isEnabled() ? 0 : 1);
}

QWidget* SoTopLevelDialog::buildAs(QWidget* parent, int asWidget)
{
  return build(parent, 0, asWidget);
}

QWidget* SoTopLevelDialog::build(QWidget* parent, int buildInsideParent, int asWidget)
{
  if (!m_base) {
    m_buildInsideParent = buildInsideParent;
    m_builtInto = parent;
  }
  setChildrenLabelSize();
  setChildrenComponentSize();
  SbVec2i32 size(0, 0);
  SbVec2i32 place(0, 0);
  buildWidget(m_builtInto, size, place, asWidget);
  m_suppressUpdates = false;
  return m_base;
}

void SoTopLevelDialog::show()
{
  if (m_buildInsideParent == 0 && existWidget(m_base)) {
    SoQt::show(m_base);
  }
}

void SoTopLevelDialog::hide()
{
  if (m_buildInsideParent == 0 && existWidget(m_base)) {
    SoQt::hide(m_base);
  }
}

void SoTopLevelDialog::close()
{
  hide();
  SoQuillform* launcher = getParent();
  if (!launcher) {
    unref();
  }
  else if (isBuilt3D() != 0) {
    show3D(0);
    launcher->launchedDialogClosed();
  }
}

void SoTopLevelDialog::windowHidden()
{
  const SoEventScope scope(this, SoEventScope::getAction());
  for (SoQuillform* element : SoReadingOrder::getElements(this)) {
    if (element->isOfType(getClassTypeId())) {
      static_cast<SoTopLevelDialog*>(element)->hide();
    }
  }
  if (SoQuillform* launcher = getParent()) {
    launcher->launchedDialogClosed();
  }
}

void SoTopLevelDialog::destroyDialog()
{
  hide();
  if (m_buildInsideParent != 0) {
    std::exit(0);
  }
}

void SoTopLevelDialog::destroyWidget()
{
  for (SoTopComponent* child : getComponents()) {
    child->destroyWidget();
  }
  if (m_base && m_buildInsideParent == 0) {
    removeBaseWidget();
  }
  else {
    delete m_layout.data();
  }
  m_base = nullptr;
  m_layout = nullptr;
  inherited::destroyWidget();
}

QWidget* SoTopLevelDialog::getWidget() const
{
  return m_base;
}

QVBoxLayout* SoTopLevelDialog::getLayout() const
{
  return m_layout;
}

QBoxLayout* SoTopLevelDialog::getLayoutFor(const SoQuillform* /*child*/) const
{
  return m_layout;
}

bool SoTopLevelDialog::hasWidgets() const
{
  return isWidgetBuilt() && m_base;
}

void SoTopLevelDialog::setPosition(SbVec2i32& pos)
{
  const SoWatchedFields::Pause pause(m_watched, position);
  position = pos;
  if (pos == SbVec2i32(0, 0)) {
    position.setDefault(TRUE);
  }
}

void SoTopLevelDialog::setCurrentFocusedWidget(QWidget* widget)
{
  m_focusedWidget = widget;
}

QWidget* SoTopLevelDialog::getCurrentFocusedWidget() const
{
  return m_focusedWidget;
}

void SoTopLevelDialog::setCurrentScrolledWidget(QWidget* widget)
{
  m_scrolledWidget = widget;
}

QWidget* SoTopLevelDialog::getCurrentScrolledWidget() const
{
  return m_scrolledWidget;
}

// Auditors

void SoTopLevelDialog::addAuditor(SoDialogAuditor* auditor)
{
  inherited::addAuditor(auditor);
}

void SoTopLevelDialog::removeAuditor(SoDialogAuditor* auditor)
{
  inherited::removeAuditor(auditor);
}

void SoTopLevelDialog::applyAuditor(SoQuillform* caller)
{
  if (getParent() && getAuditorListLength() == 0) {
    SoAuditorDispatch::handOn(this, caller);
    return;
  }
  SoAuditorDispatch::applyDialogAuditors(this, m_defaultAuditor.get(), caller, SoAuditorDispatch::WITH_MENUS);
}

void SoTopLevelDialog::applyAuditors()
{
  SoAuditorDispatch::applyToChildren(this);
}

SoQuillform* SoTopLevelDialog::searchForAuditorId(SbString id)
{
  return SoAuditorDispatch::searchForAuditorId(this, id);
}

// Sizes

void SoTopLevelDialog::setChildrenLabelSize()
{
  SoBoxModel::giveCommonLabelColumn(getComponents(), SoBoxModel::HIDDEN_LABELS_HAVE_NO_HEIGHT);
}

void SoTopLevelDialog::setChildrenComponentSize()
{
  SoBoxModel::giveCommonComponentColumn(getComponents());
}

void SoTopLevelDialog::getDefaultSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  if (!m_isMeasured) {
    m_box.measure(getComponents());
  }
  m_box.getTotal(size, min, max, margin.getValue(), rowSpacing.getValue(), widgetHasMenuBar() ? 1 : 0);
}

void SoTopLevelDialog::getSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max)
{
  m_sizes.getSize(size, min, max, largestWindow,
                  [this](SbVec2i32& defaultSize, SbVec2i32& defaultMin, SbVec2i32& defaultMax) {
                    getDefaultSize(defaultSize, defaultMin, defaultMax);
                  });
  if (!resizable.getValue()) {
    if (width.getValue() != 0) {
      min[0] = max[0] = size[0];
    }
    if (height.getValue() != 0) {
      min[1] = max[1] = size[1];
    }
  }
}

void SoTopLevelDialog::setSize(int width_, int height_, int minWidth_, int minHeight_, int maxWidth_, int maxHeight_)
{
  m_sizes.store({width_, height_, minWidth_, minHeight_, maxWidth_, maxHeight_});
  m_sizes.announce();
}

void SoTopLevelDialog::setDefaultState()
{
  m_sizes.markComputed(m_saved, SoDialogComponent::unbounded);
  if (!resizable.getValue()) {
    minWidth.setDefault(TRUE);
    minHeight.setDefault(TRUE);
    maxWidth.setDefault(TRUE);
    maxHeight.setDefault(TRUE);
  }
}

void SoTopLevelDialog::getDefaultState(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) const
{
  size.setValue(m_saved[0], m_saved[1]);
  min.setValue(m_saved[2], m_saved[3]);
  max.setValue(m_saved[4], m_saved[5]);
}

void SoTopLevelDialog::resetSize()
{
  if (windowResizedByChildren.getValue()) {
    m_sizes.store(m_saved);
  }
  for (SoTopComponent* child : getComponents()) {
    child->resetSize();
  }
}

void SoTopLevelDialog::prepareSizes(int asWidget)
{
  if (!m_sizes.isCaptured()) {
    m_sizes.captureOnce();
  }
  else if (windowResizedByChildren.getValue()) {
    m_sizes.restore();
  }
  else {
    m_sizes.restore(SoSizingFields::MIN_WIDTH);
    if (asWidget != 0 && m_base) {
      // A size that the user gave the window stays.
      m_sizes.store(SoSizingFields::WIDTH, m_base->width());
      m_sizes.store(SoSizingFields::HEIGHT, m_base->height());
    }
  }
}

void SoTopLevelDialog::leaveRoomForRows(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) const
{
  // The rows of some controls need more than their minimum fields say; in a smaller window they would overlap.
  SoBoxModel::leaveRoom(m_box.getLeastSize(m_layoutSpacing), m_sizes.getAuthored(), size, min, max);
}

void SoTopLevelDialog::computeNewChildrenHeight(SbVec2i32& newSize)
{
  SbVec2i32 defaultSize(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  getDefaultSize(defaultSize, min, max);
  m_box.distribute(newSize[1], defaultSize[1]);
}

SbVec2i32 SoTopLevelDialog::chooseSize(const SbVec2i32& wanted)
{
  const SoBoxModel::Children children = getComponents();
  for (SoTopComponent* child : children) {
    child->startFromAuthoredSizes();
  }
  m_box.clear(); // both forms give the first row the first pixel
  m_box.measure(children);
  const QScopedValueRollback<bool> measured(m_isMeasured, true);
  SbVec2i32 chosen(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  getSize(chosen, min, max);
  for (int i = 0; i < 2; i++) {
    if (wanted[i] != 0) {
      chosen[i] = wanted[i] < min[i] ? min[i] : std::min(wanted[i], max[i]);
    }
  }
  leaveRoomForRows(chosen, min, max);
  if (!resizable.getValue()) {
    min = max = chosen;
  }
  if (m_firstBuild) {
    m_saved = {width.getValue(),     height.getValue(),   minWidth.getValue(),
               minHeight.getValue(), maxWidth.getValue(), maxHeight.getValue()};
  }
  setSize(chosen[0], chosen[1], min[0], min[1], max[0], max[1]);
  setDefaultState();
  computeNewChildrenHeight(chosen);
  return chosen;
}

// Building

void SoTopLevelDialog::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& place, int asWidget)
{
  inherited::buildWidget(parent, size, place, asWidget);
  const bool isNewWidget = asWidget != 0 && !m_base;
  prepareSizes(asWidget);
  if (isNewWidget) {
    createBaseWidget(parent);
    m_firstBuild = false;
  }
  const SbVec2i32 chosen = chooseSize(size);

  if (asWidget != 0) {
    // When most rows change, one repaint of everything costs less than a region for every widget that moves.
    const SoBoxModel::Children components = getComponents();
    const bool isDrawnAnew =
      m_base->isVisible() && m_base->updatesEnabled() && SoBoxModel::countOutdated(components, m_base) > fewRows;
    const bool isInOrder = SoBoxModel::appends(components, m_base);
    if (isDrawnAnew) {
      m_base->setUpdatesEnabled(false);
    }
    updateChildren();
    if (!isInOrder) {
      SoReadingOrder::applyTo(this, m_base);
    }
    updateBaseWidget();
    if (isDrawnAnew) {
      m_base->setUpdatesEnabled(true);
    }
  }
  else {
    m_size3D = chosen;
    if (isBuilt3D() == 0) {
      create3DTopLevelDialog();
      setBuilt3D(1);
      setCanBeTraversed(1);
      m_firstBuild = false;
    }
    update3DChildren();
    update3DTopLevelDialog();
    update3DChildrenPosition();
    change3DEnable();
    updateMinimizedState();
  }

  SoField* const watched[] = {&margin,
                              &modalFrame,
                              &rowSpacing,
                              &resizable,
                              &position,
                              &position3D,
                              &minimized,
                              &independentMinimizedPosition,
                              &minimized3DPosition,
                              &minWidth,
                              &minHeight,
                              &maxWidth,
                              &maxHeight,
                              &width,
                              &height};
  for (SoField* field : watched) {
    m_watched.watch(*field);
  }
}

void SoTopLevelDialog::createBaseWidget(QWidget* parent)
{
  if (m_base) {
    return;
  }
  if (m_buildInsideParent != 0 && parent) {
    m_base = parent;
    delete parent->layout();
    m_base->setBackgroundRole(QPalette::Window);
  }
  else {
    m_base = new QWidget;
    m_base->setObjectName("SoTopLevelDialog");
    m_hideWatch = new HideWatch(m_base, [this] { windowHidden(); });
    setWidgetFont(m_base); // handed down, so that all widgets share one font's data
  }
  m_layout = new QVBoxLayout(m_base);
  m_layout->setObjectName("ZEPSoTopLevelDialogLayout");
  m_layout->setContentsMargins(0, 0, 0, 0);
  m_layout->setSpacing(m_layoutSpacing);
  m_layout->setSizeConstraint(QLayout::SetNoConstraint); // the fields say how small and large the window becomes
  changeLabel();
  changePosition();
  applyLimits();
  changeEnable();
}

void SoTopLevelDialog::updateBaseWidget()
{
  if (!m_base) {
    return;
  }
  applyLimits();
  m_base->resize(width.getValue(), height.getValue());
  m_layout->activate(); // after the new size: every row would be placed twice
}

void SoTopLevelDialog::updateChildren()
{
  if (m_layout) {
    m_box.buildWidgets(getComponents(), m_base, m_layout);
  }
}

void SoTopLevelDialog::updateDialogBuild(int asWidget)
{
  resetSize();
  m_box.clear();
  setChildrenLabelSize();
  setChildrenComponentSize();
  SbVec2i32 size(0, 0);
  SbVec2i32 place(0, 0);
  buildWidget(m_builtInto, size, place, asWidget);
}

void SoTopLevelDialog::updateAfterSceneGraphChange()
{
  if (hasWidgets()) {
    updateDialogBuild(1);
  }
  if (isBuilt3D() != 0) {
    updateDialogBuild(0);
  }
}

// Reactions to fields

void SoTopLevelDialog::updateFromSensor(SoSensor* sensor)
{
  const SoField* field = SoWatchedFields::getFired(sensor);
  if (field == &width) {
    changeWidth();
  }
  else if (field == &height) {
    changeHeight();
  }
  else if (field == &minWidth || field == &minHeight || field == &maxWidth || field == &maxHeight) {
    m_sizes.captureOne(field); // the other three may hold what the layout computed
    changeMinMaxSize();
  }
  else if (field == &rowSpacing) {
    changeRowSpacing();
  }
  else if (field == &position) {
    if (hasWidgets()) {
      changePosition();
    }
    if (isLive3D()) {
      change3DPosition();
    }
  }
  else if (field == &position3D || field == &minimized3DPosition) {
    change3DPosition();
  }
  else if (field == &minimized) {
    updateMinimizedState();
  }
  else if (field == &independentMinimizedPosition) {
    connectPositions();
  }
  else if (field != &resizable && field != &modalFrame && field != &margin) {
    inherited::updateFromSensor(sensor);
  }
}

void SoTopLevelDialog::changeWidth()
{
  m_saved[SoSizingFields::WIDTH] = width.getValue();
  m_sizes.captureOne(&width);
}

void SoTopLevelDialog::changeHeight()
{
  m_saved[SoSizingFields::HEIGHT] = height.getValue();
  m_sizes.captureOne(&height);
}

void SoTopLevelDialog::changeMinMaxSize()
{
  m_saved[SoSizingFields::MIN_WIDTH] = minWidth.getValue();
  m_saved[SoSizingFields::MIN_HEIGHT] = minHeight.getValue();
  m_saved[SoSizingFields::MAX_WIDTH] = maxWidth.getValue();
  m_saved[SoSizingFields::MAX_HEIGHT] = maxHeight.getValue();
  applyLimits();
}

void SoTopLevelDialog::applyLimits()
{
  const auto pixels = [](const SoSFInt32& field, int whenZero) {
    const int value = std::clamp(field.getValue(), 0, largestWindow);
    return value != 0 ? value : whenZero;
  };
  if (m_base) {
    // The maximum wins over a larger minimum; widgets would see it the other way round.
    const QSize largest(pixels(maxWidth, largestWindow), pixels(maxHeight, largestWindow));
    m_base->setMinimumSize(QSize(pixels(minWidth, 0), pixels(minHeight, 0)).boundedTo(largest));
    m_base->setMaximumSize(largest);
  }
}

void SoTopLevelDialog::changeRowSpacing()
{
  m_layoutSpacing = SoBoxModel::getLayoutSpacing(rowSpacing.getValue());
  if (m_layout) {
    m_layout->setSpacing(m_layoutSpacing);
  }
  if (isLive3D()) {
    update3DChildren();
    change3DPosition();
  }
}

void SoTopLevelDialog::changePosition()
{
  if (m_base) {
    const SbVec2i32& place = position.getValue();
    // The window stands 20 pixels lower than asked for, every time: this is meant.
    const auto lowered = std::min<long long>(static_cast<long long>(place[1]) + 20, largestWindow);
    m_base->move(place[0], static_cast<int>(lowered));
  }
}

void SoTopLevelDialog::changeEnable()
{
  if (m_base) {
    m_base->setEnabled(enable.getValue());
  }
}

void SoTopLevelDialog::changeLabel()
{
  if (m_base) {
    m_base->setWindowTitle(SoText::toQt(convertToCString(label.getValue(), this)));
  }
}

// The 3D form

void SoTopLevelDialog::create3DTopLevelDialog()
{
  if (m_frameTransform) {
    return;
  }
  loadFontProperties();
  apply3DParentTranslation();
  m_frameTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("frameSep"));
  fillFromSkin("frame", getSkin().getPart("TopLevelDialogFrame"));

  auto* titleSeparator = makePart<SoSeparator>("labelSep");
  m_titleTransform = So3DPlacement::insertTransform(titleSeparator);
  fillFromSkin("labelProp", SoTextSkin::getProperties());
  m_title3D.attach(titleSeparator, makePart<SoGroup>("labelProp"), getTextLook());

  m_buttonTransform = So3DPlacement::insertTransform(makePart<SoSeparator>("minSep"));
  fillFromSkin("minReleased", getSkin().getPart("TopLevelDialogMinReleased"));
  fillFromSkin("minPressed", getSkin().getPart("TopLevelDialogMinPressed"));
  makePart<SoSwitch>("minSwtch")->whichChild = 0;
  listenToPointer3D();
}

SbVec3f SoTopLevelDialog::getOrigin()
{
  // On screen, and so in the position fields, the y axis points down.
  const SbVec3f& place = getActivePosition().getValue();
  const SbVec3f origin(place[0], -place[1], place[2]);
  return getParent() ? origin + getParent()->getLaunchPlace3D() : origin;
}

SoSFVec3f& SoTopLevelDialog::getActivePosition()
{
  return minimized.getValue() ? minimized3DPosition : position3D;
}

void SoTopLevelDialog::update3DTopLevelDialog()
{
  const float frameWidth = static_cast<float>(m_size3D[0] + 2 * border);
  const float frameHeight =
    minimized.getValue() ? static_cast<float>(barHeight) : static_cast<float>(m_size3D[1] + titleHeight + 2 * border);
  So3DPlacement::place(m_frameTransform, SbVec2f(frameWidth * 0.5F, frameHeight * -0.5F),
                       SbVec2f(frameWidth, frameHeight), 0.0F);
  So3DPlacement::place(
    m_buttonTransform,
    SbVec2f(frameWidth - static_cast<float>(buttonColumn) * 0.5F, static_cast<float>(barHeight) * -0.5F),
    SbVec2f(static_cast<float>(buttonSize), static_cast<float>(buttonSize)), frameFace);
  m_titleTransform->translation.setValue(frameWidth * 0.5F - static_cast<float>(buttonColumn) * 0.5F,
                                         static_cast<float>(barHeight) * -0.5F, 0.0F);
  update3DLabel();
  SbVec3f origin = getOrigin();
  set3DParentTranslation(origin);
}

void SoTopLevelDialog::update3DLabel()
{
  if (!m_title3D.isAttached()) {
    return;
  }
  const int titleWidth = m_size3D[0] + 2 * border - buttonColumn;
  m_title3D.setText(convertToCString(label.getValue(), this));
  m_title3D.fit(QRect(border, 0, titleWidth - 2 * border, barHeight), {titleWidth, barHeight}, CENTER, frameFace,
                getBoundingBoxAction());
  setLabelCacheBBox(m_title3D.getExtent());
}

void SoTopLevelDialog::update3DChildren()
{
  const SoBoxModel::Children children = getComponents();
  m_plan = m_box.plan(children, QSize(m_size3D[0], m_size3D[1]), m_layoutSpacing, 0, false);
  SoBoxModel::build3D(children, m_plan);
}

void SoTopLevelDialog::update3DChildrenPosition()
{
  const SbVec3f origin = getOrigin();
  const SoBoxModel::Children children = getComponents();
  for (std::size_t i = 0; i < children.size() && i < m_plan.size(); i++) {
    const QRect& rect = m_plan[i];
    const SbVec3f centre(
      static_cast<float>(border + rect.x()) + static_cast<float>(rect.width()) * 0.5F,
      -static_cast<float>(border + titleHeight + rect.y()) - static_cast<float>(rect.height()) * 0.5F, frameFace);
    SbVec3f translation = origin + centre;
    children[i]->set3DParentTranslation(translation);
  }
}

void SoTopLevelDialog::change3DPosition()
{
  if (isBuilt3D() == 0) {
    return;
  }
  SbVec3f origin = getOrigin();
  set3DParentTranslation(origin);
  if (!minimized.getValue()) {
    update3DChildrenPosition();
  }
}

void SoTopLevelDialog::change3DLabel()
{
  inherited::change3DLabel();
  update3DLabel();
}

void SoTopLevelDialog::change3DEnable()
{
  inherited::change3DEnable();
  for (SoTopComponent* child : getComponents()) {
    child->change3DWidgetEnable(enable.getValue());
  }
}

void SoTopLevelDialog::update3DAfterSkinChange()
{
  inherited::change3DLabel();
  m_title3D.forgetExtent();
  update3DTopLevelDialog();
}

void SoTopLevelDialog::show3D(int show)
{
  inherited::show3D(show);
  show3DChildren(show != 0 && !minimized.getValue() ? 1 : 0);
}

SbBool SoTopLevelDialog::shows3D(const SoQuillform* /*child*/) const
{
  return isShown3D() && !minimized.getValue();
}

void SoTopLevelDialog::show3DChildren(int show)
{
  for (SoTopComponent* child : getComponents()) {
    child->show3D(show);
  }
}

void SoTopLevelDialog::connectPositions()
{
  disconnectPositions();
  m_positionsConnected = !independentMinimizedPosition.getValue();
  if (m_positionsConnected) {
    SoSFVec3f& active = getActivePosition();
    SoSFVec3f& passive = &active == &position3D ? minimized3DPosition : position3D;
    passive.connectFrom(&active);
  }
}

void SoTopLevelDialog::disconnectPositions()
{
  for (SoSFVec3f* field : {&position3D, &minimized3DPosition}) {
    if (m_positionsConnected && field->getValue() != SbVec3f(0.0F, 0.0F, 0.0F)) {
      field->setDefault(FALSE); // what came over the connection stays, and is written
    }
  }
  position3D.disconnect(&minimized3DPosition);
  minimized3DPosition.disconnect(&position3D);
}

void SoTopLevelDialog::updateMinimizedState()
{
  if (isBuilt3D() == 0) {
    return;
  }
  if (minimized.getValue() && m_movedSinceMinimized) {
    m_movedSinceMinimized = false;
    m_watched.setQuietly(minimized3DPosition, position3D.getValue());
  }
  if (!independentMinimizedPosition.getValue()) {
    connectPositions();
  }
  if (minimized.getValue()) {
    minimize3DDialog();
  }
  else {
    restore3DDialog();
  }
  show3DChildren(isShown3D() && !minimized.getValue() ? 1 : 0);
}

void SoTopLevelDialog::minimize3DDialog()
{
  if (isBuilt3D() != 0) {
    update3DTopLevelDialog();
  }
}

void SoTopLevelDialog::restore3DDialog()
{
  if (isBuilt3D() == 0) {
    return;
  }
  update3DTopLevelDialog();
  if (!hideChildren.getValue()) {
    update3DChildrenPosition();
  }
}

// The pointer in the scene: the title bar drags the dialog, the button minimises it

void SoTopLevelDialog::handleEvent(SoHandleEventAction* action)
{
  if (SO_MOUSE_PRESS_EVENT(action->getEvent(), BUTTON1) && isMenuOpen3D()) {
    // A press on anything else closes the menu, also on what has no use for the press itself.
    const SoPickedPoint* point = action->getPickedPoint();
    if (!point || !point->getPath()->containsNode(widgetHasMenuBar())) {
      set3DCurrentActive(nullptr);
    }
  }
  inherited::handleEvent(action);
}

bool SoTopLevelDialog::isMenuOpen3D() const
{
  const SoTopComponent* bar = widgetHasMenuBar();
  const SoQuillform* around = bar ? get3DCurrentActive() : nullptr;
  while (around && around != bar) {
    around = around->getParent();
  }
  return around;
}

void SoTopLevelDialog::press3D()
{
  set3DCurrentActive(this);
  m_pressedButton = isUnderPointer(minSep.getValue());
  if (m_pressedButton) {
    makePart<SoSwitch>("minSwtch")->whichChild = 1;
    return;
  }
  const float depth = getOrigin()[1] - getLocalStartingPoint()[1];
  m_draggingTitle = depth <= static_cast<float>(titleHeight + border);
  m_dragStart = getPointer3D() + get3DParentTranslation();
  m_positionAtStart = getActivePosition().getValue();
}

void SoTopLevelDialog::drag3D()
{
  if (!m_draggingTitle) {
    return;
  }
  const SbVec3f moved = getPointer3D() + get3DParentTranslation() - m_dragStart;
  m_movedSinceMinimized = m_movedSinceMinimized || !minimized.getValue();
  getActivePosition().setValue(m_positionAtStart + SbVec3f(moved[0], -moved[1], 0.0F));
}

void SoTopLevelDialog::release3D()
{
  m_draggingTitle = false;
  if (m_pressedButton) {
    m_pressedButton = false;
    makePart<SoSwitch>("minSwtch")->whichChild = 0;
    if (isUnderPointer(minSep.getValue())) {
      minimized = !minimized.getValue();
    }
  }
  set3DInactive();
}

// Files and copies

void SoTopLevelDialog::copyContents(const SoFieldContainer* from, SbBool copyConnections)
{
  inherited::copyContents(from, copyConnections);
  m_sizes.copyFrom(static_cast<const SoTopLevelDialog*>(from)->m_sizes);
}

void SoTopLevelDialog::exchangeAuthoredValues(bool writing)
{
  inherited::exchangeAuthoredValues(writing);
  m_sizes.exchange();
  // The connection between the two places follows from independentMinimizedPosition; it is not the author's.
  if (m_positionsConnected) {
    if (writing) {
      disconnectPositions();
    }
    else {
      // Nothing moves: geometry that changes in the middle of writing would be written.
      const SoWatchedFields::Pause pause(m_watched, position3D);
      const SoWatchedFields::Pause pauseMinimized(m_watched, minimized3DPosition);
      connectPositions();
    }
  }
}
