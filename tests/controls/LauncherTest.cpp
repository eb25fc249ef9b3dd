#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoSearchAction.h>
#include <QCheckBox>
#include <QPushButton>
#include <QTest>
#include <functional>
#include <support/Messages.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

/// Notes which controls a container reports, by their identifiers.
struct Heard : SoDialogAuditor {
  void dialogPushButton(SoDialogPushButton* cpt) override
  {
    hear(cpt);
  }
  void dialogCheckBox(SoDialogCheckBox* cpt) override
  {
    hear(cpt);
  }
  void hear(SoQuillform* element)
  {
    ids.push_back(element->auditorID.getValue().getString());
    if (action) {
      action(element);
    }
  }
  std::vector<std::string> ids;
  std::function<void(SoQuillform*)> action;
};

const char* const twoDialogs = "TopLevelDialog { auditorID \"first\" label \"First\" "
                               "  DialogPushButton { auditorID \"ok\" buttonLabel \"OK\" } } "
                               "TopLevelDialog { auditorID \"second\" label \"Second\" "
                               "  DialogLabel { label \"a text\" } }";

const char* const oneDialog = "TopLevelDialog { auditorID \"first\" label \"First\" "
                              "  DialogPushButton { auditorID \"ok\" buttonLabel \"OK\" } }";

} // namespace

class LauncherTest : public QuillformTest {
protected:
  /// Loads a dialog with one launcher, which launches \a dialogs.
  void loadLauncher(const std::string& type, const std::string& dialogs, const std::string& fields = "")
  {
    outer =
      load("TopLevelDialog { auditorID \"outer\" " + type + " { auditorID \"launcher\" " + fields + dialogs + " } }");
    ASSERT_NE(outer, nullptr);
    outer->addAuditor(&heard);
  }

  void open()
  {
    outer->buildDialog(nullptr, FALSE);
    outer->show();
    settle();
  }

  SoDialogPushButtonLauncher* pushLauncher() const
  {
    return static_cast<SoDialogPushButtonLauncher*>(outer->getChild(0));
  }

  SoDialogCheckBoxLauncher* checkLauncher() const
  {
    return static_cast<SoDialogCheckBoxLauncher*>(outer->getChild(0));
  }

  static void click(SoDialogComponent* element)
  {
    if (auto* box = element->getWidget()->findChild<QCheckBox*>()) {
      QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    }
    else {
      QTest::mouseClick(element->getWidget()->findChild<QPushButton*>(), Qt::LeftButton);
    }
    settle();
  }

  static bool isOpen(const SoTopLevelDialog* dialog)
  {
    return dialog->getWidget() && dialog->getWidget()->isVisible();
  }

  SoDialogPushButton* okOf(SoTopLevelDialog* dialog) const
  {
    return static_cast<SoDialogPushButton*>(dialog->getChild(0));
  }

  Heard heard;
  Scene scene;
  SoTopLevelDialog* outer = nullptr;
};

TEST_F(LauncherTest, aPressShowsBothDialogsAndASecondPressShowsTheSameAgain)
{
  loadLauncher("DialogPushButtonLauncher", twoDialogs, "buttonLabel \"More\" ");
  open();
  SoTopLevelDialog* first = pushLauncher()->getChild(0);
  SoTopLevelDialog* second = pushLauncher()->getChild(1);
  EXPECT_FALSE(isOpen(first));
  EXPECT_FALSE(isOpen(second));
  const QWidget* window = first->getWidget();
  ASSERT_NE(window, nullptr) << "windows are made with the launcher";

  click(pushLauncher());
  EXPECT_TRUE(isOpen(first));
  EXPECT_TRUE(isOpen(second));
  EXPECT_EQ(heard.ids, std::vector<std::string>{"launcher"});

  first->hide();
  click(pushLauncher());
  EXPECT_TRUE(isOpen(first));
  EXPECT_TRUE(isOpen(second));
  EXPECT_EQ(first->getWidget(), window);
}

