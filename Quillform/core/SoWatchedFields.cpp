#include <Quillform/core/SoWatchedFields.h>

#include <Inventor/misc/SoNotification.h>
#include <Inventor/sensors/SoOneShotSensor.h>
#include <algorithm>
#include <utility>

namespace {

/// A change that has no reaction yet.
struct Change {
  SoWatchedFields* watched; // nullptr when the element is gone
  const SoField* field;
};
std::vector<Change> pendingChanges;
std::size_t handledChanges = 0; // of the pending ones
const SoField* firedField = nullptr;

/// The sensor that all elements share. Never destroyed: Coin's queue of sensors may be gone when static objects are.
SoOneShotSensor* sharedSensor = nullptr;

} // namespace

SoWatchedFields::SoWatchedFields(SoSensorCB* callback, void* data) : m_callback(callback), m_data(data) {}

SoWatchedFields::~SoWatchedFields()
{
  for (Change& change : pendingChanges) {
    if (change.watched == this) {
      change.watched = nullptr;
    }
  }
}

void SoWatchedFields::watch(const SoField& field)
{
  if (find(field) != none) {
    return;
  }
  if (m_entries.empty()) {
    constexpr std::size_t usualCount = 16;
    m_entries.reserve(usualCount);
  }
  m_entries.push_back({&field, 0});
}

void SoWatchedFields::fieldChanged(const SoField* field)
{
  if (field == m_touched) {
    return;
  }
  m_hasChanges = true;
  const std::size_t index = find(*field);
  if (index == none || m_entries[index].pauses > 0) {
    return;
  }
  const auto isSame = [field](const Change& change) {
    return change.field == field;
  };
  const auto firstPending = pendingChanges.cbegin() + static_cast<std::ptrdiff_t>(handledChanges);
  if (std::none_of(firstPending, pendingChanges.cend(), isSame)) {
    pendingChanges.push_back({this, field});
    if (!sharedSensor) {
      sharedSensor = new SoOneShotSensor(runCallbacks, nullptr);
      sharedSensor->setPriority(0);
    }
    sharedSensor->schedule();
  }
}

void SoWatchedFields::runCallbacks(void* /*data*/, SoSensor* sensor)
{
  while (handledChanges < pendingChanges.size()) {
    const Change change = pendingChanges[handledChanges++];
    if (change.watched) {
      firedField = change.field;
      change.watched->m_callback(change.watched->m_data, sensor);
      firedField = nullptr;
    }
  }
  pendingChanges.clear();
  handledChanges = 0;
}

bool SoWatchedFields::hasChanges() const
{
  return m_hasChanges;
}

void SoWatchedFields::forgetChanges()
{
  m_hasChanges = false;
}

void SoWatchedFields::touchQuietly(SoField& field)
{
  const SoField* outer = std::exchange(m_touched, &field);
  const SbBool wasDefault = field.isDefault();
  SoFieldContainer* element = field.getContainer();
  const SbBool wasNotifying = element->enableNotify(FALSE);
  SoNotList list;
  field.notify(&list);
  element->enableNotify(wasNotifying);
  if (field.isDefault() != wasDefault) {
    field.setDefault(wasDefault);
  }
  m_touched = outer;
}

const SoField* SoWatchedFields::getFired(SoSensor* sensor)
{
  return sensor && sensor == sharedSensor ? firedField : nullptr;
}

std::size_t SoWatchedFields::find(const SoField& field) const
{
  for (std::size_t i = 0; i < m_entries.size(); i++) {
    if (m_entries[i].field == &field) {
      return i;
    }
  }
  return none;
}

SoWatchedFields::Pause::Pause(SoWatchedFields& watched, const SoField& field)
    : m_watched(watched), m_index(watched.find(field))
{
  if (m_index != none) {
    ++m_watched.m_entries[m_index].pauses;
  }
}

SoWatchedFields::Pause::~Pause()
{
  if (m_index != none) {
    --m_watched.m_entries[m_index].pauses;
  }
}
