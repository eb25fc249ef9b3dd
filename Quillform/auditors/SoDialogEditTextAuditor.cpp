#include <Quillform/auditors/SoDialogEditTextAuditor.h>

SO_TYPED_OBJECT_SOURCE(SoDialogEditTextAuditor, "DialogEditTextAuditor", SoAuditor::getClassTypeId())
