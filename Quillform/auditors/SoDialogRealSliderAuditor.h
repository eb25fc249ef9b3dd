#ifndef QUILLFORM_SODIALOGREALSLIDERAUDITOR_H
#define QUILLFORM_SODIALOGREALSLIDERAUDITOR_H

#include <Quillform/auditors/SoAuditor.h>

class SoDialogRealSlider;

/// Auditor of real sliders.
class QUILLFORM_API SoDialogRealSliderAuditor : public SoAuditor {
  SO_TYPED_OBJECT_HEADER(SoDialogRealSliderAuditor);

public:
  /// Called after the user has operated \a cpt, whose fields hold what it shows.
  virtual void dialogRealSlider(SoDialogRealSlider* cpt) = 0;
};

#endif // QUILLFORM_SODIALOGREALSLIDERAUDITOR_H
