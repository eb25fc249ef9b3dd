#include <Inventor/SoPickedPoint.h>
#include <Inventor/actions/SoCallbackAction.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/nodes/SoSeparator.h>
#include <menus/Menus.h>

using Menus::boxOf;
using Menus::lineOf;
using Menus::Texts;

/// The menus as geometry, operated with the pointer.
class MenuSceneTest : public MenusTest {
protected:
  void open()
  {
    openScene("TopLevelDialog { label \"Dialog\" width 260 height 160 "
              "MenuBar { auditorID \"bar\" "
              "MenuPopup { auditorID \"file\" label \"&File\" "
              "MenuPushButton { auditorID \"new\" label \"&New\" accelerator \"Ctrl+N\" } "
              "MenuPopup { auditorID \"recent\" label \"&Recent\" "
              "MenuPushButton { auditorID \"plan\" label \"plan.iv\" } "
              "MenuPopup { auditorID \"older\" label \"Older\" MenuPushButton { auditorID \"old\" label \"old\" } } } "
              "MenuPopup { auditorID \"empty\" label \"Empty\" } "
              "MenuSeparator { auditorID \"line\" } "
              "MenuPushButton { auditorID \"save\" label \"Save\" enable FALSE } } "
              "MenuPopup { auditorID \"view\" label \"&View\" "
              "MenuCheckBox { auditorID \"grid\" label \"Grid\" onString \"No grid\" } "
              "MenuRadioButtons { auditorID \"unit\" items [ \"mm\", \"cm\", \"m\" ] } } } "
              "DialogLabel { auditorID \"label\" label \"Text\" } "
              "DialogPushButton { auditorID \"ok\" label \"Go:\" buttonLabel \"OK\" } "
              "DialogCheckBox { auditorID \"check\" onString \"on\" offString \"off\" } "
              "DialogPushButton { auditorID \"last\" buttonLabel \"Last\" } }");
    file = item<SoMenuPopup>("file");
    view = item<SoMenuPopup>("view");
    recent = item<SoMenuPopup>("recent");
  }

  static std::vector<SoQuillform*> elementsBelow(SoQuillform* container)
  {
    std::vector<SoQuillform*> elements;
    const SoChildElements* children = container->getChildElements();
    for (int i = 0; children && i < children->getNum(); i++) {
      elements.push_back(children->get(i));
      for (SoQuillform* inner : elementsBelow(children->get(i))) {
        elements.push_back(inner);
      }
    }
    return elements;
  }

  /// The texts that are shown, in the order of drawing.
  Texts shownTexts()
  {
    Texts texts;
    SoCallbackAction action;
    action.addPreCallback(
      SoText3::getClassTypeId(),
      [](void* data, SoCallbackAction*, const SoNode* node) {
        const auto* text = static_cast<const SoText3*>(node);
        static_cast<Texts*>(data)->emplace_back(text->string.getNum() > 0 ? text->string[0].getString() : "");
        return SoCallbackAction::CONTINUE;
      },
      &texts);
    action.apply(scene.root());
    return texts;
  }

  int countTexts(const char* text)
  {
    const Texts texts = shownTexts();
    return static_cast<int>(std::count(texts.begin(), texts.end(), text));
  }

  /// The element whose geometry is the front-most at a pixel.
  SoQuillform* pickAt(const SbVec2s& at)
  {
    SoRayPickAction pick(SbViewportRegion(Scene::width, Scene::height));
    pick.setPoint(at);
    pick.apply(scene.root());
    const SoPickedPoint* point = pick.getPickedPoint();
    SoQuillform* found = nullptr;
    for (SoQuillform* element : elementsBelow(dialog)) { // containers before what they hold
      if (point && point->getPath()->containsNode(element)) {
        found = element;
      }
    }
    return found;
  }

  static bool isShown(const SoMenuItem* entry)
  {
    return entry->isShown3D() != FALSE;
  }

  static int look(SoMenuItem* entry, const char* part)
  {
    return Choices::shownChild(entry, part);
  }

