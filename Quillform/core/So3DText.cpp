#include <Quillform/core/So3DText.h>

#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoFont.h>
#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoText3.h>
#include <Inventor/nodes/SoTransform.h>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <Quillform/core/SoQuillform.h>
#include <algorithm>

namespace {

/// The text size at which a 3D text stands on the line like a text of the library's font.
constexpr float standardFontSize = 11.0F;

float findFontSize(const SoGroup* group)
{
  float size = standardFontSize;
  for (int i = 0; group && i < group->getNumChildren(); i++) {
    const SoNode* child = group->getChild(i);
    if (child->isOfType(SoFont::getClassTypeId())) {
      size = static_cast<const SoFont*>(child)->size.getValue();
    }
  }
  return size > 0.0F ? size : standardFontSize;
}

} // namespace

So3DText::LineMetrics So3DText::getLineMetrics(const SoGroup* properties)
{
  const float fontSize = findFontSize(properties);
  const float scale = fontSize / standardFontSize;
  if (!qApp) {
    return {fontSize * 1.2F, fontSize, fontSize};
  }
  const QFontMetricsF metrics(SoQuillform::getQuillformFont());
  return {static_cast<float>(metrics.height()) * scale, static_cast<float>(metrics.ascent()) * scale, fontSize};
}

void So3DText::addNodes(SoGroup* group, SoNode* look, SoTransform* transform, SoText3* text)
{
  auto* pickStyle = new SoPickStyle;
  // Picking the letters' triangles would make every click slow.
  pickStyle->style = SoPickStyle::BOUNDING_BOX;
  group->addChild(look);
  group->addChild(pickStyle);
  group->addChild(transform);
  group->addChild(text);
}

void So3DText::attach(SoGroup* group, SoGroup* properties, SoNode* look)
{
  m_properties = properties;
  m_transform = new SoTransform;
  m_text = new SoText3;
  addNodes(group, look, m_transform, m_text);
}

bool So3DText::isAttached() const
{
  return m_text != nullptr;
}

void So3DText::setText(const SbString& text)
{
  m_text->string.setNum(0);
  if (text.getLength() > 0) {
    SoQuillform::setStringToText3(m_text, text);
  }
  // An empty line among others would make the scene infinitely large; one alone takes no room.
  for (int i = 0; i < m_text->string.getNum() && m_text->string.getNum() > 1; i++) {
    if (m_text->string[i].getLength() == 0) {
      m_text->string.set1Value(i, " ");
    }
  }
  forgetExtent();
}

void So3DText::forgetExtent()
{
  m_extent.makeEmpty();
  m_measured = false;
}

const SbBox3f& So3DText::getExtent() const
{
  return m_extent;
}

float So3DText::getRight() const
{
  return m_right;
}

SoText3* So3DText::getNode() const
{
  return m_text;
}

void So3DText::measure(SoGetBoundingBoxAction* action)
{
  if (m_measured) {
    return;
  }
  auto* scratch = new SoSeparator;
  scratch->ref();
  if (m_properties) {
    scratch->addChild(m_properties);
  }
  scratch->addChild(m_text);
  action->apply(scratch);
  m_extent = action->getBoundingBox();
  m_measured = true;
  scratch->unref();
}

void So3DText::fit(const QRect& wantedRect, const SbVec2i32& frameSize, int alignment, float z,
                   SoGetBoundingBoxAction* action)
{
  // A window cuts off what hangs out of the frame.
  const QRect rect = wantedRect & QRect(0, 0, frameSize[0], frameSize[1]);
  const int lines = m_text->string.getNum();
  if (lines == 0 || rect.width() <= 0 || rect.height() <= 0) {
    m_transform->scaleFactor.setValue(0.0F, 0.0F, 0.0F); // no room, nothing to show
    return;
  }
  const LineMetrics line = getLineMetrics(m_properties);
  m_text->justification = alignment == SoQuillform::LEFT     ? SoText3::LEFT
                          : alignment == SoQuillform::CENTER ? SoText3::CENTER
                                                             : SoText3::RIGHT;
  m_text->spacing = line.height / line.fontSize;
  measure(action);

  const float textWidth = m_extent.isEmpty() ? 0.0F : m_extent.getMax()[0] - m_extent.getMin()[0];
  const float textHeight = line.height * static_cast<float>(lines);
  const auto room = static_cast<float>(rect.width());
  const auto roomHeight = static_cast<float>(rect.height());
  // The measured rectangles hold 3 pixels more than the text, so a small excess of height is no reason to shrink.
  const float yScale = std::min(1.0F, roomHeight / std::max(textHeight - 3.0F, 1.0F));
  const float xScale = std::min(yScale, room / std::max(textWidth, 1.0F));

  const float left = static_cast<float>(rect.x()) - static_cast<float>(frameSize[0]) * 0.5F;
  const float top = static_cast<float>(frameSize[1]) * 0.5F - static_cast<float>(rect.y());
  const float x = alignment == SoQuillform::LEFT     ? left - m_extent.getMin()[0] * xScale
                  : alignment == SoQuillform::CENTER ? left + room * 0.5F
                                                     : left + room;
  m_right = m_extent.isEmpty() ? x : x + m_extent.getMax()[0] * xScale;
  const float firstLineTop = top - (roomHeight - textHeight * yScale) * 0.5F;
  m_transform->translation.setValue(x, firstLineTop - line.ascent * yScale, z);
  m_transform->scaleFactor.setValue(xScale, yScale, 1.0F);
}
