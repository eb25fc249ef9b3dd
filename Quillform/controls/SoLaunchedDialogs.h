#ifndef QUILLFORM_SOLAUNCHEDDIALOGS_H
#define QUILLFORM_SOLAUNCHEDDIALOGS_H

#include <Quillform/core/SoChildElements.h>
#include <vector>

class SbVec3f;
class SoTopLevelDialog;

/// The dialogs that a launcher opens: its children, and how they come on the screen and leave it. The same in all
/// launchers.
///
/// A launched dialog is built once and then shown again. It belongs to its launcher: closing it does not release it.
class QUILLFORM_API SoLaunchedDialogs {
public:
  /// \a changed is called when a dialog was added or taken out.
  SoLaunchedDialogs(
    SoQuillform* launcher, std::function<void()> changed = [] {});

  SoChildElements& getElements(); ///< the dialogs

  /// Shows or hides the dialogs in each form in which the launcher is built.
  void open(bool opened);

  /// \name As windows
  /// @{

  /// Makes the windows that do not exist yet; shows nothing.
  void buildWindows();

  /// Makes the windows that do not exist yet, and shows or hides all of them, in order.
  void showWindows(bool shown);

  /// Brings the windows to the front: they may have been open already, behind others.
  void raiseWindows();

  /// Takes the windows away; they are made again when they are needed.
  void destroyWindows();
  /// @}

  /// \name In the scene
  /// @{

  /// Builds the dialogs in the scene, where they stand beside their launcher and in front of the dialog around it, and
  /// shows or hides them.
  void show3D(bool shown);

  /// The dialog around the launcher was hidden or shown, and takes the launched ones with it.
  void follow3D();

  /// The launcher has moved.
  void move3D();

  bool isBuilt3D() const; ///< whether show3D() has been called
  bool isOpen3D() const;  ///< whether it was to show the dialogs
  /// @}

private:
  void hideNew3D();
  std::vector<SoTopLevelDialog*> hold() const;
  template <class Call>
  void forEach(Call call);
  bool isSeen3D() const;

  SoQuillform* m_launcher;
  SoChildElements m_elements;
  bool m_isBuilt3D = false;
  bool m_isOpen3D = false;
};

#endif // QUILLFORM_SOLAUNCHEDDIALOGS_H