  SoMenuPopup* file = nullptr;
  SoMenuPopup* view = nullptr;
  SoMenuPopup* recent = nullptr;
};

TEST_F(MenuSceneTest, theBarLiesUnderTheTitleAcrossTheDialog)
{
  open();
  auto* bar = item<SoMenuBar>("bar");
  const QRectF rect =
    Plan::seen(Plan::boxOf(dialog, Plan::partOf(bar, "frameSep"))).translated(-Plan::border, -Plan::top);
  EXPECT_TRUE(Plan::agree(rect, QRectF(0, 0, 260, 19)));
  const QRectF first = Plan::seen(boxOf(dialog, file)).translated(-Plan::border, -Plan::top);
  const QRectF second = Plan::seen(boxOf(dialog, view)).translated(-Plan::border, -Plan::top);
  EXPECT_TRUE(Plan::stands(first, rect));
  EXPECT_TRUE(Plan::stands(second, rect));
  EXPECT_NEAR(first.left(), 5.0, 0.5);
  EXPECT_NEAR(first.width(), SoQuillform::getLabelPixelSize("&File", file)[0] + 9, 0.5);
  EXPECT_NEAR(second.left(), first.right(), 0.5);
  EXPECT_EQ(countTexts("File"), 1);
  EXPECT_EQ(countTexts("New"), 0);
}

TEST_F(MenuSceneTest, bothFormsHaveTheSamePlanBelowTheBar)
{
  open();
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  settle();
  EXPECT_EQ(dialog->getWidget()->size(), QSize(260, 160));
  const std::vector<QRectF> window = Plan::windowPlan(dialog);
  const std::vector<QRectF> inScene = Plan::scenePlan(dialog);
  ASSERT_EQ(window.size(), inScene.size());
  for (std::size_t i = 0; i < window.size(); i++) {
    EXPECT_TRUE(Plan::agree(window[i], inScene[i])) << i;
  }
}

TEST_F(MenuSceneTest, aPressOnATitleOpensAndClosesItsMenu)
{
  open();
  EXPECT_FALSE(isShown(item<SoMenuItem>("new")));
  EXPECT_EQ(look(file, "frameSwitch"), 0);
  scene.press(lineOf(scene, file));
  EXPECT_TRUE(file->isOpen3D());
  scene.release(lineOf(scene, file));
  EXPECT_TRUE(file->isOpen3D());
  EXPECT_EQ(look(file, "frameSwitch"), 1);
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), file);
  EXPECT_TRUE(isShown(item<SoMenuItem>("new")));
  EXPECT_FALSE(isShown(item<SoMenuItem>("plan")));
  clickTitle(file);
  EXPECT_FALSE(file->isOpen3D());
  EXPECT_FALSE(isShown(item<SoMenuItem>("new")));
  EXPECT_EQ(look(file, "frameSwitch"), 0);
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
}

TEST_F(MenuSceneTest, anOpenMenuHangsBelowItsTitleInFrontOfEverything)
{
  open();
  SoGetBoundingBoxAction measure(SbViewportRegion(Scene::width, Scene::height));
  measure.apply(dialog);
  const float front = measure.getBoundingBox().getMax()[2];
  const QRectF title = Plan::seen(boxOf(dialog, file));
  clickTitle(file);
  double bottom = title.bottom();
  for (int i = 0; i < file->getNumChildren(); i++) {
    const SbBox3f box = boxOf(dialog, file->getChild(i));
    const QRectF rect = Plan::seen(box);
    EXPECT_GT(box.getMin()[2], front) << i;
    EXPECT_NEAR(rect.left(), title.left() + 1.0, 0.5) << i;
    EXPECT_GE(rect.top(), bottom - 0.5) << i;
    EXPECT_LE(rect.top(), bottom + 2.5) << i;
    bottom = rect.bottom();
    EXPECT_EQ(pickAt(scene.pixel(box.getCenter()[0], box.getCenter()[1])) == file, i == 4) << i; // the disabled one
  }
  EXPECT_EQ(pickAt(lineOf(scene, item<SoMenuItem>("new"))), item<SoMenuItem>("new"));
}

