#include <Inventor/nodes/SoSwitch.h>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QTest>
#include <Quillform/Quillform.h>
#include <Quillform/platform/SoQtBasicSlider.h>
#include <functional>
#include <limits>
#include <support/Messages.h>
#include <support/Operate.h>
#include <support/TestFiles.h>

using Operate::barOf;
using Operate::moveTo;
using Operate::onBar;

namespace {

/// Writes down the values of the sliders that it hears of, and then does what the test wants.
struct Heard : SoDialogAuditor {
  void dialogIntegerSlider(SoDialogIntegerSlider* cpt) override
  {
    values.push_back(cpt->value.getValue());
    if (action) {
      action();
    }
  }
  void dialogRealSlider(SoDialogRealSlider* cpt) override
  {
    values.push_back(cpt->value.getValue());
    if (action) {
      action();
    }
  }
  std::vector<double> values;
  std::function<void()> action;
};

QLineEdit* editOf(const SoDialogSlider* slider)
{
  return slider->getWidget()->findChild<QLineEdit*>("ZEPSoDialogQSliderLineEditWidget");
}

QCheckBox* toggleOf(const SoDialogSlider* slider)
{
  return slider->getWidget()->findChild<QCheckBox*>("ZEPSoDialogQSliderToggleWidget");
}

std::string textOf(const SoDialogSlider* slider)
{
  return editOf(slider)->text().toStdString();
}

void type(const SoDialogSlider* slider, const char* text)
{
  editOf(slider)->selectAll();
  QTest::keyClicks(editOf(slider), text);
  QTest::keyClick(editOf(slider), Qt::Key_Return);
}

} // namespace

class SliderTest : public QuillformTest {
protected:
  /// Opens a window with one slider, which reports to `heard`.
  template <class Slider>
  Slider* open(const std::string& text)
  {
    dialog = load("TopLevelDialog { " + text + " }");
    auto* slider = dynamic_cast<Slider*>(dialog->getChild(0));
    dialog->addAuditor(&heard);
    dialog->buildDialog(nullptr, FALSE);
    dialog->show();
    return slider;
  }
  SoDialogIntegerSlider* openInteger(const std::string& fields)
  {
    return open<SoDialogIntegerSlider>("DialogIntegerSlider { " + fields + " }");
  }
  SoDialogRealSlider* openReal(const std::string& fields)
  {
    return open<SoDialogRealSlider>("DialogRealSlider { " + fields + " }");
  }

  SoTopLevelDialog* dialog = nullptr;
  Heard heard;
};

// The node

TEST_F(SliderTest, fieldsHaveTheirDefaultsAndTheirOrder)
{
  auto* integer = new SoDialogIntegerSlider;
  auto* real = new SoDialogRealSlider;
  auto* base = new SoDialogSlider;
  integer->ref();
  real->ref();
  base->ref();
  EXPECT_TRUE(integer->valueVisible.getValue());
  EXPECT_EQ(base->format.getValue(), "%3f");
  EXPECT_EQ(integer->format.getValue(), "%d");
  EXPECT_EQ(real->format.getValue(), "%.3f");
  EXPECT_FALSE(integer->continuousTrigger.getValue());
  EXPECT_TRUE(integer->toggleVisible.getValue());
  EXPECT_FALSE(integer->fixedLimits.getValue());
  ASSERT_EQ(integer->colors.getNum(), 1);
  EXPECT_EQ(integer->colors[0], SbColor(0.66F, 0.66F, 0.66F));
  EXPECT_TRUE(integer->shadedColors.getValue());
  EXPECT_EQ(integer->min.getValue(), 0);
  EXPECT_EQ(integer->max.getValue(), 1);
  EXPECT_EQ(integer->value.getValue(), 0);
  EXPECT_EQ(real->min.getValue(), 0.0F);
  EXPECT_EQ(real->max.getValue(), 1.0F);
  EXPECT_EQ(real->value.getValue(), 0.0F);
  EXPECT_NE(toText(integer).find("DialogIntegerSlider {\n\n}\n"), std::string::npos);
  EXPECT_NE(toText(real).find("DialogRealSlider {\n\n}\n"), std::string::npos);

  SoFieldList fields;
  std::vector<std::string> names;
  integer->getFields(fields);
  for (int i = 0; i < fields.getLength(); i++) {
    SbName name;
    integer->getFieldName(fields[i], name);
    names.emplace_back(name.getString());
  }
  std::vector<std::string> wanted = {"valueVisible", "format", "continuousTrigger", "toggleVisible",
                                     "fixedLimits",  "colors", "shadedColors",      "min",
                                     "max",          "value"};
  std::size_t found = 0;
  for (const std::string& name : names) {
    found += found < wanted.size() && name == wanted[found] ? 1 : 0;
  }
  EXPECT_EQ(found, wanted.size());
  integer->unref();
  real->unref();
  base->unref();
}

