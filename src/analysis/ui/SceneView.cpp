#include "analysis/ui/SceneView.h"

#include <QFontInfo>
#include <QPainter>

#include "charts/ui/ChartWidget.h"

namespace analysis {
namespace {

constexpr double kTextPart = 0.92;   // of the window's text
constexpr double kLeastText = 10.7;  // pixels: 8 points

}  // namespace

SceneView::SceneView(const QString& name, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SceneView::show(Draw draw, const QString& description) {
  draw_ = std::move(draw);
  setAccessibleName(description);
  update();
}

charts::Scene SceneView::sceneFor(charts::Size size) const {
  return draw_ ? draw_({size, charts::Theme::light(), measure_}) : charts::Scene();
}

void SceneView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  charts::Theme theme = charts::themeOf(palette());
  theme.outer = charts::fromQColor(palette().color(QPalette::Base));
  painter.fillRect(rect(), palette().color(QPalette::Base));
  if (draw_) {
    const double text = std::max(kLeastText, kTextPart * QFontInfo(font()).pixelSize());
    charts::paintScene(painter,
                       draw_({{static_cast<double>(width()), static_cast<double>(height())},
                              theme,
                              measure_,
                              text}));
  }
  painter.setPen(charts::toQColor(theme.grid));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
}

}  // namespace analysis
