#include <Inventor/SoPath.h>
#include <Inventor/actions/SoCallbackAction.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoText3.h>
#include <QBoxLayout>
#include <QCheckBox>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <Quillform/Quillform.h>
#include <forms/Plan.h>
#include <functional>
#include <limits>
#include <support/Choices.h>
#include <support/Form.h>
#include <support/Messages.h>
#include <support/Operate.h>
#include <support/Scene.h>
#include <support/TestFiles.h>
#include <utility>

namespace {

/// Notes every page that it hears of, and does once what a test gives it.
struct Heard : SoTabDialogAuditor {
  void tabDialog(SoTabDialog* cpt) override
  {
    pages.push_back(cpt->selectedPage.getValue());
    if (const auto now = std::exchange(action, {})) {
      now(cpt);
    }
  }
  std::vector<int> pages;
  std::function<void(SoTabDialog*)> action;
};

/// Counts everything that a dialog's auditor may hear.
struct Counting : SoDialogAuditor {
  void dialogPushButton(SoDialogPushButton*) override
  {
    ++count;
  }
  void tabDialog(SoTabDialog*) override
  {
    ++count;
  }
  int count = 0;
};

SoRowDialog* newPage(const char* name)
{
  auto* page = new SoRowDialog;
  page->label = name;
  auto* button = new SoDialogPushButton;
  button->buttonLabel = (std::string("button ") + name).c_str();
  page->addChild(button);
  return page;
}

/// `RowDialog { label "A" ... } RowDialog { label "B" ... } ...`, for dialog files.
std::string pages(int count)
{
  std::string text;
  for (int i = 0; i < count; i++) {
    const std::string name = i < 26 ? std::string(1, static_cast<char>('A' + i)) : "P" + std::to_string(i);
    text.append("RowDialog { label \"").append(name).append("\" DialogPushButton { auditorID \"").append(name);
    text.append("\" label \"L\" buttonLabel \"button ").append(name).append("\" } } ");
  }
  return text;
}

QTabWidget* tabWidgetOf(SoTabDialog* tabs)
{
  QWidget* relay = tabs->getWidget();
  return relay ? relay->findChild<QTabWidget*>("ZEPSoDialogQTabDialogTabWidget") : nullptr;
}

/// The texts of the tabs in the window.
std::vector<std::string> windowTabs(SoTabDialog* tabs)
{
  std::vector<std::string> labels;
  QTabWidget* widget = tabWidgetOf(tabs);
  for (int i = 0; widget && i < widget->count(); i++) {
    labels.push_back(widget->tabText(i).toStdString());
  }
  return labels;
}

/// The texts of the tabs that are in sight in the scene.
std::vector<std::string> sceneTabs(SoTabDialog* tabs)
{
  SoNode* part = Plan::partOf(tabs, "pageSwitch");
  return part ? Choices::textsIn(part) : std::vector<std::string>();
}

/// The texts that a traversal of the scene comes to.
std::vector<std::string> drawnTexts(SoNode* root)
{
  std::vector<std::string> texts;
  SoCallbackAction draw;
  draw.addPreCallback(
    SoText3::getClassTypeId(),
    [](void* data, SoCallbackAction*, const SoNode* node) {
      const auto* text = static_cast<const SoText3*>(node);
      static_cast<std::vector<std::string>*>(data)->emplace_back(text->string.getNum() > 0 ? text->string[0].getString()
                                                                                           : "");
      return SoCallbackAction::CONTINUE;
    },
    &texts);
  draw.apply(root);
  return texts;
}

bool contains(const std::vector<std::string>& texts, const std::string& text)
{
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

std::vector<std::string> labelsOf(SoTabDialog* tabs)
{
  std::vector<std::string> labels;
  for (int i = 0; i < tabs->getNumChildren(); i++) {
    labels.emplace_back(tabs->getChild(i)->label.getValue().getString());
  }
  return labels;
}

SbVec2i32 initSizeOf(SoTabDialog* tabs)
{
  return tabs->getComponentInitSize();
}

} // namespace

class TabDialogTest : public QuillformTest {
protected:
  static SoTabDialog* tabsOf(SoTopLevelDialog* dialog)
  {
    return dynamic_cast<SoTabDialog*>(dialog->getChild(0));
  }
};

/// Tests that hold in a window, in the scene, and while both are open.
class TabDialogInFormsTest : public TabDialogTest, public ::testing::WithParamInterface<Form> {
protected:
  void start(const std::string& text)
  {
    dialog = load(text);
    ASSERT_NE(dialog, nullptr);
    dialog->ref();
    if (GetParam() != SCENE) {
      dialog->buildDialog(nullptr, FALSE);
      dialog->show();
      settle();
    }
    if (GetParam() != WINDOW) {
      scene.open(dialog);
    }
    tabs = tabsOf(dialog);
    ASSERT_NE(tabs, nullptr);
    tabs->ref();
    tabs->addAuditor(&heard);
  }

  ~TabDialogInFormsTest() override
  {
    if (tabs) {
      tabs->unref();
    }
    if (dialog) {
      dialog->unref();
    }
  }

  bool hasWindow() const
  {
    return GetParam() != SCENE;
  }
  bool hasScene() const
  {
    return GetParam() != WINDOW;
  }

  /// Clicks the tab with that text.
  void clickTab(SoTabDialog* on, const std::string& label)
  {
    if (isByWindow(GetParam())) {
      const auto labels = windowTabs(on);
      const auto found = std::find(labels.begin(), labels.end(), label);
      ASSERT_NE(found, labels.end()) << label;
      QTabBar* bar = tabWidgetOf(on)->tabBar();
      const QPoint at = bar->tabRect(static_cast<int>(found - labels.begin())).center();
      Operate::click(bar, at);
    }
    else {
      const SbBox3f box = Operate::tabBox(dialog, on, label);
      ASSERT_FALSE(box.isEmpty()) << label;
      const SbVec3f middle = box.getCenter();
      scene.click(scene.pixel(middle[0], middle[1]));
    }
    settle();
  }
  void clickTab(const std::string& label)
  {
    clickTab(tabs, label);
  }

  /// Tabs, pages and the selection agree in every form that is open.
  void expectInStep(const std::string& where = "")
  {
    const int count = tabs->getNumChildren();
    const int shown = tabs->selectedPage.getValue();
    EXPECT_GE(shown, 0) << where;
    EXPECT_LE(shown, std::max(count - 1, 0)) << where;
    if (hasWindow()) {
      QTabWidget* widget = tabWidgetOf(tabs);
      ASSERT_NE(widget, nullptr) << where;
      EXPECT_EQ(windowTabs(tabs), labelsOf(tabs)) << where;
      EXPECT_EQ(widget->currentIndex(), count > 0 ? shown : -1) << where;
      for (int i = 0; i < count; i++) {
        QWidget* page = tabs->getChild(i)->getWidget();
        ASSERT_NE(page, nullptr) << where << " page " << i;
        EXPECT_TRUE(widget->widget(i)->isAncestorOf(page)) << where << " page " << i;
        EXPECT_EQ(page->isVisible(), i == shown) << where << " page " << i;
      }
    }
    if (hasScene()) {
      // All tabs are in sight in these tests, unless a test says otherwise.
      EXPECT_EQ(sceneTabs(tabs), labelsOf(tabs)) << where;
      for (int i = 0; i < count; i++) {
        EXPECT_EQ(tabs->getChild(i)->isShown3D() != FALSE, i == shown) << where << " page " << i;
        EXPECT_NE(tabs->getChild(i)->isBuilt3D(), 0) << where << " page " << i;
      }
    }
  }

