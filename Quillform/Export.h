#ifndef QUILLFORM_EXPORT_H
#define QUILLFORM_EXPORT_H

/// Marks what applications link against; everything else stays inside the library.
#if defined(__GNUC__)
#define QUILLFORM_API __attribute__((visibility("default")))
#else
#define QUILLFORM_API
#endif

#endif // QUILLFORM_EXPORT_H
