#ifndef QUILLFORM_TESTS_DIALOGFILE_H
#define QUILLFORM_TESTS_DIALOGFILE_H

#include <string>

/// Any bytes, taken for a dialog file.
namespace DialogFile {

/// Reads the bytes. If they hold elements, writes and reads these again, opens them as windows and in a scene, does in
/// both what a user might do, and releases them. Quillform must have been started.
///
/// Returns what was found wrong, in a sentence, or an empty text; the sanitizers find the rest.
std::string use(const std::string& bytes);

} // namespace DialogFile

#endif // QUILLFORM_TESTS_DIALOGFILE_H
