#include "yearbook/Clearing.h"

namespace yearbook {
namespace {

std::vector<const Field*> settingsOf(Meter meter) {
  const MeterFacts& facts = factsOf(meter);
  std::vector<const Field*> settings = {facts.startReading, facts.vat};
  if (facts.baseFee) settings.push_back(facts.baseFee);
  if (meter == Meter::Gas) settings.push_back(&zstaende::gasFactor);
  return settings;
}

}  // namespace

base::Result<void> clearUtility(YearRows& rows, Utility utility) {
  std::vector<const Field*> months = {factsOf(utility).advance};
  std::vector<const Field*> settings;
  for (Meter meter : metersOf(utility)) {
    const MeterFacts& facts = factsOf(meter);
    months.insert(months.end(), {facts.reading, facts.consumption, facts.amount, facts.price});
    if (meter == Meter::WasteWater) continue;
    for (const Field* field : settingsOf(meter)) settings.push_back(field);
  }
  for (int i = 0; i < kMonths; ++i)
    for (const Field* field : months)
      if (auto done = rows.of(utility).setNumber(i, *field, 0); !done) return done;
  for (const Field* field : settings)
    if (auto done = rows.adoZStaende.setNumber(0, *field, 0); !done) return done;
  return {};
}

std::vector<Cell> emptiedByClearing(Utility utility) {
  std::vector<Cell> cells;
  for (Meter meter : metersOf(utility)) {
    for (const Field* field : settingsOf(meter)) cells.push_back({field, 0});
    cells.push_back({factsOf(meter).price, kPriceRow});
  }
  for (int i = 0; i < kMonths; ++i) cells.push_back({factsOf(utility).advance, i});
  return cells;
}

}  // namespace yearbook
