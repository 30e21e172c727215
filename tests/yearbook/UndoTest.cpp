#include <gmock/gmock.h>

#include "support/SampleYears.h"

// Every change of the open year can be taken back, and that again.

using namespace yearbook;
using testing::Each;
using testing::Eq;

namespace {

class Undo : public testing::Test {
 protected:
  std::string name() const { return year->history().last() ? year->history().last()->name : ""; }
  std::string nextName() const {
    return year->history().next() ? year->history().next()->name : "";
  }
  std::string notice() const { return year->history().last()->notice; }
  std::vector<std::optional<double>> dayPrices() const {
    std::vector<std::optional<double>> prices;
    prices.reserve(kMonths);
    for (int i = 0; i < kMonths; ++i) prices.push_back(year->adoStrom.number(i, strom::dayPrice));
    return prices;
  }

  support::MemoryFileSystem disk;
  std::unique_ptr<YearSession> year = sample::openYear(disk, "Verbrauch2025.kwd");
};

Money euro(double amount) {
  return Money::roundHalfEven(amount);
}

}  // namespace

TEST_F(Undo, ANewlyOpenedYearHasNoStep) {
  EXPECT_EQ(year->history().last(), nullptr);
  EXPECT_EQ(year->history().next(), nullptr);
  EXPECT_TRUE(year->undo());
  EXPECT_TRUE(year->redo());
}

TEST_F(Undo, LargeSideFilesDoNotFillTheMemory) {
  StepHistory history;
  const std::string large(30 << 20, 'x');
  for (const char* step : {"eins", "zwei", "drei"}) {
    Step next;
    next.name = step;
    next.sides = {{"Buch", std::nullopt, large}};
    history.add(std::move(next));
  }
  EXPECT_EQ(history.depth(), 2U);
  EXPECT_EQ(history.last()->name, "drei");
  Step huge;
  huge.name = "riesig";
  huge.sides = {{"Buch", large + large + large, std::nullopt}};
  history.add(std::move(huge));
  EXPECT_EQ(history.depth(), 1U) << "the last one can always be taken back";
}

TEST_F(Undo, OnePriceOverDifferingMonthsGivesTheMonthsBack) {
  ASSERT_TRUE(year->storeFreeKwh(0));
  year->endEntry();
  const auto before = dayPrices();
  ASSERT_TRUE(year->transact(
      {"Preis"}, [](YearRows& rows) { return rows.adoStrom.setNumber(2, strom::dayPrice, 31.5); }));
  const auto differing = dayPrices();
  const Money amount = year->values().bill.meters[Meter::Day].amount;
  for (const double typed : {3.0, 34.0, 34.9}) ASSERT_TRUE(year->storePrice(Meter::Day, typed));
  EXPECT_EQ(name(), "Preis Strom für 12 Monate");
  EXPECT_EQ(notice(),
            "Preis Strom für 12 Monate (vorher ab April 28,90, ab März 31,50, davor 29,60).");
  EXPECT_THAT(dayPrices(), Each(Eq(34.9)));

  ASSERT_TRUE(year->undo());
  EXPECT_EQ(dayPrices(), differing);
  EXPECT_EQ(year->values().bill.meters[Meter::Day].amount, amount);
  EXPECT_EQ(year->adoStrom.money(0, strom::monthAmount),
            orZero(year->adoStrom.money(0, strom::dayAmount)) +
                orZero(year->adoStrom.money(0, strom::nightAmount)));
  EXPECT_EQ(nextName(), "Preis Strom für 12 Monate");
  ASSERT_TRUE(year->undo());
  EXPECT_EQ(dayPrices(), before);
  ASSERT_TRUE(year->redo());
  ASSERT_TRUE(year->redo());
  EXPECT_THAT(dayPrices(), Each(Eq(34.9)));
  EXPECT_EQ(nextName(), "");
}

TEST_F(Undo, APriceThatWasTypedAndEmptiedIsShownEmptyAgain) {
  ASSERT_TRUE(year->storePrice(Meter::Day, 3));
  ASSERT_TRUE(year->storePrice(Meter::Day, std::nullopt));
  ASSERT_TRUE(year->undo());
  EXPECT_EQ(year->values().prices[Meter::Day], 28.9);
  ASSERT_TRUE(year->redo());
  EXPECT_EQ(year->values().prices[Meter::Day], std::nullopt);
}

// Without differing months nobody misses anything.
TEST_F(Undo, APriceOverEqualMonthsIsNotAnnounced) {
  ASSERT_TRUE(year->storePrice(Meter::Day, 30));
  year->endEntry();
  ASSERT_TRUE(year->storePrice(Meter::Day, 31));
  EXPECT_EQ(notice(), "");
  EXPECT_EQ(year->history().depth(), 2u);
}

