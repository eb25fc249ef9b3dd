#include <Inventor/SoInput.h>
#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QDir>
#include <QFileInfo>
#include <Quillform/Quillform.h>
#include <support/Messages.h>
#include <support/TestFiles.h>

/// Skins in the test's own directory, which is also the working directory.
class SkinPathTest : public QuillformTest {
protected:
  SkinPathTest() : m_before(QDir::currentPath())
  {
    SoPreferences::unset("QUILLFORM_SKINS_DIR");
    QDir::setCurrent(QString::fromStdString(pathOf(".")));
  }
  ~SkinPathTest() override
  {
    QDir::setCurrent(m_before);
    unsetenv("ARBHOME");
    unsetenv("QUILLFORM_SKINS_DIR");
  }

  void makeDirectory(const std::string& name)
  {
    ASSERT_TRUE(QDir().mkpath(QString::fromStdString(pathOf(name))));
  }

  /// A skin whose text properties hold one node named \a mark.
  void makeSkin(const std::string& directory, const std::string& mark)
  {
    makeDirectory(directory);
    writeFile(directory + "/TextProperties.iv", "DEF DialogTextProperties Group { DEF " + mark + " Info {} }");
  }

  std::string absolute(const std::string& name)
  {
    return QFileInfo(QString::fromStdString(pathOf(name))).absoluteFilePath().toStdString();
  }

  static std::string path()
  {
    return SoQuillform::getSkinsPath().getString();
  }

private:
  QString m_before;
};

TEST_F(SkinPathTest, thereAreNoDirectoriesWithoutPreferences)
{
  EXPECT_EQ(SoQuillform::getSkinsDirectories(), SbString(""));
}

TEST_F(SkinPathTest, theInstallationRootComesFirst)
{
  setenv("ARBHOME", "/opt/root", 1);
  EXPECT_EQ(SoQuillform::getSkinsDirectories(), SbString("/opt/root/data/Quillform/skins/"));
  setenv("QUILLFORM_SKINS_DIR", "/a;/b", 1);
  EXPECT_EQ(SoQuillform::getSkinsDirectories(), SbString("/opt/root/data/Quillform/skins/;/a;/b"));
  unsetenv("ARBHOME");
  EXPECT_EQ(SoQuillform::getSkinsDirectories(), SbString("/a;/b"));
}

TEST_F(SkinPathTest, emptyPreferencesCountAsUnset)
{
  setenv("ARBHOME", "", 1);
  setenv("QUILLFORM_SKINS_DIR", "", 1);
  EXPECT_EQ(SoQuillform::getSkinsDirectories(), SbString(""));
}

TEST_F(SkinPathTest, storedDirectoriesHideTheEnvironment)
{
  setenv("QUILLFORM_SKINS_DIR", "/environment", 1);
  SoQuillform::setSkinsDirectories("/stored");
  EXPECT_EQ(SoQuillform::getSkinsDirectories(), SbString("/stored"));
  EXPECT_EQ(SoPreferences::getString("QUILLFORM_SKINS_DIR", ""), SbString("/stored"));
}

TEST_F(SkinPathTest, isEmptyUntilASkinWasFound)
{
  EXPECT_EQ(path(), "");
}

TEST_F(SkinPathTest, unknownNamesChangeNothingAndSayNothing)
{
  Messages messages;
  SoQuillform::setSkin("no such skin");
  EXPECT_EQ(path(), "");
  SoQuillform::setSkin(QUILLFORM_TEST_SKINS "/dark");
  const std::string before = path();
  SoQuillform::setSkin("no such skin");
  SoQuillform::setSkin("");
  EXPECT_EQ(path(), before);
  EXPECT_TRUE(messages.all().empty());
}

TEST_F(SkinPathTest, anEmptyNameFindsNothingEvenWithDirectories)
{
  makeSkin("skins/one", "One");
  SoQuillform::setSkinsDirectories(pathOf("skins").c_str());
  SoQuillform::setSkin("");
  EXPECT_EQ(path(), "");
}

TEST_F(SkinPathTest, aPathIsTakenAsItIs)
{
  Messages messages;
  makeSkin("anywhere", "Anywhere");
  SoQuillform::setSkin(pathOf("anywhere").c_str());
  EXPECT_EQ(path(), absolute("anywhere"));
}

