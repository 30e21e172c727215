#include "YearFixture.h"
#include "yearbook/StartMonthShift.h"

using namespace yearbook;

namespace {

// What a row holds, month by month, whatever its position.
std::map<std::string, std::vector<jet::Value>> rowsByMonth(const RecordSource& rows) {
  std::map<std::string, std::vector<jet::Value>> byMonth;
  for (int i = 0; i < rows.count(); ++i) {
    std::vector<jet::Value>& row = byMonth[rows.text(i, *rows.table().fields[0])];
    for (const Field* field : rows.table().fields) row.push_back(rows.raw(i, *field));
  }
  return byMonth;
}

std::string typed(const char* text) {
  const StartMonthAnswer answer = parseStartMonth(text);
  switch (answer.kind) {
    case StartMonthAnswer::Kind::Cancelled:
      return "cancelled";
    case StartMonthAnswer::Kind::NotANumber:
      return "no number";
    case StartMonthAnswer::Kind::OutOfRange:
      return "out of range";
    case StartMonthAnswer::Kind::Month:
      break;
  }
  return std::to_string(answer.month);
}

class StartMonth : public YearFixture {
 protected:
  void SetUp() override {
    makeSample();
    year = open(kSample);
    ASSERT_TRUE(year);
    ASSERT_TRUE(done(year->storeRemark(Utility::Electricity, 3, "Ablesung im April")));
    ASSERT_TRUE(done(year->transact({}, [](YearRows& rows) {
      return rows.adoStrom.setMoney(3, strom::oldAdvance, Money::roundHalfEven(7.5));
    })));
  }
  void reopen() {
    year.reset();
    year = open(kSample);
  }
  std::unique_ptr<YearSession> year;
};

}  // namespace

TEST(StartMonthAnswer, OnlyWholeMonthsCount) {
  EXPECT_EQ(typed(""), "cancelled");
  EXPECT_EQ(typed("abc"), "no number");
  EXPECT_EQ(typed("13"), "out of range");
  EXPECT_EQ(typed("0"), "out of range");
  EXPECT_EQ(typed("-3"), "out of range");
  EXPECT_EQ(typed("4"), "4");
  EXPECT_EQ(typed(" 4,0 "), "4");
  EXPECT_EQ(typed("4,6"), "5");
  EXPECT_EQ(typed("4,5"), "4");
  EXPECT_EQ(typed("12,6"), "out of range");
}

TEST_F(StartMonth, EveryMonthKeepsAllItsColumns) {
  const auto strom = rowsByMonth(year->adoStrom);
  const auto water = rowsByMonth(year->adoWasser);
  ASSERT_TRUE(done(year->shiftStartMonth(Utility::Electricity, 4)));
  reopen();
  EXPECT_EQ(rowsByMonth(year->adoStrom), strom);
  EXPECT_EQ(year->adoStrom.text(0, strom::month), "April");
  EXPECT_EQ(year->adoStrom.text(11, strom::month), "März");
  EXPECT_EQ(year->adoStrom.text(0, strom::remark), "Ablesung im April");
  EXPECT_EQ(year->adoStrom.money(0, strom::oldAdvance), Money::roundHalfEven(7.5));
  EXPECT_EQ(year->startMonth(Utility::Electricity), 4);
  EXPECT_EQ(year->startMonth(Utility::Water), 1);
  EXPECT_EQ(rowsByMonth(year->adoWasser), water);
  // The charts' copy waits until a chart is opened.
  EXPECT_EQ(year->adoVerbrM.number(0, verbrMonat::day), 291);
  ASSERT_TRUE(done(year->bringUpToDate()));
  EXPECT_EQ(year->adoVerbrM.number(0, verbrMonat::day), 239);
}

TEST_F(StartMonth, TheSameMonthChangesNothingAndMovingBackRestores) {
  const base::Bytes before = disk.get(kSample);
  ASSERT_TRUE(done(year->shiftStartMonth(Utility::Gas, 1)));
  EXPECT_EQ(disk.get(kSample), before);
  const auto gas = rowsByMonth(year->adoGas);
  ASSERT_TRUE(done(year->shiftStartMonth(Utility::Gas, 9)));
  ASSERT_TRUE(done(year->shiftStartMonth(Utility::Gas, 1)));
  EXPECT_EQ(rowsByMonth(year->adoGas), gas);
  EXPECT_EQ(year->adoGas.text(0, gas::month), "Januar");
}

TEST_F(StartMonth, AMisspeltMonthKeepsItsDataInItsPlace) {
  ASSERT_TRUE(done(year->transact(
      {}, [](YearRows& rows) { return rows.adoStrom.setText(2, strom::month, "Maerz"); })));
  ASSERT_TRUE(done(year->shiftStartMonth(Utility::Electricity, 2)));
  EXPECT_EQ(year->adoStrom.text(2, strom::month), "April");
  EXPECT_EQ(year->adoStrom.number(2, strom::dayReading), 45354);
  EXPECT_EQ(year->adoStrom.text(1, strom::month), "März");
}

TEST_F(StartMonth, ARowThatNamesNoMonthKeepsTheCaptions) {
  ASSERT_TRUE(done(year->transact(
      {}, [](YearRows& rows) { return rows.adoGas.setText(0, gas::month, "Heizzeit"); })));
  reopen();
  EXPECT_EQ(year->startMonth(Utility::Gas), 0);
  EXPECT_EQ(year->monthNames(Utility::Gas).front(), "Januar");
}

