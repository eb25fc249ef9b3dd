#include "Messages.h"

#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoReadError.h>
#include <QRegularExpression>

namespace {

/// Takes the reporter's name and the place out of the text.
Messages::Message parse(const QString& report)
{
  static const QRegularExpression reporter("^Coin (read error: |\\w+ in [\\w:]+\\(\\): )");
  static const QRegularExpression placeBehind("\\s*Occurred at line\\s+(?<line>\\d+) in (?<file>.*)$");
  static const QRegularExpression placeInFront("^\"(?<file>.*)\", line (?<line>\\d+): ");
  Messages::Message message;
  message.text = report.trimmed().remove(reporter);
  for (const QRegularExpression& place : {placeBehind, placeInFront}) {
    const QRegularExpressionMatch match = place.match(message.text);
    if (match.hasMatch()) {
      message.fileName = match.captured("file");
      message.line = match.captured("line").toInt();
      message.text.remove(match.capturedStart(), match.capturedLength());
      break;
    }
  }
  message.text = message.text.simplified();
  return message;
}

} // namespace

Messages::Messages()
{
  SoDebugError::setHandlerCallback(handle, this);
  SoReadError::setHandlerCallback(handle, this);
}

Messages::~Messages()
{
  SoDebugError::setHandlerCallback(SoError::getHandlerCallback(), nullptr);
  SoReadError::setHandlerCallback(SoError::getHandlerCallback(), nullptr);
}

const std::vector<Messages::Message>& Messages::getAll() const
{
  return m_messages;
}

void Messages::handle(const SoError* error, void* data)
{
  static_cast<Messages*>(data)->m_messages.push_back(
    parse(QString::fromLocal8Bit(error->getDebugString().getString())));
}
