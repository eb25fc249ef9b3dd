#include "Options.h"

#include "Failure.h"
#include <QCommandLineParser>
#include <QRegularExpression>

namespace {

struct OptionText {
  const char* name;
  const char* value;       // empty for an option without one
  const char* description; // in lines that fit a terminal behind the names
  const char* example;
};

const OptionText optionTexts[] = {
  {"id", "ID", "Open the element whose auditorID is ID, not the first\none of the file.",
   "quillform-view --id settings dialogs.iv"},
  {"scene", "",
   "Open the dialogs as geometry, in viewers of the scene.\nEsc switches between operating them and turning them.",
   "quillform-view --scene showcase.iv"},
  {"screenshot", "OUT.png",
   "Draw the dialog, save the picture and exit. A window\nneeds no display for that; the scene needs one with\n"
   "OpenGL.",
   "quillform-view --screenshot dialog.png showcase.iv"},
  {"click", "ID", "Click on the element with that auditorID before\n--screenshot takes the picture: lists open.",
   "quillform-view --click kind --screenshot o.png a.iv"},
  {"press", "ID", "Hold the mouse pressed on the element with that\nauditorID while --screenshot takes the picture.",
   "quillform-view --press ok --screenshot o.png a.iv"},
  {"size", "WxH",
   "Width and height in pixels of the window, within its\nlimits, or of the viewer or the picture of the scene.",
   "quillform-view --size 640x480 showcase.iv"},
  {"skin", "NAME", "Show the scene in the skin NAME, which stands in a\ndirectory of skins; NAME may also be a path.",
   "quillform-view --scene --skin dark showcase.iv"},
  {"skins-dir", "DIR", "Look for skins in DIR. May be given several times.",
   "quillform-view --scene --skins-dir . --skin mine a.iv"},
  {"trace", "", "Print a line on the standard output for everything\nthat the user does.",
   "quillform-view --trace showcase.iv"},
  {"dump", "", "Write the elements as they were read to the standard\noutput and exit.",
   "quillform-view --dump showcase.iv > copy.iv"},
  {"check", "", "Read the files, report on each in one line, and exit.", "quillform-view --check *.iv"},
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
  static const QRegularExpression form("\\A([0-9]{1,5})x([0-9]{1,5})\\z");
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

Options Options::parse(const QStringList& arguments)
{
  QCommandLineParser parser;
  for (const OptionText& text : optionTexts) {
    parser.addOption(QCommandLineOption(text.name, QString(), text.value));
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
  options.click = parser.value("click");
  options.press = parser.value("press");
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
  for (const char* option : {"click", "press"}) {
    if (parser.isSet(option) && options.task != SCREENSHOT) {
      refuse(QString("--%1 is for pictures only; add --screenshot, as in --%1 ok --screenshot ok.png.").arg(option));
    }
    if (parser.isSet(option) && parser.value(option).isEmpty()) {
      refuse(QString("--%1 names no element; give its auditorID, as in --%1 ok.").arg(option));
    }
  }
  if (options.task == SCREENSHOT && options.files.size() > 1) {
    refuse("--screenshot takes one dialog file; call quillform-view once for each file.");
  }
  return options;
}

QString Options::getHelp()
{
  constexpr int column = 24; // where the descriptions stand
  QString help = "Usage: quillform-view [options] FILE...\n"
                 "Opens the dialog that each FILE describes.\n"
                 "\n"
                 "Options, each with an example:\n";
  for (const OptionText& text : optionTexts) {
    const QString description = QString(text.description).replace('\n', '\n' + QString(column, ' '));
    help += QString("  --%1 %2").arg(text.name, text.value).leftJustified(column) + description + '\n';
    help += QString(column + 2, ' ') + text.example + '\n';
  }
  return help + "\n"
                "Exit status: 0 when all went well; 1 for wrong usage, or for a display or OpenGL\n"
                "that is needed and missing; 2 for a file that cannot be opened, read or written,\n"
                "or that holds no such element.\n";
}
