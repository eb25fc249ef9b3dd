#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>
#include <Quillform/platform/SoQtBasicSlider.h>
#include <gtest/gtest.h>
#include <limits>
#include <memory>

namespace {

/// Counts what a slider reports.
struct Heard {
  static void changed(void* data, float value)
  {
    static_cast<Heard*>(data)->values.push_back(value);
  }
  static void finished(void* data, float value)
  {
    static_cast<Heard*>(data)->ends.push_back(value);
  }
  std::vector<float> values;
  std::vector<float> ends;
};

/// A slider that is ten times as wide as its thumb and reports to `heard`.
class BasicSliderTest : public ::testing::Test {
protected:
  BasicSliderTest()
  {
    slider.resize(10 * SoQtBasicSlider::thumbWidth, 24);
    slider.addValueChangedCallback(Heard::changed, &heard);
    slider.addFinishCallback(Heard::finished, &heard);
    slider.show();
  }

  /// The middle of the thumb at a value.
  QPoint at(float value) const
  {
    const int room = slider.width() - SoQtBasicSlider::thumbWidth;
    return {SoQtBasicSlider::thumbWidth / 2 + static_cast<int>(value * static_cast<float>(room)), 12};
  }

  /// Moves the pointer with the left button down.
  void moveTo(const QPoint& to)
  {
    QMouseEvent event(QEvent::MouseMove, to, slider.mapToGlobal(to), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&slider, &event);
  }

  void turnWheel(int eighths)
  {
    QWheelEvent event(QPointF(5, 5), slider.mapToGlobal(QPointF(5, 5).toPoint()), QPoint(), QPoint(0, eighths),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&slider, &event);
  }

  SoQtBasicSlider slider;
  Heard heard;
};

} // namespace

TEST_F(BasicSliderTest, aValueSetFromCodeRunsNoCallback)
{
  slider.setValue(0.25F);
  EXPECT_EQ(slider.getValue(), 0.25F);
  EXPECT_TRUE(heard.values.empty());
  EXPECT_TRUE(heard.ends.empty());
}

TEST_F(BasicSliderTest, valuesStayBetweenZeroAndOne)
{
  slider.setValue(3.0F);
  EXPECT_EQ(slider.getValue(), 1.0F);
  slider.setValue(-std::numeric_limits<float>::infinity());
  EXPECT_EQ(slider.getValue(), 0.0F);
  slider.setValue(0.5F);
  slider.setValue(std::numeric_limits<float>::quiet_NaN());
  EXPECT_EQ(slider.getValue(), 0.0F);
}

TEST_F(BasicSliderTest, aDragReportsEachMotionAndOneEnd)
{
  QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, at(0.0F));
  EXPECT_TRUE(heard.values.empty()) << "the press was on the thumb";
  moveTo(at(0.3F));
  moveTo(at(0.6F));
  EXPECT_EQ(heard.values.size(), 2U);
  EXPECT_TRUE(heard.ends.empty());
  QTest::mouseRelease(&slider, Qt::LeftButton, Qt::NoModifier, at(0.6F));
  ASSERT_EQ(heard.ends.size(), 1U);
  EXPECT_NEAR(heard.ends[0], 0.6F, 0.02F);
  EXPECT_EQ(heard.ends[0], slider.getValue());
}

TEST_F(BasicSliderTest, aDragTakesTheThumbWhereItIsHeld)
{
  slider.setValue(0.5F);
  const QPoint besideTheMiddle = at(0.5F) + QPoint(4, 0);
  QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, besideTheMiddle);
  moveTo(besideTheMiddle + QPoint(10, 0));
  ASSERT_EQ(heard.values.size(), 1U);
  EXPECT_NEAR(heard.values[0], 0.5F + 10.0F / 99.0F, 0.01F);
  QTest::mouseRelease(&slider, Qt::LeftButton);
}

