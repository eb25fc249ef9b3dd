#include <view/Pointer.h>
#include <view/Program.h>
#include <view/VirtualDisplay.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <cmath>
#include <forms/Plan.h>
#include <stdexcept>

namespace {

const QString file = QUILLFORM_EXAMPLES "/material-editor.iv";

/// Where the controls of the dialog stand, from the top-left corner of its contents. Both forms have one plan, so the
/// places are those of a window.
class Layout {
public:
  Layout()
  {
    SoQuillform::init();
    m_dialog = dynamic_cast<SoTopLevelDialog*>(SoQuillform::loadFromFile(qPrintable(file), ""));
    m_dialog->buildDialog(nullptr, FALSE);
    m_dialog->getWidget()->show();
    QApplication::processEvents();
  }
  ~Layout()
  {
    m_dialog->destroyWidget();
    SoQuillform::finish();
  }
  Layout(const Layout&) = delete;
  Layout& operator=(const Layout&) = delete;

  /// Brings a page to the front, as the user has done.
  void select(int page)
  {
    find<SoTabDialog>("pages")->selectedPage = page;
    QApplication::processEvents();
  }

  QPoint middleOfTab(int page) const
  {
    const auto* bar = getWidget<QTabBar>("pages");
    return bar->mapTo(m_dialog->getWidget(), bar->tabRect(page).center());
  }

  /// The middle of the widget of that kind inside a control.
  template <class Widget>
  QPoint middleOf(const char* id) const
  {
    const auto* widget = getWidget<Widget>(id);
    return widget->mapTo(m_dialog->getWidget(), widget->rect().center());
  }

  /// The mark of a check box or of a radio button, which stands at the left end of the widget.
  template <class Widget>
  QPoint markOf(const char* id, int index = 0) const
  {
    const auto* widget = getWidget<Widget>(id, index);
    return widget->mapTo(m_dialog->getWidget(), QPoint(8, widget->height() / 2));
  }

  /// The place on a slider at which it has a value between 0 and 1.
  QPoint onBar(const char* id, double value) const
  {
    const auto* edit = getWidget<QLineEdit>(id);
    const int width = find<SoDialogSlider>(id)->getSliderWidth();
    const QPoint end = edit->mapTo(m_dialog->getWidget(), QPoint(0, edit->height() / 2));
    return end - QPoint(qRound((1.0 - value) * width), 0);
  }

  /// An entry of the open list of a combo box in the scene, which hangs below the box.
  QPoint inSceneList(const char* id, int entry) const
  {
    const int row = SoQuillform::getLabelPixelSize("X", nullptr)[1] + 2;
    const auto* box = getWidget<QComboBox>(id);
    return middleOf<QComboBox>(id) + QPoint(0, box->height() / 2 + row / 2 + entry * row);
  }

  /// The middle of the title of a menu.
  QPoint titleOf(const char* menu) const
  {
    const QMenuBar* bar = getBar();
    return bar->mapTo(m_dialog->getWidget(), bar->actionGeometry(getMenu(menu)->menuAction()).center());
  }

  /// The middle of an entry of the menu when it is open, in a window or in the scene.
  QPoint inMenu(const char* menu, int entry, bool isInScene) const
  {
    const QMenuBar* bar = getBar();
    const QRect title = bar->actionGeometry(getMenu(menu)->menuAction());
    const QPoint below = bar->mapTo(m_dialog->getWidget(), title.bottomLeft());
    QMenu* open = getMenu(menu);
    open->adjustSize();
    if (!isInScene) {
      return below + QPoint(30, open->actionGeometry(open->actions().at(entry)).center().y());
    }
    int y = SoMenuItem::itemHeight / 2;
    for (int i = 0; i < entry; i++) {
      y += open->actions().at(i)->isSeparator() ? 8 : SoMenuItem::itemHeight;
    }
    return below + QPoint(30, y);
  }

private:
  QMenuBar* getBar() const
  {
    return qobject_cast<QMenuBar*>(m_dialog->getLayout()->menuBar());
  }

