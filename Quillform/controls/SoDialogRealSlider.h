#ifndef QUILLFORM_SODIALOGREALSLIDER_H
#define QUILLFORM_SODIALOGREALSLIDER_H

#include <Inventor/fields/SoSFFloat.h>
#include <Quillform/controls/SoDialogSlider.h>

class SoDialogRealSliderAuditor;

/// A slider whose value is a floating-point number.
///
/// \code
/// DialogRealSlider { auditorID "opacity" label "Opacity:" format "%.2f" value 0.5 }
/// \endcode
///
/// Its default `format` is "%.3f". File format, after the fields of SoDialogSlider, with the defaults:
/// \code
/// DialogRealSlider {
///   min    0.0   # SoSFFloat: value at the left end of the bar
///   max    1.0   # SoSFFloat: value at the right end of the bar
///   value  0.0   # SoSFFloat: the value
/// }
/// \endcode
class QUILLFORM_API SoDialogRealSlider : public SoDialogSlider {
  typedef SoDialogSlider inherited;
  SO_QUILLFORM_HEADER(SoDialogRealSlider);

public:
  SoSFFloat min;   ///< value at the left end of the bar; default 0.0
  SoSFFloat max;   ///< value at the right end of the bar; default 1.0
  SoSFFloat value; ///< the value; default 0.0

  SoDialogRealSlider();

  using SoQuillform::addAuditor;
  using SoQuillform::removeAuditor;
  void addAuditor(SoDialogRealSliderAuditor* auditor);    ///< adds an auditor at the end, unless it is in the list
  void removeAuditor(SoDialogRealSliderAuditor* auditor); ///< takes an auditor out of the list; it stays alive
  void applyDlgCptAuditor() override;

  void buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget) override;
  void updateFromSensor(SoSensor* sensor) override;

protected:
  ~SoDialogRealSlider() override;

  Range getRange() const override;
  double getValueAt(float position) const override;
  std::optional<double> convertTyped(double typed) const override;
  void storeValue(double newValue) override;
  void storeLimits(double newMin, double newMax) override;
};

#endif // QUILLFORM_SODIALOGREALSLIDER_H
