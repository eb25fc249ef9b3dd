#ifndef QUILLFORM_VIEW_MOUSEPOINTER_H
#define QUILLFORM_VIEW_MOUSEPOINTER_H

#include "Options.h"
#include <QImage>
#include <vector>

class DialogScene;
class QWidget;
class SoQuillform;
class SoTopLevelDialog;

/// Does to the elements of a dialog what a user with a mouse does, so that they are drawn pressed or open.
class MousePointer {
public:
  /// Finds what the options name in \a dialog, which came from the file; throws a Failure when it is not there.
  MousePointer(SoTopLevelDialog* dialog, const Options& options);

  /// Presses in the window, which is shown already. Throws a Failure when an element is out of sight.
  void useIn(QWidget* window) const;

  /// The window with all that has opened over it.
  static QImage grab(QWidget* window);

  /// Presses in the scene as it is seen in a picture of a size. Throws a Failure when an element is out of sight.
  void useIn(DialogScene& scene, const QSize& picture) const;

private:
  struct Press {
    SoQuillform* element; // a component or a menu
    bool isReleased;      // at once; else the button is still down in the picture
  };
  void add(SoTopLevelDialog* dialog, const QString& id, const char* option, bool isReleased);

  QString m_file;
  std::vector<Press> m_presses;
};

#endif // QUILLFORM_VIEW_MOUSEPOINTER_H
