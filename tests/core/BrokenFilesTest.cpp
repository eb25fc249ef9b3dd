#include <Inventor/SoDB.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QDir>
#include <Quillform/Quillform.h>
#include <fstream>
#include <random>
#include <support/Messages.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

const std::string header = "#Inventor V2.1 ascii\n";

const std::string small = header + "\n"
                                   "TopLevelDialog {\n"
                                   "  label \"Title\"\n"
                                   "  width 300\n"
                                   "  DialogPushButton { auditorID \"ok\" buttonLabel \"OK\" }\n"
                                   "  DEF Note DialogLabel { label \"say \\\"hi\\\"\" labelAlignment LEFT }\n"
                                   "}\n";

std::string repeated(const std::string& text, int times)
{
  std::string result;
  result.reserve(text.size() * static_cast<std::size_t>(times));
  for (int i = 0; i < times; i++) {
    result += text;
  }
  return result;
}

std::string join(const std::vector<std::string>& messages)
{
  std::string result;
  for (const std::string& message : messages) {
    result += message + "\n";
  }
  return result;
}

} // namespace

class BrokenFilesTest : public QuillformTest {
protected:
  /// Writes exactly these bytes.
  std::string writeBytes(const std::string& name, const std::string& bytes)
  {
    const std::string path = pathOf(name);
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
    return path;
  }

  SoTopLevelDialog* loadPath(const std::string& path)
  {
    return dynamic_cast<SoTopLevelDialog*>(SoQuillform::loadFromFile(path.c_str(), ""));
  }

  /// Expects that the file is refused with messages of which one holds \a clue and one the file's name, that
  /// nothing of it stays alive, and that it loads once it has been mended.
  void expectRefused(const std::string& bytes, const std::string& clue)
  {
    const std::string name = "broken" + std::to_string(m_written++) + ".iv";
    const std::string path = writeBytes(name, bytes);
    const int alive = SoQuillform::getInstanceCount();
    Messages messages;
    EXPECT_EQ(SoQuillform::loadFromFile(path.c_str(), ""), nullptr);
    EXPECT_GE(messages.count(path), 1) << join(messages.all());
    EXPECT_GE(messages.count(clue), 1) << join(messages.all());
    EXPECT_EQ(SoQuillform::getInstanceCount(), alive);
    writeBytes(name, small);
    messages.clear();
    SoTopLevelDialog* mended = loadPath(path);
    ASSERT_NE(mended, nullptr);
    EXPECT_EQ(mended->getNumChildren(), 2);
    EXPECT_TRUE(messages.all().empty()) << join(messages.all());
  }

  static std::string toBinary(const std::string& text)
  {
    SoNode* node = readText(text.substr(text.find('\n')));
    const std::string bytes = ::toBinary(node);
    node->unref();
    return bytes;
  }

private:
  int m_written = 0;
};

TEST_F(BrokenFilesTest, aMissingFileIsReportedByTheReader)
{
  Messages messages;
  const std::string path = pathOf("missing.iv");
  EXPECT_EQ(SoQuillform::loadFromFile(path.c_str(), ""), nullptr);
  EXPECT_EQ(messages.count(path), 1);
  writeBytes("missing.iv", small);
  EXPECT_NE(loadPath(path), nullptr);
}

TEST_F(BrokenFilesTest, anEmptyNameIsRefused)
{
  Messages messages;
  EXPECT_EQ(SoQuillform::loadFromFile("", ""), nullptr);
  EXPECT_GE(messages.all().size(), 1U);
}

TEST_F(BrokenFilesTest, aDirectoryIsNamedAsSuch)
{
  Messages messages;
  const std::string path = pathOf("dialogs");
  ASSERT_TRUE(QDir().mkdir(QString::fromStdString(path)));
  EXPECT_EQ(SoQuillform::loadFromFile(path.c_str(), ""), nullptr);
  EXPECT_EQ(messages.count("\"" + path + "\" is a directory"), 1) << join(messages.all());
}

