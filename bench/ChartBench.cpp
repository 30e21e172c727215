// Redrawing a chart with depth while one of its controls is held: layout and painting of 1600 by
// 1000 pixels, two series, every type, against painting the same areas, lines and texts by hand
// from finished Qt objects.

#include <QGuiApplication>
#include <QPainter>
#include <algorithm>
#include <cstdio>
#include <list>
#include <vector>

#include "Measure.h"
#include "base/GermanDate.h"
#include "charts/ChartLayout.h"
#include "charts/YearComparison.h"
#include "charts/ui/ScenePainter.h"

namespace {

constexpr int kWidth = 1600;
constexpr int kHeight = 1000;
constexpr int kAngles = 90;
constexpr int kRepetitions = 25;

charts::YearData yearOf(double base) {
  charts::YearData year;
  year.databaseName = "Verbrauch.kwd";
  for (int i = 0; i < charts::kMonthCount; ++i)
    year.meters[charts::Meter::Day][i] = {
        std::string(base::kMonthNames[static_cast<std::size_t>(i)]),
        base + static_cast<double>((i * 37) % 60)};
  return year;
}

// What somebody would draw who knows beforehand what stands where.
struct Handmade {
  struct Area {
    QPolygonF points;
    QPen pen;
    QBrush brush;
    bool closed;
  };
  struct Line {
    QPointF at;
    double shift;  // along the line, from its place to its start
    QString text;
    QFont font;
    QColor color;
    int rotation;
  };
  std::vector<std::variant<Area, Line>> items;
  QColor background;

  explicit Handmade(const charts::Scene& scene) : background(charts::toQColor(scene.background)) {
    for (const auto& item : scene.items) std::visit([this](const auto& one) { add(one); }, item);
  }
  void add(const charts::Shape& shape) {
    Area area{{}, Qt::NoPen, Qt::NoBrush, shape.closed};
    for (const charts::Point& point : shape.points) area.points.append({point.x, point.y});
    if (shape.stroke)
      area.pen =
          QPen(charts::toQColor(shape.stroke->color), shape.stroke->width,
               shape.stroke->dashed ? Qt::DashLine : Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    if (shape.fill) area.brush = charts::toQColor(*shape.fill);
    items.emplace_back(std::move(area));
  }
  void add(const charts::Text& text) {
    const QFont font = charts::toQFont(text.font);
    const QString words = QString::fromStdString(text.text);
    const double width = QFontMetricsF(font).horizontalAdvance(words);
    const double shift = text.align == charts::Align::Start    ? 0
                         : text.align == charts::Align::Middle ? -width / 2
                                                               : -width;
    items.emplace_back(Line{
        {text.at.x, text.at.y}, shift, words, font, charts::toQColor(text.color), text.rotation});
  }
  void paint(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(0, 0, kWidth, kHeight, background);
    for (const auto& item : items) {
      if (const auto* area = std::get_if<Area>(&item)) {
        painter.setPen(area->pen);
        painter.setBrush(area->brush);
        area->closed ? painter.drawPolygon(area->points) : painter.drawPolyline(area->points);
        continue;
      }
      const Line& line = std::get<Line>(item);
      painter.setFont(line.font);
      painter.setPen(line.color);
      if (line.rotation == 0) {
        painter.drawText(line.at + QPointF(line.shift, 0), line.text);
        continue;
      }
      painter.save();
      painter.translate(line.at);
      painter.rotate(-line.rotation);
      painter.drawText(QPointF(line.shift, 0), line.text);
      painter.restore();
    }
  }
};

// One type of chart at every angle, and the same by hand. Every frame differs from the one before,
// as it does under a moving control.
class Turning {
 public:
  explicit Turning(charts::ChartType type) {
    options_.type = type;
    options_.threeD = true;
    for (int frame = 0; frame < kAngles; ++frame) handmade_.emplace_back(scene(frame));
  }
  charts::Scene scene(int frame) {
    options_.view.rotation = frame % kAngles - kAngles / 2;
    return charts::layoutChart(model_, options_, theme_, {kWidth, kHeight}, measure_);
  }
  bool layOut() { return !scene(++frame_).items.empty(); }
  bool paint() {
    const charts::Scene next = scene(++frame_);
    QPainter painter(&image_);
    charts::paintScene(painter, next);
    return true;
  }
  bool paintByHand() {
    QPainter painter(&image_);
    handmade_[static_cast<std::size_t>(++frame_ % kAngles)].paint(painter);
    return true;
  }

 private:
  const charts::ChartModel model_ = charts::comparisonChart(yearOf(250), yearOf(230), 1);
  const charts::FontMeasure measure_;
  const charts::Theme theme_ = charts::Theme::light();
  charts::ChartOptions options_;
  std::vector<Handmade> handmade_;
  QImage image_{kWidth, kHeight, QImage::Format_RGB32};
  int frame_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  using charts::ChartType;
  const std::pair<std::string, ChartType> types[] = {{"lines", ChartType::Line},
                                                     {"bars", ChartType::Bar},
                                                     {"stacked bars", ChartType::StackedBar},
                                                     {"areas", ChartType::Area},
                                                     {"pies", ChartType::Pie},
                                                     {"stacked areas", ChartType::StackedArea}};
  std::list<Turning> charts;
  std::vector<bench::Work> works;
  for (const auto& [name, type] : types) {
    Turning& chart = charts.emplace_back(type);
    works.push_back({name + ", by hand", [&chart] { return chart.paintByHand(); }});
    works.push_back({name, [&chart] { return chart.paint(); }});
    works.push_back({name + ", layout alone", [&chart] { return chart.layOut(); }});
  }
  const auto times = bench::compare(works, kRepetitions);
  if (!times) return 1;
  for (std::size_t i = 0; i < works.size(); i += 3)
    bench::sayRatio("a chart of " + works[i + 1].name + " to painting it by hand", times->at(i + 1),
                    times->at(i), 1.5);
  return 0;
}
