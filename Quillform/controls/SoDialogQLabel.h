#ifndef QUILLFORM_SODIALOGQLABEL_H
#define QUILLFORM_SODIALOGQLABEL_H

#include <Quillform/core/SoDialogQFrame.h>

/// The relay of a label: the label alone.
class QUILLFORM_API SoDialogQLabel : public SoDialogQFrame {
  Q_OBJECT

public:
  SoDialogQLabel(QWidget* parent, SoDialogComponent* owner);
};

#endif // QUILLFORM_SODIALOGQLABEL_H
