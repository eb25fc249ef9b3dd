#include <Inventor/fields/SoFieldData.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <Quillform/Quillform.h>
#include <forms/Plan.h>
#include <support/Messages.h>
#include <support/Scene.h>
#include <support/TestFiles.h>
#include <unistd.h>

namespace {

struct Sizes {
  SbVec2i32 size{-7, -7};
  SbVec2i32 min{-7, -7};
  SbVec2i32 max{-7, -7};
};

Sizes sizesOf(SoTopLevelDialog* dialog)
{
  Sizes sizes;
  dialog->getSize(sizes.size, sizes.min, sizes.max);
  return sizes;
}

Sizes defaultsOf(SoTopLevelDialog* dialog)
{
  Sizes sizes;
  dialog->getDefaultSize(sizes.size, sizes.min, sizes.max);
  return sizes;
}

Sizes stateOf(SoTopLevelDialog* dialog)
{
  Sizes sizes;
  dialog->getDefaultState(sizes.size, sizes.min, sizes.max);
  return sizes;
}

SoDialogPushButton* childOf(SoTopLevelDialog* dialog, int index)
{
  return dynamic_cast<SoDialogPushButton*>(dialog->getChild(index));
}

QPushButton* buttonOf(SoDialogComponent* component)
{
  return component->getWidget()->findChild<QPushButton*>("ZEPSoDialogQPushButtonButtonWidget");
}

SoDialogPushButton* newButton(const char* text)
{
  auto* button = new SoDialogPushButton;
  button->buttonLabel = text;
  return button;
}

/// The texts of the visible buttons in the window, from top to bottom.
std::string onScreen(SoTopLevelDialog* dialog)
{
  std::vector<std::pair<int, std::string>> buttons;
  for (QPushButton* button : dialog->getWidget()->findChildren<QPushButton*>()) {
    if (!button->isHidden()) {
      buttons.emplace_back(button->mapTo(dialog->getWidget(), QPoint(0, 0)).y(), button->text().toStdString());
    }
  }
  std::sort(buttons.begin(), buttons.end());
  std::string texts;
  for (const auto& [y, text] : buttons) {
    texts += text;
  }
  return texts;
}

void show(SoTopLevelDialog* dialog)
{
  dialog->show();
  settle();
}

/// A component with the sizes that a test gives it.
struct Sized : SoDialogComponent {
  Sized(SbVec2i32 size_, SbVec2i32 min_, SbVec2i32 max_) : size(size_), min(min_), max(max_) {}
  void getDefaultSize(SbVec2i32& theSize, SbVec2i32& theMin, SbVec2i32& theMax) override
  {
    theSize = size;
    theMin = min;
    theMax = max;
  }
  SbVec2i32 size;
  SbVec2i32 min;
  SbVec2i32 max;

protected:
  ~Sized() override = default;
};

/// Stands where a menu bar stands: not a component, with a height of its own.
struct Bar : SoTopComponent {
  void getSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max) override
  {
    size.setValue(60, 20);
    min.setValue(50, 20);
    max.setValue(32767, 90);
  }

protected:
  ~Bar() override = default;
};

} // namespace

class TopLevelDialogTest : public QuillformTest {
protected:
  TopLevelDialogTest() : dialog(new SoTopLevelDialog)
  {
    dialog->ref();
  }
  ~TopLevelDialogTest() override
  {
    if (dialog) {
      dialog->unref();
    }
  }

  void release()
  {
    dialog->unref();
    dialog = nullptr;
  }

  void fill(const char* texts)
  {
    for (; *texts != '\0'; texts++) {
      const char text[] = {*texts, '\0'};
      dialog->addChild(newButton(text));
    }
  }

  SoTopLevelDialog* dialog;
};

TEST_F(TopLevelDialogTest, itsFieldsStandInTheOrderOfTheFileWithTheirDefaults)
{
  const std::vector<std::string> expected = {"width",
                                             "height",
                                             "position",
                                             "position3D",
                                             "resizable",
                                             "minWidth",
                                             "minHeight",
                                             "maxWidth",
                                             "maxHeight",
                                             "margin",
                                             "rowSpacing",
                                             "modalFrame",
                                             "hideChildren",
                                             "minimized",
                                             "minimized3DPosition",
                                             "independentMinimizedPosition",
                                             "windowResizedByChildren",
                                             "vScrollVisibility",
                                             "hScrollVisibility"};
  SoFieldList fields;
  dialog->getFields(fields);
  std::vector<std::string> found;
  for (int i = 0; i < fields.getLength(); i++) {
    SbName name;
    ASSERT_TRUE(dialog->getFieldName(fields[i], name));
    if (std::find(expected.begin(), expected.end(), name.getString()) != expected.end()) {
      found.emplace_back(name.getString());
      EXPECT_TRUE(fields[i]->isDefault()) << name.getString();
    }
  }
  EXPECT_EQ(found, expected);
  EXPECT_EQ(dialog->width.getValue(), 0);
  EXPECT_EQ(dialog->height.getValue(), 0);
  EXPECT_EQ(dialog->position.getValue(), SbVec2i32(0, 0));
  EXPECT_EQ(dialog->position3D.getValue(), SbVec3f(0.0F, 0.0F, 0.0F));
  EXPECT_TRUE(dialog->resizable.getValue());
  EXPECT_EQ(dialog->minWidth.getValue(), 0);
  EXPECT_EQ(dialog->minHeight.getValue(), 0);
  EXPECT_EQ(dialog->maxWidth.getValue(), 16777215);
  EXPECT_EQ(dialog->maxHeight.getValue(), 16777215);
  EXPECT_EQ(dialog->margin.getValue(), 0);
  EXPECT_EQ(dialog->rowSpacing.getValue(), 0);
  EXPECT_FALSE(dialog->modalFrame.getValue());
  EXPECT_FALSE(dialog->hideChildren.getValue());
  EXPECT_FALSE(dialog->minimized.getValue());
  EXPECT_EQ(dialog->minimized3DPosition.getValue(), SbVec3f(0.0F, 0.0F, 0.0F));
  EXPECT_TRUE(dialog->independentMinimizedPosition.getValue());
  EXPECT_FALSE(dialog->windowResizedByChildren.getValue());
  EXPECT_EQ(dialog->vScrollVisibility.getValue(), SoTopLevelDialog::AUTO);
  EXPECT_EQ(dialog->hScrollVisibility.getValue(), SoTopLevelDialog::AUTO);
}

