#pragma once

#include <array>
#include <optional>
#include <string>

#include "base/File.h"
#include "yearbook/Meter.h"

namespace yearbook {
class YearSession;
}

namespace charts {

using yearbook::Meter;
using yearbook::PerMeter;
inline constexpr int kMonthCount = yearbook::kMonths;

// One month row: its month's German name and its consumption. nullopt = could not be read; an empty
// field counts as 0.
struct MonthRow {
  std::string month;
  std::optional<double> value;
  bool operator==(const MonthRow&) const = default;
};
using MonthRows = yearbook::PerMonth<MonthRow>;

// What a chart shows of each month.
enum class Shown { Consumption, Net, Gross };

// The consumptions of a year by position; position 0 is the start month.
struct YearData {
  std::string databaseName;  // file name of the year database without its folder
  PerMeter<MonthRows> meters;
  PerMeter<MonthRows> net;  // what they cost in euro, without base fees
  PerMeter<double> vat{};   // percent

  // The rows to be shown.
  MonthRows rows(Meter meter, Shown shown) const;
};

// What the monthly chart shows of the open year: its chart table and the captions of its months.
YearData readChartTable(const yearbook::YearSession& year);

// The open year as its utility tables hold it, each row with its own month.
YearData readYear(const yearbook::YearSession& year);

// The same of another year, which is only read. A table, column or field that is missing leaves its
// rows empty; a file that cannot be opened gives its name and empty rows.
YearData readYearFile(base::FileSystem& files, const std::string& path);

}  // namespace charts
