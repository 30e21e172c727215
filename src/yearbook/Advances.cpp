#include "yearbook/Advances.h"

namespace yearbook {
namespace {

// "vorher 136,00" where they were alike, else their sum.
std::string beforeText(const PerMonth<std::optional<Money>>& advances, int from) {
  Money sum;
  bool alike = true;
  for (int i = from + 1; i < kMonths; ++i) {
    sum += orZero(advances[i]);
    alike = alike && orZero(advances[i]) == orZero(advances[from + 1]);
  }
  if (sum == Money()) return {};
  return alike ? "vorher je " + formatMoney(orZero(advances[from + 1])) + " Euro"
               : "vorher zusammen " + formatMoney(sum) + " Euro";
}

}  // namespace

base::Result<void> fillAdvances(YearSession& session, Utility utility, int from) {
  const auto& advances = session.values().advances[utility];
  const Money amount = orZero(advances[from]);
  bool differs = false;
  for (int i = from + 1; i < kMonths; ++i) differs = differs || advances[i] != amount;
  if (!differs) return {};
  Change change{"Abschlag " + std::string(factsOf(utility).name) + " ab " +
                    session.monthNames(utility)[from] + " je " + formatMoney(amount) + " Euro",
                utility};
  change.before = beforeText(advances, from);
  change.mass = true;
  return session.transact(change, [&](YearRows& rows) -> base::Result<void> {
    for (int i = from + 1; i < kMonths; ++i)
      if (auto done = rows.of(utility).setMoney(i, *factsOf(utility).advance, amount); !done)
        return done;
    return {};
  });
}

}  // namespace yearbook
