#ifndef QUILLFORM_VIEW_READFAULT_H
#define QUILLFORM_VIEW_READFAULT_H

#include "Messages.h"

/// Explains to the author of a dialog file what was reported while the file was read.
class ReadFault {
public:
  /// One sentence about the first fault: the file, the line, the fault, and what to do about it.
  /// Empty when no message is about a line of a file.
  static QString explain(const Messages& messages);
};

#endif // QUILLFORM_VIEW_READFAULT_H
