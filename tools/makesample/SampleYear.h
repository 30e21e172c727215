#pragma once

#include <string>
#include <vector>

#include "yearbook/YearSession.h"

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
  double startDay, startNight, startWater, startWasteWater, startGas;
  double gasFactor;
  double vatElectricity, vatWater, vatWasteWater, vatGas;
  yearbook::PerMonth<double> day, night, water, gas;  // readings; waste water is read off the water
  std::vector<PriceStep> dayPrice, nightPrice, waterPrice, wasteWaterPrice, gasPrice;
  double feeElectricity, feeWater, feeWasteWater, feeGas;  // each month
  double advanceElectricity, advanceWater, advanceGas;     // each month
  // Of the two-tariff meter; 12 = not changed.
  int changed = 12;
  double newDay = 0, newNight = 0;

  std::string fileName() const;  // "Verbrauch2025.kwd"
};

const Year& year2024();
const Year& year2025();

// Types a year into an empty one, side files included.
base::Result<void> enter(yearbook::YearSession& session, const Year& year);

// Makes both years in a folder (which ends with the separator) from the empty template.
base::Result<void> makeBoth(base::FileSystem& files, const std::string& folder,
                            base::ByteSpan emptyYear);

}  // namespace sample
