#pragma once

#include <string>

#include "yearbook/YearSession.h"

// A meter was replaced during the year: in which month, and at which reading the new one began.
// Kept in a side file per year and meter. It holds the position of the month, not its name.
namespace readings {

using yearbook::Meter;
using yearbook::PerMeter;
using yearbook::PerMonth;
using yearbook::YearRows;
using yearbook::YearSession;

struct MeterChange {
  static constexpr int kNone = yearbook::kMonths;
  int position = kNone;  // month row 0 to 11 whose reading is the old meter's last one
  double newStart = 0;   // 0 = unset

  bool operator==(const MeterChange&) const = default;
};

// In the data folder, named after the year.
std::string meterChangePath(const YearSession& session, Meter meter);

// What the file holds then: single precision, as always.
std::string meterChangeLine(const MeterChange& change);
yearbook::SideFile meterChangeFile(const YearSession& session, Meter meter,
                                   const MeterChange& change);

// No change when the file is missing or holds anything else than a position and a number.
MeterChange readMeterChange(base::FileSystem& files, const std::string& path);

// Stores that there is no change.
base::Result<void> deleteMeterChange(YearSession& session, Meter meter);

}  // namespace readings
