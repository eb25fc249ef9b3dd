#include <menus/Menus.h>

using Menus::actionsOf;
using Menus::barOf;
using Menus::Texts;

class MenuEntriesTest : public MenusTest {
protected:
  /// A dialog with one menu that holds \a entries, in a window.
  void open(const std::string& entries)
  {
    openWindow("TopLevelDialog { MenuBar { MenuPopup { label \"&Menu\" " + entries + " } } }");
    popup = menu(0);
  }

  void chooseInWindow(int index)
  {
    Menus::openMenu(barOf(dialog), 0);
    Menus::choose(popup->getMenu(), index);
  }

  void rebuild()
  {
    dialog->addChild(new SoDialogPushButton);
    settle();
  }

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
  {
    QTest::keyClick(dialog->getWidget(), key, modifiers);
  }

  SoMenuPopup* popup = nullptr;
};

namespace {

const char* const units = "MenuRadioButtons { auditorID \"unit\" items [ \"mm\", \"cm\", \"m\" ] }";

struct PushHeard : SoMenuPushButtonAuditor {
  void menuPushButton(SoMenuPushButton*) override
  {
    ++count;
  }
  int count = 0;
};

struct CheckHeard : SoMenuCheckBoxAuditor {
  void menuCheckBox(SoMenuCheckBox* cpt) override
  {
    states.push_back(cpt->state.getValue() != FALSE);
  }
  std::vector<bool> states;
};

struct RadioHeard : SoMenuRadioButtonsAuditor {
  void menuRadioButtons(SoMenuRadioButtons* cpt) override
  {
    selected.push_back(cpt->selectedItem.getValue());
  }
  std::vector<int> selected;
};

} // namespace

TEST_F(MenuEntriesTest, fieldsAndCatalogsAreAsDocumented)
{
  EXPECT_EQ(SoMenuPushButton::getClassTypeId().getParent(), SoMenuItem::getClassTypeId());
  EXPECT_EQ(SoMenuCheckBox::getClassTypeId().getParent(), SoMenuItem::getClassTypeId());
  EXPECT_EQ(SoMenuRadioButtons::getClassTypeId().getParent(), SoMenuItem::getClassTypeId());
  EXPECT_EQ(SoMenuSeparator::getClassTypeId().getParent(), SoMenuItem::getClassTypeId());
  open("MenuPushButton { } MenuCheckBox { } MenuRadioButtons { } MenuSeparator { }");
  auto* push = static_cast<SoMenuPushButton*>(popup->getChild(0));
  EXPECT_STREQ(push->accelerator.getValue().getString(), "");
  auto* check = static_cast<SoMenuCheckBox*>(popup->getChild(1));
  EXPECT_FALSE(check->state.getValue());
  EXPECT_STREQ(check->onString.getValue().getString(), "");
  EXPECT_STREQ(check->accelerator.getValue().getString(), "");
  auto* radio = static_cast<SoMenuRadioButtons*>(popup->getChild(2));
  ASSERT_EQ(radio->items.getNum(), 1);
  EXPECT_STREQ(radio->items[0].getString(), "");
  ASSERT_EQ(radio->accelerators.getNum(), 1);
  EXPECT_EQ(radio->selectedItem.getValue(), 0);
  for (const auto& [catalog, parts] : std::vector<std::pair<const SoNodekitCatalog*, Texts>>{
         {SoMenuPushButton::getClassNodekitCatalog(), {"btnSep", "btnSwtch", "released", "pressed"}},
         {SoMenuCheckBox::getClassNodekitCatalog(), {"chkSep", "chkSwtch", "stateOff", "stateOn"}},
         {SoMenuRadioButtons::getClassNodekitCatalog(), {"radioSep", "itemsSep", "itemSwtch", "stateOff", "stateOn"}},
         {SoMenuSeparator::getClassNodekitCatalog(), {"sepSep", "sepFrame"}}}) {
    for (const std::string& part : parts) {
      EXPECT_NE(catalog->getPartNumber(part.c_str()), SO_CATALOG_NAME_NOT_FOUND) << part;
    }
  }
}