TEST_F(TopLevelDialogTest, theScrollPoliciesHaveTheirNamesAndValues)
{
  EXPECT_EQ(SoTopLevelDialog::NEVER, 0);
  EXPECT_EQ(SoTopLevelDialog::ALWAYS, 1);
  EXPECT_EQ(SoTopLevelDialog::AUTO, 2);
  for (SoSFEnum* field : {&dialog->vScrollVisibility, &dialog->hScrollVisibility}) {
    ASSERT_TRUE(field->set("NEVER"));
    EXPECT_EQ(field->getValue(), 0);
    ASSERT_TRUE(field->set("ALWAYS"));
    EXPECT_EQ(field->getValue(), 1);
    ASSERT_TRUE(field->set("AUTO"));
    EXPECT_EQ(field->getValue(), 2);
  }
}

TEST_F(TopLevelDialogTest, itsCatalogHasTheFrameTheLabelAndTheButton)
{
  const SoNodekitCatalog* catalog = dialog->getNodekitCatalog();
  const char* const rows[][3] = {{"frameSep", "Separator", "geomSwitch"}, {"frame", "Group", "frameSep"},
                                 {"labelSep", "Separator", "geomSwitch"}, {"labelProp", "Group", "labelSep"},
                                 {"minSep", "Separator", "geomSwitch"},   {"minSwtch", "Switch", "minSep"},
                                 {"minReleased", "Group", "minSwtch"},    {"minPressed", "Group", "minSwtch"}};
  for (const auto& row : rows) {
    const int part = catalog->getPartNumber(row[0]);
    ASSERT_NE(part, SO_CATALOG_NAME_NOT_FOUND) << row[0];
    EXPECT_STREQ(catalog->getType(part).getName().getString(), row[1]);
    EXPECT_STREQ(catalog->getParentName(part).getString(), row[2]);
  }
}

TEST_F(TopLevelDialogTest, itsTypeKeepsItsPrefixAndBothSpellingsLoad)
{
  EXPECT_STREQ(SoTopLevelDialog::getClassTypeId().getName().getString(), "SoTopLevelDialog");
  EXPECT_EQ(SoTopLevelDialog::getClassTypeId().getParent(), SoQuillform::getClassTypeId());
  for (const char* text : {"TopLevelDialog { label \"x\" }", "SoTopLevelDialog { label \"x\" }"}) {
    SoNode* node = readText(text);
    ASSERT_NE(node, nullptr) << text;
    EXPECT_TRUE(node->isOfType(SoTopLevelDialog::getClassTypeId()));
    node->unref();
  }
}

// Sizes

TEST_F(TopLevelDialogTest, theDefaultSizeStacksTheChildren)
{
  dialog->addChild(new Sized({100, 30}, {40, 20}, {300, 60}));
  dialog->addChild(new Sized({150, 20}, {30, 10}, {200, 50}));
  dialog->margin = 5;
  dialog->rowSpacing = 7;
  const Sizes sizes = defaultsOf(dialog);
  EXPECT_EQ(sizes.size, SbVec2i32(160, 67));
  EXPECT_EQ(sizes.min, SbVec2i32(50, 47));
  EXPECT_EQ(sizes.max, SbVec2i32(310, 127));
}

TEST_F(TopLevelDialogTest, aMaximumThatWouldPassTheUnboundedSizeIsNotAdded)
{
  dialog->addChild(new Sized({100, 30}, {40, 20}, {300, 20000}));
  dialog->addChild(new Sized({100, 30}, {40, 20}, {300, 20000}));
  dialog->margin = 3;
  dialog->rowSpacing = 4;
  EXPECT_EQ(defaultsOf(dialog).max[1], 20000 + 6 + 4);
}

TEST_F(TopLevelDialogTest, aSmallerMaximumAfterOneThatDidNotFitIsAddedAgain)
{
  dialog->addChild(new Sized({100, 30}, {40, 20}, {300, 20000}));
  dialog->addChild(new Sized({100, 30}, {40, 20}, {300, 20000}));
  dialog->addChild(new Sized({100, 30}, {40, 20}, {300, 500}));
  EXPECT_EQ(defaultsOf(dialog).max[1], 20500);
}

TEST_F(TopLevelDialogTest, oneUnboundedChildMakesTheDialogUnbounded)
{
  dialog->addChild(new Sized({100, 30}, {40, 20}, {32767, 32767}));
  dialog->addChild(new Sized({100, 30}, {40, 20}, {300, 200}));
  dialog->margin = 50;
  const Sizes sizes = defaultsOf(dialog);
  EXPECT_EQ(sizes.max, SbVec2i32(32767, 32767));
}

TEST_F(TopLevelDialogTest, anEmptyDialogHasANegativeGap)
{
  dialog->margin = 10;
  dialog->rowSpacing = 8;
  const Sizes sizes = defaultsOf(dialog);
  EXPECT_EQ(sizes.size, SbVec2i32(20, 12));
  EXPECT_EQ(sizes.min, SbVec2i32(20, 12));
}

TEST_F(TopLevelDialogTest, aMenuBarAddsItsHeightButNoGapAndNeverGrows)
{
  dialog->addChild(new Sized({100, 30}, {40, 20}, {300, 60}));
  dialog->rowSpacing = 7;
  dialog->addChild(new Bar);
  const Sizes sizes = defaultsOf(dialog);
  EXPECT_EQ(sizes.size, SbVec2i32(100, 50));
  EXPECT_EQ(sizes.min, SbVec2i32(50, 40));
  EXPECT_EQ(sizes.max, SbVec2i32(32767, 80));
  EXPECT_EQ(dialog->widgetHasMenuBar(), dialog->getChild(1));
}

TEST_F(TopLevelDialogTest, aMenuBarAloneHasANegativeGap)
{
  dialog->addChild(new Bar);
  dialog->rowSpacing = 7;
  EXPECT_EQ(defaultsOf(dialog).size, SbVec2i32(60, 13));
}

TEST_F(TopLevelDialogTest, theEffectiveSizeKeepsWhatIsSetAndComputesTheRest)
{
  dialog->addChild(new Sized({100, 30}, {40, 20}, {300, 60}));
  dialog->width = 123;
  dialog->maxHeight = 0;
  const Sizes sizes = sizesOf(dialog);
  EXPECT_EQ(sizes.size, SbVec2i32(123, 30));
  EXPECT_EQ(sizes.min, SbVec2i32(40, 20));
  EXPECT_EQ(sizes.max, SbVec2i32(16777215, 60));
}

TEST_F(TopLevelDialogTest, anExplicitSizeBelowTheComputedMinimumOpensAtTheMinimum)
{
  dialog->addChild(new Sized({100, 30}, {40, 20}, {300, 60}));
  dialog->width = 10;
  dialog->height = 5;
  EXPECT_EQ(sizesOf(dialog).size, SbVec2i32(40, 20));
  dialog->buildDialog(nullptr, FALSE);
  EXPECT_EQ(dialog->getWidget()->size(), QSize(40, 20));
}

