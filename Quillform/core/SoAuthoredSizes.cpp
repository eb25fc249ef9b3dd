#include <Quillform/core/SoAuthoredSizes.h>

SoAuthoredSizes::SoAuthoredSizes(SoWatchedFields& watched, const Fields& fields) : m_watched(watched), m_fields(fields)
{
}

void SoAuthoredSizes::capture()
{
  for (std::size_t i = 0; i < m_fields.size(); i++) {
    m_values[i] = {m_fields[i]->getValue(), m_fields[i]->isDefault()};
  }
  m_captured = true;
}

bool SoAuthoredSizes::captureOne(const SoField* field)
{
  for (std::size_t i = 0; i < m_fields.size(); i++) {
    if (m_fields[i] == field) {
      m_values[i] = {m_fields[i]->getValue(), m_fields[i]->isDefault()};
      return true;
    }
  }
  return false;
}

bool SoAuthoredSizes::isCaptured() const
{
  return m_captured;
}

int SoAuthoredSizes::get(Index index) const
{
  return m_values[index].value;
}

void SoAuthoredSizes::restore()
{
  restoreFrom(WIDTH);
}

void SoAuthoredSizes::restoreLimits()
{
  restoreFrom(MIN_WIDTH);
}

void SoAuthoredSizes::restoreFrom(int first)
{
  if (!m_captured) {
    return;
  }
  for (std::size_t i = static_cast<std::size_t>(first); i < m_fields.size(); i++) {
    m_watched.setQuietly(*m_fields[i], m_values[i].value);
    m_fields[i]->setDefault(m_values[i].isDefault);
  }
}

void SoAuthoredSizes::exchange()
{
  if (!m_captured) {
    return;
  }
  for (std::size_t i = 0; i < m_fields.size(); i++) {
    SoSFInt32& field = *m_fields[i];
    const Value now = {field.getValue(), field.isDefault()};
    const SbBool wasNotifying = field.enableNotify(FALSE);
    field.setValue(m_values[i].value);
    field.setDefault(m_values[i].isDefault);
    field.enableNotify(wasNotifying);
    m_values[i] = now;
  }
}

void SoAuthoredSizes::copyFrom(const SoAuthoredSizes& other)
{
  if (!other.m_captured) {
    return;
  }
  for (std::size_t i = 0; i < m_fields.size(); i++) {
    m_fields[i]->setValue(other.m_values[i].value);
    m_fields[i]->setDefault(other.m_values[i].isDefault);
  }
}
