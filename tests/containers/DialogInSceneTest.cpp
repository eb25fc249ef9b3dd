#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoRotation.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTranslation.h>
#include <QPushButton>
#include <QTest>
#include <Quillform/Quillform.h>
#include <forms/Plan.h>
#include <support/Messages.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

struct Heard : SoDialogAuditor {
  void dialogPushButton(SoDialogPushButton* cpt) override
  {
    text += cpt->auditorID.getValue().getString();
  }
  std::string text;
};

const char* const twoButtons = "TopLevelDialog { label \"Title\" width 200 height 80 "
                               "DialogPushButton { auditorID \"a\" buttonLabel \"A\" labelVisibility FALSE } "
                               "DialogPushButton { auditorID \"b\" buttonLabel \"B\" labelVisibility FALSE } }";

} // namespace

class DialogInSceneTest : public QuillformTest {
protected:
  void open(const char* text)
  {
    dialog = load(text);
    ASSERT_NE(dialog, nullptr);
    dialog->addAuditor(&heard);
    scene.open(dialog);
  }

  SoDialogPushButton* button(int index)
  {
    return static_cast<SoDialogPushButton*>(dialog->getChild(index));
  }

  int look(SoDialogPushButton* element)
  {
    return static_cast<SoSwitch*>(Plan::partOf(element, "frameSwitch"))->whichChild.getValue();
  }

  /// The middle of the minimise button, from where its part is drawn.
  SbVec2s minimiser()
  {
    const SbVec3f centre = Plan::boxOf(dialog, Plan::partOf(dialog, "minSep")).getCenter();
    return scene.pixel(centre[0], centre[1]);
  }

  QRectF frame()
  {
    return Plan::seen(Plan::boxOf(dialog, Plan::partOf(dialog, "frameSep")));
  }

  Heard heard;
  SoTopLevelDialog* dialog = nullptr;
  Scene scene;
};

TEST_F(DialogInSceneTest, buildingItMakesGeometryAndNoWidget)
{
  open(twoButtons);
  EXPECT_EQ(dialog->getWidget(), nullptr);
  EXPECT_NE(dialog->isBuilt3D(), 0);
  EXPECT_TRUE(dialog->isShown3D());
  EXPECT_FALSE(dialog->isWidgetBuilt());
  EXPECT_EQ(button(0)->getWidget(), nullptr);
  EXPECT_NE(button(0)->isBuilt3D(), 0);
  EXPECT_EQ(frame(), QRectF(0.0, 0.0, 208.0, 107.0));
}

TEST_F(DialogInSceneTest, aPressShowsThePressedLookUntilTheRelease)
{
  open(twoButtons);
  EXPECT_EQ(look(button(0)), 0);
  scene.press(scene.centre(button(0)));
  EXPECT_EQ(look(button(0)), 1);
  EXPECT_EQ(look(button(1)), 0);
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), button(0));
  scene.release(scene.centre(button(0)));
  EXPECT_EQ(look(button(0)), 0);
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
  EXPECT_EQ(heard.text, "a");
}

TEST_F(DialogInSceneTest, theAuditorSeesTheReleasedLook)
{
  struct Look : SoDialogPushButtonAuditor {
    void dialogPushButton(SoDialogPushButton* cpt) override
    {
      seen = static_cast<SoSwitch*>(Plan::partOf(cpt, "frameSwitch"))->whichChild.getValue();
    }
    int seen = -7;
  } auditor;
  open(twoButtons);
  button(0)->addAuditor(&auditor);
  scene.click(button(0));
  EXPECT_EQ(auditor.seen, 0);
}

TEST_F(DialogInSceneTest, aPressReleasedElsewhereDoesNothing)
{
  open(twoButtons);
  for (const bool withMotion : {false, true}) {
    for (const SbVec2s& to : {scene.centre(button(1)), scene.pixel(600.0F, -50.0F), scene.pixel(60.0F, -10.0F)}) {
      scene.press(scene.centre(button(0)));
      if (withMotion) {
        scene.move(to);
        scene.move(to + SbVec2s(1, 1));
      }
      scene.release(to);
      EXPECT_EQ(heard.text, "");
      EXPECT_EQ(look(button(0)), 0);
      EXPECT_EQ(look(button(1)), 0);
      EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
      EXPECT_EQ(scene.action().getGrabber(), nullptr);
    }
  }
  scene.click(button(1));
  scene.click(button(0));
  EXPECT_EQ(heard.text, "ba");
}

