#include <Quillform/controls/SoDialogQSeparator.h>

SoDialogQSeparator::SoDialogQSeparator(QWidget* parent, SoDialogComponent* owner)
    : SoDialogQFrame(parent, owner, "SoDialogQSeparator"), m_line(new QFrame(this))
{
  m_line->setObjectName(nameOf("FrameWidget"));
  m_line->setFrameShadow(QFrame::Sunken);
}

void SoDialogQSeparator::separatorWidgetPos(int x, int y, int w, int h, bool isHorizontal)
{
  m_line->setFrameShape(isHorizontal ? QFrame::HLine : QFrame::VLine);
  place(m_line, x, y, w, h);
}
