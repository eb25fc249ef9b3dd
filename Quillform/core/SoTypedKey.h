#ifndef QUILLFORM_SOTYPEDKEY_H
#define QUILLFORM_SOTYPEDKEY_H

#include <Quillform/Export.h>

class SoKeyboardEvent;

/// What the user types into a text of the scene.
class QUILLFORM_API SoTypedKey {
public:
  /// The character that a key press stands for, in Latin-1; 0 for a key that writes nothing and for shortcuts. The
  /// keys of the keypad write digits and the period whether or not Num Lock is on.
  static char getCharacter(const SoKeyboardEvent* event);
};

#endif // QUILLFORM_SOTYPEDKEY_H
