#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoFont.h>
#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoText3.h>
#include <QFontMetrics>
#include <Quillform/Quillform.h>
#include <support/TestFiles.h>

namespace {

std::string shown(const char* text)
{
  return SoQuillform::convertToCString(text, nullptr).getString();
}

int widthOf(const char* text)
{
  return QFontMetrics(SoQuillform::getQuillformFont()).horizontalAdvance(QString::fromLatin1(text));
}

int lineHeight()
{
  return QFontMetrics(SoQuillform::getQuillformFont()).height();
}

} // namespace

class TextTest : public QuillformTest {
protected:
  TextTest() : text3(new SoText3), node(new SoDialogLabel), fonts(new SoGroup)
  {
    text3->ref();
    node->ref();
    fonts->ref();
    auto* font = new SoFont;
    font->size = 10.0F;
    fonts->addChild(font);
  }
  ~TextTest() override
  {
    text3->unref();
    node->unref();
    fonts->unref();
  }

  void setLines(const std::vector<std::string>& lines)
  {
    text3->string.setNum(0);
    for (std::size_t i = 0; i < lines.size(); i++) {
      text3->string.set1Value(static_cast<int>(i), lines[i].c_str());
    }
  }

  std::vector<std::string> lines() const
  {
    std::vector<std::string> result;
    for (int i = 0; i < text3->string.getNum(); i++) {
      result.emplace_back(text3->string[i].getString());
    }
    return result;
  }

  float extentOf(const std::string& text)
  {
    auto* root = new SoSeparator;
    root->ref();
    root->addChild(fonts);
    auto* measured = new SoText3;
    measured->string = text.c_str();
    root->addChild(measured);
    SoGetBoundingBoxAction action{SbViewportRegion()};
    action.apply(root);
    const SbBox3f box = action.getBoundingBox();
    root->unref();
    return box.isEmpty() ? 0.0F : box.getMax()[0] - box.getMin()[0];
  }

  int wrap(int line, float width)
  {
    return SoQuillform::wrap3DTextLine(text3, line, width, fonts, node);
  }

  SoText3* text3;
  SoDialogLabel* node;
  SoGroup* fonts;
};

typedef std::vector<std::string> Lines;

TEST_F(TextTest, escapesAreResolved)
{
  EXPECT_EQ(shown("a\\nb"), "a\nb");
  EXPECT_EQ(shown("a\\tb"), "a\tb");
  EXPECT_EQ(shown("say \\\"hi\\\""), "say \"hi\"");
}

TEST_F(TextTest, otherBackslashesAreDropped)
{
  EXPECT_EQ(shown("\\a\\\\b\\r"), "a\\br");
  EXPECT_EQ(shown("\\\\n"), "\\n");
  EXPECT_EQ(shown("\\\\\\n"), "\\\n");
}

TEST_F(TextTest, aBackslashAtTheEndEndsTheText)
{
  EXPECT_EQ(shown("text\\"), "text");
  EXPECT_EQ(shown("\\"), "");
}

TEST_F(TextTest, carriageReturnsAreDroppedAndRealLineFeedsKept)
{
  EXPECT_EQ(shown("a\r\nb\r"), "a\nb");
  EXPECT_EQ(shown("a\\\rb"), "a\rb");
  EXPECT_EQ(shown(""), "");
}

TEST_F(TextTest, textsOfElementsAreResolvedToo)
{
  EXPECT_EQ(SoQuillform::convertToCString("a\\nb", node), SbString("a\nb"));
}

TEST_F(TextTest, theBackConversionIsAlwaysEmpty)
{
  EXPECT_EQ(SoQuillform::convertFromCString("a\nb", 0), SbString(""));
  EXPECT_EQ(SoQuillform::convertFromCString("a\nb", 1), SbString(""));
}

TEST_F(TextTest, lineFeedsAreCounted)
{
  EXPECT_EQ(SoQuillform::getNumLines(""), 0);
  EXPECT_EQ(SoQuillform::getNumLines("one"), 0);
  EXPECT_EQ(SoQuillform::getNumLines("one\ntwo\n"), 2);
  EXPECT_EQ(SoQuillform::getNumLines("one\\ntwo"), 0);
}

