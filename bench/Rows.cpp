#include "Rows.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <Quillform/Quillform.h>
#include <iterator>

namespace {

QString rowName(int form, int row)
{
  return QString("%1.%2").arg(form).arg(row);
}

QString labelText(const QString& name)
{
  return "Row " + name + " says what follows";
}

QString sideLabelText(const QString& name)
{
  return "Row " + name + ":";
}

QString buttonText(const QString& name)
{
  return "Do " + name;
}

// .ui files name every widget once.
QString uiWidget(const char* type, const QString& name, const QString& text)
{
  return QString("<widget class=\"%1\" name=\"%1_%2\"><property name=\"text\"><string>%3</string></property></widget>")
    .arg(type, name, text);
}

QString uiItem(int row, int column, int columns, const QString& widget)
{
  return QString("<item row=\"%1\" column=\"%2\" colspan=\"%3\">%4</item>\n")
    .arg(row)
    .arg(column)
    .arg(columns)
    .arg(widget);
}

/// One kind of row. The functions get the row's number and its name.
struct RowKind {
  int buttons; // QPushButtons in one such row
  QString (*toDialogFile)(const QString& name);
  QString (*toUiFile)(int row, const QString& name);
  void (*makeWidgets)(QGridLayout* grid, int row, const QString& name);
};

/// A form repeats these in turn.
const RowKind rowKinds[] = {
  {0, [](const QString& name) { return QString("  DialogLabel { label \"%1\" }\n").arg(labelText(name)); },
   [](int row, const QString& name) { return uiItem(row, 0, 2, uiWidget("QLabel", name, labelText(name))); },
   [](QGridLayout* grid, int row, const QString& name) {
     grid->addWidget(new QLabel(labelText(name)), row, 0, 1, 2);
   }},
  {1,
   [](const QString& name) {
     return QString("  DialogPushButton { label \"%1\" buttonLabel \"%2\" }\n")
       .arg(sideLabelText(name), buttonText(name));
   },
   [](int row, const QString& name) {
     return uiItem(row, 0, 1, uiWidget("QLabel", name, sideLabelText(name))) +
            uiItem(row, 1, 1, uiWidget("QPushButton", name, buttonText(name)));
   },
   [](QGridLayout* grid, int row, const QString& name) {
     grid->addWidget(new QLabel(sideLabelText(name)), row, 0);
     grid->addWidget(new QPushButton(buttonText(name)), row, 1);
   }},
};

constexpr int kindCount = static_cast<int>(std::size(rowKinds));

const RowKind& kindOf(int row)
{
  return rowKinds[row % kindCount];
}

int nextForm()
{
  static int last = 0;
  return ++last;
}

} // namespace

Rows::Rows(int count) : m_count(count), m_form(nextForm()) {}

int Rows::getCount() const
{
  return m_count;
}

int Rows::getButtonCount() const
{
  int buttons = 0;
  for (int row = 0; row < m_count; row++) {
    buttons += kindOf(row).buttons;
  }
  return buttons;
}

QByteArray Rows::toDialogFile() const
{
  QString text = "#Inventor V2.1 ascii\nTopLevelDialog {\n  label \"Rows\"\n";
  for (int row = 0; row < m_count; row++) {
    text += kindOf(row).toDialogFile(rowName(m_form, row));
  }
  return (text + "}\n").toLatin1();
}

QByteArray Rows::toUiFile() const
{
  const QFont font = SoQuillform::getQuillformFont();
  QString text =
    QString("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ui version=\"4.0\">\n<class>Form</class>\n"
            "<widget class=\"QWidget\" name=\"Form\">\n"
            "<property name=\"font\"><font><family>%1</family><pointsize>%2</pointsize></font></property>\n"
            "<property name=\"windowTitle\"><string>Rows</string></property>\n"
            "<layout class=\"QGridLayout\" name=\"grid\">\n")
      .arg(font.family())
      .arg(font.pointSize());
  for (int row = 0; row < m_count; row++) {
    text += kindOf(row).toUiFile(row, rowName(m_form, row));
  }
  return (text + "</layout>\n</widget>\n</ui>\n").toUtf8();
}

void Rows::makeWidgets(QWidget* window) const
{
  window->setFont(SoQuillform::getQuillformFont());
  window->setWindowTitle("Rows");
  auto* grid = new QGridLayout(window);
  for (int row = 0; row < m_count; row++) {
    kindOf(row).makeWidgets(grid, row, rowName(m_form, row));
  }
}
