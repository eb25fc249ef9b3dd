// quillform-view: opens, operates, draws and checks dialog files.

#include "DialogFile.h"
#include "Display.h"
#include "Failure.h"
#include "OpenDialogs.h"
#include "Options.h"
#include "Skins.h"
#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoWriteAction.h>
#include <QCoreApplication>
#include <Quillform/core/SoQuillform.h>
#include <clocale>
#include <cstdio>

namespace {

/// Starts the library for as long as it lives.
struct Library {
  Library()
  {
    SoQuillform::init();
  }
  ~Library()
  {
    SoQuillform::finish();
  }
};

void print(const QString& text)
{
  std::fputs(text.toLocal8Bit().constData(), stdout);
}

/// Reads all files, with a message about each fault; returns whether all could be read.
bool readFiles(const Options& options, std::vector<DialogFile>& files)
{
  bool areAllRead = true;
  for (const QString& path : options.files) {
    try {
      files.emplace_back(path, options.id);
      if (!files.back().getWarning().isEmpty()) {
        Failure::print(files.back().getWarning());
      }
    }
    catch (const Failure& failure) {
      Failure::print(failure.getSentence());
      areAllRead = false;
    }
  }
  return areAllRead;
}

/// Reports on the files that could be read; returns whether they were read to the end.
bool check(const std::vector<DialogFile>& files)
{
  bool areComplete = true;
  for (const DialogFile& file : files) {
    if (file.getWarning().isEmpty()) {
      print(file.describe() + "\n");
    }
    areComplete = areComplete && file.getWarning().isEmpty();
  }
  return areComplete;
}

/// Writes the elements one behind the other, below one header: together they are a dialog file again.
void dump(const std::vector<DialogFile>& files)
{
  SoOutput output;
  output.setFilePointer(stdout);
  for (const DialogFile& file : files) {
    SoWriteAction action(&output);
    action.apply(file.getElement());
  }
}

int run(int argc, char** argv)
{
  QStringList arguments;
  for (int i = 0; i < argc; i++) {
    arguments += QString::fromLocal8Bit(argv[i]);
  }
  const Options options = Options::parse(arguments);
  if (options.task == Options::HELP) {
    print(Options::getHelp());
    return 0;
  }
  if (options.task == Options::VERSION) {
    print(QString("quillform-view %1\n").arg(SoQuillform::getVersion()));
    return 0;
  }

  const Library library;
  std::vector<DialogFile> files;
  {
    // Reading needs no display, and its faults are reported whether there is one or not.
    const QCoreApplication application(argc, argv);
    Skins::select(options.skinDirectories, options.skin);
    const bool areAllRead = readFiles(options, files);
    if (options.task == Options::CHECK) {
      return check(files) && areAllRead ? 0 : Failure::BAD_FILE;
    }
    if (!areAllRead) {
      return Failure::BAD_FILE;
    }
    if (options.task == Options::DUMP) {
      dump(files);
      return 0;
    }
  }

  Display display(options, argc, argv);
  OpenDialogs dialogs(files, options);
  if (options.task == Options::SCREENSHOT) {
    dialogs.savePicture(options.screenshot);
    return 0;
  }
  dialogs.show();
  return display.run();
}

} // namespace

int main(int argc, char** argv)
{
  std::setlocale(LC_CTYPE, ""); // the arguments are in the user's character set
  try {
    return run(argc, argv);
  }
  catch (const Failure& failure) {
    Failure::print(failure.getSentence());
    return failure.getStatus();
  }
}
