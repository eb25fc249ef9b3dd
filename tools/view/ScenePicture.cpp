#include "ScenePicture.h"

#include "DialogScene.h"
#include "Failure.h"
#include "GlContext.h"
#include <Inventor/SbViewportRegion.h>
#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/elements/SoGLCacheContextElement.h>
#include <Inventor/misc/SoContextHandler.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>

namespace {

/// From this number of pixels on, a picture is smooth enough, and several samples of each would take gigabytes.
constexpr int largePicture = 4096 * 4096;

/// Draws into the frame buffer that is bound.
void render(DialogScene& scene, const QSize& size)
{
  auto* root = new SoSeparator;
  root->ref();
  auto* light = new SoDirectionalLight; // where a viewer has its headlight
  light->direction.setValue(0.0F, 0.0F, -1.0F);
  root->addChild(light);
  root->addChild(scene.getRoot());
  SoGLRenderAction action(SbViewportRegion(static_cast<short>(size.width()), static_cast<short>(size.height())));
  const uint32_t cacheContext = SoGLCacheContextElement::getUniqueCacheContext();
  action.setCacheContext(cacheContext);
  action.apply(root);
  SoContextHandler::destructingContext(cacheContext); // while its OpenGL is current
  root->unref();
}

} // namespace

QImage ScenePicture::draw(DialogScene& scene, const QSize& size)
{
  const GlContext context;
  QOpenGLFramebufferObjectFormat format;
  format.setAttachment(QOpenGLFramebufferObject::CombinedDepthStencil);
  format.setSamples(size.width() * size.height() < largePicture ? DialogScene::samples : 0);
  QOpenGLFramebufferObject buffer(size, format);
  if (!buffer.isValid() || !buffer.bind()) {
    throw Failure(Failure::WRONG_USAGE, QString("The display has no room for a picture of %1x%2 pixels; give a "
                                                "smaller --size.")
                                          .arg(size.width())
                                          .arg(size.height()));
  }
  scene.fit(size);
  QOpenGLFunctions* gl = context.functions();
  gl->glEnable(GL_DEPTH_TEST); // without it, back faces show through
  gl->glClearColor(DialogScene::background[0], DialogScene::background[1], DialogScene::background[2], 1.0F);
  gl->glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  render(scene, size);
  return buffer.toImage().convertToFormat(QImage::Format_RGB32);
}
