#pragma once

#include <optional>
#include <string>

#include "base/GermanDate.h"
#include "reports/OverviewBuilder.h"

// The months of the ticked meters with consumption, unit price, net, VAT and gross.
namespace reports {

struct DetailMonth {
  std::string month;
  std::optional<double> consumption;
  std::optional<double> unitPrice;  // cent or euro, as the heading says
  std::optional<base::Money> amount;
};

struct DetailMeter {
  PerMonth<DetailMonth> months;
  std::optional<double> vatPercent;
  std::optional<base::Money> baseFee;  // of the year; the night tariff has none
};

struct DetailInput {
  PerMeter<DetailMeter> meters;
  yearbook::FlatRate flatRate;
  base::Date today{};
  bool nightShown = true;  // the household has a night tariff
};

using MeterChoice = PerMeter<bool>;

// With nothing ticked the table has its two title rows only.
Grid buildDetailTable(const DetailInput& input, const MeterChoice& ticked,
                      const TextWidth& measure = plainTextWidth);

// "Verbrauchs-Abrechnung  14 November, 2026": what the print-outs are called.
std::string documentName(base::Date today);

}  // namespace reports
