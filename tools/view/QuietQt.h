#ifndef QUILLFORM_VIEW_QUIETQT_H
#define QUILLFORM_VIEW_QUIETQT_H

#include <QString>

/// Keeps Qt's warnings to itself while it lives: the caller says in its own sentence what they amount to.
/// When Qt gives up altogether, the program ends with the sentence given here.
class QuietQt {
public:
  explicit QuietQt(const QString& sentenceAtTheEnd);
  ~QuietQt();
  QuietQt(const QuietQt&) = delete;
  QuietQt& operator=(const QuietQt&) = delete;

private:
  QtMessageHandler m_previous;
};

#endif // QUILLFORM_VIEW_QUIETQT_H
