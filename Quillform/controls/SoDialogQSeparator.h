#ifndef QUILLFORM_SODIALOGQSEPARATOR_H
#define QUILLFORM_SODIALOGQSEPARATOR_H

#include <Quillform/core/SoDialogQFrame.h>

/// The relay of a separator: a sunken line.
class SoDialogQSeparator : public SoDialogQFrame {
  Q_OBJECT

public:
  SoDialogQSeparator(QWidget* parent, SoDialogComponent* owner);

  void separatorWidgetPos(int x, int y, int w, int h, bool isHorizontal);

private:
  QFrame* m_line;
};

#endif // QUILLFORM_SODIALOGQSEPARATOR_H
