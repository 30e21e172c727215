#include "YearFixture.h"
#include "yearbook/FlatRate.h"

using namespace yearbook;

namespace {

Money euro(double amount) {
  return Money::roundHalfEven(amount);
}

class OpenYear : public YearFixture {
 protected:
  void SetUp() override {
    makeSample();
    year = open(kSample);
    ASSERT_TRUE(year);
  }
  // The year as another start of the program finds it.
  YearSession& reopened() {
    year.reset();
    year = open(kSample);
    return *year;
  }
  std::vector<std::optional<double>> column(const RecordSource& rows, const Field& field) const {
    std::vector<std::optional<double>> values;
    for (int i = 0; i < kMonths; ++i) values.push_back(rows.number(i, field));
    return values;
  }

  std::unique_ptr<YearSession> year;
};

}  // namespace

TEST_F(OpenYear, OpeningAndClosingLeavesTheFileAsItWas) {
  year.reset();
  const base::Bytes before = disk.get(kSample);
  open(kSample).reset();
  EXPECT_EQ(disk.get(kSample), before);
}

TEST_F(OpenYear, LoadingCorrectsTheMonthTotalsOnly) {
  ASSERT_TRUE(done(year->transact([&]() -> base::Result<void> {
    if (auto set = year->adoStrom.setMoney(0, strom::monthAmount, Money()); !set) return set;
    return year->adoGas.setMoney(0, gas::amount, euro(1));
  })));
  YearSession& again = reopened();
  EXPECT_NE(again.adoStrom.money(0, strom::monthAmount), Money());
  EXPECT_EQ(again.adoGas.money(0, gas::amount), euro(1));
}

TEST_F(OpenYear, ThePriceFieldsShowTheLastMonth) {
  EXPECT_EQ(year->values().dayPrice, 28.9);
  EXPECT_EQ(year->values().gasPrice, 9.25);
  EXPECT_EQ(year->values().startDate, "01.01.2025");
  EXPECT_EQ(year->currentMonthName(), "November");
}

TEST_F(OpenYear, ASettingIsStoredAndItsUtilitySummarized) {
  ASSERT_TRUE(done(year->storeNumber(zstaende::vatElectricity, 7)));
  EXPECT_EQ(year->values().electricity.dayVat, vatOn(year->values().electricity.day.amount, 7));
  EXPECT_EQ(reopened().values().vatElectricity, 7);
}

TEST_F(OpenYear, OneDayPriceForTheWholeYear) {
  ASSERT_TRUE(done(year->storeDayPrice(30)));
  YearSession& again = reopened();
  EXPECT_THAT(column(again.adoStrom, strom::dayPrice), testing::Each(testing::Eq(30)));
  EXPECT_EQ(again.values().electricity.day.amount, euro(2993 * 0.30));
  EXPECT_EQ(again.adoStrom.money(0, strom::monthAmount),
            orZero(again.adoStrom.money(0, strom::dayAmount)) +
                orZero(again.adoStrom.money(0, strom::nightAmount)));
}

TEST_F(OpenYear, AnEmptiedDayPriceIsZeroAnEmptiedGasPriceNothing) {
  ASSERT_TRUE(done(year->storeDayPrice(std::nullopt)));
  ASSERT_TRUE(done(year->storeGasPrice(std::nullopt)));
  YearSession& again = reopened();
  EXPECT_THAT(column(again.adoStrom, strom::dayPrice), testing::Each(testing::Eq(0)));
  EXPECT_EQ(again.values().electricity.day.amount, Money());
  EXPECT_EQ(again.values().gasPrice, 9.25);
}

