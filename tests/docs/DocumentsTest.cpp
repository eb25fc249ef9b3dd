#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <QBoxLayout>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <support/Messages.h>
#include <support/TestFiles.h>

namespace {

const QDir& tree()
{
  static const QDir directory(QDir::cleanPath(QUILLFORM_TEST_EXAMPLES "/.."));
  return directory;
}

QString read(const QString& path)
{
  QFile file(tree().filePath(path));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
  return QString::fromUtf8(file.readAll());
}

struct Document {
  QString path; ///< in the source tree
  QString text;
};

std::vector<Document> documents()
{
  QStringList paths{"README.md"};
  QDirIterator found(tree().filePath("docs"), {"*.md"}, QDir::Files, QDirIterator::Subdirectories);
  while (found.hasNext()) {
    paths.append(tree().relativeFilePath(found.next()));
  }
  std::vector<Document> all;
  for (const QString& path : paths) {
    all.push_back({path, read(path)});
  }
  return all;
}

/// The pieces of a document between "```language" and "```".
QStringList pieces(const QString& text, const QString& language)
{
  const QRegularExpression piece("^```" + language + "\n(.*?)^```$",
                                 QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption);
  QStringList all;
  auto found = piece.globalMatch(text);
  while (found.hasNext()) {
    all.append(found.next().captured(1));
  }
  return all;
}

QString withoutCode(QString text)
{
  text.remove(QRegularExpression("^```.*?^```$",
                                 QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption));
  return text.remove(QRegularExpression("`[^`\n]*`(?!\\])"));
}

/// The names by which the headings of a document can be linked to.
QStringList anchors(const QString& text)
{
  QStringList names;
  auto found = QRegularExpression("^#+ (.*)$", QRegularExpression::MultilineOption).globalMatch(text);
  while (found.hasNext()) {
    QString name = found.next().captured(1).toLower();
    names.append(name.remove(QRegularExpression("[^\\w\\- ]")).replace(' ', '-'));
  }
  return names;
}

} // namespace

class DocumentsTest : public QuillformTest {};

TEST_F(DocumentsTest, linksAndPicturesLeadSomewhere)
{
  int links = 0;
  for (const Document& document : documents()) {
    const QDir directory = QFileInfo(tree().filePath(document.path)).dir();
    auto found = QRegularExpression("\\]\\(([^)\\s]+)\\)").globalMatch(withoutCode(document.text));
    while (found.hasNext()) {
      const QString link = found.next().captured(1);
      if (link.contains("://")) {
        continue;
      }
      links++;
      const QString path = link.section('#', 0, 0);
      const QString anchor = link.section('#', 1);
      const QString target = path.isEmpty() ? tree().filePath(document.path) : directory.filePath(path);
      EXPECT_TRUE(QFile::exists(target)) << qPrintable(document.path) << " links to " << qPrintable(link)
                                         << ", which does not exist";
      if (!anchor.isEmpty()) {
        EXPECT_TRUE(anchors(read(tree().relativeFilePath(target))).contains(anchor))
          << qPrintable(document.path) << " links to " << qPrintable(link) << ", which has no such heading";
      }
    }
  }
  EXPECT_GT(links, 200);
}

TEST_F(DocumentsTest, picturesAreShownSomewhere)
{
  QString all;
  for (const Document& document : documents()) {
    all += document.text;
  }
  QDirIterator pictures(tree().filePath("docs/pictures"), {"*.png"}, QDir::Files, QDirIterator::Subdirectories);
  while (pictures.hasNext()) {
    const QString name = QFileInfo(pictures.next()).fileName();
    EXPECT_TRUE(all.contains("/" + name)) << "no document shows " << qPrintable(name);
  }
}

TEST_F(DocumentsTest, dialogFilesAreReadWithoutAMessage)
{
  int count = 0;
  for (const Document& document : documents()) {
    for (const QString& piece : pieces(document.text, "iv")) {
      SCOPED_TRACE((document.path + ":\n" + piece).toStdString());
      Messages messages;
      const std::string path = writeFile(std::to_string(count++) + ".iv", piece.toStdString());
      SoInput input;
      EXPECT_TRUE(input.openFile(path.c_str()));
      SoSeparator* root = SoDB::readAll(&input);
      ASSERT_NE(root, nullptr);
      root->ref();
      EXPECT_GT(root->getNumChildren(), 0);
      root->unref();
      EXPECT_EQ(messages.all(), std::vector<std::string>());
    }
  }
  EXPECT_GT(count, 30);
}

