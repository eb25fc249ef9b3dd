#include <Inventor/nodes/SoSeparator.h>
#include <QPointer>
#include <menus/Menus.h>
#include <support/MessageUser.h>

using Menus::barOf;
using Menus::Texts;

namespace {

enum Form { WINDOW, SCENE, BOTH };

std::string nameOf(const ::testing::TestParamInfo<Form>& info)
{
  return info.param == WINDOW ? "Window" : (info.param == SCENE ? "Scene" : "Both");
}

} // namespace

/// Auditors of menus do to the dialog what they like, and so does the application from outside.
class MenuReentrancyTest : public MenusTest, public ::testing::WithParamInterface<Form> {
protected:
  void open()
  {
    const char* const text =
      "TopLevelDialog { MenuBar { auditorID \"bar\" MenuPopup { auditorID \"menu\" label \"&Menu\" "
      "MenuPushButton { auditorID \"push\" label \"Push\" accelerator \"F2\" } "
      "MenuCheckBox { auditorID \"check\" label \"Check\" accelerator \"F3\" } "
      "MenuRadioButtons { auditorID \"radio\" items [ \"a\", \"b\" ] accelerators [ \"F4\", \"F5\" ] } "
      "MenuPopup { auditorID \"inner\" label \"Inner\" MenuPushButton { auditorID \"deep\" label \"Deep\" "
      "accelerator \"F6\" } } "
      "MenuSeparator { } } } DialogPushButton { auditorID \"ok\" buttonLabel \"OK\" } }";
    if (GetParam() == SCENE) {
      openScene(text);
      return;
    }
    openWindow(text);
    if (GetParam() == BOTH) {
      scene.open(dialog);
    }
  }

  /// Chooses an entry with the pointer.
  void choose(const char* id)
  {
    auto* entry = item<SoMenuItem>(id);
    ASSERT_NE(entry, nullptr);
    const int line = std::string(id) == "radio" ? 1 : 0;
    const bool isDeep = std::string(id) == "deep";
    if (GetParam() != WINDOW) {
      std::vector<SoMenuPopup*> menus = {item<SoMenuPopup>("menu")};
      if (isDeep) {
        menus.push_back(item<SoMenuPopup>("inner"));
      }
      chooseInScene(menus, entry, line);
      return;
    }
    QMenu* popup = Menus::openMenu(barOf(dialog), 0);
    if (isDeep) {
      QMenu* inner = Menus::openMenu(popup, 4);
      QTRY_VERIFY_WITH_TIMEOUT(inner->isVisible(), 2000);
      Menus::choose(inner, 0);
      return;
    }
    const int child = item<SoMenuPopup>("menu")->findChild(entry);
    Menus::choose(popup, child + (child > 2 ? 1 : line)); // the radio group is two actions
  }

  /// The same through the keyboard, which only a window has.
  void pressShortcuts()
  {
    for (const int key : {Qt::Key_F2, Qt::Key_F3, Qt::Key_F4, Qt::Key_F5, Qt::Key_F6}) {
      if (dialog && dialog->getWidget()) {
        QTest::keyClick(dialog->getWidget(), static_cast<Qt::Key>(key));
      }
    }
  }

  SoMenuBar* bar()
  {
    return item<SoMenuBar>("bar");
  }

  void removeFromScene()
  {
    if (GetParam() != WINDOW) {
      scene.root()->removeChild(dialog);
    }
  }
};

INSTANTIATE_TEST_SUITE_P(InEveryForm, MenuReentrancyTest, ::testing::Values(WINDOW, SCENE, BOTH), nameOf);

TEST_P(MenuReentrancyTest, anEntryIsRemovedByItsAuditor)
{
  for (const char* id : {"push", "check", "radio", "deep"}) {
    heard.events.clear();
    if (dialog) {
      removeFromScene();
      dialog->destroyWidget();
      release();
    }
    open();
    heard.then = [](SoQuillform* cpt) {
      auto* around = dynamic_cast<SoMenuPopup*>(cpt->getParent());
      around->removeChild(static_cast<SoMenuItem*>(cpt));
    };
    choose(id);
    settle();
    EXPECT_EQ(heard.events.size(), 1U) << id;
    EXPECT_EQ(item<SoMenuItem>(id), nullptr) << id;
    heard.then = nullptr;
    pressShortcuts();
  }
}

