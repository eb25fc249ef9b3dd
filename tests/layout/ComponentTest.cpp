#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTranslation.h>
#include <QBoxLayout>
#include <QFrame>
#include <QPushButton>
#include <Quillform/Quillform.h>
#include <forms/Plan.h>
#include <support/Messages.h>
#include <support/TestFiles.h>

namespace {

struct Sizes {
  SbVec2i32 size{-7, -7};
  SbVec2i32 min{-7, -7};
  SbVec2i32 max{-7, -7};
};

Sizes sizesOf(SoTopComponent* component)
{
  Sizes sizes;
  component->getSize(sizes.size, sizes.min, sizes.max);
  return sizes;
}

Sizes stateOf(SoDialogComponent* component)
{
  Sizes sizes;
  component->getDefaultState(sizes.size, sizes.min, sizes.max);
  return sizes;
}

void build(SoQuillform* element, QWidget* parent, int asWidget, SbVec2i32 size = SbVec2i32(0, 0))
{
  SbVec2i32 position(0, 0);
  element->buildWidget(parent, size, position, asWidget);
}

/// Says which reactions ran.
struct Reacting : SoDialogComponent {
  ~Reacting() override = default;
  void changeWidth() override
  {
    log += "width ";
    SoDialogComponent::changeWidth();
  }
  void changeHeight() override
  {
    log += "height ";
    SoDialogComponent::changeHeight();
  }
  void changeMinMaxSize() override
  {
    log += "limits ";
    SoDialogComponent::changeMinMaxSize();
  }
  void changeLabelVisibility() override
  {
    log += "labelVisibility ";
  }
  void changeEdgeStyle() override
  {
    log += "edge ";
  }
  void change3DLabelVisibility() override
  {
    log += "labelVisibility3D ";
  }
  void change3DEdgeStyle() override
  {
    log += "edge3D ";
  }
  std::string log;
};

} // namespace

class ComponentTest : public QuillformTest {
protected:
  ComponentTest() : component(new SoDialogComponent)
  {
    component->ref();
  }
  ~ComponentTest() override
  {
    component->unref();
  }
  SoDialogComponent* component;
};

TEST_F(ComponentTest, itsFieldsStandInTheOrderOfTheFileWithTheirDefaults)
{
  SoFieldList fields;
  component->getFields(fields);
  const std::vector<std::string> expected = {"enable",   "label",      "auditorID",       "labelAlignment", "width",
                                             "height",   "fixedWidth", "fixedHeight",     "minWidth",       "minHeight",
                                             "maxWidth", "maxHeight",  "labelVisibility", "edgeStyle"};
  std::vector<std::string> found;
  for (int i = 0; i < fields.getLength(); i++) {
    SbName name;
    ASSERT_TRUE(component->getFieldName(fields[i], name));
    if (std::find(expected.begin(), expected.end(), name.getString()) != expected.end()) {
      found.emplace_back(name.getString());
      EXPECT_TRUE(fields[i]->isDefault()) << name.getString();
    }
  }
  EXPECT_EQ(found, expected);
  EXPECT_EQ(component->width.getValue(), 0);
  EXPECT_EQ(component->height.getValue(), 0);
  EXPECT_FALSE(component->fixedWidth.getValue());
  EXPECT_FALSE(component->fixedHeight.getValue());
  EXPECT_EQ(component->minWidth.getValue(), 0);
  EXPECT_EQ(component->minHeight.getValue(), 0);
  EXPECT_EQ(component->maxWidth.getValue(), 0);
  EXPECT_EQ(component->maxHeight.getValue(), 0);
  EXPECT_TRUE(component->labelVisibility.getValue());
  EXPECT_EQ(component->edgeStyle.getValue(), SoDialogComponent::NONE);
}