TEST_F(MenuEntriesTest, sizesAreThoseOfTheTable)
{
  make("TopLevelDialog { MenuBar { MenuPopup { MenuPushButton { label \"Save\" } "
       "MenuCheckBox { label \"Grid\" onString \"Hide the grid\" } "
       "MenuRadioButtons { items [ \"mm\", \"inches\" ] } MenuSeparator { } } } }");
  const auto width = [](const char* text) {
    return SoQuillform::getLabelPixelSize(text, nullptr)[0];
  };
  popup = menu(0);
  EXPECT_EQ(popup->getChild(0)->getItemInitSize(), SbVec2i32(width("Save") + 8, 18));
  EXPECT_EQ(popup->getChild(1)->getItemInitSize(), SbVec2i32(width("Hide the grid") + 28, 18));
  EXPECT_EQ(popup->getChild(2)->getItemInitSize(), SbVec2i32(width("inches") + 28, 36));
  EXPECT_EQ(popup->getChild(3)->getItemInitSize(), SbVec2i32(16, 8));
  const int heights[] = {18, 18, 36, 8};
  for (int i = 0; i < 4; i++) {
    popup->getChild(i)->setItemSize(SbVec2i32(200, 3), 0);
    EXPECT_EQ(popup->getChild(i)->getItemSize(), SbVec2i32(200, heights[i]));
  }
}

// Commands

TEST_F(MenuEntriesTest, aCommandCallsItsOwnAuditorsOrElseTheDialogs)
{
  open("MenuPushButton { auditorID \"a\" label \"A\" } MenuPushButton { auditorID \"b\" label \"B\" }");
  PushHeard own;
  item<SoMenuPushButton>("a")->addAuditor(&own);
  chooseInWindow(0);
  EXPECT_EQ(own.count, 1);
  EXPECT_TRUE(heard.events.empty());
  chooseInWindow(1);
  EXPECT_EQ(own.count, 1);
  EXPECT_EQ(heard.events, Texts{"push b"});
}

TEST_F(MenuEntriesTest, codeCallsNobody)
{
  open("MenuPushButton { auditorID \"a\" } MenuCheckBox { auditorID \"b\" } " + std::string(units));
  item<SoMenuPushButton>("a")->label = "new";
  item<SoMenuCheckBox>("b")->state = TRUE;
  item<SoMenuRadioButtons>("unit")->selectedItem = 2;
  EXPECT_TRUE(heard.events.empty());
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"new", "[x] ", "[ ] mm", "[ ] cm", "[x] m"}));
}

TEST_F(MenuEntriesTest, aCommandFollowsItsFields)
{
  open("MenuPushButton { auditorID \"a\" label \"A\" enable FALSE accelerator \"ctrl+shift+s\" }");
  EXPECT_EQ(actionsOf(popup->getMenu()), Texts{"A (Ctrl+Shift+S) disabled"});
  press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(heard.events.empty());
  auto* push = item<SoMenuPushButton>("a");
  push->enable = TRUE;
  push->accelerator = "Alt+F2";
  push->label = "\xc4";
  EXPECT_EQ(actionsOf(popup->getMenu()), Texts{"\xc4 (Alt+F2)"});
  press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(heard.events.empty());
  press(Qt::Key_F2, Qt::AltModifier);
  EXPECT_EQ(heard.events, Texts{"push a"});
  push->accelerator = "";
  press(Qt::Key_F2, Qt::AltModifier);
  EXPECT_EQ(heard.events.size(), 1U);
}

