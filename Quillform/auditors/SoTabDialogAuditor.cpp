#include <Quillform/auditors/SoTabDialogAuditor.h>

SO_TYPED_OBJECT_SOURCE(SoTabDialogAuditor, "TabDialogAuditor", SoAuditor::getClassTypeId())
