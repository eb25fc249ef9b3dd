#include <Quillform/auditors/SoDialogIntegerSliderAuditor.h>

SO_TYPED_OBJECT_SOURCE(SoDialogIntegerSliderAuditor, "DialogIntegerSliderAuditor", SoAuditor::getClassTypeId())
