#ifndef QUILLFORM_SBFILEHELPER_H
#define QUILLFORM_SBFILEHELPER_H

#include <Inventor/SbString.h>
#include <Quillform/Export.h>

/// Small operations on file names that the scene-graph library does not offer.
class QUILLFORM_API SbFileHelper {
public:
  /// Replaces a leading "~" by the user's home directory, and "$NAME" and "${NAME}" anywhere by the
  /// environment variable of that name. What names nothing (an unset variable, "~other", a lone "$",
  /// an unclosed brace) stays as it is written, so that a message about the path shows the cause.
  static SbString expandString(const SbString& path);

  /// The path with every backslash turned into a slash.
  static SbString toUnixPath(const SbString& path);

  /// TRUE when a file or directory of that name exists and may be read. FALSE for an empty name.
  static SbBool isAccessible(const SbString& path);
};

#endif // QUILLFORM_SBFILEHELPER_H
