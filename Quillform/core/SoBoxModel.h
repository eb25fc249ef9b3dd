#ifndef QUILLFORM_SOBOXMODEL_H
#define QUILLFORM_SOBOXMODEL_H

#include <Inventor/SbVec2i32.h>
#include <QRect>
#include <QSize>
#include <Quillform/Export.h>
#include <Quillform/core/SoSizingFields.h>
#include <memory>
#include <vector>

class QBoxLayout;
class QWidget;
class SoTopComponent;
struct SoPlannedContents;

/// The sizes of the children of a container that stacks them along one axis, and what follows from them.
class QUILLFORM_API SoBoxModel {
public:
  /// \a axis is 0 for children side by side, 1 for children one below the other.
  explicit SoBoxModel(int axis);

  /// Changes the axis; for a container that knows it only once it is constructed.
  void setAxis(int axis);

  /// The spacing that a layout of the window gets, and the plan: a negative one would mean the style's own to Qt.
  static int getLayoutSpacing(int spacing);

  /// Keeps sums of absurd sizes within what a window can have.
  static int clampPixels(long long pixels);

  using Children = std::vector<SoTopComponent*>; ///< the elements of a box, in order

  /// Asks every child for its size and bounds. A menu bar keeps its least height.
  void measure(const Children& children);

  /// Forgets the children's sizes and starts the distribution at the first child again.
  void clear();

  /// The container's size and bounds: children summed along the axis and the largest taken across it, with
  /// \a margin pixels on every side and \a spacing pixels between consecutive children.
  void getTotal(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max, int margin, int spacing, int menuBars) const;

  /// The least size in which the measured children, with \a spacing pixels between them, do not overlap.
  SbVec2i32 getLeastSize(int spacing) const;

  /// What \a child may not go below in a layout, between the bounds that its getSize() gave.
  static SbVec2i32 getLeastSizeOf(SoTopComponent* child, SbVec2i32 size, SbVec2i32 min, SbVec2i32 max);

  /// Raises what a container chose to \a needed, unless its author wants it to become smaller.
  static void leaveRoom(const SbVec2i32& needed, const SoSizingFields::Values& authored, SbVec2i32& size,
                        SbVec2i32& min, SbVec2i32& max);

  /// Spreads the difference between \a length, along the axis, and the default length over the children, a
  /// pixel at a time, each within its bounds, starting where the last call stopped.
  void distribute(int length, int defaultLength);

  /// The size wanted for a child.
  const SbVec2i32& getChildSize(std::size_t index) const;

  /// Builds the widgets of the children inside \a parent, tells each the size wanted for it and brings their cells in
  /// \a layout into the order of the list. The layout places nothing meanwhile.
  void buildWidgets(const Children& children, QWidget* parent, QBoxLayout* layout) const;

  /// How many of the children have widgets that have to be built anew.
  static int countOutdated(const Children& children, const QWidget* parent);

  /// TRUE when all children without widgets stand behind all whose widgets are there and up to date: their widgets will
  /// be in order.
  static bool appends(const Children& children, const QWidget* parent);

  /// The rectangles of the children inside a container of \a size, as a layout of the window with \a margin pixels
  /// on every side places them.
  std::vector<QRect> plan(const Children& children, const QSize& size, int spacing, int margin,
                          bool verticalCells) const;

  /// Builds the 3D forms of all children into such a plan.
  static void build3D(const Children& children, const std::vector<QRect>& plan);

  /// What such a layout wants of the frame around it.
  SoPlannedContents planContents(const Children& children, int spacing, int margin, bool verticalCells) const;

  /// \name Alignment of labels and controls
  /// @{

  /// What a child whose label is hidden gets for the height of its label.
  enum HiddenLabels { HIDDEN_LABELS_HAVE_NO_HEIGHT, HIDDEN_LABELS_KEEP_HEIGHT };

  /// Gives all children a label column as wide as the widest visible label.
  static void giveCommonLabelColumn(const Children& children, HiddenLabels hidden);

  /// Gives all children a control column as wide as the widest control, and each its own height.
  static void giveCommonComponentColumn(const Children& children);

  /// Gives every child the label and the control size that it needs itself.
  static void giveOwnLabelSizes(const Children& children);
  static void giveOwnComponentSizes(const Children& children); ///< gives each child a control column of its own
  /// @}

private:
  static void order(const Children& children, QBoxLayout* layout);
  std::unique_ptr<QBoxLayout> createPlan(const Children& children, std::vector<QRect>& rects, int spacing, int margin,
                                         bool verticalCells) const;

  struct Entry {
    SbVec2i32 size{0, 0};
    SbVec2i32 min{0, 0};
    SbVec2i32 max{0, 0};
    SbVec2i32 least{0, 0}; // of the cell
    bool isBar = false;    // a menu bar
  };
  int m_axis;
  std::size_t m_cursor = 0; // the child that gets the next pixel
  std::vector<Entry> m_entries;
};

#endif // QUILLFORM_SOBOXMODEL_H
