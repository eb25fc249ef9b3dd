#ifndef QUILLFORM_SOTABPLAN_H
#define QUILLFORM_SOTABPLAN_H

#include <QRect>
#include <QSize>
#include <Quillform/Export.h>

class QFont;
class QString;

/// Where the tabs, the pane below them and the page in it stand. The window has it from its style, and the scene
/// follows the window.
class QUILLFORM_API SoTabPlan {
public:
  /// Between the edge of the tab dialog and its tabs and pane, on every side.
  static constexpr int inset = 3;

  /// What a tab dialog needs beside and above its pages, wherever the tabs are.
  static constexpr int borderWidth = 10;
  static constexpr int borderHeight = 33; ///< likewise

  /// For tabs and pane of \a size together. \a side is a SoTabDialog::TabsLocation; without tabs the pane takes all.
  SoTabPlan(const QSize& size, int side, bool hasTabs);

  QRect getPane() const; ///< the plate below the pages
  QRect getPage() const; ///< the page in front

  /// The row of tabs as far as it is not covered by the pane: its length, from the first tab on, and its thickness.
  int getBarLength() const;
  int getBarHeight() const; ///< see getBarLength()

  /// The rectangle of a piece of the row of tabs.
  QRect getBarRect(int start, int length) const;

  /// The size of a tab with a text, when the tabs are above the pane.
  static QSize getTabSize(const QString& text, const QFont& font);

  /// What a tab is wider than its text.
  static int getTabMargin();

private:
  QRect toSide(const QRect& rect) const;

  int m_side;
  QSize m_size; // with the tabs above the pane, as the two rectangles
  QRect m_pane;
  QRect m_page;
};

#endif // QUILLFORM_SOTABPLAN_H
