#include <Quillform/auditors/SoMenuPushButtonAuditor.h>

SO_TYPED_OBJECT_SOURCE(SoMenuPushButtonAuditor, "MenuPushButtonAuditor", SoAuditor::getClassTypeId())
