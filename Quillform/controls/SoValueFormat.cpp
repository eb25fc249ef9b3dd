#include <Quillform/controls/SoValueFormat.h>

#include <Inventor/errors/SoDebugError.h>
#include <QByteArray>
#include <array>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>

namespace {

/// Reads a whole number at \a at and steps over it. False when it is too large.
bool readNumber(const char*& at, int& number)
{
  number = 0;
  while (*at >= '0' && *at <= '9') {
    number = number * 10 + (*at++ - '0');
    if (number > SoValueFormat::maxNumber) {
      return false;
    }
  }
  return true;
}

/// The digits of a number. Every format of printf stands here as it is written.
std::string printDigits(char conversion, int precision, double value)
{
  // The longest: the largest number without exponent, with all decimals that may be asked for.
  std::array<char, std::numeric_limits<double>::max_exponent10 + SoValueFormat::maxNumber + 8> digits{};
  const auto print = [&digits, precision](const char* format, auto number) {
    std::snprintf(digits.data(), digits.size(), format, precision, number);
  };
  const auto integer = [value] {
    return static_cast<int>(value);
  };
  const auto bits = [value] {
    return static_cast<unsigned int>(static_cast<int>(value));
  };
  switch (conversion) {
  case 'u':
    print("%.*u", bits());
    break;
  case 'o':
    print("%.*o", bits());
    break;
  case 'x':
    print("%.*x", bits());
    break;
  case 'X':
    print("%.*X", bits());
    break;
  case 'f':
    print("%.*f", value);
    break;
  case 'F':
    print("%.*F", value);
    break;
  case 'e':
    print("%.*e", value);
    break;
  case 'E':
    print("%.*E", value);
    break;
  case 'g':
    print("%.*g", value);
    break;
  case 'G':
    print("%.*G", value);
    break;
  default:
    print("%.*d", integer());
  }
  std::string text = digits.data();
  const std::string localMark = std::localeconv()->decimal_point;
  const std::size_t mark = localMark.empty() ? std::string::npos : text.find(localMark);
  return mark == std::string::npos ? text : text.replace(mark, localMark.size(), ".");
}

bool isUnsigned(char conversion)
{
  return std::strchr("uoxX", conversion) != nullptr;
}

QByteArray trimmed(const std::string& text)
{
  return QByteArray(text.c_str()).trimmed();
}

} // namespace

SoValueFormat::SoValueFormat(Kind kind, const char* fallback)
    : m_kind(kind), m_fallback(parse(fallback, kind).value_or(Parsed())), m_parsed(m_fallback)
{
}

std::optional<SoValueFormat::Parsed> SoValueFormat::parse(const std::string& format, Kind kind)
{
  Parsed parsed;
  bool found = false;
  for (const char* at = format.c_str(); *at != '\0'; ++at) {
    std::string& text = found ? parsed.after : parsed.before;
    if (*at != '%') {
      text += *at == '\n' ? ' ' : *at; // the text stands in one line
      continue;
    }
    ++at;
    if (*at == '%') {
      text += '%';
      continue;
    }
    if (found) {
      return std::nullopt; // one number, two conversions
    }
    found = true;
    for (; *at != '\0' && std::strchr("-+ 0", *at); ++at) {
      parsed.left = parsed.left || *at == '-';
      parsed.zeros = parsed.zeros || *at == '0';
      if (*at == '+' || (*at == ' ' && parsed.plus.empty())) {
        parsed.plus = *at;
      }
    }
    if (!readNumber(at, parsed.width)) {
      return std::nullopt;
    }
    if (*at == '.' && !readNumber(++at, parsed.precision)) {
      return std::nullopt;
    }
    if (*at == 'l') {
      ++at; // harmless, and usual in front of the conversion of a long or double
    }
    const char* const allowed = kind == INTEGER ? "diuoxX" : "fFeEgG";
    if (*at == '\0' || !std::strchr(allowed, *at)) {
      return std::nullopt;
    }
    parsed.conversion = *at;
  }
  return found ? std::optional<Parsed>(parsed) : std::nullopt;
}

void SoValueFormat::set(const SbString& format)
{
  const std::optional<Parsed> parsed = parse(format.getString(), m_kind);
  if (!parsed) {
    SoDebugError::post("SoValueFormat::set",
                       "The format \"%s\" is not used: it must hold exactly one conversion of %s number, with a width "
                       "and a precision of at most %d.",
                       format.getString(), m_kind == INTEGER ? "an integer" : "a floating-point", maxNumber);
  }
  m_parsed = parsed.value_or(m_fallback);
}

/// The number with its sign, without padding.
std::string SoValueFormat::convert(double value) const
{
  const std::string digits = printDigits(m_parsed.conversion, m_parsed.precision, value);
  const bool takesSign = digits[0] != '-' && !isUnsigned(m_parsed.conversion);
  return takesSign ? m_parsed.plus + digits : digits;
}

SbString SoValueFormat::printNumber(double value) const
{
  return trimmed(convert(value)).constData();
}

SbString SoValueFormat::print(double value) const
{
  std::string number = convert(value);
  const auto width = static_cast<std::size_t>(m_parsed.width);
  if (number.size() < width) {
    const std::size_t missing = width - number.size();
    const bool padsWithZeros = m_parsed.zeros && std::isfinite(value) && (m_kind == REAL || m_parsed.precision < 0);
    if (m_parsed.left) {
      number.append(missing, ' ');
    }
    else if (padsWithZeros) {
      const bool isSigned = std::strchr("+- ", number[0]) != nullptr;
      number.insert(isSigned ? 1 : 0, missing, '0');
    }
    else {
      number.insert(0, missing, ' ');
    }
  }
  return (m_parsed.before + number + m_parsed.after).c_str();
}

std::optional<double> SoValueFormat::read(const SbString& typed) const
{
  QByteArray text = QByteArray(typed.getString()).trimmed();
  const QByteArray before = trimmed(m_parsed.before);
  const QByteArray after = trimmed(m_parsed.after);
  if (!before.isEmpty() && text.startsWith(before)) {
    text = text.mid(before.size()).trimmed();
  }
  if (!after.isEmpty() && text.endsWith(after)) {
    text = text.left(text.size() - after.size()).trimmed();
  }
  bool isNumber = false;
  double value = 0.0;
  if (m_parsed.conversion == 'x' || m_parsed.conversion == 'X' || m_parsed.conversion == 'o') {
    value = static_cast<double>(text.toLongLong(&isNumber, m_parsed.conversion == 'o' ? 8 : 16));
  }
  else {
    value = text.replace(',', '.').toDouble(&isNumber);
  }
  if (!isNumber || !std::isfinite(value)) {
    return std::nullopt;
  }
  constexpr double largest = std::numeric_limits<std::int32_t>::max();
  constexpr double largestBits = std::numeric_limits<std::uint32_t>::max();
  if (isUnsigned(m_parsed.conversion) && value > largest && value <= largestBits) {
    value -= largestBits + 1.0; // how the conversion shows a negative number
  }
  return value;
}
