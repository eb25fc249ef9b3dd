#ifndef QUILLFORM_SONESTINGCHECK_H
#define QUILLFORM_SONESTINGCHECK_H

#include <Inventor/SbString.h>
#include <Quillform/Export.h>

/// Keeps files that are nested too deeply away from the scene-graph library's reader, which takes stack for
/// every level and has no limit of its own.
class QUILLFORM_API SoNestingCheck {
public:
  /// Braces inside each other that are accepted. A level takes a few hundred bytes of stack while reading and
  /// again while traversing, so this stays well below the smallest usual stack.
  static constexpr int maxDepth = 500;

  /// The line on which an ASCII file exceeds maxDepth; 0 when it does not, and for other kinds of file.
  static int findTooDeepLine(const SbString& path);
};

#endif // QUILLFORM_SONESTINGCHECK_H
