#include <Inventor/lists/SoFieldList.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QDirIterator>
#include <Quillform/Quillform.h>
#include <forms/Plan.h>
#include <functional>
#include <limits>
#include <support/SamePlan.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

SoTopLevelDialog* copyOf(SoTopLevelDialog* dialog)
{
  auto* copy = static_cast<SoTopLevelDialog*>(dialog->copy());
  copy->ref();
  return copy;
}

} // namespace

class SamePlanTest : public QuillformTest {
protected:
  /// Builds one copy of the dialog as a window and one in the scene, and both forms of a third, and compares.
  void check(SoTopLevelDialog* dialog, const std::string& where)
  {
    ASSERT_NE(dialog, nullptr) << where;
    const auto nothing = [](SoTopLevelDialog*) {
    };
    checkAfter(dialog, where, nothing);
  }

  void checkAfter(SoTopLevelDialog* dialog, const std::string& where,
                  const std::function<void(SoTopLevelDialog*)>& change)
  {
    SoTopLevelDialog* window = copyOf(dialog);
    SoTopLevelDialog* inScene = copyOf(dialog);
    SoTopLevelDialog* both = copyOf(dialog);
    {
      Scene scene;
      window->buildDialog(nullptr, FALSE);
      window->show();
      scene.open(inScene);
      both->buildDialog(nullptr, FALSE);
      both->show();
      settle();
      scene.open(both);
      settle();
      change(window);
      change(inScene);
      change(both);
      settle();
      expectSamePlan(window, inScene, where + " (two dialogs)");
      expectSamePlan(both, both, where + " (both forms)");
      window->updateAfterSceneGraphChange();
      inScene->updateAfterSceneGraphChange();
      both->updateAfterSceneGraphChange();
      settle();
      expectSamePlan(window, inScene, where + " (two dialogs, rebuilt)");
      expectSamePlan(both, both, where + " (both forms, rebuilt)");
    }
    window->unref();
    inScene->unref();
    both->unref();
    settle();
  }

  void checkText(const std::string& text)
  {
    check(load(text), text);
  }
};

TEST_F(SamePlanTest, theExamplesHaveOnePlanInBothForms)
{
  QDirIterator files(QUILLFORM_TEST_EXAMPLES, {"*.iv"}, QDir::Files, QDirIterator::Subdirectories);
  int count = 0;
  while (files.hasNext()) {
    const std::string path = files.next().toStdString();
    SoQuillform* loaded = SoQuillform::loadFromFile(path.c_str(), "");
    if (auto* dialog = dynamic_cast<SoTopLevelDialog*>(loaded)) {
      ++count;
      check(dialog, path);
    }
    else {
      EXPECT_NE(dynamic_cast<SoMessageDialog*>(loaded), nullptr) << path; // a message has no plan
    }
  }
  EXPECT_GT(count, 0);
}

namespace {
const std::string rows = "DialogPushButton { label \"A label\" buttonLabel \"A button\" } "
                         "DialogPushButton { label \"Two\\nlines\" buttonLabel \"B\" } "
                         "DialogLabel { label \"Some words\" } ";
}

TEST_F(SamePlanTest, dialogsLargerThanTheirDefault)
{
  checkText("TopLevelDialog { width 500 height 400 " + rows + "}");
  checkText("TopLevelDialog { width 501 height 403 " + rows + "}");
  checkText("TopLevelDialog { height 131 " + rows + "}");
}

TEST_F(SamePlanTest, dialogsSmallerThanTheirDefault)
{
  checkText("TopLevelDialog { width 100 height 90 " + rows + "}");
  checkText("TopLevelDialog { minWidth 10 minHeight 10 width 60 height 40 " + rows + "}");
  checkText("TopLevelDialog { maxWidth 80 maxHeight 60 " + rows + "}");
}

TEST_F(SamePlanTest, marginsAndSpacing)
{
  checkText("TopLevelDialog { margin 20 rowSpacing 11 " + rows + "}");
  checkText("TopLevelDialog { margin 7 width 400 " + rows + "}");
  checkText("TopLevelDialog { margin -3 rowSpacing -2 " + rows + "}");
}

