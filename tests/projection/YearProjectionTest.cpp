#include "projection/YearProjection.h"

#include <gtest/gtest.h>

#include "SampleYear.h"
#include "support/EmptyYear.h"
#include "support/MemoryFileSystem.h"

namespace {

TEST(YearProjection, ReadsWhatTheMainWindowShows) {
  support::MemoryFileSystem files;
  const base::FixedClock clock(std::chrono::year(2026) / 11 / 14);
  files.put("/daten/Verbrauch2024.kwd", support::emptyYear());
  auto year = yearbook::YearSession::open(files, "/daten/Verbrauch2024.kwd", "/daten/", clock);
  ASSERT_TRUE(year);
  ASSERT_TRUE(sample::enter(**year, sample::year2024()));

  const auto input = projection::projectionInput(**year);
  EXPECT_EQ(input.startDate, "01.01.2024");
  EXPECT_EQ(input.consumption, 3073);
  EXPECT_EQ(input.unitPrice, 29.6);
  EXPECT_EQ(input.vatRate, 19.0F);
  EXPECT_EQ(input.baseFee.tenThousandths(), 1548000);
  EXPECT_EQ(input.startMonth, "Januar");
  ASSERT_TRUE((*year)->clear(yearbook::Utility::Electricity));
  EXPECT_EQ(projection::projectionInput(**year).consumption, std::nullopt);
}

// The end of the last month with a reading, wherever the year begins, and never a day to come.
TEST(YearProjection, TheLastReadingDayIsWhatTheYearTells) {
  using std::chrono::year;
  support::MemoryFileSystem files;
  const base::FixedClock clock(year(2026) / 11 / 14);
  files.put("/daten/Haushalt.kwd", support::emptyYear());
  auto opened = yearbook::YearSession::open(files, "/daten/Haushalt.kwd", "/daten/", clock);
  ASSERT_TRUE(opened);
  yearbook::YearSession& session = **opened;
  EXPECT_FALSE(projection::lastReadingDay(session, clock.today())) << "nothing read";
  const auto read = [&](int row, double reading) {
    ASSERT_TRUE(session.transact({}, [&](yearbook::YearRows& rows) {
      return rows.adoStrom.setNumber(row, yearbook::strom::dayReading, reading);
    }));
  };
  read(1, 1200);
  EXPECT_FALSE(projection::lastReadingDay(session, clock.today())) << "no calendar year";
  ASSERT_TRUE(session.storeStartDate("1.1.2024"));
  EXPECT_EQ(projection::lastReadingDay(session, clock.today()), year(2024) / 2 / 29);
  EXPECT_EQ(projection::lastReadingDay(session, year(2024) / 2 / 20), year(2024) / 2 / 20);
  read(11, 2400);
  EXPECT_EQ(projection::lastReadingDay(session, clock.today()), year(2024) / 12 / 31);
  read(11, 0);
  ASSERT_TRUE(session.shiftStartMonth(yearbook::Utility::Electricity, 2));
  // February is the first row now, and January, which has none, the last.
  EXPECT_EQ(projection::lastReadingDay(session, clock.today()), year(2024) / 2 / 29);
}

}  // namespace