  Heard heard;
  SoTopLevelDialog* dialog = nullptr;
  SoTabDialog* tabs = nullptr;
  Scene scene;
};

INSTANTIATE_TEST_SUITE_P(Forms, TabDialogInFormsTest, ::testing::ValuesIn(allForms),
                         ::testing::PrintToStringParamName());

// What it is

TEST_F(TabDialogTest, aFreshOneHasItsDefaultsAndItsFieldsInOrder)
{
  auto* tabs = new SoTabDialog;
  tabs->ref();
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
  EXPECT_EQ(tabs->tabsLocation.getValue(), SoTabDialog::TOP);
  EXPECT_TRUE(tabs->isOfType(SoDialogGroup::getClassTypeId()));
  EXPECT_EQ(SoTabDialog::getClassTypeId().getName(), SbName("TabDialog"));
  EXPECT_EQ(SoTabDialog::BOTTOM, 1);
  EXPECT_EQ(SoTabDialog::LEFT, 2);
  EXPECT_EQ(SoTabDialog::RIGHT, 3);
  SoFieldList fields;
  tabs->getFields(fields);
  EXPECT_LT(fields.find(&tabs->margin), fields.find(&tabs->selectedPage));
  EXPECT_LT(fields.find(&tabs->selectedPage), fields.find(&tabs->tabsLocation));
  tabs->unref();
}

TEST_F(TabDialogTest, itsPartsStandWhereDialogFilesExpectThem)
{
  auto* tabs = new SoTabDialog;
  tabs->ref();
  const SoNodekitCatalog* catalog = tabs->getNodekitCatalog();
  struct Row {
    const char* part;
    const char* parent;
    bool isPublic;
  };
  const Row rows[] = {
    {"pagesSep", "geomSwitch", false},
    {"pageSwitch", "pagesSep", false},
    {"pageSep", "pageSwitch", false},
    {"labelSep", "pageSep", false},
    {"labelSwitch", "labelSep", false},
    {"unselected", "labelSwitch", true},
    {"selected", "labelSwitch", true},
    {"textSep", "pageSep", false},
    {"textProp", "textSep", true},
    {"buttonsSep", "geomSwitch", false},
    {"lButtonSep", "buttonsSep", false},
    {"lButtonSwtch", "lButtonSep", false},
    {"lButtonReleased", "lButtonSwtch", true},
    {"lButtonPressed", "lButtonSwtch", true},
    {"rButtonSep", "buttonsSep", false},
    {"rButtonSwtch", "rButtonSep", false},
    {"rButtonReleased", "rButtonSwtch", true},
    {"rButtonPressed", "rButtonSwtch", true},
    {"frameSep", "geomSwitch", false},
    {"frame", "frameSep", true},
  };
  for (const Row& row : rows) {
    const int part = catalog->getPartNumber(row.part);
    ASSERT_NE(part, SO_CATALOG_NAME_NOT_FOUND) << row.part;
    EXPECT_EQ(catalog->getParentName(part), SbName(row.parent)) << row.part;
    EXPECT_EQ(catalog->isPublic(part) != FALSE, row.isPublic) << row.part;
  }
  tabs->unref();
}

TEST_F(TabDialogTest, itsWidgetsHaveTheirNamesAndTheDialogFont)
{
  SoTabDialog* tabs = tabsOf(open("TopLevelDialog { TabDialog { " + pages(2) + "} }"));
  EXPECT_EQ(tabs->getWidget()->objectName(), "ZEPSoDialogQTabDialogFrame");
  QTabWidget* widget = tabWidgetOf(tabs);
  ASSERT_NE(widget, nullptr);
  EXPECT_TRUE(Choices::hasDialogFont(widget));
  EXPECT_EQ(widget->pos(), QPoint(3, 3));
  EXPECT_EQ(widget->size(), tabs->getWidget()->size() - QSize(6, 6));
  for (int i = 0; i < 2; i++) {
    QWidget* page = widget->widget(i);
    EXPECT_EQ(page->objectName(), "ZEPSoDialogQTabDialogTempWidget");
    EXPECT_EQ(page->layout()->objectName(), "ZEPSoDialogQTabDialogLayout");
    EXPECT_EQ(page->layout()->contentsMargins(), QMargins(0, 0, 0, 0));
    EXPECT_EQ(page->layout()->spacing(), 0);
    EXPECT_NE(qobject_cast<QVBoxLayout*>(page->layout()), nullptr);
  }
  tabs->getWidget()->window()->resize(500, 400);
  settle();
  EXPECT_EQ(widget->size(), tabs->getWidget()->size() - QSize(6, 6));
  EXPECT_EQ(tabs->width.getValue(), tabs->getWidget()->width());
}

// Sizes

TEST_F(TabDialogTest, tabsAboveOrBelowAddTenToTheWidthAndThirtyThreeToTheHeightOfTheInitialSize)
{
  auto* tabs = new SoTabDialog;
  tabs->ref();
  auto* wide = new SoDialogPushButton;
  wide->buttonLabel = "a button with much text";
  auto* high = new SoDialogPushButton;
  high->buttonLabel = "1\\n2\\n3\\n4";
  tabs->addChild(wide);
  tabs->addChild(high);
  const int width = wide->getComponentInitSize()[0];
  const int height = high->getComponentInitSize()[1];
  ASSERT_GT(width, high->getComponentInitSize()[0]);
  ASSERT_GT(height, wide->getComponentInitSize()[1]);
  EXPECT_EQ(initSizeOf(tabs), SbVec2i32(width + 10, height + 33));
  for (const int location : {SoTabDialog::TOP, SoTabDialog::BOTTOM, SoTabDialog::LEFT, SoTabDialog::RIGHT}) {
    auto* other = new SoTabDialog;
    other->ref();
    other->tabsLocation = location;
    const bool isBeside = location == SoTabDialog::LEFT || location == SoTabDialog::RIGHT;
    EXPECT_EQ(initSizeOf(other), isBeside ? SbVec2i32(33, 10) : SbVec2i32(10, 33)) << location;
    other->unref();
  }
  tabs->unref();
}

TEST_F(TabDialogTest, tabsOnTheLeftAddThirtyThreeToTheWidthAndTenToTheHeightOfTheInitialSize)
{
  auto* tabs = new SoTabDialog;
  tabs->ref();
  tabs->tabsLocation = SoTabDialog::LEFT;
  tabs->addChild(newPage("A"));
  const SbVec2i32 page = tabs->getChild(0)->getComponentInitSize();
  EXPECT_EQ(initSizeOf(tabs), page + SbVec2i32(33, 10));
  tabs->unref();
}

TEST_F(TabDialogTest, theMarginIsALowerBoundOfTheInitialSize)
{
  auto* tabs = new SoTabDialog;
  tabs->ref();
  tabs->margin = 4;
  tabs->addChild(newPage("A"));
  const SbVec2i32 page = tabs->getChild(0)->getComponentInitSize();
  EXPECT_EQ(initSizeOf(tabs), page + SbVec2i32(10, 33));
  tabs->margin = 300;
  tabs->addChild(newPage("B")); // measures anew
  EXPECT_EQ(initSizeOf(tabs), SbVec2i32(610, 633));
  tabs->unref();
}

TEST_F(TabDialogTest, anAbsurdMarginDoesNotOverflow)
{
  for (const int margin : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
    auto* tabs = new SoTabDialog;
    tabs->ref();
    tabs->addChild(new SoRowDialog);
    tabs->margin = margin;
    const SbVec2i32 size = tabs->getComponentInitSize();
    for (int side = 0; side < 2; side++) {
      EXPECT_GE(size[side], 0) << margin;
      EXPECT_LT(size[side], 2 * SoTopLevelDialog::largestWindow) << margin;
    }
    tabs->unref();
  }
}

TEST_F(TabDialogTest, theDefaultSizeIsThatOfTheLargestPageWithTheMarginAround)
{
  auto* tabs = new SoTabDialog;
  tabs->ref();
  tabs->margin = 5;
  SbVec2i32 size(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  tabs->getDefaultSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(10, 10));
  EXPECT_EQ(min, SbVec2i32(10, 10));
  EXPECT_EQ(max, SbVec2i32(32767, 32767));
  auto* wide = new SoDialogCustom;
  wide->width = 300;
  wide->height = 40;
  wide->minWidth = 100;
  wide->minHeight = 30;
  wide->maxWidth = 500;
  wide->maxHeight = 60;
  auto* high = new SoDialogCustom;
  high->width = 50;
  high->height = 200;
  high->minWidth = 40;
  high->minHeight = 90;
  high->maxWidth = 400;
  high->maxHeight = 700;
  tabs->addChild(wide);
  tabs->addChild(high);
  tabs->getDefaultSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(310, 210));
  EXPECT_EQ(min, SbVec2i32(110, 100));
  EXPECT_EQ(max, SbVec2i32(510, 710));
  tabs->getSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(320, 243));
  EXPECT_EQ(min, SbVec2i32(120, 133));
  EXPECT_EQ(max, SbVec2i32(520, 743));
  tabs->unref();
}

