#include "SceneViewer.h"

#include <Inventor/Qt/SoQt.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QScreen>
#include <Quillform/containers/SoTopLevelDialog.h>

DialogViewer::DialogViewer(QWidget* window, DialogScene& scene) : SoQtExaminerViewer(window), m_scene(scene)
{
  setSampleBuffers(DialogScene::samples);
  setDecoration(FALSE);
  setBackgroundColor(DialogScene::background);
  setSceneGraph(scene.getRoot());
  setViewing(FALSE); // the pointer operates the dialog
  saveHomePosition();
}

DialogViewer::~DialogViewer() = default;

void DialogViewer::actualRedraw()
{
  SoQtExaminerViewer::actualRedraw();
  if (!m_hasDrawn) {
    m_hasDrawn = true;
    scheduleRedraw(); // the first frame may have been cut to the size that the area had before it was shown
  }
}

void DialogViewer::sizeChanged(const SbVec2s& size)
{
  SoQtExaminerViewer::sizeChanged(size);
  m_scene.keepFitted(QSize(size[0], size[1]));
}

SceneViewer::SceneViewer(SoTopLevelDialog* dialog, const QSize& size) : m_scene(dialog), m_viewer(&m_window, m_scene)
{
  m_window.setWindowTitle(QString::fromLatin1(dialog->label.getValue().getString()));
  m_window.resize(size.isValid() ? size : m_scene.getNaturalSize().boundedTo(m_window.screen()->availableSize()));
}

void SceneViewer::show()
{
  m_viewer.show();
  SoQt::show(&m_window);
}
