#include <Inventor/events/SoKeyboardEvent.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoText3.h>
#include <QCheckBox>
#include <QLineEdit>
#include <Quillform/Quillform.h>
#include <Quillform/platform/SoQtBasicSlider.h>
#include <forms/Plan.h>
#include <functional>
#include <support/Messages.h>
#include <support/Operate.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

struct Heard : SoDialogAuditor {
  void dialogIntegerSlider(SoDialogIntegerSlider* cpt) override
  {
    hear(cpt->value.getValue());
  }
  void dialogRealSlider(SoDialogRealSlider* cpt) override
  {
    hear(cpt->value.getValue());
  }
  void hear(double value)
  {
    values.push_back(value);
    if (action) {
      action();
    }
  }
  std::vector<double> values;
  std::function<void()> action;
};

int shownChild(SoQuillform* element, const char* switchName)
{
  return static_cast<SoSwitch*>(Plan::partOf(element, switchName))->whichChild.getValue();
}

} // namespace

class SliderSceneTest : public QuillformTest {
protected:
  /// Opens a scene with one slider, which reports to `heard`.
  template <class Slider>
  Slider* open(const std::string& text)
  {
    dialog = load("TopLevelDialog { " + text + " }");
    dialog->addAuditor(&heard);
    scene.open(dialog);
    return dynamic_cast<Slider*>(dialog->getChild(0));
  }
  SoDialogIntegerSlider* openInteger(const std::string& fields)
  {
    return open<SoDialogIntegerSlider>("DialogIntegerSlider { " + fields + " }");
  }

  QRectF rectOf(SoQuillform* element, const char* part)
  {
    return Plan::seen(Plan::boxOf(dialog, Plan::partOf(element, part)));
  }

  /// The pixel in the middle of a part.
  SbVec2s on(SoQuillform* element, const char* part)
  {
    const QPointF centre = rectOf(element, part).center();
    return scene.pixel(static_cast<float>(centre.x()), static_cast<float>(-centre.y()));
  }

  /// The pixel of the bar at a position of the cursor.
  SbVec2s onBar(SoDialogSlider* slider, float position)
  {
    return Operate::onBar(scene, slider, position);
  }

  void drag(const SbVec2s& from, const SbVec2s& to)
  {
    scene.press(from);
    scene.move(to);
    scene.release(to);
  }

  void key(SoKeyboardEvent::Key key, char character = '\0')
  {
    scene.key(key, character);
  }

  void type(const std::string& text)
  {
    for (const char character : text) {
      key(character >= '0' && character <= '9' ? static_cast<SoKeyboardEvent::Key>(character)
                                               : SoKeyboardEvent::UNDEFINED,
          character);
    }
  }

  void erase(int count)
  {
    for (int i = 0; i < count; i++) {
      key(SoKeyboardEvent::BACKSPACE);
    }
  }

  /// The text that the scene shows in the value.
  std::string textOf(SoQuillform* slider)
  {
    auto* separator = static_cast<SoSeparator*>(Plan::partOf(slider, "editTextSep"));
    for (int i = 0; i < separator->getNumChildren(); i++) {
      if (auto* text = dynamic_cast<SoText3*>(separator->getChild(i))) {
        return text->string.getNum() > 0 ? text->string[0].getString() : "";
      }
    }
    return "no text";
  }

  Scene scene;
  SoTopLevelDialog* dialog = nullptr;
  Heard heard;
};

TEST_F(SliderSceneTest, theCursorIsDraggedAndItsEndReported)
{
  SoDialogIntegerSlider* slider = openInteger("max 10 value 2");
  const SbVec2s start = on(slider, "cursorSep");
  scene.press(start);
  scene.move(onBar(slider, 0.5F));
  EXPECT_EQ(textOf(slider), "5");
  EXPECT_EQ(slider->value.getValue(), 2);
  scene.move(onBar(slider, 0.8F));
  EXPECT_EQ(textOf(slider), "8");
  EXPECT_TRUE(heard.values.empty());
  scene.release(onBar(slider, 0.8F));
  EXPECT_EQ(slider->value.getValue(), 8);
  EXPECT_EQ(heard.values, std::vector<double>{8.0});
  EXPECT_NEAR(rectOf(slider, "cursorSep").center().x(),
              rectOf(slider, "frameSep").left() + SoQtBasicSlider::thumbWidth * 0.5 +
                (rectOf(slider, "frameSep").width() - SoQtBasicSlider::thumbWidth) * slider->getSliderPosition(),
              0.01);
}

