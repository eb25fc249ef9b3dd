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

/// A menu bar with that menu, or with a menu that holds that entry.
SoMenuBar* putIntoMenuBar(SoMenuItem* item)
{
  auto* menu = dynamic_cast<SoMenuPopup*>(item);
  if (!menu) {
    menu = new SoMenuPopup;
    menu->label = "Menu";
    menu->addChild(item);
  }
  auto* bar = new SoMenuBar;
  bar->addChild(menu);
  return bar;
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

SoMessageDialog* DialogFile::getMessage() const
{
  return dynamic_cast<SoMessageDialog*>(m_element);
}

SoTopLevelDialog* DialogFile::makeDialog() const
{
  if (auto* dialog = dynamic_cast<SoTopLevelDialog*>(m_element)) {
    return dialog;
  }
  auto* component = dynamic_cast<SoTopComponent*>(m_element);
  auto* entry = dynamic_cast<SoMenuItem*>(m_element);
  if (!component && !entry) {
    fail(m_path, QString("holds a %1, which cannot be opened by itself; put it into a TopLevelDialog")
                   .arg(m_element->getTypeId().getName().getString()));
  }
  constexpr int titleWidth = 150; // a lone element may be too narrow for a title that can be read
  auto* dialog = new SoTopLevelDialog;
  dialog->minWidth = titleWidth;
  dialog->label = QFileInfo(m_path).fileName().toLatin1().constData();
  dialog->addChild(entry ? putIntoMenuBar(static_cast<SoMenuItem*>(entry->copy())) : component->copy());
  return dialog;
}
