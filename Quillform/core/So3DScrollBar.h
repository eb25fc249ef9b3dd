#ifndef QUILLFORM_SO3DSCROLLBAR_H
#define QUILLFORM_SO3DSCROLLBAR_H

#include <Inventor/SbVec2i32.h>
#include <Inventor/SbVec3f.h>
#include <QRect>
#include <Quillform/Export.h>

class SoSeparator;
class SoSwitch;
class SoTransform;

/// A scroll bar in the scene: a groove with a cursor in it and a button at each end.
///
/// It knows how far its element is scrolled; the nodes are catalog parts of the element.
class QUILLFORM_API So3DScrollBar {
public:
  /// Along which axis it scrolls.
  enum Direction { HORIZONTAL, VERTICAL };

  /// The buttons at the ends: towards the beginning, and towards the end.
  enum Button { BACK, FORTH };

  /// The parts that the bar consists of.
  struct Parts {
    SoSwitch* bar;            ///< holds all of it
    SoSeparator* buttons[2];  ///< by Button
    SoSwitch* buttonLooks[2]; ///< by Button: released is child 0, pressed child 1
    SoSeparator* groove;      ///< what the cursor moves in
    SoSeparator* cursor;      ///< the piece that is dragged
  };
  void attach(Direction direction, const Parts& parts); ///< says once what the bar is made of

  /// Places the bar in \a rect, which is measured from the top-left corner of a frame of \a frameSize whose centre
  /// is the origin, at the height \a z.
  void place(const QRect& rect, const SbVec2i32& frameSize, float z);

  void show(bool visible); ///< shows or hides the bar

  /// TRUE after show(true).
  bool isShown() const;

  /// \a content and the part of it that is shown at a time, in scene units.
  void setRange(float content, float page);

  /// How much of the content has been scrolled out at the beginning; never beyond the range.
  float getScrolled() const;
  void scrollTo(float scrolled); ///< scrolls to a place, kept within the range
  float getEnd() const;          ///< the most that it can be scrolled
  float getPage() const;         ///< see setRange

  void press(Button button, bool down); ///< shows that a button is held down or not

  /// The amount of content that the cursor passes when it moves by \a distance along the bar.
  float toContent(float distance) const;

  /// The coordinate of a point along the bar's direction, growing towards the end.
  float along(const SbVec3f& point) const;

  /// -1 for a point before the cursor, 1 for one behind it, else 0; relative to the frame's centre.
  int getSideOfCursor(const SbVec3f& point) const;

private:
  void placePart(SoTransform* transform, float start, float length, float around, float z) const;
  void placeCursor();

  Direction m_direction = VERTICAL;
  Parts m_parts = {};
  SoTransform* m_buttonTransforms[2] = {nullptr, nullptr}; // below the buttons, which own them
  SoTransform* m_grooveTransform = nullptr;                // below the groove, which owns it
  SoTransform* m_cursorTransform = nullptr;                // below the cursor, which owns it
  SbVec3f m_corner{0.0F, 0.0F, 0.0F};                      // top-left corner of the bar, in the frame
  float m_length = 0.0F;
  float m_thickness = 0.0F;
  float m_buttonLength = 0.0F;
  float m_cursorStart = 0.0F; // from the beginning of the bar
  float m_cursorLength = 0.0F;
  float m_content = 0.0F;
  float m_page = 0.0F;
  float m_scrolled = 0.0F;
};

#endif // QUILLFORM_SO3DSCROLLBAR_H
