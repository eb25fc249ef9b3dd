#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTranslation.h>
#include <Inventor/sensors/SoFieldSensor.h>
#include <QLabel>
#include <QRegularExpression>
#include <Quillform/Quillform.h>
#include <algorithm>
#include <support/Messages.h>
#include <support/TestFiles.h>

namespace {

/// A base node that writes down what it is told.
class Probe : public SoQuillform {
public:
  void changeEnable() override
  {
    log.emplace_back("enable");
  }
  void changeLabel() override
  {
    log.emplace_back("label");
  }
  void changeLabelAlignment() override
  {
    log.emplace_back("labelAlignment");
  }
  void change3DEnable() override
  {
    log.emplace_back("3D enable");
    SoQuillform::change3DEnable();
  }
  void change3DLabel() override
  {
    log.emplace_back("3D label");
    SoQuillform::change3DLabel();
  }
  void change3DLabelAlignment() override
  {
    log.emplace_back("3D labelAlignment");
  }
  void set3DInactive() override
  {
    log.emplace_back("inactive");
    SoQuillform::set3DInactive();
  }

  void build(int asWidget)
  {
    SbVec2i32 size(0, 0);
    SbVec2i32 place(0, 0);
    buildWidget(nullptr, size, place, asWidget);
    if (asWidget == 0) {
      setBuilt3D(1);
    }
  }

  SoNode* geometry(int child) const
  {
    return static_cast<SoSwitch*>(geomSwitchNode())->getChild(child);
  }
  template <class Node>
  Node* getNode(const char* part) const
  {
    return static_cast<Node*>(static_cast<const SoSFNode*>(getField(part))->getValue());
  }
  SoSwitch* geomSwitchNode() const
  {
    return getNode<SoSwitch>("geomSwitch");
  }
  SoSeparator* geomSeparatorNode() const
  {
    return getNode<SoSeparator>("geomSeparator");
  }
  SoSeparator* topSeparatorNode() const
  {
    return getNode<SoSeparator>("topSeparator");
  }
  int getPickStyle() const
  {
    return static_cast<SoPickStyle*>(geometry(0))->style.getValue();
  }
  SbColor getEmission() const
  {
    return static_cast<SoMaterial*>(geometry(1))->emissiveColor[0];
  }

  std::vector<std::string> log;
};

typedef std::vector<std::string> Log;

struct Auditor : SoDialogPushButtonAuditor {
  void dialogPushButton(SoDialogPushButton* /*cpt*/) override {}
};

const SbColor black(0.0F, 0.0F, 0.0F);
const SbColor grey(0.5F, 0.5F, 0.5F);

} // namespace

class BaseNodeTest : public QuillformTest {
protected:
  BaseNodeTest() : node(new Probe)
  {
    node->ref();
  }
  ~BaseNodeTest() override
  {
    if (node) {
      node->unref();
    }
  }

  Probe* node;
};

TEST_F(BaseNodeTest, isTheTypeQuillformBelowTheDragger)
{
  EXPECT_EQ(SoType::fromName("Quillform"), SoQuillform::getClassTypeId());
  EXPECT_EQ(SoQuillform::getClassTypeId().getName(), SbName("Quillform"));
  EXPECT_EQ(SoQuillform::getClassTypeId().getParent(), SoDragger::getClassTypeId());
}

TEST_F(BaseNodeTest, isBuiltInAndMadeByItsType)
{
  ASSERT_TRUE(SoQuillform::getClassTypeId().canCreateInstance());
  auto* made = static_cast<SoQuillform*>(SoQuillform::getClassTypeId().createInstance());
  made->ref();
  EXPECT_EQ(made->getTypeId(), SoQuillform::getClassTypeId());
  EXPECT_TRUE(made->getIsBuiltIn());
  made->unref();
}

TEST_F(BaseNodeTest, hasItsFieldsInTheOrderOfAFile)
{
  SoFieldList fields;
  node->getFields(fields);
  SoFieldList inherited;
  auto* dragger = static_cast<SoDragger*>(SoType::fromName("SoTranslate1Dragger").createInstance());
  dragger->ref();
  std::vector<std::string> names;
  for (int i = 0; i < fields.getLength(); i++) {
    SbName name;
    node->getFieldName(fields[i], name);
    if (!dragger->getField(name)) {
      names.emplace_back(name.getString());
    }
  }
  dragger->unref();
  EXPECT_EQ(names, (Log{"enable", "label", "auditorID", "labelAlignment", "geomSwitch"}));
}

