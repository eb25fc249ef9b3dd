#include <Inventor/events/SoKeyboardEvent.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Quillform/core/So3DKeyboard.h>
#include <menus/Menus.h>

using Menus::boxOf;
using Menus::lineOf;
using Menus::Texts;

namespace {

typedef SoKeyboardEvent Key;

const char* const menus =
  "MenuBar { auditorID \"bar\" "
  "MenuPopup { auditorID \"file\" label \"&File\" "
  "MenuPushButton { auditorID \"new\" label \"New\" } "
  "MenuSeparator { } "
  "MenuPushButton { auditorID \"save\" label \"Save\" enable FALSE } "
  "MenuPopup { auditorID \"recent\" label \"Recent\" "
  "MenuPushButton { auditorID \"plan\" label \"plan.iv\" } "
  "MenuPopup { auditorID \"older\" label \"Older\" MenuPushButton { auditorID \"old\" label \"old.iv\" } } } "
  "MenuPushButton { auditorID \"quit\" label \"Quit\" } "
  "MenuSeparator { } } "
  "MenuPopup { auditorID \"off\" label \"Off\" enable FALSE MenuPushButton { label \"Never\" } } "
  "MenuPopup { auditorID \"view\" label \"&View\" "
  "MenuCheckBox { auditorID \"grid\" label \"Grid\" } "
  "MenuRadioButtons { auditorID \"unit\" items [ \"mm\", \"cm\", \"m\" ] } "
  "MenuPushButtonLauncher { auditorID \"colours\" label \"Colours...\" "
  "TopLevelDialog { auditorID \"launched\" DialogLabel { label \"Colours\" } } } } "
  "MenuPopup { auditorID \"help\" label \"&Help\" MenuPushButton { auditorID \"about\" label \"About\" } } } ";

} // namespace

/// The menus as geometry, operated with keys.
class MenuKeyboardTest : public MenusTest {
protected:
  void open()
  {
    openScene(std::string("TopLevelDialog { width 260 height 160 ") + menus +
              "DialogPushButton { auditorID \"ok\" buttonLabel \"OK\" } }");
    bar = item<SoMenuBar>("bar");
    file = item<SoMenuPopup>("file");
    recent = item<SoMenuPopup>("recent");
    older = item<SoMenuPopup>("older");
    view = item<SoMenuPopup>("view");
    help = item<SoMenuPopup>("help");
  }

  /// Goes to the bar by key.
  void openAtBar()
  {
    open();
    scene.click(item<SoDialogPushButton>("ok"));
    heard.events.clear();
    key(Key::TAB);
    ASSERT_EQ(So3DKeyboard::getElement(), bar);
  }

  /// Presses a key and lets it go; FALSE when the application got it.
  bool key(Key::Key pressed)
  {
    const bool isTaken = scene.sendKey(pressed, SoButtonEvent::DOWN);
    EXPECT_EQ(scene.sendKey(pressed, SoButtonEvent::UP), isTaken);
    return isTaken;
  }

  void keys(const std::vector<Key::Key>& pressed)
  {
    for (const Key::Key one : pressed) {
      EXPECT_TRUE(key(one)) << one;
    }
  }

  template <class Container>
  static SoMenuPopup* openMenuIn(Container* container)
  {
    for (int i = 0; i < container->getNumChildren(); i++) {
      auto* menu = dynamic_cast<SoMenuPopup*>(static_cast<SoQuillform*>(container->getChild(i)));
      if (menu && menu->isOpen3D()) {
        return menu;
      }
    }
    return nullptr;
  }

  /// The open menus from the outside to the inside, each with its highlighted line.
  std::string where()
  {
    std::string text;
    for (SoMenuPopup* menu = openMenuIn(bar); menu; menu = openMenuIn(menu)) {
      const SoMenuItem* marked = menu->getMarkedItem3D();
      text += text.empty() ? "" : " > ";
      text += std::string(menu->auditorID.getValue().getString()) + ":";
      text += marked ? marked->auditorID.getValue().getString() : "";
      text += marked && menu->getMarkedLine3D() > 0 ? std::to_string(menu->getMarkedLine3D()) : "";
    }
    return text;
  }

