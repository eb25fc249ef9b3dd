#include <Inventor/SoPickedPoint.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Quillform/Quillform.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

struct Heard : SoDialogAuditor {
  void dialogPushButton(SoDialogPushButton* cpt) override
  {
    ids.emplace_back(cpt->auditorID.getValue().getString());
  }
  std::vector<std::string> ids;
};

typedef std::vector<std::string> Ids;

} // namespace

/// Two buttons in the scene; the user's clicks tell what can be picked.
class EnableInSceneTest : public QuillformTest {
protected:
  EnableInSceneTest()
      : dialog(load("TopLevelDialog { DialogPushButton { auditorID \"a\" buttonLabel \"A\" } "
                    "DialogPushButton { auditorID \"b\" buttonLabel \"B\" enable FALSE } }")),
        a(static_cast<SoDialogPushButton*>(dialog->getChild(0))),
        b(static_cast<SoDialogPushButton*>(dialog->getChild(1)))
  {
    dialog->addAuditor(&heard);
    scene.open(dialog);
  }

  /// TRUE when the front-most thing under the middle of \a element is part of it.
  bool isPicked(SoDialogComponent* element)
  {
    SoRayPickAction pick(SbViewportRegion(Scene::width, Scene::height));
    pick.setPoint(scene.centre(element));
    pick.apply(scene.root());
    const SoPickedPoint* point = pick.getPickedPoint();
    return point && point->getPath()->containsNode(element);
  }

  static SoSwitch* geometryOf(SoDialogComponent* element)
  {
    return static_cast<SoSwitch*>(static_cast<const SoSFNode*>(element->getField("geomSwitch"))->getValue());
  }

  static SbColor emissionOf(SoDialogComponent* element)
  {
    return static_cast<SoMaterial*>(geometryOf(element)->getChild(1))->emissiveColor[0];
  }

  SoTopLevelDialog* dialog;
  SoDialogPushButton* a;
  SoDialogPushButton* b;
  Heard heard;
  Scene scene;
};

TEST_F(EnableInSceneTest, pickStyleAndMaterialStandFirst)
{
  for (SoDialogComponent* element : {a, b}) {
    EXPECT_TRUE(geometryOf(element)->getChild(0)->isOfType(SoPickStyle::getClassTypeId()));
    EXPECT_TRUE(geometryOf(element)->getChild(1)->isOfType(SoMaterial::getClassTypeId()));
  }
}

TEST_F(EnableInSceneTest, onlyTheEnabledElementIsPicked)
{
  EXPECT_TRUE(isPicked(a));
  EXPECT_FALSE(isPicked(b));
  scene.click(a);
  scene.click(b);
  EXPECT_EQ(heard.ids, Ids{"a"});
}

TEST_F(EnableInSceneTest, changesOfTheFieldTakeEffectAtOnce)
{
  a->enable = FALSE;
  b->enable = TRUE;
  EXPECT_FALSE(isPicked(a));
  EXPECT_TRUE(isPicked(b));
  scene.click(a);
  scene.click(b);
  EXPECT_EQ(heard.ids, Ids{"b"});
}

TEST_F(EnableInSceneTest, disabledElementsLookDisabled)
{
  EXPECT_EQ(emissionOf(a), SbColor(0.0F, 0.0F, 0.0F));
  EXPECT_EQ(emissionOf(b), SbColor(0.5F, 0.5F, 0.5F));
  b->enable = TRUE;
  EXPECT_EQ(emissionOf(b), SbColor(0.0F, 0.0F, 0.0F));
}

TEST_F(EnableInSceneTest, aDisabledDialogDisablesItsElementsAndGivesThemBack)
{
  dialog->enable = FALSE;
  scene.click(a);
  EXPECT_EQ(heard.ids, Ids{});
  EXPECT_EQ(emissionOf(a), SbColor(0.5F, 0.5F, 0.5F));
  dialog->enable = TRUE;
  scene.click(a);
  scene.click(b);
  EXPECT_EQ(heard.ids, Ids{"a"});
  EXPECT_EQ(emissionOf(b), SbColor(0.5F, 0.5F, 0.5F));
}

TEST_F(EnableInSceneTest, aHiddenElementIsNotPicked)
{
  a->show3D(0);
  EXPECT_FALSE(isPicked(a));
  scene.click(a);
  EXPECT_EQ(heard.ids, Ids{});
  a->show3D(1);
  scene.click(a);
  EXPECT_EQ(heard.ids, Ids{"a"});
}

TEST_F(EnableInSceneTest, anElementDisabledWhileItIsPressedCallsNobody)
{
  scene.press(scene.centre(a));
  a->enable = FALSE;
  scene.release(scene.centre(a));
  EXPECT_EQ(heard.ids, Ids{});
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
}