TEST_F(BasicSliderTest, aPressBesideTheThumbBringsItThere)
{
  QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, at(0.8F));
  ASSERT_EQ(heard.values.size(), 1U);
  EXPECT_NEAR(heard.values[0], 0.8F, 0.02F);
  QTest::mouseRelease(&slider, Qt::LeftButton, Qt::NoModifier, at(0.8F));
  EXPECT_EQ(heard.ends.size(), 1U);
}

TEST_F(BasicSliderTest, aDragBeyondTheEndsStopsThere)
{
  QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, at(0.5F));
  moveTo(QPoint(4000, 12));
  EXPECT_EQ(slider.getValue(), 1.0F);
  moveTo(QPoint(-4000, 12));
  EXPECT_EQ(slider.getValue(), 0.0F);
  QTest::mouseRelease(&slider, Qt::LeftButton);
}

TEST_F(BasicSliderTest, theRightButtonMovesNothing)
{
  QTest::mouseClick(&slider, Qt::RightButton, Qt::NoModifier, at(0.8F));
  EXPECT_EQ(slider.getValue(), 0.0F);
  EXPECT_TRUE(heard.ends.empty());
}

TEST_F(BasicSliderTest, everyKeyMovesTheThumbAndEnds)
{
  slider.setSteps(0.05F, 0.2F);
  const struct {
    Qt::Key key;
    float value;
  } steps[] = {{Qt::Key_End, 1.0F},       {Qt::Key_Left, 0.95F}, {Qt::Key_Down, 0.9F},   {Qt::Key_Up, 0.95F},
               {Qt::Key_PageDown, 0.75F}, {Qt::Key_Home, 0.0F},  {Qt::Key_Right, 0.05F}, {Qt::Key_PageUp, 0.25F}};
  std::size_t count = 0;
  for (const auto& step : steps) {
    QTest::keyClick(&slider, step.key);
    EXPECT_NEAR(slider.getValue(), step.value, 1.0e-5F);
    ++count;
    EXPECT_EQ(heard.values.size(), count);
    EXPECT_EQ(heard.ends.size(), count);
  }
}

TEST_F(BasicSliderTest, aKeyAtTheEndOfTheBarReportsNothing)
{
  QTest::keyClick(&slider, Qt::Key_Left);
  QTest::keyClick(&slider, Qt::Key_Home);
  EXPECT_TRUE(heard.values.empty());
  EXPECT_TRUE(heard.ends.empty());
}

TEST_F(BasicSliderTest, aNotchOfTheWheelIsAStepAndPartsOfNotchesAddUp)
{
  slider.setSteps(0.1F, 0.2F);
  turnWheel(120);
  EXPECT_NEAR(slider.getValue(), 0.1F, 1.0e-5F);
  turnWheel(60);
  EXPECT_NEAR(slider.getValue(), 0.1F, 1.0e-5F);
  turnWheel(60);
  EXPECT_NEAR(slider.getValue(), 0.2F, 1.0e-5F);
  turnWheel(-240);
  EXPECT_NEAR(slider.getValue(), 0.0F, 1.0e-5F);
  EXPECT_EQ(heard.ends.size(), 3U);
}

TEST_F(BasicSliderTest, aCallbackIsRegisteredOnceAndCanBeRemoved)
{
  slider.addFinishCallback(Heard::finished, &heard);
  QTest::keyClick(&slider, Qt::Key_End);
  EXPECT_EQ(heard.ends.size(), 1U);
  slider.removeFinishCallback(Heard::finished, &heard);
  slider.removeFinishCallback(Heard::finished, &heard);
  slider.removeValueChangedCallback(Heard::changed, &heard);
  QTest::keyClick(&slider, Qt::Key_Home);
  EXPECT_EQ(heard.ends.size(), 1U);
  EXPECT_EQ(heard.values.size(), 1U);
}

