// Draws the pictures of the manual's page on charts: chartpictures OPEN.kwd OTHER.kwd FOLDER
#include <QGuiApplication>
#include <QPainter>
#include <cstdio>

#include "charts/ChartLayout.h"
#include "charts/YearComparison.h"
#include "charts/ui/ScenePainter.h"

namespace {

constexpr int kCellWidth = 620;
constexpr int kCellHeight = 390;
constexpr int kColumns = 3;

QImage draw(const charts::ChartModel& model, const charts::ChartOptions& options, int width,
            int height) {
  return charts::sceneImage(charts::layoutChart(
      model, options, charts::Theme::light(),
      {static_cast<double>(width), static_cast<double>(height)}, charts::FontMeasure()));
}

// All six types, flat above, with depth below.
QImage contactSheet(const charts::ChartModel& model) {
  QImage sheet(kColumns * kCellWidth, 4 * kCellHeight, QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  for (int i = 0; i < 2 * charts::kChartTypeCount; ++i) {
    charts::ChartOptions options;
    options.type = static_cast<charts::ChartType>(i % charts::kChartTypeCount);
    options.threeD = i >= charts::kChartTypeCount;
    options.labelSize = 7;
    painter.drawImage(i % kColumns * kCellWidth, i / kColumns * kCellHeight,
                      draw(model, options, kCellWidth, kCellHeight));
  }
  return sheet;
}

bool save(const QImage& image, const QString& folder, const char* name) {
  return image.save(folder + QLatin1Char('/') + QString::fromLatin1(name), "PNG", 0);
}

bool savePictures(const charts::YearData& open, const charts::YearData& other,
                  const QString& folder) {
  using charts::ChartType;
  charts::ChartOptions bars;
  bars.type = ChartType::Bar;
  charts::ChartOptions lines;
  charts::ChartOptions pie;
  pie.type = ChartType::Pie;
  pie.threeD = pie.percent = true;
  const auto gas = charts::monthlyChart(open, charts::Selection::Gas);
  const auto all = charts::monthlyChart(open, charts::Selection::None);
  return save(contactSheet(charts::comparisonChart(open, other, 1)), folder,
              "diagramm-arten.png") &&
         save(draw(charts::comparisonChart(open, other, 2), bars, 860, 460), folder,
              "diagramm-vergleich.png") &&
         save(draw(all, lines, 860, 460), folder, "diagramm-alle.png") &&
         save(draw(gas, pie, 640, 420), folder, "diagramm-prozent.png");
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() != 4) {
    std::fputs("chartpictures OPEN.kwd OTHER.kwd FOLDER\n", stderr);
    return 2;
  }
  const auto files = base::makeDiskFileSystem();
  const auto open = charts::readYearFile(*files, arguments[1].toStdString());
  const auto other = charts::readYearFile(*files, arguments[2].toStdString());
  return savePictures(open, other, arguments[3]) ? 0 : 1;
}
