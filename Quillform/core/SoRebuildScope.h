#ifndef QUILLFORM_SOREBUILDSCOPE_H
#define QUILLFORM_SOREBUILDSCOPE_H

#include <Quillform/Export.h>

/// While one lives, elements lose their widgets only to get new ones. What they have opened, such as launched dialogs,
/// stays open.
class QUILLFORM_API SoRebuildScope {
public:
  SoRebuildScope();
  ~SoRebuildScope();
  SoRebuildScope(const SoRebuildScope&) = delete;
  SoRebuildScope& operator=(const SoRebuildScope&) = delete;

  static bool isActive(); ///< whether one lives
};

#endif // QUILLFORM_SOREBUILDSCOPE_H