TEST_F(BaseNodeTest, hasItsFieldsAtTheirDefaults)
{
  EXPECT_TRUE(node->enable.getValue());
  EXPECT_EQ(node->label.getValue(), SbString(""));
  EXPECT_EQ(node->auditorID.getValue(), SbString(""));
  EXPECT_EQ(node->labelAlignment.getValue(), SoQuillform::RIGHT);
  for (SoField* field :
       std::initializer_list<SoField*>{&node->enable, &node->label, &node->auditorID, &node->labelAlignment}) {
    EXPECT_TRUE(field->isDefault());
  }
}

TEST_F(BaseNodeTest, namesTheAlignmentsLeftCenterAndRight)
{
  EXPECT_EQ(SoQuillform::LEFT, 0);
  EXPECT_EQ(SoQuillform::CENTER, 1);
  EXPECT_EQ(SoQuillform::RIGHT, 2);
  for (const auto& [text, value] : {std::pair<const char*, int>{"LEFT", 0}, {"CENTER", 1}, {"RIGHT", 2}}) {
    ASSERT_TRUE(node->labelAlignment.set(text));
    EXPECT_EQ(node->labelAlignment.getValue(), value);
  }
}

TEST_F(BaseNodeTest, addsTheHiddenPartGeomSwitch)
{
  const SoNodekitCatalog* catalog = node->getNodekitCatalog();
  EXPECT_EQ(catalog->getNumEntries(), SoDragger::getClassNodekitCatalog()->getNumEntries() + 1);
  const int part = catalog->getPartNumber("geomSwitch");
  ASSERT_NE(part, SO_CATALOG_NAME_NOT_FOUND);
  EXPECT_EQ(catalog->getType(part), SoSwitch::getClassTypeId());
  EXPECT_EQ(catalog->getDefaultType(part), SoSwitch::getClassTypeId());
  EXPECT_EQ(catalog->getParentName(part), SbName("geomSeparator"));
  EXPECT_TRUE(catalog->isNullByDefault(part));
  EXPECT_FALSE(catalog->isList(part));
  EXPECT_FALSE(catalog->isPublic(part));
  EXPECT_EQ(node->geomSwitchNode(), nullptr);
}

TEST_F(BaseNodeTest, aNodeThatNeverGotAnAuditorHasNone)
{
  EXPECT_EQ(node->getAuditorListLength(), 0);
  EXPECT_EQ(node->getAuditor(0), nullptr);
}

TEST_F(BaseNodeTest, anAuditorAddedTwiceIsThereOnce)
{
  Auditor first;
  Auditor second;
  node->addAuditor(&first);
  node->addAuditor(&second);
  node->addAuditor(&first);
  ASSERT_EQ(node->getAuditorListLength(), 2);
  EXPECT_EQ(node->getAuditor(0), &first);
  EXPECT_EQ(node->getAuditor(1), &second);
}

TEST_F(BaseNodeTest, removingAnAuditorThatIsNotThereChangesNothing)
{
  Auditor stranger;
  node->removeAuditor(&stranger);
  EXPECT_EQ(node->getAuditorListLength(), 0);
  Auditor first;
  node->addAuditor(&first);
  node->removeAuditor(&stranger);
  node->removeAuditor(static_cast<SoAuditor*>(nullptr));
  ASSERT_EQ(node->getAuditorListLength(), 1);
  EXPECT_EQ(node->getAuditor(0), &first);
}

TEST_F(BaseNodeTest, aRemovedAuditorMayBeAddedAgainAtTheEnd)
{
  Auditor first;
  Auditor second;
  node->addAuditor(&first);
  node->addAuditor(&second);
  node->removeAuditor(&first);
  node->addAuditor(&first);
  EXPECT_EQ(node->getAuditor(0), &second);
  EXPECT_EQ(node->getAuditor(1), &first);
}

