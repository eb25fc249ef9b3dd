#include <Inventor/SoInput.h>
#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QDirIterator>
#include <QPushButton>
#include <Quillform/Quillform.h>
#include <forms/Plan.h>
#include <support/Messages.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

/// Values in every field that the layout touches, and in some that it does not.
const char* const authored =
  "SoTopLevelDialog { label \"A \\\"title\\\"\" auditorID \"top\" width 400 minWidth 90 maxHeight 900 margin 3 "
  "rowSpacing 5 position 10 20 position3D 1 2 3 windowResizedByChildren TRUE hScrollVisibility NEVER "
  "DialogPushButton { label \"One\\nTwo\" auditorID \"a\" width 150 buttonLabel \"Press &me\" } "
  "DialogPushButton { enable FALSE height 60 fixedHeight TRUE minHeight 50 maxHeight 70 labelVisibility FALSE } "
  "DialogPushButton { fixedWidth TRUE minWidth 100 maxWidth 32767 edgeStyle SHADOW_OUT labelAlignment LEFT } "
  "DialogLabel { label \"Text\" maxWidth 300 } "
  "DialogLabel { } }";

struct Form {
  bool window;
  bool scene;
};

void PrintTo(const Form& form, std::ostream* out)
{
  *out << (form.window ? "window" : "") << (form.scene ? "scene" : "");
}

/// Everything that happens to a dialog between loading and writing.
void live(SoTopLevelDialog* dialog, const Form& form, Scene& scene)
{
  if (form.window) {
    dialog->buildDialog(nullptr, FALSE);
    dialog->show();
    settle();
    dialog->getWidget()->resize(640, 480);
    settle();
  }
  if (form.scene) {
    scene.open(dialog);
  }
  dialog->updateAfterSceneGraphChange();
  settle();
  if (form.window) {
    dialog->getWidget()->resize(420, 400);
    settle();
  }
  dialog->updateAfterSceneGraphChange();
  settle();
}

} // namespace

class DialogFileTest : public QuillformTest {
protected:
  /// \a text as the library writes it.
  std::string normal(const std::string& text)
  {
    SoNode* node = readText(text);
    EXPECT_NE(node, nullptr);
    const std::string written = toText(node);
    node->unref();
    return written;
  }
};

class DialogInFormsTest : public DialogFileTest, public ::testing::WithParamInterface<Form> {};

TEST_P(DialogInFormsTest, whatTheAuthorSetIsWrittenAfterEverythingThatHappened)
{
  SoTopLevelDialog* dialog = load(authored);
  ASSERT_NE(dialog, nullptr);
  const std::string before = toText(dialog);
  Scene scene;
  live(dialog, GetParam(), scene);
  EXPECT_EQ(toText(dialog), before);
  EXPECT_EQ(toText(dialog), before);
  EXPECT_NE(before.find("maxWidth 32767"), std::string::npos) << before;
}

TEST_P(DialogInFormsTest, writingChangesNothingOnScreen)
{
  SoTopLevelDialog* dialog = load(authored);
  Scene scene;
  live(dialog, GetParam(), scene);
  std::vector<QRectF> plan = GetParam().window ? Plan::windowPlan(dialog) : Plan::scenePlan(dialog);
  const int width = dialog->width.getValue();
  toText(dialog);
  SoNode* copy = throughBinary(dialog);
  ASSERT_NE(copy, nullptr);
  copy->unref();
  settle();
  EXPECT_EQ(dialog->width.getValue(), width);
  EXPECT_EQ(GetParam().window ? Plan::windowPlan(dialog) : Plan::scenePlan(dialog), plan);
}

