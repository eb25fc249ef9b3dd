#include <QBoxLayout>
#include <QLabel>
#include <algorithm>
#include <menus/Menus.h>

using Menus::actionsOf;
using Menus::barOf;
using Menus::Texts;

class MenuBarTest : public MenusTest {
protected:
  static std::string keys(const char* accel)
  {
    return SoMenuItem::getKeyCombination(accel, nullptr, 0).getString();
  }
};

namespace {

const char* const twoMenus = "TopLevelDialog { MenuBar { "
                             "MenuPopup { auditorID \"file\" label \"&File\" "
                             "MenuPushButton { auditorID \"open\" label \"&Open\" accelerator \"Ctrl+O\" } "
                             "MenuPopup { auditorID \"recent\" label \"&Recent\" "
                             "MenuPushButton { auditorID \"last\" label \"plan.iv\" } } "
                             "MenuSeparator { } "
                             "MenuPushButton { auditorID \"quit\" label \"&Quit\" accelerator \"Ctrl+Q\" } } "
                             "MenuPopup { auditorID \"view\" label \"&View\" } } "
                             "DialogPushButton { auditorID \"ok\" buttonLabel \"OK\" } }";

std::size_t countMenus(const SoTopLevelDialog* dialog)
{
  return static_cast<std::size_t>(dialog->getWidget()->findChildren<QMenu*>().size());
}

} // namespace

// Texts

TEST_F(MenuBarTest, modifiersComeInTheirOrderWhateverTheirSpelling)
{
  EXPECT_EQ(keys("ctrl+shift+s"), "Shift+Ctrl+s");
  EXPECT_EQ(keys("Ctrl+Alt+Shift+Meta+F1"), "Alt+Meta+Shift+Ctrl+F1");
  EXPECT_EQ(keys("CTRL+X"), "Ctrl+X");
  EXPECT_EQ(keys("Ctl X"), "Ctrl+ X");
  EXPECT_EQ(keys("ALT+META+q"), "Alt+Meta+q");
  EXPECT_EQ(keys("F5"), "F5");
  EXPECT_EQ(keys(""), "");
}

TEST_F(MenuBarTest, wordsThatAreNoModifiersStayInTheKey)
{
  EXPECT_EQ(keys("Control+X"), "ControlX");
  EXPECT_EQ(keys("meta+x"), "metax");
}

TEST_F(MenuBarTest, modifiersAreAddedUpAsNumbers)
{
  EXPECT_EQ(keys("Ctrl+Ctrl+A"), "Shift+A"); // 1 + 1 is what Shift weighs
  EXPECT_EQ(keys("Ctrl+ctrl+Ctl+B"), "Shift+Ctrl+B");
  EXPECT_EQ(keys("Alt+Alt+C"), "Alt+Meta+Shift+C"); // 16 is more than all of them together
  EXPECT_EQ(keys("Shift+shift+D"), "Meta+D");
}

TEST_F(MenuBarTest, everyPlusIsRemovedFromTheKey)
{
  EXPECT_EQ(keys("Ctrl++"), "Ctrl+");
  EXPECT_EQ(keys("a+b"), "ab");
}

TEST_F(MenuBarTest, theAcceleratorOfALabelStandsBehindTheFirstTab)
{
  EXPECT_STREQ(SoMenuItem::getAccelerator("&Open\tCtrl+O").getString(), "Ctrl+O");
  EXPECT_STREQ(SoMenuItem::getAccelerator("a\tb\tc").getString(), "b\tc");
  EXPECT_STREQ(SoMenuItem::getAccelerator("&Open").getString(), "");
}

TEST_F(MenuBarTest, aTitleLosesItsMarksAndTellsTheLastMnemonic)
{
  SbString title;
  EXPECT_EQ(SoMenuItem::buildTitleForMotifMenu("&Open\tCtrl+O", title), 'O');
  EXPECT_STREQ(title.getString(), "Open");
  EXPECT_EQ(SoMenuItem::buildTitleForMotifMenu("Cut && &paste", title), 'p');
  EXPECT_STREQ(title.getString(), "Cut & paste");
  EXPECT_EQ(SoMenuItem::buildTitleForMotifMenu("plain", title), 0);
  EXPECT_STREQ(title.getString(), "plain");
  EXPECT_EQ(SoMenuItem::buildTitleForMotifMenu("ends with &", title), 0);
  EXPECT_STREQ(title.getString(), "ends with ");
}