TEST_F(BrokenFilesTest, anEmptyFileIsRefused)
{
  expectRefused("", "Not a valid Inventor file");
}

TEST_F(BrokenFilesTest, aFileWithoutAHeaderIsRefused)
{
  expectRefused("TopLevelDialog {}\n", "Not a valid Inventor file");
}

TEST_F(BrokenFilesTest, aFileOfAnotherKindIsRefused)
{
  expectRefused("#!/bin/sh\nexit 0\n", "Not a valid Inventor file");
  expectRefused(std::string("\x7f"
                            "ELF\0\0\0\0garbage",
                            15),
                "Not a valid Inventor file");
}

TEST_F(BrokenFilesTest, aFileOfZeroBytesIsRefused)
{
  expectRefused(std::string(4096, '\0'), "Not a valid Inventor file");
}

TEST_F(BrokenFilesTest, anUnknownClassIsNamedWithItsLine)
{
  expectRefused(header + "TopLevelDialog {\n  DialogNoSuchThing { foo 1 }\n}\n", "DialogNoSuchThing");
  expectRefused(header + "TopLevelDialog {\n  DialogNoSuchThing { foo 1 }\n}\n", "line   3");
}

TEST_F(BrokenFilesTest, anUnknownClassAtTheTopIsNoElement)
{
  const std::string path = writeFile("unknown.iv", "NoSuchDialog { label \"x\" }\n");
  Messages messages;
  EXPECT_EQ(SoQuillform::loadFromFile(path.c_str(), ""), nullptr);
  EXPECT_GE(messages.count(path), 1);
  EXPECT_EQ(SoQuillform::getInstanceCount(), 0);
}

TEST_F(BrokenFilesTest, anUnknownFieldIsNamedWithItsLine)
{
  expectRefused(header + "TopLevelDialog {\n  labell \"x\"\n}\n", "line   3");
  expectRefused(header + "TopLevelDialog {\n  labell \"x\"\n}\n", "\"labell\" is no field of SoTopLevelDialog");
  expectRefused(header + "TopLevelDialog {\n  RowDialog {\n    marginn 3\n  }\n}\n",
                "\"marginn\" is no field of RowDialog");
  expectRefused(header + "TopLevelDialog {\n  marginn\n}\n", "\"marginn\" is no field");
  expectRefused(header + "TopLevelDialog {\n  DialogLabel { colour 1 2 3 }\n}\n", "colour");
}

TEST_F(BrokenFilesTest, aValueOfTheWrongTypeIsNamedWithItsLine)
{
  expectRefused(header + "TopLevelDialog {\n  width \"wide\"\n}\n", "width");
  expectRefused(header + "TopLevelDialog {\n  DialogLabel { enable 17 }\n}\n", "enable");
  expectRefused(header + "TopLevelDialog {\n  DialogLabel { labelAlignment MIDDLE }\n}\n", "MIDDLE");
  expectRefused(header + "TopLevelDialog {\n  position 1\n}\n", "position");
}

TEST_F(BrokenFilesTest, aNodeInAnInnerPartIsNamed)
{
  expectRefused(header + "TopLevelDialog {\n  geomSwitch Group {}\n}\n",
                "\"geomSwitch\" of SoTopLevelDialog cannot be set");
  expectRefused(header + "TopLevelDialog {\n  DialogLabel { topSeparator Separator {} }\n}\n",
                "\"topSeparator\" of DialogLabel cannot be set");
}

TEST_F(BrokenFilesTest, aChildThatIsNoElementIsNamed)
{
  expectRefused(header + "TopLevelDialog {\n  Cube {}\n}\n", "Cube");
  expectRefused(header + "TopLevelDialog {\n  TopLevelDialog {}\n}\n", "TopLevelDialog");
}

TEST_F(BrokenFilesTest, messagesAboutTheContentsNameTheLine)
{
  for (const char* body : {"  labell \"x\"\n", "  width \"wide\"\n", "  Cube {}\n"}) {
    const std::string path = writeBytes("line.iv", header + "\n\nTopLevelDialog {\n" + body + "}\n");
    Messages messages;
    EXPECT_EQ(loadPath(path), nullptr) << body;
    EXPECT_GE(messages.count("line   5"), 1) << body << join(messages.all());
  }
}

