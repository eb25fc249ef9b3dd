#include <Quillform/platform/SbFileHelper.h>

#include <cctype>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace {

bool isNameCharacter(char c)
{
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

/// Reads the variable reference that starts at the dollar sign \a at, appends what it stands for to
/// \a result, and returns the position behind the reference.
std::size_t expandVariable(const std::string& text, std::size_t at, std::string& result)
{
  const bool braced = at + 1 < text.size() && text[at + 1] == '{';
  const std::size_t nameStart = at + (braced ? 2 : 1);
  std::size_t nameEnd = nameStart;
  while (nameEnd < text.size() && isNameCharacter(text[nameEnd])) {
    ++nameEnd;
  }
  const bool closed = !braced || (nameEnd < text.size() && text[nameEnd] == '}');
  const char* value =
    closed && nameEnd > nameStart ? std::getenv(text.substr(nameStart, nameEnd - nameStart).c_str()) : nullptr;
  if (!value) {
    result += '$';
    return at + 1;
  }
  result += value;
  return nameEnd + (braced ? 1 : 0);
}

} // namespace

SbString SbFileHelper::expandString(const SbString& path)
{
  const std::string text = path.getString();
  std::string result;
  std::size_t at = 0;
  const char* home = std::getenv("HOME");
  if (home && !text.empty() && text[0] == '~' && (text.size() == 1 || text[1] == '/')) {
    result = home;
    at = 1;
  }
  while (at < text.size()) {
    if (text[at] == '$') {
      at = expandVariable(text, at, result);
    }
    else {
      result += text[at++];
    }
  }
  return result.c_str();
}

SbString SbFileHelper::toUnixPath(const SbString& path)
{
  std::string text = path.getString();
  for (char& c : text) {
    if (c == '\\') {
      c = '/';
    }
  }
  return text.c_str();
}

SbBool SbFileHelper::isAccessible(const SbString& path)
{
  return path.getLength() > 0 && access(path.getString(), R_OK) == 0;
}