TEST_F(TabDialogTest, theBorderIsTheSameWhereverTheTabsAreAndCappedOnlyWhenItIsAddedOnce)
{
  auto* tabs = new SoTabDialog;
  tabs->ref();
  for (const int location : {SoTabDialog::TOP, SoTabDialog::LEFT}) {
    tabs->tabsLocation = location;
    SbVec2i32 size(100, 100);
    tabs->fixSizeWithBorder(size, 1);
    EXPECT_EQ(size, SbVec2i32(110, 133));
    size.setValue(32757, 32734);
    tabs->fixSizeWithBorder(size, 1);
    EXPECT_EQ(size, SbVec2i32(32767, 32767));
    size.setValue(32758, 32735);
    tabs->fixSizeWithBorder(size, 1);
    EXPECT_EQ(size, SbVec2i32(32767, 32767));
    size.setValue(32760, 32760);
    tabs->fixSizeWithBorder(size, 2);
    EXPECT_EQ(size, SbVec2i32(32780, 32826));
    tabs->fixSizeWithBorder(size, -1);
    EXPECT_EQ(size, SbVec2i32(32770, 32793));
  }
  tabs->unref();
}

TEST_F(TabDialogTest, aPageHasAllTheRoomThatItAsksFor)
{
  SoTopLevelDialog* dialog = open("TopLevelDialog { TabDialog { " + pages(3) + "} }");
  SoTabDialog* tabs = tabsOf(dialog);
  SbVec2i32 size(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  tabs->getChild(0)->getSize(size, min, max);
  const QWidget* page = tabs->getChild(0)->getWidget();
  EXPECT_GE(page->parentWidget()->height(), page->layout()->minimumSize().height());
  EXPECT_EQ(tabWidgetOf(tabs)->currentWidget()->size() + QSize(10, 33), tabs->getWidget()->size());
  EXPECT_EQ(page->size(), tabWidgetOf(tabs)->currentWidget()->size());
}

TEST_F(TabDialogTest, aPlainControlAsAPageGetsRoomForItself)
{
  SoTopLevelDialog* dialog = open("TopLevelDialog { TabDialog { DialogPushButton { label \"Camera\" "
                                  "buttonLabel \"A button with quite some text on it\" } } }");
  SoTabDialog* tabs = tabsOf(dialog);
  auto* button = tabs->getChild(0)->getWidget()->findChild<QPushButton*>();
  ASSERT_NE(button, nullptr);
  EXPECT_TRUE(button->isVisible());
  EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text()));
  EXPECT_EQ(windowTabs(tabs), std::vector<std::string>{"Camera"});
}

TEST_F(TabDialogTest, anEmptyOneHasNoTabsInEitherForm)
{
  SoTopLevelDialog* dialog = open("TopLevelDialog { width 200 height 100 TabDialog { selectedPage 4 } }");
  SoTabDialog* tabs = tabsOf(dialog);
  Scene scene;
  scene.open(dialog);
  EXPECT_EQ(tabWidgetOf(tabs)->count(), 0);
  EXPECT_TRUE(sceneTabs(tabs).empty());
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
  tabs->selectedPage = -2;
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
  QTest::mouseClick(tabWidgetOf(tabs), Qt::LeftButton);
  scene.click(tabs);
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
}

// Selecting from code

TEST_P(TabDialogInFormsTest, selectedPageBeyondTheLastPageBecomesTheLast)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(3) + "} }");
  tabs->selectedPage = 7;
  EXPECT_EQ(tabs->selectedPage.getValue(), 2);
  expectInStep();
  tabs->selectedPage = 2147483647;
  EXPECT_EQ(tabs->selectedPage.getValue(), 2);
  expectInStep();
  EXPECT_TRUE(heard.pages.empty());
}

TEST_P(TabDialogInFormsTest, aNegativeSelectedPageBecomesTheFirst)
{
  start("TopLevelDialog { width 500 TabDialog { selectedPage 1 " + pages(3) + "} }");
  tabs->selectedPage = -4;
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
  expectInStep();
  tabs->selectedPage = -2147483647 - 1;
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
  EXPECT_TRUE(heard.pages.empty());
}

TEST_P(TabDialogInFormsTest, selectingFromCodeShowsThePageAndCallsNobody)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(4) + "} }");
  Counting counting;
  dialog->addAuditor(&counting);
  for (const int page : {1, 3, 0, 2, 2}) {
    tabs->selectedPage = page;
    settle();
    EXPECT_EQ(tabs->selectedPage.getValue(), page);
    expectInStep(std::to_string(page));
  }
  EXPECT_TRUE(heard.pages.empty());
  EXPECT_EQ(counting.count, 0);
}

TEST_P(TabDialogInFormsTest, thePageThatAFileSelectsIsInFrontAndNobodyIsCalled)
{
  start("TopLevelDialog { width 500 TabDialog { selectedPage 2 " + pages(4) + "} }");
  EXPECT_EQ(tabs->selectedPage.getValue(), 2);
  expectInStep();
  dialog->updateAfterSceneGraphChange();
  settle();
  EXPECT_EQ(tabs->selectedPage.getValue(), 2);
  expectInStep();
  EXPECT_TRUE(heard.pages.empty());
}

// Selecting by the user

TEST_P(TabDialogInFormsTest, aClickOnATabSelectsItsPageAndCallsTheAuditorsOnce)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(4) + "} }");
  Heard second;
  tabs->addAuditor(&second);
  clickTab("C");
  EXPECT_EQ(tabs->selectedPage.getValue(), 2);
  EXPECT_EQ(heard.pages, std::vector<int>{2});
  EXPECT_EQ(second.pages, std::vector<int>{2});
  expectInStep();
  clickTab("A");
  EXPECT_EQ(heard.pages, (std::vector<int>{2, 0}));
  expectInStep();
}

TEST_P(TabDialogInFormsTest, clickingTheSelectedTabCallsNoAuditor)
{
  start("TopLevelDialog { width 500 TabDialog { selectedPage 1 " + pages(3) + "} }");
  clickTab("B");
  EXPECT_TRUE(heard.pages.empty());
  tabs->selectedPage = 2;
  clickTab("C");
  EXPECT_TRUE(heard.pages.empty());
  expectInStep();
}

TEST_P(TabDialogInFormsTest, withoutAuditorsOfItsOwnAPageChangeReachesNoDialogLevelAuditor)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(3) + "} }");
  Counting counting;
  dialog->addAuditor(&counting);
  tabs->removeAuditor(&heard);
  const Messages messages;
  clickTab("B");
  EXPECT_EQ(tabs->selectedPage.getValue(), 1);
  EXPECT_EQ(counting.count, 0);
  EXPECT_TRUE(messages.all().empty());
  expectInStep();
}

TEST_P(TabDialogInFormsTest, anAuditorMaySelectAnotherPage)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(3) + "} }");
  heard.action = [](SoTabDialog* cpt) {
    cpt->selectedPage = 0; // a veto
  };
  clickTab("B");
  EXPECT_EQ(heard.pages, std::vector<int>{1});
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
  expectInStep();
  heard.action = [](SoTabDialog* cpt) {
    cpt->selectedPage = 17;
  };
  clickTab("B");
  EXPECT_EQ(heard.pages, (std::vector<int>{1, 1}));
  EXPECT_EQ(tabs->selectedPage.getValue(), 2);
  expectInStep();
  clickTab("A"); // not swallowed by what happened before
  EXPECT_EQ(heard.pages, (std::vector<int>{1, 1, 0}));
  expectInStep();
}

TEST_P(TabDialogInFormsTest, whatHappensInAPageIsReportedPastTheTabDialogsOwnAuditors)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(2) + "} }");
  Counting counting;
  dialog->addAuditor(&counting);
  const Messages messages;
  auto* button = static_cast<SoDialogPushButton*>(dialog->searchForAuditorId("A"));
  if (isByWindow(GetParam())) {
    QTest::mouseClick(button->getWidget()->findChild<QPushButton*>(), Qt::LeftButton);
  }
  else {
    scene.click(button);
  }
  EXPECT_EQ(counting.count, 1);
  EXPECT_TRUE(heard.pages.empty());
  EXPECT_TRUE(messages.all().empty());
  dialog->applyAuditors();
  EXPECT_EQ(counting.count, 3); // the buttons of both pages, not the tab dialog
}

TEST_F(TabDialogTest, anAuditorOfTheWrongKindIsPassedOver)
{
  SoTabDialog* tabs = tabsOf(open("TopLevelDialog { TabDialog { " + pages(2) + "} }"));
  Counting wrong;
  tabs->addAuditor(static_cast<SoAuditor*>(&wrong));
  Heard right;
  tabs->addAuditor(&right);
  const Messages messages;
  QTabBar* bar = tabWidgetOf(tabs)->tabBar();
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(1).center());
  EXPECT_EQ(right.pages, std::vector<int>{1});
  EXPECT_EQ(wrong.count, 0);
  EXPECT_EQ(messages.count("wrong kind"), 1);
}