TEST_F(BrokenFilesTest, anUnclosedDialogIsRefused)
{
  expectRefused(header + "TopLevelDialog {\n  DialogLabel {}\n", "remature end of file");
}

TEST_F(BrokenFilesTest, anUnclosedStringIsRefused)
{
  expectRefused(header + "TopLevelDialog {\n  label \"open\n}\n", "label");
}

TEST_F(BrokenFilesTest, oneBrokenDialogSpoilsTheWholeFile)
{
  expectRefused(header + "TopLevelDialog { label \"good\" }\nTopLevelDialog { labell \"bad\" }\n", "line   3");
}

TEST_F(BrokenFilesTest, aReferenceToNothingIsNamed)
{
  expectRefused(header + "TopLevelDialog {\n  USE Nothing\n}\n", "Nothing");
}

TEST_F(BrokenFilesTest, aDialogThatContainsItselfIsRefused)
{
  expectRefused(header + "DEF A TopLevelDialog {\n  USE A\n}\n", "line   3");
}

TEST_F(BrokenFilesTest, aDialogInItsOwnGeometryIsRefused)
{
  expectRefused(header + "DEF A TopLevelDialog {\n  frame Group { USE A }\n}\n", "inside itself");
}

TEST_F(BrokenFilesTest, aSeparatorThatContainsItselfIsRefused)
{
  expectRefused(header + "DEF A Separator {\n  USE A\n}\nTopLevelDialog {}\n", "inside itself");
}

TEST_F(BrokenFilesTest, geometryThatContainsItselfIsRefused)
{
  expectRefused(header + "TopLevelDialog {\n  frame DEF A Group { Separator { USE A } }\n}\n", "inside itself");
}

TEST_F(BrokenFilesTest, oneNodeInTwoPlacesOfADialogStandsInTheFirst)
{
  const std::string path = writeFile("twice.iv", "TopLevelDialog {\n  DEF B DialogPushButton { auditorID \"b\" }\n"
                                                 "  DialogLabel {}\n  USE B\n}\n");
  Messages messages;
  SoTopLevelDialog* dialog = loadPath(path);
  ASSERT_NE(dialog, nullptr) << join(messages.all());
  EXPECT_EQ(dialog->getNumChildren(), 2);
  EXPECT_GE(messages.count("auditorID \"b\""), 1) << join(messages.all());
  EXPECT_GE(messages.count(path), 1) << join(messages.all());
  EXPECT_NE(dialog->buildDialog(nullptr, FALSE), nullptr);
}

TEST_F(BrokenFilesTest, oneNodeInTwoDialogsStandsInTheFirst)
{
  const std::string path = writeFile("twice.iv", "TopLevelDialog { auditorID \"1\" DEF B DialogPushButton {} }\n"
                                                 "TopLevelDialog { auditorID \"2\" USE B }\n");
  Messages messages;
  auto* first = static_cast<SoTopLevelDialog*>(SoQuillform::loadFromFile(path.c_str(), "1"));
  auto* second = static_cast<SoTopLevelDialog*>(SoQuillform::loadFromFile(path.c_str(), "2"));
  ASSERT_NE(first, nullptr) << join(messages.all());
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(first->getNumChildren(), 1);
  EXPECT_EQ(second->getNumChildren(), 0);
  EXPECT_EQ(first->getChild(0)->getParent(), first);
  EXPECT_GE(messages.count(path), 1);
}

TEST_F(BrokenFilesTest, oneDialogTwiceAtTheTopIsOneDialog)
{
  const std::string path = writeFile("twice.iv", "DEF A TopLevelDialog { label \"x\" }\nUSE A\n");
  SoTopLevelDialog* dialog = loadPath(path);
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->label.getValue(), SbString("x"));
  dialog->close();
  dialog->close();
  EXPECT_EQ(SoQuillform::getInstanceCount(), 0);
  EXPECT_NE(loadPath(path), nullptr);
}