TEST_F(DocumentsTest, theDialogsOfTheGuideOpenInBothForms)
{
  const QStringList dialogs = pieces(read("docs/guide.md"), "iv");
  ASSERT_FALSE(dialogs.isEmpty());
  for (const QString& piece : dialogs) {
    SCOPED_TRACE(piece.toStdString());
    Messages messages;
    SoTopLevelDialog* dialog = load(piece.toStdString());
    ASSERT_NE(dialog, nullptr);
    EXPECT_NE(dialog->buildAs(nullptr, 1), nullptr);
    dialog->buildAs(nullptr, 0);
    EXPECT_NE(dialog->isBuilt3D(), 0);
    dialog->show();
    EXPECT_EQ(messages.all(), std::vector<std::string>());
    dialog->hide();
    dialog->destroyWidget();
  }
}

TEST_F(DocumentsTest, asTheGuideSaysADialogStandsInsideAWindowOfTheApplication)
{
  QWidget window;
  window.setLayout(new QVBoxLayout);
  auto* panel = new QWidget;
  window.layout()->addWidget(new QLabel("above"));
  window.layout()->addWidget(panel);
  SoTopLevelDialog* dialog = load("TopLevelDialog { DialogPushButton { buttonLabel \"OK\" } }");
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->buildDialog(panel, TRUE), panel);
  window.resize(400, 300);
  window.show();
  dialog->hide();
  settle();
  const auto* button = panel->findChild<QPushButton*>();
  ASSERT_NE(button, nullptr);
  EXPECT_TRUE(button->isVisible());
  EXPECT_TRUE(window.rect().contains(panel->geometry()));
  EXPECT_GT(panel->width(), 300);
  dialog->destroyWidget();
}

TEST_F(DocumentsTest, thePageOnSkinsNamesEveryFileAndPart)
{
  const QString page = read("docs/skins.md");
  const QDir skin(tree().filePath("Quillform/skins/default"));
  for (const QString& file : skin.entryList({"*.iv"}, QDir::Files)) {
    const QString row =
      QRegularExpression("^[|] `" + QRegularExpression::escape(file) + "` [|].*$", QRegularExpression::MultilineOption)
        .match(page)
        .captured(0);
    EXPECT_FALSE(row.isEmpty()) << qPrintable(file);
    auto part = QRegularExpression("^DEF (\\w+)", QRegularExpression::MultilineOption)
                  .globalMatch(read("Quillform/skins/default/" + file));
    while (part.hasNext()) {
      const QString name = part.next().captured(1);
      EXPECT_TRUE(row.contains("`" + name + "`")) << qPrintable(file) << " defines " << qPrintable(name);
    }
  }
}

TEST_F(DocumentsTest, theSkinOfTheExampleGivesButtonsItsLook)
{
  const QString file = "docs/skins/warm/DialogPushButton.iv";
  EXPECT_TRUE(read("docs/skins.md").contains("\n```iv\n" + read(file) + "```\n"))
    << "docs/skins.md does not show " << qPrintable(file) << " as it is";
  QDir skin(QString::fromStdString(pathOf("warm")));
  skin.mkpath(".");
  const QDir original(tree().filePath("Quillform/skins/default"));
  for (const QString& name : original.entryList({"*.iv"}, QDir::Files)) {
    if (name != "DialogPushButton.iv") {
      EXPECT_TRUE(QFile::copy(original.filePath(name), skin.filePath(name)));
    }
  }
  EXPECT_TRUE(QFile::copy(tree().filePath(file), skin.filePath("DialogPushButton.iv")));
  Messages messages;
  SoQuillform::setSkin(skin.path().toLocal8Bit().constData());
  SoTopLevelDialog* dialog = load("TopLevelDialog { DialogPushButton { buttonLabel \"OK\" } }");
  ASSERT_NE(dialog, nullptr);
  dialog->buildAs(nullptr, 0);
  auto* part = dynamic_cast<SoGroup*>(SoNode::getByName("DialogPushButtonReleased"));
  ASSERT_NE(part, nullptr);
  ASSERT_EQ(part->getNumChildren(), 2);
  const auto* face = dynamic_cast<SoSeparator*>(part->getChild(1));
  ASSERT_NE(face, nullptr);
  EXPECT_EQ(static_cast<SoMaterial*>(face->getChild(0))->diffuseColor[0], SbColor(0.95F, 0.8F, 0.6F));
  EXPECT_EQ(messages.all(), std::vector<std::string>());
}
