#include <Inventor/lists/SoNodeList.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoBaseColor.h>
#include <Inventor/nodes/SoCone.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoFont.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSphere.h>
#include <QDir>
#include <Quillform/Quillform.h>
#include <support/Messages.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

const std::vector<const char*> partNames = {
  "DialogTextProperties",
  "DialogComponentEdgeStyleNone",
  "DialogComponentEdgeStyleShadowIn",
  "DialogComponentEdgeStyleShadowOut",
  "DialogPushButtonReleased",
  "DialogPushButtonPressed",
  "TopLevelDialogFrame",
  "TopLevelDialogMinReleased",
  "TopLevelDialogMinPressed",
};

const char* const dialogText =
  "TopLevelDialog { label \"Title\" DialogPushButton { label \"Side\" buttonLabel \"Press\" "
  "} DialogLabel { label \"text\" } }";

int countNamed(const std::string& name)
{
  SoNodeList nodes;
  return SoNode::getByName(name.c_str(), nodes);
}

SoGroup* part(const char* name)
{
  return dynamic_cast<SoGroup*>(SoNode::getByName(name));
}

/// The first node of a type below \a root, kits and unused switch children included.
template <class Node>
Node* findBelow(SoNode* root)
{
  auto* found = dynamic_cast<Node*>(root);
  const SoChildList* children = root->getChildren();
  for (int i = 0; !found && children && i < children->getLength(); i++) {
    found = findBelow<Node>((*children)[i]);
  }
  return found;
}

bool isBelow(SoNode* root, const SoNode* node)
{
  bool found = root == node;
  const SoChildList* children = root->getChildren();
  for (int i = 0; !found && children && i < children->getLength(); i++) {
    found = isBelow((*children)[i], node);
  }
  return found;
}

} // namespace

class SkinSwitchTest : public QuillformTest {
protected:
  /// A dialog that is shown in the scene in the skin in force.
  SoTopLevelDialog* openDialog()
  {
    SoTopLevelDialog* dialog = load(dialogText);
    scene.open(dialog);
    return dialog;
  }

  void makeSkinFile(const std::string& skin, const std::string& file, const std::string& text)
  {
    QDir().mkpath(QString::fromStdString(pathOf(skin)));
    writeFile(skin + "/" + file, text);
  }

  void expectOneGroupEach()
  {
    for (const char* name : partNames) {
      EXPECT_EQ(countNamed(name), 1) << name;
      EXPECT_EQ(countNamed(std::string("_Zep_Tmp_") + name), 0) << name;
    }
  }

  Scene scene;
};

TEST_F(SkinSwitchTest, theFirstBuildLeavesOneGroupOfEachName)
{
  openDialog();
  expectOneGroupEach();
}

TEST_F(SkinSwitchTest, elementsShareThePartsThemselves)
{
  SoTopLevelDialog* dialog = openDialog();
  for (const char* name : {"DialogTextProperties", "DialogPushButtonReleased", "TopLevelDialogFrame"}) {
    EXPECT_TRUE(isBelow(dialog, part(name))) << name;
  }
  SoTopLevelDialog* second = load(dialogText);
  scene.open(second);
  EXPECT_TRUE(isBelow(second, part("DialogPushButtonReleased")));
  expectOneGroupEach();
}

TEST_F(SkinSwitchTest, aSwitchKeepsTheGroupsAndChangesTheirContents)
{
  SoTopLevelDialog* dialog = openDialog();
  std::vector<SoGroup*> groups;
  std::vector<SoNode*> contents;
  for (const char* name : partNames) {
    groups.push_back(part(name));
    ASSERT_NE(groups.back(), nullptr) << name;
    ASSERT_GT(groups.back()->getNumChildren(), 0) << name;
    contents.push_back(groups.back()->getChild(0));
    contents.back()->ref();
  }
  for (const char* skin : {"dark", "default", "dark"}) {
    SoQuillform::setSkin(skin);
    expectOneGroupEach();
    for (std::size_t i = 0; i < partNames.size(); i++) {
      EXPECT_EQ(part(partNames[i]), groups[i]) << partNames[i];
      ASSERT_GT(groups[i]->getNumChildren(), 0) << partNames[i];
      EXPECT_NE(groups[i]->getChild(0), contents[i]) << partNames[i];
    }
  }
  EXPECT_TRUE(isBelow(dialog, part("TopLevelDialogFrame")));
  for (SoNode* node : contents) {
    node->unref();
  }
}