TEST_F(TopLevelDialogTest, aFixedDialogPinsOnlyTheSizesThatAreSet)
{
  dialog->addChild(new Sized({100, 30}, {40, 20}, {300, 60}));
  dialog->resizable = FALSE;
  dialog->maxWidth = 0;
  dialog->maxHeight = 0;
  dialog->width = 290;
  Sizes sizes = sizesOf(dialog);
  EXPECT_EQ(sizes.min, SbVec2i32(290, 20));
  EXPECT_EQ(sizes.max, SbVec2i32(290, 60));
  dialog->width = 0;
  sizes = sizesOf(dialog);
  EXPECT_EQ(sizes.min, SbVec2i32(40, 20));
  EXPECT_EQ(sizes.max, SbVec2i32(300, 60));
}

TEST_F(TopLevelDialogTest, aFixedDialogIsBuiltWithAllLimitsAtItsSize)
{
  fill("ab");
  dialog->resizable = FALSE;
  dialog->width = 300;
  dialog->buildDialog(nullptr, FALSE);
  EXPECT_EQ(dialog->width.getValue(), 300);
  EXPECT_EQ(dialog->minWidth.getValue(), 300);
  EXPECT_EQ(dialog->maxWidth.getValue(), 300);
  EXPECT_EQ(dialog->minHeight.getValue(), dialog->height.getValue());
  EXPECT_EQ(dialog->maxHeight.getValue(), dialog->height.getValue());
  EXPECT_EQ(dialog->getWidget()->minimumSize(), dialog->getWidget()->size());
  EXPECT_EQ(dialog->getWidget()->maximumSize(), dialog->getWidget()->size());
  const int before = dialog->height.getValue();
  dialog->addChild(newButton("c"));
  EXPECT_GE(dialog->getWidget()->height(), before);
  EXPECT_EQ(dialog->getWidget()->minimumSize(), dialog->getWidget()->size());
}

TEST_F(TopLevelDialogTest, aComputedMaximumFollowsTheContentsAndNeverCollapses)
{
  dialog->addChild(new Sized({100, 30}, {40, 20}, {300, 60}));
  dialog->maxWidth = 0;
  dialog->maxHeight = 0;
  dialog->buildDialog(nullptr, FALSE);
  EXPECT_EQ(dialog->getWidget()->maximumSize(), QSize(300, 60));
  for (int i = 0; i < 3; i++) {
    dialog->updateAfterSceneGraphChange();
    EXPECT_EQ(dialog->getWidget()->maximumSize(), QSize(300, 60));
    EXPECT_EQ(dialog->getWidget()->size(), QSize(100, 30));
  }
  dialog->addChild(new Sized({120, 30}, {40, 20}, {400, 60}));
  EXPECT_EQ(dialog->getWidget()->maximumSize(), QSize(400, 120));
}

TEST_F(TopLevelDialogTest, theSavedStateIsEmptyInTheWindowUntilAFieldChanges)
{
  fill("ab");
  dialog->width = 200;
  EXPECT_EQ(stateOf(dialog).size, SbVec2i32(0, 0));
  dialog->buildDialog(nullptr, FALSE);
  EXPECT_EQ(stateOf(dialog).size, SbVec2i32(0, 0));
  EXPECT_EQ(stateOf(dialog).max, SbVec2i32(0, 0));
  dialog->width = 222;
  dialog->height = 111;
  EXPECT_EQ(stateOf(dialog).size, SbVec2i32(222, 111));
}

TEST_F(TopLevelDialogTest, aChangedLimitIsAppliedAndAllFourAreSaved)
{
  fill("ab");
  dialog->buildDialog(nullptr, FALSE);
  const int minHeight = dialog->minHeight.getValue();
  dialog->minWidth = 321;
  EXPECT_EQ(dialog->getWidget()->minimumWidth(), 321);
  dialog->maxHeight = 654;
  EXPECT_EQ(dialog->getWidget()->maximumHeight(), 654);
  const Sizes state = stateOf(dialog);
  EXPECT_EQ(state.min, SbVec2i32(321, minHeight));
  EXPECT_EQ(state.max, SbVec2i32(16777215, 654));
}

TEST_F(TopLevelDialogTest, aChangedLimitOutlivesARebuildAndIsWritten)
{
  fill("ab");
  dialog->buildDialog(nullptr, FALSE);
  dialog->minWidth = 321;
  dialog->maxHeight = 654;
  dialog->addChild(newButton("c"));
  EXPECT_EQ(dialog->getWidget()->minimumWidth(), 321);
  EXPECT_EQ(dialog->getWidget()->maximumHeight(), 654);
  const std::string text = toText(dialog);
  EXPECT_NE(text.find("minWidth 321"), std::string::npos) << text;
  EXPECT_NE(text.find("maxHeight 654"), std::string::npos) << text;
  EXPECT_EQ(text.find("minHeight"), std::string::npos) << text;
  EXPECT_EQ(text.find("maxWidth"), std::string::npos) << text;
}

TEST_F(TopLevelDialogTest, aChangedLimitDoesNotFreezeTheComputedOnes)
{
  fill("a");
  dialog->buildDialog(nullptr, FALSE);
  const int before = dialog->getWidget()->minimumHeight();
  dialog->minWidth = 100;
  fill("bcd");
  EXPECT_GT(dialog->getWidget()->minimumHeight(), before);
}

TEST_F(TopLevelDialogTest, theSavedStateIsTheAuthorsInTheScene)
{
  fill("ab");
  dialog->width = 200;
  Scene scene;
  scene.open(dialog);
  EXPECT_EQ(stateOf(dialog).size, SbVec2i32(200, 0));
  EXPECT_EQ(stateOf(dialog).max, SbVec2i32(16777215, 16777215));
}

TEST_F(TopLevelDialogTest, changingWidthOrHeightDoesNotResizeTheWindow)
{
  fill("ab");
  dialog->buildDialog(nullptr, FALSE);
  const QSize before = dialog->getWidget()->size();
  dialog->width = 500;
  dialog->height = 400;
  EXPECT_EQ(dialog->getWidget()->size(), before);
}

TEST_F(TopLevelDialogTest, aSizeThatTheUserGaveTheWindowIsKeptByARebuild)
{
  fill("ab");
  dialog->buildDialog(nullptr, FALSE);
  show(dialog);
  dialog->getWidget()->resize(400, 300);
  settle();
  fill("c");
  settle();
  EXPECT_EQ(dialog->getWidget()->size(), QSize(400, 300));
  dialog->maxWidth = 350;
  fill("d");
  settle();
  EXPECT_EQ(dialog->getWidget()->size(), QSize(350, 300));
}