TEST_F(DialogInSceneTest, aPressThatLeavesAndComesBackCounts)
{
  open(twoButtons);
  scene.press(scene.centre(button(0)));
  scene.move(scene.centre(button(1)));
  scene.move(scene.pixel(600.0F, 50.0F));
  scene.move(scene.centre(button(0)));
  scene.release(scene.centre(button(0)));
  EXPECT_EQ(heard.text, "a");
  EXPECT_EQ(look(button(0)), 0);
}

TEST_F(DialogInSceneTest, thePressedButtonDoesNotMove)
{
  open(twoButtons);
  const QRectF before = Plan::inScene(dialog, button(0));
  const SbBox3f face = Plan::boxOf(dialog, Plan::partOf(button(0), "frameSep"));
  scene.press(scene.centre(button(0)));
  for (int i = 0; i < 5; i++) {
    scene.move(scene.pixel(100.0F + static_cast<float>(i) * 30.0F, -60.0F));
    EXPECT_EQ(Plan::inScene(dialog, button(0)), before);
  }
  scene.release(scene.pixel(300.0F, -60.0F));
  EXPECT_EQ(Plan::inScene(dialog, button(0)), before);
  EXPECT_EQ(Plan::boxOf(dialog, Plan::partOf(button(0), "frameSep")).getMin(), face.getMin());
}

TEST_F(DialogInSceneTest, manyClicksAreHeardOneByOne)
{
  open(twoButtons);
  for (int i = 0; i < 20; i++) {
    scene.click(button(i % 2));
  }
  EXPECT_EQ(heard.text, "abababababababababab");
}

TEST_F(DialogInSceneTest, theTextOfTheButtonIsPartOfIt)
{
  open("TopLevelDialog { width 300 DialogPushButton { auditorID \"a\" buttonLabel \"Press here\" label \"Beside\" } }");
  const SbVec3f text = Plan::boxOf(dialog, Plan::partOf(button(0), "buttonLabelSep")).getCenter();
  scene.click(scene.pixel(text[0], text[1]));
  EXPECT_EQ(heard.text, "a");
  const SbVec3f label = Plan::boxOf(dialog, Plan::partOf(button(0), "labelSep")).getCenter();
  scene.click(scene.pixel(label[0], label[1]));
  EXPECT_EQ(heard.text, "a");
}

TEST_F(DialogInSceneTest, whatIsDisabledCannotBePicked)
{
  open(twoButtons);
  button(0)->enable = FALSE;
  scene.click(button(0));
  EXPECT_EQ(look(button(0)), 0);
  EXPECT_EQ(heard.text, "");
  button(0)->enable = TRUE;
  scene.click(button(0));
  EXPECT_EQ(heard.text, "a");
  dialog->enable = FALSE;
  scene.click(button(0));
  scene.click(button(1));
  EXPECT_EQ(heard.text, "a");
  button(1)->enable = FALSE;
  dialog->enable = TRUE;
  scene.click(button(1));
  EXPECT_EQ(heard.text, "a");
  button(1)->enable = TRUE;
  scene.click(button(1));
  EXPECT_EQ(heard.text, "ab");
}

TEST_F(DialogInSceneTest, whatTheFileDisablesIsDisabledFromTheFirstBuild)
{
  open("TopLevelDialog { enable FALSE width 200 height 80 DialogPushButton { auditorID \"a\" } "
       "DialogPushButton { auditorID \"b\" enable FALSE } }");
  scene.click(button(0));
  scene.click(button(1));
  EXPECT_EQ(heard.text, "");
  auto* added = new SoDialogPushButton;
  added->auditorID = "c";
  dialog->addChild(added);
  scene.click(button(2));
  EXPECT_EQ(heard.text, "");
  dialog->enable = TRUE;
  scene.click(button(0));
  scene.click(button(1));
  scene.click(button(2));
  EXPECT_EQ(heard.text, "ac");
}

