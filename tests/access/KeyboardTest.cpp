#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QTextEdit>
#include <Quillform/Quillform.h>
#include <Quillform/platform/SoQtBasicSlider.h>
#include <support/HeardElements.h>
#include <support/TestFiles.h>

namespace {

typedef std::vector<std::string> Names;

std::string edit(const std::string& id)
{
  return "DialogEditText { auditorID \"" + id + "\" } ";
}

SoDialogEditText* newEdit(const char* id)
{
  auto* edit = new SoDialogEditText;
  edit->auditorID = id;
  return edit;
}

} // namespace

class KeyboardTest : public QuillformTest {
protected:
  ~KeyboardTest() override
  {
    if (dialog) {
      dialog->removeAuditor(&heard);
    }
  }

  void open(const std::string& children)
  {
    dialog = load("TopLevelDialog { " + children + " }");
    dialog->addAuditor(&heard);
    dialog->buildDialog(nullptr, FALSE);
    dialog->show();
    activate();
  }
  void activate()
  {
    dialog->getWidget()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog->getWidget()));
  }

  /// The element to which the focused widget belongs, after its identifier.
  std::string focused() const
  {
    return focusedIn(dialog);
  }
  std::string focusedIn(SoQuillform* element) const
  {
    const SoChildElements* children = element->getChildElements();
    std::string found;
    for (int i = 0; children && i < children->getNum(); i++) {
      auto* child = static_cast<SoDialogComponent*>(children->get(i));
      if (child->getWidget() && child->getWidget()->isAncestorOf(QApplication::focusWidget())) {
        found = child->auditorID.getValue().getString();
        const std::string inner = focusedIn(child);
        found = inner.empty() ? found : inner;
      }
    }
    return found;
  }

  /// Where the Tab key goes, from the first control on and once around.
  Names goAround(Qt::KeyboardModifiers modifiers = Qt::NoModifier)
  {
    if (QWidget* widget = QApplication::focusWidget()) {
      widget->clearFocus();
    }
    dialog->getWidget()->setFocus();
    Names names;
    const QWidget* first = nullptr;
    for (int i = 0; i < 100; i++) {
      QWidget* from = QApplication::focusWidget() ? QApplication::focusWidget() : dialog->getWidget();
      QTest::keyClick(from, modifiers ? Qt::Key_Backtab : Qt::Key_Tab, modifiers);
      const QWidget* now = QApplication::focusWidget();
      if (!now || now == first) {
        break;
      }
      first = first ? first : now;
      names.push_back(focused());
    }
    return names;
  }

  template <class Widget>
  Widget* in(int child)
  {
    return static_cast<SoDialogComponent*>(dialog->getChild(child))->getWidget()->findChild<Widget*>();
  }

  SoTopLevelDialog* dialog = nullptr;
  HeardElements heard;
};

// The order

TEST_F(KeyboardTest, tabFollowsTheReadingOrder)
{
  open(edit("a") + "RowDialog { " + edit("b") + edit("c") + "} ColumnDialog { " + edit("d") + "RowDialog { " +
       edit("e") + edit("f") + "} } TabDialog { auditorID \"tabs\" ColumnDialog { " + edit("g") + edit("h") +
       "} ColumnDialog { " + edit("hidden") + "} } " + edit("i"));
  const Names expected = {"a", "b", "c", "d", "e", "f", "tabs", "g", "h", "i"};
  EXPECT_EQ(goAround(), expected);
  EXPECT_EQ(goAround(Qt::ShiftModifier), Names(expected.rbegin(), expected.rend()));
}

TEST_F(KeyboardTest, tabFollowsTheReadingOrderAfterTheRowsHaveChanged)
{
  open(edit("a") + "RowDialog { " + edit("b") + edit("c") + "} " + edit("d"));
  dialog->insertChild(newEdit("new"), 0);
  EXPECT_EQ(goAround(), (Names{"new", "a", "b", "c", "d"}));
  auto* row = static_cast<SoRowDialog*>(static_cast<SoQuillform*>(dialog->getChild(2)));
  row->insertChild(newEdit("between"), 1);
  row->addChild(newEdit("last"));
  EXPECT_EQ(goAround(), (Names{"new", "a", "b", "between", "c", "last", "d"}));
  dialog->removeChild(dialog->getChild(1));
  EXPECT_EQ(goAround(), (Names{"new", "b", "between", "c", "last", "d"}));
  dialog->replaceChild(0, newEdit("other"));
  EXPECT_EQ(goAround(), (Names{"other", "b", "between", "c", "last", "d"}));
}