TEST_F(TopLevelDialogTest, aWindowThatFollowsItsChildrenGrowsAndShrinksWithThem)
{
  fill("ab");
  dialog->windowResizedByChildren = TRUE;
  dialog->buildDialog(nullptr, FALSE);
  show(dialog);
  const QSize two = dialog->getWidget()->size();
  fill("c");
  settle();
  EXPECT_EQ(dialog->getWidget()->width(), two.width());
  EXPECT_EQ(dialog->getWidget()->height(), two.height() / 2 * 3);
  dialog->removeChild(2);
  settle();
  EXPECT_EQ(dialog->getWidget()->size(), two);
  dialog->getWidget()->resize(400, 300);
  settle();
  dialog->updateAfterSceneGraphChange();
  settle();
  EXPECT_EQ(dialog->getWidget()->size(), two);
}

TEST_F(TopLevelDialogTest, aWindowThatDoesNotFollowItsChildrenKeepsItsSize)
{
  fill("abc");
  dialog->buildDialog(nullptr, FALSE);
  show(dialog);
  const QSize before = dialog->getWidget()->size();
  dialog->removeChild(2);
  settle();
  EXPECT_EQ(dialog->getWidget()->size(), before);
}

TEST_F(TopLevelDialogTest, manyRebuildsGiveTheSameResult)
{
  SoTopLevelDialog* loaded = load("TopLevelDialog { rowSpacing 3 margin 2 "
                                  "DialogPushButton { label \"Long label\" buttonLabel \"One\" height 60 } "
                                  "DialogPushButton { label \"L\" buttonLabel \"Two\" fixedWidth TRUE width 140 } "
                                  "DialogPushButton { buttonLabel \"Three\" labelVisibility FALSE maxWidth 90 } "
                                  "DialogLabel { label \"Words\" minHeight 40 fixedHeight TRUE } }");
  ASSERT_NE(loaded, nullptr);
  loaded->buildDialog(nullptr, FALSE);
  show(loaded);
  const QSize size = loaded->getWidget()->size();
  const std::vector<QRectF> plan = Plan::windowPlan(loaded);
  std::vector<QRect> buttons;
  for (int i = 0; i < 3; i++) {
    buttons.push_back(buttonOf(childOf(loaded, i))->geometry());
  }
  for (int round = 0; round < 4; round++) {
    loaded->updateAfterSceneGraphChange();
    settle();
    EXPECT_EQ(loaded->getWidget()->size(), size) << round;
    EXPECT_EQ(Plan::windowPlan(loaded), plan) << round;
    for (int i = 0; i < 3; i++) {
      EXPECT_EQ(buttonOf(childOf(loaded, i))->geometry(), buttons[static_cast<std::size_t>(i)]) << i;
    }
  }
}

TEST_F(TopLevelDialogTest, aRebuildOfALargerWindowKeepsWhatStandsInTheRows)
{
  fill("ab");
  dialog->buildDialog(nullptr, FALSE);
  show(dialog);
  dialog->getWidget()->resize(500, 200);
  settle();
  const QRect before = buttonOf(childOf(dialog, 0))->geometry();
  EXPECT_GT(before.width(), 480);
  dialog->updateAfterSceneGraphChange();
  settle();
  EXPECT_EQ(buttonOf(childOf(dialog, 0))->geometry(), before);
  EXPECT_EQ(childOf(dialog, 0)->width.getValue(), childOf(dialog, 0)->getWidget()->width());
}

TEST_F(TopLevelDialogTest, aRebuildInTheOtherFormKeepsWhatStandsInTheRows)
{
  fill("ab");
  dialog->buildDialog(nullptr, FALSE);
  show(dialog);
  dialog->getWidget()->resize(500, 200);
  settle();
  const QRect before = buttonOf(childOf(dialog, 0))->geometry();
  Scene scene;
  scene.open(dialog);
  settle();
  childOf(dialog, 0)->labelVisibility = FALSE;
  childOf(dialog, 0)->labelVisibility = TRUE;
  EXPECT_EQ(buttonOf(childOf(dialog, 0))->geometry(), before);
}

TEST_F(TopLevelDialogTest, theAuthorsSizesOfTheChildrenCountInEveryRebuild)
{
  dialog->windowResizedByChildren = TRUE;
  auto* tall = newButton("a");
  tall->height = 90;
  tall->width = 320;
  dialog->addChild(tall);
  fill("b");
  dialog->buildDialog(nullptr, FALSE);
  show(dialog);
  const QSize size = dialog->getWidget()->size();
  EXPECT_EQ(size.width(), 320);
  EXPECT_GT(size.height(), 100);
  dialog->updateAfterSceneGraphChange();
  settle();
  EXPECT_EQ(dialog->getWidget()->size(), size);
  EXPECT_EQ(tall->getWidget()->height(), 90);
}

TEST_F(TopLevelDialogTest, aFixedChildFollowsItsNewTextInARebuild)
{
  dialog->windowResizedByChildren = TRUE;
  auto* button = newButton("a");
  button->fixedWidth = TRUE;
  dialog->addChild(button);
  dialog->buildDialog(nullptr, FALSE);
  const int before = dialog->getWidget()->width();
  button->buttonLabel = "a very much longer text";
  dialog->updateAfterSceneGraphChange();
  EXPECT_GT(dialog->getWidget()->width(), before + 50);
}

TEST_F(TopLevelDialogTest, contradictoryAndAbsurdSizesBuildAWindow)
{
  SoTopLevelDialog* loaded =
    load("TopLevelDialog { width -4 height 2147483647 minWidth 500 maxWidth 100 minHeight -2147483648 maxHeight -1 "
         "margin -30 rowSpacing -5 "
         "DialogPushButton { width 2147483647 minWidth 2147483647 maxWidth 2147483647 } "
         "DialogPushButton { height -2147483648 maxHeight -7 minHeight 2147483647 } DialogLabel { } }");
  ASSERT_NE(loaded, nullptr);
  const std::string before = toText(loaded);
  QWidget* window = loaded->buildDialog(nullptr, FALSE);
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(loaded->width.getValue(), 100);
  loaded->updateAfterSceneGraphChange();
  EXPECT_EQ(toText(loaded), before);
  loaded->margin = 2147483647;
  loaded->rowSpacing = 2147483647;
  loaded->updateAfterSceneGraphChange();
  EXPECT_GT(loaded->getWidget()->height(), 0);
}

// Columns