TEST_F(SamePlanTest, hiddenLabels)
{
  checkText("TopLevelDialog { " + rows +
            "DialogPushButton { label \"Hidden\" buttonLabel \"C\" labelVisibility FALSE } "
            "DialogPushButton { buttonLabel \"No label\" } }");
}

TEST_F(SamePlanTest, fixedSizes)
{
  checkText("TopLevelDialog { width 400 height 300 " + rows +
            "DialogPushButton { fixedWidth TRUE width 100 } DialogPushButton { fixedHeight TRUE height 50 } "
            "DialogPushButton { fixedWidth TRUE fixedHeight TRUE width 333 height 44 } "
            "DialogLabel { label \"Fixed\" fixedWidth TRUE fixedHeight TRUE width 60 height 30 } }");
  checkText("TopLevelDialog { DialogPushButton { fixedWidth TRUE } DialogPushButton { fixedHeight TRUE } }");
}

TEST_F(SamePlanTest, explicitSizes)
{
  checkText("TopLevelDialog { DialogPushButton { width 300 height 80 label \"L\" buttonLabel \"Large\" } "
            "DialogPushButton { width 30 height 10 label \"Long label\" buttonLabel \"Small\" } "
            "DialogLabel { width 30 height 10 label \"A text that is far too long for its place\" } }");
}

TEST_F(SamePlanTest, limits)
{
  checkText("TopLevelDialog { width 500 height 300 " + rows +
            "DialogPushButton { maxWidth 90 buttonLabel \"Narrow\" } DialogPushButton { maxHeight 30 } "
            "DialogPushButton { minWidth 450 } DialogLabel { label \"Low\" maxHeight 26 } "
            "DialogLabel { label \"Tall\" minHeight 90 } }");
  checkText("TopLevelDialog { maxWidth 0 maxHeight 0 DialogPushButton { maxWidth 120 maxHeight 40 width 200 } "
            "DialogPushButton { maxWidth 200 } }");
}

TEST_F(SamePlanTest, contradictoryLimits)
{
  checkText("TopLevelDialog { width 500 height 300 DialogPushButton { minWidth 300 maxWidth 100 buttonLabel \"X\" } "
            "DialogPushButton { minHeight 80 maxHeight 30 buttonLabel \"Y\" } }");
  checkText("TopLevelDialog { minWidth 300 maxWidth 200 minHeight 200 maxHeight 100 " + rows + "}");
}

TEST_F(SamePlanTest, absurdSizes)
{
  checkText("TopLevelDialog { width 300 height 200 DialogPushButton { minHeight -40 width -7 maxWidth -9 height 0 } "
            "DialogPushButton { maxWidth 2147483647 } }");
}

TEST_F(SamePlanTest, edgesAndEmptyTexts)
{
  checkText("TopLevelDialog { label \"Title\" DialogPushButton { edgeStyle SHADOW_IN label \"E\" buttonLabel \"F\" } "
            "DialogPushButton { edgeStyle SHADOW_OUT } DialogLabel { } DialogLabel { label \" \" } }");
}

TEST_F(SamePlanTest, unequalRowsThatShareTheRest)
{
  for (int height = 100; height < 108; height++) {
    checkText("TopLevelDialog { height " + std::to_string(height) + " " + rows + "}");
  }
}

TEST_F(SamePlanTest, notResizable)
{
  checkText("TopLevelDialog { resizable FALSE width 333 " + rows + "}");
}

