#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodes/SoCone.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoText3.h>
#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <Quillform/Quillform.h>
#include <Quillform/controls/SoDialogQPushButton.h>
#include <forms/Plan.h>
#include <support/Messages.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

/// Writes down what it hears.
struct Heard : SoDialogPushButtonAuditor {
  explicit Heard(std::vector<int>* log, int number) : m_log(log), m_number(number) {}
  void dialogPushButton(SoDialogPushButton* /*cpt*/) override
  {
    m_log->push_back(m_number);
  }
  std::vector<int>* m_log;
  int m_number;
};

struct DialogHeard : SoDialogAuditor {
  void dialogPushButton(SoDialogPushButton* cpt) override
  {
    ids.emplace_back(cpt->auditorID.getValue().getString());
  }
  std::vector<std::string> ids;
};

QPushButton* buttonOf(SoDialogComponent* component)
{
  return component->getWidget()->findChild<QPushButton*>("ZEPSoDialogQPushButtonButtonWidget");
}

} // namespace

class PushButtonTest : public QuillformTest {
protected:
  /// A dialog with one button, shown in a window.
  SoDialogPushButton* open(const std::string& fields)
  {
    dialog = load("TopLevelDialog { DialogPushButton { " + fields + " } }");
    if (!dialog) {
      return nullptr;
    }
    dialog->buildDialog(nullptr, FALSE);
    dialog->show();
    settle();
    return dynamic_cast<SoDialogPushButton*>(dialog->getChild(0));
  }

  QLabel* labelOf(SoDialogPushButton* element)
  {
    return element->getWidget()->findChild<QLabel*>("ZEPSoDialogQPushButtonLabelWidget");
  }

  SoTopLevelDialog* dialog = nullptr;
};

TEST_F(PushButtonTest, aPressCallsTheAuditorsOnceAndTheReleaseNobody)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { DialogPushButton { auditorID \"ok\" buttonLabel \"OK\" } }");
  ASSERT_NE(dialog, nullptr);
  DialogHeard heard;
  dialog->addAuditor(&heard);
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  QPushButton* button = buttonOf(static_cast<SoDialogComponent*>(dialog->getChild(0)));
  ASSERT_NE(button, nullptr);
  EXPECT_EQ(button->text(), "OK");
  QTest::mousePress(button, Qt::LeftButton);
  EXPECT_EQ(heard.ids, std::vector<std::string>{"ok"});
  QTest::mouseRelease(button, Qt::LeftButton);
  EXPECT_EQ(heard.ids.size(), 1U);
}

TEST_F(PushButtonTest, twoAuditorsOfItsOwnRunInOrderAndTheDialogHearsNothing)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { DialogPushButton { buttonLabel \"OK\" } }");
  DialogHeard heard;
  dialog->addAuditor(&heard);
  std::vector<int> log;
  Heard first(&log, 1);
  Heard second(&log, 2);
  auto* element = static_cast<SoDialogPushButton*>(dialog->getChild(0));
  element->addAuditor(&first);
  element->addAuditor(&second);
  dialog->buildDialog(nullptr, FALSE);
  dialog->show();
  QTest::mouseClick(buttonOf(element), Qt::LeftButton);
  EXPECT_EQ(log, (std::vector<int>{1, 2}));
  EXPECT_TRUE(heard.ids.empty());
}

TEST_F(PushButtonTest, aClickInTheSceneCallsTheAuditorsAtTheRelease)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { DialogPushButton { auditorID \"ok\" buttonLabel \"OK\" } }");
  DialogHeard heard;
  dialog->addAuditor(&heard);
  Scene scene;
  scene.open(dialog);
  auto* element = static_cast<SoDialogPushButton*>(dialog->getChild(0));
  scene.press(scene.centre(element));
  EXPECT_TRUE(heard.ids.empty());
  scene.release(scene.centre(element));
  EXPECT_EQ(heard.ids, std::vector<std::string>{"ok"});
}