TEST_F(SliderTest, theCatalogHasItsParts)
{
  auto* slider = new SoDialogIntegerSlider;
  slider->ref();
  const struct {
    const char* name;
    const char* type;
    const char* parent;
    bool isPublic;
  } wanted[] = {{"labelSep", "Separator", "geomSwitch", false},   {"labelSwitch", "Switch", "labelSep", false},
                {"labelProp", "Group", "labelSwitch", true},      {"checkSep", "Separator", "geomSwitch", false},
                {"checkSwtch", "Switch", "checkSep", false},      {"checkStateOff", "Group", "checkSwtch", true},
                {"checkStateOn", "Group", "checkSwtch", true},    {"sliderSep", "Separator", "geomSwitch", false},
                {"frameSep", "Separator", "sliderSep", false},    {"frame", "Group", "frameSep", true},
                {"cursorSep", "Separator", "sliderSep", false},   {"cursor", "Group", "cursorSep", true},
                {"edtSwtch", "Switch", "geomSwitch", false},      {"edtFrmSep", "Separator", "edtSwtch", false},
                {"edtFrmSwtch", "Switch", "edtFrmSep", false},    {"valueFrame", "Group", "edtFrmSwtch", true},
                {"editValueFrame", "Group", "edtFrmSwtch", true}, {"editTextSep", "Separator", "edtSwtch", false},
                {"editTextProp", "Group", "editTextSep", true}};
  const SoNodekitCatalog* catalog = slider->getNodekitCatalog();
  for (const auto& part : wanted) {
    const int number = catalog->getPartNumber(part.name);
    ASSERT_NE(number, SO_CATALOG_NAME_NOT_FOUND) << part.name;
    EXPECT_EQ(catalog->getType(number).getName(), part.type) << part.name;
    EXPECT_EQ(catalog->getParentName(number), part.parent) << part.name;
    EXPECT_EQ(catalog->isPublic(number) != FALSE, part.isPublic) << part.name;
  }
  slider->unref();
}

TEST_F(SliderTest, whatTheAuthorWroteSurvivesBuildingAndWriting)
{
  SoDialogRealSlider* slider = openReal("label \"X:\" format \"%.1f m\" colors [ 1 0 0, 0 0 1 ] min -1 max 3 value 2");
  const std::string written = toText(slider);
  SoNode* again = readText(written);
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(toText(again), written);
  for (const char* part : {"format \"%.1f m\"", "colors [ 1 0 0,", "min -1", "max 3", "value 2"}) {
    EXPECT_NE(written.find(part), std::string::npos) << part << " in " << written;
  }
  EXPECT_EQ(written.find("width"), std::string::npos);
  EXPECT_EQ(written.find("shadedColors"), std::string::npos);
  again->unref();
}

TEST_F(SliderTest, theWidgetsHaveTheirNamesAndTheDialogsFont)
{
  SoDialogIntegerSlider* slider = openInteger("label \"Steps:\"");
  EXPECT_EQ(slider->getWidget()->objectName(), "ZEPSoDialogQSliderFrame");
  ASSERT_NE(editOf(slider), nullptr);
  ASSERT_NE(toggleOf(slider), nullptr);
  auto* label = slider->getWidget()->findChild<QLabel*>("ZEPSoDialogQSliderLabelWidget");
  ASSERT_NE(label, nullptr);
  EXPECT_EQ(label->text(), "Steps:");
  for (const QWidget* widget :
       {static_cast<QWidget*>(editOf(slider)), static_cast<QWidget*>(toggleOf(slider)), static_cast<QWidget*>(label)}) {
    EXPECT_EQ(widget->font().family(), SoQuillform::getQuillformFont().family());
    EXPECT_EQ(widget->font().pointSize(), SoQuillform::getQuillformFont().pointSize());
  }
  EXPECT_EQ(barOf(slider)->accessibleName(), "Steps:");
}

// Sizes and places

TEST_F(SliderTest, theSizeIsThatOfTheControlPlusTheLabel)
{
  auto* slider = new SoDialogRealSlider;
  slider->ref();
  SbVec2i32 labelSize(40, 20);
  SbVec2i32 componentSize(150, 30);
  slider->setLabelSize(labelSize);
  slider->setComponentSize(componentSize);
  EXPECT_EQ(slider->getComponentInitSize(), SbVec2i32(150, 30));
  SbVec2i32 size(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  slider->getDefaultSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(192, 30));
  EXPECT_EQ(min, SbVec2i32(25, 25));
  EXPECT_EQ(max, SbVec2i32(32767, 32767));
  slider->labelVisibility = FALSE;
  slider->getDefaultSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(150, 30));
  EXPECT_EQ(slider->getComponentInitSize(), SbVec2i32(150, 30));
  slider->unref();
}

