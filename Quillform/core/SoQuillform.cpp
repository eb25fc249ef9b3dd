#include <Quillform/core/SoQuillform.h>

#include <Inventor/SoDB.h>
#include <Inventor/SoFullPath.h>
#include <Inventor/SoPickedPoint.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoGetMatrixAction.h>
#include <Inventor/actions/SoHandleEventAction.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/misc/SoNotification.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTexture2.h>
#include <Inventor/nodes/SoTransform.h>
#include <Inventor/nodes/SoTranslation.h>
#include <Inventor/projectors/SbPlaneProjector.h>
#include <QApplication>
#include <Quillform/auditors/SoAuditor.h>
#include <Quillform/core/So3DKeyboard.h>
#include <Quillform/core/SoAuditorLists.h>
#include <Quillform/core/SoChildElements.h>
#include <Quillform/core/SoElementKinds.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/core/SoLive3DElements.h>
#include <algorithm>
#include <array>
#include <functional>
#include <utility>
#include <vector>

SO_QUILLFORM_SOURCE(SoQuillform, "Quillform")

namespace {

int s_instanceCount = 0;
int s_fontGeneration = 0;
SoQuillform* s_lastActive = nullptr;

const SbBox3f emptyLabelBox(-1.0F, -1.0F, -1.0F, -1.0F, -1.0F, -1.0F);

/// Made on first use: a static font would exist before the application object.
struct Font {
  QFont current = QFont("Microsoft Sans Serif", 8);
  QFont withFamilies; // made of it when a widget is first given it
};

Font& font()
{
  static Font font;
  return font;
}

/// TRUE for a part that a file may set; the others hold the element's geometry together.
bool isForAuthors(const SoNodekitCatalog* catalog, int part)
{
  return catalog->isPublic(part) && catalog->isLeaf(part);
}

/// The parts of an element that hold its own geometry together. A file can name them like any field, but a node in the
/// place of one would not be the kind of node that the element takes it for.
class InnerParts {
public:
  InnerParts(const SoQuillform* element, const SoFieldData* fields)
      : m_element(element), m_fields(fields), m_before(getNodes())
  {
  }

  /// Whether the element has been read without a change to these; else a message is posted.
  bool areUntouched(SoInput* in)
  {
    const SoNodekitCatalog* catalog = m_element->getNodekitCatalog();
    for (const Holder& holder : getNodes()) {
      m_holders.push_back(holder.field);
      if (holder.node == getNodeBefore(holder.field)) {
        continue;
      }
      const SbName& name = m_fields->getFieldName(holder.field);
      const int part = catalog->getPartNumber(name);
      if (part > 0 && !isForAuthors(catalog, part)) {
        SoReadError::post(in, "\"%s\" of %s cannot be set", name.getString(),
                          m_element->getTypeId().getName().getString());
        return false;
      }
    }
    return true;
  }

  /// The numbers of the fields that hold nodes, once it is known that all are well.
  const std::vector<int>& getHolders() const
  {
    return m_holders;
  }

private:
  /// A field, by its number, and the node that it holds.
  struct Holder {
    int field;
    const SoNode* node;
  };

  /// Those that have been given one.
  std::vector<Holder> getNodes() const
  {
    constexpr std::size_t usualCount = 8; // a kit makes few parts before it is drawn
    std::vector<Holder> holders;
    holders.reserve(usualCount);
    for (int i = 0; i < m_fields->getNumFields(); i++) {
      const SoField* field = m_fields->getField(m_element, i);
      if (!field->isDefault() && field->isOfType(SoSFNode::getClassTypeId())) {
        holders.push_back({i, static_cast<const SoSFNode*>(field)->getValue()});
      }
    }
    return holders;
  }

  const SoNode* getNodeBefore(int field) const
  {
    const auto found =
      std::find_if(m_before.cbegin(), m_before.cend(), [field](const Holder& holder) { return holder.field == field; });
    return found != m_before.cend() ? found->node : nullptr;
  }

  const SoQuillform* m_element;
  const SoFieldData* m_fields;
  std::vector<Holder> m_before;
  std::vector<int> m_holders;
};

} // namespace

SoQuillform::PartsLater::PartsLater()
{
  SoDB::startNotify();
}

