#include <Quillform/core/SoPlannedItem.h>

SoPlannedItem::SoPlannedItem(const QSize& hint, const SoPlannedContents& contents, const SoCellLimits& limits,
                             QRect& rect)
    : m_hint(hint), m_contents(contents), m_limits(limits), m_rect(rect)
{
}

QSize SoPlannedItem::sizeHint() const
{
  return m_hint.expandedTo(m_contents.minimum).boundedTo(m_limits.maximum).expandedTo(m_limits.minimum);
}

QSize SoPlannedItem::minimumSize() const
{
  // As a layout asks a widget: an explicit minimum wins, a fixed policy keeps the hint, and what may shrink
  // may shrink to what its contents need.
  const auto smallest = [](QSizePolicy::Policy policy, int hint, int minimumHint, int minimum, int maximum) {
    if (minimum > 0) {
      return minimum;
    }
    return qMin(policy == QSizePolicy::Fixed ? qMax(hint, minimumHint) : minimumHint, maximum);
  };
  return {smallest(m_limits.horizontal, m_hint.width(), m_contents.minimum.width(), m_limits.minimum.width(),
                   m_limits.maximum.width()),
          smallest(m_limits.vertical, m_hint.height(), m_contents.minimum.height(), m_limits.minimum.height(),
                   m_limits.maximum.height())};
}

QSize SoPlannedItem::maximumSize() const
{
  const auto largest = [](QSizePolicy::Policy policy, int hint, int minimum, int maximum) {
    return policy == QSizePolicy::Fixed && maximum == QWIDGETSIZE_MAX ? qMax(hint, minimum) : maximum;
  };
  return {largest(m_limits.horizontal, m_hint.width(), m_limits.minimum.width(), m_limits.maximum.width()),
          largest(m_limits.vertical, m_hint.height(), m_limits.minimum.height(), m_limits.maximum.height())};
}

Qt::Orientations SoPlannedItem::expandingDirections() const
{
  // As a layout asks a widget: what may not grow does not expand, whatever its contents would like.
  const auto mayGrow = [](QSizePolicy::Policy policy) {
    return (policy & QSizePolicy::GrowFlag) != 0;
  };
  Qt::Orientations growing;
  growing.setFlag(Qt::Horizontal, mayGrow(m_limits.horizontal));
  growing.setFlag(Qt::Vertical, mayGrow(m_limits.vertical));
  return m_contents.expanding & growing;
}

void SoPlannedItem::setGeometry(const QRect& rect)
{
  // As a layout places a widget: never larger than its maximum, at the left and half way down what is left. One
  // that has not even room for its minimum hangs out of its cell.
  const QSize size = rect.size().boundedTo(maximumSize());
  m_rect = QRect(rect.topLeft() + QPoint(0, (rect.height() - size.height()) / 2), size.expandedTo(m_limits.minimum));
}

QRect SoPlannedItem::geometry() const
{
  return m_rect;
}

bool SoPlannedItem::isEmpty() const
{
  return false;
}
