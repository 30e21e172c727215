#include "yearbook/Bill.h"

#include <gmock/gmock.h>

using namespace yearbook;

namespace {

Money euro(double amount) {
  return Money::roundHalfEven(amount);
}

PerMonth<MeterMonth> oneMonth(double reading, double consumption, double amount) {
  PerMonth<MeterMonth> months;
  months[2] = {reading, consumption, euro(amount)};
  return months;
}

ElectricityInput flatRate(double consumed, double free) {
  ElectricityInput input;
  input.flatRate = true;
  input.freeKwh = free;
  input.dayPrice = 25;
  input.vat = 19;
  input.day = oneMonth(5000, consumed, consumed * 0.25);
  return input;
}

}  // namespace

TEST(Bill, WaterIsPricedInEuroElectricityAndGasInCent) {
  EXPECT_EQ(priceInEuro(10, 1.80), euro(18));
  EXPECT_EQ(priceInCent(10, 25), euro(2.50));
  EXPECT_EQ(priceOfGas(100, 10.5, 9), euro(94.50));
  EXPECT_EQ(priceOfGas(100, 0, 9), Money());
}

// 3,125 ct is half of a ten-thousandth more than 0,0312 euro: it goes to the even neighbour, and
// nothing is rounded to cents before it is summed.
TEST(Bill, AmountsKeepFourDecimals) {
  EXPECT_EQ(priceInCent(1, 3.125), Money::fromTenThousandths(312));
  EXPECT_EQ(priceInCent(3, 3.125), Money::fromTenThousandths(938));
  EXPECT_EQ(priceInCent(7, 30.405), Money::fromTenThousandths(21284));
  EXPECT_EQ(vatOn(euro(2.1283), 19), Money::fromTenThousandths(4044));
}

TEST(Bill, WithoutReadingsEveryMeterEndsWhereItStartedAndNothingIsTaxed) {
  ElectricityInput input;
  input.startDay = 41236;
  input.startNight = 22818;
  input.vat = 19;
  const ElectricityTotals totals = summarizeElectricity(input);
  EXPECT_EQ(totals.day.endReading, 41236);
  EXPECT_EQ(totals.night.endReading, 22818);
  EXPECT_EQ(totals.day.consumption, 0);
  EXPECT_EQ(totals.gross, Money());
}

TEST(Bill, TheLastReadingAboveZeroIsTheEndReading) {
  PerMonth<MeterMonth> months;
  months[0].reading = 120;
  months[1].reading = 0;
  months[3].reading = 90;  // a new meter
  months[11].reading = 0;
  EXPECT_EQ(sumMeter(months, 100).endReading, 90);
}

TEST(Bill, NightTariffHasTheDaysVatRateAndNoFreeKwh) {
  ElectricityInput input = flatRate(1000, 1500);
  input.night = oneMonth(700, 400, 100);
  const ElectricityTotals totals = summarizeElectricity(input);
  EXPECT_EQ(totals.day.amount, Money());
  EXPECT_EQ(totals.night.amount, euro(100));
  EXPECT_EQ(totals.nightVat, euro(19));
  EXPECT_EQ(totals.gross, euro(119));
  EXPECT_EQ(totals.monthAmounts[2], euro(350));
}

TEST(Bill, OnlyConsumptionBeyondTheFreeKwhIsCharged) {
  EXPECT_EQ(summarizeElectricity(flatRate(1400, 1500)).day.amount, Money());
  EXPECT_EQ(summarizeElectricity(flatRate(1500, 1500)).day.amount, Money());
  EXPECT_EQ(summarizeElectricity(flatRate(1600, 1500)).day.amount, euro(25));
  EXPECT_EQ(summarizeElectricity(flatRate(1600, 0)).day.amount, euro(400));
}

TEST(Bill, WaterAndWasteWaterAreTaxedSeparately) {
  WaterInput input;
  input.water = oneMonth(443, 125, 262.50);
  input.wasteWater = oneMonth(443, 125, 357.50);
  input.vatWater = 7;
  input.baseFeeWater = euro(102);
  input.baseFeeWasteWater = euro(50);
  const WaterTotals totals = summarizeWater(input);
  EXPECT_EQ(totals.waterVat, Money::fromTenThousandths(183750));
  EXPECT_EQ(totals.wasteWaterVat, Money());
  EXPECT_EQ(totals.baseFeeWaterVat, euro(7.14));
  EXPECT_EQ(totals.baseFeeWasteWaterVat, Money());
  EXPECT_EQ(totals.gross, Money::fromTenThousandths(6383750));
}

TEST(Bill, GasIsMeasuredInCubicMetresAndBilledInKwh) {
  GasInput input;
  input.start = 8764;
  input.gas = oneMonth(10114, 1350, 1279.76);
  input.factor = 10.483;
  input.vat = 19;
  const GasTotals totals = summarizeGas(input);
  EXPECT_NEAR(totals.kwh, 14152.05, 1e-9);
  EXPECT_EQ(totals.vat, euro(243.1544));
  EXPECT_EQ(totals.gross, euro(1522.9144));
}
