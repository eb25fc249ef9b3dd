#include <Inventor/events/SoMouseButtonEvent.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QAbstractItemView>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QListView>
#include <QTest>
#include <Quillform/Quillform.h>
#include <support/Choices.h>
#include <support/Messages.h>
#include <support/Operate.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

using Choices::Heard;

namespace {

QComboBox* boxOf(SoDialogComponent* component)
{
  return component->getWidget()->findChild<QComboBox*>("ZEPSoDialogQComboBoxComboBoxWidget");
}

SbVec2i32 pixelSize(const char* text, SoQuillform* element)
{
  return SoQuillform::getLabelPixelSize(text, element);
}

} // namespace

class ComboBoxTest : public Choices::Test<SoDialogComboBox> {
protected:
  bool isListOpen() const
  {
    return Choices::shownChild(m_choice, "itemsSwitch") == SO_SWITCH_ALL;
  }

  void pressBox()
  {
    m_scene.click(Choices::middleOf(m_scene, m_dialog, m_choice, "frameSep"));
  }

  /// The middle of an entry of the open list, \a row of \a rows in sight.
  SbVec2s entry(int row, int rows)
  {
    return Operate::entryOf(m_scene, m_choice, row, rows);
  }
};

// The window

TEST_F(ComboBoxTest, theWindowShowsTheEntriesAndTheChosenOne)
{
  QComboBox* box = boxOf(open("label \"Unit\" selectedItem 1"));
  ASSERT_NE(box, nullptr);
  EXPECT_FALSE(box->isEditable());
  ASSERT_EQ(box->count(), 3);
  EXPECT_EQ(box->itemText(2), "c");
  EXPECT_EQ(box->currentText(), "b");
  EXPECT_EQ(m_choice->getWidget()->objectName(), "ZEPSoDialogQComboBoxFrame");
  auto* label = m_choice->getWidget()->findChild<QLabel*>("ZEPSoDialogQComboBoxLabelWidget");
  ASSERT_NE(label, nullptr);
  EXPECT_EQ(label->text(), "Unit");
  EXPECT_TRUE(Choices::hasDialogFont(box));
  EXPECT_TRUE(Choices::hasDialogFont(label));
}

TEST_F(ComboBoxTest, entriesAreShownAsTheyAreWritten)
{
  SoDialogComboBox* combo = open();
  combo->items.set1Value(0, "C:\\new & <b>old</b>");
  EXPECT_EQ(boxOf(combo)->itemText(0), "C:\\new & <b>old</b>");
}

TEST_F(ComboBoxTest, choosingCallsTheAuditorsOnceAlsoForTheSameEntryTwice)
{
  SoDialogComboBox* combo = open();
  Heard heard;
  combo->addAuditor(&heard);
  Operate::choose(boxOf(combo), 2);
  EXPECT_EQ(heard.chosen, std::vector<int>{2});
  EXPECT_EQ(combo->selectedItem.getValue(), 2);
  Operate::choose(boxOf(combo), 2);
  EXPECT_EQ(heard.chosen, (std::vector<int>{2, 2}));
}

TEST_F(ComboBoxTest, anAuditorThatTakesTheChoiceBackIsObeyed)
{
  SoDialogComboBox* combo = open();
  Heard heard([](SoDialogChoice* choice) { choice->selectedItem = 0; });
  combo->addAuditor(&heard);
  Operate::choose(boxOf(combo), 2);
  EXPECT_EQ(heard.chosen, std::vector<int>{2});
  EXPECT_EQ(combo->selectedItem.getValue(), 0);
  EXPECT_EQ(boxOf(combo)->currentIndex(), 0);
}

TEST_F(ComboBoxTest, aChangeFromCodeShowsAndCallsNobody)
{
  SoDialogComboBox* combo = open();
  Heard heard;
  combo->addAuditor(&heard);
  combo->selectedItem = 2;
  EXPECT_EQ(boxOf(combo)->currentText(), "c");
  combo->items.set1Value(2, "z");
  EXPECT_EQ(boxOf(combo)->currentText(), "z");
  combo->insertItem(0, "first");
  EXPECT_EQ(boxOf(combo)->itemText(0), "first");
  EXPECT_EQ(boxOf(combo)->count(), 4);
  combo->removeItem(1);
  EXPECT_EQ(boxOf(combo)->itemText(1), "b");
  EXPECT_TRUE(heard.chosen.empty());
}