TEST_F(ComponentTest, theEdgeStylesHaveTheirNamesAndValues)
{
  EXPECT_EQ(SoDialogComponent::NONE, 0);
  EXPECT_EQ(SoDialogComponent::SHADOW_IN, 1);
  EXPECT_EQ(SoDialogComponent::SHADOW_OUT, 2);
  ASSERT_TRUE(component->edgeStyle.set("SHADOW_IN"));
  EXPECT_EQ(component->edgeStyle.getValue(), 1);
  ASSERT_TRUE(component->edgeStyle.set("SHADOW_OUT"));
  EXPECT_EQ(component->edgeStyle.getValue(), 2);
  ASSERT_TRUE(component->edgeStyle.set("NONE"));
  EXPECT_EQ(component->edgeStyle.getValue(), 0);
}

TEST_F(ComponentTest, itsCatalogHangsTheEdgesBelowTheirSwitch)
{
  const SoNodekitCatalog* catalog = component->getNodekitCatalog();
  struct Row {
    const char* name;
    const char* type;
    const char* parent;
    SbBool isPublic;
  };
  const Row rows[] = {{"mainCptSeparator", "Separator", "geomSwitch", FALSE},
                      {"edgeStyleSwitch", "Switch", "mainCptSeparator", FALSE},
                      {"edgeStyleNone", "Group", "edgeStyleSwitch", TRUE},
                      {"edgeStyleShadowIn", "Group", "edgeStyleSwitch", TRUE},
                      {"edgeStyleShadowOut", "Group", "edgeStyleSwitch", TRUE}};
  for (const Row& row : rows) {
    const int part = catalog->getPartNumber(row.name);
    ASSERT_NE(part, SO_CATALOG_NAME_NOT_FOUND) << row.name;
    EXPECT_STREQ(catalog->getType(part).getName().getString(), row.type);
    EXPECT_STREQ(catalog->getParentName(part).getString(), row.parent);
    EXPECT_EQ(catalog->isPublic(part), row.isPublic) << row.name;
    EXPECT_TRUE(catalog->isNullByDefault(part)) << row.name;
    EXPECT_FALSE(catalog->isList(part)) << row.name;
  }
  EXPECT_LT(catalog->getPartNumber("edgeStyleNone"), catalog->getPartNumber("edgeStyleShadowIn"));
  EXPECT_LT(catalog->getPartNumber("edgeStyleShadowIn"), catalog->getPartNumber("edgeStyleShadowOut"));
}

TEST_F(ComponentTest, itsTypesAreNamedAndDerivedAsDocumented)
{
  EXPECT_STREQ(SoDialogComponent::getClassTypeId().getName().getString(), "DialogComponent");
  EXPECT_STREQ(SoTopComponent::getClassTypeId().getName().getString(), "TopComponent");
  EXPECT_EQ(SoDialogComponent::getClassTypeId().getParent(), SoTopComponent::getClassTypeId());
  EXPECT_EQ(SoTopComponent::getClassTypeId().getParent(), SoQuillform::getClassTypeId());
  EXPECT_TRUE(SoDialogComponent::getClassTypeId().canCreateInstance());
}

TEST_F(ComponentTest, aTopComponentLeavesTheSizesAlone)
{
  SoTopComponent* top = new SoTopComponent;
  top->ref();
  const Sizes sizes = sizesOf(top);
  EXPECT_EQ(sizes.size, SbVec2i32(-7, -7));
  EXPECT_EQ(sizes.min, SbVec2i32(-7, -7));
  EXPECT_EQ(sizes.max, SbVec2i32(-7, -7));
  top->unref();
}

TEST_F(ComponentTest, withoutAnySizeItHasTheDefaultsOfTheClass)
{
  const Sizes sizes = sizesOf(component);
  EXPECT_EQ(sizes.size, SbVec2i32(200, 28));
  EXPECT_EQ(sizes.min, SbVec2i32(25, 25));
  EXPECT_EQ(sizes.max, SbVec2i32(32767, 32767));
}

TEST_F(ComponentTest, aWidthBelowTheDefaultMinimumBecomesTheMinimum)
{
  component->width = 10;
  EXPECT_EQ(sizesOf(component).size[0], 25);
}

