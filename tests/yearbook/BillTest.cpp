#include "yearbook/Bill.h"

#include <gmock/gmock.h>

using namespace yearbook;

namespace {

Money euro(double amount) {
  return Money::roundHalfEven(amount);
}

PerMonth<MeterRow> oneMonth(double reading, double consumption, double amount) {
  PerMonth<MeterRow> months;
  months[2] = {reading, consumption, euro(amount)};
  return months;
}

BillInput flatRate(double consumed, std::optional<double> free) {
  BillInput input;
  input.flatRate = {true, free, 25};
  input.meters[Meter::Day].months = oneMonth(5000, consumed, consumed * 0.25);
  input.meters[Meter::Day].vat = input.meters[Meter::Night].vat = 19;
  return input;
}

Money dayAmount(const BillInput& input) {
  return billOf(input).meters[Meter::Day].amount;
}

struct PriceCase {
  const char* name;
  PriceRule rule;
  double consumption, price, factor;
  std::optional<Money> amount;
};

class MonthPrice : public testing::TestWithParam<PriceCase> {};

}  // namespace

TEST_P(MonthPrice, FollowsTheRuleOfItsMeter) {
  const PriceCase& p = GetParam();
  EXPECT_EQ(priceOf(p.rule, p.consumption, p.price, p.factor), p.amount);
}

// 3,125 ct is half of a ten-thousandth more than 0,0312 euro: it goes to the even neighbour.
INSTANTIATE_TEST_SUITE_P(
    Rules, MonthPrice,
    testing::Values(
        PriceCase{"Electricity", PriceRule::CentPerUnit, 100, 25, 9, euro(25)},
        PriceCase{"Water", PriceRule::EuroPerUnit, 10, 1.8, 9, euro(18)},
        PriceCase{"Gas", PriceRule::CentPerKwh, 10, 9, 10.5, euro(9.45)},
        PriceCase{"GasWithoutFactor", PriceRule::CentPerKwh, 10, 9, 0, Money()},
        PriceCase{"HalfToTheEven", PriceRule::CentPerUnit, 1, 3.125, 1,
                  Money::fromTenThousandths(312)},
        PriceCase{"FourDecimals", PriceRule::CentPerUnit, 7, 30.405, 1,
                  Money::fromTenThousandths(21284)},
        PriceCase{"LargestThatFits", PriceRule::CentPerUnit, 1, 9e16, 1, euro(9e14)},
        PriceCase{"TooLarge", PriceRule::CentPerUnit, 12345, 99'999'999'999'999.0, 1, std::nullopt},
        PriceCase{"TooLargeBelowZero", PriceRule::EuroPerUnit, -1e9, 1e9, 1, std::nullopt}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(Bill, VatIsWorkedOutOnFourDecimals) {
  EXPECT_EQ(vatOn(euro(2.1283), 19), Money::fromTenThousandths(4044));
  EXPECT_EQ(grossOf(euro(154.80), 19), euro(184.212));
}

TEST(Bill, WithoutReadingsEveryMeterEndsWhereItStartedAndNothingIsTaxed) {
  BillInput input;
  input.meters[Meter::Day].startReading = 41236;
  input.meters[Meter::Night].startReading = 22818;
  input.meters[Meter::Day].vat = 19;
  const Bill bill = billOf(input);
  EXPECT_EQ(bill.meters[Meter::Day].endReading, 41236);
  EXPECT_EQ(bill.meters[Meter::Night].endReading, 22818);
  EXPECT_EQ(bill.meters[Meter::Day].consumption, 0);
  EXPECT_EQ(bill.gross[Utility::Electricity], Money());
}

TEST(Bill, TheLastReadingAboveZeroIsTheEndReading) {
  BillInput input;
  MeterInput& gas = input.meters[Meter::Gas];
  gas.startReading = 100;
  gas.months[0].reading = 120;
  gas.months[1].reading = 0;
  gas.months[3].reading = 90;  // a new meter
  gas.months[11].reading = 0;
  EXPECT_EQ(billOf(input).meters[Meter::Gas].endReading, 90);
}

TEST(Bill, NightTariffHasTheDaysVatRateAndNoFreeKwh) {
  BillInput input = flatRate(1000, 1500);
  input.meters[Meter::Night].months = oneMonth(700, 400, 100);
  const Bill bill = billOf(input);
  EXPECT_EQ(bill.meters[Meter::Day].amount, Money());
  EXPECT_EQ(bill.meters[Meter::Night].amount, euro(100));
  EXPECT_EQ(bill.meters[Meter::Night].vat, euro(19));
  EXPECT_EQ(bill.gross[Utility::Electricity], euro(119));
}

TEST(Bill, OnlyConsumptionBeyondTheFreeKwhIsCharged) {
  EXPECT_EQ(dayAmount(flatRate(1400, 1500)), Money());
  EXPECT_EQ(dayAmount(flatRate(1500, 1500)), Money());
  EXPECT_EQ(dayAmount(flatRate(1600, 1500)), euro(25));
  EXPECT_EQ(dayAmount(flatRate(1600, 0)), euro(400));
  EXPECT_EQ(dayAmount(flatRate(1600, {})), euro(400));
  // Free kWh below 0 are more consumption; the tables show no block of free kWh then.
  EXPECT_EQ(dayAmount(flatRate(1600, -100)), euro(425));
  EXPECT_FALSE(flatRate(1600, -100).flatRate.hasBlock());
  EXPECT_TRUE(flatRate(1600, 100).flatRate.hasBlock());
}

TEST(Bill, WaterAndWasteWaterAreTaxedSeparately) {
  BillInput input;
  input.meters[Meter::Water] = {oneMonth(443, 125, 262.50), 318, 7, euro(102)};
  input.meters[Meter::WasteWater] = {oneMonth(443, 125, 357.50), 318, {}, euro(50)};
  const Bill bill = billOf(input);
  EXPECT_EQ(bill.meters[Meter::Water].vat, Money::fromTenThousandths(183750));
  EXPECT_EQ(bill.meters[Meter::WasteWater].vat, Money());
  EXPECT_EQ(bill.meters[Meter::Water].baseFeeVat, euro(7.14));
  EXPECT_EQ(bill.meters[Meter::WasteWater].baseFeeVat, Money());
  EXPECT_EQ(bill.gross[Utility::Water], Money::fromTenThousandths(6383750));
  input.meters[Meter::Water].baseFee = euro(-102);
  EXPECT_EQ(billOf(input).meters[Meter::Water].baseFeeVat, Money());
}

// A month credited by the supplier: with nothing above 0 electricity and water show no VAT and no
// sum, gas does.
TEST(Bill, CreditsAloneAreTaxedForGasOnly) {
  BillInput input;
  for (Meter meter : kMeters) input.meters[meter] = {oneMonth(1, -10, -100), {}, 19, {}};
  const Bill bill = billOf(input);
  EXPECT_EQ(bill.gross[Utility::Electricity], Money());
  EXPECT_EQ(bill.gross[Utility::Water], Money());
  EXPECT_EQ(bill.gross[Utility::Gas], euro(-119));
}

TEST(Bill, GasIsMeasuredInCubicMetresAndBilledInKwh) {
  BillInput input;
  input.meters[Meter::Gas] = {oneMonth(10114, 1350, 1279.76), 8764, 19, {}};
  input.gasFactor = 10.483;
  const Bill bill = billOf(input);
  EXPECT_NEAR(bill.gasKwh, 14152.05, 1e-9);
  EXPECT_EQ(bill.meters[Meter::Gas].vat, euro(243.1544));
  EXPECT_EQ(bill.gross[Utility::Gas], euro(1522.9144));
}
