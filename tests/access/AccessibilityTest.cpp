#include <QAccessible>
#include <QAccessibleWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QTextEdit>
#include <Quillform/Quillform.h>
#include <Quillform/platform/SoQtBasicSlider.h>
#include <support/TestFiles.h>
#include <utility>
#include <vector>

namespace {

QAccessibleInterface* accessible(QWidget* widget)
{
  return QAccessible::queryAccessibleInterface(widget);
}

/// What a screen reader calls the widget. Combo boxes are called what their labels say; their own name is the entry.
std::string nameOf(QWidget* widget)
{
  QAccessibleInterface* interface = accessible(widget);
  for (const auto& relation : interface->relations(QAccessible::Label)) {
    if (interface->role() == QAccessible::ComboBox) {
      interface = relation.first;
    }
  }
  return interface->text(QAccessible::Name).toStdString();
}

typedef std::vector<double> Values;

/// The values of bars that were announced.
Values& announced()
{
  static Values values;
  return values;
}

/// Those since the last call.
Values takeAnnounced()
{
  return std::exchange(announced(), {});
}

/// Counts what sliders report.
struct Heard : SoDialogAuditor {
  void dialogRealSlider(SoDialogRealSlider* cpt) override
  {
    values.push_back(cpt->value.getValue());
  }
  std::vector<float> values;
};

} // namespace

/// Qt hands announcements on only while a screen reader is running; in this program they come here in its place.
void QAccessible::updateAccessibility(QAccessibleEvent* event)
{
  if (event->type() == QAccessible::ValueChanged && dynamic_cast<SoQtBasicSlider*>(event->object())) {
    announced().push_back(static_cast<QAccessibleValueChangeEvent*>(event)->value().toDouble());
  }
}

class AccessibilityTest : public QuillformTest {
protected:
  void open(const std::string& children)
  {
    dialog = load("TopLevelDialog { label \"Settings\" " + children + " }");
    dialog->buildDialog(nullptr, FALSE);
    dialog->show();
  }

  /// The widget of that class in the child with that index.
  template <class Widget>
  Widget* in(int child)
  {
    return static_cast<SoDialogComponent*>(dialog->getChild(child))->getWidget()->findChild<Widget*>();
  }
  QWidget* frameOf(int child)
  {
    return static_cast<SoDialogComponent*>(dialog->getChild(child))->getWidget();
  }

  SoTopLevelDialog* dialog = nullptr;
};

// Names

TEST_F(AccessibilityTest, aControlIsNamedAfterTheLabelBesideIt)
{
  open("DialogCheckBox { label \"&Lights\" } DialogComboBox { label \"C&olour:\" items [ \"red\" ] } "
       "DialogEditText { label \"Name && title\" } DialogEditText { label \"&Text\" multiLine TRUE } "
       "DialogRealSlider { label \"&Radius\" } DialogPushButton { label \"R&&D\" }");
  EXPECT_EQ(nameOf(in<QCheckBox>(0)), "Lights");
  EXPECT_EQ(nameOf(in<QComboBox>(1)), "Colour:");
  EXPECT_EQ(in<QComboBox>(1)->accessibleName(), "Colour:");
  EXPECT_EQ(nameOf(in<QLineEdit>(2)), "Name & title");
  EXPECT_EQ(nameOf(in<QTextEdit>(3)), "Text");
  EXPECT_EQ(nameOf(in<SoQtBasicSlider>(4)), "Radius");
  EXPECT_EQ(nameOf(in<QPushButton>(5)), "R&D");
  EXPECT_EQ(accessible(in<QCheckBox>(0))->role(), QAccessible::CheckBox);
  EXPECT_EQ(accessible(in<QComboBox>(1))->role(), QAccessible::ComboBox);
  EXPECT_EQ(accessible(in<QLineEdit>(2))->role(), QAccessible::EditableText);
  EXPECT_EQ(accessible(in<QPushButton>(5))->role(), QAccessible::Button);
}