TEST_F(SkinSwitchTest, defaultDarkDefaultLooksLikeDefault)
{
  openDialog();
  std::vector<std::string> before;
  for (const char* name : partNames) {
    before.push_back(toText(part(name)));
  }
  SoQuillform::setSkin("dark");
  EXPECT_NE(toText(part("DialogTextProperties")), before[0]);
  EXPECT_NE(toText(part("TopLevelDialogFrame")), before[6]);
  SoQuillform::setSkin("default");
  for (std::size_t i = 0; i < partNames.size(); i++) {
    EXPECT_EQ(toText(part(partNames[i])), before[i]) << partNames[i];
  }
}

TEST_F(SkinSwitchTest, switchingToTheSkinInForceReadsItAgain)
{
  makeSkinFile("mine", "TextProperties.iv", "DEF DialogTextProperties Group { BaseColor { rgb 1 0 0 } }");
  Messages messages;
  SoQuillform::setSkin(pathOf("mine").c_str());
  openDialog();
  EXPECT_EQ(static_cast<SoBaseColor*>(part("DialogTextProperties")->getChild(0))->rgb[0], SbColor(1.0F, 0.0F, 0.0F));
  makeSkinFile("mine", "TextProperties.iv", "DEF DialogTextProperties Group { BaseColor { rgb 0 1 0 } }");
  SoQuillform::setSkin(pathOf("mine").c_str());
  EXPECT_EQ(static_cast<SoBaseColor*>(part("DialogTextProperties")->getChild(0))->rgb[0], SbColor(0.0F, 1.0F, 0.0F));
  expectOneGroupEach();
}

TEST_F(SkinSwitchTest, anotherFontReachesTheTextsOnScreen)
{
  SoTopLevelDialog* dialog = openDialog();
  const float before = findBelow<SoFont>(dialog)->size.getValue();
  EXPECT_FLOAT_EQ(before, 11.0F);
  makeSkinFile("large", "TextProperties.iv",
               "DEF DialogTextProperties Group { Font { size 20 name \"DejaVu Sans\" } }");
  Messages messages;
  SoQuillform::setSkin(pathOf("large").c_str());
  ASSERT_NE(findBelow<SoFont>(dialog), nullptr);
  EXPECT_FLOAT_EQ(findBelow<SoFont>(dialog)->size.getValue(), 20.0F);
}

TEST_F(SkinSwitchTest, aSwitchMeasuresTheLabelsAnew)
{
  SoTopLevelDialog* dialog = openDialog();
  auto* button = static_cast<SoDialogComponent*>(dialog->getChild(0));
  ASSERT_TRUE(button->isLabelCachedBBox());
  const SbVec3f before = button->getLabelCachedBBox().getSize();
  makeSkinFile("large", "TextProperties.iv",
               "DEF DialogTextProperties Group { Font { size 33 name \"DejaVu Sans\" } }");
  Messages messages;
  SoQuillform::setSkin(pathOf("large").c_str());
  EXPECT_GT(button->getLabelCachedBBox().getSize()[0], before[0] * 1.5F);
}

TEST_F(SkinSwitchTest, aDialogBuiltAfterASwitchIsInTheNewSkin)
{
  SoQuillform::setSkin("dark");
  SoTopLevelDialog* dialog = openDialog();
  const std::string dark = toText(part("TopLevelDialogFrame"));
  EXPECT_TRUE(isBelow(dialog, part("TopLevelDialogFrame")));
  SoQuillform::setSkin("default");
  EXPECT_NE(toText(part("TopLevelDialogFrame")), dark);
  expectOneGroupEach();
}

TEST_F(SkinSwitchTest, aSkinThatDefinesOnlySomePartsLeavesTheOthersEmpty)
{
  openDialog();
  SoGroup* pressed = part("DialogPushButtonPressed");
  SoGroup* released = part("DialogPushButtonReleased");
  makeSkinFile("partial", "DialogPushButton.iv", "DEF DialogPushButtonReleased Group { Sphere {} }");
  Messages messages;
  SoQuillform::setSkin(pathOf("partial").c_str());
  EXPECT_EQ(pressed->getNumChildren(), 0);
  ASSERT_EQ(released->getNumChildren(), 1);
  EXPECT_TRUE(released->getChild(0)->isOfType(SoSphere::getClassTypeId()));
  SoQuillform::setSkin("default");
  EXPECT_EQ(part("DialogPushButtonPressed"), pressed);
  EXPECT_EQ(part("DialogPushButtonReleased"), released);
  EXPECT_GT(pressed->getNumChildren(), 0);
  expectOneGroupEach();
}

