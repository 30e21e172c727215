#include "readings/MeterReading.h"

#include <gmock/gmock.h>

using namespace readings;
using base::Money;
using testing::ElementsAre;

namespace {

Money euro(double value) {
  return Money::roundHalfEven(value);
}

std::vector<double> consumptions(const PerMonth<WorkedMonth>& months, int count) {
  std::vector<double> values;
  values.reserve(kMonths);
  for (int k = 0; k < count; ++k) values.push_back(months[k].consumption);
  return values;
}

MeterYear yearFrom(double start, const std::vector<double>& readings, double price = 25) {
  MeterYear year;
  year.startReading = start;
  year.prices.fill(price);
  std::copy(readings.begin(), readings.end(), year.readings.begin());
  return year;
}

}  // namespace

TEST(MeterReading, EachMonthCountsFromTheReadingBefore) {
  const auto months = workOut(PriceRule::CentPerUnit, yearFrom(1000, {1100, 1250, 1251}));
  EXPECT_THAT(consumptions(months, 4), ElementsAre(100, 150, 1, 0));
  EXPECT_EQ(months[0].amount, euro(25));
  EXPECT_EQ(months[1].amount, euro(37.5));
  EXPECT_FALSE(months[3].entered);
  EXPECT_EQ(months[3].amount, Money());
}

TEST(MeterReading, AMonthLeftOutFallsToTheNextEnteredOne) {
  const auto months = workOut(PriceRule::CentPerUnit, yearFrom(1000, {1100, 0, 0, 1400, 1450}));
  EXPECT_THAT(consumptions(months, 5), ElementsAre(100, 0, 0, 300, 50));
  EXPECT_EQ(months[3].months, 3);
  EXPECT_EQ(months[4].months, 1);
}

TEST(MeterReading, ALowerOrNegativeReadingIsTakenAsItIs) {
  const auto months = workOut(PriceRule::CentPerUnit, yearFrom(1000, {1100, 1040, -10, 1100}));
  EXPECT_THAT(consumptions(months, 4), ElementsAre(100, -60, -1050, 1110));
  EXPECT_EQ(months[1].amount, euro(-15));
}

TEST(MeterReading, AfterAChangeTheNewMeterCountsFromItsOwnStart) {
  MeterYear year = yearFrom(1000, {1100, 1200, 50, 90});
  year.change = {1, 20};
  EXPECT_THAT(consumptions(workOut(PriceRule::CentPerUnit, year), 4),
              ElementsAre(100, 100, 30, 40));
}

TEST(MeterReading, TheNewStartCountsOnlyDirectlyAfterTheChange) {
  MeterYear year = yearFrom(1000, {1100, 1200, 0, 90});
  year.change = {1, 20};
  EXPECT_THAT(consumptions(workOut(PriceRule::CentPerUnit, year), 4),
              ElementsAre(100, 100, 0, -1110));
  year.readings[2] = -5;  // not above 0: no new meter's reading
  EXPECT_THAT(consumptions(workOut(PriceRule::CentPerUnit, year), 4),
              ElementsAre(100, 100, -1205, 95));
}

TEST(MeterReading, AChangeInTheLastMonthDoesNotMatterThisYear) {
  std::vector<double> readings;
  for (int k = 1; k <= 12; ++k) readings.push_back(1000 + 10 * k);
  MeterYear year = yearFrom(1000, readings);
  const auto without = consumptions(workOut(PriceRule::CentPerUnit, year), 12);
  year.change = {11, 500};
  EXPECT_EQ(consumptions(workOut(PriceRule::CentPerUnit, year), 12), without);
}

TEST(MeterReading, TheReadingBeforeIsCarriedInSinglePrecision) {
  // 16.777.217 has no single-precision form; its neighbour is 16.777.216.
  const auto months = workOut(PriceRule::EuroPerUnit, yearFrom(0, {16777217, 16777218}));
  EXPECT_THAT(consumptions(months, 2), ElementsAre(16777217, 2));
  EXPECT_EQ(workOut(PriceRule::EuroPerUnit, yearFrom(16777217, {16777218}))[0].consumption, 2);
}

TEST(MeterReading, AnAmountBeyondAnyMoneyFieldIsNotMadeUp) {
  const auto months = workOut(PriceRule::EuroPerUnit, yearFrom(0, {999999999999999}));
  EXPECT_FALSE(months[0].amount);
  EXPECT_EQ(months[0].consumption, 999999999999999);
}