TEST_F(BaseNodeTest, noAuditorAtAllIsNotAdded)
{
  node->addAuditor(static_cast<SoAuditor*>(nullptr));
  EXPECT_EQ(node->getAuditorListLength(), 0);
}

TEST_F(BaseNodeTest, askingPastTheEndGivesNullAndGrowsNothing)
{
  Auditor auditor;
  node->addAuditor(&auditor);
  EXPECT_EQ(node->getAuditor(1), nullptr);
  EXPECT_EQ(node->getAuditor(1000), nullptr);
  EXPECT_EQ(node->getAuditor(-1), nullptr);
  EXPECT_EQ(node->getAuditorListLength(), 1);
}

TEST_F(BaseNodeTest, aDeletedAuditorLeavesEveryList)
{
  auto* other = new Probe;
  other->ref();
  {
    Auditor auditor;
    node->addAuditor(&auditor);
    other->addAuditor(&auditor);
  }
  EXPECT_EQ(node->getAuditorListLength(), 0);
  EXPECT_EQ(other->getAuditorListLength(), 0);
  other->unref();
}

TEST_F(BaseNodeTest, auditorsOutliveTheNode)
{
  Auditor auditor;
  node->addAuditor(&auditor);
  node->unref();
  node = new Probe;
  node->ref();
  node->addAuditor(&auditor);
  EXPECT_EQ(node->getAuditor(0), &auditor);
}

TEST_F(BaseNodeTest, aChangeBeforeTheFirstBuildTriggersNothing)
{
  node->label = "early";
  node->enable = FALSE;
  node->labelAlignment = SoQuillform::LEFT;
  EXPECT_EQ(node->log, Log{});
}

TEST_F(BaseNodeTest, changesReachTheWindowFormAtOnce)
{
  node->build(1);
  node->label = "text";
  EXPECT_EQ(node->log, Log{"label"});
  node->enable = FALSE;
  node->labelAlignment = SoQuillform::LEFT;
  EXPECT_EQ(node->log, (Log{"label", "enable", "labelAlignment"}));
}

TEST_F(BaseNodeTest, changesReachOnlyTheSceneFormWhenOnlyThatIsBuilt)
{
  node->build(0);
  node->log.clear();
  node->enable = FALSE;
  EXPECT_EQ(node->log, Log{"3D enable"});
  node->label = "text";
  node->labelAlignment = SoQuillform::LEFT;
  EXPECT_EQ(node->log, (Log{"3D enable", "3D label", "3D labelAlignment"}));
}

TEST_F(BaseNodeTest, theWindowFormHearsBeforeTheSceneForm)
{
  node->build(1);
  node->build(0);
  node->log.clear();
  node->enable = FALSE;
  node->label = "text";
  node->labelAlignment = SoQuillform::CENTER;
  EXPECT_EQ(node->log, (Log{"enable", "3D enable", "label", "3D label", "labelAlignment", "3D labelAlignment"}));
}

TEST_F(BaseNodeTest, aNodeThatCannotBeTraversedIsNotUpdatedIn3D)
{
  node->build(1);
  node->build(0);
  node->log.clear();
  node->setCanBeTraversed(0);
  node->label = "text";
  EXPECT_EQ(node->log, Log{"label"});
}

TEST_F(BaseNodeTest, buildingTwiceReactsOnce)
{
  node->build(1);
  node->build(1);
  node->label = "text";
  EXPECT_EQ(node->log, Log{"label"});
}

TEST_F(BaseNodeTest, theSensorsStayAfterTheWidgetsAreGone)
{
  node->build(1);
  node->destroyWidget();
  EXPECT_FALSE(node->isWidgetBuilt());
  node->label = "text";
  EXPECT_EQ(node->log, Log{});
  node->build(1);
  node->label = "more";
  EXPECT_EQ(node->log, Log{"label"});
}

TEST_F(BaseNodeTest, aSensorOfAnotherFieldIsIgnored)
{
  node->build(1);
  SoFieldSensor stranger;
  stranger.attach(&node->auditorID);
  SoQuillform::fieldChangedCB(static_cast<SoQuillform*>(node), &stranger);
  node->auditorID = "id";
  EXPECT_EQ(node->log, Log{});
}