TEST_F(SliderSceneTest, continuouslyEveryMotionIsReported)
{
  SoDialogIntegerSlider* slider = openInteger("max 10 continuousTrigger TRUE");
  scene.press(on(slider, "cursorSep"));
  scene.move(onBar(slider, 0.3F));
  scene.move(onBar(slider, 0.6F));
  scene.release(onBar(slider, 0.6F));
  EXPECT_EQ(heard.values, (std::vector<double>{3.0, 6.0}));
}

TEST_F(SliderSceneTest, aPressOnTheBarBringsTheCursorThere)
{
  SoDialogIntegerSlider* slider = openInteger("max 10");
  scene.click(onBar(slider, 0.7F));
  EXPECT_EQ(slider->value.getValue(), 7);
  EXPECT_EQ(heard.values, std::vector<double>{7.0});
}

TEST_F(SliderSceneTest, theCursorIsTakenWhereItIsHeldAndStopsAtTheEnds)
{
  SoDialogIntegerSlider* slider = openInteger("max 1000 value 500");
  const SbVec2s middle = on(slider, "cursorSep");
  const SbVec2s beside(static_cast<short>(middle[0] + 3), middle[1]);
  scene.press(beside);
  EXPECT_NEAR(slider->getSliderPosition(), 0.5F, 1.0e-6F);
  scene.move(SbVec2s(static_cast<short>(beside[0] + 1), beside[1]));
  EXPECT_NEAR(slider->getSliderPosition(), 0.5F, 0.03F);
  EXPECT_NE(slider->getSliderPosition(), 0.5F);
  scene.move(SbVec2s(Scene::width - 1, beside[1]));
  EXPECT_EQ(slider->getSliderPosition(), 1.0F);
  scene.move(SbVec2s(0, beside[1]));
  EXPECT_EQ(slider->getSliderPosition(), 0.0F);
  scene.release(SbVec2s(0, beside[1]));
  EXPECT_EQ(slider->value.getValue(), 0);
}

TEST_F(SliderSceneTest, theCursorFollowsThePointerAtAnyCameraAngle)
{
  SoDialogIntegerSlider* slider = openInteger("max 1000 width 300");
  SoOrthographicCamera* camera = scene.camera();
  for (const float angle : {0.6F, -0.9F}) {
    slider->value = 0;
    camera->orientation = SbRotation(SbVec3f(0.2F, 1.0F, 0.1F), angle);
    const SbBox3f bar = Plan::boxOf(dialog, Plan::partOf(slider, "frameSep"));
    camera->position = bar.getCenter();
    SbVec3f back;
    camera->orientation.getValue().multVec(SbVec3f(0.0F, 0.0F, 500.0F), back);
    camera->position = camera->position.getValue() + back;
    const SbViewVolume view = camera->getViewVolume(0.0F);
    const auto seen = [&view](const SbVec3f& point) {
      SbVec3f screen;
      view.projectToScreen(point, screen);
      return SbVec2s(static_cast<short>(std::lround(screen[0] * Scene::width)),
                     static_cast<short>(std::lround(screen[1] * Scene::height)));
    };
    const SbBox3f cursor = Plan::boxOf(dialog, Plan::partOf(slider, "cursorSep"));
    const SbVec3f start = cursor.getCenter();
    const float room = bar.getMax()[0] - bar.getMin()[0] - SoQtBasicSlider::thumbWidth;
    scene.press(seen(start));
    scene.move(seen(start + SbVec3f(room * 0.5F, 0.0F, 0.0F)));
    scene.release(seen(start + SbVec3f(room * 0.5F, 0.0F, 0.0F)));
    EXPECT_NEAR(slider->value.getValue(), 500, 10) << angle;
  }
}

TEST_F(SliderSceneTest, theToggleSwitchesOnReleaseAndReportsNothing)
{
  SoDialogIntegerSlider* slider = openInteger("max 10");
  EXPECT_EQ(shownChild(slider, "checkSwtch"), 0);
  const SbVec2s toggle = on(slider, "checkSep");
  scene.press(toggle);
  EXPECT_FALSE(slider->continuousTrigger.getValue());
  scene.release(toggle);
  EXPECT_TRUE(slider->continuousTrigger.getValue());
  EXPECT_EQ(shownChild(slider, "checkSwtch"), 1);
  scene.press(toggle);
  scene.move(onBar(slider, 0.5F));
  scene.release(onBar(slider, 0.5F));
  EXPECT_TRUE(slider->continuousTrigger.getValue()) << "released elsewhere";
  EXPECT_TRUE(heard.values.empty());
  EXPECT_EQ(slider->value.getValue(), 0);
  slider->toggleVisible = FALSE;
  EXPECT_EQ(shownChild(slider, "checkSwtch"), -1);
}

