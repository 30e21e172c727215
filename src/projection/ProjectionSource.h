#pragma once

#include <functional>
#include <optional>
#include <string>

#include "yearbook/YearSession.h"

namespace projection {

// What the main window shows when the projection is opened.
struct ProjectionSource {
  std::string startDate;              // as stored in the year; shown when it is a date
  std::optional<double> consumption;  // kWh of the day tariff so far
  std::optional<double> unitPrice;    // cent per kWh
  float vatRate = 0;                  // percent
  base::Money baseFee;                // euro in the year, without VAT
  std::string startMonth;             // name
  // Keeps the start date in the year.
  std::function<base::Result<void>(const std::string& date)> storeStartDate;
};

// Of the open year, which must outlive the source.
ProjectionSource projectionSource(yearbook::YearSession& year);

}  // namespace projection