TEST_F(ComboBoxTest, aSelectionBehindTheLastEntryBecomesTheLast)
{
  SoDialogComboBox* combo = open("selectedItem 7");
  EXPECT_EQ(combo->selectedItem.getValue(), 2);
  EXPECT_EQ(boxOf(combo)->currentIndex(), 2);
  combo->removeItem(0);
  EXPECT_EQ(combo->selectedItem.getValue(), 1);
  EXPECT_EQ(boxOf(combo)->currentText(), "c");
}

TEST_F(ComboBoxTest, aNegativeSelectionShowsNoEntry)
{
  SoDialogComboBox* combo = open("selectedItem -1");
  EXPECT_EQ(combo->selectedItem.getValue(), -1);
  EXPECT_EQ(boxOf(combo)->currentIndex(), -1);
}

TEST_F(ComboBoxTest, noItemsShowOneEmptyEntryThatTheNextOneReplaces)
{
  SoDialogComboBox* combo = open();
  combo->items.setNum(0);
  EXPECT_EQ(combo->items.getNum(), 1);
  ASSERT_EQ(boxOf(combo)->count(), 1);
  EXPECT_EQ(boxOf(combo)->itemText(0), "");
  EXPECT_EQ(combo->selectedItem.getValue(), 0);
  combo->addItem("x");
  ASSERT_EQ(boxOf(combo)->count(), 1);
  EXPECT_EQ(boxOf(combo)->itemText(0), "x");
}

TEST_F(ComboBoxTest, theNaturalSizeFollowsFromTheEntries)
{
  SoDialogComboBox* combo = open("label \"Unit\"");
  combo->resetSize();
  SbVec2i32 labelSize(50, 16);
  combo->setLabelSize(labelSize);
  SbVec2i32 widest(0, 0);
  for (const char* item : {"a", "b", "c"}) {
    widest[0] = std::max(widest[0], pixelSize(item, combo)[0]);
  }
  EXPECT_EQ(combo->getComponentInitSize(), SbVec2i32(widest[0] + 30, pixelSize("a", combo)[1]));
  combo->resetSize();
  combo->setLabelSize(labelSize);
  combo->labelVisibility = FALSE;
  EXPECT_EQ(combo->getComponentInitSize(), SbVec2i32(widest[0] + 30 - 50, pixelSize("a", combo)[1]));
}

TEST_F(ComboBoxTest, theDefaultSizeAddsTheLabelToTheComponentSize)
{
  SoDialogComboBox* combo = open();
  SbVec2i32 labelSize(50, 16);
  SbVec2i32 componentSize(120, 40);
  combo->setLabelSize(labelSize);
  combo->setComponentSize(componentSize);
  SbVec2i32 size(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  combo->getDefaultSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(172, 40));
  EXPECT_EQ(min, SbVec2i32(25, 25));
  EXPECT_EQ(max, SbVec2i32(32767, 32767));
  combo->labelVisibility = FALSE;
  combo->getDefaultSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(120, 40));
}

TEST_F(ComboBoxTest, boxAndLabelStandWhereTheFormulasSay)
{
  SoDialogComboBox* combo = open("label \"Unit\" width 200 height 41");
  const int w = combo->width.getValue();
  const int h = combo->height.getValue();
  const int column = combo->getLabelSize()[0];
  const int ih = pixelSize("a", combo)[1];
  const int th = pixelSize("Unit", combo)[1];
  ASSERT_GT(column, 0);
  EXPECT_EQ(boxOf(combo)->geometry(), QRect(column + 5, (h - 10 - ih) / 2 + 3, w - 6 - column - 2, ih + 4));
  EXPECT_EQ(combo->getLabelWidget()->geometry(), QRect(3, (h - 6 - th) / 2 + 3, column, th));
  combo->labelVisibility = FALSE;
  EXPECT_EQ(boxOf(combo)->geometry(), QRect(3, (h - 10 - ih) / 2 + 3, w - 6, ih + 4));
  EXPECT_FALSE(combo->getLabelWidget()->isVisible());
}

