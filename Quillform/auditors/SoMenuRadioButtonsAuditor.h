#ifndef QUILLFORM_SOMENURADIOBUTTONSAUDITOR_H
#define QUILLFORM_SOMENURADIOBUTTONSAUDITOR_H

#include <Quillform/auditors/SoAuditor.h>

class SoMenuRadioButtons;

/// Auditor of menu radio buttons.
class QUILLFORM_API SoMenuRadioButtonsAuditor : public SoAuditor {
  SO_TYPED_OBJECT_HEADER(SoMenuRadioButtonsAuditor);

public:
  /// Called after the user has operated \a cpt, whose fields hold what it shows.
  virtual void menuRadioButtons(SoMenuRadioButtons* cpt) = 0;
};

#endif // QUILLFORM_SOMENURADIOBUTTONSAUDITOR_H
