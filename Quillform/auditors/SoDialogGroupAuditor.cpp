#include <Quillform/auditors/SoDialogGroupAuditor.h>

SoDialogGroupAuditor::~SoDialogGroupAuditor() = default;
