#pragma once

#include "base/GermanDate.h"
#include "base/TextCodec.h"
#include "charts/ChartLayout.h"
#include "charts/YearComparison.h"
#include "support/SampleYears.h"

namespace sample {

// Half an em for every character, so that layouts are the same on every machine.
class PlainMeasure final : public charts::TextMeasure {
 public:
  charts::TextExtent measure(const std::string& text, const charts::Font& font) const override {
    const auto length = static_cast<double>(base::toUtf32(text).size());
    return {length * font.size * 0.5, font.size * 0.9, font.size * 0.2};
  }
};

inline charts::Rect boxOf(const std::vector<charts::Point>& points) {
  double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;
  for (const charts::Point& point : points) {
    left = std::min(left, point.x);
    right = std::max(right, point.x);
    top = std::min(top, point.y);
    bottom = std::max(bottom, point.y);
  }
  return {left, top, right - left, bottom - top};
}

using Consumptions = std::array<std::array<double, 12>, 5>;

// By meter.
inline charts::YearData yearData(const std::string& name, const Consumptions& values,
                                 int startMonth = 1) {
  charts::YearData year;
  year.databaseName = name;
  for (const charts::Meter meter : yearbook::kMeters)
    for (int i = 0; i < 12; ++i)
      year.meters[meter][i] = {
          std::string(base::kMonthNames[static_cast<std::size_t>((startMonth - 1 + i) % 12)]),
          values[static_cast<std::size_t>(meter)][static_cast<std::size_t>(i)]};
  return year;
}

// The sample household's years, as a comparison reads them.
inline charts::YearData sampleYear(int year) {
  support::MemoryFileSystem files;
  return charts::readYear(*openYear(files, "Verbrauch" + std::to_string(year) + ".kwd"));
}

inline charts::ChartModel twoYears() {
  return charts::comparisonChart(sampleYear(2025), sampleYear(2024), 1);
}

}  // namespace sample
