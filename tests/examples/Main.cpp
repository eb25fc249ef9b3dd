#include <QApplication>
#include <cstdlib>
#include <gtest/gtest.h>

/// The tests look up in a window of their own, which needs no display, where the controls of a program stand. Both
/// have to draw alike.
int main(int argc, char** argv)
{
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  setenv("QT_FONT_DPI", "96", 1);
  setenv("QT_STYLE_OVERRIDE", "fusion", 1);
  unsetenv("QUILLFORM_SKIN");
  ::testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
