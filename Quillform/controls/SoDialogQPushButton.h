#ifndef QUILLFORM_SODIALOGQPUSHBUTTON_H
#define QUILLFORM_SODIALOGQPUSHBUTTON_H

#include <Quillform/core/SoDialogQFrame.h>

class QPushButton;

/// The relay of a push button: the button and a label beside it.
class QUILLFORM_API SoDialogQPushButton : public SoDialogQFrame {
  Q_OBJECT

public:
  SoDialogQPushButton(QWidget* parent, SoDialogComponent* owner);

  void setButtonLabel(const QString& text);
  void buttonWidgetPos(int x, int y, int w, int h);
  QPushButton* getButton() const;

public slots:
  /// The button went down.
  void eventNotify();

private:
  QPushButton* m_button;
};

#endif // QUILLFORM_SODIALOGQPUSHBUTTON_H
