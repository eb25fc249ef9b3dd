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

  QSize sizeHint() const override;
  QSize minimumSize() const override;
  QSize maximumSize() const override;
  Qt::Orientations expandingDirections() const override;
  void setGeometry(const QRect& rect) override;
  QRect geometry() const override;
  bool isEmpty() const override;

private:
  QSize m_hint;
  SoPlannedContents m_contents;
  SoCellLimits m_limits;
  QRect& m_rect;
};

#endif // QUILLFORM_SOPLANNEDITEM_H
