#include <Quillform/auditors/SoDialogRealSliderAuditor.h>

SO_TYPED_OBJECT_SOURCE(SoDialogRealSliderAuditor, "DialogRealSliderAuditor", SoAuditor::getClassTypeId())
