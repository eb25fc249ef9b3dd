#ifndef QUILLFORM_SOTEXT_H
#define QUILLFORM_SOTEXT_H

#include <Inventor/SbString.h>
#include <QString>
#include <string>

/// The border between the 8-bit texts of fields and Qt's texts. Characters outside Latin-1 are not preserved.
class SoText {
public:
  /// The text of a field for Qt.
  static QString toQt(const SbString& text)
  {
    return QString::fromLatin1(text.getString());
  }

  /// A text of Qt for a field.
  static SbString fromQt(const QString& text)
  {
    return text.toLatin1().constData();
  }

  /// The text written in such a way that SoQuillform::convertToCString gives it back.
  static SbString withEscapes(const SbString& text)
  {
    std::string escaped;
    for (const char* at = text.getString(); *at != '\0'; ++at) {
      escaped += *at == '\\' ? "\\\\" : std::string(1, *at);
    }
    return escaped.c_str();
  }

  /// The text as Qt shows it on a button: a single "&" marks the mnemonic letter and is not shown.
  static SbString withoutMnemonic(const SbString& text)
  {
    const std::string marked = text.getString();
    std::string shown;
    for (std::size_t i = 0; i < marked.size(); i++) {
      if (marked[i] == '&') {
        ++i; // the letter behind it is shown, also when it is another "&"
      }
      if (i < marked.size()) {
        shown += marked[i];
      }
    }
    return shown.c_str();
  }
};

#endif // QUILLFORM_SOTEXT_H
