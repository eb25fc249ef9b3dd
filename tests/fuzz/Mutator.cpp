// Changes dialog files as their authors would, word by word; a change of single bytes nearly always ends in a file that
// is refused early.

#include <Inventor/SoType.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/lists/SoTypeList.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Quillform/Quillform.h>
#include <Quillform/platform/SoBoundedInput.h>
#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <support/TestFiles.h>
#include <utility>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned int seed);

namespace {

typedef std::vector<std::string> Words;

const Words numbers = {"0",          "1",           "-1",         "2",   "7",    "50",    "400",  "1000",  "65536",
                       "16777215",   "16777216",    "2147483647", "0.5", "-0.5", "1e30",  "-9",   "1e-30", "-1e30",
                       "4294967295", "-2147483648", "nan",        "inf", "TRUE", "FALSE", "NULL", "~",     "MIDDLE"};

const Words texts = {R"("")",         R"("a")",        R"("\n")",          R"("a\nb\nc")",    R"("%d")",
                     R"("%s%n")",     R"("&File")",    R"("&")",           R"("&&")",         R"("\\")",
                     R"("a\tb")",     R"("<b>x</b>")", "\"\xe9\xfc\xa0\"", R"("Ctrl+O")",     R"("1.5")",
                     R"("-")",        R"("%.99f")",    R"("[ "a", "b" ])", R"([ "a", "b" ])", R"([ ])",
                     R"([ "", "" ])", R"("   ")",      R"("*.txt;*.*")"};

/// A class of elements as files know it.
struct Kind {
  std::string name;
  std::vector<std::pair<std::string, std::string>> fields; // with their defaults
};

std::vector<Kind> makeKinds()
{
  std::vector<Kind> kinds;
  SoTypeList types;
  SoType::getAllDerivedFrom(SoQuillform::getClassTypeId(), types);
  for (int i = 0; i < types.getLength(); i++) {
    if (!types[i].canCreateInstance()) {
      continue;
    }
    auto* element = static_cast<SoQuillform*>(types[i].createInstance());
    element->ref();
    Kind kind{types[i].getName().getString(), {}};
    SoFieldList fields;
    element->getFields(fields);
    for (int j = 0; j < fields.getLength(); j++) {
      SbName name;
      SbString value;
      element->getFieldName(fields[j], name);
      fields[j]->get(value);
      kind.fields.emplace_back(name.getString(), value.getString());
    }
    kinds.push_back(kind);
    element->unref();
  }
  return kinds;
}

const std::vector<Kind>& kinds()
{
  static const std::vector<Kind> all = makeKinds();
  return all;
}

/// The words of a file after its first line: texts with their quotes, braces and brackets, and what stands between.
Words split(const std::string& text)
{
  Words words;
  for (std::size_t i = 0; i < text.size();) {
    std::size_t end = i + 1;
    if (text[i] == '"') {
      while (end < text.size() && text[end] != '"') {
        end += text[end] == '\\' ? 2 : 1;
      }
      end = std::min(end + 1, text.size());
    }
    else if (text[i] == '#') {
      i = std::min(text.find('\n', i), text.size());
      continue;
    }
    else if (!std::strchr("{}[],", text[i])) {
      end = std::min(text.find_first_of(" \t\r\n\"#{}[],", i), text.size());
    }
    if (end > i) {
      words.push_back(text.substr(i, end - i));
    }
    i = std::max(end, i + 1);
  }
  words.erase(std::remove_if(words.begin(), words.end(),
                             [](const std::string& word) { return std::strchr(" \t\r\n", word[0]) != nullptr; }),
              words.end());
  return words;
}

class Author {
public:
  Author(Words words, unsigned int seed) : m_words(std::move(words)), m_random(seed) {}

  void change()
  {
    switch (below(13)) {
    case 0:
      erase(below(m_words.size() + 1), 1 + below(3));
      break;
    case 1: // copy something
      insert(placeOfChild(), block(below(m_words.size() + 1)));
      break;
    case 2: // remove something
    {
      const std::size_t at = below(m_words.size() + 1);
      erase(at, block(at).size());
    } break;
    case 3:
    case 4:
      insert(placeOfChild(), newElement());
      break;
    case 5:
    case 6:
    case 7:
      addField();
      break;
    case 8:
      replace([](char first) { return std::isdigit(first) || first == '-'; }, numbers);
      break;
    case 9:
      replace([](char first) { return first == '"'; }, texts);
      break;
    case 10: // move something, maybe inside itself
    {
      const std::size_t at = below(m_words.size() + 1);
      const Words moved = block(at);
      erase(at, moved.size());
      insert(placeOfChild(), moved);
    } break;
    case 11: // name it, or use what has the name
      insert(placeOfChild(), below(2) != 0 ? Words{"USE", name()} : Words{"DEF", name()});
      break;
    default: // let a value depend on another
    {
      const Kind& kind = pick(kinds());
      insert(below(m_words.size() + 1), {"=", name() + "." + pick(kind.fields).first});
    } break;
    }
  }

  const Words& words() const
  {
    return m_words;
  }

private:
  std::size_t below(std::size_t end)
  {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(m_random);
  }

  template <class List>
  const typename List::value_type& pick(const List& list)
  {
    return list[below(list.size())];
  }