SoQuillform::PartsLater::~PartsLater()
{
  release();
}

void SoQuillform::PartsLater::release() const
{
  if (m_isHeld) {
    m_isHeld = false;
    SoDB::endNotify();
  }
}

SoQuillform::SoQuillform() : SoQuillform(PartsLater())
{
  SO_KIT_INIT_INSTANCE();
}

SoQuillform::SoQuillform(const PartsLater& later)
    : m_watched(fieldChangedCB, this), m_parentTranslation(0.0F, 0.0F, 0.0F), m_labelBox(emptyLabelBox)
{
  ++s_instanceCount;
  dropConnections(later);
  SO_QUILLFORM_CONSTRUCTOR(SoQuillform);

  SO_QUILLFORM_ADD_FIELD(enable, (TRUE));
  SO_QUILLFORM_ADD_FIELD(label, (""));
  SO_QUILLFORM_ADD_FIELD(auditorID, (""));
  SO_QUILLFORM_ADD_FIELD(labelAlignment, (RIGHT));
  if (SO_KIT_IS_FIRST_INSTANCE()) {
    SO_NODE_DEFINE_ENUM_VALUE(LabelAlignment, LEFT);
    SO_NODE_DEFINE_ENUM_VALUE(LabelAlignment, CENTER);
    SO_NODE_DEFINE_ENUM_VALUE(LabelAlignment, RIGHT);
  }
  SO_NODE_SET_SF_ENUM_TYPE(labelAlignment, LabelAlignment);

  static const SoCatalogPart<SoQuillform> parts[] = {
    {&SoQuillform::geomSwitch, "geomSwitch", "SoSwitch", "geomSeparator", FALSE},
  };
  SO_QUILLFORM_ADD_PARTS(parts);
}

void SoQuillform::dropConnections(const PartsLater& later)
{
  // The kit's sensor is about to connect the top separator, and is shown none. To cancel a sensor that waits would make
  // the viewers set their timers anew, for each element.
  SoNode* separator = topSeparator.getValue();
  separator->ref();
  topSeparator.enableNotify(FALSE);
  topSeparator.setValue(nullptr);
  later.release();
  topSeparator.setValue(separator);
  topSeparator.enableNotify(TRUE);
  separator->unrefNoDelete();
  inherited::setUpConnections(FALSE, TRUE);
}

SoQuillform::~SoQuillform()
{
  SoQuillform::set3DInactive();
  So3DKeyboard::release(this);
  SoLive3DElements::remove(this);
  if (m_auditors) {
    SoAuditorLists::removeAll(this);
  }
  if (m_textLook) {
    m_textLook->unref();
  }
  if (m_fade) {
    m_fade->unref();
  }
  --s_instanceCount;
}

void SoQuillform::destroy()
{
  destroyByRef(this);
  inherited::destroy();
}

int SoQuillform::getInstanceCount()
{
  return s_instanceCount;
}

// Auditors

void SoQuillform::addAuditor(SoAuditor* auditor)
{
  if (!auditor) {
    return;
  }
  if (!m_auditors) {
    m_auditors = std::make_unique<SbPList>();
  }
  if (m_auditors->find(auditor) < 0) {
    m_auditors->append(auditor);
    SoAuditorLists::add(auditor, this);
  }
}

void SoQuillform::removeAuditor(SoAuditor* auditor)
{
  const int index = m_auditors ? m_auditors->find(auditor) : -1;
  if (index >= 0) {
    m_auditors->remove(index);
    SoAuditorLists::remove(auditor, this);
  }
}

SoAuditor* SoQuillform::getAuditor(int index) const
{
  // Reading a pointer list past its end would make it grow.
  return index >= 0 && index < getAuditorListLength() ? static_cast<SoAuditor*>((*m_auditors)[index]) : nullptr;
}

int SoQuillform::getAuditorListLength() const
{
  return m_auditors ? m_auditors->getLength() : 0;
}

void SoQuillform::forgetAuditor(SoAuditor* auditor)
{
  for (SoQuillform* element : SoAuditorLists::getElements(auditor)) {
    element->removeAuditor(auditor);
  }
}

void SoQuillform::applyDlgCptAuditor() {}

