#ifndef QUILLFORM_SODIALOGQEDITTEXT_H
#define QUILLFORM_SODIALOGQEDITTEXT_H

#include <QPointer>
#include <Quillform/core/SoDialogQFrame.h>

class QLineEdit;
class QTextEdit;
class SoDialogEditText;

/// The relay of an edit text: an editor of one line or of many, and a label beside it.
class SoDialogQEditText : public SoDialogQFrame {
  Q_OBJECT

public:
  SoDialogQEditText(QWidget* parent, SoDialogEditText* owner, bool multiLine);

  /// What the editor shows; characters outside Latin-1 do not survive.
  QString getText() const;

  /// Shows a text without reporting it.
  void setText(const QString& text);

  void setReadOnly(bool readOnly);

  /// Breaks long lines, at blanks where that is possible; without effect in an editor of one line.
  void setWrapLine(bool wrap);

  /// Gives the editor the keyboard focus.
  void setEditorFocus();
  bool hasEditorFocus() const;

  void editTextWidgetPos(int x, int y, int w, int h);
  QWidget* getParentWidget() const;

  bool eventFilter(QObject* watched, QEvent* event) override;

  /// The user's actions, as the node's eventNotify gets them.
  enum Reason { ENTER_PRESSED = 1, TEXT_CHANGED = 2 };

public slots:
  void eventNotifyLine(const QString& text);
  void eventNotifyMultiLine();
  void eventEnterPressed();

private:
  QWidget* getEditor() const;
  void reportChange();

  QLineEdit* m_lineEdit = nullptr; // in an editor of one line
  QTextEdit* m_textEdit = nullptr; // in an editor of many
  bool m_multiLine;
  bool m_showing = false;     // setText is at work
  QPointer<QWidget> m_parent; // given to the constructor
};

#endif // QUILLFORM_SODIALOGQEDITTEXT_H
