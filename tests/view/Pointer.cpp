#include "Pointer.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QStringList>
#include <gtest/gtest.h>
// Behind everything else: it defines common words as macros.
#include <X11/Xlib.h>

Pointer::Pointer(const QProcessEnvironment& environment) : m_environment(environment) {}

QByteArray Pointer::xdotool(const QStringList& arguments) const
{
  QProcess process;
  process.setProcessEnvironment(m_environment);
  process.start(XDOTOOL, arguments);
  if (!process.waitForFinished(30000)) {
    ADD_FAILURE() << "xdotool " << arguments.join(' ').toStdString() << " takes too long";
    process.kill();
    process.waitForFinished();
  }
  return process.readAllStandardOutput();
}

unsigned long Pointer::waitForWindow(const QString& title) const
{
  // The search gives up when a window that it looks at goes away; then it is begun again.
  unsigned long window = 0;
  QElapsedTimer timer;
  timer.start();
  while (window == 0 && timer.elapsed() < 30000) {
    const QByteArray windows = xdotool({"search", "--sync", "--onlyvisible", "--name", "^" + title + "$"});
    window = windows.split('\n').front().toULong();
  }
  return window;
}

QSize Pointer::getSize(unsigned long window) const
{
  QSize size;
  for (const QByteArray& line : xdotool({"getwindowgeometry", "--shell", QString::number(window)}).split('\n')) {
    if (line.startsWith("WIDTH=")) {
      size.setWidth(line.mid(6).toInt());
    }
    if (line.startsWith("HEIGHT=")) {
      size.setHeight(line.mid(7).toInt());
    }
  }
  return size;
}

void Pointer::click(unsigned long window, const QPoint& at) const
{
  xdotool({"mousemove", "--window", QString::number(window), QString::number(at.x()), QString::number(at.y()), "sleep",
           "0.2", "mousedown", "1", "sleep", "0.2", "mouseup", "1"});
}

void Pointer::drag(unsigned long window, const QPoint& from, const QPoint& to) const
{
  const QString name = QString::number(window);
  const QPoint middle = (from + to) / 2;
  xdotool({"mousemove",
           "--window",
           name,
           QString::number(from.x()),
           QString::number(from.y()),
           "sleep",
           "0.2",
           "mousedown",
           "1",
           "sleep",
           "0.2",
           "mousemove",
           "--window",
           name,
           QString::number(middle.x()),
           QString::number(middle.y()),
           "sleep",
           "0.2",
           "mousemove",
           "--window",
           name,
           QString::number(to.x()),
           QString::number(to.y()),
           "sleep",
           "0.2",
           "mouseup",
           "1"});
}

void Pointer::pressKey(unsigned long window, const QString& key) const
{
  xdotool({"windowfocus", QString::number(window), "sleep", "0.2", "key", key});
}

void Pointer::type(const QString& text) const
{
  xdotool({"type", "--delay", "40", text});
}

void Pointer::close(unsigned long window) const
{
  Display* display = XOpenDisplay(m_environment.value("DISPLAY").toLocal8Bit().constData());
  ASSERT_NE(nullptr, display);
  XEvent event = {};
  event.xclient.type = ClientMessage;
  event.xclient.window = window;
  event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
  event.xclient.format = 32;
  event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
  event.xclient.data.l[1] = CurrentTime;
  XSendEvent(display, window, False, NoEventMask, &event);
  XCloseDisplay(display);
}
