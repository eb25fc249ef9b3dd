#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Quillform/Quillform.h>
#include <Quillform/core/SoQuillformClasses.h>
#include <Quillform/platform/SoSceneGraphLayers.h>
#include <algorithm>
#include <gtest/gtest.h>
#include <support/Messages.h>
#include <support/TestFiles.h>

namespace {

/// The order in which element classes are registered.
const std::vector<std::string> order = {
  "Quillform",
  "MenuItem",
  "MenuCheckBox",
  "MenuCheckBoxLauncher",
  "MenuPopup",
  "MenuPushButton",
  "MenuFileSelection",
  "MenuPushButtonLauncher",
  "MenuRadioButtons",
  "MenuSeparator",
  "TopComponent",
  "DialogComponent",
  "DialogCheckBox",
  "DialogCheckBoxLauncher",
  "DialogChoice",
  "DialogComboBox",
  "DialogRadioButtons",
  "DialogCustom",
  "DialogEditText",
  "DialogGroup",
  "ColumnDialog",
  "RowDialog",
  "TabDialog",
  "DialogLabel",
  "DialogPushButton",
  "DialogPushButtonLauncher",
  "DialogSeparator",
  "DialogSlider",
  "DialogIntegerSlider",
  "DialogRealSlider",
  "MenuBar",
  "SoTopLevelDialog",
  "MessageDialog",
};

std::vector<std::string> namesOf(const std::vector<SoType>& types)
{
  std::vector<std::string> names;
  for (const SoType& type : types) {
    names.emplace_back(type.getName().getString());
  }
  return names;
}

/// A dialog in memory, referenced once.
SoTopLevelDialog* makeDialog()
{
  auto* dialog = new SoTopLevelDialog;
  dialog->ref();
  dialog->label = "kept";
  dialog->addChild(new SoDialogPushButton);
  return dialog;
}

} // namespace

TEST(StartAndFinishTest, initAndFinishCount)
{
  EXPECT_FALSE(SoQuillform::isInitialized());
  EXPECT_EQ(SoQuillform::init(), 1);
  EXPECT_EQ(SoQuillform::init(), 2);
  EXPECT_TRUE(SoQuillform::isInitialized());
  SoQuillform::finish();
  EXPECT_TRUE(SoQuillform::isInitialized());
  EXPECT_EQ(SoQuillform::init(), 2);
  SoQuillform::finish();
  SoQuillform::finish();
  EXPECT_FALSE(SoQuillform::isInitialized());
}

TEST(StartAndFinishTest, theClassesStayRegisteredUntilTheLastFinish)
{
  SoQuillform::init();
  SoQuillform::init();
  SoQuillform::finish();
  EXPECT_NE(SoType::fromName("DialogPushButton"), SoType::badType());
  EXPECT_NE(SoType::fromName("Auditor"), SoType::badType());
  SoQuillform::finish();
  EXPECT_EQ(SoType::fromName("DialogPushButton"), SoType::badType());
  EXPECT_EQ(SoType::fromName("SoTopLevelDialog"), SoType::badType());
  EXPECT_EQ(SoType::fromName("TopLevelDialog"), SoType::badType());
  EXPECT_EQ(SoType::fromName("Quillform"), SoType::badType());
  EXPECT_EQ(SoType::fromName("Auditor"), SoType::badType());
  EXPECT_EQ(SoQuillform::getClassTypeId(), SoType::badType());
  EXPECT_TRUE(SoQuillformClasses::getTypes().empty());
}

TEST(StartAndFinishTest, finishWithoutInitDoesNothing)
{
  SoQuillform::finish();
  EXPECT_FALSE(SoQuillform::isInitialized());
  EXPECT_EQ(SoQuillform::init(), 1);
  SoQuillform::finish();
  SoQuillform::finish();
  EXPECT_EQ(SoQuillform::init(), 1);
  SoQuillform::finish();
}

