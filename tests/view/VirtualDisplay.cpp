#include "VirtualDisplay.h"

VirtualDisplay::VirtualDisplay()
{
  // The server takes a free number and writes it to its standard output once it accepts connections.
  m_server.start(XVFB, {"-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"});
  while (!m_server.canReadLine() && m_server.waitForReadyRead(30000)) {
  }
  if (m_server.canReadLine()) {
    m_name = ":" + QString::fromLatin1(m_server.readLine()).trimmed();
  }
}

VirtualDisplay::~VirtualDisplay()
{
  m_server.terminate();
  m_server.waitForFinished();
}

const QString& VirtualDisplay::getName() const
{
  return m_name;
}
