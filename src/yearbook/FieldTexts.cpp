#include "yearbook/FieldTexts.h"

#include <algorithm>
#include <vector>

#include "base/GermanNumber.h"
#include "yearbook/FieldRules.h"

namespace yearbook {
namespace {

PerMonth<double> sharesOf(const PerMonth<std::optional<double>>& consumptions) {
  PerMonth<double> shares{};
  for (int i = 0; i < kMonths; ++i) shares[i] = std::max(0.0, orZero(consumptions[i]));
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

std::string priceStepsText(const YearRows& rows, Meter meter) {
  constexpr int kStepsShown = 3;
  const RecordSource& months = rows.of(meter);
  const auto price = [&](int row) { return months.number(row, *factsOf(meter).price); };
  std::vector<int> firsts = {0};
  for (int i = 1; i < kMonths; ++i)
    if (price(i) != price(i - 1)) firsts.push_back(i);
  if (firsts.size() == 1) return {};
  std::string text;
  int shown = 0;
  for (auto first = firsts.rbegin(); first != firsts.rend() && shown < kStepsShown; ++first) {
    const std::string month = months.text(*first, *factsOf(utilityOf(meter)).month);
    const std::string value = price(*first) ? priceText(price(*first)) : "keiner";
    if (!text.empty()) text += ", ";
    text += *first == 0 ? "davor" : "ab " + month;
    text += ' ';
    text += value;
    ++shown;
  }
  return firsts.size() > kStepsShown ? text + ", ..." : text;
}

bool vatMissing(const FieldValues& values, Meter meter) {
  if (values.vat[meter] || meter == Meter::WasteWater) return false;
  return std::any_of(kMeters.begin(), kMeters.end(), [&](Meter other) {
    return factsOf(other).vat == factsOf(meter).vat &&
           (orZero(values.prices[other]) != 0 || orZero(values.baseFees[other]) != Money());
  });
}

MeterLines meterLines(const FieldValues& values, Meter meter) {
  if (values.cleared[utilityOf(meter)]) return {};
  const MeterBill& bill = values.bill.meters[meter];
  return {readingText(bill.endReading), readingText(bill.consumption),
          formatMoney(bill.amount),     formatMoney(bill.vat),
          formatMoney(bill.gross),      formatMoney(bill.baseFeeVat)};
}

std::string grossText(const FieldValues& values, Utility utility) {
  return values.cleared[utility] ? std::string() : formatMoney(values.bill.gross[utility]);
}

std::string grossNote(const FieldValues& values, Utility utility) {
  std::string note = "Verbrauch mit MwSt, ohne Grundgebühr";
  const Money night = values.bill.meters[Meter::Night].gross;
  if (utility == Utility::Electricity && !values.cleared[utility] && !values.nightShown &&
      night != Money())
    note += "; darin " + formatMoney(night) + " Euro Nachtstrom (ausgeblendet)";
  return note;
}

std::string gasKwhText(const FieldValues& values) {
  return values.cleared[Utility::Gas] ? std::string() : readingText(values.bill.gasKwh);
}

MonthTexts monthTexts(const FieldValues& values, Utility utility,
                      const std::string& currentMonthName) {
  const Meter meter = factsOf(utility).mainMeter;
  MonthTexts texts;
  texts.names = rotatedMonthNames(values.startMonths[utility]);
  for (int i = 0; i < kMonths; ++i) {
    if (texts.names[i] == currentMonthName) texts.current = i;
    if (const auto consumption = values.consumptions[meter][i])
      texts.consumptions[i] = base::formatShort(*consumption, 6, true);
  }
  texts.shares = sharesOf(values.consumptions[meter]);
  if (values.cleared[utility]) return texts;
  texts.consumptionSum = readingText(values.bill.meters[meter].consumption);
  texts.advanceSum = formatMoney(values.advanceSums[utility]);
  return texts;
}

}  // namespace yearbook
