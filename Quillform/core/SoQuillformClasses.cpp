// The one place that knows every element class. A new class is one line in each table it belongs to.

#include <Quillform/core/SoQuillformClasses.h>

#include <Quillform/auditors/SoAuditor.h>
#include <Quillform/containers/SoTopLevelDialog.h>
#include <Quillform/controls/SoDialogLabel.h>
#include <Quillform/controls/SoDialogPushButton.h>
#include <Quillform/core/SoDialogComponent.h>
#include <Quillform/core/SoElementKinds.h>
#include <Quillform/core/SoTopComponent.h>
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
  elementClass<SoQuillform>(),   elementClass<SoTopComponent>(),     elementClass<SoDialogComponent>(),
  elementClass<SoDialogLabel>(), elementClass<SoDialogPushButton>(), elementClass<SoTopLevelDialog>(),
};

/// The order in which a switch of skins reaches the classes, after the text properties.
void (*const skinSwitches[])() = {
  &SoDialogComponent::change3DSkin,
  &SoDialogPushButton::change3DSkin,
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

bool SoElementKinds::isGroup(const SoQuillform* /*element*/)
{
  return false; // no group class is registered yet
}

bool SoElementKinds::showsRawText(const SoQuillform* /*element*/)
{
  return false; // no combo box is registered yet
}

bool SoElementKinds::isSingleLineEdit(const SoQuillform* /*element*/)
{
  return false; // no edit text is registered yet
}

void SoElementKinds::change3DSkins()
{
  for (void (*change3DSkin)() : skinSwitches) {
    change3DSkin();
  }
}