TEST_F(SkinSwitchTest, anElementBuiltInAPartialSkinIsCompletedByTheNext)
{
  makeSkinFile("partial", "DialogPushButton.iv", "DEF DialogPushButtonReleased Group { Sphere {} }");
  Messages messages;
  SoQuillform::setSkin(pathOf("partial").c_str());
  SoTopLevelDialog* dialog = openDialog();
  EXPECT_EQ(findBelow<SoCone>(dialog), nullptr);
  makeSkinFile("full", "DialogPushButton.iv",
               "DEF DialogPushButtonReleased Group { Cube {} } DEF DialogPushButtonPressed Group { Cone {} }");
  SoQuillform::setSkin(pathOf("full").c_str());
  EXPECT_NE(findBelow<SoCone>(dialog), nullptr);
  expectOneGroupEach();
}

TEST_F(SkinSwitchTest, aMissingFileFallsBackToTheBuiltInParts)
{
  openDialog();
  const std::string before = toText(part("DialogPushButtonReleased"));
  SoQuillform::setSkin("dark");
  QDir().mkpath(QString::fromStdString(pathOf("empty")));
  Messages messages;
  SoQuillform::setSkin(pathOf("empty").c_str());
  EXPECT_EQ(toText(part("DialogPushButtonReleased")), before);
  EXPECT_EQ(messages.count("<DialogPushButton.iv> cannot be found."), 1);
  expectOneGroupEach();
}

TEST_F(SkinSwitchTest, brokenFilesFallBackToTheBuiltInParts)
{
  openDialog();
  const std::string before = toText(part("DialogPushButtonReleased"));
  const std::vector<std::string> broken = {
    "DEF DialogPushButtonReleased Group { Cube {",
    "DEF DialogPushButtonReleased Group { Sphere { radius \"big\" } }",
    "DEF DialogPushButtonReleased Group { USE DialogPushButtonReleased }",
    "#not a scene",
    "#",
  };
  for (std::size_t i = 0; i < broken.size(); i++) {
    SoQuillform::setSkin("dark");
    const std::string skin = "broken" + std::to_string(i);
    makeSkinFile(skin, "DialogPushButton.iv", broken[i]);
    Messages messages;
    SoQuillform::setSkin(pathOf(skin).c_str());
    EXPECT_EQ(toText(part("DialogPushButtonReleased")), before) << broken[i];
    EXPECT_EQ(messages.count("<DialogPushButton.iv> cannot be found."), 1) << broken[i];
    expectOneGroupEach();
  }
}

TEST_F(SkinSwitchTest, aSkinFileNestedTooDeeplyFallsBackToTheBuiltInParts)
{
  openDialog();
  const std::string before = toText(part("DialogPushButtonReleased"));
  std::string text = "DEF DialogPushButtonReleased Group {\n";
  for (int i = 0; i < 100000; i++) {
    text += "Group {\n";
  }
  makeSkinFile("deep", "DialogPushButton.iv", text);
  Messages messages;
  SoQuillform::setSkin(pathOf("deep").c_str());
  EXPECT_EQ(toText(part("DialogPushButtonReleased")), before);
  EXPECT_EQ(messages.count("<DialogPushButton.iv> cannot be found."), 1);
}

TEST_F(SkinSwitchTest, aDirectoryInPlaceOfAFileFallsBackToo)
{
  openDialog();
  const std::string before = toText(part("DialogPushButtonReleased"));
  QDir().mkpath(QString::fromStdString(pathOf("odd/DialogPushButton.iv")));
  Messages messages;
  SoQuillform::setSkin(pathOf("odd").c_str());
  EXPECT_EQ(toText(part("DialogPushButtonReleased")), before);
}

TEST_F(SkinSwitchTest, anEmptyButValidFileCountsAsFound)
{
  openDialog();
  makeSkinFile("bare", "DialogPushButton.iv", "\n# nothing to show\n");
  Messages messages;
  SoQuillform::setSkin(pathOf("bare").c_str());
  EXPECT_EQ(messages.count("<DialogPushButton.iv>"), 0);
  EXPECT_EQ(messages.count("<TopLevelDialog.iv> cannot be found."), 1);
  SoQuillform::setSkin("default");
  EXPECT_GT(part("DialogPushButtonReleased")->getNumChildren(), 0);
  expectOneGroupEach();
}