void SoQuillform::applyAuditors()
{
  if (m_parent) {
    m_parent->applyAuditor(this);
  }
}

// Place in the dialog

void SoQuillform::setParent(SoQuillform* parent)
{
  if (!parent) {
    So3DKeyboard::release(this);
  }
  m_parent = parent;
}

SoQuillform* SoQuillform::getParent() const
{
  return m_parent;
}

SoQuillform* SoQuillform::getFirstTopParent(int ignoreTraversal, int returnSelfIfRoot)
{
  if (!m_parent) {
    return returnSelfIfRoot != 0 && SoElementKinds::isGroup(this) ? this : nullptr;
  }
  if (m_parent->canBeTraversed() == 0 && ignoreTraversal == 0) {
    return returnSelfIfRoot != 0 ? this : nullptr;
  }
  if (SoElementKinds::isTopLevelDialog(m_parent)) {
    return m_parent;
  }
  return m_parent->getFirstTopParent(ignoreTraversal, returnSelfIfRoot);
}

// Fonts and widgets

void SoQuillform::setFont(QFont font_)
{
  font() = {font_, QFont()};
  ++s_fontGeneration;
}

void SoQuillform::setWidgetFont(QWidget* widget)
{
  if (!widget) {
    return;
  }
  QFont& wanted = font().withFamilies;
  if (wanted.families().isEmpty()) {
    wanted = font().current;
    if (wanted.families().isEmpty()) {
      wanted.setFamilies(
        {wanted.family()}); // a font that was handed down has this list, and is equal only to one with it
    }
  }
  // What an ancestor handed down costs nothing; setting it again makes some widgets build all that they may ever need.
  if (widget->font() != wanted.resolve(widget->font())) {
    widget->setFont(wanted);
  }
}

int SoQuillform::getFontGeneration()
{
  return s_fontGeneration;
}

QFont SoQuillform::getQuillformFont()
{
  return font().current;
}

SbBool SoQuillform::existWidget(QWidget* widget)
{
  return widget != nullptr;
}

SbBool SoQuillform::isWidgetBuilt() const
{
  return m_widgetBuilt != 0;
}

// Realisation

void SoQuillform::buildWidget(QWidget* parent, SbVec2i32& /*size*/, SbVec2i32& /*position*/, int asWidget)
{
  if (asWidget != 0) {
    m_widgetBuilt = asWidget;
    m_parentWidget = parent;
  }
  else if (m_built3D == 0) {
    create3DQuillform();
  }
  m_watched.watch(enable);
  m_watched.watch(label);
  m_watched.watch(labelAlignment);
}

void SoQuillform::destroyWidget()
{
  m_widgetBuilt = 0;
}

void SoQuillform::fieldChangedCB(void* data, SoSensor* sensor)
{
  static_cast<SoQuillform*>(data)->updateFromSensor(sensor);
}

void SoQuillform::updateFromSensor(SoSensor* sensor)
{
  const SoField* field = SoWatchedFields::getFired(sensor);
  if (field == &enable) {
    if (isWidgetBuilt()) {
      changeEnable();
    }
    if (isLive3D()) {
      change3DEnable();
    }
  }
  else if (field == &label) {
    if (isWidgetBuilt()) {
      changeLabel();
    }
    if (isLive3D()) {
      change3DLabel();
    }
  }
  else if (field == &labelAlignment) {
    if (isWidgetBuilt()) {
      changeLabelAlignment();
    }
    if (isLive3D()) {
      change3DLabelAlignment();
    }
  }
}

void SoQuillform::applyAuditor(SoQuillform* /*caller*/) {}
void SoQuillform::resetSize() {}
void SoQuillform::launchedDialogClosed() {}
void SoQuillform::updateAfterSceneGraphChange() {}

QBoxLayout* SoQuillform::getLayoutFor(const SoQuillform* /*child*/) const
{
  return nullptr;
}

SbBool SoQuillform::hasVerticalCells() const
{
  return FALSE;
}

void SoQuillform::changeEnable() {}
void SoQuillform::changeLabel() {}
void SoQuillform::changeLabelAlignment() {}
void SoQuillform::change3DPosition() {}
void SoQuillform::change3DLabelAlignment() {}
void SoQuillform::update3DAfterSkinChange() {}

