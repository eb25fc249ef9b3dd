#include <Quillform/controls/SoDialogQRadioButtons.h>

#include <QButtonGroup>
#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>
#include <Quillform/core/SoDialogComponent.h>

namespace {

/// Keeps a "&" from marking a mnemonic letter, and so from getting lost.
QString withoutMnemonics(QString text)
{
  return text.replace('&', "&&");
}

} // namespace

SoDialogQRadioButtons::SoDialogQRadioButtons(QWidget* parent, SoDialogComponent* owner)
    : SoDialogQFrame(parent, owner, "SoDialogQRadioButtons"), m_group(new QButtonGroup(this)),
      m_box(new QGroupBox(this)), m_layout(new QVBoxLayout(m_box))
{
  setControl(m_box);
  m_box->setObjectName(nameOf("ButtonGroupWidget"));
  SoQuillform::setWidgetFont(m_box);
  // The smallest height of the component leaves 20 pixels a button and nothing between them.
  m_layout->setContentsMargins(0, 0, 0, 0);
  m_layout->setSpacing(0);
  connect(m_group, &QButtonGroup::idClicked, this, &SoDialogQRadioButtons::eventNotify);
}

QRadioButton* SoDialogQRadioButtons::addButton(int index)
{
  auto* button = new QRadioButton(m_box);
  button->setObjectName(nameOf("RadioButtonWidget"));
  SoQuillform::setWidgetFont(button);
  button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  m_layout->insertWidget(index, button);
  m_group->addButton(button, index);
  return button;
}

void SoDialogQRadioButtons::removeButton(QRadioButton* button)
{
  m_group->removeButton(button);
  m_layout->removeWidget(button);
  button->hide();
  button->setParent(nullptr);
  button->deleteLater();
}

void SoDialogQRadioButtons::setButton(int id)
{
  if (QAbstractButton* button = m_group->button(id)) {
    button->setChecked(true);
  }
}

void SoDialogQRadioButtons::setText(QRadioButton* button, const QString& text)
{
  button->setText(withoutMnemonics(text));
}

void SoDialogQRadioButtons::setTitle(const QString& title)
{
  m_box->setTitle(title);
}

void SoDialogQRadioButtons::setAlignment(Qt::Alignment alignment)
{
  m_box->setAlignment(static_cast<int>(alignment));
}

void SoDialogQRadioButtons::labelWidgetPos(int x, int y, int w, int h)
{
  place(m_box, x, y, w, h);
}

void SoDialogQRadioButtons::eventNotify(int id)
{
  notifyOwner(static_cast<unsigned int>(id), 0);
}
