#include "Display.h"

#include "Failure.h"
#include "Options.h"
#include "QuietQt.h"
#include <Inventor/Qt/SoQt.h>
#include <QEvent>

namespace {

bool hasDisplay()
{
  return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

void choosePlatform(const Options& options)
{
  if (hasDisplay() || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    return;
  }
  if (options.inScene) {
    throw Failure(Failure::WRONG_USAGE, "There is no display, and the scene needs one with OpenGL; set DISPLAY or run "
                                        "quillform-view under xvfb-run.");
  }
  if (options.task != Options::SCREENSHOT) {
    throw Failure(Failure::WRONG_USAGE,
                  "There is no display to open a window on; set DISPLAY, or draw a picture with --screenshot.");
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
}

} // namespace

Display::Display(const Options& options, int& argc, char** argv)
{
  choosePlatform(options);
  const QuietQt quiet("The display cannot be opened; correct DISPLAY, WAYLAND_DISPLAY or QT_QPA_PLATFORM, or unset all "
                      "three to draw a window with --screenshot.");
  m_application = std::make_unique<QApplication>(argc, argv);
  m_mainWidget = std::make_unique<QWidget>();
  SoQt::init(m_mainWidget.get());
}

Display::~Display()
{
  // Dialogs leave their windows to the event loop to delete.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int Display::run()
{
  return QApplication::exec();
}
