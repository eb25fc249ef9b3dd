#include "Program.h"

#include <QDir>

class FileTest : public ProgramTest {
protected:
  /// Expects every way of opening the file to fail with the same sentence.
  void expectFault(const QString& name, const QStringList& parts) const
  {
    const QStringList ways[] = {{"--check"}, {"--dump"}, {"--screenshot", "x.png"}, {"--scene"}, {}};
    for (const QStringList& way : ways) {
      SCOPED_TRACE((way.join(' ') + ' ' + name).toStdString());
      expectFailure(run(way + QStringList{name}), 2, QStringList{'"' + name + '"'} + parts);
    }
  }

  void expectFaultAt(int line, const QByteArray& text, const QStringList& parts) const
  {
    expectFault(write("faulty.iv", text), QStringList{QString("line %1:").arg(line)} + parts);
  }
};

TEST_F(FileTest, aMissingFile)
{
  expectFault("missing.iv", {"exist"});
}

TEST_F(FileTest, aDirectory)
{
  ASSERT_TRUE(QDir().mkdir(pathOf("directory.iv")));
  expectFault("directory.iv", {"directory"});
}

TEST_F(FileTest, aDevice)
{
  expectFault("/dev/zero", {"ordinary"});
}

TEST_F(FileTest, aFileWithoutHeader)
{
  expectFaultAt(1, "# no header\nTopLevelDialog { }\n", {"header"});
  QFile file(pathOf("empty.iv"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  expectFault("empty.iv", {"header"});
}

TEST_F(FileTest, aTruncatedFile)
{
  expectFaultAt(4, "TopLevelDialog {\n  DialogPushButton {\n    label \"Go\"\n", {"ends"});
  expectFaultAt(3, "TopLevelDialog {\n  label \"Go\n", {"closed"});
}

TEST_F(FileTest, anUnknownClass)
{
  expectFaultAt(2, "NoSuchDialog {\n  label \"x\"\n}\n", {"class", "\"NoSuchDialog\""});
  expectFaultAt(3, "TopLevelDialog {\n  NoSuchButton {\n    label \"x\"\n  }\n}\n", {"class", "\"NoSuchButton\""});
}

TEST_F(FileTest, anUnknownField)
{
  expectFaultAt(3, "TopLevelDialog {\n  lable \"x\"\n}\n", {"field", "\"lable\""});
  expectFaultAt(4, "TopLevelDialog {\n  DialogPushButton {\n    lable \"x\"\n  }\n}\n", {"field", "\"lable\""});
}

TEST_F(FileTest, aValueOfTheWrongType)
{
  expectFaultAt(3, "TopLevelDialog {\n  width wide\n}\n", {"value", "\"width\""});
  expectFaultAt(3, "TopLevelDialog {\n  position 3\n\n\n}\n", {"value", "\"position\""});
  expectFaultAt(3, "TopLevelDialog {\n  enable PERHAPS\n}\n", {"value", "\"PERHAPS\"", "TRUE"});
  expectFaultAt(3, "TopLevelDialog {\n  DialogLabel { edgeStyle ROUND }\n}\n", {"value", "\"ROUND\""});
}

TEST_F(FileTest, aNodeInTheWrongPlace)
{
  expectFaultAt(3, "TopLevelDialog {\n  Cube { }\n}\n", {"Cube", "cannot stand"});
  expectFaultAt(3, "TopLevelDialog {\n  USE Nobody\n}\n", {"\"Nobody\""});
}

TEST_F(FileTest, aNestingWithoutEnd)
{
  expectFault(write("deep.iv", QByteArray("Separator {\n").repeated(5000)), {"line ", "flatter"});
}

TEST_F(FileTest, aFaultInAnIncludedFile)
{
  write("inner.iv", "TopLevelDialog {\n  width wide\n}\n");
  write("outer.iv", "File { name \"inner.iv\" }\nTopLevelDialog { }\n");
  expectFailure(run({"--check", "outer.iv"}), 2, {"inner.iv\", line 3:", "\"width\""});
}

TEST_F(FileTest, noElement)
{
  expectFault(write("scene.iv", "Separator { Cube { } }\n"), {"holds no"});
  expectFault(write("nothing.iv", "\n# nothing\n"), {"holds no"});
}

TEST_F(FileTest, anUnknownId)
{
  write("a.iv", "TopLevelDialog { auditorID \"a\" DialogPushButton { auditorID \"inner\" } }\n");
  expectFailure(run({"--check", "--id", "b", "a.iv"}), 2, {"\"a.iv\"", "\"b\"", "--id"});
  expectFailure(run({"--check", "--id", "inner", "a.iv"}), 2, {"\"a.iv\"", "\"inner\""});
}

TEST_F(FileTest, theIdChoosesTheElement)
{
  write("a.iv", "TopLevelDialog { auditorID \"a\" DialogLabel { } }\nTopLevelDialog { auditorID \"b\" }\n");
  EXPECT_EQ("a.iv: ok, 2 elements in SoTopLevelDialog \"a\"\n", run({"--check", "a.iv"}).output.toStdString());
  EXPECT_EQ("a.iv: ok, 1 element in SoTopLevelDialog \"b\"\n",
            run({"--check", "--id", "b", "a.iv"}).output.toStdString());
}

TEST_F(FileTest, everyFileIsChecked)
{
  write("a.iv", "TopLevelDialog { DialogLabel { } DialogPushButton { } }\n");
  write("b.iv", "TopLevelDialog {\n  width wide\n}\n");
  write("c.iv", "DialogPushButton { auditorID \"c\" }\n");
  const Result result = run({"--check", "a.iv", "b.iv", "missing.iv", "c.iv"});
  EXPECT_EQ(2, result.status);
  EXPECT_EQ("a.iv: ok, 3 elements in SoTopLevelDialog\nc.iv: ok, 1 element in DialogPushButton \"c\"\n",
            result.output.toStdString());
  EXPECT_EQ(2, result.errors.count('\n'));
  EXPECT_TRUE(result.errors.contains("\"b.iv\", line 3:")) << result.errors.toStdString();
  EXPECT_TRUE(result.errors.contains("\"missing.iv\"")) << result.errors.toStdString();
}

TEST_F(FileTest, theExamplesAreInOrder)
{
  const QDir examples(QUILLFORM_EXAMPLES);
  QStringList arguments{"--check"};
  for (const QString& name : examples.entryList({"*.iv"})) {
    arguments += examples.filePath(name);
  }
  ASSERT_GT(arguments.size(), 1);
  const Result result = run(arguments);
  EXPECT_EQ(0, result.status) << result.errors.toStdString();
  EXPECT_EQ(arguments.size() - 1, result.output.count(": ok, "));
}

TEST_F(FileTest, whatIsLeftOutIsReported)
{
  write("twice.iv", "TopLevelDialog {\n  DEF Twice DialogLabel { }\n  USE Twice\n}\n");
  expectFailure(run({"--check", "twice.iv"}), 2, {"\"twice.iv\", line 4:", "DialogLabel", "already"});
  const Result dump = run({"--dump", "twice.iv"}); // the rest is still good for something
  EXPECT_EQ(0, dump.status);
  EXPECT_TRUE(dump.output.contains("DialogLabel"));
  EXPECT_EQ(1, dump.errors.count('\n'));
}

TEST_F(FileTest, aDumpReadAgainGivesTheSameDump)
{
  write("a.iv", "DEF Dialog TopLevelDialog {\n  label \"a \\\"quoted\\\" \\n text\"\n  width 300\n  minimized TRUE\n"
                "  DialogLabel { label \"Gr\xFC\xDF\x65\" edgeStyle SHADOW_IN }\n"
                "  DialogPushButton { auditorID \"b\" enable FALSE }\n}\n");
  const Result first = run({"--dump", "a.iv"});
  EXPECT_EQ(0, first.status);
  EXPECT_EQ("", first.errors.toStdString());
  EXPECT_TRUE(first.output.startsWith("#Inventor V2.1 ascii\n"));
  EXPECT_TRUE(first.output.contains("Gr\xFC\xDF\x65"));
  write("copy.iv", first.output);
  EXPECT_EQ(first.output.toStdString(), run({"--dump", "copy.iv"}).output.toStdString());
}

TEST_F(FileTest, severalDumpsAreOneFile)
{
  write("a.iv", "TopLevelDialog { auditorID \"a\" }\n");
  write("b.iv", "DialogPushButton { auditorID \"b\" }\n");
  const Result both = run({"--dump", "a.iv", "b.iv"});
  EXPECT_EQ(1, both.output.count('#'));
  write("both.iv", both.output);
  EXPECT_EQ("both.iv: ok, 1 element in SoTopLevelDialog \"a\"\n", run({"--check", "both.iv"}).output.toStdString());
  EXPECT_EQ("both.iv: ok, 1 element in DialogPushButton \"b\"\n",
            run({"--check", "--id", "b", "both.iv"}).output.toStdString());
}

TEST_F(FileTest, anElementThatIsNoPartOfADialogIsNotOpened)
{
  write("bare.iv", "Quillform { label \"x\" }\n");
  EXPECT_EQ(0, run({"--check", "bare.iv"}).status);
  expectFailure(run({"--screenshot", "x.png", "bare.iv"}), 2, {"\"bare.iv\"", "Quillform", "TopLevelDialog"});
}

TEST_F(FileTest, namesMayHoldAnyCharacter)
{
  for (const char* locale : {"C", "C.UTF-8"}) {
    environment.insert("LC_ALL", locale);
    const QString name = write("Gr\u00FC\u00DFe an alle.iv", "TopLevelDialog { }\n");
    EXPECT_EQ(0, run({"--check", name}).status) << locale;
    EXPECT_EQ(0, run({"--size", "50x50", "--screenshot", "\u00FC.png", name}).status) << locale;
    EXPECT_TRUE(QFile::exists(pathOf("\u00FC.png"))) << locale;
  }
}
