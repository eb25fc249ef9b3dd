#ifndef QUILLFORM_TESTS_MESSAGEUSER_H
#define QUILLFORM_TESTS_MESSAGEUSER_H

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

/// Somebody who presses the button of every message box that comes up while this lives.
class MessageUser {
public:
  MessageUser()
  {
    QObject::connect(&m_timer, &QTimer::timeout, [this] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box && box->isVisible()) {
        ++closed;
        QTest::mouseClick(box->buttons().first(), Qt::LeftButton);
      }
    });
    m_timer.start(20);
  }

  int closed = 0;

private:
  QTimer m_timer;
};

#endif // QUILLFORM_TESTS_MESSAGEUSER_H
