#pragma once

#include <optional>
#include <string>

#include "reports/Grid.h"
#include "yearbook/Bill.h"

// The year's bill of all three utilities side by side.
namespace reports {

using yearbook::Meter;
using yearbook::PerMeter;
using yearbook::PerMonth;
using yearbook::PerUtility;
using yearbook::Utility;

// A number as it was typed and what it means; an empty field has neither.
struct EnteredNumber {
  std::string text;
  std::optional<double> value;
};

struct MonthAmount {
  std::string month;
  std::optional<base::Money> amount;
};

// What the overview is made of: the twelve month rows in their order, the settings row, and the
// year totals as the main window shows them. An empty optional is an empty field.
struct OverviewInput {
  std::string yearFileName;  // "Verbrauch.kwd"
  // Of the day on which the year was opened.
  int currentYear = 0;
  int currentMonth = 1;

  PerUtility<PerMonth<MonthAmount>> months;  // PGesammt, PGesammtW, PGas
  PerMeter<std::optional<base::Money>> amounts;
  PerMeter<std::optional<base::Money>> baseFees;
  PerMeter<EnteredNumber> vat;  // percent
  PerUtility<std::optional<base::Money>> advances;
  yearbook::FlatRate flatRate;

  // Months up to and with the last one that has a reading or a consumption: what somebody who reads
  // once a year has read covers all twelve.
  PerUtility<int> monthsCovered{};
  // The payments of those months; `advances` are those of all twelve.
  PerUtility<base::Money> advancesCovered{};
  // The meters that have a price, but no month read.
  PerUtility<std::vector<Meter>> unread{};
};

struct UtilityTotals {
  std::optional<base::Money> amount;  // of the consumption, net
  base::Money net;                    // with the base fees
  std::optional<base::Money> vat;
  std::optional<base::Money> wasteWaterVat;  // water only
  base::Money gross;
  base::Money balance;  // gross less advance payments; positive: to be paid
};

struct OverviewTotals : PerUtility<UtilityTotals> {
  std::optional<base::Money> freeValue;  // of the free kWh
  base::Money extraConsumption;          // the months' sum less that value; may be negative
};

OverviewTotals overviewTotals(const OverviewInput& input);

// The amount columns are sized to their contents with `measure`; the whole is 9400 twips wide.
Grid buildOverview(const OverviewInput& input, const TextWidth& measure = plainTextWidth);

}  // namespace reports