TEST_F(PushButtonTest, itsTypeFieldAndCatalogAreAsDocumented)
{
  EXPECT_STREQ(SoDialogPushButton::getClassTypeId().getName().getString(), "DialogPushButton");
  EXPECT_EQ(SoDialogPushButton::getClassTypeId().getParent(), SoDialogComponent::getClassTypeId());
  auto* button = new SoDialogPushButton;
  button->ref();
  EXPECT_STREQ(button->buttonLabel.getValue().getString(), "");
  EXPECT_TRUE(button->buttonLabel.isDefault());
  EXPECT_EQ(button->getField("buttonLabel"), &button->buttonLabel);
  EXPECT_EQ(button->getLabelWidget(), nullptr);
  const SoNodekitCatalog* catalog = button->getNodekitCatalog();
  const char* const rows[][3] = {
    {"labelSep", "Separator", "geomSwitch"},       {"labelSwitch", "Switch", "labelSep"},
    {"labelProp", "Group", "labelSwitch"},         {"frameSep", "Separator", "geomSwitch"},
    {"frameSwitch", "Switch", "frameSep"},         {"released", "Group", "frameSwitch"},
    {"pressed", "Group", "frameSwitch"},           {"buttonLabelSep", "Separator", "geomSwitch"},
    {"buttonLabelProp", "Group", "buttonLabelSep"}};
  for (const auto& row : rows) {
    const int part = catalog->getPartNumber(row[0]);
    ASSERT_NE(part, SO_CATALOG_NAME_NOT_FOUND) << row[0];
    EXPECT_STREQ(catalog->getType(part).getName().getString(), row[1]);
    EXPECT_STREQ(catalog->getParentName(part).getString(), row[2]);
    EXPECT_EQ(Plan::partOf(button, row[0]), nullptr);
  }
  button->unref();
}

TEST_F(PushButtonTest, itsRelayHasItsNamesAndTheFont)
{
  const QFont before = SoQuillform::getQuillformFont();
  SoQuillform::setFont(QFont("DejaVu Sans", 15));
  SoDialogPushButton* button = open("label \"Side\" buttonLabel \"\xe9 <i>x</i>\"");
  SoQuillform::setFont(before);
  ASSERT_NE(button, nullptr);
  EXPECT_EQ(button->getWidget()->objectName(), "ZEPSoDialogQPushButtonFrame");
  ASSERT_NE(buttonOf(button), nullptr);
  ASSERT_NE(labelOf(button), nullptr);
  EXPECT_EQ(button->getLabelWidget(), labelOf(button));
  EXPECT_EQ(buttonOf(button)->text(), QString::fromLatin1("\xe9 <i>x</i>"));
  EXPECT_EQ(labelOf(button)->text(), "Side");
  EXPECT_EQ(labelOf(button)->textFormat(), Qt::PlainText);
  EXPECT_EQ(buttonOf(button)->font().pointSize(), 15);
  EXPECT_EQ(labelOf(button)->font().pointSize(), 15);
}

TEST_F(PushButtonTest, theRelayDoesWhatItIsTold)
{
  SoDialogPushButton* button = open("label \"Side\" buttonLabel \"Face\"");
  auto* relay = qobject_cast<SoDialogQPushButton*>(button->getWidget());
  ASSERT_NE(relay, nullptr);
  relay->setLabel("L");
  relay->setButtonLabel("B");
  relay->setAlignment(Qt::AlignHCenter);
  relay->labelWidgetPos(1, 2, 30, 14);
  relay->buttonWidgetPos(5, 6, 70, 18);
  EXPECT_EQ(labelOf(button)->text(), "L");
  EXPECT_EQ(buttonOf(button)->text(), "B");
  EXPECT_EQ(labelOf(button)->alignment(), Qt::AlignHCenter);
  EXPECT_EQ(labelOf(button)->geometry(), QRect(1, 2, 30, 14));
  EXPECT_EQ(buttonOf(button)->geometry(), QRect(5, 6, 70, 18));
  relay->setLabelVisibility(false);
  EXPECT_TRUE(labelOf(button)->isHidden());
  relay->setLabelVisibility(true);
  EXPECT_FALSE(labelOf(button)->isHidden());
  DialogHeard heard;
  dialog->addAuditor(&heard);
  relay->eventNotify();
  EXPECT_EQ(heard.ids.size(), 1U);
}

