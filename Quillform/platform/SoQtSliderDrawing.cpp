#include <Quillform/platform/SoQtSliderDrawing.h>

#include <QPainter>
#include <qdrawutil.h>

void SoDrawDownUIBorders(QPainter& painter, const QRect& rect, const QPalette& palette)
{
  qDrawShadePanel(&painter, rect, palette, true, 1);
}

void SoDrawDownUIRegion(QPainter& painter, const QRect& rect, const QPalette& palette)
{
  painter.fillRect(rect, palette.base());
  SoDrawDownUIBorders(painter, rect, palette);
}

void SoXtUIRegion(QPainter& painter, const QRect& rect, const QPalette& palette)
{
  painter.fillRect(rect, palette.button());
  painter.setPen(palette.color(QPalette::Shadow));
  painter.drawRect(rect.adjusted(0, 0, -1, -1));
  qDrawShadePanel(&painter, rect.adjusted(1, 1, -1, -1), palette, false, 1);
}

void SoDrawThumbUIRegion(QPainter& painter, const QRect& rect, const QPalette& palette)
{
  SoXtUIRegion(painter, rect, palette);
  painter.setPen(palette.color(QPalette::ButtonText));
  const int middle = rect.center().x();
  painter.drawLine(middle, rect.top() + 4, middle, rect.bottom() - 4);
}