  std::string name()
  {
    return std::string(1, static_cast<char>('a' + below(3)));
  }

  void erase(std::size_t at, std::size_t count)
  {
    const std::size_t end = std::min(at + count, m_words.size());
    m_words.erase(m_words.begin() + static_cast<std::ptrdiff_t>(std::min(at, end)),
                  m_words.begin() + static_cast<std::ptrdiff_t>(end));
  }

  void insert(std::size_t at, const Words& added)
  {
    m_words.insert(m_words.begin() + static_cast<std::ptrdiff_t>(std::min(at, m_words.size())), added.begin(),
                   added.end());
  }

  /// Where a node may stand: behind a brace, or at the start of the file.
  std::size_t placeOfChild()
  {
    std::vector<std::size_t> places = {0};
    for (std::size_t i = 0; i < m_words.size(); i++) {
      if (m_words[i] == "{" || m_words[i] == "}") {
        places.push_back(i + 1);
      }
    }
    return pick(places);
  }

  /// The node that begins at or after \a from, with its name in front and what is between its braces.
  Words block(std::size_t from) const
  {
    int depth = 0;
    for (std::size_t i = from; i < m_words.size(); i++) {
      depth += m_words[i] == "{" ? 1 : m_words[i] == "}" ? -1 : 0;
      if (m_words[i] == "}" && depth <= 0) {
        return {m_words.begin() + static_cast<std::ptrdiff_t>(from),
                m_words.begin() + static_cast<std::ptrdiff_t>(i + 1)};
      }
    }
    return {};
  }

  std::string valueFor(const std::string& usual)
  {
    switch (below(4)) {
    case 0:
      return usual;
    case 1:
      return pick(texts);
    case 2:
      return pick(numbers);
    default: // of the same kind
      return usual == "NULL" ? "Group { Cube { } }" : usual[0] == '"' || usual[0] == '[' ? pick(texts) : pick(numbers);
    }
  }

  Words newElement()
  {
    const Kind& kind = pick(kinds());
    Words words = {kind.name, "{"};
    for (std::size_t i = below(4); i > 0; i--) {
      const auto& field = pick(kind.fields);
      words.push_back(field.first);
      words.push_back(valueFor(field.second));
    }
    words.emplace_back("}");
    return words;
  }

  /// Gives a node a field, nearly always one that its class has.
  void addField()
  {
    std::vector<std::size_t> places;
    for (std::size_t i = 1; i < m_words.size(); i++) {
      if (m_words[i] == "{") {
        places.push_back(i);
      }
    }
    if (places.empty()) {
      return;
    }
    const std::size_t at = pick(places);
    const std::string& around = m_words[at - 1];
    auto kind = std::find_if(kinds().begin(), kinds().end(), [&around](const Kind& one) { return one.name == around; });
    if (kind == kinds().end() || below(20) == 0) {
      kind = kinds().begin() + static_cast<std::ptrdiff_t>(below(kinds().size()));
    }
    const auto& field = pick(kind->fields);
    insert(at + 1, {field.first, valueFor(field.second)});
  }

  template <class Test>
  void replace(Test isOfKind, const Words& values)
  {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < m_words.size(); i++) {
      if (isOfKind(m_words[i][0])) {
        places.push_back(i);
      }
    }
    if (!places.empty()) {
      m_words[pick(places)] = pick(values);
    }
  }

  Words m_words;
  std::mt19937 m_random;
};

/// The first node of a file as the bytes of a binary file; empty when it cannot be read.
std::string asBinary(const std::string& text)
{
  if (text.find('=') != std::string::npos) {
    return {}; // the reader loses nodes, see FuzzTarget.cpp
  }
  SoBoundedInput input;
  input.setBuffer(text.data(), text.size());
  SoSeparator* root = input.readAll();
  if (!root) {
    return {};
  }
  root->ref();
  const std::string bytes = root->getNumChildren() > 0 ? toBinary(root->getChild(0)) : std::string();
  root->unref();
  return bytes;
}

} // namespace

std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned int seed)
{
  std::string text(reinterpret_cast<const char*>(data), size);
  const bool isBinary = text.find('\0') != std::string::npos;
  if (isBinary || seed % 8 == 0) {
    return LLVMFuzzerMutate(data, size, maxSize);
  }
  if (seed % 16 == 1) {
    const std::string binary = asBinary(text);
    if (!binary.empty() && binary.size() <= maxSize) {
      std::memcpy(data, binary.data(), binary.size());
      return LLVMFuzzerMutate(data, binary.size(), maxSize);
    }
  }
  std::string changed;
  if (text.rfind('#', 0) == 0) {
    changed = text.substr(0, text.find('\n')) + "\n";
    text.erase(0, changed.size());
  }
  Author author(split(text), seed);
  for (unsigned int i = seed / 8 % 4; i < 4; i++) {
    author.change();
  }
  for (const std::string& word : author.words()) {
    changed += word + (word == "{" || word == "}" ? '\n' : ' ');
  }
  if (changed.size() > maxSize) {
    return LLVMFuzzerMutate(data, size, maxSize);
  }
  std::memcpy(data, changed.data(), changed.size());
  return changed.size();
}