TEST_F(TextTest, anEmptyTextTakesNoRoom)
{
  EXPECT_EQ(SoQuillform::getLabelPixelSize("", nullptr), SbVec2i32(0, 0));
  EXPECT_EQ(SoQuillform::getLabelPixelSize("", node), SbVec2i32(0, 0));
}

TEST_F(TextTest, aTextThatShowsNothingStillTakesALine)
{
  EXPECT_EQ(SoQuillform::getLabelPixelSize("\\", node), SbVec2i32(3, lineHeight() + 3));
  EXPECT_EQ(SoQuillform::getLabelPixelSize("\r", node), SbVec2i32(3, lineHeight() + 3));
}

TEST_F(TextTest, oneLineIsItsWidthAndHeightAndThree)
{
  EXPECT_EQ(SoQuillform::getLabelPixelSize("Hello", node), SbVec2i32(widthOf("Hello") + 3, lineHeight() + 3));
}

TEST_F(TextTest, severalLinesAreTheWidestAndTheSumOfHeights)
{
  const SbVec2i32 expected(widthOf("the longest line") + 3, lineHeight() * 3 + 3);
  EXPECT_EQ(SoQuillform::getLabelPixelSize("one\nthe longest line\ntwo", nullptr), expected);
  EXPECT_EQ(SoQuillform::getLabelPixelSize("one\\nthe longest line\\ntwo", node), expected);
}

TEST_F(TextTest, aTrailingLineFeedCountsAsALine)
{
  EXPECT_EQ(SoQuillform::getLabelPixelSize("one\\n", node), SbVec2i32(widthOf("one") + 3, lineHeight() * 2 + 3));
}

TEST_F(TextTest, latin1IsMeasuredAsOneCharacterEach)
{
  EXPECT_EQ(SoQuillform::getLabelPixelSize("\xC4\xD6", node)[0], widthOf("\xC4\xD6") + 3);
}

TEST_F(TextTest, anotherFontMeasuresAnew)
{
  const SbVec2i32 before = SoQuillform::getLabelPixelSize("Hello", node);
  SoQuillform::setFont(QFont("DejaVu Sans", 30));
  const SbVec2i32 after = SoQuillform::getLabelPixelSize("Hello", node);
  EXPECT_GT(after[0], before[0]);
  EXPECT_EQ(after, SbVec2i32(widthOf("Hello") + 3, lineHeight() + 3));
}

TEST_F(TextTest, aComboBoxMeasuresAndShowsItsBackslashes)
{
  const SoType type = SoType::fromName("DialogComboBox");
  if (type == SoType::badType()) {
    GTEST_SKIP() << "no combo box is registered";
  }
  auto* box = static_cast<SoQuillform*>(type.createInstance());
  box->ref();
  EXPECT_EQ(SoQuillform::convertToCString("a\\nb", box), SbString("a\\nb"));
  EXPECT_EQ(SoQuillform::getLabelPixelSize("a\\nb", box), SbVec2i32(widthOf("a\\nb") + 3, lineHeight() + 3));
  box->unref();
}

TEST_F(TextTest, anEditTextOfOneLineMeasuresLineFeedsAsCharacters)
{
  const SoType type = SoType::fromName("DialogEditText");
  if (type == SoType::badType()) {
    GTEST_SKIP() << "no edit text is registered";
  }
  auto* edit = static_cast<SoQuillform*>(type.createInstance());
  edit->ref();
  auto* multiLine = static_cast<SoSFBool*>(edit->getField("multiLine"));
  multiLine->setValue(FALSE);
  EXPECT_EQ(SoQuillform::getLabelPixelSize("one\\ntwo", edit), SbVec2i32(widthOf("one\ntwo") + 3, lineHeight() + 3));
  multiLine->setValue(TRUE);
  EXPECT_EQ(SoQuillform::getLabelPixelSize("one\\ntwo", edit)[1], lineHeight() * 2 + 3);
  edit->unref();
}

TEST_F(TextTest, aTextIsSplitIntoTheLinesOfAText3)
{
  SoQuillform::setStringToText3(text3, "one\ntwo\n");
  EXPECT_EQ(lines(), (Lines{"one", "two", ""}));
}