TEST_F(TopLevelDialogTest, allRowsShareTheColumnOfTheWidestVisibleLabel)
{
  SoTopLevelDialog* loaded =
    load("TopLevelDialog { DialogPushButton { label \"A rather long label\" } "
         "DialogPushButton { label \"Short\" } "
         "DialogPushButton { label \"The longest label of them all\" labelVisibility FALSE } }");
  loaded->buildDialog(nullptr, FALSE);
  show(loaded);
  const SbVec2i32 widest = SoQuillform::getLabelPixelSize("A rather long label", nullptr);
  EXPECT_EQ(childOf(loaded, 0)->getLabelSize(), widest);
  EXPECT_EQ(childOf(loaded, 1)->getLabelSize(), SbVec2i32(widest[0], widest[1]));
  EXPECT_EQ(childOf(loaded, 2)->getLabelSize(), SbVec2i32(widest[0], 0));
  EXPECT_EQ(buttonOf(childOf(loaded, 0))->x(), widest[0] + 4);
  EXPECT_EQ(buttonOf(childOf(loaded, 1))->x(), widest[0] + 4);
  EXPECT_EQ(buttonOf(childOf(loaded, 2))->x(), 2);
}

TEST_F(TopLevelDialogTest, allRowsShareTheColumnOfTheWidestControl)
{
  SoTopLevelDialog* loaded =
    load("TopLevelDialog { DialogPushButton { buttonLabel \"A rather long text\" labelVisibility FALSE } "
         "DialogPushButton { label \"One\\ntwo\\nthree\\nfour\" buttonLabel \"x\" } }");
  const SbVec2i32 label = SoQuillform::getLabelPixelSize("One\\ntwo\\nthree\\nfour", nullptr);
  const SbVec2i32 wide = SoQuillform::getLabelPixelSize("A rather long text", nullptr) + SbVec2i32(12, 12);
  const SbVec2i32 narrow = SoQuillform::getLabelPixelSize("x", nullptr) + SbVec2i32(12, 12);
  loaded->buildDialog(nullptr, FALSE);
  const int column = std::max(wide[0] - label[0], narrow[0]);
  EXPECT_EQ(childOf(loaded, 0)->getComponentSize(), SbVec2i32(column, wide[1]));
  EXPECT_EQ(childOf(loaded, 1)->getComponentSize(), SbVec2i32(column, std::max(narrow[1], label[1])));
}

// Building

TEST_F(TopLevelDialogTest, theWindowHasItsNamesItsTitleAndAPlainLayout)
{
  dialog->label = "A \\\"title\\\" \xe9";
  dialog->rowSpacing = 6;
  dialog->margin = 9;
  fill("ab");
  QWidget* window = dialog->buildDialog(nullptr, FALSE);
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window, dialog->getWidget());
  EXPECT_EQ(window->objectName(), "SoTopLevelDialog");
  EXPECT_TRUE(window->isWindow());
  EXPECT_EQ(window->parentWidget(), nullptr);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(window->windowTitle(), QString::fromLatin1("A \"title\" \xe9"));
  EXPECT_EQ(window->layout(), dialog->getLayout());
  EXPECT_EQ(dialog->getLayout()->objectName(), "ZEPSoTopLevelDialogLayout");
  EXPECT_EQ(dialog->getLayout()->contentsMargins(), QMargins(0, 0, 0, 0));
  EXPECT_EQ(dialog->getLayout()->spacing(), 0);
  dialog->rowSpacing = 8;
  EXPECT_EQ(dialog->getLayout()->spacing(), 8);
  dialog->label = "Other";
  EXPECT_EQ(window->windowTitle(), "Other");
}

TEST_F(TopLevelDialogTest, aParentThatIsNotTakenOverIsNotTheWindowsParent)
{
  QWidget parent;
  QWidget* window = dialog->buildDialog(&parent, FALSE);
  EXPECT_NE(window, &parent);
  EXPECT_EQ(window->parentWidget(), nullptr);
}

TEST_F(TopLevelDialogTest, theWindowStandsTwentyPixelsLower)
{
  dialog->position = SbVec2i32(100, 50);
  QWidget* window = dialog->buildDialog(nullptr, FALSE);
  EXPECT_EQ(window->pos(), QPoint(100, 70));
  dialog->position = SbVec2i32(30, 40);
  EXPECT_EQ(window->pos(), QPoint(30, 60));
  dialog->position = SbVec2i32(30, 40);
  EXPECT_EQ(window->pos(), QPoint(30, 60));
  dialog->position = SbVec2i32(0, 2147483647);
  EXPECT_GT(window->pos().y(), 0);
}

TEST_F(TopLevelDialogTest, setPositionMovesNothingAndTheOriginIsNotWritten)
{
  QWidget* window = dialog->buildDialog(nullptr, FALSE);
  const QPoint before = window->pos();
  SbVec2i32 place(30, 40);
  dialog->setPosition(place);
  EXPECT_EQ(window->pos(), before);
  EXPECT_EQ(dialog->position.getValue(), place);
  EXPECT_NE(toText(dialog).find("position 30 40"), std::string::npos);
  place.setValue(0, 0);
  dialog->setPosition(place);
  EXPECT_TRUE(dialog->position.isDefault());
  EXPECT_EQ(toText(dialog).find("position"), std::string::npos);
  dialog->position = SbVec2i32(7, 8);
  EXPECT_EQ(window->pos(), QPoint(7, 28));
}

TEST_F(TopLevelDialogTest, insideAParentItTakesTheParentOver)
{
  QWidget parent;
  auto* layout = new QHBoxLayout(&parent);
  QPointer<QHBoxLayout> old(layout);
  fill("ab");
  dialog->label = "Inside";
  QWidget* base = dialog->buildDialog(&parent, TRUE);
  EXPECT_EQ(base, &parent);
  EXPECT_TRUE(old.isNull());
  EXPECT_EQ(parent.layout(), dialog->getLayout());
  EXPECT_EQ(parent.backgroundRole(), QPalette::Window);
  EXPECT_EQ(parent.windowTitle(), "Inside");
  EXPECT_EQ(parent.findChildren<QPushButton*>().size(), 2);
  dialog->show();
  EXPECT_FALSE(parent.isVisible());
  parent.show();
  dialog->hide();
  EXPECT_TRUE(parent.isVisible());
}

TEST_F(TopLevelDialogTest, aDialogWithoutAParentToGoInsideGetsAWindowAndSaysSo)
{
  const Messages messages;
  QWidget* window = dialog->buildDialog(nullptr, TRUE);
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(window->isWindow());
  EXPECT_EQ(messages.count("SoTopLevelDialog::buildDialog"), 1);
}

TEST_F(TopLevelDialogTest, showAndHideActOnItsOwnWindow)
{
  fill("a");
  dialog->show();
  dialog->hide();
  QWidget* window = dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  EXPECT_TRUE(window->isVisible());
  dialog->hide();
  EXPECT_FALSE(window->isVisible());
  dialog->show();
  EXPECT_TRUE(window->isVisible());
}

