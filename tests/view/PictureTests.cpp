#include "Program.h"
#include "VirtualDisplay.h"

#include <QImage>
#include <QRect>
#include <QSet>

class PictureTest : public ProgramTest {
protected:
  PictureTest()
  {
    write("a.iv", "TopLevelDialog {\n  label \"Picture\"\n  DialogLabel { label \"Some text to be read\" }\n"
                  "  DialogPushButton { label \"Side:\" buttonLabel \"Press here\" }\n}\n");
  }

  /// Takes a picture, and expects that there is nothing to complain about.
  QImage draw(const QStringList& arguments) const
  {
    const Result result = run(QStringList{"--screenshot", "out.png"} + arguments);
    EXPECT_EQ(0, result.status);
    EXPECT_EQ("", result.output.toStdString());
    EXPECT_EQ("", result.errors.toStdString());
    return QImage(pathOf("out.png"));
  }

  static int countColours(const QImage& image)
  {
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y++) {
      for (int x = 0; x < image.width(); x++) {
        colours.insert(image.pixel(x, y));
      }
    }
    return colours.size();
  }

  static constexpr int colours = 12; ///< a picture with smooth text has more of them
};

/// The same elements in every state, as windows or as geometry.
class StatePictureTest : public PictureTest {
protected:
  StatePictureTest()
  {
    write("states.iv",
          "TopLevelDialog {\n"
          "  DialogPushButton { auditorID \"go\" buttonLabel \"Go\" }\n"
          "  DialogCheckBox { auditorID \"on\" labelVisibility FALSE onString \"A text that reaches to the "
          "right end\" offString \"A text that reaches to the right end\" }\n"
          "  DialogComboBox { auditorID \"kind\" items [ \"a\", \"b\", \"c\", \"d\", \"e\" ] }\n"
          "  DialogRealSlider { auditorID \"part\" min 0 max 1 value 0 }\n"
          "  DialogEditText { auditorID \"text\" editText \"Text\" }\n"
          "  TabDialog {\n"
          "    DialogPushButton { label \"Front\" buttonLabel \"x\" }\n"
          "    DialogPushButton { auditorID \"hidden\" label \"Back\" buttonLabel \"y\" }\n"
          "  }\n"
          "}\n");
  }

  void expectAllStates(const QStringList& arguments) const
  {
    const auto take = [&](const QStringList& more) {
      return draw(arguments + more + QStringList{"states.iv"});
    };
    const QImage plain = take({});
    EXPECT_EQ(plain, take({}));
    for (const char* id : {"go", "part"}) {
      const QImage pressed = take({"--press", id});
      EXPECT_EQ(plain.size(), pressed.size()) << id;
      EXPECT_NE(plain, pressed) << id;
    }
    for (const char* id : {"on", "text"}) {
      const QImage clicked = take({"--click", id});
      EXPECT_EQ(plain.size(), clicked.size()) << id;
      EXPECT_NE(plain, clicked) << id;
    }
    EXPECT_NE(plain, take({"--click", "kind"})); // its list has opened
    const QImage both = take({"--click", "on", "--press", "go"});
    EXPECT_NE(both, take({"--click", "on"}));
    EXPECT_NE(both, take({"--press", "go"}));
  }

  void expectSentences(const QStringList& arguments) const
  {
    for (const QString option : {"--click", "--press"}) {
      const auto press = [&](const QString& id) {
        return run(QStringList{"--screenshot", "out.png"} + arguments + QStringList{option, id, "states.iv"});
      };
      expectFailure(press("nobody"), 2, {"\"states.iv\"", "\"nobody\"", option});
      expectFailure(press("hidden"), 2, {"\"hidden\"", "not in sight"});
    }
  }
};

class ScenePictureTest : public PictureTest {
protected:
  ScenePictureTest()
  {
    useDisplay(m_display.getName());
  }

  void SetUp() override
  {
    ASSERT_NE("", m_display.getName().toStdString());
  }

  /// The smallest rectangle around everything that differs from the picture's corner.
  static QRect findDialog(const QImage& image)
  {
    QRect found;
    for (int y = 0; y < image.height(); y++) {
      for (int x = 0; x < image.width(); x++) {
        if (image.pixel(x, y) != image.pixel(0, 0)) {
          found |= QRect(x, y, 1, 1);
        }
      }
    }
    return found;
  }

private:
  VirtualDisplay m_display;
};

TEST_F(PictureTest, aWindowNeedsNoDisplay)
{
  const QImage picture = draw({"a.iv"});
  EXPECT_GT(picture.width(), 100);
  EXPECT_GT(picture.height(), 40);
  EXPECT_GT(countColours(picture), colours);
}

