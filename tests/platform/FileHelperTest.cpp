#include <QTemporaryDir>
#include <Quillform/platform/SbFileHelper.h>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace {

std::string expand(const char* path)
{
  return SbFileHelper::expandString(path).getString();
}

} // namespace

TEST(FileHelperTest, aLeadingTildeIsTheHomeDirectory)
{
  setenv("HOME", "/home/someone", 1);
  EXPECT_EQ(expand("~"), "/home/someone");
  EXPECT_EQ(expand("~/skins"), "/home/someone/skins");
  EXPECT_EQ(expand("~other/skins"), "~other/skins");
  EXPECT_EQ(expand("skins/~"), "skins/~");
}

TEST(FileHelperTest, variablesAreReplacedWithAndWithoutBraces)
{
  setenv("QF_ROOT", "/data", 1);
  EXPECT_EQ(expand("$QF_ROOT/skins"), "/data/skins");
  EXPECT_EQ(expand("${QF_ROOT}skins"), "/dataskins");
  EXPECT_EQ(expand("a$QF_ROOT$QF_ROOT"), "a/data/data");
}

TEST(FileHelperTest, whatNamesNothingStays)
{
  unsetenv("QF_UNSET");
  EXPECT_EQ(expand("$QF_UNSET/x"), "$QF_UNSET/x");
  EXPECT_EQ(expand("cost $"), "cost $");
  EXPECT_EQ(expand("${QF_ROOT"), "${QF_ROOT");
  EXPECT_EQ(expand("${}"), "${}");
  EXPECT_EQ(expand(""), "");
}

TEST(FileHelperTest, aValueIsNotExpandedAgain)
{
  setenv("QF_ROOT", "$QF_ROOT", 1);
  EXPECT_EQ(expand("$QF_ROOT"), "$QF_ROOT");
}

TEST(FileHelperTest, unixPathsHaveNoBackslashes)
{
  EXPECT_EQ(SbFileHelper::toUnixPath("C:\\skins\\dark;D:/more\\"), SbString("C:/skins/dark;D:/more/"));
  EXPECT_EQ(SbFileHelper::toUnixPath(""), SbString(""));
}

TEST(FileHelperTest, filesAndDirectoriesAreAccessibleOthersAreNot)
{
  const QTemporaryDir directory;
  const std::string path = directory.filePath("file").toStdString();
  EXPECT_TRUE(SbFileHelper::isAccessible(directory.path().toLocal8Bit().constData()));
  EXPECT_FALSE(SbFileHelper::isAccessible(path.c_str()));
  std::ofstream(path) << "text";
  EXPECT_TRUE(SbFileHelper::isAccessible(path.c_str()));
  EXPECT_FALSE(SbFileHelper::isAccessible((path + "/below").c_str()));
  EXPECT_FALSE(SbFileHelper::isAccessible(""));
}