TEST_F(DialogInSceneTest, aButtonDisabledWhileItIsHeldDownDoesNothing)
{
  open(twoButtons);
  scene.press(scene.centre(button(0)));
  button(0)->enable = FALSE;
  scene.release(scene.centre(button(0)));
  EXPECT_EQ(heard.text, "");
  EXPECT_EQ(look(button(0)), 0);
}

TEST_F(DialogInSceneTest, aHiddenDialogCannotBePicked)
{
  open(twoButtons);
  dialog->show3D(0);
  scene.click(button(0));
  dialog->updateAfterSceneGraphChange();
  scene.click(button(0));
  EXPECT_EQ(heard.text, "");
  dialog->show3D(1);
  scene.click(button(0));
  EXPECT_EQ(heard.text, "a");
}

TEST_F(DialogInSceneTest, draggingTheTitleMovesTheDialog)
{
  open(twoButtons);
  const QRectF before = Plan::inScene(dialog, button(0));
  scene.press(scene.pixel(60.0F, -10.0F));
  scene.move(scene.pixel(65.0F, -12.0F));
  scene.move(scene.pixel(100.0F, -60.0F));
  scene.release(scene.pixel(100.0F, -60.0F));
  const SbVec3f place = dialog->position3D.getValue();
  EXPECT_NEAR(place[0], 40.0F, 0.1F);
  EXPECT_NEAR(place[1], 50.0F, 0.1F);
  EXPECT_NEAR(place[2], 0.0F, 0.1F);
  EXPECT_NEAR(frame().left(), 40.0, 0.5);
  EXPECT_NEAR(frame().top(), 50.0, 0.5);
  EXPECT_TRUE(Plan::agree(Plan::inScene(dialog, button(0)), before));
  scene.click(button(0));
  EXPECT_EQ(heard.text, "a");
  scene.press(scene.pixel(100.0F, -60.0F));
  scene.move(scene.pixel(90.0F, -60.0F));
  scene.release(scene.pixel(90.0F, -60.0F));
  EXPECT_NEAR(dialog->position3D.getValue()[0], 30.0F, 0.1F);
}

TEST_F(DialogInSceneTest, draggingBesideTheTitleMovesNothing)
{
  open("TopLevelDialog { width 200 height 80 DialogLabel { label \"x\" maxHeight 25 } }");
  for (const SbVec2s& from : {scene.pixel(100.0F, -60.0F), scene.pixel(2.0F, -80.0F)}) {
    scene.press(from);
    scene.move(from + SbVec2s(30, 30));
    scene.release(from + SbVec2s(30, 30));
    EXPECT_EQ(dialog->position3D.getValue(), SbVec3f(0.0F, 0.0F, 0.0F));
  }
}

TEST_F(DialogInSceneTest, aClickOnTheTitleMovesNothing)
{
  open(twoButtons);
  scene.click(scene.pixel(60.0F, -10.0F));
  EXPECT_EQ(dialog->position3D.getValue(), SbVec3f(0.0F, 0.0F, 0.0F));
  EXPECT_FALSE(dialog->minimized.getValue());
  EXPECT_EQ(heard.text, "");
}

TEST_F(DialogInSceneTest, aDraggedPlaceIsWritten)
{
  open(twoButtons);
  scene.press(scene.pixel(60.0F, -10.0F));
  scene.move(scene.pixel(100.0F, -60.0F));
  scene.release(scene.pixel(100.0F, -60.0F));
  EXPECT_NE(toText(dialog).find("position3D"), std::string::npos);
}

TEST_F(DialogInSceneTest, theMinimiseButtonShowsItsLooksAndToggles)
{
  open(twoButtons);
  auto* looks = static_cast<SoSwitch*>(Plan::partOf(dialog, "minSwtch"));
  ASSERT_NE(looks, nullptr);
  EXPECT_EQ(looks->getChild(0), Plan::partOf(dialog, "minReleased"));
  EXPECT_EQ(looks->getChild(1), Plan::partOf(dialog, "minPressed"));
  EXPECT_EQ(looks->whichChild.getValue(), 0);
  scene.press(minimiser());
  EXPECT_EQ(looks->whichChild.getValue(), 1);
  EXPECT_FALSE(dialog->minimized.getValue());
  scene.release(minimiser());
  EXPECT_EQ(looks->whichChild.getValue(), 0);
  EXPECT_TRUE(dialog->minimized.getValue());
  scene.click(minimiser());
  EXPECT_FALSE(dialog->minimized.getValue());
  scene.press(minimiser());
  scene.release(scene.pixel(60.0F, -60.0F));
  EXPECT_FALSE(dialog->minimized.getValue());
  EXPECT_EQ(looks->whichChild.getValue(), 0);
  scene.press(minimiser());
  scene.move(scene.pixel(60.0F, -60.0F));
  scene.release(scene.pixel(60.0F, -60.0F));
  EXPECT_FALSE(dialog->minimized.getValue());
  EXPECT_EQ(dialog->position3D.getValue(), SbVec3f(0.0F, 0.0F, 0.0F));
}

