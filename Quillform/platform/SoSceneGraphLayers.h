#ifndef QUILLFORM_SOSCENEGRAPHLAYERS_H
#define QUILLFORM_SOSCENEGRAPHLAYERS_H

#include <Quillform/Export.h>

/// Counted start and finish of the scene-graph database, its node kits and its interaction layer.
///
/// The scene-graph library starts each layer once, however often it is asked to, and its own finish is
/// final for the process and not counted. The application may own scene graph that outlives its dialogs,
/// so a finish is only counted here and the layers are left running.
class QUILLFORM_API SoSceneGraphLayers {
public:
  /// Starts the database, the node kits and the interaction layer, in that order.
  static void start();

  /// Undoes one start(). Does nothing without a start to undo.
  static void finish();

  /// Number of starts that have not been finished.
  static int getCount();
};

#endif // QUILLFORM_SOSCENEGRAPHLAYERS_H
