#ifndef QUILLFORM_SODIALOGGROUPAUDITOR_H
#define QUILLFORM_SODIALOGGROUPAUDITOR_H

#include <Quillform/auditors/SoDialogAuditor.h>

/// The auditor that a group without a parent uses while none is registered with it.
/// It adds nothing to SoDialogAuditor: it traces what nobody handled, when asked to.
class QUILLFORM_API SoDialogGroupAuditor : public SoDialogAuditor {
public:
  ~SoDialogGroupAuditor() override;
};

#endif // QUILLFORM_SODIALOGGROUPAUDITOR_H