TEST_F(BrokenFilesTest, aHundredThousandLevelsOfSeparatorsAreRefused)
{
  const int levels = 100000;
  expectRefused(header + repeated("Separator {\n", levels) + repeated("}\n", levels) + "TopLevelDialog {}\n", "line ");
}

TEST_F(BrokenFilesTest, aHundredThousandLevelsOfDialogsAreRefused)
{
  const int levels = 100000;
  expectRefused(header + repeated("TopLevelDialog {\n", levels) + repeated("}\n", levels), "line");
}

TEST_F(BrokenFilesTest, aHundredThousandLevelsWithoutAnEndAreRefused)
{
  expectRefused(header + repeated("Separator {", 100000), "line   2");
}

TEST_F(BrokenFilesTest, aHundredThousandLevelsOfAnotherHeaderAreRefused)
{
  const int levels = 100000;
  expectRefused("#VRML V2.0 utf8\n" + repeated("Group { children [\n", levels) + repeated("] }\n", levels), "line");
  expectRefused("#VRML V1.0 ascii\n" + repeated("Separator {\n", levels) + repeated("}\n", levels), "line");
}

TEST_F(BrokenFilesTest, aHundredThousandLevelsInAFieldAreRefused)
{
  const int levels = 100000;
  expectRefused(header + "TopLevelDialog {\n frame Group {\n" + repeated("Separator {\n", levels) +
                  repeated("}\n", levels) + "}\n}\n",
                "line");
}

TEST_F(BrokenFilesTest, aHundredThousandLevelsInABinaryFileAreRefused)
{
  // One level: the class name, no fields, and one child.
  const std::string nested = toBinary(header + "Separator { Separator { Separator { Separator { } } } }");
  const std::string flat = toBinary(header + "Separator { Separator { Separator { } } }");
  const std::string one = toBinary(header + "Separator { Separator { } }");
  const std::size_t level = flat.size() - one.size();
  ASSERT_EQ(nested.size() - flat.size(), level);
  // The levels follow each other from the start; the innermost one ends the file.
  std::size_t start = 0;
  while (nested.compare(start, level, nested, start + level, level) != 0) {
    ++start;
  }
  expectRefused(nested.substr(0, start) + repeated(nested.substr(start, level), 100000) + nested.substr(start), "deep");
}

TEST_F(BrokenFilesTest, whatIsJustNotTooDeepCanBeUsed)
{
  const int levels = 490;
  const std::string path = writeFile("deep.iv", "TopLevelDialog { frame Group {" + repeated("Separator {\n", levels) +
                                                  " Cube {} " + repeated("}\n", levels) + "} DialogLabel {} }\n");
  Messages messages;
  SoTopLevelDialog* dialog = loadPath(path);
  ASSERT_NE(dialog, nullptr) << join(messages.all());
  Scene scene;
  scene.open(dialog);
  SoGetBoundingBoxAction measure(SbViewportRegion(100, 100));
  measure.apply(scene.root());
  EXPECT_FALSE(measure.getBoundingBox().isEmpty());
  EXPECT_NE(toText(dialog).find("Cube"), std::string::npos);
  EXPECT_TRUE(messages.all().empty()) << join(messages.all());
}

TEST_F(BrokenFilesTest, bracesInStringsAndCommentsDoNotNest)
{
  const std::string path = writeFile("braces.iv", "\n# " + repeated("{", 1000) + "\nTopLevelDialog {\n label \"" +
                                                    repeated("{\\\"", 1000) + "\"\n}\n");
  SoTopLevelDialog* dialog = loadPath(path);
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->label.getValue().getLength(), 2000);
}

