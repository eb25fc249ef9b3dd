#ifndef QUILLFORM_SODIALOGQCOMBOBOX_H
#define QUILLFORM_SODIALOGQCOMBOBOX_H

#include <Quillform/core/SoDialogQFrame.h>

class QComboBox;

/// The relay of a combo box: the box with its entries, and a label beside it.
class SoDialogQComboBox : public SoDialogQFrame {
  Q_OBJECT

public:
  SoDialogQComboBox(QWidget* parent, SoDialogComponent* owner);

  void clear();
  int count() const;
  QString getItem(int index) const;

  /// Inserts an entry at \a index, at the end when that is negative.
  void insertItem(const QString& text, int index);

  /// Shows an entry without reporting it; shows none when \a index is negative.
  void setCurrentItem(int index);

  void comboBoxWidgetPos(int x, int y, int w, int h);

public slots:
  /// The user has chosen an entry, which may be the one that was chosen before.
  void eventNotify(int index);

private:
  QComboBox* m_box;
};

#endif // QUILLFORM_SODIALOGQCOMBOBOX_H
