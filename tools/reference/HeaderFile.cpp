#include "HeaderFile.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <stdexcept>

namespace {

QString findHeader(const QString& tree, const QString& className)
{
  const QDir library(tree + "/Quillform");
  for (const QString& room : library.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    const QString path = room + "/" + className + ".h";
    if (library.exists(path)) {
      return "Quillform/" + path;
    }
  }
  throw std::runtime_error("there is no header of " + className.toStdString());
}

/// The text of a line of a comment, without the slashes and the blank behind them.
QString withoutSlashes(const QString& line)
{
  return line.mid(line.startsWith("/// ") ? 4 : 3);
}

QRegularExpressionMatchIterator matches(const char* pattern, const QString& text)
{
  return QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
}

} // namespace

HeaderFile::HeaderFile(const QString& tree, const QString& className) : path(findHeader(tree, className))
{
  QFile file(tree + "/" + path);
  if (!file.open(QIODevice::ReadOnly)) {
    throw std::runtime_error(path.toStdString() + " cannot be read");
  }
  code = QString::fromUtf8(file.readAll());
  readComment(className);
  readFields();
  readEnumerations();
}

void HeaderFile::readComment(const QString& className)
{
  QStringList lines;
  bool isCode = false;
  for (const QString& line : code.split('\n')) {
    if (line.startsWith("class QUILLFORM_API " + className + " ")) {
      addBlock(lines, isCode);
      return;
    }
    if (!line.startsWith("///")) {
      comment.clear();
      lines.clear();
      continue;
    }
    const QString text = withoutSlashes(line);
    const bool ends = text == "\\code" || text == "\\endcode" || (text.isEmpty() && !isCode);
    if (ends) {
      addBlock(lines, isCode);
      lines.clear();
      isCode = text == "\\code";
    }
    else {
      lines.append(text);
    }
  }
  throw std::runtime_error(path.toStdString() + " does not declare " + className.toStdString());
}

void HeaderFile::addBlock(const QStringList& lines, bool isCode)
{
  if (lines.isEmpty()) {
    return;
  }
  if (!isCode) {
    comment.push_back({Block::TEXT, lines.join(' ')});
    return;
  }
  const QString text = lines.join('\n');
  const QString before = comment.empty() ? QString() : comment.back().text;
  Block::Kind kind = text.contains(';') ? Block::PROGRAM : Block::SNIPPET;
  if (before.contains("File format") && before.endsWith(':')) {
    kind = Block::FORMAT;
  }
  if (before.contains("Catalog, below") && before.endsWith(':')) {
    kind = Block::CATALOG;
  }
  comment.push_back({kind, text});
}

void HeaderFile::readFields()
{
  auto field = matches("^  So[SM]F\\w+ (\\w+); *///< (.*(?:\n +///< .*)*)$", code);
  while (field.hasNext()) {
    const QRegularExpressionMatch match = field.next();
    const QString meaning = match.captured(2).replace(QRegularExpression("\n +///< "), " ");
    const int end = meaning.lastIndexOf("; default ");
    fieldMeanings[match.captured(1)] = meaning.left(end);
    if (end >= 0) {
      statedDefaults[match.captured(1)] = meaning.mid(end + QString("; default ").length());
    }
  }
}

void HeaderFile::readEnumerations()
{
  auto found = matches("((?:^  /// .*\n)*)^  enum (\\w+) \\{([^}]*)\\};", code);
  while (found.hasNext()) {
    const QRegularExpressionMatch match = found.next();
    Enumeration enumeration{match.captured(2), QString(), {}};
    for (const QString& line : match.captured(1).split('\n', Qt::SkipEmptyParts)) {
      enumeration.meaning += (enumeration.meaning.isEmpty() ? "" : " ") + withoutSlashes(line.trimmed());
    }
    auto enumerators = matches("(\\w+) = (-?\\d+),? *(?:///< (.*))?", match.captured(3));
    while (enumerators.hasNext()) {
      const QRegularExpressionMatch one = enumerators.next();
      enumeration.enumerators.push_back({one.captured(1), one.captured(2).toInt(), one.captured(3)});
    }
    enumerations.push_back(enumeration);
  }
}

std::vector<HeaderFile::Block> HeaderFile::getBlocks(Block::Kind kind) const
{
  std::vector<Block> blocks;
  for (const Block& block : comment) {
    if (block.kind == kind) {
      blocks.push_back(block);
    }
  }
  return blocks;
}

std::vector<HeaderFile::FormatLine> HeaderFile::getFormat() const
{
  std::vector<FormatLine> lines;
  for (const Block& block : getBlocks(Block::FORMAT)) {
    auto line = matches("^ +(\\w+) +(.*?) +# (So[SM]F\\w+): ", block.text);
    while (line.hasNext()) {
      const QRegularExpressionMatch match = line.next();
      lines.push_back({match.captured(1), match.captured(2), match.captured(3)});
    }
  }
  return lines;
}

std::vector<HeaderFile::CatalogLine> HeaderFile::getCatalog() const
{
  std::vector<CatalogLine> lines;
  for (const Block& block : getBlocks(Block::CATALOG)) {
    QStringList above; // the part above on each level
    auto line = matches("^( *)(\\w+) *(# public.*)?", block.text);
    while (line.hasNext()) {
      const QRegularExpressionMatch match = line.next();
      const int level = match.capturedLength(1) / 2;
      above = above.mid(0, level);
      lines.push_back({match.captured(2), above.isEmpty() ? QString() : above.last(), !match.captured(3).isEmpty()});
      above.append(match.captured(2));
    }
  }
  return lines;
}

QString HeaderFile::getSummary() const
{
  const QString first = comment.empty() ? QString() : comment.front().text;
  return first.section(QRegularExpression("(?<=[.]) "), 0, 0);
}

bool HeaderFile::isBase() const
{
  return getSummary().startsWith("Base of");
}