TEST_F(MenuSceneTest, innerMenusOpenToTheRightInFrontOfTheOuterOnes)
{
  open();
  clickTitle(file);
  clickTitle(recent);
  EXPECT_TRUE(recent->isOpen3D());
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), file);
  const SbBox3f outer = boxOf(dialog, item<SoMenuItem>("new"));
  const SbBox3f inner = boxOf(dialog, item<SoMenuItem>("plan"));
  EXPECT_GT(inner.getMin()[2], outer.getMax()[2]);
  EXPECT_GE(inner.getMin()[0], outer.getMax()[0] - 0.5F);
  EXPECT_NEAR(inner.getMax()[1], boxOf(dialog, recent).getMax()[1], 1.5F);
  clickTitle(recent);
  EXPECT_FALSE(recent->isOpen3D());
  EXPECT_TRUE(file->isOpen3D());
  EXPECT_FALSE(isShown(item<SoMenuItem>("plan")));
}

TEST_F(MenuSceneTest, oneInnerMenuIsOpenAtATime)
{
  open();
  clickTitle(file);
  clickTitle(recent);
  clickTitle(item<SoMenuPopup>("older"));
  EXPECT_TRUE(isShown(item<SoMenuItem>("old")));
  clickTitle(item<SoMenuPopup>("empty"));
  EXPECT_FALSE(recent->isOpen3D());
  EXPECT_FALSE(isShown(item<SoMenuItem>("old")));
  EXPECT_TRUE(item<SoMenuPopup>("empty")->isOpen3D());
  clickTitle(file);
  EXPECT_FALSE(item<SoMenuPopup>("empty")->isOpen3D());
}

TEST_F(MenuSceneTest, anotherTitleOpensItsMenuInstead)
{
  open();
  clickTitle(file);
  clickTitle(recent);
  clickTitle(view);
  EXPECT_FALSE(file->isOpen3D());
  EXPECT_FALSE(recent->isOpen3D());
  EXPECT_TRUE(view->isOpen3D());
}

TEST_F(MenuSceneTest, anEntryActsAtTheReleaseAndClosesTheMenus)
{
  open();
  auto* entry = item<SoMenuPushButton>("new");
  clickTitle(file);
  scene.press(lineOf(scene, entry));
  EXPECT_EQ(look(entry, "btnSwtch"), 1);
  EXPECT_TRUE(heard.events.empty());
  scene.release(lineOf(scene, entry));
  EXPECT_EQ(heard.events, Texts{"push new"});
  EXPECT_EQ(look(entry, "btnSwtch"), 0);
  EXPECT_FALSE(file->isOpen3D());
  heard.events.clear();
  chooseInScene({file, recent, item<SoMenuPopup>("older")}, item<SoMenuItem>("old"));
  EXPECT_EQ(heard.events, Texts{"push old"});
  EXPECT_FALSE(file->isOpen3D() || recent->isOpen3D() || item<SoMenuPopup>("older")->isOpen3D());
}

TEST_F(MenuSceneTest, aReleaseOutsideTheEntryChoosesNothing)
{
  open();
  auto* entry = item<SoMenuPushButton>("new");
  clickTitle(file);
  const SbVec3f place = entry->get3DParentTranslation();
  const SbVec2s inside = lineOf(scene, entry);
  scene.press(inside);
  scene.move(lineOf(scene, recent));
  EXPECT_EQ(look(entry, "btnSwtch"), 0); // a release here would choose nothing
  scene.move(inside);
  EXPECT_EQ(look(entry, "btnSwtch"), 1);
  EXPECT_EQ(entry->get3DParentTranslation(), place); // entries are not dragged about
  scene.move(lineOf(scene, recent));
  scene.release(lineOf(scene, recent));
  EXPECT_TRUE(heard.events.empty());
  EXPECT_TRUE(file->isOpen3D());
  EXPECT_FALSE(recent->isOpen3D());
  auto* unit = item<SoMenuRadioButtons>("unit");
  clickTitle(view);
  scene.press(lineOf(scene, unit, 1));
  scene.release(lineOf(scene, unit, 2));
  EXPECT_TRUE(heard.events.empty());
  EXPECT_EQ(unit->selectedItem.getValue(), 0);
}