TEST_F(PushButtonTest, theButtonAndTheLabelArePlacedByTheFormulas)
{
  SoDialogPushButton* button = open("label \"Side label\" buttonLabel \"Face\"");
  for (const QSize& size : {QSize(300, 60), QSize(301, 61), QSize(200, 28)}) {
    dialog->getWidget()->resize(size);
    settle();
    ASSERT_EQ(button->getWidget()->size(), size);
    EXPECT_EQ(button->width.getValue(), size.width());
    EXPECT_EQ(button->height.getValue(), size.height());
    EXPECT_TRUE(button->width.isDefault());
    const int column = button->getLabelSize()[0];
    const int textHeight = SoQuillform::getLabelPixelSize("Side label", button)[1];
    EXPECT_EQ(buttonOf(button)->geometry(), QRect(column + 4, 3, size.width() - 6 - column - 2, size.height() - 6));
    EXPECT_EQ(labelOf(button)->geometry(), QRect(3, (size.height() - 3 - textHeight) / 2 + 3, column, textHeight));
  }
}

TEST_F(PushButtonTest, withoutItsLabelTheButtonFillsTheRelayFromTwo)
{
  SoDialogPushButton* button = open("label \"Side label\" buttonLabel \"Face\" labelVisibility FALSE");
  dialog->getWidget()->resize(300, 60);
  settle();
  EXPECT_EQ(buttonOf(button)->geometry(), QRect(2, 3, 294, 54));
  EXPECT_TRUE(labelOf(button)->isHidden());
  button->labelVisibility = TRUE;
  EXPECT_FALSE(labelOf(button)->isHidden());
  EXPECT_EQ(buttonOf(button)->x(), button->getLabelSize()[0] + 4);
  button->labelVisibility = FALSE;
  EXPECT_EQ(buttonOf(button)->geometry(), QRect(2, 3, 294, 54));
  EXPECT_TRUE(labelOf(button)->isHidden());
}

TEST_F(PushButtonTest, aHighLabelIsCentredWithATruncatedHalf)
{
  SoDialogPushButton* button = open("label \"a\\nb\\nc\\nd\\ne\" maxHeight 30 minHeight 10");
  dialog->getWidget()->resize(200, 30);
  settle();
  const int textHeight = SoQuillform::getLabelPixelSize("a\\nb\\nc\\nd\\ne", button)[1];
  const int height = button->getWidget()->height();
  ASSERT_LT(height - 3, textHeight);
  EXPECT_EQ(labelOf(button)->y(), (height - 3 - textHeight) / 2 + 3);
}

TEST_F(PushButtonTest, anEmptyTextStillMeasuresItsMargins)
{
  auto* button = new SoDialogPushButton;
  button->ref();
  EXPECT_EQ(button->getComponentInitSize(), SbVec2i32(12, 12));
  button->unref();
}

TEST_F(PushButtonTest, itsNaturalSizeIsItsTextsAndIsMeasuredOnce)
{
  auto* button = new SoDialogPushButton;
  button->ref();
  button->buttonLabel = "Press me";
  const SbVec2i32 text = SoQuillform::getLabelPixelSize("Press me", button) + SbVec2i32(12, 12);
  SbVec2i32 column(40, 0);
  button->setLabelSize(column);
  EXPECT_EQ(button->getComponentInitSize(), text);
  button->buttonLabel = "Press me again";
  EXPECT_EQ(button->getComponentInitSize(), text);
  button->resetSize();
  EXPECT_GT(button->getComponentInitSize()[0], text[0]);
  button->unref();
}

