#include <Quillform/auditors/SoTopLevelAuditor.h>

SoTopLevelAuditor::~SoTopLevelAuditor() = default;