// Classes

TEST_F(MenuBarTest, typesAndCatalogsAreAsDocumented)
{
  make(twoMenus); // catalogs are made with the first node
  EXPECT_EQ(SoMenuBar::getClassTypeId().getParent(), SoTopComponent::getClassTypeId());
  EXPECT_EQ(SoMenuItem::getClassTypeId().getParent(), SoQuillform::getClassTypeId());
  EXPECT_EQ(SoMenuPopup::getClassTypeId().getParent(), SoMenuItem::getClassTypeId());
  const auto partsOf = [](const SoNodekitCatalog* catalog) {
    Texts parts;
    for (int i = SoQuillform::getClassNodekitCatalog()->getNumEntries(); i < catalog->getNumEntries(); i++) {
      parts.emplace_back(std::string(catalog->getName(i).getString()) + " " +
                         catalog->getType(i).getName().getString() + " " + catalog->getParentName(i).getString());
    }
    std::sort(parts.begin(), parts.end());
    return parts;
  };
  EXPECT_EQ(partsOf(SoMenuBar::getClassNodekitCatalog()),
            (Texts{"frame Group frameSep", "frameSep Separator geomSwitch"}));
  EXPECT_EQ(partsOf(SoMenuItem::getClassNodekitCatalog()),
            (Texts{"frame Group itemFrameSep", "itemFrameSep Separator geomSwitch", "labelProp Group labelSep",
                   "labelSep Separator geomSwitch"}));
  EXPECT_EQ(SoMenuPopup::getClassNodekitCatalog()->getNumEntries(),
            SoMenuItem::getClassNodekitCatalog()->getNumEntries() + 6);
}

TEST_F(MenuBarTest, theMenuBarIsFoundFromEveryDepth)
{
  make(twoMenus);
  auto* bar = dynamic_cast<SoMenuBar*>(dialog->getChild(0));
  ASSERT_NE(bar, nullptr);
  EXPECT_EQ(item<SoMenuItem>("last")->getMenuBar(), bar);
  EXPECT_EQ(item<SoMenuItem>("file")->getMenuBar(), bar);
  auto* alone = new SoMenuPopup;
  alone->ref();
  EXPECT_EQ(alone->getMenuBar(), nullptr);
  alone->unref();
}

TEST_F(MenuBarTest, identifiersAreFoundDepthFirst)
{
  make(twoMenus);
  auto* bar = static_cast<SoMenuBar*>(dialog->getChild(0));
  EXPECT_EQ(bar->searchForAuditorId("last"), item<SoMenuItem>("last"));
  EXPECT_NE(bar->searchForAuditorId("last"), nullptr);
  EXPECT_EQ(bar->searchForAuditorId("nobody"), nullptr);
  item<SoMenuItem>("quit")->auditorID = "last"; // a second one, behind the nested one
  EXPECT_STREQ(bar->searchForAuditorId("last")->label.getValue().getString(), "plan.iv");
}

// Sizes

TEST_F(MenuBarTest, aBarWithoutMenusWants10By19)
{
  auto* bar = new SoMenuBar;
  bar->ref();
  SbVec2i32 size;
  SbVec2i32 min;
  SbVec2i32 max;
  bar->getSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(10, 19));
  EXPECT_EQ(min, SbVec2i32(0, 0));
  EXPECT_EQ(max, SbVec2i32(32767, 32767));
  auto* file = new SoMenuPopup;
  file->label = "&File";
  bar->addChild(file);
  auto* view = new SoMenuPopup;
  bar->addChild(view);
  bar->getSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(10 + SoQuillform::getLabelPixelSize("&File", file)[0] + 9 + 9, 19));
  EXPECT_EQ(file->getItemInitSize(), SbVec2i32(SoQuillform::getLabelPixelSize("&File", file)[0] + 8, 18));
  bar->unref();
}

