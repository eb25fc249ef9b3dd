#include <Quillform/auditors/SoMenuRadioButtonsAuditor.h>

SO_TYPED_OBJECT_SOURCE(SoMenuRadioButtonsAuditor, "MenuRadioButtonsAuditor", SoAuditor::getClassTypeId())