TEST_F(MenuEntriesTest, aBadShortcutIsRefusedWithOneMessageThatNamesTheEntry)
{
  Messages messages;
  open("MenuPushButton { auditorID \"bad\" label \"Bad\" accelerator \"Control+X\" } "
       "MenuRadioButtons { auditorID \"radio\" items [ \"a\", \"b\" ] accelerators [ \"F1\", \"nonsense\" ] }");
  rebuild();
  rebuild();
  EXPECT_EQ(messages.count("Control+X"), 1);
  EXPECT_EQ(messages.count("auditorID \"bad\""), 1);
  EXPECT_EQ(messages.count("nonsense"), 1);
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"Bad", "[x] a (F1)", "[ ] b"}));
  item<SoMenuPushButton>("bad")->accelerator = "Ctrl+X";
  EXPECT_EQ(actionsOf(popup->getMenu())[0], "Bad (Ctrl+X)");
  item<SoMenuPushButton>("bad")->accelerator = "Control+X";
  EXPECT_EQ(messages.count("Control+X"), 2);
}

TEST_F(MenuEntriesTest, aShortcutWithALetterOutsideAsciiWorks)
{
  open("MenuPushButton { auditorID \"a\" label \"A\" accelerator \"Ctrl+\xd6\" }");
  EXPECT_EQ(popup->getMenu()->actions()[0]->shortcut(), QKeySequence(Qt::CTRL + Qt::Key_Odiaeresis));
}

// Check entries

TEST_F(MenuEntriesTest, aCheckEntryTurnsItsStateAndItsTextOver)
{
  open("MenuCheckBox { auditorID \"grid\" label \"Show\" onString \"Hide\" } MenuCheckBox { label \"Plain\" }");
  auto* grid = item<SoMenuCheckBox>("grid");
  CheckHeard own;
  grid->addAuditor(&own);
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[ ] Show", "[ ] Plain"}));
  chooseInWindow(0);
  EXPECT_TRUE(grid->state.getValue());
  EXPECT_EQ(own.states, std::vector<bool>{true}); // the new one
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[x] Hide", "[ ] Plain"}));
  chooseInWindow(1);
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[x] Hide", "[x] Plain"}));
  chooseInWindow(0);
  EXPECT_EQ(own.states, (std::vector<bool>{true, false}));
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[ ] Show", "[x] Plain"}));
  grid->state = TRUE;
  grid->onString = "Away";
  EXPECT_EQ(actionsOf(popup->getMenu())[0], "[x] Away");
  grid->onString = "";
  EXPECT_EQ(actionsOf(popup->getMenu())[0], "[x] Show");
}

TEST_F(MenuEntriesTest, aCheckEntryThatIsOnFromTheStartHasItsTextButNoMark)
{
  open("MenuCheckBox { auditorID \"grid\" label \"Show\" onString \"Hide\" state TRUE enable FALSE }");
  EXPECT_EQ(actionsOf(popup->getMenu()), Texts{"[ ] Hide"});
  chooseInWindow(0); // Qt checks the action, the node is switched off
  EXPECT_EQ(heard.events, Texts{"off grid"});
  EXPECT_EQ(actionsOf(popup->getMenu()), Texts{"[ ] Show"});
  chooseInWindow(0);
  EXPECT_EQ(actionsOf(popup->getMenu()), Texts{"[x] Hide"});
  item<SoMenuCheckBox>("grid")->enable.touch();
  EXPECT_EQ(actionsOf(popup->getMenu()), Texts{"[x] Hide disabled"});
}

TEST_F(MenuEntriesTest, aRebuildKeepsTheMark)
{
  open("MenuCheckBox { auditorID \"grid\" label \"Grid\" accelerator \"F7\" }");
  press(Qt::Key_F7);
  EXPECT_EQ(actionsOf(popup->getMenu()), Texts{"[x] Grid (F7)"});
  rebuild();
  EXPECT_EQ(actionsOf(popup->getMenu()), Texts{"[x] Grid (F7)"});
  press(Qt::Key_F7);
  EXPECT_EQ(heard.events, (Texts{"on grid", "off grid"}));
  EXPECT_EQ(actionsOf(popup->getMenu()), Texts{"[ ] Grid (F7)"});
}

