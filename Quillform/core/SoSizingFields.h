#ifndef QUILLFORM_SOSIZINGFIELDS_H
#define QUILLFORM_SOSIZINGFIELDS_H

#include <Inventor/SbVec2i32.h>
#include <Inventor/fields/SoSFInt32.h>
#include <Quillform/Export.h>
#include <Quillform/core/SoWatchedFields.h>
#include <algorithm>
#include <array>

/// The six sizing fields of an element: what their author gave them, and what the layout stores in them.
///
/// A layout writes them several times before it has the final values, for every element of a dialog. So it writes them
/// unseen, and announce() then tells whoever watches a field of ours that has changed in the end.
class QUILLFORM_API SoSizingFields {
public:
  /// width, height, minWidth, minHeight, maxWidth, maxHeight, in this order.
  enum Index { WIDTH, HEIGHT, MIN_WIDTH, MIN_HEIGHT, MAX_WIDTH, MAX_HEIGHT, COUNT };
  using Fields = std::array<SoSFInt32*, COUNT>; ///< the six fields, by index
  using Values = std::array<int, COUNT>;        ///< their values, by index

  SoSizingFields(SoWatchedFields& watched, const Fields& fields); ///< for these fields, all of one element

  /// \name What the author gave
  /// @{

  /// Remembers the values and default marks that the fields have now, unless that was done before.
  void captureOnce();

  /// Remembers one field, which the author has just set.
  void captureOne(const SoField* field);

  /// TRUE once the author's values are known.
  bool isCaptured() const;

  /// The remembered values; 0 before anything was captured.
  Values getAuthored() const;

  /// Puts the remembered values back into the fields from \a first on, unseen.
  void restore(Index first = WIDTH);

  /// Lets a layout start from the remembered values, as restore() does, but without writing them: until the next store,
  /// getSize() and getValues() take them instead of the fields. Most layouts come to the same sizes again.
  void plan();

  /// Swaps the remembered values and the momentary ones, seen by nobody: called once before the element
  /// is written and once after.
  void exchange();

  /// Gives the fields, of a copy, what the author gave those of \a other.
  void copyFrom(const SoSizingFields& other);
  /// @}

  /// \name What the layout stores
  /// @{

  /// What the fields hold now.
  Values getValues() const;

  /// Writes one field unseen and leaves its default mark alone.
  void store(Index index, int value);

  /// Writes all.
  void store(const Values& values);

  /// Tells everybody who watches one of the fields, but not the element itself, what has changed since the last time.
  void announce();

  /// Marks as default what is 0 in \a authored, and a maximum that is \a unbounded.
  void markComputed(const Values& authored, int unbounded);
  /// @}

  /// The size and its bounds in pixels, each between 0 and \a limit; \a getDefaults(size, min, max) fills in where a
  /// field is 0, and is asked only then. The maximum wins over a larger minimum.
  template <class GetDefaults>
  void getSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max, int limit, const GetDefaults& getDefaults) const;

private:
  int get(Index index) const
  {
    return m_isPlanning ? m_authored[index].value : m_fields[index]->getValue();
  }

  void endPlan();
  void setMark(Index index, SbBool isDefault);

  struct Authored {
    int value = 0;
    SbBool isDefault = TRUE;
  };
  SoWatchedFields& m_watched;
  Fields m_fields;
  struct Unannounced {
    bool isPending = false;
    int before = 0; // what the watchers know
  };
  std::array<Authored, COUNT> m_authored;
  std::array<Unannounced, COUNT> m_unannounced;
  bool m_captured = false;
  bool m_isPlanning = false; // see plan
};

template <class GetDefaults>
void SoSizingFields::getSize(SbVec2i32& size, SbVec2i32& min, SbVec2i32& max, int limit,
                             const GetDefaults& getDefaults) const
{
  SbVec2i32* const results[] = {&size, &min, &max};
  bool isComputed = false;
  for (int i = 0; i < COUNT; i++) {
    const int pixels = std::clamp(get(static_cast<Index>(i)), 0, limit);
    (*results[i / 2])[i % 2] = pixels;
    isComputed = isComputed || pixels == 0;
  }
  if (isComputed) {
    SbVec2i32 defaults[] = {SbVec2i32(0, 0), SbVec2i32(0, 0), SbVec2i32(0, 0)};
    getDefaults(defaults[0], defaults[1], defaults[2]);
    for (int i = 0; i < COUNT; i++) {
      int& pixels = (*results[i / 2])[i % 2];
      pixels = pixels != 0 ? pixels : defaults[i / 2][i % 2];
    }
  }
  for (int i = 0; i < 2; i++) {
    size[i] = std::min(std::max(size[i], min[i]), max[i]);
  }
}

#endif // QUILLFORM_SOSIZINGFIELDS_H