TEST_F(PushButtonTest, aHiddenLabelTakesItsColumnFromTheNaturalWidth)
{
  auto* button = new SoDialogPushButton;
  button->ref();
  button->buttonLabel = "Press me";
  button->labelVisibility = FALSE;
  const SbVec2i32 text = SoQuillform::getLabelPixelSize("Press me", button) + SbVec2i32(12, 12);
  SbVec2i32 column(40, 0);
  button->setLabelSize(column);
  EXPECT_EQ(button->getComponentInitSize(), text - SbVec2i32(40, 0));
  button->unref();
}

TEST_F(PushButtonTest, itsDefaultSizeAddsTheLabelColumn)
{
  auto* button = new SoDialogPushButton;
  button->ref();
  button->buttonLabel = "One\\ntwo\\nthree";
  const int textHeight = button->getComponentInitSize()[1];
  SbVec2i32 column(40, 0);
  SbVec2i32 component(80, 20);
  button->setLabelSize(column);
  button->setComponentSize(component);
  SbVec2i32 size(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  button->getDefaultSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(122, textHeight));
  EXPECT_EQ(min, SbVec2i32(25, 25));
  EXPECT_EQ(max, SbVec2i32(32767, 32767));
  button->labelVisibility = FALSE;
  component.setValue(80, 200);
  button->setComponentSize(component);
  button->getDefaultSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(80, 200));
  button->unref();
}

