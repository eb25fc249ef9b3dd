#ifndef QUILLFORM_SOINSCENEMODE_H
#define QUILLFORM_SOINSCENEMODE_H

#include <Inventor/SbBasic.h>
#include <Quillform/Export.h>

/// The process-wide choice between the two forms of a dialog, off at start.
///
/// While it is enabled, SoTopLevelDialog::buildDialog makes geometry for the scene; while it is not,
/// it makes a window. A dialog that is built already keeps its form.
class QUILLFORM_API SoInSceneMode {
public:
  static void setEnabled(SbBool enabled); ///< chooses the form of dialogs that are built from now on

  /// TRUE when they are built as geometry.
  static SbBool isEnabled();
};

#endif // QUILLFORM_SOINSCENEMODE_H
