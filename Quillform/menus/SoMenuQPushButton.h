#ifndef QUILLFORM_SOMENUQPUSHBUTTON_H
#define QUILLFORM_SOMENUQPUSHBUTTON_H

#include <Quillform/menus/SoMenuQItem.h>

class SoMenuPushButton;

/// The relay of a menu command.
class QUILLFORM_API SoMenuQPushButton : public SoMenuQItem {
  Q_OBJECT

public:
  /// \a index has no meaning: the action is appended.
  SoMenuQPushButton(QMenu* menu, int index, int identifier, SoMenuPushButton* owner);
};

#endif // QUILLFORM_SOMENUQPUSHBUTTON_H