TEST_F(SliderSceneTest, theFieldsFromCodeShowInTheScene)
{
  SoDialogIntegerSlider* slider = openInteger("max 10 width 300");
  slider->value = 5;
  EXPECT_EQ(textOf(slider), "5");
  const QRectF bar = rectOf(slider, "frameSep");
  EXPECT_NEAR(rectOf(slider, "cursorSep").center().x(), bar.center().x(), 0.01);
  slider->continuousTrigger = TRUE;
  EXPECT_EQ(shownChild(slider, "checkSwtch"), 1);
  slider->format = "%d mm";
  EXPECT_EQ(textOf(slider), "5 mm");
  slider->format = "%d";
  slider->toggleVisible = FALSE;
  EXPECT_NEAR(rectOf(slider, "frameSep").width(), bar.width() + 18, 0.01);
  slider->valueVisible = FALSE;
  EXPECT_EQ(shownChild(slider, "edtSwtch"), SO_SWITCH_NONE);
  EXPECT_GT(rectOf(slider, "frameSep").width(), bar.width() + 30);
  EXPECT_TRUE(heard.values.empty());
}

TEST_F(SliderSceneTest, thePartsStandInTheirOrder)
{
  SoDialogIntegerSlider* slider = openInteger("");
  const auto isBefore = [slider](const char* parent, const char* one, const char* other) {
    const auto* group = static_cast<SoGroup*>(Plan::partOf(slider, parent));
    const int first = group->findChild(Plan::partOf(slider, one));
    return first >= 0 && first < group->findChild(Plan::partOf(slider, other));
  };
  EXPECT_TRUE(isBefore("geomSwitch", "labelSep", "checkSep"));
  EXPECT_TRUE(isBefore("geomSwitch", "checkSep", "sliderSep"));
  EXPECT_TRUE(isBefore("geomSwitch", "sliderSep", "edtSwtch"));
  EXPECT_TRUE(isBefore("checkSwtch", "checkStateOff", "checkStateOn"));
  EXPECT_TRUE(isBefore("sliderSep", "frameSep", "cursorSep"));
  EXPECT_TRUE(isBefore("edtSwtch", "edtFrmSep", "editTextSep"));
  EXPECT_TRUE(isBefore("edtFrmSwtch", "valueFrame", "editValueFrame"));
}

TEST_F(SliderSceneTest, bothFormsPutThePartsInTheSamePlaces)
{
  dialog =
    load("TopLevelDialog { DialogRealSlider { label \"Width:\" } DialogIntegerSlider { label \"Number of steps:\" "
         "max 1000 toggleVisible FALSE } }");
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  settle();
  scene.open(dialog);
  for (int i = 0; i < 2; i++) {
    auto* slider = static_cast<SoDialogSlider*>(dialog->getChild(i));
    const QRectF frame = rectOf(slider, "mainCptSeparator");
    const auto inWindow = [&frame](const QWidget* widget) {
      return QRectF(widget->geometry()).translated(frame.topLeft());
    };
    const QWidget* relay = slider->getWidget();
    const QRectF bar = inWindow(relay->findChild<SoQtBasicSlider*>());
    EXPECT_EQ(QRectF(rectOf(slider, "frameSep")).left(), bar.left());
    EXPECT_EQ(QRectF(rectOf(slider, "frameSep")).right(), bar.right());
    EXPECT_TRUE(Plan::agree(rectOf(slider, "edtFrmSep"), inWindow(relay->findChild<QLineEdit*>())));
  }
}

