#ifndef QUILLFORM_TESTS_VIEW_POINTER_H
#define QUILLFORM_TESTS_VIEW_POINTER_H

#include <QPoint>
#include <QProcessEnvironment>
#include <QSize>

/// What a user does to the windows of a display with the mouse, the keyboard and the window manager.
class Pointer {
public:
  explicit Pointer(const QProcessEnvironment& environment);

  /// Waits until a window with that title is on the display; 0 when none appears.
  unsigned long waitForWindow(const QString& title) const;

  QSize getSize(unsigned long window) const;

  /// Presses and releases the left button at a place in the window.
  void click(unsigned long window, const QPoint& at) const;

  /// Presses the left button at one place in the window, and releases it at another.
  void drag(unsigned long window, const QPoint& from, const QPoint& to) const;

  void pressKey(unsigned long window, const QString& key) const;

  /// Types a text in the window that has the keyboard.
  void type(const QString& text) const;

  /// Asks the program to close the window, as a window manager does for its user.
  void close(unsigned long window) const;

private:
  QByteArray xdotool(const QStringList& arguments) const;

  QProcessEnvironment m_environment;
};

#endif // QUILLFORM_TESTS_VIEW_POINTER_H