// 3D form

void SoQuillform::create3DQuillform()
{
  if (m_pickStyle) {
    return;
  }
  setUpConnections(TRUE);
  auto* geometry = makePart<SoSwitch>("geomSwitch");
  geometry->whichChild = m_shown3D != 0 ? SO_SWITCH_ALL : SO_SWITCH_NONE;
  m_pickStyle = new SoPickStyle;
  m_material = new SoMaterial;
  m_textLook = new SoMaterial;
  m_textLook->ref();
  // These speak of a colour only; everything else is the skin's.
  for (SoMaterial* material : {m_material, m_textLook}) {
    material->ambientColor.setIgnored(TRUE);
    material->specularColor.setIgnored(TRUE);
    material->shininess.setIgnored(TRUE);
    material->transparency.setIgnored(TRUE);
  }
  m_material->diffuseColor.setIgnored(TRUE);
  m_textLook->diffuseColor = SbColor(0.5F, 0.5F, 0.5F);
  m_textLook->emissiveColor = SbColor(0.0F, 0.0F, 0.0F);
  geometry->insertChild(m_pickStyle, 0);
  geometry->insertChild(m_material, 1);
  SoLive3DElements::add(this);
  SoQuillform::change3DEnable();
}

void SoQuillform::apply3DUsability(bool usable, int pickStyle)
{
  if (!m_pickStyle) {
    return;
  }
  m_pickStyle->style = usable ? pickStyle : SoPickStyle::UNPICKABLE;
  m_material->emissiveColor = usable ? SbColor(0.0F, 0.0F, 0.0F) : SbColor(0.5F, 0.5F, 0.5F);
  // The texts' own pick styles must not make a disabled element pickable again.
  m_pickStyle->setOverride(!usable);
  m_textLook->diffuseColor.setIgnored(usable);
  m_textLook->emissiveColor.setIgnored(usable);
  m_textLook->touch();
  showFade(!usable);
  if (!usable) {
    So3DKeyboard::release(this);
  }
}

void SoQuillform::showFade(bool shown)
{
  if (m_fade) {
    m_fade->whichChild = shown ? SO_SWITCH_ALL : SO_SWITCH_NONE;
  }
}

void SoQuillform::fadeWhenDisabled(SoGroup* group)
{
  if (!m_fade) {
    // Every colour that the skin or the author chose is mixed with grey. A material could only replace it, and what
    // tells the states of an element apart would be gone.
    constexpr unsigned char share = 166; // of the grey, of 255
    auto* grey = new SoTexture2;
    grey->image.setValue(SbVec2s(1, 1), 1, &share);
    grey->model = SoTexture2::BLEND;
    grey->blendColor = SbColor(0.55F, 0.55F, 0.55F);
    m_fade = new SoSwitch;
    m_fade->ref();
    m_fade->addChild(grey);
    showFade(!(enable.getValue() && m_enabledByParents));
  }
  group->insertChild(m_fade, 0);
}

SoMaterial* SoQuillform::getTextLook() const
{
  return m_textLook;
}

void SoQuillform::change3DEnable()
{
  apply3DUsability(enable.getValue() && m_enabledByParents, SoPickStyle::BOUNDING_BOX);
}

void SoQuillform::change3DWidgetEnable(int enabled)
{
  m_enabledByParents = enabled != 0;
  apply3DUsability(enabled != 0 && enable.getValue(), SoPickStyle::SHAPE);
}

SbBool SoQuillform::isEnabledByParents() const
{
  return m_enabledByParents;
}

void SoQuillform::change3DLabel()
{
  m_labelBox = emptyLabelBox;
}

void SoQuillform::setLabelCacheBBox(SbBox3f box)
{
  m_labelBox = box;
}

const SbBox3f& SoQuillform::getLabelCachedBBox() const
{
  return m_labelBox;
}

SbBool SoQuillform::isLabelCachedBBox() const
{
  return m_labelBox.getMin() != emptyLabelBox.getMin() || m_labelBox.getMax() != emptyLabelBox.getMax();
}

