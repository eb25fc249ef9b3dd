#include "Options.h"

#include "Failure.h"
#include <QCommandLineParser>
#include <QRegularExpression>
#include <optional>

namespace {

struct OptionText {
  const char* name;
  const char* value; // empty for an option without one
  const char* description;
  const char* example;
};

const OptionText optionTexts[] = {
  {"id", "ID", "Open the element whose auditorID is ID, not the first element of the file.",
   "quillform-view --id settings dialogs.iv"},
  {"scene", "", "Open the dialogs as geometry in a viewer of the scene. Esc switches between operating them and "
                "turning the view.",
   "quillform-view --scene showcase.iv"},
  {"screenshot", "OUT.png", "Draw the dialog, save the picture and exit. A window needs no display for that; the "
                            "scene needs one with OpenGL.",
   "quillform-view --scene --screenshot scene.png showcase.iv"},
  {"size", "WxH", "Width and height in pixels of the window, within its limits, or of the viewer or its picture.",
   "quillform-view --size 640x480 showcase.iv"},
  {"skin", "NAME", "Show the scene in the skin NAME: a directory below a skin directory, or a path.",
   "quillform-view --scene --skin dark showcase.iv"},
  {"skins-dir", "DIR", "Look for skins in DIR. May be given several times.",
   "quillform-view --scene --skins-dir ~/skins --skin mine showcase.iv"},
  {"trace", "", "Print a line on the standard output for everything that the user does.",
   "quillform-view --trace showcase.iv"},
  {"dump", "", "Write the loaded elements as text to the standard output and exit.",
   "quillform-view --dump showcase.iv > copy.iv"},
  {"check", "", "Read the files, report on each of them in one line, and exit.", "quillform-view --check *.iv"},
  {"help", "", "Print this help and exit.", "quillform-view --help"},
  {"version", "", "Print the version and exit.", "quillform-view --version"},
};

/// Beyond this no frame buffer is to be had.
constexpr int largestSize = 16384;

[[noreturn]] void refuse(const QString& what)
{
  throw Failure(Failure::WRONG_USAGE, what);
}

QSize parseSize(const QString& text)
{
  static const QRegularExpression form("^([0-9]{1,5})x([0-9]{1,5})$");
  const QRegularExpressionMatch match = form.match(text);
  const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
  if (size.isEmpty() || size.width() > largestSize || size.height() > largestSize) {
    refuse(QString("--size \"%1\" is no size; write the width, an x and the height, each from 1 to %2, as in "
                   "--size 640x480.")
             .arg(text)
             .arg(largestSize));
  }
  return size;
}

/// The one task among the options that name one.
Options::Task parseTask(const QCommandLineParser& parser)
{
  const struct {
    const char* option;
    Options::Task task;
  } tasks[] = {{"screenshot", Options::SCREENSHOT}, {"dump", Options::DUMP}, {"check", Options::CHECK}};
  const char* chosen = nullptr;
  Options::Task task = Options::OPEN;
  for (const auto& candidate : tasks) {
    if (!parser.isSet(candidate.option)) {
      continue;
    }
    if (chosen) {
      refuse(QString("--%1 and --%2 exclude each other; give one of them.").arg(chosen, candidate.option));
    }
    chosen = candidate.option;
    task = candidate.task;
  }
  return task;
}

} // namespace

bool Options::isTextOnly() const
{
  return task == DUMP || task == CHECK;
}

Options Options::parse(const QStringList& arguments)
{
  QCommandLineParser parser;
  for (const OptionText& text : optionTexts) {
    parser.addOption(QCommandLineOption(text.name, text.description, text.value));
  }
  if (!parser.parse(arguments)) {
    QString error = parser.errorText();
    error.chop(error.endsWith('.') ? 1 : 0);
    refuse(error + "; quillform-view --help lists the options.");
  }
  Options options;
  if (parser.isSet("help") || parser.isSet("version")) {
    options.task = parser.isSet("help") ? HELP : VERSION;
    return options;
  }
  options.task = parseTask(parser);
  options.files = parser.positionalArguments();
  options.id = parser.value("id");
  options.inScene = parser.isSet("scene");
  options.trace = parser.isSet("trace");
  options.screenshot = parser.value("screenshot");
  options.skin = parser.value("skin");
  options.skinDirectories = parser.values("skins-dir");
  if (parser.isSet("size")) {
    options.size = parseSize(parser.value("size"));
  }
  if (options.files.isEmpty()) {
    refuse("No dialog file is given; name one or more, as in quillform-view showcase.iv.");
  }
  if (options.task == SCREENSHOT && options.screenshot.isEmpty()) {
    refuse("--screenshot has no file name; name the picture, as in --screenshot dialog.png.");
  }
  if (options.task == SCREENSHOT && options.files.size() > 1) {
    refuse("--screenshot takes one dialog file; call quillform-view once for each file.");
  }
  return options;
}

QString Options::getHelp()
{
  QString help = "Usage: quillform-view [options] FILE...\n"
                 "Opens the dialog that each dialog file describes.\n"
                 "\n"
                 "Options, each with an example:\n";
  for (const OptionText& text : optionTexts) {
    const QString option = QString("--%1 %2").arg(text.name, text.value);
    help += QString("  %1%2\n%3%4\n").arg(option.leftJustified(22), text.description, QString(26, ' '), text.example);
  }
  return help + "\n"
                "Exit status: 0 when all went well, 1 for wrong usage or a missing display, 2 for a file that cannot\n"
                "be opened, read or written, or that holds no such element.\n";
}
