#include <Quillform/auditors/SoAuditorDispatch.h>

#include <Inventor/errors/SoDebugError.h>
#include <Quillform/auditors/SoDialogAuditor.h>
#include <Quillform/controls/SoDialogCheckBox.h>
#include <Quillform/controls/SoDialogComboBox.h>
#include <Quillform/controls/SoDialogEditText.h>
#include <Quillform/controls/SoDialogIntegerSlider.h>
#include <Quillform/controls/SoDialogPushButton.h>
#include <Quillform/controls/SoDialogRadioButtons.h>
#include <Quillform/controls/SoDialogRealSlider.h>
#include <Quillform/core/SoChildElements.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/menus/SoMenuCheckBox.h>
#include <Quillform/menus/SoMenuFileSelection.h>
#include <Quillform/menus/SoMenuRadioButtons.h>
#include <vector>

namespace {

/// One kind of element that containers report, with the operation that hears of it.
struct Report {
  SoType (*type)();
  void (*call)(SoDialogAuditor* auditor, SoQuillform* element);
  SoAuditorDispatch::Scope scope; ///< the containers that report it
};

template <class Element, void (SoDialogAuditor::*operation)(Element*)>
constexpr Report report(SoAuditorDispatch::Scope scope)
{
  return {&Element::getClassTypeId,
          [](SoDialogAuditor* auditor, SoQuillform* element) { (auditor->*operation)(static_cast<Element*>(element)); },
          scope};
}

/// A file selection is a kind of command, and is reported as what it is only.
void callPushButton(SoDialogAuditor* auditor, SoQuillform* element)
{
  if (!element->isOfType(SoMenuFileSelection::getClassTypeId())) {
    auditor->menuPushButton(static_cast<SoMenuPushButton*>(element));
  }
}

/// In the order of the tests.
const Report reports[] = {
  report<SoDialogPushButton, &SoDialogAuditor::dialogPushButton>(SoAuditorDispatch::CONTROLS),
  report<SoDialogCheckBox, &SoDialogAuditor::dialogCheckBox>(SoAuditorDispatch::CONTROLS),
  report<SoDialogComboBox, &SoDialogAuditor::dialogComboBox>(SoAuditorDispatch::CONTROLS),
  report<SoDialogEditText, &SoDialogAuditor::dialogEditText>(SoAuditorDispatch::CONTROLS),
  report<SoDialogRadioButtons, &SoDialogAuditor::dialogRadioButtons>(SoAuditorDispatch::CONTROLS),
  report<SoDialogIntegerSlider, &SoDialogAuditor::dialogIntegerSlider>(SoAuditorDispatch::CONTROLS),
  report<SoDialogRealSlider, &SoDialogAuditor::dialogRealSlider>(SoAuditorDispatch::CONTROLS),
  report<SoMenuCheckBox, &SoDialogAuditor::menuCheckBox>(SoAuditorDispatch::WITH_MENUS),
  report<SoMenuRadioButtons, &SoDialogAuditor::menuRadioButtons>(SoAuditorDispatch::WITH_MENUS),
  report<SoMenuFileSelection, &SoDialogAuditor::menuFileSelection>(SoAuditorDispatch::WITH_MENUS),
  {&SoMenuPushButton::getClassTypeId, callPushButton, SoAuditorDispatch::WITH_MENUS},
};

void callMatching(SoDialogAuditor* auditor, SoQuillform* caller, SoAuditorDispatch::Scope scope)
{
  for (const Report& entry : reports) {
    if ((entry.scope == SoAuditorDispatch::CONTROLS || scope == SoAuditorDispatch::WITH_MENUS) &&
        caller->isOfType(entry.type())) {
      entry.call(auditor, caller);
    }
  }
}

bool isListed(const SoQuillform* element, const SoAuditor* auditor)
{
  for (int i = 0; i < element->getAuditorListLength(); i++) {
    if (element->getAuditor(i) == auditor) {
      return true;
    }
  }
  return false;
}

} // namespace

void SoAuditorDispatch::handOn(SoQuillform* container, SoQuillform* caller)
{
  const SoEventScope scope(caller, SoEventScope::getAction());
  if (SoQuillform* parent = container->getParent()) {
    const SoEventScope parentScope(parent, SoEventScope::getAction());
    parent->applyAuditor(caller);
  }
}

void SoAuditorDispatch::forEachAuditor(SoQuillform* element, const std::function<bool(SoAuditor*)>& call)
{
  // An auditor may change this list, delete itself or others, and release the element.
  const SoEventScope scope(element, SoEventScope::getAction());
  std::vector<SoAuditor*> auditors;
  for (int i = 0; i < element->getAuditorListLength(); i++) {
    auditors.push_back(element->getAuditor(i));
  }
  for (SoAuditor* auditor : auditors) {
    if (isListed(element, auditor) && !call(auditor)) {
      SoDebugError::post("SoAuditorDispatch::forEachAuditor",
                         "An auditor of the wrong kind is registered with a %s (auditorID \"%s\") and is passed over.",
                         element->getTypeId().getName().getString(), element->auditorID.getValue().getString());
    }
  }
}

void SoAuditorDispatch::applyDefaultAuditor(SoDialogAuditor* defaultAuditor, SoQuillform* caller, Scope scope)
{
  const SoEventScope callerScope(caller, SoEventScope::getAction());
  callMatching(defaultAuditor, caller, scope);
}

void SoAuditorDispatch::applyDialogAuditors(SoQuillform* container, SoDialogAuditor* defaultAuditor,
                                            SoQuillform* caller, Scope scope)
{
  const SoEventScope callerScope(caller, SoEventScope::getAction());
  if (container->getAuditorListLength() == 0) {
    if (defaultAuditor) {
      applyDefaultAuditor(defaultAuditor, caller, scope);
    }
    return;
  }
  forEachAuditor(container, [caller, scope](SoAuditor* auditor) {
    auto* typed = dynamic_cast<SoDialogAuditor*>(auditor);
    if (typed) {
      callMatching(typed, caller, scope);
    }
    return typed != nullptr;
  });
}

void SoAuditorDispatch::applyToChildren(SoQuillform* container)
{
  const SoEventScope scope(container, SoEventScope::getAction());
  const SoChildElements* children = container->getChildElements();
  // An auditor may add and remove elements; those that stay are still all reported, once.
  std::vector<SoQuillform*> elements;
  for (int i = 0; i < children->getNum(); i++) {
    elements.push_back(children->get(i));
    elements.back()->ref();
  }
  for (SoQuillform* element : elements) {
    if (children->find(element) >= 0) {
      element->applyAuditors();
    }
    element->unref();
  }
}

SoQuillform* SoAuditorDispatch::searchForAuditorId(SoQuillform* container, const SbString& id)
{
  const SoChildElements* children = container->getChildElements();
  for (int i = 0; children && i < children->getNum(); i++) {
    SoQuillform* child = children->get(i);
    SoQuillform* found = child->auditorID.getValue() == id ? child : searchForAuditorId(child, id);
    if (found) {
      return found;
    }
  }
  return nullptr;
}
