#include "Rows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <Quillform/Quillform.h>
#include <vector>

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

/// The places of one row in the grid, for a peer that is written by hand.
struct GridRow {
  QGridLayout* grid;
  int row;
  QString name;

  void addLabelled(QWidget* control) const
  {
    grid->addWidget(new QLabel(sideLabelText(name)), row, 0);
    grid->addWidget(control, row, 1);
  }
};

QString uiLabelled(int row, const QString& name, const QString& control)
{
  return uiItem(row, 0, 1, uiWidget("QLabel", name, sideLabelText(name))) + uiItem(row, 1, 1, control);
}

QString choiceText(const QString& name, int choice)
{
  return QString("Choice %1 of %2").arg(choice).arg(name);
}

constexpr int choiceCount = 3;

/// One kind of row. The functions get the row's number and its name.
struct RowKind {
  int controls; // widgets of the row that the user operates
  QString (*toDialogFile)(const QString& name);
  QString (*toUiFile)(int row, const QString& name);
  void (*makeWidgets)(const GridRow& place);
};

const RowKind labelRow = {
  0, [](const QString& name) { return QString("  DialogLabel { label \"%1\" }\n").arg(labelText(name)); },
  [](int row, const QString& name) { return uiItem(row, 0, 2, uiWidget("QLabel", name, labelText(name))); },
  [](const GridRow& place) {
    place.grid->addWidget(new QLabel(labelText(place.name)), place.row, 0, 1, 2);
  }};

const RowKind buttonRow = {
  1,
  [](const QString& name) {
    return QString("  DialogPushButton { label \"%1\" buttonLabel \"%2\" }\n")
      .arg(sideLabelText(name), buttonText(name));
  },
  [](int row, const QString& name) { return uiLabelled(row, name, uiWidget("QPushButton", name, buttonText(name))); },
  [](const GridRow& place) {
    place.addLabelled(new QPushButton(buttonText(place.name)));
  }};

const RowKind checkRow = {
  1,
  [](const QString& name) {
    return QString("  DialogCheckBox { label \"%1\" onString \"On\" offString \"Off\" }\n").arg(sideLabelText(name));
  },
  [](int row, const QString& name) { return uiLabelled(row, name, uiWidget("QCheckBox", name, "Off")); },
  [](const GridRow& place) {
    place.addLabelled(new QCheckBox("Off"));
  }};

const RowKind editRow = {
  1,
  [](const QString& name) {
    return QString("  DialogEditText { label \"%1\" editText \"%2\" }\n").arg(sideLabelText(name), name);
  },
  [](int row, const QString& name) { return uiLabelled(row, name, uiWidget("QLineEdit", name, name)); },
  [](const GridRow& place) {
    place.addLabelled(new QLineEdit(place.name));
  }};

const RowKind comboRow = {
  1,
  [](const QString& name) {
    QString items;
    for (int i = 0; i < choiceCount; i++) {
      items += QString("%1\"%2\"").arg(i > 0 ? ", " : "", choiceText(name, i));
    }
    return QString("  DialogComboBox { label \"%1\" items [ %2 ] }\n").arg(sideLabelText(name), items);
  },
  [](int row, const QString& name) {
    QString items;
    for (int i = 0; i < choiceCount; i++) {
      items += "<item><property name=\"text\"><string>" + choiceText(name, i) + "</string></property></item>";
    }
    return uiLabelled(row, name,
                      QString("<widget class=\"QComboBox\" name=\"QComboBox_%1\">%2</widget>").arg(name, items));
  },
  [](const GridRow& place) {
    auto* box = new QComboBox;
    for (int i = 0; i < choiceCount; i++) {
      box->addItem(choiceText(place.name, i));
    }
    place.addLabelled(box);
  }};

/// A check box, a bar and an edit field. The bar is no widget that anybody counts: each peer has its own.
const RowKind sliderRow = {
  2,
  [](const QString& name) {
    return QString("  DialogRealSlider { label \"%1\" min 0 max 10 value 2.5 }\n").arg(sideLabelText(name));
  },
  [](int row, const QString& name) {
    return uiLabelled(row, name,
                      "<layout class=\"QHBoxLayout\"><item>" + uiWidget("QCheckBox", name, "") + "</item><item>" +
                        QString("<widget class=\"QSlider\" name=\"QSlider_%1\"><property name=\"orientation\">"
                                "<enum>Qt::Horizontal</enum></property></widget>")
                          .arg(name) +
                        "</item><item>" + uiWidget("QLineEdit", name, "2.5") + "</item></layout>");
  },
  [](const GridRow& place) {
    place.grid->addWidget(new QLabel(sideLabelText(place.name)), place.row, 0);
    auto* layout = new QHBoxLayout;
    layout->addWidget(new QCheckBox);
    layout->addWidget(new QSlider(Qt::Horizontal));
    layout->addWidget(new QLineEdit("2.5"));
    place.grid->addLayout(layout, place.row, 1);
  }};

const std::vector<const RowKind*>& getKinds(Rows::Mixture mixture)
{
  static const std::vector<const RowKind*> simple = {&labelRow, &buttonRow};
  static const std::vector<const RowKind*> mixed = {&buttonRow, &checkRow, &editRow, &comboRow, &sliderRow};
  return mixture == Rows::SIMPLE ? simple : mixed;
}

const RowKind& kindOf(Rows::Mixture mixture, int row)
{
  const std::vector<const RowKind*>& kinds = getKinds(mixture);
  return *kinds[static_cast<std::size_t>(row) % kinds.size()];
}

int nextForm()
{
  static int last = 0;
  return ++last;
}

} // namespace

Rows::Rows(Mixture mixture, int count) : m_mixture(mixture), m_count(count), m_form(nextForm()) {}

int Rows::getCount() const
{
  return m_count;
}

int Rows::getControlCount() const
{
  int controls = 0;
  for (int row = 0; row < m_count; row++) {
    controls += kindOf(m_mixture, row).controls;
  }
  return controls;
}

QByteArray Rows::toDialogFile() const
{
  QString text = "#Inventor V2.1 ascii\nTopLevelDialog {\n  label \"Rows\"\n  windowResizedByChildren TRUE\n";
  for (int row = 0; row < m_count; row++) {
    text += kindOf(m_mixture, row).toDialogFile(rowName(m_form, row));
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
    text += kindOf(m_mixture, row).toUiFile(row, rowName(m_form, row));
  }
  return (text + "</layout>\n</widget>\n</ui>\n").toUtf8();
}

void Rows::makeWidgets(QWidget* window) const
{
  window->setFont(SoQuillform::getQuillformFont());
  window->setWindowTitle("Rows");
  auto* grid = new QGridLayout(window);
  for (int row = 0; row < m_count; row++) {
    kindOf(m_mixture, row).makeWidgets({grid, row, rowName(m_form, row)});
  }
}
