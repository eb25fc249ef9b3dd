#include <Quillform/auditors/SoAuditor.h>

#include <Quillform/auditors/SoDialogAuditor.h>
#include <Quillform/auditors/SoDialogCheckBoxAuditor.h>
#include <Quillform/auditors/SoDialogChoiceAuditor.h>
#include <Quillform/auditors/SoDialogEditTextAuditor.h>
#include <Quillform/auditors/SoDialogIntegerSliderAuditor.h>
#include <Quillform/auditors/SoDialogPushButtonAuditor.h>
#include <Quillform/auditors/SoDialogRealSliderAuditor.h>
#include <Quillform/auditors/SoMenuCheckBoxAuditor.h>
#include <Quillform/auditors/SoMenuFileSelectionAuditor.h>
#include <Quillform/auditors/SoMenuPushButtonAuditor.h>
#include <Quillform/auditors/SoMenuRadioButtonsAuditor.h>
#include <Quillform/core/SoQuillform.h>
#include <iterator>

SO_TYPED_OBJECT_SOURCE(SoAuditor, "Auditor", SoType::badType())

namespace {

struct AuditorClass {
  void (*initClass)();
  void (*exitClass)();
};

template <class Auditor>
constexpr AuditorClass auditorClass()
{
  return {&Auditor::initClass, &Auditor::exitClass};
}

/// Registered forwards, unregistered backwards. SoTabDialogAuditor stays out: this is meant.
const AuditorClass classes[] = {
  auditorClass<SoAuditor>(),
  auditorClass<SoDialogAuditor>(),
  auditorClass<SoDialogPushButtonAuditor>(),
  auditorClass<SoDialogCheckBoxAuditor>(),
  auditorClass<SoDialogChoiceAuditor>(),
  auditorClass<SoDialogEditTextAuditor>(),
  auditorClass<SoDialogIntegerSliderAuditor>(),
  auditorClass<SoDialogRealSliderAuditor>(),
  auditorClass<SoMenuCheckBoxAuditor>(),
  auditorClass<SoMenuFileSelectionAuditor>(),
  auditorClass<SoMenuPushButtonAuditor>(),
  auditorClass<SoMenuRadioButtonsAuditor>(),
};

} // namespace

SoAuditor::~SoAuditor()
{
  SoQuillform::forgetAuditor(this);
}

void SoAuditor::initClasses()
{
  for (const AuditorClass& entry : classes) {
    entry.initClass();
  }
}

void SoAuditor::exitClasses()
{
  for (auto entry = std::rbegin(classes); entry != std::rend(classes); ++entry) {
    entry->exitClass();
  }
}