  QMenu* getMenu(const QString& title) const
  {
    for (const QAction* action : getBar()->actions()) {
      if (action->text() == title) {
        return action->menu();
      }
    }
    throw std::runtime_error("no such menu");
  }

  template <class Element>
  Element* find(const char* id) const
  {
    return static_cast<Element*>(m_dialog->searchForAuditorId(id));
  }

  template <class Widget>
  const Widget* getWidget(const char* id, int index = 0) const
  {
    return find<SoDialogComponent>(id)->getWidget()->template findChildren<Widget*>().at(index);
  }

  SoTopLevelDialog* m_dialog;
};

} // namespace

/// Tests in which the material editor is on the screen and somebody uses it, with the dialog in the form that the
/// parameter names.
class MaterialEditorTest : public ProgramTest, public ::testing::WithParamInterface<const char*> {
protected:
  MaterialEditorTest() : m_isInScene(QByteArray(GetParam()) == "scene")
  {
    program = MATERIAL_EDITOR;
    useDisplay(m_display.getName());
    environment.insert("QUILLFORM_SKINS_DIR", QUILLFORM_SKINS);
    environment.insert("QT_FONT_DPI", "96");
    environment.insert("XDG_RUNTIME_DIR", pathOf(".")); // Qt complains when there is none
    environment.insert("QT_STYLE_OVERRIDE", "fusion");
  }

  ~MaterialEditorTest() override
  {
    m_process.kill();
    m_process.waitForFinished();
  }

  /// Opens the program and waits until it answers: what is done before its first frame is lost.
  void SetUp() override
  {
    ASSERT_NE("", m_display.getName().toStdString());
    const QStringList options =
      m_isInScene ? QStringList{"--scene", "--print-changes"} : QStringList{"--print-changes"};
    start(m_process, options);
    m_window = user().waitForWindow(m_isInScene ? "Model" : "Material editor");
    ASSERT_NE(0U, m_window);
    bool hasAnswered = false;
    for (int i = 0; i < 20 && !hasAnswered; i++) {
      drag(layout.onBar("transparency", 0.5), layout.onBar("transparency", 0.75));
      hasAnswered = waitForNumber("Material transparency ", 0.75, 1000);
    }
    ASSERT_TRUE(hasAnswered) << m_output.toStdString() << m_process.readAllStandardError().toStdString();
  }

  Pointer user() const
  {
    return Pointer(environment);
  }

  /// The place in the window of a place in the dialog.
  QPoint inWindow(const QPoint& place) const
  {
    if (!m_isInScene) {
      return place;
    }
    // The scene is drawn between the 30 pixels of the viewer's decoration left, right and below. The camera of the
    // program stands 4.4 in front of the dialog, and sees 45 degrees of it between above and below.
    const QSize area = user().getSize(m_window) - QSize(60, 30);
    const double scale = area.height() / (2.0 * 4.4 * std::tan(3.14159265 / 8.0));
    const double x = 1.4 + 0.0075 * (place.x() + Plan::border) - 1.4;
    const double y = 1.6 - 0.0075 * (place.y() + Plan::top) + 0.1;
    return {30 + area.width() / 2 + qRound(x * scale), area.height() / 2 - qRound(y * scale)};
  }

  void click(const QPoint& place) const
  {
    user().click(m_window, inWindow(place));
  }

  void drag(const QPoint& from, const QPoint& to) const
  {
    user().drag(m_window, inWindow(from), inWindow(to));
  }

  void selectPage(int page)
  {
    click(layout.middleOfTab(page));
    layout.select(page);
  }

