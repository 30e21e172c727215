#pragma once

#include <optional>
#include <set>
#include <string>

#include "yearbook/Bill.h"
#include "yearbook/Months.h"
#include "yearbook/YearRows.h"

namespace yearbook {

// The values that the main window's fields show. Every window that "reads a field of the main
// window" reads it here. Empty fields are nullopt or "".
struct FieldValues {
  // Typed on the main window.
  PerMeter<std::optional<double>> startReadings;
  PerMeter<std::optional<double>> prices;  // of the last month
  PerMeter<std::optional<double>> vat;
  PerMeter<std::optional<Money>> baseFees;
  std::optional<double> gasFactor;
  std::optional<double> freeKwh;
  std::string startDate;  // as typed; shown only when it is a valid date
  PerUtility<PerMonth<std::optional<Money>>> advances;
  PerUtility<PerMonth<std::string>> remarks;

  // Modes.
  bool flatRate = false;          // "Pauschale"
  bool nightShown = true;         // night tariff displayed
  PerUtility<int> startMonths{};  // 1 to 12; 0 when the file names no month

  // Derived.
  Bill bill;
  PerUtility<Money> advanceSums;
  PerMeter<PerMonth<std::optional<double>>> consumptions;

  // After the clearing of a utility its totals are shown empty until its next summary.
  PerUtility<bool> cleared{};
};

// What is shown of a year and not stored in it.
struct Modes {
  bool flatRate = false;
  PerUtility<bool> cleared{};
  // Cells that the user has emptied: what is stored there is shown as nothing, and counts as
  // nothing, until something is stored again.
  std::set<Cell> emptied;
};

// Everything that the fields show, from the rows. Pure.
FieldValues valuesOf(const YearRows& rows, const Modes& modes);

}  // namespace yearbook