TEST_F(MenuBarTest, anItemKeepsItsFirstSizeUnlessForced)
{
  auto* popup = new SoMenuPopup;
  popup->ref();
  EXPECT_EQ(popup->getItemSize(), SbVec2i32(0, 0));
  popup->setItemSize(SbVec2i32(70, 50), 0);
  EXPECT_EQ(popup->getItemSize(), SbVec2i32(70, 18));
  popup->setItemSize(SbVec2i32(90, 50), 0);
  EXPECT_EQ(popup->getItemSize(), SbVec2i32(70, 18));
  popup->setItemSize(SbVec2i32(90, 50), 1);
  EXPECT_EQ(popup->getItemSize(), SbVec2i32(90, 18));
  popup->unref();
}

TEST_F(MenuBarTest, theBarTakesItsHeightAndNoGapFromTheWindow)
{
  openWindow("TopLevelDialog { rowSpacing 7 MenuBar { MenuPopup { label \"&File\" } } "
             "DialogPushButton { buttonLabel \"OK\" } }");
  SoTopLevelDialog* plain = load("TopLevelDialog { rowSpacing 7 DialogPushButton { buttonLabel \"OK\" } }");
  plain->buildDialog(nullptr, FALSE);
  EXPECT_EQ(dialog->getWidget()->height(), plain->getWidget()->height() + 19);
  EXPECT_EQ(barOf(dialog)->geometry(), QRect(0, 0, dialog->getWidget()->width(), 19));
  const auto* button = static_cast<SoDialogComponent*>(dialog->getChild(1));
  EXPECT_EQ(button->getWidget()->mapTo(dialog->getWidget(), QPoint(0, 0)).y(), 19);
  plain->destroyWidget();
}

TEST_F(MenuBarTest, aDialogWithABarOnlyIsBuilt)
{
  openWindow("TopLevelDialog { MenuBar { MenuPopup { label \"&File\" } } }");
  EXPECT_EQ(actionsOf(barOf(dialog)), Texts{"&File >"});
  scene.open(dialog);
}

TEST_F(MenuBarTest, aLargerFontGetsABarThatItFitsInto)
{
  const QFont before = SoQuillform::getQuillformFont();
  SoQuillform::setFont(QFont("DejaVu Sans", 16));
  openWindow("TopLevelDialog { MenuBar { MenuPopup { label \"&File\" } } DialogLabel { label \"a\" } }");
  EXPECT_GE(barOf(dialog)->height(), QFontMetrics(SoQuillform::getQuillformFont()).height());
  SoQuillform::setFont(before);
}

// The window

TEST_F(MenuBarTest, menusBecomeMenusOfTheBarInTheirOrder)
{
  openWindow(twoMenus);
  QMenuBar* bar = barOf(dialog);
  ASSERT_NE(bar, nullptr);
  EXPECT_EQ(bar, static_cast<SoMenuBar*>(dialog->getChild(0))->getMenu());
  EXPECT_EQ(actionsOf(bar), (Texts{"&File >", "&View >"}));
  EXPECT_EQ(actionsOf(menu(0)->getMenu()), (Texts{"&Open (Ctrl+O)", "&Recent >", "---", "&Quit (Ctrl+Q)"}));
  EXPECT_EQ(actionsOf(item<SoMenuPopup>("recent")->getMenu()), Texts{"plan.iv"});
  EXPECT_TRUE(bar->isVisible());
}

TEST_F(MenuBarTest, aMenuInAMenuStandsWhereItWasAddedAtTheEnd)
{
  openWindow(twoMenus);
  auto* popup = new SoMenuPopup;
  popup->label = "&More";
  menu(0)->addChild(popup);
  EXPECT_EQ(actionsOf(menu(0)->getMenu()).back(), "&More >");
}

