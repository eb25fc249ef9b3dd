#include <Quillform/controls/SoDialogQPushButton.h>

#include <QKeyEvent>
#include <QPushButton>
#include <Quillform/core/SoDialogComponent.h>

namespace {

/// A button that Return presses as well as the space bar.
class Button : public QPushButton {
public:
  using QPushButton::QPushButton;

protected:
  bool event(QEvent* event) override
  {
    // Before it is shown first, a button asks for a place. Its relay gives it one; the requests of many buttons would
    // only wait for each other.
    return event->type() == QEvent::PolishRequest ? QAbstractButton::event(event) : QPushButton::event(event);
  }

  void keyPressEvent(QKeyEvent* event) override
  {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn || isDefault() || autoDefault()) {
      QPushButton::keyPressEvent(event);
    }
    else if (!event->isAutoRepeat()) {
      click();
    }
  }
};

} // namespace

SoDialogQPushButton::SoDialogQPushButton(QWidget* parent, SoDialogComponent* owner)
    : SoDialogQFrame(parent, owner, "SoDialogQPushButton"), m_button(new Button(this))
{
  m_button->setObjectName(nameOf("ButtonWidget"));
  SoQuillform::setWidgetFont(m_button);
  createLabel(m_button);
  connect(m_button, &QPushButton::pressed, this, &SoDialogQPushButton::eventNotify);
}

void SoDialogQPushButton::setButtonLabel(const QString& text)
{
  m_button->setText(text);
  nameControl();
}

void SoDialogQPushButton::buttonWidgetPos(int x, int y, int w, int h)
{
  place(m_button, x, y, w, h);
}

QPushButton* SoDialogQPushButton::getButton() const
{
  return m_button;
}

void SoDialogQPushButton::eventNotify()
{
  notifyOwner(0, 0);
}