TEST_F(BaseNodeTest, theBaseDoesNothingWhereDerivedClassesReact)
{
  auto* plain = new SoQuillform;
  plain->ref();
  plain->applyAuditor(node);
  plain->applyDlgCptAuditor();
  plain->resetSize();
  plain->changeEnable();
  plain->changeLabel();
  plain->changeLabelAlignment();
  plain->change3DPosition();
  plain->change3DLabelAlignment();
  plain->change3DEnable();
  plain->change3DWidgetEnable(0);
  EXPECT_EQ(plain->label.getValue(), SbString(""));
  EXPECT_TRUE(plain->enable.isDefault());
  plain->unref();
}

TEST_F(BaseNodeTest, aWidgetExistsWhenItIsNotNull)
{
  QLabel widget;
  EXPECT_TRUE(SoQuillform::existWidget(&widget));
  EXPECT_FALSE(SoQuillform::existWidget(nullptr));
}

TEST_F(BaseNodeTest, theFontIsEightPointSansSerifAtFirst)
{
  const QFont font = SoQuillform::getQuillformFont();
  EXPECT_EQ(font.family(), "Microsoft Sans Serif");
  EXPECT_EQ(font.pointSize(), 8);
  EXPECT_EQ(font.weight(), QFont::Normal);
  EXPECT_FALSE(font.italic());
}

TEST_F(BaseNodeTest, aNewFontReachesTheNextWidgets)
{
  QLabel before;
  SoQuillform::setWidgetFont(&before);
  SoQuillform::setFont(QFont("DejaVu Sans", 14));
  QLabel after;
  SoQuillform::setWidgetFont(&after);
  EXPECT_EQ(before.font().pointSize(), 8);
  EXPECT_EQ(after.font().pointSize(), 14);
  EXPECT_EQ(after.font().family(), "DejaVu Sans");
  EXPECT_EQ(SoQuillform::getQuillformFont().pointSize(), 14);
}

TEST_F(BaseNodeTest, activatingASecondElementMakesTheFirstInactive)
{
  auto* second = new Probe;
  second->ref();
  SoQuillform::set3DCurrentActive(node);
  SoQuillform::set3DCurrentActive(second);
  EXPECT_EQ(node->log, Log{"inactive"});
  EXPECT_EQ(second->log, Log{});
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), second);
  SoQuillform::set3DCurrentActive(nullptr);
  EXPECT_EQ(second->log, Log{"inactive"});
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
  second->unref();
}

TEST_F(BaseNodeTest, activatingTheSameElementAgainDoesNot)
{
  SoQuillform::set3DCurrentActive(node);
  SoQuillform::set3DCurrentActive(node);
  EXPECT_EQ(node->log, Log{});
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), node);
}

TEST_F(BaseNodeTest, onlyTheActiveElementClearsTheActivity)
{
  auto* other = new Probe;
  other->ref();
  SoQuillform::set3DCurrentActive(node);
  other->set3DInactive();
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), node);
  node->set3DInactive();
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
  other->unref();
}

TEST_F(BaseNodeTest, anActiveElementThatDiesIsNoLongerActive)
{
  SoQuillform::set3DCurrentActive(node);
  node->unref();
  node = nullptr;
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
}

TEST_F(BaseNodeTest, showAndHideSetTheSwitch)
{
  EXPECT_TRUE(node->isShown3D());
  node->build(0);
  EXPECT_EQ(node->geomSwitchNode()->whichChild.getValue(), SO_SWITCH_ALL);
  node->show3D(0);
  EXPECT_EQ(node->geomSwitchNode()->whichChild.getValue(), SO_SWITCH_NONE);
  EXPECT_FALSE(node->isShown3D());
  node->show3D(1);
  EXPECT_EQ(node->geomSwitchNode()->whichChild.getValue(), SO_SWITCH_ALL);
  EXPECT_TRUE(node->isShown3D());
}

TEST_F(BaseNodeTest, hidingBeforeTheBuildHolds)
{
  node->show3D(0);
  node->build(0);
  EXPECT_EQ(node->geomSwitchNode()->whichChild.getValue(), SO_SWITCH_NONE);
}

