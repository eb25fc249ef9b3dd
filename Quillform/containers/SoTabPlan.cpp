#include <Quillform/containers/SoTabPlan.h>

#include <QApplication>
#include <QFontMetrics>
#include <QStyle>
#include <QStyleOptionTabWidgetFrame>
#include <Quillform/containers/SoTabDialog.h>
#include <algorithm>

namespace {

constexpr int largestTab = 200; // a longer text is cut short with dots
constexpr int tightMargin = 4;  // the least that a tab is higher than its text

QStyleOptionTab tabOption(const QFont& font)
{
  QStyleOptionTab option;
  option.shape = QTabBar::RoundedNorth;
  option.fontMetrics = QFontMetrics(font);
  return option;
}

/// A scene may be shown by a program without windows, which has neither a style nor fonts.
bool hasStyle()
{
  return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

/// A part of a tab widget of \a size whose tabs are of a height.
QRect partOf(QStyle::SubElement part, const QSize& size, int tabHeight)
{
  if (!hasStyle()) {
    const QRect pane = QRect(QPoint(0, 0), size).adjusted(0, tabHeight, 0, 0);
    return part == QStyle::SE_TabWidgetTabPane ? pane : pane.adjusted(2, 0, -2, -2);
  }
  const QStyle* style = QApplication::style();
  QStyleOptionTabWidgetFrame option;
  option.rect = QRect(QPoint(0, 0), size);
  option.shape = QTabBar::RoundedNorth;
  option.lineWidth = style->pixelMetric(QStyle::PM_DefaultFrameWidth);
  option.tabBarSize = QSize(tabHeight > 0 ? size.width() : 0, tabHeight);
  return style->subElementRect(part, &option, nullptr);
}

/// The height of a tab at which the page keeps the size that it wants: a style that would make tabs a little higher
/// than the border allows for must do with less, as far as the text has room.
int getTabHeight(int textHeight, int styleHeight)
{
  constexpr int large = 1000;
  const int around = large - partOf(QStyle::SE_TabWidgetTabContents, QSize(large, large), styleHeight).height();
  const int excess = std::max(around - (SoTabPlan::borderHeight - 2 * SoTabPlan::inset), 0);
  return std::max(styleHeight - excess, std::min(styleHeight, textHeight + tightMargin));
}

} // namespace

SoTabPlan::SoTabPlan(const QSize& size, int side, bool hasTabs) : m_side(side), m_size(size.expandedTo(QSize(0, 0)))
{
  if (side == SoTabDialog::LEFT || side == SoTabDialog::RIGHT) {
    m_size.transpose();
  }
  const int tabHeight = hasTabs ? getTabSize("", SoQuillform::getQuillformFont()).height() : 0;
  m_pane = partOf(QStyle::SE_TabWidgetTabPane, m_size, tabHeight);
  m_page = partOf(QStyle::SE_TabWidgetTabContents, m_size, tabHeight);
}

QSize SoTabPlan::getTabSize(const QString& text, const QFont& font)
{
  if (!hasStyle()) {
    return {std::min(text.size() * 7 + getTabMargin(), largestTab), borderHeight - 2 * inset - 2};
  }
  const QStyle* style = QApplication::style();
  QStyleOptionTab option = tabOption(font);
  option.text = text;
  const int height = option.fontMetrics.height();
  const QSize contents(option.fontMetrics.size(Qt::TextShowMnemonic, text).width() + getTabMargin(),
                       height + style->pixelMetric(QStyle::PM_TabBarTabVSpace, &option));
  const QSize natural = style->sizeFromContents(QStyle::CT_TabBarTab, &option, contents, nullptr);
  return {std::min(natural.width(), largestTab), getTabHeight(height, natural.height())};
}

int SoTabPlan::getTabMargin()
{
  if (!hasStyle()) {
    return 24;
  }
  const QStyleOptionTab option = tabOption(SoQuillform::getQuillformFont());
  return QApplication::style()->pixelMetric(QStyle::PM_TabBarTabHSpace, &option);
}

QRect SoTabPlan::toSide(const QRect& rect) const
{
  switch (m_side) {
  case SoTabDialog::BOTTOM:
    return {rect.x(), m_size.height() - rect.y() - rect.height(), rect.width(), rect.height()};
  case SoTabDialog::LEFT:
    return {rect.y(), rect.x(), rect.height(), rect.width()};
  case SoTabDialog::RIGHT:
    return {m_size.height() - rect.y() - rect.height(), rect.x(), rect.height(), rect.width()};
  default:
    return rect;
  }
}

QRect SoTabPlan::getPane() const
{
  return toSide(m_pane);
}

QRect SoTabPlan::getPage() const
{
  return toSide(m_page);
}

int SoTabPlan::getBarLength() const
{
  return m_size.width();
}

int SoTabPlan::getBarHeight() const
{
  return std::min(m_pane.y(), m_size.height());
}

QRect SoTabPlan::getBarRect(int start, int length) const
{
  return toSide(QRect(start, 0, length, getBarHeight()));
}