TEST_F(MenuBarTest, theMnemonicOpensTheMenuAndChoosesTheEntry)
{
  openWindow(twoMenus);
  QTest::keyClick(dialog->getWidget(), Qt::Key_F, Qt::AltModifier);
  QTRY_VERIFY_WITH_TIMEOUT(menu(0)->getMenu()->isVisible(), 2000);
  QTest::keyClick(menu(0)->getMenu(), Qt::Key_Q);
  EXPECT_EQ(heard.events, Texts{"push quit"});
  EXPECT_FALSE(menu(0)->getMenu()->isVisible());
}

TEST_F(MenuBarTest, theMouseChoosesInNestedMenus)
{
  openWindow(twoMenus);
  QMenu* file = Menus::openMenu(barOf(dialog), 0);
  ASSERT_TRUE(file && file->isVisible());
  QMenu* recent = Menus::openMenu(file, 1);
  QTRY_VERIFY_WITH_TIMEOUT(recent->isVisible(), 2000);
  Menus::choose(recent, 0);
  EXPECT_EQ(heard.events, Texts{"push last"});
  EXPECT_FALSE(file->isVisible());
}

TEST_F(MenuBarTest, fieldsReachTheMenusAtOnce)
{
  openWindow(twoMenus);
  menu(0)->label = "&Datei";
  menu(1)->enable = FALSE;
  EXPECT_EQ(actionsOf(barOf(dialog)), (Texts{"&Datei >", "&View > disabled"}));
  EXPECT_FALSE(menu(1)->getMenu()->isEnabled());
  auto* bar = static_cast<SoMenuBar*>(dialog->getChild(0));
  bar->enable = FALSE;
  EXPECT_FALSE(barOf(dialog)->isEnabled());
  bar->enable = TRUE;
  EXPECT_TRUE(barOf(dialog)->isEnabled());
  EXPECT_TRUE(heard.events.empty());
}

TEST_F(MenuBarTest, enableFalseFromTheFileHoldsFromTheFirstBuild)
{
  openWindow("TopLevelDialog { MenuBar { enable FALSE MenuPopup { label \"a\" enable FALSE MenuPopup { label \"b\" "
             "enable FALSE } } } }");
  EXPECT_FALSE(barOf(dialog)->isEnabled());
  EXPECT_FALSE(menu(0)->getMenu()->isEnabled());
  EXPECT_EQ(actionsOf(menu(0)->getMenu()), Texts{"b > disabled"});
}

TEST_F(MenuBarTest, textsAreLatin1AndEscapesAreResolved)
{
  openWindow("TopLevelDialog { MenuBar { MenuPopup { label \"&\xdc"
             "ber\" MenuPushButton { label \"\xc4ndern\\\\tStrg+A\" } MenuPopup { label \"\xd6 \" } } } }");
  EXPECT_EQ(actionsOf(barOf(dialog)), Texts{"&\xdc"
                                            "ber >"});
  EXPECT_EQ(menu(0)->getMenu()->title(), QString::fromLatin1("&\xdc"
                                                             "ber"));
  EXPECT_EQ(actionsOf(menu(0)->getMenu()).back(), "\xd6  >");
}

TEST_F(MenuBarTest, everyMenuHasTheDialogFont)
{
  openWindow(twoMenus);
  EXPECT_TRUE(Choices::hasDialogFont(barOf(dialog)));
  for (const QMenu* found : dialog->getWidget()->findChildren<QMenu*>()) {
    if (!found->title().isEmpty()) { // Qt's own, of a bar that is too narrow, is not
      EXPECT_TRUE(Choices::hasDialogFont(found)) << found->title().toStdString();
    }
  }
}

// Rebuilds

