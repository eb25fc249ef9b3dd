#ifndef QUILLFORM_VIEW_GLCONTEXT_H
#define QUILLFORM_VIEW_GLCONTEXT_H

#include <QOffscreenSurface>
#include <QOpenGLContext>

/// OpenGL without a window, current while it lives.
class GlContext {
public:
  /// Throws a Failure when the display has no OpenGL that the scene can be drawn with.
  GlContext();
  ~GlContext();
  GlContext(const GlContext&) = delete;
  GlContext& operator=(const GlContext&) = delete;

  QOpenGLFunctions* functions() const;

private:
  QOpenGLContext m_context;
  QOffscreenSurface m_surface;
};

#endif // QUILLFORM_VIEW_GLCONTEXT_H
