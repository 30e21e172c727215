#include "readingbook/MonthsPlan.h"

#include <array>

namespace readingbook {
namespace {

// The start of the year and the ends of its months.
using Ends = std::array<std::optional<DayEnd>, kMonths + 1>;

Ends endsOf(std::span<const Entry> entries, Meter meter, const YearDays& days) {
  std::array<Date, kMonths + 1> dates;
  for (int k = -1; k < kMonths; ++k) dates[static_cast<std::size_t>(k + 1)] = days.end(k);
  Ends ends;
  const auto found = dayEnds(entries, spreadOf(meter), dates);
  std::copy(found.begin(), found.end(), ends.begin());
  return ends;
}

const std::optional<DayEnd>& endOf(const Ends& ends, int position) {
  return ends[static_cast<std::size_t>(position + 1)];
}

PlannedReading planned(double stored, const std::optional<DayEnd>& end, std::int64_t value) {
  PlannedReading reading;
  reading.stored = stored;
  if (!end) return reading;
  reading.fromBook = static_cast<double>(value);
  reading.before = end->before;
  reading.after = end->after;
  return reading;
}

// The month with the last meter change of the year's readings; kNone without one.
int lastChange(const Ends& ends) {
  for (int k = kMonths - 1; k >= 0; --k) {
    const auto& end = endOf(ends, k);
    if (!end) continue;
    const auto& before = endOf(ends, k - 1);
    if (end->changes > (before ? before->changes : 0)) return k;
  }
  return MeterChange::kNone;
}

// The year's file knows one change, and the new meter's start counts in the month directly after
// it, if that has a reading. So the change is put where the new meter first shows something.
int placeOf(const Ends& ends, int change) {
  while (change + 1 < kMonths && endOf(ends, change + 1) && endOf(ends, change + 1)->meter == 0)
    ++change;
  return change;
}

// A stored change lies in a month of which the book knows nothing.
bool isHidden(const MeterChange& change, const Ends& ends) {
  return change.position < kMonths && !endOf(ends, change.position);
}

// The book knows the month of a stored change and the one after it, and nothing of a change.
bool isDenied(const MeterChange& change, const Ends& ends) {
  const int position = change.position;
  return position < kMonths && endOf(ends, position) &&
         (position + 1 == kMonths || endOf(ends, position + 1));
}

}  // namespace

MonthsPlan planMonths(std::span<const Entry> entries, Meter meter, const YearDays& days,
                      const StoredMeter& stored) {
  const Ends ends = endsOf(entries, meter, days);
  MonthsPlan plan;
  const auto& atStart = endOf(ends, -1);
  plan.start = planned(stored.startReading, atStart, atStart ? atStart->meter : 0);

  const int changed = lastChange(ends);
  const int position = changed == MeterChange::kNone ? changed : placeOf(ends, changed);
  // Up to the year's last change the months count on as on the meter that the year began with.
  const std::int64_t beyond = atStart ? atStart->count - atStart->meter : 0;
  for (int k = 0; k < kMonths; ++k) {
    const auto& end = endOf(ends, k);
    const bool countsOn = changed != MeterChange::kNone && k <= position;
    const std::int64_t value = !end ? 0 : countsOn ? end->count - beyond : end->meter;
    plan.months[k] = planned(stored.readings[k], end, value);
  }

  plan.change = stored.change;
  if (changed != MeterChange::kNone) {
    if (isHidden(stored.change, ends))
      plan.refusal = "Im Jahr ist schon ein anderer Zählerwechsel eingetragen.";
    plan.change = {position, static_cast<double>(endOf(ends, position)->meter)};
  } else if (isDenied(stored.change, ends)) {
    plan.change = {};
  }
  plan.changeDiffers = !(plan.change == stored.change);
  return plan;
}

Taken allThatDiffer(const MonthsPlan& plan) {
  Taken taken;
  taken.start = plan.start.differs();
  for (int k = 0; k < kMonths; ++k) taken.months[k] = plan.months[k].differs();
  return taken;
}

Taken newOnly(const MonthsPlan& plan) {
  if (plan.changeDiffers) return allThatDiffer(plan);
  Taken taken;
  taken.start = plan.start.differs() && (plan.start.isRead() || plan.start.isNew());
  for (int k = 0; k < kMonths; ++k) taken.months[k] = plan.months[k].isNew();
  return taken;
}

StoredMeter applied(const MonthsPlan& plan, const StoredMeter& stored, const Taken& taken) {
  StoredMeter after = stored;
  if (taken.start && plan.start.fromBook) after.startReading = *plan.start.fromBook;
  bool any = false;
  for (int k = 0; k < kMonths; ++k) {
    if (!taken.months[k] || !plan.months[k].fromBook) continue;
    after.readings[k] = *plan.months[k].fromBook;
    any = true;
  }
  if (any) after.change = plan.change;
  return after;
}

}  // namespace readingbook