TEST_F(TopLevelDialogTest, buildingItAgainKeepsTheWindowItHas)
{
  fill("ab");
  QWidget* window = dialog->buildDialog(nullptr, FALSE);
  show(dialog);
  const std::vector<QRectF> plan = Plan::windowPlan(dialog);
  QWidget other;
  EXPECT_EQ(dialog->buildDialog(&other, TRUE), window);
  settle();
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(Plan::windowPlan(dialog), plan);
  EXPECT_TRUE(other.findChildren<QPushButton*>().empty());
}

TEST_F(TopLevelDialogTest, closeHidesItAndDropsOneReference)
{
  fill("a");
  QPointer<QWidget> window(dialog->buildDialog(nullptr, FALSE));
  dialog->show();
  dialog->ref();
  dialog->close();
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(dialog->getRefCount(), 1);
  dialog->close();
  dialog = nullptr;
  settle();
  EXPECT_TRUE(window.isNull());
}

TEST_F(TopLevelDialogTest, closingALoadedDialogLetsTheNextLoadReadAfresh)
{
  const std::string path = writeFile("fresh.iv", "TopLevelDialog { label \"First\" DialogPushButton { } }");
  auto* first = static_cast<SoTopLevelDialog*>(SoQuillform::loadFromFile(path.c_str(), ""));
  ASSERT_NE(first, nullptr);
  first->buildDialog(nullptr, FALSE);
  first->show();
  first->close();
  settle();
  writeFile("fresh.iv", "TopLevelDialog { label \"Second\" DialogPushButton { } }");
  SoQuillform* second = SoQuillform::loadFromFile(path.c_str(), "");
  ASSERT_NE(second, nullptr);
  EXPECT_STREQ(second->label.getValue().getString(), "Second");
}

TEST_F(TopLevelDialogTest, destroyDialogHidesAWindowOfItsOwn)
{
  fill("a");
  QWidget* window = dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  dialog->destroyDialog();
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(dialog->getRefCount(), 1);
}

TEST_F(TopLevelDialogTest, destroyDialogInsideAParentEndsTheProcess)
{
  EXPECT_EXIT(
    {
      // The application object never goes, and what it holds is no leak of this test.
      on_exit([](int status, void*) { _exit(status); }, nullptr);
      auto* parent = new QWidget;
      dialog->buildDialog(parent, TRUE);
      dialog->destroyDialog();
    },
    ::testing::ExitedWithCode(0), "");
}

TEST_F(TopLevelDialogTest, aReleasedNodeTakesItsShownWindowAlong)
{
  fill("ab");
  QPointer<QWidget> window(dialog->buildDialog(nullptr, FALSE));
  show(dialog);
  release();
  EXPECT_TRUE(window.isNull() || !window->isVisible());
  settle();
  EXPECT_TRUE(window.isNull());
}

TEST_F(TopLevelDialogTest, aReleasedNodeLeavesTheParentThatItTookOver)
{
  QWidget parent;
  fill("ab");
  dialog->buildDialog(&parent, TRUE);
  parent.show();
  release();
  settle();
  EXPECT_TRUE(parent.isVisible());
  EXPECT_TRUE(parent.findChildren<QPushButton*>().empty());
  parent.resize(500, 400);
  settle();
}

TEST_F(TopLevelDialogTest, aParentDeletedUnderABuiltDialogIsSurvived)
{
  auto* parent = new QWidget;
  fill("ab");
  dialog->buildDialog(parent, TRUE);
  parent->show();
  delete parent;
  EXPECT_EQ(dialog->getWidget(), nullptr);
  EXPECT_EQ(dialog->getLayout(), nullptr);
  EXPECT_EQ(childOf(dialog, 0)->getWidget(), nullptr);
  dialog->show();
  dialog->hide();
  dialog->label = "Nobody sees it";
  dialog->enable = FALSE;
  dialog->rowSpacing = 4;
  dialog->minWidth = 40;
  dialog->position = SbVec2i32(3, 4);
  childOf(dialog, 0)->buttonLabel = "x";
  childOf(dialog, 0)->label = "x";
  childOf(dialog, 0)->labelVisibility = FALSE;
  childOf(dialog, 0)->edgeStyle = SoDialogComponent::SHADOW_IN;
  childOf(dialog, 0)->enable = FALSE;
  fill("c");
  dialog->removeChild(1);
  QWidget again;
  dialog->buildDialog(&again, TRUE);
  again.show();
  settle();
  EXPECT_EQ(onScreen(dialog), "xc");
  EXPECT_FALSE(again.isEnabled());
}

TEST_F(TopLevelDialogTest, aDestroyedWindowIsBuiltAgain)
{
  fill("ab");
  QPointer<QWidget> first(dialog->buildDialog(nullptr, FALSE));
  show(dialog);
  dialog->destroyWidget();
  EXPECT_EQ(dialog->getWidget(), nullptr);
  EXPECT_EQ(childOf(dialog, 0)->getWidget(), nullptr);
  settle();
  EXPECT_TRUE(first.isNull());
  dialog->buildDialog(nullptr, FALSE);
  show(dialog);
  EXPECT_EQ(onScreen(dialog), "ab");
}

TEST_F(TopLevelDialogTest, finishingTheLibraryWithADialogOnScreenIsSafe)
{
  SoQuillform::init();
  SoTopLevelDialog* loaded = load("TopLevelDialog { DialogPushButton { buttonLabel \"OK\" } }");
  loaded->buildDialog(nullptr, FALSE);
  fill("a");
  dialog->buildDialog(nullptr, FALSE);
  show(loaded);
  show(dialog);
  SoQuillform::finish();
  SoQuillform::finish();
  settle();
  EXPECT_FALSE(SoQuillform::isInitialized());
  childOf(dialog, 0)->buttonLabel = "still here";
  EXPECT_EQ(onScreen(dialog), "still here");
  release();
  settle();
  SoQuillform::init();
  EXPECT_TRUE(SoQuillform::isInitialized());
}

TEST_F(TopLevelDialogTest, theWidgetsThatItRemembersMayDie)
{
  auto* widget = new QWidget;
  dialog->setCurrentFocusedWidget(widget);
  dialog->setCurrentScrolledWidget(widget);
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), widget);
  EXPECT_EQ(dialog->getCurrentScrolledWidget(), widget);
  delete widget;
  EXPECT_EQ(dialog->getCurrentFocusedWidget(), nullptr);
  EXPECT_EQ(dialog->getCurrentScrolledWidget(), nullptr);
}

// Children