TEST_F(AccessibilityTest, theNameStaysWhenTheLabelIsHidden)
{
  open("DialogComboBox { label \"&Colour\" labelVisibility FALSE items [ \"red\" ] } "
       "DialogRadioButtons { label \"&Size\" labelVisibility FALSE items [ \"small\", \"large\" ] }");
  EXPECT_FALSE(in<QLabel>(0)->isVisible());
  EXPECT_EQ(nameOf(in<QComboBox>(0)), "Colour");
  EXPECT_EQ(in<QGroupBox>(1)->title(), "");
  EXPECT_EQ(nameOf(in<QGroupBox>(1)), "Size");
}

TEST_F(AccessibilityTest, theNameFollowsTheFields)
{
  open("DialogCheckBox { label \"Light\" onString \"on\" offString \"off\" } DialogPushButton { buttonLabel \"&Go\" } "
       "DialogRealSlider { label \"Radius\" }");
  EXPECT_EQ(nameOf(in<QCheckBox>(0)), "Light off");
  QTest::keyClick(in<QCheckBox>(0), Qt::Key_Space);
  EXPECT_EQ(nameOf(in<QCheckBox>(0)), "Light on");
  dialog->getChild(0)->label = "";
  EXPECT_EQ(nameOf(in<QCheckBox>(0)), "on");
  EXPECT_EQ(nameOf(in<QPushButton>(1)), "Go");
  static_cast<SoDialogPushButton*>(dialog->getChild(1))->buttonLabel = "Run && stop";
  EXPECT_EQ(nameOf(in<QPushButton>(1)), "Run & stop");
  dialog->getChild(1)->label = "Now:";
  EXPECT_EQ(nameOf(in<QPushButton>(1)), "Now: Run & stop");
  dialog->getChild(2)->label = "Two\\nlines";
  EXPECT_EQ(nameOf(in<SoQtBasicSlider>(2)), "Two lines");
}

TEST_F(AccessibilityTest, aControlWithoutTextsIsNamedAfterItsIdentifier)
{
  open("DialogPushButton { auditorID \"apply\" } DialogRealSlider { auditorID \"radius\" } "
       "DialogPushButton { auditorID \"no\" buttonLabel \"Yes\" }");
  EXPECT_EQ(nameOf(in<QPushButton>(0)), "apply");
  EXPECT_EQ(nameOf(in<SoQtBasicSlider>(1)), "radius");
  EXPECT_EQ(nameOf(in<QPushButton>(2)), "Yes");
}

TEST_F(AccessibilityTest, whatStandsBesideTheBarOfASliderIsNamedToo)
{
  open("DialogRealSlider { label \"&Radius:\" } DialogIntegerSlider { }");
  EXPECT_EQ(nameOf(in<QLineEdit>(0)), "Radius value");
  EXPECT_EQ(nameOf(in<QCheckBox>(0)), "Radius continuous update");
  EXPECT_EQ(nameOf(in<QLineEdit>(1)), "value");
  EXPECT_EQ(nameOf(in<QCheckBox>(1)), "continuous update");
}

TEST_F(AccessibilityTest, noWidgetThatTakesTheKeyboardIsNameless)
{
  open("DialogPushButton { label \"a\" } DialogCheckBox { label \"b\" } DialogComboBox { label \"c\" items [ \"x\" ] } "
       "DialogRadioButtons { label \"d\" items [ \"y\", \"z\" ] } DialogIntegerSlider { label \"e\" } "
       "DialogRealSlider { label \"f\" } DialogEditText { label \"g\" } DialogEditText { label \"h\" multiLine TRUE } "
       "DialogSeparator { } DialogCustom { } DialogLabel { label \"i\" } "
       "TabDialog { label \"j\" ColumnDialog { label \"k\" DialogEditText { label \"l\" } } "
       "RowDialog { label \"m\" DialogPushButton { buttonLabel \"n\" } } }");
  int seen = 0;
  for (QWidget* widget : dialog->getWidget()->findChildren<QWidget*>()) {
    if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() && !widget->focusProxy()) {
      ++seen;
      EXPECT_NE(nameOf(widget), "") << widget->metaObject()->className() << " " << widget->objectName().toStdString();
    }
  }
  EXPECT_GE(seen, 15);
}

