#ifndef QUILLFORM_SOWATCHEDFIELDS_H
#define QUILLFORM_SOWATCHEDFIELDS_H

#include <Inventor/fields/SoField.h>
#include <Inventor/sensors/SoFieldSensor.h>
#include <Quillform/Export.h>
#include <memory>
#include <vector>

/// The fields of one element whose changes reach its screen forms at once.
///
/// Every watched field has one sensor of priority 0, which fires inside the call that changed the field.
class QUILLFORM_API SoWatchedFields {
public:
  /// \a callback runs with \a data on every change of a watched field.
  SoWatchedFields(SoSensorCB* callback, void* data);

  SoWatchedFields(const SoWatchedFields&) = delete;
  SoWatchedFields& operator=(const SoWatchedFields&) = delete;

  /// Starts to watch \a field; does nothing when it is watched already.
  void watch(SoField& field);

  /// The field whose change fired \a sensor; nullptr for a sensor that is not one of these.
  static const SoField* getFired(SoSensor* sensor);

  /// Writes \a value without a reaction and without touching the field's default mark: the way in which
  /// the library itself stores what it computed.
  template <class Field, class Value>
  void setQuietly(Field& field, const Value& value);

  /// Keeps one field's sensor detached for as long as it lives, on every way out of the scope.
  class QUILLFORM_API Pause {
  public:
    Pause(SoWatchedFields& watched, SoField& field);
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;

  private:
    SoFieldSensor* m_sensor; // nullptr when the field was not watched, or paused already
    SoField& m_field;
  };

private:
  SoFieldSensor* find(const SoField& field) const;

  struct Entry {
    SoField* field;
    std::unique_ptr<SoFieldSensor> sensor;
  };
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
  const Pause pause(*this, field);
  const SbBool wasDefault = field.isDefault();
  field.setValue(value);
  field.setDefault(wasDefault);
}

#endif // QUILLFORM_SOWATCHEDFIELDS_H