TEST_F(SliderTest, theWidgetsStandWhereTheFormulasSay)
{
  SoDialogRealSlider* slider = openReal("label \"Wide enough:\" width 400 height 40");
  const int w = slider->width.getValue();
  const int h = slider->height.getValue();
  const int l = slider->getLabelSize()[0];
  const int e = slider->computeEditZoneWidth();
  ASSERT_GT(l, 0);
  EXPECT_EQ(toggleOf(slider)->geometry(), QRect(l + 5, 3, 16, h - 6));
  const int b = w - 6 - 18 - (l + 2) - (e + 2);
  EXPECT_EQ(slider->getSliderWidth(), b);
  EXPECT_EQ(barOf(slider)->geometry(), QRect(21 + l + 2, 3, b, h - 6));
  const int ih = SoQuillform::getLabelPixelSize("0.000", nullptr)[1];
  EXPECT_EQ(editOf(slider)->geometry(), QRect(b + 5 + 18 + l + 2, (h - 6 - ih) / 2 + 3, e, ih));
  EXPECT_LE(editOf(slider)->geometry().right(), w - 3);
}

TEST_F(SliderTest, hidingTheToggleMovesTheBarToTheLeftAndWidensIt)
{
  SoDialogIntegerSlider* slider = openInteger("label \"Steps:\"");
  const QRect before = barOf(slider)->geometry();
  slider->toggleVisible = FALSE;
  const int l = slider->getLabelSize()[0];
  EXPECT_EQ(barOf(slider)->x(), l + 5);
  EXPECT_EQ(barOf(slider)->width(), before.width() + 18);
  EXPECT_FALSE(toggleOf(slider)->isVisible());
  slider->labelVisibility = FALSE;
  EXPECT_EQ(barOf(slider)->x(), 3);
  slider->toggleVisible = TRUE;
  EXPECT_EQ(barOf(slider)->x(), 21);
  EXPECT_EQ(toggleOf(slider)->x(), 3);
  EXPECT_TRUE(toggleOf(slider)->isVisible());
}

TEST_F(SliderTest, hidingTheValueGivesItsRoomToTheBar)
{
  SoDialogIntegerSlider* slider = openInteger("");
  const int before = barOf(slider)->width();
  const int zone = editOf(slider)->width();
  slider->valueVisible = FALSE;
  EXPECT_EQ(barOf(slider)->width(), before + zone + 2);
  EXPECT_FALSE(editOf(slider)->isVisible());
}

TEST_F(SliderTest, theRoomForTheValueFollowsTheWidestText)
{
  SoDialogIntegerSlider* slider = openInteger("width 400 min 0 max 9");
  const int narrow = editOf(slider)->width();
  slider->max = 100000;
  EXPECT_GT(editOf(slider)->width(), narrow);
  EXPECT_EQ(editOf(slider)->width(), slider->computeEditZoneWidth());
  const int wide = editOf(slider)->width();
  slider->format = "%d millimetres";
  EXPECT_GT(editOf(slider)->width(), wide);
}

TEST_F(SliderTest, aValueWithALongTextLeavesHalfOfTheRoomToTheBar)
{
  SoDialogIntegerSlider* slider = openInteger("labelVisibility FALSE format \"%60d and a very long text behind it\"");
  EXPECT_GE(barOf(slider)->width(), (slider->width.getValue() - 6 - 18) / 2 - 2);
  EXPECT_LE(editOf(slider)->geometry().right(), slider->width.getValue() - 3);
}

TEST_F(SliderTest, theWidgetsFollowTheFramesSize)
{
  SoDialogIntegerSlider* slider = openInteger("");
  const int before = barOf(slider)->width();
  dialog->getWidget()->resize(dialog->getWidget()->width() + 100, dialog->getWidget()->height());
  settle();
  EXPECT_EQ(slider->width.getValue(), slider->getWidget()->width());
  EXPECT_EQ(barOf(slider)->width(), before + 100);
}

TEST_F(SliderTest, theFramesSmallestSizeIsItsSizeAtTheBuild)
{
  SoDialogIntegerSlider* slider = openInteger("minWidth 50 width 300");
  EXPECT_EQ(slider->getWidget()->minimumSize(), QSize(300, slider->height.getValue()));
}

// From positions to values and texts

TEST_F(SliderTest, anIntegerPositionHalfWayRoundsUp)
{
  auto* slider = new SoDialogIntegerSlider;
  slider->ref();
  slider->max = 10;
  slider->setValueFromSlider(0.449F);
  slider->setValue();
  EXPECT_EQ(slider->value.getValue(), 4);
  slider->setValueFromSlider(0.45F);
  slider->setValue();
  EXPECT_EQ(slider->value.getValue(), 5);
  slider->setValueFromSlider(1.0F);
  slider->setValue();
  EXPECT_EQ(slider->value.getValue(), 10);
  slider->unref();
}

TEST_F(SliderTest, withEqualLimitsTheIntegerIsTheLimitWhateverThePosition)
{
  auto* slider = new SoDialogIntegerSlider;
  slider->ref();
  slider->min = 7;
  slider->max = 7;
  for (const float position : {0.0F, 0.5F, 1.0F}) {
    slider->setValueFromSlider(position);
    slider->setValue();
    EXPECT_EQ(slider->value.getValue(), 7);
  }
  slider->unref();
}

TEST_F(SliderTest, aRealSliderShowsItsPositionWithItsFormat)
{
  SoDialogRealSlider* slider = openReal("format \"%.3f\" min 0 max 1");
  slider->changeValueFromSlider(0.5F);
  EXPECT_EQ(textOf(slider), "0.500");
  EXPECT_EQ(slider->value.getValue(), 0.0F) << "not yet at its end";
  slider->changeValueAfterFinish();
  EXPECT_EQ(slider->value.getValue(), 0.5F);
}