void SoQuillform::show3D(int show)
{
  m_shown3D = show;
  if (auto* geometry = static_cast<SoSwitch*>(geomSwitch.getValue())) {
    geometry->whichChild = show != 0 ? SO_SWITCH_ALL : SO_SWITCH_NONE;
  }
  if (show == 0) {
    So3DKeyboard::release(this);
  }
}

SbBool SoQuillform::isShown3D() const
{
  return m_shown3D != 0;
}

SbBool SoQuillform::shows3D(const SoQuillform* /*child*/) const
{
  return isShown3D();
}

void SoQuillform::set3DParentTranslation(SbVec3f& translation)
{
  m_parentTranslation = translation;
  if (m_parentTranslationNode) {
    m_parentTranslationNode->translation = translation;
  }
}

const SbVec3f& SoQuillform::get3DParentTranslation() const
{
  return m_parentTranslation;
}

SbVec3f SoQuillform::getLaunchPlace3D() const
{
  return get3DParentTranslation() + SbVec3f(0.0F, -16.0F, launchedHeight);
}

void SoQuillform::apply3DParentTranslation()
{
  if (!m_parentTranslationNode) {
    m_parentTranslationNode = new SoTranslation;
    makePart<SoSeparator>("geomSeparator")->insertChild(m_parentTranslationNode, 0);
  }
  m_parentTranslationNode->translation = m_parentTranslation;
}

void SoQuillform::undoTransformMatrix(SoNode* node, SoTransform* transform)
{
  SoSearchAction* search = getSearchAction();
  search->reset();
  search->setNode(node);
  search->setSearchingAll(TRUE);
  search->apply(topSeparator.getValue());
  if (search->getPath()) {
    SoGetMatrixAction* matrix = getMatrixAction();
    matrix->apply(search->getPath());
    transform->setMatrix(matrix->getInverse());
  }
  search->reset();
}

float SoQuillform::compute3DDepth(SoNode* node)
{
  auto* transform = new SoTransform;
  transform->ref();
  undoTransformMatrix(node, transform);
  const float depth = transform->translation.getValue()[2];
  transform->unref();
  return depth;
}

SoQuillform* SoQuillform::get3DCurrentActive()
{
  return s_lastActive;
}

void SoQuillform::set3DCurrentActive(SoQuillform* node)
{
  if (s_lastActive && s_lastActive != node) {
    s_lastActive->set3DInactive();
  }
  s_lastActive = node;
}

void SoQuillform::set3DInactive()
{
  if (s_lastActive == this) {
    s_lastActive = nullptr;
  }
}

void SoQuillform::setBuilt3D(int built)
{
  m_built3D = built;
}

int SoQuillform::isBuilt3D() const
{
  return m_built3D;
}

void SoQuillform::setCanBeTraversed(int traversable)
{
  m_canBeTraversed = traversable;
}

int SoQuillform::canBeTraversed() const
{
  return m_canBeTraversed;
}

SbBool SoQuillform::isLive3D() const
{
  return m_built3D != 0 && m_canBeTraversed != 0;
}

SoGetBoundingBoxAction* SoQuillform::getBoundingBoxAction()
{
  if (!m_boxAction) {
    m_boxAction = std::make_unique<SoGetBoundingBoxAction>(SbViewportRegion());
  }
  return m_boxAction.get();
}

SoSearchAction* SoQuillform::getSearchAction()
{
  if (!m_searchAction) {
    m_searchAction = std::make_unique<SoSearchAction>();
  }
  return m_searchAction.get();
}

SoGetMatrixAction* SoQuillform::getMatrixAction()
{
  if (!m_matrixAction) {
    m_matrixAction = std::make_unique<SoGetMatrixAction>(SbViewportRegion());
  }
  return m_matrixAction.get();
}

SoField* SoQuillform::getField(const SbName& name) const
{
  // Every new kit asks for all its parts. A field has the same number in derived classes, so that the number found last
  // is nearly always the right one; equal names are at the same address.
  static std::array<int, 512> lastNumbers = {};
  int& number = lastNumbers[std::hash<const char*>()(name.getString()) / alignof(void*) % lastNumbers.size()];
  const SoFieldData* fields = getFieldData();
  if (number >= fields->getNumFields() || fields->getFieldName(number) != name) {
    SoField* field = inherited::getField(name);
    number = field ? fields->getIndex(this, field) : 0;
    return field;
  }
  return fields->getField(this, number);
}

