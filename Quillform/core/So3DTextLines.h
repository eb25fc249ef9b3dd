#ifndef QUILLFORM_SO3DTEXTLINES_H
#define QUILLFORM_SO3DTEXTLINES_H

#include <Inventor/SbVec2i32.h>
#include <QHash>
#include <QRect>
#include <QString>
#include <QStringList>
#include <Quillform/Export.h>

class SoGetBoundingBoxAction;
class SoGroup;
class SoNode;
class SoSeparator;
class SoText3;
class SoTransform;

/// The lines of an editor in the scene, of which only what has room in the editor's frame is shown.
///
/// Unlike So3DText, a text that is too large is not made smaller: whole lines and characters are left out, and
/// the editor scrolls. The nodes belong to the group that they are attached to.
class QUILLFORM_API So3DTextLines {
public:
  /// Adds the text's nodes to \a group, which holds the text properties \a properties already. \a look, of the
  /// element, says how a disabled text looks; \a action, of the element, measures.
  void attach(SoGroup* group, SoGroup* properties, SoNode* look, SoGetBoundingBoxAction* action);

  /// TRUE once attach() was called.
  bool isAttached() const;

  /// Replaces the lines by the one line \a text.
  void setLine(const QString& text);

  /// Replaces the lines by those of \a text. Where \a maxWidth is above 0, a line that is wider, in scene units, is
  /// broken at a blank or, in a word that is too long, anywhere; nothing is left out or repeated.
  void setLines(const QString& text, float maxWidth);

  int getNum() const; ///< number of lines

  /// Height of a line, width of one and of the widest one, in scene units.
  float getLineHeight() const;
  float getWidth(int index) const; ///< in scene units, of one line or of the widest
  float getWidth() const;          ///< in scene units, of one line or of the widest

  /// Shows lines in \a rect, which is measured from the top-left corner of a frame of \a frameSize whose centre is
  /// the origin: from line \a first on, and each of them from \a scrolled on. A first line that is higher than the
  /// rectangle is made to fit.
  void show(const QRect& rect, const SbVec2i32& frameSize, int first, float scrolled, float z);

  /// As show, with the last line only, and of that its end.
  void showEnd(const QRect& rect, const SbVec2i32& frameSize, float z);

  /// Where the text ends: x, the vertical middle of its last line and the height of that, in the coordinates of the
  /// frame. False while the last line is not shown.
  bool getEnd(float& x, float& middle, float& height) const;

  /// Forgets measured widths, after the font has changed.
  void forgetMeasures();

private:
  float measure(const QString& text) const;
  float getAdvance(QChar character) const;
  int getNumThatFit(const QString& text, float room) const;
  int getNumFromEnd(const QString& text, float room) const;
  int getNumLeftOf(const QString& text, float scrolled) const;
  bool place(const QRect& rect, const SbVec2i32& frameSize, int first, float z);
  void wrap(const QString& paragraph, float maxWidth);

  SoTransform* m_transform = nullptr;
  SoText3* m_text = nullptr; // what is shown
  SoGroup* m_properties = nullptr;
  SoGetBoundingBoxAction* m_action = nullptr;
  QStringList m_lines;                    // all of them
  mutable QHash<QString, float> m_widths; // of texts measured so far
  int m_first = 0;                        // line that is shown first
  QRect m_rect;                           // see show
  SbVec2i32 m_frameSize{0, 0};            // see show
  float m_top = 0.0F;                     // upper side of the first line, in the frame
  float m_scale = 1.0F;                   // below 1 where not even one line has room
};

#endif // QUILLFORM_SO3DTEXTLINES_H
