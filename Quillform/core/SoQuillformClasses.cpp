// The one place that knows every element class. A new class is one line in each table it belongs to.

#include <Quillform/core/SoQuillformClasses.h>

#include <Quillform/auditors/SoAuditor.h>
#include <Quillform/containers/SoColumnDialog.h>
#include <Quillform/containers/SoMessageDialog.h>
#include <Quillform/containers/SoRowDialog.h>
#include <Quillform/containers/SoTabDialog.h>
#include <Quillform/containers/SoTopLevelDialog.h>
#include <Quillform/controls/SoDialogCheckBox.h>
#include <Quillform/controls/SoDialogCheckBoxLauncher.h>
#include <Quillform/controls/SoDialogChoice.h>
#include <Quillform/controls/SoDialogComboBox.h>
#include <Quillform/controls/SoDialogCustom.h>
#include <Quillform/controls/SoDialogEditText.h>
#include <Quillform/controls/SoDialogIntegerSlider.h>
#include <Quillform/controls/SoDialogLabel.h>
#include <Quillform/controls/SoDialogPushButton.h>
#include <Quillform/controls/SoDialogPushButtonLauncher.h>
#include <Quillform/controls/SoDialogRadioButtons.h>
#include <Quillform/controls/SoDialogRealSlider.h>
#include <Quillform/controls/SoDialogSeparator.h>
#include <Quillform/core/SoDialogComponent.h>
#include <Quillform/core/SoElementKinds.h>
#include <Quillform/core/SoTopComponent.h>
#include <Quillform/menus/SoMenuBar.h>
#include <Quillform/menus/SoMenuCheckBox.h>
#include <Quillform/menus/SoMenuCheckBoxLauncher.h>
#include <Quillform/menus/SoMenuFileSelection.h>
#include <Quillform/menus/SoMenuItem.h>
#include <Quillform/menus/SoMenuPopup.h>
#include <Quillform/menus/SoMenuPushButton.h>
#include <Quillform/menus/SoMenuPushButtonLauncher.h>
#include <Quillform/menus/SoMenuRadioButtons.h>
#include <Quillform/menus/SoMenuSeparator.h>
#include <iterator>

namespace {

struct ElementClass {
  void (*initClass)();
  void (*exitClass)();
  SoType (*getType)();
};

template <class Element>
constexpr ElementClass elementClass()
{
  return {&Element::initClass, &Element::exitClass, &Element::getClassTypeId};
}

/// Registered forwards, unregistered backwards.
const ElementClass classes[] = {
  elementClass<SoQuillform>(),
  elementClass<SoMenuItem>(),
  elementClass<SoMenuCheckBox>(),
  elementClass<SoMenuCheckBoxLauncher>(),
  elementClass<SoMenuPopup>(),
  elementClass<SoMenuPushButton>(),
  elementClass<SoMenuFileSelection>(),
  elementClass<SoMenuPushButtonLauncher>(),
  elementClass<SoMenuRadioButtons>(),
  elementClass<SoMenuSeparator>(),
  elementClass<SoTopComponent>(),
  elementClass<SoDialogComponent>(),
  elementClass<SoDialogCheckBox>(),
  elementClass<SoDialogCheckBoxLauncher>(),
  elementClass<SoDialogChoice>(),
  elementClass<SoDialogComboBox>(),
  elementClass<SoDialogRadioButtons>(),
  elementClass<SoDialogCustom>(),
  elementClass<SoDialogEditText>(),
  elementClass<SoDialogGroup>(),
  elementClass<SoColumnDialog>(),
  elementClass<SoRowDialog>(),
  elementClass<SoTabDialog>(),
  elementClass<SoDialogLabel>(),
  elementClass<SoDialogPushButton>(),
  elementClass<SoDialogPushButtonLauncher>(),
  elementClass<SoDialogSeparator>(),
  elementClass<SoDialogSlider>(),
  elementClass<SoDialogIntegerSlider>(),
  elementClass<SoDialogRealSlider>(),
  elementClass<SoMenuBar>(),
  elementClass<SoTopLevelDialog>(),
  elementClass<SoMessageDialog>(),
};

/// The order in which a switch of skins reaches the classes, after the text properties.
void (*const skinSwitches[])() = {
  &SoMenuItem::change3DSkin,         &SoMenuCheckBox::change3DSkin,
  &SoMenuPopup::change3DSkin,        &SoMenuPushButton::change3DSkin,
  &SoMenuRadioButtons::change3DSkin, &SoMenuSeparator::change3DSkin,
  &SoDialogComponent::change3DSkin,  &SoDialogCheckBox::change3DSkin,
  &SoDialogComboBox::change3DSkin,   &SoDialogRadioButtons::change3DSkin,
  &SoDialogEditText::change3DSkin,   &SoTabDialog::change3DSkin,
  &SoDialogPushButton::change3DSkin, &SoDialogSeparator::change3DSkin,
  &SoDialogSlider::change3DSkin,     &SoMenuBar::change3DSkin,
  &SoTopLevelDialog::change3DSkin,
};

} // namespace

std::vector<SoType> SoQuillformClasses::getTypes()
{
  std::vector<SoType> types;
  for (const ElementClass& entry : classes) {
    if (entry.getType() != SoType::badType()) {
      types.push_back(entry.getType());
    }
  }
  return types;
}

void SoElementKinds::initClasses()
{
  for (const ElementClass& entry : classes) {
    entry.initClass();
  }
  SoAuditor::initClasses();
}

void SoElementKinds::exitClasses()
{
  SoAuditor::exitClasses();
  for (auto entry = std::rbegin(classes); entry != std::rend(classes); ++entry) {
    entry->exitClass();
  }
}

bool SoElementKinds::isTopLevelDialog(const SoQuillform* element)
{
  return dynamic_cast<const SoTopLevelDialog*>(element) != nullptr;
}

bool SoElementKinds::isGroup(const SoQuillform* element)
{
  return dynamic_cast<const SoDialogGroup*>(element) != nullptr;
}

bool SoElementKinds::showsRawText(const SoQuillform* element)
{
  return element->isOfType(SoDialogComboBox::getClassTypeId());
}

bool SoElementKinds::isSingleLineEdit(const SoQuillform* element)
{
  return element->isOfType(SoDialogEditText::getClassTypeId()) &&
         !static_cast<const SoDialogEditText*>(element)->multiLine.getValue();
}

void SoElementKinds::change3DSkins()
{
  for (void (*change3DSkin)() : skinSwitches) {
    change3DSkin();
  }
}