TEST_F(SkinPathTest, theWorkingDirectoryWinsOverTheSkinDirectories)
{
  Messages messages;
  makeSkin("mine", "Local");
  makeSkin("skins/mine", "Shared");
  SoQuillform::setSkinsDirectories(pathOf("skins").c_str());
  SoQuillform::setSkin("mine");
  EXPECT_EQ(path(), absolute("mine"));
  EXPECT_NE(SoNode::getByName("Local"), nullptr);
  EXPECT_EQ(SoNode::getByName("Shared"), nullptr);
}

TEST_F(SkinPathTest, theFirstDirectoryThatHasTheSkinWins)
{
  Messages messages;
  makeDirectory("first");
  makeSkin("second/mine", "Second");
  makeSkin("third/mine", "Third");
  SoQuillform::setSkinsDirectories((pathOf("first") + ";" + pathOf("second") + ";" + pathOf("third")).c_str());
  SoQuillform::setSkin("mine");
  EXPECT_EQ(path(), absolute("second/mine"));
}

TEST_F(SkinPathTest, theInstallationRootIsSearchedFirst)
{
  Messages messages;
  makeSkin("root/data/Quillform/skins/mine", "Root");
  makeSkin("more/mine", "More");
  setenv("ARBHOME", pathOf("root").c_str(), 1);
  SoQuillform::setSkinsDirectories(pathOf("more").c_str());
  SoQuillform::setSkin("mine");
  EXPECT_EQ(path(), absolute("root/data/Quillform/skins/mine"));
}

TEST_F(SkinPathTest, directoriesMayBeWrittenWithBackslashes)
{
  Messages messages;
  makeSkin("skins/mine", "Mine");
  std::string directories = pathOf("skins");
  directories.replace(directories.rfind('/'), 1, "\\");
  SoQuillform::setSkinsDirectories(directories.c_str());
  SoQuillform::setSkin("mine");
  EXPECT_EQ(path(), absolute("skins/mine"));
}

TEST_F(SkinPathTest, emptyEntriesOfTheDirectoriesAreNoRoot)
{
  Messages messages;
  SoQuillform::setSkinsDirectories(";;");
  SoQuillform::setSkin("tmp");
  EXPECT_EQ(path(), "");
}

TEST_F(SkinPathTest, isAbsoluteAndStaysWhenTheWorkingDirectoryChanges)
{
  Messages messages;
  makeSkin("mine", "Mine");
  SoQuillform::setSkin("mine");
  EXPECT_EQ(path(), absolute("mine"));
  QDir::setCurrent("/");
  SoSeparator* root = SoQuillform::readFromFile("TextProperties.iv");
  ASSERT_NE(root, nullptr);
  root->ref();
  root->unref();
}

TEST_F(SkinPathTest, survivesFinish)
{
  Messages messages;
  makeSkin("mine", "Mine");
  SoQuillform::setSkin("mine");
  SoQuillform::finish();
  SoQuillform::init();
  EXPECT_EQ(path(), absolute("mine"));
}

TEST_F(SkinPathTest, theFirstReadSelectsTheDefaultSkin)
{
  SoQuillform::setSkinsDirectories(QUILLFORM_TEST_SKINS);
  SoSeparator* root = SoQuillform::readFromFile("TextProperties.iv");
  ASSERT_NE(root, nullptr);
  root->ref();
  root->unref();
  EXPECT_EQ(QFileInfo(path().c_str()).fileName(), "default");
}

TEST_F(SkinPathTest, theFirstReadSelectsThePreferredSkin)
{
  SoQuillform::setSkinsDirectories(QUILLFORM_TEST_SKINS);
  setenv("QUILLFORM_SKIN", "dark", 1);
  SoQuillform::loadFontProperties();
  unsetenv("QUILLFORM_SKIN");
  EXPECT_EQ(QFileInfo(path().c_str()).fileName(), "dark");
}

TEST_F(SkinPathTest, withoutAnySkinNothingIsReadNotEvenFromTheWorkingDirectory)
{
  writeFile("TextProperties.iv", "DEF FromHere Group {}");
  EXPECT_EQ(SoQuillform::readFromFile("TextProperties.iv"), nullptr);
  EXPECT_EQ(SoNode::getByName("FromHere"), nullptr);
}

TEST_F(SkinPathTest, aSkinsFileWinsOverOneInTheWorkingDirectory)
{
  Messages messages;
  writeFile("TextProperties.iv", "DEF FromHere Group {}");
  makeSkin("skins/mine", "FromTheSkin");
  SoQuillform::setSkin(pathOf("skins/mine").c_str());
  SoSeparator* root = SoQuillform::readFromFile("TextProperties.iv");
  ASSERT_NE(root, nullptr);
  root->ref();
  EXPECT_EQ(SoNode::getByName("FromHere"), nullptr);
  root->unref();
}

