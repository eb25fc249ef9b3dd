// The texts of SoQuillform: from a field to what is displayed, measured and laid out in 3D.

#include <Quillform/core/SoQuillform.h>

#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoText3.h>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QStringList>
#include <Quillform/core/SoElementKinds.h>
#include <Quillform/core/SoText.h>
#include <algorithm>
#include <string>
#include <unordered_map>

namespace {

/// Measured widths and heights of texts in the current font. Dialogs repeat few texts many times: every
/// rebuild measures all of them again.
struct MeasuredTexts {
  static constexpr std::size_t maxCount = 8192; // far above any dialog's number of different texts
  int fontGeneration = -1;                      // none
  std::unordered_map<std::string, SbVec2i32> sizes;

  MeasuredTexts()
  {
    sizes.reserve(maxCount);
  }
};

SbVec2i32 measure(const SbString& displayed, bool singleLine)
{
  const QFontMetrics metrics(SoQuillform::getQuillformFont());
  const QString text = SoText::toQt(displayed);
  const QStringList lines = singleLine ? QStringList(text) : text.split('\n');
  int width = 0;
  for (const QString& line : lines) {
    width = std::max(width, metrics.horizontalAdvance(line));
  }
  return {width + 3, metrics.height() * static_cast<int>(lines.size()) + 3};
}

} // namespace

SbString SoQuillform::convertToCString(const SbString& text, const SoQuillform* node)
{
  if (node && SoElementKinds::showsRawText(node)) {
    return text;
  }
  std::string result;
  const char* at = text.getString();
  while (*at != '\0') {
    char c = *at++;
    if (c == '\r') {
      continue;
    }
    if (c == '\\') {
      c = *at; // a backslash at the very end gives the zero byte, which ends the text
      if (c == '\0') {
        break;
      }
      ++at;
      c = c == 'n' ? '\n' : c == 't' ? '\t' : c;
    }
    result += c;
  }
  return result.c_str();
}

SbString SoQuillform::convertFromCString(const SbString& /*text*/, int /*flag*/)
{
  return "";
}

int SoQuillform::getNumLines(const SbString& text)
{
  const char* begin = text.getString();
  return static_cast<int>(std::count(begin, begin + text.getLength(), '\n'));
}

SbVec2i32 SoQuillform::getLabelPixelSize(const SbString& text, const SoQuillform* node)
{
  if (text.getLength() == 0) {
    return {0, 0};
  }
  if (!qApp) {
    SoDebugError::post("SoQuillform::getLabelPixelSize", "%s",
                       "No text can be measured without an application object. Create a QApplication, or call "
                       "SoQt::init, before building a dialog.");
    return {0, 0};
  }
  static MeasuredTexts measured;
  if (measured.fontGeneration != getFontGeneration() || measured.sizes.size() > MeasuredTexts::maxCount) {
    measured.sizes.clear();
    measured.fontGeneration = getFontGeneration();
  }
  const bool singleLine = node && SoElementKinds::isSingleLineEdit(node);
  const bool raw = node && SoElementKinds::showsRawText(node);
  static std::string key; // kept, so that asking takes no memory
  key.assign(1, singleLine ? (raw ? '2' : '1') : raw ? 'r' : 'n');
  key.append(text.getString(), static_cast<std::size_t>(text.getLength()));
  const auto [known, isNew] = measured.sizes.try_emplace(key);
  if (isNew) {
    known->second = measure(convertToCString(text, node), singleLine);
  }
  return known->second;
}

void SoQuillform::setStringToText3(SoText3* text3, const SbString& text)
{
  const QStringList lines = SoText::toQt(text).split('\n');
  for (int i = 0; i < lines.size(); i++) {
    text3->string.set1Value(i, lines[i].toUtf8().constData());
  }
}

int SoQuillform::insertTextTo3DText(const SbString& insert, SoText3* text3, int line, int pos)
{
  if (line < 0) {
    return line; // there is no such line
  }
  SoMFString& strings = text3->string;
  const int count = strings.getNum();
  if (getNumLines(insert) > 0) {
    // The copies go two places down, not one, and the inserted characters are dropped: this is meant.
    for (int i = count - 2; i >= line + 1; i--) {
      strings.set1Value(i + 2, SbString(strings[i]));
    }
    strings.set1Value(line + 1, "");
    return line + 1;
  }
  const QString added = SoText::toQt(insert);
  if (line >= count) {
    strings.set1Value(line, added.toUtf8().constData());
    return line;
  }
  const QString old = QString::fromUtf8(strings[line].getString());
  // Both bounds are inclusive, so the character at the position stands on both sides of the insert.
  const QString rebuilt = pos < 0 ? old + added : old.left(pos + 1) + added + old.mid(pos);
  strings.set1Value(line, rebuilt.toUtf8().constData());
  return line;
}

int SoQuillform::wrap3DTextLine(SoText3* text3, int line, float maxWidth, SoGroup* fontGroup, SoQuillform* node)
{
  SoMFString& strings = text3->string;
  auto* scratch = new SoSeparator;
  scratch->ref();
  if (fontGroup) {
    scratch->addChild(fontGroup);
  }
  auto* scratchText = new SoText3;
  scratch->addChild(scratchText);

  // One pass a piece, so that a long line takes no stack.
  for (bool more = line >= 0 && line < strings.getNum(); more;) {
    const QString text = QString::fromUtf8(strings[line].getString());
    int taken = 0;
    float width = 0.0F;
    while (taken < text.size() && width < maxWidth) {
      ++taken;
      scratchText->string = text.left(taken).toUtf8().constData();
      SoGetBoundingBoxAction* action = node->getBoundingBoxAction();
      action->apply(scratch);
      const SbBox3f box = action->getBoundingBox();
      width = box.isEmpty() ? 0.0F : box.getMax()[0] - box.getMin()[0];
    }
    // The character that went over the width ends this piece and begins the next one too: this is meant. A
    // piece must be shorter than what it was cut from, or a character wider than the maximum never ends.
    const int overflow = width > maxWidth ? 1 : 0;
    const QString rest = text.mid(std::max(taken - overflow, 1));
    more = !rest.isEmpty() && taken > 0 && maxWidth > 0.0F && rest.size() < text.size();
    if (more) {
      strings.set1Value(line, text.left(taken).toUtf8().constData());
      strings.insertSpace(line + 1, 1);
      strings.set1Value(++line, rest.toUtf8().constData());
    }
  }
  scratch->unref();
  return line;
}
