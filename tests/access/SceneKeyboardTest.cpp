#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/events/SoKeyboardEvent.h>
#include <Inventor/nodes/SoEventCallback.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Quillform/Quillform.h>
#include <Quillform/core/So3DKeyboard.h>
#include <forms/Plan.h>
#include <functional>
#include <support/Choices.h>
#include <support/HeardElements.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

typedef std::vector<std::string> Names;

std::string button(const std::string& id)
{
  return "DialogPushButton { auditorID \"" + id + "\" buttonLabel \"" + id + "\" } ";
}

} // namespace

class SceneKeyboardTest : public QuillformTest {
protected:
  ~SceneKeyboardTest() override
  {
    if (dialog) {
      dialog->removeAuditor(&heard);
    }
  }

  void open(const std::string& children)
  {
    dialog = load("TopLevelDialog { width 300 " + children + " }");
    dialog->addAuditor(&heard);
    scene.open(dialog);
    auto* application = new SoEventCallback;
    application->addEventCallback(SoKeyboardEvent::getClassTypeId(), passedOnCB, this);
    scene.add(application);
  }

  template <class Element>
  Element* get(const char* id)
  {
    return static_cast<Element*>(dialog->searchForAuditorId(id));
  }

  void send(SoKeyboardEvent::Key key, SoButtonEvent::State state, bool shift = false, bool ctrl = false,
            char character = '\0')
  {
    scene.sendKey(key, state, character, shift, ctrl);
  }
  /// Down and up; the number of events that went on to the application.
  int key(SoKeyboardEvent::Key key, bool shift = false, bool ctrl = false, char character = '\0')
  {
    const int before = passedOn;
    send(key, SoButtonEvent::DOWN, shift, ctrl, character);
    send(key, SoButtonEvent::UP, shift, ctrl, character);
    return passedOn - before;
  }
  void type(char character)
  {
    key(static_cast<SoKeyboardEvent::Key>(character), false, false, character);
  }
  int tab(bool back = false)
  {
    return key(SoKeyboardEvent::TAB, back);
  }

  std::string current() const
  {
    const SoQuillform* element = So3DKeyboard::getElement();
    return element ? element->auditorID.getValue().getString() : "";
  }

  /// The box of the outline, in the coordinates of the element that has it; empty when there is none.
  SbBox3f outline()
  {
    const SoQuillform* element = So3DKeyboard::getElement();
    const SbBool wasSearching = SoBaseKit::isSearchingChildren();
    SoBaseKit::setSearchingChildren(TRUE);
    SoSearchAction search;
    search.setName("KeyboardOutline");
    search.apply(scene.root());
    SoBaseKit::setSearchingChildren(wasSearching);
    if (!search.getPath()) {
      return SbBox3f();
    }
    SoNode* tail = nullptr; // hidden inside the element, where paths do not show it
    SoGroup* geometry = element ? element->getGeometrySwitch() : nullptr;
    for (int i = 0; geometry && i < geometry->getNumChildren(); i++) {
      if (geometry->getChild(i)->getName() == "KeyboardOutline") {
        tail = geometry->getChild(i);
      }
    }
    if (!tail) {
      ADD_FAILURE() << "the outline belongs to another element";
      return SbBox3f();
    }
    SoGetBoundingBoxAction measure(SbViewportRegion(800, 600));
    measure.apply(tail);
    return measure.getBoundingBox();
  }

  static void passedOnCB(void* data, SoEventCallback* /*node*/)
  {
    ++static_cast<SceneKeyboardTest*>(data)->passedOn;
  }

  SoTopLevelDialog* dialog = nullptr;
  Scene scene;
  HeardElements heard;
  int passedOn = 0; // key events that the application got
};

// Who has the keyboard

TEST_F(SceneKeyboardTest, keysGoToTheApplicationWhileNoElementHasTheKeyboard)
{
  open(button("a"));
  EXPECT_EQ(tab(), 2);
  EXPECT_EQ(key(SoKeyboardEvent::SPACE), 2);
  EXPECT_EQ(heard.ids, Names{});
  EXPECT_TRUE(outline().isEmpty());
}