TEST_F(KeyboardTest, tabFollowsTheReadingOrderAfterAnEditorWasReplaced)
{
  open(edit("a") + edit("b") + edit("c"));
  static_cast<SoDialogEditText*>(dialog->getChild(1))->multiLine = TRUE;
  EXPECT_EQ(goAround(), (Names{"a", "b", "c"}));
}

TEST_F(KeyboardTest, withinASliderTabGoesFromLeftToRight)
{
  open("DialogRealSlider { auditorID \"s\" } " + edit("a"));
  dialog->insertChild(newEdit("new"), 0);
  ASSERT_EQ(goAround(), (Names{"new", "s", "s", "s", "a"}));
  in<QCheckBox>(1)->setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(in<SoQtBasicSlider>(1)->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(in<QLineEdit>(1)->hasFocus());
}

TEST_F(KeyboardTest, whatTheApplicationPutsIntoTheWindowKeepsItsPlace)
{
  QWidget window;
  auto* before = new QLineEdit(&window);
  auto* inside = new QWidget(&window);
  auto* after = new QLineEdit(&window);
  dialog = load("TopLevelDialog { " + edit("a") + "DialogCustom { auditorID \"custom\" } " + edit("b") + " }");
  dialog->buildDialog(inside, TRUE);
  auto* custom = static_cast<SoDialogCustom*>(static_cast<SoQuillform*>(dialog->getChild(1)));
  auto* second = new QLineEdit(custom->getWidget());
  auto* first = new QLineEdit(custom->getWidget());
  QWidget::setTabOrder(first, second);
  dialog->insertChild(newEdit("new"), 0);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  before->setFocus();
  Names names;
  for (int i = 0; i < 7; i++) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    const QWidget* now = QApplication::focusWidget();
    names.push_back(now == first ? "first" : now == second ? "second" : now == after ? "after" : focused());
  }
  // Widgets that come into the window later come last, wherever they stand, but for the dialog's own.
  EXPECT_EQ(names[0], "after");
  EXPECT_EQ(Names(names.begin() + 1, names.end()), (Names{"new", "a", "first", "second", "b", ""}));
  dialog->ref();
  dialog->destroyWidget();
  dialog->unrefNoDelete();
}

// The keys

TEST_F(KeyboardTest, spaceAndReturnPressAPushButton)
{
  open("DialogPushButton { auditorID \"go\" buttonLabel \"Go\" }");
  auto* button = in<QPushButton>(0);
  QTest::keyClick(button, Qt::Key_Space);
  QTest::keyClick(button, Qt::Key_Return);
  QTest::keyClick(button, Qt::Key_Enter);
  EXPECT_EQ(heard.ids, (Names{"go", "go", "go"}));
}

TEST_F(KeyboardTest, aReturnThatIsHeldDownPressesOnce)
{
  open("DialogPushButton { auditorID \"go\" buttonLabel \"Go\" }");
  QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
  QApplication::sendEvent(in<QPushButton>(0), &repeated);
  EXPECT_EQ(heard.ids, Names{});
}

TEST_F(KeyboardTest, spaceTogglesACheckBox)
{
  open("DialogCheckBox { auditorID \"box\" onString \"on\" }");
  auto* box = static_cast<SoDialogCheckBox*>(static_cast<SoQuillform*>(dialog->getChild(0)));
  QTest::keyClick(in<QCheckBox>(0), Qt::Key_Space);
  EXPECT_TRUE(box->state.getValue());
  QTest::keyClick(in<QCheckBox>(0), Qt::Key_Space);
  EXPECT_FALSE(box->state.getValue());
  EXPECT_EQ(heard.ids, (Names{"box", "box"}));
}

TEST_F(KeyboardTest, arrowsAndEndsChooseInAComboBox)
{
  open("DialogComboBox { auditorID \"combo\" items [ \"a\", \"b\", \"c\" ] }");
  auto* combo = static_cast<SoDialogComboBox*>(static_cast<SoQuillform*>(dialog->getChild(0)));
  QTest::keyClick(in<QComboBox>(0), Qt::Key_Down);
  EXPECT_EQ(combo->selectedItem.getValue(), 1);
  QTest::keyClick(in<QComboBox>(0), Qt::Key_End);
  EXPECT_EQ(combo->selectedItem.getValue(), 2);
  QTest::keyClick(in<QComboBox>(0), Qt::Key_Home);
  EXPECT_EQ(combo->selectedItem.getValue(), 0);
  EXPECT_EQ(heard.ids, (Names{"combo", "combo", "combo"}));
}

