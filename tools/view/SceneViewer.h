#ifndef QUILLFORM_VIEW_SCENEVIEWER_H
#define QUILLFORM_VIEW_SCENEVIEWER_H

#include "DialogScene.h"
#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>
#include <QWidget>

/// The drawing area of a SceneViewer.
class DialogViewer : public SoQtExaminerViewer {
public:
  DialogViewer(QWidget* window, DialogScene& scene);
  ~DialogViewer() override;

protected:
  void actualRedraw() override;
  void sizeChanged(const SbVec2s& size) override;

private:
  DialogScene& m_scene;
  bool m_hasDrawn = false;
};

/// A window in which a dialog in the scene is operated.
class SceneViewer {
public:
  /// \a size is invalid for a size of the dialog's own.
  SceneViewer(SoTopLevelDialog* dialog, const QSize& size);

  void show();

private:
  DialogScene m_scene;
  QWidget m_window;
  DialogViewer m_viewer; // fills the window
};

#endif // QUILLFORM_VIEW_SCENEVIEWER_H