TEST_F(OpenYear, ANewFactorPricesEveryMonthWithItsOwnPrice) {
  ASSERT_TRUE(done(year->storeGasFactor(10)));
  YearSession& again = reopened();
  EXPECT_EQ(again.adoGas.money(0, gas::amount), euro(240 * 10 * 9.45 / 100));
  EXPECT_EQ(again.adoGas.money(11, gas::amount), euro(204 * 10 * 9.25 / 100));
  EXPECT_EQ(again.values().gas.kwh, 14080);
  EXPECT_EQ(again.adoGas.number(0, gas::price), 9.45);
}

TEST_F(OpenYear, RecalculatingGivesGasOnePriceAndLeavesTheOthersTheirs) {
  for (Utility utility : kUtilities) ASSERT_TRUE(done(year->recalculatePrices(utility)));
  EXPECT_EQ(year->adoStrom.number(0, strom::dayPrice), 29.6);
  EXPECT_EQ(year->adoWasser.number(0, wasser::price), 2.25);
  EXPECT_THAT(column(year->adoGas, gas::price), testing::Each(testing::Eq(9.25)));
}

TEST_F(OpenYear, AMonthWithoutNightConsumptionKeepsItsNightAmount) {
  ASSERT_TRUE(done(year->transact([&]() -> base::Result<void> {
    if (auto set = year->adoStrom.setNumber(0, strom::nightConsumption, 0); !set) return set;
    return year->adoStrom.setMoney(0, strom::nightAmount, euro(12.34));
  })));
  ASSERT_TRUE(done(year->recalculatePrices(Utility::Electricity)));
  EXPECT_EQ(year->adoStrom.money(0, strom::nightAmount), euro(12.34));
}

// Both columns come from their fields: what an entry of the waste water's own field has not stored
// is stored with the water's.
TEST_F(OpenYear, TheStartOfWaterTakesTheStartOfWasteWaterAlong) {
  ASSERT_TRUE(done(year->clear(Utility::Water)));
  EXPECT_EQ(year->adoZStaende.number(0, zstaende::startWasteWater), 443);
  ASSERT_TRUE(done(year->storeStartWater(500)));
  YearSession& again = reopened();
  EXPECT_EQ(again.values().startWater, 500);
  EXPECT_EQ(orZero(again.values().startWasteWater), 0);
}

TEST_F(OpenYear, AdvancePaymentsAddUp) {
  ASSERT_TRUE(done(year->storeAdvance(Utility::Gas, 3, euro(150.5))));
  EXPECT_EQ(year->values().advanceSums[2], euro(1712.5));
  ASSERT_TRUE(done(year->zeroAdvances(Utility::Gas)));
  EXPECT_EQ(year->values().advanceSums[2], Money());
  EXPECT_EQ(reopened().values().advances[2][3], Money());
}

TEST_F(OpenYear, RemarksAreKept) {
  ASSERT_TRUE(done(year->storeRemark(Utility::Water, 5, "Zähler undicht – 20 €")));
  ASSERT_TRUE(done(year->storeRemark(Utility::Gas, 0, "")));
  EXPECT_EQ(reopened().values().remarks[1][5], "Zähler undicht – 20 €");
  EXPECT_EQ(year->values().remarks[2][0], "");
}

TEST_F(OpenYear, TheNightDisplayIsTheYearsTheFlatRateTheFoldersSetting) {
  ASSERT_TRUE(done(year->setNightShown(false)));
  ASSERT_TRUE(done(year->setFlatRate(true)));
  ASSERT_TRUE(done(year->saveFlatRate()));
  year = open(kEmpty);
  EXPECT_TRUE(year->values().nightShown);
  EXPECT_TRUE(year->values().flatRate);
  EXPECT_FALSE(reopened().values().nightShown);
  const base::Bytes file = disk.get("/daten/pauschale.dat");
  EXPECT_EQ(std::string(file.begin(), file.end()), "#TRUE#\r\n");
}