TEST_F(MenuEntriesTest, anAuditorMaySayNo)
{
  open("MenuCheckBox { auditorID \"grid\" label \"Grid\" } " + std::string(units));
  heard.then = [](SoQuillform* cpt) {
    if (auto* check = dynamic_cast<SoMenuCheckBox*>(cpt)) {
      check->state = FALSE;
    }
    if (auto* radio = dynamic_cast<SoMenuRadioButtons*>(cpt)) {
      radio->selectedItem = 0;
    }
  };
  chooseInWindow(0);
  EXPECT_EQ(actionsOf(popup->getMenu())[0], "[ ] Grid");
  chooseInWindow(3);
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[ ] Grid", "[x] mm", "[ ] cm", "[ ] m"}));
  EXPECT_EQ(heard.events, (Texts{"on grid", "radio2 unit"}));
}

// Radio groups

TEST_F(MenuEntriesTest, oneEntryOfAGroupIsSelected)
{
  open(units);
  RadioHeard own;
  item<SoMenuRadioButtons>("unit")->addAuditor(&own);
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[x] mm", "[ ] cm", "[ ] m"}));
  chooseInWindow(2);
  EXPECT_EQ(own.selected, std::vector<int>{2});
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[ ] mm", "[ ] cm", "[x] m"}));
}

TEST_F(MenuEntriesTest, theSelectedEntryChosenAgainStaysSelectedAndIsReported)
{
  open(units);
  chooseInWindow(0);
  chooseInWindow(0);
  EXPECT_EQ(heard.events, (Texts{"radio0 unit", "radio0 unit"}));
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[x] mm", "[ ] cm", "[ ] m"}));
}

TEST_F(MenuEntriesTest, entriesHaveShortcutsByIndexAndSurplusOnesAreIgnored)
{
  open("MenuRadioButtons { auditorID \"unit\" items [ \"mm\", \"cm\", \"m\" ] accelerators \"F5\" }");
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[x] mm (F5)", "[ ] cm", "[ ] m"}));
  auto* unit = item<SoMenuRadioButtons>("unit");
  const char* five[] = {"F1", "F2", "F3", "F4", "F5"};
  unit->accelerators.setValues(0, 5, five);
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[x] mm (F1)", "[ ] cm (F2)", "[ ] m (F3)"}));
  press(Qt::Key_F3);
  EXPECT_EQ(heard.events, Texts{"radio2 unit"});
  unit->accelerators.setNum(1);
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[ ] mm (F1)", "[ ] cm", "[x] m"}));
}

TEST_F(MenuEntriesTest, theSelectionIsBroughtIntoRangeOnDemand)
{
  open(units);
  auto* unit = item<SoMenuRadioButtons>("unit");
  unit->selectedItem = 7;
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[ ] mm", "[ ] cm", "[ ] m"}));
  unit->verifySelectedItem();
  EXPECT_EQ(unit->selectedItem.getValue(), 2);
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[ ] mm", "[ ] cm", "[x] m"}));
  unit->selectedItem = -2;
  unit->verifySelectedItem();
  EXPECT_EQ(unit->selectedItem.getValue(), 0);
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[x] mm", "[ ] cm", "[ ] m"}));
  unit->items.setNum(0);
  unit->selectedItem = 3;
  unit->verifySelectedItem();
  EXPECT_EQ(unit->selectedItem.getValue(), 3);
}

TEST_F(MenuEntriesTest, aGroupThatChangesMovesToTheEndOfItsMenu)
{
  open(std::string(units) + " MenuPushButton { label \"last\" }");
  auto* unit = item<SoMenuRadioButtons>("unit");
  unit->accelerators.set1Value(0, "F5");
  const char* two[] = {"inch", "foot"};
  unit->items.setNum(2);
  unit->items.setValues(0, 2, two);
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"last", "[x] inch (F5)", "[ ] foot"}));
  press(Qt::Key_F5);
  EXPECT_EQ(heard.events, Texts{"radio0 unit"});
  rebuild();
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[x] inch (F5)", "[ ] foot", "last"}));
}

