#include <Quillform/auditors/SoMenuCheckBoxAuditor.h>

SO_TYPED_OBJECT_SOURCE(SoMenuCheckBoxAuditor, "MenuCheckBoxAuditor", SoAuditor::getClassTypeId())
