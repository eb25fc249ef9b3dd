#ifndef QUILLFORM_TESTS_MESSAGEUSER_H
#define QUILLFORM_TESTS_MESSAGEUSER_H

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <vector>

/// Somebody who reads every message box that comes up while this lives, and presses its button.
class MessageUser {
public:
  /// What a message box showed.
  struct Box {
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QList<QMessageBox::StandardButton> buttons;
  };

  MessageUser()
  {
    QObject::connect(&m_timer, &QTimer::timeout, [this] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!box || !box->isVisible()) {
        return;
      }
      Box seen{box->windowTitle(), box->text(), box->icon(), {}};
      for (QAbstractButton* button : box->buttons()) {
        seen.buttons.push_back(box->standardButton(button));
      }
      boxes.push_back(seen);
      if (whileOpen) {
        whileOpen();
      }
      QTest::mouseClick(box->buttons().first(), Qt::LeftButton);
    });
    m_timer.start(20);
  }

  std::vector<Box> boxes;
  std::function<void()> whileOpen; ///< called before the button is pressed

private:
  QTimer m_timer;
};

#endif // QUILLFORM_TESTS_MESSAGEUSER_H
