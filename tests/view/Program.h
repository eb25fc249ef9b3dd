#ifndef QUILLFORM_TESTS_VIEW_PROGRAM_H
#define QUILLFORM_TESTS_VIEW_PROGRAM_H

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// What a program left behind.
struct Result {
  int status = -1; ///< -1 when it crashed or did not end in time
  QByteArray output;
  QByteArray errors;
};

/// A directory of its own for each test, in which the program is run, and a bare environment: no display, no
/// skins, nothing that the user of the machine has set.
class ProgramTest : public ::testing::Test {
protected:
  ProgramTest();

  /// Lets the program use a display.
  void useDisplay(const QString& name);

  /// Writes a dialog file, with a header unless the text has one, and returns its name.
  QString write(const QString& name, const QByteArray& text) const;
  QByteArray read(const QString& name) const;
  QString pathOf(const QString& name) const;

  /// Runs the program to its end.
  Result run(const QStringList& arguments) const;

  /// Starts it for a test that operates it.
  void start(QProcess& process, const QStringList& arguments) const;

  QProcessEnvironment environment;
  QString program; ///< the file that is run

private:
  QTemporaryDir m_directory;
};

/// Expects the program to have failed with one sentence on the standard error, which names every one of \a parts,
/// and with nothing on the standard output.
void expectFailure(const Result& result, int status, const QStringList& parts);

#endif // QUILLFORM_TESTS_VIEW_PROGRAM_H
