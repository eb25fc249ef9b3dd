#ifndef QUILLFORM_TESTS_SCENE_H
#define QUILLFORM_TESTS_SCENE_H

#include <Inventor/SbVec2s.h>
#include <Inventor/actions/SoHandleEventAction.h>
#include <Inventor/events/SoKeyboardEvent.h>
#include <Quillform/Quillform.h>

class SoEvent;
class SoOrthographicCamera;
class SoSeparator;

/// A scene seen straight from the front, one scene unit a pixel, with the events of one user.
class Scene {
public:
  Scene();
  ~Scene();
  Scene(const Scene&) = delete;
  Scene& operator=(const Scene&) = delete;

  static constexpr int width = 800;
  static constexpr int height = 600;

  SoSeparator* root() const;
  SoOrthographicCamera* camera() const;
  void add(SoNode* node);

  /// Builds \a dialog in 3D and adds it to the scene.
  void open(SoTopLevelDialog* dialog);

  /// The pixel at which a point of the scene is seen; the scene's origin is at (100, 500).
  SbVec2s pixel(float x, float y) const;

  /// The pixel in the middle of an element.
  SbVec2s centre(SoDialogComponent* element) const;

  void press(const SbVec2s& at);
  void release(const SbVec2s& at);
  void move(const SbVec2s& to);

  /// Press and release at one place.
  void click(const SbVec2s& at);
  void click(SoDialogComponent* element);

  /// Gives the scene an event; TRUE when something in it took it.
  bool send(const SoEvent& event);

  /// One event of the keyboard, likewise. \a character is what it types, if anything.
  bool sendKey(SoKeyboardEvent::Key key, SoButtonEvent::State state, char character = '\0', bool shift = false,
               bool ctrl = false);

  /// A key down and up.
  void key(SoKeyboardEvent::Key key, char character = '\0');

  SoHandleEventAction& action();

private:
  void button(const SbVec2s& at, bool down);

  SoSeparator* m_root;
  SoOrthographicCamera* m_camera;
  SoHandleEventAction m_action; // one for all events, as in a viewer
};

#endif // QUILLFORM_TESTS_SCENE_H
