#include <Quillform/core/SoDialogWidgetList.h>

SoDialogWidgetList::SoDialogWidgetList() = default;

SoDialogWidgetList::SoDialogWidgetList(int capacity) : SbPList(capacity) {}

SoDialogWidgetList::SoDialogWidgetList(const SoDialogWidgetList& other) = default;

SoDialogWidgetList::~SoDialogWidgetList()
{
  truncate(0);
}

SoDialogWidgetList& SoDialogWidgetList::operator=(const SoDialogWidgetList& other) = default;

void SoDialogWidgetList::append(QWidget* widget)
{
  SbPList::append(widget);
}

void SoDialogWidgetList::insert(QWidget* widget, int index)
{
  SbPList::insert(widget, index);
}

int SoDialogWidgetList::find(QWidget* widget) const
{
  return SbPList::find(widget);
}

QWidget*& SoDialogWidgetList::operator[](int index) const
{
  return reinterpret_cast<QWidget*&>(SbPList::operator[](index));
}
