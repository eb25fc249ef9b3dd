#include <Quillform/controls/SoDialogRealSlider.h>

#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/auditors/SoDialogRealSliderAuditor.h>
#include <cmath>
#include <limits>

SO_QUILLFORM_SOURCE(SoDialogRealSlider, "DialogRealSlider")

SoDialogRealSlider::SoDialogRealSlider() : SoDialogSlider(SoValueFormat::REAL, "%.3f")
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogRealSlider);

  SO_QUILLFORM_ADD_FIELD(min, (0.0F));
  SO_QUILLFORM_ADD_FIELD(max, (1.0F));
  SO_QUILLFORM_ADD_FIELD(value, (0.0F));
  format = "%.3f";
  format.setDefault(TRUE);
  SO_KIT_INIT_INSTANCE();
}

SoDialogRealSlider::~SoDialogRealSlider() = default;

void SoDialogRealSlider::addAuditor(SoDialogRealSliderAuditor* auditor)
{
  inherited::addAuditor(auditor);
}

void SoDialogRealSlider::removeAuditor(SoDialogRealSliderAuditor* auditor)
{
  inherited::removeAuditor(auditor);
}

void SoDialogRealSlider::applyDlgCptAuditor()
{
  SoAuditorDispatch::applyOwnAuditors(this, &SoDialogRealSliderAuditor::dialogRealSlider);
}

SoDialogSlider::Range SoDialogRealSlider::getRange() const
{
  return {static_cast<double>(min.getValue()), static_cast<double>(max.getValue()),
          static_cast<double>(value.getValue())};
}

double SoDialogRealSlider::getValueAt(float position) const
{
  // The difference of two limits may be too large for a float.
  const Range range = getRange();
  return static_cast<float>(range.min + (range.max - range.min) * position);
}

std::optional<double> SoDialogRealSlider::convertTyped(double typed) const
{
  const bool fits = std::abs(typed) <= std::numeric_limits<float>::max();
  return fits ? std::optional<double>(static_cast<float>(typed)) : std::nullopt;
}

void SoDialogRealSlider::storeValue(double newValue)
{
  const SoWatchedFields::Pause pause(m_watched, value);
  value = static_cast<float>(newValue);
}

void SoDialogRealSlider::storeLimits(double newMin, double newMax)
{
  const SoWatchedFields::Pause pauseMin(m_watched, min);
  const SoWatchedFields::Pause pauseMax(m_watched, max);
  if (newMin != min.getValue()) {
    min = static_cast<float>(newMin);
  }
  if (newMax != max.getValue()) {
    max = static_cast<float>(newMax);
  }
}

void SoDialogRealSlider::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
  m_watched.watch(min);
  m_watched.watch(max);
  m_watched.watch(value);
}

void SoDialogRealSlider::updateFromSensor(SoSensor* sensor)
{
  const SoField* field = SoWatchedFields::getFired(sensor);
  if (field == &min || field == &max || field == &value) {
    followValue();
  }
  else {
    inherited::updateFromSensor(sensor);
  }
}