TEST_F(SliderSceneTest, theTwoFormsShowTheSame)
{
  dialog = load("TopLevelDialog { DialogIntegerSlider { max 10 } }");
  dialog->addAuditor(&heard);
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  scene.open(dialog);
  auto* slider = static_cast<SoDialogIntegerSlider*>(dialog->getChild(0));
  const QWidget* relay = slider->getWidget();
  auto* bar = relay->findChild<SoQtBasicSlider*>();
  drag(on(slider, "cursorSep"), onBar(slider, 0.6F));
  EXPECT_NEAR(bar->getValue(), slider->getSliderPosition(), 1.0e-6F);
  EXPECT_EQ(relay->findChild<QLineEdit*>()->text(), "6");
  bar->moveByUser(0.2F);
  EXPECT_EQ(textOf(slider), "2");
  scene.click(on(slider, "checkSep"));
  EXPECT_TRUE(relay->findChild<QCheckBox*>()->isChecked());
  EXPECT_EQ(heard.values, (std::vector<double>{6.0, 2.0}));
}

TEST_F(SliderSceneTest, aClickOnTheValueStartsTypingAndReturnCommits)
{
  SoDialogIntegerSlider* slider = openInteger("max 100 value 12");
  scene.click(on(slider, "edtFrmSep"));
  EXPECT_TRUE(slider->isEditing3D());
  EXPECT_EQ(shownChild(slider, "edtFrmSwtch"), 1);
  erase(1);
  type("5");
  EXPECT_EQ(slider->value.getValue(), 12);
  EXPECT_TRUE(heard.values.empty());
  key(SoKeyboardEvent::RETURN);
  EXPECT_EQ(slider->value.getValue(), 15);
  EXPECT_EQ(heard.values, std::vector<double>{15.0});
  EXPECT_FALSE(slider->isEditing3D());
  EXPECT_EQ(shownChild(slider, "edtFrmSwtch"), 0);
  EXPECT_EQ(textOf(slider), "15");
  EXPECT_NEAR(slider->getSliderPosition(), 0.15F, 1.0e-6F);
  type("9");
  EXPECT_EQ(textOf(slider), "15") << "nobody is typing any more";
}

TEST_F(SliderSceneTest, typingFollowsTheSameRulesAsInTheWindow)
{
  SoDialogIntegerSlider* slider = openInteger("max 10 fixedLimits TRUE");
  const auto typeOver = [&](const std::string& text) {
    scene.click(on(slider, "edtFrmSep"));
    erase(20);
    type(text);
    key(SoKeyboardEvent::RETURN);
  };
  typeOver("15");
  EXPECT_EQ(slider->value.getValue(), 10);
  EXPECT_EQ(textOf(slider), "10");
  typeOver("3.7");
  EXPECT_EQ(slider->value.getValue(), 3);
  EXPECT_EQ(textOf(slider), "3");
  typeOver("rubbish");
  EXPECT_EQ(slider->value.getValue(), 3);
  EXPECT_EQ(textOf(slider), "3");
  slider->fixedLimits = FALSE;
  typeOver("-20");
  EXPECT_EQ(slider->min.getValue(), -20);
  EXPECT_EQ(slider->getSliderPosition(), 0.0F);
  EXPECT_EQ(heard.values, (std::vector<double>{10.0, 3.0, -20.0}));
}

TEST_F(SliderSceneTest, aValueSetByCodeReplacesWhatIsBeingTyped)
{
  SoDialogIntegerSlider* slider = openInteger("min -2147483648 max 2147483647 value -2147483648");
  scene.click(on(slider, "edtFrmSep"));
  EXPECT_TRUE(slider->isEditing3D());
  EXPECT_EQ(textOf(slider), "-2147483648");
  slider->value = -44;
  EXPECT_EQ(textOf(slider), "-44");
  EXPECT_TRUE(slider->isEditing3D());
  type("5");
  EXPECT_EQ(textOf(slider), "-445");
  key(SoKeyboardEvent::RETURN);
  EXPECT_EQ(slider->value.getValue(), -445);
  EXPECT_EQ(textOf(slider), "-445");
  EXPECT_EQ(heard.values, std::vector<double>{-445.0});
}

TEST_F(SliderSceneTest, aBarThatIsHiddenWhileItIsHeldForgetsTheMotion)
{
  SoDialogIntegerSlider* slider = openInteger("max 10 value 2");
  scene.press(onBar(slider, 0.9F));
  EXPECT_EQ(textOf(slider), "9");
  dialog->show3D(0);
  scene.release(onBar(slider, 0.9F));
  dialog->show3D(1);
  EXPECT_EQ(slider->value.getValue(), 2);
  EXPECT_EQ(textOf(slider), "2");
  EXPECT_FLOAT_EQ(slider->getSliderPosition(), 0.2F);
  EXPECT_TRUE(heard.values.empty());
}