TEST_F(SliderTest, theRealValueIsBetweenTheLimits)
{
  SoDialogRealSlider* slider = openReal("min -2 max 6");
  slider->changeValueFromSlider(0.25F);
  slider->changeValueAfterFinish();
  EXPECT_EQ(slider->value.getValue(), 0.0F);
  EXPECT_EQ(textOf(slider), "0.000");
}

TEST_F(SliderTest, limitsAtTheEndsOfTheNumbersDoNotOverflow)
{
  SoDialogIntegerSlider* integer = openInteger("min -2147483648 max 2147483647 value 0");
  EXPECT_NEAR(barOf(integer)->getValue(), 0.5F, 1.0e-6F);
  integer->changeValueFromSlider(1.0F);
  integer->changeValueAfterFinish();
  EXPECT_EQ(integer->value.getValue(), std::numeric_limits<int32_t>::max());
  integer->changeValueFromSlider(0.0F);
  integer->changeValueAfterFinish();
  EXPECT_EQ(integer->value.getValue(), std::numeric_limits<int32_t>::min());

  SoDialogRealSlider* real = openReal("min -3.4e38 max 3.4e38 value 0");
  EXPECT_NEAR(barOf(real)->getValue(), 0.5F, 1.0e-6F);
  real->changeValueFromSlider(0.75F);
  real->changeValueAfterFinish();
  EXPECT_NEAR(real->value.getValue() / 1.7e38F, 1.0F, 1.0e-5F);
}

TEST_F(SliderTest, badLimitsKeepTheBarBetweenItsEndsAndHeal)
{
  SoDialogRealSlider* slider = openReal("min 0 max 1 value 0.5");
  const float inf = std::numeric_limits<float>::infinity();
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float limits[][2] = {{nan, 1.0F}, {0.0F, nan}, {nan, nan},    {-inf, inf},
                             {0.0F, inf}, {inf, -inf}, {5.0F, -5.0F}, {2.0F, 2.0F}};
  for (const auto& pair : limits) {
    slider->min = pair[0];
    slider->max = pair[1];
    EXPECT_GE(barOf(slider)->getValue(), 0.0F);
    EXPECT_LE(barOf(slider)->getValue(), 1.0F);
    EXPECT_EQ(slider->value.getValue(), 0.5F);
    slider->changeValueFromSlider(0.3F);
    slider->changeValueAfterFinish();
    EXPECT_TRUE(std::isfinite(slider->value.getValue())) << pair[0] << " to " << pair[1];
    slider->value = 0.5F;
  }
  slider->min = 0.0F;
  slider->max = 2.0F;
  EXPECT_EQ(barOf(slider)->getValue(), 0.25F);
  slider->value = nan;
  EXPECT_EQ(barOf(slider)->getValue(), 0.0F);
  slider->value = 1.0F;
  EXPECT_EQ(barOf(slider)->getValue(), 0.5F);
}

TEST_F(SliderTest, relativeMotionAddsToThePosition)
{
  SoDialogIntegerSlider* slider = openInteger("min 0 max 10 value 4");
  slider->changeSliderFromSlider(0.25F);
  EXPECT_NEAR(barOf(slider)->getValue(), 0.65F, 1.0e-5F);
  slider->changeSliderFromSlider(9.0F);
  EXPECT_EQ(barOf(slider)->getValue(), 1.0F);
  EXPECT_EQ(slider->value.getValue(), 4);
  EXPECT_TRUE(heard.values.empty());
}

// Fields set from code

TEST_F(SliderTest, aValueSetFromCodeIsShownExactlyAndCallsNobody)
{
  SoDialogRealSlider* slider = openReal("format \"%.9g\" min -1 max 2");
  slider->value = 0.1F;
  EXPECT_EQ(slider->value.getValue(), 0.1F);
  EXPECT_EQ(textOf(slider), "0.100000001");
  EXPECT_NEAR(barOf(slider)->getValue(), 1.1F / 3.0F, 1.0e-6F);
  slider->value = 50.0F;
  EXPECT_EQ(slider->value.getValue(), 50.0F);
  EXPECT_EQ(textOf(slider), "50");
  EXPECT_EQ(barOf(slider)->getValue(), 1.0F);
  EXPECT_TRUE(heard.values.empty());
}

TEST_F(SliderTest, aValueThatTheFileHoldsOutsideOfTheLimitsStays)
{
  SoDialogIntegerSlider* slider = openInteger("min 0 max 10 value 99");
  EXPECT_EQ(slider->value.getValue(), 99);
  EXPECT_EQ(textOf(slider), "99");
  EXPECT_EQ(barOf(slider)->getValue(), 1.0F);
}