TEST_F(TabDialogTest, theKeyboardSelectsPagesInTheWindow)
{
  SoTopLevelDialog* dialog = open("TopLevelDialog { TabDialog { " + pages(3) + "} }");
  SoTabDialog* tabs = tabsOf(dialog);
  Heard heard;
  tabs->addAuditor(&heard);
  QTabWidget* widget = tabWidgetOf(tabs);
  QTest::keyClick(widget->tabBar(), Qt::Key_Right);
  QTest::keyClick(widget->tabBar(), Qt::Key_Right);
  QTest::keyClick(widget->tabBar(), Qt::Key_Right); // there is none
  QTest::keyClick(widget->tabBar(), Qt::Key_Left);
  EXPECT_EQ(heard.pages, (std::vector<int>{1, 2, 1}));
  QTest::keyClick(widget, Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(heard.pages, (std::vector<int>{1, 2, 1, 2}));
  EXPECT_EQ(tabs->selectedPage.getValue(), 2);
}

// Tabs

TEST_P(TabDialogInFormsTest, eachTabShowsTheLabelOfItsPageAlsoWhenThatChanges)
{
  start("TopLevelDialog { width 500 TabDialog { RowDialog { label \"First\" } RowDialog { label \"\" } "
        "RowDialog { label \"Third\" } } }");
  expectInStep();
  tabs->getChild(1)->label = "Named now";
  expectInStep();
  tabs->getChild(0)->label = "";
  expectInStep();
  tabs->replaceChild(2, newPage("New"));
  tabs->getChild(2)->label = "Newer";
  expectInStep();
}

TEST_P(TabDialogInFormsTest, aLabelIsShownWithoutEscapesAndInOneLine)
{
  start("TopLevelDialog { width 500 TabDialog { RowDialog { label \"Two\\nlines\" } "
        "RowDialog { label \"A \\\\\"q\\\\\"\" } RowDialog { label \"<b>x</b>\" } } }");
  tabs->getChild(0)->label = "Two\\nlines \xe9";
  const std::vector<std::string> expected = {"Two lines \xc3\xa9", "A \"q\"", "<b>x</b>"};
  if (hasWindow()) {
    EXPECT_EQ(windowTabs(tabs), expected);
  }
  if (hasScene()) {
    EXPECT_EQ(sceneTabs(tabs), expected);
  }
}

TEST_F(TabDialogTest, aVeryLongLabelIsCutShortWithDotsInTheScene)
{
  SoTopLevelDialog* dialog = open("TopLevelDialog { width 400 TabDialog { RowDialog { label \"" +
                                  std::string(300, 'W') + "\" } RowDialog { label \"Short\" } } }");
  SoTabDialog* tabs = tabsOf(dialog);
  Scene scene;
  scene.open(dialog);
  const auto shown = sceneTabs(tabs);
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_EQ(shown[0].substr(shown[0].size() - 3), "...");
  EXPECT_LT(shown[0].size(), 60U);
  EXPECT_EQ(shown[1], "Short");
  EXPECT_LT(tabWidgetOf(tabs)->tabBar()->tabRect(0).width(), 250);
  EXPECT_TRUE(tabWidgetOf(tabs)->tabBar()->rect().contains(tabWidgetOf(tabs)->tabBar()->tabRect(1)));
}

TEST_F(TabDialogTest, theTabsOfBothFormsStandAtTheSamePlace)
{
  SoTopLevelDialog* dialog =
    open("TopLevelDialog { width 500 TabDialog { selectedPage 1 RowDialog { label \"General\" } "
         "RowDialog { label \"Colours\" } RowDialog { } RowDialog { label \"i\" } } }");
  SoTabDialog* tabs = tabsOf(dialog);
  Scene scene;
  scene.open(dialog);
  QTabBar* bar = tabWidgetOf(tabs)->tabBar();
  const SbVec3f place = dialog->get3DParentTranslation();
  for (const int i : {0, 1, 3}) {
    const QRectF inScene = Plan::seen(Operate::tabBox(dialog, tabs, tabs->getChild(i)->label.getValue().getString()))
                             .translated(-place[0] - Plan::border, place[1] - Plan::top);
    const QRectF inWindow(bar->mapTo(dialog->getWidget(), bar->tabRect(i).topLeft()), bar->tabRect(i).size());
    EXPECT_NEAR(inScene.left(), inWindow.left(), 1.0) << i;
    EXPECT_NEAR(inScene.right(), inWindow.right(), 1.5) << i;
    EXPECT_TRUE(inWindow.adjusted(-1, -1, 1, 6).contains(inScene)) << i; // the foot of a lowered tab is in the pane
  }
}

// Pages that come and go

TEST_P(TabDialogInFormsTest, aPageAddedWhileShownGetsATab)
{
  start("TopLevelDialog { width 500 TabDialog { } }");
  expectInStep("empty");
  for (const char* name : {"A", "B", "C"}) {
    tabs->addChild(newPage(name));
    expectInStep(name); // at once
    settle();
    expectInStep(name);
  }
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
  tabs->addChild(nullptr);
  EXPECT_EQ(tabs->getNumChildren(), 3);
  EXPECT_TRUE(heard.pages.empty());
  clickTab("C");
  EXPECT_EQ(heard.pages, std::vector<int>{2});
}

TEST_P(TabDialogInFormsTest, theSelectedPageStaysInFrontWhenOthersComeAndGo)
{
  start("TopLevelDialog { width 500 TabDialog { selectedPage 1 " + pages(3) + "} }");
  SoDialogComponent* selected = tabs->getChild(1);
  const auto expectSelected = [&](const char* where) {
    EXPECT_EQ(tabs->getChild(tabs->selectedPage.getValue()), selected) << where;
    expectInStep(where);
    settle();
    expectInStep(where);
  };
  tabs->insertChild(newPage("first"), 0);
  expectSelected("inserted in front");
  tabs->insertChild(newPage("next"), 3);
  expectSelected("inserted behind");
  tabs->addChild(newPage("last"));
  expectSelected("added");
  tabs->removeChild(0);
  expectSelected("removed in front");
  tabs->removeChild(tabs->getNumChildren() - 1);
  expectSelected("removed behind");
  tabs->replaceChild(0, newPage("replaced"));
  expectSelected("replaced");
  tabs->removeChild(-1);
  tabs->removeChild(99);
  expectSelected("nothing removed");
  EXPECT_TRUE(heard.pages.empty());
}

TEST_P(TabDialogInFormsTest, whenTheSelectedPageIsRemovedItsNeighbourComesToTheFront)
{
  start("TopLevelDialog { width 500 TabDialog { selectedPage 1 " + pages(3) + "} }");
  const SoDialogComponent* next = tabs->getChild(2);
  tabs->removeChild(1);
  EXPECT_EQ(tabs->selectedPage.getValue(), 1);
  EXPECT_EQ(tabs->getChild(1), next);
  expectInStep("the one behind");
  tabs->removeChild(1);
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
  expectInStep("the one before");
  tabs->removeChild(0);
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
  expectInStep("none");
  settle();
  tabs->addChild(newPage("A"));
  expectInStep("a new one");
  EXPECT_TRUE(heard.pages.empty());
}

TEST_P(TabDialogInFormsTest, removingAllPagesLeavesAnEmptyTabDialogThatStillWorks)
{
  start("TopLevelDialog { width 500 TabDialog { selectedPage 2 " + pages(4) + "} }");
  tabs->removeAllChildren();
  settle();
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
  expectInStep("none");
  tabs->addChild(newPage("X"));
  tabs->addChild(newPage("Y"));
  settle();
  expectInStep("two");
  clickTab("Y");
  EXPECT_EQ(heard.pages, std::vector<int>{1});
}

TEST_P(TabDialogInFormsTest, aReplacedPageIsInFrontWhenTheOldOneWas)
{
  start("TopLevelDialog { width 500 TabDialog { selectedPage 1 " + pages(3) + "} }");
  SoRowDialog* page = newPage("new");
  tabs->replaceChild(tabs->getChild(1), page);
  EXPECT_EQ(tabs->selectedPage.getValue(), 1);
  EXPECT_EQ(tabs->getChild(1), page);
  expectInStep();
  settle();
  expectInStep();
}

TEST_P(TabDialogInFormsTest, tabsAndPagesStayInStepThroughManyChanges)
{
  start("TopLevelDialog { width 700 TabDialog { " + pages(3) + "} }");
  unsigned int state = 7;
  const auto next = [&state](int below) {
    state = state * 1103515245U + 12345U;
    return static_cast<int>((state >> 16) % static_cast<unsigned int>(below));
  };
  for (int i = 0; i < 60; i++) {
    const int count = tabs->getNumChildren();
    const std::string name = "p" + std::to_string(i);
    const int what = next(6);
    const SoDialogComponent* selected = tabs->getChild(tabs->selectedPage.getValue());
    const int place = next(count + 1);
    if (what == 0 && count < 8) {
      tabs->addChild(newPage(name.c_str()));
    }
    else if (what == 1 && count < 8) {
      tabs->insertChild(newPage(name.c_str()), place);
    }
    else if (what == 2 && count > 0) {
      tabs->removeChild(place);
    }
    else if (what == 3) {
      tabs->replaceChild(place, newPage(name.c_str()));
    }
    else if (what == 4) {
      tabs->selectedPage = next(count + 3) - 1;
    }
    else if (count > 0) {
      tabs->getChild(next(count))->label = name.c_str();
    }
    if (what != 4 && tabs->findChild(selected) >= 0) {
      EXPECT_EQ(tabs->getChild(tabs->selectedPage.getValue()), selected) << i;
    }
    expectInStep(std::to_string(i));
    if (i % 4 == 0) {
      settle();
    }
  }
  EXPECT_TRUE(heard.pages.empty());
}

TEST_P(TabDialogInFormsTest, aControlAddedToAHiddenPageIsThereWhenThePageIsSelected)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(2) + "} }");
  auto* added = new SoDialogPushButton;
  added->buttonLabel = "added later";
  static_cast<SoRowDialog*>(tabs->getChild(1))->addChild(added);
  settle();
  expectInStep("hidden");
  if (hasScene()) {
    EXPECT_FALSE(added->isShown3D());
  }
  tabs->selectedPage = 1;
  settle();
  expectInStep("selected");
  if (hasWindow()) {
    EXPECT_TRUE(added->getWidget()->isVisible());
  }
  if (hasScene()) {
    EXPECT_TRUE(added->isShown3D());
    EXPECT_TRUE(contains(drawnTexts(scene.root()), "added later"));
  }
}

