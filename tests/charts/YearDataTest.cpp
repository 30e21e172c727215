#include "charts/YearData.h"

#include <gtest/gtest.h>

#include "base/Paths.h"
#include "support/MemoryFileSystem.h"
#include "yearbook/YearSession.h"

namespace {

using charts::Meter;
using charts::MonthRow;

// A year that Access itself has written; empty if the real files are not there.
base::Bytes realYear(const std::string& name) {
  const auto disk = base::makeDiskFileSystem();
  const auto file =
      disk->open(std::string(KALVIRA_JET_FILES) + "/year/" + name, base::OpenMode::Read);
  base::Bytes bytes;
  if (!file) return bytes;
  bytes.resize((*file)->size().value_or(0));
  if (!(*file)->readAt(0, bytes)) bytes.clear();
  return bytes;
}

#define REQUIRE_REAL_YEAR(bytes) \
  if ((bytes).empty()) GTEST_SKIP() << "no real Access files at " << KALVIRA_JET_FILES

TEST(YearData, ReadsAnotherYearWithoutTouchingIt) {
  const base::Bytes before = realYear("filled.kwd");
  REQUIRE_REAL_YEAR(before);
  support::MemoryFileSystem files;
  files.put("/daten/Verbrauch2024.kwd", before);
  const auto year = charts::FileComparisonSource(files).open("/daten/Verbrauch2024.kwd");
  EXPECT_EQ(year.databaseName, "Verbrauch2024.kwd");
  EXPECT_EQ(year.meters[Meter::Gas][2], (MonthRow{"März", 117.0}));
  EXPECT_EQ(year.meters[Meter::Day][11], (MonthRow{"Dezember", 181.0}));
  EXPECT_EQ(year.meters[Meter::Night][0], (MonthRow{"Januar", 105.0}));
  EXPECT_EQ(files.contents(),
            support::MemoryFileSystem::Contents({{"/daten/Verbrauch2024.kwd", before}}));
}

TEST(YearData, OfADamagedForeignOrMissingFileIsEmptyOrWhatIsLeft) {
  base::Bytes cut = realYear("filled.kwd");
  REQUIRE_REAL_YEAR(cut);
  support::MemoryFileSystem files;
  files.put("/daten/brief.kwd", base::asBytes("Hallo"));
  for (std::size_t size = 0; size < cut.size(); size += 16 * 1024 + 77)
    files.put("/daten/" + std::to_string(size) + ".kwd", base::ByteSpan(cut).first(size));
  const auto names = files.list("/daten");
  ASSERT_TRUE(names);
  for (const std::string& name : *names) {
    const auto year = charts::FileComparisonSource(files).open("/daten/" + name);
    EXPECT_EQ(year.databaseName, name);
    for (const MonthRow& row : year.meters[Meter::Gas])
      EXPECT_TRUE(row == MonthRow() || !row.month.empty()) << name;
  }
  const auto missing = charts::FileComparisonSource(files).open("/daten/fehlt.kwd");
  EXPECT_EQ(missing.meters[Meter::Water][0], MonthRow());
}

TEST(YearData, OfTheOpenYearComesFromItsChartTable) {
  const base::Bytes bytes = realYear("filled.kwd");
  REQUIRE_REAL_YEAR(bytes);
  support::MemoryFileSystem files;
  files.put("/daten/Verbrauch.kwd", bytes);
  const base::FixedClock clock(std::chrono::year(2026) / 1 / 1);
  auto session = yearbook::YearSession::open(files, "/daten/Verbrauch.kwd", "/daten/", clock);
  ASSERT_TRUE(session) << base::germanMessage(session.error());
  ASSERT_TRUE((*session)->bringUpToDate());
  const auto year = charts::readChartTable(**session);
  EXPECT_EQ(year.databaseName, "Verbrauch.kwd");
  EXPECT_EQ(year.meters[Meter::Gas][2], (MonthRow{"März", 117.0}));
}

}  // namespace
