#pragma once

#include "base/GermanDate.h"
#include "base/TextCodec.h"
#include "charts/ChartLayout.h"
#include "charts/YearComparison.h"

namespace sample {

// Half an em for every character, so that layouts are the same on every machine.
class PlainMeasure final : public charts::TextMeasure {
 public:
  charts::TextExtent measure(const std::string& text, const charts::Font& font) const override {
    const auto length = static_cast<double>(base::toUtf32(text).size());
    return {length * font.size * 0.5, font.size * 0.9, font.size * 0.2};
  }
};

using Consumptions = std::array<std::array<double, 12>, charts::kMeterCount>;

inline charts::YearData yearData(const std::string& name, const Consumptions& values,
                                 int startMonth = 1) {
  charts::YearData year;
  year.databaseName = name;
  for (std::size_t meter = 0; meter < values.size(); ++meter)
    for (std::size_t i = 0; i < 12; ++i)
      year.meters[meter][i] = {
          std::string(base::kMonthNames[(static_cast<std::size_t>(startMonth) - 1 + i) % 12]),
          values[meter][i]};
  return year;
}

// By Meter: day electricity, gas, water, waste water, night electricity.
inline charts::YearData year2024() {
  return yearData("Verbrauch2024.kwd",
                  {{{299, 263, 268, 247, 237, 228, 219, 214, 240, 261, 284, 313},
                    {237, 174, 157, 108, 48, 29, 24, 21, 50, 104, 179, 219},
                    {10, 10, 9, 11, 10, 12, 12, 11, 11, 9, 10, 10},
                    {10, 10, 9, 11, 10, 12, 12, 11, 11, 9, 10, 10},
                    {183, 158, 146, 122, 105, 95, 92, 91, 104, 126, 152, 179}}});
}

inline charts::YearData year2025() {
  return yearData("Verbrauch2025.kwd",
                  {{{291, 255, 260, 239, 231, 223, 226, 198, 234, 255, 276, 305},
                    {240, 226, 179, 96, 62, 28, 24, 20, 44, 108, 177, 204},
                    {10, 9, 9, 10, 11, 11, 12, 9, 10, 9, 10, 9},
                    {10, 9, 9, 10, 11, 11, 12, 9, 10, 9, 10, 9},
                    {180, 157, 141, 115, 101, 92, 89, 85, 99, 122, 147, 171}}});
}

inline charts::ChartModel twoYears() {
  return charts::comparisonChart(year2025(), year2024(), 1);
}

}  // namespace sample