TEST_F(BrokenFilesTest, aFileCutAnywhereIsRefusedOrWhole)
{
  const std::size_t end = small.rfind('}') + 1;
  for (std::size_t size = 0; size <= small.size(); size++) {
    Messages messages;
    const std::string path = writeBytes("cut" + std::to_string(size) + ".iv", small.substr(0, size));
    SoTopLevelDialog* dialog = loadPath(path);
    if (size >= end) {
      ASSERT_NE(dialog, nullptr) << size;
      EXPECT_EQ(dialog->getNumChildren(), 2);
    }
    else {
      ASSERT_EQ(dialog, nullptr) << "cut after " << size << " bytes:\n" << small.substr(0, size);
      EXPECT_GE(messages.count(path), 1) << size << "\n" << join(messages.all());
      EXPECT_EQ(SoQuillform::getInstanceCount(), 0) << "cut after " << size << " bytes";
    }
  }
}

TEST_F(BrokenFilesTest, aGoodBinaryFileLoadsLikeItsText)
{
  const std::string path = writeBytes("good.iv", toBinary(small));
  const std::string asText = writeBytes("text.iv", small);
  Messages messages;
  SoTopLevelDialog* dialog = loadPath(path);
  ASSERT_NE(dialog, nullptr) << join(messages.all());
  EXPECT_EQ(toText(dialog), toText(loadPath(asText)));
  EXPECT_TRUE(messages.all().empty()) << join(messages.all());
}

TEST_F(BrokenFilesTest, aBinaryFileCutAnywhereIsRefusedOrWhole)
{
  const std::string bytes = toBinary(small);
  const std::string whole = toText(loadPath(writeBytes("whole.iv", bytes)));
  const int alive = SoQuillform::getInstanceCount();
  for (std::size_t size = 0; size < bytes.size(); size++) {
    Messages messages;
    const std::string path = writeBytes("cut" + std::to_string(size) + ".iv", bytes.substr(0, size));
    SoTopLevelDialog* dialog = loadPath(path);
    EXPECT_EQ(dialog, nullptr) << "cut after " << size << " of " << bytes.size() << " bytes";
    EXPECT_GE(messages.count(path), 1) << size << "\n" << join(messages.all());
    EXPECT_EQ(SoQuillform::getInstanceCount(), alive) << "cut after " << size << " bytes";
  }
}

TEST_F(BrokenFilesTest, binaryFilesWithWrongBytesDoNoHarm)
{
  const std::string bytes = toBinary(small);
  std::mt19937 random(4711);
  Messages messages;
  int refused = 0;
  for (int i = 0; i < 400; i++) {
    std::string wrong = bytes;
    for (unsigned int n = 0; n <= random() % 3; n++) {
      wrong[random() % wrong.size()] = static_cast<char>(random() % 256);
    }
    messages.clear();
    const std::string path = writeBytes("wrong" + std::to_string(i) + ".iv", wrong);
    SoTopLevelDialog* dialog = loadPath(path);
    if (dialog) {
      dialog->buildDialog(nullptr, FALSE);
      EXPECT_FALSE(toText(dialog).empty());
    }
    else {
      EXPECT_GE(messages.count(path), 1) << i;
      ++refused;
    }
  }
  EXPECT_GT(refused, 50);
}

TEST_F(BrokenFilesTest, textFilesWithWrongBytesDoNoHarm)
{
  std::mt19937 random(815);
  Messages messages;
  int refused = 0;
  for (int i = 0; i < 400; i++) {
    std::string wrong = small;
    for (unsigned int n = 0; n <= random() % 3; n++) {
      wrong[header.size() + random() % (wrong.size() - header.size())] = static_cast<char>(random() % 256);
    }
    messages.clear();
    const std::string path = writeBytes("wrong" + std::to_string(i) + ".iv", wrong);
    SoTopLevelDialog* dialog = loadPath(path);
    if (dialog) {
      dialog->buildDialog(nullptr, FALSE);
      EXPECT_FALSE(toText(dialog).empty());
    }
    else {
      EXPECT_GE(messages.count(path), 1) << i << "\n" << wrong;
      ++refused;
    }
  }
  EXPECT_GT(refused, 50);
}
