#include <QBoxLayout>
#include <QCheckBox>
#include <QPushButton>
#include <QTest>
#include <Quillform/Quillform.h>
#include <forms/Plan.h>
#include <support/HeardElements.h>
#include <support/Messages.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

/// A component with bounds of its own.
SoDialogLabel* labelWithMaximum(int maxHeight)
{
  auto* label = new SoDialogLabel;
  label->maxHeight = maxHeight;
  return label;
}

/// The rectangle of a component's 3D frame, from the top-left corner of its dialog's contents.
QRectF inScene(SoDialogComponent* component)
{
  const SbVec3f at = component->get3DParentTranslation();
  const SbVec2i32& size = component->get3DSize();
  return {at[0] - 4 - size[0] * 0.5, -at[1] - 23 - size[1] * 0.5, static_cast<qreal>(size[0]),
          static_cast<qreal>(size[1])};
}

} // namespace

class GroupTest : public QuillformTest {
protected:
  template <class Element>
  static Element* find(SoTopLevelDialog* dialog, const char* id)
  {
    return dynamic_cast<Element*>(dialog->searchForAuditorId(id));
  }
};

TEST_F(GroupTest, aFramedRowDialogHasMarginsOfThreePixelsAndAnUnframedOneNone)
{
  SoTopLevelDialog* dialog =
    open("TopLevelDialog { RowDialog { auditorID \"r\" edgeStyle SHADOW_IN DialogLabel { } } }");
  auto* row = find<SoRowDialog>(dialog, "r");
  ASSERT_NE(row, nullptr);
  QLayout* layout = row->getWidget()->layout();
  ASSERT_NE(layout, nullptr);
  EXPECT_EQ(layout->objectName(), "ZEP_SoColumnDialog_Layout");
  EXPECT_EQ(row->getWidget()->objectName(), "ZEPSoDialogGroupGroupWidget");
  EXPECT_EQ(layout->contentsMargins(), QMargins(3, 3, 3, 3));
  row->edgeStyle = SoDialogComponent::NONE;
  EXPECT_EQ(layout->contentsMargins(), QMargins(0, 0, 0, 0));
}

TEST_F(GroupTest, theLabelsOfARowDialogShareOneColumn)
{
  SoTopLevelDialog* dialog = open("TopLevelDialog { RowDialog { "
                                  "DialogCheckBox { auditorID \"a\" label \"Short\" } "
                                  "DialogCheckBox { auditorID \"b\" label \"A much longer label\" } } }");
  auto* a = find<SoDialogCheckBox>(dialog, "a");
  auto* b = find<SoDialogCheckBox>(dialog, "b");
  EXPECT_EQ(a->getLabelSize()[0], b->getLabelInitSize()[0]);
  EXPECT_EQ(a->getLabelSize()[0], b->getLabelSize()[0]);
}

TEST_F(GroupTest, theColumnsOfAColumnDialogKeepTheirWidths)
{
  SoTopLevelDialog* dialog =
    open("TopLevelDialog { ColumnDialog { auditorID \"c\" "
         "DialogPushButton { auditorID \"a\" labelVisibility FALSE buttonLabel \"No\" } "
         "DialogPushButton { auditorID \"b\" labelVisibility FALSE buttonLabel \"A longer one\" } } }");
  auto* a = find<SoDialogPushButton>(dialog, "a");
  auto* b = find<SoDialogPushButton>(dialog, "b");
  EXPECT_LT(a->getComponentSize()[0], b->getComponentSize()[0]);
  EXPECT_EQ(Plan::inWindow(dialog, a).right(), Plan::inWindow(dialog, b).left());
  auto* column = find<SoColumnDialog>(dialog, "c");
  EXPECT_EQ(column->getWidget()->layout()->objectName(), "ZEPSoColumnDialogLayout");
}

