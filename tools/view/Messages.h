#ifndef QUILLFORM_VIEW_MESSAGES_H
#define QUILLFORM_VIEW_MESSAGES_H

#include <QString>
#include <vector>

class SoError;

/// Collects what the scene-graph library and Quillform report while it lives, instead of printing it.
class Messages {
public:
  struct Message {
    QString text;     ///< in one line, without the reporter's name and the place
    QString fileName; ///< of the file with the fault; empty when the message is not about a line of a file
    int line = 0;     ///< in that file
  };

  Messages();
  ~Messages();
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;

  /// In the order in which they were reported.
  const std::vector<Message>& getAll() const;

private:
  static void handle(const SoError* error, void* data);

  std::vector<Message> m_messages;
};

#endif // QUILLFORM_VIEW_MESSAGES_H
