#include "projection/ProjectionSource.h"

#include <gtest/gtest.h>

#include "SampleYear.h"
#include "support/EmptyYear.h"
#include "support/MemoryFileSystem.h"

namespace {

TEST(ProjectionSource, ReadsTheOpenYearAndKeepsItsStartDate) {
  support::MemoryFileSystem files;
  const base::FixedClock clock(std::chrono::year(2026) / 11 / 14);
  files.put("/daten/Verbrauch2024.kwd", support::emptyYear());
  auto year = yearbook::YearSession::open(files, "/daten/Verbrauch2024.kwd", "/daten/", clock);
  ASSERT_TRUE(year);
  ASSERT_TRUE(sample::enter(**year, sample::year2024()));

  const auto source = projection::projectionSource(**year);
  EXPECT_EQ(source.startDate, "01.01.2024");
  EXPECT_EQ(source.consumption, 3073);
  EXPECT_EQ(source.unitPrice, 29.6);
  EXPECT_EQ(source.vatRate, 19.0F);
  EXPECT_EQ(source.baseFee.tenThousandths(), 1548000);
  EXPECT_EQ(source.startMonth, "Januar");
  ASSERT_TRUE(source.storeStartDate("2.1.2024"));
  EXPECT_EQ((*year)->adoZStaende.text(0, yearbook::zstaende::startDate), "2.1.2024");
}

}  // namespace