TEST_F(TopLevelDialogTest, childrenAreReferencedOnceAndFreedWhenTheyLeave)
{
  const int before = SoQuillform::getInstanceCount();
  SoDialogPushButton* button = newButton("a");
  dialog->addChild(button);
  EXPECT_EQ(button->getRefCount(), 1);
  EXPECT_EQ(button->getParent(), dialog);
  EXPECT_EQ(dialog->getNumChildren(), 1);
  dialog->removeChild(0);
  EXPECT_EQ(SoQuillform::getInstanceCount(), before);
  dialog->buildDialog(nullptr, FALSE);
  button = newButton("a");
  dialog->addChild(button);
  EXPECT_EQ(button->getRefCount(), 1);
  dialog->replaceChild(0, newButton("b"));
  EXPECT_EQ(SoQuillform::getInstanceCount(), before + 1);
  dialog->removeAllChildren();
  EXPECT_EQ(SoQuillform::getInstanceCount(), before);
  fill("abc");
  EXPECT_EQ(SoQuillform::getInstanceCount(), before + 3);
  release();
  settle();
  EXPECT_EQ(SoQuillform::getInstanceCount(), before - 1);
}

TEST_F(TopLevelDialogTest, theListAnswersForEveryIndexAndNode)
{
  fill("ab");
  SoTopComponent* first = dialog->getChild(0);
  EXPECT_EQ(dialog->getChild(2), nullptr);
  EXPECT_EQ(dialog->getChild(-1), nullptr);
  EXPECT_EQ(dialog->findChild(first), 0);
  SoDialogPushButton* stranger = newButton("s");
  stranger->ref();
  EXPECT_EQ(dialog->findChild(stranger), -1);
  dialog->removeChild(stranger);
  dialog->removeChild(5);
  dialog->removeChild(-1);
  dialog->replaceChild(9, stranger);
  dialog->replaceChild(stranger, stranger);
  dialog->addChild(static_cast<SoTopComponent*>(nullptr));
  dialog->insertChild(static_cast<SoTopComponent*>(nullptr), 0);
  EXPECT_EQ(dialog->getNumChildren(), 2);
  EXPECT_EQ(dialog->getChild(0), first);
  EXPECT_EQ(stranger->getParent(), nullptr);
  stranger->unref();
}

TEST_F(TopLevelDialogTest, beforeTheBuildChildrenKeepTheOrderOfTheList)
{
  fill("bc");
  dialog->insertChild(newButton("a"), 0);
  dialog->insertChild(newButton("e"), 99);
  dialog->insertChild(newButton("d"), 3);
  dialog->removeChild(1);
  dialog->replaceChild(1, newButton("C"));
  dialog->buildDialog(nullptr, FALSE);
  show(dialog);
  EXPECT_EQ(onScreen(dialog), "aCde");
}

TEST_F(TopLevelDialogTest, afterTheBuildTheScreenFollowsTheList)
{
  fill("bc");
  dialog->buildDialog(nullptr, FALSE);
  show(dialog);
  const auto check = [this](const char* texts) {
    settle();
    EXPECT_EQ(onScreen(dialog), texts);
    EXPECT_EQ(dialog->getLayout()->count(), dialog->getNumChildren());
    EXPECT_EQ(dialog->getWidget()->findChildren<QPushButton*>().size(), dialog->getNumChildren());
    EXPECT_EQ(dialog->getWidget()->findChildren<QBoxLayout*>("ZEPSoDialogComponentLayout").size(),
              dialog->getNumChildren());
  };
  check("bc");
  dialog->insertChild(newButton("a"), 0);
  check("abc");
  dialog->addChild(newButton("e"));
  check("abce");
  dialog->insertChild(newButton("d"), 3);
  check("abcde");
  dialog->replaceChild(2, newButton("C"));
  check("abCde");
  dialog->replaceChild(dialog->getChild(0), newButton("A"));
  check("AbCde");
  dialog->removeChild(1);
  check("ACde");
  dialog->removeChild(dialog->getChild(3));
  check("ACd");
  dialog->removeAllChildren();
  check("");
  dialog->addChild(newButton("z"));
  check("z");
}

TEST_F(TopLevelDialogTest, rowsTouchEachOtherAfterARemoval)
{
  fill("abcd");
  dialog->windowResizedByChildren = TRUE;
  dialog->buildDialog(nullptr, FALSE);
  show(dialog);
  dialog->removeChild(1);
  dialog->removeChild(1);
  settle();
  const QRectF first = Plan::inWindow(dialog, childOf(dialog, 0));
  const QRectF last = Plan::inWindow(dialog, childOf(dialog, 1));
  EXPECT_EQ(first.top(), 0.0);
  EXPECT_EQ(last.top(), first.bottom());
  EXPECT_EQ(last.bottom(), dialog->getWidget()->height());
}

TEST_F(TopLevelDialogTest, aRemovedChildCanStandInAnotherDialog)
{
  fill("ab");
  dialog->buildDialog(nullptr, FALSE);
  SoTopComponent* child = dialog->getChild(0);
  child->ref();
  dialog->removeChild(0);
  EXPECT_EQ(child->getParent(), nullptr);
  auto* other = new SoTopLevelDialog;
  other->ref();
  other->addChild(child);
  child->unref();
  other->buildDialog(nullptr, FALSE);
  show(other);
  EXPECT_EQ(onScreen(other), "a");
  other->unref();
}

TEST_F(TopLevelDialogTest, onePlaceForANodeIsEnough)
{
  fill("a");
  const Messages messages;
  SoTopComponent* child = dialog->getChild(0);
  dialog->addChild(child);
  EXPECT_EQ(dialog->getNumChildren(), 1);
  EXPECT_EQ(messages.count("stands in a"), 1);
  auto* other = new SoTopLevelDialog;
  other->ref();
  other->addChild(child);
  other->insertChild(child, 0);
  EXPECT_EQ(other->getNumChildren(), 0);
  EXPECT_EQ(child->getParent(), dialog);
  EXPECT_EQ(child->getRefCount(), 1);
  other->unref();
  EXPECT_EQ(child->getParent(), dialog);
}

TEST_F(TopLevelDialogTest, nodesOfOtherTypesAreRefused)
{
  const Messages messages;
  auto* cube = new SoSeparator;
  cube->ref();
  dialog->addChild(static_cast<SoNode*>(cube));
  dialog->insertChild(static_cast<SoNode*>(cube), 0);
  auto* nested = new SoTopLevelDialog;
  nested->ref();
  dialog->addChild(static_cast<SoNode*>(nested));
  dialog->addChild(static_cast<SoNode*>(dialog));
  EXPECT_EQ(dialog->getNumChildren(), 0);
  EXPECT_EQ(messages.count("cannot stand in a"), 4);
  EXPECT_EQ(cube->getRefCount(), 1);
  EXPECT_EQ(nested->getRefCount(), 1);
  EXPECT_EQ(dialog->getRefCount(), 1);
  nested->unref();
  cube->unref();
}

