#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QTest>
#include <Quillform/Quillform.h>
#include <Quillform/platform/SoQtBasicSlider.h>
#include <support/TestFiles.h>

namespace {

/// Before the application object is made.
const bool s_isScaled = qputenv("QT_SCALE_FACTOR", "2");

/// The pixels of the screen that differ from the one beside or below them in the same pixel of the layout. A picture
/// that was made for another screen and enlarged has none.
int countFineDetails(QWidget* widget)
{
  const QImage picture = widget->grab().toImage();
  int details = 0;
  for (int y = 0; y + 1 < picture.height(); y += 2) {
    for (int x = 0; x + 1 < picture.width(); x += 2) {
      const QRgb pixel = picture.pixel(x, y);
      details += pixel != picture.pixel(x + 1, y) || pixel != picture.pixel(x, y + 1) ? 1 : 0;
    }
  }
  return details;
}

} // namespace

class HighDpiTest : public QuillformTest {
protected:
  HighDpiTest()
  {
    dialog = load("TopLevelDialog { label \"Settings\" "
                  "DialogRealSlider { label \"Radius\" value 0.3 colors [ 1 0 0, 0 0 1 ] } "
                  "DialogPushButton { label \"Now\" buttonLabel \"Apply\" } "
                  "DialogComboBox { label \"Colour\" items [ \"red\" ] } }");
    dialog->buildDialog(nullptr, FALSE);
    dialog->show();
  }

  template <class Widget>
  Widget* find()
  {
    return dialog->getWidget()->findChild<Widget*>();
  }

  SoTopLevelDialog* dialog;
};

TEST_F(HighDpiTest, aWindowIsDrawnAtTheResolutionOfItsScreen)
{
  ASSERT_TRUE(s_isScaled);
  const QPixmap picture = dialog->getWidget()->grab();
  EXPECT_EQ(picture.devicePixelRatio(), 2.0);
  EXPECT_EQ(picture.size(), dialog->getWidget()->size() * 2);
}

TEST_F(HighDpiTest, theBarOfASliderIsSharp)
{
  EXPECT_GT(countFineDetails(find<SoQtBasicSlider>()), 100);
}

TEST_F(HighDpiTest, textsAreSharp)
{
  EXPECT_GT(countFineDetails(find<QLabel>()), 20);
  EXPECT_GT(countFineDetails(find<QPushButton>()), 20);
  EXPECT_GT(countFineDetails(find<QComboBox>()), 20);
}

TEST_F(HighDpiTest, theLayoutIsThatOfAnyScreen)
{
  const SbVec2i32 text = SoQuillform::getLabelPixelSize("Radius", nullptr);
  EXPECT_EQ(find<QLabel>()->height(), text[1]);
  EXPECT_GE(find<QLabel>()->width(), text[0]);
}
