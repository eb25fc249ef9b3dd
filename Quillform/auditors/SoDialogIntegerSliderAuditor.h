#ifndef QUILLFORM_SODIALOGINTEGERSLIDERAUDITOR_H
#define QUILLFORM_SODIALOGINTEGERSLIDERAUDITOR_H

#include <Quillform/auditors/SoAuditor.h>

class SoDialogIntegerSlider;

/// Auditor of integer sliders.
class QUILLFORM_API SoDialogIntegerSliderAuditor : public SoAuditor {
  SO_TYPED_OBJECT_HEADER(SoDialogIntegerSliderAuditor);

public:
  /// Called after the user has operated \a cpt, whose fields hold what it shows.
  virtual void dialogIntegerSlider(SoDialogIntegerSlider* cpt) = 0;
};

#endif // QUILLFORM_SODIALOGINTEGERSLIDERAUDITOR_H
