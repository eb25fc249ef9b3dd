#include <support/Scene.h>

#include <Inventor/events/SoLocation2Event.h>
#include <Inventor/events/SoMouseButtonEvent.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoSeparator.h>
#include <cmath>

namespace {
constexpr int originX = 100;
constexpr int originY = 500;
} // namespace

Scene::Scene() : m_root(new SoSeparator), m_camera(new SoOrthographicCamera), m_action(SbViewportRegion(width, height))
{
  m_root->ref();
  m_camera->viewportMapping = SoCamera::LEAVE_ALONE;
  m_camera->aspectRatio = static_cast<float>(width) / static_cast<float>(height);
  m_camera->height = static_cast<float>(height);
  m_camera->position.setValue(width / 2 - originX, height / 2 - originY, 500.0F);
  m_camera->nearDistance = 1.0F;
  m_camera->farDistance = 1000.0F;
  m_root->addChild(m_camera);
  auto* light = new SoDirectionalLight;
  light->direction.setValue(0.0F, 0.0F, -1.0F);
  m_root->addChild(light);
}

Scene::~Scene()
{
  m_root->unref();
}

SoSeparator* Scene::root() const
{
  return m_root;
}

SoOrthographicCamera* Scene::camera() const
{
  return m_camera;
}

void Scene::add(SoNode* node)
{
  m_root->addChild(node);
}

void Scene::open(SoTopLevelDialog* dialog)
{
  SoInSceneMode::setEnabled(TRUE);
  dialog->buildDialog(nullptr, FALSE);
  SoInSceneMode::setEnabled(FALSE);
  add(dialog);
}

SbVec2s Scene::pixel(float x, float y) const
{
  return {static_cast<short>(std::lround(x) + originX), static_cast<short>(std::lround(y) + originY)};
}

SbVec2s Scene::centre(SoDialogComponent* element) const
{
  const SbVec3f at = element->get3DParentTranslation();
  return pixel(at[0], at[1]);
}

void Scene::button(const SbVec2s& at, bool down)
{
  SoMouseButtonEvent event;
  event.setButton(SoMouseButtonEvent::BUTTON1);
  event.setState(down ? SoButtonEvent::DOWN : SoButtonEvent::UP);
  event.setPosition(at);
  send(event);
}

void Scene::press(const SbVec2s& at)
{
  button(at, true);
}

void Scene::release(const SbVec2s& at)
{
  button(at, false);
}

void Scene::move(const SbVec2s& to)
{
  SoLocation2Event event;
  event.setPosition(to);
  send(event);
}

void Scene::click(const SbVec2s& at)
{
  press(at);
  release(at);
}

void Scene::click(SoDialogComponent* element)
{
  click(centre(element));
}

bool Scene::send(const SoEvent& event)
{
  m_action.setEvent(&event);
  m_action.apply(m_root);
  return m_action.isHandled() != FALSE;
}

bool Scene::sendKey(SoKeyboardEvent::Key key, SoButtonEvent::State state, char character, bool shift, bool ctrl)
{
  SoKeyboardEvent event;
  event.setKey(key);
  event.setState(state);
  event.setShiftDown(shift);
  event.setCtrlDown(ctrl);
  if (character != '\0') {
    event.setPrintableCharacter(character);
  }
  return send(event);
}

void Scene::key(SoKeyboardEvent::Key key, char character)
{
  sendKey(key, SoButtonEvent::DOWN, character);
  sendKey(key, SoButtonEvent::UP, character);
}

SoHandleEventAction& Scene::action()
{
  return m_action;
}