TEST_F(SkinPathTest, aFileThatTheSkinLacksIsNotLookedForElsewhere)
{
  Messages messages;
  makeSkin("skins/mine", "Mine");
  writeFile("Other.iv", "DEF FromHere Group {}");
  SoInput::addDirectoryLast(pathOf(".").c_str());
  SoQuillform::setSkin(pathOf("skins/mine").c_str());
  messages.clear();
  EXPECT_EQ(SoQuillform::readFromFile("Other.iv"), nullptr);
  EXPECT_TRUE(messages.all().empty());
  SoInput::removeDirectory(pathOf(".").c_str());
}

TEST_F(SkinPathTest, theReadersSearchDirectoriesComeBackInOrder)
{
  Messages messages;
  makeSkin("skins/mine", "Mine");
  SoInput::addDirectoryLast("/one");
  SoInput::addDirectoryLast("/two");
  const auto directories = [] {
    std::vector<std::string> result;
    for (int i = 0; i < SoInput::getDirectories().getLength(); i++) {
      result.emplace_back(SoInput::getDirectories()[i]->getString());
    }
    return result;
  };
  const std::vector<std::string> before = directories();
  ASSERT_GE(before.size(), 2U);
  SoQuillform::setSkin(pathOf("skins/mine").c_str());
  EXPECT_EQ(directories(), before);
  EXPECT_EQ(SoQuillform::readFromFile("Missing.iv"), nullptr);
  EXPECT_EQ(directories(), before);
  writeFile("skins/mine/Broken.iv", "Group {");
  EXPECT_EQ(SoQuillform::readFromFile("Broken.iv"), nullptr);
  EXPECT_EQ(directories(), before);
  SoInput::removeDirectory("/one");
  SoInput::removeDirectory("/two");
}

TEST_F(SkinPathTest, aMissingFileIsReportedAndTheLongTextComesOnce)
{
  makeDirectory("empty");
  Messages messages;
  SoQuillform::setSkin(pathOf("empty").c_str());
  const std::string first = "Quillform::readDefaultSkinsParts(): The skin file : <TextProperties.iv> cannot be found."
                            "\nIMPORTANT : Internal Quillform component skin is loaded to prevent from your "
                            "application to exit.\nFor loading your own Quillform skins, please verify the "
                            "QUILLFORM_SKINS_DIR environment variable.";
  EXPECT_EQ(messages.count(first), 1);
  EXPECT_EQ(messages.count("IMPORTANT"), 1);
  EXPECT_EQ(messages.count("The skin file : <DialogPushButton.iv> cannot be found."), 1);
  const std::size_t files = messages.all().size();
  EXPECT_EQ(messages.count("Quillform::readDefaultSkinsParts"), static_cast<int>(files));
  messages.clear();
  SoQuillform::change3DSkin();
  EXPECT_EQ(messages.all().size(), files);
  EXPECT_EQ(messages.count("IMPORTANT"), 0);
}

TEST_F(SkinPathTest, theBuiltInTextIsReadInstead)
{
  Messages messages;
  SoQuillform::readDefaultSkinsParts("NoSuchPart.iv", "#Inventor V2.1 ascii\nDEF BuiltInPart Group { Cube {} }");
  auto* group = dynamic_cast<SoGroup*>(SoNode::getByName("BuiltInPart"));
  ASSERT_NE(group, nullptr);
  EXPECT_EQ(group->getNumChildren(), 1);
  EXPECT_EQ(messages.count("<NoSuchPart.iv> cannot be found."), 1);
}

TEST_F(SkinPathTest, noBuiltInTextReadsNothing)
{
  Messages messages;
  SoQuillform::readDefaultSkinsParts("NoSuchPart.iv", "");
  SoQuillform::readDefaultSkinsParts("NoSuchPart.iv", nullptr);
  EXPECT_EQ(messages.count("<NoSuchPart.iv> cannot be found."), 2);
  EXPECT_EQ(messages.all().size(), 2U);
}

TEST_F(SkinPathTest, whatAFileDefinesStaysKnown)
{
  Messages messages;
  makeSkin("skins/mine", "Mine");
  SoQuillform::setSkin(pathOf("skins/mine").c_str());
  writeFile("skins/mine/More.iv", "DEF Kept Group {}");
  SoQuillform::readDefaultSkinsParts("More.iv", "");
  EXPECT_NE(SoNode::getByName("Kept"), nullptr);
}
