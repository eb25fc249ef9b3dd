#ifndef QUILLFORM_SODIALOGQTABDIALOG_H
#define QUILLFORM_SODIALOGQTABDIALOG_H

#include <Quillform/core/SoDialogQFrame.h>

class QBoxLayout;
class QTabWidget;

/// The relay of a tab dialog: the tabs, and one widget a page into which the page builds.
///
/// Only what the user does is reported; tabs that are added, removed or selected from code are not.
class SoDialogQTabDialog : public SoDialogQFrame {
  Q_OBJECT

public:
  SoDialogQTabDialog(QWidget* parent, SoDialogComponent* owner);

  QTabWidget* getQTabWidget() const;

  /// The layout of the page at that index; nullptr when there is none.
  QBoxLayout* getLayout(int page) const;

  /// Makes a page and returns its widget.
  QWidget* insertTab(int index, const QString& label);
  void removeTab(int index);
  void setTabLabel(int index, const QString& label);
  void setCurrentPage(int page);

  void tabDialogWidgetPos(int x, int y, int w, int h);

public slots:
  /// The user has selected a page.
  void eventNotify(int page);

private:
  class Silence;

  QTabWidget* m_tabs;
};

#endif // QUILLFORM_SODIALOGQTABDIALOG_H
