#ifndef QUILLFORM_SOTHREADNAME_H
#define QUILLFORM_SOTHREADNAME_H

#include <Inventor/SbString.h>
#include <Quillform/Export.h>

/// The names of threads, as debuggers and system monitors show them.
class QUILLFORM_API SoThreadName {
public:
  /// Names the current thread. The system keeps the first 15 characters.
  static void setCurrent(const SbString& name);

  /// The name of the current thread; empty where the system keeps none.
  static SbString getCurrent();
};

#endif // QUILLFORM_SOTHREADNAME_H
