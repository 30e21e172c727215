#include "charts/ui/ScenePainter.h"

#include <QFontMetricsF>
#include <QHash>
#include <QPainter>
#include <QPolygonF>
#include <cmath>

namespace charts {
namespace {

using namespace Qt::StringLiterals;

QPolygonF toPolygon(const std::vector<Point>& points) {
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(points.size()));
  for (const Point& point : points) polygon.append({point.x, point.y});
  return polygon;
}

QPen toPen(const std::optional<Stroke>& stroke) {
  if (!stroke) return Qt::NoPen;
  QPen pen(toQColor(stroke->color), stroke->width, stroke->dashed ? Qt::DashLine : Qt::SolidLine,
           Qt::RoundCap, Qt::RoundJoin);
  return pen;
}

void paint(QPainter& painter, const Shape& shape) {
  painter.setPen(toPen(shape.stroke));
  if (!shape.closed) {
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(toPolygon(shape.points));
    return;
  }
  painter.setBrush(shape.fill ? QBrush(toQColor(*shape.fill)) : QBrush(Qt::NoBrush));
  painter.drawPolygon(toPolygon(shape.points));
}

void paint(QPainter& painter, const Text& item) {
  const QString text = QString::fromStdString(item.text);
  const QFont font = toQFont(item.font);
  painter.setFont(font);
  painter.setPen(toQColor(item.color));
  double shift = 0;
  if (item.align != Align::Start) {
    const double width = QFontMetricsF(font).horizontalAdvance(text);
    shift = item.align == Align::Middle ? -width / 2 : -width;
  }
  if (item.rotation == 0) {
    painter.drawText(QPointF(item.at.x + shift, item.at.y), text);
    return;
  }
  painter.save();
  painter.translate(item.at.x, item.at.y);
  painter.rotate(-item.rotation);
  painter.drawText(QPointF(shift, 0), text);
  painter.restore();
}

}  // namespace

QFont toQFont(const Font& font) {
  // Metrics of Liberation Sans are those of Arial.
  QFont result(QStringList{u"Arial"_s, u"Liberation Sans"_s, u"Helvetica"_s});
  result.setStyleHint(QFont::SansSerif);
  result.setPixelSize(std::max(1, static_cast<int>(std::lround(font.size))));
  result.setBold(font.bold);
  result.setHintingPreference(QFont::PreferNoHinting);
  return result;
}

QColor toQColor(Color color) {
  return {color.red, color.green, color.blue};
}

Color fromQColor(const QColor& color) {
  return {static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
          static_cast<std::uint8_t>(color.blue())};
}

TextExtent FontMeasure::measure(const std::string& text, const Font& font) const {
  const QFontMetricsF metrics(toQFont(font));
  return {metrics.horizontalAdvance(QString::fromStdString(text)), metrics.ascent(),
          metrics.descent()};
}

void paintScene(QPainter& painter, const Scene& scene) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(QRectF(0, 0, scene.width, scene.height), toQColor(scene.background));
  painter.setClipRect(QRectF(0, 0, scene.width, scene.height), Qt::IntersectClip);
  for (const auto& item : scene.items)
    std::visit([&painter](const auto& one) { paint(painter, one); }, item);
  painter.restore();
}

QImage sceneImage(const Scene& scene, double scale) {
  QImage image(std::max(1, static_cast<int>(std::lround(scene.width * scale))),
               std::max(1, static_cast<int>(std::lround(scene.height * scale))),
               QImage::Format_RGB32);
  image.setDotsPerMeterX(static_cast<int>(std::lround(96 * scale / 0.0254)));
  image.setDotsPerMeterY(static_cast<int>(std::lround(96 * scale / 0.0254)));
  image.fill(toQColor(scene.background));
  QPainter painter(&image);
  // The image's resolution must not enlarge what is measured in pixels of the scene.
  painter.scale(scale, scale);
  paintScene(painter, scene);
  return image;
}

}  // namespace charts
