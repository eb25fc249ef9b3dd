#include <Quillform/platform/SoPreferences.h>

#include <cstdlib>
#include <map>
#include <string>

namespace {

std::map<std::string, std::string>& store()
{
  static std::map<std::string, std::string> values;
  return values;
}

/// The value in force, or nullptr when the name is set nowhere.
const char* lookUp(const SbString& name)
{
  const auto found = store().find(name.getString());
  return found != store().end() ? found->second.c_str() : std::getenv(name.getString());
}

} // namespace

SbString SoPreferences::getString(const SbString& name, const SbString& defaultValue)
{
  const char* value = lookUp(name);
  return value ? SbString(value) : defaultValue;
}

void SoPreferences::setString(const SbString& name, const SbString& value)
{
  store()[name.getString()] = value.getString();
}

void SoPreferences::unset(const SbString& name)
{
  store().erase(name.getString());
}

SbBool SoPreferences::isSet(const SbString& name)
{
  return lookUp(name) != nullptr;
}