TEST_F(SliderSceneTest, typingBeginsWithTheNumberAlone)
{
  SoDialogIntegerSlider* slider = openInteger("max 100 value 7 format \"%d mm\"");
  scene.click(on(slider, "edtFrmSep"));
  type("5");
  key(SoKeyboardEvent::RETURN);
  EXPECT_EQ(slider->value.getValue(), 75);
  EXPECT_EQ(textOf(slider), "75 mm");
}

TEST_F(SliderSceneTest, theKeypadTypesAndOtherKeysDoNot)
{
  SoDialogRealSlider* slider = open<SoDialogRealSlider>("DialogRealSlider { max 1000 }");
  scene.click(on(slider, "edtFrmSep"));
  erase(20);
  key(SoKeyboardEvent::PAD_SUBTRACT);
  key(SoKeyboardEvent::PAD_4);
  for (const SoKeyboardEvent::Key other :
       {SoKeyboardEvent::LEFT_SHIFT, SoKeyboardEvent::F1, SoKeyboardEvent::HOME, SoKeyboardEvent::UP_ARROW}) {
    key(other);
  }
  key(SoKeyboardEvent::PAD_PERIOD);
  key(SoKeyboardEvent::PAD_7);
  key(SoKeyboardEvent::PAD_0);
  key(SoKeyboardEvent::PAD_ENTER);
  EXPECT_EQ(slider->value.getValue(), -4.70F);
}

TEST_F(SliderSceneTest, escapeAndAPressElsewhereDropWhatWasTyped)
{
  SoDialogIntegerSlider* slider = openInteger("max 100 value 7");
  scene.click(on(slider, "edtFrmSep"));
  type("5");
  key(SoKeyboardEvent::ESCAPE);
  EXPECT_FALSE(slider->isEditing3D());
  EXPECT_EQ(textOf(slider), "7");
  scene.click(on(slider, "edtFrmSep"));
  type("5");
  scene.click(on(slider, "cursorSep"));
  EXPECT_FALSE(slider->isEditing3D());
  EXPECT_EQ(textOf(slider), "7");
  EXPECT_EQ(slider->value.getValue(), 7);
  EXPECT_TRUE(heard.values.empty());
}

TEST_F(SliderSceneTest, onlyOneValueIsTypedAtATime)
{
  dialog = load("TopLevelDialog { DialogIntegerSlider { max 9 } DialogIntegerSlider { max 9 } }");
  dialog->addAuditor(&heard);
  scene.open(dialog);
  auto* first = static_cast<SoDialogIntegerSlider*>(dialog->getChild(0));
  auto* second = static_cast<SoDialogIntegerSlider*>(dialog->getChild(1));
  scene.click(on(first, "edtFrmSep"));
  scene.click(on(second, "edtFrmSep"));
  EXPECT_FALSE(first->isEditing3D());
  EXPECT_TRUE(second->isEditing3D());
  erase(1);
  type("4");
  key(SoKeyboardEvent::RETURN);
  EXPECT_EQ(first->value.getValue(), 0);
  EXPECT_EQ(second->value.getValue(), 4);
}

TEST_F(SliderSceneTest, typedTextHasALimitAndStaysInItsFrame)
{
  SoDialogIntegerSlider* slider = openInteger("max 100 value 7");
  scene.click(on(slider, "edtFrmSep"));
  type(std::string(500, '1'));
  EXPECT_LE(textOf(slider).size(), 60U);
  const QRectF frame = rectOf(slider, "edtFrmSep");
  const QRectF text = rectOf(slider, "editTextSep");
  EXPECT_GE(text.left(), frame.left());
  EXPECT_LE(text.right(), frame.right());
}

TEST_F(SliderSceneTest, aDisabledSliderDoesNotReact)
{
  SoDialogIntegerSlider* slider = openInteger("max 10 value 3 enable FALSE");
  const SbVec2s value = on(slider, "edtFrmSep");
  drag(on(slider, "cursorSep"), onBar(slider, 0.9F));
  scene.click(on(slider, "checkSep"));
  scene.click(value);
  EXPECT_FALSE(slider->isEditing3D());
  EXPECT_FALSE(slider->continuousTrigger.getValue());
  EXPECT_EQ(slider->value.getValue(), 3);
  slider->enable = TRUE;
  scene.click(value);
  EXPECT_TRUE(slider->isEditing3D());
  slider->enable = FALSE;
  EXPECT_FALSE(slider->isEditing3D());
  EXPECT_TRUE(heard.values.empty());
}

