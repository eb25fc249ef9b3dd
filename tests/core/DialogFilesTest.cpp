#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoOutput.h>
#include <Inventor/SoPath.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QDir>
#include <Quillform/Quillform.h>
#include <support/Messages.h>
#include <support/TestFiles.h>

namespace {

const char* const twoDialogs = "Cube {}\n"
                               "TopLevelDialog { auditorID \"one\" label \"first\" }\n"
                               "SoTopLevelDialog { auditorID \"two\" label \"second\" }\n"
                               "TopLevelDialog { auditorID \"two\" label \"third\" }\n";

SoQuillform* loadAny(const std::string& path, const char* id)
{
  return SoQuillform::loadFromFile(path.c_str(), id);
}

} // namespace

class DialogFilesTest : public QuillformTest {};

TEST_F(DialogFilesTest, anEmptyIdentifierGivesTheFirstElementOfTheFile)
{
  const std::string path = writeFile("two.iv", twoDialogs);
  SoQuillform* found = loadAny(path, "");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->label.getValue(), SbString("first"));
}

TEST_F(DialogFilesTest, anIdentifierGivesTheFirstElementThatHasIt)
{
  const std::string path = writeFile("two.iv", twoDialogs);
  SoQuillform* found = loadAny(path, "two");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->label.getValue(), SbString("second"));
}

TEST_F(DialogFilesTest, anyKindOfElementMayStandAtTheTop)
{
  const std::string path = writeFile("button.iv", "DialogPushButton { auditorID \"b\" }");
  SoQuillform* found = loadAny(path, "b");
  ASSERT_NE(found, nullptr);
  EXPECT_TRUE(found->isOfType(SoDialogPushButton::getClassTypeId()));
}

TEST_F(DialogFilesTest, anElementInsideAGroupIsNeverFound)
{
  Messages messages;
  const std::string path = writeFile("nested.iv", "Group { TopLevelDialog { auditorID \"in\" } }\n"
                                                  "Separator { TopLevelDialog { auditorID \"in\" } }\n"
                                                  "TopLevelDialog { DialogLabel { auditorID \"in\" } }\n");
  EXPECT_EQ(loadAny(path, "in"), nullptr);
  SoQuillform* first = loadAny(path, "");
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->auditorID.getValue(), SbString(""));
}

TEST_F(DialogFilesTest, aMissingIdentifierIsNamedInTheMessage)
{
  const std::string path = writeFile("two.iv", twoDialogs);
  Messages messages;
  EXPECT_EQ(loadAny(path, "three"), nullptr);
  ASSERT_EQ(messages.all().size(), 1U);
  EXPECT_EQ(messages.count("SoQuillform::loadFromFile"), 1);
  EXPECT_EQ(
    messages.count("Cannot find any Quillform component with auditorID = \"three\" in Arborel file \"" + path + "\"."),
    1);
}

TEST_F(DialogFilesTest, aFileWithoutElementsIsNamedInTheMessage)
{
  const std::string path = writeFile("cube.iv", "Cube {}");
  Messages messages;
  EXPECT_EQ(loadAny(path, ""), nullptr);
  ASSERT_EQ(messages.all().size(), 1U);
  EXPECT_EQ(messages.count("Cannot find any Quillform component in Arborel file \"" + path + "\"."), 1);
}

TEST_F(DialogFilesTest, percentSignsInNamesArePrintedAsTheyAre)
{
  const std::string path = writeFile("100%s%n.iv", "Cube {}");
  Messages messages;
  EXPECT_EQ(loadAny(path, "%s%d"), nullptr);
  EXPECT_EQ(messages.count("auditorID = \"%s%d\" in Arborel file \"" + path + "\"."), 1);
}

