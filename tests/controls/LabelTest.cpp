#include <Inventor/nodes/SoText3.h>
#include <QBoxLayout>
#include <QLabel>
#include <Quillform/Quillform.h>
#include <forms/Plan.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

QLabel* textOf(SoDialogComponent* component)
{
  return component->getWidget()->findChild<QLabel*>("ZEPSoDialogQLabelLabelWidget");
}

} // namespace

class LabelTest : public QuillformTest {
protected:
  SoDialogLabel* open(const std::string& fields)
  {
    dialog = load("TopLevelDialog { DialogLabel { " + fields + " } }");
    if (!dialog) {
      return nullptr;
    }
    dialog->buildDialog(nullptr, FALSE);
    dialog->show();
    settle();
    return dynamic_cast<SoDialogLabel*>(dialog->getChild(0));
  }

  SoTopLevelDialog* dialog = nullptr;
};

TEST_F(LabelTest, itsTypeAndCatalogAreAsDocumented)
{
  EXPECT_STREQ(SoDialogLabel::getClassTypeId().getName().getString(), "DialogLabel");
  EXPECT_EQ(SoDialogLabel::getClassTypeId().getParent(), SoDialogComponent::getClassTypeId());
  auto* label = new SoDialogLabel;
  label->ref();
  const SoNodekitCatalog* catalog = label->getNodekitCatalog();
  const int separator = catalog->getPartNumber("labelSep");
  const int properties = catalog->getPartNumber("labelProp");
  ASSERT_NE(separator, SO_CATALOG_NAME_NOT_FOUND);
  ASSERT_NE(properties, SO_CATALOG_NAME_NOT_FOUND);
  EXPECT_STREQ(catalog->getParentName(separator).getString(), "geomSwitch");
  EXPECT_STREQ(catalog->getParentName(properties).getString(), "labelSep");
  EXPECT_STREQ(catalog->getType(separator).getName().getString(), "Separator");
  EXPECT_STREQ(catalog->getType(properties).getName().getString(), "Group");
  SoFieldList all;
  SoFieldList inherited;
  label->getFields(all);
  auto* base = new SoDialogComponent;
  base->ref();
  base->getFields(inherited);
  EXPECT_EQ(all.getLength(), inherited.getLength() + 2); // the two parts, no field
  base->unref();
  label->unref();
}

TEST_F(LabelTest, itsRelayHasItsNamesItsFontAndPlainText)
{
  const QFont font("DejaVu Sans", 15);
  const QFont before = SoQuillform::getQuillformFont();
  SoQuillform::setFont(font);
  SoDialogLabel* label = open("label \"<b>bold</b> &amp; \xe9\"");
  ASSERT_NE(label, nullptr);
  EXPECT_EQ(label->getWidget()->objectName(), "ZEPSoDialogQLabelFrame");
  QLabel* text = textOf(label);
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->text(), QString::fromLatin1("<b>bold</b> &amp; \xe9"));
  EXPECT_EQ(text->textFormat(), Qt::PlainText);
  EXPECT_EQ(text->font().pointSize(), 15);
  EXPECT_EQ(label->getLabelWidget(), text);
  SoQuillform::setFont(before);
}

TEST_F(LabelTest, itsTextIsPlacedByTheFormula)
{
  SoDialogLabel* label = open("label \"Some words\"");
  dialog->getWidget()->resize(240, 61);
  settle();
  ASSERT_EQ(label->getWidget()->size(), QSize(240, 61));
  const int textHeight = SoQuillform::getLabelPixelSize("Some words", label)[1];
  EXPECT_EQ(textOf(label)->geometry(), QRect(3, (61 - 6 - textHeight) / 2 + 3, 234, textHeight));
  label->label = "Some\\nmore\\nwords";
  const int threeLines = SoQuillform::getLabelPixelSize("Some\\nmore\\nwords", label)[1];
  EXPECT_GT(threeLines, textHeight);
  EXPECT_EQ(textOf(label)->geometry(), QRect(3, (61 - 6 - threeLines) / 2 + 3, 234, threeLines));
  EXPECT_EQ(textOf(label)->text(), "Some\nmore\nwords");
}

TEST_F(LabelTest, aTextThatIsTooHighIsCentredWithATruncatedHalf)
{
  SoDialogLabel* label = open("label \"a\\nb\\nc\\nd\\ne\\nf\" height 25 fixedHeight TRUE maxHeight 25");
  dialog->getWidget()->setMinimumSize(0, 0);
  dialog->getWidget()->resize(100, 25);
  settle();
  const int textHeight = SoQuillform::getLabelPixelSize("a\\nb\\nc\\nd\\ne\\nf", label)[1];
  const int frameHeight = label->getWidget()->height();
  ASSERT_LT(frameHeight - 6, textHeight);
  EXPECT_EQ(textOf(label)->y(), (frameHeight - 6 - textHeight) / 2 + 3);
}

TEST_F(LabelTest, theAlignmentsAreQts)
{
  SoDialogLabel* label = open("label \"x\"");
  EXPECT_EQ(textOf(label)->alignment(), Qt::AlignRight);
  label->labelAlignment = SoQuillform::LEFT;
  EXPECT_EQ(textOf(label)->alignment(), Qt::AlignLeft);
  label->labelAlignment = SoQuillform::CENTER;
  EXPECT_EQ(textOf(label)->alignment(), Qt::AlignHCenter);
  label->labelAlignment = SoQuillform::RIGHT;
  EXPECT_EQ(textOf(label)->alignment(), Qt::AlignRight);
}

