#include <Quillform/controls/SoDialogCustomSlider.h>

#include <QLinearGradient>
#include <QPainter>
#include <Quillform/platform/SoQtSliderDrawing.h>
#include <algorithm>

namespace {

constexpr double disabledOpacity = 0.35;

QColor toQt(const SbColor& color)
{
  const auto component = [&color](int i) {
    // Not std::clamp: no number compares false both ways and would pass.
    return color[i] > 0.0F ? std::min(color[i], 1.0F) : 0.0F;
  };
  return QColor::fromRgbF(component(0), component(1), component(2));
}

} // namespace

SoDialogCustomSlider::SoDialogCustomSlider(QWidget* parent) : SoQtBasicSlider(parent) {}

void SoDialogCustomSlider::setDrawingMethod(const SbColor* colors, int count, int shaded)
{
  m_colors.clear();
  for (int i = 0; i < count; i++) {
    m_colors.push_back(toQt(colors[i]));
  }
  m_shaded = shaded != 0;
  update();
}

void SoDialogCustomSlider::drawBar(QPainter& painter, const QRect& rect)
{
  SoQtBasicSlider::drawBar(painter, rect);
  if (m_colors.empty()) {
    return;
  }
  const QRect floor = rect.adjusted(1, 1, -1, -1);
  painter.setOpacity(isEnabled() ? 1.0 : disabledOpacity);
  if (m_colors.size() == 1) {
    drawWithOneColor(painter, floor);
  }
  else {
    drawWithColorArray(painter, floor);
  }
  if (m_shaded) {
    drawSliderTopRegion(painter, floor);
  }
  painter.setOpacity(1.0);
}

void SoDialogCustomSlider::drawWithOneColor(QPainter& painter, const QRect& rect) const
{
  painter.fillRect(rect, m_colors.front());
}

void SoDialogCustomSlider::drawWithColorArray(QPainter& painter, const QRect& rect) const
{
  const auto count = static_cast<int>(m_colors.size());
  if (m_shaded) {
    QLinearGradient ramp(rect.left(), 0, rect.right() + 1, 0);
    for (int i = 0; i < count; i++) {
      ramp.setColorAt(static_cast<double>(i) / (count - 1), m_colors[static_cast<std::size_t>(i)]);
    }
    painter.fillRect(rect, ramp);
    return;
  }
  for (int i = 0; i < count; i++) {
    const int left = rect.left() + static_cast<int>(static_cast<long long>(rect.width()) * i / count);
    const int right = rect.left() + static_cast<int>(static_cast<long long>(rect.width()) * (i + 1) / count);
    painter.fillRect(left, rect.top(), right - left, rect.height(), m_colors[static_cast<std::size_t>(i)]);
  }
}

/// The light that falls on a round bar from above.
void SoDialogCustomSlider::drawSliderTopRegion(QPainter& painter, const QRect& rect) const
{
  QLinearGradient light(0, rect.top(), 0, rect.bottom() + 1);
  light.setColorAt(0.0, QColor(255, 255, 255, 90));
  light.setColorAt(0.4, QColor(255, 255, 255, 0));
  light.setColorAt(0.6, QColor(0, 0, 0, 0));
  light.setColorAt(1.0, QColor(0, 0, 0, 70));
  painter.fillRect(rect, light);
}