TEST_F(SceneKeyboardTest, tabGoesThroughTheElementsInReadingOrderAndAround)
{
  open(button("a") + "DialogLabel { label \"text\" } RowDialog { " + button("b") +
       "DialogCheckBox { auditorID \"c\" } } " + "DialogSeparator { } TabDialog { auditorID \"tabs\" ColumnDialog { " +
       button("d") + "} ColumnDialog { " + button("hidden") + "} } " +
       "DialogPushButton { auditorID \"off\" enable FALSE } " +
       "DialogEditText { auditorID \"fixed\" editable FALSE } " + button("e"));
  scene.click(get<SoDialogPushButton>("a"));
  EXPECT_EQ(current(), "a");
  for (const char* expected : {"b", "c", "tabs", "d", "e", "a"}) {
    EXPECT_EQ(tab(), 0);
    EXPECT_EQ(current(), expected);
  }
  for (const char* expected : {"e", "d", "tabs"}) {
    EXPECT_EQ(tab(true), 0);
    EXPECT_EQ(current(), expected);
  }
  EXPECT_EQ(heard.ids, Names{"a"}); // of the click
}

TEST_F(SceneKeyboardTest, fromTheDialogItselfTabGoesToTheFirstElement)
{
  open(button("a") + button("b"));
  const SbVec3f corner = dialog->get3DParentTranslation();
  scene.click(scene.pixel(corner[0] + 30.0F, corner[1] - 10.0F)); // the title bar
  EXPECT_EQ(current(), "");
  EXPECT_EQ(key(SoKeyboardEvent::SPACE), 2);
  EXPECT_EQ(tab(), 0);
  EXPECT_EQ(current(), "a");
  scene.click(scene.pixel(corner[0] + 30.0F, corner[1] - 10.0F));
  EXPECT_EQ(tab(true), 0);
  EXPECT_EQ(current(), "b");
}

TEST_F(SceneKeyboardTest, aClickElsewhereAndEscapeTakeTheKeyboardAway)
{
  open(button("a") + button("b"));
  scene.click(get<SoDialogPushButton>("a"));
  tab();
  ASSERT_EQ(current(), "b");
  scene.click(scene.pixel(600.0F, -400.0F)); // beside the dialog
  EXPECT_EQ(current(), "");
  EXPECT_TRUE(outline().isEmpty());
  EXPECT_EQ(tab(), 2);

  scene.click(get<SoDialogPushButton>("a"));
  EXPECT_EQ(key(SoKeyboardEvent::ESCAPE), 2); // nothing shows that the element has the keyboard
  tab();
  EXPECT_EQ(key(SoKeyboardEvent::ESCAPE), 0);
  EXPECT_EQ(current(), "");
  EXPECT_EQ(key(SoKeyboardEvent::ESCAPE), 2);
}

TEST_F(SceneKeyboardTest, theOutlineStandsAroundTheElementFromTheFirstKeyOn)
{
  open(button("a") + button("b"));
  auto* b = get<SoDialogPushButton>("b");
  scene.click(get<SoDialogPushButton>("a"));
  EXPECT_TRUE(outline().isEmpty());
  tab();
  const SbBox3f box = outline();
  ASSERT_FALSE(box.isEmpty());
  EXPECT_NEAR(box.getCenter()[0], 0.0F, 1.0F);
  EXPECT_NEAR(box.getCenter()[1], 0.0F, 1.0F);
  EXPECT_NEAR(box.getMax()[0] - box.getMin()[0], static_cast<float>(b->get3DSize()[0]), 4.0F);
  EXPECT_NEAR(box.getMax()[1] - box.getMin()[1], static_cast<float>(b->get3DSize()[1]), 4.0F);
  // It is not written and cannot be pressed.
  EXPECT_EQ(toText(dialog).find("KeyboardOutline"), std::string::npos);
  heard.ids.clear();
  scene.click(b);
  EXPECT_EQ(heard.ids, Names{"b"});
}

TEST_F(SceneKeyboardTest, whatCannotBeOperatedLosesTheKeyboard)
{
  open(button("a") + button("b") + button("c"));
  scene.click(get<SoDialogPushButton>("a"));
  tab();
  get<SoDialogPushButton>("b")->enable = FALSE;
  EXPECT_EQ(current(), "");
  EXPECT_TRUE(outline().isEmpty());
  tab();
  tab();
  EXPECT_EQ(current(), "c");
  dialog->removeChild(get<SoDialogPushButton>("c"));
  EXPECT_EQ(current(), "");
  tab();
  EXPECT_EQ(current(), "a");
  dialog->minimized = TRUE;
  EXPECT_EQ(current(), "");
  EXPECT_EQ(tab(), 2);
}

