#include "Failure.h"

#include <cstdio>

Failure::Failure(Status status, const QString& sentence) : m_status(status), m_sentence(sentence) {}

Failure::Status Failure::getStatus() const
{
  return m_status;
}

const QString& Failure::getSentence() const
{
  return m_sentence;
}

void Failure::print(const QString& sentence)
{
  std::fprintf(stderr, "quillform-view: %s\n", sentence.toLocal8Bit().constData());
}