TEST(StartAndFinishTest, everyStartOfTheSceneGraphIsUndone)
{
  SoQuillform::init();
  SoQuillform::init();
  EXPECT_EQ(SoSceneGraphLayers::getCount(), 2);
  SoQuillform::finish();
  EXPECT_EQ(SoSceneGraphLayers::getCount(), 1);
  SoQuillform::finish();
  EXPECT_EQ(SoSceneGraphLayers::getCount(), 0);
  SoQuillform::finish();
  EXPECT_EQ(SoSceneGraphLayers::getCount(), 0);
}

TEST(StartAndFinishTest, theClassesAreRegisteredInTheirOrder)
{
  SoQuillform::init();
  const std::vector<std::string> names = namesOf(SoQuillformClasses::getTypes());
  std::vector<std::string> expected;
  for (const std::string& name : order) {
    if (SoType::fromName(name.c_str()) != SoType::badType()) {
      expected.push_back(name);
    }
  }
  EXPECT_EQ(names, expected);
  EXPECT_GE(names.size(), 6U);
  // Types are numbered in the order in which they are made.
  std::vector<SoType> types = SoQuillformClasses::getTypes();
  EXPECT_TRUE(std::is_sorted(types.begin(), types.end(),
                             [](const SoType& a, const SoType& b) { return a.getKey() < b.getKey(); }));
  SoQuillform::finish();
}

TEST(StartAndFinishTest, theAuditorsAreRegisteredLast)
{
  SoQuillform::init();
  for (const SoType& type : SoQuillformClasses::getTypes()) {
    EXPECT_LT(type.getKey(), SoType::fromName("Auditor").getKey()) << type.getName().getString();
  }
  SoQuillform::finish();
}

TEST(StartAndFinishTest, everyClassIsMadeByItsTypeAndIsBuiltIn)
{
  SoQuillform::init();
  int made = 0;
  for (const SoType& type : SoQuillformClasses::getTypes()) {
    ASSERT_TRUE(type.canCreateInstance()) << type.getName().getString();
    auto* node = static_cast<SoNode*>(type.createInstance());
    node->ref();
    EXPECT_EQ(node->getTypeId(), type);
    EXPECT_TRUE(node->getIsBuiltIn()) << type.getName().getString();
    EXPECT_TRUE(node->isOfType(SoQuillform::getClassTypeId()));
    node->unref();
    ++made;
  }
  EXPECT_EQ(made, static_cast<int>(SoQuillformClasses::getTypes().size()));
  EXPECT_EQ(SoQuillform::getInstanceCount(), 0);
  SoQuillform::finish();
}

TEST(StartAndFinishTest, bothSpellingsOfEveryClassAreRead)
{
  SoQuillform::init();
  for (const SoType& type : SoQuillformClasses::getTypes()) {
    std::string name = type.getName().getString();
    name = name.substr(name.compare(0, 2, "So") == 0 ? 2 : 0);
    for (const std::string& spelling : {name, "So" + name}) {
      SoNode* node = readText(spelling + " { label \"x\" }");
      ASSERT_NE(node, nullptr) << spelling;
      EXPECT_EQ(static_cast<SoQuillform*>(node)->label.getValue(), SbString("x"));
      EXPECT_TRUE(node->isOfType(type)) << spelling;
      node->unref();
    }
  }
  SoQuillform::finish();
}

TEST(StartAndFinishTest, startingOverAndOverWorks)
{
  for (int i = 0; i < 20; i++) {
    ASSERT_EQ(SoQuillform::init(), 1);
    SoTopLevelDialog* dialog = makeDialog();
    EXPECT_EQ(dialog->getTypeId().getName(), SbName("SoTopLevelDialog"));
    dialog->unref();
    SoQuillform::finish();
  }
  EXPECT_EQ(SoQuillform::getInstanceCount(), 0);
}

