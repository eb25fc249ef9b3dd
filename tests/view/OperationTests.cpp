#include "Pointer.h"
#include "Program.h"
#include "VirtualDisplay.h"

#include <QThread>

/// Tests in which the program is on the screen and somebody uses it.
class OperationTest : public ProgramTest {
protected:
  OperationTest()
  {
    useDisplay(m_display.getName());
    write("a.iv", "TopLevelDialog {\n  label \"Operated\"\n  auditorID \"dialog\"\n  width 200\n  height 100\n"
                  "  DialogPushButton { auditorID \"upper\" label \"Say \\\"hi\\\":\" buttonLabel \"a\\b\" }\n"
                  "  DialogPushButton { auditorID \"lower\" buttonLabel \"OK\" labelVisibility FALSE }\n}\n");
  }

  ~OperationTest() override
  {
    m_process.kill();
    m_process.waitForFinished();
  }

  void SetUp() override
  {
    ASSERT_NE("", m_display.getName().toStdString());
  }

  void open(const QStringList& arguments)
  {
    start(m_process, arguments);
  }

  /// The window with that title, drawn.
  unsigned long waitForWindow(const QString& title) const
  {
    const unsigned long window = user().waitForWindow(title);
    EXPECT_NE(0U, window);
    QThread::msleep(500); // from its appearance to its first frame
    return window;
  }

  Pointer user() const
  {
    return Pointer(environment);
  }

  std::string readLine()
  {
    while (!m_process.canReadLine() && m_process.waitForReadyRead(20000)) {
    }
    return m_process.readLine().trimmed().toStdString();
  }

  /// Expects the program to end well, after having printed nothing more.
  void expectEnd()
  {
    EXPECT_TRUE(m_process.waitForFinished(20000));
    EXPECT_EQ(QProcess::NormalExit, m_process.exitStatus());
    EXPECT_EQ(0, m_process.exitCode());
    EXPECT_EQ("", m_process.readAllStandardOutput().toStdString());
    EXPECT_EQ("", m_process.readAllStandardError().toStdString());
  }

  bool isRunning()
  {
    return !m_process.waitForFinished(1000);
  }

private:
  VirtualDisplay m_display;
  QProcess m_process;
};

TEST_F(OperationTest, aWindowTracesPressesUntilItIsClosed)
{
  open({"--trace", "--size", "240x160", "a.iv"});
  const unsigned long window = waitForWindow("Operated");
  EXPECT_EQ(QSize(240, 160), user().getSize(window));
  user().click(window, QPoint(180, 40));
  EXPECT_EQ(R"(dialogPushButton auditorID="upper" label="Say \"hi\":" buttonLabel="a\\b")", readLine());
  user().click(window, QPoint(120, 120));
  EXPECT_EQ(R"(dialogPushButton auditorID="lower" label="OK")", readLine());
  user().close(window);
  expectEnd();
}

TEST_F(OperationTest, aTabDialogTracesThePagesThatAreSelected)
{
  write("tabs.iv", "TopLevelDialog {\n  label \"Operated\"\n  width 300\n  height 150\n"
                   "  TabDialog { auditorID \"tabs\"\n    RowDialog { label \"WWWWWWWW\" }\n"
                   "    RowDialog { label \"second page\"\n"
                   "      DialogPushButton { auditorID \"inside\" buttonLabel \"OK\" labelVisibility FALSE } } }\n}\n");
  open({"--trace", "tabs.iv"});
  const unsigned long window = waitForWindow("Operated");
  user().click(window, QPoint(130, 14));
  EXPECT_EQ(R"(tabDialog auditorID="tabs" selectedPage="1" label="second page")", readLine());
  user().click(window, QPoint(150, 80));
  EXPECT_EQ(R"(dialogPushButton auditorID="inside" label="OK")", readLine());
  user().close(window);
  expectEnd();
}

TEST_F(OperationTest, theSceneTracesPressesUntilItIsClosed)
{
  open({"--scene", "--trace", "--size", "400x300", "a.iv"});
  const unsigned long window = waitForWindow("Operated");
  EXPECT_EQ(QSize(400, 300), user().getSize(window));
  user().click(window, QPoint(300, 110));
  EXPECT_EQ(R"(dialogPushButton auditorID="upper" label="Say \"hi\":" buttonLabel="a\\b")", readLine());
  user().click(window, QPoint(200, 230));
  EXPECT_EQ(R"(dialogPushButton auditorID="lower" label="OK")", readLine());
  user().close(window);
  expectEnd();
}

TEST_F(OperationTest, escapeTurnsTheSceneInsteadOfOperatingIt)
{
  open({"--scene", "--trace", "--size", "400x300", "a.iv"});
  const unsigned long window = waitForWindow("Operated");
  user().pressKey(window, "Escape");
  user().click(window, QPoint(200, 230)); // not traced
  user().pressKey(window, "Escape");
  user().click(window, QPoint(300, 110));
  EXPECT_EQ(R"(dialogPushButton auditorID="upper" label="Say \"hi\":" buttonLabel="a\\b")", readLine());
  user().close(window);
  expectEnd();
}

TEST_F(OperationTest, shiftTabInAViewerGoesToTheElementBefore)
{
  const auto button = [](const QByteArray& id) {
    return "  DialogPushButton { auditorID \"" + id + "\" buttonLabel \"OK\" labelVisibility FALSE }\n";
  };
  write("three.iv", "TopLevelDialog {\n  label \"Operated\"\n  width 200\n  height 120\n" + button("first") +
                      button("second") + button("third") + "}\n");
  open({"--scene", "--trace", "--size", "400x300", "three.iv"});
  const unsigned long window = waitForWindow("Operated");
  user().click(window, QPoint(200, 165));
  EXPECT_EQ(R"(dialogPushButton auditorID="second" label="OK")", readLine());
  user().pressKey(window, "shift+Tab");
  user().pressKey(window, "space");
  EXPECT_EQ(R"(dialogPushButton auditorID="first" label="OK")", readLine());
  user().pressKey(window, "Tab");
  user().pressKey(window, "Tab");
  user().pressKey(window, "space");
  EXPECT_EQ(R"(dialogPushButton auditorID="third" label="OK")", readLine());
  user().close(window);
  expectEnd();
}

TEST_F(OperationTest, nothingIsPrintedWithoutTrace)
{
  open({"a.iv"});
  const unsigned long window = waitForWindow("Operated");
  user().click(window, QPoint(100, 75));
  user().close(window);
  expectEnd();
}

TEST_F(OperationTest, theProgramEndsWithItsLastWindow)
{
  for (const QStringList& form : {QStringList{}, QStringList{"--scene"}}) {
    write("b.iv", read("a.iv").replace("Operated", "Another"));
    open(form + QStringList{"a.iv", "b.iv"});
    const unsigned long first = waitForWindow("Operated");
    const unsigned long second = waitForWindow("Another");
    user().close(first);
    EXPECT_TRUE(isRunning());
    user().close(second);
    expectEnd();
  }
}

TEST_F(OperationTest, aLoneElementIsOperatedInADialogOfItsOwn)
{
  write("lone.iv", "DialogPushButton { auditorID \"lone\" buttonLabel \"Press\" labelVisibility FALSE }\n");
  open({"--trace", "--size", "200x100", "lone.iv"});
  const unsigned long window = waitForWindow("lone.iv");
  user().click(window, QPoint(100, 50));
  EXPECT_EQ(R"(dialogPushButton auditorID="lone" label="Press")", readLine());
  user().close(window);
  expectEnd();
}
