#include "Program.h"

#include <QDir>
#include <QFile>

class UsageTest : public ProgramTest {
protected:
  UsageTest()
  {
    write("a.iv", "TopLevelDialog { DialogPushButton { buttonLabel \"Go\" } }");
  }

  /// Makes a directory with a skin file in it.
  void makeSkin(const QString& directory) const
  {
    ASSERT_TRUE(QDir().mkpath(pathOf(directory)));
    write(directory + "/TopLevelDialog.iv", "Separator { DEF TopLevelDialogFrame Group { } }");
  }
};

TEST_F(UsageTest, helpShowsEveryOptionWithAnExample)
{
  const Result result = run({"--help"});
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("", result.errors.toStdString());
  for (const char* option : {"--id", "--scene", "--screenshot", "--click", "--press", "--size", "--skin", "--skins-dir",
                             "--trace", "--dump", "--check", "--help", "--version"}) {
    const QByteArray name(option);
    EXPECT_TRUE(result.output.contains("\n  " + name + " ")) << option;
    bool hasExample = false;
    for (const QByteArray& line : result.output.split('\n')) {
      hasExample = hasExample || (line.trimmed().startsWith("quillform-view ") && line.contains(name));
      EXPECT_LE(line.size(), 80) << line.toStdString();
    }
    EXPECT_TRUE(hasExample) << option;
  }
}

TEST_F(UsageTest, versionIsTheLibrarys)
{
  const Result result = run({"--version"});
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("quillform-view " QUILLFORM_VERSION "\n", result.output.toStdString());
}

TEST_F(UsageTest, wrongOptionsAreRefused)
{
  expectFailure(run({"--nothing", "a.iv"}), 1, {"nothing", "--help"});
  expectFailure(run({"-x", "a.iv"}), 1, {"x", "--help"});
  expectFailure(run({"--scene=yes", "a.iv"}), 1, {"scene"});
  expectFailure(run({"a.iv", "--size"}), 1, {"size"});
}

TEST_F(UsageTest, aFileIsNeeded)
{
  expectFailure(run({}), 1, {"file"});
  expectFailure(run({"--check"}), 1, {"file"});
}

TEST_F(UsageTest, wrongSizesAreRefused)
{
  for (const char* size : {"", "640", "x480", "640x", "640x480x2", "640,480", "0x480", "640x0", "-640x480", "6e2x480",
                           "16385x10", "10x16385", "99999999999x1", " 640x480", "640 x 480"}) {
    expectFailure(run({"--check", QString("--size=%1").arg(size), "a.iv"}), 1, {"--size", "640x480"});
  }
}

TEST_F(UsageTest, tasksExcludeEachOther)
{
  expectFailure(run({"--dump", "--check", "a.iv"}), 1, {"--dump", "--check"});
  expectFailure(run({"--dump", "--screenshot", "a.png", "a.iv"}), 1, {"--dump", "--screenshot"});
}

TEST_F(UsageTest, aScreenshotIsOfOneFile)
{
  expectFailure(run({"--screenshot", "a.png", "a.iv", "a.iv"}), 1, {"--screenshot", "one"});
  expectFailure(run({"--screenshot", "", "a.iv"}), 1, {"--screenshot"});
}

TEST_F(UsageTest, pressingIsForPictures)
{
  for (const QString option : {"--click", "--press"}) {
    expectFailure(run({option, "ok", "a.iv"}), 1, {option, "--screenshot"});
    expectFailure(run({option, "ok", "--check", "a.iv"}), 1, {option, "--screenshot"});
    expectFailure(run({option, "", "--screenshot", "a.png", "a.iv"}), 1, {option, "auditorID"});
  }
}