TEST_F(MenuBarTest, everyBuildMakesANewBarAndTheOldOneGoes)
{
  openWindow(twoMenus);
  const std::size_t menus = countMenus(dialog);
  const QPointer<QMenuBar> before = barOf(dialog);
  const QPointer<QMenu> file = menu(0)->getMenu();
  const QPointer<QMenu> recent = item<SoMenuPopup>("recent")->getMenu();
  for (int i = 0; i < 3; i++) {
    dialog->addChild(new SoDialogPushButton);
    settle();
  }
  EXPECT_TRUE(before.isNull());
  EXPECT_TRUE(file.isNull());
  EXPECT_TRUE(recent.isNull());
  EXPECT_EQ(dialog->getWidget()->findChildren<QMenuBar*>().size(), 1);
  EXPECT_EQ(countMenus(dialog), menus);
  EXPECT_EQ(actionsOf(barOf(dialog)), (Texts{"&File >", "&View >"}));
  EXPECT_EQ(actionsOf(menu(0)->getMenu()), (Texts{"&Open (Ctrl+O)", "&Recent >", "---", "&Quit (Ctrl+Q)"}));
  EXPECT_EQ(actionsOf(item<SoMenuPopup>("recent")->getMenu()), Texts{"plan.iv"});
  EXPECT_TRUE(barOf(dialog)->isVisible());
  menu(0)->label = "changed";
  item<SoMenuPushButton>("open")->label = "changed too";
  EXPECT_EQ(actionsOf(barOf(dialog))[0], "changed >");
  EXPECT_EQ(actionsOf(menu(0)->getMenu())[0], "changed too (Ctrl+O)");
}

