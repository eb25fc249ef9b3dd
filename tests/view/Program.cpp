#include "Program.h"

#include <QDir>
#include <QFile>

ProgramTest::ProgramTest() : program(QUILLFORM_VIEW)
{
  const QProcessEnvironment system = QProcessEnvironment::systemEnvironment();
  for (const char* kept : {"PATH", "HOME", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}) {
    if (system.contains(kept)) {
      environment.insert(kept, system.value(kept));
    }
  }
}

void ProgramTest::useDisplay(const QString& name)
{
  environment.insert("DISPLAY", name);
  // What the drivers of the display keep cannot be told apart by name: they are unloaded before leaks are counted.
  environment.insert("ASAN_OPTIONS", environment.value("ASAN_OPTIONS") + ":detect_leaks=0");
}

QString ProgramTest::pathOf(const QString& name) const
{
  return m_directory.filePath(name);
}

QString ProgramTest::write(const QString& name, const QByteArray& text) const
{
  QFile file(pathOf(name));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(text.startsWith('#') ? text : "#Inventor V2.1 ascii\n" + text);
  return name;
}

QByteArray ProgramTest::read(const QString& name) const
{
  QFile file(pathOf(name));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
  return file.readAll();
}

void ProgramTest::start(QProcess& process, const QStringList& arguments) const
{
  process.setProcessEnvironment(environment);
  process.setWorkingDirectory(m_directory.path());
  process.start(program, arguments);
}

Result ProgramTest::run(const QStringList& arguments) const
{
  QProcess process;
  start(process, arguments);
  Result result;
  if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit) {
    result.status = process.exitCode();
  }
  else {
    process.kill();
    process.waitForFinished();
  }
  result.output = process.readAllStandardOutput();
  result.errors = process.readAllStandardError();
  return result;
}

void expectFailure(const Result& result, int status, const QStringList& parts)
{
  EXPECT_EQ(status, result.status);
  EXPECT_EQ("", result.output.toStdString());
  EXPECT_TRUE(result.errors.startsWith("quillform-view: ")) << result.errors.toStdString();
  EXPECT_TRUE(result.errors.endsWith(".\n")) << result.errors.toStdString();
  EXPECT_EQ(1, result.errors.count('\n')) << result.errors.toStdString();
  EXPECT_EQ(0, result.errors.count(". ")) << result.errors.toStdString();
  for (const QString& part : parts) {
    EXPECT_TRUE(result.errors.contains(part.toLocal8Bit()))
      << part.toStdString() << " is missing in: " << result.errors.toStdString();
  }
}
