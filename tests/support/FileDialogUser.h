#ifndef QUILLFORM_TESTS_FILEDIALOGUSER_H
#define QUILLFORM_TESTS_FILEDIALOGUSER_H

#include <QApplication>
#include <QFileDialog>
#include <QTest>
#include <QTimer>
#include <functional>

/// Somebody who operates Qt's own file dialog while something waits for it.
class FileDialogUser {
public:
  FileDialogUser()
  {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  }

  /// Does something in the file dialog as soon as it is open, and then expects it to be closed.
  void then(const std::function<void(QFileDialog*)>& operate)
  {
    auto* timer = new QTimer(&m_timers);
    QObject::connect(timer, &QTimer::timeout, timer, [this, timer, operate] {
      auto* box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      if (box && box->isVisible()) {
        timer->stop();
        ++opened;
        operate(box);
      }
    });
    timer->start(20);
  }

  static void cancel(QFileDialog* box)
  {
    QTest::keyClick(box, Qt::Key_Escape);
  }

  int opened = 0; ///< so many dialogs were open

private:
  QObject m_timers;
};

#endif // QUILLFORM_TESTS_FILEDIALOGUSER_H
