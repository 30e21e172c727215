#include "readings/MonthSheet.h"

namespace readings {
namespace {

// The change is one of the month if it was put there, or at the end of the month before it.
bool hasChange(const MeterYear& year, int position) {
  if (year.change.position == MeterChange::kNone || position == 0) return false;
  return year.change.position == position - 1;
}

// A change that the entry is to replace, not one beside it.
bool isOther(const MeterYear& year, int position) {
  const int stored = year.change.position;
  return stored != MeterChange::kNone && stored != position && stored != position - 1;
}

void putChange(MonthOutcome& outcome, const ReadingBefore& before, int position,
               const MonthEntry& entry) {
  outcome.oldPart = entry.oldEnd - before.reading;
  outcome.newPart = entry.reading - entry.newStart;
  // At the end of the month before, if the old meter stood there: then both readings are real.
  if (before.position == position - 1 && position > 0 && entry.oldEnd == before.reading) {
    outcome.change = {position - 1, entry.newStart};
    return;
  }
  outcome.virtualReading = entry.oldEnd + outcome.newPart;
  outcome.readings[position] = *outcome.virtualReading;
  outcome.change = {position, entry.reading};
}

std::string problemOf(const MeterYear& year, const ReadingBefore& before, int position,
                      const MonthEntry& entry) {
  if (!entry.changed) return {};
  if (isOther(year, position)) return "Im Jahr ist schon ein anderer Zählerwechsel eingetragen.";
  if (entry.oldEnd < before.reading)
    return "Der Endstand des alten Zählers ist niedriger als der Stand davor.";
  if (entry.reading < entry.newStart)
    return "Der Stand ist niedriger als der Anfangsstand des neuen Zählers.";
  return {};
}

}  // namespace

ReadingBefore readingBefore(const MeterYear& year, int position) {
  for (int k = position - 1; k >= 0; --k)
    if (year.readings[k] != 0) return {k, year.readings[k]};
  return {-1, year.startReading};
}

MonthEntry entryOf(const MeterYear& year, int position) {
  MonthEntry entry;
  entry.reading = year.readings[position];
  if (entry.reading == 0 || !hasChange(year, position)) return entry;
  entry.changed = true;
  entry.oldEnd = year.readings[position - 1];
  entry.newStart = year.change.newStart;
  return entry;
}

MonthOutcome putIn(PriceRule rule, const MeterYear& year, int position, const MonthEntry& entry) {
  const ReadingBefore before = readingBefore(year, position);
  MonthOutcome outcome;
  outcome.problem = problemOf(year, before, position, entry);
  outcome.readings = year.readings;
  outcome.readings[position] = entry.reading;
  outcome.change = year.change;
  if (entry.changed)
    putChange(outcome, before, position, entry);
  else if (hasChange(year, position) && entryOf(year, position).changed)
    outcome.change = {};
  MeterYear after = year;
  after.readings = outcome.readings;
  after.change = outcome.change;
  const WorkedMonth month = workOut(rule, after)[position];
  outcome.consumption = month.consumption;
  outcome.amount = month.amount;
  outcome.doubt = readingHints(after)[position].doubt;
  return outcome;
}

}  // namespace readings
