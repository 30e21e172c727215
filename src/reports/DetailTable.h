#pragma once

#include <array>
#include <optional>
#include <string>

#include "base/GermanDate.h"
#include "base/Money.h"
#include "reports/Grid.h"
#include "reports/OverviewBuilder.h"

// The months of the ticked meters with consumption, unit price, net, VAT and gross.
namespace reports {

enum class Meter { Day, Night, Water, WasteWater, Gas };
inline constexpr std::size_t kMeterCount = 5;

struct DetailMonth {
  std::string month;
  std::optional<double> consumption;
  std::optional<double> unitPrice;  // cent or euro, as the heading says
  std::optional<base::Money> amount;
};

struct DetailMeter {
  std::array<DetailMonth, 12> months;
  std::optional<double> vatPercent;
  std::optional<base::Money> baseFee;  // of the year; the night tariff has none
};

struct DetailInput {
  std::array<DetailMeter, kMeterCount> meters;  // in the order of Meter
  bool flatRate = false;
  std::optional<double> freeKwh;   // kWh in the year
  std::optional<double> dayPrice;  // cent per kWh
  base::Date today{};
  bool nightShown = true;  // the household has a night tariff

  DetailMeter& meter(Meter which) { return meters[static_cast<std::size_t>(which)]; }
  const DetailMeter& meter(Meter which) const { return meters[static_cast<std::size_t>(which)]; }
};

using MeterChoice = std::array<bool, kMeterCount>;

// With nothing ticked the table has its two title rows only.
Grid buildDetailTable(const DetailInput& input, const MeterChoice& ticked,
                      const TextWidth& measure = plainTextWidth);

// "Verbrauchs-Abrechnung  14 November, 2026": what the print-outs are called.
std::string documentName(base::Date today);

}  // namespace reports
