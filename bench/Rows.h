#ifndef QUILLFORM_BENCH_ROWS_H
#define QUILLFORM_BENCH_ROWS_H

#include <QByteArray>

class QWidget;

/// The rows of a form, as each peer spells them. All peers show the same widgets with the same texts in the
/// same font.
///
/// A further kind of row is one more entry of a table in Rows.cpp.
class Rows {
public:
  /// The kinds of rows, which take turns.
  enum Mixture {
    SIMPLE, ///< a label; a push button with a label beside it
    MIXED   ///< with a label beside each: push button, check box, edit field, combo box, slider
  };

  /// \a count rows. Every object has texts of its own, so that nobody profits from texts that were measured
  /// for an earlier form.
  Rows(Mixture mixture, int count);

  int getCount() const;

  /// How many buttons, check boxes, edit fields and combo boxes the form must show.
  int getControlCount() const;

  /// The form as a dialog file.
  QByteArray toDialogFile() const;

  /// The form as the text of a .ui file: the labels in one column of a grid and the controls in the other.
  QByteArray toUiFile() const;

  /// Makes the form's widgets in \a window, in the same grid.
  void makeWidgets(QWidget* window) const;

private:
  Mixture m_mixture;
  int m_count;
  int m_form;
};

#endif // QUILLFORM_BENCH_ROWS_H
