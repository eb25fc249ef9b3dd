#include <Quillform/platform/SoQtBasicSlider.h>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>
#include <Quillform/platform/SoQtSliderDrawing.h>
#include <algorithm>
#include <cmath>

namespace {

constexpr int barInset = 4;     // of the bar from the upper and lower side, in pixels
constexpr int wheelNotch = 120; // in eighths of a degree

/// The slider for screen readers and other programs that operate it in the user's place.
class AccessibleSlider : public QAccessibleWidget, public QAccessibleValueInterface {
public:
  explicit AccessibleSlider(SoQtBasicSlider* slider) : QAccessibleWidget(slider, QAccessible::Slider) {}

  void* interface_cast(QAccessible::InterfaceType type) override
  {
    return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                               : QAccessibleWidget::interface_cast(type);
  }
  QVariant currentValue() const override
  {
    return slider()->getScale().value;
  }
  void setCurrentValue(const QVariant& value) override
  {
    const SoQtBasicSlider::Scale scale = slider()->getScale();
    const double position = (value.toDouble() - scale.minimum) / (scale.maximum - scale.minimum);
    if (std::isfinite(position)) {
      slider()->moveByUser(static_cast<float>(position));
    }
  }
  QVariant maximumValue() const override
  {
    return slider()->getScale().maximum;
  }
  QVariant minimumValue() const override
  {
    return slider()->getScale().minimum;
  }
  QVariant minimumStepSize() const override
  {
    return slider()->getScale().step;
  }

  static QAccessibleInterface* create(const QString& /*className*/, QObject* object)
  {
    // The class name may be that of a derived class.
    auto* slider = qobject_cast<SoQtBasicSlider*>(object);
    return slider ? new AccessibleSlider(slider) : nullptr;
  }

private:
  SoQtBasicSlider* slider() const
  {
    return static_cast<SoQtBasicSlider*>(widget());
  }
};

float toRange(float value)
{
  return std::isnan(value) ? 0.0F : std::clamp(value, 0.0F, 1.0F);
}

} // namespace

SoQtBasicSlider::SoQtBasicSlider(QWidget* parent) : QWidget(parent)
{
  static const bool installed = (QAccessible::installFactory(AccessibleSlider::create), true);
  Q_UNUSED(installed);
  setFocusPolicy(Qt::StrongFocus);
}

// Value

void SoQtBasicSlider::setValue(float value)
{
  move(value);
  announce();
}

/// Draws the piece in another place. False when it stands there already.
bool SoQtBasicSlider::move(float value)
{
  const float newValue = toRange(value);
  const bool moves = newValue != m_value;
  m_value = newValue;
  if (moves) {
    update();
  }
  return moves;
}

/// Tells screen readers the value, if that is another one.
void SoQtBasicSlider::announce()
{
  const double value = getScale().value;
  if (value != m_announced) {
    m_announced = value;
    QAccessibleValueChangeEvent event(this, value);
    QAccessible::updateAccessibility(&event);
  }
}

SoQtBasicSlider::Scale SoQtBasicSlider::getScale() const
{
  return {m_value, 0.0, 1.0, m_singleStep};
}

float SoQtBasicSlider::getValue() const
{
  return m_value;
}

void SoQtBasicSlider::setSteps(float single, float page)
{
  m_singleStep = toRange(single);
  m_pageStep = toRange(page);
}

float SoQtBasicSlider::getSingleStep() const
{
  return m_singleStep;
}

// Callbacks

void SoQtBasicSlider::add(Callbacks& callbacks, const Entry& entry)
{
  if (entry.callback && std::find(callbacks.begin(), callbacks.end(), entry) == callbacks.end()) {
    callbacks.push_back(entry);
  }
}

void SoQtBasicSlider::remove(Callbacks& callbacks, const Entry& entry)
{
  callbacks.erase(std::remove(callbacks.begin(), callbacks.end(), entry), callbacks.end());
}

void SoQtBasicSlider::addValueChangedCallback(Callback* callback, void* data)
{
  add(m_valueChanged, {callback, data});
}

void SoQtBasicSlider::removeValueChangedCallback(Callback* callback, void* data)
{
  remove(m_valueChanged, {callback, data});
}

void SoQtBasicSlider::addFinishCallback(Callback* callback, void* data)
{
  add(m_finished, {callback, data});
}

void SoQtBasicSlider::removeFinishCallback(Callback* callback, void* data)
{
  remove(m_finished, {callback, data});
}