  /// The title that the outline stands around; empty without an outline.
  std::string outlinedTitle()
  {
    SoSwitch* geometry = bar->getGeometrySwitch();
    for (int i = 0; i < geometry->getNumChildren(); i++) {
      if (geometry->getChild(i)->getName() == "KeyboardOutline") {
        SoGetBoundingBoxAction measure(SbViewportRegion(Scene::width, Scene::height));
        measure.apply(geometry->getChild(i));
        const float middle = measure.getBoundingBox().getCenter()[0] + bar->get3DParentTranslation()[0];
        for (int child = 0; child < bar->getNumChildren(); child++) {
          const SbBox3f title = boxOf(dialog, bar->getChild(child));
          if (title.getMin()[0] < middle && middle < title.getMax()[0]) {
            return bar->getChild(child)->auditorID.getValue().getString();
          }
        }
      }
    }
    return "";
  }

  static int look(SoMenuItem* entry, const char* part)
  {
    return Choices::shownChild(entry, part);
  }

  SoMenuBar* bar = nullptr;
  SoMenuPopup* file = nullptr;
  SoMenuPopup* recent = nullptr;
  SoMenuPopup* older = nullptr;
  SoMenuPopup* view = nullptr;
  SoMenuPopup* help = nullptr;
};

// The bar

TEST_F(MenuKeyboardTest, tabGoesToTheBarAndArrowsToItsTitlesAndAround)
{
  openAtBar();
  EXPECT_EQ(outlinedTitle(), "file");
  for (const char* title : {"view", "help", "file"}) { // past the disabled one
    keys({Key::RIGHT_ARROW});
    EXPECT_EQ(outlinedTitle(), title);
  }
  for (const char* title : {"help", "view"}) {
    keys({Key::LEFT_ARROW});
    EXPECT_EQ(outlinedTitle(), title);
  }
  EXPECT_EQ(where(), "");
  keys({Key::TAB});
  EXPECT_EQ(So3DKeyboard::getElement(), item<SoDialogPushButton>("ok"));
  keys({Key::TAB});
  EXPECT_EQ(outlinedTitle(), "view"); // where it was
  EXPECT_TRUE(heard.events.empty());
}

TEST_F(MenuKeyboardTest, eachOfFiveKeysOpensAMenu)
{
  openAtBar();
  for (const Key::Key opening : {Key::DOWN_ARROW, Key::SPACE, Key::RETURN, Key::PAD_ENTER}) {
    keys({opening});
    EXPECT_EQ(where(), "file:new");
    EXPECT_EQ(SoQuillform::get3DCurrentActive(), file);
    keys({Key::ESCAPE});
    EXPECT_EQ(where(), "");
  }
  keys({Key::UP_ARROW});
  EXPECT_EQ(where(), "file:quit");
  EXPECT_TRUE(heard.events.empty());
}

TEST_F(MenuKeyboardTest, tabClosesAnOpenMenuAndGoesOn)
{
  openAtBar();
  keys({Key::DOWN_ARROW, Key::TAB});
  EXPECT_EQ(where(), "");
  EXPECT_EQ(So3DKeyboard::getElement(), item<SoDialogPushButton>("ok"));
}

TEST_F(MenuKeyboardTest, aBarWithoutUsableTitlesIsPassedBy)
{
  openAtBar();
  for (SoMenuPopup* menu : {file, view}) {
    menu->enable = FALSE;
  }
  EXPECT_EQ(outlinedTitle(), "help");
  help->enable = FALSE;
  EXPECT_EQ(So3DKeyboard::getElement(), nullptr);
  EXPECT_EQ(outlinedTitle(), "");
  keys({Key::TAB, Key::TAB});
  EXPECT_EQ(So3DKeyboard::getElement(), item<SoDialogPushButton>("ok"));
  help->enable = TRUE;
  keys({Key::TAB});
  EXPECT_EQ(outlinedTitle(), "help");
  bar->removeChild(help);
  EXPECT_EQ(So3DKeyboard::getElement(), nullptr);
}

// An open menu

