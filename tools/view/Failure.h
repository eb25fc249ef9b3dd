#ifndef QUILLFORM_VIEW_FAILURE_H
#define QUILLFORM_VIEW_FAILURE_H

#include <QString>

/// Why the program ends early: its exit status, and one sentence that says what to do about it.
class Failure {
public:
  enum Status {
    WRONG_USAGE = 1, ///< the options, or a display or OpenGL that what they ask for needs and that is missing
    BAD_FILE = 2     ///< a file that cannot be opened, read or written, or holds no such element
  };

  Failure(Status status, const QString& sentence);

  Status getStatus() const;
  const QString& getSentence() const;

  /// Writes a sentence to the standard error, with the program's name in front.
  static void print(const QString& sentence);

private:
  Status m_status;
  QString m_sentence;
};

#endif // QUILLFORM_VIEW_FAILURE_H