TEST_P(TabDialogInFormsTest, aHiddenPageThatMovesToAnotherGroupIsSeenThere)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(2) + "} RowDialog { auditorID \"row\" } }");
  SoDialogComponent* page = tabs->getChild(1);
  page->ref();
  tabs->removeChild(1);
  static_cast<SoRowDialog*>(dialog->searchForAuditorId("row"))->addChild(page);
  settle();
  if (hasWindow()) {
    EXPECT_TRUE(page->getWidget()->isVisible());
  }
  if (hasScene()) {
    EXPECT_TRUE(page->isShown3D());
    EXPECT_TRUE(contains(drawnTexts(scene.root()), "button B"));
  }
  expectInStep();
  page->unref();
}

TEST_P(TabDialogInFormsTest, aHundredPages)
{
  start("TopLevelDialog { width 400 TabDialog { selectedPage 57 " + pages(100) + "} }");
  EXPECT_EQ(tabs->selectedPage.getValue(), 57);
  if (hasWindow()) {
    EXPECT_EQ(windowTabs(tabs), labelsOf(tabs));
    EXPECT_EQ(tabWidgetOf(tabs)->currentIndex(), 57);
  }
  if (hasScene()) {
    const auto inSight = sceneTabs(tabs);
    EXPECT_LT(inSight.size(), 20U);
    EXPECT_TRUE(contains(inSight, "P57"));
  }
  clickTab("P57");
  EXPECT_TRUE(heard.pages.empty());
  tabs->removeChild(0);
  EXPECT_EQ(tabs->selectedPage.getValue(), 56);
  tabs->selectedPage = 98;
  settle();
  clickTab("P99");
  EXPECT_TRUE(heard.pages.empty());
  while (tabs->getNumChildren() > 90) {
    tabs->removeChild(tabs->getNumChildren() - 1);
  }
  EXPECT_EQ(tabs->selectedPage.getValue(), 89);
  EXPECT_TRUE(heard.pages.empty());
}

TEST_P(TabDialogInFormsTest, nestedTabDialogsShowTheInnerPageOfTheOuterPage)
{
  start("TopLevelDialog { width 500 TabDialog { RowDialog { label \"Plain\" DialogLabel { label \"text\" } } "
        "TabDialog { auditorID \"inner\" label \"Nested\" selectedPage 1 RowDialog { label \"X\" "
        "DialogPushButton { auditorID \"x\" buttonLabel \"in X\" } } RowDialog { label \"Y\" "
        "DialogPushButton { auditorID \"y\" buttonLabel \"in Y\" } } } } }");
  auto* inner = static_cast<SoTabDialog*>(dialog->searchForAuditorId("inner"));
  auto* x = static_cast<SoDialogPushButton*>(dialog->searchForAuditorId("x"));
  auto* y = static_cast<SoDialogPushButton*>(dialog->searchForAuditorId("y"));
  Heard innerHeard;
  inner->addAuditor(&innerHeard);
  const auto expectShown = [&](bool isX, bool isY, const char* where) {
    if (hasWindow()) {
      EXPECT_EQ(x->getWidget()->isVisible(), isX) << where;
      EXPECT_EQ(y->getWidget()->isVisible(), isY) << where;
    }
    if (hasScene()) {
      EXPECT_EQ(x->isShown3D() != FALSE, isX) << where;
      EXPECT_EQ(y->isShown3D() != FALSE, isY) << where;
      EXPECT_EQ(contains(drawnTexts(scene.root()), "in X"), isX) << where;
      EXPECT_EQ(contains(drawnTexts(scene.root()), "in Y"), isY) << where;
    }
  };
  expectShown(false, false, "another page of the outer one");
  inner->selectedPage = 0; // while it is hidden
  expectShown(false, false, "the inner one selects");
  clickTab("Nested");
  expectShown(true, false, "the outer one selects");
  clickTab(inner, "Y");
  expectShown(false, true, "the inner one is clicked");
  clickTab("Plain");
  expectShown(false, false, "away");
  clickTab("Nested");
  expectShown(false, true, "back");
  EXPECT_EQ(heard.pages, (std::vector<int>{1, 0, 1}));
  EXPECT_EQ(innerHeard.pages, std::vector<int>{1});
}

// What auditors may do

TEST_P(TabDialogInFormsTest, anAuditorMayRemoveThePageThatWasSelected)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(3) + "} }");
  heard.action = [](SoTabDialog* cpt) {
    cpt->removeChild(cpt->selectedPage.getValue());
  };
  clickTab("B");
  EXPECT_EQ(labelsOf(tabs), (std::vector<std::string>{"A", "C"}));
  EXPECT_EQ(tabs->selectedPage.getValue(), 1);
  expectInStep();
  clickTab("A");
  EXPECT_EQ(heard.pages, (std::vector<int>{1, 0}));
  expectInStep();
}

TEST_P(TabDialogInFormsTest, anAuditorMayRemoveThePageThatWasLeft)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(3) + "} }");
  heard.action = [](SoTabDialog* cpt) {
    cpt->removeChild(0);
  };
  clickTab("C");
  EXPECT_EQ(tabs->selectedPage.getValue(), 1);
  expectInStep();
  clickTab("B");
  EXPECT_EQ(heard.pages, (std::vector<int>{2, 0}));
}

TEST_P(TabDialogInFormsTest, anAuditorMayRemoveAllPagesAndAddOthers)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(3) + "} }");
  heard.action = [](SoTabDialog* cpt) {
    cpt->removeAllChildren();
  };
  clickTab("B");
  EXPECT_EQ(tabs->getNumChildren(), 0);
  expectInStep("none");
  tabs->addChild(newPage("X"));
  tabs->addChild(newPage("Y"));
  settle();
  heard.action = [](SoTabDialog* cpt) {
    cpt->removeAllChildren();
    cpt->addChild(newPage("U"));
    cpt->insertChild(newPage("V"), 0);
  };
  clickTab("Y");
  settle();
  expectInStep("others");
  EXPECT_EQ(labelsOf(tabs), (std::vector<std::string>{"V", "U"}));
  const int before = tabs->selectedPage.getValue();
  clickTab(before == 0 ? "U" : "V");
  EXPECT_EQ(heard.pages.size(), 3U);
}

