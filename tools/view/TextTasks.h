#ifndef QUILLFORM_VIEW_TEXTTASKS_H
#define QUILLFORM_VIEW_TEXTTASKS_H

#include "DialogFile.h"
#include <vector>

struct Options;

/// What the program does without drawing anything.
class TextTasks {
public:
  static void print(const QString& text);

  /// Reads all files of the command line, with a message about each fault; returns whether all could be read.
  static bool readFiles(const Options& options, std::vector<DialogFile>& files);

  /// Reports on the files that could be read; returns whether they were read to the end.
  static bool check(const std::vector<DialogFile>& files);

  /// Writes the elements one behind the other, below one header: together they are a dialog file again.
  static void dump(const std::vector<DialogFile>& files);
};

#endif // QUILLFORM_VIEW_TEXTTASKS_H