TEST_F(PictureTest, aWindowHasTheSizeAskedForWithinItsLimits)
{
  EXPECT_EQ(QSize(500, 400), draw({"--size", "500x400", "a.iv"}).size());
  write("fixed.iv", "TopLevelDialog { resizable FALSE width 200 height 100 DialogLabel { label \"x\" } }\n");
  EXPECT_EQ(QSize(200, 100), draw({"--size", "500x400", "fixed.iv"}).size());
  write("limits.iv", "TopLevelDialog { minWidth 150 maxHeight 120 DialogLabel { label \"x\" } }\n");
  EXPECT_EQ(QSize(150, 120), draw({"--size", "10x500", "limits.iv"}).size());
}

TEST_F(PictureTest, theIdChoosesTheDialog)
{
  write("two.iv", "TopLevelDialog { auditorID \"a\" width 200 height 100 DialogLabel { label \"x\" } }\n"
                  "TopLevelDialog { auditorID \"b\" width 300 height 150 DialogLabel { label \"x\" } }\n");
  EXPECT_EQ(QSize(200, 100), draw({"two.iv"}).size());
  EXPECT_EQ(QSize(300, 150), draw({"--id", "b", "two.iv"}).size());
}

TEST_F(PictureTest, aLoneElementIsDrawnInADialogOfItsOwn)
{
  write("lone.iv", "DialogPushButton { label \"Side:\" buttonLabel \"Press here\" }\n");
  EXPECT_GT(countColours(draw({"lone.iv"})), colours);
}

TEST_F(PictureTest, anEmptyDialogHasNoPictureOfItsOwn)
{
  write("empty.iv", "TopLevelDialog { }\n");
  expectFailure(run({"--screenshot", "out.png", "empty.iv"}), 2, {"\"empty.iv\"", "empty"});
  EXPECT_EQ(QSize(60, 40), draw({"--size", "60x40", "empty.iv"}).size());
}

TEST_F(PictureTest, aPictureThatCannotBeWritten)
{
  expectFailure(run({"--screenshot", "nowhere/out.png", "a.iv"}), 2, {"\"nowhere/out.png\""});
  expectFailure(run({"--screenshot", "out.nothing", "a.iv"}), 2, {"\"out.nothing\"", ".png"});
}

TEST_F(StatePictureTest, elementsAreDrawnPressedAndOpen)
{
  expectAllStates({});
}

TEST_F(StatePictureTest, anOpenListIsDrawnBeyondTheWindow)
{
  write("low.iv", "TopLevelDialog { DialogComboBox { auditorID \"kind\" items [ \"a\", \"b\", \"c\", \"d\" ] } }\n");
  const QImage plain = draw({"low.iv"});
  const QImage open = draw({"--click", "kind", "low.iv"});
  EXPECT_GE(open.width(), plain.width());
  EXPECT_GT(open.height(), plain.height());
}

TEST_F(StatePictureTest, anElementThatCannotBePressedIsNamed)
{
  expectSentences({});
}

class SceneStatePictureTest : public StatePictureTest {
protected:
  SceneStatePictureTest()
  {
    useDisplay(m_display.getName());
  }

private:
  VirtualDisplay m_display;
};

TEST_F(SceneStatePictureTest, elementsAreDrawnPressedAndOpen)
{
  expectAllStates({"--scene"});
  expectAllStates({"--scene", "--size", "300x600"});
}

TEST_F(SceneStatePictureTest, anOpenListIsWhollyInThePicture)
{
  write("low.iv", "TopLevelDialog { DialogComboBox { auditorID \"kind\" items [ \"a\", \"b\", \"c\", \"d\" ] } }\n");
  EXPECT_GT(draw({"--scene", "--click", "kind", "low.iv"}).height(), draw({"--scene", "low.iv"}).height());
}

TEST_F(SceneStatePictureTest, anElementThatCannotBePressedIsNamed)
{
  expectSentences({"--scene"});
}

TEST_F(ScenePictureTest, theWholeDialogStandsInTheMiddle)
{
  for (const QSize& size : {QSize(), QSize(300, 600), QSize(900, 250), QSize(120, 120)}) {
    SCOPED_TRACE(QString("%1x%2").arg(size.width()).arg(size.height()).toStdString());
    QStringList arguments{"--scene", "a.iv"};
    if (size.isValid()) {
      arguments += {"--size", QString("%1x%2").arg(size.width()).arg(size.height())};
    }
    const QImage picture = draw(arguments);
    if (size.isValid()) {
      EXPECT_EQ(size, picture.size());
    }
    EXPECT_GT(countColours(picture), colours);
    const QRect dialog = findDialog(picture);
    const int left = dialog.left();
    const int right = picture.width() - 1 - dialog.right();
    const int top = dialog.top();
    const int bottom = picture.height() - 1 - dialog.bottom();
    EXPECT_NEAR(left, right, 1);
    EXPECT_NEAR(top, bottom, 1);
    EXPECT_GT(left, 0);
    EXPECT_GT(top, 0);
    // As large as it can be: in one direction only the room around it is left.
    EXPECT_TRUE(left < picture.width() / 8 || top < picture.height() / 8);
  }
}