TEST_F(BasicSliderTest, aCallbackMayRemoveTheNextOne)
{
  struct Remover {
    static void changed(void* data, float /*value*/)
    {
      auto* self = static_cast<Remover*>(data);
      self->slider->removeValueChangedCallback(Heard::changed, self->victim);
    }
    SoQtBasicSlider* slider;
    Heard* victim;
  } remover{&slider, &heard};
  slider.removeValueChangedCallback(Heard::changed, &heard);
  slider.addValueChangedCallback(Remover::changed, &remover);
  slider.addValueChangedCallback(Heard::changed, &heard);
  QTest::keyClick(&slider, Qt::Key_End);
  EXPECT_TRUE(heard.values.empty());
}

TEST_F(BasicSliderTest, aCallbackMayDeleteTheSlider)
{
  auto* doomed = new SoQtBasicSlider;
  doomed->addValueChangedCallback([](void* data, float /*value*/) { delete static_cast<SoQtBasicSlider*>(data); },
                                  doomed);
  doomed->addFinishCallback(Heard::finished, &heard);
  doomed->moveByUser(1.0F);
  EXPECT_TRUE(heard.ends.empty());
}

TEST_F(BasicSliderTest, disablingInTheMiddleOfADragEndsItUnreported)
{
  QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, at(0.0F));
  moveTo(at(0.5F));
  slider.setEnabled(false);
  slider.setEnabled(true);
  moveTo(at(0.9F));
  QTest::mouseRelease(&slider, Qt::LeftButton, Qt::NoModifier, at(0.9F));
  EXPECT_EQ(heard.values.size(), 1U);
  EXPECT_TRUE(heard.ends.empty());
}

TEST_F(BasicSliderTest, aSliderWithoutRoomDoesNotMove)
{
  slider.resize(SoQtBasicSlider::thumbWidth - 2, 24);
  slider.setValue(0.5F);
  QTest::mousePress(&slider, Qt::LeftButton, Qt::NoModifier, QPoint(2, 2));
  moveTo(QPoint(50, 2));
  QTest::mouseRelease(&slider, Qt::LeftButton);
  EXPECT_EQ(slider.getValue(), 0.5F);
  EXPECT_FALSE(slider.grab().isNull());
}

TEST_F(BasicSliderTest, theThumbIsDrawnWhereTheValueIsAndTheFocusShows)
{
  const QImage atLeft = slider.grab().toImage();
  slider.setValue(1.0F);
  const QImage atRight = slider.grab().toImage();
  const QPoint left(SoQtBasicSlider::thumbWidth / 2, 1); // above the bar: only the thumb reaches there
  const QPoint right(slider.width() - 1 - SoQtBasicSlider::thumbWidth / 2, 1);
  EXPECT_NE(atLeft.pixel(left), atLeft.pixel(right));
  EXPECT_EQ(atLeft.pixel(left), atRight.pixel(right));
  slider.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&slider));
  slider.clearFocus();
  const QImage withoutFocus = slider.grab().toImage();
  slider.setFocus();
  EXPECT_NE(slider.grab().toImage(), withoutFocus);
}

TEST_F(BasicSliderTest, otherProgramsReadAndMoveIt)
{
  slider.setAccessibleName("Opacity");
  slider.setSteps(0.25F, 0.5F);
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&slider);
  ASSERT_NE(accessible, nullptr);
  EXPECT_EQ(accessible->role(), QAccessible::Slider);
  EXPECT_EQ(accessible->text(QAccessible::Name), "Opacity");
  QAccessibleValueInterface* value = accessible->valueInterface();
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->minimumValue().toFloat(), 0.0F);
  EXPECT_EQ(value->maximumValue().toFloat(), 1.0F);
  EXPECT_EQ(value->minimumStepSize().toFloat(), 0.25F);
  value->setCurrentValue(0.5F);
  EXPECT_EQ(value->currentValue().toFloat(), 0.5F);
  EXPECT_EQ(heard.ends, std::vector<float>{0.5F});
}
