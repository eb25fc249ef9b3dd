#include <Quillform/core/SoTopComponent.h>

#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTranslation.h>

SO_QUILLFORM_SOURCE(SoTopComponent, "TopComponent")

SoTopComponent::SoTopComponent() : SoTopComponent(PartsLater())
{
  SO_KIT_INIT_INSTANCE();
}

SoTopComponent::SoTopComponent(const PartsLater& later) : inherited(later)
{
  SO_QUILLFORM_CONSTRUCTOR(SoTopComponent);
}

SoTopComponent::~SoTopComponent() = default;

void SoTopComponent::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
}

void SoTopComponent::destroyWidget()
{
  inherited::destroyWidget();
}

void SoTopComponent::updateFromSensor(SoSensor* sensor)
{
  inherited::updateFromSensor(sensor);
}

void SoTopComponent::getSize(SbVec2i32& /*size*/, SbVec2i32& /*min*/, SbVec2i32& /*max*/) {}

void SoTopComponent::restoreAuthoredSizes() {}
void SoTopComponent::startFromAuthoredSizes() {}

void SoTopComponent::addTranslation(SoTranslation* translation)
{
  auto* geometry = makePart<SoSwitch>("geomSwitch");
  SoNode* first = geometry->getNumChildren() > 0 ? geometry->getChild(0) : nullptr;
  if (first && first->isOfType(SoTranslation::getClassTypeId()) && first->getName() == "parentPositionTranslation") {
    static_cast<SoTranslation*>(first)->translation = translation->translation.getValue();
  }
  else {
    geometry->insertChild(translation, 0);
  }
}