TEST_F(PushButtonTest, itsFrameHasThePolicyAndTheLimitsOfTheFields)
{
  SoDialogPushButton* free = open("minWidth 30 minHeight 26 maxWidth 500 maxHeight 400");
  EXPECT_EQ(free->getWidget()->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
  EXPECT_EQ(free->getWidget()->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
  EXPECT_EQ(free->getWidget()->minimumSize(), QSize(30, 26));
  EXPECT_EQ(free->getWidget()->maximumSize(), QSize(500, 400));
  SoDialogPushButton* fixed = open("width 90 height 44 fixedWidth TRUE fixedHeight TRUE");
  EXPECT_EQ(fixed->getWidget()->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
  EXPECT_EQ(fixed->getWidget()->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
  EXPECT_EQ(fixed->getWidget()->minimumSize(), QSize(90, 44));
  EXPECT_EQ(fixed->getWidget()->maximumSize(), QSize(90, 44));
}

TEST_F(PushButtonTest, textsFromCodeAppearAtOnceAndCallNobody)
{
  SoDialogPushButton* button = open("label \"Side\" buttonLabel \"Face\"");
  DialogHeard heard;
  dialog->addAuditor(&heard);
  button->buttonLabel = "One\\nTwo \\\"x\\\"";
  EXPECT_EQ(buttonOf(button)->text(), "One\nTwo \"x\"");
  button->label = "Other\\tside";
  EXPECT_EQ(labelOf(button)->text(), "Other\tside");
  button->labelAlignment = SoQuillform::LEFT;
  EXPECT_EQ(labelOf(button)->alignment(), Qt::AlignLeft);
  button->labelAlignment = SoQuillform::CENTER;
  EXPECT_EQ(labelOf(button)->alignment(), Qt::AlignHCenter);
  button->labelAlignment = SoQuillform::RIGHT;
  EXPECT_EQ(labelOf(button)->alignment(), Qt::AlignRight);
  button->enable = FALSE;
  EXPECT_FALSE(buttonOf(button)->isEnabled());
  QTest::mouseClick(buttonOf(button), Qt::LeftButton);
  button->enable = TRUE;
  EXPECT_TRUE(buttonOf(button)->isEnabled());
  EXPECT_TRUE(heard.ids.empty());
}

TEST_F(PushButtonTest, theKeyboardPressesItOnce)
{
  SoDialogPushButton* button = open("auditorID \"ok\" buttonLabel \"Face\"");
  DialogHeard heard;
  dialog->addAuditor(&heard);
  buttonOf(button)->setFocus();
  QTest::keyClick(buttonOf(button), Qt::Key_Space);
  EXPECT_EQ(heard.ids.size(), 1U);
}

TEST_F(PushButtonTest, inTheSceneItsTextsFollowTheFields)
{
  dialog = load("TopLevelDialog { width 300 DialogPushButton { label \"Side\" buttonLabel \"&Face && more\" } }");
  Scene scene;
  scene.open(dialog);
  auto* button = static_cast<SoDialogPushButton*>(dialog->getChild(0));
  const auto textOf = [](SoNode* group) {
    SoSearchAction search;
    search.setType(SoText3::getClassTypeId());
    search.setSearchingAll(TRUE);
    search.apply(group);
    return search.getPath() ? static_cast<SoText3*>(search.getPath()->getTail()) : nullptr;
  };
  SoText3* face = textOf(Plan::partOf(button, "buttonLabelSep"));
  SoText3* side = textOf(Plan::partOf(button, "labelSep"));
  ASSERT_NE(face, nullptr);
  ASSERT_NE(side, nullptr);
  EXPECT_STREQ(face->string[0].getString(), "Face & more");
  button->buttonLabel = "One\\nTwo";
  ASSERT_EQ(face->string.getNum(), 2);
  EXPECT_STREQ(face->string[1].getString(), "Two");
  button->buttonLabel = "Last";
  ASSERT_EQ(face->string.getNum(), 1);
  button->label = "\xe9";
  EXPECT_STREQ(side->string[0].getString(), "\xc3\xa9");
  auto* visible = static_cast<SoSwitch*>(Plan::partOf(button, "labelSwitch"));
  EXPECT_EQ(visible->whichChild.getValue(), SO_SWITCH_ALL);
  button->labelVisibility = FALSE;
  EXPECT_EQ(visible->whichChild.getValue(), SO_SWITCH_NONE);
}

TEST_F(PushButtonTest, theLooksOfTheApplicationAreCrossed)
{
  for (const bool before : {true, false}) {
    dialog = load("TopLevelDialog { DialogPushButton { buttonLabel \"x\" } }");
    auto* button = static_cast<SoDialogPushButton*>(dialog->getChild(0));
    auto* forReleased = new SoCone;
    auto* forPressed = new SoCone;
    Scene scene;
    if (!before) {
      scene.open(dialog);
    }
    button->set3DReleasedGeometry(forReleased);
    button->set3DPressedGeometry(forPressed);
    button->set3DPressedGeometry(nullptr);
    if (before) {
      scene.open(dialog);
    }
    auto* looks = static_cast<SoSwitch*>(Plan::partOf(button, "frameSwitch"));
    ASSERT_EQ(looks->getNumChildren(), 2);
    EXPECT_EQ(looks->getChild(0), forPressed);
    EXPECT_EQ(looks->getChild(1), forReleased);
    EXPECT_EQ(looks->whichChild.getValue(), 0);
  }
}

TEST_F(PushButtonTest, theLooksStandInTheirOrderBelowTheSwitch)
{
  dialog = load("TopLevelDialog { DialogPushButton { buttonLabel \"x\" } }");
  Scene scene;
  scene.open(dialog);
  EXPECT_NE(SoDialogPushButton::isSkinLoaded(), 0);
  auto* button = static_cast<SoDialogPushButton*>(dialog->getChild(0));
  auto* looks = static_cast<SoSwitch*>(Plan::partOf(button, "frameSwitch"));
  EXPECT_EQ(looks->getChild(0), Plan::partOf(button, "released"));
  EXPECT_EQ(looks->getChild(1), Plan::partOf(button, "pressed"));
  button->change3DButtonState(5);
  EXPECT_EQ(looks->whichChild.getValue(), 1);
  button->change3DButtonState(0);
  EXPECT_EQ(looks->whichChild.getValue(), 0);
}

TEST_F(PushButtonTest, aPressInTheWindowTakesBackThePressedLookInTheScene)
{
  SoDialogPushButton* button = open("buttonLabel \"x\"");
  Scene scene;
  scene.open(dialog);
  auto* looks = static_cast<SoSwitch*>(Plan::partOf(button, "frameSwitch"));
  button->change3DButtonState(1);
  QTest::mousePress(buttonOf(button), Qt::LeftButton);
  EXPECT_EQ(looks->whichChild.getValue(), 0);
  QTest::mouseRelease(buttonOf(button), Qt::LeftButton);
}

TEST_F(PushButtonTest, destroyWidgetTakesItOutOfItsWindow)
{
  dialog = load("TopLevelDialog { DialogPushButton { buttonLabel \"1\" } DialogPushButton { buttonLabel \"2\" } }");
  dialog->buildDialog(nullptr, FALSE);
  auto* button = static_cast<SoDialogPushButton*>(dialog->getChild(0));
  button->destroyWidget();
  EXPECT_EQ(button->getWidget(), nullptr);
  EXPECT_EQ(button->getLabelWidget(), nullptr);
  EXPECT_EQ(dialog->getLayout()->count(), 1);
  settle();
  EXPECT_EQ(dialog->getWidget()->findChildren<QPushButton*>().size(), 1);
  button->buttonLabel = "nobody sees it";
  button->destroyWidget();
  dialog->updateAfterSceneGraphChange();
  EXPECT_EQ(dialog->getWidget()->findChildren<QPushButton*>().size(), 2);
  EXPECT_EQ(dialog->getLayout()->itemAt(0)->layout(), button->getLayout());
}

TEST_F(PushButtonTest, itsHooksDoNothing)
{
  SoDialogPushButton* button = open("buttonLabel \"x\"");
  DialogHeard heard;
  dialog->addAuditor(&heard);
  const QRect before = buttonOf(button)->geometry();
  button->createButtonWidget();
  button->activateButton();
  button->changeButtonState(1);
  button->changeWidgetEnable(0);
  EXPECT_EQ(buttonOf(button)->geometry(), before);
  EXPECT_TRUE(buttonOf(button)->isEnabled());
  EXPECT_TRUE(heard.ids.empty());
}

TEST_F(PushButtonTest, withoutParentAndAuditorAPressIsHeardByNobody)
{
  auto* button = new SoDialogPushButton;
  button->ref();
  QWidget parent;
  SbVec2i32 size(0, 0);
  SbVec2i32 position(0, 0);
  button->buildWidget(&parent, size, position, 1);
  parent.show();
  settle();
  std::vector<int> log;
  QTest::mouseClick(buttonOf(button), Qt::LeftButton);
  Heard heard(&log, 1);
  button->addAuditor(&heard);
  QTest::mouseClick(buttonOf(button), Qt::LeftButton);
  EXPECT_EQ(log, std::vector<int>{1});
  button->removeAuditor(&heard);
  button->unref();
}

TEST_F(PushButtonTest, aCopyDoesNotTakeTheAuditors)
{
  auto* button = new SoDialogPushButton;
  button->ref();
  std::vector<int> log;
  Heard heard(&log, 1);
  button->addAuditor(&heard);
  auto* copy = static_cast<SoDialogPushButton*>(button->copy());
  copy->ref();
  EXPECT_EQ(copy->getAuditorListLength(), 0);
  copy->unref();
  button->removeAuditor(&heard);
  button->unref();
}

TEST_F(PushButtonTest, aButtonRemovedWhileItIsHeldDownInTheSceneIsGoneAtTheRelease)
{
  SoTopLevelDialog* dialog = load("TopLevelDialog { DialogPushButton { auditorID \"ok\" buttonLabel \"OK\" } }");
  ASSERT_NE(dialog, nullptr);
  DialogHeard heard;
  dialog->addAuditor(&heard);
  Scene scene;
  scene.open(dialog);
  const int before = SoQuillform::getInstanceCount();
  const SbVec2s at = scene.centre(static_cast<SoDialogComponent*>(dialog->getChild(0)));
  scene.press(at);
  dialog->removeChild(0);
  scene.move(at);
  scene.release(at);
  scene.click(at);
  EXPECT_TRUE(heard.ids.empty());
  EXPECT_EQ(SoQuillform::getInstanceCount(), before - 1);
}