TEST_F(DialogInSceneTest, aMinimisedDialogIsItsTitleBarOnly)
{
  open(twoButtons);
  const SbVec2s place = scene.centre(button(0));
  dialog->minimized3DPosition.setValue(30.0F, 40.0F, 0.0F);
  dialog->minimized = TRUE;
  EXPECT_EQ(frame(), QRectF(30.0, 40.0, 208.0, 20.0));
  EXPECT_FALSE(button(0)->isShown3D());
  scene.click(place);
  scene.click(scene.centre(button(0)));
  scene.click(scene.centre(button(1)));
  EXPECT_EQ(heard.text, "");
  dialog->addChild(new SoDialogLabel);
  EXPECT_FALSE(button(0)->isShown3D());
  EXPECT_FALSE(dialog->getChild(2)->isShown3D());
  EXPECT_EQ(frame().height(), 20.0);
  dialog->minimized = FALSE;
  EXPECT_TRUE(button(0)->isShown3D());
  EXPECT_TRUE(dialog->getChild(2)->isShown3D());
  EXPECT_EQ(frame().topLeft(), QPointF(0.0, 0.0));
  scene.click(button(0));
  EXPECT_EQ(heard.text, "a");
}

TEST_F(DialogInSceneTest, aFileMayOpenMinimised)
{
  open("TopLevelDialog { minimized TRUE minimized3DPosition 10 20 0 width 200 DialogPushButton { auditorID \"a\" } }");
  EXPECT_EQ(frame(), QRectF(10.0, 20.0, 208.0, 20.0));
  EXPECT_FALSE(button(0)->isShown3D());
  scene.click(button(0));
  EXPECT_EQ(heard.text, "");
  dialog->minimized = FALSE;
  scene.click(button(0));
  EXPECT_EQ(heard.text, "a");
}

TEST_F(DialogInSceneTest, theBarOfAMinimisedDialogIsDraggedOnItsOwn)
{
  open(twoButtons);
  dialog->minimized = TRUE;
  scene.press(scene.pixel(60.0F, -10.0F));
  scene.move(scene.pixel(80.0F, -40.0F));
  scene.release(scene.pixel(80.0F, -40.0F));
  EXPECT_NEAR(dialog->minimized3DPosition.getValue()[0], 20.0F, 0.1F);
  EXPECT_NEAR(dialog->minimized3DPosition.getValue()[1], 30.0F, 0.1F);
  EXPECT_EQ(dialog->position3D.getValue(), SbVec3f(0.0F, 0.0F, 0.0F));
  dialog->minimized = FALSE;
  EXPECT_NEAR(frame().left(), 0.0, 0.5);
}

TEST_F(DialogInSceneTest, theTwoPlacesMoveTogetherUnlessTheyAreIndependent)
{
  open(twoButtons);
  dialog->independentMinimizedPosition = FALSE;
  dialog->position3D.setValue(10.0F, 20.0F, 0.0F);
  EXPECT_EQ(dialog->minimized3DPosition.getValue(), SbVec3f(10.0F, 20.0F, 0.0F));
  dialog->minimized = TRUE;
  dialog->minimized3DPosition.setValue(50.0F, 60.0F, 0.0F);
  EXPECT_EQ(dialog->position3D.getValue(), SbVec3f(50.0F, 60.0F, 0.0F));
  dialog->minimized = FALSE;
  dialog->independentMinimizedPosition = TRUE;
  dialog->position3D.setValue(1.0F, 2.0F, 0.0F);
  EXPECT_EQ(dialog->minimized3DPosition.getValue(), SbVec3f(50.0F, 60.0F, 0.0F));
  EXPECT_FALSE(dialog->position3D.isConnected());
  EXPECT_FALSE(dialog->minimized3DPosition.isConnected());
}

