#include "readings/UnitPrices.h"

#include <gmock/gmock.h>

using namespace readings;

TEST(UnitPrices, MonthsWithoutAPriceAreTickedAtFirst) {
  yearbook::PerMonth<double> prices{};
  prices[0] = prices[1] = 29.6;
  const MonthTicks ticks = unpriced(prices);
  EXPECT_FALSE(ticks[0] || ticks[1]);
  EXPECT_TRUE(ticks[2] && ticks[11]);
}

TEST(UnitPrices, ThePreviewShowsTheNewPriceInTickedMonthsOnly) {
  yearbook::PerMonth<double> stored{};
  stored.fill(29.6);
  MonthTicks ticks{};
  ticks[6] = ticks[7] = true;
  auto expected = stored;
  EXPECT_EQ(previewPrices(stored, ticks, std::nullopt), expected);
  expected[6] = expected[7] = 28.9;
  EXPECT_EQ(previewPrices(stored, ticks, 28.9), expected);
}
