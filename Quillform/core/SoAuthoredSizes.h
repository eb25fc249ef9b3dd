#ifndef QUILLFORM_SOAUTHOREDSIZES_H
#define QUILLFORM_SOAUTHOREDSIZES_H

#include <Inventor/fields/SoSFInt32.h>
#include <Quillform/Export.h>
#include <Quillform/core/SoWatchedFields.h>
#include <array>

/// What the author gave the six sizing fields, before the layout stored its results in them.
class QUILLFORM_API SoAuthoredSizes {
public:
  /// width, height, minWidth, minHeight, maxWidth, maxHeight, in this order.
  using Fields = std::array<SoSFInt32*, 6>;
  enum Index { WIDTH, HEIGHT, MIN_WIDTH, MIN_HEIGHT, MAX_WIDTH, MAX_HEIGHT };

  SoAuthoredSizes(SoWatchedFields& watched, const Fields& fields);

  /// Remembers the values and default marks that the fields have now.
  void capture();

  /// Remembers one field, which the author has just set; TRUE when it is one of the six.
  bool captureOne(const SoField* field);

  bool isCaptured() const;

  /// The remembered value; 0 before anything was captured.
  int get(Index index) const;

  /// Puts the remembered values back into the fields, without a reaction.
  void restore();

  /// Puts back the limits only, not width and height.
  void restoreLimits();

  /// Swaps the remembered values and the momentary ones, unseen by anybody: called once before the element
  /// is written and once after.
  void exchange();

  /// Gives the fields, of a copy, what the author gave those of \a other.
  void copyFrom(const SoAuthoredSizes& other);

private:
  void restoreFrom(int first);

  struct Value {
    int value = 0;
    SbBool isDefault = TRUE;
  };
  SoWatchedFields& m_watched;
  Fields m_fields;
  std::array<Value, 6> m_values;
  bool m_captured = false;
};

#endif // QUILLFORM_SOAUTHOREDSIZES_H