TEST_F(SliderTest, limitsSetFromCodeMoveTheBarKeepTheValueAndCallNobody)
{
  SoDialogIntegerSlider* slider = openInteger("min 0 max 10 value 5");
  slider->max = 20;
  EXPECT_EQ(barOf(slider)->getValue(), 0.25F);
  slider->min = 5;
  EXPECT_EQ(barOf(slider)->getValue(), 0.0F);
  EXPECT_EQ(slider->value.getValue(), 5);
  EXPECT_EQ(textOf(slider), "5");
  EXPECT_TRUE(heard.values.empty());
}

TEST_F(SliderTest, theFormatFollowsItsField)
{
  SoDialogRealSlider* slider = openReal("value 0.5");
  EXPECT_EQ(textOf(slider), "0.500");
  slider->format = "%.1f m";
  EXPECT_EQ(textOf(slider), "0.5 m");
  const Messages messages;
  slider->format = "%s%n";
  EXPECT_EQ(textOf(slider), "0.500");
  slider->value = 0.25F;
  EXPECT_EQ(textOf(slider), "0.250");
  EXPECT_EQ(messages.all().size(), 1U) << "one message for one bad format";
  EXPECT_EQ(slider->format.getValue(), "%s%n");
}

TEST_F(SliderTest, theColorsReachTheBar)
{
  SoDialogIntegerSlider* slider = openInteger("valueVisible FALSE toggleVisible FALSE shadedColors FALSE width 300");
  const SbColor red(1.0F, 0.0F, 0.0F);
  const SbColor blue(0.0F, 0.0F, 1.0F);
  const SbColor both[] = {red, blue};
  const QPoint left(barOf(slider)->width() / 4, 12);
  const QPoint right(barOf(slider)->width() * 3 / 4, 12);
  slider->colors.setValues(0, 2, both);
  QImage flat = barOf(slider)->grab().toImage();
  EXPECT_EQ(flat.pixelColor(left), QColor(Qt::red));
  EXPECT_EQ(flat.pixelColor(right), QColor(Qt::blue));
  slider->shadedColors = TRUE;
  const QColor mixed = barOf(slider)->grab().toImage().pixelColor(barOf(slider)->width() / 2, 12);
  EXPECT_GT(mixed.red(), 80);
  EXPECT_GT(mixed.blue(), 80);
  slider->shadedColors = FALSE;
  slider->colors = red;
  slider->colors.setNum(1);
  flat = barOf(slider)->grab().toImage();
  EXPECT_EQ(flat.pixelColor(right), QColor(Qt::red));
  slider->colors.set1Value(0, SbColor(std::numeric_limits<float>::quiet_NaN(), 7.0F, -3.0F));
  EXPECT_EQ(barOf(slider)->grab().toImage().pixelColor(right), QColor(Qt::green));
  slider->colors.setNum(0);
  EXPECT_FALSE(barOf(slider)->grab().isNull());
  EXPECT_TRUE(heard.values.empty());
}

TEST_F(SliderTest, continuousTriggerSetFromCodeActsLikeTheToggle)
{
  SoDialogIntegerSlider* slider = openInteger("max 10");
  slider->continuousTrigger = TRUE;
  EXPECT_TRUE(toggleOf(slider)->isChecked());
  QTest::mousePress(barOf(slider), Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.0F));
  moveTo(slider, 0.5F);
  EXPECT_EQ(slider->value.getValue(), 5);
  QTest::mouseRelease(barOf(slider), Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.5F));
  EXPECT_EQ(heard.values, std::vector<double>{5.0});
  slider->continuousTrigger = FALSE;
  EXPECT_FALSE(toggleOf(slider)->isChecked());
  EXPECT_EQ(heard.values.size(), 1U);
}

// The user and the window

TEST_F(SliderTest, aDragUpdatesTheTextAndItsEndTheValue)
{
  SoDialogIntegerSlider* slider = openInteger("max 10");
  QTest::mousePress(barOf(slider), Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.0F));
  moveTo(slider, 0.3F);
  EXPECT_EQ(textOf(slider), "3");
  moveTo(slider, 0.8F);
  EXPECT_EQ(textOf(slider), "8");
  EXPECT_EQ(slider->value.getValue(), 0);
  EXPECT_TRUE(heard.values.empty());
  QTest::mouseRelease(barOf(slider), Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.8F));
  EXPECT_EQ(slider->value.getValue(), 8);
  EXPECT_EQ(heard.values, std::vector<double>{8.0});
}

TEST_F(SliderTest, tickingTheToggleReportsEveryMotion)
{
  SoDialogIntegerSlider* slider = openInteger("max 10");
  QTest::mouseClick(toggleOf(slider), Qt::LeftButton, Qt::NoModifier, QPoint(7, toggleOf(slider)->height() / 2));
  EXPECT_TRUE(slider->continuousTrigger.getValue());
  EXPECT_TRUE(heard.values.empty()) << "the toggle itself is not reported";
  QTest::mousePress(barOf(slider), Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.0F));
  moveTo(slider, 0.3F);
  moveTo(slider, 0.8F);
  QTest::mouseRelease(barOf(slider), Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.8F));
  EXPECT_EQ(heard.values, (std::vector<double>{3.0, 8.0}));
  QTest::mouseClick(toggleOf(slider), Qt::LeftButton, Qt::NoModifier, QPoint(7, toggleOf(slider)->height() / 2));
  EXPECT_FALSE(slider->continuousTrigger.getValue());
  QTest::mousePress(barOf(slider), Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.8F));
  moveTo(slider, 0.1F);
  EXPECT_EQ(heard.values.size(), 2U);
  QTest::mouseRelease(barOf(slider), Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.1F));
  EXPECT_EQ(heard.values, (std::vector<double>{3.0, 8.0, 1.0}));
}