TEST_F(MenuKeyboardTest, upAndDownGoThroughWhatCanBeChosenAndAround)
{
  openAtBar();
  keys({Key::DOWN_ARROW});
  for (const char* expected : {"file:recent", "file:quit", "file:new"}) { // no separator, not what is disabled
    keys({Key::DOWN_ARROW});
    EXPECT_EQ(where(), expected);
  }
  for (const char* expected : {"file:quit", "file:recent", "file:new"}) {
    keys({Key::UP_ARROW});
    EXPECT_EQ(where(), expected);
  }
  keys({Key::END});
  EXPECT_EQ(where(), "file:quit");
  keys({Key::HOME});
  EXPECT_EQ(where(), "file:new");
  EXPECT_TRUE(heard.events.empty());
}

TEST_F(MenuKeyboardTest, oneLineIsHighlightedAsIfItWerePressed)
{
  openAtBar();
  auto* entry = item<SoMenuItem>("new");
  keys({Key::DOWN_ARROW});
  EXPECT_EQ(look(entry, "btnSwtch"), 1);
  keys({Key::DOWN_ARROW});
  EXPECT_EQ(look(entry, "btnSwtch"), 0);
  EXPECT_EQ(look(recent, "frameSwitch"), 1);
  EXPECT_FALSE(recent->isOpen3D());
  keys({Key::DOWN_ARROW});
  EXPECT_EQ(look(recent, "frameSwitch"), 0);
  scene.press(lineOf(scene, entry)); // the pointer has the highlight now
  EXPECT_EQ(look(item<SoMenuItem>("quit"), "btnSwtch"), 0);
  EXPECT_EQ(look(entry, "btnSwtch"), 1);
  scene.release(lineOf(scene, recent));
  EXPECT_EQ(look(entry, "btnSwtch"), 0);
  keys({Key::DOWN_ARROW});
  EXPECT_EQ(where(), "file:new");
  keys({Key::ESCAPE});
  EXPECT_EQ(look(entry, "btnSwtch"), 0);
}

TEST_F(MenuKeyboardTest, rightOpensAnInnerMenuAndLeftClosesIt)
{
  openAtBar();
  keys({Key::DOWN_ARROW, Key::DOWN_ARROW, Key::RIGHT_ARROW});
  EXPECT_EQ(where(), "file:recent > recent:plan");
  keys({Key::UP_ARROW, Key::RETURN}); // Return opens it as well
  EXPECT_EQ(where(), "file:recent > recent:older > older:old");
  keys({Key::LEFT_ARROW});
  EXPECT_EQ(where(), "file:recent > recent:older");
  keys({Key::LEFT_ARROW});
  EXPECT_EQ(where(), "file:recent");
  EXPECT_EQ(look(recent, "frameSwitch"), 1);
  keys({Key::LEFT_ARROW});
  EXPECT_EQ(where(), "help:about");
  EXPECT_TRUE(heard.events.empty());
}

TEST_F(MenuKeyboardTest, leftAndRightGoToTheNeighbouringMenus)
{
  openAtBar();
  keys({Key::DOWN_ARROW});
  for (const char* expected : {"view:grid", "help:about", "file:new"}) {
    keys({Key::RIGHT_ARROW});
    EXPECT_EQ(where(), expected);
    EXPECT_EQ(outlinedTitle(), std::string(expected).substr(0, 4));
  }
  keys({Key::LEFT_ARROW});
  EXPECT_EQ(where(), "help:about");
  keys({Key::LEFT_ARROW, Key::LEFT_ARROW, Key::DOWN_ARROW, Key::RIGHT_ARROW, Key::RIGHT_ARROW});
  EXPECT_EQ(where(), "view:grid"); // from within the inner menu
}

TEST_F(MenuKeyboardTest, escapeClosesOneMenuAfterTheOther)
{
  openAtBar();
  keys({Key::DOWN_ARROW, Key::DOWN_ARROW, Key::RIGHT_ARROW, Key::DOWN_ARROW, Key::RIGHT_ARROW});
  for (const char* expected : {"file:recent > recent:older", "file:recent", ""}) {
    keys({Key::ESCAPE});
    EXPECT_EQ(where(), expected);
  }
  EXPECT_EQ(outlinedTitle(), "file");
  keys({Key::ESCAPE}); // takes the keyboard away
  EXPECT_EQ(outlinedTitle(), "");
  EXPECT_FALSE(key(Key::ESCAPE));
}