TEST_F(DialogFilesTest, theSameNameGivesTheSameNodeEvenIfTheFileHasChanged)
{
  const std::string path = writeFile("dialog.iv", "TopLevelDialog { label \"old\" }");
  SoQuillform* first = loadAny(path, "");
  ASSERT_NE(first, nullptr);
  writeFile("dialog.iv", "TopLevelDialog { label \"new\" }");
  EXPECT_EQ(loadAny(path, ""), first);
  EXPECT_EQ(first->label.getValue(), SbString("old"));
}

TEST_F(DialogFilesTest, namesAreComparedAsTheyWerePassed)
{
  const std::string path = writeFile("dialog.iv", "TopLevelDialog {}");
  SoQuillform* first = loadAny(path, "");
  const std::size_t slash = path.rfind('/');
  SoQuillform* second = loadAny(path.substr(0, slash) + "/." + path.substr(slash), "");
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
}

TEST_F(DialogFilesTest, aFileWithoutAMatchStaysInTheCache)
{
  const std::string path = writeFile("dialog.iv", "TopLevelDialog { auditorID \"a\" }");
  Messages messages;
  EXPECT_EQ(loadAny(path, "b"), nullptr);
  writeFile("dialog.iv", "TopLevelDialog { auditorID \"b\" }");
  EXPECT_EQ(loadAny(path, "b"), nullptr);
  EXPECT_NE(loadAny(path, "a"), nullptr);
  EXPECT_EQ(messages.count("Cannot find any Quillform component"), 2);
}

TEST_F(DialogFilesTest, theCacheHoldsTheOnlyReference)
{
  const std::string path = writeFile("dialog.iv", "TopLevelDialog {}");
  SoQuillform* dialog = loadAny(path, "");
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->getRefCount(), 1);
  loadAny(path, "");
  EXPECT_EQ(dialog->getRefCount(), 1);
}

TEST_F(DialogFilesTest, finishEmptiesTheCache)
{
  const std::string path = writeFile("dialog.iv", "TopLevelDialog { label \"old\" }");
  SoQuillform* kept = loadAny(path, "");
  ASSERT_NE(kept, nullptr);
  kept->ref();
  SoQuillform::finish();
  SoQuillform::init();
  EXPECT_EQ(kept->getRefCount(), 1);
  writeFile("dialog.iv", "TopLevelDialog { label \"new\" }");
  SoQuillform* fresh = loadAny(path, "");
  ASSERT_NE(fresh, nullptr);
  EXPECT_NE(fresh, kept);
  EXPECT_EQ(fresh->label.getValue(), SbString("new"));
  kept->unref();
  EXPECT_EQ(SoQuillform::getInstanceCount(), 1);
}

TEST_F(DialogFilesTest, anElementThatWasReleasedIsReadAfresh)
{
  const std::string path = writeFile("dialog.iv", "TopLevelDialog { label \"old\" }");
  SoQuillform* dialog = loadAny(path, "");
  ASSERT_NE(dialog, nullptr);
  static_cast<SoTopLevelDialog*>(dialog)->close();
  EXPECT_EQ(SoQuillform::getInstanceCount(), 0);
  writeFile("dialog.iv", "TopLevelDialog { label \"new\" }");
  SoQuillform* fresh = loadAny(path, "");
  ASSERT_NE(fresh, nullptr);
  EXPECT_EQ(fresh->label.getValue(), SbString("new"));
}

TEST_F(DialogFilesTest, releasingOneOfTwoElementsLeavesTheOtherUsable)
{
  const std::string path = writeFile("two.iv", twoDialogs);
  SoQuillform* first = loadAny(path, "one");
  SoQuillform* second = loadAny(path, "two");
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  static_cast<SoTopLevelDialog*>(first)->close();
  second->label = "still here";
  EXPECT_EQ(second->label.getValue(), SbString("still here"));
  SoQuillform* fresh = loadAny(path, "two");
  ASSERT_NE(fresh, nullptr);
  EXPECT_NE(fresh, second);
  SoQuillform::finish();
  EXPECT_EQ(SoQuillform::getInstanceCount(), 0);
}

