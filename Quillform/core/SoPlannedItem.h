#ifndef QUILLFORM_SOPLANNEDITEM_H
#define QUILLFORM_SOPLANNEDITEM_H

#include <QLayoutItem>
#include <Quillform/core/SoDialogComponent.h>

/// Stands for a component's frame in a layout without widgets, so that Qt's own layouts plan the 3D form and
/// both forms of a dialog have the same plan.
class SoPlannedItem : public QLayoutItem {
public:
  /// \a hint is the size wanted, \a contents what the frame's own layout wants; the rectangle that the layout gives is
  /// stored in \a rect.
  SoPlannedItem(const QSize& hint, const SoPlannedContents& contents, const SoCellLimits& limits, QRect& rect);

  QSize sizeHint() const override;                       ///< what a layout asks for
  QSize minimumSize() const override;                    ///< what a layout asks for
  QSize maximumSize() const override;                    ///< what a layout asks for
  Qt::Orientations expandingDirections() const override; ///< what a layout asks for
  void setGeometry(const QRect& rect) override;          ///< stores where the layout places it
  QRect geometry() const override;                       ///< where the layout has placed it

  /// FALSE: it always takes room.
  bool isEmpty() const override;

private:
  QSize m_hint;
  SoPlannedContents m_contents;
  SoCellLimits m_limits;
  QRect& m_rect;
};

#endif // QUILLFORM_SOPLANNEDITEM_H