TEST_F(LauncherTest, aCheckedLauncherOpensItsDialogsWhenTheDialogAroundItIsBuilt)
{
  loadLauncher("DialogCheckBoxLauncher", oneDialog, "state TRUE ");
  outer->buildDialog(nullptr, FALSE);
  EXPECT_TRUE(isOpen(checkLauncher()->getChild(0)));
  EXPECT_TRUE(heard.ids.empty());
}

TEST_F(LauncherTest, aCheckBoxShowsAndHidesItsDialogs)
{
  loadLauncher("DialogCheckBoxLauncher", twoDialogs);
  open();
  click(checkLauncher());
  EXPECT_TRUE(checkLauncher()->state.getValue());
  EXPECT_TRUE(isOpen(checkLauncher()->getChild(0)));
  EXPECT_TRUE(isOpen(checkLauncher()->getChild(1)));
  click(checkLauncher());
  EXPECT_FALSE(checkLauncher()->state.getValue());
  EXPECT_FALSE(isOpen(checkLauncher()->getChild(0)));
  EXPECT_FALSE(isOpen(checkLauncher()->getChild(1)));
  EXPECT_EQ(heard.ids, (std::vector<std::string>{"launcher", "launcher"}));
}

TEST_F(LauncherTest, aStateSetFromCodeOpensTheDialogsAndCallsNobody)
{
  loadLauncher("DialogCheckBoxLauncher", oneDialog);
  open();
  checkLauncher()->state = TRUE;
  EXPECT_TRUE(isOpen(checkLauncher()->getChild(0)));
  checkLauncher()->state = FALSE;
  EXPECT_FALSE(isOpen(checkLauncher()->getChild(0)));
  EXPECT_TRUE(heard.ids.empty());
}

TEST_F(LauncherTest, aDialogThatTheUserClosesUnchecksItsLauncherAndCallsNobody)
{
  loadLauncher("DialogCheckBoxLauncher", oneDialog, "state TRUE ");
  open();
  checkLauncher()->getChild(0)->getWidget()->close();
  settle();
  EXPECT_FALSE(checkLauncher()->state.getValue());
  EXPECT_FALSE(checkLauncher()->getWidget()->findChild<QCheckBox*>()->isChecked());
  EXPECT_TRUE(heard.ids.empty());
  click(checkLauncher());
  EXPECT_TRUE(isOpen(checkLauncher()->getChild(0)));
}

TEST_F(LauncherTest, anAuditorMayTakeACheckBack)
{
  loadLauncher("DialogCheckBoxLauncher", oneDialog);
  heard.action = [](SoQuillform* element) {
    static_cast<SoDialogCheckBox*>(element)->state = FALSE;
  };
  open();
  click(checkLauncher());
  EXPECT_FALSE(isOpen(checkLauncher()->getChild(0)));
}

TEST_F(LauncherTest, theLauncherIsTheParentOfItsDialogs)
{
  loadLauncher("DialogPushButtonLauncher", oneDialog);
  EXPECT_EQ(pushLauncher()->getChild(0)->getParent(), pushLauncher());
  EXPECT_EQ(okOf(pushLauncher()->getChild(0))->getParent()->getParent(), pushLauncher());
}

TEST_F(LauncherTest, whatNoAuditorOfALaunchedDialogHearsReachesTheDialogAround)
{
  loadLauncher("DialogPushButtonLauncher", oneDialog);
  open();
  click(pushLauncher());
  click(okOf(pushLauncher()->getChild(0)));
  EXPECT_EQ(heard.ids, (std::vector<std::string>{"launcher", "ok"}));
}

TEST_F(LauncherTest, aLaunchedDialogWithAnAuditorReportsToThatOnly)
{
  loadLauncher("DialogPushButtonLauncher", oneDialog);
  Heard own;
  pushLauncher()->getChild(0)->addAuditor(&own);
  open();
  click(pushLauncher());
  click(okOf(pushLauncher()->getChild(0)));
  EXPECT_EQ(heard.ids, std::vector<std::string>{"launcher"});
  EXPECT_EQ(own.ids, std::vector<std::string>{"ok"});
  pushLauncher()->getChild(0)->removeAuditor(&own);
}