// Roles

TEST_F(AccessibilityTest, framesAreGroupingsAndGroupsAreNamedByTheirLabels)
{
  open("RowDialog { label \"&Colours\" DialogEditText { label \"Red\" } } DialogSeparator { } DialogCustom { } "
       "TabDialog { label \"Pa&ges\" ColumnDialog { label \"One\" } }");
  EXPECT_EQ(accessible(frameOf(0))->role(), QAccessible::Grouping);
  EXPECT_EQ(nameOf(frameOf(0)), "Colours");
  dialog->getChild(0)->label = "Tints";
  EXPECT_EQ(nameOf(frameOf(0)), "Tints");
  EXPECT_EQ(accessible(frameOf(1)->findChild<QFrame*>())->role(), QAccessible::Separator);
  EXPECT_EQ(accessible(frameOf(2))->role(), QAccessible::Grouping);
  EXPECT_EQ(nameOf(in<QTabWidget>(3)), "Pages");
  EXPECT_EQ(accessible(in<QTabBar>(3))->role(), QAccessible::PageTabList);
}

TEST_F(AccessibilityTest, radioButtonsAreAGroupNamedByTheirTitle)
{
  open("DialogRadioButtons { label \"&Size\" items [ \"small & cheap\", \"large\" ] }");
  EXPECT_EQ(accessible(in<QGroupBox>(0))->role(), QAccessible::Grouping);
  EXPECT_EQ(nameOf(in<QGroupBox>(0)), "Size");
  EXPECT_EQ(accessible(in<QRadioButton>(0))->role(), QAccessible::RadioButton);
  EXPECT_EQ(nameOf(in<QRadioButton>(0)), "small & cheap");
}

TEST_F(AccessibilityTest, theWindowIsNamedByTheDialogsLabel)
{
  open("DialogLabel { label \"text\" }");
  EXPECT_EQ(nameOf(dialog->getWidget()), "Settings");
}

// The slider's bar

TEST_F(AccessibilityTest, theBarGivesTheValueOnTheScaleOfItsSlider)
{
  open("DialogRealSlider { label \"Radius\" min -1 max 9 value 0.5 } DialogIntegerSlider { min 10 max 20 value 13 }");
  QAccessibleInterface* real = accessible(in<SoQtBasicSlider>(0));
  EXPECT_EQ(real->role(), QAccessible::Slider);
  ASSERT_NE(real->valueInterface(), nullptr);
  EXPECT_EQ(real->valueInterface()->currentValue().toDouble(), 0.5);
  EXPECT_EQ(real->valueInterface()->minimumValue().toDouble(), -1.0);
  EXPECT_EQ(real->valueInterface()->maximumValue().toDouble(), 9.0);
  EXPECT_NEAR(real->valueInterface()->minimumStepSize().toDouble(), 0.1, 1e-6);
  QAccessibleValueInterface* integer = accessible(in<SoQtBasicSlider>(1))->valueInterface();
  EXPECT_EQ(integer->currentValue().toInt(), 13);
  EXPECT_EQ(integer->minimumValue().toInt(), 10);
  EXPECT_EQ(integer->maximumValue().toInt(), 20);
  EXPECT_NEAR(integer->minimumStepSize().toDouble(), 1.0, 1e-6);
}