TEST_F(SliderTest, aDragThatEndsWhereItBeganReportsNothing)
{
  SoDialogIntegerSlider* slider = openInteger("max 10 value 4");
  QTest::mousePress(barOf(slider), Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.4F));
  moveTo(slider, 0.9F);
  moveTo(slider, 0.4F);
  QTest::mouseRelease(barOf(slider), Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.4F));
  EXPECT_TRUE(heard.values.empty());
  EXPECT_EQ(textOf(slider), "4");
}

TEST_F(SliderTest, anArrowKeyMovesAnIntegerByOne)
{
  SoDialogIntegerSlider* slider = openInteger("max 40 value 7");
  QTest::keyClick(barOf(slider), Qt::Key_Right);
  QTest::keyClick(barOf(slider), Qt::Key_Right);
  QTest::keyClick(barOf(slider), Qt::Key_Left);
  QTest::keyClick(barOf(slider), Qt::Key_PageUp);
  EXPECT_EQ(heard.values, (std::vector<double>{8.0, 9.0, 8.0, 12.0}));
  QTest::keyClick(barOf(slider), Qt::Key_End);
  EXPECT_EQ(slider->value.getValue(), 40);
}

TEST_F(SliderTest, everyStepOfALongIntegerSliderCounts)
{
  SoDialogIntegerSlider* slider = openInteger("min -1000 max 1000 value -1000");
  for (int i = 0; i < 2000; i++) {
    QTest::keyClick(barOf(slider), Qt::Key_Right);
  }
  EXPECT_EQ(slider->value.getValue(), 1000);
  EXPECT_EQ(heard.values.size(), 2000U);
}

TEST_F(SliderTest, typingBeyondFixedLimitsIsCorrected)
{
  SoDialogIntegerSlider* slider = openInteger("max 10 fixedLimits TRUE value 3");
  type(slider, "15");
  EXPECT_EQ(slider->value.getValue(), 10);
  EXPECT_EQ(slider->max.getValue(), 10);
  EXPECT_EQ(textOf(slider), "10");
  EXPECT_EQ(barOf(slider)->getValue(), 1.0F);
  type(slider, "-4");
  EXPECT_EQ(slider->value.getValue(), 0);
  EXPECT_EQ(textOf(slider), "0");
  EXPECT_EQ(heard.values, (std::vector<double>{10.0, 0.0}));
}

TEST_F(SliderTest, typingBeyondOtherLimitsMovesThem)
{
  SoDialogIntegerSlider* slider = openInteger("max 10 value 3");
  type(slider, "15");
  EXPECT_EQ(slider->value.getValue(), 15);
  EXPECT_EQ(slider->max.getValue(), 15);
  EXPECT_EQ(textOf(slider), "15");
  EXPECT_EQ(barOf(slider)->getValue(), 1.0F);
  type(slider, "-5");
  EXPECT_EQ(slider->value.getValue(), -5);
  EXPECT_EQ(slider->min.getValue(), -5);
  EXPECT_EQ(barOf(slider)->getValue(), 0.0F);
  EXPECT_EQ(heard.values, (std::vector<double>{15.0, -5.0}));
  slider->value = 5;
  EXPECT_EQ(barOf(slider)->getValue(), 0.5F) << "the bar works on the new limits";
}

TEST_F(SliderTest, aTypedFractionIsCutOff)
{
  SoDialogIntegerSlider* slider = openInteger("max 10");
  type(slider, "3.7");
  EXPECT_EQ(slider->value.getValue(), 3);
  EXPECT_EQ(textOf(slider), "3");
  EXPECT_EQ(heard.values, std::vector<double>{3.0});
}

TEST_F(SliderTest, aTypedNumberThatNoIntegerHoldsBecomesTheNearest)
{
  SoDialogIntegerSlider* slider = openInteger("max 10");
  type(slider, "99999999999");
  EXPECT_EQ(slider->value.getValue(), std::numeric_limits<int32_t>::max());
  EXPECT_EQ(textOf(slider), "2147483647");
  type(slider, "-99999999999");
  EXPECT_EQ(slider->value.getValue(), std::numeric_limits<int32_t>::min());
}

TEST_F(SliderTest, aLargeTypedIntegerIsKeptExactly)
{
  SoDialogIntegerSlider* slider = openInteger("max 2000000000");
  type(slider, "123456789");
  EXPECT_EQ(slider->value.getValue(), 123456789);
  EXPECT_EQ(textOf(slider), "123456789");
}

