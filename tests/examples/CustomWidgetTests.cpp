#include <view/Pointer.h>
#include <view/Program.h>
#include <view/VirtualDisplay.h>

#include <QProcess>

/// Tests in which the example with a widget of its own is on the screen.
class CustomWidgetTest : public ProgramTest {
protected:
  CustomWidgetTest()
  {
    program = CUSTOM_WIDGET;
    useDisplay(m_display.getName());
    environment.insert("QUILLFORM_SKINS_DIR", QUILLFORM_SKINS);
    environment.insert("XDG_RUNTIME_DIR", pathOf(".")); // Qt complains when there is none
  }

  ~CustomWidgetTest() override
  {
    m_process.kill();
    m_process.waitForFinished();
  }

  VirtualDisplay m_display;
  QProcess m_process;
};

TEST_F(CustomWidgetTest, opensAndEndsWhenItsWindowIsClosed)
{
  ASSERT_NE("", m_display.getName().toStdString());
  start(m_process, {});
  ASSERT_TRUE(m_process.waitForStarted());
  const Pointer user(environment);
  const unsigned long window = user.waitForWindow("Damped wave");
  ASSERT_NE(0U, window);
  const QSize size = user.getSize(window);
  EXPECT_GE(size.height(), 300);
  // The sliders at the bottom are the user's; the wave follows while they are dragged.
  user.drag(window, QPoint(size.width() / 2, size.height() - 60), QPoint(size.width() / 3, size.height() - 60));
  EXPECT_EQ(m_process.state(), QProcess::Running);
  user.close(window);
  EXPECT_TRUE(m_process.waitForFinished(30000));
  EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(m_process.exitCode(), 0) << m_process.readAllStandardError().toStdString();
}

TEST_F(CustomWidgetTest, aMissingFileIsNamed)
{
  const Result result = run({"no-such-file.iv"});
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(result.errors.contains("no-such-file.iv")) << result.errors.toStdString();
}
