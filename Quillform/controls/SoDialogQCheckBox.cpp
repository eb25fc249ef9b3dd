#include <Quillform/controls/SoDialogQCheckBox.h>

#include <QCheckBox>
#include <Quillform/core/SoDialogComponent.h>

SoDialogQCheckBox::SoDialogQCheckBox(QWidget* parent, SoDialogComponent* owner)
    : SoDialogQFrame(parent, owner, "SoDialogQCheckBox"), m_box(new QCheckBox(this))
{
  m_box->setObjectName(nameOf("CheckBoxWidget"));
  SoQuillform::setWidgetFont(m_box);
  createLabel(m_box);
  connect(m_box, &QCheckBox::stateChanged, this, &SoDialogQCheckBox::eventNotify);
}

void SoDialogQCheckBox::setChecked(bool checked)
{
  disconnect(m_box, &QCheckBox::stateChanged, this, &SoDialogQCheckBox::eventNotify);
  // Not setChecked: inside a click that would leave the box's published state behind, and the next click would
  // be swallowed.
  m_box->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
  connect(m_box, &QCheckBox::stateChanged, this, &SoDialogQCheckBox::eventNotify);
}

void SoDialogQCheckBox::setCheckLabel(const QString& text)
{
  m_box->setText(text);
  nameControl();
}

void SoDialogQCheckBox::checkWidgetPos(int x, int y, int w, int h)
{
  place(m_box, x, y, w, h);
}

void SoDialogQCheckBox::eventNotify(int state)
{
  notifyOwner(state != Qt::Unchecked ? 1 : 0, 0);
}