TEST_F(SamePlanTest, afterEveryChangeOfARowThatLaysOutAgain)
{
  const std::string text = "TopLevelDialog { width 400 height 250 " + rows + "}";
  const auto button = [](SoTopLevelDialog* dialog) {
    return static_cast<SoDialogPushButton*>(dialog->getChild(0));
  };
  checkAfter(load(text), "labelVisibility", [&](SoTopLevelDialog* dialog) { button(dialog)->labelVisibility = FALSE; });
  checkAfter(load(text), "label", [&](SoTopLevelDialog* dialog) { button(dialog)->label = "A\\nB\\nC"; });
  checkAfter(load(text), "labelAlignment",
             [&](SoTopLevelDialog* dialog) { button(dialog)->labelAlignment = SoQuillform::LEFT; });
  checkAfter(load(text), "buttonLabel",
             [&](SoTopLevelDialog* dialog) { button(dialog)->buttonLabel = "A very, very long text on a button"; });
  checkAfter(load(text), "edgeStyle",
             [&](SoTopLevelDialog* dialog) { button(dialog)->edgeStyle = SoDialogComponent::SHADOW_IN; });
  checkAfter(load(text), "rowSpacing", [&](SoTopLevelDialog* dialog) { dialog->rowSpacing = 15; });
  checkAfter(load(text), "position3D",
             [&](SoTopLevelDialog* dialog) { dialog->position3D.setValue(30.0F, 20.0F, 5.0F); });
}

TEST_F(SamePlanTest, afterEveryChangeOfTheContents)
{
  const std::string text = "TopLevelDialog { windowResizedByChildren TRUE rowSpacing 2 " + rows + "}";
  checkAfter(load(text), "addChild", [](SoTopLevelDialog* dialog) {
    auto* added = new SoDialogPushButton;
    added->buttonLabel = "Added";
    added->label = "A label longer than the others";
    dialog->addChild(added);
  });
  checkAfter(load(text), "insertChild", [](SoTopLevelDialog* dialog) {
    auto* added = new SoDialogLabel;
    added->label = "In front";
    dialog->insertChild(added, 0);
  });
  checkAfter(load(text), "removeChild", [](SoTopLevelDialog* dialog) { dialog->removeChild(1); });
  checkAfter(load(text), "replaceChild", [](SoTopLevelDialog* dialog) {
    auto* added = new SoDialogPushButton;
    added->height = 70;
    dialog->replaceChild(1, added);
  });
}

TEST_F(SamePlanTest, slidersInRowsAndColumnsAlsoAfterARowWasAdded)
{
  const std::string sliders = "DialogIntegerSlider { label \"A\" } DialogRealSlider { label \"A longer label\" } ";
  const std::string contents = sliders + "DialogPushButton { buttonLabel \"B\" } RowDialog { edgeStyle SHADOW_IN " +
                               sliders + "DialogSeparator { } } ColumnDialog { columnSpacing 3 " + sliders +
                               "DialogSeparator { } DialogPushButton { fixedHeight TRUE } } ";
  for (const std::string size : {"", "width 600 height 500 ", "width 10 height 10 ",
                                 "minWidth 5 minHeight 5 height 70 ", "margin 5 rowSpacing 3 "}) {
    const std::string text = "TopLevelDialog { " + size + contents + "}";
    checkText(text);
    checkAfter(load(text), "addChild to " + text, [](SoTopLevelDialog* dialog) {
      auto* added = new SoDialogIntegerSlider;
      added->label = "Added";
      dialog->addChild(added);
    });
  }
}

TEST_F(SamePlanTest, rowsThatNeedMoreThanTheirMinimumDoNotOverlap)
{
  for (const std::string size : {"", "width 10 height 10 ", "resizable FALSE width 10 height 10 "}) {
    SoTopLevelDialog* window = load("TopLevelDialog { " + size +
                                    "DialogIntegerSlider { label \"A\" } DialogSeparator { } DialogRealSlider { } "
                                    "DialogSeparator { } DialogPushButton { buttonLabel \"B\" } }");
    SoTopLevelDialog* inScene = copyOf(window);
    Scene scene;
    scene.open(inScene);
    window->buildDialog(nullptr, FALSE);
    window->show();
    settle();
    const auto expectNoOverlap = [&](const std::string& where) {
      for (const auto& plan : {Plan::windowPlan(window), Plan::scenePlan(inScene)}) {
        for (std::size_t i = 1; i < plan.size(); i++) {
          EXPECT_GE(plan[i].top(), plan[i - 1].bottom()) << where << " " << size << i;
        }
        EXPECT_LE(plan.back().bottom(), window->getWidget()->height()) << where << " " << size;
      }
      expectSamePlan(window, inScene, where + " " + size);
    };
    expectNoOverlap("built");
    for (SoTopLevelDialog* dialog : {window, inScene}) {
      dialog->addChild(new SoDialogIntegerSlider); // the window keeps its size if it can
    }
    settle();
    expectNoOverlap("added");
    window->getWidget()->resize(1, 1);
    settle();
    EXPECT_EQ(window->getWidget()->size(), QSize(window->minWidth.getValue(), window->minHeight.getValue()));
    const auto smallest = Plan::windowPlan(window);
    EXPECT_LE(smallest.back().bottom(), window->getWidget()->height()) << size;
    inScene->unref();
  }
}

