// What made charts ugly or untrue once: each case was seen in a picture.
#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "SampleChart.h"
#include "charts/Picture.h"
#include "charts/SvgWriter.h"

using sample::boxOf;

namespace {

using charts::ChartModel;
using charts::ChartOptions;
using charts::ChartType;
using charts::Rect;
using charts::Scene;
using charts::Shape;
using charts::Text;

constexpr charts::Size kDefault{820, 560};

ChartOptions optionsOf(ChartType type) {
  ChartOptions options;
  options.type = type;
  return options;
}

Scene layout(const ChartModel& model, const ChartOptions& options, charts::Size size = kDefault,
             const charts::Theme& theme = charts::Theme::light()) {
  return charts::layoutChart(model, options, theme, size, sample::PlainMeasure());
}

std::vector<const Text*> textsOf(const Scene& scene) {
  std::vector<const Text*> texts;
  for (const auto& item : scene.items)
    if (const auto* text = std::get_if<Text>(&item)) texts.push_back(text);
  return texts;
}

const Text* find(const Scene& scene, const std::string& wanted) {
  for (const Text* text : textsOf(scene))
    if (text->text == wanted) return text;
  return nullptr;
}

// The boxes that are painted behind value labels.
std::vector<Rect> labelBoxes(const Scene& scene) {
  std::vector<Rect> boxes;
  for (std::size_t i = 1; i < scene.items.size(); ++i) {
    const auto* shape = std::get_if<Shape>(&scene.items[i - 1]);
    if (shape && std::holds_alternative<Text>(scene.items[i]) &&
        shape->fill == charts::Theme::light().labelFill)
      boxes.push_back(boxOf(shape->points));
  }
  return boxes;
}

ChartModel withDecimals() {
  ChartModel model = sample::twoYears();
  for (auto& series : model.series)
    for (std::size_t i = 0; i < 12; ++i) *series.values[i] += 0.37;
  return model;
}

std::size_t barsCut(const Scene& scene) {
  std::size_t cut = 0;
  for (const Rect& box : labelBoxes(scene))
    for (const charts::Mark& mark : scene.marks)
      cut += box.intersects(boxOf(mark.outline).grown(-1.5)) ? 1U : 0U;
  return cut;
}

// Numbers with decimals are wider than their bars: all are turned, none lies on a bar.
TEST(ChartLooks, LabelsOfBarsAreTurnedAlikeAndCutNoBar) {
  for (const charts::Size size : {kDefault, charts::Size{640, 400}, {1200, 700}}) {
    const Scene scene = layout(withDecimals(), optionsOf(ChartType::Bar), size);
    EXPECT_EQ(barsCut(scene), 0U) << size.width;
    EXPECT_EQ(labelBoxes(scene).size(), 24U) << size.width;
    std::set<int> rotations;
    for (const Text* text : textsOf(scene))
      if (text->text.find(",37") != std::string::npos) rotations.insert(text->rotation);
    EXPECT_EQ(rotations.size(), 1U);
  }
  const Scene broad = layout(withDecimals(), optionsOf(ChartType::Bar), {1900, 700});
  EXPECT_EQ(find(broad, "291,37")->rotation, 0) << "there is room for all";
}

// With depth they stand beyond their bars as well, or where those are in the way all of them on the
// bars' fronts.
TEST(ChartLooks, LabelsOfBarsWithDepthAreAllThereAndCutNone) {
  ChartOptions options = optionsOf(ChartType::Bar);
  options.threeD = true;
  for (const charts::View3D view : {charts::View3D{}, {70, 40, -40}, {60, -30, 40}, {28, 0, 30}}) {
    options.view = view;
    for (const ChartModel& model : {sample::twoYears(), withDecimals()}) {
      const Scene scene = layout(model, options);
      EXPECT_EQ(labelBoxes(scene).size(), 24U) << view.elevation;
      for (const Rect& box : labelBoxes(scene)) {
        std::size_t cut = 0;
        bool inside = false;
        for (const charts::Mark& mark : scene.marks) {
          const Rect bar = boxOf(mark.outline);
          inside = inside || bar.contains(box);
          cut += box.intersects(bar.grown(-1.5)) ? 1U : 0U;
        }
        EXPECT_TRUE(inside || cut == 0) << view.elevation;
      }
    }
  }
}

// Half of a bar lies behind the next: its label stands over the half that is seen.
TEST(ChartLooks, LabelsOfOverlappingBarsAreAllThere) {
  ChartOptions options = optionsOf(ChartType::Bar);
  options.overlapBars = true;
  for (const ChartModel& model : {sample::twoYears(), withDecimals()})
    EXPECT_EQ(labelBoxes(layout(model, options)).size(), 24U);
}

// Seen from below the far edge of a negative bar is its lowest, and its label has room under it.
TEST(ChartLooks, LabelsOfNegativeBarsHaveRoomSeenFromBelow) {
  ChartModel model = charts::monthlyChart(sample::sampleYear(2025), charts::Selection::Gas);
  model.series[0].values[4] = -131.5;
  ChartOptions options = optionsOf(ChartType::Bar);
  options.threeD = true;
  options.view = {60, -30, 5};
  const Scene scene = layout(model, options);
  EXPECT_EQ(labelBoxes(scene).size(), 12U);
  ASSERT_NE(find(scene, "-131,5"), nullptr);
  EXPECT_GT(find(scene, "-131,5")->at.y, boxOf(scene.findMark(0, 4)->outline).bottom() + 30);
}

std::size_t strokes(const Scene& scene, charts::Color color) {
  std::size_t count = 0;
  for (const auto& item : scene.items)
    if (const auto* shape = std::get_if<Shape>(&item))
      count +=
          !shape->closed && shape->points.size() == 2 && shape->stroke->color == color ? 1U : 0U;
  return count;
}

// Without colour, on a grey print, the other year's bars and areas are the hatched ones.
TEST(ChartLooks, TheOtherYearsBarsAndAreasAreHatched) {
  ChartOptions options = optionsOf(ChartType::Bar);
  options.labels = options.legend = false;
  const charts::Color ground = charts::Theme::light().inner;
  const ChartModel one = charts::comparisonChart(sample::sampleYear(2025), std::nullopt, 1);
  for (const ChartType type : {ChartType::Bar, ChartType::StackedBar, ChartType::StackedArea})
    for (const bool threeD : {false, true}) {
      options.type = type;
      options.threeD = threeD;
      EXPECT_GT(strokes(layout(sample::twoYears(), options), ground), 100U)
          << static_cast<int>(type);
      EXPECT_EQ(strokes(layout(one, options), ground), 0U) << static_cast<int>(type);
    }
  options.legend = true;
  EXPECT_GT(strokes(layout(sample::twoYears(), optionsOf(ChartType::Line)), ground), 1U);
}

// Strokes end at the outline, whatever its form.
TEST(ChartLooks, AHatchStaysWithinItsOutline) {
  const std::vector<charts::Point> outline = {{0, 0},   {40, 10}, {80, 0},
                                              {80, 60}, {40, 20}, {0, 60}};
  const auto strokes = charts::hatch(outline, 3);
  EXPECT_NEAR(static_cast<double>(charts::hatch({{0, 0}, {60, 0}, {60, 60}, {0, 60}}, 3).size()),
              60 * std::sqrt(2) / 3, 1);
  EXPECT_GT(strokes.size(), 20U);
  for (const auto& [from, to] : strokes) {
    EXPECT_NEAR(from.x + from.y, to.x + to.y, 1e-9) << "at 45 degrees";
    for (const double share : {0.02, 0.5, 0.98})
      EXPECT_TRUE(charts::isInside(outline, from + (to - from) * share)) << from.x << "," << from.y;
  }
}

// Too narrow for any: a series has all of its labels or none.
TEST(ChartLooks, LabelsOfASeriesAreAllThereOrNone) {
  const ChartModel all = charts::monthlyChart(sample::sampleYear(2025), charts::Selection::None);
  for (const double width : {240.0, 320.0, 500.0, 700.0, 1100.0})
    for (const int rotation : {0, 90}) {
      ChartOptions options = optionsOf(ChartType::Bar);
      options.labelRotation = rotation;
      const Scene scene = layout(all, options, {width, 400});
      EXPECT_EQ(labelBoxes(scene).size() % 12, 0U) << width;
      EXPECT_EQ(barsCut(scene), 0U) << width;
    }
}

TEST(ChartLooks, TheLastMonthKeepsItsLabelAtTheEdge) {
  for (const ChartType type : {ChartType::Line, ChartType::Bar, ChartType::Area}) {
    ChartModel model =
        charts::monthlyChart(sample::sampleYear(2025), charts::Selection::Electricity);
    model.series[0].values[11] = 12305.25;
    ChartOptions options = optionsOf(type);
    options.labelSize = 14;
    const Scene scene = layout(model, options, {600, 400});
    EXPECT_NE(find(scene, "12.305,25"), nullptr) << static_cast<int>(type);
  }
}

double contrast(charts::Color a, charts::Color b) {
  const double x = charts::luminance(a), y = charts::luminance(b);
  return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

TEST(ChartLooks, EveryLineAndBarStandsOutFromTheGround) {
  const charts::Theme dark =
      charts::Theme::dark(charts::Color::rgb(0x242424), charts::Color::rgb(0xf0f0f0));
  for (const charts::Theme& theme : {charts::Theme::light(), dark})
    for (const charts::Color color : theme.series) {
      EXPECT_GE(contrast(color, theme.inner), 3) << int(color.red) << "," << int(color.green);
      EXPECT_GE(contrast(color, theme.outer), 3) << int(color.red) << "," << int(color.green);
    }
  EXPECT_LT(charts::luminance(dark.labelFill), 0.1);
  EXPECT_GT(contrast(dark.labelText, dark.labelFill), 7);
}

// Without colour, on a grey print, the other year's line is the dashed one.
TEST(ChartLooks, TheOtherYearsLineIsDashed) {
  for (const ChartType type : {ChartType::Line, ChartType::Area}) {
    const Scene scene = layout(sample::twoYears(), optionsOf(type));
    std::vector<bool> dashed;
    for (const auto& item : scene.items)
      if (const auto* shape = std::get_if<Shape>(&item);
          shape && !shape->closed && shape->points.size() >= 12)
        dashed.push_back(shape->stroke->dashed);
    EXPECT_EQ(dashed, std::vector<bool>({true, false})) << static_cast<int>(type);
  }
}

struct Disc {
  charts::Point center;
  double radius = 0;
};

Disc discOf(const Scene& scene, int series) {
  std::vector<charts::Point> points;
  for (const charts::Mark& mark : scene.marks)
    if (mark.series == series)
      points.insert(points.end(), mark.outline.begin(), mark.outline.end());
  const Rect box = boxOf(points);
  return {box.center(), box.width / 2};
}

TEST(ChartLooks, PiesOfAChartAreOfOneSizeWithTheirNamesInOneLine) {
  ChartModel model = sample::twoYears();
  for (auto& value : model.series[1].values) value = *value * 100000 + 0.25;
  model.series[1].values[5] = 1;
  const Scene scene = layout(model, optionsOf(ChartType::Pie));
  EXPECT_NEAR(discOf(scene, 0).radius, discOf(scene, 1).radius, 1);
  EXPECT_NEAR(discOf(scene, 0).center.y, discOf(scene, 1).center.y, 1);
  std::vector<double> names;
  for (const Text* text : textsOf(scene))
    if (text->font.bold && text->text.find(" / ") != std::string::npos) names.push_back(text->at.y);
  ASSERT_EQ(names.size(), 2U);
  EXPECT_NEAR(names[0], names[1], 1);
}

TEST(ChartLooks, PiesStandOneAboveTheOtherInATallWindow) {
  const Scene tall = layout(sample::twoYears(), optionsOf(ChartType::Pie), {400, 900});
  EXPECT_NEAR(discOf(tall, 0).center.x, discOf(tall, 1).center.x, 1);
  EXPECT_GT(discOf(tall, 1).center.y, discOf(tall, 0).center.y + 2 * discOf(tall, 0).radius);
  const Scene broad = layout(sample::twoYears(), optionsOf(ChartType::Pie), {900, 400});
  EXPECT_NEAR(discOf(broad, 0).center.y, discOf(broad, 1).center.y, 1);
}

TEST(ChartLooks, PiesKeepTheirLabelsUnlessTheyBecomeTiny) {
  const ChartModel all = charts::monthlyChart(sample::sampleYear(2025), charts::Selection::None);
  const Scene usual = layout(all, optionsOf(ChartType::Pie), {700, 480});
  EXPECT_NE(find(usual, "Jan  291"), nullptr);
  EXPECT_GT(discOf(usual, 0).radius, 40);
  const Scene small = layout(withDecimals(), optionsOf(ChartType::Pie), {420, 300});
  EXPECT_GT(discOf(small, 0).radius, 40);
}

TEST(ChartLooks, SharesOfAPieAddUpAndWhatItLeavesOutIsSaid) {
  ChartModel model = charts::monthlyChart(sample::sampleYear(2025), charts::Selection::Electricity);
  model.series[0].values[3] = -120.5;
  ChartOptions options = optionsOf(ChartType::Pie);
  options.percent = true;
  const Scene scene = layout(model, options);
  double sum = 0;
  int shares = 0;
  for (const Text* text : textsOf(scene)) {
    const auto end = text->text.find(" %");
    if (end == std::string::npos) continue;
    std::string number = text->text.substr(5, end - 5);
    number.replace(number.find(','), 1, ".");
    sum += std::stod(number);
    ++shares;
  }
  EXPECT_EQ(shares, 11);
  EXPECT_NEAR(sum, 100, 0.6);
  EXPECT_NE(find(scene, "ohne Apr -120,5"), nullptr);
  for (std::size_t i = 0; i < 9; ++i) model.series[0].values[i] = -120.5;
  const Scene narrow = layout(model, options, {300, 300});
  EXPECT_NE(find(narrow, "ohne 9 Monate unter 0"), nullptr) << "no name is cut off";
}

// kWh lie before m³: what is behind is seen as a line.
TEST(ChartLooks, AddedAreasOfTwoUnitsHideNoneOfThem) {
  const ChartModel all = charts::monthlyChart(sample::sampleYear(2025), charts::Selection::None);
  const Scene scene = layout(all, optionsOf(ChartType::StackedArea));
  std::size_t lastFill = 0;
  std::vector<std::size_t> lines;
  for (std::size_t i = 0; i < scene.items.size(); ++i) {
    const auto* shape = std::get_if<Shape>(&scene.items[i]);
    if (!shape || shape->points.size() < 12) continue;
    if (shape->closed)
      lastFill = i;
    else
      lines.push_back(i);
  }
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_GT(lines.front(), lastFill);
}

TEST(ChartLooks, AYearOfZerosLeavesTheMonthsReadable) {
  const ChartModel zeros =
      charts::monthlyChart(sample::yearData("x.kwd", {}), charts::Selection::None);
  for (const ChartType type : {ChartType::Line, ChartType::Area}) {
    const Scene scene = layout(zeros, optionsOf(type));
    const Text* january = find(scene, "Jan");
    ASSERT_NE(january, nullptr);
    const double top = january->at.y - january->font.size * 0.72;  // of capitals
    for (const auto& item : scene.items)
      if (const auto* shape = std::get_if<Shape>(&item);
          shape && boxOf(shape->points).height < 40) {
        const double half = shape->stroke ? shape->stroke->width / 2 : 0;
        EXPECT_LE(boxOf(shape->points).bottom() + half, top) << static_cast<int>(type);
      }
  }
}

// One meaning of a percent on one axis.
TEST(ChartLooks, TwoUnitsAreNotAddedUpInPercent) {
  const ChartModel all = charts::monthlyChart(sample::sampleYear(2025), charts::Selection::None);
  const ChartModel shares = charts::inPercent(all, true);
  for (const charts::Series& series : shares.series) {
    double sum = 0;
    for (const auto& value : series.values) sum += *value;
    EXPECT_NEAR(sum, 100, 1e-6) << series.name;
  }
}

TEST(ChartLooks, SmallValuesKeepTheirDigits) {
  EXPECT_EQ(charts::valueText(0.002), "0,002");
  EXPECT_EQ(charts::valueText(-0.0064), "-0,0064");
  EXPECT_EQ(charts::valueText(0.126), "0,13");
  EXPECT_EQ(charts::valueText(0), "0");
}

// From below the far edge is the lower one, and the months' names stand under it.
TEST(ChartLooks, MonthsStandUnderTheirBarsSeenFromBelow) {
  ChartOptions options = optionsOf(ChartType::Bar);
  options.threeD = true;
  options.view = {60, -30, 40};
  const Scene scene =
      layout(charts::monthlyChart(sample::sampleYear(2025), charts::Selection::Gas), options);
  // The lowest corner that is drawn of a bar lies above its name.
  const Rect front = boxOf(scene.findMark(0, 0)->outline);
  const double name = find(scene, "Jan")->at.x;
  double lowest = 0, at = 0;
  for (const auto& item : scene.items)
    if (const auto* shape = std::get_if<Shape>(&item); shape && shape->closed)
      for (const charts::Point& point : shape->points)
        if (std::fabs(point.x - name) <= front.width && point.y > lowest &&
            shape->points.size() == 4 && boxOf(shape->points).width < 3 * front.width) {
          lowest = point.y;
          at = point.x;
        }
  EXPECT_GT(lowest, front.bottom());
  EXPECT_NEAR(at, name, front.width);
  EXPECT_GT(name, front.center().x + front.width / 2) << "moved with the far edge";
}

TEST(ChartLooks, ALaterLineShowsWhereZeroIs) {
  for (const ChartType type : {ChartType::StackedBar, ChartType::StackedArea}) {
    const Scene scene = layout(sample::twoYears(), optionsOf(type));
    std::size_t lastFill = 0, zero = 0;
    for (std::size_t i = 0; i < scene.items.size(); ++i)
      if (const auto* shape = std::get_if<Shape>(&scene.items[i])) {
        if (shape->closed && shape->fill != charts::Theme::light().labelFill) lastFill = i;
        if (!shape->closed && shape->stroke->color == charts::Theme::light().axis) zero = i;
      }
    EXPECT_GT(zero, lastFill) << static_cast<int>(type);
  }
}

// The year in front covers the other one where it is higher; a line tells where that is.
TEST(ChartLooks, TheAreaBehindIsSeenAsALine) {
  ChartOptions options = optionsOf(ChartType::Area);
  options.threeD = true;
  const Scene scene = layout(sample::twoYears(), options);
  const auto* last = [&]() -> const Shape* {
    const Shape* found = nullptr;
    for (const auto& item : scene.items)
      if (const auto* shape = std::get_if<Shape>(&item); shape && !shape->closed) found = shape;
    return found;
  }();
  ASSERT_NE(last, nullptr);
  EXPECT_EQ(last->points.size(), 12U);
  EXPECT_TRUE(last->stroke->dashed);
}

TEST(ChartLooks, BlanksSurviveInASvg) {
  Scene scene = layout(sample::twoYears(), optionsOf(ChartType::Pie));
  const std::string svg = charts::toSvg(scene, "T", "D");
  EXPECT_NE(svg.find("xml:space=\"preserve\">Jan  291<"), std::string::npos);
}

// What is chosen smaller, or made smaller for want of room, is not on paper.
TEST(ChartLooks, NoTextIsSmallerThanTheLeastSize) {
  ChartOptions options = optionsOf(ChartType::Bar);
  options.labelSize = 6;
  options.leastSize = 8.75;
  for (const ChartType type : {ChartType::Bar, ChartType::Pie, ChartType::Line}) {
    options.type = type;
    const Scene scene = layout(sample::twoYears(), options, {400, 300});
    for (const Text* text : textsOf(scene))
      EXPECT_GE(text->font.size, 8.75 * 96 / 72 - 0.01) << text->text;
  }
}

// A chart of a large screen on a sheet: its nine points are seven at least.
TEST(ChartLooks, TextsAreReadOnPaperHoweverLargeTheWindowIs) {
  const charts::Size page{7.5, 10.9};
  for (const charts::Size natural : {charts::Size{10, 7}, {40, 21}, {9, 30}})
    for (const auto fit :
         {charts::PrintFit::OneToOne, charts::PrintFit::Width, charts::PrintFit::Height,
          charts::PrintFit::Page, charts::PrintFit::Maximum}) {
      const auto placed = charts::placeOnPage(fit, page, natural);
      EXPECT_GE(placed.enlarged(), 7.0 / 9) << natural.width;
      EXPECT_NEAR(placed.leastText() * placed.enlarged(), 7, 1e-9);
      EXPECT_NEAR(placed.target.width / placed.layout.width,
                  placed.target.height / placed.layout.height, 1e-9);
      EXPECT_LE(placed.target.width, page.width + 1e-9);
      EXPECT_LE(placed.target.height, page.height + 1e-9);
    }
}

}  // namespace
