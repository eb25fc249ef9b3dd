#ifndef QUILLFORM_SOMESSAGEDIALOG_H
#define QUILLFORM_SOMESSAGEDIALOG_H

#include <Inventor/fields/SoSFEnum.h>
#include <Inventor/fields/SoSFString.h>
#include <Quillform/core/SoQuillform.h>

/// A message for the user, in a box over the application's main window. The `label` is the message.
///
/// \code
/// MessageDialog { auditorID "about" title "About" label "A viewer.\nVersion 1.0" type MD_INFORMATION }
/// \endcode
///
/// File format, after the fields of SoQuillform, with the defaults:
/// \code
/// MessageDialog {
///   title  ""           # SoSFString: title of the box
///   type   MD_MESSAGE   # SoSFEnum:   MD_ERROR, MD_INFORMATION, MD_MESSAGE, MD_QUESTION, MD_WARNING, MD_WORKING
/// }
/// \endcode
///
/// It stands by itself: it has no children, no place in another dialog and no geometry in the scene.
class QUILLFORM_API SoMessageDialog : public SoQuillform {
  typedef SoQuillform inherited;
  SO_QUILLFORM_HEADER(SoMessageDialog);

public:
  /// What the message is, which chooses the picture beside it.
  enum Type {
    MD_ERROR = 0,       ///< something went wrong
    MD_INFORMATION = 1, ///< something to know
    MD_MESSAGE = 2,     ///< anything else, with the application's icon
    MD_QUESTION = 3,    ///< a question that needs no answer: the only button is OK
    MD_WARNING = 4,     ///< something may go wrong
    MD_WORKING = 5      ///< nothing is shown
  };

  SoSFString title; ///< title of the box; default empty
  SoSFEnum type;    ///< a Type; default MD_MESSAGE

  SoMessageDialog();

  /// Makes a message and shows it: the constructor returns when the user has closed the box.
  SoMessageDialog(SbString label, SbString title, Type type);

  /// Shows the message. Returns when the user has closed the box; events go on being handled until then, so the node
  /// may be gone when it returns. Shows nothing, after a message, without an application object.
  virtual void show();

  /// Without effect: a box is closed by its user.
  virtual void close();

  /// Begins the work of a box of type MD_WORKING in a thread of its own; \a dialog is the SoMessageDialog. Nothing in
  /// the library starts such a thread yet. Returns nullptr.
  static void* runWorkingMessageDialog(void* dialog);

  /// Without effect yet; see runWorkingMessageDialog().
  void createWorkingMessageDialog();

protected:
  ~SoMessageDialog() override;

  void destroy() override; ///< closes the box first
};

#endif // QUILLFORM_SOMESSAGEDIALOG_H
