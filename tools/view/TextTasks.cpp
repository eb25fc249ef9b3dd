#include "TextTasks.h"

#include "Failure.h"
#include "Options.h"
#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Quillform/core/SoQuillform.h>
#include <cstdio>

namespace {

/// Throws a Failure when what was printed did not arrive, for example because a disk is full.
void finishPrinting()
{
  if (std::fflush(stdout) != 0) {
    throw Failure(Failure::BAD_FILE, "The standard output cannot be written; direct it to a place with room.");
  }
}

} // namespace

void TextTasks::print(const QString& text)
{
  std::fputs(text.toLocal8Bit().constData(), stdout);
}

bool TextTasks::readFiles(const Options& options, std::vector<DialogFile>& files)
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

bool TextTasks::check(const std::vector<DialogFile>& files)
{
  bool areComplete = true;
  for (const DialogFile& file : files) {
    if (file.getWarning().isEmpty()) {
      print(file.describe() + "\n");
    }
    areComplete = areComplete && file.getWarning().isEmpty();
  }
  finishPrinting();
  return areComplete;
}

void TextTasks::dump(const std::vector<DialogFile>& files)
{
  SoOutput output;
  output.setFilePointer(stdout);
  for (const DialogFile& file : files) {
    SoWriteAction action(&output);
    action.apply(file.getElement());
  }
  finishPrinting();
}
