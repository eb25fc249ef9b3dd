#ifndef QUILLFORM_SO3DTEXT_H
#define QUILLFORM_SO3DTEXT_H

#include <Inventor/SbBox3f.h>
#include <Inventor/SbString.h>
#include <Inventor/SbVec2i32.h>
#include <QRect>
#include <Quillform/Export.h>

class SoGetBoundingBoxAction;
class SoGroup;
class SoNode;
class SoText3;
class SoTransform;

/// A text in the scene: it fills a rectangle given in pixels the way a Qt label does.
///
/// The nodes belong to the group that they are attached to.
class QUILLFORM_API So3DText {
public:
  /// Adds a text with its place to \a group, behind \a look and so that the letters are picked by their extent.
  static void addNodes(SoGroup* group, SoNode* look, SoTransform* transform, SoText3* text);

  /// Adds the text's nodes to \a group, which holds the text properties \a properties already. \a look, of
  /// the element, says how a disabled text looks.
  void attach(SoGroup* group, SoGroup* properties, SoNode* look);

  /// TRUE once attach() was called.
  bool isAttached() const;

  /// The text as it is displayed, Latin-1; line feeds separate lines.
  void setText(const SbString& text);

  /// Places the text in \a rect, which is measured from the top-left corner of a frame of \a frameSize whose
  /// centre is the origin. \a alignment is a SoQuillform::LabelAlignment; \a z is the height of the surface
  /// that the text stands on. A text that is too wide or too high is made to fit.
  void fit(const QRect& wantedRect, const SbVec2i32& frameSize, int alignment, float z, SoGetBoundingBoxAction* action);

  /// Forgets measured extents, after the font has changed.
  void forgetExtent();

  /// Extent at natural size as last measured; empty before.
  const SbBox3f& getExtent() const;

  /// The right end of the widest line where the text was last placed, in the coordinates of the frame.
  float getRight() const;

  SoText3* getNode() const; ///< the text itself

  /// A line of text with the properties that a group holds, in scene units.
  struct LineMetrics {
    float height;   ///< from one baseline to the next
    float ascent;   ///< from the top of the line to its baseline
    float fontSize; ///< nominal
  };
  static LineMetrics getLineMetrics(const SoGroup* properties); ///< of a line with these properties

private:
  void measure(SoGetBoundingBoxAction* action);

  SoTransform* m_transform = nullptr;
  SoText3* m_text = nullptr;
  SoGroup* m_properties = nullptr;
  SbBox3f m_extent; // of the text at natural size; empty when not measured
  bool m_measured = false;
  float m_right = 0.0F; // see getRight
};

#endif // QUILLFORM_SO3DTEXT_H