TEST_F(ComponentTest, theMaximumWinsOverALargerMinimum)
{
  component->minWidth = 300;
  component->maxWidth = 100;
  const Sizes sizes = sizesOf(component);
  EXPECT_EQ(sizes.size[0], 100);
  EXPECT_EQ(sizes.min[0], 300);
  EXPECT_EQ(sizes.max[0], 100);
}

TEST_F(ComponentTest, eachZeroAloneIsReplacedByItsDefault)
{
  component->width = 90;
  component->minHeight = 40;
  component->maxHeight = 50;
  const Sizes sizes = sizesOf(component);
  EXPECT_EQ(sizes.size, SbVec2i32(90, 40));
  EXPECT_EQ(sizes.min, SbVec2i32(25, 40));
  EXPECT_EQ(sizes.max, SbVec2i32(32767, 50));
}

TEST_F(ComponentTest, aFixedWidthPinsTheLimitsToTheSize)
{
  component->fixedWidth = TRUE;
  const Sizes sizes = sizesOf(component);
  EXPECT_EQ(sizes.min[0], sizes.size[0]);
  EXPECT_EQ(sizes.max[0], sizes.size[0]);
  EXPECT_EQ(sizes.min[1], 25);
  EXPECT_EQ(sizes.max[1], 32767);
}

TEST_F(ComponentTest, aFixedHeightPinsTheLimitsToTheSize)
{
  component->fixedHeight = TRUE;
  component->height = 61;
  const Sizes sizes = sizesOf(component);
  EXPECT_EQ(sizes.min, SbVec2i32(25, 61));
  EXPECT_EQ(sizes.max, SbVec2i32(32767, 61));
}

TEST_F(ComponentTest, aContainerThatAsksForNothingGetsThePreferredSize)
{
  QWidget parent;
  component->width = 130;
  build(component, &parent, 1);
  EXPECT_EQ(component->width.getValue(), 130);
  EXPECT_EQ(component->height.getValue(), 28);
}

TEST_F(ComponentTest, aContainerThatAsksForTooMuchGetsTheMaximum)
{
  QWidget parent;
  component->maxWidth = 400;
  build(component, &parent, 1, SbVec2i32(5000, 0));
  EXPECT_EQ(component->width.getValue(), 400);
  EXPECT_EQ(component->height.getValue(), 28);
}

TEST_F(ComponentTest, aContainerThatAsksForTooLittleGetsTheMinimum)
{
  QWidget parent;
  build(component, &parent, 1, SbVec2i32(3, 4));
  EXPECT_EQ(component->width.getValue(), 25);
  EXPECT_EQ(component->height.getValue(), 25);
}

TEST_F(ComponentTest, theFieldsHoldTheComputedSizesAfterABuildAndAreNotWritten)
{
  QWidget parent;
  build(component, &parent, 1);
  EXPECT_EQ(component->width.getValue(), 200);
  EXPECT_EQ(component->height.getValue(), 28);
  EXPECT_EQ(component->minWidth.getValue(), 25);
  EXPECT_EQ(component->minHeight.getValue(), 25);
  EXPECT_EQ(component->maxWidth.getValue(), 32767);
  EXPECT_EQ(component->maxHeight.getValue(), 32767);
  for (SoField* field : {&component->width, &component->height, &component->minWidth, &component->minHeight,
                         &component->maxWidth, &component->maxHeight}) {
    EXPECT_TRUE(field->isDefault());
  }
  const std::string text = toText(component);
  for (const char* name : {"width", "height", "minWidth", "minHeight", "maxWidth", "maxHeight"}) {
    EXPECT_EQ(text.find(name), std::string::npos) << text;
  }
}

