#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/events/SoKeyboardEvent.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoText3.h>
#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTextEdit>
#include <Quillform/Quillform.h>
#include <functional>
#include <map>
#include <support/Messages.h>
#include <support/Scene.h>
#include <support/TestFiles.h>

namespace {

typedef std::vector<std::string> Strings;

/// Writes down the texts it hears of, and does what a test wants it to do.
struct Heard : SoDialogEditTextAuditor {
  void dialogEditText(SoDialogEditText* cpt) override
  {
    texts.emplace_back(cpt->editText.getValue().getString());
    if (react) {
      react(cpt);
    }
  }
  Strings texts;
  std::function<void(SoDialogEditText*)> react;
};

struct DialogHeard : SoDialogAuditor {
  void dialogEditText(SoDialogEditText* cpt) override
  {
    ids.emplace_back(cpt->auditorID.getValue().getString());
  }
  Strings ids;
};

QLineEdit* lineEditOf(SoDialogComponent* edit)
{
  return edit->getWidget()->findChild<QLineEdit*>("ZEPSoDialogQEditTextLineEditWidget");
}

QTextEdit* textEditOf(SoDialogComponent* edit)
{
  return edit->getWidget()->findChild<QTextEdit*>("ZEPSoDialogQEditTextMultiEditWidget");
}

SoNode* part(SoDialogEditText* edit, const char* name)
{
  return static_cast<SoSFNode*>(edit->getField(name))->getValue();
}

int shownChild(SoDialogEditText* edit, const char* name)
{
  return static_cast<SoSwitch*>(part(edit, name))->whichChild.getValue();
}

SoText3* textOf(SoDialogEditText* edit)
{
  SoSearchAction search;
  search.setType(SoText3::getClassTypeId());
  search.setSearchingAll(TRUE);
  search.apply(part(edit, "textSep"));
  return search.getPath() ? static_cast<SoText3*>(search.getPath()->getTail()) : nullptr;
}

/// The lines that the scene shows.
Strings linesOf(SoDialogEditText* edit)
{
  Strings lines;
  const SoText3* text = textOf(edit);
  for (int i = 0; i < text->string.getNum(); i++) {
    lines.emplace_back(text->string[i].getString());
  }
  return lines;
}

std::string joined(const Strings& pieces)
{
  std::string all;
  for (const std::string& piece : pieces) {
    all += piece;
  }
  return all;
}

/// The caret stands beside frame and text, below the same separator.
SoSwitch* caretOf(SoDialogEditText* edit)
{
  auto* group = static_cast<SoSeparator*>(part(edit, "editSep"));
  return static_cast<SoSwitch*>(group->getChild(group->getNumChildren() - 1));
}

/// The rectangle that a part takes in the scene, seen from the front.
SbBox3f extentOf(SoNode* node)
{
  SoGetBoundingBoxAction action(SbViewportRegion(100, 100));
  action.apply(node);
  return action.getBoundingBox();
}

} // namespace

class EditTextTest : public QuillformTest {
protected:
  ~EditTextTest() override
  {
    SoQuillform::setFont(m_font);
  }

  /// Loads a dialog with one edit text that has the fields \a fields.
  SoDialogEditText* make(const std::string& fields)
  {
    m_dialog = load("TopLevelDialog { DialogEditText { auditorID \"edit\" " + fields + " } }");
    return static_cast<SoDialogEditText*>(m_dialog->getChild(0));
  }

  /// The same, in a window.
  SoDialogEditText* open(const std::string& fields)
  {
    SoDialogEditText* edit = make(fields);
    m_dialog->buildDialog(nullptr, FALSE);
    m_dialog->show();
    return edit;
  }

  /// The same, in the scene.
  SoDialogEditText* open3D(const std::string& fields)
  {
    SoDialogEditText* edit = make(fields);
    m_scene.open(m_dialog);
    return edit;
  }

  /// A place in an element: pixels from the left and from the top of its rectangle.
  SbVec2s at(SoDialogComponent* element, int fromRight, int fromTop) const
  {
    const SbVec3f centre = element->get3DParentTranslation();
    const SbVec2i32& size = element->get3DSize();
    return m_scene.pixel(centre[0] + static_cast<float>(size[0]) * 0.5F - static_cast<float>(fromRight),
                         centre[1] + static_cast<float>(size[1]) * 0.5F - static_cast<float>(fromTop));
  }

  /// Presses on the text's frame.
  void startEditing(SoDialogEditText* edit)
  {
    m_scene.click(at(edit, 40, edit->get3DSize()[1] / 2));
  }

  bool key(SoKeyboardEvent::Key key, char printable = 0, bool shift = false, bool down = true)
  {
    m_scene.sendKey(key, down ? SoButtonEvent::DOWN : SoButtonEvent::UP, printable, shift);
    return m_scene.action().isHandled() != FALSE;
  }

  void type(const std::string& text)
  {
    for (const char c : text) {
      key(SoKeyboardEvent::A, c);
      key(SoKeyboardEvent::A, c, false, false);
    }
  }

  const QFont m_font = SoQuillform::getQuillformFont(); // for the tests that come after one that sets another
  SoTopLevelDialog* m_dialog = nullptr;
  Scene m_scene;
};

// The node

TEST_F(EditTextTest, theFieldsStandInTheirOrderWithTheirDefaults)
{
  auto* edit = new SoDialogEditText;
  edit->ref();
  SoFieldList fields;
  const int count = edit->getFields(fields);
  Strings names;
  for (int i = 0; i < count; i++) {
    SbName name;
    edit->getFieldName(fields[i], name);
    names.emplace_back(name.getString());
  }
  const auto first = std::find(names.begin(), names.end(), "editText");
  ASSERT_NE(first, names.end());
  EXPECT_EQ(Strings(first, first + 6),
            (Strings{"editText", "editable", "trigOnEnter", "isNumeric", "multiLine", "wrapLine"}));
  EXPECT_EQ(edit->editText.getValue(), "");
  EXPECT_TRUE(edit->editable.getValue());
  EXPECT_TRUE(edit->trigOnEnter.getValue());
  EXPECT_FALSE(edit->isNumeric.getValue());
  EXPECT_FALSE(edit->multiLine.getValue());
  EXPECT_TRUE(edit->wrapLine.getValue());
  EXPECT_NE(toText(edit).find("DialogEditText {\n\n}\n"), std::string::npos);
  edit->unref();
}