void SoQuillform::notify(SoNotList* list)
{
  const SoNotRec* last = list->getLastRec();
  const SoField* field = last && last->getType() == SoNotRec::CONTAINER ? list->getLastField() : nullptr;
  if (field && field->getContainer() == this) {
    m_watched.fieldChanged(field);
  }
  inherited::notify(list);
}

// Keys in the scene

SbBool SoQuillform::takesKeys3D() const
{
  return usesKeys3D() && isLive3D() && isShown3D() && enable.getValue() && isEnabledByParents();
}

bool SoQuillform::usesKeys3D() const
{
  return false;
}

SbBool SoQuillform::pressKey3D(const SoKeyboardEvent* /*event*/)
{
  return FALSE;
}

SbBox2f SoQuillform::getKeyboardBox3D() const
{
  return {};
}

SoSwitch* SoQuillform::getGeometrySwitch() const
{
  return static_cast<SoSwitch*>(geomSwitch.getValue());
}

// Events in the scene

void SoQuillform::handleEvent(SoHandleEventAction* action)
{
  const SoEventScope scope(this, action);
  So3DKeyboard::beginEvent(action);
  inherited::handleEvent(action);
  So3DKeyboard::endEvent(this, action);
}

void SoQuillform::grabEventsSetup()
{
  // The event action keeps a bare pointer to the node that gets its events, and the application may remove the
  // element, by a timer say, while the button is held down.
  if (!m_holdsPointer) {
    m_holdsPointer = true;
    ref();
  }
  inherited::grabEventsSetup();
}

void SoQuillform::grabEventsCleanup()
{
  inherited::grabEventsCleanup(); // comes back here once
  if (m_holdsPointer) {
    m_holdsPointer = false;
    unref();
  }
}

void SoQuillform::listenToPointer3D()
{
  if (!m_listening) {
    m_listening = true;
    addStartCallback(startCB3D, this);
    addMotionCallback(motionCB3D, this);
    addFinishCallback(finishCB3D, this);
  }
}

void SoQuillform::startCB3D(void* data, SoDragger* /*dragger*/)
{
  auto* self = static_cast<SoQuillform*>(data);
  // From here on the events come straight to this element: the release is told apart even when it happens
  // elsewhere, and what auditors do to the scene at the release happens outside the scene's traversal.
  if (SoHandleEventAction* action = SoEventScope::getAction()) {
    action->setGrabber(self);
  }
  So3DKeyboard::take(self);
  self->press3D();
}

void SoQuillform::motionCB3D(void* data, SoDragger* /*dragger*/)
{
  static_cast<SoQuillform*>(data)->drag3D();
}

void SoQuillform::finishCB3D(void* data, SoDragger* /*dragger*/)
{
  auto* self = static_cast<SoQuillform*>(data);
  SoHandleEventAction* action = SoEventScope::getAction();
  if (action && action->getGrabber() == self) {
    action->releaseGrabber();
  }
  self->release3D();
}

void SoQuillform::press3D() {}
void SoQuillform::drag3D() {}
void SoQuillform::release3D() {}

SbBool SoQuillform::isUnderPointer(SoNode* node)
{
  // The dragger's own pick path is gone by the time of the release; the action still knows the pointer.
  SoHandleEventAction* action = SoEventScope::getAction();
  const SoPickedPoint* point = action ? action->getPickedPoint() : nullptr;
  return node && point && point->getPath()->findNode(node) >= 0;
}

SbVec3f SoQuillform::getPointer3D()
{
  SbPlaneProjector projector(SbPlane(SbVec3f(0.0F, 0.0F, 1.0F), getLocalStartingPoint()));
  projector.setViewVolume(getViewVolume());
  projector.setWorkingSpace(getLocalToWorldMatrix());
  return projector.project(getNormalizedLocaterPosition()) - m_parentTranslation;
}

// Files and copies