TEST_P(MenuReentrancyTest, aMessageIsShownByAnEntrysAuditor)
{
  open();
  MessageUser user;
  heard.then = [](SoQuillform*) {
    auto* message = new SoMessageDialog("A text", "Title", SoMessageDialog::MD_WARNING);
    message->ref();
    message->unref();
  };
  std::size_t expected = 0;
  for (const char* id : {"push", "check", "radio", "deep"}) {
    choose(id);
    settle();
    EXPECT_EQ(user.boxes.size(), ++expected) << id;
    EXPECT_EQ(heard.events.size(), expected) << id;
  }
}

TEST_P(MenuReentrancyTest, anotherFileIsLoadedAndOpenedByAnEntrysAuditor)
{
  open();
  const std::string other = writeFile("other.iv", "TopLevelDialog { DialogLabel { label \"other\" } }");
  int opened = 0;
  heard.then = [&opened, &other](SoQuillform*) {
    auto* loaded = static_cast<SoTopLevelDialog*>(SoQuillform::loadFromFile(other.c_str(), ""));
    ASSERT_NE(loaded, nullptr);
    loaded->buildDialog(nullptr, FALSE);
    loaded->show();
    ++opened;
  };
  for (const char* id : {"push", "check", "radio", "deep"}) {
    choose(id);
    settle();
  }
  EXPECT_EQ(opened, 4);
}

TEST_P(MenuReentrancyTest, theMenuIsRemovedByAnEntrysAuditor)
{
  open();
  heard.then = [this](SoQuillform*) {
    bar()->removeAllChildren();
  };
  choose("deep");
  settle();
  EXPECT_EQ(heard.events, Texts{"push deep"});
  EXPECT_EQ(bar()->getNumChildren(), 0);
  pressShortcuts();
  EXPECT_EQ(heard.events.size(), 1U);
}

TEST_P(MenuReentrancyTest, theBarIsRemovedByAnEntrysAuditor)
{
  open();
  heard.then = [this](SoQuillform*) {
    dialog->removeChild(0);
  };
  choose("check");
  settle();
  EXPECT_EQ(heard.events, Texts{"on check"});
  EXPECT_EQ(bar(), nullptr);
  pressShortcuts();
  EXPECT_EQ(heard.events.size(), 1U);
}

TEST_P(MenuReentrancyTest, theDialogIsRebuiltByAnEntrysAuditor)
{
  open();
  heard.then = [this](SoQuillform*) {
    dialog->addChild(new SoDialogPushButton);
    auto* added = new SoMenuPushButton;
    added->auditorID = "added";
    item<SoMenuPopup>("menu")->addChild(added);
  };
  choose("deep");
  settle();
  choose("radio");
  settle();
  choose("push");
  EXPECT_EQ(heard.events, (Texts{"push deep", "radio1 radio", "push push"}));
  heard.then = nullptr;
  heard.events.clear();
  settle();
  choose("added");
  EXPECT_EQ(heard.events, Texts{"push added"});
}

TEST_P(MenuReentrancyTest, theDialogIsClosedByAnEntrysAuditor)
{
  open();
  const int before = SoQuillform::getInstanceCount();
  dialog->unref(); // the file cache's is the last one
  heard.then = [this](SoQuillform*) {
    SoTopLevelDialog* closed = dialog;
    removeFromScene();
    dialog = nullptr;
    closed->close();
  };
  choose("deep");
  settle();
  EXPECT_EQ(heard.events, Texts{"push deep"});
  EXPECT_EQ(SoQuillform::getInstanceCount(), before - 10);
}

TEST_P(MenuReentrancyTest, theDialogIsDestroyedAndBuiltAgainByAnEntrysAuditor)
{
  open();
  heard.then = [this](SoQuillform*) {
    dialog->destroyWidget();
    dialog->buildDialog(nullptr, FALSE);
    dialog->show();
  };
  choose("check");
  settle();
  EXPECT_EQ(barOf(dialog)->actions().size(), 1);
  EXPECT_EQ(item<SoMenuPopup>("menu")->getMenu()->actions().size(), 6);
}

