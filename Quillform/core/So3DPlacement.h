#ifndef QUILLFORM_SO3DPLACEMENT_H
#define QUILLFORM_SO3DPLACEMENT_H

#include <Inventor/SbVec2f.h>
#include <Inventor/SbVec2i32.h>
#include <QRect>
#include <Quillform/Export.h>

class SoGroup;
class SoTransform;

/// Placing parts of a skin, which are of unit size, in a dialog's plane.
class QUILLFORM_API So3DPlacement {
public:
  /// Puts a transform in front of everything in \a group, which owns it.
  static SoTransform* insertTransform(SoGroup* group);

  /// Scales a part to \a size around \a centre, both in scene units; the part's own plane stands at \a z.
  static void place(SoTransform* transform, const SbVec2f& centre, const SbVec2f& size, float z);

  /// Scales a part into \a rect, which is measured from the top-left corner of a frame of \a frameSize whose centre
  /// is the origin.
  static void place(SoTransform* transform, const QRect& rect, const SbVec2i32& frameSize, float z);
};

#endif // QUILLFORM_SO3DPLACEMENT_H
