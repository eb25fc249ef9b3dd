#ifndef QUILLFORM_SOMENUQRADIOBUTTONS_H
#define QUILLFORM_SOMENUQRADIOBUTTONS_H

#include <Quillform/menus/SoMenuQItem.h>

class SoMenuRadioButtons;

/// The relay of one entry of a menu's radio group.
class QUILLFORM_API SoMenuQRadioButtons : public SoMenuQItem {
  Q_OBJECT

public:
  /// \a index has no meaning: the action is appended.
  SoMenuQRadioButtons(QMenu* menu, int index, int identifier, SoMenuRadioButtons* owner);

  void setChecked(bool checked);
  int index() const; ///< the identifier

protected:
  int getEventId() const override;
};

#endif // QUILLFORM_SOMENUQRADIOBUTTONS_H
