#ifndef QUILLFORM_SOMENUCHECKBOXAUDITOR_H
#define QUILLFORM_SOMENUCHECKBOXAUDITOR_H

#include <Quillform/auditors/SoAuditor.h>

class SoMenuCheckBox;

/// Auditor of menu check boxes and their launchers.
class QUILLFORM_API SoMenuCheckBoxAuditor : public SoAuditor {
  SO_TYPED_OBJECT_HEADER(SoMenuCheckBoxAuditor);

public:
  /// Called after the user has operated \a cpt, whose fields hold what it shows.
  virtual void menuCheckBox(SoMenuCheckBox* cpt) = 0;
};

#endif // QUILLFORM_SOMENUCHECKBOXAUDITOR_H
