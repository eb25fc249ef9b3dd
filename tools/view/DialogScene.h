#ifndef QUILLFORM_VIEW_DIALOGSCENE_H
#define QUILLFORM_VIEW_DIALOGSCENE_H

#include <Inventor/SbBox3f.h>
#include <Inventor/SbColor.h>
#include <Inventor/SbVec2s.h>
#include <QSize>

class SoOrthographicCamera;
class SoSeparator;
class SoTopLevelDialog;

/// A dialog as geometry, with a camera that stands straight in front of it.
class DialogScene {
public:
  explicit DialogScene(SoTopLevelDialog* dialog);
  ~DialogScene();
  DialogScene(const DialogScene&) = delete;
  DialogScene& operator=(const DialogScene&) = delete;

  static const SbColor background;
  static constexpr int samples = 8; ///< of each pixel, for smooth texts; a display may have fewer

  /// The camera and the dialog.
  SoSeparator* getRoot() const;

  /// The size in pixels at which the texts are read well.
  QSize getNaturalSize() const;

  /// Turns the camera to the dialog, and to all that has opened in it.
  void look();

  /// Where a place of the scene is seen in a picture of a size, from its lower left corner.
  SbVec2s project(const SbVec3f& place, const QSize& picture) const;

  /// Makes the camera show the whole dialog, as large as it can be, in a picture of that size.
  void fit(const QSize& picture);

  /// Does so again for a new size, unless the user has looked closer or from further away since.
  void keepFitted(const QSize& picture);

private:
  SoTopLevelDialog* m_dialog;     // below the root, which owns it
  SoSeparator* m_root;            // referenced
  SoOrthographicCamera* m_camera; // below the root, which owns it
  SbBox3f m_box;                  // what is to be seen, with some room around it
  float m_fittedHeight = 0.0F;    // of the camera
};

#endif // QUILLFORM_VIEW_DIALOGSCENE_H