TEST_P(TabDialogInFormsTest, anAuditorOfAButtonMayRemoveThePageOfTheButton)
{
  struct Removing : SoDialogPushButtonAuditor {
    void dialogPushButton(SoDialogPushButton* cpt) override
    {
      auto* page = static_cast<SoDialogGroup*>(cpt->getParent());
      static_cast<SoTabDialog*>(page->getParent())->removeChild(page);
    }
  };
  start("TopLevelDialog { width 500 TabDialog { selectedPage 1 " + pages(3) + "} }");
  Removing removing;
  auto* button = static_cast<SoDialogPushButton*>(dialog->searchForAuditorId("B"));
  button->addAuditor(&removing);
  if (isByWindow(GetParam())) {
    const QPointer<QPushButton> widget(button->getWidget()->findChild<QPushButton*>());
    QTest::mousePress(widget, Qt::LeftButton);
    QTest::mouseRelease(widget, Qt::LeftButton);
  }
  else {
    scene.click(button);
  }
  settle();
  EXPECT_EQ(labelsOf(tabs), (std::vector<std::string>{"A", "C"}));
  EXPECT_EQ(tabs->selectedPage.getValue(), 1);
  expectInStep();
  EXPECT_TRUE(heard.pages.empty());
}

TEST_P(TabDialogInFormsTest, anAuditorMayRemoveTheTabDialog)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(3) + "} DialogPushButton { auditorID \"other\" } }");
  tabs->unref(); // nobody holds it but the dialog
  SoTabDialog* pressed = std::exchange(tabs, nullptr);
  heard.action = [this](SoTabDialog* cpt) {
    dialog->removeChild(cpt);
  };
  const int before = SoQuillform::getInstanceCount();
  clickTab(pressed, "B");
  EXPECT_EQ(dialog->getNumChildren(), 1);
  EXPECT_EQ(SoQuillform::getInstanceCount(), before - 7);
}

TEST_P(TabDialogInFormsTest, anAuditorMayRemoveTheTabDialogAndPutItBack)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(3) + "} }");
  heard.action = [this](SoTabDialog* cpt) {
    dialog->removeChild(cpt);
    dialog->addChild(cpt);
  };
  clickTab("C");
  settle();
  EXPECT_EQ(tabs->selectedPage.getValue(), 2);
  expectInStep();
  if (hasScene()) {
    EXPECT_TRUE(contains(drawnTexts(scene.root()), "button C"));
  }
  clickTab("A");
  EXPECT_EQ(heard.pages, (std::vector<int>{2, 0}));
  expectInStep();
}

TEST_P(TabDialogInFormsTest, anAuditorMayAddAndRemoveAuditors)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(3) + "} }");
  auto* last = new Heard;
  Heard added;
  heard.action = [&](SoTabDialog* cpt) {
    cpt->addAuditor(&added);
    delete last;
  };
  tabs->addAuditor(last);
  clickTab("B");
  EXPECT_EQ(heard.pages, std::vector<int>{1});
  clickTab("C");
  EXPECT_EQ(heard.pages, (std::vector<int>{1, 2}));
  EXPECT_EQ(added.pages.back(), 2);
}

TEST_P(TabDialogInFormsTest, anAuditorMayCloseTheDialog)
{
  start("TopLevelDialog { width 500 TabDialog { " + pages(2) + "} }");
  heard.action = [this](SoTabDialog*) {
    dialog->close(); // the reference that this test took
  };
  clickTab("B");
  EXPECT_EQ(heard.pages, std::vector<int>{1});
  if (hasWindow()) {
    EXPECT_FALSE(tabs->getWidget() && tabs->getWidget()->isVisible());
  }
  dialog = nullptr;
}

// The scene

TEST_F(TabDialogTest, whatIsOnAHiddenPageIsNeitherDrawnNorPickedNorMeasured)
{
  SoTopLevelDialog* dialog =
    load("TopLevelDialog { TabDialog { RowDialog { label \"A\" DialogLabel { label \"text\" } } "
         "RowDialog { label \"B\" DialogPushButton { auditorID \"b\" buttonLabel \"hidden\" } } } }");
  SoTabDialog* tabs = tabsOf(dialog);
  Scene scene;
  scene.open(dialog);
  Counting counting;
  dialog->addAuditor(&counting);
  auto* button = static_cast<SoDialogPushButton*>(dialog->searchForAuditorId("b"));
  scene.click(button);
  EXPECT_EQ(counting.count, 0);
  EXPECT_FALSE(contains(drawnTexts(scene.root()), "hidden"));
  SoGetBoundingBoxAction measure(SbViewportRegion(800, 600));
  measure.apply(button);
  EXPECT_TRUE(measure.getBoundingBox().isEmpty());
  tabs->selectedPage = 1;
  scene.click(button);
  EXPECT_EQ(counting.count, 1);
  EXPECT_TRUE(contains(drawnTexts(scene.root()), "hidden"));
  measure.apply(button);
  EXPECT_FALSE(measure.getBoundingBox().isEmpty());
}

TEST_F(TabDialogTest, aHiddenTabDialogShowsOnlyItsSelectedPageWhenItIsShownAgain)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { width 500 TabDialog { " + pages(2) + "} }");
  SoTabDialog* tabs = tabsOf(dialog);
  Scene scene;
  scene.open(dialog);
  dialog->minimized = TRUE;
  EXPECT_FALSE(contains(drawnTexts(scene.root()), "button A"));
  tabs->selectedPage = 1;
  EXPECT_FALSE(contains(drawnTexts(scene.root()), "button B"));
  dialog->minimized = FALSE;
  EXPECT_FALSE(contains(drawnTexts(scene.root()), "button A"));
  EXPECT_TRUE(contains(drawnTexts(scene.root()), "button B"));
  tabs->show3D(0);
  tabs->selectedPage = 0;
  EXPECT_FALSE(contains(drawnTexts(scene.root()), "button A"));
  tabs->show3D(1);
  EXPECT_TRUE(contains(drawnTexts(scene.root()), "button A"));
  EXPECT_FALSE(contains(drawnTexts(scene.root()), "button B"));
}

TEST_F(TabDialogTest, aTabThatIsReleasedElsewhereSelectsNothing)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { width 500 TabDialog { " + pages(3) + "} }");
  SoTabDialog* tabs = tabsOf(dialog);
  Heard heard;
  tabs->addAuditor(&heard);
  Scene scene;
  scene.open(dialog);
  const auto at = [&](const char* label) {
    const SbVec3f middle = Operate::tabBox(dialog, tabs, label).getCenter();
    return scene.pixel(middle[0], middle[1]);
  };
  scene.press(at("B"));
  scene.move(at("C"));
  scene.release(at("C"));
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
  EXPECT_TRUE(heard.pages.empty());
  scene.click(at("C"));
  EXPECT_EQ(heard.pages, std::vector<int>{2});
}

TEST_F(TabDialogTest, aTabRemovedWhileItIsPressedSelectsNothing)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { width 500 TabDialog { " + pages(3) + "} }");
  SoTabDialog* tabs = tabsOf(dialog);
  Heard heard;
  tabs->addAuditor(&heard);
  Scene scene;
  scene.open(dialog);
  const SbVec3f middle = Operate::tabBox(dialog, tabs, "B").getCenter();
  scene.press(scene.pixel(middle[0], middle[1]));
  tabs->removeChild(1);
  scene.release(scene.pixel(middle[0], middle[1]));
  EXPECT_TRUE(heard.pages.empty());
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
}

TEST_F(TabDialogTest, theScrollButtonsAreThereOnlyWhenTheTabsDoNotFit)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { width 260 TabDialog { " + pages(3) + "} }");
  SoTabDialog* tabs = tabsOf(dialog);
  Scene scene;
  scene.open(dialog);
  EXPECT_EQ(Choices::shownChild(tabs, "lButtonSwtch"), SO_SWITCH_NONE);
  EXPECT_EQ(Choices::shownChild(tabs, "rButtonSwtch"), SO_SWITCH_NONE);
  for (const char* name : {"D", "E", "F", "G", "H", "I", "J", "K"}) {
    tabs->addChild(newPage(name));
  }
  EXPECT_EQ(Choices::shownChild(tabs, "lButtonSwtch"), 0);
  EXPECT_EQ(Choices::shownChild(tabs, "rButtonSwtch"), 0);
  while (tabs->getNumChildren() > 3) {
    tabs->removeChild(3);
  }
  EXPECT_EQ(Choices::shownChild(tabs, "lButtonSwtch"), SO_SWITCH_NONE);
}

