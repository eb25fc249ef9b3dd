#ifndef QUILLFORM_SO3DKEYBOARD_H
#define QUILLFORM_SO3DKEYBOARD_H

#include <Quillform/Export.h>

class SoHandleEventAction;
class SoKeyboardEvent;
class SoQuillform;

/// The keyboard in the scene. One element of all dialogs has it at a time: the one that was pressed last, until the
/// user presses something else, or the one to which he went with Tab or Shift+Tab, in reading order. From the first
/// key on, an outline shows which one it is; Escape takes the keyboard away from it.
///
/// Keys that the element does not need, and all keys while no element has the keyboard, go on to the application. An
/// element that is being edited gets its keys before everything else.
class QUILLFORM_API So3DKeyboard {
public:
  /// Called by the outermost elements of a scene, before and after an event has gone through what they hold.
  static void beginEvent(SoHandleEventAction* action);
  static void endEvent(SoQuillform* root, SoHandleEventAction* action); ///< see beginEvent()

  /// The user has pressed \a element, which gets the keyboard if it has a use for it.
  static void take(SoQuillform* element);

  /// Takes the keyboard away from \a element and from everything inside it.
  static void release(const SoQuillform* element);

  /// The element that has the keyboard; nullptr when none has it.
  static SoQuillform* getElement();

  /// TRUE when the outline shows which element has the keyboard: the user is working with keys.
  static bool isOutlined();

  /// Draws the outline again, where it stands now, if \a element has it.
  static void updateOutline(const SoQuillform* element);

  /// \name What keys mean
  /// @{

  /// TRUE for the keys that press a button: Space, Return and Enter.
  static bool isPress(const SoKeyboardEvent* event);

  /// The entry to which a key leads from the one at \a index, one of \a count; -1 for other keys and without entries.
  /// The page keys go by \a page entries.
  static int step(const SoKeyboardEvent* event, int index, int count, int page);
  /// @}

private:
  static bool pressKey(SoHandleEventAction* action);
  static bool moveBy(int step, SoHandleEventAction* action);
};

#endif // QUILLFORM_SO3DKEYBOARD_H