TEST_F(Undo, WhatIsTypedInOneFieldIsOneStepUntilItIsLeft) {
  for (const double typed : {1.0, 15.0, 150.0})
    ASSERT_TRUE(year->storeAdvance(Utility::Gas, 6, euro(typed)));
  EXPECT_EQ(name(), "Abschlag Gas Juli");
  EXPECT_EQ(notice(), "");
  EXPECT_EQ(year->history().depth(), 1u);
  ASSERT_TRUE(year->storeAdvance(Utility::Gas, 7, euro(2)));
  EXPECT_EQ(year->history().depth(), 2u);
  year->endEntry();
  ASSERT_TRUE(year->storeAdvance(Utility::Gas, 7, euro(3)));
  EXPECT_EQ(year->history().depth(), 3u);
  // Back to what it was is no step.
  ASSERT_TRUE(year->storeAdvance(Utility::Gas, 7, euro(2)));
  EXPECT_EQ(year->history().depth(), 2u);
}

TEST_F(Undo, ANewStepEndsTheWayForward) {
  ASSERT_TRUE(year->storeVat(Meter::Gas, 7));
  ASSERT_TRUE(year->undo());
  ASSERT_TRUE(year->storeVat(Meter::Gas, 5));
  EXPECT_EQ(nextName(), "");
  ASSERT_TRUE(year->redo());
  EXPECT_EQ(year->values().vat[Meter::Gas], 5);
}

TEST_F(Undo, WhatChangesNothingIsNoStep) {
  ASSERT_TRUE(year->storeVat(Meter::Gas, year->values().vat[Meter::Gas]));
  ASSERT_TRUE(year->bringUpToDate());
  EXPECT_EQ(year->history().depth(), 0u);
}

TEST_F(Undo, AClearedUtilityComesBackWithItsFields) {
  const FieldValues before = year->values();
  ASSERT_TRUE(year->clear(Utility::Water));
  EXPECT_EQ(name(), "Alle Werte Wasser gelöscht");
  EXPECT_EQ(notice(), "Alle Werte Wasser gelöscht.");
  EXPECT_FALSE(year->values().startReadings[Meter::Water]);
  ASSERT_TRUE(year->undo());
  EXPECT_EQ(year->values().startReadings, before.startReadings);
  EXPECT_EQ(year->values().consumptions, before.consumptions);
  EXPECT_EQ(year->values().advances, before.advances);
  EXPECT_FALSE(year->values().cleared[Utility::Water]);
  ASSERT_TRUE(year->redo());
  EXPECT_TRUE(year->values().cleared[Utility::Water]);
  EXPECT_FALSE(year->values().startReadings[Meter::Water]);
}

// The charts' copy, which waits until a chart is opened, goes back as well.
TEST_F(Undo, AShiftedStartMonthComesBackWholeAfterAChartToo) {
  const auto january = year->adoVerbrM.number(0, verbrMonat::day);
  ASSERT_TRUE(year->shiftStartMonth(Utility::Electricity, 4));
  EXPECT_EQ(name(), "Startmonat Strom");
  ASSERT_TRUE(year->bringUpToDate());
  ASSERT_NE(year->adoVerbrM.number(0, verbrMonat::day), january);
  ASSERT_TRUE(year->undo());
  EXPECT_EQ(year->values().startMonths[Utility::Electricity], 1);
  EXPECT_EQ(year->adoVerbrM.number(0, verbrMonat::day), january);
}

TEST_F(Undo, TheFlatRateAndItsFileGoTogether) {
  ASSERT_TRUE(year->storeFlatRate(true));
  EXPECT_EQ(name(), "Pauschale eingeschaltet");
  ASSERT_TRUE(year->undo());
  EXPECT_FALSE(year->values().flatRate);
  EXPECT_FALSE(disk.exists("/daten/pauschale.dat"));
  ASSERT_TRUE(year->redo());
  EXPECT_TRUE(year->values().flatRate);
  EXPECT_TRUE(disk.exists("/daten/pauschale.dat"));
}

// What another program has put into a side file since is not thrown away.
TEST_F(Undo, ASideFileThatWasChangedElsewhereIsLeftAlone) {
  ASSERT_TRUE(year->storeFlatRate(true));
  disk.put("/daten/pauschale.dat", base::asBytes("#TRUE#,1\r\n"));
  const auto done = year->undo();
  ASSERT_FALSE(done);
  EXPECT_EQ(done.error().code, base::ErrorCode::ChangedOnDisk);
  EXPECT_TRUE(year->values().flatRate);
  EXPECT_EQ(year->history().depth(), 1u);
}

TEST_F(Undo, AStepThatCannotBeTakenBackStaysAStep) {
  ASSERT_TRUE(year->storeFlatRate(true));
  disk.protectFolder("/daten/");
  EXPECT_FALSE(year->undo());
  EXPECT_TRUE(year->values().flatRate);
  EXPECT_EQ(name(), "Pauschale eingeschaltet");
}
