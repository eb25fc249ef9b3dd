#ifndef QUILLFORM_SOREADINGORDER_H
#define QUILLFORM_SOREADINGORDER_H

#include <Quillform/Export.h>
#include <vector>

class QWidget;
class SoQuillform;

/// The elements of a dialog in the order in which they are read, which is the order of the nodes. The keyboard goes
/// through them in this order.
class QUILLFORM_API SoReadingOrder {
public:
  /// The outermost element around \a element, or the element itself.
  static SoQuillform* getRoot(SoQuillform* element);

  /// Everything below \a root, each container in front of what it holds.
  static std::vector<SoQuillform*> getElements(SoQuillform* root);

  /// Lets the Tab key go through the widgets of the elements below \a root in their order; \a inside is any widget of
  /// their window. Within an element, and in the rest of the window, the order stays as it is.
  static void applyTo(SoQuillform* root, const QWidget* inside);
};

#endif // QUILLFORM_SOREADINGORDER_H
