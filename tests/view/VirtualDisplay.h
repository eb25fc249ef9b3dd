#ifndef QUILLFORM_TESTS_VIEW_VIRTUALDISPLAY_H
#define QUILLFORM_TESTS_VIEW_VIRTUALDISPLAY_H

#include <QProcess>
#include <QString>

/// An X server without a screen, with OpenGL drawn in memory, for as long as it lives.
class VirtualDisplay {
public:
  VirtualDisplay();
  ~VirtualDisplay();
  VirtualDisplay(const VirtualDisplay&) = delete;
  VirtualDisplay& operator=(const VirtualDisplay&) = delete;

  /// What DISPLAY is set to; empty when the server did not start.
  const QString& getName() const;

private:
  QProcess m_server;
  QString m_name;
};

#endif // QUILLFORM_TESTS_VIEW_VIRTUALDISPLAY_H
