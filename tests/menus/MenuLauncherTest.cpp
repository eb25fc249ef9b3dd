#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QPushButton>
#include <menus/Menus.h>

using Menus::actionsOf;
using Menus::barOf;
using Menus::choose;
using Menus::lineOf;
using Menus::openMenu;
using Menus::Texts;

/// Menu entries that open dialogs.
class MenuLauncherTest : public MenusTest {
protected:
  static std::string launching(const std::string& entry)
  {
    return "TopLevelDialog { width 200 height 120 MenuBar { MenuPopup { auditorID \"menu\" label \"&Menu\" " + entry +
           " { auditorID \"launcher\" label \"Open\" accelerator \"Ctrl+L\" "
           "    TopLevelDialog { auditorID \"first\" DialogPushButton { auditorID \"ok\" buttonLabel \"OK\" } } "
           "    TopLevelDialog { auditorID \"second\" } } } } "
           "DialogLabel { label \"Text\" } }";
  }

  SoTopLevelDialog* launched(const char* id)
  {
    return item<SoTopLevelDialog>(id);
  }

  static bool isOpen(const SoTopLevelDialog* dialog)
  {
    return dialog->getWidget() && dialog->getWidget()->isVisible();
  }

  void chooseFirst()
  {
    choose(openMenu(barOf(dialog), 0), 0);
    settle();
  }
};

TEST_F(MenuLauncherTest, aCommandCallsItsAuditorsAndShowsBothDialogsInOrder)
{
  openWindow(launching("MenuPushButtonLauncher"));
  EXPECT_EQ(launched("first")->getWidget(), nullptr) << "a menu builds its dialogs when they are first used";
  chooseFirst();
  EXPECT_EQ(heard.events, Texts{"push launcher"});
  EXPECT_TRUE(isOpen(launched("first")));
  EXPECT_TRUE(isOpen(launched("second")));
  const QWidget* window = launched("first")->getWidget();
  launched("first")->hide();
  chooseFirst();
  EXPECT_TRUE(isOpen(launched("first")));
  EXPECT_EQ(launched("first")->getWidget(), window);
}

TEST_F(MenuLauncherTest, itsShortcutOpensTheDialogs)
{
  openWindow(launching("MenuPushButtonLauncher"));
  ASSERT_TRUE(QTest::qWaitForWindowActive(dialog->getWidget()));
  QTest::keyClick(dialog->getWidget(), Qt::Key_L, Qt::ControlModifier);
  EXPECT_TRUE(isOpen(launched("first")));
  EXPECT_EQ(heard.events, Texts{"push launcher"});
}

TEST_F(MenuLauncherTest, anEntryThatIsOnKeepsItsDialogsOpen)
{
  openWindow(launching("MenuCheckBoxLauncher"));
  chooseFirst();
  EXPECT_TRUE(isOpen(launched("first")));
  EXPECT_TRUE(isOpen(launched("second")));
  EXPECT_EQ(actionsOf(Menus::menuOf(dialog, 0)->getMenu()), Texts{"[x] Open (Ctrl+L)"});
  dialog->getWidget()->activateWindow();
  chooseFirst();
  EXPECT_FALSE(isOpen(launched("first")));
  EXPECT_FALSE(isOpen(launched("second")));
  EXPECT_EQ(heard.events, (Texts{"on launcher", "off launcher"}));
}

TEST_F(MenuLauncherTest, aDialogThatTheUserClosesSwitchesItsEntryOffAndCallsNobody)
{
  openWindow(launching("MenuCheckBoxLauncher"));
  chooseFirst();
  heard.events.clear();
  launched("first")->getWidget()->close();
  settle();
  EXPECT_FALSE(item<SoMenuCheckBox>("launcher")->state.getValue());
  EXPECT_EQ(actionsOf(Menus::menuOf(dialog, 0)->getMenu()), Texts{"[ ] Open (Ctrl+L)"});
  EXPECT_TRUE(heard.events.empty());
}

TEST_F(MenuLauncherTest, anEntryThatIsOnInTheFileOpensNothingWhenItIsBuilt)
{
  openWindow("TopLevelDialog { MenuBar { MenuPopup { label \"Menu\" MenuCheckBoxLauncher { state TRUE label \"Open\" "
             "TopLevelDialog { auditorID \"first\" } } } } }");
  EXPECT_EQ(launched("first")->getWidget(), nullptr);
}

TEST_F(MenuLauncherTest, whatHappensInALaunchedDialogReachesTheDialogAround)
{
  openWindow(launching("MenuPushButtonLauncher"));
  chooseFirst();
  auto* ok = item<SoDialogPushButton>("ok");
  QTest::mouseClick(ok->getWidget()->findChild<QPushButton*>(), Qt::LeftButton);
  EXPECT_EQ(heard.events, (Texts{"push launcher", "button ok"}));
}