TEST_F(LauncherTest, searchesAndFirstReportsReachIntoLaunchedDialogs)
{
  for (const char* type : {"DialogPushButtonLauncher", "DialogCheckBoxLauncher"}) {
    loadLauncher(type, twoDialogs);
    SoQuillform* ok = outer->searchForAuditorId("ok");
    ASSERT_NE(ok, nullptr);
    EXPECT_EQ(ok->getParent(), outer->searchForAuditorId("first"));
    EXPECT_EQ(outer->searchForAuditorId("nowhere"), nullptr);
    heard.ids.clear();
    outer->applyAuditors();
    EXPECT_EQ(heard.ids, std::vector<std::string>{"ok"});
    outer->removeAuditor(&heard);
  }
}

TEST_F(LauncherTest, aLaunchedDialogIsWrittenReadCopiedAndFound)
{
  loadLauncher("DialogCheckBoxLauncher", twoDialogs);
  const std::string text = toText(outer);
  SoNode* again = readText(text);
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(toText(again), text);
  EXPECT_NE(text.find("\"second\""), std::string::npos);
  SoNode* binary = throughBinary(outer);
  EXPECT_EQ(toText(binary), text);

  auto* copy = static_cast<SoTopLevelDialog*>(outer->copy());
  copy->ref();
  EXPECT_EQ(toText(copy), text);
  EXPECT_NE(copy->searchForAuditorId("ok"), outer->searchForAuditorId("ok"));

  SoSearchAction search;
  SbBool wasSearching = SoBaseKit::isSearchingChildren();
  SoBaseKit::setSearchingChildren(TRUE);
  search.setNode(outer->searchForAuditorId("ok"));
  search.apply(outer);
  SoBaseKit::setSearchingChildren(wasSearching);
  EXPECT_NE(search.getPath(), nullptr);
  copy->unref();
  binary->unref();
  again->unref();
}

TEST_F(LauncherTest, dialogsCanBeAddedReplacedAndRemoved)
{
  loadLauncher("DialogPushButtonLauncher", oneDialog);
  open();
  click(pushLauncher());
  auto* added = new SoTopLevelDialog;
  added->label = "Added";
  pushLauncher()->addChild(added);
  click(pushLauncher());
  EXPECT_TRUE(isOpen(added));

  SoTopLevelDialog* first = pushLauncher()->getChild(0);
  first->ref();
  pushLauncher()->removeChild(first);
  EXPECT_FALSE(isOpen(first));
  EXPECT_EQ(first->getParent(), nullptr);
  first->unref();

  auto* other = new SoTopLevelDialog;
  pushLauncher()->replaceChild(added, other);
  EXPECT_EQ(pushLauncher()->getNumChildren(), 1);
  EXPECT_EQ(pushLauncher()->findChild(other), 0);
  pushLauncher()->removeAllChildren();
  EXPECT_EQ(pushLauncher()->getNumChildren(), 0);
  click(pushLauncher());
}

TEST_F(LauncherTest, aDialogAddedToACheckedLauncherOpensAtOnce)
{
  loadLauncher("DialogCheckBoxLauncher", "", "state TRUE ");
  open();
  auto* added = new SoTopLevelDialog;
  checkLauncher()->addChild(added);
  EXPECT_TRUE(isOpen(added));
}

