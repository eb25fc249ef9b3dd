#include "ReferencePages.h"

#include <QFile>
#include <QRegularExpression>
#include <Quillform/core/SoQuillformClasses.h>
#include <algorithm>
#include <stdexcept>

namespace {

QString cell(QString text)
{
  return text.replace('|', "\\|");
}

QString code(const QString& text)
{
  return "`" + cell(text) + "`";
}

/// What a pattern captures in a header; empty when it is not there.
QString capture(const QString& text, const QString& pattern)
{
  return QRegularExpression(pattern).match(text).captured(1);
}

/// The paragraph that announces a block of fields or parts, without the sentence that does so.
QString withoutAnnouncement(const QString& paragraph)
{
  static const QRegularExpression announcement("(^| )(File format, after|File format, with|Catalog, below)[^.]*:$");
  return QString(paragraph).remove(announcement);
}

/// The directories of the library in the order of the index, with their titles; the base classes come last.
const std::vector<std::pair<QString, QString>> rooms = {
  {"containers", "Dialogs and groups"}, {"controls", "Controls"}, {"menus", "Menus"}};

/// Examples that show several classes; the others have the name of their class.
const QMap<QString, QString> sharedExamples = {
  {"SoRowDialog", "rows-and-columns"}, {"SoColumnDialog", "rows-and-columns"},
  {"SoDialogIntegerSlider", "slider"}, {"SoDialogRealSlider", "slider"},
  {"SoMenuPopup", "menu-bar"},         {"SoMenuPushButton", "menu-entries"},
  {"SoMenuCheckBox", "menu-entries"},  {"SoMenuRadioButtons", "menu-entries"},
  {"SoMenuSeparator", "menu-entries"}, {"SoMenuFileSelection", "menu-entries"}};

QString getExample(const QString& className)
{
  QString words = className;
  words.remove(QRegularExpression("^So(Dialog)?"));
  words.replace(QRegularExpression("(?<=[a-z])(?=[A-Z])"), "-");
  return sharedExamples.value(className, words.toLower());
}

} // namespace

ReferencePages::ReferencePages(const QString& tree) : m_tree(tree)
{
  for (const SoType type : SoQuillformClasses::getTypes()) {
    m_classes.push_back(std::make_unique<ElementClass>(tree, type));
  }
}

QMap<QString, QString> ReferencePages::write() const
{
  QMap<QString, QString> pages;
  for (const auto& element : m_classes) {
    pages[element->name + ".md"] = writePage(*element);
  }
  pages["README.md"] = writeIndex();
  return pages;
}

const ElementClass& ReferencePages::find(SoType type) const
{
  const QString name = ElementClass::getClassName(type);
  return **std::find_if(m_classes.begin(), m_classes.end(), [&name](const auto& one) { return one->name == name; });
}

QString ReferencePages::linkTo(const QString& className) const
{
  const bool hasPage =
    std::any_of(m_classes.begin(), m_classes.end(), [&className](const auto& one) { return one->name == className; });
  return hasPage ? "[" + className + "](" + className + ".md)" : className;
}

QString ReferencePages::linkAll(QString text, const QString& except) const
{
  static const QRegularExpression word("\\bSo[A-Z]\\w+\\b(?!\\(|::|`)");
  QString linked;
  int end = 0;
  auto found = word.globalMatch(text);
  while (found.hasNext()) {
    const QRegularExpressionMatch match = found.next();
    const QString name = match.captured(0);
    linked += text.mid(end, match.capturedStart(0) - end) + (name == except ? name : linkTo(name));
    end = match.capturedEnd(0);
  }
  return linked + text.mid(end);
}