TEST_F(MenuSceneTest, aPressElsewhereClosesTheMenus)
{
  open();
  const auto close = [this](const SbVec2s& at, const char* where) {
    clickTitle(file);
    clickTitle(recent);
    ASSERT_TRUE(recent->isOpen3D());
    scene.click(at);
    EXPECT_FALSE(file->isOpen3D() || recent->isOpen3D()) << where;
  };
  close(scene.pixel(200, -10), "the dialog's title");
  close(scene.pixel(700, -10), "outside the dialog");
  close(scene.centre(item<SoDialogComponent>("last")), "a button");
  close(scene.pixel(258, -32), "the bar");
  const SbVec3f label = item<SoDialogComponent>("label")->get3DParentTranslation();
  close(scene.pixel(label[0] + 115, label[1]), "a label");
  EXPECT_EQ(heard.events, Texts{"button last"});
}

TEST_F(MenuSceneTest, whatIsOfNoUseInAMenuLetsNoPressThrough)
{
  open();
  clickTitle(file);
  const SbVec2s disabled = lineOf(scene, item<SoMenuItem>("save"));
  const SbBox3f line = boxOf(dialog, item<SoMenuItem>("line"));
  for (const SbVec2s& at : {disabled, scene.pixel(line.getCenter()[0], line.getCenter()[1])}) {
    scene.click(at);
    EXPECT_TRUE(heard.events.empty());
    EXPECT_TRUE(file->isOpen3D());
  }
  file->show3DChildren(0);
  EXPECT_NE(pickAt(disabled), file); // something else stands there
}

TEST_F(MenuSceneTest, aCheckEntryTurnsItsMarkAndItsTextOver)
{
  open();
  auto* grid = item<SoMenuCheckBox>("grid");
  EXPECT_EQ(look(grid, "chkSwtch"), 0);
  chooseInScene({view}, grid);
  EXPECT_EQ(heard.events, Texts{"on grid"});
  EXPECT_TRUE(grid->state.getValue());
  EXPECT_EQ(look(grid, "chkSwtch"), 1);
  clickTitle(view);
  EXPECT_EQ(countTexts("No grid"), 1);
  EXPECT_EQ(countTexts("Grid"), 0);
  clickTitle(view);
  grid->state = FALSE;
  EXPECT_EQ(look(grid, "chkSwtch"), 0);
  EXPECT_EQ(heard.events.size(), 1U);
  heard.then = [grid](SoQuillform*) {
    grid->state = FALSE; // no
  };
  chooseInScene({view}, grid);
  EXPECT_EQ(look(grid, "chkSwtch"), 0);
}

TEST_F(MenuSceneTest, oneEntryOfARadioGroupIsSelected)
{
  open();
  auto* unit = item<SoMenuRadioButtons>("unit");
  chooseInScene({view}, unit, 2);
  EXPECT_EQ(heard.events, Texts{"radio2 unit"});
  EXPECT_FALSE(view->isOpen3D());
  EXPECT_EQ(look(unit, "itemSwtch"), 0);
  chooseInScene({view}, unit, 0);
  EXPECT_EQ(look(unit, "itemSwtch"), 1);
  chooseInScene({view}, unit, 0); // again
  EXPECT_EQ(heard.events, (Texts{"radio2 unit", "radio0 unit", "radio0 unit"}));
  EXPECT_EQ(look(unit, "itemSwtch"), 1);
  unit->selectedItem = 1;
  EXPECT_EQ(look(unit, "itemSwtch"), 0);
  unit->items.setNum(0);
  EXPECT_EQ(look(unit, "itemSwtch"), SO_SWITCH_NONE);
  const char* four[] = {"a", "b", "c", "d"};
  unit->items.setValues(0, 4, four);
  chooseInScene({view}, unit, 3);
  EXPECT_EQ(heard.events.back(), "radio3 unit");
}