TEST_F(SceneKeyboardTest, keysWithControlGoToTheApplication)
{
  open(button("a"));
  scene.click(get<SoDialogPushButton>("a"));
  EXPECT_EQ(key(SoKeyboardEvent::SPACE, false, true), 2);
  EXPECT_EQ(key(SoKeyboardEvent::TAB, false, true), 2);
  EXPECT_EQ(key(SoKeyboardEvent::A), 2); // a button has no use for letters
  EXPECT_EQ(heard.ids, Names{"a"});
}

// What keys do

TEST_F(SceneKeyboardTest, spaceAndReturnPressAButtonOnceEach)
{
  open(button("a"));
  scene.click(get<SoDialogPushButton>("a"));
  EXPECT_EQ(key(SoKeyboardEvent::SPACE), 0);
  EXPECT_EQ(key(SoKeyboardEvent::RETURN), 0);
  EXPECT_EQ(heard.ids, (Names{"a", "a", "a"}));
  for (int i = 0; i < 3; i++) {
    send(SoKeyboardEvent::SPACE, SoButtonEvent::DOWN); // held down
  }
  EXPECT_EQ(heard.ids.size(), 4U);
  EXPECT_EQ(Choices::shownChild(get<SoDialogPushButton>("a"), "frameSwitch"), 0);
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
}

TEST_F(SceneKeyboardTest, spaceTogglesACheckBox)
{
  open("DialogCheckBox { auditorID \"box\" }" + button("a"));
  auto* box = get<SoDialogCheckBox>("box");
  scene.click(get<SoDialogPushButton>("a"));
  heard.ids.clear();
  tab(true);
  key(SoKeyboardEvent::SPACE);
  EXPECT_TRUE(box->state.getValue());
  EXPECT_EQ(Choices::shownChild(box, "stateSwitch"), 1);
  key(SoKeyboardEvent::RETURN);
  EXPECT_FALSE(box->state.getValue());
  EXPECT_EQ(heard.ids, (Names{"box", "box"}));
}

TEST_F(SceneKeyboardTest, arrowsChooseAmongRadioButtons)
{
  open(button("a") + "DialogRadioButtons { auditorID \"radio\" items [ \"x\", \"y\", \"z\" ] }");
  auto* radio = get<SoDialogRadioButtons>("radio");
  scene.click(get<SoDialogPushButton>("a"));
  heard.ids.clear();
  tab();
  key(SoKeyboardEvent::UP_ARROW); // the first one stays
  EXPECT_EQ(heard.ids, Names{});
  key(SoKeyboardEvent::DOWN_ARROW);
  EXPECT_EQ(radio->selectedItem.getValue(), 1);
  key(SoKeyboardEvent::END);
  EXPECT_EQ(radio->selectedItem.getValue(), 2);
  EXPECT_EQ(key(SoKeyboardEvent::RIGHT_ARROW), 0);
  key(SoKeyboardEvent::HOME);
  EXPECT_EQ(radio->selectedItem.getValue(), 0);
  EXPECT_EQ(heard.ids, (Names{"radio", "radio", "radio"}));
}

TEST_F(SceneKeyboardTest, arrowsChooseInAComboBoxAndInItsList)
{
  open(button("a") + "DialogComboBox { auditorID \"combo\" items [ " + Choices::manyItems(30) + " ] }");
  auto* combo = get<SoDialogComboBox>("combo");
  scene.click(get<SoDialogPushButton>("a"));
  heard.ids.clear();
  tab();
  key(SoKeyboardEvent::DOWN_ARROW);
  EXPECT_EQ(combo->selectedItem.getValue(), 1);
  key(SoKeyboardEvent::PAGE_DOWN);
  EXPECT_EQ(combo->selectedItem.getValue(), 11);
  EXPECT_EQ(heard.ids, (Names{"combo", "combo"}));

  key(SoKeyboardEvent::SPACE); // opens the list
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), combo);
  EXPECT_EQ(Choices::shownChild(combo, "itemsSwitch"), SO_SWITCH_ALL);
  key(SoKeyboardEvent::END);
  EXPECT_EQ(combo->selectedItem.getValue(), 11);
  const auto texts = Choices::textsIn(Plan::partOf(combo, "itemsSwitch"));
  EXPECT_NE(std::find(texts.begin(), texts.end(), "e29"), texts.end()); // in sight
  key(SoKeyboardEvent::RETURN);
  EXPECT_EQ(combo->selectedItem.getValue(), 29);
  EXPECT_EQ(Choices::shownChild(combo, "itemsSwitch"), SO_SWITCH_NONE);
  EXPECT_EQ(heard.ids.size(), 3U);

  key(SoKeyboardEvent::SPACE);
  key(SoKeyboardEvent::UP_ARROW);
  EXPECT_EQ(key(SoKeyboardEvent::ESCAPE), 0);
  EXPECT_EQ(combo->selectedItem.getValue(), 29);
  EXPECT_EQ(Choices::shownChild(combo, "itemsSwitch"), SO_SWITCH_NONE);
  EXPECT_EQ(current(), "combo");
  EXPECT_EQ(heard.ids.size(), 3U);
}

