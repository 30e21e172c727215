#pragma once

#include <string>
#include <vector>

#include "readings/MeterChange.h"

// An invented household of three persons with gas heating and a two-tariff electricity meter: what
// it typed in two years. Base fees, unit prices without VAT, advance payments with VAT.
namespace sample {

// A unit price from a month on (position 0 to 11), until the next one.
struct PriceStep {
  int from;
  double price;
};

struct Year {
  int year;
  std::string startDate;
  double gasFactor;
  yearbook::PerMeter<double> start;
  yearbook::PerMeter<yearbook::PerMonth<double>> readings;
  yearbook::PerMeter<std::vector<PriceStep>> prices;
  yearbook::PerMeter<double> fees;        // each month; the night tariff has none
  yearbook::PerUtility<double> advances;  // each month
  yearbook::PerMeter<readings::MeterChange> changes;

  std::string fileName() const;  // "Verbrauch2025.kwd"
};

// The same in both years.
inline constexpr yearbook::PerMeter<double> kVat = {19, 19, 7, 0, 19};

const Year& year2024();
const Year& year2025();

// Types a year into an empty one, side files included.
base::Result<void> enter(yearbook::YearSession& session, const Year& year);

// Makes both years in a folder (which ends with the separator) from the empty template.
base::Result<void> makeBoth(base::FileSystem& files, const std::string& folder,
                            base::ByteSpan emptyYear);

}  // namespace sample
