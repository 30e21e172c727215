// Redrawing a chart with depth while one of its controls is held: layout and painting of 1600 by
// 1000 pixels, two series, every type, against painting the same areas, lines and texts by hand
// from finished Qt objects. Both take turns frame by frame; medians are compared. An argument sets
// how often the chart turns from one side to the other (5).

#include <QGuiApplication>
#include <QPainter>
#include <algorithm>
#include <cstdio>
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

// Our frame against the handmade one.
double compare(const char* name, charts::ChartType type, int turns) {
  const charts::ChartModel model = charts::comparisonChart(yearOf(250), yearOf(230), 1);
  const charts::FontMeasure measure;
  const charts::Theme theme = charts::Theme::light();
  charts::ChartOptions options;
  options.type = type;
  options.threeD = true;
  const auto sceneAt = [&](int angle) {
    options.view.rotation = angle - kAngles / 2;
    return charts::layoutChart(model, options, theme, {kWidth, kHeight}, measure);
  };
  std::vector<Handmade> frames;
  for (int angle = 0; angle < kAngles; ++angle) frames.emplace_back(sceneAt(angle));
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  std::vector<double> ours, layout, byHand;
  for (int frame = 0; frame < turns * kAngles; ++frame) {
    // Every frame differs from the one before, as it does under a moving control.
    const int angle = frame % kAngles;
    charts::Scene scene;
    layout.push_back(bench::millisecondsOf([&] { scene = sceneAt(angle); }));
    ours.push_back(layout.back() + bench::millisecondsOf([&] {
                     QPainter painter(&image);
                     charts::paintScene(painter, scene);
                   }));
    byHand.push_back(bench::millisecondsOf([&] {
      QPainter painter(&image);
      frames[static_cast<std::size_t>(angle)].paint(painter);
    }));
  }
  const double ratio = bench::median(ours) / bench::median(byHand);
  std::printf("%-13s %5.2f ms (layout %4.2f)   by hand %5.2f ms   ratio %.2f\n", name,
              bench::median(ours), bench::median(layout), bench::median(byHand), ratio);
  return ratio;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const int turns = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
  using charts::ChartType;
  double worst = 0;
  for (const auto& [name, type] : {std::pair("lines", ChartType::Line),
                                   {"bars", ChartType::Bar},
                                   {"stacked bars", ChartType::StackedBar},
                                   {"areas", ChartType::Area},
                                   {"pies", ChartType::Pie},
                                   {"stacked areas", ChartType::StackedArea}})
    worst = std::max(worst, compare(name, type, turns));
  std::printf("worst ratio: %.2f (wanted: 1.50)\n", worst);
  return 0;
}
