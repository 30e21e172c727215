// Redrawing a chart with depth while one of its controls is held: layout and painting of 1600 by
// 1000 pixels, two series, every type. At most 4 ms a frame are wanted.

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QPainter>

#include "base/GermanDate.h"
#include "charts/ChartLayout.h"
#include "charts/YearComparison.h"
#include "charts/ui/ScenePainter.h"

namespace {

constexpr int kWidth = 1600;
constexpr int kHeight = 1000;

charts::YearData yearOf(double base) {
  charts::YearData year;
  year.databaseName = "Verbrauch.kwd";
  for (std::size_t i = 0; i < charts::kMonthCount; ++i)
    year.rows(charts::Meter::DayElectricity)[i] = {std::string(base::kMonthNames[i]),
                                                   base + static_cast<double>((i * 37) % 60)};
  return year;
}

void redraw(benchmark::State& state, charts::ChartType type) {
  const charts::ChartModel model = charts::comparisonChart(yearOf(250), yearOf(230), 1);
  const charts::FontMeasure measure;
  const charts::Theme theme = charts::Theme::light();
  charts::ChartOptions options;
  options.type = type;
  options.threeD = true;
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  int angle = 0;
  for (auto _ : state) {
    // Every frame differs from the one before, as it does under a moving control.
    angle = (angle + 1) % 90;
    options.view.rotation = angle - 45;
    const charts::Scene scene =
        charts::layoutChart(model, options, theme, {kWidth, kHeight}, measure);
    QPainter painter(&image);
    charts::paintScene(painter, scene);
  }
}

BENCHMARK_CAPTURE(redraw, line, charts::ChartType::Line)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(redraw, bar, charts::ChartType::Bar)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(redraw, stackedBar, charts::ChartType::StackedBar)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(redraw, area, charts::ChartType::Area)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(redraw, pie, charts::ChartType::Pie)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(redraw, stackedArea, charts::ChartType::StackedArea)
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
