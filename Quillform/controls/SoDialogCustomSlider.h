#ifndef QUILLFORM_SODIALOGCUSTOMSLIDER_H
#define QUILLFORM_SODIALOGCUSTOMSLIDER_H

#include <Inventor/SbColor.h>
#include <QColor>
#include <Quillform/platform/SoQtBasicSlider.h>
#include <vector>

/// The bar of a slider in a window, in one colour or in several.
class QUILLFORM_API SoDialogCustomSlider : public SoQtBasicSlider {
  Q_OBJECT

public:
  explicit SoDialogCustomSlider(QWidget* parent = nullptr); ///< makes a bar of one colour

  /// The colours of the bar from left to right, copied. When \a shaded they run into each other and the bar looks
  /// round; otherwise each takes an equal, flat part of it. Without colours the bar is that of the base class.
  void setDrawingMethod(const SbColor* colors, int count, int shaded);

  /// \name Parts of the drawing
  /// @{
  void drawWithOneColor(QPainter& painter, const QRect& rect) const; ///< a bar of one colour
  void drawWithColorArray(QPainter& painter,
                          const QRect& rect) const; ///< a bar of several colours, shaded or in fields
  void drawSliderTopRegion(QPainter& painter, const QRect& rect) const; ///< the bar's edge and highlight
  /// @}

protected:
  void drawBar(QPainter& painter, const QRect& rect) override;

private:
  std::vector<QColor> m_colors;
  bool m_shaded = true;
};

#endif // QUILLFORM_SODIALOGCUSTOMSLIDER_H