TEST_F(DialogInSceneTest, connectedPlacesAreNotWrittenAsConnectionsNorCopied)
{
  open(twoButtons);
  dialog->independentMinimizedPosition = FALSE;
  dialog->position3D.setValue(10.0F, 20.0F, 0.0F);
  const std::string text = toText(dialog);
  EXPECT_EQ(text.find(" = "), std::string::npos) << text;
  dialog->position3D.setValue(11.0F, 21.0F, 0.0F);
  EXPECT_EQ(dialog->minimized3DPosition.getValue(), SbVec3f(11.0F, 21.0F, 0.0F));
  auto* copy = static_cast<SoTopLevelDialog*>(dialog->copy(TRUE));
  copy->ref();
  dialog->position3D.setValue(12.0F, 22.0F, 0.0F);
  EXPECT_EQ(copy->position3D.getValue(), SbVec3f(11.0F, 21.0F, 0.0F));
  EXPECT_EQ(copy->minimized3DPosition.getValue(), SbVec3f(11.0F, 21.0F, 0.0F));
  copy->unref();
}

TEST_F(DialogInSceneTest, restoringPutsTheChildrenInPlaceUnlessTheyAreToStay)
{
  open(twoButtons);
  const SbVec3f before = button(0)->get3DParentTranslation();
  dialog->minimized = TRUE;
  dialog->position3D.setValue(30.0F, 0.0F, 0.0F);
  dialog->minimized = FALSE;
  EXPECT_EQ(button(0)->get3DParentTranslation(), before + SbVec3f(30.0F, 0.0F, 0.0F));
  dialog->hideChildren = TRUE;
  dialog->minimized = TRUE;
  dialog->position3D.setValue(50.0F, 0.0F, 0.0F);
  dialog->minimized = FALSE;
  EXPECT_EQ(button(0)->get3DParentTranslation(), before + SbVec3f(30.0F, 0.0F, 0.0F));
  dialog->position3D.setValue(60.0F, 0.0F, 0.0F);
  EXPECT_EQ(button(0)->get3DParentTranslation(), before + SbVec3f(60.0F, 0.0F, 0.0F));
}

TEST_F(DialogInSceneTest, childrenThatAreToStayAreStillPlacedByTheFirstBuild)
{
  open("TopLevelDialog { hideChildren TRUE position3D 20 30 0 width 200 height 80 DialogPushButton { auditorID \"a\" } "
       "}");
  EXPECT_NEAR(Plan::inScene(dialog, button(0)).left(), 0.0, 1.0);
  EXPECT_NEAR(Plan::inScene(dialog, button(0)).top(), 0.0, 1.0);
  scene.click(button(0));
  EXPECT_EQ(heard.text, "a");
}

TEST_F(DialogInSceneTest, reactionsBeforeTheBuildDoNothing)
{
  dialog = new SoTopLevelDialog;
  dialog->ref();
  dialog->addChild(new SoDialogPushButton);
  dialog->change3DPosition();
  dialog->change3DLabel();
  dialog->change3DEnable();
  dialog->minimize3DDialog();
  dialog->restore3DDialog();
  dialog->updateMinimizedState();
  dialog->show3DChildren(1);
  dialog->show3D(1);
  dialog->changeLabel();
  dialog->changeEnable();
  dialog->changeWidth();
  dialog->changeMinMaxSize();
  dialog->changePosition();
  dialog->updateAfterSceneGraphChange();
  dialog->minimized = TRUE;
  dialog->minimized = FALSE;
  dialog->independentMinimizedPosition = FALSE;
  button(0)->change3DButtonLabel();
  button(0)->change3DButtonState(1);
  button(0)->change3DLabel();
  button(0)->change3DLabelVisibility();
  button(0)->change3DLabelAlignment();
  button(0)->changeButtonLabel();
  button(0)->changeLabelVisibility();
  EXPECT_EQ(dialog->isBuilt3D(), 0);
  EXPECT_EQ(dialog->getWidget(), nullptr);
  dialog->unref();
}

