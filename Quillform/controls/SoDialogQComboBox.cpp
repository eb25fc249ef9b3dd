#include <Quillform/controls/SoDialogQComboBox.h>

#include <QComboBox>
#include <QListView>
#include <Quillform/core/SoDialogComponent.h>

SoDialogQComboBox::SoDialogQComboBox(QWidget* parent, SoDialogComponent* owner)
    : SoDialogQFrame(parent, owner, "SoDialogQComboBox"), m_box(new QComboBox(this))
{
  m_box->setObjectName(nameOf("ComboBoxWidget"));
  m_box->setEditable(false);
  SoQuillform::setWidgetFont(m_box);
  // The relay gives the box its size, and the entries are alike: measuring each of ten thousand would show.
  m_box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  if (auto* list = qobject_cast<QListView*>(m_box->view())) {
    list->setUniformItemSizes(true);
  }
  createLabel();
  connect(m_box, QOverload<int>::of(&QComboBox::activated), this, &SoDialogQComboBox::eventNotify);
}

void SoDialogQComboBox::clear()
{
  m_box->clear();
}

int SoDialogQComboBox::count() const
{
  return m_box->count();
}

QString SoDialogQComboBox::getItem(int index) const
{
  return m_box->itemText(index);
}

void SoDialogQComboBox::insertItem(const QString& text, int index)
{
  m_box->insertItem(index < 0 ? m_box->count() : index, QIcon(), text, QVariant());
}

void SoDialogQComboBox::setCurrentItem(int index)
{
  m_box->setCurrentIndex(index);
}

void SoDialogQComboBox::comboBoxWidgetPos(int x, int y, int w, int h)
{
  place(m_box, x, y, w, h);
}

void SoDialogQComboBox::eventNotify(int index)
{
  notifyOwner(static_cast<unsigned int>(index), 0);
}
