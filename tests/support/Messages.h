#ifndef QUILLFORM_TESTS_MESSAGES_H
#define QUILLFORM_TESTS_MESSAGES_H

#include <string>
#include <vector>

class SoError;

/// Collects what the scene-graph library and Quillform report while it lives, instead of printing it.
class Messages {
public:
  Messages();
  ~Messages();
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;

  /// Everything reported so far, one entry a message.
  const std::vector<std::string>& all() const;

  /// Number of messages that contain \a text.
  int count(const std::string& text) const;

  void clear();

private:
  static void handle(const SoError* error, void* data);

  std::vector<std::string> m_messages;
};

#endif // QUILLFORM_TESTS_MESSAGES_H