TEST_F(SliderTest, aTypedRealIsKeptClampedOrMovesTheLimits)
{
  SoDialogRealSlider* slider = openReal("min -1 max 2");
  type(slider, "0.1");
  EXPECT_EQ(slider->value.getValue(), 0.1F);
  EXPECT_EQ(textOf(slider), "0.100");
  type(slider, "2.5");
  EXPECT_EQ(slider->max.getValue(), 2.5F);
  EXPECT_EQ(slider->value.getValue(), 2.5F);
  slider->fixedLimits = TRUE;
  type(slider, "-7");
  EXPECT_EQ(slider->value.getValue(), -1.0F);
  EXPECT_EQ(slider->min.getValue(), -1.0F);
  EXPECT_EQ(textOf(slider), "-1.000");
  type(slider, "0,5");
  EXPECT_EQ(slider->value.getValue(), 0.5F);
  EXPECT_EQ(heard.values.size(), 4U);
}

TEST_F(SliderTest, typedTextThatIsNoFiniteNumberIsRejected)
{
  SoDialogRealSlider* slider = openReal("value 0.5");
  for (const char* text : {"abc", "nan", "inf", "1e39", "1e999", "0.3x"}) {
    type(slider, text);
    EXPECT_EQ(textOf(slider), "0.500") << text;
    EXPECT_EQ(slider->value.getValue(), 0.5F) << text;
  }
  EXPECT_EQ(slider->max.getValue(), 1.0F);
  EXPECT_TRUE(heard.values.empty());
}

TEST_F(SliderTest, returnOnTheShownTextChangesNothing)
{
  SoDialogRealSlider* slider = openReal("min -1 max 2 value 0.5 format \"%.2f m\"");
  QTest::keyClick(editOf(slider), Qt::Key_Return);
  EXPECT_EQ(slider->value.getValue(), 0.5F);
  EXPECT_EQ(textOf(slider), "0.50 m");
  EXPECT_TRUE(heard.values.empty());
}

TEST_F(SliderTest, typedTextWithoutReturnDoesNotStay)
{
  SoDialogIntegerSlider* slider = openInteger("max 10 value 3");
  dialog->getWidget()->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(dialog->getWidget()));
  editOf(slider)->setFocus();
  editOf(slider)->selectAll();
  QTest::keyClicks(editOf(slider), "9");
  EXPECT_EQ(textOf(slider), "9");
  barOf(slider)->setFocus();
  EXPECT_EQ(textOf(slider), "3");
  EXPECT_EQ(slider->value.getValue(), 3);
  EXPECT_TRUE(heard.values.empty());
}

TEST_F(SliderTest, aDisabledSliderIsDisabledFromTheBuildOnAndDropsAnUnfinishedDrag)
{
  SoDialogIntegerSlider* slider = openInteger("enable FALSE max 10 value 3");
  EXPECT_FALSE(barOf(slider)->isEnabled());
  EXPECT_FALSE(editOf(slider)->isEnabled());
  slider->enable = TRUE;
  QTest::mousePress(barOf(slider), Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.3F));
  moveTo(slider, 0.9F);
  slider->enable = FALSE;
  EXPECT_EQ(textOf(slider), "3");
  EXPECT_NEAR(barOf(slider)->getValue(), 0.3F, 1.0e-5F);
  QTest::mouseRelease(barOf(slider), Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.9F));
  EXPECT_EQ(slider->value.getValue(), 3);
  EXPECT_TRUE(heard.values.empty());
}

// What auditors do

TEST_F(SliderTest, anAuditorOfItsOwnIsCalledAloneAndOnce)
{
  struct Own : SoDialogIntegerSliderAuditor {
    void dialogIntegerSlider(SoDialogIntegerSlider* cpt) override
    {
      values.push_back(cpt->value.getValue());
    }
    std::vector<int> values;
  } own;
  SoDialogIntegerSlider* slider = openInteger("max 10");
  slider->addAuditor(&own);
  QTest::keyClick(barOf(slider), Qt::Key_Right);
  EXPECT_EQ(own.values, std::vector<int>{1});
  EXPECT_TRUE(heard.values.empty());
  slider->removeAuditor(&own);
  QTest::keyClick(barOf(slider), Qt::Key_Right);
  EXPECT_EQ(heard.values, std::vector<double>{2.0});
}

TEST_F(SliderTest, aRealAuditorOfItsOwnIsCalled)
{
  struct Own : SoDialogRealSliderAuditor {
    void dialogRealSlider(SoDialogRealSlider* cpt) override
    {
      values.push_back(cpt->value.getValue());
    }
    std::vector<float> values;
  } own;
  SoDialogRealSlider* slider = openReal("");
  slider->addAuditor(&own);
  type(slider, "0.75");
  EXPECT_EQ(own.values, std::vector<float>{0.75F});
}