TEST_F(EditTextTest, theCatalogHasItsParts)
{
  struct Row {
    const char* name;
    const char* type;
    const char* parent;
    SbBool isPublic;
  };
  const Row rows[] = {
    {"labelSep", "Separator", "geomSwitch", FALSE},
    {"labelSwitch", "Switch", "labelSep", FALSE},
    {"labelProp", "Group", "labelSwitch", TRUE},
    {"scrollVSwitch", "Switch", "geomSwitch", FALSE},
    {"downSep", "Separator", "scrollVSwitch", FALSE},
    {"downSwitch", "Switch", "downSep", FALSE},
    {"downReleased", "Group", "downSwitch", TRUE},
    {"downPressed", "Group", "downSwitch", TRUE},
    {"upSep", "Separator", "scrollVSwitch", FALSE},
    {"upSwitch", "Switch", "upSep", FALSE},
    {"upReleased", "Group", "upSwitch", TRUE},
    {"upPressed", "Group", "upSwitch", TRUE},
    {"scrollVSep", "Separator", "scrollVSwitch", FALSE},
    {"scrollVBack", "Separator", "scrollVSep", TRUE},
    {"scrollVFrame", "Group", "scrollVBack", TRUE},
    {"cursorVSep", "Separator", "scrollVSep", FALSE},
    {"cursorVFrame", "Group", "cursorVSep", TRUE},
    {"scrollHSwitch", "Switch", "geomSwitch", FALSE},
    {"leftSep", "Separator", "scrollHSwitch", FALSE},
    {"leftSwitch", "Switch", "leftSep", FALSE},
    {"leftReleased", "Group", "leftSwitch", TRUE},
    {"leftPressed", "Group", "leftSwitch", TRUE},
    {"rightSep", "Separator", "scrollHSwitch", FALSE},
    {"rightSwitch", "Switch", "rightSep", FALSE},
    {"rightReleased", "Group", "rightSwitch", TRUE},
    {"rightPressed", "Group", "rightSwitch", TRUE},
    {"scrollHSep", "Separator", "scrollHSwitch", FALSE},
    {"scrollHBack", "Separator", "scrollHSep", TRUE},
    {"scrollHFrame", "Group", "scrollHBack", TRUE},
    {"cursorHSep", "Separator", "scrollHSep", FALSE},
    {"cursorHFrame", "Group", "cursorHSep", TRUE},
    {"editSep", "Separator", "geomSwitch", FALSE},
    {"frameSep", "Separator", "editSep", FALSE},
    {"frameSwitch", "Switch", "frameSep", FALSE},
    {"frame", "Group", "frameSwitch", TRUE},
    {"editFrame", "Group", "frameSwitch", TRUE},
    {"textSep", "Separator", "editSep", FALSE},
    {"textProp", "Group", "textSep", TRUE},
  };
  auto* edit = new SoDialogEditText;
  edit->ref();
  const SoNodekitCatalog* catalog = edit->getNodekitCatalog();
  std::map<std::string, std::string> last; // part of each parent that the table has named last
  for (const Row& row : rows) {
    ASSERT_NE(catalog->getPartNumber(row.name), SO_CATALOG_NAME_NOT_FOUND) << row.name;
    EXPECT_STREQ(catalog->getType(row.name).getName().getString(), row.type) << row.name;
    EXPECT_STREQ(catalog->getParentName(row.name).getString(), row.parent) << row.name;
    EXPECT_EQ(catalog->isPublic(row.name), row.isPublic) << row.name;
    std::string& before = last[row.parent];
    if (!before.empty()) {
      EXPECT_STREQ(catalog->getRightSiblingName(before.c_str()).getString(), row.name);
    }
    before = row.name;
  }
  auto* component = new SoDialogLabel;
  component->ref();
  constexpr int labelParts = 2;
  EXPECT_EQ(catalog->getNumEntries() - static_cast<int>(std::size(rows)),
            component->getNodekitCatalog()->getNumEntries() - labelParts);
  component->unref();
  edit->unref();
}

TEST_F(EditTextTest, aBuiltDialogIsWrittenAsItWasRead)
{
  SoDialogEditText* edit = open("label \"Name:\" editText \"a\\nb\" editable FALSE trigOnEnter FALSE isNumeric TRUE "
                                "multiLine TRUE wrapLine FALSE");
  m_scene.open(m_dialog);
  const std::string text = toText(edit);
  EXPECT_NE(text.find("DialogEditText {\n  label \"Name:\"\n  auditorID \"edit\"\n  editText \"a\\nb\"\n"
                      "  editable FALSE\n  trigOnEnter FALSE\n  isNumeric TRUE\n  multiLine TRUE\n  wrapLine FALSE\n"
                      "\n}\n"),
            std::string::npos)
    << text;
  SoNode* again = readText(text);
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(toText(again), text);
  SoNode* binary = throughBinary(edit);
  ASSERT_NE(binary, nullptr);
  EXPECT_EQ(toText(binary), text);
  again->unref();
  binary->unref();
}

// Sizes

TEST_F(EditTextTest, theInitialSizeIsThatOfTheTextWithItsMargins)
{
  auto* edit = new SoDialogEditText;
  edit->ref();
  EXPECT_EQ(edit->getComponentInitSize(), SbVec2i32(10, 12));
  edit->editText = "some text";
  EXPECT_EQ(edit->getComponentInitSize(), SbVec2i32(10, 12)); // until the sizes are reset
  edit->resetSize();
  const SbVec2i32 text = SoQuillform::getLabelPixelSize("some text", nullptr);
  EXPECT_EQ(edit->getComponentInitSize(), text + SbVec2i32(10, 12));
  edit->resetSize();
  edit->multiLine = TRUE;
  EXPECT_EQ(edit->getComponentInitSize(), text + SbVec2i32(34, 12));
  edit->resetSize();
  SbVec2i32 labelSize(20, 10);
  edit->setLabelSize(labelSize);
  edit->labelVisibility = FALSE;
  EXPECT_EQ(edit->getComponentInitSize(), text + SbVec2i32(14, 12));
  edit->unref();
}

TEST_F(EditTextTest, aTextOfOneLineIsMeasuredAsOneLine)
{
  auto* edit = new SoDialogEditText;
  edit->ref();
  const int one = SoQuillform::getLabelPixelSize("a", nullptr)[1];
  EXPECT_EQ(SoQuillform::getLabelPixelSize("a\nb\nc", edit)[1], one);
  edit->multiLine = TRUE;
  EXPECT_GT(SoQuillform::getLabelPixelSize("a\nb\nc", edit)[1], 2 * one);
  edit->unref();
}

TEST_F(EditTextTest, itsLabelHasTheHeightOfItsLinesAlsoAfterTheEditorWasChanged)
{
  SoTopLevelDialog* dialog =
    QuillformTest::open("TopLevelDialog { height 120 DialogEditText { label \"one\\ntwo\\nthree\" } }");
  auto* edit = static_cast<SoDialogEditText*>(dialog->getChild(0));
  const int one = SoQuillform::getLabelPixelSize("one", nullptr)[1];
  const int three = SoQuillform::getLabelPixelSize("one\ntwo\nthree", nullptr)[1];
  EXPECT_EQ(edit->getLabelWidget()->height(), one);
  edit->multiLine = TRUE;
  EXPECT_EQ(edit->getLabelWidget()->height(), three);
  edit->multiLine = FALSE;
  EXPECT_EQ(edit->getLabelWidget()->height(), one);
}

TEST_F(EditTextTest, theDefaultSizeGrowsItsMinimumByLabelAndText)
{
  auto* edit = new SoDialogEditText;
  edit->ref();
  SbVec2i32 labelSize(40, 10);
  edit->setLabelSize(labelSize);
  SbVec2i32 size(0, 0);
  SbVec2i32 min(0, 0);
  SbVec2i32 max(0, 0);
  edit->getDefaultSize(size, min, max);
  EXPECT_EQ(size, SbVec2i32(200, 28));
  EXPECT_EQ(min, SbVec2i32(25 + 40 + 2, 25));
  EXPECT_EQ(max, SbVec2i32(32767, 32767));
  edit->labelVisibility = FALSE;
  edit->multiLine = TRUE;
  edit->editText = "1\n2\n3\n4\n5";
  const SbVec2i32 natural = edit->getComponentInitSize();
  edit->getDefaultSize(size, min, max);
  EXPECT_EQ(min, SbVec2i32(25, natural[1]));
  EXPECT_GT(natural[1], 25);
  edit->unref();
}

// The window

TEST_F(EditTextTest, theWindowHasAnEditorOfOneLineBesideTheLabel)
{
  SoDialogEditText* edit = open("label \"Name:\" editText \"cube\"");
  QWidget* frame = edit->getWidget();
  EXPECT_EQ(frame->objectName(), "ZEPSoDialogQEditTextFrame");
  auto* label = frame->findChild<QLabel*>("ZEPSoDialogQEditTextLabelWidget");
  ASSERT_NE(label, nullptr);
  EXPECT_EQ(label->text(), "Name:");
  EXPECT_EQ(label->font().toString(), SoQuillform::getQuillformFont().toString());
  ASSERT_NE(lineEditOf(edit), nullptr);
  EXPECT_EQ(textEditOf(edit), nullptr);
  EXPECT_EQ(lineEditOf(edit)->text(), "cube");
  EXPECT_EQ(lineEditOf(edit)->font().toString(), SoQuillform::getQuillformFont().toString());
  const int labelWidth = edit->getLabelSize()[0];
  EXPECT_GT(labelWidth, 0);
  EXPECT_EQ(lineEditOf(edit)->x(), labelWidth + 5);
  EXPECT_EQ(lineEditOf(edit)->width(), edit->width.getValue() - 6 - labelWidth - 2);
  EXPECT_EQ(label->x(), 3);
  EXPECT_EQ(label->width(), labelWidth);
  edit->labelVisibility = FALSE;
  EXPECT_FALSE(label->isVisible());
  EXPECT_EQ(lineEditOf(edit)->x(), 3);
  EXPECT_EQ(lineEditOf(edit)->width(), edit->width.getValue() - 6);
}

