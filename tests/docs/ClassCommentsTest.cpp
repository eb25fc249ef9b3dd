#include "../../tools/reference/ElementClass.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QRegularExpression>
#include <Quillform/core/SoQuillformClasses.h>
#include <algorithm>
#include <memory>
#include <support/Messages.h>
#include <support/TestFiles.h>

namespace {

const char* const tree = QUILLFORM_TEST_EXAMPLES "/..";

/// "name, name": what two lists differ in is seen at once.
template <class Lines>
std::string namesOf(const Lines& lines)
{
  QStringList names;
  for (const auto& line : lines) {
    names.append(line.name);
  }
  names.sort();
  return names.join(", ").toStdString();
}

template <class Lines>
const typename Lines::value_type* find(const Lines& lines, const QString& name)
{
  const auto found = std::find_if(lines.begin(), lines.end(), [&name](const auto& one) { return one.name == name; });
  return found == lines.end() ? nullptr : &*found;
}

/// TRUE when a comment states the default of a field, in whatever spelling.
bool states(const QString& text, const ElementClass::Field& field)
{
  const std::unique_ptr<SoField> stated(static_cast<SoField*>(field.field->getTypeId().createInstance()));
  if (!field.enumerators.empty()) {
    return text == field.value; // a field of its own does not know the names
  }
  return stated->set(text.toLatin1().constData()) && stated->isSame(*field.field);
}

} // namespace

class ClassCommentsTest : public QuillformTest {
protected:
  ClassCommentsTest()
  {
    for (const SoType type : SoQuillformClasses::getTypes()) {
      m_classes.push_back(std::make_unique<ElementClass>(tree, type));
    }
  }

  std::vector<std::unique_ptr<ElementClass>> m_classes;
};

TEST_F(ClassCommentsTest, theFileFormatListsTheFieldsThatTheClassAdds)
{
  EXPECT_EQ(m_classes.size(), 33U);
  for (const auto& element : m_classes) {
    SCOPED_TRACE(element->header.path.toStdString());
    EXPECT_EQ(namesOf(element->header.getFormat()), namesOf(element->fields));
    for (const HeaderFile::FormatLine& line : element->header.getFormat()) {
      if (const ElementClass::Field* field = find(element->fields, line.name)) {
        EXPECT_EQ(line.type.toStdString(), field->type.toStdString()) << qPrintable(line.name);
        EXPECT_TRUE(states(line.value, *field))
          << qPrintable(line.name) << " is " << qPrintable(field->value) << " and not " << qPrintable(line.value);
      }
    }
    if (element->fields.empty()) {
      const auto texts = element->header.getBlocks(HeaderFile::Block::TEXT);
      EXPECT_TRUE(std::any_of(texts.begin(), texts.end(),
                              [](const HeaderFile::Block& text) { return text.text.contains("no fields"); }))
        << "the class comment does not say that the class has no fields of its own";
    }
  }
}

TEST_F(ClassCommentsTest, theFileFormatNamesTheClass)
{
  for (const auto& element : m_classes) {
    for (const HeaderFile::Block& block : element->header.getBlocks(HeaderFile::Block::FORMAT)) {
      EXPECT_EQ(block.text.section('\n', 0, 0).toStdString(), element->fileName.toStdString() + " {");
    }
  }
}

TEST_F(ClassCommentsTest, theCommentOfAFieldStatesItsDefault)
{
  for (const auto& element : m_classes) {
    for (const ElementClass::Field& field : element->fields) {
      SCOPED_TRACE((element->name + "::" + field.name).toStdString());
      EXPECT_FALSE(element->header.fieldMeanings.value(field.name).isEmpty());
      QString stated = element->header.statedDefaults.value(field.name);
      EXPECT_FALSE(stated.isEmpty());
      stated.replace(QRegularExpression("^(empty|one empty text.*)$"), "\"\"");
      stated.remove(QRegularExpression("[(),]"));
      QString value = field.value;
      value.remove(QRegularExpression("[(),\\[\\]]"));
      EXPECT_TRUE(stated == value.simplified() || states(stated, field))
        << "it is " << qPrintable(field.value) << " and not " << qPrintable(stated);
    }
  }
}

TEST_F(ClassCommentsTest, theCatalogShowsThePartsThatTheClassAdds)
{
  for (const auto& element : m_classes) {
    if (element->name == "SoQuillform") {
      continue; // its one part is described in words
    }
    SCOPED_TRACE(element->header.path.toStdString());
    EXPECT_EQ(namesOf(element->header.getCatalog()), namesOf(element->parts));
    for (const HeaderFile::CatalogLine& line : element->header.getCatalog()) {
      if (const ElementClass::Part* part = find(element->parts, line.name)) {
        EXPECT_EQ((line.parent.isEmpty() ? "geomSwitch" : line.parent).toStdString(), part->parent.toStdString())
          << qPrintable(line.name);
        EXPECT_EQ(line.isPublic, part->isPublic) << qPrintable(line.name);
      }
    }
  }
}

TEST_F(ClassCommentsTest, theDialogFilesInItAreReadWithoutAMessage)
{
  for (const auto& element : m_classes) {
    const auto snippets = element->header.getBlocks(HeaderFile::Block::SNIPPET);
    EXPECT_TRUE(element->header.isBase() || !snippets.empty())
      << "there is no example of a dialog file in " << qPrintable(element->header.path);
    for (const HeaderFile::Block& snippet : snippets) {
      SCOPED_TRACE(snippet.text.toStdString());
      EXPECT_TRUE(snippet.text.contains(QRegularExpression("\\b" + element->fileName + " \\{")));
      Messages messages;
      const std::string path = writeFile(element->name.toStdString() + ".iv", snippet.text.toStdString() + "\n");
      const SoQuillform* read = SoQuillform::loadFromFile(path.c_str(), "");
      EXPECT_NE(read, nullptr);
      EXPECT_EQ(messages.all(), std::vector<std::string>());
    }
  }
}
