#include "yearbook/ui/ConsumptionBar.h"

#include <QPainter>
#include <algorithm>

#include "yearbook/ui/MeterMark.h"

namespace yearbook {
namespace {

void fillRounded(QWidget* widget, const QRectF& area, const QColor& color, double radius) {
  QPainter painter(widget);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawRoundedRect(area, radius, radius);
}

}  // namespace

ConsumptionBar::ConsumptionBar(Meter meter, QWidget* parent) : QWidget(parent), meter_(meter) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ConsumptionBar::setShare(double share) {
  const double bounded = std::clamp(share, 0.0, 1.0);
  if (bounded == share_) return;
  share_ = bounded;
  update();
}

QSize ConsumptionBar::sizeHint() const {
  return {60, 10};
}
QSize ConsumptionBar::minimumSizeHint() const {
  return {30, 10};
}

void ConsumptionBar::paintEvent(QPaintEvent*) {
  constexpr double kThickness = 8;
  if (share_ <= 0) return;
  const QRectF area(0, (height() - kThickness) / 2, std::max(2.0, width() * share_), kThickness);
  fillRounded(this, area, meterColor(meter_, palette()), 2);
}

LineMark::LineMark(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

void LineMark::paintEvent(QPaintEvent*) {
  constexpr int kTint = 45;
  QColor color = palette().color(QPalette::Active, QPalette::Highlight);
  color.setAlpha(kTint);
  fillRounded(this, rect(), color, 3);
}

}  // namespace yearbook
