#include <Quillform/core/SoDialogQFrame.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QLabel>
#include <QResizeEvent>
#include <QStringBuilder>
#include <Quillform/core/SoDialogComponent.h>
#include <Quillform/core/SoEventScope.h>
#include <Quillform/core/SoText.h>
#include <algorithm>

namespace {

/// Relays hold things together and lines keep them apart; to screen readers both would be borders.
QAccessibleInterface* createAccessible(const QString& className, QObject* object)
{
  // Asked for every widget and all its base classes, most of which are Qt's: the name tells sooner than a cast.
  if (!className.startsWith('Q')) {
    auto* relay = qobject_cast<SoDialogQFrame*>(object);
    return relay ? new QAccessibleWidget(relay, QAccessible::Grouping) : nullptr;
  }
  auto* frame = className == QLatin1String("QFrame") ? qobject_cast<QFrame*>(object) : nullptr;
  const bool isLine = frame && (frame->frameShape() == QFrame::HLine || frame->frameShape() == QFrame::VLine);
  return isLine ? new QAccessibleWidget(frame, QAccessible::Separator) : nullptr;
}

QString withoutMnemonic(const QString& text)
{
  return text.contains('&') ? SoText::toQt(SoText::withoutMnemonic(SoText::fromQt(text))) : text;
}

} // namespace

SoDialogQFrame::SoDialogQFrame(QWidget* parent, SoDialogComponent* owner, const QString& name)
    : QFrame(parent), m_owner(owner), m_name(name)
{
  static const bool installed = (QAccessible::installFactory(createAccessible), true);
  Q_UNUSED(installed);
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

void SoDialogQFrame::createLabel(QWidget* control)
{
  m_label = new QLabel(this);
  m_label->setObjectName(nameOf("LabelWidget"));
  m_label->setIndent(1);                 // letters that touch the edge are drawn more slowly
  m_label->setTextFormat(Qt::PlainText); // markup in a label is text like any other
  SoQuillform::setWidgetFont(m_label);
  if (control) {
    m_label->setBuddy(control);
    setControl(control);
  }
}

QString SoDialogQFrame::nameOf(const char* role) const
{
  return QLatin1String("ZEP") % m_name % QLatin1String(role);
}

QLabel* SoDialogQFrame::getLabel() const
{
  return m_label;
}

void SoDialogQFrame::setLabel(const QString& text)
{
  if (m_label) {
    m_label->setText(text);
  }
  m_labelText = withoutMnemonic(text);
  nameControl();
}

void SoDialogQFrame::setControl(QWidget* control)
{
  m_control = control;
}

void SoDialogQFrame::setComplete()
{
  m_isComplete = true;
  nameControl();
}

void SoDialogQFrame::nameControl()
{
  if (!m_control || !m_isComplete) {
    return;
  }
  QString name = m_labelText;
  if (const auto* button = qobject_cast<const QAbstractButton*>(m_control)) {
    name += ' ' + withoutMnemonic(button->text());
  }
  name = name.simplified();
  if (name.isEmpty() && m_owner && m_control->focusPolicy() != Qt::NoFocus) {
    name = SoText::toQt(m_owner->auditorID.getValue());
  }
  if (name != m_control->accessibleName()) {
    m_control->setAccessibleName(name);
    nameOthers(name);
  }
}

void SoDialogQFrame::nameOthers(const QString& /*name*/) {}

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
