#ifndef QUILLFORM_SODIALOGWIDGETLIST_H
#define QUILLFORM_SODIALOGWIDGETLIST_H

#include <Inventor/SbPList.h>
#include <Quillform/Export.h>

class QWidget;

/// A list of widgets that it does not own.
class QUILLFORM_API SoDialogWidgetList : public SbPList {
public:
  SoDialogWidgetList();
  explicit SoDialogWidgetList(int capacity);           ///< an empty list with room for that many
  SoDialogWidgetList(const SoDialogWidgetList& other); ///< a list of the same widgets
  ~SoDialogWidgetList();

  SoDialogWidgetList& operator=(const SoDialogWidgetList& other); ///< makes it hold the same widgets

  void append(QWidget* widget);            ///< adds a widget at the end
  void insert(QWidget* widget, int index); ///< inserts a widget

  /// Index of \a widget, -1 when it is not in the list.
  int find(QWidget* widget) const;

  /// The widget at \a index; an index beyond the end makes the list longer.
  QWidget*& operator[](int index) const;
};

#endif // QUILLFORM_SODIALOGWIDGETLIST_H
