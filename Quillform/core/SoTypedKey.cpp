#include <Quillform/core/SoTypedKey.h>

#include <Inventor/events/SoKeyboardEvent.h>

char SoTypedKey::getCharacter(const SoKeyboardEvent* event)
{
  if (event->wasCtrlDown() || event->wasAltDown()) {
    return '\0';
  }
  const int key = event->getKey();
  constexpr int firstPadKey = SoKeyboardEvent::PAD_7;
  constexpr int lastPadKey = SoKeyboardEvent::PAD_0;
  if (key >= firstPadKey && key <= lastPadKey) {
    return "7486293150"[key - firstPadKey];
  }
  switch (key) {
  case SoKeyboardEvent::PAD_PERIOD:
    return '.';
  case SoKeyboardEvent::PAD_ADD:
    return '+';
  case SoKeyboardEvent::PAD_SUBTRACT:
    return '-';
  default:
    break;
  }
  // Beyond the ordinary characters the event claims to be a period.
  constexpr int lastOrdinaryKey = 0xff;
  const bool isOrdinary =
    key == SoKeyboardEvent::UNDEFINED || (key >= SoKeyboardEvent::SPACE && key <= lastOrdinaryKey);
  const auto character = static_cast<unsigned char>(event->getPrintableCharacter());
  const bool isControl = character < 0x20 || (character >= 0x7f && character < 0xa0);
  return isOrdinary && !isControl ? static_cast<char>(character) : '\0';
}
