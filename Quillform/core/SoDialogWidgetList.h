#ifndef QUILLFORM_SODIALOGWIDGETLIST_H
#define QUILLFORM_SODIALOGWIDGETLIST_H

#include <Inventor/SbPList.h>
#include <Quillform/Export.h>

class QWidget;

/// A list of widgets that it does not own.
class QUILLFORM_API SoDialogWidgetList : public SbPList {
public:
  SoDialogWidgetList();
  explicit SoDialogWidgetList(int capacity);
  SoDialogWidgetList(const SoDialogWidgetList& other);
  ~SoDialogWidgetList();

  SoDialogWidgetList& operator=(const SoDialogWidgetList& other);

  void append(QWidget* widget);
  void insert(QWidget* widget, int index);

  /// Index of \a widget, -1 when it is not in the list.
  int find(QWidget* widget) const;

  /// The widget at \a index; an index beyond the end makes the list longer.
  QWidget*& operator[](int index) const;
};

#endif // QUILLFORM_SODIALOGWIDGETLIST_H