TEST_F(EditTextTest, anEditorOfOneLineIsTwentyPixelsHighAndCentred)
{
  SoQuillform::setFont(QFont("DejaVu Sans", 5));
  SoDialogEditText* edit = open("editText \"small\" height 61 fixedHeight TRUE");
  ASSERT_LT(SoQuillform::getLabelPixelSize("small", edit)[1], 20);
  EXPECT_EQ(lineEditOf(edit)->height(), 20);
  EXPECT_EQ(lineEditOf(edit)->y(), (61 - 6 - 20) / 2 + 3);
}

TEST_F(EditTextTest, aLargeFontMakesTheEditorOfOneLineHigher)
{
  SoQuillform::setFont(QFont("DejaVu Sans", 24));
  SoDialogEditText* edit = open("editText \"large\" height 100");
  const int lineHeight = SoQuillform::getLabelPixelSize("large", edit)[1];
  ASSERT_GT(lineHeight, 20);
  EXPECT_EQ(lineEditOf(edit)->height(), lineHeight);
  EXPECT_EQ(lineEditOf(edit)->y(), (edit->height.getValue() - 6 - lineHeight) / 2 + 3);
}

TEST_F(EditTextTest, anEditorOfSeveralLinesFillsTheFrame)
{
  SoDialogEditText* edit = open("label \"Notes:\" editText \"one\\ntwo\" multiLine TRUE height 90");
  ASSERT_NE(textEditOf(edit), nullptr);
  EXPECT_EQ(lineEditOf(edit), nullptr);
  EXPECT_EQ(textEditOf(edit)->toPlainText(), "one\ntwo");
  EXPECT_EQ(textEditOf(edit)->font().toString(), SoQuillform::getQuillformFont().toString());
  const int labelWidth = edit->getLabelSize()[0];
  EXPECT_EQ(textEditOf(edit)->geometry(),
            QRect(labelWidth + 5, 3, edit->width.getValue() - 8 - labelWidth, edit->height.getValue() - 6));
}

TEST_F(EditTextTest, aTextOfOneLineIsShownAsItIsWritten)
{
  SoDialogEditText* edit = open("editText \"<b>C:\\new</b>\"");
  EXPECT_EQ(lineEditOf(edit)->text(), "<b>C:\\new</b>");
  m_scene.open(m_dialog);
  EXPECT_EQ(linesOf(edit), Strings{"<b>C:\\new</b>"});
}

TEST_F(EditTextTest, openingADialogRewritesNothing)
{
  Heard heard;
  SoDialogEditText* edit = make("multiLine TRUE trigOnEnter FALSE editText \"a\\tb\\nc\"");
  edit->addAuditor(&heard);
  m_dialog->buildDialog(nullptr, FALSE);
  m_dialog->show();
  settle();
  EXPECT_EQ(edit->editText.getValue(), "a\\tb\\nc");
  edit->editText = "d\\ne";
  EXPECT_EQ(textEditOf(edit)->toPlainText(), "d\ne");
  EXPECT_EQ(edit->editText.getValue(), "d\\ne");
  EXPECT_TRUE(heard.texts.empty());
}

TEST_F(EditTextTest, aVeryLongTextIsNotCut)
{
  const std::string longText(40000, 'x');
  SoDialogEditText* edit = open("width 200 fixedWidth TRUE editText \"" + longText + "\"");
  EXPECT_EQ(lineEditOf(edit)->text().size(), 40000);
  QTest::keyClick(lineEditOf(edit), Qt::Key_Y);
  EXPECT_EQ(edit->editText.getValue().getLength(), 40001);
}

TEST_F(EditTextTest, typingInOneLineWithTrigOnEnterCallsTheAuditorsAtEnterOnly)
{
  Heard heard;
  SoDialogEditText* edit = open("");
  edit->addAuditor(&heard);
  QTest::keyClicks(lineEditOf(edit), "ab");
  EXPECT_EQ(edit->editText.getValue(), "ab");
  EXPECT_TRUE(heard.texts.empty());
  QTest::keyClick(lineEditOf(edit), Qt::Key_Return);
  EXPECT_EQ(heard.texts, Strings{"ab"});
}

TEST_F(EditTextTest, typingWithoutTrigOnEnterCallsTheAuditorsForEveryKeyAndEnterOnceMore)
{
  Heard heard;
  SoDialogEditText* edit = open("trigOnEnter FALSE");
  edit->addAuditor(&heard);
  QTest::keyClicks(lineEditOf(edit), "ab");
  EXPECT_EQ(heard.texts, (Strings{"a", "ab"}));
  QTest::keyClick(lineEditOf(edit), Qt::Key_Return);
  EXPECT_EQ(heard.texts, (Strings{"a", "ab", "ab"}));
}