  /// Waits until the program prints a line that \a isWanted accepts; what it printed before is passed over.
  template <class IsWanted>
  bool waitForLine(const IsWanted& isWanted, int milliseconds)
  {
    QElapsedTimer clock;
    clock.start();
    while (true) {
      while (m_process.canReadLine()) {
        const QByteArray line = m_process.readLine().trimmed();
        m_output += line + '\n';
        if (isWanted(line)) {
          return true;
        }
      }
      const auto left = milliseconds - static_cast<int>(clock.elapsed());
      if (left <= 0) {
        return false;
      }
      m_process.waitForReadyRead(left);
    }
  }

  /// Waits for a line with the number at the end, within what the hand of a user meets.
  bool waitForNumber(const QByteArray& start, double number, int milliseconds)
  {
    const auto isWanted = [&](const QByteArray& line) {
      return line.startsWith(start) && std::abs(line.mid(start.size()).toDouble() - number) < 0.04;
    };
    return waitForLine(isWanted, milliseconds);
  }

  /// Expects a line that begins so, or is no longer than that when \a wanted has no blank at its end.
  void expectLine(const QByteArray& wanted)
  {
    m_output.clear();
    const auto isWanted = [&](const QByteArray& line) {
      return wanted.endsWith(' ') ? line.startsWith(wanted) : line == wanted;
    };
    EXPECT_TRUE(waitForLine(isWanted, 20000)) << wanted.toStdString() << " is not among what was printed:\n"
                                              << m_output.toStdString();
  }

  Layout layout;
  const bool m_isInScene;
  unsigned long m_window = 0;
  QProcess m_process;
  QByteArray m_output; // the lines that were passed over

private:
  VirtualDisplay m_display;
};

TEST_P(MaterialEditorTest, theColourOfThatPartIsChangedThatTheComboBoxNames)
{
  click(layout.middleOf<QComboBox>("part"));
  if (m_isInScene) {
    click(layout.inSceneList("part", 2));
  }
  else {
    user().pressKey(m_window, "Down");
    user().pressKey(m_window, "Return");
  }
  drag(layout.onBar("green", 0.5), layout.onBar("green", 0.25));
  // The specular colour has no red and no blue, and only its green has been moved.
  const auto isWanted = [](const QByteArray& line) {
    const QList<QByteArray> words = line.split(' ');
    return words.size() == 5 && line.startsWith("Material specularColor 0 ") && words[4] == "0" &&
           std::abs(words[3].toDouble() - 0.25) < 0.04;
  };
  EXPECT_TRUE(waitForLine(isWanted, 20000)) << m_output.toStdString();
  EXPECT_FALSE(m_output.contains("diffuseColor")) << m_output.toStdString();
}

TEST_P(MaterialEditorTest, theLightGoesOutAndOnWithItsCheckBox)
{
  selectPage(1);
  click(layout.markOf<QCheckBox>("on"));
  expectLine("DirectionalLight on FALSE");
  click(layout.markOf<QCheckBox>("on"));
  expectLine("DirectionalLight on TRUE");
}

TEST_P(MaterialEditorTest, aChosenStyleBringsItsSliderToLife)
{
  selectPage(2);
  drag(layout.onBar("lineWidth", 0.2), layout.onBar("lineWidth", 0.9)); // of no use while surfaces are drawn
  click(layout.markOf<QRadioButton>("style", 1));
  expectLine("DrawStyle style LINES");
  EXPECT_FALSE(m_output.contains("lineWidth")) << m_output.toStdString();
  drag(layout.onBar("lineWidth", 0.2), layout.onBar("lineWidth", 0.6));
  expectLine("DrawStyle lineWidth 5");
}

TEST_P(MaterialEditorTest, anEntryOfAMenuChoosesTheStyle)
{
  click(layout.titleOf("&View"));
  click(layout.inMenu("&View", 1, m_isInScene));
  expectLine("DrawStyle style LINES");
  click(layout.titleOf("&View"));
  click(layout.inMenu("&View", 0, m_isInScene));
  expectLine("DrawStyle style FILLED");
}