TEST_F(TabDialogTest, theScrollButtonsMoveTheFirstTabInSight)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { width 260 TabDialog { " + pages(12) + "} }");
  SoTabDialog* tabs = tabsOf(dialog);
  Heard heard;
  tabs->addAuditor(&heard);
  Scene scene;
  scene.open(dialog);
  ASSERT_EQ(sceneTabs(tabs).front(), "A");
  const SbVec2s left = Choices::middleOf(scene, dialog, tabs, "lButtonSep");
  const SbVec2s right = Choices::middleOf(scene, dialog, tabs, "rButtonSep");
  scene.click(left); // there is none before it
  EXPECT_EQ(sceneTabs(tabs).front(), "A");
  scene.press(right);
  EXPECT_EQ(Choices::shownChild(tabs, "rButtonSwtch"), 1);
  EXPECT_EQ(Choices::shownChild(tabs, "lButtonSwtch"), 0);
  scene.release(right);
  EXPECT_EQ(Choices::shownChild(tabs, "rButtonSwtch"), 0);
  EXPECT_EQ(sceneTabs(tabs).front(), "B");
  scene.press(right);
  scene.release(left); // released elsewhere
  EXPECT_EQ(sceneTabs(tabs).front(), "B");
  EXPECT_EQ(Choices::shownChild(tabs, "rButtonSwtch"), 0);
  for (int i = 0; i < 20; i++) {
    scene.click(right);
  }
  EXPECT_EQ(sceneTabs(tabs).back(), "L");
  EXPECT_GT(sceneTabs(tabs).size(), 1U); // as many as fit
  for (int i = 0; i < 20; i++) {
    scene.click(left);
  }
  EXPECT_EQ(sceneTabs(tabs).front(), "A");
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
  EXPECT_TRUE(heard.pages.empty());
}

TEST_F(TabDialogTest, aPageSelectedFromCodeScrollsItsTabIntoSight)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { width 260 TabDialog { " + pages(12) + "} }");
  SoTabDialog* tabs = tabsOf(dialog);
  Scene scene;
  scene.open(dialog);
  for (const int page : {11, 3, 7, 0}) {
    tabs->selectedPage = page;
    const std::string label = tabs->getChild(page)->label.getValue().getString();
    EXPECT_TRUE(contains(sceneTabs(tabs), label)) << label;
  }
}

TEST_F(TabDialogTest, tabsAndButtonsStayInsideTheTabDialogAndApartHoweverNarrowItIs)
{
  for (const int width : {30, 45, 60, 80, 120, 200, 333}) {
    for (const int location : {SoTabDialog::TOP, SoTabDialog::BOTTOM, SoTabDialog::LEFT, SoTabDialog::RIGHT}) {
      SoTopLevelDialog* dialog =
        load("TopLevelDialog { width " + std::to_string(width) + " height " + std::to_string(width) +
             " minWidth 1 minHeight 1 TabDialog { minWidth 1 "
             "minHeight 1 RowDialog { label \"A long label\" } RowDialog { label \"B\" } "
             "RowDialog { label \"Another\" } RowDialog { label \"D\" } } }");
      SoTabDialog* tabs = tabsOf(dialog);
      tabs->tabsLocation = location;
      Scene scene;
      scene.open(dialog);
      const std::string where = std::to_string(width) + " at " + std::to_string(location);
      const QRectF frame = Plan::seen(Plan::boxOf(dialog, Plan::partOf(tabs, "mainCptSeparator")));
      const QRectF bar = Plan::seen(Plan::boxOf(dialog, Plan::partOf(tabs, "pagesSep")));
      EXPECT_TRUE(Plan::stands(bar, frame)) << where << Plan::toString(bar) << Plan::toString(frame);
      const QRectF pane = Plan::seen(Plan::boxOf(dialog, Plan::partOf(tabs, "frameSep")));
      EXPECT_TRUE(Plan::stands(pane, frame)) << where;
      if (Choices::shownChild(tabs, "lButtonSwtch") == 0) {
        const QRectF left = Plan::seen(Plan::boxOf(dialog, Plan::partOf(tabs, "lButtonSep")));
        const QRectF right = Plan::seen(Plan::boxOf(dialog, Plan::partOf(tabs, "rButtonSep")));
        EXPECT_TRUE(Plan::stands(left, frame)) << where;
        EXPECT_TRUE(Plan::stands(right, frame)) << where;
        EXPECT_FALSE(left.adjusted(0.1, 0.1, -0.1, -0.1).intersects(right)) << where;
        EXPECT_FALSE(left.adjusted(0.1, 0.1, -0.1, -0.1).intersects(pane)) << where;
        EXPECT_FALSE(left.adjusted(0.1, 0.1, -0.1, -0.1).intersects(bar)) << where << Plan::toString(bar);
      }
    }
  }
}

TEST_F(TabDialogTest, theTabsLocationMovesTheTabsInTheSceneOnly)
{
  SoTopLevelDialog* dialog = open("TopLevelDialog { width 400 height 300 TabDialog { " + pages(3) + "} }");
  SoTabDialog* tabs = tabsOf(dialog);
  Scene scene;
  scene.open(dialog);
  const auto bar = [&] {
    return Plan::seen(Plan::boxOf(dialog, Plan::partOf(tabs, "pagesSep")));
  };
  const auto page = [&] {
    return Plan::seen(Plan::boxOf(dialog, Plan::partOf(tabs->getChild(0), "mainCptSeparator")));
  };
  const QTabWidget* widget = tabWidgetOf(tabs);
  const QRect before = widget->currentWidget()->geometry();
  EXPECT_LT(bar().center().y(), page().top());
  tabs->tabsLocation = SoTabDialog::BOTTOM;
  EXPECT_GT(bar().center().y(), page().bottom());
  EXPECT_LT(bar().left(), page().left() + 1);
  tabs->tabsLocation = SoTabDialog::LEFT;
  EXPECT_LT(bar().center().x(), page().left());
  EXPECT_LT(bar().top(), page().top() + 1);
  tabs->tabsLocation = SoTabDialog::RIGHT;
  EXPECT_GT(bar().center().x(), page().right());
  settle();
  EXPECT_EQ(widget->tabPosition(), QTabWidget::North);
  EXPECT_EQ(widget->currentWidget()->geometry(), before);
  Heard heard;
  tabs->addAuditor(&heard);
  const SbVec3f middle = Operate::tabBox(dialog, tabs, "C").getCenter();
  scene.click(scene.pixel(middle[0], middle[1]));
  EXPECT_EQ(heard.pages, std::vector<int>{2});
}

TEST_P(TabDialogInFormsTest, aDisabledTabDialogCannotBeOperated)
{
  start("TopLevelDialog { width 500 TabDialog { enable FALSE " + pages(2) + "} }");
  Counting counting;
  dialog->addAuditor(&counting);
  auto* button = static_cast<SoDialogPushButton*>(dialog->searchForAuditorId("A"));
  clickTab("B");
  EXPECT_TRUE(heard.pages.empty());
  EXPECT_EQ(tabs->selectedPage.getValue(), 0);
  if (hasWindow()) {
    EXPECT_FALSE(tabs->getWidget()->isEnabled());
    EXPECT_FALSE(button->getWidget()->isEnabled());
  }
  if (hasScene()) {
    scene.click(button);
  }
  EXPECT_EQ(counting.count, 0);
  tabs->selectedPage = 1; // code may
  expectInStep();
  tabs->enable = TRUE;
  clickTab("A");
  EXPECT_EQ(heard.pages, std::vector<int>{0});
  dialog->enable = FALSE;
  clickTab("B");
  EXPECT_EQ(heard.pages, std::vector<int>{0});
}

TEST_F(TabDialogTest, aSwitchOfSkinsReachesTheTabsInSight)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { width 500 TabDialog { " + pages(3) + "} }");
  SoTabDialog* tabs = tabsOf(dialog);
  Scene scene;
  scene.open(dialog);
  const auto colourOf = [](SoNode* root) {
    SoSearchAction search;
    search.setType(SoMaterial::getClassTypeId());
    search.apply(root);
    return search.getPath() ? static_cast<SoMaterial*>(search.getPath()->getTail())->diffuseColor[0] : SbColor();
  };
  const SbColor before = colourOf(Plan::partOf(tabs, "selected"));
  SoQuillform::setSkin("dark");
  EXPECT_NE(colourOf(Plan::partOf(tabs, "selected")), before);
  EXPECT_EQ(sceneTabs(tabs), labelsOf(tabs));
  SoQuillform::setSkin("default");
  EXPECT_EQ(colourOf(Plan::partOf(tabs, "selected")), before);
}

// Files, copies, and the end

