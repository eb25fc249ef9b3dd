// quillform-view: opens, operates, draws and checks dialog files.

#include "DialogFile.h"
#include "Display.h"
#include "Failure.h"
#include "OpenDialogs.h"
#include "Options.h"
#include "Skins.h"
#include "TextTasks.h"
#include <QCoreApplication>
#include <Quillform/core/SoQuillform.h>
#include <clocale>

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

int run(int argc, char** argv)
{
  QStringList arguments;
  for (int i = 0; i < argc; i++) {
    arguments += QString::fromLocal8Bit(argv[i]);
  }
  const Options options = Options::parse(arguments);
  if (options.task == Options::HELP) {
    TextTasks::print(Options::getHelp());
    return 0;
  }
  if (options.task == Options::VERSION) {
    TextTasks::print(QString("quillform-view %1\n").arg(SoQuillform::getVersion()));
    return 0;
  }

  const Library library;
  std::vector<DialogFile> files;
  {
    // Reading needs no display, and its faults are reported whether there is one or not.
    const QCoreApplication application(argc, argv);
    Skins::select(options.skinDirectories, options.skin);
    const bool areAllRead = TextTasks::readFiles(options, files);
    if (options.task == Options::CHECK) {
      return TextTasks::check(files) && areAllRead ? 0 : Failure::BAD_FILE;
    }
    if (!areAllRead) {
      return Failure::BAD_FILE;
    }
    if (options.task == Options::DUMP) {
      TextTasks::dump(files);
      return 0;
    }
  }

  Display display(options, argc, argv);
  OpenDialogs dialogs(files, options);
  if (options.task == Options::SCREENSHOT) {
    dialogs.savePicture(options.screenshot);
    return 0;
  }
  return dialogs.show() ? display.run() : 0;
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