TEST(StartAndFinishTest, aReferencedNodeSurvivesFinish)
{
  SoQuillform::init();
  SoTopLevelDialog* dialog = makeDialog();
  SoQuillform::finish();
  EXPECT_EQ(dialog->label.getValue(), SbString("kept"));
  EXPECT_EQ(dialog->getNumChildren(), 1);
  EXPECT_NE(dialog->getField("windowResizedByChildren"), nullptr);
  dialog->width = 120;
  dialog->unref();
  EXPECT_EQ(SoQuillform::getInstanceCount(), 0);
}

TEST(StartAndFinishTest, aNodeReleasedAfterALaterInitIsFine)
{
  SoQuillform::init();
  SoTopLevelDialog* old = makeDialog();
  SoQuillform::finish();
  SoQuillform::init();
  SoTopLevelDialog* fresh = makeDialog();
  EXPECT_EQ(old->getTypeId(), fresh->getTypeId());
  EXPECT_EQ(toText(old), toText(fresh));
  old->unref();
  EXPECT_EQ(fresh->label.getValue(), SbString("kept"));
  fresh->unref();
  SoQuillform::finish();
  EXPECT_EQ(SoQuillform::init(), 1);
  SoTopLevelDialog* last = makeDialog();
  EXPECT_EQ(last->getNumChildren(), 1);
  last->unref();
  SoQuillform::finish();
}

TEST(StartAndFinishTest, aNodeThatSurvivedCanBeCopiedBuiltAndWrittenAfterALaterInit)
{
  SoQuillform::init();
  SoQuillform::setSkinsDirectories(QUILLFORM_TEST_SKINS);
  SoTopLevelDialog* dialog = makeDialog();
  SoQuillform::finish();
  SoQuillform::init();
  auto* copy = static_cast<SoTopLevelDialog*>(dialog->copy());
  copy->ref();
  EXPECT_EQ(toText(copy), toText(dialog));
  copy->unref();
  EXPECT_NE(dialog->buildDialog(nullptr, FALSE), nullptr);
  dialog->unref();
  settle();
  SoQuillform::finish();
  EXPECT_EQ(SoQuillform::getInstanceCount(), 0);
}

TEST(StartAndFinishTest, aNodeInAnApplicationsSceneSurvivesFinish)
{
  SoQuillform::init();
  auto* root = new SoSeparator;
  root->ref();
  SoTopLevelDialog* dialog = makeDialog();
  root->addChild(dialog);
  dialog->unref();
  SoQuillform::finish();
  EXPECT_EQ(root->getNumChildren(), 1);
  SoQuillform::init();
  root->unref();
  SoQuillform::finish();
  EXPECT_EQ(SoQuillform::getInstanceCount(), 0);
}

TEST(StartAndFinishTest, loadingBeforeInitIsRefusedWithAMessage)
{
  Messages messages;
  EXPECT_EQ(SoQuillform::loadFromFile("any.iv", ""), nullptr);
  EXPECT_EQ(messages.count("SoQuillform::loadFromFile"), 1);
  EXPECT_EQ(messages.count("SoQuillform::init()"), 1);
}

namespace {

struct GlobalAuditor : SoDialogPushButtonAuditor {
  void dialogPushButton(SoDialogPushButton* /*cpt*/) override {}
};

GlobalAuditor& globalAuditor()
{
  static GlobalAuditor auditor;
  return auditor;
}

} // namespace

TEST(StartAndFinishTest, anAuditorThatLivesToTheEndOfTheProcessIsFine)
{
  EXPECT_EXIT(
    {
      globalAuditor(); // made before, and so destroyed after, what the library makes on first use
      SoQuillform::init();
      SoTopLevelDialog* dialog = makeDialog();
      dialog->getChild(0)->addAuditor(&globalAuditor());
      dialog->unref();
      SoQuillform::finish();
      std::exit(0);
    },
    ::testing::ExitedWithCode(0), "");
}