TEST_F(DialogInSceneTest, bothFormsLiveAtOnce)
{
  dialog = load(twoButtons);
  dialog->addAuditor(&heard);
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  settle();
  scene.open(dialog);
  auto* widget = button(0)->getWidget()->findChild<QPushButton*>();
  QTest::mouseClick(widget, Qt::LeftButton);
  EXPECT_EQ(heard.text, "a");
  scene.click(button(1));
  EXPECT_EQ(heard.text, "ab");
  scene.press(scene.centre(button(0)));
  QTest::mousePress(widget, Qt::LeftButton);
  EXPECT_EQ(look(button(0)), 0);
  QTest::mouseRelease(widget, Qt::LeftButton);
  scene.release(scene.centre(button(0)));
  button(0)->buttonLabel = "Both";
  EXPECT_EQ(widget->text(), "Both");
  dialog->addChild(new SoDialogPushButton);
  settle();
  EXPECT_EQ(dialog->getWidget()->findChildren<QPushButton*>().size(), 3);
  EXPECT_NE(dialog->getChild(2)->isBuilt3D(), 0);
  dialog->destroyWidget();
  scene.click(button(1));
  EXPECT_EQ(heard.text.back(), 'b');
}

TEST_F(DialogInSceneTest, aChildOfTheOneFormIsNotBuiltInTheOther)
{
  open(twoButtons);
  SoInSceneMode::setEnabled(FALSE);
  dialog->addChild(new SoDialogPushButton);
  EXPECT_NE(dialog->getChild(2)->isBuilt3D(), 0);
  EXPECT_FALSE(dialog->getChild(2)->isWidgetBuilt());
  SoTopLevelDialog* window = load(twoButtons);
  window->buildDialog(nullptr, FALSE);
  SoInSceneMode::setEnabled(TRUE);
  window->addChild(new SoDialogPushButton);
  SoInSceneMode::setEnabled(FALSE);
  EXPECT_EQ(window->getChild(2)->isBuilt3D(), 0);
  EXPECT_TRUE(window->getChild(2)->isWidgetBuilt());
}

TEST_F(DialogInSceneTest, childrenComeAndGo)
{
  open(twoButtons);
  const SbVec2s place = scene.centre(button(0));
  dialog->removeChild(0);
  scene.click(place);
  const auto after = heard.text;
  EXPECT_EQ(after.find('a'), std::string::npos);
  auto* added = new SoDialogPushButton;
  added->auditorID = "c";
  dialog->insertChild(added, 0);
  heard.text.clear();
  scene.click(button(0));
  scene.click(button(1));
  EXPECT_EQ(heard.text, "cb");
  EXPECT_GT(button(0)->get3DParentTranslation()[1], button(1)->get3DParentTranslation()[1]);
  dialog->removeAllChildren();
  heard.text.clear();
  scene.click(place);
  EXPECT_EQ(heard.text, "");
}

TEST_F(DialogInSceneTest, aRemovedButtonStandsAloneInTheScene)
{
  open(twoButtons);
  SoDialogPushButton* removed = button(0);
  removed->ref();
  dialog->removeChild(0);
  struct Own : SoDialogPushButtonAuditor {
    void dialogPushButton(SoDialogPushButton*) override
    {
      ++count;
    }
    int count = 0;
  } own;
  removed->addAuditor(&own);
  SbVec3f place(400.0F, -200.0F, 0.0F);
  removed->set3DParentTranslation(place);
  removed->show3D(1);
  scene.add(removed);
  scene.click(removed);
  EXPECT_EQ(own.count, 1);
  EXPECT_EQ(heard.text, "");
  scene.root()->removeChild(removed);
  removed->removeAuditor(&own);
  removed->unref();
}

