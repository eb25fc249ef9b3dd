#include <Quillform/menus/SoMenuQRadioButtons.h>

#include <Quillform/menus/SoMenuRadioButtons.h>

SoMenuQRadioButtons::SoMenuQRadioButtons(QMenu* menu, int /*index*/, int identifier, SoMenuRadioButtons* owner)
    : SoMenuQItem(menu, identifier, owner, "SoMenuQRadioButtons")
{
  getAction()->setCheckable(true);
}

void SoMenuQRadioButtons::setChecked(bool checked)
{
  getAction()->setChecked(checked);
}

int SoMenuQRadioButtons::index() const
{
  return getIdentifier();
}

int SoMenuQRadioButtons::getEventId() const
{
  return index();
}