void SoQuillform::fillFromSkin(const char* partName, SoGroup* skinPart)
{
  const auto* field = static_cast<const SoSFNode*>(getField(partName));
  if (!skinPart || (field && field->getValue() && m_skinParts.count(partName) == 0)) {
    return;
  }
  if (setAnyPart(partName, skinPart)) {
    m_skinParts.insert(partName);
    getField(partName)->setDefault(TRUE);
  }
}

bool SoQuillform::isAuthorPart(int partNumber) const
{
  const SoNodekitCatalog* catalog = getNodekitCatalog();
  if (!isForAuthors(catalog, partNumber)) {
    return false;
  }
  const SbName& name = catalog->getName(partNumber);
  const auto* field = static_cast<const SoSFNode*>(getField(name));
  return field && field->getValue() && m_skinParts.count(name.getString()) == 0;
}

void SoQuillform::setDefaultOnNonWritingFields()
{
  const SoNodekitCatalog* catalog = getNodekitCatalog();
  for (int i = 1; i < catalog->getNumEntries(); i++) {
    if (!isAuthorPart(i)) {
      getField(catalog->getName(i))->setDefault(TRUE);
    }
  }
  inherited::setDefaultOnNonWritingFields();
}

void SoQuillform::exchangeAuthoredValues(bool /*writing*/) {}

SoChildElements* SoQuillform::getChildElements()
{
  return nullptr;
}

const SoChildElements* SoQuillform::getChildElements() const
{
  return const_cast<SoQuillform*>(this)->getChildElements();
}

void SoQuillform::addWriteReference(SoOutput* out, SbBool isFromField)
{
  SoChildElements* children = getChildElements();
  if (!children) {
    inherited::addWriteReference(out, isFromField);
    return;
  }
  // A container is written like a group, fields first and then children, not like a kit.
  setDefaultOnNonWritingFields();
  SoFieldContainer::addWriteReference(out, FALSE);
  if (!hasMultipleWriteRefs()) {
    for (int i = 0; i < children->getNum(); i++) {
      children->get(i)->addWriteReference(out);
    }
  }
}

void SoQuillform::write(SoWriteAction* action)
{
  SoChildElements* children = getChildElements();
  SoOutput* out = action->getOutput();
  exchangeAuthoredValues(true);
  if (!children) {
    inherited::write(action);
  }
  else if (out->getStage() == SoOutput::COUNT_REFS) {
    setDefaultOnNonWritingFields();
    SoFieldContainer::addWriteReference(out, FALSE);
    if (!hasMultipleWriteRefs()) {
      writeChildren(action);
    }
  }
  else if (!writeHeader(out, TRUE, FALSE)) {
    SoFieldContainer::writeInstance(out);
    if (out->isBinary()) {
      out->write(countWrittenChildren(action));
    }
    writeChildren(action);
    writeFooter(out);
  }
  exchangeAuthoredValues(false);
}

int SoQuillform::countWrittenChildren(SoWriteAction* action) const
{
  const SoChildElements* children = getChildElements();
  int onPath = 0;
  const int* indices = nullptr;
  if (action->getPathCode(onPath, indices) != SoAction::IN_PATH || onPath == 0) {
    return children->getNum();
  }
  // Paths count the kit's own nodes too, which stand in front.
  const int kitNodes = getChildren()->getLength() - children->getNum();
  return std::max(indices[onPath - 1] - kitNodes + 1, 0);
}

void SoQuillform::writeChildren(SoWriteAction* action)
{
  SoChildElements* children = getChildElements();
  const SoAction::PathCode pathCode = action->getCurPathCode();
  const int kitNodes = getChildren()->getLength() - children->getNum();
  const int count = countWrittenChildren(action);
  for (int i = 0; i < count; i++) {
    // The child must know whether it stands on the path itself.
    action->pushCurPath(kitNodes + i, children->get(i));
    children->get(i)->write(action);
    action->popCurPath(pathCode);
  }
}