QString ReferencePages::writePage(const ElementClass& element) const
{
  QString page = "# " + element.name + "\n\n";
  for (const HeaderFile::Block& block : element.header.comment) {
    if (block.kind == HeaderFile::Block::TEXT) {
      const QString text = withoutAnnouncement(block.text);
      page += text.isEmpty() ? "" : linkAll(text, element.name) + "\n\n";
    }
    else if (block.kind == HeaderFile::Block::SNIPPET) {
      page += "```iv\n" + block.text + "\n```\n\n";
    }
    else if (block.kind == HeaderFile::Block::PROGRAM) {
      page += "```cpp\n" + block.text + "\n```\n\n";
    }
  }
  page += writePicture(element);

  QStringList bases;
  for (const SoType base : element.bases) {
    bases.append(linkTo(ElementClass::getClassName(base)));
  }
  bases.append("SoDragger of Coin");
  page += "| | |\n|---|---|\n";
  page += "| in dialog files | " + code(element.fileName) + " or " + code("So" + element.fileName) + " |\n";
  page += "| in C++ | " + code("#include <" + element.header.path + ">") + " |\n";
  page += "| derives from | " + bases.join(", ") + " |\n";
  page += writeChildren(element);
  page += "\n";
  page += writeFields(element) + writeEnumerations(element) + writeAuditors(element) + writeCatalog(element);
  page += "All classes: [index](README.md)\n";
  return page;
}

QString ReferencePages::writePicture(const ElementClass& element) const
{
  const QString example = getExample(element.name);
  const QString picture = "pictures/elements/" + example + ".png";
  const QString file = "examples/elements/" + example + ".iv";
  QString text;
  if (QFile::exists(m_tree + "/" + file)) {
    text += "A dialog file with its states: [" + example + ".iv](../../" + file + ").\n\n";
  }
  if (QFile::exists(m_tree + "/docs/" + picture)) {
    const bool isWindowOnly = element.name == "SoMessageDialog";
    text += QString(isWindowOnly ? "![Windows](../" : "![Window and scene](../") + picture + ")\n\n";
  }
  return text;
}

QString ReferencePages::writeChildren(const ElementClass& element) const
{
  const ElementClass* holder = &element;
  for (size_t i = 0;; i++) {
    QString child = capture(holder->header.code, "public SoChildOperations<(\\w+)>");
    if (holder->header.code.contains("public SoLauncher<")) {
      child = "SoTopLevelDialog";
    }
    if (!child.isEmpty()) {
      return "| children | of class " + linkTo(child) + " |\n";
    }
    if (i == element.bases.size()) {
      return QString();
    }
    holder = &find(element.bases[i]);
  }
}

QString ReferencePages::writeFields(const ElementClass& element) const
{
  QString text = "## Fields\n\n";
  if (element.fields.empty()) {
    text += "None of its own.\n\n";
  }
  else {
    text += "| field | type | default | meaning |\n|---|---|---|---|\n";
    for (const ElementClass::Field& field : element.fields) {
      const QString meaning = element.header.fieldMeanings.value(field.name);
      if (meaning.isEmpty()) {
        throw std::runtime_error("the field " + (element.name + "::" + field.name).toStdString() +
                                 " has no comment in the header");
      }
      text += "| " + code(field.name) + " | " + field.type + " | " + code(field.value) + " | " + cell(meaning) + " |\n";
    }
    text += "\n";
  }
  if (!element.redefined.empty()) {
    text += "Inherited, with another default:\n\n| field | type | default |\n|---|---|---|\n";
    for (const ElementClass::Field& field : element.redefined) {
      text += "| " + code(field.name) + " | " + field.type + " | " + code(field.value) + " |\n";
    }
    text += "\n";
  }
  QStringList inherited;
  for (const SoType type : element.bases) {
    const ElementClass& base = find(type);
    QStringList names;
    for (const ElementClass::Field& field : base.fields) {
      names.append(code(field.name));
    }
    if (!names.isEmpty()) {
      inherited.append("- from " + linkTo(base.name) + ": " + names.join(", ") + "\n");
    }
  }
  if (!inherited.isEmpty()) {
    text += "Inherited:\n\n" + inherited.join("") + "\n";
  }
  return text;
}

