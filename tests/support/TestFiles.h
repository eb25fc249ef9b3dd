#ifndef QUILLFORM_TESTS_TESTFILES_H
#define QUILLFORM_TESTS_TESTFILES_H

#include <QTemporaryDir>
#include <Quillform/Quillform.h>
#include <gtest/gtest.h>
#include <string>

/// Starts the library with the default skin of the source tree for the length of a test.
class QuillformTest : public ::testing::Test {
protected:
  QuillformTest();
  ~QuillformTest() override;

  /// Starts the library, again after SoQuillform::finish().
  static void start();

  /// Writes \a text, with a header line in front when it has none, to a file of the test and returns its path.
  std::string writeFile(const std::string& name, const std::string& text);

  /// Loads a dialog from the text of a dialog file; nullptr when the library refuses it.
  SoTopLevelDialog* load(const std::string& text, const char* id = "");

  /// Loads a dialog and opens its window; nullptr when the library refuses it.
  SoTopLevelDialog* open(const std::string& text);

  /// Path of a file in the test's own directory.
  std::string pathOf(const std::string& name) const;

private:
  QTemporaryDir m_directory;
  int m_loaded = 0;
};

/// The node as ASCII text, without the header.
std::string toText(SoNode* node);

/// The node as the bytes of a binary file.
std::string toBinary(SoNode* node);

/// The first node in \a text, referenced once, or nullptr. The text has no header.
SoNode* readText(const std::string& text);

/// The node, written as binary and read again; referenced once.
SoNode* throughBinary(SoNode* node);

/// Lets posted events, deferred deletions included, happen.
void settle();

#endif // QUILLFORM_TESTS_TESTFILES_H
