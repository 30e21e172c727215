#include "readings/ReadingHints.h"

#include <algorithm>

namespace readings {
namespace {

constexpr double kUnusualTimes = 3;
constexpr int kMonthsToCompare = 2;

// Per month; the consumption after a gap counts for all the months that it covers.
double rate(const WorkedMonth& month) {
  return month.entered ? month.consumption / month.months : 0;
}

// The nearest month with a consumption before (step -1) or after (step 1), else 0.
double neighbour(const PerMonth<WorkedMonth>& months, int from, int step) {
  for (int k = from + step; k >= 0 && k < kMonths; k += step)
    if (const double found = rate(months[k]); found > 0) return found;
  return 0;
}

std::optional<double> usual(const PerMonth<WorkedMonth>& months, int position) {
  double sum = 0;
  int count = 0;
  for (int k = 0; k < kMonths; ++k) {
    const double other = rate(months[k]);
    if (k == position || other <= 0) continue;
    sum += other;
    ++count;
  }
  if (count < kMonthsToCompare) return std::nullopt;
  return std::max({sum / count, neighbour(months, position, -1), neighbour(months, position, 1)});
}

}  // namespace

std::string_view wordsOf(Doubt doubt) {
  switch (doubt) {
    case Doubt::None:
      break;
    case Doubt::LowerThanBefore:
      return "niedriger als der Stand davor";
    case Doubt::LowerThanNewMeter:
      return "niedriger als der Anfang des neuen Zählers";
    case Doubt::Unusual:
      return "mehr als das Dreifache des Üblichen";
  }
  return {};
}

std::optional<double> usualConsumption(const MeterYear& year, int position) {
  return usual(workOut(PriceRule::CentPerUnit, year), position);
}

PerMonth<ReadingHint> readingHints(const MeterYear& year) {
  // Which rule prices the month does not matter here.
  const PerMonth<WorkedMonth> months = workOut(PriceRule::CentPerUnit, year);
  PerMonth<ReadingHint> hints;
  for (int k = 0; k < kMonths; ++k) {
    const WorkedMonth& month = months[k];
    ReadingHint& hint = hints[k];
    hint.entered = month.entered;
    hint.consumption = month.consumption;
    if (!month.entered) continue;
    if (month.consumption < 0)
      hint.doubt =
          k == year.change.position + 1 ? Doubt::LowerThanNewMeter : Doubt::LowerThanBefore;
    else if (const auto normal = usual(months, k); normal && rate(month) > kUnusualTimes * *normal)
      hint.doubt = Doubt::Unusual;
  }
  return hints;
}

}  // namespace readings