TEST_F(ComboBoxTest, aDisabledOneCannotBeOperated)
{
  SoDialogComboBox* combo = open("enable FALSE");
  EXPECT_FALSE(boxOf(combo)->isEnabled());
  combo->enable = TRUE;
  EXPECT_TRUE(boxOf(combo)->isEnabled());
}

TEST_F(ComboBoxTest, tenThousandEntriesAreNotMeasuredOneByOneWhenTheListOpens)
{
  SoDialogComboBox* combo = open("items [ " + Choices::manyItems(10000) + " ]");
  QComboBox* box = boxOf(combo);
  ASSERT_EQ(box->count(), 10000);
  QElapsedTimer timer;
  timer.start();
  box->showPopup();
  EXPECT_TRUE(qobject_cast<QListView*>(box->view())->uniformItemSizes());
  EXPECT_EQ(box->sizeAdjustPolicy(), QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->hidePopup();
  EXPECT_LT(timer.elapsed(), 5000); // a hundredth of that on an idle machine
}

TEST_F(ComboBoxTest, appendingLeavesTheOtherEntriesAlone)
{
  SoDialogComboBox* combo = open();
  int removals = 0;
  QObject::connect(boxOf(combo)->model(), &QAbstractItemModel::rowsRemoved, [&removals] { removals++; });
  QObject::connect(boxOf(combo)->model(), &QAbstractItemModel::modelReset, [&removals] { removals++; });
  combo->addItem("d");
  EXPECT_EQ(boxOf(combo)->count(), 4);
  EXPECT_EQ(boxOf(combo)->currentText(), "b");
  EXPECT_EQ(removals, 0);
}

TEST_F(ComboBoxTest, anAuditorMayRemoveTheBoxThatCallsIt)
{
  SoDialogComboBox* combo = open();
  Heard heard([this](SoDialogChoice* /*choice*/) { m_dialog->removeAllChildren(); });
  combo->addAuditor(&heard);
  Operate::choose(boxOf(combo), 2);
  EXPECT_EQ(heard.chosen, std::vector<int>{2});
  EXPECT_EQ(m_dialog->getNumChildren(), 0);
  settle();
}

TEST_F(ComboBoxTest, anAuditorMayReplaceTheEntries)
{
  SoDialogComboBox* combo = open();
  Heard heard([](SoDialogChoice* choice) { choice->items.setNum(1); });
  combo->addAuditor(&heard);
  Operate::choose(boxOf(combo), 2);
  EXPECT_EQ(combo->selectedItem.getValue(), 0);
  EXPECT_EQ(boxOf(combo)->count(), 1);
  EXPECT_EQ(boxOf(combo)->currentIndex(), 0);
}

TEST_F(ComboBoxTest, aWindowThatQtDestroyedIsNotTouchedAgain)
{
  SoDialogComboBox* combo = open();
  delete m_dialog->getWidget();
  combo->addItem("d");
  combo->selectedItem = 3;
  EXPECT_EQ(combo->items.getNum(), 4);
  m_dialog->buildDialog(nullptr, FALSE);
  EXPECT_EQ(boxOf(combo)->currentText(), "d");
}

TEST_F(ComboBoxTest, buildingAndShowingChangesNothingThatIsWritten)
{
  loadOne("selectedItem 1 label \"x\"");
  const std::string before = toText(m_dialog);
  m_dialog->buildDialog(nullptr, FALSE);
  m_dialog->show();
  settle();
  m_scene.open(m_dialog);
  EXPECT_EQ(toText(m_dialog), before);
}

// The scene

TEST_F(ComboBoxTest, theSceneShowsTheChosenEntry)
{
  SoDialogComboBox* combo = open3D();
  EXPECT_EQ(Choices::textsIn(Plan::partOf(combo, "textSep")), std::vector<std::string>{"b"});
  combo->selectedItem = 2;
  EXPECT_EQ(Choices::textsIn(Plan::partOf(combo, "textSep")), std::vector<std::string>{"c"});
  combo->items.set1Value(2, "C:\\new");
  EXPECT_EQ(Choices::textsIn(Plan::partOf(combo, "textSep")), std::vector<std::string>{"C:\\new"});
  combo->selectedItem = -1;
  EXPECT_EQ(Choices::textsIn(Plan::partOf(combo, "textSep")), std::vector<std::string>{""});
  combo->selectedItem = 9;
  EXPECT_EQ(combo->selectedItem.getValue(), 2);
}

TEST_F(ComboBoxTest, aPressOnTheBoxOpensTheListAndAnotherOneClosesItWithoutAChoice)
{
  SoDialogComboBox* combo = open3D();
  Heard heard;
  combo->addAuditor(&heard);
  EXPECT_FALSE(isListOpen());
  m_scene.press(Choices::middleOf(m_scene, m_dialog, combo, "frameSep"));
  EXPECT_TRUE(isListOpen());
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), combo);
  EXPECT_EQ(Choices::shownChild(combo, "buttonSwitch"), 1);
  m_scene.release(m_scene.centre(combo));
  EXPECT_TRUE(isListOpen());
  m_scene.click(Choices::middleOf(m_scene, m_dialog, combo, "buttonSep"));
  EXPECT_FALSE(isListOpen());
  EXPECT_EQ(Choices::shownChild(combo, "buttonSwitch"), 0);
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
  EXPECT_TRUE(heard.chosen.empty());
}