TEST_P(DialogInFormsTest, aCopyHasTheAuthorsValuesAndNothingElse)
{
  SoTopLevelDialog* dialog = load(authored);
  const std::string before = toText(dialog);
  Scene scene;
  live(dialog, GetParam(), scene);
  auto* copy = static_cast<SoTopLevelDialog*>(dialog->copy());
  ASSERT_NE(copy, nullptr);
  copy->ref();
  EXPECT_EQ(toText(copy), before);
  EXPECT_EQ(copy->width.getValue(), 400);
  EXPECT_EQ(copy->height.getValue(), 0);
  EXPECT_EQ(copy->maxHeight.getValue(), 900);
  EXPECT_EQ(copy->getWidget(), nullptr);
  EXPECT_EQ(copy->isBuilt3D(), 0);
  ASSERT_EQ(copy->getNumChildren(), 5);
  for (int i = 0; i < 5; i++) {
    EXPECT_NE(copy->getChild(i), dialog->getChild(i));
    EXPECT_EQ(copy->getChild(i)->getParent(), copy);
    EXPECT_EQ(copy->getChild(i)->getRefCount(), 1);
    EXPECT_EQ(copy->getChild(i)->isBuilt3D(), 0);
    EXPECT_FALSE(copy->getChild(i)->isWidgetBuilt());
    EXPECT_EQ(dialog->getChild(i)->getParent(), dialog);
  }
  copy->unref();
}

TEST_P(DialogInFormsTest, aCopyIsBuiltAndLivesOnItsOwn)
{
  SoTopLevelDialog* dialog = load(authored);
  const std::string before = toText(dialog);
  Scene scene;
  live(dialog, GetParam(), scene);
  auto* copy = static_cast<SoTopLevelDialog*>(dialog->copy());
  copy->ref();
  Scene other;
  live(copy, GetParam(), other);
  EXPECT_EQ(toText(copy), before);
  if (GetParam().window) {
    EXPECT_EQ(Plan::windowPlan(copy), Plan::windowPlan(dialog));
    EXPECT_NE(copy->getWidget(), dialog->getWidget());
  }
  if (GetParam().scene) {
    EXPECT_EQ(Plan::scenePlan(copy), Plan::scenePlan(dialog));
  }
  static_cast<SoDialogPushButton*>(copy->getChild(0))->buttonLabel = "changed";
  EXPECT_STREQ(static_cast<SoDialogPushButton*>(dialog->getChild(0))->buttonLabel.getValue().getString(), "Press &me");
  copy->unref();
  settle();
  EXPECT_EQ(toText(dialog), before);
}

