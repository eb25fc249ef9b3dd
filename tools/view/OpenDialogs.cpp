#include "OpenDialogs.h"

#include "Failure.h"
#include "GlContext.h"
#include "MousePointer.h"
#include "QuietQt.h"
#include "ScenePicture.h"
#include "SceneViewer.h"
#include <QApplication>
#include <QImageWriter>
#include <QPixmap>
#include <QTimer>
#include <Quillform/containers/SoMessageDialog.h>
#include <Quillform/containers/SoTopLevelDialog.h>

void OpenDialogs::Release::operator()(SoTopLevelDialog* dialog) const
{
  dialog->destroyWidget();
  dialog->unref();
}

OpenDialogs::OpenDialogs(const std::vector<DialogFile>& files, const Options& options) : m_options(options)
{
  for (const DialogFile& file : files) {
    if (SoMessageDialog* message = file.getMessage()) {
      m_messages.push_back(message);
      continue;
    }
    SoTopLevelDialog* dialog = file.makeDialog();
    dialog->ref();
    m_dialogs.emplace_back(dialog);
    if (options.trace) {
      dialog->addAuditor(&m_trace);
      m_tabTrace.listenTo(dialog);
    }
  }
}

OpenDialogs::~OpenDialogs() = default;

bool OpenDialogs::show()
{
  if (m_options.inScene) {
    const GlContext probe; // a viewer has no words for a display without OpenGL
  }
  for (const auto& dialog : m_dialogs) {
    if (m_options.inScene) {
      m_viewers.push_back(std::make_unique<SceneViewer>(dialog.get(), m_options.size));
      m_viewers.back()->show();
    }
    else {
      buildWindow(dialog.get());
      dialog->show();
    }
  }
  for (SoMessageDialog* message : m_messages) {
    message->show();
  }
  return !m_dialogs.empty();
}

QWidget* OpenDialogs::buildWindow(SoTopLevelDialog* dialog) const
{
  QWidget* window = dialog->buildDialog(nullptr, FALSE);
  if (m_options.size.isValid()) {
    window->resize(m_options.size); // Qt keeps it within the window's limits
  }
  return window;
}

QImage OpenDialogs::draw(SoTopLevelDialog* dialog) const
{
  const MousePointer pointer(dialog, m_options);
  if (m_options.inScene) {
    DialogScene scene(dialog);
    const auto getSize = [this, &scene] {
      return m_options.size.isValid() ? m_options.size : scene.getNaturalSize();
    };
    pointer.useIn(scene, getSize());
    return ScenePicture::draw(scene, getSize());
  }
  QWidget* window = buildWindow(dialog);
  window->show(); // not the dialog's own way, which also raises the window: a platform may be unable to
  QApplication::processEvents();
  pointer.useIn(window);
  return MousePointer::grab(window);
}

QImage OpenDialogs::draw(SoMessageDialog* message)
{
  const QuietQt quiet("The message cannot be shown here; draw it on a display.");
  QImage picture;
  QTimer whenOpen;
  QObject::connect(&whenOpen, &QTimer::timeout, [&picture] {
    if (QWidget* box = QApplication::activeModalWidget()) {
      picture = box->grab().toImage();
      box->close();
    }
  });
  whenOpen.start(0);
  message->show();
  return picture;
}

void OpenDialogs::savePicture(const QString& fileName)
{
  const QImage picture = m_dialogs.empty() ? draw(m_messages.front()) : draw(m_dialogs.front().get());
  if (picture.isNull()) {
    throw Failure(Failure::BAD_FILE, QString("\"%1\" describes an empty window, of which there is no picture; put an "
                                             "element into it, or give a --size.")
                                       .arg(m_options.files.front()));
  }
  QImageWriter writer(fileName);
  if (!writer.write(picture)) {
    throw Failure(Failure::BAD_FILE, QString("\"%1\" cannot be written (%2); name a .png file in a directory that "
                                             "exists and may be written to.")
                                       .arg(fileName, writer.errorString()));
  }
}