TEST_F(ComponentTest, aBuiltFixedComponentPinsItsFields)
{
  QWidget parent;
  component->fixedWidth = TRUE;
  component->fixedHeight = TRUE;
  component->width = 150;
  build(component, &parent, 1, SbVec2i32(180, 90));
  EXPECT_EQ(component->width.getValue(), 150);
  EXPECT_EQ(component->minWidth.getValue(), 150);
  EXPECT_EQ(component->maxWidth.getValue(), 150);
  EXPECT_EQ(component->height.getValue(), 28);
  EXPECT_EQ(component->minHeight.getValue(), 28);
  EXPECT_EQ(component->maxHeight.getValue(), 28);
}

TEST_F(ComponentTest, theStateRemembersWhatTheAuthorSetAndNotWhatTheLayoutStored)
{
  component->width = 10;
  component->maxHeight = 77;
  EXPECT_EQ(stateOf(component).size, SbVec2i32(0, 0));
  QWidget parent;
  build(component, &parent, 1);
  EXPECT_EQ(component->width.getValue(), 25);
  const Sizes state = stateOf(component);
  EXPECT_EQ(state.size, SbVec2i32(10, 0));
  EXPECT_EQ(state.min, SbVec2i32(0, 0));
  EXPECT_EQ(state.max, SbVec2i32(0, 77));
}

TEST_F(ComponentTest, aSizeSetAfterTheBuildIsRemembered)
{
  QWidget parent;
  build(component, &parent, 1);
  component->width = 111;
  component->height = 44;
  component->minWidth = 55;
  component->maxHeight = 66;
  const Sizes state = stateOf(component);
  EXPECT_EQ(state.size, SbVec2i32(111, 44));
  EXPECT_EQ(state.min[0], 55);
  EXPECT_EQ(state.max[1], 66);
  const std::string text = toText(component);
  EXPECT_NE(text.find("width 111"), std::string::npos) << text;
  EXPECT_NE(text.find("minWidth 55"), std::string::npos) << text;
  EXPECT_NE(text.find("maxHeight 66"), std::string::npos) << text;
  EXPECT_EQ(text.find("minHeight"), std::string::npos) << text;
  EXPECT_EQ(text.find("maxWidth"), std::string::npos) << text;
}

TEST_F(ComponentTest, aLimitSetAfterTheBuildDoesNotFreezeTheOtherOnes)
{
  QWidget parent;
  component->fixedWidth = TRUE;
  component->width = 100;
  build(component, &parent, 1);
  component->minHeight = 40;
  component->width = 300;
  build(component, &parent, 1);
  EXPECT_EQ(component->width.getValue(), 300);
  EXPECT_EQ(component->height.getValue(), 40);
}

TEST_F(ComponentTest, setSizeWritesAllSixWithoutAReaction)
{
  auto* reacting = new Reacting;
  reacting->ref();
  QWidget parent;
  build(reacting, &parent, 1);
  reacting->log.clear();
  reacting->setSize(1, 2, 3, 4, 5, 6);
  EXPECT_EQ(reacting->log, "");
  EXPECT_EQ(reacting->width.getValue(), 1);
  EXPECT_EQ(reacting->height.getValue(), 2);
  EXPECT_EQ(reacting->minWidth.getValue(), 3);
  EXPECT_EQ(reacting->minHeight.getValue(), 4);
  EXPECT_EQ(reacting->maxWidth.getValue(), 5);
  EXPECT_EQ(reacting->maxHeight.getValue(), 6);
  reacting->width = 9;
  EXPECT_EQ(reacting->log, "width ");
  reacting->unref();
}