TEST_F(EditTextTest, returnInSeveralLinesBreaksTheLineAndCallsTheAuditorsOnce)
{
  Heard heard;
  SoDialogEditText* edit = open("multiLine TRUE");
  edit->addAuditor(&heard);
  QTest::keyClicks(textEditOf(edit), "ab");
  EXPECT_TRUE(heard.texts.empty());
  QTest::keyClick(textEditOf(edit), Qt::Key_Return);
  EXPECT_EQ(heard.texts, Strings{"ab"}); // before the line break is inserted
  EXPECT_EQ(edit->editText.getValue(), "ab\n");
  EXPECT_EQ(textEditOf(edit)->toPlainText(), "ab\n");
  QTest::keyClick(textEditOf(edit), Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(heard.texts.size(), 2U);
  EXPECT_EQ(edit->editText.getValue(), "ab\n\n");
}

TEST_F(EditTextTest, anEditWithoutAuditorsReachesTheDialog)
{
  DialogHeard heard;
  SoDialogEditText* edit = open("");
  m_dialog->addAuditor(&heard);
  QTest::keyClicks(lineEditOf(edit), "x");
  QTest::keyClick(lineEditOf(edit), Qt::Key_Return);
  EXPECT_EQ(heard.ids, Strings{"edit"});
}

TEST_F(EditTextTest, auditorsOfItsOwnRunInOrderAndTheDialogHearsNothing)
{
  DialogHeard dialogHeard;
  Strings order;
  Heard first;
  Heard second;
  first.react = [&order](SoDialogEditText*) {
    order.emplace_back("first");
  };
  second.react = [&order](SoDialogEditText*) {
    order.emplace_back("second");
  };
  SoDialogEditText* edit = open("");
  m_dialog->addAuditor(&dialogHeard);
  edit->addAuditor(&first);
  edit->addAuditor(&second);
  QTest::keyClick(lineEditOf(edit), Qt::Key_Return);
  EXPECT_EQ(order, (Strings{"first", "second"}));
  EXPECT_TRUE(dialogHeard.ids.empty());
}

TEST_F(EditTextTest, anUnhandledEditIsTraced)
{
  SoDialogEditText* edit = open("label \"Name:\" editText \"cube\"");
  SoPreferences::setString("DEBUG_QUILLFORM_AUDITORS", "1");
  Messages messages;
  QTest::keyClick(lineEditOf(edit), Qt::Key_Return);
  SoPreferences::unset("DEBUG_QUILLFORM_AUDITORS");
  EXPECT_EQ(messages.count("WARNING ! The DialogAuditor does not define the SoDialogEditText component :"
                           "\n\t\t -> label = \"Name:\"\n\t\t -> editText = \"cube\""),
            1);
  EXPECT_EQ(messages.count("SoDialogAuditor::dialogEditText"), 1);
}

TEST_F(EditTextTest, isNumericChangesNothing)
{
  SoDialogEditText* edit = open("isNumeric TRUE");
  QTest::keyClicks(lineEditOf(edit), "letters 1");
  EXPECT_EQ(edit->editText.getValue(), "letters 1");
  m_scene.open(m_dialog);
  startEditing(edit);
  type("x");
  EXPECT_EQ(edit->editText.getValue(), "letters 1x");
}

TEST_F(EditTextTest, charactersOutsideLatin1DoNotSurvive)
{
  SoDialogEditText* edit = open("");
  lineEditOf(edit)->insert(QString::fromUtf8("\u00e9\u4e00"));
  EXPECT_EQ(edit->editText.getValue(), "\xe9?");
}

TEST_F(EditTextTest, wrapLineOfTheFileTakesEffectInTheWindowWhenItChanges)
{
  SoDialogEditText* edit = open("multiLine TRUE wrapLine FALSE");
  EXPECT_EQ(textEditOf(edit)->wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
  edit->wrapLine.touch();
  EXPECT_EQ(textEditOf(edit)->wordWrapMode(), QTextOption::NoWrap);
  edit->wrapLine = TRUE;
  EXPECT_EQ(textEditOf(edit)->wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

TEST_F(EditTextTest, wrapLineHasNoEffectOnAnEditorOfOneLine)
{
  SoDialogEditText* edit = open("editText \"one\"");
  edit->wrapLine = FALSE;
  EXPECT_EQ(lineEditOf(edit)->text(), "one");
}

TEST_F(EditTextTest, multiLineReplacesTheEditorAtTheSamePlace)
{
  SoDialogEditText* edit = open("label \"Name:\" editText \"kept\" editable FALSE enable FALSE height 70");
  QWidget* before = edit->getWidget();
  const QRect geometry = before->geometry();
  edit->multiLine = TRUE;
  QWidget* after = edit->getWidget();
  EXPECT_NE(after, before);
  EXPECT_EQ(after->size(), geometry.size());
  EXPECT_EQ(edit->getCell()->indexOf(after), 0);
  EXPECT_EQ(edit->getCell()->indexOf(before), -1);
  settle();
  EXPECT_EQ(after->geometry(), geometry);
  EXPECT_TRUE(after->isVisible());
  ASSERT_NE(textEditOf(edit), nullptr);
  EXPECT_EQ(textEditOf(edit)->toPlainText(), "kept");
  EXPECT_TRUE(textEditOf(edit)->isReadOnly());
  EXPECT_FALSE(textEditOf(edit)->isEnabled());
  EXPECT_EQ(after->findChild<QLabel*>("ZEPSoDialogQEditTextLabelWidget")->text(), "Name:");
  EXPECT_EQ(after->parentWidget()->findChildren<QFrame*>("ZEPSoDialogQEditTextFrame").size(), 1);
  edit->multiLine = FALSE;
  settle();
  ASSERT_NE(lineEditOf(edit), nullptr);
  EXPECT_EQ(lineEditOf(edit)->text(), "kept");
  EXPECT_EQ(edit->getWidget()->geometry(), geometry);
}

TEST_F(EditTextTest, multiLineMayChangeInsideACallback)
{
  Heard heard;
  heard.react = [](SoDialogEditText* edit) {
    edit->multiLine = !edit->multiLine.getValue();
  };
  SoDialogEditText* edit = open("trigOnEnter FALSE");
  edit->addAuditor(&heard);
  QTest::keyClick(lineEditOf(edit), Qt::Key_A);
  ASSERT_NE(textEditOf(edit), nullptr);
  EXPECT_EQ(textEditOf(edit)->toPlainText(), "a");
  QTest::keyClick(textEditOf(edit), Qt::Key_Return);
  settle();
  ASSERT_NE(lineEditOf(edit), nullptr);
  EXPECT_EQ(edit->editText.getValue(), "a"); // the line break went into the editor that is gone
  EXPECT_EQ(heard.texts.size(), 2U);
}

TEST_F(EditTextTest, fieldsSetByCodeReachTheWindowAndCallNobody)
{
  Heard heard;
  SoDialogEditText* edit = open("label \"old\" trigOnEnter FALSE");
  edit->addAuditor(&heard);
  edit->editText = "new";
  EXPECT_EQ(lineEditOf(edit)->text(), "new");
  edit->editable = FALSE;
  EXPECT_TRUE(lineEditOf(edit)->isReadOnly());
  edit->label = "Other:";
  EXPECT_EQ(qobject_cast<QLabel*>(edit->getLabelWidget())->text(), "Other:");
  edit->enable = FALSE;
  EXPECT_FALSE(lineEditOf(edit)->isEnabled());
  edit->labelAlignment = SoQuillform::LEFT;
  EXPECT_TRUE(qobject_cast<QLabel*>(edit->getLabelWidget())->alignment() & Qt::AlignLeft);
  edit->edgeStyle = SoDialogComponent::SHADOW_OUT;
  EXPECT_EQ(qobject_cast<QFrame*>(edit->getWidget())->frameShadow(), QFrame::Raised);
  EXPECT_TRUE(heard.texts.empty());
}

TEST_F(EditTextTest, textSetByAnAuditorWhileTheUserTypesDoesNotLoop)
{
  Heard heard;
  heard.react = [](SoDialogEditText* edit) {
    if (edit->editText.getValue() == "a") {
      edit->editText = "changed";
    }
  };
  SoDialogEditText* edit = open("trigOnEnter FALSE");
  edit->addAuditor(&heard);
  m_scene.open(m_dialog);
  QTest::keyClick(lineEditOf(edit), Qt::Key_A);
  EXPECT_EQ(heard.texts, Strings{"a"});
  EXPECT_EQ(edit->editText.getValue(), "changed");
  EXPECT_EQ(lineEditOf(edit)->text(), "changed");
  EXPECT_EQ(linesOf(edit), Strings{"changed"});
}

TEST_F(EditTextTest, theSameTextSetAgainLeavesTheUsersCursor)
{
  SoDialogEditText* edit = open("editText \"abc\"");
  lineEditOf(edit)->setCursorPosition(1);
  QTest::keyClick(lineEditOf(edit), Qt::Key_X);
  EXPECT_EQ(edit->editText.getValue(), "axbc");
  edit->editText = "axbc";
  EXPECT_EQ(lineEditOf(edit)->cursorPosition(), 2);
}

TEST_F(EditTextTest, setFocusGivesTheEditorTheKeyboard)
{
  SoDialogEditText* edit = open("");
  QApplication::setActiveWindow(edit->getWidget()->window());
  edit->setFocus();
  EXPECT_EQ(edit->getWidget()->window()->focusWidget(), lineEditOf(edit));
  edit->multiLine = TRUE;
  EXPECT_EQ(edit->getWidget()->window()->focusWidget(), textEditOf(edit));
}

TEST_F(EditTextTest, anAuditorMayRemoveTheElementOrEverything)
{
  for (const bool everything : {false, true}) {
    for (const std::string fields : {"trigOnEnter FALSE", "multiLine TRUE trigOnEnter FALSE"}) {
      Heard heard;
      heard.react = [this, everything](SoDialogEditText* edit) {
        everything ? m_dialog->removeAllChildren() : m_dialog->removeChild(edit);
      };
      SoDialogEditText* edit = open(fields);
      edit->addAuditor(&heard);
      QWidget* editor = lineEditOf(edit) ? static_cast<QWidget*>(lineEditOf(edit)) : textEditOf(edit);
      QTest::keyClick(editor, Qt::Key_Return);
      settle();
      EXPECT_EQ(heard.texts.size(), 1U);
      EXPECT_EQ(m_dialog->getNumChildren(), 0);
    }
  }
}

TEST_F(EditTextTest, anAuditorMayCloseTheDialog)
{
  Heard heard;
  heard.react = [this](SoDialogEditText*) {
    m_dialog->close();
  };
  SoDialogEditText* edit = open("");
  edit->addAuditor(&heard);
  QTest::keyClick(lineEditOf(edit), Qt::Key_Return);
  settle();
  EXPECT_EQ(heard.texts.size(), 1U);
}

TEST_F(EditTextTest, qtMayDestroyTheWidgets)
{
  SoDialogEditText* edit = open("editText \"kept\"");
  delete edit->getWidget();
  edit->editText = "changed";
  edit->editable = FALSE;
  edit->wrapLine = FALSE;
  edit->multiLine = TRUE;
  edit->labelVisibility = FALSE;
  edit->setFocus();
  edit->eventNotify(2, 0);
  EXPECT_EQ(edit->editText.getValue(), "changed");
}

TEST_F(EditTextTest, aRebuildKeepsTheEditor)
{
  SoDialogEditText* edit = open("editText \"kept\"");
  QLineEdit* editor = lineEditOf(edit);
  m_dialog->addChild(new SoDialogPushButton);
  EXPECT_EQ(lineEditOf(edit), editor);
  edit->destroyWidget();
  EXPECT_EQ(edit->getWidget(), nullptr);
  m_dialog->buildDialog(nullptr, FALSE);
  EXPECT_EQ(edit->editText.getValue(), "kept");
}

// The scene

TEST_F(EditTextTest, aPressOnTheFrameStartsEditing)
{
  SoDialogEditText* edit = open3D("label \"Name:\" editText \"cube\"");
  EXPECT_EQ(shownChild(edit, "frameSwitch"), 0);
  EXPECT_EQ(caretOf(edit)->whichChild.getValue(), SO_SWITCH_NONE);
  m_scene.press(at(edit, 40, 14));
  EXPECT_TRUE(edit->isEditing3D());
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), edit);
  EXPECT_EQ(shownChild(edit, "frameSwitch"), 1);
  EXPECT_EQ(caretOf(edit)->whichChild.getValue(), 0);
  m_scene.release(at(edit, 40, 14));
  EXPECT_TRUE(edit->isEditing3D());
  edit->finish3DEditing();
  EXPECT_EQ(shownChild(edit, "frameSwitch"), 0);
  EXPECT_EQ(caretOf(edit)->whichChild.getValue(), SO_SWITCH_NONE);
}

TEST_F(EditTextTest, aPressOnTheLabelStartsNothing)
{
  SoDialogEditText* edit = open3D("label \"A long label:\"");
  m_scene.click(at(edit, edit->get3DSize()[0] - 10, 14));
  EXPECT_FALSE(edit->isEditing3D());
}

TEST_F(EditTextTest, theFrameOfTheSceneIsTheEditorOfTheWindow)
{
  for (const std::string fields : {"label \"Name:\" editText \"x\" height 40",
                                   "multiLine TRUE height 80 label \"Notes:\"", "labelVisibility FALSE"}) {
    SoDialogEditText* edit = open(fields);
    m_scene.open(m_dialog);
    const QWidget* editor = lineEditOf(edit) ? static_cast<QWidget*>(lineEditOf(edit)) : textEditOf(edit);
    const SbBox3f box = extentOf(part(edit, "frameSep"));
    const SbVec2i32& size = edit->get3DSize();
    EXPECT_EQ(size, SbVec2i32(edit->getWidget()->width(), edit->getWidget()->height()));
    EXPECT_NEAR(box.getMin()[0] + static_cast<float>(size[0]) * 0.5F, editor->x(), 0.01);
    EXPECT_NEAR(static_cast<float>(size[1]) * 0.5F - box.getMax()[1], editor->y(), 0.01);
    EXPECT_NEAR(box.getMax()[0] - box.getMin()[0], editor->width(), 0.01);
    EXPECT_NEAR(box.getMax()[1] - box.getMin()[1], editor->height(), 0.01);
  }
}

TEST_F(EditTextTest, typingAppendsAndBackspaceTakesAway)
{
  Heard heard;
  SoDialogEditText* edit = open3D("editText \"cub\" trigOnEnter FALSE");
  edit->addAuditor(&heard);
  startEditing(edit);
  type("e");
  EXPECT_EQ(edit->editText.getValue(), "cube");
  EXPECT_EQ(linesOf(edit), Strings{"cube"});
  EXPECT_TRUE(key(SoKeyboardEvent::BACKSPACE));
  EXPECT_TRUE(key(SoKeyboardEvent::BACKSPACE));
  EXPECT_EQ(edit->editText.getValue(), "cu");
  EXPECT_EQ(linesOf(edit), Strings{"cu"});
  EXPECT_EQ(heard.texts, (Strings{"cube", "cub", "cu"}));
  edit->editText = "";
  key(SoKeyboardEvent::BACKSPACE);
  EXPECT_EQ(heard.texts.size(), 3U); // nothing has changed
}

TEST_F(EditTextTest, whatIsTypedInTheSceneIsShownInTheWindow)
{
  SoDialogEditText* edit = open("editText \"cub\"");
  m_scene.open(m_dialog);
  startEditing(edit);
  type("e");
  EXPECT_EQ(lineEditOf(edit)->text(), "cube");
  QTest::keyClick(lineEditOf(edit), Qt::Key_S);
  EXPECT_EQ(edit->editText.getValue(), "cubes");
  EXPECT_EQ(linesOf(edit), Strings{"cubes"});
}

TEST_F(EditTextTest, keysAreTakenOnlyWhileEditing)
{
  SoDialogEditText* edit = open3D("");
  EXPECT_FALSE(key(SoKeyboardEvent::A, 'a'));
  EXPECT_EQ(edit->editText.getValue(), "");
  startEditing(edit);
  EXPECT_TRUE(key(SoKeyboardEvent::A, 'a'));
  EXPECT_FALSE(key(SoKeyboardEvent::A, 'a', false, false)); // the release
  EXPECT_TRUE(key(SoKeyboardEvent::RETURN));
  EXPECT_FALSE(edit->isEditing3D());
  EXPECT_FALSE(key(SoKeyboardEvent::A, 'a'));
  EXPECT_EQ(edit->editText.getValue(), "a");
}

TEST_F(EditTextTest, theKeypadWritesDigitsAndThePeriod)
{
  SoDialogEditText* edit = open3D("");
  startEditing(edit);
  for (const auto pad : {SoKeyboardEvent::PAD_0, SoKeyboardEvent::PAD_1, SoKeyboardEvent::PAD_2, SoKeyboardEvent::PAD_3,
                         SoKeyboardEvent::PAD_4, SoKeyboardEvent::PAD_5, SoKeyboardEvent::PAD_6, SoKeyboardEvent::PAD_7,
                         SoKeyboardEvent::PAD_8, SoKeyboardEvent::PAD_9, SoKeyboardEvent::PAD_PERIOD}) {
    key(pad);
  }
  EXPECT_EQ(edit->editText.getValue(), "0123456789.");
}

TEST_F(EditTextTest, keysWithoutCharacterWriteNothing)
{
  SoDialogEditText* edit = open3D("editText \"x\"");
  startEditing(edit);
  for (const auto silent :
       {SoKeyboardEvent::LEFT_SHIFT, SoKeyboardEvent::RIGHT_CONTROL, SoKeyboardEvent::F1, SoKeyboardEvent::F12,
        SoKeyboardEvent::LEFT_ARROW, SoKeyboardEvent::HOME, SoKeyboardEvent::ESCAPE, SoKeyboardEvent::PAD_ENTER,
        SoKeyboardEvent::PAD_ADD, SoKeyboardEvent::PAD_SUBTRACT, SoKeyboardEvent::KEY_DELETE, SoKeyboardEvent::ANY}) {
    EXPECT_FALSE(key(silent)) << silent;
  }
  EXPECT_FALSE(key(SoKeyboardEvent::C, '\x03'));
  EXPECT_EQ(edit->editText.getValue(), "x");
  EXPECT_TRUE(edit->isEditing3D());
  key(SoKeyboardEvent::PERIOD);
  key(SoKeyboardEvent::A, '\xe9');
  EXPECT_EQ(edit->editText.getValue(), "x.\xe9");
  EXPECT_EQ(linesOf(edit), Strings{"x.\xc3\xa9"});
  key(SoKeyboardEvent::BACKSPACE);
  EXPECT_EQ(linesOf(edit), Strings{"x."});
}

TEST_F(EditTextTest, returnFinishesAndCallsTheAuditorsOnce)
{
  Heard heard;
  SoDialogEditText* edit = open3D("");
  edit->addAuditor(&heard);
  startEditing(edit);
  type("ab");
  EXPECT_TRUE(heard.texts.empty());
  key(SoKeyboardEvent::RETURN);
  EXPECT_EQ(heard.texts, Strings{"ab"});
  EXPECT_FALSE(edit->isEditing3D());
  edit->finish3DEditing();
  edit->set3DInactive();
  EXPECT_EQ(heard.texts.size(), 1U); // nobody is editing any more
}

TEST_F(EditTextTest, finishingWithoutTrigOnEnterCallsNobody)
{
  Heard heard;
  SoDialogEditText* edit = open3D("trigOnEnter FALSE");
  edit->addAuditor(&heard);
  startEditing(edit);
  key(SoKeyboardEvent::RETURN);
  EXPECT_FALSE(edit->isEditing3D());
  EXPECT_TRUE(heard.texts.empty());
}

TEST_F(EditTextTest, anotherActiveElementFinishesEditing)
{
  m_dialog = load("TopLevelDialog { DialogEditText { auditorID \"first\" } DialogEditText { auditorID \"second\" } "
                  "DialogPushButton { buttonLabel \"OK\" } }");
  DialogHeard heard;
  m_dialog->addAuditor(&heard);
  m_scene.open(m_dialog);
  auto* first = static_cast<SoDialogEditText*>(m_dialog->getChild(0));
  auto* second = static_cast<SoDialogEditText*>(m_dialog->getChild(1));
  startEditing(first);
  startEditing(first);
  EXPECT_TRUE(heard.ids.empty()); // the same element again finishes nothing
  startEditing(second);
  EXPECT_EQ(heard.ids, Strings{"first"});
  EXPECT_FALSE(first->isEditing3D());
  EXPECT_TRUE(second->isEditing3D());
  type("x");
  EXPECT_EQ(first->editText.getValue(), "");
  EXPECT_EQ(second->editText.getValue(), "x");
  m_scene.press(m_scene.centre(static_cast<SoDialogComponent*>(m_dialog->getChild(2))));
  EXPECT_EQ(heard.ids, (Strings{"first", "second"}));
  EXPECT_FALSE(second->isEditing3D());
}

TEST_F(EditTextTest, returnWithShiftBeginsANewLine)
{
  SoDialogEditText* edit = open3D("multiLine TRUE editText \"one\" height 80");
  startEditing(edit);
  EXPECT_TRUE(key(SoKeyboardEvent::RETURN, 0, true));
  EXPECT_TRUE(edit->isEditing3D());
  EXPECT_EQ(edit->editText.getValue(), "one\n");
  EXPECT_EQ(linesOf(edit), (Strings{"one", ""}));
  type("two");
  key(SoKeyboardEvent::RETURN, 0, true);
  type("3");
  EXPECT_EQ(edit->editText.getValue(), "one\ntwo\n3");
  EXPECT_EQ(linesOf(edit), (Strings{"one", "two", "3"}));
  key(SoKeyboardEvent::BACKSPACE);
  key(SoKeyboardEvent::BACKSPACE);
  EXPECT_EQ(edit->editText.getValue(), "one\ntwo");
  EXPECT_EQ(linesOf(edit), (Strings{"one", "two"}));
}

TEST_F(EditTextTest, backspaceTakesAnEscapeAwayAsOneCharacter)
{
  SoDialogEditText* edit = open3D("multiLine TRUE editText \"one\\n\" height 80");
  EXPECT_EQ(edit->editText.getValue(), "one\\n");
  startEditing(edit);
  EXPECT_EQ(linesOf(edit), (Strings{"one", ""}));
  key(SoKeyboardEvent::BACKSPACE);
  EXPECT_EQ(edit->editText.getValue(), "one");
  EXPECT_EQ(linesOf(edit), Strings{"one"});
  edit->multiLine = FALSE;
  edit->editText = "one\\n";
  key(SoKeyboardEvent::BACKSPACE);
  EXPECT_EQ(edit->editText.getValue(), "one\\");
}

TEST_F(EditTextTest, theLinesShownAreThoseOfTheTextAfterEveryKey)
{
  SoDialogEditText* edit = open3D("multiLine TRUE width 140 height 160");
  startEditing(edit);
  const std::string words = "some words and averyverylongwordthatfitsnowhere at all";
  for (std::size_t i = 0; i < words.size(); i++) {
    type(words.substr(i, 1));
    EXPECT_EQ(joined(linesOf(edit)), words.substr(0, i + 1));
  }
  const Strings typed = linesOf(edit);
  EXPECT_GT(typed.size(), 2U);
  EXPECT_EQ(typed[0].back(), ' '); // broken at a blank where that is possible
  edit->editText.touch();
  EXPECT_EQ(linesOf(edit), typed);
  const SbBox3f text = extentOf(part(edit, "textSep"));
  const SbBox3f frame = extentOf(part(edit, "frameSep"));
  EXPECT_LE(text.getMax()[0], frame.getMax()[0] - 14.0F);
  for (std::size_t i = words.size(); i > 0; i--) {
    key(SoKeyboardEvent::BACKSPACE);
    EXPECT_EQ(joined(linesOf(edit)), words.substr(0, i - 1));
  }
}

TEST_F(EditTextTest, aLongLineShowsItsBeginningAndWhileEditingItsEnd)
{
  const std::string text = "The quick brown fox jumps over the lazy dog and runs away into the forest";
  SoDialogEditText* edit = open3D("width 200 fixedWidth TRUE editText \"" + text + "\"");
  const Strings before = linesOf(edit);
  ASSERT_EQ(before.size(), 1U);
  EXPECT_GT(before[0].size(), 10U);
  EXPECT_LT(before[0].size(), text.size());
  EXPECT_EQ(text.find(before[0]), 0U);
  startEditing(edit);
  type("XYZ");
  const std::string shown = linesOf(edit)[0];
  const std::string all = text + "XYZ";
  EXPECT_EQ(all.rfind(shown), all.size() - shown.size());
  const SbBox3f frame = extentOf(part(edit, "frameSep"));
  const SbBox3f textBox = extentOf(part(edit, "textSep"));
  const SbBox3f caret = extentOf(caretOf(edit));
  EXPECT_LE(textBox.getMax()[0], frame.getMax()[0]);
  EXPECT_GE(textBox.getMin()[0], frame.getMin()[0]);
  EXPECT_GE(caret.getMin()[0], textBox.getMax()[0]);
  EXPECT_LE(caret.getMax()[0], frame.getMax()[0]);
  key(SoKeyboardEvent::RETURN);
  EXPECT_EQ(linesOf(edit), before);
}

TEST_F(EditTextTest, theCaretFollowsBlanksToo)
{
  SoDialogEditText* edit = open3D("editText \"x\"");
  startEditing(edit);
  const float before = extentOf(caretOf(edit)).getMin()[0];
  type(" ");
  EXPECT_GT(extentOf(caretOf(edit)).getMin()[0], before + 1.0F);
}

TEST_F(EditTextTest, aVeryLongParagraphIsWrapped)
{
  std::string text;
  for (int i = 0; i < 3000; i++) {
    text += "word" + std::to_string(i) + " ";
  }
  SoDialogEditText* edit =
    open3D("multiLine TRUE width 300 fixedWidth TRUE height 100 minHeight 100 maxHeight 100 editText \"" + text + "\"");
  const std::string beginning = joined(linesOf(edit));
  EXPECT_EQ(text.find(beginning), 0U);
  EXPECT_GT(linesOf(edit).size(), 3U);
  startEditing(edit);
  type("end");
  const std::string end = joined(linesOf(edit));
  EXPECT_EQ((text + "end").rfind(end), text.size() + 3 - end.size());
  EXPECT_LE(extentOf(part(edit, "textSep")).getMax()[0], extentOf(part(edit, "frameSep")).getMax()[0] - 14.0F);
}

TEST_F(EditTextTest, anEditInAGroupHearsTheKeysToo)
{
  m_dialog = load("TopLevelDialog { RowDialog { ColumnDialog { DialogEditText { auditorID \"edit\" } } "
                  "DialogEditText { } } }");
  m_scene.open(m_dialog);
  auto* edit = static_cast<SoDialogEditText*>(m_dialog->searchForAuditorId("edit"));
  startEditing(edit);
  type("ab");
  EXPECT_EQ(edit->editText.getValue(), "ab");
}

TEST_F(EditTextTest, aReadOnlyTextCannotBeEditedInTheScene)
{
  SoDialogEditText* edit = open3D("editText \"x\" editable FALSE");
  startEditing(edit);
  EXPECT_FALSE(edit->isEditing3D());
  type("y");
  EXPECT_EQ(edit->editText.getValue(), "x");
  edit->editable = TRUE;
  startEditing(edit);
  EXPECT_TRUE(edit->isEditing3D());
  edit->editable = FALSE;
  EXPECT_FALSE(edit->isEditing3D());
}

TEST_F(EditTextTest, aDisabledTextCannotBeEditedInTheScene)
{
  Heard heard;
  SoDialogEditText* edit = open3D("editText \"x\" enable FALSE");
  edit->addAuditor(&heard);
  startEditing(edit);
  EXPECT_FALSE(edit->isEditing3D());
  edit->enable = TRUE;
  startEditing(edit);
  ASSERT_TRUE(edit->isEditing3D());
  edit->enable = FALSE;
  EXPECT_FALSE(edit->isEditing3D());
  EXPECT_EQ(shownChild(edit, "frameSwitch"), 0);
  EXPECT_TRUE(heard.texts.empty()); // code has ended it
}

TEST_F(EditTextTest, aHiddenTextIsNotEdited)
{
  SoDialogEditText* edit = open3D("");
  startEditing(edit);
  edit->show3D(0);
  EXPECT_FALSE(edit->isEditing3D());
  EXPECT_FALSE(key(SoKeyboardEvent::A, 'a'));
}

TEST_F(EditTextTest, fieldsSetByCodeReachTheSceneAndCallNobody)
{
  Heard heard;
  SoDialogEditText* edit = open3D("editText \"one two\" trigOnEnter FALSE height 60 width 200");
  edit->addAuditor(&heard);
  edit->editText = "a\\nb";
  EXPECT_EQ(linesOf(edit), Strings{"a\\nb"});
  edit->multiLine = TRUE;
  EXPECT_EQ(linesOf(edit), (Strings{"a", "b"}));
  edit->editText = "first\n\rsecond \xe9\tx";
  EXPECT_EQ(linesOf(edit), (Strings{"first", "second \xc3\xa9 x"}));
  edit->editText = "a line that is much too long for a frame that is two hundred pixels wide";
  EXPECT_GT(linesOf(edit).size(), 1U);
  edit->wrapLine = FALSE;
  EXPECT_EQ(linesOf(edit).size(), 1U);
  edit->editText = "";
  EXPECT_EQ(joined(linesOf(edit)), "");
  EXPECT_TRUE(heard.texts.empty());
}

TEST_F(EditTextTest, theLabelOfTheSceneCanBeHidden)
{
  SoDialogEditText* edit = open3D("label \"Name:\"");
  const SbBox3f before = extentOf(part(edit, "frameSep"));
  edit->labelVisibility = FALSE;
  EXPECT_EQ(shownChild(edit, "labelSwitch"), SO_SWITCH_NONE);
  EXPECT_LT(extentOf(part(edit, "frameSep")).getMin()[0], before.getMin()[0]);
}

// Scroll bars of the scene

class EditTextScrollTest : public EditTextTest {
protected:
  SoDialogEditText* openLines(const std::string& fields = "")
  {
    return open3D(
      "multiLine TRUE labelVisibility FALSE width 200 fixedWidth TRUE height 100 minHeight 100 maxHeight 100 "
      "editText \"1\\n2\\n3\\n4\\n5\\n6\\n7\\n8\\n9\\n10\\n11\\n12\" " +
      fields);
  }

  SbVec2s upButton(SoDialogEditText* edit) const
  {
    return at(edit, 10, 10);
  }

  SbVec2s downButton(SoDialogEditText* edit) const
  {
    return at(edit, 10, edit->get3DSize()[1] - 10);
  }
};

TEST_F(EditTextScrollTest, theBarsAreShownForTextsThatNeedThem)
{
  SoDialogEditText* edit = open3D("multiLine TRUE width 200 height 60 editText \"short\"");
  EXPECT_EQ(shownChild(edit, "scrollVSwitch"), SO_SWITCH_NONE);
  EXPECT_EQ(shownChild(edit, "scrollHSwitch"), SO_SWITCH_NONE);
  edit->editText = "1\n2\n3\n4\n5\n6\n7";
  EXPECT_EQ(shownChild(edit, "scrollVSwitch"), SO_SWITCH_ALL);
  EXPECT_EQ(shownChild(edit, "scrollHSwitch"), SO_SWITCH_NONE);
  edit->wrapLine = FALSE;
  edit->editText = "a line that is much too long for a frame that is two hundred pixels wide";
  EXPECT_EQ(shownChild(edit, "scrollVSwitch"), SO_SWITCH_NONE);
  EXPECT_EQ(shownChild(edit, "scrollHSwitch"), SO_SWITCH_ALL);
  edit->multiLine = FALSE;
  EXPECT_EQ(shownChild(edit, "scrollHSwitch"), SO_SWITCH_NONE);
}

TEST_F(EditTextScrollTest, onlyTheLinesThatFitAreShown)
{
  SoDialogEditText* edit = openLines();
  const Strings lines = linesOf(edit);
  EXPECT_GT(lines.size(), 3U);
  EXPECT_LT(lines.size(), 12U);
  EXPECT_EQ(lines[0], "1");
  const SbBox3f text = extentOf(part(edit, "textSep"));
  const SbBox3f frame = extentOf(part(edit, "frameSep"));
  EXPECT_GE(text.getMin()[1], frame.getMin()[1]);
  EXPECT_LE(text.getMax()[1], frame.getMax()[1]);
}

TEST_F(EditTextScrollTest, theButtonsScrollByALineAtTheRelease)
{
  Heard heard;
  SoDialogEditText* edit = openLines();
  edit->addAuditor(&heard);
  m_scene.press(downButton(edit));
  EXPECT_EQ(shownChild(edit, "downSwitch"), 1);
  EXPECT_EQ(shownChild(edit, "upSwitch"), 0);
  EXPECT_EQ(linesOf(edit)[0], "1");
  m_scene.release(downButton(edit));
  EXPECT_EQ(shownChild(edit, "downSwitch"), 0);
  EXPECT_EQ(linesOf(edit)[0], "2");
  m_scene.click(downButton(edit));
  EXPECT_EQ(linesOf(edit)[0], "3");
  m_scene.press(upButton(edit));
  EXPECT_EQ(shownChild(edit, "upSwitch"), 1);
  m_scene.release(upButton(edit));
  EXPECT_EQ(linesOf(edit)[0], "2");
  m_scene.click(upButton(edit));
  m_scene.click(upButton(edit));
  EXPECT_EQ(linesOf(edit)[0], "1"); // not beyond the beginning
  EXPECT_FALSE(edit->isEditing3D());
  EXPECT_TRUE(heard.texts.empty());
}

TEST_F(EditTextScrollTest, aButtonReleasedElsewhereScrollsNothing)
{
  SoDialogEditText* edit = openLines();
  m_scene.press(downButton(edit));
  m_scene.move(at(edit, 100, 50));
  m_scene.release(at(edit, 100, 50));
  EXPECT_EQ(shownChild(edit, "downSwitch"), 0);
  EXPECT_EQ(linesOf(edit)[0], "1");
  EXPECT_FALSE(edit->isEditing3D());
}

TEST_F(EditTextScrollTest, scrollingEndsAtTheLastLine)
{
  SoDialogEditText* edit = openLines();
  for (int i = 0; i < 20; i++) {
    m_scene.click(downButton(edit));
  }
  EXPECT_EQ(linesOf(edit).back(), "12");
  EXPECT_NE(linesOf(edit).front(), "12");
  edit->move3DCursor(10000.0F);
  EXPECT_EQ(linesOf(edit).front(), "1");
  edit->move3DCursor(-10000.0F);
  EXPECT_EQ(linesOf(edit).back(), "12");
}

TEST_F(EditTextScrollTest, draggingTheCursorScrolls)
{
  SoDialogEditText* edit = openLines();
  m_scene.press(at(edit, 10, 22));
  m_scene.move(at(edit, 10, 30));
  m_scene.move(at(edit, 10, 200));
  EXPECT_EQ(linesOf(edit).back(), "12");
  m_scene.move(at(edit, 10, 22));
  EXPECT_EQ(linesOf(edit).front(), "1");
  m_scene.move(at(edit, 10, 40));
  m_scene.release(at(edit, 10, 40));
  EXPECT_NE(linesOf(edit).front(), "1");
  EXPECT_NE(linesOf(edit).back(), "12");
  const Strings left = linesOf(edit);
  m_scene.move(at(edit, 10, 22));
  EXPECT_EQ(linesOf(edit), left); // the pointer holds it no more
}

TEST_F(EditTextScrollTest, aPressBesideTheCursorScrollsByAPage)
{
  SoDialogEditText* edit = openLines();
  const std::size_t page = linesOf(edit).size();
  m_scene.click(at(edit, 10, edit->get3DSize()[1] - 22));
  EXPECT_EQ(linesOf(edit).front(), std::to_string(std::min(page + 1, 13 - page)));
  m_scene.click(at(edit, 10, 20));
  EXPECT_EQ(linesOf(edit).front(), "1");
}

TEST_F(EditTextScrollTest, editingScrollsToTheEndAndKeysKeepItThere)
{
  SoDialogEditText* edit = openLines();
  startEditing(edit);
  EXPECT_EQ(linesOf(edit).back(), "12");
  EXPECT_EQ(caretOf(edit)->whichChild.getValue(), 0);
  for (int i = 0; i < 3; i++) {
    m_scene.click(upButton(edit));
  }
  EXPECT_EQ(linesOf(edit).back(), "9");
  EXPECT_EQ(caretOf(edit)->whichChild.getValue(), SO_SWITCH_NONE); // it is out of sight
  EXPECT_TRUE(edit->isEditing3D());
  key(SoKeyboardEvent::RETURN, 0, true);
  type("13");
  EXPECT_EQ(linesOf(edit).back(), "13");
  EXPECT_EQ(caretOf(edit)->whichChild.getValue(), 0);
  key(SoKeyboardEvent::BACKSPACE);
  key(SoKeyboardEvent::BACKSPACE);
  key(SoKeyboardEvent::BACKSPACE);
  EXPECT_EQ(linesOf(edit).back(), "12");
}

TEST_F(EditTextScrollTest, aReadOnlyTextCanBeScrolled)
{
  SoDialogEditText* edit = openLines("editable FALSE");
  m_scene.click(downButton(edit));
  EXPECT_EQ(linesOf(edit)[0], "2");
}

TEST_F(EditTextScrollTest, aWideTextScrollsSideways)
{
  const std::string text = "a line that is much too long for a frame that is two hundred pixels wide";
  SoDialogEditText* edit =
    open3D("multiLine TRUE wrapLine FALSE labelVisibility FALSE width 200 fixedWidth TRUE height "
           "80 editText \"" +
           text + "\"");
  EXPECT_EQ(text.find(linesOf(edit)[0]), 0U);
  const SbVec2s right = at(edit, 10, edit->get3DSize()[1] - 10);
  m_scene.press(right);
  EXPECT_EQ(shownChild(edit, "rightSwitch"), 1);
  m_scene.release(right);
  EXPECT_EQ(shownChild(edit, "rightSwitch"), 0);
  EXPECT_GT(text.find(linesOf(edit)[0]), 0U);
  for (int i = 0; i < 50; i++) {
    m_scene.click(right);
  }
  const std::string end = linesOf(edit)[0];
  EXPECT_EQ(text.rfind(end), text.size() - end.size());
  EXPECT_LE(extentOf(part(edit, "textSep")).getMax()[0], extentOf(part(edit, "frameSep")).getMax()[0]);
  m_scene.click(at(edit, 190, edit->get3DSize()[1] - 10));
  EXPECT_NE(linesOf(edit)[0], end);
  startEditing(edit);
  EXPECT_EQ(linesOf(edit)[0], end);
  type("!");
  EXPECT_EQ(linesOf(edit)[0].back(), '!');
}

// Auditors in the scene

TEST_F(EditTextTest, anAuditorMayRemoveTheElementWhileItIsTypedIn)
{
  for (const bool everything : {false, true}) {
    Heard heard;
    heard.react = [this, everything](SoDialogEditText* edit) {
      everything ? m_dialog->removeAllChildren() : m_dialog->removeChild(edit);
    };
    SoDialogEditText* edit = open3D("trigOnEnter FALSE");
    edit->addAuditor(&heard);
    startEditing(edit);
    type("a");
    EXPECT_EQ(heard.texts, Strings{"a"});
    EXPECT_EQ(m_dialog->getNumChildren(), 0);
    EXPECT_FALSE(key(SoKeyboardEvent::A, 'b'));
    m_scene.root()->removeChild(m_dialog);
  }
}

TEST_F(EditTextTest, anAuditorMayRemoveTheElementWhenEditingIsFinished)
{
  m_dialog = load("TopLevelDialog { DialogEditText { } DialogEditText { } }");
  Heard heard;
  heard.react = [this](SoDialogEditText* edit) {
    m_dialog->removeChild(edit);
  };
  auto* first = static_cast<SoDialogEditText*>(m_dialog->getChild(0));
  auto* second = static_cast<SoDialogEditText*>(m_dialog->getChild(1));
  first->addAuditor(&heard);
  m_scene.open(m_dialog);
  startEditing(first);
  startEditing(second);
  EXPECT_EQ(heard.texts.size(), 1U);
  EXPECT_EQ(m_dialog->getNumChildren(), 1);
  EXPECT_TRUE(second->isEditing3D());
}

TEST_F(EditTextTest, anAuditorMayForbidTheEditingThatIsAboutToStart)
{
  m_dialog = load("TopLevelDialog { DialogEditText { } DialogEditText { } }");
  auto* first = static_cast<SoDialogEditText*>(m_dialog->getChild(0));
  auto* second = static_cast<SoDialogEditText*>(m_dialog->getChild(1));
  Heard heard;
  heard.react = [second](SoDialogEditText*) {
    second->enable = FALSE;
  };
  first->addAuditor(&heard);
  m_scene.open(m_dialog);
  startEditing(first);
  startEditing(second);
  EXPECT_EQ(heard.texts.size(), 1U);
  EXPECT_FALSE(second->isEditing3D());
}

TEST_F(EditTextTest, anAuditorMayChangeTheTextThatIsTyped)
{
  Heard heard;
  heard.react = [](SoDialogEditText* edit) {
    edit->editText = "vetoed";
  };
  SoDialogEditText* edit = open("trigOnEnter FALSE");
  edit->addAuditor(&heard);
  m_scene.open(m_dialog);
  startEditing(edit);
  type("a");
  EXPECT_EQ(heard.texts, Strings{"a"});
  EXPECT_EQ(edit->editText.getValue(), "vetoed");
  EXPECT_EQ(lineEditOf(edit)->text(), "vetoed");
  EXPECT_EQ(linesOf(edit), Strings{"vetoed"});
}

TEST_F(EditTextTest, aTextThatIsEditedMayBeReleased)
{
  SoDialogEditText* edit = open3D("");
  startEditing(edit);
  ASSERT_EQ(SoQuillform::get3DCurrentActive(), edit);
  m_dialog->removeChild(edit);
  EXPECT_EQ(SoQuillform::get3DCurrentActive(), nullptr);
}

TEST_F(EditTextTest, itCanBeUsedWithoutAnyForm)
{
  auto* edit = new SoDialogEditText;
  edit->ref();
  edit->createEditTextWidget();
  edit->updateEditTextWidget();
  edit->move3DCaret(1, 1);
  edit->move3DCursor(5.0F);
  edit->finish3DEditing();
  edit->set3DInactive();
  edit->change3DEditText();
  edit->insertCharTo3DText('a');
  edit->insertCharTo3DText('b');
  edit->removeCharIn3DText();
  EXPECT_EQ(edit->editText.getValue(), "a");
  edit->unref();
}

TEST_F(EditTextTest, aSwitchOfSkinsReachesATextThatIsEdited)
{
  SoDialogEditText* edit = open3D("editText \"kept\"");
  startEditing(edit);
  SoQuillform::setSkin("dark");
  EXPECT_EQ(linesOf(edit), Strings{"kept"});
  EXPECT_TRUE(edit->isEditing3D());
  type("!");
  EXPECT_EQ(linesOf(edit), Strings{"kept!"});
}
