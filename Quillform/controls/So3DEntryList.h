#ifndef QUILLFORM_SO3DENTRYLIST_H
#define QUILLFORM_SO3DENTRYLIST_H

#include <Inventor/fields/SoMFString.h>
#include <Quillform/core/So3DScrollBar.h>
#include <Quillform/core/So3DText.h>
#include <functional>
#include <vector>

class SoGroup;
class SoMaterial;
class SoSeparator;
class SoSwitch;
class SoTransform;

/// The open list of a combo box in the scene: a plate with the entries one below the other and, when there are more
/// than it shows, a scroll bar. Only entries that are in sight have nodes.
class So3DEntryList {
public:
  /// What the list is made of. The groups that several nodes draw are shared.
  struct Parts {
    SoSwitch* list;          ///< holds all of it
    SoSeparator* firstEntry; ///< holds the first entry in sight
    SoSeparator* firstPlate; ///< its plate
    SoSeparator* firstText;  ///< its text
    SoGroup* plate;          ///< geometry of an entry, below firstPlate already
    SoGroup* textProperties; ///< below firstText already
    SoGroup* frame;          ///< geometry of the list's plate and of the chosen entry's
    SoMaterial* textLook;    ///< the colour of its text
  };
  void attach(const Parts& parts); ///< says once what the list is made of

  /// TRUE when \a node is under the pointer.
  using IsPressed = std::function<bool(SoNode* node)>;

  /// Shows the list: \a inSight of \a count entries at a time, in \a rect, which is measured from the top-left corner
  /// of a frame of \a frameSize whose centre is the origin, and on the plane \a z. Raises everything by \a lift.
  void open(const QRect& rect, const SbVec2i32& frameSize, int inSight, int count, float z, float lift);
  void close(); ///< hides the list

  /// TRUE between open() and close().
  bool isOpen() const;

  /// Fills the entries in sight and marks the chosen one.
  void show(const SoMFString& items, int selected, SoGetBoundingBoxAction* action);

  /// Scrolls as far as it takes to have an entry in sight, in the middle if it has to scroll.
  void reveal(int index);
  void scrollBy(int entries); ///< scrolls by a number of entries, upwards when it is negative

  /// The entry that is pressed; -1 when it is none.
  int getPressedEntry(const IsPressed& isPressed) const;

  /// A press on the scroll bar, at \a pointer relative to the frame's centre. FALSE when it is elsewhere.
  bool pressBar(const IsPressed& isPressed, const SbVec3f& pointer);

  /// A motion of the pointer. FALSE when it does not drag the scroll bar.
  bool dragBar(const SbVec3f& pointer);
  void releaseBar(); ///< the scroll bar was let go

private:
  /// One entry in sight.
  struct Row {
    SoSeparator* node;  ///< below the list, which owns it
    SoTransform* plate; ///< likewise
    So3DText text;
  };
  void addRow(SoSeparator* node, SoSeparator* plate, SoSeparator* text);
  void setRowCount(int count);
  void createBar();
  void setCount(int count);
  int getFirst() const;
  QRect getRowRect(int row) const;

  Parts m_parts = {};
  std::vector<Row> m_rows;
  So3DScrollBar m_bar;             // its scale is one entry
  SoSwitch* m_barSwitch = nullptr; // the nodes from here on stand below the list, which owns them
  SoSeparator* m_barButtons[2] = {nullptr, nullptr};
  SoTransform* m_lift = nullptr;
  SoTransform* m_background = nullptr;
  SoTransform* m_mark = nullptr;
  SoSwitch* m_markSwitch = nullptr; // shows the mark while the chosen entry is in sight
  QRect m_rect;                     // of the list in the frame
  SbVec2i32 m_frameSize{0, 0};
  int m_inSight = 0; // most entries that are shown at a time
  int m_count = 0;   // of all entries
  float m_z = 0.0F;
  bool m_isDragged = false; // the cursor of the scroll bar is held down
  float m_dragStart = 0.0F; // of the pointer along the bar
  float m_scrolledAtStart = 0.0F;
};

#endif // QUILLFORM_SO3DENTRYLIST_H
