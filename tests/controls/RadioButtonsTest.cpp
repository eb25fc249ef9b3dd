#include <QGroupBox>
#include <QRadioButton>
#include <QTest>
#include <QVBoxLayout>
#include <Quillform/Quillform.h>
#include <support/Choices.h>
#include <support/Messages.h>
#include <support/Operate.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

using Choices::Heard;

namespace {

QGroupBox* groupOf(SoDialogComponent* component)
{
  return component->getWidget()->findChild<QGroupBox*>("ZEPSoDialogQRadioButtonsButtonGroupWidget");
}

/// The buttons from top to bottom.
std::vector<QRadioButton*> buttonsOf(SoDialogComponent* component)
{
  std::vector<QRadioButton*> buttons;
  const QLayout* layout = groupOf(component)->layout();
  for (int i = 0; i < layout->count(); i++) {
    buttons.push_back(qobject_cast<QRadioButton*>(layout->itemAt(i)->widget()));
  }
  return buttons;
}

std::vector<std::string> textsOf(SoDialogComponent* component)
{
  std::vector<std::string> texts;
  for (const QRadioButton* button : buttonsOf(component)) {
    texts.push_back(button->text().toStdString());
  }
  return texts;
}

/// Index of the checked button; -1 when there is none.
int checkedOf(SoDialogComponent* component)
{
  int checked = -1;
  const std::vector<QRadioButton*> buttons = buttonsOf(component);
  for (std::size_t i = 0; i < buttons.size(); i++) {
    checked = buttons[i]->isChecked() ? static_cast<int>(i) : checked;
  }
  return checked;
}

using Texts = std::vector<std::string>;

} // namespace

class RadioButtonsTest : public Choices::Test<SoDialogRadioButtons> {
protected:
  void click(int index)
  {
    Operate::clickMark(buttonsOf(m_choice)[static_cast<std::size_t>(index)]);
  }

  /// The node of an entry in the scene.
  SoNode* entryNode(int index)
  {
    return Operate::entryNode(m_choice, index);
  }

  SbVec2s entry(int index)
  {
    return Operate::entryOf(m_scene, m_choice, index);
  }
};

// The window

