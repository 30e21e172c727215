#include "yearbook/ValueDoubts.h"

#include <algorithm>

#include "base/GermanNumber.h"

namespace yearbook {
namespace {

constexpr double kTimes = 3;
// 86,7 is three times 28,9, whatever the binary fractions make of it.
constexpr double kTolerance = 1e-9;
constexpr double kHighestAmount = 5000;

struct Range {
  double least, most;
};

// Cent per kWh, euro per m³. Wide: what lies outside is a slip of the hand or of the unit.
Range usualPrices(PriceRule rule) {
  return rule == PriceRule::EuroPerUnit ? Range{0.1, 30} : Range{1, 150};
}

// The middle one of those above 0; 0 without any.
double middleOf(std::span<const double> values) {
  std::vector<double> counted;
  std::copy_if(values.begin(), values.end(), std::back_inserter(counted),
               [](double value) { return value > 0; });
  if (counted.empty()) return 0;
  const auto middle = counted.begin() + static_cast<std::ptrdiff_t>(counted.size() / 2);
  std::nth_element(counted.begin(), middle, counted.end());
  return *middle;
}

std::string inEuro(double value) {
  return base::formatNumber(value, 2);
}

}  // namespace

std::string priceDoubt(Meter meter, double price, std::span<const double> others) {
  if (price == 0) return {};
  if (price < 0) return "unter 0";
  const PriceRule rule = factsOf(meter).rule;
  const bool cents = rule != PriceRule::EuroPerUnit;
  const Range range = usualPrices(rule);
  const std::string unit = " " + std::string(factsOf(meter).price->unit);
  const std::string figure = base::formatShort(price, 4, true) + unit;
  if (price < range.least) return figure + (cents ? ": in Euro statt in Cent?" : " ist sehr wenig");
  if (price > range.most) return figure + (cents ? " ist sehr viel" : ": in Cent statt in Euro?");
  const double usual = middleOf(others);
  if (usual <= 0) return {};
  const std::string compared = ", sonst " + inEuro(usual) + " in diesem Jahr";
  if (price > kTimes * usual + kTolerance) return "mehr als das Dreifache" + compared;
  if (price * kTimes + kTolerance < usual) return "weniger als ein Drittel" + compared;
  return {};
}

std::string amountDoubt(double euro, std::span<const double> others) {
  if (euro == 0) return {};
  if (euro < 0) return "unter 0";
  if (euro > kHighestAmount) return inEuro(euro) + " Euro ist sehr viel";
  const double usual = middleOf(others);
  if (usual > 0 && euro > kTimes * usual + kTolerance)
    return "mehr als das Dreifache, sonst " + inEuro(usual) + " in diesem Jahr";
  return {};
}

PerMonth<double> pricesOf(const YearRows& rows, Meter meter) {
  PerMonth<double> prices{};
  for (int k = 0; k < kMonths; ++k)
    prices[k] = orZero(rows.of(meter).number(k, *factsOf(meter).price));
  return prices;
}

std::vector<double> othersThan(int position, const PerMonth<double>& values) {
  std::vector<double> others(values.begin(), values.end());
  others.erase(others.begin() + position);
  return others;
}

}  // namespace yearbook
