#ifndef QUILLFORM_SOBOUNDEDINPUT_H
#define QUILLFORM_SOBOUNDEDINPUT_H

#include <Inventor/SbName.h>
#include <Inventor/SoInput.h>
#include <Quillform/Export.h>
#include <cstddef>

class SoSeparator;

/// A reader that refuses nodes nested too deeply, in every format, nodes inside themselves, and absurd numbers of
/// values.
///
/// The scene-graph library takes stack for every level that it reads and has no limit of its own. This reader
/// pretends that the file goes on with something else once too much stack is used, after a message that names the
/// file and the line.
class QUILLFORM_API SoBoundedInput : public SoInput {
public:
  /// Stack in bytes that reading may take; some 700 levels of nodes. Actions take about as much for the same levels,
  /// so this stays well below the smallest usual stack.
  static constexpr std::ptrdiff_t maxStack = std::ptrdiff_t{512} * 1024;

  SoBoundedInput();

  /// Reads everything; nullptr, after a message, when that fails or a node stands inside itself. The root is not
  /// referenced.
  SoSeparator* readAll();

  using SoInput::read;
  SbBool read(SbName& name, SbBool isIdentifier = FALSE) override; ///< the reader's first step into every node
  SbBool read(int& number) override; ///< the first step into the values of a field in a binary file

private:
  const char* m_bottom; // where the stack stood when reading began
  SbName m_lastName;    // what was read last, if it was a name
  bool m_isRefused = false;
};

#endif // QUILLFORM_SOBOUNDEDINPUT_H