TEST_F(BaseNodeTest, twoBuildsIn3DMakeTheSupportNodesOnce)
{
  node->build(0);
  const int children = node->geomSwitchNode()->getNumChildren();
  EXPECT_EQ(children, 2);
  node->setBuilt3D(0);
  node->build(0);
  EXPECT_EQ(node->geomSwitchNode()->getNumChildren(), children);
}

TEST_F(BaseNodeTest, theCachingOfItsGeometryFollowsTheKitsFieldsOnceItIsBuilt)
{
  node->renderCaching = SoInteractionKit::OFF;
  node->build(0);
  EXPECT_EQ(node->topSeparatorNode()->renderCaching.getValue(), SoSeparator::OFF);
  EXPECT_EQ(node->topSeparatorNode()->pickCulling.getValue(), SoSeparator::AUTO);
  node->renderCaching = SoInteractionKit::ON;
  node->pickCulling = SoInteractionKit::OFF;
  EXPECT_EQ(node->topSeparatorNode()->renderCaching.getValue(), SoSeparator::ON);
  EXPECT_EQ(node->topSeparatorNode()->pickCulling.getValue(), SoSeparator::OFF);
}

TEST_F(BaseNodeTest, makingAnElementDelaysNoSensorOfTheApplication)
{
  SoSFInt32 watched;
  int fired = 0;
  SoFieldSensor sensor([](void* data, SoSensor*) { ++*static_cast<int*>(data); }, &fired);
  sensor.setPriority(0);
  sensor.attach(&watched);
  SoDialogPushButton* made = new SoDialogPushButton;
  made->ref();
  watched = 1;
  EXPECT_EQ(fired, 1);
  made->unref();
}

TEST_F(BaseNodeTest, findsFieldsAndPartsByTheirNames)
{
  auto* button = new SoDialogPushButton;
  auto* label = new SoDialogLabel;
  button->ref();
  label->ref();
  for (int pass = 0; pass < 2; pass++) {
    EXPECT_EQ(button->getField("buttonLabel"), &button->buttonLabel);
    EXPECT_EQ(label->getField("buttonLabel"), nullptr);
    EXPECT_EQ(label->getField("label"), &label->label);
    EXPECT_EQ(button->getField("label"), &button->label);
    EXPECT_EQ(button->getField("no field"), nullptr);
  }
  // The same name is another number in each class.
  for (SoQuillform* element : {static_cast<SoQuillform*>(button), static_cast<SoQuillform*>(label)}) {
    SbName name;
    ASSERT_NE(element->getField("labelProp"), nullptr);
    EXPECT_TRUE(element->getFieldName(element->getField("labelProp"), name));
    EXPECT_STREQ(name.getString(), "labelProp");
  }
  button->unref();
  label->unref();
}

TEST_F(BaseNodeTest, pickStyleAndMaterialFollowEnable)
{
  node->build(0);
  EXPECT_EQ(node->getPickStyle(), SoPickStyle::BOUNDING_BOX);
  EXPECT_EQ(node->getEmission(), black);
  node->enable = FALSE;
  EXPECT_EQ(node->getPickStyle(), SoPickStyle::UNPICKABLE);
  EXPECT_EQ(node->getEmission(), grey);
  node->enable = TRUE;
  EXPECT_EQ(node->getPickStyle(), SoPickStyle::BOUNDING_BOX);
  EXPECT_EQ(node->getEmission(), black);
}

TEST_F(BaseNodeTest, anElementDisabledFromTheStartIsBuiltDisabled)
{
  node->enable = FALSE;
  node->build(0);
  EXPECT_EQ(node->getPickStyle(), SoPickStyle::UNPICKABLE);
  EXPECT_EQ(node->getEmission(), grey);
}

TEST_F(BaseNodeTest, theContainersWordNeedsTheElementsOwn)
{
  node->build(0);
  node->change3DWidgetEnable(1);
  EXPECT_EQ(node->getPickStyle(), SoPickStyle::SHAPE);
  EXPECT_EQ(node->getEmission(), black);
  node->change3DWidgetEnable(0);
  EXPECT_EQ(node->getPickStyle(), SoPickStyle::UNPICKABLE);
  EXPECT_EQ(node->getEmission(), grey);
  node->enable = FALSE;
  node->change3DWidgetEnable(1);
  EXPECT_EQ(node->getPickStyle(), SoPickStyle::UNPICKABLE);
  EXPECT_EQ(node->getEmission(), grey);
}