TEST_F(ComboBoxTest, aPressOnAnEntryChoosesItOnceAndCloses)
{
  SoDialogComboBox* combo = open3D();
  Heard heard;
  combo->addAuditor(&heard);
  pressBox();
  m_scene.press(entry(2, 3));
  EXPECT_EQ(heard.chosen, std::vector<int>{2});
  EXPECT_FALSE(isListOpen());
  m_scene.release(entry(2, 3));
  EXPECT_EQ(heard.chosen, std::vector<int>{2});
  EXPECT_EQ(combo->selectedItem.getValue(), 2);
  EXPECT_EQ(Choices::textsIn(Plan::partOf(combo, "textSep")), std::vector<std::string>{"c"});
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
}

TEST_F(ComboBoxTest, choosingTheSameEntryInTheSceneCallsTheAuditorsAgain)
{
  SoDialogComboBox* combo = open3D();
  Heard heard;
  combo->addAuditor(&heard);
  for (int i = 0; i < 2; i++) {
    pressBox();
    m_scene.click(entry(1, 3));
  }
  EXPECT_EQ(heard.chosen, (std::vector<int>{1, 1}));
}

TEST_F(ComboBoxTest, bothFormsShowWhatWasChosenInEither)
{
  SoDialogComboBox* combo = open();
  m_scene.open(m_dialog);
  pressBox();
  m_scene.click(entry(0, 3));
  EXPECT_EQ(boxOf(combo)->currentIndex(), 0);
  Operate::choose(boxOf(combo), 2);
  EXPECT_EQ(Choices::textsIn(Plan::partOf(combo, "textSep")), std::vector<std::string>{"c"});
}

TEST_F(ComboBoxTest, anAuditorThatTakesTheChoiceInTheSceneBackIsObeyed)
{
  SoDialogComboBox* combo = open3D();
  Heard heard([](SoDialogChoice* choice) { choice->selectedItem = 0; });
  combo->addAuditor(&heard);
  pressBox();
  m_scene.click(entry(2, 3));
  EXPECT_EQ(heard.chosen, std::vector<int>{2});
  EXPECT_EQ(combo->selectedItem.getValue(), 0);
  EXPECT_EQ(Choices::textsIn(Plan::partOf(combo, "textSep")), std::vector<std::string>{"a"});
}

TEST_F(ComboBoxTest, theListLiesInFrontOfEverythingElseAndTakesItsPresses)
{
  m_dialog = load("TopLevelDialog { DialogComboBox { items [ \"a\", \"b\", \"c\" ] }"
                  " RowDialog { ColumnDialog { edgeStyle SHADOW_OUT DialogPushButton { buttonLabel \"OK\" height 60 }"
                  " } } }");
  ASSERT_NE(m_dialog, nullptr);
  m_choice = static_cast<SoDialogComboBox*>(m_dialog->getChild(0));
  struct Pressed : SoDialogAuditor {
    void dialogPushButton(SoDialogPushButton* /*cpt*/) override
    {
      count++;
    }
    int count = 0;
  } pressed;
  m_dialog->addAuditor(&pressed);
  m_scene.open(m_dialog);
  SoGetBoundingBoxAction measure(SbViewportRegion(800, 600));
  measure.apply(m_dialog);
  const float front = measure.getBoundingBox().getMax()[2];
  pressBox();
  ASSERT_TRUE(isListOpen());
  const SbBox3f list = Plan::boxOf(m_dialog, Plan::partOf(m_choice, "itemsSwitch"));
  EXPECT_GT(list.getMin()[2], front);
  m_scene.click(entry(2, 3));
  EXPECT_EQ(m_choice->selectedItem.getValue(), 2);
  EXPECT_EQ(pressed.count, 0);
}