TEST_F(MenuSceneTest, shortcutsAreNamedAtTheRightEnd)
{
  open();
  clickTitle(file);
  EXPECT_EQ(countTexts("Ctrl+N"), 1);
  EXPECT_EQ(countTexts("New"), 1);
  const auto* entry = item<SoMenuPushButton>("new");
  EXPECT_GE(entry->getItemSize()[0], SoQuillform::getLabelPixelSize("Recent", nullptr)[0] +
                                       SoQuillform::getLabelPixelSize("Ctrl+N", nullptr)[0]);
  item<SoMenuPushButton>("new")->accelerator = "Alt+F3";
  EXPECT_EQ(countTexts("Alt+F3"), 1);
}

TEST_F(MenuSceneTest, disabledThingsDoNotReact)
{
  open();
  clickTitle(file);
  scene.click(lineOf(scene, item<SoMenuItem>("save")));
  EXPECT_TRUE(heard.events.empty());
  item<SoMenuItem>("save")->enable = TRUE;
  scene.click(lineOf(scene, item<SoMenuItem>("save")));
  EXPECT_EQ(heard.events, Texts{"push save"});

  clickTitle(file);
  clickTitle(recent);
  recent->enable = FALSE;
  EXPECT_FALSE(recent->isOpen3D());
  clickTitle(recent);
  EXPECT_FALSE(recent->isOpen3D());
  file->enable = FALSE;
  EXPECT_FALSE(file->isOpen3D());
  clickTitle(file);
  EXPECT_FALSE(file->isOpen3D());
  clickTitle(view);
  EXPECT_TRUE(view->isOpen3D());
  item<SoMenuBar>("bar")->enable = FALSE;
  EXPECT_FALSE(view->isOpen3D());
  clickTitle(view);
  EXPECT_FALSE(view->isOpen3D());
  item<SoMenuBar>("bar")->enable = TRUE;
  file->enable = TRUE;
  clickTitle(file);
  EXPECT_TRUE(file->isOpen3D());
  clickTitle(recent); // still disabled by itself
  EXPECT_FALSE(recent->isOpen3D());
  dialog->enable = FALSE;
  EXPECT_FALSE(file->isOpen3D());
  clickTitle(file);
  EXPECT_FALSE(file->isOpen3D());
}

TEST_F(MenuSceneTest, aMinimisedDialogHidesItsBarAndItsMenus)
{
  open();
  clickTitle(file);
  dialog->minimized = TRUE;
  EXPECT_FALSE(file->isOpen3D());
  EXPECT_FALSE(isShown(file));
  EXPECT_FALSE(isShown(item<SoMenuItem>("new")));
  EXPECT_FALSE(item<SoMenuBar>("bar")->isShown3D());
  dialog->minimized = FALSE;
  EXPECT_TRUE(isShown(file));
  EXPECT_FALSE(isShown(item<SoMenuItem>("new")));
  chooseInScene({file}, item<SoMenuItem>("new"));
  EXPECT_EQ(heard.events, Texts{"push new"});
}

TEST_F(MenuSceneTest, openMenusMoveWithTheirDialog)
{
  open();
  clickTitle(file);
  clickTitle(recent);
  const SbVec3f before = item<SoMenuItem>("plan")->get3DParentTranslation();
  dialog->position3D.setValue(30.0F, 20.0F, 5.0F);
  EXPECT_TRUE(item<SoMenuItem>("plan")->get3DParentTranslation().equals(before + SbVec3f(30.0F, -20.0F, 5.0F), 0.001F));
  EXPECT_TRUE(recent->isOpen3D());
  scene.click(lineOf(scene, item<SoMenuItem>("plan")));
  EXPECT_EQ(heard.events, Texts{"push plan"});
}

