#ifndef QUILLFORM_SO3DPLACEMENT_H
#define QUILLFORM_SO3DPLACEMENT_H

#include <Inventor/SbVec2f.h>
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
};

#endif // QUILLFORM_SO3DPLACEMENT_H
