#ifndef QUILLFORM_VIEW_SCENEVIEWER_H
#define QUILLFORM_VIEW_SCENEVIEWER_H

#include "DialogScene.h"
#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>
#include <QWidget>

/// A window in which a dialog in the scene is operated.
class SceneViewer {
public:
  /// \a size is invalid for a size of the dialog's own.
  SceneViewer(SoTopLevelDialog* dialog, const QSize& size);

  void show();

private:
  DialogScene m_scene;
  QWidget m_window;
  SoQtExaminerViewer m_viewer; // inside the window
};

#endif // QUILLFORM_VIEW_SCENEVIEWER_H
