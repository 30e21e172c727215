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
  year.reset();
  overwrite(kSample, [](YearRows& rows) -> base::Result<void> {
    if (auto set = rows.adoStrom.setMoney(0, strom::monthAmount, Money()); !set) return set;
    if (auto set = rows.adoVerbrM.setNumber(0, verbrMonat::day, 1); !set) return set;
    return rows.adoGas.setMoney(0, gas::amount, euro(1));
  });
  YearSession& again = reopened();
  EXPECT_NE(again.adoStrom.money(0, strom::monthAmount), Money());
  EXPECT_EQ(again.adoGas.money(0, gas::amount), euro(1));
  EXPECT_EQ(again.adoVerbrM.number(0, verbrMonat::day), 1);
  ASSERT_TRUE(done(again.bringUpToDate()));
  EXPECT_EQ(again.adoVerbrM.number(0, verbrMonat::day), 291);
}

TEST_F(OpenYear, ThePriceFieldsShowTheLastMonth) {
  EXPECT_EQ(year->values().prices[Meter::Day], 28.9);
  EXPECT_EQ(year->values().prices[Meter::Gas], 9.25);
  EXPECT_EQ(year->values().startDate, "01.01.2025");
  EXPECT_EQ(year->currentMonthName(), "November");
}

TEST_F(OpenYear, ASettingIsStoredAndItsUtilitySummarized) {
  ASSERT_TRUE(done(year->storeVat(Meter::Day, 7)));
  EXPECT_EQ(year->values().bill.meters[Meter::Day].vat,
            vatOn(year->values().bill.meters[Meter::Day].amount, 7));
  EXPECT_EQ(reopened().values().vat[Meter::Day], 7);
}

TEST_F(OpenYear, OneDayPriceForTheWholeYear) {
  ASSERT_TRUE(done(year->storePrice(Meter::Day, 30)));
  YearSession& again = reopened();
  EXPECT_THAT(column(again.adoStrom, strom::dayPrice), testing::Each(testing::Eq(30)));
  EXPECT_EQ(again.values().bill.meters[Meter::Day].amount, euro(2993 * 0.30));
  EXPECT_EQ(again.adoStrom.money(0, strom::monthAmount),
            orZero(again.adoStrom.money(0, strom::dayAmount)) +
                orZero(again.adoStrom.money(0, strom::nightAmount)));
}

TEST_F(OpenYear, AnEmptiedDayPriceIsZeroAnEmptiedGasPriceNothing) {
  ASSERT_TRUE(done(year->storePrice(Meter::Day, std::nullopt)));
  ASSERT_TRUE(done(year->storePrice(Meter::Gas, std::nullopt)));
  YearSession& again = reopened();
  EXPECT_THAT(column(again.adoStrom, strom::dayPrice), testing::Each(testing::Eq(0)));
  EXPECT_EQ(again.values().bill.meters[Meter::Day].amount, Money());
  EXPECT_EQ(again.values().prices[Meter::Gas], 9.25);
}

TEST_F(OpenYear, ANewFactorPricesEveryMonthWithItsOwnPrice) {
  ASSERT_TRUE(done(year->storeGasFactor(10)));
  YearSession& again = reopened();
  EXPECT_EQ(again.adoGas.money(0, gas::amount), euro(240 * 10 * 9.45 / 100));
  EXPECT_EQ(again.adoGas.money(11, gas::amount), euro(204 * 10 * 9.25 / 100));
  EXPECT_EQ(again.values().bill.gasKwh, 14080);
  EXPECT_EQ(again.adoGas.number(0, gas::price), 9.45);
}

// Nothing is made up: neither 0,00 nor what the other months would have had.
TEST_F(OpenYear, APriceThatMakesAnAmountTooLargeIsRefusedByTheNameOfItsMonth) {
  const base::Bytes before = disk.get(kSample);
  const std::pair<const char*, base::Result<void>> attempts[] = {
      {"day price", year->storePrice(Meter::Day, 900'000'000'000'000.0)},
      {"gas price", year->storePrice(Meter::Gas, 9e15)},
      {"gas factor", year->storeGasFactor(9e15)}};
  for (const auto& [what, stored] : attempts) {
    ASSERT_FALSE(stored) << what;
    EXPECT_THAT(base::germanMessage(stored.error()),
                testing::HasSubstr("Januar: der Betrag ist zu groß"));
  }
  EXPECT_EQ(disk.get(kSample), before);
  EXPECT_EQ(year->values().prices[Meter::Day], 28.9);
  EXPECT_EQ(year->values().gasFactor, 10.523);
}

// Both columns come from their fields: what an entry of the waste water's own field has not stored
// is stored with the water's.
TEST_F(OpenYear, TheStartOfWaterTakesTheStartOfWasteWaterAlong) {
  ASSERT_TRUE(done(year->clear(Utility::Water)));
  EXPECT_EQ(year->adoZStaende.number(0, zstaende::startWasteWater), 443);
  ASSERT_TRUE(done(year->storeStartReading(Meter::Water, 500)));
  YearSession& again = reopened();
  EXPECT_EQ(again.values().startReadings[Meter::Water], 500);
  EXPECT_EQ(orZero(again.values().startReadings[Meter::WasteWater]), 0);
}