TEST_F(UsageTest, aWindowNeedsADisplay)
{
  expectFailure(run({"a.iv"}), 1, {"display", "DISPLAY", "--screenshot"});
  expectFailure(run({"--scene", "a.iv"}), 1, {"display", "OpenGL", "xvfb-run"});
  environment.insert("DISPLAY", ":9999");
  expectFailure(run({"a.iv"}), 1, {"display", "DISPLAY"});
}

TEST_F(UsageTest, theSceneNeedsOpenGL)
{
  expectFailure(run({"--scene", "--screenshot", "a.png", "a.iv"}), 1, {"OpenGL", "xvfb-run"});
  environment.insert("QT_QPA_PLATFORM", "offscreen");
  expectFailure(run({"--scene", "--screenshot", "a.png", "a.iv"}), 1, {"OpenGL", "xvfb-run"});
  expectFailure(run({"--scene", "a.iv"}), 1, {"OpenGL", "xvfb-run"});
  EXPECT_FALSE(QFile::exists(pathOf("a.png")));
}

TEST_F(UsageTest, anUnknownSkinNamesTheDirectoriesLookedIn)
{
  expectFailure(run({"--skin", "nowhere", "--check", "a.iv"}), 1,
                {"\"nowhere\"", pathOf(""), QUILLFORM_SKINS, "--skins-dir"});
  environment.insert("QUILLFORM_SKINS_DIR", "/some/skins;/more/skins");
  environment.insert("ARBHOME", "/home/of/it");
  expectFailure(run({"--skin", "nowhere", "--check", "a.iv"}), 1,
                {"\"nowhere\"", "/home/of/it/data/Quillform/skins", "/some/skins", "/more/skins"});
}

TEST_F(UsageTest, skinsAreFoundInTheGivenDirectories)
{
  makeSkin("one/first");
  makeSkin("two/second");
  ASSERT_TRUE(QDir().mkpath(pathOf("first"))); // has the name and holds no skin
  EXPECT_EQ(1, run({"--skin", "first", "--check", "a.iv"}).status);
  EXPECT_EQ(0, run({"--skin", "first", "--skins-dir", "one", "--check", "a.iv"}).status);
  EXPECT_EQ(0, run({"--skin", "second", "--skins-dir", "one", "--skins-dir", "two", "--check", "a.iv"}).status);
  EXPECT_EQ(0, run({"--skin", "one/first", "--check", "a.iv"}).status);
  EXPECT_EQ(0, run({"--skin", pathOf("two/second"), "--check", "a.iv"}).status);
  expectFailure(run({"--skins-dir", "three", "--check", "a.iv"}), 1, {"--skins-dir", "\"three\""});
  expectFailure(run({"--skins-dir", "one", "--check", "a.iv"}), 1, {"\"default\"", pathOf(""), "one"});
}

TEST_F(UsageTest, theGivenSkinsDirectoryGoesBeforeTheEnvironment)
{
  makeSkin("one/mine");
  environment.insert("QUILLFORM_SKINS_DIR", "/some/skins");
  environment.insert("ARBHOME", "/home/of/it");
  const Result result = run({"--skin", "nowhere", "--skins-dir", "one", "--check", "a.iv"});
  EXPECT_EQ(1, result.status);
  EXPECT_FALSE(result.errors.contains("/some/skins")) << result.errors.toStdString();
  EXPECT_FALSE(result.errors.contains("/home/of/it")) << result.errors.toStdString();
}

TEST_F(UsageTest, theInstalledProgramFindsTheInstalledSkins)
{
  makeSkin("prefix/share/quillform/data/Quillform/skins/installed");
  ASSERT_TRUE(QDir().mkpath(pathOf("prefix/bin")));
  ASSERT_TRUE(QFile::copy(QUILLFORM_VIEW, pathOf("prefix/bin/quillform-view")));
  EXPECT_EQ(1, run({"--skin", "installed", "--check", "a.iv"}).status);
  program = pathOf("prefix/bin/quillform-view");
  EXPECT_EQ(0, run({"--skin", "installed", "--check", "a.iv"}).status);
}
