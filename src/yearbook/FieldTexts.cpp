#include "yearbook/FieldTexts.h"

#include <algorithm>

#include "base/GermanNumber.h"
#include "yearbook/FieldRules.h"

namespace yearbook {
namespace {

MeterTexts meterTexts(const MeterTotals& meter, Money vat, Money gross) {
  return {readingText(meter.endReading), readingText(meter.consumption), formatMoney(meter.amount),
          formatMoney(vat), formatMoney(gross)};
}

double consumptionOf(const FieldValues& values, Utility utility) {
  switch (utility) {
    case Utility::Water:
      return values.water.water.consumption;
    case Utility::Gas:
      return values.gas.gas.consumption;
    case Utility::Electricity:
      break;
  }
  return values.electricity.day.consumption;
}

PerMonth<double> sharesOf(const PerMonth<std::string>& consumptions) {
  PerMonth<double> shares{};
  for (std::size_t i = 0; i < shares.size(); ++i)
    shares[i] = std::max(0.0, orZero(base::parseNumber(consumptions[i])));
  const double highest = *std::max_element(shares.begin(), shares.end());
  if (highest > 0)
    for (double& share : shares) share /= highest;
  return shares;
}

}  // namespace

std::string readingText(double value) {
  return base::formatShort(value, decimalsOf(EntryKind::WholeKwh).most, true);
}

std::string priceText(std::optional<double> value) {
  if (!value) return {};
  const Decimals decimals = decimalsOf(EntryKind::Price);
  const std::string shortest = base::formatShort(*value, decimals.most, true);
  const std::string padded = base::formatNumber(*value, decimals.least);
  return shortest.size() > padded.size() ? shortest : padded;
}

std::string_view grossNote() {
  return "Verbrauch mit MwSt, ohne Grundgebühr";
}

ElectricityTexts electricityTexts(const FieldValues& values) {
  ElectricityTexts texts;
  texts.grossNote = grossNote();
  if (values.cleared[at(Utility::Electricity)]) return texts;
  const ElectricityTotals& totals = values.electricity;
  texts.day = meterTexts(totals.day, totals.dayVat, totals.dayGross);
  texts.night = meterTexts(totals.night, totals.nightVat, totals.nightGross);
  texts.gross = formatMoney(totals.gross);
  if (!values.nightShown && totals.nightGross != Money())
    texts.grossNote += "; darin " + texts.night.gross + " Euro Nachtstrom (ausgeblendet)";
  return texts;
}

WaterTexts waterTexts(const FieldValues& values) {
  if (values.cleared[at(Utility::Water)]) return {};
  const WaterTotals& totals = values.water;
  return {meterTexts(totals.water, totals.waterVat, totals.waterGross),
          meterTexts(totals.wasteWater, totals.wasteWaterVat, totals.wasteWaterGross),
          formatMoney(totals.gross), formatMoney(totals.baseFeeWaterVat),
          formatMoney(totals.baseFeeWasteWaterVat)};
}

GasTexts gasTexts(const FieldValues& values) {
  if (values.cleared[at(Utility::Gas)]) return {};
  const GasTotals& totals = values.gas;
  return {meterTexts(totals.gas, totals.vat, totals.gross), readingText(totals.kwh)};
}

MonthTexts monthTexts(const FieldValues& values, Utility utility,
                      const std::string& currentMonthName) {
  MonthTexts texts;
  texts.names = rotatedMonthNames(values.startMonths[at(utility)]);
  for (int i = 0; i < kMonths; ++i)
    if (texts.names[static_cast<std::size_t>(i)] == currentMonthName) texts.current = i;
  texts.consumptions = values.consumptions[at(utility)];
  texts.shares = sharesOf(texts.consumptions);
  if (values.cleared[at(utility)]) return texts;
  texts.consumptionSum = readingText(consumptionOf(values, utility));
  texts.advanceSum = formatMoney(values.advanceSums[at(utility)]);
  return texts;
}

}  // namespace yearbook
