#ifndef QUILLFORM_SODIALOGQRADIOBUTTONS_H
#define QUILLFORM_SODIALOGQRADIOBUTTONS_H

#include <Quillform/core/SoDialogQFrame.h>

class QButtonGroup;
class QGroupBox;
class QRadioButton;
class QVBoxLayout;

/// The relay of radio buttons: a titled box around one button an entry.
class SoDialogQRadioButtons : public SoDialogQFrame {
  Q_OBJECT

public:
  SoDialogQRadioButtons(QWidget* parent, SoDialogComponent* owner);

  /// Makes the button of the entry \a index.
  QRadioButton* addButton(int index);

  /// Takes a button out of the box; it may be the one that the user is clicking.
  void removeButton(QRadioButton* button);

  /// Checks the button of the entry \a id, if there is one, without reporting it.
  void setButton(int id);

  /// Shows \a text as it is on \a button.
  static void setText(QRadioButton* button, const QString& text);

  void setTitle(const QString& title);
  void setAlignment(Qt::Alignment alignment) override;

  /// Places the box.
  void labelWidgetPos(int x, int y, int w, int h) override;

public slots:
  /// The user has clicked the button of the entry \a id.
  void eventNotify(int id);

private:
  QButtonGroup* m_group;
  QGroupBox* m_box;
  QVBoxLayout* m_layout; // of the box
};

#endif // QUILLFORM_SODIALOGQRADIOBUTTONS_H
