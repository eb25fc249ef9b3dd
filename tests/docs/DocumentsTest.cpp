#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <support/Messages.h>
#include <support/TestFiles.h>

namespace {

const QDir& tree()
{
  static const QDir directory(QDir::cleanPath(QUILLFORM_TEST_EXAMPLES "/.."));
  return directory;
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
  std::vector<Document> read;
  for (const QString& path : paths) {
    QFile file(tree().filePath(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    read.push_back({path, QString::fromUtf8(file.readAll())});
  }
  return read;
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
        QFile file(target);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_TRUE(anchors(QString::fromUtf8(file.readAll())).contains(anchor))
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
      if (document.path == "docs/skins.md") {
        EXPECT_EQ(readText(piece.toStdString()) == nullptr, piece.isEmpty());
      }
      else {
        EXPECT_NE(SoQuillform::loadFromFile(path.c_str(), ""), nullptr);
      }
      EXPECT_EQ(messages.all(), std::vector<std::string>());
    }
  }
  EXPECT_GT(count, 30);
}

TEST_F(DocumentsTest, theDialogsOfTheGuideOpenInBothForms)
{
  QFile guide(tree().filePath("docs/guide.md"));
  ASSERT_TRUE(guide.open(QIODevice::ReadOnly));
  const QStringList dialogs = pieces(QString::fromUtf8(guide.readAll()), "iv");
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
