#include <Inventor/Qt/SoQt.h>
#include <QApplication>
#include <Quillform/Quillform.h>
#include <cstdlib>
#include <gtest/gtest.h>

/// Windows of the tests need no display; a test of the scene's picture sets the platform itself.
int main(int argc, char** argv)
{
  if (!std::getenv("QT_QPA_PLATFORM")) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
  }
  unsetenv("ARBHOME");
  unsetenv("QUILLFORM_SKINS_DIR");
  unsetenv("QUILLFORM_SKIN");
  unsetenv("DEBUG_QUILLFORM_AUDITORS");
  ::testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