TEST_F(MenuLauncherTest, launchedDialogsOutliveARebuildOfTheMenus)
{
  openWindow(launching("MenuPushButtonLauncher"));
  chooseFirst();
  dialog->addChild(new SoDialogLabel);
  settle();
  EXPECT_TRUE(isOpen(launched("first")));
  dialog->hide();
  EXPECT_FALSE(isOpen(launched("first")));
}

TEST_F(MenuLauncherTest, itsDialogsAreWrittenAndReadAgain)
{
  for (const char* type : {"MenuPushButtonLauncher", "MenuCheckBoxLauncher"}) {
    SoTopLevelDialog* loaded = load(launching(type));
    ASSERT_NE(loaded, nullptr);
    const std::string text = toText(loaded);
    EXPECT_NE(text.find("\"second\""), std::string::npos);
    SoNode* again = readText(text);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(toText(again), text);
    again->unref();
  }
}

TEST_F(MenuLauncherTest, anAuditorMayRemoveTheEntryThatCallsIt)
{
  openWindow(launching("MenuPushButtonLauncher"));
  heard.then = [this](SoQuillform*) {
    Menus::menuOf(dialog, 0)->removeAllChildren();
  };
  chooseFirst();
  EXPECT_EQ(Menus::menuOf(dialog, 0)->getNumChildren(), 0);
}

// In the scene

TEST_F(MenuLauncherTest, aCommandInTheSceneOpensItsDialogBesideTheMenu)
{
  openScene(launching("MenuPushButtonLauncher"));
  EXPECT_FALSE(launched("first")->isShown3D());
  scene.click(lineOf(scene, item<SoMenuPopup>("menu")));
  auto* launcher = item<SoMenuPushButtonLauncher>("launcher");
  scene.press(lineOf(scene, launcher));
  EXPECT_TRUE(launched("first")->isShown3D()) << "at the press already";
  scene.release(lineOf(scene, launcher));
  EXPECT_EQ(heard.events, Texts{"push launcher"});
  EXPECT_TRUE(launched("first")->isShown3D());
  EXPECT_FALSE(launcher->isShown3D()) << "the menu is closed";
  scene.click(item<SoDialogPushButton>("ok"));
  EXPECT_EQ(heard.events.back(), "button ok");
}

TEST_F(MenuLauncherTest, anEntryInTheSceneShowsAndHidesItsDialogs)
{
  openScene(launching("MenuCheckBoxLauncher"));
  for (int round = 0; round < 4; round++) {
    scene.click(lineOf(scene, item<SoMenuPopup>("menu")));
    scene.click(lineOf(scene, item<SoMenuItem>("launcher")));
    EXPECT_EQ(launched("first")->isShown3D() != FALSE, round % 2 == 0);
    EXPECT_EQ(launched("second")->isShown3D() != FALSE, round % 2 == 0);
  }
}

TEST_F(MenuLauncherTest, aDialogKeepsItsPlaceInTheSceneAndTheMenuOpensInFrontOfIt)
{
  for (const char* type : {"MenuPushButtonLauncher", "MenuCheckBoxLauncher"}) {
    openScene(launching(type));
    auto* launcher = item<SoMenuItem>("launcher");
    chooseInScene({item<SoMenuPopup>("menu")}, launcher);
    const SbVec3f place = launched("first")->get3DParentTranslation();
    for (int round = 0; round < 3; round++) {
      clickTitle(item<SoMenuPopup>("menu"));
      EXPECT_EQ(launched("first")->get3DParentTranslation(), place) << type;
      SoGetBoundingBoxAction measure(SbViewportRegion(Scene::width, Scene::height));
      measure.apply(launched("first"));
      EXPECT_GT(Menus::boxOf(dialog, launcher).getMin()[2], measure.getBoundingBox().getMax()[2]) << type;
      clickTitle(item<SoMenuPopup>("menu"));
    }
    scene.root()->removeChild(dialog);
    release();
  }
}

TEST_F(MenuLauncherTest, nothingOfALaunchedDialogIsDrawnBeforeItIsOpen)
{
  openScene("TopLevelDialog { width 200 height 120 MenuBar { MenuPopup { auditorID \"menu\" label \"Menu\" "
            "MenuCheckBoxLauncher { auditorID \"launcher\" label \"Open\" "
            "TopLevelDialog { width 700 height 500 DialogLabel { auditorID \"far\" label \"far away\" } } } } } }");
  SoGetBoundingBoxAction box(SbViewportRegion(Scene::width, Scene::height));
  box.apply(dialog);
  const SbBox3f before = box.getBoundingBox();
  EXPECT_LT(before.getMax()[0] - before.getMin()[0], 230.0F);
  EXPECT_LT(before.getMax()[1] - before.getMin()[1], 170.0F);
}