/// Runs the callbacks that are still registered when their turn comes. False when one of them has deleted the slider.
bool SoQtBasicSlider::run(Callbacks SoQtBasicSlider::*callbacks)
{
  const QPointer<SoQtBasicSlider> alive(this);
  const Callbacks entries = this->*callbacks;
  for (const Entry& entry : entries) {
    const Callbacks& registered = this->*callbacks;
    if (std::find(registered.begin(), registered.end(), entry) != registered.end()) {
      entry.callback(entry.data, m_value);
      if (!alive) {
        return false;
      }
    }
  }
  return true;
}

// The user's motions

/// Brings the piece to where the user moves it. False when the slider has been deleted.
bool SoQtBasicSlider::follow(float value)
{
  if (!move(value)) {
    return true;
  }
  const bool lives = run(&SoQtBasicSlider::m_valueChanged);
  if (lives) {
    announce(); // now that it is known what the position stands for
  }
  return lives;
}

void SoQtBasicSlider::moveByUser(float value)
{
  const bool moves = toRange(value) != m_value;
  if (moves && follow(value)) {
    run(&SoQtBasicSlider::m_finished);
  }
}

void SoQtBasicSlider::moveBySteps(float steps)
{
  moveByUser(m_value + steps);
}

void SoQtBasicSlider::followPointer(int x)
{
  const int room = width() - thumbWidth;
  if (room > 0) {
    const int left = x - m_grabOffset - thumbWidth / 2; // of the thumb
    follow(static_cast<float>(left) / static_cast<float>(room));
  }
}

QRect SoQtBasicSlider::getThumbRect() const
{
  const int room = std::max(width() - thumbWidth, 0);
  return {static_cast<int>(std::lround(m_value * static_cast<float>(room))), 0, thumbWidth, height()};
}

void SoQtBasicSlider::mousePressEvent(QMouseEvent* event)
{
  if (event->button() != Qt::LeftButton) {
    event->ignore();
    return;
  }
  const QRect thumb = getThumbRect();
  const bool onThumb = event->x() >= thumb.left() && event->x() <= thumb.right();
  m_dragging = true;
  m_grabOffset = onThumb ? event->x() - thumb.left() - thumbWidth / 2 : 0;
  if (!onThumb) {
    followPointer(event->x());
  }
}

void SoQtBasicSlider::mouseMoveEvent(QMouseEvent* event)
{
  if (m_dragging) {
    followPointer(event->x());
  }
}

void SoQtBasicSlider::mouseReleaseEvent(QMouseEvent* event)
{
  if (event->button() == Qt::LeftButton && m_dragging) {
    m_dragging = false;
    run(&SoQtBasicSlider::m_finished);
  }
}

void SoQtBasicSlider::wheelEvent(QWheelEvent* event)
{
  event->accept();
  m_wheelRest += event->angleDelta().y();
  const int notches = m_wheelRest / wheelNotch;
  if (notches != 0 && !m_dragging) {
    m_wheelRest -= notches * wheelNotch;
    moveBySteps(static_cast<float>(notches) * m_singleStep);
  }
}

void SoQtBasicSlider::keyPressEvent(QKeyEvent* event)
{
  if (m_dragging) {
    return; // one motion at a time
  }
  switch (event->key()) {
  case Qt::Key_Left:
  case Qt::Key_Down:
    moveBySteps(-m_singleStep);
    break;
  case Qt::Key_Right:
  case Qt::Key_Up:
    moveBySteps(m_singleStep);
    break;
  case Qt::Key_PageDown:
    moveBySteps(-m_pageStep);
    break;
  case Qt::Key_PageUp:
    moveBySteps(m_pageStep);
    break;
  case Qt::Key_Home:
    moveByUser(0.0F);
    break;
  case Qt::Key_End:
    moveByUser(1.0F);
    break;
  default:
    QWidget::keyPressEvent(event);
  }
}

void SoQtBasicSlider::changeEvent(QEvent* event)
{
  if (event->type() == QEvent::EnabledChange && !isEnabled()) {
    m_dragging = false; // what is disabled in the middle of a drag finishes nothing
  }
  QWidget::changeEvent(event);
}

void SoQtBasicSlider::hideEvent(QHideEvent* event)
{
  m_dragging = false;
  QWidget::hideEvent(event);
}

// Look

QSize SoQtBasicSlider::sizeHint() const
{
  return {120, 24};
}

void SoQtBasicSlider::drawBar(QPainter& painter, const QRect& rect)
{
  SoDrawDownUIRegion(painter, rect, palette());
}

void SoQtBasicSlider::paintEvent(QPaintEvent* /*event*/)
{
  QPainter painter(this);
  drawBar(painter, rect().adjusted(0, barInset, 0, -barInset));
  const QRect thumb = getThumbRect();
  SoDrawThumbUIRegion(painter, thumb, palette());
  if (hasFocus()) {
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(thumb.adjusted(0, 0, -1, -1));
    painter.drawRect(thumb.adjusted(1, 1, -2, -2));
  }
}
