#ifndef QUILLFORM_SOQTSLIDERDRAWING_H
#define QUILLFORM_SOQTSLIDERDRAWING_H

#include <QPalette>
#include <QRect>
#include <Quillform/Export.h>

class QPainter;

/// \name Bevels of a slider
/// All of them draw inside the rectangle, in the colours of the palette.
/// @{

/// The edge of a groove that lies below the surface.
QUILLFORM_API void SoDrawDownUIBorders(QPainter& painter, const QRect& rect, const QPalette& palette);

/// A groove: its edge and its floor.
QUILLFORM_API void SoDrawDownUIRegion(QPainter& painter, const QRect& rect, const QPalette& palette);

/// A plate that stands out of the surface.
QUILLFORM_API void SoXtUIRegion(QPainter& painter, const QRect& rect, const QPalette& palette);

/// The piece that the user drags: a plate with a line that marks its middle.
QUILLFORM_API void SoDrawThumbUIRegion(QPainter& painter, const QRect& rect, const QPalette& palette);
/// @}

#endif // QUILLFORM_SOQTSLIDERDRAWING_H
