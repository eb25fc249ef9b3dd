#include <Quillform/auditors/SoDialogPushButtonAuditor.h>

SO_TYPED_OBJECT_SOURCE(SoDialogPushButtonAuditor, "DialogPushButtonAuditor", SoAuditor::getClassTypeId())
