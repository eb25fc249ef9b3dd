#include <Quillform/auditors/SoDialogChoiceAuditor.h>

SO_TYPED_OBJECT_SOURCE(SoDialogChoiceAuditor, "DialogChoiceAuditor", SoAuditor::getClassTypeId())
