#include <Quillform/platform/SoPreferences.h>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {
const char* const name = "QUILLFORM_TEST_PREFERENCE";
}

class PreferencesTest : public ::testing::Test {
protected:
  PreferencesTest()
  {
    unsetenv(name);
    SoPreferences::unset(name);
  }
};

TEST_F(PreferencesTest, aNameThatIsSetNowhereGivesTheDefault)
{
  EXPECT_EQ(SoPreferences::getString(name, "fallback"), SbString("fallback"));
  EXPECT_FALSE(SoPreferences::isSet(name));
}

TEST_F(PreferencesTest, theEnvironmentShowsThrough)
{
  setenv(name, "environment", 1);
  EXPECT_EQ(SoPreferences::getString(name, "fallback"), SbString("environment"));
  EXPECT_TRUE(SoPreferences::isSet(name));
}

TEST_F(PreferencesTest, aStoredValueWinsOverTheEnvironment)
{
  setenv(name, "environment", 1);
  SoPreferences::setString(name, "stored");
  EXPECT_EQ(SoPreferences::getString(name, "fallback"), SbString("stored"));
}

TEST_F(PreferencesTest, aStoredEmptyValueWinsTooAndCountsAsSet)
{
  setenv(name, "environment", 1);
  SoPreferences::setString(name, "");
  EXPECT_EQ(SoPreferences::getString(name, "fallback"), SbString(""));
  EXPECT_TRUE(SoPreferences::isSet(name));
}

TEST_F(PreferencesTest, forgettingTheStoredValueUncoversTheEnvironment)
{
  setenv(name, "environment", 1);
  SoPreferences::setString(name, "stored");
  SoPreferences::unset(name);
  EXPECT_EQ(SoPreferences::getString(name, "fallback"), SbString("environment"));
}

TEST_F(PreferencesTest, theEnvironmentIsReadAtEveryLookUp)
{
  setenv(name, "first", 1);
  EXPECT_EQ(SoPreferences::getString(name, ""), SbString("first"));
  setenv(name, "second", 1);
  EXPECT_EQ(SoPreferences::getString(name, ""), SbString("second"));
}

TEST_F(PreferencesTest, namesAreComparedExactly)
{
  SoPreferences::setString("QUILLFORM_TEST_preference", "other");
  EXPECT_FALSE(SoPreferences::isSet(name));
}
