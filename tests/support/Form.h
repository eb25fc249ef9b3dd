#ifndef QUILLFORM_TESTS_FORM_H
#define QUILLFORM_TESTS_FORM_H

#include <array>
#include <ostream>

/// How a test shows a dialog, and which of its forms the user operates.
enum Form { WINDOW, SCENE, BOTH_BY_WINDOW, BOTH_BY_SCENE };

constexpr std::array<Form, 4> allForms = {WINDOW, SCENE, BOTH_BY_WINDOW, BOTH_BY_SCENE};

inline void PrintTo(Form form, std::ostream* out)
{
  static const std::array<const char*, 4> names = {"window", "scene", "bothByWindow", "bothByScene"};
  *out << names[form];
}

inline bool hasWindow(Form form)
{
  return form != SCENE;
}

inline bool hasScene(Form form)
{
  return form != WINDOW;
}

/// The user operates the window.
inline bool isByWindow(Form form)
{
  return form == WINDOW || form == BOTH_BY_WINDOW;
}

#endif // QUILLFORM_TESTS_FORM_H