TEST_F(MenuEntriesTest, aGroupThatWasEmptiedComesBack)
{
  open(std::string(units) + " MenuPushButton { label \"last\" }");
  auto* unit = item<SoMenuRadioButtons>("unit");
  unit->items.setNum(0);
  EXPECT_EQ(actionsOf(popup->getMenu()), Texts{"last"});
  unit->items.set1Value(0, "only");
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"last", "[x] only"}));
}

TEST_F(MenuEntriesTest, identifiersAreNeverUsedAgain)
{
  const int first = SoMenuItem::ID;
  open("MenuPushButton { } " + std::string(units) + " MenuCheckBox { }");
  EXPECT_EQ(SoMenuItem::ID, first + 5);
  item<SoMenuRadioButtons>("unit")->items.set1Value(0, "new");
  EXPECT_EQ(SoMenuItem::ID, first + 8);
  chooseInWindow(3); // "cm", at the end now
  EXPECT_EQ(heard.events, Texts{"radio1 unit"});
}

TEST_F(MenuEntriesTest, aGroupIsDisabledAsAWholeFromTheFirstBuild)
{
  open("MenuRadioButtons { auditorID \"unit\" items [ \"mm\", \"cm\" ] enable FALSE }");
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[x] mm disabled", "[ ] cm disabled"}));
  item<SoMenuRadioButtons>("unit")->enable = TRUE;
  EXPECT_EQ(actionsOf(popup->getMenu()), (Texts{"[x] mm", "[ ] cm"}));
}

// Dispatch

TEST_F(MenuEntriesTest, unhandledEventsAreTracedOnDemand)
{
  open("MenuPushButton { label \"A\" } MenuCheckBox { label \"B\" onString \"C\" } "
       "MenuRadioButtons { label \"D\" items [ \"x\", \"y\" ] }");
  dialog->removeAuditor(&heard);
  {
    const Messages messages;
    chooseInWindow(0);
    EXPECT_TRUE(messages.all().empty());
  }
  SoPreferences::setString("DEBUG_QUILLFORM_AUDITORS", "1");
  const Messages messages;
  chooseInWindow(0);
  chooseInWindow(1);
  chooseInWindow(3);
  SoPreferences::unset("DEBUG_QUILLFORM_AUDITORS");
  ASSERT_EQ(messages.all().size(), 3U);
  EXPECT_NE(messages.all()[0].find("WARNING ! The DialogAuditor does not define the SoMenuPushButton component :"
                                   "\n\t\t -> label = \"A\""),
            std::string::npos);
  EXPECT_NE(messages.all()[0].find("SoDialogAuditor::menuPushButton"), std::string::npos);
  EXPECT_NE(messages.all()[1].find("SoMenuCheckBox component :\n\t\t -> label = \"B\"\n\t\t -> onString = \"C\""),
            std::string::npos);
  EXPECT_NE(messages.all()[2].find("SoMenuRadioButtons component :\n\t\t -> label = \"D\"\n\t\t -> selectedItem 1 : y"),
            std::string::npos);
}

TEST_F(MenuEntriesTest, twoHundredEntries)
{
  std::string many;
  for (int i = 0; i < 200; i++) {
    many += "MenuPushButton { auditorID \"e" + std::to_string(i) + "\" label \"entry " + std::to_string(i) + "\" } ";
  }
  open(many);
  EXPECT_EQ(popup->getMenu()->actions().size(), 200);
  for (int i = 0; i < 50; i++) {
    popup->addChild(new SoMenuPushButton);
  }
  EXPECT_EQ(popup->getMenu()->actions().size(), 250);
  popup->getMenu()->actions()[199]->trigger();
  EXPECT_EQ(heard.events, Texts{"push e199"});
}