TEST_F(BaseNodeTest, anElementOfADisabledContainerStaysDisabledWhenItIsEnabledItself)
{
  node->build(0);
  node->change3DWidgetEnable(0);
  node->enable = FALSE;
  node->enable = TRUE;
  EXPECT_EQ(node->getPickStyle(), SoPickStyle::UNPICKABLE);
}

TEST_F(BaseNodeTest, theLabelBoxIsCachedUntilTheLabelChanges)
{
  EXPECT_FALSE(node->isLabelCachedBBox());
  EXPECT_EQ(node->getLabelCachedBBox().getMin(), SbVec3f(-1.0F, -1.0F, -1.0F));
  EXPECT_EQ(node->getLabelCachedBBox().getMax(), SbVec3f(-1.0F, -1.0F, -1.0F));
  node->setLabelCacheBBox(SbBox3f(0.0F, 0.0F, 0.0F, 10.0F, 5.0F, 1.0F));
  EXPECT_TRUE(node->isLabelCachedBBox());
  EXPECT_EQ(node->getLabelCachedBBox().getMax(), SbVec3f(10.0F, 5.0F, 1.0F));
  node->build(0);
  node->label = "new";
  EXPECT_FALSE(node->isLabelCachedBBox());
  EXPECT_EQ(node->getLabelCachedBBox().getMin(), SbVec3f(-1.0F, -1.0F, -1.0F));
}

TEST_F(BaseNodeTest, oneCoordinateOffTheEmptyValueCountsAsCached)
{
  node->setLabelCacheBBox(SbBox3f(-1.0F, -1.0F, -1.0F, -1.0F, -1.0F, 0.0F));
  EXPECT_TRUE(node->isLabelCachedBBox());
  node->setLabelCacheBBox(SbBox3f(-1.0F, -1.0F, -1.0F, -1.0F, -1.0F, -1.0F));
  EXPECT_FALSE(node->isLabelCachedBBox());
}

TEST_F(BaseNodeTest, theParentTranslationIsAppliedOnceAtTheFront)
{
  SbVec3f place(1.0F, 2.0F, 3.0F);
  EXPECT_EQ(node->get3DParentTranslation(), SbVec3f(0.0F, 0.0F, 0.0F));
  node->set3DParentTranslation(place);
  node->build(0);
  node->apply3DParentTranslation();
  node->apply3DParentTranslation();
  SoSeparator* group = node->geomSeparatorNode();
  ASSERT_NE(group, nullptr);
  int translations = 0;
  for (int i = 0; i < group->getNumChildren(); i++) {
    translations += group->getChild(i)->isOfType(SoTranslation::getClassTypeId()) ? 1 : 0;
  }
  EXPECT_EQ(translations, 1);
  auto* translation = dynamic_cast<SoTranslation*>(group->getChild(0));
  ASSERT_NE(translation, nullptr);
  EXPECT_EQ(translation->translation.getValue(), place);
  SbVec3f next(4.0F, 5.0F, 6.0F);
  node->set3DParentTranslation(next);
  EXPECT_EQ(translation->translation.getValue(), next);
  EXPECT_EQ(node->get3DParentTranslation(), next);
}

TEST_F(BaseNodeTest, theDepthOfAPartIsWhatTakesItBackToTheGround)
{
  node->build(0);
  auto* group = new SoSeparator;
  auto* lift = new SoTranslation;
  lift->translation.setValue(1.0F, 2.0F, 7.0F);
  auto* cube = new SoCube;
  group->addChild(lift);
  group->addChild(cube);
  node->geomSwitchNode()->addChild(group);
  EXPECT_FLOAT_EQ(node->compute3DDepth(cube), -7.0F);
}

TEST_F(BaseNodeTest, aNodeOfSomebodyElseHasNoDepth)
{
  node->build(0);
  auto* stranger = new SoCube;
  stranger->ref();
  EXPECT_FLOAT_EQ(node->compute3DDepth(stranger), 0.0F);
  stranger->unref();
}

