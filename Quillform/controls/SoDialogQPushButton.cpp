#include <Quillform/controls/SoDialogQPushButton.h>

#include <QPushButton>
#include <Quillform/core/SoDialogComponent.h>

SoDialogQPushButton::SoDialogQPushButton(QWidget* parent, SoDialogComponent* owner)
    : SoDialogQFrame(parent, owner, "SoDialogQPushButton"), m_button(new QPushButton(this))
{
  m_button->setObjectName(nameOf("ButtonWidget"));
  SoQuillform::setWidgetFont(m_button);
  createLabel();
  connect(m_button, &QPushButton::pressed, this, &SoDialogQPushButton::eventNotify);
}

void SoDialogQPushButton::setButtonLabel(const QString& text)
{
  m_button->setText(text);
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
