#ifndef QUILLFORM_VIEW_SCENEPICTURE_H
#define QUILLFORM_VIEW_SCENEPICTURE_H

#include <QImage>

class DialogScene;

/// Draws a dialog in the scene without a window.
class ScenePicture {
public:
  /// A picture of that size; throws a Failure when the display cannot draw it.
  static QImage draw(DialogScene& scene, const QSize& size);
};

#endif // QUILLFORM_VIEW_SCENEPICTURE_H