TEST_F(BaseNodeTest, aFreshNodeIsTraversableShownAndNotBuilt)
{
  EXPECT_EQ(node->isBuilt3D(), 0);
  EXPECT_EQ(node->canBeTraversed(), 1);
  EXPECT_TRUE(node->isShown3D());
  EXPECT_FALSE(node->isWidgetBuilt());
  EXPECT_FALSE(node->isLive3D());
  EXPECT_EQ(node->getParent(), nullptr);
}

TEST_F(BaseNodeTest, aNodeThatWasBuiltIn3DWritesNoneOfIt)
{
  node->label = "text";
  const std::string before = toText(node);
  node->build(0);
  node->apply3DParentTranslation();
  EXPECT_EQ(toText(node), before);
  EXPECT_NE(before.find("label \"text\""), std::string::npos);
  EXPECT_EQ(std::count(before.begin(), before.end(), '{'), 1);
}

TEST_F(BaseNodeTest, namesTheProductAndItsVersion)
{
  EXPECT_STREQ(SoQuillform::getProductName(), "Quillform");
  EXPECT_TRUE(QRegularExpression("^\\d+\\.\\d+\\.\\d+\\.\\d+$").match(SoQuillform::getVersion()).hasMatch());
}

/// Chains of parents: element below middle below dialog.
class TopParentTest : public QuillformTest {
protected:
  TopParentTest() : dialog(new SoTopLevelDialog), middle(new Probe), element(new Probe)
  {
    for (SoQuillform* node : std::initializer_list<SoQuillform*>{dialog, middle, element}) {
      node->ref();
    }
    element->setParent(middle);
    middle->setParent(dialog);
  }
  ~TopParentTest() override
  {
    element->unref();
    middle->unref();
    dialog->unref();
  }

  SoTopLevelDialog* dialog;
  Probe* middle;
  Probe* element;
};

TEST_F(TopParentTest, isTheDialogAboveWhateverTheArguments)
{
  for (int ignore : {0, 1}) {
    for (int self : {0, 1}) {
      EXPECT_EQ(element->getFirstTopParent(ignore, self), dialog);
      EXPECT_EQ(middle->getFirstTopParent(ignore, self), dialog);
    }
  }
}

TEST_F(TopParentTest, isTheNearestOfTwoDialogs)
{
  auto* inner = new SoTopLevelDialog;
  inner->ref();
  inner->setParent(dialog);
  middle->setParent(inner);
  EXPECT_EQ(element->getFirstTopParent(0, 0), inner);
  inner->unref();
}

TEST_F(TopParentTest, aParentThatCannotBeTraversedEndsTheSearchThere)
{
  middle->setCanBeTraversed(0);
  EXPECT_EQ(element->getFirstTopParent(0, 1), element);
  EXPECT_EQ(element->getFirstTopParent(0, 0), nullptr);
  EXPECT_EQ(element->getFirstTopParent(1, 0), dialog);
  middle->setCanBeTraversed(1);
  dialog->setCanBeTraversed(0);
  EXPECT_EQ(element->getFirstTopParent(0, 1), middle);
  EXPECT_EQ(element->getFirstTopParent(0, 0), nullptr);
  EXPECT_EQ(element->getFirstTopParent(1, 1), dialog);
}

TEST_F(TopParentTest, aRootThatIsNoGroupHasNone)
{
  middle->setParent(nullptr);
  EXPECT_EQ(element->getFirstTopParent(0, 0), nullptr);
  EXPECT_EQ(element->getFirstTopParent(0, 1), nullptr);
  EXPECT_EQ(dialog->getFirstTopParent(0, 1), nullptr);
}

TEST_F(TopParentTest, aRootGroupIsItsOwn)
{
  const SoType type = SoType::fromName("RowDialog");
  if (type == SoType::badType()) {
    GTEST_SKIP() << "no group class is registered";
  }
  auto* group = static_cast<SoQuillform*>(type.createInstance());
  group->ref();
  middle->setParent(group);
  EXPECT_EQ(element->getFirstTopParent(0, 1), group);
  EXPECT_EQ(element->getFirstTopParent(0, 0), nullptr);
  middle->setParent(nullptr);
  group->unref();
}