TEST_F(RadioButtonsTest, theWindowShowsATitledBoxOfButtons)
{
  SoDialogRadioButtons* radio = open("label \"Side\" labelAlignment LEFT selectedItem 1");
  EXPECT_EQ(radio->getWidget()->objectName(), "ZEPSoDialogQRadioButtonsFrame");
  QGroupBox* group = groupOf(radio);
  ASSERT_NE(group, nullptr);
  EXPECT_EQ(group->title(), "Side");
  EXPECT_TRUE(group->alignment() & Qt::AlignLeft);
  EXPECT_TRUE(Choices::hasDialogFont(group));
  ASSERT_NE(qobject_cast<QVBoxLayout*>(group->layout()), nullptr);
  EXPECT_EQ(textsOf(radio), (Texts{"a", "b", "c"}));
  EXPECT_EQ(checkedOf(radio), 1);
  for (const QRadioButton* button : buttonsOf(radio)) {
    EXPECT_EQ(button->objectName(), "ZEPSoDialogQRadioButtonsRadioButtonWidget");
    EXPECT_TRUE(Choices::hasDialogFont(button));
    EXPECT_EQ(button->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    EXPECT_EQ(button->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
  }
}

TEST_F(RadioButtonsTest, entriesAreShownAsTheyAreWritten)
{
  SoDialogRadioButtons* radio = open();
  radio->items.set1Value(0, "C:\\new");
  radio->items.set1Value(1, "cut & paste");
  EXPECT_EQ(textsOf(radio)[0], "C:\\new");
  EXPECT_EQ(textsOf(radio)[1], "cut && paste"); // a single one would mark a letter and not be seen
  EXPECT_TRUE(buttonsOf(radio)[1]->shortcut().isEmpty());
}

TEST_F(RadioButtonsTest, theTitleFollowsTheLabelAndItsVisibility)
{
  SoDialogRadioButtons* radio = open("label \"Side\"");
  radio->label = "One\\nTwo";
  EXPECT_EQ(groupOf(radio)->title(), "One\nTwo");
  radio->labelVisibility = FALSE;
  EXPECT_EQ(groupOf(radio)->title(), "");
  radio->labelVisibility = TRUE;
  EXPECT_EQ(groupOf(radio)->title(), "One\nTwo");
  radio->labelAlignment = SoQuillform::CENTER;
  EXPECT_TRUE(groupOf(radio)->alignment() & Qt::AlignHCenter);
}

TEST_F(RadioButtonsTest, aClickCallsTheAuditorsOnceAlsoOnTheCheckedButton)
{
  SoDialogRadioButtons* radio = open();
  Heard heard;
  radio->addAuditor(&heard);
  click(2);
  EXPECT_EQ(heard.chosen, std::vector<int>{2});
  EXPECT_EQ(radio->selectedItem.getValue(), 2);
  EXPECT_EQ(checkedOf(radio), 2);
  click(2);
  EXPECT_EQ(heard.chosen, (std::vector<int>{2, 2}));
}

TEST_F(RadioButtonsTest, anAuditorThatTakesTheChoiceBackIsObeyed)
{
  SoDialogRadioButtons* radio = open();
  Heard heard([](SoDialogChoice* choice) { choice->selectedItem = 0; });
  radio->addAuditor(&heard);
  click(2);
  EXPECT_EQ(heard.chosen, std::vector<int>{2});
  EXPECT_EQ(radio->selectedItem.getValue(), 0);
  EXPECT_EQ(checkedOf(radio), 0);
}

TEST_F(RadioButtonsTest, aChangeFromCodeShowsAndCallsNobody)
{
  SoDialogRadioButtons* radio = open();
  Heard heard;
  radio->addAuditor(&heard);
  radio->selectedItem = 2;
  EXPECT_EQ(checkedOf(radio), 2);
  radio->insertItem(0, "first");
  EXPECT_EQ(textsOf(radio), (Texts{"first", "a", "b", "c"}));
  EXPECT_EQ(checkedOf(radio), 2);
  radio->removeItem(3);
  EXPECT_EQ(textsOf(radio), (Texts{"first", "a", "b"}));
  EXPECT_TRUE(heard.chosen.empty());
}

TEST_F(RadioButtonsTest, aSelectionOutOfRangeBecomesTheNearestSilently)
{
  SoDialogRadioButtons* radio = open("selectedItem -1");
  EXPECT_EQ(radio->selectedItem.getValue(), 0);
  EXPECT_EQ(checkedOf(radio), 0);
  radio->selectedItem = 7;
  EXPECT_EQ(radio->selectedItem.getValue(), 2);
  EXPECT_EQ(checkedOf(radio), 2);
}

TEST_F(RadioButtonsTest, noItemsShowNoNewButtonAndTheFirstOneKeepsItsText)
{
  SoDialogRadioButtons* radio = open();
  radio->items.setNum(0);
  EXPECT_EQ(radio->items.getNum(), 1);
  EXPECT_EQ(radio->getNumItems(), 0);
  EXPECT_EQ(textsOf(radio), Texts{"a"});
  radio->addItem("x");
  EXPECT_EQ(textsOf(radio), Texts{"x"});
  EXPECT_EQ(radio->items.getNum(), 1);
}

TEST_F(RadioButtonsTest, aGroupWithoutEntriesHasNoButtons)
{
  SoDialogRadioButtons* radio = open("items [ ] selectedItem 3");
  EXPECT_TRUE(buttonsOf(radio).empty());
  EXPECT_EQ(radio->selectedItem.getValue(), 0);
  radio->addItem("x");
  EXPECT_EQ(textsOf(radio), Texts{"x"});
  EXPECT_EQ(checkedOf(radio), 0);
}

TEST_F(RadioButtonsTest, theNaturalSizeFollowsFromEntriesAndTitle)
{
  SoDialogRadioButtons* radio = open("label \"T\"");
  SbVec2i32 labelSize(7, 16);
  radio->setLabelSize(labelSize);
  int widest = 0;
  int total = 0;
  for (const char* item : {"a", "b", "c"}) {
    const SbVec2i32 size = SoQuillform::getLabelPixelSize(item, radio);
    widest = std::max(widest, size[0]);
    total += size[1];
  }
  EXPECT_EQ(radio->getComponentInitSize(), SbVec2i32(widest + 48 - 7 + 2, total + 30));
  radio->label = "A title that is wider than all entries";
  const SbVec2i32 title = SoQuillform::getLabelPixelSize(radio->label.getValue(), radio);
  EXPECT_EQ(radio->getComponentInitSize(), SbVec2i32(title[0] + 24 - 7 + 2, title[1]));
  radio->labelVisibility = FALSE;
  EXPECT_EQ(radio->getComponentInitSize(), SbVec2i32(widest + 48 - 7 + 2, total + 30));
}

TEST_F(RadioButtonsTest, anEntryIsMeasuredAsItIsShown)
{
  SoDialogRadioButtons* radio = open();
  std::vector<const char*> one(1, "C:\\new\\table");
  radio->items.setNum(0);
  radio->items.setValues(0, 1, one.data());
  const SbVec2i32 raw = SoQuillform::getLabelPixelSize("C:\\\\new\\\\table", nullptr);
  EXPECT_EQ(radio->getComponentInitSize(), SbVec2i32(raw[0] + 48 - radio->getLabelSize()[0] + 2, raw[1] + 30));
}

TEST_F(RadioButtonsTest, theDefaultSizeLeavesRoomForEveryEntry)
{
  SoDialogRadioButtons* radio = open();
  SbVec2i32 componentSize(120, 10);
  radio->setComponentSize(componentSize);
  SbVec2i32 size(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  radio->getDefaultSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(120, 3 * SoQuillform::getLabelPixelSize("a", radio)[1] + 30));
  EXPECT_EQ(min, SbVec2i32(100, 3 * 20 + 28));
  EXPECT_EQ(max, SbVec2i32(32767, 32767));
}

TEST_F(RadioButtonsTest, theBoxFillsTheComponentWhoseMinimumIsItsSize)
{
  SoDialogRadioButtons* radio = open();
  const int w = radio->width.getValue();
  const int h = radio->height.getValue();
  EXPECT_EQ(groupOf(radio)->geometry(), QRect(3, 3, w - 6, h - 6));
  EXPECT_EQ(radio->getWidget()->minimumSize(), QSize(w, h));
  for (const QRadioButton* button : buttonsOf(radio)) {
    EXPECT_GE(button->height(), button->minimumSizeHint().height());
  }
}

TEST_F(RadioButtonsTest, aDisabledOneCannotBeOperated)
{
  SoDialogRadioButtons* radio = open("enable FALSE");
  EXPECT_FALSE(buttonsOf(radio)[0]->isEnabled());
  radio->enable = TRUE;
  EXPECT_TRUE(buttonsOf(radio)[0]->isEnabled());
}

TEST_F(RadioButtonsTest, anAuditorMayRemoveTheElementOrTheButtonThatCallsIt)
{
  SoDialogRadioButtons* radio = open();
  Heard heard([](SoDialogChoice* choice) { choice->items.setNum(1); });
  radio->addAuditor(&heard);
  click(2);
  EXPECT_EQ(textsOf(radio), Texts{"a"});
  EXPECT_EQ(radio->selectedItem.getValue(), 0);
  EXPECT_EQ(checkedOf(radio), 0);
  settle();
  heard.then = [this](SoDialogChoice* /*choice*/) {
    m_dialog->removeAllChildren();
  };
  click(0);
  EXPECT_EQ(heard.chosen, (std::vector<int>{2, 0}));
  settle();
}

TEST_F(RadioButtonsTest, aWindowThatQtDestroyedIsNotTouchedAgain)
{
  SoDialogRadioButtons* radio = open();
  delete m_dialog->getWidget();
  radio->addItem("d");
  radio->selectedItem = 3;
  radio->items.setNum(2);
  m_dialog->buildDialog(nullptr, FALSE);
  EXPECT_EQ(textsOf(radio), (Texts{"a", "b"}));
  EXPECT_EQ(checkedOf(radio), 1);
}

TEST_F(RadioButtonsTest, buildingAndShowingChangesNothingThatIsWritten)
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

TEST_F(RadioButtonsTest, theSceneShowsEntriesTitleAndSelection)
{
  SoDialogRadioButtons* radio = open3D("label \"Side\" selectedItem 1");
  EXPECT_EQ(Choices::textsIn(Plan::partOf(radio, "itemsSep")), (Texts{"a", "b", "c"}));
  EXPECT_EQ(Choices::textsIn(Plan::partOf(radio, "labelSep")), Texts{"Side"});
  EXPECT_EQ(Choices::shownChild(radio, "itemBtnSwtch"), 0);
  radio->selectedItem = 0;
  EXPECT_EQ(Choices::shownChild(radio, "itemBtnSwtch"), 1);
  radio->items.set1Value(0, "C:\\new");
  EXPECT_EQ(Choices::textsIn(Plan::partOf(radio, "itemsSep"))[0], "C:\\new");
  radio->selectedItem = -4;
  EXPECT_EQ(radio->selectedItem.getValue(), 0);
}

TEST_F(RadioButtonsTest, entriesStandInsideTheGroupAndNotInEachOther)
{
  SoDialogRadioButtons* radio = open3D("label \"Side\" height 200");
  const SbBox3f frame = Plan::boxOf(m_dialog, Plan::partOf(radio, "frameSep"));
  const SbBox3f title = Plan::boxOf(m_dialog, Plan::partOf(radio, "labelSep"));
  EXPECT_GE(title.getMin()[1], frame.getMax()[1] - 1.0F);
  float below = frame.getMax()[1];
  for (int i = 0; i < 3; i++) {
    const SbBox3f row = Plan::boxOf(m_dialog, entryNode(i));
    EXPECT_TRUE(Plan::stands(Plan::seen(row), Plan::seen(frame)));
    EXPECT_LE(row.getMax()[1], below + 0.01F);
    below = row.getMin()[1];
  }
}

TEST_F(RadioButtonsTest, aClickOnAnEntryChoosesItAtTheRelease)
{
  SoDialogRadioButtons* radio = open3D();
  Heard heard;
  radio->addAuditor(&heard);
  m_scene.press(entry(2));
  EXPECT_TRUE(heard.chosen.empty());
  m_scene.release(entry(2));
  EXPECT_EQ(heard.chosen, std::vector<int>{2});
  EXPECT_EQ(radio->selectedItem.getValue(), 2);
  m_scene.click(entry(2));
  EXPECT_EQ(heard.chosen, (std::vector<int>{2, 2}));
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
}

TEST_F(RadioButtonsTest, aPressThatIsReleasedElsewhereDoesNothing)
{
  SoDialogRadioButtons* radio = open3D();
  Heard heard;
  radio->addAuditor(&heard);
  m_scene.press(entry(2));
  m_scene.release(m_scene.pixel(-50.0F, 50.0F));
  m_scene.press(entry(2));
  m_scene.release(entry(0));
  EXPECT_TRUE(heard.chosen.empty());
  EXPECT_EQ(radio->selectedItem.getValue(), 1);
}

TEST_F(RadioButtonsTest, aClickBesideTheEntriesKeepsTheSelectionAndCallsTheAuditors)
{
  SoDialogRadioButtons* radio = open3D("label \"A title\" labelAlignment LEFT selectedItem 1");
  Heard heard;
  radio->addAuditor(&heard);
  m_scene.click(Choices::middleOf(m_scene, m_dialog, radio, "labelSep"));
  EXPECT_EQ(heard.chosen, std::vector<int>{1});
}

TEST_F(RadioButtonsTest, bothFormsShowWhatWasChosenInEither)
{
  SoDialogRadioButtons* radio = open();
  m_scene.open(m_dialog);
  m_scene.click(entry(0));
  EXPECT_EQ(checkedOf(radio), 0);
  click(2);
  EXPECT_EQ(Choices::shownChild(radio, "itemBtnSwtch"), 0);
  EXPECT_EQ(radio->selectedItem.getValue(), 2);
}

TEST_F(RadioButtonsTest, theSceneFollowsTheEntries)
{
  SoDialogRadioButtons* radio = open3D();
  radio->addItem("d");
  EXPECT_EQ(Choices::textsIn(Plan::partOf(radio, "itemsSep")), (Texts{"a", "b", "c", "d"}));
  m_scene.click(entry(3));
  EXPECT_EQ(radio->selectedItem.getValue(), 3);
  radio->items.setNum(0);
  EXPECT_EQ(Choices::shownChild(radio, "itemsSep"), SO_SWITCH_NONE);
  EXPECT_EQ(radio->selectedItem.getValue(), 0);
  radio->addItem("x");
  EXPECT_EQ(Choices::textsIn(Plan::partOf(radio, "itemsSep")), Texts{"x"});
}

TEST_F(RadioButtonsTest, aDisabledOneCannotBeClickedInTheScene)
{
  SoDialogRadioButtons* radio = open3D("enable FALSE selectedItem 1");
  m_scene.click(entry(2));
  EXPECT_EQ(radio->selectedItem.getValue(), 1);
  radio->enable = TRUE;
  m_scene.click(entry(2));
  EXPECT_EQ(radio->selectedItem.getValue(), 2);
}

TEST_F(RadioButtonsTest, anAuditorMayRemoveTheElementInTheScene)
{
  SoDialogRadioButtons* radio = open3D();
  Heard heard([this](SoDialogChoice* choice) {
    choice->items.setNum(1);
    m_dialog->removeAllChildren();
  });
  radio->addAuditor(&heard);
  const SbVec2s at = entry(2);
  const int before = SoQuillform::getInstanceCount();
  m_scene.click(at);
  EXPECT_EQ(heard.chosen, std::vector<int>{2});
  EXPECT_EQ(SoQuillform::getInstanceCount(), before - 1);
  m_scene.click(at);
}