TEST_F(SliderSceneTest, disablingInTheMiddleOfADragBringsTheValueBack)
{
  SoDialogIntegerSlider* slider = openInteger("max 10 value 3");
  scene.press(on(slider, "cursorSep"));
  scene.move(onBar(slider, 0.9F));
  slider->enable = FALSE;
  EXPECT_EQ(textOf(slider), "3");
  scene.move(onBar(slider, 0.6F));
  scene.release(onBar(slider, 0.6F));
  EXPECT_EQ(slider->value.getValue(), 3);
  EXPECT_NEAR(slider->getSliderPosition(), 0.3F, 1.0e-6F);
  EXPECT_TRUE(heard.values.empty());
}

TEST_F(SliderSceneTest, anAuditorThatChangesTheValueHasTheLastWord)
{
  SoDialogIntegerSlider* slider = openInteger("max 10");
  heard.action = [slider] {
    slider->value = 2;
  };
  drag(on(slider, "cursorSep"), onBar(slider, 0.9F));
  EXPECT_EQ(slider->value.getValue(), 2);
  EXPECT_EQ(textOf(slider), "2");
  EXPECT_NEAR(slider->getSliderPosition(), 0.2F, 1.0e-6F);
  EXPECT_EQ(heard.values, std::vector<double>{9.0});
}

TEST_F(SliderSceneTest, anAuditorMayRemoveTheSlider)
{
  const std::function<void(SoDialogIntegerSlider*)> actions[] = {
    [this](SoDialogIntegerSlider* slider) { drag(on(slider, "cursorSep"), onBar(slider, 0.9F)); },
    [this](SoDialogIntegerSlider* slider) {
      const SbVec2s place = onBar(slider, 0.9F);
      scene.press(place);
      scene.move(SbVec2s(static_cast<short>(place[0] - 20), place[1]));
      scene.release(place);
    },
    [this](SoDialogIntegerSlider* slider) {
      scene.click(on(slider, "edtFrmSep"));
      type("5");
      key(SoKeyboardEvent::RETURN);
    },
  };
  for (const char* fields : {"max 10", "max 10 continuousTrigger TRUE"}) {
    for (const auto& act : actions) {
      heard.values.clear();
      SoDialogIntegerSlider* slider = openInteger(fields);
      SoTopLevelDialog* opened = dialog;
      heard.action = [opened] {
        opened->removeAllChildren();
      };
      act(slider);
      EXPECT_EQ(heard.values.size(), 1U) << fields;
      EXPECT_EQ(opened->getNumChildren(), 0);
      scene.root()->removeChild(opened);
    }
  }
}

TEST_F(SliderSceneTest, colorsOfTheAuthorShowOnTheBarAndTheSkinsOtherwise)
{
  SoDialogIntegerSlider* slider = openInteger("max 10");
  const auto strips = [slider] {
    auto* bar = static_cast<SoSeparator*>(Plan::partOf(slider, "frameSep"));
    int count = 0;
    for (int i = 0; i < bar->getNumChildren(); i++) {
      auto* group = dynamic_cast<SoSeparator*>(bar->getChild(i));
      count += group ? group->getNumChildren() : 0;
    }
    return count;
  };
  EXPECT_EQ(strips(), 0);
  const SbColor ramp[] = {SbColor(1.0F, 0.0F, 0.0F), SbColor(0.0F, 0.0F, 1.0F), SbColor(0.0F, 1.0F, 0.0F)};
  slider->colors.setValues(0, 3, ramp);
  EXPECT_EQ(strips(), 1);
  slider->shadedColors = FALSE;
  EXPECT_EQ(strips(), 1);
  slider->colors.setNum(0);
  EXPECT_EQ(strips(), 0);
}

TEST_F(SliderSceneTest, aSceneThatWasBuiltWritesWhatTheAuthorWrote)
{
  SoDialogIntegerSlider* slider = openInteger("label \"Steps:\" max 10 value 3");
  scene.click(on(slider, "edtFrmSep"));
  key(SoKeyboardEvent::ESCAPE);
  const std::string written = toText(slider);
  for (const char* part : {"frame", "Sep", "width", "Switch", "Cube"}) {
    EXPECT_EQ(written.find(part), std::string::npos) << written;
  }
  SoNode* again = readText(written);
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(toText(again), written);
  again->unref();
}
