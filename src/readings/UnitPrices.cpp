#include "readings/UnitPrices.h"

#include <algorithm>

#include "yearbook/ValueDoubts.h"

namespace readings {

using base::Result;
using yearbook::kMonths;
using yearbook::orZero;

PerMonth<double> storedPrices(const YearSession& session, Meter meter) {
  return yearbook::pricesOf(session.rows(), meter);
}

MonthTicks unpriced(const PerMonth<double>& prices) {
  MonthTicks ticks{};
  for (int k = 0; k < kMonths; ++k) ticks[k] = prices[k] == 0;
  return ticks;
}

PerMonth<double> previewPrices(const PerMonth<double>& stored, const MonthTicks& ticks,
                               std::optional<double> newPrice) {
  PerMonth<double> shown = stored;
  for (int k = 0; k < kMonths; ++k)
    if (ticks[k] && newPrice) shown[k] = *newPrice;
  return shown;
}

Result<void> storePrices(YearSession& session, Meter meter, const MonthTicks& ticks,
                         std::optional<double> newPrice) {
  const bool any = std::find(ticks.begin(), ticks.end(), true) != ticks.end();
  if (!newPrice || !any) return {};
  const double factor = orZero(session.values().gasFactor);
  yearbook::Change step{"Preise " + std::string(factsOf(meter).name), utilityOf(meter)};
  return session.transact(step, [&](YearRows& rows) -> Result<void> {
    for (int k = 0; k < kMonths; ++k) {
      if (!ticks[k]) continue;
      if (auto done = rows.of(meter).setNumber(k, *factsOf(meter).price, *newPrice); !done)
        return done;
      if (auto done = rows.price(meter, k, factor != 0 ? factor : 1); !done) return done;
    }
    return {};
  });
}

}  // namespace readings