TEST_F(ComboBoxTest, theListDoesNotCoverItsBox)
{
  open3D();
  pressBox();
  const SbBox3f box = Plan::boxOf(m_dialog, Plan::partOf(m_choice, "frameSep"));
  const SbBox3f list = Plan::boxOf(m_dialog, Plan::partOf(m_choice, "itemsSwitch"));
  EXPECT_NEAR(list.getMax()[1], box.getMin()[1], 0.1F);
  EXPECT_NEAR(list.getMin()[0], box.getMin()[0], 0.1F);
  EXPECT_NEAR(list.getMax()[0], box.getMax()[0], 0.1F);
}

TEST_F(ComboBoxTest, theListOpensAboveWhereTheViewEndsBelow)
{
  open3D();
  m_dialog->position3D.setValue(0.0F, 460.0F, 0.0F); // the view ends at 500
  pressBox();
  ASSERT_TRUE(isListOpen());
  const SbBox3f box = Plan::boxOf(m_dialog, Plan::partOf(m_choice, "frameSep"));
  const SbBox3f list = Plan::boxOf(m_dialog, Plan::partOf(m_choice, "itemsSwitch"));
  EXPECT_NEAR(list.getMin()[1], box.getMax()[1], 0.1F);
  m_scene.click(entry(0, 3));
  EXPECT_EQ(m_choice->selectedItem.getValue(), 0);
}

TEST_F(ComboBoxTest, anotherElementThatBecomesActiveClosesTheList)
{
  m_dialog = load("TopLevelDialog { DialogPushButton { buttonLabel \"OK\" }"
                  " DialogComboBox { items [ \"a\", \"b\" ] } DialogComboBox { } }");
  ASSERT_NE(m_dialog, nullptr);
  m_choice = static_cast<SoDialogComboBox*>(m_dialog->getChild(1));
  m_scene.open(m_dialog);
  pressBox();
  ASSERT_TRUE(isListOpen());
  m_scene.click(static_cast<SoDialogComponent*>(m_dialog->getChild(0)));
  EXPECT_FALSE(isListOpen());
  pressBox();
  ASSERT_TRUE(isListOpen());
  auto* other = static_cast<SoDialogComboBox*>(m_dialog->getChild(2));
  SoQuillform::set3DCurrentActive(other);
  EXPECT_FALSE(isListOpen());
}

TEST_F(ComboBoxTest, listsThatOpenInTurnStayAtTheSameHeight)
{
  // Side by side, so that no list covers the other box.
  m_dialog = load("TopLevelDialog { ColumnDialog { DialogComboBox { width 100 items [ \"a\", \"b\" ] }"
                  " DialogComboBox { width 100 items [ \"a\", \"b\" ] } } }");
  ASSERT_NE(m_dialog, nullptr);
  auto* column = static_cast<SoColumnDialog*>(m_dialog->getChild(0));
  m_scene.open(m_dialog);
  float firstFront = 0.0F;
  for (int i = 0; i < 6; i++) {
    m_choice = static_cast<SoDialogComboBox*>(column->getChild(i % 2));
    pressBox();
    ASSERT_TRUE(isListOpen());
    const float front = Plan::boxOf(m_dialog, Plan::partOf(m_choice, "itemsSwitch")).getMax()[2];
    firstFront = i == 0 ? front : firstFront;
    EXPECT_NEAR(front, firstFront, 0.01F);
  }
}

TEST_F(ComboBoxTest, whatHidesTheBoxClosesItsList)
{
  SoDialogComboBox* combo = open3D();
  pressBox();
  m_dialog->minimized = TRUE;
  EXPECT_FALSE(isListOpen());
  m_dialog->minimized = FALSE;
  pressBox();
  ASSERT_TRUE(isListOpen());
  combo->enable = FALSE;
  EXPECT_FALSE(isListOpen());
  pressBox();
  EXPECT_FALSE(isListOpen());
  combo->enable = TRUE;
  pressBox();
  ASSERT_TRUE(isListOpen());
  m_dialog->enable = FALSE;
  EXPECT_FALSE(isListOpen());
}

