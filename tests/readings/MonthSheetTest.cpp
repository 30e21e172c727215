#include "readings/MonthSheet.h"

#include <gtest/gtest.h>

using namespace readings;  // NOLINT(google-build-using-namespace)

namespace {

// Half of the sample household's 2025: its day meter was changed at the end of June.
MeterYear halfYear() {
  MeterYear year;
  year.startReading = 44309;
  year.readings = {{{44600, 44855, 45115, 45354, 45585, 45808}}};
  year.prices.fill(28.9);
  return year;
}

MonthOutcome typed(const MeterYear& year, int position, const MonthEntry& entry) {
  return putIn(PriceRule::CentPerUnit, year, position, entry);
}

TEST(MonthSheet, AReadingIsPutInBesideTheOthers) {
  const MonthOutcome july = typed(halfYear(), 6, {46034});
  EXPECT_EQ(july.consumption, 226);
  EXPECT_EQ(formatMoney(*july.amount), "65,31");
  EXPECT_EQ(july.readings[5], 45808);
  EXPECT_EQ(july.readings[6], 46034);
  EXPECT_EQ(july.change, MeterChange());
  EXPECT_EQ(july.doubt, Doubt::None);
  EXPECT_EQ(typed(halfYear(), 6, {45800}).doubt, Doubt::LowerThanBefore);
  EXPECT_EQ(typed(halfYear(), 6, {48000}).doubt, Doubt::Unusual);
  EXPECT_EQ(readingBefore(halfYear(), 9).position, 5);
  EXPECT_EQ(readingBefore(halfYear(), 0).reading, 44309);
}

TEST(MonthSheet, AChangeAtTheEndOfTheMonthBeforeKeepsBothReadings) {
  const MonthEntry entry{238, true, 45808, 12};
  const MonthOutcome july = typed(halfYear(), 6, entry);
  EXPECT_EQ(july.change, (MeterChange{5, 12}));
  EXPECT_EQ(july.readings[6], 238);
  EXPECT_EQ(july.consumption, 226);
  EXPECT_EQ(july.oldPart, 0);
  EXPECT_EQ(july.newPart, 226);
  EXPECT_FALSE(july.virtualReading);
  // Stored, it is shown as it was typed, and can be taken away again.
  MeterYear stored = halfYear();
  stored.readings = july.readings;
  stored.change = july.change;
  EXPECT_EQ(entryOf(stored, 6), entry);
  EXPECT_EQ(typed(stored, 6, entry).problem, "") << "the same change typed again is no other one";
  EXPECT_EQ(entryOf(stored, 5), (MonthEntry{45808}));
  EXPECT_EQ(typed(stored, 6, {46034}).change, MeterChange());
}

TEST(MonthSheet, AChangeWithinTheMonthIsStoredAsTheOldMetersReading) {
  const MonthOutcome july = typed(halfYear(), 6, {108, true, 45908, 8});
  EXPECT_EQ(july.consumption, 200);
  EXPECT_EQ(july.oldPart, 100);
  EXPECT_EQ(july.newPart, 100);
  EXPECT_EQ(july.virtualReading, 46008);
  EXPECT_EQ(july.change, (MeterChange{6, 108}));
  MeterYear stored = halfYear();
  stored.readings = july.readings;
  stored.change = july.change;
  EXPECT_EQ(typed(stored, 7, {308, true, 46008, 108}).consumption, 200);
  EXPECT_EQ(entryOf(stored, 7).changed, false) << "nothing is typed there yet";
  // In the first month there is none before it.
  MeterYear fresh;
  fresh.startReading = 500;
  EXPECT_EQ(typed(fresh, 0, {20, true, 500, 0}).change, (MeterChange{0, 20}));
  EXPECT_EQ(typed(fresh, 0, {20, true, 500, 0}).consumption, 20);
}

TEST(MonthSheet, WhatCannotBeAChangeIsRefused) {
  EXPECT_EQ(typed(halfYear(), 6, {238, true, 45807, 12}).problem,
            "Der Endstand des alten Zählers ist niedriger als der Stand davor.");
  EXPECT_EQ(typed(halfYear(), 6, {11, true, 45808, 12}).problem,
            "Der Stand ist niedriger als der Anfangsstand des neuen Zählers.");
  MeterYear year = halfYear();
  year.change = {2, 45115};
  EXPECT_EQ(typed(year, 6, {238, true, 45808, 12}).problem,
            "Im Jahr ist schon ein anderer Zählerwechsel eingetragen.");
  EXPECT_EQ(typed(year, 6, {46034}).problem, "");
  EXPECT_EQ(typed(year, 6, {46034}).change, year.change);
}

}  // namespace