TEST_F(DialogFilesTest, anElementTakenIntoASceneOutlivesTheCache)
{
  const std::string path = writeFile("dialog.iv", "TopLevelDialog {}");
  SoQuillform* dialog = loadAny(path, "");
  ASSERT_NE(dialog, nullptr);
  auto* scene = new SoSeparator;
  scene->ref();
  scene->addChild(dialog);
  SoQuillform::finish();
  EXPECT_EQ(dialog->getRefCount(), 1);
  SoQuillform::init();
  scene->unref();
  EXPECT_EQ(SoQuillform::getInstanceCount(), 0);
}

TEST_F(DialogFilesTest, filesAreFoundThroughTheReadersSearchDirectories)
{
  const std::string path = writeFile("searched.iv", "TopLevelDialog { label \"found\" }");
  SoInput::addDirectoryLast(path.substr(0, path.rfind('/')).c_str());
  SoQuillform* dialog = loadAny("searched.iv", "");
  SoInput::removeDirectory(path.substr(0, path.rfind('/')).c_str());
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->label.getValue(), SbString("found"));
}

TEST_F(DialogFilesTest, loadingLeavesTheSearchDirectoriesAlone)
{
  SoInput::addDirectoryLast("/somewhere");
  const int before = SoInput::getDirectories().getLength();
  Messages messages;
  load("TopLevelDialog {}");
  load("TopLevelDialog {");
  loadAny(pathOf("missing.iv"), "");
  EXPECT_EQ(SoInput::getDirectories().getLength(), before);
  SoInput::removeDirectory("/somewhere");
}

TEST_F(DialogFilesTest, writeNodeWritesTheTopSeparatorAsAscii)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { label \"text\" }");
  ASSERT_NE(dialog, nullptr);
  const std::string path = pathOf("written.iv");
  dialog->writeNode(path.c_str());
  SoInput input;
  ASSERT_TRUE(input.openFile(path.c_str()));
  EXPECT_FALSE(input.isBinary());
  SoNode* node = nullptr;
  ASSERT_TRUE(SoDB::read(&input, node));
  ASSERT_NE(node, nullptr);
  node->ref();
  EXPECT_TRUE(node->isOfType(SoSeparator::getClassTypeId()));
  node->unref();
}

TEST_F(DialogFilesTest, writeNodeReportsAFileThatCannotBeWritten)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog {}");
  ASSERT_NE(dialog, nullptr);
  Messages messages;
  const std::string path = pathOf("no/such/directory.iv");
  dialog->writeNode(path.c_str());
  EXPECT_EQ(messages.count("SoQuillform::writeNode(): \"" + path + "\""), 1);
}

TEST_F(DialogFilesTest, alongAPathIntoItsGeometryADialogWritesNoChildren)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { label \"text\" DialogLabel {} }");
  ASSERT_NE(dialog, nullptr);
  SoNode* geometry = (*dialog->getChildren())[0];
  ASSERT_FALSE(geometry->isOfType(SoQuillform::getClassTypeId()));
  auto* path = new SoPath(dialog);
  path->ref();
  path->append(0);
  for (const SbBool binary : {FALSE, TRUE}) {
    const std::string file = pathOf(binary ? "binary.iv" : "ascii.iv");
    SoOutput output;
    ASSERT_TRUE(output.openFile(file.c_str()));
    output.setBinary(binary);
    SoWriteAction write(&output);
    write.apply(path);
    output.closeFile();
    SoInput input;
    ASSERT_TRUE(input.openFile(file.c_str()));
    SoNode* read = nullptr;
    ASSERT_TRUE(SoDB::read(&input, read));
    ASSERT_NE(read, nullptr);
    read->ref();
    EXPECT_EQ(static_cast<SoTopLevelDialog*>(read)->label.getValue(), SbString("text"));
    EXPECT_EQ(static_cast<SoTopLevelDialog*>(read)->getNumChildren(), 0);
    read->unref();
  }
  path->unref();
}
