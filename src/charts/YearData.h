#pragma once

#include <array>
#include <optional>
#include <string>

#include "base/File.h"
#include "yearbook/Meter.h"

namespace jet {
class Database;
}
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

// The consumptions of a year by position; position 0 is the start month.
struct YearData {
  std::string databaseName;  // file name of the year database without its folder
  PerMeter<MonthRows> meters;
};

// What the monthly chart shows of the open year: its chart table and the captions of its months.
YearData readChartTable(const yearbook::YearSession& year);

// A year as its utility tables hold it, each row with its own month. A table, column or field that
// is missing leaves its rows empty.
YearData readYear(jet::Database& database);

// Where another year comes from.
class ComparisonSource {
 public:
  virtual ~ComparisonSource() = default;
  // Only reads. A file that cannot be opened gives its name and empty rows.
  virtual YearData open(const std::string& path) = 0;
};

class FileComparisonSource final : public ComparisonSource {
 public:
  explicit FileComparisonSource(base::FileSystem& files) : files_(files) {}
  YearData open(const std::string& path) override;

 private:
  base::FileSystem& files_;
};

}  // namespace charts
