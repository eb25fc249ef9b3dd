#include <Quillform/menus/SoMenuQPushButton.h>

#include <Quillform/menus/SoMenuPushButton.h>

SoMenuQPushButton::SoMenuQPushButton(QMenu* menu, int /*index*/, int identifier, SoMenuPushButton* owner)
    : SoMenuQItem(menu, identifier, owner, "SoMenuQPushButton")
{
}
