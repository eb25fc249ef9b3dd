#include <Quillform/menus/SoMenuQCheckBox.h>

#include <Quillform/menus/SoMenuCheckBox.h>

SoMenuQCheckBox::SoMenuQCheckBox(QMenu* menu, int /*index*/, int identifier, SoMenuCheckBox* owner)
    : SoMenuQItem(menu, identifier, owner, "SoMenuQCheckBox")
{
  getAction()->setCheckable(true);
}

void SoMenuQCheckBox::setChecked(bool checked)
{
  getAction()->setChecked(checked);
}
