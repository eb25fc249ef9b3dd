#ifndef QUILLFORM_SO3DMENULINE_H
#define QUILLFORM_SO3DMENULINE_H

#include <Quillform/core/So3DText.h>

class SoMaterial;
class SoSeparator;
class SoSwitch;

/// One line of an open menu in the scene: a text at the left and the name of the shortcut at the right, on a plate that
/// shows whether the line is held down.
///
/// The nodes belong to the group that they are attached to.
class So3DMenuLine {
public:
  /// Where a line stands. Everything is in pixels.
  struct Place {
    QRect rect;      ///< of the line, from the top-left corner of a frame whose centre is the origin
    SbVec2i32 frame; ///< size of that frame
    int text;        ///< left end of the text within the line
    int shortcut;    ///< right end of the shortcut within the line
    float plate;     ///< height of the plate's foot
    float surface;   ///< height of what the texts stand on
  };

  /// The geometry of the plate; nothing for a line that has a plate of its own.
  struct Plates {
    SoGroup* released = nullptr; ///< at rest
    SoGroup* held = nullptr;     ///< while it is held down
  };

  /// Adds the line to \a group, which holds the text properties \a properties already. \a look, of the element, says
  /// how a disabled text looks.
  void attach(SoSeparator* group, SoGroup* properties, SoMaterial* look, const Plates& plates);

  /// TRUE once attach() was called.
  bool isAttached() const;

  /// Both as they are displayed, Latin-1.
  void setTexts(const SbString& text, const SbString& shortcut);

  void place(const Place& place, int alignment, SoGetBoundingBoxAction* action); ///< places the line
  void setHeld(bool held); ///< shows that the line is held down or not

  /// Forgets measured extents, after the font has changed.
  void forgetExtents();

private:
  So3DText m_text;
  So3DText m_shortcut;
  SbString m_shownText; // measuring a text anew takes long
  SbString m_shownShortcut;
  SoSwitch* m_looks = nullptr;    // of the plate; nullptr without one
  SoTransform* m_plate = nullptr; // likewise
};

#endif // QUILLFORM_SO3DMENULINE_H
