#include <Quillform/controls/SoDialogIntegerSlider.h>

#include <Quillform/auditors/SoAuditorDispatch.h>
#include <Quillform/auditors/SoDialogIntegerSliderAuditor.h>
#include <algorithm>
#include <cmath>
#include <limits>

SO_QUILLFORM_SOURCE(SoDialogIntegerSlider, "DialogIntegerSlider")

namespace {

/// The whole number in \a number, within what the fields can hold.
double toInteger(double number)
{
  typedef std::numeric_limits<int32_t> Limits;
  return std::clamp<double>(std::trunc(number), Limits::min(), Limits::max());
}

} // namespace

SoDialogIntegerSlider::SoDialogIntegerSlider() : SoDialogSlider(SoValueFormat::INTEGER, "%d")
{
  SO_QUILLFORM_CONSTRUCTOR(SoDialogIntegerSlider);

  SO_QUILLFORM_ADD_FIELD(min, (0));
  SO_QUILLFORM_ADD_FIELD(max, (1));
  SO_QUILLFORM_ADD_FIELD(value, (0));
  format = "%d";
  format.setDefault(TRUE);
  SO_KIT_INIT_INSTANCE();
}

SoDialogIntegerSlider::~SoDialogIntegerSlider() = default;

void SoDialogIntegerSlider::addAuditor(SoDialogIntegerSliderAuditor* auditor)
{
  inherited::addAuditor(auditor);
}

void SoDialogIntegerSlider::removeAuditor(SoDialogIntegerSliderAuditor* auditor)
{
  inherited::removeAuditor(auditor);
}

void SoDialogIntegerSlider::applyDlgCptAuditor()
{
  SoAuditorDispatch::applyOwnAuditors(this, &SoDialogIntegerSliderAuditor::dialogIntegerSlider);
}

SoDialogSlider::Range SoDialogIntegerSlider::getRange() const
{
  return {static_cast<double>(min.getValue()), static_cast<double>(max.getValue()),
          static_cast<double>(value.getValue())};
}

double SoDialogIntegerSlider::getValueAt(float position) const
{
  const Range range = getRange();
  const auto length = static_cast<float>(range.max - range.min);
  // Half a step is added, so that what is cut off afterwards rounds.
  const float rounded = length == 0.0F ? 0.0F : position + 1.0F / (2.0F * length);
  const double found = range.min + std::trunc(static_cast<double>(length * rounded));
  return std::clamp(found, std::min(range.min, range.max), std::max(range.min, range.max));
}

std::optional<double> SoDialogIntegerSlider::convertTyped(double typed) const
{
  return toInteger(typed);
}

void SoDialogIntegerSlider::storeValue(double newValue)
{
  const SoWatchedFields::Pause pause(m_watched, value);
  value = static_cast<int32_t>(newValue);
}

void SoDialogIntegerSlider::storeLimits(double newMin, double newMax)
{
  const SoWatchedFields::Pause pauseMin(m_watched, min);
  const SoWatchedFields::Pause pauseMax(m_watched, max);
  if (newMin != min.getValue()) {
    min = static_cast<int32_t>(newMin);
  }
  if (newMax != max.getValue()) {
    max = static_cast<int32_t>(newMax);
  }
}

float SoDialogIntegerSlider::getSingleStep() const
{
  const Range range = getRange();
  constexpr double smallest = 1.0e-6; // what a position can still tell apart
  const double length = std::abs(range.max - range.min);
  return static_cast<float>(1.0 / std::clamp(length, 1.0, 1.0 / smallest));
}

void SoDialogIntegerSlider::buildWidget(QWidget* parent, SbVec2i32& size, SbVec2i32& position, int asWidget)
{
  inherited::buildWidget(parent, size, position, asWidget);
  m_watched.watch(min);
  m_watched.watch(max);
  m_watched.watch(value);
}

void SoDialogIntegerSlider::updateFromSensor(SoSensor* sensor)
{
  const SoField* field = SoWatchedFields::getFired(sensor);
  if (field == &min || field == &max || field == &value) {
    followValue();
  }
  else {
    inherited::updateFromSensor(sensor);
  }
}