TEST_F(MenuSceneTest, itemsComeAndGoInAnOpenMenu)
{
  open();
  clickTitle(file);
  auto* added = new SoMenuPushButton;
  added->label = "Added";
  added->auditorID = "added";
  file->insertChild(added, 0);
  EXPECT_TRUE(file->isOpen3D());
  EXPECT_TRUE(isShown(added));
  scene.click(lineOf(scene, added));
  EXPECT_EQ(heard.events, Texts{"push added"});
  clickTitle(file);
  file->removeChild(added);
  file->replaceChild(0, new SoMenuSeparator);
  file->removeChild(recent);
  scene.click(lineOf(scene, item<SoMenuItem>("empty")));
  EXPECT_TRUE(item<SoMenuPopup>("empty")->isOpen3D());
  item<SoMenuPopup>("empty")->addChild(new SoMenuPushButton);
  EXPECT_TRUE(isShown(item<SoMenuPopup>("empty")->getChild(0)));
  file->removeAllChildren();
  clickTitle(file);
  clickTitle(file);
  auto* tools = new SoMenuPopup;
  tools->label = "Tools";
  item<SoMenuBar>("bar")->addChild(tools);
  clickTitle(tools);
  EXPECT_TRUE(tools->isOpen3D());
  item<SoMenuBar>("bar")->removeChild(0);
  clickTitle(view);
  EXPECT_TRUE(view->isOpen3D());
}

TEST_F(MenuSceneTest, aLongerLabelMakesRoomForItself)
{
  open();
  clickTitle(view);
  const int width = item<SoMenuItem>("grid")->getItemSize()[0];
  item<SoMenuItem>("grid")->label = "A grid with a rather long name";
  EXPECT_GT(item<SoMenuItem>("grid")->getItemSize()[0], width);
  EXPECT_EQ(item<SoMenuItem>("unit")->getItemSize()[0], item<SoMenuItem>("grid")->getItemSize()[0]);
  const SbVec3f second = view->get3DParentTranslation();
  file->label = "A longer title";
  EXPECT_GT(view->get3DParentTranslation()[0], second[0]);
}

TEST_F(MenuSceneTest, aLongMenuGoesOnInASecondColumn)
{
  std::string many;
  for (int i = 0; i < 200; i++) {
    many += "MenuPushButton { auditorID \"e" + std::to_string(i) + "\" label \"" + std::to_string(i) + "\" } ";
  }
  openScene("TopLevelDialog { MenuBar { MenuPopup { label \"Many\" " + many + " } } DialogLabel { label \"a\" } }");
  chooseInScene({menu(0)}, item<SoMenuItem>("e199"));
  chooseInScene({menu(0)}, item<SoMenuItem>("e0"));
  EXPECT_EQ(heard.events, (Texts{"push e199", "push e0"}));
}

TEST_F(MenuSceneTest, inANarrowDialogTheTitlesAreSqueezed)
{
  openScene(
    "TopLevelDialog { width 60 MenuBar { MenuPopup { label \"One menu\" } MenuPopup { label \"Another menu\" } } "
    "DialogLabel { label \"a\" } }");
  const QRectF last = Plan::seen(boxOf(dialog, menu(1)));
  EXPECT_LE(last.right(), 60.0 + Plan::border + 1.0);
  EXPECT_GT(last.width(), 5.0);
}

TEST_F(MenuSceneTest, aSwitchOfSkinsReachesTheMenus)
{
  open();
  clickTitle(file);
  SoQuillform::setSkin(QUILLFORM_TEST_SKINS "/dark");
  EXPECT_TRUE(file->isOpen3D());
  scene.click(lineOf(scene, item<SoMenuItem>("new")));
  EXPECT_EQ(heard.events, Texts{"push new"});
}

TEST_F(MenuSceneTest, noFormWritesItsGeometry)
{
  make("TopLevelDialog { MenuBar { MenuPopup { label \"a\" MenuCheckBox { } MenuRadioButtons { } MenuSeparator { } "
       "MenuPushButton { } MenuPopup { } } } }");
  const std::string before = toText(dialog);
  scene.open(dialog);
  clickTitle(menu(0));
  EXPECT_EQ(toText(dialog), before);
}