TEST_F(TabDialogTest, aTabDialogIsWrittenAsItWasRead)
{
  const std::string text = "TopLevelDialog { TabDialog { selectedPage 1 tabsLocation LEFT RowDialog { label \"A\" "
                           "DialogPushButton { } } ColumnDialog { label \"B\" } DialogLabel { label \"C\" } } }";
  SoTopLevelDialog* dialog = load(text);
  dialog->ref();
  const std::string before = toText(dialog);
  EXPECT_NE(before.find("selectedPage 1"), std::string::npos);
  EXPECT_EQ(toText(tabsOf(dialog)).find("width"), std::string::npos);
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  settle();
  Scene scene;
  scene.open(dialog);
  EXPECT_EQ(toText(dialog), before);
  dialog->getWidget()->resize(500, 400);
  settle();
  EXPECT_EQ(toText(dialog), before);
  SoNode* copy = dialog->copy();
  copy->ref();
  EXPECT_EQ(toText(copy), before);
  SoTabDialog* copied = tabsOf(static_cast<SoTopLevelDialog*>(copy));
  EXPECT_EQ(copied->getNumChildren(), 3);
  EXPECT_NE(copied->getChild(0), tabsOf(dialog)->getChild(0));
  copy->unref();
  SoNode* binary = throughBinary(dialog);
  ASSERT_NE(binary, nullptr);
  EXPECT_EQ(toText(binary), before);
  binary->unref();
  dialog->unrefNoDelete();
}

TEST_F(TabDialogTest, aPageThatTheUserSelectsIsWritten)
{
  SoTabDialog* tabs = tabsOf(open("TopLevelDialog { TabDialog { " + pages(2) + "} }"));
  EXPECT_EQ(toText(tabs).find("selectedPage"), std::string::npos);
  QTabBar* bar = tabWidgetOf(tabs)->tabBar();
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(1).center());
  EXPECT_NE(toText(tabs).find("selectedPage 1"), std::string::npos);
}

TEST_F(TabDialogTest, aCopyOfABuiltTabDialogIsBuiltOnItsOwn)
{
  SoTopLevelDialog* dialog = open("TopLevelDialog { TabDialog { selectedPage 1 " + pages(3) + "} }");
  auto* copy = static_cast<SoTopLevelDialog*>(dialog->copy());
  copy->ref();
  copy->buildDialog(nullptr, FALSE);
  copy->show();
  settle();
  EXPECT_EQ(tabWidgetOf(tabsOf(copy))->currentIndex(), 1);
  tabsOf(copy)->selectedPage = 2;
  tabsOf(copy)->getChild(0)->label = "changed";
  EXPECT_EQ(tabWidgetOf(tabsOf(dialog))->currentIndex(), 1);
  EXPECT_EQ(windowTabs(tabsOf(dialog))[0], "A");
  copy->unref();
}

TEST_F(TabDialogTest, onlyComponentsAreTakenAsPages)
{
  SoTopLevelDialog* dialog = open("TopLevelDialog { TabDialog { " + pages(1) + "} }");
  const Messages messages;
  auto* other = new SoTopLevelDialog;
  other->ref();
  tabsOf(dialog)->addChild(static_cast<SoNode*>(other));
  tabsOf(dialog)->addChild(static_cast<SoNode*>(tabsOf(dialog)));
  EXPECT_EQ(messages.all().size(), 2U);
  EXPECT_EQ(tabsOf(dialog)->getNumChildren(), 1);
  EXPECT_EQ(tabWidgetOf(tabsOf(dialog))->count(), 1);
  other->unref();
}

TEST_F(TabDialogTest, oneThatStandsAloneKeepsItsTabsInStepToo)
{
  auto* tabs = new SoTabDialog;
  tabs->ref();
  tabs->addChild(newPage("A"));
  QWidget window;
  SbVec2i32 size(300, 200);
  SbVec2i32 place(0, 0);
  tabs->buildWidget(&window, size, place, 1);
  tabs->buildWidget(nullptr, size, place, 0);
  window.resize(300, 200);
  window.show();
  settle();
  tabs->addChild(newPage("B"));
  tabs->insertChild(newPage("C"), 0);
  settle();
  EXPECT_EQ(windowTabs(tabs), (std::vector<std::string>{"C", "A", "B"}));
  EXPECT_EQ(sceneTabs(tabs), (std::vector<std::string>{"C", "A", "B"}));
  EXPECT_EQ(tabs->selectedPage.getValue(), 1);
  EXPECT_TRUE(tabs->getChild(1)->getWidget()->isVisible());
  Heard heard;
  tabs->addAuditor(&heard);
  QTabBar* bar = tabWidgetOf(tabs)->tabBar();
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(0).center());
  EXPECT_EQ(heard.pages, std::vector<int>{0});
  tabs->removeChild(0);
  EXPECT_EQ(windowTabs(tabs), (std::vector<std::string>{"A", "B"}));
  tabs->destroyWidget();
  tabs->unref();
}

TEST_F(TabDialogTest, theControlsOfARootAreTracedWhenNobodyListens)
{
  auto* tabs = new SoTabDialog;
  tabs->ref();
  tabs->addChild(newPage("A"));
  Heard heard;
  tabs->addAuditor(&heard);
  SbVec2i32 size(300, 200);
  SbVec2i32 place(0, 0);
  tabs->buildWidget(nullptr, size, place, 0);
  SoPreferences::setString("DEBUG_QUILLFORM_AUDITORS", "1");
  const Messages messages;
  tabs->applyAuditors();
  SoPreferences::unset("DEBUG_QUILLFORM_AUDITORS");
  EXPECT_EQ(messages.all().size(), 1U);
  EXPECT_EQ(messages.count("SoDialogPushButton"), 1);
  EXPECT_TRUE(heard.pages.empty());
  tabs->unref();
}

TEST_F(TabDialogTest, qtMayDeleteTheWindowFirstAndItIsBuiltAgain)
{
  SoTopLevelDialog* dialog = open("TopLevelDialog { TabDialog { selectedPage 1 " + pages(3) + "} }");
  SoTabDialog* tabs = tabsOf(dialog);
  delete dialog->getWidget();
  tabs->selectedPage = 2;
  tabs->getChild(0)->label = "changed";
  tabs->addChild(newPage("D"));
  tabs->removeChild(1);
  settle();
  EXPECT_EQ(tabs->getWidget(), nullptr);
  EXPECT_EQ(tabs->selectedPage.getValue(), 1);
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  settle();
  EXPECT_EQ(windowTabs(tabs), (std::vector<std::string>{"changed", "C", "D"}));
  EXPECT_EQ(tabWidgetOf(tabs)->currentIndex(), 1);
  dialog->destroyWidget();
  settle();
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  settle();
  EXPECT_EQ(windowTabs(tabs), (std::vector<std::string>{"changed", "C", "D"}));
  EXPECT_TRUE(tabs->getChild(1)->getWidget()->isVisible());
}

TEST_F(TabDialogTest, aPageSelectedWhileNothingIsOnScreenIsTheOneThatIsBuilt)
{
  SoTopLevelDialog* dialog = open("TopLevelDialog { width 500 TabDialog { " + pages(3) + "} }");
  SoTabDialog* tabs = tabsOf(dialog);
  dialog->destroyWidget();
  tabs->insertChild(newPage("Z"), 0);
  EXPECT_EQ(tabs->selectedPage.getValue(), 1); // still A
  tabs->selectedPage = 2;
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  settle();
  EXPECT_EQ(tabs->selectedPage.getValue(), 2);
  EXPECT_EQ(tabWidgetOf(tabs)->tabText(tabWidgetOf(tabs)->currentIndex()), "B");
}

TEST_F(TabDialogTest, pagesPutInBeforeTheFirstBuildLeaveTheSelectionAlone)
{
  auto* dialog = new SoTopLevelDialog;
  dialog->ref();
  auto* tabs = new SoTabDialog;
  tabs->selectedPage = 1;
  dialog->addChild(tabs);
  for (const char* name : {"C", "B", "A"}) {
    tabs->insertChild(newPage(name), 0);
  }
  EXPECT_EQ(tabs->selectedPage.getValue(), 1);
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  settle();
  EXPECT_EQ(tabWidgetOf(tabs)->tabText(tabWidgetOf(tabs)->currentIndex()), "B");
  dialog->unref();
}

TEST_F(TabDialogTest, theNodeMayDieBeforeItsWidgets)
{
  auto* dialog = new SoTopLevelDialog;
  dialog->ref();
  auto* tabs = new SoTabDialog;
  tabs->addChild(newPage("A"));
  tabs->addChild(newPage("B"));
  dialog->addChild(tabs);
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  settle();
  const QPointer<QTabWidget> widget(tabWidgetOf(tabs));
  dialog->unref();
  ASSERT_FALSE(widget.isNull());
  widget->setCurrentIndex(1); // nobody hears of it
  settle();
  EXPECT_TRUE(widget.isNull());
}
