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

}  // namespace
