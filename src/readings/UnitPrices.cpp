#include "readings/UnitPrices.h"

#include <algorithm>

namespace readings {

using base::Result;
using yearbook::kMonths;
using yearbook::orZero;
using yearbook::PerMonth;

PerMonth<double> storedPrices(const YearSession& session, const PriceVariant& variant) {
  const MeterVariant& meter = *variant.meter;
  PerMonth<double> prices{};
  for (int k = 0; k < kMonths; ++k)
    prices[static_cast<std::size_t>(k)] = orZero((session.*meter.rows).number(k, *meter.price));
  return prices;
}

MonthTicks unpriced(const PerMonth<double>& prices) {
  MonthTicks ticks{};
  for (std::size_t k = 0; k < ticks.size(); ++k) ticks[k] = prices[k] == 0;
  return ticks;
}

PerMonth<double> previewPrices(const PerMonth<double>& stored, const MonthTicks& ticks,
                               std::optional<double> newPrice) {
  PerMonth<double> shown = stored;
  for (std::size_t k = 0; k < ticks.size(); ++k)
    if (ticks[k] && newPrice) shown[k] = *newPrice;
  return shown;
}

std::optional<base::Money> repriced(PriceRule rule, double consumption, double unitPrice,
                                    double gasFactor) {
  if (rule == PriceRule::CentPerKwh && gasFactor == 0) rule = PriceRule::CentPerUnit;
  return priceOf(rule, consumption, unitPrice, gasFactor);
}

Result<void> storePrices(YearSession& session, const PriceVariant& variant, const MonthTicks& ticks,
                         std::optional<double> newPrice) {
  const bool any = std::find(ticks.begin(), ticks.end(), true) != ticks.end();
  if (!newPrice || !any) return {};
  const MeterVariant& meter = *variant.meter;
  RecordSource& rows = session.*meter.rows;
  const double factor = orZero(session.values().gasFactor);
  return session.transact([&]() -> Result<void> {
    for (int k = 0; k < kMonths; ++k) {
      if (!ticks[static_cast<std::size_t>(k)]) continue;
      const double consumption = orZero(rows.number(k, *meter.consumption));
      const auto amount = repriced(meter.rule, consumption, *newPrice, factor);
      if (!amount) return amountTooLarge(rows.table(), *meter.amount);
      if (auto done = rows.setNumber(k, *meter.price, *newPrice); !done) return done;
      if (auto done = rows.setMoney(k, *meter.amount, *amount); !done) return done;
    }
    return session.reload(meter.utility);
  });
}

}  // namespace readings