TEST_F(TextTest, linesBeyondTheLastStay)
{
  setLines({"a", "b", "c"});
  SoQuillform::setStringToText3(text3, "x");
  EXPECT_EQ(lines(), (Lines{"x", "b", "c"}));
  SoQuillform::setStringToText3(text3, "");
  EXPECT_EQ(lines(), (Lines{"", "b", "c"}));
}

TEST_F(TextTest, text3HoldsUtf8)
{
  SoQuillform::setStringToText3(text3, "gr\xFC\xDF\ne\xE9");
  EXPECT_EQ(lines(), (Lines{"gr\xC3\xBC\xC3\x9F", "e\xC3\xA9"}));
}

TEST_F(TextTest, anInsertRepeatsTheCharacterAtThePosition)
{
  setLines({"abcd"});
  EXPECT_EQ(SoQuillform::insertTextTo3DText("X", text3, 0, 1), 0);
  EXPECT_EQ(lines(), Lines{"abXbcd"});
}

TEST_F(TextTest, anInsertAtTheFrontRepeatsTheFirstCharacter)
{
  setLines({"abc"});
  EXPECT_EQ(SoQuillform::insertTextTo3DText("XY", text3, 0, 0), 0);
  EXPECT_EQ(lines(), Lines{"aXYabc"});
}

TEST_F(TextTest, aPositionOfMinusOneAppends)
{
  setLines({"abc"});
  EXPECT_EQ(SoQuillform::insertTextTo3DText("X", text3, 0, -1), 0);
  EXPECT_EQ(lines(), Lines{"abcX"});
}

TEST_F(TextTest, aPositionPastTheEndAppends)
{
  setLines({"abc"});
  SoQuillform::insertTextTo3DText("X", text3, 0, 3);
  EXPECT_EQ(lines(), Lines{"abcX"});
  SoQuillform::insertTextTo3DText("Y", text3, 0, 1000);
  EXPECT_EQ(lines(), Lines{"abcXY"});
}

TEST_F(TextTest, positionsCountCharactersNotBytes)
{
  setLines({"\xC3\xA4\xC3\xB6\xC3\xBC"});
  SoQuillform::insertTextTo3DText("\xDF", text3, 0, 1);
  EXPECT_EQ(lines(), Lines{"\xC3\xA4\xC3\xB6\xC3\x9F\xC3\xB6\xC3\xBC"});
}

TEST_F(TextTest, anInsertBehindTheLastLineMakesALine)
{
  setLines({"a"});
  EXPECT_EQ(SoQuillform::insertTextTo3DText("X", text3, 1, 0), 1);
  EXPECT_EQ(lines(), (Lines{"a", "X"}));
  EXPECT_EQ(SoQuillform::insertTextTo3DText("Y", text3, 3, 0), 3);
  EXPECT_EQ(text3->string.getNum(), 4);
  EXPECT_EQ(text3->string[3], SbString("Y"));
}

TEST_F(TextTest, anInsertIntoNoLinesMakesTheFirst)
{
  text3->string.setNum(0);
  EXPECT_EQ(SoQuillform::insertTextTo3DText("X", text3, 0, -1), 0);
  EXPECT_EQ(lines(), Lines{"X"});
}

TEST_F(TextTest, anInsertInFrontOfTheFirstLineDoesNothing)
{
  setLines({"a"});
  EXPECT_EQ(SoQuillform::insertTextTo3DText("X", text3, -1, 0), -1);
  EXPECT_EQ(SoQuillform::insertTextTo3DText("\n", text3, -2, 0), -2);
  EXPECT_EQ(lines(), Lines{"a"});
}

TEST_F(TextTest, aLineFeedWithFiveLinesCopiesTwoPlacesDown)
{
  setLines({"0", "1", "2", "3", "4"});
  EXPECT_EQ(SoQuillform::insertTextTo3DText("\n", text3, 1, 0), 2);
  EXPECT_EQ(lines(), (Lines{"0", "1", "", "3", "2", "3"}));
}

TEST_F(TextTest, aLineFeedWithTwoLinesLosesTheSecond)
{
  setLines({"0", "1"});
  EXPECT_EQ(SoQuillform::insertTextTo3DText("\n", text3, 0, 0), 1);
  EXPECT_EQ(lines(), (Lines{"0", ""}));
}

