#ifndef QUILLFORM_VIEW_OPTIONS_H
#define QUILLFORM_VIEW_OPTIONS_H

#include <QSize>
#include <QString>
#include <QStringList>

/// What the command line asks for.
struct Options {
  enum Task {
    OPEN,       ///< open the dialogs and wait until they are closed
    SCREENSHOT, ///< save a picture of one dialog
    DUMP,       ///< write the elements to the standard output
    CHECK,      ///< read the files and report
    HELP,
    VERSION
  };

  Task task = OPEN;
  QStringList files;
  QString id;                  ///< auditorID of the element to open; empty for the first one of the file
  bool inScene = false;        ///< as geometry in a viewer instead of a window
  bool trace = false;          ///< print what the user does
  QString screenshot;          ///< name of the picture
  QString click;               ///< auditorID of what is clicked before the picture is taken; empty for nothing
  QString press;               ///< auditorID of what is held pressed in the picture; empty for nothing
  QSize size;                  ///< of the window, viewer or picture; invalid for the dialog's own
  QString skin;                ///< empty for the preferred one
  QStringList skinDirectories; ///< empty for those of the environment or the program's own

  /// Reads the command line; throws a Failure on wrong usage.
  static Options parse(const QStringList& arguments);

  /// What --help prints.
  static QString getHelp();
};

#endif // QUILLFORM_VIEW_OPTIONS_H