TEST_F(DialogInSceneTest, itCanBeOperatedInPerspective)
{
  open(twoButtons);
  auto* camera = new SoPerspectiveCamera;
  camera->viewportMapping = SoCamera::LEAVE_ALONE;
  camera->aspectRatio = 800.0F / 600.0F;
  camera->heightAngle = 0.8F;
  camera->position.setValue(104.0F, -53.0F, 300.0F);
  camera->nearDistance = 1.0F;
  camera->farDistance = 1000.0F;
  scene.root()->replaceChild(scene.camera(), camera);
  const auto seen = [&](const SbVec3f& point) {
    SbVec3f on;
    camera->getViewVolume(800.0F / 600.0F).projectToScreen(point, on);
    return SbVec2s(static_cast<short>(on[0] * 800.0F), static_cast<short>(on[1] * 600.0F));
  };
  scene.click(seen(button(0)->get3DParentTranslation()));
  scene.click(seen(button(1)->get3DParentTranslation()));
  EXPECT_EQ(heard.text, "ab");
  scene.press(seen(SbVec3f(60.0F, -10.0F, 1.0F)));
  scene.move(seen(SbVec3f(90.0F, -30.0F, 1.0F)));
  scene.release(seen(SbVec3f(90.0F, -30.0F, 1.0F)));
  EXPECT_NEAR(dialog->position3D.getValue()[0], 30.0F, 1.5F);
  EXPECT_NEAR(dialog->position3D.getValue()[1], 20.0F, 1.5F);
  EXPECT_EQ(dialog->position3D.getValue()[2], 0.0F);
}

TEST_F(DialogInSceneTest, itCanBeOperatedFromTheSide)
{
  open(twoButtons);
  scene.camera()->position.setValue(504.0F, -53.0F, 400.0F);
  scene.camera()->pointAt(SbVec3f(104.0F, -53.0F, 0.0F));
  const auto seen = [&](const SbVec3f& point) {
    SbVec3f on;
    scene.camera()->getViewVolume(800.0F / 600.0F).projectToScreen(point, on);
    return SbVec2s(static_cast<short>(on[0] * 800.0F), static_cast<short>(on[1] * 600.0F));
  };
  scene.camera()->farDistance = 3000.0F;
  scene.click(seen(button(0)->get3DParentTranslation() + SbVec3f(0.0F, 0.0F, 3.0F)));
  EXPECT_EQ(heard.text, "a");
  scene.press(seen(SbVec3f(60.0F, -10.0F, 1.0F)));
  scene.move(seen(SbVec3f(90.0F, -30.0F, 1.0F)));
  scene.release(seen(SbVec3f(90.0F, -30.0F, 1.0F)));
  EXPECT_NEAR(dialog->position3D.getValue()[0], 30.0F, 2.5F);
  EXPECT_NEAR(dialog->position3D.getValue()[1], 20.0F, 2.5F);
}

TEST_F(DialogInSceneTest, itCanBeOperatedBelowATransform)
{
  dialog = load(twoButtons);
  dialog->addAuditor(&heard);
  SoInSceneMode::setEnabled(TRUE);
  dialog->buildDialog(nullptr, FALSE);
  SoInSceneMode::setEnabled(FALSE);
  auto* group = new SoSeparator;
  auto* shift = new SoTranslation;
  shift->translation.setValue(200.0F, -100.0F, 0.0F);
  group->addChild(shift);
  group->addChild(dialog);
  scene.add(group);
  const SbVec3f place = button(1)->get3DParentTranslation();
  scene.click(scene.pixel(place[0] + 200.0F, place[1] - 100.0F));
  EXPECT_EQ(heard.text, "b");
  scene.press(scene.pixel(260.0F, -110.0F));
  scene.move(scene.pixel(280.0F, -120.0F));
  scene.release(scene.pixel(280.0F, -120.0F));
  EXPECT_NEAR(dialog->position3D.getValue()[0], 20.0F, 0.5F);
  EXPECT_NEAR(dialog->position3D.getValue()[1], 10.0F, 0.5F);
}

TEST_F(DialogInSceneTest, theActiveElementIsForgottenWithItsNode)
{
  open(twoButtons);
  SoQuillform::set3DCurrentActive(button(0));
  dialog->removeChild(0);
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
}

TEST_F(DialogInSceneTest, aButtonTakenOutWhileItIsHeldDownDoesNothing)
{
  open(twoButtons);
  SoDialogPushButton* held = button(0);
  held->ref();
  scene.press(scene.centre(held));
  const SbVec2s place = scene.centre(held);
  dialog->removeChild(0);
  scene.release(place);
  EXPECT_EQ(heard.text, "");
  EXPECT_EQ(look(held), 0);
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
  held->unref();
}