TEST_F(LauncherTest, itsDialogsAreGenericChildrenToo)
{
  loadLauncher("DialogPushButtonLauncher", oneDialog);
  SoDialogPushButtonLauncher* launcher = pushLauncher();
  auto* second = new SoTopLevelDialog;
  launcher->internalAddChild(second);
  EXPECT_EQ(launcher->internalFindChild(second), 1);
  EXPECT_EQ(launcher->internalGetChild(1), second);
  auto* between = new SoTopLevelDialog;
  launcher->internalInsertChild(between, 1);
  EXPECT_EQ(launcher->internalFindChild(second), 2);
  auto* other = new SoTopLevelDialog;
  launcher->internalReplaceChild(between, other);
  EXPECT_EQ(launcher->getChild(1), other);
  launcher->internalReplaceChild(1, new SoTopLevelDialog);
  EXPECT_EQ(launcher->internalFindChild(other), -1);
  launcher->internalRemoveChild(second);
  launcher->internalRemoveChild(1);
  EXPECT_EQ(launcher->getNumChildren(), 1);
  launcher->internalRemoveChild(7);
  launcher->internalRemoveAllChildren();
  EXPECT_EQ(launcher->internalGetChild(0), nullptr);
}

TEST_F(LauncherTest, onlyDialogsOfItsOwnAreTaken)
{
  loadLauncher("DialogPushButtonLauncher", oneDialog);
  const Messages messages;
  pushLauncher()->addChild(nullptr);
  pushLauncher()->internalAddChild(new SoDialogLabel);
  EXPECT_EQ(messages.count("cannot stand in a DialogPushButtonLauncher"), 1);
  pushLauncher()->addChild(outer);
  EXPECT_EQ(messages.count("cannot stand inside itself"), 1);
  auto* second = new SoDialogCheckBoxLauncher;
  second->ref();
  second->addChild(pushLauncher()->getChild(0));
  EXPECT_EQ(messages.count("stands in a DialogPushButtonLauncher already"), 1);
  EXPECT_EQ(pushLauncher()->getNumChildren(), 1);
  EXPECT_EQ(second->getNumChildren(), 0);
  second->unref();
}

TEST_F(LauncherTest, anInnerButtonThatClosesItsDialogLeavesItToTheLauncher)
{
  loadLauncher("DialogPushButtonLauncher", oneDialog);
  heard.action = [](SoQuillform* element) {
    if (element->auditorID.getValue() == "ok") {
      static_cast<SoTopLevelDialog*>(element->getParent())->close();
    }
  };
  open();
  for (int i = 0; i < 3; i++) {
    click(pushLauncher());
    ASSERT_TRUE(isOpen(pushLauncher()->getChild(0)));
    click(okOf(pushLauncher()->getChild(0)));
    ASSERT_FALSE(isOpen(pushLauncher()->getChild(0)));
  }
}

TEST_F(LauncherTest, launchedWindowsCloseWithTheDialogAround)
{
  loadLauncher("DialogPushButtonLauncher",
               "TopLevelDialog { DialogPushButtonLauncher { " + std::string(oneDialog) + " } }");
  open();
  SoTopLevelDialog* middle = pushLauncher()->getChild(0);
  auto* innerLauncher = static_cast<SoDialogPushButtonLauncher*>(middle->getChild(0));
  click(pushLauncher());
  click(innerLauncher);
  EXPECT_TRUE(isOpen(innerLauncher->getChild(0)));
  outer->getWidget()->close();
  settle();
  EXPECT_FALSE(isOpen(middle));
  EXPECT_FALSE(isOpen(innerLauncher->getChild(0)));
}

TEST_F(LauncherTest, launchedWindowsGoWithTheirLauncher)
{
  loadLauncher("DialogCheckBoxLauncher", oneDialog, "state TRUE ");
  open();
  const QPointer<QWidget> window = checkLauncher()->getChild(0)->getWidget();
  outer->removeChild(0);
  settle();
  EXPECT_TRUE(!window || !window->isVisible());
}

TEST_F(LauncherTest, anAuditorMayRemoveTheLauncherThatCallsIt)
{
  for (const char* type : {"DialogPushButtonLauncher", "DialogCheckBoxLauncher"}) {
    loadLauncher(type, oneDialog);
    heard.action = [this](SoQuillform*) {
      outer->removeAllChildren();
    };
    open();
    click(static_cast<SoDialogComponent*>(outer->getChild(0)));
    EXPECT_EQ(outer->getNumChildren(), 0);
    outer->removeAuditor(&heard);
    outer->hide();
  }
}

