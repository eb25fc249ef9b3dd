#include <Quillform/core/SoSizingFields.h>

#include <Inventor/SoDB.h>
#include <algorithm>

SoSizingFields::SoSizingFields(SoWatchedFields& watched, const Fields& fields) : m_watched(watched), m_fields(fields) {}

void SoSizingFields::captureOnce()
{
  if (m_captured) {
    return;
  }
  for (std::size_t i = 0; i < COUNT; i++) {
    m_authored[i] = {m_fields[i]->getValue(), m_fields[i]->isDefault()};
  }
  m_captured = true;
}

void SoSizingFields::captureOne(const SoField* field)
{
  for (std::size_t i = 0; i < COUNT; i++) {
    if (m_fields[i] == field) {
      m_authored[i] = {m_fields[i]->getValue(), m_fields[i]->isDefault()};
    }
  }
}

bool SoSizingFields::isCaptured() const
{
  return m_captured;
}

SoSizingFields::Values SoSizingFields::getAuthored() const
{
  Values values{};
  for (std::size_t i = 0; i < COUNT; i++) {
    values[i] = m_authored[i].value;
  }
  return values;
}

void SoSizingFields::restore(Index first)
{
  if (!m_captured) {
    return;
  }
  m_isPlanning = false;
  for (int i = first; i < COUNT; i++) {
    const auto index = static_cast<Index>(i);
    store(index, m_authored[index].value);
    setMark(index, m_authored[index].isDefault);
  }
}

void SoSizingFields::plan()
{
  m_isPlanning = m_captured;
}

void SoSizingFields::endPlan()
{
  if (m_isPlanning) {
    restore();
  }
}

void SoSizingFields::setMark(Index index, SbBool isDefault)
{
  if (m_fields[index]->isDefault() != isDefault) {
    m_fields[index]->setDefault(isDefault);
  }
}

void SoSizingFields::exchange()
{
  if (!m_captured) {
    return;
  }
  endPlan();
  for (std::size_t i = 0; i < COUNT; i++) {
    SoSFInt32& field = *m_fields[i];
    const Authored now = {field.getValue(), field.isDefault()};
    const SbBool wasNotifying = field.enableNotify(FALSE);
    field.setValue(m_authored[i].value);
    field.setDefault(m_authored[i].isDefault);
    field.enableNotify(wasNotifying);
    m_authored[i] = now;
  }
}

void SoSizingFields::copyFrom(const SoSizingFields& other)
{
  if (!other.m_captured) {
    return;
  }
  for (std::size_t i = 0; i < COUNT; i++) {
    m_fields[i]->setValue(other.m_authored[i].value);
    m_fields[i]->setDefault(other.m_authored[i].isDefault);
  }
}

SoSizingFields::Values SoSizingFields::getValues() const
{
  Values values{};
  for (std::size_t i = 0; i < COUNT; i++) {
    values[i] = get(static_cast<Index>(i));
  }
  return values;
}

void SoSizingFields::store(Index index, int value)
{
  endPlan();
  SoSFInt32& field = *m_fields[index];
  if (field.getValue() == value) {
    return;
  }
  Unannounced& unannounced = m_unannounced[index];
  if (!unannounced.isPending) {
    unannounced = {true, field.getValue()};
  }
  const SbBool wasDefault = field.isDefault();
  const SbBool wasNotifying = field.enableNotify(FALSE);
  field.setValue(value);
  field.enableNotify(wasNotifying);
  field.setDefault(wasDefault);
}

void SoSizingFields::store(const Values& values)
{
  if (m_isPlanning) {
    m_isPlanning = false; // all values are replaced, so only the marks are to be put back
    for (int i = 0; i < COUNT; i++) {
      const auto index = static_cast<Index>(i);
      setMark(index, m_authored[index].isDefault);
    }
  }
  for (int i = 0; i < COUNT; i++) {
    store(static_cast<Index>(i), values[static_cast<std::size_t>(i)]);
  }
}

void SoSizingFields::announce()
{
  endPlan();
  if (std::none_of(m_unannounced.cbegin(), m_unannounced.cend(),
                   [](const Unannounced& one) { return one.isPending; })) {
    return;
  }
  SoDB::startNotify(); // who hears of one field finds all of them up to date
  for (std::size_t i = 0; i < COUNT; i++) {
    const Unannounced unannounced = m_unannounced[i];
    m_unannounced[i].isPending = false;
    if (unannounced.isPending && unannounced.before != m_fields[i]->getValue()) {
      m_watched.touchQuietly(*m_fields[i]);
    }
  }
  SoDB::endNotify();
}

void SoSizingFields::markComputed(const Values& authored, int unbounded)
{
  endPlan();
  for (int i = 0; i < COUNT; i++) {
    const auto index = static_cast<Index>(i);
    if (authored[index] == 0 || (index >= MAX_WIDTH && get(index) == unbounded)) {
      setMark(index, TRUE);
    }
  }
}
