#ifndef QUILLFORM_SOEVENTSCOPE_H
#define QUILLFORM_SOEVENTSCOPE_H

#include <Quillform/Export.h>
#include <functional>

class SoHandleEventAction;
class SoQuillform;

/// The time during which one user event is handled by an element.
///
/// The element stays referenced until the scope ends, whatever the application's auditors do to it. What
/// must not happen while the event is on its way through the scene, such as changing a child list that is
/// being traversed, is put off with whenOver().
class QUILLFORM_API SoEventScope {
public:
  /// Opens the scope for \a element; \a action is the traversal that delivers the event, nullptr when it
  /// comes from a window.
  explicit SoEventScope(SoQuillform* element, SoHandleEventAction* action = nullptr);
  ~SoEventScope();
  SoEventScope(const SoEventScope&) = delete;
  SoEventScope& operator=(const SoEventScope&) = delete;

  /// TRUE while any element handles an event.
  static bool isActive();

  /// The traversal of the innermost scope; nullptr outside events and for events of windows.
  static SoHandleEventAction* getAction();

  /// Runs \a task when the outermost scope ends, at once when there is none. \a element stays referenced
  /// until then.
  static void whenOver(SoQuillform* element, const std::function<void()>& task);

private:
  SoQuillform* m_element;
  SoHandleEventAction* m_outerAction;
};

#endif // QUILLFORM_SOEVENTSCOPE_H