namespace {

typedef std::function<QRectF(SoDialogComponent*)> RectOf;

/// What stands in \a container neither overlaps nor reaches beyond it; of a tab dialog the page in front is looked at.
void expectRoomInside(const SoQuillform* container, const QRectF& room, const RectOf& rectOf, const std::string& where)
{
  const SoChildElements* children = container->getChildElements();
  const auto* tabs = dynamic_cast<const SoTabDialog*>(container);
  std::vector<QRectF> before;
  for (int i = 0; children && i < children->getNum(); i++) {
    auto* child = dynamic_cast<SoDialogComponent*>(children->get(i));
    if (!child || (tabs && i != tabs->selectedPage.getValue())) {
      continue;
    }
    const std::string name = where + " " + child->getTypeId().getName().getString() + std::to_string(i);
    const QRectF rect = rectOf(child);
    EXPECT_TRUE(Plan::stands(rect, room)) << name;
    for (const QRectF& other : before) {
      const QRectF common = rect & other;
      EXPECT_FALSE(common.width() > 0.5 && common.height() > 0.5) << name << Plan::toString(common);
    }
    before.push_back(rect);
    expectRoomInside(child, rect, rectOf, name);
  }
}

} // namespace

TEST_F(SamePlanTest, groupsAtTheirMinimumLeaveRoomForTheirContents)
{
  const std::string controls = "DialogIntegerSlider { label \"A\" } DialogSeparator { } "
                               "DialogRadioButtons { label \"Side\" items [ \"left\", \"right\", \"both\" ] } "
                               "DialogSeparator { } DialogRealSlider { } DialogPushButton { buttonLabel \"B\" } ";
  const std::string rowDialog = "RowDialog { rowSpacing 2 " + controls + "} ";
  const std::string columnDialog = "ColumnDialog { columnSpacing 3 edgeStyle SHADOW_IN " + controls + "} ";
  for (const std::string& contents :
       {rowDialog, columnDialog, rowDialog + columnDialog + rowDialog, "ColumnDialog { " + rowDialog + rowDialog + "} ",
        "RowDialog { margin 4 edgeStyle SHADOW_OUT " + columnDialog + columnDialog + "} " + controls,
        "TabDialog { " + rowDialog + columnDialog + "} " + rowDialog,
        "ColumnDialog { TabDialog { tabsLocation LEFT selectedPage 1 " + columnDialog + rowDialog + "} " + rowDialog +
          "} "}) {
    for (const std::string size : {"", "width 10 height 10 ", "resizable FALSE width 10 height 10 "}) {
      const std::string text = "TopLevelDialog { " + size + contents + "}";
      SoTopLevelDialog* dialog = open(text);
      Scene scene;
      const auto expectRoom = [&](const std::string& when) {
        const QSize window = dialog->getWidget()->size();
        expectRoomInside(
          dialog, QRectF(QPointF(0, 0), window),
          [dialog](SoDialogComponent* child) { return Plan::inWindow(dialog, child); }, "window " + when + text);
      };
      expectRoom("built: ");
      dialog->getWidget()->resize(1, 1);
      settle();
      expectRoom("made small: ");
      dialog->updateAfterSceneGraphChange();
      settle();
      expectRoom("rebuilt: ");
      scene.open(dialog);
      const QSizeF room(dialog->width.getValue(), dialog->height.getValue());
      expectRoomInside(
        dialog, QRectF(QPointF(0, 0), room),
        [dialog](SoDialogComponent* child) { return Plan::inScene(dialog, child); }, "scene: " + text);
      if (text.find("tabsLocation") == std::string::npos) { // the window has its tabs above the pages
        expectSamePlan(dialog, dialog, text);
      }
      scene.root()->removeChild(dialog);
      settle();
    }
  }
}