TEST_F(SkinSwitchTest, aPartThatIsNoGroupLeavesThePartEmpty)
{
  openDialog();
  SoGroup* released = part("DialogPushButtonReleased");
  makeSkinFile("odd", "DialogPushButton.iv",
               "DEF DialogPushButtonReleased Cube {} DEF DialogPushButtonPressed Separator { Sphere {} }");
  Messages messages;
  SoQuillform::setSkin(pathOf("odd").c_str());
  EXPECT_EQ(part("DialogPushButtonPressed")->getNumChildren(), 1);
  SoQuillform::setSkin("default");
  EXPECT_GT(released->getNumChildren(), 0);
  EXPECT_EQ(part("DialogPushButtonReleased"), released);
}

TEST_F(SkinSwitchTest, aHundredSwitchesLeaveOneGroupOfEachName)
{
  openDialog();
  SoGroup* group = part("DialogPushButtonReleased");
  const int children = group->getNumChildren();
  for (int i = 0; i < 50; i++) {
    SoQuillform::setSkin("dark");
    SoQuillform::setSkin("default");
  }
  EXPECT_EQ(part("DialogPushButtonReleased"), group);
  EXPECT_EQ(group->getNumChildren(), children);
  expectOneGroupEach();
}

TEST_F(SkinSwitchTest, aDialogStaysOperableAfterASwitch)
{
  struct Heard : SoDialogPushButtonAuditor {
    void dialogPushButton(SoDialogPushButton* /*cpt*/) override
    {
      ++count;
    }
    int count = 0;
  };
  Heard heard;
  SoTopLevelDialog* dialog = openDialog();
  auto* button = static_cast<SoDialogPushButton*>(dialog->getChild(0));
  button->addAuditor(&heard);
  SoQuillform::setSkin("dark");
  scene.click(button);
  EXPECT_EQ(heard.count, 1);
}

TEST_F(SkinSwitchTest, aReleasedDialogIsForgotten)
{
  openDialog();
  scene.root()->removeAllChildren();
  SoQuillform::finish();
  EXPECT_EQ(SoQuillform::getInstanceCount(), 0);
  SoQuillform::init();
  SoQuillform::setSkin("dark");
  expectOneGroupEach();
}

TEST_F(SkinSwitchTest, freeingSetsAPartAsideAndLoadingMovesTheNewChildrenIn)
{
  auto* old = new SoGroup;
  old->ref();
  old->setName("TestPart");
  old->addChild(new SoCube);
  SoQuillform::free3DSkin("TestPart");
  EXPECT_EQ(old->getName(), SbName("_Zep_Tmp_TestPart"));
  EXPECT_EQ(old->getNumChildren(), 0);
  auto* fresh = new SoGroup;
  fresh->ref();
  fresh->setName("TestPart");
  fresh->addChild(new SoSphere);
  fresh->addChild(new SoCone);
  SoQuillform::load3DSkin("TestPart");
  EXPECT_EQ(old->getName(), SbName("TestPart"));
  EXPECT_EQ(fresh->getName(), SbName(""));
  ASSERT_EQ(old->getNumChildren(), 2);
  EXPECT_TRUE(old->getChild(0)->isOfType(SoSphere::getClassTypeId()));
  EXPECT_TRUE(old->getChild(1)->isOfType(SoCone::getClassTypeId()));
  old->unref();
  fresh->unref();
}

TEST_F(SkinSwitchTest, loadingWithOnlyOneOfTheTwoDoesNothing)
{
  auto* group = new SoGroup;
  group->ref();
  group->setName("TestPart");
  group->addChild(new SoCube);
  SoQuillform::load3DSkin("TestPart");
  EXPECT_EQ(group->getName(), SbName("TestPart"));
  SoQuillform::free3DSkin("TestPart");
  SoQuillform::load3DSkin("TestPart");
  EXPECT_EQ(group->getName(), SbName("_Zep_Tmp_TestPart"));
  SoQuillform::free3DSkin("NoSuchPart");
  EXPECT_EQ(countNamed("_Zep_Tmp_NoSuchPart"), 0);
  group->unref();
}