TEST_F(LauncherTest, aLauncherAloneOpensItsDialogs)
{
  auto* launcher = new SoDialogPushButtonLauncher;
  launcher->ref();
  launcher->addChild(new SoTopLevelDialog);
  QWidget window;
  SbVec2i32 size(0, 0);
  SbVec2i32 place(0, 0);
  launcher->buildWidget(&window, size, place, 1);
  window.show();
  click(launcher);
  EXPECT_TRUE(isOpen(launcher->getChild(0)));
  launcher->unref();
  settle();
}

// In the scene

TEST_F(LauncherTest, aClickInTheSceneOpensTheDialogThere)
{
  loadLauncher("DialogPushButtonLauncher", oneDialog, "buttonLabel \"More\" ");
  scene.open(outer);
  SoTopLevelDialog* launched = pushLauncher()->getChild(0);
  EXPECT_NE(launched->isBuilt3D(), 0);
  EXPECT_FALSE(launched->isShown3D());
  scene.click(pushLauncher());
  EXPECT_TRUE(launched->isShown3D());
  EXPECT_EQ(launched->getWidget(), nullptr);
  EXPECT_EQ(heard.ids, std::vector<std::string>{"launcher"});

  // It is drawn in front of the dialog around it, and its controls can be pressed.
  const SbVec3f place = launched->get3DParentTranslation();
  EXPECT_GT(place[2], pushLauncher()->get3DParentTranslation()[2] + 20.0F);
  SoGetBoundingBoxAction box(SbViewportRegion(800, 600));
  box.apply(outer);
  EXPECT_LT(box.getBoundingBox().getMin()[1], place[1] - 20.0F);
  scene.click(okOf(launched));
  EXPECT_EQ(heard.ids, (std::vector<std::string>{"launcher", "ok"}));
}

TEST_F(LauncherTest, aCheckBoxInTheSceneShowsAndHidesItsDialog)
{
  loadLauncher("DialogCheckBoxLauncher", oneDialog, "state TRUE onString \"On\" ");
  scene.open(outer);
  SoTopLevelDialog* launched = checkLauncher()->getChild(0);
  EXPECT_TRUE(launched->isShown3D());
  const SbVec3f at = checkLauncher()->get3DParentTranslation();
  const SbVec2i32 size = checkLauncher()->get3DSize();
  const SbVec2s mark = scene.pixel(at[0] - static_cast<float>(size[0]) * 0.5F + 12.0F, at[1]);
  scene.click(mark);
  EXPECT_FALSE(launched->isShown3D());
  scene.click(mark);
  EXPECT_TRUE(launched->isShown3D());
  launched->close();
  EXPECT_FALSE(launched->isShown3D());
  EXPECT_FALSE(checkLauncher()->state.getValue());
}

TEST_F(LauncherTest, aLaunchedDialogInTheSceneMovesAndHidesWithTheDialogAround)
{
  loadLauncher("DialogCheckBoxLauncher", oneDialog, "state TRUE ");
  scene.open(outer);
  SoTopLevelDialog* launched = checkLauncher()->getChild(0);
  const SbVec3f before = launched->get3DParentTranslation();
  outer->position3D.setValue(30.0F, 40.0F, 5.0F);
  EXPECT_EQ(launched->get3DParentTranslation() - before, SbVec3f(30.0F, -40.0F, 5.0F));
  outer->minimized = TRUE;
  EXPECT_FALSE(launched->isShown3D());
  outer->minimized = FALSE;
  EXPECT_TRUE(launched->isShown3D());
  outer->show3D(0);
  EXPECT_FALSE(launched->isShown3D());
  outer->show3D(1);
  EXPECT_TRUE(launched->isShown3D());
}
