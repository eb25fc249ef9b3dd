#include "BareScene.h"

#include <Inventor/actions/SoCallbackAction.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoFont.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoShape.h>
#include <Inventor/nodes/SoText3.h>
#include <Inventor/nodes/SoTransform.h>

namespace {

SoMaterial* makeMaterial(SoCallbackAction* action)
{
  SbColor ambient;
  SbColor diffuse;
  SbColor specular;
  SbColor emission;
  float shininess = 0.0F;
  float transparency = 0.0F;
  action->getMaterial(ambient, diffuse, specular, emission, shininess, transparency);
  auto* material = new SoMaterial;
  material->ambientColor = ambient;
  material->diffuseColor = diffuse;
  material->specularColor = specular;
  material->emissiveColor = emission;
  material->shininess = shininess;
  material->transparency = transparency;
  return material;
}

SoTransform* makeTransform(SoCallbackAction* action)
{
  auto* transform = new SoTransform;
  transform->setMatrix(action->getModelMatrix());
  return transform;
}

SoText3* makeText(SoCallbackAction* action, const SoText3* original, SoSeparator* item)
{
  auto* font = new SoFont;
  font->name = action->getFontName();
  font->size = action->getFontSize();
  item->addChild(font);
  auto* text = new SoText3;
  text->string = original->string;
  text->justification = original->justification;
  text->spacing = original->spacing;
  return text;
}

SoCube* makeBox(SoCallbackAction* action, const SoShape* original, SoTransform* place)
{
  SoGetBoundingBoxAction measuring(action->getViewportRegion());
  auto* alone = new SoSeparator;
  alone->ref();
  alone->addChild(const_cast<SoShape*>(original));
  measuring.apply(alone);
  alone->unref();
  const SbBox3f extent = measuring.getBoundingBox();
  auto* box = new SoCube;
  if (!extent.isEmpty()) {
    const SbVec3f size = extent.getMax() - extent.getMin();
    box->width = size[0];
    box->height = size[1];
    box->depth = size[2];
    SbMatrix centred;
    centred.setTranslate(extent.getCenter());
    place->setMatrix(centred * action->getModelMatrix());
  }
  return box;
}

SoCallbackAction::Response addShape(void* data, SoCallbackAction* action, const SoNode* node)
{
  auto* item = new SoSeparator;
  static_cast<SoSeparator*>(data)->addChild(item);
  item->addChild(makeMaterial(action));
  SoTransform* place = makeTransform(action);
  item->addChild(place);
  if (node->isOfType(SoText3::getClassTypeId())) {
    item->addChild(makeText(action, static_cast<const SoText3*>(node), item));
  }
  else {
    item->addChild(makeBox(action, static_cast<const SoShape*>(node), place));
  }
  return SoCallbackAction::PRUNE; // its triangles are of no interest
}

} // namespace

SoSeparator* makeBareScene(SoNode* scene)
{
  auto* bare = new SoSeparator;
  SoCallbackAction collecting;
  collecting.addPreCallback(SoShape::getClassTypeId(), addShape, bare);
  collecting.apply(scene);
  return bare;
}
