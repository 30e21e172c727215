#include "charts/YearData.h"

#include <gtest/gtest.h>

#include "support/SampleYears.h"

namespace {

using charts::Meter;
using charts::MonthRow;

constexpr char kOther[] = "/daten/Verbrauch2024.kwd";

// The sample household's folder with 2025 open.
class YearData : public testing::Test {
 protected:
  support::MemoryFileSystem files;
  std::unique_ptr<yearbook::YearSession> open = sample::openYear(files, "Verbrauch2025.kwd");
};

TEST_F(YearData, AnotherYearIsReadWithoutTouchingIt) {
  const auto before = files.contents();
  const auto year = charts::readYearFile(files, kOther);
  EXPECT_EQ(year.databaseName, "Verbrauch2024.kwd");
  EXPECT_EQ(year.meters[Meter::Gas][2], (MonthRow{"März", 157.0}));
  EXPECT_EQ(year.meters[Meter::Day][11], (MonthRow{"Dezember", 313.0}));
  EXPECT_EQ(year.meters[Meter::Night][0], (MonthRow{"Januar", 183.0}));
  EXPECT_EQ(files.contents(), before);
}

TEST_F(YearData, OfADamagedForeignOrMissingFileIsEmptyOrWhatIsLeft) {
  const base::Bytes whole = files.get(kOther);
  support::MemoryFileSystem folder;
  folder.put("/daten/brief.kwd", base::asBytes("Hallo"));
  for (std::size_t size = 0; size < whole.size(); size += 16 * 1024 + 77)
    folder.put("/daten/" + std::to_string(size) + ".kwd", base::ByteSpan(whole).first(size));
  const auto names = folder.list("/daten");
  ASSERT_TRUE(names);
  for (const std::string& name : *names) {
    const auto year = charts::readYearFile(folder, "/daten/" + name);
    EXPECT_EQ(year.databaseName, name);
    for (const MonthRow& row : year.meters[Meter::Gas])
      EXPECT_TRUE(row == MonthRow() || !row.month.empty()) << name;
  }
  const auto missing = charts::readYearFile(folder, "/daten/fehlt.kwd");
  EXPECT_EQ(missing.meters[Meter::Water][0], MonthRow());
}

TEST_F(YearData, OfTheOpenYearComesFromItsChartTable) {
  ASSERT_TRUE(open->transact({}, [](yearbook::YearRows& rows) {
    return rows.adoVerbrM.setNumber(2, yearbook::verbrMonat::gas, 7);
  }));
  const auto year = charts::readChartTable(*open);
  EXPECT_EQ(year.databaseName, "Verbrauch2025.kwd");
  EXPECT_EQ(year.meters[Meter::Gas][2], (MonthRow{"März", 7.0}));
  EXPECT_EQ(charts::readYear(*open).meters[Meter::Gas][2], (MonthRow{"März", 179.0}));
}

// Templates of other programs keep consumptions as texts or in single precision.
TEST(YearDataOfOtherFiles, NumbersMeanTheSameInTheOpenYearAndInTheOther) {
  auto tables = yearbook::templateTables();
  for (auto& column : tables[0].columns) {
    if (column.name == "VTagStrom") column.type = jet::ColumnType::Text, column.length = 20;
    if (column.name == "VNachtStrom") column.type = jet::ColumnType::Single;
  }
  const auto bytes = jet::createDatabase(tables);
  ASSERT_TRUE(bytes);
  support::MemoryFileSystem files;
  files.put("/daten/alt.kwd", *bytes);
  const base::FixedClock clock(std::chrono::year(2026) / 1 / 1);
  auto year = yearbook::YearSession::open(files, "/daten/alt.kwd", "/daten/", clock);
  ASSERT_TRUE(year) << base::germanMessage(year.error());
  ASSERT_TRUE((*year)->transact({}, [](yearbook::YearRows& rows) -> base::Result<void> {
    using namespace yearbook;
    if (auto set = rows.adoStrom.setNumber(0, strom::dayConsumption, 1234.5); !set) return set;
    return rows.adoStrom.setNumber(1, strom::nightConsumption, 21.45);
  }));
  const auto open = charts::readYear(**year);
  year->reset();
  const auto other = charts::readYearFile(files, "/daten/alt.kwd");
  for (const auto* one : {&open, &other}) {
    EXPECT_EQ(one->meters[Meter::Day][0], (MonthRow{"Januar", 1234.5}));
    EXPECT_EQ(one->meters[Meter::Day][1], (MonthRow{"Februar", 0.0}));
    EXPECT_EQ(one->meters[Meter::Night][1], (MonthRow{"Februar", 21.45}));
  }
  EXPECT_EQ(open.meters, other.meters);
}

}  // namespace
