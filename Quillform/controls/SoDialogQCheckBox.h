#ifndef QUILLFORM_SODIALOGQCHECKBOX_H
#define QUILLFORM_SODIALOGQCHECKBOX_H

#include <Quillform/core/SoDialogQFrame.h>

class QCheckBox;

/// The relay of a check box: the box with its text, and a label beside it.
class SoDialogQCheckBox : public SoDialogQFrame {
  Q_OBJECT

public:
  SoDialogQCheckBox(QWidget* parent, SoDialogComponent* owner);

  /// Shows a state without reporting it.
  void setChecked(bool checked);

  void setCheckLabel(const QString& text);
  void checkWidgetPos(int x, int y, int w, int h);

public slots:
  /// The user has changed the check mark; \a state is a Qt::CheckState.
  void eventNotify(int state);

private:
  QCheckBox* m_box;
};

#endif // QUILLFORM_SODIALOGQCHECKBOX_H
