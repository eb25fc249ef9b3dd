#include "QuietQt.h"

#include "Failure.h"
#include <cstdlib>

namespace {

QString s_sentenceAtTheEnd;

void handle(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*message*/)
{
  if (type == QtFatalMsg) {
    Failure::print(s_sentenceAtTheEnd);
    std::_Exit(Failure::WRONG_USAGE); // Qt would abort; nothing is open yet that had to be closed
  }
}

} // namespace

QuietQt::QuietQt(const QString& sentenceAtTheEnd)
{
  s_sentenceAtTheEnd = sentenceAtTheEnd;
  m_previous = qInstallMessageHandler(handle);
}

QuietQt::~QuietQt()
{
  qInstallMessageHandler(m_previous);
}
