#ifndef QUILLFORM_SO3DMENUKEYS_H
#define QUILLFORM_SO3DMENUKEYS_H

#include <Quillform/Export.h>
#include <vector>

class SoKeyboardEvent;
class SoMenuBar;
class SoMenuPopup;

/// What keys do in the menus of a bar in the scene.
class QUILLFORM_API So3DMenuKeys {
public:
  /// For the menus of \a bar, which owns this.
  explicit So3DMenuKeys(SoMenuBar* bar) : m_bar(bar) {}

  /// Does what a key that went down means. TRUE when it means something.
  bool press(const SoKeyboardEvent* event);

  /// The user has gone on with the pointer.
  void pointerUsed();

  /// The title at which the keyboard is: that of the open menu, else the one to which it went last. nullptr when no
  /// title can be operated.
  SoMenuPopup* getTitle() const;

private:
  std::vector<SoMenuPopup*> getTitles() const;
  bool pressInBar(int key, bool isPress);
  bool pressInMenu(SoMenuPopup* menu, int key, bool isPress);
  void goTo(int step, bool isOpening);
  void enter(SoMenuPopup* menu, int step);
  void choose(SoMenuPopup* menu);
  void leave(SoMenuPopup* menu);
  void endUse();

  SoMenuBar* m_bar;
  const SoMenuPopup* m_title = nullptr; // went there last; for comparisons only
  bool m_isOpenedByKey = false;         // the menus that are open
};

#endif // QUILLFORM_SO3DMENUKEYS_H
