#ifndef QUILLFORM_SOVALUEFORMAT_H
#define QUILLFORM_SOVALUEFORMAT_H

#include <Inventor/SbString.h>
#include <Quillform/Export.h>
#include <optional>
#include <string>

/// The text of a number after a printf-style format that comes from a dialog file.
///
/// The format is taken apart, never handed to printf: it must hold exactly one conversion, of the right kind, whose
/// width and precision are of a sensible size. `%%` is a per cent sign, all other text is kept. The decimal mark is
/// a point wherever the program runs.
class QUILLFORM_API SoValueFormat {
public:
  /// What the conversion prints.
  enum Kind {
    INTEGER, ///< %d %i %u %o %x %X
    REAL     ///< %f %F %e %E %g %G
  };

  /// Largest width and precision that a format may ask for.
  static constexpr int maxNumber = 64;

  /// \a fallback is used until set() gets a format that can be.
  SoValueFormat(Kind kind, const char* fallback);

  /// Uses \a format, or the fallback, after a message, when it cannot be used.
  void set(const SbString& format);

  /// The text of \a value, which is an integer in the range of 32 bits when the kind is INTEGER.
  SbString print(double value) const;

  /// The number alone, without the text around it and without padding.
  SbString printNumber(double value) const;

  /// The number that a text typed by the user stands for; nothing when it is no finite number. The text around the
  /// number may be there, and the decimal mark may be a comma.
  std::optional<double> read(const SbString& typed) const;

private:
  struct Parsed {
    std::string before; // the text around the number
    std::string after;
    bool left = false;  // flag "-"
    bool zeros = false; // flag "0"
    std::string plus;   // what stands in front of a number that is not negative
    int width = 0;      // smallest number of characters
    int precision = -1; // -1 is the conversion's own
    char conversion = 'd';
  };
  static std::optional<Parsed> parse(const std::string& format, Kind kind);
  std::string convert(double value) const;

  Kind m_kind;
  Parsed m_fallback;
  Parsed m_parsed;
};

#endif // QUILLFORM_SOVALUEFORMAT_H
