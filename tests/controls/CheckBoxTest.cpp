#include <QCheckBox>
#include <QLabel>
#include <QTest>
#include <Quillform/Quillform.h>
#include <functional>
#include <support/Operate.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

/// Counts what it hears and does what the test asks for.
struct Heard : SoDialogCheckBoxAuditor {
  void dialogCheckBox(SoDialogCheckBox* cpt) override
  {
    states.push_back(cpt->state.getValue());
    if (action) {
      action(cpt);
    }
  }
  std::vector<SbBool> states;
  std::function<void(SoDialogCheckBox*)> action;
};

QCheckBox* boxOf(SoDialogComponent* component)
{
  return component->getWidget()->findChild<QCheckBox*>("ZEPSoDialogQCheckBoxCheckBoxWidget");
}

void clickMark(QCheckBox* box)
{
  QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
}

} // namespace

class CheckBoxTest : public QuillformTest {
protected:
  void open(const std::string& fields)
  {
    dialog = load("TopLevelDialog { DialogCheckBox { " + fields + " } }");
    ASSERT_NE(dialog, nullptr);
    element = static_cast<SoDialogCheckBox*>(dialog->getChild(0));
    element->addAuditor(&heard);
    dialog->buildDialog(nullptr, FALSE);
    dialog->show();
    settle();
  }

  void openInScene(const std::string& fields)
  {
    dialog = load("TopLevelDialog { DialogCheckBox { " + fields + " } }");
    ASSERT_NE(dialog, nullptr);
    element = static_cast<SoDialogCheckBox*>(dialog->getChild(0));
    element->addAuditor(&heard);
    scene.open(dialog);
  }

  /// The pixel of the check mark in the scene.
  SbVec2s mark() const
  {
    return Operate::markOf(scene, element);
  }

  Scene scene;
  Heard heard;
  SoTopLevelDialog* dialog = nullptr;
  SoDialogCheckBox* element = nullptr;
};

TEST_F(CheckBoxTest, itsFieldsHaveTheirDefaults)
{
  auto* box = new SoDialogCheckBox;
  box->ref();
  EXPECT_FALSE(box->state.getValue());
  EXPECT_EQ(box->onString.getValue(), "");
  EXPECT_EQ(box->offString.getValue(), "");
  box->unref();
}

TEST_F(CheckBoxTest, withoutTextsItIsTwentySixByEight)
{
  auto* box = new SoDialogCheckBox;
  box->ref();
  EXPECT_EQ(box->getComponentInitSize(), SbVec2i32(26, 8));
  box->unref();
}

TEST_F(CheckBoxTest, anEmptyOffStringLeavesTheOnStringShown)
{
  open("onString \"shown\"");
  EXPECT_EQ(boxOf(element)->text(), "shown");
  element->offString = "hidden";
  EXPECT_EQ(boxOf(element)->text(), "hidden");
  element->state = TRUE;
  EXPECT_EQ(boxOf(element)->text(), "shown");
}

TEST_F(CheckBoxTest, aStateSetFromCodeMovesTheMarkAndCallsNobody)
{
  open("");
  element->state = TRUE;
  EXPECT_TRUE(boxOf(element)->isChecked());
  EXPECT_TRUE(heard.states.empty());
}

TEST_F(CheckBoxTest, everyClickTogglesTheStateAndCallsTheAuditorsOnce)
{
  open("onString \"on\" offString \"off\"");
  clickMark(boxOf(element));
  clickMark(boxOf(element));
  clickMark(boxOf(element));
  EXPECT_EQ(heard.states, (std::vector<SbBool>{TRUE, FALSE, TRUE}));
  EXPECT_TRUE(boxOf(element)->isChecked());
  EXPECT_EQ(boxOf(element)->text(), "on");
}

TEST_F(CheckBoxTest, anAuditorThatTakesTheStateBackIsObeyedInTheWindow)
{
  open("");
  heard.action = [](SoDialogCheckBox* box) {
    box->state = FALSE;
  };
  clickMark(boxOf(element));
  EXPECT_FALSE(boxOf(element)->isChecked());
  EXPECT_FALSE(element->state.getValue());
  clickMark(boxOf(element));
  EXPECT_EQ(heard.states.size(), 2U);
  EXPECT_FALSE(boxOf(element)->isChecked());
}

TEST_F(CheckBoxTest, anAuditorMayRemoveTheBoxThatCalledIt)
{
  open("");
  heard.action = [this](SoDialogCheckBox* box) {
    dialog->removeChild(box);
  };
  clickMark(boxOf(element));
  settle();
  EXPECT_EQ(dialog->getNumChildren(), 0);
}

TEST_F(CheckBoxTest, theBoxAndItsLabelStandWhereTheyShould)
{
  open("label \"Label:\" width 200 height 40 fixedWidth TRUE fixedHeight TRUE");
  const int column = element->getLabelSize()[0];
  EXPECT_EQ(boxOf(element)->geometry(), QRect(column + 4, 3, 200 - 6 - column - 2, 34));
  const int textHeight = SoQuillform::getLabelPixelSize("Label:", element)[1];
  auto* label = element->getWidget()->findChild<QLabel*>("ZEPSoDialogQCheckBoxLabelWidget");
  EXPECT_EQ(label->geometry(), QRect(3, (40 - 3 - textHeight) / 2 + 3, column, textHeight));
  element->labelVisibility = FALSE;
  EXPECT_EQ(boxOf(element)->geometry(), QRect(2, 3, 194, 34));
}

TEST_F(CheckBoxTest, aClickOnTheMarkInTheSceneTogglesAtTheRelease)
{
  openInScene("label \"A label:\" onString \"on\" offString \"off\"");
  scene.press(mark());
  EXPECT_TRUE(heard.states.empty());
  scene.release(mark());
  EXPECT_EQ(heard.states, std::vector<SbBool>{TRUE});
  scene.click(mark());
  EXPECT_EQ(heard.states, (std::vector<SbBool>{TRUE, FALSE}));
}

TEST_F(CheckBoxTest, aClickBesideTheMarkAndTheTextInTheSceneDoesNothing)
{
  openInScene("label \"A label:\" onString \"on\" width 300");
  const SbVec3f at = element->get3DParentTranslation();
  scene.click(scene.pixel(at[0] + static_cast<float>(element->get3DSize()[0]) * 0.5F - 3.0F, at[1]));
  EXPECT_TRUE(heard.states.empty());
}

TEST_F(CheckBoxTest, bothFormsOfOneBoxSayTheSame)
{
  open("onString \"on\" offString \"off\"");
  scene.open(dialog);
  scene.click(mark());
  EXPECT_TRUE(boxOf(element)->isChecked());
  EXPECT_EQ(boxOf(element)->text(), "on");
  clickMark(boxOf(element));
  EXPECT_FALSE(element->state.getValue());
  EXPECT_EQ(heard.states, (std::vector<SbBool>{TRUE, FALSE}));
}

TEST_F(CheckBoxTest, aDisabledBoxCannotBeClickedInTheScene)
{
  openInScene("enable FALSE onString \"on\"");
  scene.click(mark());
  EXPECT_TRUE(heard.states.empty());
}