TEST_F(ComboBoxTest, aLongListHasNodesOnlyForEntriesInSightAndScrolls)
{
  SoDialogComboBox* combo = open3D("items [ " + Choices::manyItems(10000) + " ] selectedItem 5000");
  SoNode* list = Plan::partOf(combo, "itemsSwitch");
  EXPECT_LE(static_cast<SoSwitch*>(list)->getNumChildren(), 20);
  pressBox();
  ASSERT_TRUE(isListOpen());
  std::vector<std::string> texts = Choices::textsIn(list);
  ASSERT_EQ(texts.size(), 10U);
  EXPECT_EQ(texts[0], "e4995"); // the chosen entry is in sight

  SoMouseButtonEvent wheel;
  wheel.setButton(SoMouseButtonEvent::BUTTON5);
  wheel.setState(SoButtonEvent::DOWN);
  wheel.setPosition(entry(5, 10));
  m_scene.action().setEvent(&wheel);
  m_scene.action().apply(m_scene.root());
  EXPECT_EQ(Choices::textsIn(list)[0], "e4998");
  wheel.setButton(SoMouseButtonEvent::BUTTON4);
  m_scene.action().apply(m_scene.root());
  EXPECT_EQ(Choices::textsIn(list)[0], "e4995");

  m_scene.click(entry(3, 10));
  EXPECT_EQ(combo->selectedItem.getValue(), 4998);
}

TEST_F(ComboBoxTest, theScrollBarStepsPagesAndDragsWithoutChoosing)
{
  SoDialogComboBox* combo = open3D("items [ " + Choices::manyItems(100) + " ]");
  Heard heard;
  combo->addAuditor(&heard);
  pressBox();
  SoNode* list = Plan::partOf(combo, "itemsSwitch");
  const SbBox3f box = Plan::boxOf(m_dialog, list);
  const float x = box.getMax()[0] - 8.0F;
  const SbVec2s up = m_scene.pixel(x, box.getMax()[1] - 8.0F);
  const SbVec2s down = m_scene.pixel(x, box.getMin()[1] + 8.0F);
  const auto first = [list] {
    return Choices::textsIn(list)[0];
  };
  EXPECT_EQ(first(), "e0");
  m_scene.click(down);
  EXPECT_EQ(first(), "e1");
  m_scene.click(up);
  m_scene.click(up);
  EXPECT_EQ(first(), "e0");
  const SbVec2s low = m_scene.pixel(x, box.getMin()[1] + 20.0F);
  m_scene.click(low); // the groove below the cursor
  EXPECT_EQ(first(), "e9");
  m_scene.click(m_scene.pixel(x, box.getMax()[1] - 16.0F)); // the groove above it
  EXPECT_EQ(first(), "e0");
  m_scene.press(m_scene.pixel(x, box.getMax()[1] - 18.0F)); // the cursor
  m_scene.move(m_scene.pixel(x, box.getMin()[1] - 50.0F));
  EXPECT_EQ(first(), "e90");
  m_scene.release(m_scene.pixel(x, box.getMin()[1] - 50.0F));
  EXPECT_TRUE(isListOpen());
  m_scene.move(m_scene.pixel(x, box.getMax()[1]));
  EXPECT_EQ(first(), "e90");
  EXPECT_TRUE(heard.chosen.empty());
  m_scene.click(entry(9, 10));
  EXPECT_EQ(heard.chosen, std::vector<int>{99});
}

TEST_F(ComboBoxTest, anOpenListFollowsItsEntries)
{
  SoDialogComboBox* combo = open3D();
  pressBox();
  SoNode* list = Plan::partOf(combo, "itemsSwitch");
  EXPECT_EQ(Choices::textsIn(list), (std::vector<std::string>{"a", "b", "c"}));
  combo->removeItem(0);
  EXPECT_EQ(Choices::textsIn(list), (std::vector<std::string>{"b", "c"}));
  combo->items.setNum(0);
  EXPECT_EQ(Choices::textsIn(list), std::vector<std::string>{""});
  std::vector<const char*> many(30, "x");
  combo->items.setValues(0, 30, many.data());
  m_scene.click(entry(0, 3));
  EXPECT_FALSE(isListOpen());
}

