#include <Quillform/platform/SoShiftTabFilter.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

void SoShiftTabFilter::install()
{
  static QPointer<SoShiftTabFilter> installed; // goes with the application object
  QCoreApplication* application = QCoreApplication::instance();
  if (!installed && application) {
    installed = new SoShiftTabFilter(application);
    application->installEventFilter(installed);
  }
}

bool SoShiftTabFilter::eventFilter(QObject* watched, QEvent* event)
{
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
  if (!isKey || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Backtab ||
      !(watched->inherits("QOpenGLWidget") || watched->inherits("QGLWidget"))) {
    return false;
  }
  const auto* key = static_cast<QKeyEvent*>(event);
  QKeyEvent known(key->type(), Qt::Key_Tab, key->modifiers() | Qt::ShiftModifier, key->text(), key->isAutoRepeat());
  QCoreApplication::sendEvent(watched, &known);
  event->setAccepted(known.isAccepted());
  return true;
}
