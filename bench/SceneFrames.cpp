#include "SceneFrames.h"

#include "BareScene.h"
#include "Rows.h"
#include "Stopwatch.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/actions/SoHandleEventAction.h>
#include <Inventor/elements/SoGLCacheContextElement.h>
#include <Inventor/events/SoMouseButtonEvent.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>
#include <Quillform/Quillform.h>
#include <benchmark/benchmark.h>
#include <memory>

namespace {

constexpr int pictureWidth = 480;
constexpr int pictureHeight = 960;

/// Frames drawn before the first measured one, so that all caches are made.
constexpr int warmUpFrames = 10;

/// Draws frames without a window.
class FrameRenderer {
public:
  FrameRenderer()
  {
    QSurfaceFormat format;
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setDepthBufferSize(24);
    m_context.setFormat(format);
    m_surface.setFormat(format);
    m_surface.create();
    if (!m_context.create() || !m_context.makeCurrent(&m_surface)) {
      return;
    }
    QOpenGLFramebufferObjectFormat bufferFormat;
    bufferFormat.setAttachment(QOpenGLFramebufferObject::CombinedDepthStencil);
    m_buffer = std::make_unique<QOpenGLFramebufferObject>(pictureWidth, pictureHeight, bufferFormat);
    m_buffer->bind();
    m_action.setCacheContext(SoGLCacheContextElement::getUniqueCacheContext());
  }

  bool isUsable() const
  {
    return m_buffer && m_buffer->isBound();
  }

  void draw(SoNode* scene)
  {
    QOpenGLFunctions* gl = m_context.functions();
    gl->glEnable(GL_DEPTH_TEST);
    gl->glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    m_action.apply(scene);
    gl->glFinish();
  }

private:
  QOpenGLContext m_context;
  QOffscreenSurface m_surface;
  std::unique_ptr<QOpenGLFramebufferObject> m_buffer;
  SoGLRenderAction m_action{SbViewportRegion(pictureWidth, pictureHeight)};
};

/// A form in a scene as a viewer shows it: camera and light, and below them what the application draws.
class FormScene {
public:
  FormScene(Rows::Mixture mixture, int count)
  {
    const QByteArray text = Rows(mixture, count).toDialogFile();
    SoInput input;
    input.setBuffer(text.constData(), static_cast<std::size_t>(text.size()));
    m_content = SoDB::readAll(&input);
    m_content->ref();
    m_dialog = static_cast<SoTopLevelDialog*>(m_content->getChild(0));
    SoInSceneMode::setEnabled(TRUE);
    m_dialog->buildDialog(nullptr, FALSE);
    SoInSceneMode::setEnabled(FALSE);

    m_root->ref();
    m_root->renderCaching = SoSeparator::OFF; // as viewers have it: their camera moves
    m_camera->viewportMapping = SoCamera::LEAVE_ALONE;
    m_camera->aspectRatio = static_cast<float>(pictureWidth) / pictureHeight;
    m_camera->viewAll(m_content, SbViewportRegion(pictureWidth, pictureHeight));
    auto* light = new SoDirectionalLight;
    light->direction.setValue(0.0F, 0.0F, -1.0F);
    m_root->addChild(m_camera);
    m_root->addChild(light);
    m_root->addChild(m_content);
  }

  ~FormScene()
  {
    m_root->unref();
    m_content->unref();
  }

  FormScene(const FormScene&) = delete;
  FormScene& operator=(const FormScene&) = delete;

  /// Draws the bare equivalent of the form instead of the form.
  void showBareScene()
  {
    m_root->replaceChild(m_content, makeBareScene(m_content));
  }

  SoSeparator* getRoot() const
  {
    return m_root;
  }

  /// A push button about the middle of the form.
  SoDialogPushButton* getMiddleButton() const
  {
    int middle = m_dialog->getNumChildren() / 2;
    while (!m_dialog->getChild(middle)->isOfType(SoDialogPushButton::getClassTypeId())) {
      ++middle;
    }
    return static_cast<SoDialogPushButton*>(m_dialog->getChild(middle));
  }

  /// Where in the picture the middle of a component's control is.
  SbVec2s getPicturePlace(const SoDialogComponent* component) const
  {
    SbVec2i32 size(0, 0);
    SbVec2i32 offset(0, 0);
    component->get3DComponentSize(size, offset);
    const SbVec3f middle =
      component->get3DParentTranslation() + SbVec3f(static_cast<float>(offset[0]), static_cast<float>(offset[1]), 0.0F);
    SbVec3f place;
    m_camera->getViewVolume().projectToScreen(middle, place);
    return {static_cast<short>(place[0] * pictureWidth), static_cast<short>(place[1] * pictureHeight)};
  }

private:
  SoSeparator* m_root = new SoSeparator;
  SoSeparator* m_content = nullptr;
  SoTopLevelDialog* m_dialog = nullptr;
  SoOrthographicCamera* m_camera = new SoOrthographicCamera;
};

void drawFrames(benchmark::State& state, const FormScene& scene)
{
  FrameRenderer renderer;
  if (!renderer.isUsable()) {
    state.SkipWithError("there is no OpenGL; run under an X display");
    return;
  }
  for (int i = 0; i < warmUpFrames; i++) {
    renderer.draw(scene.getRoot());
  }
  for (auto _ : state) {
    const Stopwatch watch;
    renderer.draw(scene.getRoot());
    state.SetIterationTime(watch.total());
  }
}

void drawDialog(benchmark::State& state, Rows::Mixture mixture, int count)
{
  const FormScene scene(mixture, count);
  drawFrames(state, scene);
}

void drawBareScene(benchmark::State& state, Rows::Mixture mixture, int count)
{
  FormScene scene(mixture, count);
  scene.showBareScene();
  drawFrames(state, scene);
}

void pressButton(benchmark::State& state, Rows::Mixture mixture, int count)
{
  const FormScene scene(mixture, count);
  SoDialogPushButton* button = scene.getMiddleButton();
  SoHandleEventAction action(SbViewportRegion(pictureWidth, pictureHeight));
  SoMouseButtonEvent event;
  event.setButton(SoMouseButtonEvent::BUTTON1);
  event.setPosition(scene.getPicturePlace(button));
  const auto send = [&](SoButtonEvent::State buttonState) {
    event.setState(buttonState);
    action.setEvent(&event);
    action.apply(scene.getRoot());
  };
  for (auto _ : state) {
    const Stopwatch watch;
    send(SoButtonEvent::DOWN);
    state.SetIterationTime(watch.total());
    const bool isPressed = SoQuillform::get3DCurrentActive() == button;
    send(SoButtonEvent::UP);
    if (!isPressed) {
      state.SkipWithError("the press did not reach the button");
      break;
    }
  }
}

template <class Function>
void add(const char* name, Function function, Rows::Mixture mixture, int count, int iterations)
{
  benchmark::RegisterBenchmark(name, function, mixture, count)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(iterations)
    ->Repetitions(9);
}

} // namespace

void registerSceneBenchmarks()
{
  add("frame_dialog/200", drawDialog, Rows::MIXED, 200, 40);
  add("frame_bare_scene/200", drawBareScene, Rows::MIXED, 200, 40);
  add("press_in_scene/200", pressButton, Rows::MIXED, 200, 20);
  add("frame_simple_dialog/200", drawDialog, Rows::SIMPLE, 200, 40);
  add("frame_simple_bare_scene/200", drawBareScene, Rows::SIMPLE, 200, 40);
  add("press_in_simple_scene/200", pressButton, Rows::SIMPLE, 200, 20);
}