TEST_F(TopLevelDialogTest, genericNodesGoToTheTypedOperations)
{
  SoNode* a = newButton("a");
  SoNode* b = newButton("b");
  SoNode* c = newButton("c");
  c->ref();
  dialog->addChild(a);
  dialog->insertChild(b, 0);
  EXPECT_EQ(dialog->getNumChildren(), 2);
  EXPECT_EQ(dialog->findChild(static_cast<const SoNode*>(a)), 1);
  EXPECT_EQ(dialog->findChild(static_cast<const SoNode*>(c)), -1);
  dialog->replaceChild(b, c);
  EXPECT_EQ(dialog->getChild(0), c);
  dialog->replaceChild(1, static_cast<SoNode*>(newButton("d")));
  dialog->removeChild(c);
  EXPECT_EQ(dialog->getNumChildren(), 1);
  EXPECT_EQ(c->getRefCount(), 1);
  c->unref();
}

TEST_F(TopLevelDialogTest, readingANodeTwiceGivesItOnePlace)
{
  const Messages messages;
  SoTopLevelDialog* loaded = load(
    "TopLevelDialog { DEF A DialogPushButton { buttonLabel \"a\" } DialogPushButton { buttonLabel \"b\" } USE A }");
  ASSERT_NE(loaded, nullptr);
  EXPECT_EQ(loaded->getNumChildren(), 2);
  EXPECT_GE(messages.count("stands in a"), 1);
  loaded->buildDialog(nullptr, FALSE);
  show(loaded);
  EXPECT_EQ(onScreen(loaded), "ab");
}

TEST_F(TopLevelDialogTest, readingAChildOfAnotherTypeFails)
{
  const Messages messages;
  EXPECT_EQ(load("TopLevelDialog { DialogPushButton { } Cube { } DialogPushButton { } }"), nullptr);
  EXPECT_GE(messages.count("dialog0.iv"), 1);
}

TEST_F(TopLevelDialogTest, readingItselfAsItsOwnChildIsRefused)
{
  const Messages messages;
  EXPECT_EQ(load("DEF T TopLevelDialog { DialogPushButton { } USE T }"), nullptr);
  EXPECT_GE(messages.count("dialog0.iv"), 1);
}

TEST_F(TopLevelDialogTest, readingBuildsNothing)
{
  SoTopLevelDialog* loaded = load("TopLevelDialog { DialogPushButton { } DialogPushButton { } }");
  EXPECT_EQ(loaded->getWidget(), nullptr);
  EXPECT_EQ(loaded->getChild(0)->isWidgetBuilt(), FALSE);
  EXPECT_EQ(loaded->getChild(0)->isBuilt3D(), 0);
}

TEST_F(TopLevelDialogTest, elementsAreFoundByTheirIdentifier)
{
  SoTopLevelDialog* loaded = load("TopLevelDialog { auditorID \"top\" DialogPushButton { auditorID \"a\" } "
                                  "DialogLabel { auditorID \"b\" } DialogPushButton { auditorID \"a\" } }");
  EXPECT_EQ(loaded->searchForAuditorId("a"), loaded->getChild(0));
  EXPECT_EQ(loaded->searchForAuditorId("b"), loaded->getChild(1));
  EXPECT_EQ(loaded->searchForAuditorId("top"), nullptr);
  EXPECT_EQ(loaded->searchForAuditorId("none"), nullptr);
}

// Enabling

TEST_F(TopLevelDialogTest, whatIsDisabledInTheFileIsDisabledFromTheFirstBuild)
{
  SoTopLevelDialog* loaded = load("TopLevelDialog { DialogPushButton { enable FALSE } DialogPushButton { } "
                                  "DialogLabel { enable FALSE } }");
  loaded->buildDialog(nullptr, FALSE);
  EXPECT_FALSE(childOf(loaded, 0)->getWidget()->isEnabled());
  EXPECT_TRUE(childOf(loaded, 1)->getWidget()->isEnabled());
  EXPECT_FALSE(static_cast<SoDialogComponent*>(loaded->getChild(2))->getWidget()->isEnabled());
}

TEST_F(TopLevelDialogTest, aDisabledDialogDisablesEverythingInIt)
{
  SoTopLevelDialog* loaded =
    load("TopLevelDialog { enable FALSE DialogPushButton { enable FALSE } DialogPushButton { } }");
  loaded->buildDialog(nullptr, FALSE);
  EXPECT_FALSE(loaded->getWidget()->isEnabled());
  EXPECT_FALSE(buttonOf(childOf(loaded, 1))->isEnabled());
  loaded->addChild(newButton("c"));
  EXPECT_FALSE(buttonOf(childOf(loaded, 2))->isEnabled());
  loaded->enable = TRUE;
  EXPECT_FALSE(buttonOf(childOf(loaded, 0))->isEnabled());
  EXPECT_TRUE(buttonOf(childOf(loaded, 1))->isEnabled());
  EXPECT_TRUE(buttonOf(childOf(loaded, 2))->isEnabled());
  childOf(loaded, 1)->enable = FALSE;
  EXPECT_FALSE(buttonOf(childOf(loaded, 1))->isEnabled());
}

TEST_F(TopLevelDialogTest, aChildAddedToABuiltDialogKeepsItsSize)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { width 600 DialogPushButton { } }");
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  auto* added = new SoDialogPushButton;
  added->height = 70;
  added->width = 150;
  added->fixedWidth = TRUE;
  added->fixedHeight = TRUE;
  dialog->addChild(added);
  settle();
  EXPECT_EQ(added->getWidget()->size(), QSize(150, 70));
  const std::string text = toText(dialog);
  EXPECT_NE(text.find("width 150"), std::string::npos) << text;
  EXPECT_NE(text.find("height 70"), std::string::npos) << text;
}

TEST_F(TopLevelDialogTest, aSeparatorTakesANewSizeAtTheNextBuildAndWritesIt)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { DialogPushButton { } DialogSeparator { } }");
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  settle();
  auto* separator = static_cast<SoDialogSeparator*>(dialog->getChild(1));
  separator->minHeight = 20;
  separator->maxHeight = 20;
  settle();
  EXPECT_EQ(separator->getWidget()->height(), 8);
  EXPECT_NE(toText(dialog).find("minHeight 20"), std::string::npos) << toText(dialog);
  dialog->updateAfterSceneGraphChange();
  settle();
  EXPECT_EQ(separator->getWidget()->height(), 20);
}

TEST_F(TopLevelDialogTest, aLabelWiderThanItsRowLeavesTheControlNoWidthAndNoLess)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { maxWidth 40 DialogPushButton { label \"A very long label\" "
                                  "minWidth 1 maxWidth 40 } DialogCheckBox { minWidth 1 maxWidth 40 } }");
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  settle();
  for (const QWidget* widget : dialog->getWidget()->findChildren<QWidget*>()) {
    EXPECT_GE(widget->width(), 0) << widget->objectName().toStdString();
    EXPECT_GE(widget->height(), 0) << widget->objectName().toStdString();
  }
}
