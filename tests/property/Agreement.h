#ifndef QUILLFORM_TESTS_AGREEMENT_H
#define QUILLFORM_TESTS_AGREEMENT_H

#include <Quillform/Quillform.h>
#include <array>
#include <map>
#include <string>
#include <vector>

/// Whether what a dialog shows, and what is written of it, is what its fields say.
namespace Agreement {

/// What is wrong, one entry a fault.
typedef std::vector<std::string> Faults;

/// The six sizing fields of each element as the author set them.
typedef std::map<const SoQuillform*, std::array<int, 6>> AuthoredSizes;

/// The sizing fields as they are now; all 0 for an element without them.
std::array<int, 6> sizesOf(SoQuillform* element);

/// Compares each element's fields with its widgets and with its geometry.
Faults checkElements(SoTopLevelDialog* dialog);

/// Looks whether every frame of the window stands within its limits, and with \a isJustBuilt whether the fields hold
/// its size: code may have set them since.
Faults checkLimits(SoTopLevelDialog* dialog, bool isJustBuilt);

/// Writes, reads and writes again: the texts are the same, the sizes are the author's, all other fields those on
/// screen.
Faults checkFile(SoTopLevelDialog* dialog, const AuthoredSizes& authored);

/// Everything in the window that a user sees, one entry a widget.
std::vector<std::string> describeWindow(SoTopLevelDialog* dialog);

/// The differences between two lists.
Faults compare(const std::vector<std::string>& one, const std::vector<std::string>& other);

} // namespace Agreement

#endif // QUILLFORM_TESTS_AGREEMENT_H
