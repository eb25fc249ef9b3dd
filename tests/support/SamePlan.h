#ifndef QUILLFORM_TESTS_SAMEPLAN_H
#define QUILLFORM_TESTS_SAMEPLAN_H

#include <Quillform/Quillform.h>
#include <string>

/// The two forms of a dialog show the same rectangles: the frames, and the buttons in them; texts stand inside them.
/// \a window and \a scene are copies of one dialog, or the same one.
void expectSamePlan(SoTopLevelDialog* window, SoTopLevelDialog* scene, const std::string& where);

#endif // QUILLFORM_TESTS_SAMEPLAN_H
