#include <Quillform/controls/SoValueFormat.h>
#include <clocale>
#include <limits>
#include <support/Messages.h>
#include <support/TestFiles.h>

namespace {

std::string print(SoValueFormat::Kind kind, const char* text, double value)
{
  SoValueFormat format(kind, kind == SoValueFormat::INTEGER ? "%d" : "%.3f");
  format.set(text);
  return format.print(value).getString();
}

std::optional<double> read(SoValueFormat::Kind kind, const char* text, const char* typed)
{
  SoValueFormat format(kind, kind == SoValueFormat::INTEGER ? "%d" : "%.3f");
  format.set(text);
  return format.read(typed);
}

constexpr auto integer = SoValueFormat::INTEGER;
constexpr auto real = SoValueFormat::REAL;

} // namespace

class ValueFormatTest : public QuillformTest {};

TEST_F(ValueFormatTest, printsAsPrintfDoes)
{
  const Messages messages;
  for (const char* format :
       {"%d", "%i", "%5d", "%-5d", "%05d", "%+d", "% d", "%.3d", "%8.3d", "%08.3d", "%+05d", "%-05d"}) {
    for (const int value : {0, 7, -7, 12345678, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
      char expected[100];
      std::snprintf(expected, sizeof expected, format, value);
      EXPECT_EQ(print(integer, format, value), expected) << format;
    }
  }
  for (const char* format : {"%u", "%x", "%X", "%o", "%08x"}) {
    for (const int value : {0, 255, -1}) {
      char expected[100];
      std::snprintf(expected, sizeof expected, format, static_cast<unsigned int>(value));
      EXPECT_EQ(print(integer, format, value), expected) << format;
    }
  }
  for (const char* format : {"%f", "%.3f", "%3f", "%8.2f", "%-8.2f|", "%08.2f", "%+.1f", "%e", "%E", "%g", "%G", "%.0f",
                             "%F", "%lf", "% .2f"}) {
    for (const double value : {0.0, 0.5, -0.5, 1234.5678, 1.0e20, -1.0e-9}) {
      char expected[200];
      std::snprintf(expected, sizeof expected, format, value);
      EXPECT_EQ(print(real, format, value), expected) << format;
    }
  }
  EXPECT_TRUE(messages.all().empty());
}

TEST_F(ValueFormatTest, keepsTheTextAroundTheNumber)
{
  const Messages messages;
  EXPECT_EQ(print(integer, "%d mm", 5), "5 mm");
  EXPECT_EQ(print(integer, "%d%%", 50), "50%");
  EXPECT_EQ(print(integer, "%%%d", 50), "%50");
  EXPECT_EQ(print(real, "x = %.1f m", 2.0), "x = 2.0 m");
  EXPECT_TRUE(messages.all().empty());
}

TEST_F(ValueFormatTest, refusesEverythingThatIsNotExactlyOneNumber)
{
  for (const char* format :
       {"",  "none", "%%", "%s", "%n", "%p",   "%c",  "%d %d",         "%d%n",           "%*d",  "%.*d", "%1$d",
        "%", "%5",   "%.", "%l", "%f", "%hhd", "%'d", "%99999999999d", "%.99999999999d", "%65d", "%d %"}) {
    const Messages messages;
    EXPECT_EQ(print(integer, format, 7), "7") << format;
    EXPECT_EQ(messages.count("SoValueFormat::set"), 1) << format;
  }
  for (const char* format : {"%d", "%s", "%a", "%f %f", "%Lf", "%.65f", "%1000000f"}) {
    const Messages messages;
    EXPECT_EQ(print(real, format, 0.5), "0.500") << format;
    EXPECT_EQ(messages.count("SoValueFormat::set"), 1) << format;
  }
}

TEST_F(ValueFormatTest, theLargestWidthAndPrecisionHaveRoom)
{
  const Messages messages;
  EXPECT_EQ(print(integer, "%64d", 1).size(), 64U);
  EXPECT_EQ(print(real, "%.64f", std::numeric_limits<double>::max()).size(), 309U + 1U + 64U);
  EXPECT_EQ(print(integer, "%.64d", std::numeric_limits<int>::min()).size(), 65U);
  EXPECT_TRUE(messages.all().empty());
}

TEST_F(ValueFormatTest, aFormatIsReplacedByTheNextOne)
{
  SoValueFormat format(real, "%.3f");
  EXPECT_EQ(format.print(0.5), "0.500");
  format.set("%.1f");
  EXPECT_EQ(format.print(0.5), "0.5");
  const Messages messages;
  format.set("%s");
  EXPECT_EQ(format.print(0.5), "0.500");
}

TEST_F(ValueFormatTest, readsBackWhatItPrints)
{
  for (const char* format : {"%d", "%5d", "%-5d mm", "%d%%", "no %d of 9", "%05d", "%+d", "%x", "%X h", "%o", "%u"}) {
    for (const int value : {0, 10, -10, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
      EXPECT_EQ(read(integer, format, print(integer, format, value).c_str()), value) << format << " " << value;
    }
  }
  for (const char* format : {"%f", "%.3f", "%8.2f m", "%e", "%g", "%G %%", "+%.1f"}) {
    for (const double value : {0.0, 0.5, -2.5, 100.0}) {
      EXPECT_EQ(read(real, format, print(real, format, value).c_str()), value) << format << " " << value;
    }
  }
}

TEST_F(ValueFormatTest, readsAPointAndACommaAndRejectsWhatIsNoNumber)
{
  EXPECT_EQ(read(real, "%.3f", "0.25"), 0.25);
  EXPECT_EQ(read(real, "%.3f", " 0,25 "), 0.25);
  EXPECT_EQ(read(real, "%.3f m", "3"), 3.0);
  EXPECT_EQ(read(integer, "%d", "3.7"), 3.7);
  for (const char* typed : {"", " ", "abc", "12abc", "nan", "inf", "-inf", "1e999", "1 2", "--1", "0x10", "%n"}) {
    EXPECT_EQ(read(real, "%.3f", typed), std::nullopt) << typed;
    EXPECT_EQ(read(integer, "%d", typed), std::nullopt) << typed;
  }
}

TEST_F(ValueFormatTest, printsAPointInEveryLocale)
{
  const std::string before = std::setlocale(LC_NUMERIC, nullptr);
  bool tried = false;
  for (const char* locale : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8"}) {
    if (std::setlocale(LC_NUMERIC, locale)) {
      tried = true;
      EXPECT_EQ(print(real, "%.2f", 0.5), "0.50");
      EXPECT_EQ(read(real, "%.2f", "0.50"), 0.5);
      EXPECT_EQ(read(real, "%.2f", "0,50"), 0.5);
    }
  }
  std::setlocale(LC_NUMERIC, before.c_str());
  if (!tried) {
    GTEST_SKIP() << "no locale with a comma is installed";
  }
}

TEST_F(ValueFormatTest, theNumberAloneHasNoTextAndNoPadding)
{
  SoValueFormat format(real, "%.3f");
  format.set("about %9.1f mm");
  EXPECT_EQ(format.printNumber(0.5), "0.5");
  EXPECT_EQ(format.print(0.5), "about       0.5 mm");
}