TEST_F(SamePlanTest, aGroupBecomesAsSmallAsItsAuthorWants)
{
  for (const std::string limits : {"minHeight 20 height 20", "maxHeight 20"}) {
    SoTopLevelDialog* dialog = open("TopLevelDialog { RowDialog { " + limits +
                                    " DialogIntegerSlider { } DialogIntegerSlider { } } DialogLabel { label \"x\" } }");
    EXPECT_EQ(static_cast<SoDialogComponent*>(dialog->getChild(0))->getWidget()->height(), 20) << limits;
  }
  SoTopLevelDialog* fixed = open("TopLevelDialog { RowDialog { height 57 fixedHeight TRUE DialogIntegerSlider { } "
                                 "DialogIntegerSlider { } } DialogLabel { label \"x\" } }");
  EXPECT_EQ(static_cast<SoDialogComponent*>(fixed->getChild(0))->getWidget()->height(), 57);
}

TEST_F(SamePlanTest, aMinimumAboveItsMaximumLeavesTheRowItsRoom)
{
  const std::string text =
    "TopLevelDialog { resizable FALSE maxHeight 0 DialogSeparator { minWidth 100 minHeight 60 } }";
  checkText(text);
  EXPECT_EQ(open(text)->getWidget()->height(), 20);
}

TEST_F(SamePlanTest, aFixedGroupThatIsLessThanNothingHasNoNegativeSize)
{
  static int complaints = 0;
  const QtMessageHandler before =
    qInstallMessageHandler([](QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
      complaints += message.contains("Negative sizes") ? 1 : 0;
    });
  checkText("TopLevelDialog { RowDialog { margin -4 fixedHeight TRUE fixedWidth TRUE } DialogLabel { label \"x\" } }");
  qInstallMessageHandler(before);
  EXPECT_EQ(complaints, 0);
}

TEST_F(SamePlanTest, absurdSizesSetAfterTheBuildAreNoOverflow)
{
  SoTopLevelDialog* dialog =
    open("TopLevelDialog { DialogCheckBox { } DialogComboBox { } DialogCustom { } DialogEditText { } "
         "DialogIntegerSlider { } DialogLabel { } DialogPushButton { } DialogRadioButtons { } DialogRealSlider { } "
         "DialogSeparator { } ColumnDialog { DialogSeparator { } } TabDialog { DialogLabel { } } }");
  Scene scene;
  scene.open(dialog);
  for (SoDialogComponent* component : Plan::componentsOf(dialog)) {
    component->width = std::numeric_limits<int>::min();
    component->height = std::numeric_limits<int>::min();
    SoFieldList fields;
    component->getFields(fields);
    for (int i = 0; i < fields.getLength(); i++) {
      fields[i]->touch(); // its reaction places what stands inside
    }
    if (auto* edit = dynamic_cast<SoDialogEditText*>(component)) {
      edit->multiLine = !edit->multiLine.getValue();
    }
  }
  settle();
  EXPECT_FALSE(Plan::windowPlan(dialog).empty());
  scene.root()->removeChild(dialog);
}

TEST_F(SamePlanTest, limitsOfTheAuthorCountMoreThanTheRoomForTheRows)
{
  SoTopLevelDialog* low = load("TopLevelDialog { minHeight 20 height 20 DialogIntegerSlider { } }");
  SoTopLevelDialog* narrow = load("TopLevelDialog { maxWidth 60 DialogIntegerSlider { } }");
  for (SoTopLevelDialog* dialog : {low, narrow}) {
    dialog->buildDialog(nullptr, FALSE);
    dialog->show();
  }
  settle();
  EXPECT_EQ(low->getWidget()->height(), 20);
  EXPECT_EQ(narrow->getWidget()->width(), 60);
}

