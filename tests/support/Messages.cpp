#include <support/Messages.h>

#include <Inventor/SoDB.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoReadError.h>
#include <algorithm>

Messages::Messages()
{
  SoDB::init();
  SoDebugError::setHandlerCallback(handle, this);
  SoReadError::setHandlerCallback(handle, this);
}

Messages::~Messages()
{
  SoDebugError::setHandlerCallback(SoError::getHandlerCallback(), nullptr);
  SoReadError::setHandlerCallback(SoError::getHandlerCallback(), nullptr);
}

const std::vector<std::string>& Messages::all() const
{
  return m_messages;
}

int Messages::count(const std::string& text) const
{
  return static_cast<int>(std::count_if(m_messages.begin(), m_messages.end(), [&text](const std::string& message) {
    return message.find(text) != std::string::npos;
  }));
}

void Messages::clear()
{
  m_messages.clear();
}

void Messages::handle(const SoError* error, void* data)
{
  static_cast<Messages*>(data)->m_messages.emplace_back(error->getDebugString().getString());
}
