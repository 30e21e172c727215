#include <filesystem>
#include <fstream>
#include <sstream>

#include "YearFixture.h"

// Years that another program made: more columns, other types, keys and indexes of their own.

using namespace yearbook;

namespace {

class ForeignYear : public YearFixture {
 protected:
  // The file's name in the folder of real files.
  std::unique_ptr<YearSession> take(const std::string& name) {
    const auto path = std::filesystem::path(KALVIRA_JET_FILES) / "year" / name;
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream content;
    content << stream.rdbuf();
    path_ = kFolder + name;
    disk.put(path_, base::asBytes(content.str()));
    return open(path_);
  }
  std::unique_ptr<YearSession> again() { return open(path_); }

  std::string path_;
};

bool missing() {
  return !std::filesystem::is_directory(std::filesystem::path(KALVIRA_JET_FILES) / "year");
}

}  // namespace

#define NEEDS_FOREIGN_YEARS() \
  if (missing()) GTEST_SKIP() << "no foreign years at " << KALVIRA_JET_FILES

TEST_F(ForeignYear, EmptyFieldsCountAsNothing) {
  NEEDS_FOREIGN_YEARS();
  const auto year = take("plain.kwd");
  EXPECT_EQ(year->values().startReadings[Meter::Day], std::nullopt);
  EXPECT_EQ(year->values().consumptions[Meter::Day][0], std::nullopt);
  EXPECT_EQ(year->values().bill.gross[Utility::Electricity], Money());
}

TEST_F(ForeignYear, WholeNumbersInIntegerColumnsAndFractionsRefused) {
  NEEDS_FOREIGN_YEARS();
  auto year = take("extra.kwd");
  ASSERT_TRUE(done(year->storeStartReading(Meter::Day, 4711)));
  EXPECT_FALSE(year->storeStartReading(Meter::Day, 3000000000.0));
  EXPECT_EQ(year->values().startReadings[Meter::Day], 4711);
  ASSERT_TRUE(done(year->storeRemark(Utility::Electricity, 2, "neuer Zähler")));
  year.reset();
  year = again();
  EXPECT_EQ(year->values().startReadings[Meter::Day], 4711);
  EXPECT_EQ(year->values().remarks[Utility::Electricity][2], "neuer Zähler");
}

TEST_F(ForeignYear, AShiftKeepsAnIndexOnTheMonthRight) {
  NEEDS_FOREIGN_YEARS();
  for (const char* name : {"extra.kwd", "filled.kwd", "relocated.kwd"}) {
    auto year = take(name);
    const auto april = year->adoStrom.number(3, strom::dayReading);
    ASSERT_TRUE(done(year->shiftStartMonth(Utility::Electricity, 4))) << name;
    EXPECT_EQ(year->adoStrom.number(0, strom::dayReading), april) << name;
    for (const jet::Finding& finding : year->database().check())
      EXPECT_TRUE(finding.warning) << name << ": " << base::germanMessage(finding.error);
    year.reset();
    EXPECT_EQ(again()->monthNames(Utility::Electricity).front(), "April") << name;
  }
}

TEST_F(ForeignYear, RemarksOfAnyLengthInMemoColumns) {
  NEEDS_FOREIGN_YEARS();
  auto year = take("memo.kwd");
  EXPECT_TRUE(year->holdsLongRemarks(Utility::Electricity));
  std::string remark;
  for (int i = 0; i < 900; ++i) remark += "Ablesung ";
  ASSERT_TRUE(done(year->storeRemark(Utility::Gas, 4, remark)));
  year.reset();
  EXPECT_EQ(again()->values().remarks[Utility::Gas][4], remark);
}

// A price of 21,45 in a single-precision column is 21,45 again, not 21,4500007629.
TEST_F(ForeignYear, SinglePrecisionPricesReadAsTyped) {
  NEEDS_FOREIGN_YEARS();
  auto year = take("memo.kwd");
  ASSERT_TRUE(done(year->storePrice(Meter::Day, 21.45)));
  year.reset();
  EXPECT_EQ(again()->values().prices[Meter::Day], 21.45);
}

TEST_F(ForeignYear, AMissingTableOrColumnIsNamed) {
  auto tables = templateTables();
  tables[0].columns[1].name = "ZTag";
  auto bytes = jet::createDatabase(tables);
  ASSERT_TRUE(bytes);
  disk.put("/daten/fremd.kwd", *bytes);
  auto year = YearSession::open(files, "/daten/fremd.kwd", kFolder, clock);
  ASSERT_FALSE(year);
  EXPECT_THAT(base::germanMessage(year.error()), testing::HasSubstr("(Strom: Zählerstand Strom)"));
  tables = templateTables();
  tables.pop_back();
  bytes = jet::createDatabase(tables);
  ASSERT_TRUE(bytes);
  disk.put("/daten/fremd.kwd", *bytes);
  year = YearSession::open(files, "/daten/fremd.kwd", kFolder, clock);
  ASSERT_FALSE(year);
  EXPECT_THAT(base::germanMessage(year.error()), testing::HasSubstr("ZStaende"));
}