TEST_F(SamePlanTest, tabDialogs)
{
  const std::string page = "RowDialog { label \"Page\" rowSpacing 2 " + rows + "} ";
  const std::string other = "ColumnDialog { label \"Other\" columnSpacing 3 " + rows + "} ";
  checkText("TopLevelDialog { TabDialog { " + page + "} }");
  checkText("TopLevelDialog { TabDialog { selectedPage 1 " + page + other + page + "} }");
  checkText("TopLevelDialog { width 501 height 403 TabDialog { margin 4 " + page + other + "} " + rows + "}");
  checkText("TopLevelDialog { width 120 height 90 TabDialog { " + page + other + "} }");
  checkText("TopLevelDialog { width 400 height 300 TabDialog { edgeStyle SHADOW_IN fixedWidth TRUE " + other + page +
            "} TabDialog { fixedHeight TRUE maxWidth 200 " + page + "} }");
  checkText("TopLevelDialog { TabDialog { } TabDialog { minHeight 60 } }");
}

TEST_F(SamePlanTest, pagesThatAreControls)
{
  checkText("TopLevelDialog { TabDialog { DialogPushButton { label \"Tab\" buttonLabel \"B\" } } }");
  checkText("TopLevelDialog { height 200 TabDialog { DialogPushButton { fixedHeight TRUE fixedWidth TRUE width 90 "
            "height 40 } } }");
  checkText("TopLevelDialog { width 400 height 200 TabDialog { DialogLabel { label \"Tab\" maxWidth 90 maxHeight 30 } "
            "} }");
}

TEST_F(SamePlanTest, tabDialogsInsideOthers)
{
  const std::string inner = "TabDialog { label \"Inner\" RowDialog { label \"X\" " + rows + "} } ";
  checkText("TopLevelDialog { TabDialog { RowDialog { label \"Outer\" " + rows + inner + "} " + inner + "} }");
  checkText("TopLevelDialog { TabDialog { selectedPage 1 RowDialog { " + rows + "} " + inner + "} }");
  checkText("TopLevelDialog { width 700 height 500 ColumnDialog { " + inner + "RowDialog { " + rows + "} " + inner +
            "} }");
}

TEST_F(SamePlanTest, tabDialogsAfterEveryChangeOfTheirPages)
{
  const std::string text = "TopLevelDialog { windowResizedByChildren TRUE TabDialog { RowDialog { label \"A\" " + rows +
                           "} RowDialog { label \"B\" DialogLabel { label \"Some words\" } } } }";
  const auto tabs = [](SoTopLevelDialog* dialog) {
    return static_cast<SoTabDialog*>(dialog->getChild(0));
  };
  const auto added = [] {
    auto* button = new SoDialogPushButton;
    button->label = "A label longer than the others";
    button->buttonLabel = "Added";
    return button;
  };
  checkAfter(load(text), "addChild", [&](SoTopLevelDialog* dialog) { tabs(dialog)->addChild(added()); });
  checkAfter(load(text), "insertChild", [&](SoTopLevelDialog* dialog) { tabs(dialog)->insertChild(added(), 0); });
  checkAfter(load(text), "removeChild", [&](SoTopLevelDialog* dialog) { tabs(dialog)->removeChild(0); });
  checkAfter(load(text), "replaceChild", [&](SoTopLevelDialog* dialog) { tabs(dialog)->replaceChild(0, added()); });
  checkAfter(load(text), "removeAllChildren", [&](SoTopLevelDialog* dialog) { tabs(dialog)->removeAllChildren(); });
  checkAfter(load(text), "selectedPage", [&](SoTopLevelDialog* dialog) { tabs(dialog)->selectedPage = 1; });
  checkAfter(load(text), "label", [&](SoTopLevelDialog* dialog) { tabs(dialog)->getChild(0)->label = "Longer"; });
  checkAfter(load(text), "contents", [&](SoTopLevelDialog* dialog) {
    static_cast<SoDialogGroup*>(tabs(dialog)->getChild(0))->addChild(added());
  });
}

TEST_F(SamePlanTest, maximaThatTheWidgetsDoNotHave)
{
  checkText("TopLevelDialog { width 300 height 250 DialogCheckBox { maxWidth 60 maxHeight 30 onString \"C\" } "
            "DialogRealSlider { maxWidth 100 labelVisibility FALSE } DialogComboBox { maxWidth 70 } "
            "DialogRadioButtons { maxWidth 120 } DialogEditText { maxWidth 80 } }");
}