TEST_F(ComboBoxTest, anAuditorMayRemoveTheBoxThatCallsItInTheScene)
{
  SoDialogComboBox* combo = open3D();
  Heard heard([this](SoDialogChoice* /*choice*/) { m_dialog->removeAllChildren(); });
  combo->addAuditor(&heard);
  pressBox();
  const SbVec2s at = entry(2, 3);
  m_scene.press(at);
  EXPECT_EQ(heard.chosen, std::vector<int>{2});
  const int held = SoQuillform::getInstanceCount();
  m_scene.move(at);
  m_scene.release(at);
  EXPECT_EQ(SoQuillform::getInstanceCount(), held - 1); // with the button goes the last reference
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
  m_scene.click(at);
}

TEST_F(ComboBoxTest, anAuditorMayAddASiblingInTheScene)
{
  SoDialogComboBox* combo = open3D();
  Heard heard([this](SoDialogChoice* /*choice*/) { m_dialog->insertChild(new SoDialogLabel, 0); });
  combo->addAuditor(&heard);
  pressBox();
  m_scene.click(entry(2, 3));
  EXPECT_EQ(heard.chosen, std::vector<int>{2});
  EXPECT_FALSE(isListOpen());
  pressBox();
  EXPECT_TRUE(isListOpen());
}

TEST_F(ComboBoxTest, oneThatStandsAloneOpensItsList)
{
  m_choice = new SoDialogComboBox;
  m_choice->ref();
  m_choice->addItem("a");
  m_choice->addItem("b");
  SbVec2i32 size(120, 30);
  SbVec2i32 place(0, 0);
  m_choice->buildWidget(nullptr, size, place, 0);
  auto* holder = new SoSeparator;
  holder->addChild(m_choice);
  m_scene.add(holder);
  m_scene.click(Choices::middleOf(m_scene, holder, m_choice, "frameSep"));
  ASSERT_TRUE(isListOpen());
  const SbBox3f list = Plan::boxOf(holder, Plan::partOf(m_choice, "itemsSwitch"));
  m_scene.click(m_scene.pixel(list.getMin()[0] + 20.0F, list.getMin()[1] + 8.0F));
  EXPECT_EQ(m_choice->selectedItem.getValue(), 1);
  m_choice->unref();
}

TEST_F(ComboBoxTest, theListTakesItsGeometryFromThePartThatTheAuthorFilled)
{
  m_dialog = load("TopLevelDialog { DialogComboBox { items [ \"a\", \"b\" ] itemFrame Group { Sphere { } } } }");
  ASSERT_NE(m_dialog, nullptr);
  const std::string before = toText(m_dialog);
  m_choice = static_cast<SoDialogComboBox*>(m_dialog->getChild(0));
  m_scene.open(m_dialog);
  pressBox();
  m_scene.click(entry(1, 2));
  EXPECT_EQ(m_choice->selectedItem.getValue(), 1);
  m_choice->selectedItem = 0;
  m_choice->selectedItem.setDefault(TRUE);
  EXPECT_EQ(toText(m_dialog), before);
}

TEST_F(ComboBoxTest, aFlatPlateThatTheAuthorFilledIsPressed)
{
  m_dialog = load("TopLevelDialog { DialogComboBox { items [ \"a\", \"b\" ] itemFrame Group { Coordinate3 { point "
                  "[ -0.5 -0.5 0, 0.5 -0.5 0, 0.5 0.5 0, -0.5 0.5 0 ] } FaceSet { } } } }");
  ASSERT_NE(m_dialog, nullptr);
  m_choice = static_cast<SoDialogComboBox*>(m_dialog->getChild(0));
  m_scene.open(m_dialog);
  pressBox();
  const SbBox3f list = Plan::boxOf(m_dialog, Plan::partOf(m_choice, "itemsSwitch"));
  m_scene.click(m_scene.pixel(list.getMax()[0] - 4.0F, list.getMin()[1] + 4.0F)); // beside the text
  EXPECT_EQ(m_choice->selectedItem.getValue(), 1);
}
