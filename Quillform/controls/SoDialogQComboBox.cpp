#include <Quillform/controls/SoDialogQComboBox.h>

#include <QComboBox>
#include <QListView>
#include <Quillform/core/SoDialogComponent.h>

namespace {

/// Makes its list when it is opened for the first time: the list takes longer than the box, and most are never opened.
class ComboBox : public QComboBox {
public:
  using QComboBox::QComboBox;

  void showPopup() override
  {
    // The relay gives the box its size, and the entries are alike: measuring each of ten thousand would show.
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    if (auto* list = qobject_cast<QListView*>(view())) {
      list->setUniformItemSizes(true);
    }
    QComboBox::showPopup();
  }
};

} // namespace

SoDialogQComboBox::SoDialogQComboBox(QWidget* parent, SoDialogComponent* owner)
    : SoDialogQFrame(parent, owner, "SoDialogQComboBox"), m_box(new ComboBox(this))
{
  m_box->setObjectName(nameOf("ComboBoxWidget"));
  m_box->setEditable(false);
  SoQuillform::setWidgetFont(m_box);
  createLabel(m_box);
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