TEST_F(OpenYear, AdvancePaymentsAddUp) {
  ASSERT_TRUE(done(year->storeAdvance(Utility::Gas, 3, euro(150.5))));
  EXPECT_EQ(year->values().advanceSums[Utility::Gas], euro(1712.5));
  ASSERT_TRUE(done(year->zeroAdvances(Utility::Gas)));
  EXPECT_EQ(year->values().advanceSums[Utility::Gas], Money());
  EXPECT_EQ(reopened().values().advances[Utility::Gas][3], Money());
}

TEST_F(OpenYear, RemarksAreKept) {
  ASSERT_TRUE(done(year->storeRemark(Utility::Water, 5, "Zähler undicht – 20 €")));
  ASSERT_TRUE(done(year->storeRemark(Utility::Gas, 0, "")));
  EXPECT_EQ(reopened().values().remarks[Utility::Water][5], "Zähler undicht – 20 €");
  EXPECT_EQ(year->values().remarks[Utility::Gas][0], "");
}

TEST_F(OpenYear, TheNightDisplayIsTheYearsTheFlatRateTheFoldersSetting) {
  ASSERT_TRUE(done(year->setNightShown(false)));
  ASSERT_TRUE(done(year->storeFlatRate(true)));
  year = open(kEmpty);
  EXPECT_TRUE(year->values().nightShown);
  EXPECT_TRUE(year->values().flatRate);
  EXPECT_FALSE(reopened().values().nightShown);
  const base::Bytes file = disk.get("/daten/pauschale.dat");
  EXPECT_EQ(std::string(file.begin(), file.end()), "#TRUE#\r\n");
}

TEST_F(OpenYear, FreeKwhCountOnlyInFlatRateMode) {
  const Money full = year->values().bill.meters[Meter::Day].amount;
  ASSERT_TRUE(done(year->storeFreeKwh(1500)));
  EXPECT_EQ(year->values().bill.meters[Meter::Day].amount, full);
  ASSERT_TRUE(done(year->storeFlatRate(true)));
  EXPECT_EQ(year->values().bill.meters[Meter::Day].amount, euro((2993 - 1500) * 28.9 / 100));
  EXPECT_EQ(reopened().values().freeKwh, 1500);
}

// Whoever writes a row need not think of what follows from it.
TEST_F(OpenYear, MonthAmountsAndTheChartTableFollowFromTheRows) {
  ASSERT_TRUE(done(year->transact({}, [](YearRows& rows) -> base::Result<void> {
    if (auto set = rows.adoWasser.setMoney(3, wasser::wasteAmount, euro(77)); !set) return set;
    return rows.adoStrom.setNumber(2, strom::nightConsumption, 88);
  })));
  YearSession& again = reopened();
  EXPECT_EQ(again.adoWasser.money(3, wasser::monthAmount),
            orZero(again.adoWasser.money(3, wasser::amount)) + euro(77));
  EXPECT_EQ(again.adoVerbrM.number(2, verbrMonat::night), 88);
  EXPECT_EQ(again.values().bill.meters[Meter::Night].consumption, 1499 - 141 + 88);
}

TEST_F(OpenYear, AColumnThatCannotHoldAValueIsCalledAsTheHouseholdCallsIt) {
  const auto stored = year->transact(
      {}, [](YearRows& rows) { return rows.adoGas.setNumber(4, gas::advance, 1e16); });
  ASSERT_FALSE(stored);
  EXPECT_THAT(base::germanMessage(stored.error()),
              testing::HasSubstr("Mai, Abschlag Gas: der Betrag ist zu groß"));
}

// Whatever call of the disk fails on the way: the twelve prices are all new or all old, in the
// session as in the file.
TEST_F(OpenYear, AChangeThatFailsLeavesEverythingAsItWas) {
  for (std::size_t call = 0;; ++call) {
    ASSERT_LT(call, 200u);
    const auto before = column(year->adoStrom, strom::dayPrice);
    files.arm({call, false, base::ErrorCode::NoSpace, false});
    const auto stored = year->storePrice(Meter::Day, 40);
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
    ASSERT_EQ(year->values().prices[Meter::Day], 28.9) << "call " << call;
    ASSERT_EQ(column(reopened().adoStrom, strom::dayPrice), before) << "call " << call;
  }
}

TEST_F(OpenYear, AYearThatCanOnlyBeReadShowsItsTotalsAndTellsWhyItStoresNothing) {
  year.reset();
  overwrite(kSample,
            [](YearRows& rows) { return rows.adoStrom.setMoney(0, strom::monthAmount, Money()); });
  disk.protect(kSample);
  year = open(kSample);
  ASSERT_TRUE(year->readOnlyReason());
  EXPECT_NE(year->adoStrom.money(0, strom::monthAmount), Money());
  const auto stored = year->storeVat(Meter::Gas, 7);
  ASSERT_FALSE(stored);
  EXPECT_THAT(base::germanMessage(stored.error()), testing::HasSubstr("Verbrauch2025.kwd"));
  EXPECT_EQ(year->values().vat[Meter::Gas], 19);
  EXPECT_TRUE(done(year->bringUpToDate()));
}

TEST_F(YearFixture, AFreshYearIsEmptyAndStartsInJanuary) {
  const auto year = open(kEmpty);
  EXPECT_EQ(year->startMonth(Utility::Gas), 1);
  EXPECT_EQ(year->values().startReadings[Meter::Day], std::nullopt);
  EXPECT_TRUE(year->values().nightShown);
  EXPECT_FALSE(year->values().flatRate);
  EXPECT_EQ(year->values().bill.gross[Utility::Electricity], Money());
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
