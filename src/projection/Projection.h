#pragma once

#include <optional>
#include <string>

#include "base/GermanDate.h"
#include "base/Money.h"

// The cost of electricity so far, extended to a year of 365 days.
namespace projection {

struct ProjectionInput {
  std::string startDate;              // as typed
  std::string readingDate;            // as typed
  std::optional<double> consumption;  // kWh of the day tariff so far
  std::optional<double> unitPrice;    // cent per kWh
  float vatRate = 0;                  // percent; single precision, as the window keeps it
  base::Money baseFee;                // euro in the year, without VAT
  std::string startMonth;             // name of the month in which the year's readings begin
  bool addBaseFee = false;
};

struct ProjectionFigures {
  int days = 0;
  float averagePerDay = 0;                 // kWh; 0 where it cannot be worked out
  double pricePerDay = 0;                  // euro
  double netYear = 0;                      // euro, 365 days
  double grossYear = 0;                    // with VAT
  std::optional<double> grossWithBaseFee;  // only when it is asked for
};

// Either a message for the user, in which case the figures shown before stay, or figures. Nothing
// is rounded but the gross base fee, which is money.
struct ProjectionOutcome {
  std::string message;
  // Which date the message is about.
  enum class Fault { None, StartDate, ReadingDate };
  Fault fault = Fault::None;
  bool startMonthDiffers = false;  // the message is about the month; the reading has been copied
  std::optional<ProjectionFigures> figures;
};

ProjectionOutcome project(const ProjectionInput& input);

// Days from the start to the reading, the year taken as 365 days also when it has 366. At most
// 365; negative when the reading lies before the start.
int daysSoFar(base::Date start, base::Date reading);

}  // namespace projection
