#include <QDir>
#include <fstream>
#include <fuzz/DialogFile.h>
#include <iterator>
#include <support/Messages.h>
#include <support/TestFiles.h>

namespace {

std::vector<std::string> getFindings()
{
  std::vector<std::string> names;
  for (const QString& name : QDir(QUILLFORM_TEST_FINDINGS).entryList({"*.iv"}, QDir::Files, QDir::Name)) {
    names.push_back(name.toStdString());
  }
  return names;
}

std::string nameOfTest(const ::testing::TestParamInfo<std::string>& finding)
{
  std::string name;
  bool startsWord = false;
  for (const char letter : finding.param.substr(0, finding.param.find('.'))) {
    if (letter != '-') {
      name += startsWord ? static_cast<char>(std::toupper(letter)) : letter;
    }
    startsWord = letter == '-';
  }
  return name;
}

} // namespace

/// What scripts/fuzz has found once, each file named after what was wrong.
class FindingsTest : public QuillformTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(FindingsTest, goesWell)
{
  std::ifstream file(std::string(QUILLFORM_TEST_FINDINGS "/") + GetParam(), std::ios::binary);
  ASSERT_TRUE(file);
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  ASSERT_FALSE(bytes.empty());
  Messages messages;
  EXPECT_EQ(DialogFile::use(bytes), "");
}

INSTANTIATE_TEST_SUITE_P(Files, FindingsTest, ::testing::ValuesIn(getFindings()), nameOfTest);
