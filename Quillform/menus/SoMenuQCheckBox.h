#ifndef QUILLFORM_SOMENUQCHECKBOX_H
#define QUILLFORM_SOMENUQCHECKBOX_H

#include <Quillform/menus/SoMenuQItem.h>

class SoMenuCheckBox;

/// The relay of a menu check entry.
class QUILLFORM_API SoMenuQCheckBox : public SoMenuQItem {
  Q_OBJECT

public:
  /// \a index has no meaning: the action is appended.
  SoMenuQCheckBox(QMenu* menu, int index, int identifier, SoMenuCheckBox* owner);

  void setChecked(bool checked);
};

#endif // QUILLFORM_SOMENUQCHECKBOX_H
