#ifndef QUILLFORM_SOTOPLEVELAUDITOR_H
#define QUILLFORM_SOTOPLEVELAUDITOR_H

#include <Quillform/auditors/SoDialogAuditor.h>

/// The auditor that a top-level dialog uses while none is registered with it.
/// It adds nothing to SoDialogAuditor: it traces what nobody handled, when asked to.
class QUILLFORM_API SoTopLevelAuditor : public SoDialogAuditor {
public:
  ~SoTopLevelAuditor() override;
};

#endif // QUILLFORM_SOTOPLEVELAUDITOR_H