// Choosing

TEST_F(MenuKeyboardTest, aChosenEntryIsHeardOnceAndItsMenusClose)
{
  openAtBar();
  for (const Key::Key choosing : {Key::SPACE, Key::RETURN, Key::PAD_ENTER}) {
    keys({Key::DOWN_ARROW, Key::UP_ARROW, choosing});
    EXPECT_EQ(heard.events, Texts{"push quit"});
    EXPECT_EQ(where(), "");
    EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
    heard.events.clear();
  }
  keys({Key::DOWN_ARROW, Key::DOWN_ARROW, Key::RIGHT_ARROW, Key::UP_ARROW, Key::RIGHT_ARROW, Key::RETURN});
  EXPECT_EQ(heard.events, Texts{"push old"});
  EXPECT_EQ(where(), "");
  EXPECT_EQ(outlinedTitle(), "file"); // ready for the next choice
}

TEST_F(MenuKeyboardTest, aKeyThatIsHeldDownChoosesOnce)
{
  openAtBar();
  keys({Key::RIGHT_ARROW, Key::DOWN_ARROW});
  for (int i = 0; i < 3; i++) {
    EXPECT_TRUE(scene.sendKey(Key::SPACE, SoButtonEvent::DOWN));
  }
  EXPECT_TRUE(scene.sendKey(Key::SPACE, SoButtonEvent::UP));
  EXPECT_EQ(heard.events, Texts{"on grid"});
  EXPECT_EQ(where(), "");
  EXPECT_EQ(look(item<SoMenuItem>("grid"), "chkSwtch"), 1);
}

TEST_F(MenuKeyboardTest, eachLineOfARadioGroupIsReached)
{
  openAtBar();
  auto* unit = item<SoMenuRadioButtons>("unit");
  keys({Key::RIGHT_ARROW, Key::DOWN_ARROW});
  for (const char* expected : {"view:unit", "view:unit1", "view:unit2", "view:colours", "view:grid"}) {
    keys({Key::DOWN_ARROW});
    EXPECT_EQ(where(), expected);
  }
  keys({Key::UP_ARROW, Key::UP_ARROW});
  EXPECT_EQ(where(), "view:unit2");
  keys({Key::RETURN});
  EXPECT_EQ(heard.events, Texts{"radio2 unit"});
  EXPECT_EQ(unit->selectedItem.getValue(), 2);
  EXPECT_EQ(look(unit, "itemSwtch"), 0); // the mark of the first line
  keys({Key::DOWN_ARROW, Key::DOWN_ARROW, Key::DOWN_ARROW, Key::DOWN_ARROW});
  unit->items.setNum(2); // without the line that had the highlight
  EXPECT_EQ(where(), "view:");
  keys({Key::RETURN});
  EXPECT_EQ(heard.events.size(), 1U);
  view->removeChild(unit);
  keys({Key::DOWN_ARROW});
  EXPECT_EQ(where(), "view:grid");
}

TEST_F(MenuKeyboardTest, anEntryLaunchesItsDialog)
{
  openAtBar();
  keys({Key::RIGHT_ARROW, Key::UP_ARROW, Key::RETURN});
  EXPECT_EQ(heard.events, Texts{"push colours"});
  EXPECT_TRUE(item<SoTopLevelDialog>("launched")->isShown3D());
}

// The application's keys

TEST_F(MenuKeyboardTest, keysGoOnInAMenuThatThePointerOpened)
{
  open();
  EXPECT_FALSE(key(Key::DOWN_ARROW));
  clickTitle(file);
  EXPECT_EQ(where(), "file:");
  EXPECT_EQ(outlinedTitle(), "");
  keys({Key::RETURN}); // chooses nothing
  EXPECT_TRUE(heard.events.empty());
  keys({Key::UP_ARROW});
  EXPECT_EQ(where(), "file:quit");
  keys({Key::RETURN});
  EXPECT_EQ(heard.events, Texts{"push quit"});
  for (const Key::Key later : {Key::DOWN_ARROW, Key::RIGHT_ARROW, Key::SPACE, Key::ESCAPE}) {
    EXPECT_FALSE(key(later)) << later;
  }
  EXPECT_EQ(where(), "");
}

