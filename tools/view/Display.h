#ifndef QUILLFORM_VIEW_DISPLAY_H
#define QUILLFORM_VIEW_DISPLAY_H

#include <QApplication>
#include <QWidget>
#include <memory>

struct Options;

/// The connection to the window system, with the viewer layer started on it.
class Display {
public:
  /// Connects to the display or, for the picture of a window, does without one when there is none. Throws a
  /// Failure, or ends the program with the status of one, when a display is needed and missing.
  Display(const Options& options, int& argc, char** argv);
  ~Display();

  /// Runs until the last window is closed; returns the exit status.
  int run();

private:
  std::unique_ptr<QApplication> m_application;
  std::unique_ptr<QWidget> m_mainWidget; // the viewer layer wants one; never shown
};

#endif // QUILLFORM_VIEW_DISPLAY_H
