#include <Quillform/core/So3DTextLines.h>

#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoText3.h>
#include <Inventor/nodes/SoTransform.h>
#include <Quillform/core/So3DText.h>
#include <algorithm>

namespace {

constexpr int maxMeasures = 4096; // far above the lines of any text that somebody edits in a dialog

/// Longer texts are measured character by character, as far as it takes, and their widths are not kept.
constexpr int maxMeasuredLength = 256;

} // namespace

void So3DTextLines::attach(SoGroup* group, SoGroup* properties, SoNode* look, SoGetBoundingBoxAction* action)
{
  m_properties = properties;
  m_action = action;
  m_transform = new SoTransform;
  m_text = new SoText3;
  m_text->string.setNum(0);
  So3DText::addNodes(group, look, m_transform, m_text);
}

bool So3DTextLines::isAttached() const
{
  return m_text != nullptr;
}

void So3DTextLines::forgetMeasures()
{
  m_widths.clear();
}

// Measuring

float So3DTextLines::measure(const QString& text) const
{
  if (text.isEmpty()) {
    return 0.0F;
  }
  const auto known = m_widths.constFind(text);
  if (known != m_widths.constEnd()) {
    return *known;
  }
  auto* scratch = new SoSeparator;
  scratch->ref();
  scratch->addChild(m_properties);
  auto* line = new SoText3;
  line->string = text.toUtf8().constData();
  scratch->addChild(line);
  m_action->apply(scratch);
  const SbBox3f box = m_action->getBoundingBox();
  const float width = box.isEmpty() ? 0.0F : box.getMax()[0] - box.getMin()[0];
  scratch->unref();
  if (m_widths.size() > maxMeasures) {
    m_widths.clear();
  }
  if (text.size() <= maxMeasuredLength) {
    m_widths.insert(text, width);
  }
  return width;
}

float So3DTextLines::getAdvance(QChar character) const
{
  // A last character counts with what it reaches out of its own place.
  return measure(QString(2, character)) - measure(QString(character));
}

int So3DTextLines::getNumThatFit(const QString& text, float room) const
{
  if (text.size() <= maxMeasuredLength && measure(text) <= room) {
    return static_cast<int>(text.size());
  }
  int count = 0;
  for (float width = 0.0F; count < text.size(); count++) {
    width += getAdvance(text[count]);
    if (width > room) {
      break;
    }
  }
  return count;
}

int So3DTextLines::getNumFromEnd(const QString& text, float room) const
{
  if (text.size() <= maxMeasuredLength && measure(text) <= room) {
    return static_cast<int>(text.size());
  }
  int count = 0;
  for (float width = 0.0F; count < text.size(); count++) {
    width += getAdvance(text[text.size() - 1 - count]);
    if (width > room) {
      break;
    }
  }
  return count;
}

int So3DTextLines::getNumLeftOf(const QString& text, float scrolled) const
{
  int count = 0;
  for (float width = 0.0F; count < text.size() && width < scrolled; count++) {
    width += getAdvance(text[count]);
  }
  return count;
}

float So3DTextLines::getLineHeight() const
{
  return So3DText::getLineMetrics(m_properties).height;
}

float So3DTextLines::getWidth(int index) const
{
  return measure(m_lines[index]);
}

float So3DTextLines::getWidth() const
{
  float widest = 0.0F;
  for (const QString& line : m_lines) {
    widest = std::max(widest, measure(line));
  }
  return widest;
}

// Lines

int So3DTextLines::getNum() const
{
  return static_cast<int>(m_lines.size());
}

void So3DTextLines::setLine(const QString& text)
{
  m_lines = QStringList(text);
}

void So3DTextLines::setLines(const QString& text, float maxWidth)
{
  m_lines.clear();
  for (const QString& paragraph : text.split('\n')) {
    if (maxWidth > 0.0F) {
      wrap(paragraph, maxWidth);
    }
    else {
      m_lines += paragraph;
    }
  }
}

void So3DTextLines::wrap(const QString& paragraph, float maxWidth)
{
  QString rest = paragraph;
  int taken = getNumThatFit(rest, maxWidth);
  while (taken < rest.size()) {
    // The blank at which a line is broken hangs over its end, as in a window.
    const int blank = rest.lastIndexOf(' ', taken);
    taken = blank >= 0 ? blank + 1 : std::max(taken, 1);
    m_lines += rest.left(taken);
    rest = rest.mid(taken);
    taken = getNumThatFit(rest, maxWidth);
  }
  if (!rest.isEmpty() || paragraph.isEmpty()) {
    m_lines += rest;
  }
}

// What is shown

bool So3DTextLines::place(const QRect& rect, const SbVec2i32& frameSize, int first, float z)
{
  m_text->string.setNum(0);
  m_rect = rect;
  m_frameSize = frameSize;
  m_first = std::clamp(first, 0, std::max(getNum() - 1, 0));
  if (rect.width() <= 0 || rect.height() <= 0) {
    return false;
  }
  const So3DText::LineMetrics line = So3DText::getLineMetrics(m_properties);
  m_scale = std::min(1.0F, static_cast<float>(rect.height()) / line.height);
  m_text->spacing = line.height / line.fontSize;
  m_top = static_cast<float>(frameSize[1]) * 0.5F - static_cast<float>(rect.y());
  const float left = static_cast<float>(rect.x()) - static_cast<float>(frameSize[0]) * 0.5F;
  m_transform->translation.setValue(left, m_top - line.ascent * m_scale, z);
  m_transform->scaleFactor.setValue(m_scale, m_scale, 1.0F);
  return true;
}

void So3DTextLines::show(const QRect& rect, const SbVec2i32& frameSize, int first, float scrolled, float z)
{
  if (!place(rect, frameSize, first, z)) {
    return;
  }
  const float room = static_cast<float>(rect.width()) / m_scale;
  const int rows = std::max(static_cast<int>(static_cast<float>(rect.height()) / getLineHeight()), 1);
  const int last = std::min(getNum(), m_first + rows);
  for (int i = m_first; i < last; i++) {
    const QString text = scrolled > 0.0F ? m_lines[i].mid(getNumLeftOf(m_lines[i], scrolled)) : m_lines[i];
    m_text->string.set1Value(i - m_first, text.left(getNumThatFit(text, room)).toUtf8().constData());
  }
}

void So3DTextLines::showEnd(const QRect& rect, const SbVec2i32& frameSize, float z)
{
  if (m_lines.isEmpty() || !place(rect, frameSize, getNum() - 1, z)) {
    return;
  }
  const float room = static_cast<float>(rect.width()) / m_scale;
  const QString& text = m_lines.last();
  m_text->string = text.right(getNumFromEnd(text, room)).toUtf8().constData();
}

bool So3DTextLines::getEnd(float& x, float& middle, float& height) const
{
  const int row = getNum() - 1 - m_first;
  if (row < 0 || row >= m_text->string.getNum()) {
    return false;
  }
  height = getLineHeight() * m_scale;
  const float left = static_cast<float>(m_rect.x()) - static_cast<float>(m_frameSize[0]) * 0.5F;
  const float width = measure(QString::fromUtf8(m_text->string[row].getString())) * m_scale;
  x = left + std::min(width, static_cast<float>(m_rect.width()));
  middle = m_top - (static_cast<float>(row) + 0.5F) * height;
  return true;
}
