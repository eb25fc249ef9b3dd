#include <Quillform/platform/SoNestingCheck.h>

#include <fstream>
#include <iterator>
#include <string>

namespace {

/// Position of the last character of the string or comment that starts at \a at; lines are counted on the way.
std::size_t skipQuoted(const std::string& text, std::size_t at, int& line)
{
  const bool isComment = text[at] == '#';
  const char end = isComment ? '\n' : '"';
  std::size_t i = at + 1;
  for (; i < text.size() && text[i] != end; i++) {
    if (text[i] == '\n') {
      ++line;
    }
    if (text[i] == '\\' && !isComment) {
      ++i;
    }
  }
  if (isComment) {
    ++line;
  }
  return i;
}

} // namespace

int SoNestingCheck::findTooDeepLine(const SbString& path)
{
  std::ifstream file(path.getString(), std::ios::binary);
  const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  const std::string firstLine = text.substr(0, text.find('\n'));
  if (firstLine.find("ascii") == std::string::npos) {
    return 0;
  }
  int depth = 0;
  int line = 1;
  for (std::size_t at = 0; at < text.size(); at++) {
    switch (text[at]) {
    case '"':
    case '#':
      at = skipQuoted(text, at, line);
      break;
    case '\n':
      ++line;
      break;
    case '{':
      if (++depth > maxDepth) {
        return line;
      }
      break;
    case '}':
      --depth;
      break;
    default:
      break;
    }
  }
  return 0;
}