TEST_P(MaterialEditorTest, itEndsWithItsMenu)
{
  click(layout.titleOf("&File"));
  click(layout.inMenu("&File", 3, m_isInScene));
  ASSERT_TRUE(m_process.waitForFinished(20000));
  EXPECT_EQ(m_process.exitCode(), 0);
}

TEST_P(MaterialEditorTest, theNameIsTyped)
{
  click(layout.middleOf<QLineEdit>("name"));
  user().pressKey(m_window, "End");
  user().type("s B4");
  user().pressKey(m_window, "Return");
  expectLine("Text2 string \"Lamp foots B4\"");
}

TEST_P(MaterialEditorTest, aValueIsTyped)
{
  click(layout.middleOf<QLineEdit>("red"));
  user().pressKey(m_window, "End");
  for (int i = 0; i < 4; i++) {
    user().pressKey(m_window, "BackSpace");
  }
  user().type("0.5");
  user().pressKey(m_window, "Return");
  expectLine("Material diffuseColor 0.5 ");
}

TEST_P(MaterialEditorTest, itEndsWithTheButton)
{
  click(layout.middleOf<QPushButton>("close"));
  EXPECT_TRUE(m_process.waitForFinished(20000));
  EXPECT_EQ(QProcess::NormalExit, m_process.exitStatus());
  EXPECT_EQ(0, m_process.exitCode());
  EXPECT_EQ("", m_process.readAllStandardError().toStdString());
}

TEST_P(MaterialEditorTest, itEndsWithTheWindowOfTheModel)
{
  user().close(user().waitForWindow("Model"));
  EXPECT_TRUE(m_process.waitForFinished(20000));
  EXPECT_EQ(QProcess::NormalExit, m_process.exitStatus());
  EXPECT_EQ(0, m_process.exitCode());
}

INSTANTIATE_TEST_SUITE_P(Forms, MaterialEditorTest, ::testing::Values("window", "scene"),
                         [](const auto& form) { return std::string(form.param); });

/// Tests of dialog files that the editor cannot use.
class MaterialEditorFileTest : public ProgramTest {
protected:
  MaterialEditorFileTest()
  {
    program = MATERIAL_EDITOR;
    environment.insert("QT_QPA_PLATFORM", "offscreen");
  }

  void expectRefusal(const QString& name, const QByteArray& reason) const
  {
    const Result result = run({name});
    EXPECT_EQ(2, result.status);
    EXPECT_EQ("", result.output.toStdString());
    const QByteArray sentence =
      "material-editor: \"" + name.toLocal8Bit() + "\" is not the dialog of this program: " + reason + ".\n";
    EXPECT_TRUE(result.errors.endsWith(sentence)) << result.errors.toStdString();
  }
};

TEST_F(MaterialEditorFileTest, aMissingFileIsReported)
{
  expectRefusal("missing.iv", "no dialog can be read from it");
}

TEST_F(MaterialEditorFileTest, aBrokenFileIsReported)
{
  write("broken.iv", "TopLevelDialog {\n  DialogPushButton { colour 3 }\n}\n");
  expectRefusal("broken.iv", "no dialog can be read from it");
}

TEST_F(MaterialEditorFileTest, aFileWithoutADialogIsReported)
{
  write("cube.iv", "Cube { }\n");
  expectRefusal("cube.iv", "no dialog can be read from it");
}

TEST_F(MaterialEditorFileTest, aMissingControlIsReported)
{
  QFile shipped(file);
  ASSERT_TRUE(shipped.open(QIODevice::ReadOnly));
  const QByteArray text = shipped.readAll();
  write("other.iv", QByteArray(text).replace("\"transparency\"", "\"other\""));
  expectRefusal("other.iv", "it has no control of the right kind with the auditorID transparency");
  write("kind.iv", QByteArray(text).replace("DialogEditText", "DialogLabel").replace("editText \"Lamp foot\"", ""));
  expectRefusal("kind.iv", "it has no control of the right kind with the auditorID name");
}
