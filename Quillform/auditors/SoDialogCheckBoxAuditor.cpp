#include <Quillform/auditors/SoDialogCheckBoxAuditor.h>

SO_TYPED_OBJECT_SOURCE(SoDialogCheckBoxAuditor, "DialogCheckBoxAuditor", SoAuditor::getClassTypeId())