TEST_F(SceneKeyboardTest, keysMoveASlider)
{
  open(button("a") + "DialogRealSlider { auditorID \"s\" max 100 value 50 }");
  auto* slider = get<SoDialogRealSlider>("s");
  scene.click(get<SoDialogPushButton>("a"));
  heard.ids.clear();
  tab();
  const std::pair<SoKeyboardEvent::Key, float> keys[] = {
    {SoKeyboardEvent::RIGHT_ARROW, 51.0F}, {SoKeyboardEvent::UP_ARROW, 52.0F}, {SoKeyboardEvent::LEFT_ARROW, 51.0F},
    {SoKeyboardEvent::DOWN_ARROW, 50.0F},  {SoKeyboardEvent::PAGE_UP, 60.0F},  {SoKeyboardEvent::PAGE_DOWN, 50.0F},
    {SoKeyboardEvent::END, 100.0F},        {SoKeyboardEvent::HOME, 0.0F}};
  for (const auto& [pressed, value] : keys) {
    EXPECT_EQ(key(pressed), 0);
    EXPECT_NEAR(slider->value.getValue(), value, 1e-3);
  }
  EXPECT_EQ(heard.ids.size(), 8U);
  key(SoKeyboardEvent::LEFT_ARROW); // at the end already
  EXPECT_EQ(heard.ids.size(), 8U);
  key(SoKeyboardEvent::SPACE);
  EXPECT_TRUE(slider->continuousTrigger.getValue());
  key(SoKeyboardEvent::RIGHT_ARROW);
  EXPECT_EQ(heard.ids.size(), 9U);
}

TEST_F(SceneKeyboardTest, returnOnASliderStartsTypingItsValue)
{
  open(button("a") + "DialogRealSlider { auditorID \"s\" max 100 value 5 format \"%.0f\" }" + button("b"));
  auto* slider = get<SoDialogRealSlider>("s");
  scene.click(get<SoDialogPushButton>("a"));
  heard.ids.clear();
  tab();
  key(SoKeyboardEvent::RETURN);
  EXPECT_TRUE(slider->isEditing3D());
  type('7');
  key(SoKeyboardEvent::RETURN);
  EXPECT_EQ(slider->value.getValue(), 57.0F);
  EXPECT_EQ(heard.ids, Names{"s"});
  key(SoKeyboardEvent::RETURN);
  type('9');
  tab(); // not confirmed
  EXPECT_EQ(current(), "b");
  EXPECT_FALSE(slider->isEditing3D());
  EXPECT_EQ(slider->value.getValue(), 57.0F);
}

TEST_F(SceneKeyboardTest, theFirstLetterStartsEditingAText)
{
  open(button("a") + "DialogEditText { auditorID \"text\" editText \"x\" } " + button("b"));
  auto* edit = get<SoDialogEditText>("text");
  scene.click(get<SoDialogPushButton>("a"));
  heard.ids.clear();
  tab();
  EXPECT_FALSE(edit->isEditing3D());
  tab();
  EXPECT_EQ(heard.ids, Names{}); // who only passes by edits nothing
  tab(true);
  type('y');
  EXPECT_TRUE(edit->isEditing3D());
  type(' ');
  type('z');
  EXPECT_STREQ(edit->editText.getValue().getString(), "xy z");
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), edit);
  tab();
  EXPECT_EQ(current(), "b");
  EXPECT_FALSE(edit->isEditing3D());
  EXPECT_EQ(heard.ids, Names{"text"});
  tab(true);
  key(SoKeyboardEvent::RETURN);
  EXPECT_TRUE(edit->isEditing3D());
  key(SoKeyboardEvent::BACKSPACE);
  EXPECT_STREQ(edit->editText.getValue().getString(), "xy ");
}

