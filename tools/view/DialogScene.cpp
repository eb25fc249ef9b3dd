#include "DialogScene.h"

#include <Inventor/SbViewVolume.h>
#include <Inventor/SbViewportRegion.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Quillform/containers/SoTopLevelDialog.h>
#include <Quillform/platform/SoInSceneMode.h>
#include <algorithm>

namespace {

constexpr float room = 10.0F; // around the dialog, in pixels of its layout

/// A dialog's layout counts in pixels of a window; in the scene its texts are drawn as shapes, which look ragged
/// when they are that small.
constexpr float naturalScale = 2.0F;

/// Between the dialog and the camera and the planes that clip the view, in scene units.
constexpr float distance = 100.0F;

SbBox3f measure(SoNode* node)
{
  SoGetBoundingBoxAction action(SbViewportRegion(100, 100)); // nothing in a dialog depends on the viewport
  action.apply(node);
  SbBox3f box = action.getBoundingBox();
  if (box.isEmpty()) {
    box.setBounds(0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F);
  }
  return {box.getMin() - SbVec3f(room, room, 0.0F), box.getMax() + SbVec3f(room, room, 0.0F)};
}

} // namespace

const SbColor DialogScene::background(0.30F, 0.30F, 0.35F);

DialogScene::DialogScene(SoTopLevelDialog* dialog)
    : m_dialog(dialog), m_root(new SoSeparator), m_camera(new SoOrthographicCamera)
{
  m_root->ref();
  SoInSceneMode::setEnabled(TRUE);
  dialog->buildDialog(nullptr, FALSE);
  m_root->addChild(m_camera);
  m_root->addChild(dialog);
  look();
}

void DialogScene::look()
{
  m_box = measure(m_dialog);
  const SbVec3f size = m_box.getSize();
  m_camera->position.setValue(m_box.getCenter()[0], m_box.getCenter()[1], m_box.getMax()[2] + distance);
  m_camera->nearDistance = distance * 0.5F;
  m_camera->farDistance = distance * 1.5F + size[2];
  m_camera->focalDistance = distance + size[2] * 0.5F; // what the viewer turns around
  fit(getNaturalSize());
}

DialogScene::~DialogScene()
{
  m_root->unref();
}

SoSeparator* DialogScene::getRoot() const
{
  return m_root;
}

QSize DialogScene::getNaturalSize() const
{
  const SbVec3f size = m_box.getSize() * naturalScale;
  return {qRound(size[0]), qRound(size[1])};
}

SbVec2s DialogScene::project(const SbVec3f& place, const QSize& picture) const
{
  const float aspect = static_cast<float>(picture.width()) / static_cast<float>(picture.height());
  SbViewVolume volume = m_camera->getViewVolume(aspect);
  if (aspect < 1.0F) {
    volume.scale(1.0F / aspect); // the camera's height is the shorter side of what is seen
  }
  SbVec3f seen;
  volume.projectToScreen(place, seen);
  return {static_cast<short>(seen[0] * static_cast<float>(picture.width())),
          static_cast<short>(seen[1] * static_cast<float>(picture.height()))};
}

void DialogScene::fit(const QSize& picture)
{
  const SbVec3f size = m_box.getSize();
  const float aspect = static_cast<float>(picture.width()) / static_cast<float>(picture.height());
  // The camera's height is the shorter side of what is seen.
  m_fittedHeight = std::max(size[1] * std::min(aspect, 1.0F), size[0] / std::max(aspect, 1.0F));
  m_camera->height = m_fittedHeight;
}

void DialogScene::keepFitted(const QSize& picture)
{
  if (!picture.isEmpty() && m_camera->height.getValue() == m_fittedHeight) {
    fit(picture);
  }
}