TEST_F(ComponentTest, fieldChangesReachTheirReactionsInTheFormsThatExist)
{
  auto* reacting = new Reacting;
  reacting->ref();
  reacting->width = 50;
  reacting->edgeStyle = SoDialogComponent::SHADOW_IN;
  EXPECT_EQ(reacting->log, "");
  build(reacting, nullptr, 0);
  reacting->log.clear();
  reacting->labelVisibility = FALSE;
  EXPECT_EQ(reacting->log, "labelVisibility3D ");
  reacting->edgeStyle = SoDialogComponent::NONE;
  reacting->width = 51;
  reacting->height = 52;
  reacting->minWidth = 1;
  reacting->minHeight = 2;
  reacting->maxWidth = 300;
  reacting->maxHeight = 400;
  EXPECT_EQ(reacting->log, "labelVisibility3D edge3D width height limits limits limits limits ");
  reacting->fixedWidth = TRUE;
  reacting->fixedHeight = TRUE;
  EXPECT_EQ(reacting->log, "labelVisibility3D edge3D width height limits limits limits limits ");
  QWidget parent;
  build(reacting, &parent, 1);
  reacting->log.clear();
  reacting->labelVisibility = TRUE;
  reacting->edgeStyle = SoDialogComponent::SHADOW_OUT;
  EXPECT_EQ(reacting->log, "labelVisibility labelVisibility3D edge edge3D ");
  reacting->setCanBeTraversed(0);
  reacting->log.clear();
  reacting->labelVisibility = FALSE;
  EXPECT_EQ(reacting->log, "labelVisibility ");
  reacting->unref();
}

TEST_F(ComponentTest, resetSizeEndsWithNoWidthAndNoHeight)
{
  SbVec2i32 some(40, 30);
  component->setLabelSize(some);
  component->setComponentSize(some);
  QWidget parent;
  build(component, &parent, 1);
  component->resetSize();
  EXPECT_EQ(component->width.getValue(), 0);
  EXPECT_EQ(component->height.getValue(), 0);
  EXPECT_EQ(component->getLabelSize(), SbVec2i32(0, 0));
  EXPECT_EQ(component->getComponentSize(), SbVec2i32(0, 0));
}

TEST_F(ComponentTest, resetSizeKeepsWhatTheAuthorSetForTheFile)
{
  component->width = 123;
  QWidget parent;
  build(component, &parent, 1);
  component->resetSize();
  EXPECT_NE(toText(component).find("width 123"), std::string::npos) << toText(component);
}

TEST_F(ComponentTest, theNaturalSizesOfTheBaseAreEmptyButTheLabelIsMeasured)
{
  EXPECT_EQ(component->getComponentInitSize(), SbVec2i32(0, 0));
  EXPECT_EQ(component->getLabelInitSize(), SbVec2i32(0, 0));
  component->label = "Some text";
  EXPECT_EQ(component->getLabelInitSize(), SoQuillform::getLabelPixelSize("Some text", component));
  EXPECT_EQ(component->getLabelWidget(), nullptr);
  EXPECT_EQ(component->getWidget(), nullptr);
  EXPECT_EQ(component->getLayout(), nullptr);
}

TEST_F(ComponentTest, aComponentAloneTakesTheSizeOfItsLabel)
{
  component->label = "Two\\nlines";
  QWidget parent;
  build(component, &parent, 1);
  const SbVec2i32 text = SoQuillform::getLabelPixelSize("Two\\nlines", component);
  EXPECT_EQ(component->getLabelSize(), text);
  EXPECT_EQ(component->getComponentSize(), SbVec2i32(0, text[1]));
}

TEST_F(ComponentTest, aHiddenLabelAloneGivesNoHeight)
{
  component->label = "Two\\nlines";
  component->labelVisibility = FALSE;
  QWidget parent;
  build(component, &parent, 1);
  EXPECT_EQ(component->getComponentSize(), SbVec2i32(0, 0));
}

TEST_F(ComponentTest, theEdgeShiftsTheControlInTheWindow)
{
  component->width = 206;
  component->height = 36;
  component->labelVisibility = FALSE;
  SbVec2i32 size(0, 0);
  SbVec2i32 position(0, 0);
  component->get2DComponentSize(size, position);
  EXPECT_EQ(size, SbVec2i32(200, 30));
  EXPECT_EQ(position, SbVec2i32(3, 3));
  component->edgeStyle = SoDialogComponent::SHADOW_IN;
  component->get2DComponentSize(size, position);
  EXPECT_EQ(size, SbVec2i32(200, 30));
  EXPECT_EQ(position, SbVec2i32(2, 2));
  component->edgeStyle = SoDialogComponent::SHADOW_OUT;
  component->get2DComponentSize(size, position);
  EXPECT_EQ(size, SbVec2i32(200, 30));
  EXPECT_EQ(position, SbVec2i32(0, 0));
}