TEST_F(OpenYear, FreeKwhCountOnlyInFlatRateMode) {
  const Money full = year->values().electricity.day.amount;
  ASSERT_TRUE(done(year->storeNumber(zstaende::freeKwh, 1500)));
  EXPECT_EQ(year->values().electricity.day.amount, full);
  ASSERT_TRUE(done(year->setFlatRate(true)));
  EXPECT_EQ(year->values().electricity.day.amount, euro((2993 - 1500) * 28.9 / 100));
  EXPECT_EQ(reopened().values().freeKwh, 1500);
}

TEST_F(OpenYear, TheChartTableFollowsTheConsumptions) {
  ASSERT_TRUE(done(year->copyToChartTable()));
  YearSession& again = reopened();
  EXPECT_EQ(column(again.adoVerbrM, verbrMonat::day),
            column(again.adoStrom, strom::dayConsumption));
  EXPECT_EQ(column(again.adoVerbrM, verbrMonat::wasteWater),
            column(again.adoWasser, wasser::wasteConsumption));
  EXPECT_EQ(column(again.adoVerbrM, verbrMonat::gas), column(again.adoGas, gas::consumption));
}

// Whatever call of the disk fails on the way: the twelve prices are all new or all old, in the
// session as in the file.
TEST_F(OpenYear, AChangeThatFailsLeavesEverythingAsItWas) {
  for (std::size_t call = 0;; ++call) {
    ASSERT_LT(call, 200u);
    const auto before = column(year->adoStrom, strom::dayPrice);
    files.arm({call, false, base::ErrorCode::NoSpace, false});
    const auto stored = year->storeDayPrice(40);
    const bool struck = files.struck();
    files.disarm();
    if (!struck) {
      EXPECT_TRUE(stored.has_value());
      break;
    }
    if (stored || year->database().needsReopen()) {
      year.reset();
      makeSample();
      year = open(kSample);
      continue;
    }
    ASSERT_EQ(column(year->adoStrom, strom::dayPrice), before) << "call " << call;
    ASSERT_EQ(year->values().dayPrice, 28.9) << "call " << call;
    ASSERT_EQ(column(reopened().adoStrom, strom::dayPrice), before) << "call " << call;
  }
}

TEST_F(OpenYear, AYearThatCanOnlyBeReadShowsItsTotalsAndTellsWhyItStoresNothing) {
  ASSERT_TRUE(done(
      year->transact([&] { return year->adoStrom.setMoney(0, strom::monthAmount, Money()); })));
  year.reset();
  disk.protect(kSample);
  year = open(kSample);
  ASSERT_TRUE(year->readOnlyReason());
  EXPECT_NE(year->adoStrom.money(0, strom::monthAmount), Money());
  const auto stored = year->storeNumber(zstaende::vatGas, 7);
  ASSERT_FALSE(stored);
  EXPECT_THAT(base::germanMessage(stored.error()), testing::HasSubstr("Verbrauch2025.kwd"));
  EXPECT_EQ(year->values().vatGas, 19);
  EXPECT_TRUE(done(year->copyToChartTable()));
}

TEST_F(YearFixture, AFreshYearIsEmptyAndStartsInJanuary) {
  const auto year = open(kEmpty);
  EXPECT_EQ(year->startMonth(Utility::Gas), 1);
  EXPECT_EQ(year->values().startDay, std::nullopt);
  EXPECT_TRUE(year->values().nightShown);
  EXPECT_FALSE(year->values().flatRate);
  EXPECT_EQ(year->values().electricity.gross, Money());
}

TEST_F(YearFixture, TheFlatRateFileIsReadLeniently) {
  const auto read = [this](const std::string& content) {
    disk.put("/daten/pauschale.dat", base::asBytes(content));
    return readFlatRate(disk, kFolder);
  };
  EXPECT_TRUE(read("#TRUE#\r\n"));
  EXPECT_TRUE(read(" #True# "));
  EXPECT_FALSE(read("#FALSE#\r\n"));
  EXPECT_FALSE(read(""));
  EXPECT_FALSE(read(std::string(2000000, '#')));
}