TEST_F(TextTest, aLineFeedDropsTheInsertedCharacters)
{
  setLines({"0"});
  EXPECT_EQ(SoQuillform::insertTextTo3DText("lost\nlost", text3, 0, 0), 1);
  EXPECT_EQ(lines(), (Lines{"0", ""}));
}

TEST_F(TextTest, aLineThatFitsStaysAsItIs)
{
  setLines({"short", "other"});
  EXPECT_EQ(wrap(0, extentOf("short") + 1.0F), 0);
  EXPECT_EQ(lines(), (Lines{"short", "other"}));
}

TEST_F(TextTest, theCharacterThatOverflowsStandsOnBothSides)
{
  setLines({"MMMM", "next"});
  const float width = (extentOf("MM") + extentOf("MMM")) * 0.5F;
  EXPECT_EQ(wrap(0, width), 1);
  EXPECT_EQ(lines(), (Lines{"MMM", "MM", "next"}));
}

TEST_F(TextTest, aLongLineBecomesManyAndTheLastIsReturned)
{
  setLines({"MMMMMMMM"});
  const float width = (extentOf("MM") + extentOf("MMM")) * 0.5F;
  EXPECT_EQ(wrap(0, width), 3);
  EXPECT_EQ(lines(), (Lines{"MMM", "MMM", "MMM", "MM"}));
}

TEST_F(TextTest, anOverflowByTheLastCharacterRepeatsIt)
{
  setLines({"MMM"});
  EXPECT_EQ(wrap(0, (extentOf("MM") + extentOf("MMM")) * 0.5F), 1);
  EXPECT_EQ(lines(), (Lines{"MMM", "M"}));
}

TEST_F(TextTest, linesInFrontStay)
{
  setLines({"front", "MMMM"});
  EXPECT_EQ(wrap(1, (extentOf("MM") + extentOf("MMM")) * 0.5F), 2);
  EXPECT_EQ(lines(), (Lines{"front", "MMM", "MM"}));
}

TEST_F(TextTest, noRoomAtAllLeavesTheLine)
{
  for (const float width : {0.0F, -5.0F}) {
    setLines({"MMMM"});
    EXPECT_EQ(wrap(0, width), 0);
    EXPECT_EQ(lines(), Lines{"MMMM"});
  }
}

TEST_F(TextTest, anEmptyLineStays)
{
  setLines({""});
  EXPECT_EQ(wrap(0, 10.0F), 0);
  EXPECT_EQ(lines(), Lines{""});
}

TEST_F(TextTest, aLineThatIsNotThereStaysAway)
{
  setLines({"a"});
  EXPECT_EQ(wrap(1, 1.0F), 1);
  EXPECT_EQ(wrap(-1, 1.0F), -1);
  EXPECT_EQ(lines(), Lines{"a"});
}

TEST_F(TextTest, charactersWiderThanTheRoomStandAlone)
{
  setLines({"MMM"});
  EXPECT_EQ(wrap(0, extentOf("M") * 0.5F), 2);
  EXPECT_EQ(lines(), (Lines{"M", "M", "M"}));
}

TEST_F(TextTest, wrappingNeverCutsACharacter)
{
  setLines({"\xC3\x84\xC3\x84\xC3\x84\xC3\x84"});
  const float width = (extentOf("\xC3\x84\xC3\x84") + extentOf("\xC3\x84\xC3\x84\xC3\x84")) * 0.5F;
  EXPECT_EQ(wrap(0, width), 1);
  EXPECT_EQ(lines(), (Lines{"\xC3\x84\xC3\x84\xC3\x84", "\xC3\x84\xC3\x84"}));
}

TEST_F(TextTest, aThousandCharactersWrapWithoutEndingTheStack)
{
  setLines({std::string(1000, 'M')});
  const int last = wrap(0, extentOf("M") * 0.5F);
  EXPECT_EQ(last, 999);
  EXPECT_EQ(text3->string.getNum(), 1000);
}

TEST_F(TextTest, aLineOfSpacesEnds)
{
  setLines({std::string(50, ' ')});
  const int last = wrap(0, 5.0F);
  EXPECT_EQ(last, text3->string.getNum() - 1);
}

TEST_F(TextTest, theScratchNodesAreReleased)
{
  const int before = fonts->getRefCount();
  setLines({"MMMM"});
  wrap(0, extentOf("MM"));
  EXPECT_EQ(fonts->getRefCount(), before);
}