TEST_F(LabelTest, itHasNoLabelColumn)
{
  auto* label = new SoDialogLabel;
  label->ref();
  label->label = "Some words";
  EXPECT_EQ(label->getLabelInitSize(), SbVec2i32(0, 0));
  label->unref();
}

TEST_F(LabelTest, itsNaturalWidthIsTheTextsLessTheLabelColumn)
{
  auto* label = new SoDialogLabel;
  label->ref();
  label->label = "Some words";
  const SbVec2i32 text = SoQuillform::getLabelPixelSize("Some words", nullptr);
  SbVec2i32 column(30, 0);
  label->setLabelSize(column);
  EXPECT_EQ(label->getComponentInitSize(), SbVec2i32(text[0] + 4 - 30, text[1]));
  column.setValue(10, 0);
  label->setLabelSize(column);
  EXPECT_EQ(label->getComponentInitSize(), SbVec2i32(text[0] + 4 - 30, text[1]));
  label->resetSize();
  EXPECT_EQ(label->getComponentInitSize(), SbVec2i32(text[0] + 4, text[1]));
  label->unref();
}

TEST_F(LabelTest, anEmptyTextStillHasItsFourPixels)
{
  auto* label = new SoDialogLabel;
  label->ref();
  EXPECT_EQ(label->getComponentInitSize(), SbVec2i32(4, 0));
  label->unref();
}

TEST_F(LabelTest, itsDefaultSizeIsItsComponentSizeButNotBelowTheMinimum)
{
  auto* label = new SoDialogLabel;
  label->ref();
  SbVec2i32 size(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  SbVec2i32 component(10, 90);
  label->setComponentSize(component);
  label->getDefaultSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(25, 90));
  EXPECT_EQ(min, SbVec2i32(25, 25));
  EXPECT_EQ(max, SbVec2i32(32767, 32767));
  label->label = "a\\nb\\nc\\nd";
  label->getComponentInitSize();
  component.setValue(120, 8);
  label->setComponentSize(component);
  label->getDefaultSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(120, SoQuillform::getLabelPixelSize("a\\nb\\nc\\nd", nullptr)[1]));
  label->unref();
}

TEST_F(LabelTest, itsFrameHasAMinimumButNoMaximumAndNoPolicyOfItsOwn)
{
  SoDialogLabel* label = open("label \"x\" maxWidth 60 maxHeight 40 minWidth 30 minHeight 28");
  QWidget* frame = label->getWidget();
  EXPECT_EQ(frame->minimumSize(), QSize(30, 28));
  EXPECT_EQ(frame->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
  EXPECT_EQ(frame->sizePolicy().horizontalPolicy(), QFrame().sizePolicy().horizontalPolicy());
  EXPECT_EQ(frame->sizePolicy().verticalPolicy(), QFrame().sizePolicy().verticalPolicy());
}

TEST_F(LabelTest, aResizeIsWrittenBackAsAComputedSize)
{
  SoDialogLabel* label = open("label \"x\"");
  dialog->getWidget()->resize(300, 100);
  settle();
  EXPECT_EQ(label->width.getValue(), 300);
  EXPECT_EQ(label->height.getValue(), 100);
  EXPECT_TRUE(label->width.isDefault());
  EXPECT_TRUE(label->height.isDefault());
}

TEST_F(LabelTest, inTheSceneItsTextFollowsTheField)
{
  dialog = load("TopLevelDialog { DialogLabel { label \"One\" } }");
  Scene scene;
  scene.open(dialog);
  auto* label = static_cast<SoDialogLabel*>(dialog->getChild(0));
  const QRectF before = Plan::seen(Plan::boxOf(dialog, Plan::partOf(label, "labelSep")));
  EXPECT_GT(before.width(), 3.0);
  label->label = "";
  EXPECT_LT(Plan::seen(Plan::boxOf(dialog, Plan::partOf(label, "labelSep"))).width(), 1.0);
  label->label = "One";
  EXPECT_EQ(Plan::seen(Plan::boxOf(dialog, Plan::partOf(label, "labelSep"))), before);
  EXPECT_TRUE(label->isLabelCachedBBox());
}

TEST_F(LabelTest, itsReactionsBeforeTheBuildDoNothing)
{
  auto* label = new SoDialogLabel;
  label->ref();
  label->changeLabel();
  label->changeLabelAlignment();
  label->changeEnable();
  label->changeEdgeStyle();
  label->changeLabelVisibility();
  label->changeWidgetEnable(1);
  label->change3DLabel();
  label->change3DLabelAlignment();
  label->change3DLabelVisibility();
  label->change3DEdgeStyle();
  label->change3DEnable();
  label->destroyWidget();
  EXPECT_EQ(label->getWidget(), nullptr);
  EXPECT_EQ(label->isBuilt3D(), 0);
  label->unref();
}

TEST_F(LabelTest, itStandsAloneAsAWidget)
{
  auto* label = new SoDialogLabel;
  label->ref();
  label->label = "Alone";
  QWidget parent;
  SbVec2i32 size(0, 0);
  SbVec2i32 position(0, 0);
  label->buildWidget(&parent, size, position, 1);
  parent.show();
  settle();
  ASSERT_NE(textOf(label), nullptr);
  EXPECT_TRUE(textOf(label)->isVisible());
  EXPECT_EQ(textOf(label)->text(), "Alone");
  label->unref();
  settle();
  EXPECT_TRUE(parent.findChildren<QLabel*>().empty());
}
