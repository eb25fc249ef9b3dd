#include <Quillform/core/So3DScrollBar.h>

#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTransform.h>
#include <Quillform/core/So3DPlacement.h>
#include <algorithm>

namespace {

constexpr float smallestCursor = 8.0F;

/// The cursor and the buttons are a little smaller than their places in the groove, which is seen around them.
constexpr float inset = 1.0F;

constexpr float grooveDepth = 1.0F; // cursor and buttons stand on the groove

} // namespace

void So3DScrollBar::attach(Direction direction, const Parts& parts)
{
  m_direction = direction;
  m_parts = parts;
  for (const Button button : {BACK, FORTH}) {
    m_buttonTransforms[button] = So3DPlacement::insertTransform(parts.buttons[button]);
    press(button, false);
  }
  m_grooveTransform = So3DPlacement::insertTransform(parts.groove);
  m_cursorTransform = So3DPlacement::insertTransform(parts.cursor);
  show(false);
}

void So3DScrollBar::show(bool visible)
{
  m_parts.bar->whichChild = visible ? SO_SWITCH_ALL : SO_SWITCH_NONE;
}

bool So3DScrollBar::isShown() const
{
  return m_parts.bar && m_parts.bar->whichChild.getValue() == SO_SWITCH_ALL;
}

void So3DScrollBar::press(Button button, bool down)
{
  m_parts.buttonLooks[button]->whichChild = down ? 1 : 0;
}

void So3DScrollBar::place(const QRect& rect, const SbVec2i32& frameSize, float z)
{
  const bool isVertical = m_direction == VERTICAL;
  m_corner.setValue(static_cast<float>(rect.x()) - static_cast<float>(frameSize[0]) * 0.5F,
                    static_cast<float>(frameSize[1]) * 0.5F - static_cast<float>(rect.y()), z);
  m_length = static_cast<float>(std::max(isVertical ? rect.height() : rect.width(), 0));
  m_thickness = static_cast<float>(std::max(isVertical ? rect.width() : rect.height(), 0));
  m_buttonLength = std::min(m_thickness, m_length * 0.5F);
  placePart(m_grooveTransform, 0.0F, m_length, 0.0F, z);
  placePart(m_buttonTransforms[BACK], 0.0F, m_buttonLength, inset, z + grooveDepth);
  placePart(m_buttonTransforms[FORTH], m_length - m_buttonLength, m_buttonLength, inset, z + grooveDepth);
  placeCursor();
}

void So3DScrollBar::placePart(SoTransform* transform, float start, float length, float around, float z) const
{
  const float middle = start + length * 0.5F;
  const float across = m_thickness * 0.5F;
  const SbVec2f size(m_thickness - 2.0F * around, length - 2.0F * around);
  if (m_direction == VERTICAL) {
    So3DPlacement::place(transform, SbVec2f(m_corner[0] + across, m_corner[1] - middle), size, z);
  }
  else {
    So3DPlacement::place(transform, SbVec2f(m_corner[0] + middle, m_corner[1] - across), SbVec2f(size[1], size[0]), z);
  }
}

void So3DScrollBar::placeCursor()
{
  const float groove = m_length - 2.0F * m_buttonLength;
  const float share = m_content > 0.0F ? std::min(1.0F, m_page / m_content) : 1.0F;
  m_cursorLength = std::min(std::max(groove * share, smallestCursor), groove);
  const float way = groove - m_cursorLength;
  m_cursorStart = m_buttonLength + (getEnd() > 0.0F ? way * m_scrolled / getEnd() : 0.0F);
  placePart(m_cursorTransform, m_cursorStart, m_cursorLength, inset, m_corner[2] + grooveDepth);
}

void So3DScrollBar::setRange(float content, float page)
{
  m_content = content;
  m_page = page;
  scrollTo(m_scrolled);
}

float So3DScrollBar::getScrolled() const
{
  return m_scrolled;
}

float So3DScrollBar::getEnd() const
{
  return std::max(m_content - m_page, 0.0F);
}

float So3DScrollBar::getPage() const
{
  return m_page;
}

void So3DScrollBar::scrollTo(float scrolled)
{
  m_scrolled = std::clamp(scrolled, 0.0F, getEnd());
  placeCursor();
}

float So3DScrollBar::toContent(float distance) const
{
  const float way = m_length - 2.0F * m_buttonLength - m_cursorLength;
  return way > 0.0F ? distance * getEnd() / way : 0.0F;
}

float So3DScrollBar::along(const SbVec3f& point) const
{
  return m_direction == VERTICAL ? m_corner[1] - point[1] : point[0] - m_corner[0];
}

int So3DScrollBar::getSideOfCursor(const SbVec3f& point) const
{
  const float place = along(point);
  return place < m_cursorStart ? -1 : place > m_cursorStart + m_cursorLength ? 1 : 0;
}