SbBool SoQuillform::readInstance(SoInput* in, unsigned short flags)
{
  SoChildElements* children = getChildElements();
  const SbBool wasNotifying = enableNotify(FALSE);
  InnerParts innerParts(this, getFieldData());
  ref(); // a broken file may put this node below itself for a moment
  if (!children) {
    // A kit's own reading makes the parts that every kit has a second time.
    const SbBool isRead = SoFieldContainer::readInstance(in, flags) && innerParts.areUntouched(in);
    if (isRead) {
      adoptReadParts(innerParts.getHolders());
    }
    unrefNoDelete();
    enableNotify(wasNotifying);
    return isRead;
  }
  // A kit's own reading takes every unknown word for a part; here the children's class names follow.
  SbBool isRead =
    SoFieldContainer::readInstance(in, static_cast<unsigned short>(flags | IS_GROUP)) && innerParts.areUntouched(in);
  if (isRead) {
    adoptReadParts(innerParts.getHolders());
    if (!in->isBinary() || (flags & IS_GROUP) != 0) {
      isRead = children->readChildren(in);
    }
  }
  unrefNoDelete();
  enableNotify(wasNotifying);
  return isRead;
}

void SoQuillform::adoptReadParts(const std::vector<int>& holders)
{
  const SoNodekitCatalog* catalog = getNodekitCatalog();
  const SoFieldData* fields = getFieldData();
  std::vector<std::pair<int, SoNode*>> read;
  for (const int i : holders) {
    auto* field = static_cast<SoSFNode*>(fields->getField(this, i));
    const int part = catalog->getPartNumber(fields->getFieldName(i));
    if (part == SO_CATALOG_NAME_NOT_FOUND || part == 0) {
      continue;
    }
    if (!field->getValue() || !isForAuthors(catalog, part)) {
      field->setIgnored(FALSE); // could be written to a binary file, but without the part not be read
    }
    if (!isAuthorPart(part)) {
      continue;
    }
    // The field was read like any other; the node must also take its place in the kit. There each stands beside those
    // that the other fields name, so none may name a node that has no place yet.
    read.emplace_back(part, field->getValue());
    read.back().second->ref();
    field->setValue(nullptr);
  }
  for (const auto& [part, node] : read) {
    setAnyPart(catalog->getName(part), node);
    node->unref();
  }
}

void SoQuillform::search(SoSearchAction* action)
{
  inherited::search(action);
  // A kit's contents are searched only on demand, the elements inside a container always.
  SoChildElements* children = getChildElements();
  if (children && !action->isFound() && !SoBaseKit::isSearchingChildren()) {
    children->traverse(action);
  }
}

SoNode* SoQuillform::addToCopyDict() const
{
  auto* copy = static_cast<SoNode*>(SoFieldContainer::checkCopy(this));
  if (!copy) {
    copy = static_cast<SoNode*>(getTypeId().createInstance());
    copy->ref();
    SoFieldContainer::addCopy(this, copy);
    copy->unrefNoDelete();
    if (const SoChildElements* children = getChildElements()) {
      children->addToCopyDict();
    }
  }
  return copy;
}

void SoQuillform::copyContents(const SoFieldContainer* from, SbBool copyConnections)
{
  // The 3D form is made anew for a copy: only fields and the parts that the author filled are taken over.
  const auto* source = static_cast<const SoQuillform*>(from);
  setName(source->getName());
  const SoNodekitCatalog* catalog = getNodekitCatalog();
  const SoFieldData* fields = source->getFieldData();
  for (int i = 0; i < fields->getNumFields(); i++) {
    const SoField* theirs = fields->getField(source, i);
    SoField* ours = fields->getField(this, i);
    const int part = catalog->getPartNumber(fields->getFieldName(i));
    if (part != SO_CATALOG_NAME_NOT_FOUND) {
      if (part > 0 && source->isAuthorPart(part)) {
        SoNode* node = static_cast<const SoSFNode*>(theirs)->getValue();
        setAnyPart(catalog->getName(part), static_cast<SoNode*>(SoFieldContainer::findCopy(node, copyConnections)));
      }
      continue;
    }
    if (theirs == &source->isActive) {
      continue; // a drag under way is not copied
    }
    ours->copyFrom(*theirs);
    ours->fixCopy(copyConnections);
    ours->setIgnored(theirs->isIgnored());
    ours->setDefault(theirs->isDefault());
    if (copyConnections && theirs->isConnected()) {
      ours->copyConnection(theirs);
    }
  }
  if (SoChildElements* children = getChildElements()) {
    children->copyFrom(*source->getChildElements(), copyConnections);
  }
}