TEST_F(GroupTest, theMaximumDoesNotSaturate)
{
  auto* row = new SoRowDialog;
  row->ref();
  row->margin = 2;
  row->rowSpacing = 3;
  row->addChild(labelWithMaximum(20000));
  row->addChild(labelWithMaximum(20000));
  SbVec2i32 size(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  row->getDefaultSize(size, min, max);
  EXPECT_EQ(max[1], 20000 + 2 * 2 + 3);
  row->unref();
}

TEST_F(GroupTest, anEmptyRowDialogHasANegativeGapBeforeItsBorder)
{
  auto* row = new SoRowDialog;
  row->ref();
  row->margin = 2;
  row->rowSpacing = 7;
  SbVec2i32 size(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  row->getDefaultSize(size, min, max);
  EXPECT_EQ(size[1], 2 * 2 - 7);
  row->getSize(size, min, max);
  EXPECT_EQ(size[1], 2 * 2 - 7 + 6);
  row->unref();
}

TEST_F(GroupTest, theBorderIsCappedOnlyWhenItIsAddedOnce)
{
  auto* row = new SoRowDialog;
  row->ref();
  SbVec2i32 size(32761, 32762);
  row->fixSizeWithBorder(size, 1);
  EXPECT_EQ(size, SbVec2i32(32767, 32767));
  size.setValue(32761, 100);
  row->fixSizeWithBorder(size, 2);
  EXPECT_EQ(size, SbVec2i32(32773, 112));
  row->unref();
}

TEST_F(GroupTest, aSeparatorLiesAcrossARowDialogAndStandsInAColumnDialog)
{
  SoTopLevelDialog* dialog =
    open("TopLevelDialog { RowDialog { DialogLabel { label \"x\" } DialogSeparator { auditorID \"h\" } } "
         "ColumnDialog { DialogLabel { label \"x\" } DialogSeparator { auditorID \"v\" } } }");
  const auto line = [](QWidget* relay) {
    return relay->findChild<QFrame*>("ZEPSoDialogQSeparatorFrameWidget");
  };
  auto* across = find<SoDialogSeparator>(dialog, "h");
  auto* upright = find<SoDialogSeparator>(dialog, "v");
  EXPECT_EQ(line(across->getWidget())->frameShape(), QFrame::HLine);
  EXPECT_EQ(across->getWidget()->height(), 8);
  EXPECT_EQ(line(upright->getWidget())->frameShape(), QFrame::VLine);
  EXPECT_EQ(upright->getWidget()->width(), 8);
}

TEST_F(GroupTest, aSeparatorIgnoresItsWidthOnceItIsBuilt)
{
  SoTopLevelDialog* dialog = open("TopLevelDialog { RowDialog { DialogSeparator { auditorID \"h\" } } }");
  auto* separator = find<SoDialogSeparator>(dialog, "h");
  const QSize before = separator->getWidget()->size();
  separator->width = 12;
  settle();
  EXPECT_EQ(separator->getWidget()->size(), before);
}

TEST_F(GroupTest, aControlAddedToANestedGroupRebuildsTheDialogFromTheTop)
{
  SoTopLevelDialog* dialog = open("TopLevelDialog { RowDialog { ColumnDialog { auditorID \"c\" "
                                  "DialogLabel { label \"x\" } } } }");
  auto* column = find<SoColumnDialog>(dialog, "c");
  auto* button = new SoDialogPushButton;
  button->buttonLabel = "A button that needs room";
  column->addChild(button);
  settle();
  ASSERT_NE(button->getWidget(), nullptr);
  EXPECT_TRUE(button->getWidget()->isVisible());
  EXPECT_GE(dialog->getWidget()->width(), button->minWidth.getValue());
  EXPECT_EQ(button->getWidget()->window(), dialog->getWidget());
}

TEST_F(GroupTest, aDisabledGroupDisablesItsControlsAndEnablingItRestoresOnlyThose)
{
  SoTopLevelDialog* dialog =
    open("TopLevelDialog { RowDialog { auditorID \"r\" enable FALSE "
         "DialogPushButton { auditorID \"a\" } DialogPushButton { auditorID \"b\" enable FALSE } } }");
  auto* row = find<SoRowDialog>(dialog, "r");
  QWidget* a = find<SoDialogPushButton>(dialog, "a")->getWidget();
  QWidget* b = find<SoDialogPushButton>(dialog, "b")->getWidget();
  EXPECT_FALSE(a->isEnabled());
  EXPECT_FALSE(b->isEnabled());
  row->enable = TRUE;
  EXPECT_TRUE(a->isEnabled());
  EXPECT_FALSE(b->isEnabled());
  row->enable = FALSE;
  EXPECT_FALSE(a->isEnabled());
}

TEST_F(GroupTest, theControlsOfADisabledGroupCannotBePickedInTheScene)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { RowDialog { auditorID \"r\" enable FALSE "
                                  "DialogPushButton { auditorID \"a\" buttonLabel \"A\" } } }");
  HeardElements heard;
  dialog->addAuditor(&heard);
  Scene scene;
  scene.open(dialog);
  auto* button = find<SoDialogPushButton>(dialog, "a");
  scene.click(button);
  EXPECT_TRUE(heard.ids.empty());
  find<SoRowDialog>(dialog, "r")->enable = TRUE;
  scene.click(button);
  EXPECT_EQ(heard.ids, std::vector<std::string>{"a"});
}

TEST_F(GroupTest, aGroupsAuditorHearsInsteadOfTheDialogs)
{
  SoTopLevelDialog* dialog = open("TopLevelDialog { RowDialog { auditorID \"r\" "
                                  "DialogPushButton { auditorID \"a\" buttonLabel \"A\" } } }");
  HeardElements outer;
  dialog->addAuditor(&outer);
  QPushButton* button = find<SoDialogPushButton>(dialog, "a")->getWidget()->findChild<QPushButton*>();
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(outer.ids.size(), 1U);
  HeardElements inner;
  find<SoRowDialog>(dialog, "r")->addAuditor(&inner);
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(outer.ids.size(), 1U);
  EXPECT_EQ(inner.ids, std::vector<std::string>{"a"});
}

TEST_F(GroupTest, applyAuditorsReachesEveryControlOnceInOrder)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { DialogPushButton { auditorID \"a\" } "
                                  "RowDialog { DialogCheckBox { auditorID \"b\" } ColumnDialog { "
                                  "DialogPushButton { auditorID \"c\" } } } DialogPushButton { auditorID \"d\" } }");
  HeardElements heard;
  dialog->addAuditor(&heard);
  dialog->applyAuditors();
  EXPECT_EQ(heard.ids, (std::vector<std::string>{"a", "b", "c", "d"}));
}

TEST_F(GroupTest, aNodeThatWouldContainItselfIsRefused)
{
  const Messages messages;
  auto* outer = new SoRowDialog;
  outer->ref();
  auto* inner = new SoColumnDialog;
  outer->addChild(inner);
  inner->addChild(outer);
  EXPECT_EQ(inner->getNumChildren(), 0);
  outer->addChild(outer);
  EXPECT_EQ(outer->getNumChildren(), 1);
  EXPECT_EQ(messages.count("cannot stand inside itself"), 2);
  outer->unref();
}

TEST_F(GroupTest, aFileInWhichAGroupContainsItselfLosesThatPlaceWithAMessage)
{
  const Messages messages;
  SoTopLevelDialog* dialog =
    load("TopLevelDialog { DEF A RowDialog { DEF B ColumnDialog { USE A } DialogLabel { label \"x\" } } }");
  EXPECT_EQ(messages.count("cannot stand inside itself"), 1);
  ASSERT_NE(dialog, nullptr);
  ASSERT_EQ(dialog->getNumChildren(), 1);
  auto* row = static_cast<SoRowDialog*>(dialog->getChild(0));
  ASSERT_EQ(row->getNumChildren(), 2);
  EXPECT_EQ(static_cast<SoColumnDialog*>(row->getChild(0))->getNumChildren(), 0);
}

TEST_F(GroupTest, aGroupInsideWhichAPlaceWasLostCanStillBeNamed)
{
  Messages messages;
  SoTopLevelDialog* dialog = load("TopLevelDialog { DEF A RowDialog { DEF B ColumnDialog { USE A } } USE B USE A }");
  EXPECT_EQ(messages.count("cannot stand inside itself"), 1);
  EXPECT_EQ(messages.count("use a copy"), 2); // both have their places already
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->getNumChildren(), 1);
}

TEST_F(GroupTest, aMinimumThatGrowsWhileTheWindowIsOpenGivesThePlanOfAWindowOpenedAnew)
{
  // The separator's minimum is more than it can have: its neighbours get what that makes the group larger.
  SoTopLevelDialog* dialog = open("TopLevelDialog { width 400 height 400 RowDialog { "
                                  "DialogRadioButtons { items [ \"a\", \"b\" ] } "
                                  "DialogSeparator { auditorID \"s\" } ColumnDialog { DialogCustom { } } } }");
  find<SoDialogSeparator>(dialog, "s")->minHeight = 300;
  dialog->updateAfterSceneGraphChange();
  settle();
  auto* fresh = static_cast<SoTopLevelDialog*>(dialog->copy());
  fresh->ref();
  fresh->buildDialog(nullptr, FALSE);
  fresh->show();
  settle();
  EXPECT_GT(dialog->getWidget()->height(), 400);
  const std::vector<QRectF> plan = Plan::windowPlan(dialog);
  const std::vector<QRectF> freshPlan = Plan::windowPlan(fresh);
  ASSERT_EQ(plan.size(), freshPlan.size());
  for (std::size_t i = 0; i < plan.size(); i++) {
    EXPECT_EQ(plan[i], freshPlan[i]) << i << ": " << Plan::toString(plan[i]) << Plan::toString(freshPlan[i]);
  }
  fresh->unref();
}

TEST_F(GroupTest, bothFormsHaveTheSamePlan)
{
  const char* const text =
    "TopLevelDialog { margin 5 DialogLabel { label \"Above\" } "
    "RowDialog { edgeStyle SHADOW_IN rowSpacing 3 margin 2 "
    "  DialogCheckBox { label \"Axes:\" onString \"shown\" } DialogSeparator { } "
    "  DialogPushButton { label \"B\" buttonLabel \"Press\" fixedWidth TRUE width 120 } } "
    "ColumnDialog { columnSpacing 4 "
    "  DialogPushButton { labelVisibility FALSE buttonLabel \"Left\" fixedHeight TRUE } DialogSeparator { } "
    "  RowDialog { edgeStyle SHADOW_OUT DialogCheckBox { labelVisibility FALSE onString \"one\" } } "
    "  DialogPushButton { label \"R\" buttonLabel \"Right\" maxHeight 30 } } }";
  SoTopLevelDialog* dialog = open(text);
  ASSERT_NE(dialog, nullptr);
  SoTopLevelDialog* sceneDialog = load(text);
  Scene scene;
  scene.open(sceneDialog);
  int compared = 0;
  const std::function<void(SoQuillform*, SoQuillform*)> compare = [&](SoQuillform* window, SoQuillform* inTheScene) {
    for (int i = 0; window->getChildElements() && i < window->getChildElements()->getNum(); i++) {
      auto* a = static_cast<SoDialogComponent*>(window->getChildElements()->get(i));
      auto* b = static_cast<SoDialogComponent*>(inTheScene->getChildElements()->get(i));
      EXPECT_EQ(Plan::inWindow(dialog, a), inScene(b)) << a->getTypeId().getName().getString() << " " << i;
      ++compared;
      compare(a, b);
    }
  };
  compare(dialog, sceneDialog);
  EXPECT_EQ(compared, 11);
}

TEST_F(GroupTest, nestedGroupsAreWrittenAsTheyWereRead)
{
  const std::string text = "TopLevelDialog { RowDialog { rowSpacing 2 ColumnDialog { columnSpacing 3 "
                           "DialogCheckBox { state TRUE onString \"on\" } } DialogSeparator { } } }";
  SoTopLevelDialog* dialog = load(text);
  dialog->ref();
  const std::string before = toText(dialog);
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  settle();
  Scene scene;
  scene.open(dialog);
  EXPECT_EQ(toText(dialog), before);
  SoNode* copy = dialog->copy();
  copy->ref();
  EXPECT_EQ(toText(copy), before);
  copy->unref();
  dialog->unrefNoDelete();
}

TEST_F(GroupTest, aCustomControlHasAFrameOnceItIsBuiltAndKeepsItsContents)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { DialogCustom { auditorID \"c\" width 100 height 50 } }");
  auto* custom = find<SoDialogCustom>(dialog, "c");
  EXPECT_EQ(custom->getWidget(), nullptr);
  dialog->buildDialog(nullptr, FALSE);
  ASSERT_NE(custom->getWidget(), nullptr);
  QBoxLayout* layout = custom->getLayout();
  EXPECT_EQ(layout->objectName(), "ZEPSoDialogQCustomLayout");
  EXPECT_EQ(layout->spacing(), 0);
  EXPECT_EQ(layout->contentsMargins(), QMargins(0, 0, 0, 0));
  QPointer<QWidget> own = new QWidget;
  layout->addWidget(own);
  dialog->addChild(new SoDialogLabel);
  settle();
  ASSERT_FALSE(own.isNull());
  EXPECT_EQ(own->parentWidget(), custom->getWidget());
}

TEST_F(GroupTest, absurdMarginsAndSpacingsAreNoOverflow)
{
  for (const char* absurd : {"2147483647", "-2147483647"}) {
    SoTopLevelDialog* dialog =
      load(std::string("TopLevelDialog { maxWidth 300 maxHeight 300 RowDialog { margin ") + absurd + " rowSpacing " +
           absurd + " DialogLabel { } DialogLabel { } DialogLabel { } } ColumnDialog { margin " + absurd +
           " columnSpacing " + absurd + " DialogLabel { } DialogLabel { } DialogLabel { } } }");
    ASSERT_NE(dialog, nullptr);
    dialog->buildDialog(nullptr, FALSE);
    dialog->show();
    settle();
    EXPECT_LE(dialog->getWidget()->width(), 300);
    EXPECT_LE(dialog->getWidget()->height(), 300);
  }
}
