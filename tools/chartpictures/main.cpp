// Draws charts as pictures, for the manual and for whoever looks at all of them at once:
//   chartpictures OPEN.kwd OTHER.kwd FOLDER            the pictures of the manual's page on charts
//   chartpictures --bogen OPEN.kwd OTHER.kwd FOLDER    contact sheets: every type of many
//   households
//                                                      flat and from several sides, light, dark and
//                                                      printed in grey
#include <QGuiApplication>
#include <QPainter>
#include <cstdio>
#include <functional>

#include "charts/ChartLayout.h"
#include "charts/YearComparison.h"
#include "charts/ui/ScenePainter.h"

using namespace Qt::StringLiterals;

namespace {

using charts::ChartModel;
using charts::ChartOptions;
using charts::ChartType;
using charts::Theme;

constexpr int kCellWidth = 620;
constexpr int kCellHeight = 390;
constexpr int kColumns = 3;

QImage draw(const ChartModel& model, const ChartOptions& options, int width, int height,
            const Theme& theme = Theme::light()) {
  return charts::sceneImage(charts::layoutChart(
      model, options, theme, {static_cast<double>(width), static_cast<double>(height)},
      charts::FontMeasure()));
}

// All six types, with each of these options in two rows.
QImage contactSheet(const ChartModel& model, const std::vector<ChartOptions>& kinds,
                    const Theme& theme = Theme::light()) {
  const int rows = charts::kChartTypeCount / kColumns;
  QImage sheet(kColumns * kCellWidth, rows * static_cast<int>(kinds.size()) * kCellHeight,
               QImage::Format_RGB32);
  QPainter painter(&sheet);
  int cell = 0;
  for (ChartOptions options : kinds)
    for (int type = 0; type < charts::kChartTypeCount; ++type, ++cell) {
      options.type = static_cast<ChartType>(type);
      painter.drawImage(cell % kColumns * kCellWidth, cell / kColumns * kCellHeight,
                        draw(model, options, kCellWidth, kCellHeight, theme));
    }
  return sheet;
}

bool save(const QImage& image, const QString& folder, const QString& name) {
  return image.save(folder + u'/' + name, "PNG", 0);
}

bool savePictures(const charts::YearData& open, const charts::YearData& other,
                  const QString& folder) {
  ChartOptions flat, deep, bars, lines, pie;
  flat.labelSize = deep.labelSize = 7;
  deep.threeD = true;
  bars.type = ChartType::Bar;
  pie.type = ChartType::Pie;
  pie.threeD = pie.percent = true;
  const auto gas = charts::monthlyChart(open, charts::Selection::Gas);
  const auto all = charts::monthlyChart(open, charts::Selection::None);
  return save(contactSheet(charts::comparisonChart(open, other, 1), {flat, deep}), folder,
              u"diagramm-arten.png"_s) &&
         save(draw(charts::comparisonChart(open, other, 2), bars, 860, 460), folder,
              u"diagramm-vergleich.png"_s) &&
         save(draw(all, lines, 860, 460), folder, u"diagramm-alle.png"_s) &&
         save(draw(gas, pie, 640, 420), folder, u"diagramm-prozent.png"_s);
}

// A household whose values somebody had not thought of.
struct Household {
  QString name;
  ChartModel model;
};

ChartModel changed(ChartModel model, const std::function<double(double, std::size_t)>& change) {
  for (charts::Series& series : model.series)
    for (std::size_t i = 0; i < series.values.size(); ++i)
      if (series.values[i]) series.values[i] = change(*series.values[i], i);
  return model;
}

std::vector<Household> households(const charts::YearData& open, const charts::YearData& other) {
  const ChartModel two = charts::comparisonChart(open, other, 1);
  const ChartModel all = charts::monthlyChart(open, charts::Selection::None);
  const ChartModel one = charts::monthlyChart(open, charts::Selection::Gas);
  const auto negative = [](double value, std::size_t i) { return i % 4 == 1 ? -value / 2 : value; };
  return {
      {u"vergleich"_s, two},
      {u"alle"_s, all},
      {u"gas"_s, one},
      {u"wasser"_s, charts::monthlyChart(open, charts::Selection::BothWaters)},
      {u"dezimal"_s, changed(two, [](double value, std::size_t) { return value + 0.37; })},
      {u"negativ"_s, changed(two, negative)},
      {u"alle-negativ"_s, changed(all, negative)},
      {u"ein-monat"_s,
       changed(two, [](double value, std::size_t i) { return i == 4 ? value : 0; })},
      {u"null"_s, changed(all, [](double, std::size_t) { return 0; })},
      {u"winzig"_s,
       changed(one, [](double, std::size_t i) { return static_cast<double>(i % 5) / 500; })},
      {u"riesig"_s, changed(two, [](double value, std::size_t i) { return i == 2 ? 4e9 : value; })},
  };
}

struct View {
  QString name;
  std::vector<ChartOptions> kinds;
};

std::vector<View> views() {
  ChartOptions flat, percent, deep;
  percent.percent = true;
  deep.threeD = true;
  const auto from = [&](charts::View3D view) {
    ChartOptions options = deep;
    options.view = view;
    return options;
  };
  return {{u"flach"_s, {flat, percent}},
          {u"oben"_s, {from({28, 25, 30}), from({70, 40, -40})}},
          {u"unten"_s, {from({60, -30, 40}), from({60, -30, -40})}}};
}

bool saveContactSheets(const charts::YearData& open, const charts::YearData& other,
                       const QString& folder) {
  const Theme dark = Theme::dark(charts::Color::rgb(0x242424), charts::Color::rgb(0xf0f0f0));
  bool saved = true;
  for (const Household& household : households(open, other))
    for (const View& view : views()) {
      const QString name = household.name + u'-' + view.name;
      const QImage light = contactSheet(household.model, view.kinds);
      saved =
          saved && save(light, folder, name + u"-hell.png"_s) &&
          save(contactSheet(household.model, view.kinds, dark), folder, name + u"-dunkel.png"_s) &&
          save(light.convertToFormat(QImage::Format_Grayscale8), folder, name + u"-grau.png"_s);
    }
  return saved;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  QStringList arguments = QGuiApplication::arguments().mid(1);
  const bool sheets = arguments.removeAll(u"--bogen"_s) > 0;
  if (arguments.size() != 3) {
    std::fputs("chartpictures [--bogen] OPEN.kwd OTHER.kwd FOLDER\n", stderr);
    return 2;
  }
  const auto files = base::makeDiskFileSystem();
  const auto open = charts::readYearFile(*files, arguments[0].toStdString());
  const auto other = charts::readYearFile(*files, arguments[1].toStdString());
  const auto saveAll = sheets ? saveContactSheets : savePictures;
  return saveAll(open, other, arguments[2]) ? 0 : 1;
}
