#include <Quillform/core/SoDialogQFrame.h>

#include <QLabel>
#include <QResizeEvent>
#include <Quillform/core/SoDialogComponent.h>
#include <Quillform/core/SoEventScope.h>
#include <algorithm>

SoDialogQFrame::SoDialogQFrame(QWidget* parent, SoDialogComponent* owner, const QString& name)
    : QFrame(parent), m_owner(owner), m_name(name)
{
  setObjectName(nameOf("Frame"));
}

void SoDialogQFrame::forgetOwner()
{
  m_owner = nullptr;
}

SoDialogComponent* SoDialogQFrame::getOwner() const
{
  return m_owner;
}

void SoDialogQFrame::setComputedSize(const QSize& size)
{
  if (size != m_computedSize) {
    m_computedSize = size;
    updateGeometry();
  }
}

QSize SoDialogQFrame::sizeHint() const
{
  return m_computedSize;
}

void SoDialogQFrame::createLabel()
{
  m_label = new QLabel(this);
  m_label->setObjectName(nameOf("LabelWidget"));
  m_label->setIndent(1);                 // letters that touch the edge are drawn more slowly
  m_label->setTextFormat(Qt::PlainText); // markup in a label is text like any other
  SoQuillform::setWidgetFont(m_label);
}

QString SoDialogQFrame::nameOf(const char* role) const
{
  return "ZEP" + m_name + role;
}

QLabel* SoDialogQFrame::getLabel() const
{
  return m_label;
}

void SoDialogQFrame::setLabel(const QString& text)
{
  m_label->setText(text);
}

void SoDialogQFrame::setAlignment(Qt::Alignment alignment)
{
  m_label->setAlignment(alignment);
}

void SoDialogQFrame::setLabelVisibility(bool visible)
{
  setShown(m_label, visible);
}

void SoDialogQFrame::labelWidgetPos(int x, int y, int w, int h)
{
  place(m_label, x, y, w, h);
}

void SoDialogQFrame::setShown(QWidget* widget, bool shown)
{
  // Showing what nobody has hidden makes a widget prepare itself for the screen twice.
  const bool wasHidden = widget->testAttribute(Qt::WA_WState_ExplicitShowHide) && widget->isHidden();
  if (wasHidden == shown) {
    widget->setVisible(shown);
  }
}

void SoDialogQFrame::place(QWidget* widget, int x, int y, int w, int h)
{
  widget->resize(std::max(w, 0), std::max(h, 0)); // the label beside it may need more than the frame has
  widget->move(x, y);
}

Qt::Alignment SoDialogQFrame::toQt(int labelAlignment)
{
  switch (labelAlignment) {
  case SoQuillform::LEFT:
    return Qt::AlignLeft;
  case SoQuillform::CENTER:
    return Qt::AlignHCenter;
  default:
    return Qt::AlignRight;
  }
}

void SoDialogQFrame::paintEvent(QPaintEvent* event)
{
  if (frameShape() != QFrame::NoFrame) {
    QFrame::paintEvent(event); // most relays have no frame, and a painter takes longer to make than a frame to draw
  }
}

void SoDialogQFrame::resizeEvent(QResizeEvent* event)
{
  QFrame::resizeEvent(event);
  if (m_owner) {
    m_owner->widgetResized(event->size().width(), event->size().height());
  }
}

void SoDialogQFrame::notifyOwner(unsigned int event, unsigned long data)
{
  if (m_owner) {
    const SoEventScope scope(m_owner);
    m_owner->eventNotify(event, data);
  }
}
