#include "GlContext.h"

#include "Failure.h"
#include "QuietQt.h"
#include <QSurfaceFormat>

namespace {

const char* const missing =
  "There is no OpenGL on this display, and the scene needs it; use a display that has it, for "
  "example by running quillform-view under xvfb-run.";

} // namespace

GlContext::GlContext()
{
  const QuietQt quiet(missing);
  QSurfaceFormat format;
  format.setProfile(QSurfaceFormat::CompatibilityProfile); // the scene graph draws in the fixed pipeline
  m_context.setFormat(format);
  m_surface.setFormat(format);
  if (m_context.create()) {
    m_surface.create();
  }
  if (!m_surface.isValid() || !m_context.makeCurrent(&m_surface)) {
    throw Failure(Failure::WRONG_USAGE, missing);
  }
}

GlContext::~GlContext()
{
  m_context.doneCurrent();
}

QOpenGLFunctions* GlContext::functions() const
{
  return m_context.functions();
}