QString ReferencePages::writeEnumerations(const ElementClass& element) const
{
  QString text;
  for (const HeaderFile::Enumeration& enumeration : element.header.enumerations) {
    QStringList fields;
    for (const ElementClass::Field& field : element.fields) {
      const bool isSame = std::is_permutation(
        field.enumerators.begin(), field.enumerators.end(), enumeration.enumerators.begin(),
        enumeration.enumerators.end(), [](const HeaderFile::Enumerator& one, const HeaderFile::Enumerator& other) {
          return one.name == other.name && one.value == other.value;
        });
      if (isSame) {
        fields.append(code(field.name));
      }
    }
    if (fields.isEmpty()) {
      continue; // no field holds it
    }
    text += "### " + enumeration.name + "\n\n";
    text += enumeration.meaning + (enumeration.meaning.isEmpty() ? "" : " ") + "Held by " + fields.join(", ") + ".\n\n";
    text += "| name | value | meaning |\n|---|---|---|\n";
    for (const HeaderFile::Enumerator& one : enumeration.enumerators) {
      text += "| " + code(one.name) + " | " + QString::number(one.value) + " | " + cell(one.meaning) + " |\n";
    }
    text += "\n";
  }
  for (const ElementClass::Field& field : element.fields) {
    if (!field.enumerators.empty() && !text.contains(code(field.name))) {
      throw std::runtime_error("no enumeration of the header is that of the field " +
                               (element.name + "::" + field.name).toStdString());
    }
  }
  return text.isEmpty() ? text : "## Enumerations\n\n" + text;
}

QString ReferencePages::writeAuditors(const ElementClass& element) const
{
  QString auditor = capture(element.header.code, "void addAuditor\\((So\\w+)\\* ");
  for (size_t i = 0; auditor.isEmpty() && i < element.bases.size(); i++) {
    auditor = capture(find(element.bases[i]).header.code, "void addAuditor\\((So\\w+Auditor)\\* ");
  }
  if (auditor.isEmpty() || auditor == "SoAuditor") {
    return QString();
  }
  QString text = "## Auditors\n\n";
  const HeaderFile dialogAuditor(m_tree, "SoDialogAuditor");
  if (auditor == "SoDialogAuditor") {
    return text +
           "Of class `SoDialogAuditor`: they hear of the elements inside that have no auditors of their own.\n\n";
  }
  const QRegularExpressionMatch own =
    QRegularExpression("virtual void (\\w+)\\((\\w+\\*)").match(HeaderFile(m_tree, auditor).code);
  text +=
    "Its own are of class `" + auditor + "`, with the operation `" + own.captured(1) + "(" + own.captured(2) + ")`.\n";
  // The nearest class that has an operation in the auditor of whole dialogs.
  QStringList names{element.name};
  for (const SoType base : element.bases) {
    names.append(ElementClass::getClassName(base));
  }
  for (const QString& name : names) {
    const QString operation = capture(dialogAuditor.code, "virtual void (\\w+)\\(" + name + "\\* ");
    const bool isNeverCalled =
      dialogAuditor.code.contains(QRegularExpression("/// Never called[^\n]*\n  virtual void " + operation + "\\("));
    if (!operation.isEmpty() && !isNeverCalled) {
      text += "Without any, the auditors of the group or dialog around it are called: `SoDialogAuditor::" + operation +
              "(" + name + "*)`.\n";
      break;
    }
  }
  return text + "\n";
}

QString ReferencePages::writeCatalog(const ElementClass& element) const
{
  if (element.parts.empty()) {
    return QString();
  }
  QString text = "## Catalog\n\nThe parts that it adds. A dialog file may fill the public ones.\n\n"
                 "| part | type | below | public |\n|---|---|---|---|\n";
  for (const ElementClass::Part& part : element.parts) {
    text += "| " + code(part.name) + " | " + part.type + " | " + code(part.parent) + " | " +
            (part.isPublic ? "yes" : "no") + " |\n";
  }
  return text + "\n";
}

QString ReferencePages::writeIndex() const
{
  QString text =
    "# Reference\n\n"
    "The classes of the elements of a dialog. `scripts/reference` writes these pages from the classes "
    "themselves and from the\ncomments in their headers. The [guide](../guide.md) shows how they are used.\n";
  const auto writeTable = [this, &text](const QString& title, const auto& belongs) {
    text += "\n## " + title + "\n\n| class | |\n|---|---|\n";
    for (const auto& element : m_classes) {
      if (belongs(element->header)) {
        text += "| " + linkTo(element->name) + " | " + cell(element->header.getSummary()) + " |\n";
      }
    }
  };
  for (const auto& [directory, title] : rooms) {
    writeTable(title, [&directory = directory](const HeaderFile& header) {
      return !header.isBase() && header.path.startsWith("Quillform/" + directory + "/");
    });
  }
  writeTable("Base classes", [](const HeaderFile& header) { return header.isBase(); });
  return text;
}