TEST_F(ComponentTest, aVisibleLabelTakesItsColumnFromTheControlInTheWindow)
{
  component->width = 206;
  component->height = 36;
  SbVec2i32 label(50, 10);
  component->setLabelSize(label);
  SbVec2i32 size(0, 0);
  SbVec2i32 position(0, 0);
  component->get2DComponentSize(size, position);
  EXPECT_EQ(size, SbVec2i32(148, 30));
  EXPECT_EQ(position, SbVec2i32(55, 3));
}

TEST_F(ComponentTest, theControlInTheSceneIsPlacedFromTheMiddleOfTheComponent)
{
  SbVec2i32 label(50, 10);
  component->setLabelSize(label);
  SbVec2i32 size(0, 0);
  SbVec2i32 position(0, 0);
  component->width = 206;
  component->height = 36;
  component->get3DComponentSize(size, position);
  EXPECT_EQ(size, SbVec2i32(148, 30));
  EXPECT_EQ(position, SbVec2i32(26, 0)); // 55 + 74 - 103
  component->width = 31;
  component->get3DComponentSize(size, position);
  EXPECT_EQ(size[0], -27);
  EXPECT_EQ(position[0], 26); // 55 - 13.5 - 15.5
  component->labelVisibility = FALSE;
  component->get3DComponentSize(size, position);
  EXPECT_EQ(size, SbVec2i32(25, 30));
  EXPECT_EQ(position, SbVec2i32(0, 0));
}

TEST_F(ComponentTest, theExpressionOfThePlaceIsTruncatedTowardsZeroAtItsEndOnly)
{
  // For every width the halves meet in one double: 55 + (w - 58) / 2 - w / 2.
  SbVec2i32 label(50, 10);
  component->setLabelSize(label);
  for (int w = 58; w < 400; w++) {
    component->width = w;
    SbVec2i32 size(0, 0);
    SbVec2i32 position(0, 0);
    component->get3DComponentSize(size, position);
    EXPECT_EQ(position[0], 26) << w;
  }
}

TEST_F(ComponentTest, onScreenTheEdgeIsAPanelThatIsSunkenOrRaised)
{
  auto* button = new SoDialogPushButton;
  button->ref();
  QWidget parent;
  build(button, &parent, 1);
  auto* frame = qobject_cast<QFrame*>(button->getWidget());
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->frameShape(), QFrame::NoFrame);
  button->edgeStyle = SoDialogComponent::SHADOW_IN;
  EXPECT_EQ(frame->frameShape(), QFrame::Panel);
  EXPECT_EQ(frame->frameShadow(), QFrame::Sunken);
  button->edgeStyle = SoDialogComponent::SHADOW_OUT;
  EXPECT_EQ(frame->frameShape(), QFrame::Panel);
  EXPECT_EQ(frame->frameShadow(), QFrame::Raised);
  button->edgeStyle = SoDialogComponent::NONE;
  EXPECT_EQ(frame->frameShape(), QFrame::NoFrame);
  EXPECT_EQ(frame->frameShadow(), QFrame::Sunken);
  button->unref();
}