TEST_P(DialogInFormsTest, whatIsChangedAfterTheBuildIsWritten)
{
  SoTopLevelDialog* dialog = load(authored);
  Scene scene;
  live(dialog, GetParam(), scene);
  dialog->width = 444;
  dialog->maxHeight = 888;
  auto* button = static_cast<SoDialogPushButton*>(dialog->getChild(0));
  button->width = 155;
  button->minHeight = 33;
  button->label = "New";
  dialog->updateAfterSceneGraphChange();
  settle();
  const std::string text = toText(dialog);
  for (const char* expected : {"width 444", "maxHeight 888", "width 155", "minHeight 33", "label \"New\""}) {
    EXPECT_NE(text.find(expected), std::string::npos) << expected << text;
  }
  EXPECT_EQ(text.find("width 400"), std::string::npos);
  EXPECT_EQ(text.find("width 150"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Forms, DialogInFormsTest,
                         ::testing::Values(Form{false, false}, Form{true, false}, Form{false, true}, Form{true, true}));

TEST_F(DialogFileTest, writingAndReadingGivesTheSameTextAndTree)
{
  const std::string once = normal(authored);
  EXPECT_EQ(normal(once), once);
  SoNode* node = readText(once);
  SoNode* binary = throughBinary(node);
  ASSERT_NE(binary, nullptr);
  ASSERT_TRUE(binary->isOfType(SoTopLevelDialog::getClassTypeId()));
  EXPECT_EQ(toText(binary), once);
  auto* dialog = static_cast<SoTopLevelDialog*>(binary);
  ASSERT_EQ(dialog->getNumChildren(), 5);
  EXPECT_TRUE(dialog->getChild(4)->isOfType(SoDialogLabel::getClassTypeId()));
  EXPECT_EQ(dialog->getChild(4)->getParent(), dialog);
  EXPECT_EQ(dialog->getChild(4)->getRefCount(), 1);
  binary->unref();
  node->unref();
}

TEST_F(DialogFileTest, anEmptyDialogGoesThroughBothFormats)
{
  SoNode* node = readText("SoTopLevelDialog { }");
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(normal(toText(node)), toText(node));
  SoNode* binary = throughBinary(node);
  ASSERT_NE(binary, nullptr);
  EXPECT_EQ(static_cast<SoTopLevelDialog*>(binary)->getNumChildren(), 0);
  binary->unref();
  node->unref();
}

TEST_F(DialogFileTest, severalDialogsInOneBinaryFileKeepTheirChildren)
{
  SoNode* node = readText("Separator { SoTopLevelDialog { label \"1\" DialogPushButton { } DialogLabel { } } Cube { } "
                          "SoTopLevelDialog { label \"2\" } SoTopLevelDialog { DialogLabel { } } }");
  ASSERT_NE(node, nullptr);
  SoNode* binary = throughBinary(node);
  ASSERT_NE(binary, nullptr);
  EXPECT_EQ(toText(binary), toText(node));
  auto* group = static_cast<SoGroup*>(binary);
  ASSERT_EQ(group->getNumChildren(), 4);
  EXPECT_EQ(static_cast<SoTopLevelDialog*>(group->getChild(0))->getNumChildren(), 2);
  EXPECT_EQ(static_cast<SoTopLevelDialog*>(group->getChild(3))->getNumChildren(), 1);
  binary->unref();
  node->unref();
}

TEST_F(DialogFileTest, fieldsComeBeforeTheChildrenAndDefaultsAreLeftOut)
{
  const std::string text = normal(authored);
  EXPECT_LT(text.find("rowSpacing"), text.find("DialogPushButton"));
  EXPECT_EQ(text.find("resizable"), std::string::npos);
  EXPECT_EQ(text.find("geomSwitch"), std::string::npos);
  EXPECT_EQ(text.find("labelProp"), std::string::npos);
  EXPECT_LT(text.find("Press &me"), text.find("DialogLabel"));
}

TEST_F(DialogFileTest, aNodeThatIsUsedTwiceInAFileIsWrittenOnce)
{
  SoNode* node = readText("Separator { DEF D SoTopLevelDialog { DialogPushButton { buttonLabel \"x\" } } USE D }");
  ASSERT_NE(node, nullptr);
  const std::string text = toText(node);
  EXPECT_NE(text.find("DEF D"), std::string::npos) << text;
  EXPECT_NE(text.find("USE D"), std::string::npos) << text;
  EXPECT_EQ(text.find("buttonLabel"), text.rfind("buttonLabel")) << text;
  EXPECT_EQ(normal(text), text);
  SoNode* binary = throughBinary(node);
  ASSERT_NE(binary, nullptr);
  auto* group = static_cast<SoGroup*>(binary);
  EXPECT_EQ(group->getChild(0), group->getChild(1));
  binary->unref();
  node->unref();
}

TEST_F(DialogFileTest, alongAPathTheChildrenUpToTheOneOnThePathAreWritten)
{
  SoNode* node = readText("SoTopLevelDialog { DialogPushButton { buttonLabel \"one\" } DialogPushButton { buttonLabel "
                          "\"two\" } DialogPushButton { buttonLabel \"three\" } }");
  auto* dialog = static_cast<SoTopLevelDialog*>(node);
  SoSearchAction search;
  search.setNode(dialog->getChild(1));
  search.apply(dialog);
  ASSERT_NE(search.getPath(), nullptr);
  const std::string file = pathOf("path.iv");
  SoOutput output;
  ASSERT_TRUE(output.openFile(file.c_str()));
  SoWriteAction write(&output);
  write.apply(search.getPath());
  output.closeFile();
  QFile written(QString::fromStdString(file));
  ASSERT_TRUE(written.open(QIODevice::ReadOnly));
  const std::string text = written.readAll().toStdString();
  EXPECT_NE(text.find("\"one\""), std::string::npos) << text;
  EXPECT_NE(text.find("\"two\""), std::string::npos) << text;
  EXPECT_EQ(text.find("\"three\""), std::string::npos) << text;
  node->unref();
}

TEST_F(DialogFileTest, aNamedChildKeepsItsName)
{
  SoNode* node = readText("DEF Top SoTopLevelDialog { DEF Ok DialogPushButton { buttonLabel \"OK\" } }");
  auto* dialog = static_cast<SoTopLevelDialog*>(node);
  EXPECT_EQ(SoNode::getByName("Ok"), dialog->getChild(0));
  EXPECT_EQ(SoNode::getByName("Top"), dialog);
  const std::string text = toText(node);
  EXPECT_NE(text.find("DEF Ok "), std::string::npos);
  SoNode* copy = node->copy();
  copy->ref();
  EXPECT_EQ(toText(copy), text);
  copy->unref();
  node->unref();
}

TEST_F(DialogFileTest, whatTheAuthorPutIntoAPublicPartSurvives)
{
  const std::string text = normal("SoTopLevelDialog { frame Group { Cube { width 3 } } DialogPushButton { released "
                                  "Group { Cube { width 7 } } } }");
  EXPECT_NE(text.find("width 3"), std::string::npos) << text;
  EXPECT_NE(text.find("width 7"), std::string::npos) << text;
  SoTopLevelDialog* dialog = load(text);
  ASSERT_NE(dialog, nullptr);
  Scene scene;
  live(dialog, {true, true}, scene);
  EXPECT_EQ(toText(dialog), text);
  auto* copy = static_cast<SoTopLevelDialog*>(dialog->copy());
  copy->ref();
  EXPECT_EQ(toText(copy), text);
  EXPECT_NE(Plan::partOf(copy->getChild(0), "released"), Plan::partOf(dialog->getChild(0), "released"));
  copy->unref();
}

TEST_F(DialogFileTest, aCopyWithoutItsDialogStandsAlone)
{
  SoTopLevelDialog* dialog = load(authored);
  dialog->buildDialog(nullptr, FALSE);
  auto* copy = static_cast<SoDialogPushButton*>(dialog->getChild(0)->copy());
  copy->ref();
  EXPECT_EQ(copy->getParent(), nullptr);
  EXPECT_EQ(copy->width.getValue(), 150);
  EXPECT_EQ(copy->minWidth.getValue(), 0);
  EXPECT_TRUE(copy->minWidth.isDefault());
  EXPECT_EQ(copy->getRefCount(), 1);
  dialog->addChild(copy);
  EXPECT_EQ(dialog->getNumChildren(), 6);
  copy->unref();
}

TEST_F(DialogFileTest, aCopyOfAGroupKeepsTheDialogsShared)
{
  auto* root = static_cast<SoSeparator*>(
    readText("Separator { DEF D SoTopLevelDialog { DialogPushButton { } } Group { USE D } }"));
  ASSERT_NE(root, nullptr);
  auto* copy = static_cast<SoSeparator*>(root->copy());
  copy->ref();
  EXPECT_EQ(copy->getChild(0), static_cast<SoGroup*>(copy->getChild(1))->getChild(0));
  EXPECT_NE(copy->getChild(0), root->getChild(0));
  EXPECT_EQ(static_cast<SoTopLevelDialog*>(copy->getChild(0))->getNumChildren(), 1);
  EXPECT_EQ(copy->getChild(0)->getRefCount(), 2);
  copy->unref();
  root->unref();
}

TEST_F(DialogFileTest, searchesReachTheChildrenAndGiveAPathToThem)
{
  SoTopLevelDialog* dialog = load(authored);
  SoSearchAction search;
  search.setType(SoDialogLabel::getClassTypeId());
  search.setInterest(SoSearchAction::ALL);
  search.apply(dialog);
  EXPECT_EQ(search.getPaths().getLength(), 2);
  search.reset();
  search.setNode(dialog->getChild(2));
  search.setInterest(SoSearchAction::ALL);
  search.apply(dialog);
  ASSERT_EQ(search.getPaths().getLength(), 1);
  EXPECT_TRUE(search.getPaths()[0]->containsNode(dialog->getChild(2)));
  search.reset();
  search.setType(SoQuillform::getClassTypeId());
  search.setInterest(SoSearchAction::LAST);
  search.apply(dialog);
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_TRUE(search.getPath()->containsNode(dialog->getChild(4)));
}

TEST_F(DialogFileTest, searchesFindEachChildOnceInBothForms)
{
  SoTopLevelDialog* dialog = load(authored);
  Scene scene;
  live(dialog, {true, true}, scene);
  for (const SbBool inKits : {FALSE, TRUE}) {
    const SbBool before = SoBaseKit::isSearchingChildren();
    SoBaseKit::setSearchingChildren(inKits);
    SoSearchAction search;
    search.setType(SoDialogPushButton::getClassTypeId());
    search.setInterest(SoSearchAction::ALL);
    search.apply(scene.root());
    SoBaseKit::setSearchingChildren(before);
    EXPECT_EQ(search.getPaths().getLength(), 3) << inKits;
  }
}

TEST_F(DialogFileTest, theBoundingBoxHoldsTheChildren)
{
  SoTopLevelDialog* dialog = load(authored);
  Scene scene;
  scene.open(dialog);
  SoGetBoundingBoxAction measure(SbViewportRegion(800, 600));
  measure.apply(dialog);
  const QRectF whole = Plan::seen(measure.getBoundingBox());
  for (SoDialogComponent* component : Plan::componentsOf(dialog)) {
    const QRectF inner = Plan::seen(Plan::boxOf(dialog, component));
    EXPECT_GT(inner.width(), 10.0);
    EXPECT_TRUE(Plan::stands(inner, whole));
  }
}

TEST_F(DialogFileTest, everyExampleIsWrittenBackAsItWasLoaded)
{
  QDirIterator files(QUILLFORM_TEST_EXAMPLES, {"*.iv"}, QDir::Files, QDirIterator::Subdirectories);
  int count = 0;
  while (files.hasNext()) {
    const std::string path = files.next().toStdString();
    SoQuillform* loaded = SoQuillform::loadFromFile(path.c_str(), "");
    ASSERT_NE(loaded, nullptr) << path;
    ++count;
    const std::string before = toText(loaded);
    EXPECT_EQ(normal(before), before) << path;
    if (auto* dialog = dynamic_cast<SoTopLevelDialog*>(loaded)) {
      Scene scene;
      live(dialog, {true, true}, scene);
      EXPECT_EQ(toText(dialog), before) << path;
    }
    else {
      EXPECT_NE(dynamic_cast<SoMessageDialog*>(loaded), nullptr) << path;
    }
    auto* copy = loaded->copy();
    copy->ref();
    EXPECT_EQ(toText(copy), before) << path;
    copy->unref();
  }
  EXPECT_GT(count, 0);
}

TEST_F(DialogFileTest, positionsThatMoveTogetherAreWrittenInAWayThatCanBeRead)
{
  for (const bool inScene : {false, true}) {
    SoTopLevelDialog* dialog =
      load("TopLevelDialog { DialogEditText { } DialogPushButton { } RowDialog { DialogLabel { label \"L\" } } }");
    if (inScene) {
      SoInSceneMode::setEnabled(TRUE);
    }
    dialog->buildDialog(nullptr, FALSE);
    SoInSceneMode::setEnabled(FALSE);
    dialog->independentMinimizedPosition = FALSE;
    dialog->position3D.setValue(7.0F, 8.0F, 0.0F);
    dialog->minimized = TRUE;
    const std::string text = toText(dialog);
    EXPECT_EQ(text.find("Separator {"), std::string::npos) << text;
    EXPECT_EQ(text.find("USE"), std::string::npos) << text;
    SoNode* read = readText(text);
    ASSERT_NE(read, nullptr) << text;
    EXPECT_EQ(static_cast<SoTopLevelDialog*>(read)->minimized3DPosition.getValue(), SbVec3f(7.0F, 8.0F, 0.0F));
    EXPECT_EQ(static_cast<SoTopLevelDialog*>(read)->getNumChildren(), 3);
    EXPECT_EQ(toText(read), text);
    read->unref();
  }
}
