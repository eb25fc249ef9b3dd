#include "SceneViewer.h"

#include <Inventor/Qt/SoQt.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QScreen>
#include <Quillform/containers/SoTopLevelDialog.h>

namespace {

QSize getDefaultSize(const DialogScene& scene, const QWidget& window)
{
  const QSize natural = scene.getNaturalSize();
  return natural.boundedTo(window.screen()->availableSize());
}

} // namespace

SceneViewer::SceneViewer(SoTopLevelDialog* dialog, const QSize& size) : m_scene(dialog), m_viewer(&m_window)
{
  // Before it is shown: the viewer draws only the area that it starts with.
  m_window.resize(size.isValid() ? size : getDefaultSize(m_scene, m_window));
  m_window.setWindowTitle(QString::fromLatin1(dialog->label.getValue().getString()));
  m_scene.fit(m_window.size());
  m_viewer.setSize(SbVec2s(static_cast<short>(m_window.width()), static_cast<short>(m_window.height())));
  m_viewer.setSampleBuffers(8);
  m_viewer.setDecoration(FALSE);
  m_viewer.setBackgroundColor(DialogScene::background);
  m_viewer.setSceneGraph(m_scene.getRoot());
  m_viewer.setViewing(FALSE); // the pointer operates the dialog
  m_viewer.saveHomePosition();
}

void SceneViewer::show()
{
  m_viewer.show();
  SoQt::show(&m_window);
}
