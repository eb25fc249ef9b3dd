#include <Quillform/core/SoWatchedFields.h>

SoWatchedFields::SoWatchedFields(SoSensorCB* callback, void* data) : m_callback(callback), m_data(data) {}

void SoWatchedFields::watch(SoField& field)
{
  for (const Entry& entry : m_entries) {
    if (entry.field == &field) {
      return;
    }
  }
  auto sensor = std::make_unique<SoFieldSensor>(m_callback, m_data);
  sensor->setPriority(0);
  sensor->attach(&field);
  m_entries.push_back({&field, std::move(sensor)});
}

const SoField* SoWatchedFields::getFired(SoSensor* sensor)
{
  // Only field sensors are ever attached with the elements' callback.
  return sensor ? static_cast<SoFieldSensor*>(sensor)->getAttachedField() : nullptr;
}

SoFieldSensor* SoWatchedFields::find(const SoField& field) const
{
  for (const Entry& entry : m_entries) {
    if (entry.field == &field) {
      return entry.sensor.get();
    }
  }
  return nullptr;
}

SoWatchedFields::Pause::Pause(SoWatchedFields& watched, SoField& field) : m_sensor(watched.find(field)), m_field(field)
{
  if (m_sensor && !m_sensor->getAttachedField()) {
    m_sensor = nullptr; // an outer pause re-attaches it
  }
  if (m_sensor) {
    m_sensor->detach();
  }
}

SoWatchedFields::Pause::~Pause()
{
  if (m_sensor) {
    m_sensor->attach(&m_field);
  }
}