TEST_F(SceneKeyboardTest, arrowsSelectPages)
{
  open(button("a") + "TabDialog { auditorID \"tabs\" ColumnDialog { label \"A\" } ColumnDialog { label \"B\" " +
       button("onB") + "} }");
  auto* tabs = get<SoTabDialog>("tabs");
  scene.click(get<SoDialogPushButton>("a"));
  tab();
  EXPECT_FALSE(outline().isEmpty());
  key(SoKeyboardEvent::RIGHT_ARROW);
  EXPECT_EQ(tabs->selectedPage.getValue(), 1);
  tab();
  EXPECT_EQ(current(), "onB");
  tab(true);
  key(SoKeyboardEvent::LEFT_ARROW);
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
}

// What auditors may do meanwhile

TEST_F(SceneKeyboardTest, anAuditorMayRemoveTheElementThatHasTheKeyboard)
{
  open(button("a") + button("b"));
  scene.click(get<SoDialogPushButton>("b"));
  heard.action = [this] {
    if (SoQuillform* b = dialog->searchForAuditorId("b")) {
      dialog->removeChild(b);
    }
  };
  key(SoKeyboardEvent::SPACE);
  EXPECT_EQ(dialog->getNumChildren(), 1);
  EXPECT_EQ(current(), "");
  EXPECT_TRUE(outline().isEmpty());
}

TEST_F(SceneKeyboardTest, aKeyThatHasTakenItsDialogOutOfTheSceneWorksInTheNextOne)
{
  open(button("a"));
  scene.click(get<SoDialogPushButton>("a"));
  heard.ids.clear();
  heard.action = [this] {
    scene.root()->removeChild(dialog);
  };
  key(SoKeyboardEvent::SPACE); // goes up where no dialog is
  EXPECT_EQ(heard.ids, Names{"a"});
  heard.action = nullptr;
  open(button("b"));
  scene.click(get<SoDialogPushButton>("b"));
  key(SoKeyboardEvent::SPACE);
  EXPECT_EQ(heard.ids, (Names{"a", "b", "b"}));
}

TEST_F(SceneKeyboardTest, anAuditorMayRemoveEverythingWhenAnEditEnds)
{
  open("DialogEditText { auditorID \"text\" } " + button("a"));
  scene.click(get<SoDialogPushButton>("a"));
  tab();
  type('x');
  heard.action = [this] {
    dialog->removeAllChildren();
  };
  tab();
  EXPECT_EQ(current(), "");
  EXPECT_EQ(dialog->getNumChildren(), 0);
  EXPECT_EQ(tab(), 2);
}

TEST_F(SceneKeyboardTest, oneElementOfAllDialogsHasTheKeyboard)
{
  open(button("a") + button("b"));
  SoTopLevelDialog* other = load("TopLevelDialog { position3D 350 0 0 width 200 " + button("x") + button("y") + " }");
  scene.open(other);
  scene.click(get<SoDialogPushButton>("a"));
  tab();
  scene.click(static_cast<SoDialogPushButton*>(other->searchForAuditorId("x")));
  EXPECT_EQ(current(), "x");
  tab();
  EXPECT_EQ(current(), "y");
  scene.click(get<SoDialogPushButton>("b"));
  EXPECT_EQ(current(), "b");
}

// Mnemonic letters

TEST_F(SceneKeyboardTest, textsAreShownWithoutMnemonicMarks)
{
  open("DialogCheckBox { auditorID \"box\" label \"&Lights && more\" } "
       "DialogRadioButtons { auditorID \"radio\" label \"&Size\" items [ \"a & b\" ] }");
  EXPECT_EQ(Choices::textsIn(Plan::partOf(get<SoDialogCheckBox>("box"), "labelSep"))[0], "Lights & more");
  EXPECT_EQ(Choices::textsIn(Plan::partOf(get<SoDialogRadioButtons>("radio"), "labelSep"))[0], "Size");
  EXPECT_EQ(Choices::textsIn(Plan::partOf(get<SoDialogRadioButtons>("radio"), "itemsSep"))[0], "a & b");
}