TEST_F(SamePlanTest, negativeSpacing)
{
  checkText("TopLevelDialog { height 300 RowDialog { rowSpacing -4 " + rows + "} ColumnDialog { columnSpacing -1 " +
            rows + "} }");
  checkText("TopLevelDialog { RowDialog { maxHeight 1 rowSpacing -1 " + rows + "} DialogLabel { } }");
  checkAfter(load("TopLevelDialog { " + rows + "}"), "rowSpacing",
             [](SoTopLevelDialog* dialog) { dialog->rowSpacing = -4; });
}

TEST_F(SamePlanTest, emptyGroupsWithNegativeMargins)
{
  checkText("TopLevelDialog { " + rows + "RowDialog { margin -4 } ColumnDialog { margin -5 } }");
}

TEST_F(SamePlanTest, labelsThatHangOutOfTheirFrames)
{
  checkText("TopLevelDialog { width 20 minWidth 1 DialogPushButton { label \"three\\nshort\\nlines\" minWidth 1 "
            "maxWidth 20 } DialogPushButton { label \"low\" maxHeight 1 buttonLabel \"B\" } }");
}

TEST_F(SamePlanTest, aWidthThatBecomesFixedAfterTheBuild)
{
  const std::string text = "TopLevelDialog { width 500 height 300 DialogPushButton { } "
                           "DialogIntegerSlider { label \"A\" } ColumnDialog { DialogCheckBox { } } }";
  const auto fix = [](SoTopLevelDialog* dialog) {
    for (SoDialogComponent* component : Plan::componentsOf(dialog)) {
      component->fixedWidth = TRUE;
      component->fixedHeight = TRUE;
    }
    dialog->updateAfterSceneGraphChange();
  };
  checkAfter(load(text), "fixed", fix);
  checkAfter(load(text), "fixed and loose again", [&fix](SoTopLevelDialog* dialog) {
    fix(dialog);
    for (SoDialogComponent* component : Plan::componentsOf(dialog)) {
      component->fixedWidth = FALSE;
      component->fixedHeight = FALSE;
    }
    dialog->updateAfterSceneGraphChange();
  });
}

TEST_F(SamePlanTest, theTitleIsCentredAndTheTextsAreAligned)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { width 300 height 100 label \"Title\" "
                                  "DialogLabel { label \"wide enough text\" labelAlignment LEFT } "
                                  "DialogLabel { label \"wide enough text\" labelAlignment CENTER } "
                                  "DialogLabel { label \"wide enough text\" labelAlignment RIGHT } }");
  Scene scene;
  scene.open(dialog);
  const auto text = [&](int child) {
    SoNode* part = Plan::partOf(dialog->getChild(child), "labelSep");
    return Plan::seen(Plan::boxOf(dialog, part)).translated(-Plan::border, -Plan::top);
  };
  EXPECT_NEAR(text(0).left(), 3.0, 2.0);
  EXPECT_NEAR(text(1).center().x(), 150.0, 2.0);
  EXPECT_NEAR(text(2).right(), 297.0, 2.0);
  static_cast<SoDialogLabel*>(dialog->getChild(0))->labelAlignment = SoQuillform::RIGHT;
  EXPECT_NEAR(text(0).right(), 297.0, 2.0);
  const QRectF frame = Plan::seen(Plan::boxOf(dialog, Plan::partOf(dialog, "frameSep")));
  EXPECT_NEAR(frame.width(), 308.0, 0.5);
  EXPECT_NEAR(frame.height(), 127.0, 0.5);
  EXPECT_NEAR(frame.left(), 0.0, 0.5);
  EXPECT_NEAR(frame.top(), 0.0, 0.5);
}

TEST_F(SamePlanTest, emptyLinesAreNotInfinitelyLarge)
{
  checkText("TopLevelDialog { label \"\\n\\nin the middle\\n\\n\" width 300 DialogLabel { label \"\\nx\\n\\n\" } "
            "DialogPushButton { label \"\\n\\ny\" buttonLabel \"\\n\\nz\\n\" } }");
}