TEST_F(SliderTest, anAuditorThatChangesTheValueHasTheLastWord)
{
  SoDialogIntegerSlider* slider = openInteger("max 10 continuousTrigger TRUE");
  heard.action = [slider] {
    if (slider->value.getValue() > 5) {
      slider->value = 5;
    }
  };
  QTest::mousePress(barOf(slider), Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.0F));
  moveTo(slider, 0.9F);
  EXPECT_EQ(slider->value.getValue(), 5);
  EXPECT_EQ(textOf(slider), "5");
  EXPECT_EQ(barOf(slider)->getValue(), 0.5F);
  QTest::mouseRelease(barOf(slider), Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.9F));
  type(slider, "8");
  EXPECT_EQ(slider->value.getValue(), 5);
  EXPECT_EQ(textOf(slider), "5");
  EXPECT_EQ(barOf(slider)->getValue(), 0.5F);
  EXPECT_EQ(heard.values, (std::vector<double>{9.0, 8.0}));
}

TEST_F(SliderTest, anAuditorMayRemoveTheSlider)
{
  const std::function<void(SoDialogIntegerSlider*)> actions[] = {
    [](SoDialogIntegerSlider* slider) { QTest::keyClick(barOf(slider), Qt::Key_End); },
    [](SoDialogIntegerSlider* slider) {
      QWidget* bar = barOf(slider);
      QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, onBar(slider, 0.9F));
      QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
    },
    [](SoDialogIntegerSlider* slider) { type(slider, "7"); },
  };
  for (const char* fields : {"max 10", "max 10 continuousTrigger TRUE"}) {
    for (const auto& act : actions) {
      heard.values.clear();
      SoDialogIntegerSlider* slider = openInteger(fields);
      SoTopLevelDialog* opened = dialog;
      heard.action = [opened] {
        opened->removeAllChildren();
      };
      act(slider);
      EXPECT_EQ(heard.values.size(), 1U) << fields;
      EXPECT_EQ(opened->getNumChildren(), 0);
      settle();
    }
  }
}

TEST_F(SliderTest, anAuditorMayDeleteTheWindow)
{
  SoDialogIntegerSlider* slider = openInteger("max 10 continuousTrigger TRUE");
  QPointer<QWidget> relay = slider->getWidget();
  heard.action = [this] {
    dialog->destroyWidget();
  };
  QTest::keyClick(barOf(slider), Qt::Key_End);
  EXPECT_EQ(slider->value.getValue(), 10);
  settle();
  EXPECT_EQ(relay, nullptr);
}

TEST_F(SliderTest, fieldsMayChangeAfterQtHasDestroyedTheWidgets)
{
  SoDialogIntegerSlider* slider = openInteger("max 10");
  delete dialog->getWidget();
  slider->value = 4;
  slider->max = 5;
  slider->format = "%d mm";
  slider->toggleVisible = FALSE;
  slider->valueVisible = FALSE;
  slider->continuousTrigger = TRUE;
  slider->colors = SbColor(1.0F, 0.0F, 0.0F);
  slider->labelVisibility = FALSE;
  slider->enable = FALSE;
  slider->changeSliderFromEdit();
  EXPECT_EQ(slider->value.getValue(), 4);
  EXPECT_EQ(slider->getValueText(), "4 mm");
}

TEST_F(SliderTest, aRebuildKeepsTheWidgetsAndTheValue)
{
  SoDialogIntegerSlider* slider = openInteger("max 10");
  type(slider, "7");
  QPointer<QWidget> bar = barOf(slider);
  dialog->addChild(new SoDialogRealSlider);
  EXPECT_EQ(barOf(slider), bar);
  EXPECT_EQ(textOf(slider), "7");
  EXPECT_NEAR(barOf(slider)->getValue(), 0.7F, 1.0e-6F);
  QTest::keyClick(barOf(slider), Qt::Key_Right);
  EXPECT_EQ(heard.values, (std::vector<double>{7.0, 8.0}));
}

// The trace

TEST_F(SliderTest, unhandledChangesAreTraced)
{
  SoPreferences::setString("DEBUG_QUILLFORM_AUDITORS", "1");
  SoTopLevelDialog* plain = load("TopLevelDialog { DialogIntegerSlider { label \"Steps\" max 10 } "
                                 "DialogRealSlider { label \"Width\" format \"%.1f m\" } }");
  plain->buildDialog(nullptr, FALSE);
  plain->show();
  auto* integer = static_cast<SoDialogIntegerSlider*>(plain->getChild(0));
  auto* real = static_cast<SoDialogRealSlider*>(plain->getChild(1));
  const Messages messages;
  type(integer, "5");
  type(real, "0.5");
  real->format = "%s";
  real->applyAuditors();
  SoPreferences::unset("DEBUG_QUILLFORM_AUDITORS");
  EXPECT_EQ(messages.count("SoDialogAuditor::dialogIntegerSlider"), 1);
  EXPECT_EQ(messages.count("WARNING ! The DialogAuditor does not define the SoDialogIntegerSlider component :"
                           "\n\t\t -> label = \"Steps\"5"),
            1);
  EXPECT_EQ(messages.count("WARNING ! The DialogAuditor does not define the SoDialogRealSlider component :"
                           "\n\t\t -> label = \"Width\"\n\t\t -> value \"0.5 m\""),
            1);
  EXPECT_EQ(messages.count("-> value \"0.500\""), 1);
  type(real, "0.7");
  EXPECT_EQ(messages.count("SoDialogAuditor::"), 3) << "unset, nothing is traced";
}