TEST_F(AccessibilityTest, theBarAnnouncesEveryNewValueOnce)
{
  open("DialogRealSlider { min -1 max 9 value 0.5 } DialogIntegerSlider { min 10 max 20 value 13 }");
  auto* real = static_cast<SoDialogRealSlider*>(dialog->getChild(0));
  auto* integer = static_cast<SoDialogIntegerSlider*>(dialog->getChild(1));
  takeAnnounced();
  QTest::keyClick(in<SoQtBasicSlider>(1), Qt::Key_Right);
  EXPECT_EQ(integer->value.getValue(), 14);
  EXPECT_EQ(takeAnnounced(), Values{14.0});
  QTest::keyClick(in<SoQtBasicSlider>(1), Qt::Key_End);
  EXPECT_EQ(takeAnnounced(), Values{20.0});
  QTest::keyClick(in<SoQtBasicSlider>(1), Qt::Key_End); // stands there already
  EXPECT_EQ(takeAnnounced(), Values{});
  real->value = 2.5F; // by code
  EXPECT_EQ(takeAnnounced(), Values{2.5});
  real->value = 2.5F;
  EXPECT_EQ(takeAnnounced(), Values{});
  real->max = 19.0F; // the bar moves, the value stays
  EXPECT_EQ(takeAnnounced(), Values{});
  auto* edit = in<QLineEdit>(1);
  edit->setText("12");
  QTest::keyClick(edit, Qt::Key_Return);
  EXPECT_EQ(takeAnnounced(), Values{12.0});
}

TEST_F(AccessibilityTest, settingTheValueOfTheBarIsAnActionOfTheUser)
{
  open("DialogRealSlider { min -1 max 9 value 0.5 }");
  Heard heard;
  dialog->addAuditor(&heard);
  auto* slider = static_cast<SoDialogRealSlider*>(dialog->getChild(0));
  QAccessibleValueInterface* value = accessible(in<SoQtBasicSlider>(0))->valueInterface();
  value->setCurrentValue(4.0);
  EXPECT_EQ(slider->value.getValue(), 4.0F);
  EXPECT_EQ(heard.values, std::vector<float>{4.0F});
  value->setCurrentValue(400.0); // the end of the scale
  EXPECT_EQ(slider->value.getValue(), 9.0F);
  slider->max = -1.0F; // a scale without length
  value->setCurrentValue(3.0);
  EXPECT_EQ(slider->value.getValue(), 9.0F);
  EXPECT_EQ(heard.values.size(), 2U);
  dialog->removeAuditor(&heard);
}

// Mnemonic letters

TEST_F(AccessibilityTest, theLettersOfLabelsBringTheKeyboardToTheControls)
{
  open("DialogEditText { label \"&Name\" } DialogComboBox { label \"&Colour\" items [ \"red\" ] } "
       "DialogRealSlider { label \"&Radius\" } DialogEditText { label \"No&tes\" multiLine TRUE } "
       "DialogRadioButtons { label \"&Size\" items [ \"small\", \"large\" ] selectedItem 1 }");
  QWidget* window = dialog->getWidget();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  QTest::keyClick(window, Qt::Key_R, Qt::AltModifier);
  EXPECT_TRUE(in<SoQtBasicSlider>(2)->hasFocus());
  QTest::keyClick(window, Qt::Key_N, Qt::AltModifier);
  EXPECT_TRUE(in<QLineEdit>(0)->hasFocus());
  QTest::keyClick(window, Qt::Key_C, Qt::AltModifier);
  EXPECT_TRUE(in<QComboBox>(1)->hasFocus());
  QTest::keyClick(window, Qt::Key_T, Qt::AltModifier);
  EXPECT_TRUE(in<QTextEdit>(3)->hasFocus());
  QTest::keyClick(window, Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(frameOf(4)->findChildren<QRadioButton*>()[1]->hasFocus());
  dialog->getChild(0)->label = "&Title";
  dialog->getChild(3)->label = "Notes";
  QTest::keyClick(window, Qt::Key_T, Qt::AltModifier);
  EXPECT_TRUE(in<QLineEdit>(0)->hasFocus());
}

TEST_F(AccessibilityTest, theLetterOfALabelPressesItsButton)
{
  open("DialogCheckBox { label \"&Lights\" }");
  QWidget* window = dialog->getWidget();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  QTest::keyClick(window, Qt::Key_L, Qt::AltModifier);
  const auto* box = static_cast<SoDialogCheckBox*>(dialog->getChild(0));
  EXPECT_TRUE(QTest::qWaitFor([box] { return box->state.getValue() != FALSE; })); // the press is animated
}