TEST_F(StartMonth, AShiftThatFailsMovesNoRow) {
  const auto before = rowsByMonth(year->adoStrom);
  files.arm({0, true, base::ErrorCode::NoSpace, false});
  EXPECT_FALSE(year->shiftStartMonth(Utility::Electricity, 4));
  files.disarm();
  EXPECT_EQ(rowsByMonth(year->adoStrom), before);
  EXPECT_EQ(year->startMonth(Utility::Electricity), 1);
  reopen();
  EXPECT_EQ(year->adoStrom.text(0, strom::month), "Januar");
  EXPECT_EQ(rowsByMonth(year->adoStrom), before);
}

TEST_F(StartMonth, ClearingElectricityKeepsNamesRemarksAndTheOtherUtilities) {
  const auto water = rowsByMonth(year->adoWasser);
  ASSERT_TRUE(done(year->storeFreeKwh(1500)));
  ASSERT_TRUE(done(year->clear(Utility::Electricity)));
  EXPECT_TRUE(year->values().cleared[Utility::Electricity]);
  EXPECT_EQ(year->values().startReadings[Meter::Day], std::nullopt);
  EXPECT_EQ(year->values().consumptions[Meter::Day][0], std::nullopt);
  reopen();
  EXPECT_EQ(year->values().startReadings[Meter::Day], 0);
  EXPECT_EQ(year->values().vat[Meter::Day], 0);
  EXPECT_EQ(year->values().freeKwh, 1500);
  EXPECT_EQ(year->values().startDate, "01.01.2025");
  for (const Field* field : {&strom::dayReading, &strom::nightConsumption, &strom::dayPrice,
                             &strom::nightAmount, &strom::advance, &strom::monthAmount})
    EXPECT_EQ(year->adoStrom.number(7, *field), 0) << field->name;
  EXPECT_EQ(year->adoStrom.text(3, strom::month), "April");
  EXPECT_EQ(year->adoStrom.text(3, strom::remark), "Ablesung im April");
  EXPECT_EQ(year->adoStrom.money(3, strom::oldAdvance), Money::roundHalfEven(7.5));
  EXPECT_EQ(year->adoVerbrM.number(0, verbrMonat::day), 0);
  EXPECT_EQ(rowsByMonth(year->adoWasser), water);
}

TEST_F(StartMonth, ClearingWaterLeavesTheSettingsOfWasteWater) {
  ASSERT_TRUE(done(year->storeVat(Meter::WasteWater, 5)));
  ASSERT_TRUE(done(year->clear(Utility::Water)));
  EXPECT_EQ(year->values().startReadings[Meter::WasteWater], std::nullopt);
  EXPECT_EQ(year->values().vat[Meter::WasteWater], std::nullopt);
  reopen();
  EXPECT_EQ(year->values().startReadings[Meter::Water], 0);
  EXPECT_EQ(year->values().startReadings[Meter::WasteWater], 443);
  EXPECT_EQ(year->values().vat[Meter::WasteWater], 5);
  EXPECT_EQ(year->adoWasser.number(0, wasser::wasteConsumption), 0);
  // The overview shows the months above an empty sum.
  EXPECT_EQ(year->adoWasser.money(0, wasser::monthAmount), Money());
}

// Emptied fields count as 0, and what is typed next is worked out from there.
TEST_F(StartMonth, AClearedUtilityIsFilledAgainFieldByField) {
  ASSERT_TRUE(done(year->clear(Utility::Gas)));
  EXPECT_EQ(year->values().bill.gross[Utility::Gas], Money());
  ASSERT_TRUE(done(year->storeStartReading(Meter::Gas, 11522)));
  EXPECT_FALSE(year->values().cleared[Utility::Gas]);
  EXPECT_EQ(year->values().bill.meters[Meter::Gas].endReading, 11522);
  EXPECT_EQ(year->values().gasFactor, std::nullopt);
  EXPECT_EQ(year->values().prices[Meter::Gas], std::nullopt);
  EXPECT_EQ(year->values().advances[Utility::Gas][3], std::nullopt);
  // A typed 0 is an answer.
  ASSERT_TRUE(done(year->storeAdvance(Utility::Gas, 3, Money())));
  EXPECT_EQ(year->values().advances[Utility::Gas][3], Money());
}

// Base fees of electricity and gas are in no total of their page.
TEST_F(StartMonth, AfterClearingTotalsComeBackWithTheFirstSummary) {
  ASSERT_TRUE(done(year->clear(Utility::Electricity)));
  ASSERT_TRUE(done(year->storeBaseFee(Meter::Day, Money())));
  ASSERT_TRUE(done(year->storeRemark(Utility::Electricity, 0, "leer")));
  files.arm({0, true, base::ErrorCode::NoSpace, false});
  EXPECT_FALSE(year->storeVat(Meter::Day, 19));
  files.disarm();
  EXPECT_TRUE(year->values().cleared[Utility::Electricity]);
  ASSERT_TRUE(done(year->storeVat(Meter::Day, 19)));
  EXPECT_FALSE(year->values().cleared[Utility::Electricity]);
}