TEST_F(MenuKeyboardTest, escapeOnClosedMenusIsTheApplications)
{
  open();
  EXPECT_FALSE(key(Key::ESCAPE));
  clickTitle(file);
  clickTitle(recent);
  clickTitle(older);
  for (const char* expected : {"file: > recent:older", "file:recent", ""}) {
    keys({Key::ESCAPE});
    EXPECT_EQ(where(), expected);
  }
  EXPECT_FALSE(key(Key::ESCAPE));
  clickTitle(file);
  clickTitle(file); // closed with the pointer
  EXPECT_FALSE(key(Key::ESCAPE));
  EXPECT_FALSE(key(Key::SPACE));
}

TEST_F(MenuKeyboardTest, keysThatMenusHaveNoUseForAreTheApplications)
{
  openAtBar();
  EXPECT_FALSE(key(Key::A));
  EXPECT_FALSE(key(Key::F1));
  keys({Key::DOWN_ARROW});
  EXPECT_FALSE(key(Key::A));
  EXPECT_FALSE(key(Key::PAGE_DOWN));
  EXPECT_EQ(where(), "file:new");
}

// What the application may do meanwhile

TEST_F(MenuKeyboardTest, anAuditorMayRemoveTheEntryItsMenuTheBarAndEverything)
{
  const std::function<void(SoQuillform*)> removals[] = {
    [this](SoQuillform* entry) { file->removeChild(static_cast<SoMenuItem*>(entry)); },
    [this](SoQuillform*) { bar->removeChild(file); },
    [this](SoQuillform*) { dialog->removeChild(bar); },
    [this](SoQuillform*) { dialog->removeAllChildren(); },
  };
  int remaining = 2;
  for (const auto& removal : removals) {
    openAtBar();
    heard.then = removal;
    keys({Key::DOWN_ARROW, Key::RETURN});
    EXPECT_EQ(heard.events, Texts{"push new"});
    heard.then = nullptr;
    EXPECT_EQ(item<SoMenuItem>("new"), nullptr);
    remaining--;
    EXPECT_EQ(So3DKeyboard::getElement() != nullptr, remaining >= 0); // as long as there is a bar
    key(Key::DOWN_ARROW);
    key(Key::RETURN);
    heard.events.clear();
    scene.root()->removeChild(dialog);
    release();
  }
}

TEST_F(MenuKeyboardTest, whatCannotBeChosenAnyMoreLosesTheHighlight)
{
  openAtBar();
  keys({Key::DOWN_ARROW});
  item<SoMenuItem>("new")->enable = FALSE;
  EXPECT_EQ(where(), "file:");
  keys({Key::RETURN});
  EXPECT_TRUE(heard.events.empty());
  keys({Key::DOWN_ARROW});
  EXPECT_EQ(where(), "file:recent");
  file->removeChild(recent);
  EXPECT_EQ(where(), "file:");
  keys({Key::DOWN_ARROW});
  EXPECT_EQ(where(), "file:quit");
  file->insertChild(new SoMenuSeparator, 0);
  EXPECT_EQ(where(), "file:quit");
  file->enable = FALSE;
  EXPECT_EQ(where(), "");
  EXPECT_EQ(outlinedTitle(), "view");
  view->removeAllChildren();
  keys({Key::DOWN_ARROW, Key::DOWN_ARROW, Key::RETURN}); // of an empty menu
  EXPECT_EQ(where(), "view:");
  EXPECT_TRUE(heard.events.empty());
}

TEST_F(MenuKeyboardTest, anEntryThatWasHighlightedComesBackWithoutHighlight)
{
  openAtBar();
  keys({Key::DOWN_ARROW, Key::DOWN_ARROW});
  recent->ref();
  file->removeChild(recent);
  file->addChild(recent);
  recent->unref();
  EXPECT_EQ(where(), "file:");
  EXPECT_EQ(look(recent, "frameSwitch"), 0);
}