TEST_F(ScenePictureTest, theDialogIsFoundWhereverItStands)
{
  const QImage here = draw({"--scene", "a.iv"});
  write("far.iv", read("a.iv").replace("label \"Picture\"", "label \"Picture\" position3D 4000 300 -70"));
  const QImage far = draw({"--scene", "far.iv"});
  EXPECT_EQ(here.size(), far.size());
  EXPECT_EQ(findDialog(here), findDialog(far));
}

TEST_F(ScenePictureTest, whatIsDisabledLosesItsColours)
{
  typedef bool (*Colour)(QRgb);
  const Colour isRed = [](QRgb pixel) {
    return qRed(pixel) > 180 && qGreen(pixel) < 60;
  };
  const Colour isWhite = [](QRgb pixel) {
    return qMin(qRed(pixel), qMin(qGreen(pixel), qBlue(pixel))) > 225;
  };
  const Colour isBlack = [](QRgb pixel) {
    return qMax(qRed(pixel), qMax(qGreen(pixel), qBlue(pixel))) < 45;
  };
  const struct {
    QByteArray element;
    Colour colour;
  } shown[] = {
    {"DialogRealSlider { labelVisibility FALSE toggleVisible FALSE valueVisible FALSE colors [ 1 0 0 ]", isRed},
    {"DialogRealSlider { labelVisibility FALSE valueVisible FALSE", isWhite},
    {"DialogCheckBox { labelVisibility FALSE", isWhite},
    {"DialogCheckBox { labelVisibility FALSE state TRUE", isBlack},
    {"DialogRadioButtons { labelVisibility FALSE items [ \"a\", \"b\" ]", isWhite}};
  for (const auto& kind : shown) {
    const auto count = [&](const QByteArray& more) {
      write("b.iv", "TopLevelDialog { " + kind.element + more + " } }\n");
      const QImage picture = draw({"--scene", "b.iv"});
      int number = 0;
      constexpr int title = 70; // its button is white whatever is below
      for (int y = title; y < picture.height(); y++) {
        for (int x = 0; x < picture.width(); x++) {
          number += kind.colour(picture.pixel(x, y)) ? 1 : 0;
        }
      }
      return number;
    };
    EXPECT_GT(count(""), 30) << kind.element.toStdString();
    EXPECT_EQ(count(" enable FALSE"), 0) << kind.element.toStdString();
  }
}

TEST_F(ScenePictureTest, skinsLookDifferent)
{
  const QImage preferred = draw({"--scene", "a.iv"});
  EXPECT_EQ(preferred, draw({"--scene", "--skin", "default", "a.iv"}));
  EXPECT_NE(preferred, draw({"--scene", "--skin", "dark", "a.iv"}));
  EXPECT_NE(preferred, draw({"--scene", "--skins-dir", QUILLFORM_SKINS, "--skin", "dark", "a.iv"}));
  environment.insert("QUILLFORM_SKIN", "dark");
  EXPECT_NE(preferred, draw({"--scene", "a.iv"}));
}

TEST_F(ScenePictureTest, aLoneElementIsDrawnInADialogOfItsOwn)
{
  write("lone.iv", "DialogPushButton { label \"Side:\" buttonLabel \"Press here\" }\n");
  EXPECT_GT(countColours(draw({"--scene", "lone.iv"})), colours);
}

TEST_F(ScenePictureTest, aWindowIsDrawnOnADisplayToo)
{
  EXPECT_GT(countColours(draw({"a.iv"})), colours);
}

TEST_F(PictureTest, aMessageIsDrawnWithItsText)
{
  write("message.iv", "MessageDialog { title \"About\" label \"A text to be read\" type MD_INFORMATION }\n");
  EXPECT_GT(countColours(draw({"message.iv"})), colours);
}

TEST_F(PictureTest, anEntryOfMenusIsDrawnInAMenu)
{
  write("entry.iv", "MenuPushButton { label \"Save\" }\n");
  write("menu.iv", "MenuPopup { auditorID \"file\" label \"File\" MenuPushButton { label \"Save\" } }\n");
  EXPECT_GT(countColours(draw({"entry.iv"})), colours);
  EXPECT_GT(draw({"--click", "file", "menu.iv"}).height(), draw({"menu.iv"}).height());
}
