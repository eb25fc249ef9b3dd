#ifndef QUILLFORM_SOPREFERENCES_H
#define QUILLFORM_SOPREFERENCES_H

#include <Inventor/SbString.h>
#include <Quillform/Export.h>

/// Named settings of the process: values stored by the application first, the environment second.
///
/// The store lives as long as the process and starts empty. Names are compared exactly.
class QUILLFORM_API SoPreferences {
public:
  /// The stored value of \a name, else the environment variable of that name, else \a defaultValue.
  static SbString getString(const SbString& name, const SbString& defaultValue);

  /// Stores \a value; from now on it hides an environment variable of the same name.
  static void setString(const SbString& name, const SbString& value);

  /// Forgets the stored value; an environment variable of the same name shows through again.
  static void unset(const SbString& name);

  /// TRUE when \a name is stored or stands in the environment, even with an empty value.
  static SbBool isSet(const SbString& name);
};

#endif // QUILLFORM_SOPREFERENCES_H
