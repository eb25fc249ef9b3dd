#ifndef QUILLFORM_SOWATCHEDFIELDS_H
#define QUILLFORM_SOWATCHEDFIELDS_H

#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/sensors/SoSensor.h>
#include <Quillform/Export.h>
#include <vector>

/// The fields of one element whose changes reach its screen forms at once.
///
/// The element passes on every notification of its own fields. A change of a watched one runs the element's callback
/// like a field sensor of priority 0 would: inside the call that changed the field, after everybody else was told.
/// All elements share one sensor, because those of a large dialog watch tens of thousands of fields.
class QUILLFORM_API SoWatchedFields {
public:
  /// \a callback runs with \a data on every change of a watched field.
  SoWatchedFields(SoSensorCB* callback, void* data);
  ~SoWatchedFields();

  SoWatchedFields(const SoWatchedFields&) = delete;
  SoWatchedFields& operator=(const SoWatchedFields&) = delete;

  /// Starts to watch \a field; does nothing when it is watched already.
  void watch(const SoField& field);

  /// To be called when \a field, any field of the element, has changed.
  void fieldChanged(const SoField* field);

  /// TRUE when a field has changed, watched or not, since the last forgetChanges().
  bool hasChanges() const;
  void forgetChanges(); ///< counts from now on

  /// The field whose change fired \a sensor; nullptr for a sensor that is not the elements' own.
  static const SoField* getFired(SoSensor* sensor);

  /// Writes \a value without a reaction and without touching the field's default mark: the way in which
  /// the library itself stores what it computed. Whoever watches the field itself is told; the scene above is not,
  /// a number alone gives it nothing to draw.
  template <class Field, class Value>
  void setQuietly(Field& field, const Value& value);

  /// Tells whoever watches \a field that it has changed, as setQuietly does. This is no change for hasChanges(). To be
  /// called between SoDB::startNotify() and SoDB::endNotify(), which is when sensors without a priority are called.
  void touchQuietly(SoField& field);

  /// Keeps one field from having reactions for as long as it lives, on every way out of the scope.
  class QUILLFORM_API Pause {
  public:
    Pause(SoWatchedFields& watched, const SoField& field); ///< begins the pause
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

  private:
    SoWatchedFields& m_watched;
    std::size_t m_index; // of the entry, which keeps its place; none when the field is not watched yet
  };

private:
  struct Entry {
    const SoField* field;
    int pauses;
  };
  static constexpr std::size_t none = SIZE_MAX;
  std::size_t find(const SoField& field) const; ///< index of the entry
  static void runCallbacks(void* data, SoSensor* sensor);

  bool m_hasChanges = false;
  const SoField* m_touched = nullptr; // by touchQuietly() right now
  SoSensorCB* m_callback;
  void* m_data;
  std::vector<Entry> m_entries;
};

template <class Field, class Value>
void SoWatchedFields::setQuietly(Field& field, const Value& value)
{
  if (field.getValue() == value) {
    return;
  }
  m_hasChanges = true;
  const Pause pause(*this, field);
  const SbBool wasDefault = field.isDefault();
  SoFieldContainer* element = field.getContainer();
  const SbBool wasNotifying = element->enableNotify(FALSE);
  field.setValue(value);
  element->enableNotify(wasNotifying);
  field.setDefault(wasDefault);
}

#endif // QUILLFORM_SOWATCHEDFIELDS_H
