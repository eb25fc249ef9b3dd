#include <Quillform/auditors/SoMenuFileSelectionAuditor.h>

SO_TYPED_OBJECT_SOURCE(SoMenuFileSelectionAuditor, "MenuFileSelectionAuditor", SoAuditor::getClassTypeId())
