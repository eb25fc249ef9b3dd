#ifndef QUILLFORM_VIEW_OPENDIALOGS_H
#define QUILLFORM_VIEW_OPENDIALOGS_H

#include "DialogFile.h"
#include "Options.h"
#include "TraceAuditor.h"
#include <memory>
#include <vector>

class QImage;
class QWidget;
class SceneViewer;
class SoMessageDialog;

/// The dialogs on screen, as windows or in viewers of the scene.
class OpenDialogs {
public:
  /// Makes the dialogs of the files; throws a Failure when one of them cannot be opened.
  OpenDialogs(const std::vector<DialogFile>& files, const Options& options);
  ~OpenDialogs();
  OpenDialogs(const OpenDialogs&) = delete;
  OpenDialogs& operator=(const OpenDialogs&) = delete;

  /// Shows everything. Messages are shown one after the other, and are closed when it returns. Returns whether there is
  /// more than messages.
  bool show();

  /// Saves a picture of the first dialog; throws a Failure when it cannot be drawn or written.
  void savePicture(const QString& fileName);

private:
  /// Gives a dialog back: its window while there is a window system, then the node.
  struct Release {
    void operator()(SoTopLevelDialog* dialog) const;
  };

  QWidget* buildWindow(SoTopLevelDialog* dialog) const;
  QImage draw(SoTopLevelDialog* dialog) const;
  static QImage draw(SoMessageDialog* message);

  const Options& m_options;
  TraceAuditor m_trace;
  TabTraceAuditor m_tabTrace;
  std::vector<std::unique_ptr<SoTopLevelDialog, Release>> m_dialogs;
  std::vector<SoMessageDialog*> m_messages;            // owned by the library
  std::vector<std::unique_ptr<SceneViewer>> m_viewers; // show the dialogs, so they go first
};

#endif // QUILLFORM_VIEW_OPENDIALOGS_H
