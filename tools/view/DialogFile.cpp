#include "DialogFile.h"

#include "Failure.h"
#include "Messages.h"
#include "ReadFault.h"
#include <QFile>
#include <QFileInfo>
#include <Quillform/Quillform.h>
#include <Quillform/core/SoChildElements.h>

namespace {

[[noreturn]] void fail(const QString& path, const QString& what)
{
  throw Failure(Failure::BAD_FILE, QString("\"%1\" %2.").arg(path, what));
}

void requireReadable(const QString& path)
{
  const QFileInfo info(path);
  if (!info.exists()) {
    fail(path, "does not exist; check the name and the directory");
  }
  if (info.isDir()) {
    fail(path, "is a directory; name a dialog file inside it");
  }
  if (!info.isFile()) {
    fail(path, "is not an ordinary file; name a dialog file"); // a device may never end
  }
  if (!info.isReadable()) {
    fail(path, "may not be read; change its permissions");
  }
}

int count(const SoQuillform* element)
{
  int number = 1;
  const SoChildElements* children = element->getChildElements();
  for (int i = 0; children && i < children->getNum(); i++) {
    number += count(children->get(i));
  }
  return number;
}

} // namespace

DialogFile::DialogFile(const QString& path, const QString& id) : m_path(path)
{
  requireReadable(path);
  const Messages messages;
  m_element = SoQuillform::loadFromFile(QFile::encodeName(path).constData(), id.toLatin1().constData());
  const QString fault = ReadFault::explain(messages);
  if (m_element) {
    m_warning = fault;
  }
  else if (!fault.isEmpty()) {
    throw Failure(Failure::BAD_FILE, fault);
  }
  else if (id.isEmpty()) {
    fail(path, "holds no dialog element at its top; name a dialog file");
  }
  else {
    fail(path, QString("holds no element with auditorID \"%1\" at its top; correct the ID after --id").arg(id));
  }
}

SoQuillform* DialogFile::getElement() const
{
  return m_element;
}

QString DialogFile::describe() const
{
  const int number = count(m_element);
  const QString id = QString::fromLatin1(m_element->auditorID.getValue().getString());
  return QString("%1: ok, %2 %3 in %4%5")
    .arg(m_path)
    .arg(number)
    .arg(number == 1 ? "element" : "elements", m_element->getTypeId().getName().getString(),
         id.isEmpty() ? id : QString(" \"%1\"").arg(id));
}

const QString& DialogFile::getWarning() const
{
  return m_warning;
}

SoTopLevelDialog* DialogFile::makeDialog() const
{
  if (auto* dialog = dynamic_cast<SoTopLevelDialog*>(m_element)) {
    return dialog;
  }
  if (!dynamic_cast<SoTopComponent*>(m_element)) {
    fail(m_path, QString("holds a %1, which cannot be opened by itself; put it into a TopLevelDialog")
                   .arg(m_element->getTypeId().getName().getString()));
  }
  constexpr int titleWidth = 150; // a lone element may be too narrow for a title that can be read
  auto* dialog = new SoTopLevelDialog;
  dialog->minWidth = titleWidth;
  dialog->label = QFileInfo(m_path).fileName().toLatin1().constData();
  dialog->addChild(m_element->copy());
  return dialog;
}