TEST_F(KeyboardTest, arrowsChooseAmongRadioButtons)
{
  open("DialogRadioButtons { auditorID \"radio\" items [ \"a\", \"b\", \"c\" ] }");
  auto* radio = static_cast<SoDialogRadioButtons*>(static_cast<SoQuillform*>(dialog->getChild(0)));
  in<QRadioButton>(0)->setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_EQ(radio->selectedItem.getValue(), 1);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_EQ(radio->selectedItem.getValue(), 2);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
  EXPECT_EQ(radio->selectedItem.getValue(), 1);
  EXPECT_EQ(heard.ids, (Names{"radio", "radio", "radio"}));
}

TEST_F(KeyboardTest, theKeyboardGoesThroughARadioGroupInOneStep)
{
  open(edit("a") + "DialogRadioButtons { auditorID \"radio\" items [ \"x\", \"y\" ] selectedItem 1 } " + edit("b"));
  EXPECT_EQ(goAround(), (Names{"a", "radio", "b"}));
}

TEST_F(KeyboardTest, keysMoveTheBarOfASlider)
{
  open("DialogRealSlider { auditorID \"s\" max 100 value 50 }");
  auto* slider = static_cast<SoDialogRealSlider*>(static_cast<SoQuillform*>(dialog->getChild(0)));
  const std::pair<Qt::Key, float> keys[] = {{Qt::Key_Right, 51.0F},    {Qt::Key_Up, 52.0F},   {Qt::Key_Left, 51.0F},
                                            {Qt::Key_PageUp, 61.0F},   {Qt::Key_Down, 60.0F}, {Qt::Key_End, 100.0F},
                                            {Qt::Key_PageDown, 90.0F}, {Qt::Key_Home, 0.0F}};
  for (const auto& [key, value] : keys) {
    QTest::keyClick(in<SoQtBasicSlider>(0), key);
    EXPECT_NEAR(slider->value.getValue(), value, 1e-3) << key;
  }
  EXPECT_EQ(heard.ids.size(), 8U);
}

TEST_F(KeyboardTest, tabLeavesAnEditorOfManyLines)
{
  open("DialogEditText { auditorID \"text\" multiLine TRUE editText \"x\" } " + edit("next"));
  in<QTextEdit>(0)->setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(focused(), "next");
  EXPECT_STREQ(
    static_cast<SoDialogEditText*>(static_cast<SoQuillform*>(dialog->getChild(0)))->editText.getValue().getString(),
    "x");
}

TEST_F(KeyboardTest, arrowsSelectPages)
{
  open("TabDialog { ColumnDialog { label \"A\" } ColumnDialog { label \"B\" } }");
  auto* tabs = static_cast<SoTabDialog*>(static_cast<SoQuillform*>(dialog->getChild(0)));
  auto* bar = in<QTabBar>(0);
  bar->setFocus();
  QTest::keyClick(bar, Qt::Key_Right);
  EXPECT_EQ(tabs->selectedPage.getValue(), 1);
  QTest::keyClick(bar, Qt::Key_Left);
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
}

TEST_F(KeyboardTest, theFocusIsSeenOnEveryControl)
{
  open("DialogPushButton { buttonLabel \"a\" } DialogCheckBox { onString \"b\" } DialogComboBox { items [ \"c\" ] } "
       "DialogRadioButtons { items [ \"d\", \"e\" ] } DialogRealSlider { } DialogEditText { } "
       "DialogEditText { multiLine TRUE } TabDialog { ColumnDialog { label \"f\" } }");
  QTest::keyClick(dialog->getWidget(), Qt::Key_Tab); // from now on the user works with the keyboard
  for (QWidget* widget : dialog->getWidget()->findChildren<QWidget*>()) {
    if ((widget->focusPolicy() & Qt::TabFocus) == 0 || !widget->isVisible() || widget->focusProxy()) {
      continue;
    }
    dialog->getWidget()->setFocus();
    if (QApplication::focusWidget()) {
      QApplication::focusWidget()->clearFocus();
    }
    const QImage without = widget->grab().toImage();
    widget->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(widget->hasFocus());
    EXPECT_NE(widget->grab().toImage(), without) << widget->objectName().toStdString();
  }
}