TEST_F(MenuBarTest, shortcutsWorkAfterSeveralRebuilds)
{
  openWindow(twoMenus);
  QTest::keyClick(dialog->getWidget(), Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(heard.events, Texts{"push open"});
  for (int i = 0; i < 3; i++) {
    dialog->addChild(new SoDialogPushButton);
    heard.events.clear();
    QTest::keyClick(dialog->getWidget(), Qt::Key_O, Qt::ControlModifier); // without waiting for the old bar to go
    QTest::keyClick(dialog->getWidget(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(heard.events, (Texts{"push open", "push quit"}));
  }
  item<SoMenuPopup>("file")->enable = FALSE;
  heard.events.clear();
  QTest::keyClick(dialog->getWidget(), Qt::Key_O, Qt::ControlModifier);
  EXPECT_TRUE(heard.events.empty()); // Qt alone looks at the entry only
  EXPECT_EQ(actionsOf(barOf(dialog)), (Texts{"&File > disabled", "&View >"}));
}

TEST_F(MenuBarTest, menusAndEntriesComeAndGo)
{
  openWindow(twoMenus);
  auto* bar = static_cast<SoMenuBar*>(dialog->getChild(0));
  auto* tools = new SoMenuPopup;
  tools->label = "Tools";
  bar->insertChild(tools, 1);
  EXPECT_EQ(actionsOf(barOf(dialog)), (Texts{"&File >", "Tools >", "&View >"}));
  bar->removeChild(2);
  EXPECT_EQ(actionsOf(barOf(dialog)), (Texts{"&File >", "Tools >"}));

  auto* check = new SoMenuCheckBox;
  check->label = "check";
  tools->addChild(check);
  EXPECT_EQ(actionsOf(tools->getMenu()), Texts{"[ ] check"});
  SoMenuPopup* file = menu(0);
  file->removeChild(2); // the separator
  EXPECT_EQ(actionsOf(file->getMenu()), (Texts{"&Open (Ctrl+O)", "&Recent >", "&Quit (Ctrl+Q)"}));
  auto* replacement = new SoMenuPushButton;
  replacement->label = "new";
  file->replaceChild(0, replacement);
  EXPECT_EQ(actionsOf(file->getMenu()), (Texts{"new", "&Recent >", "&Quit (Ctrl+Q)"}));
  QTest::keyClick(dialog->getWidget(), Qt::Key_O, Qt::ControlModifier);
  EXPECT_TRUE(heard.events.empty());
  file->removeAllChildren();
  EXPECT_TRUE(file->getMenu()->actions().isEmpty());
  bar->removeAllChildren();
  EXPECT_TRUE(barOf(dialog)->actions().isEmpty());
  dialog->removeChild(0);
  settle();
  EXPECT_EQ(dialog->getLayout()->menuBar(), nullptr);
  EXPECT_TRUE(dialog->getWidget()->findChildren<QMenuBar*>().isEmpty());
}

TEST_F(MenuBarTest, anEntryThatWasTakenOutWorksElsewhere)
{
  openWindow(twoMenus);
  auto* open = item<SoMenuPushButton>("open");
  open->ref();
  menu(0)->removeChild(open);
  QTest::keyClick(dialog->getWidget(), Qt::Key_O, Qt::ControlModifier);
  EXPECT_TRUE(heard.events.empty());
  open->label = "Open again";
  menu(1)->addChild(open);
  open->unref();
  EXPECT_EQ(actionsOf(menu(1)->getMenu()), Texts{"Open again (Ctrl+O)"});
  QTest::keyClick(dialog->getWidget(), Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(heard.events, Texts{"push open"});
}

TEST_F(MenuBarTest, entriesFollowTheirFieldsWhileTheyStandNowhere)
{
  openWindow("TopLevelDialog { MenuBar { MenuPopup { label \"&File\" "
             "MenuPushButton { auditorID \"push\" label \"Push\" } "
             "MenuCheckBox { auditorID \"check\" label \"Check\" enable FALSE } "
             "MenuRadioButtons { auditorID \"radio\" items [ \"a\", \"b\" ] } "
             "MenuPushButton { label \"last\" } } } }");
  auto* push = item<SoMenuPushButton>("push");
  auto* check = item<SoMenuCheckBox>("check");
  auto* radio = item<SoMenuRadioButtons>("radio");
  for (SoMenuItem* entry : std::vector<SoMenuItem*>{push, check, radio}) {
    entry->ref();
    menu(0)->removeChild(entry);
  }
  push->enable = FALSE;
  push->label = "Pushed";
  push->accelerator = "F2";
  check->state = TRUE;
  check->onString = "Checked";
  radio->items.set1Value(2, "c");
  radio->selectedItem = 2;
  radio->enable = FALSE;
  EXPECT_EQ(actionsOf(menu(0)->getMenu()), Texts{"last"});
  for (SoMenuItem* entry : std::vector<SoMenuItem*>{push, check, radio}) {
    menu(0)->addChild(entry);
    entry->unref();
  }
  EXPECT_EQ(actionsOf(menu(0)->getMenu()), (Texts{"last", "Pushed (F2) disabled", "[x] Checked", "[ ] a disabled",
                                                  "[ ] b disabled", "[x] c disabled"}));
  check->enable.touch();
  EXPECT_EQ(actionsOf(menu(0)->getMenu())[2], "[x] Checked disabled");
}

TEST_F(MenuBarTest, theSecondBarOfADialogIsRefusedWithAMessage)
{
  const Messages messages;
  openWindow("TopLevelDialog { MenuBar { MenuPopup { label \"one\" } } MenuBar { MenuPopup { label \"two\" } } "
             "DialogLabel { label \"text\" } }");
  EXPECT_EQ(actionsOf(barOf(dialog)), Texts{"one >"});
  EXPECT_EQ(dialog->getWidget()->findChildren<QMenuBar*>().size(), 1);
  EXPECT_EQ(messages.count("only the first of its menu bars"), 1);
  dialog->removeChild(0);
  settle();
  EXPECT_EQ(actionsOf(barOf(dialog)), Texts{"two >"});
}

TEST_F(MenuBarTest, aBarAboveTheApplicationsOwnWidget)
{
  make(twoMenus);
  QWidget parent;
  dialog->buildDialog(&parent, TRUE);
  parent.show();
  EXPECT_EQ(actionsOf(parent.layout()->menuBar()), (Texts{"&File >", "&View >"}));
}

TEST_F(MenuBarTest, aBarMakesItsMenuWhenItIsAskedForIt)
{
  auto* bar = new SoMenuBar;
  bar->ref();
  auto* popup = new SoMenuPopup;
  popup->label = "alone";
  bar->addChild(popup);
  EXPECT_FALSE(bar->existMenuBar());
  QPointer<QMenuBar> made = bar->getMenu();
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(actionsOf(made), Texts{"alone >"});
  bar->addChild(new SoMenuPopup);
  EXPECT_EQ(bar->getMenu()->actions().size(), 2);
  bar->unref();
  settle();
  EXPECT_TRUE(made.isNull());
}

// Broken trees

TEST_F(MenuBarTest, childrenOfTheWrongKindAreRefusedWithAMessage)
{
  const Messages messages;
  auto* bar = new SoMenuBar;
  bar->ref();
  static_cast<SoChildOperations<SoMenuPopup>*>(bar)->addChild(static_cast<SoNode*>(new SoMenuPushButton));
  bar->SoChildOperations<SoMenuPopup>::addChild(nullptr);
  bar->SoChildOperations<SoMenuPopup>::insertChild(nullptr, 0);
  EXPECT_EQ(bar->getNumChildren(), 0);
  EXPECT_EQ(messages.count("cannot stand in a MenuBar"), 1);
  auto* popup = new SoMenuPopup;
  bar->addChild(popup);
  static_cast<SoChildOperations<SoMenuItem>*>(popup)->addChild(static_cast<SoNode*>(new SoDialogPushButton));
  popup->SoChildOperations<SoMenuItem>::addChild(popup);
  auto* inner = new SoMenuPopup;
  popup->SoChildOperations<SoMenuItem>::addChild(inner);
  inner->SoChildOperations<SoMenuItem>::addChild(popup);
  EXPECT_EQ(popup->getNumChildren(), 1);
  EXPECT_EQ(inner->getNumChildren(), 0);
  EXPECT_EQ(messages.count("cannot stand inside itself"), 2);
  bar->unref();
}

TEST_F(MenuBarTest, aMenuInsideItselfInAFileIsRefused)
{
  const Messages messages;
  make("TopLevelDialog { MenuBar { DEF A MenuPopup { label \"a\" USE A } } }");
  EXPECT_GE(messages.count("cannot stand inside itself"), 1);
  EXPECT_EQ(menu(0)->getNumChildren(), 0);
}

TEST_F(MenuBarTest, whatWasReadIsWrittenAgain)
{
  openWindow("TopLevelDialog { MenuBar { MenuPopup { label \"&File\" MenuPushButton { label \"a\" accelerator "
             "\"Ctrl+A\" } MenuCheckBox { state TRUE onString \"on\" } MenuRadioButtons { items [ \"x\", \"y\" ] "
             "selectedItem 1 accelerators [ \"F1\", \"F2\" ] } MenuSeparator { } MenuFileSelection { mode SAVE } "
             "MenuPopup { label \"in\" } } } }");
  const std::string before = toText(dialog);
  scene.open(dialog);
  clickTitle(menu(0));
  settle();
  EXPECT_EQ(toText(dialog), before);
  SoNode* copy = readText(before);
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(toText(copy), before);
  copy->unref();
  SoNode* binary = throughBinary(dialog);
  ASSERT_NE(binary, nullptr);
  EXPECT_EQ(toText(binary), before);
  binary->unref();
  for (const char* expected : {"accelerator", "onString", "selectedItem", "accelerators", "SAVE"}) {
    EXPECT_NE(before.find(expected), std::string::npos) << expected;
  }
  EXPECT_EQ(before.find("filter"), std::string::npos); // a default
}

TEST_F(MenuBarTest, aCopyHasMenusOfItsOwn)
{
  openWindow(twoMenus);
  auto* copy = static_cast<SoTopLevelDialog*>(dialog->copy());
  copy->ref();
  copy->buildDialog(nullptr, FALSE);
  EXPECT_EQ(actionsOf(barOf(copy)), (Texts{"&File >", "&View >"}));
  EXPECT_NE(barOf(copy), barOf(dialog));
  EXPECT_EQ(actionsOf(Menus::menuOf(copy, 0)->getMenu()),
            (Texts{"&Open (Ctrl+O)", "&Recent >", "---", "&Quit (Ctrl+Q)"}));
  EXPECT_EQ(actionsOf(barOf(dialog)), (Texts{"&File >", "&View >"}));
  copy->destroyWidget();
  copy->unref();
}
