#ifndef QUILLFORM_SOMENUFILESELECTIONAUDITOR_H
#define QUILLFORM_SOMENUFILESELECTIONAUDITOR_H

#include <Quillform/auditors/SoAuditor.h>

class SoMenuFileSelection;

/// Auditor of file selection entries.
class QUILLFORM_API SoMenuFileSelectionAuditor : public SoAuditor {
  SO_TYPED_OBJECT_HEADER(SoMenuFileSelectionAuditor);

public:
  /// Called after the user has operated \a cpt, whose fields hold what it shows.
  virtual void menuFileSelection(SoMenuFileSelection* cpt) = 0;
};

#endif // QUILLFORM_SOMENUFILESELECTIONAUDITOR_H
