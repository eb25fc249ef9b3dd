#ifndef QUILLFORM_SODIALOGINTEGERSLIDER_H
#define QUILLFORM_SODIALOGINTEGERSLIDER_H

#include <Inventor/fields/SoSFInt32.h>
#include <Quillform/controls/SoDialogSlider.h>

class SoDialogIntegerSliderAuditor;

/// A slider whose value is an integer.
///
/// \code
/// DialogIntegerSlider { auditorID "steps" label "Steps:" min 1 max 50 value 10 }
/// \endcode
///
/// Its default `format` is "%d". File format, after the fields of SoDialogSlider, with the defaults:
/// \code
/// DialogIntegerSlider {
///   min    0   # SoSFInt32: value at the left end of the bar
///   max    1   # SoSFInt32: value at the right end of the bar
///   value  0   # SoSFInt32: the value
/// }
/// \endcode
class QUILLFORM_API SoDialogIntegerSlider : public SoDialogSlider {
  typedef SoDialogSlider inherited;
  SO_QUILLFORM_HEADER(SoDialogIntegerSlider);

public:
  SoSFInt32 min;   ///< value at the left end of the bar; default 0
  SoSFInt32 max;   ///< value at the right end of the bar; default 1
  SoSFInt32 value; ///< the value; default 0

  SoDialogIntegerSlider();

  using SoQuillform::addAuditor;
  using SoQuillform::removeAuditor;
  void addAuditor(SoDialogIntegerSliderAuditor* auditor);    ///< adds an auditor at the end, unless it is in the list
  void removeAuditor(SoDialogIntegerSliderAuditor* auditor); ///< takes an auditor out of the list; it stays alive
  void applyDlgCptAuditor() override;

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void updateFromSensor(SoSensor* sensor) override;

protected:
  ~SoDialogIntegerSlider() override;

  Range getRange() const override;
  double getValueAt(float position) const override;
  std::optional<double> convertTyped(double typed) const override;
  void storeValue(double newValue) override;
  void storeLimits(double newMin, double newMax) override;
  float getSingleStep() const override;
};

#endif // QUILLFORM_SODIALOGINTEGERSLIDER_H