TEST_P(MenuReentrancyTest, theItemsOfARadioGroupAreReplacedByItsAuditor)
{
  open();
  heard.then = [](SoQuillform* cpt) {
    if (auto* radio = dynamic_cast<SoMenuRadioButtons*>(cpt)) {
      radio->items.setNum(0);
      const char* three[] = {"x", "y", "z"};
      radio->items.setValues(0, 3, three);
      radio->selectedItem = 2;
    }
  };
  choose("radio");
  settle();
  EXPECT_EQ(heard.events, Texts{"radio1 radio"});
  EXPECT_EQ(item<SoMenuRadioButtons>("radio")->selectedItem.getValue(), 2);
  if (GetParam() != SCENE) {
    const Texts texts = Menus::actionsOf(item<SoMenuPopup>("menu")->getMenu());
    EXPECT_EQ(texts.back(), "[x] z");
  }
}

TEST_P(MenuReentrancyTest, anEntryIsRemovedWhileItIsHeldDown)
{
  open();
  if (GetParam() == WINDOW) {
    QMenu* popup = Menus::openMenu(barOf(dialog), 0);
    const QPoint at = popup->actionGeometry(popup->actions()[0]).center();
    QTest::mousePress(popup, Qt::LeftButton, Qt::NoModifier, at);
    item<SoMenuPopup>("menu")->removeChild(0);
    QTest::mouseRelease(popup, Qt::LeftButton, Qt::NoModifier, QPoint(-50, -50));
  }
  else {
    auto* popup = item<SoMenuPopup>("menu");
    clickTitle(popup);
    const SbVec2s at = Menus::lineOf(scene, popup->getChild(0));
    scene.press(at);
    popup->removeChild(0);
    scene.release(at);
  }
  EXPECT_TRUE(heard.events.empty());
}

TEST_P(MenuReentrancyTest, theMenusAreReleasedWhileTheyAreOpen)
{
  open();
  if (GetParam() != WINDOW) {
    clickTitle(item<SoMenuPopup>("menu"));
    clickTitle(item<SoMenuPopup>("inner"));
  }
  else {
    Menus::openMenu(barOf(dialog), 0);
  }
  dialog->removeChild(0);
  settle();
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
  removeFromScene();
  dialog->destroyWidget();
  release();
  settle();
}

TEST_P(MenuReentrancyTest, aNodeMayOutliveItsDialog)
{
  open();
  auto* deep = item<SoMenuPushButton>("deep");
  auto* menu = item<SoMenuPopup>("menu");
  auto* line = new SoMenuSeparator;
  deep->ref();
  menu->ref();
  removeFromScene();
  SoQuillform::finish(); // drops the file cache's reference
  dialog->destroyWidget();
  release();
  settle();
  EXPECT_EQ(menu->getMenu(), nullptr);
  deep->label = "changed";
  deep->accelerator = "F9";
  deep->enable = FALSE;
  menu->label = "changed";
  menu->addChild(line);
  EXPECT_EQ(deep->getMenuBar(), nullptr);
  deep->unref();
  menu->unref();
  SoQuillform::init();
}

TEST(MenuWidgetsTest, qtDeletesTheWidgetUnderTheMenus)
{
  SoQuillform::init();
  auto* dialog = new SoTopLevelDialog;
  dialog->ref();
  auto* bar = new SoMenuBar;
  auto* popup = new SoMenuPopup;
  auto* check = new SoMenuCheckBox;
  auto* radio = new SoMenuRadioButtons;
  check->label = "check";
  bar->addChild(popup);
  popup->addChild(check);
  popup->addChild(radio);
  popup->addChild(new SoMenuPopup);
  dialog->addChild(bar);
  {
    QWidget parent;
    dialog->buildDialog(&parent, TRUE);
    EXPECT_EQ(popup->getMenu()->actions().size(), 3);
  }
  EXPECT_EQ(popup->getMenu(), nullptr);
  check->state = TRUE;
  check->label = "changed";
  radio->items.set1Value(1, "second");
  popup->label = "changed";
  popup->addChild(new SoMenuSeparator);
  dialog->buildDialog(nullptr, FALSE);
  EXPECT_EQ(Menus::actionsOf(popup->getMenu()), (Texts{"[x] changed", "[x] ", "[ ] second", " >", "---"}));
  dialog->destroyWidget();
  dialog->unref();
  settle();
  SoQuillform::finish();
}
