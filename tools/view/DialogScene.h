#ifndef QUILLFORM_VIEW_DIALOGSCENE_H
#define QUILLFORM_VIEW_DIALOGSCENE_H

#include <Inventor/SbBox3f.h>
#include <Inventor/SbColor.h>
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

  /// The camera and the dialog.
  SoSeparator* getRoot() const;

  /// The size in pixels at which the texts are read well.
  QSize getNaturalSize() const;

  /// Makes the camera show the whole dialog, as large as it can be, in a picture of that size.
  void fit(const QSize& picture);

private:
  SoSeparator* m_root;            // referenced
  SoOrthographicCamera* m_camera; // below the root, which owns it
  SbBox3f m_box;                  // what is to be seen, with some room around it
};

#endif // QUILLFORM_VIEW_DIALOGSCENE_H