TEST_F(ComponentTest, inTheSceneTheSwitchShowsTheEdgeOfTheStyle)
{
  component->edgeStyle = SoDialogComponent::SHADOW_IN;
  build(component, nullptr, 0);
  auto* edges = dynamic_cast<SoSwitch*>(Plan::partOf(component, "edgeStyleSwitch"));
  ASSERT_NE(edges, nullptr);
  EXPECT_EQ(edges->whichChild.getValue(), 1);
  EXPECT_EQ(edges->getChild(0), Plan::partOf(component, "edgeStyleNone"));
  EXPECT_EQ(edges->getChild(1), Plan::partOf(component, "edgeStyleShadowIn"));
  EXPECT_EQ(edges->getChild(2), Plan::partOf(component, "edgeStyleShadowOut"));
  component->edgeStyle = SoDialogComponent::SHADOW_OUT;
  EXPECT_EQ(edges->whichChild.getValue(), 2);
  component->edgeStyle = SoDialogComponent::NONE;
  EXPECT_EQ(edges->whichChild.getValue(), 0);
}

TEST_F(ComponentTest, itsCellInADialogIsARowWithItsNameAndWithoutMargins)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { DialogPushButton { fixedWidth TRUE } DialogPushButton { } }");
  ASSERT_NE(dialog, nullptr);
  dialog->buildDialog(nullptr, FALSE);
  for (int i = 0; i < 2; i++) {
    auto* child = static_cast<SoDialogComponent*>(dialog->getChild(i));
    QBoxLayout* cell = child->getLayout();
    ASSERT_NE(qobject_cast<QHBoxLayout*>(cell), nullptr);
    EXPECT_EQ(cell->objectName(), "ZEPSoDialogComponentLayout");
    EXPECT_EQ(cell->spacing(), 0);
    EXPECT_EQ(cell->contentsMargins(), QMargins(0, 0, 0, 0));
    EXPECT_EQ(dialog->getLayout()->stretch(i), 0);
    ASSERT_EQ(cell->count(), 2);
    EXPECT_EQ(cell->itemAt(0)->widget(), child->getWidget());
    EXPECT_EQ(cell->stretch(0), 0);
    QSpacerItem* spacer = cell->itemAt(1)->spacerItem();
    ASSERT_NE(spacer, nullptr);
    EXPECT_EQ(spacer->sizeHint(), QSize(0, 20));
    EXPECT_EQ(spacer->sizePolicy().horizontalPolicy(), i == 0 ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    EXPECT_EQ(spacer->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
  }
}

TEST_F(ComponentTest, aDestroyedComponentIsBuiltAgain)
{
  auto* button = new SoDialogPushButton;
  button->ref();
  button->buttonLabel = "Once more";
  {
    QWidget parent;
    build(button, &parent, 1);
    ASSERT_NE(button->getWidget(), nullptr);
    button->destroyWidget();
    EXPECT_EQ(button->getWidget(), nullptr);
    EXPECT_FALSE(button->isWidgetBuilt());
    settle();
    EXPECT_TRUE(parent.findChildren<QPushButton*>().empty());
    build(button, &parent, 1);
    ASSERT_EQ(parent.findChildren<QPushButton*>().size(), 1);
    EXPECT_EQ(parent.findChildren<QPushButton*>()[0]->text(), "Once more");
  }
  EXPECT_EQ(button->getWidget(), nullptr);
  QWidget other;
  build(button, &other, 1);
  EXPECT_EQ(other.findChildren<QPushButton*>().size(), 1);
  button->unref();
}

TEST_F(ComponentTest, aBoundingBoxBuildsAComponentThatStandsAloneInAScene)
{
  auto* root = new SoSeparator;
  root->ref();
  auto* button = new SoDialogPushButton;
  button->buttonLabel = "Alone";
  button->width = 120;
  root->addChild(button);
  EXPECT_EQ(button->isBuilt3D(), 0);
  SoGetBoundingBoxAction action(SbViewportRegion(100, 100));
  action.apply(root);
  EXPECT_NE(button->isBuilt3D(), 0);
  EXPECT_TRUE(button->isNotifyEnabled());
  const QRectF seen = Plan::seen(action.getBoundingBox());
  EXPECT_NEAR(seen.width(), 120.0, 1.0);
  EXPECT_NEAR(seen.center().x(), 0.0, 1.0);
  EXPECT_EQ(button->getWidget(), nullptr);
  root->unref();
}

TEST_F(ComponentTest, aBoundingBoxOverAnUnbuiltDialogBuildsItsComponentsAndClosesItToTraversal)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { DialogPushButton { buttonLabel \"OK\" } }");
  ASSERT_NE(dialog, nullptr);
  SoGetBoundingBoxAction action(SbViewportRegion(100, 100));
  action.apply(dialog);
  EXPECT_NE(dialog->getChild(0)->isBuilt3D(), 0);
  EXPECT_EQ(dialog->isBuilt3D(), 0);
  EXPECT_EQ(dialog->canBeTraversed(), 0);
  SoInSceneMode::setEnabled(TRUE);
  dialog->buildDialog(nullptr, FALSE);
  SoInSceneMode::setEnabled(FALSE);
  EXPECT_NE(dialog->canBeTraversed(), 0);
  EXPECT_TRUE(dialog->isLive3D());
}

TEST_F(ComponentTest, addTranslationMovesTheNamedOneOrInsertsANewOne)
{
  build(component, nullptr, 0);
  auto* geometry = static_cast<SoSwitch*>(Plan::partOf(component, "geomSwitch"));
  const int before = geometry->getNumChildren();
  auto* first = new SoTranslation;
  first->ref();
  first->setName("parentPositionTranslation");
  first->translation.setValue(1.0F, 2.0F, 3.0F);
  component->addTranslation(first);
  EXPECT_EQ(geometry->getNumChildren(), before + 1);
  EXPECT_EQ(geometry->getChild(0), first);
  auto* second = new SoTranslation;
  second->ref();
  second->translation.setValue(4.0F, 5.0F, 6.0F);
  component->addTranslation(second);
  EXPECT_EQ(geometry->getNumChildren(), before + 1);
  EXPECT_EQ(first->translation.getValue(), SbVec3f(4.0F, 5.0F, 6.0F));
  second->unref();
  first->unref();
}

TEST_F(ComponentTest, absurdSizesStayWithinWhatAWindowCanHave)
{
  QWidget parent;
  component->width = -5;
  component->height = 2147483647;
  component->minWidth = -2147483647 - 1;
  component->maxWidth = -3;
  component->minHeight = 2147483647;
  component->maxHeight = 2147483647;
  build(component, &parent, 1);
  EXPECT_EQ(component->width.getValue(), 200);
  EXPECT_LE(component->height.getValue(), QWIDGETSIZE_MAX);
  EXPECT_GT(component->height.getValue(), 0);
  const std::string text = toText(component);
  EXPECT_NE(text.find("width -5"), std::string::npos) << text;
  EXPECT_NE(text.find("height 2147483647"), std::string::npos) << text;
}

TEST(WidgetListTest, itGrowsFindsInsertsAndNeverOwns)
{
  auto* one = reinterpret_cast<QWidget*>(0x10);
  auto* two = reinterpret_cast<QWidget*>(0x20);
  SoDialogWidgetList list;
  EXPECT_EQ(list.getLength(), 0);
  EXPECT_EQ(list.find(one), -1);
  list.append(one);
  list.insert(two, 0);
  EXPECT_EQ(list.getLength(), 2);
  EXPECT_EQ(list.find(two), 0);
  EXPECT_EQ(list.find(one), 1);
  EXPECT_EQ(list[1], one);
  SoDialogWidgetList copy(list);
  EXPECT_EQ(copy.getLength(), 2);
  EXPECT_EQ(copy[0], two);
  SoDialogWidgetList assigned(7);
  EXPECT_EQ(assigned.getLength(), 0);
  assigned = list;
  EXPECT_EQ(assigned.find(one), 1);
  EXPECT_EQ(list[5], nullptr);
  EXPECT_EQ(list.getLength(), 6);
  EXPECT_EQ(copy.getLength(), 2);
}
