#include <Quillform/controls/SoDialogQLabel.h>

SoDialogQLabel::SoDialogQLabel(QWidget* parent, SoDialogComponent* owner)
    : SoDialogQFrame(parent, owner, "SoDialogQLabel")
{
  createLabel();
}
