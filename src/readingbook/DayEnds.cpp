#include "readingbook/DayEnds.h"

#include <array>

#include "yearbook/Season.h"

namespace readingbook {
namespace {

using yearbook::kMonths;

// A multiple of 28, 29, 30 and 31, so that every day's part of its month is a whole number.
constexpr std::int64_t kDayParts = 28LL * 29 * 15 * 31;
// The table has one decimal.
constexpr int kTenths = 10;

struct DegreeTable {
  std::array<std::int64_t, kMonths> month{};
  std::array<std::int64_t, kMonths + 1> until{};  // the months before, in day parts
};
constexpr DegreeTable kTable = [] {
  DegreeTable table;
  for (std::size_t i = 0; i < kMonths; ++i) {
    const double tenths = yearbook::kDegreeDays[static_cast<int>(i)] * kTenths;
    table.month[i] = static_cast<std::int64_t>(tenths + 0.5);
    table.until[i + 1] = table.until[i] + table.month[i] * kDayParts;
  }
  return table;
}();

std::int64_t degreesUntil(Date date) {
  const auto month = static_cast<unsigned>(date.month()) - 1;
  const auto days = yearbook::daysInMonth(date.year(), date.month());
  return static_cast<int>(date.year()) * kTable.until[kMonths] + kTable.until[month] +
         kTable.month[month] * (kDayParts / days) * static_cast<unsigned>(date.day());
}

// How much of the consumption lies between two days, as a share of what lies between others.
std::int64_t weight(Spread spread, Date from, Date to) {
  if (spread == Spread::DegreeDays) return degreesUntil(to) - degreesUntil(from);
  return base::daysBetween(from, to);
}

// value * part / whole, rounded down; the product may have up to a hundred binary digits.
std::int64_t share(std::int64_t value, std::int64_t part, std::int64_t whole) {
  constexpr int kDigit = 16;
  std::int64_t quotient = 0;
  std::int64_t rest = 0;
  for (int shift = 2 * kDigit; shift >= 0; shift -= kDigit) {
    const std::int64_t digit = (value >> shift) & ((1 << kDigit) - 1);
    rest = (rest << kDigit) + digit * part;
    quotient = (quotient << kDigit) + rest / whole;
    rest %= whole;
  }
  return quotient;
}

std::int64_t roundHalfUp(Thousandths value) {
  const Thousandths shifted = value + kUnit / 2;
  return shifted >= 0 ? shifted / kUnit : -((kUnit - 1 - shifted) / kUnit);
}

}  // namespace

Spread spreadOf(Meter meter) {
  return meter == Meter::Gas ? Spread::DegreeDays : Spread::EvenDays;
}

std::vector<std::optional<DayEnd>> dayEnds(std::span<const Entry> entries, Spread spread,
                                           std::span<const Date> days) {
  std::vector<std::optional<DayEnd>> ends(days.size());
  Thousandths beyond = 0;  // what earlier meters counted beyond the present one
  int changes = 0;
  std::size_t next = 0;  // the first entry that lies after the day
  for (std::size_t i = 0; i < days.size(); ++i) {
    const Date day = days[i];
    for (; next < entries.size() && entries[next].date <= day; ++next) {
      const Entry& entry = entries[next];
      if (!entry.newStart) continue;
      beyond += entry.reading - *entry.newStart;
      ++changes;
    }
    if (next == 0) continue;
    const Entry& before = entries[next - 1];
    Thousandths now = before.atEnd();
    Date after = before.date;
    if (before.date != day) {
      if (next == entries.size()) continue;
      after = entries[next].date;
      now += share(entries[next].reading - now, weight(spread, before.date, day),
                   weight(spread, before.date, after));
    }
    ends[i] = DayEnd{roundHalfUp(now), roundHalfUp(now + beyond), changes, before.date, after};
  }
  return ends;
}

}  // namespace readingbook
