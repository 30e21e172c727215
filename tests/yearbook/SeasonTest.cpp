#include "yearbook/Season.h"

#include <gtest/gtest.h>

using namespace yearbook;
using namespace std::chrono_literals;

// A reading stands for the end of its day: the day after the first and the last day count.
TEST(Season, DegreeDaysOfATimeAreThoseOfItsDays) {
  EXPECT_NEAR(degreeDaysBetween(2023y / 12 / 31, 2024y / 12 / 31), 999.9, 1e-9);
  EXPECT_NEAR(degreeDaysBetween(2024y / 12 / 31, 2025y / 12 / 31), 999.9, 1e-9);
  EXPECT_NEAR(degreeDaysBetween(2025y / 1 / 31, 2025y / 2 / 28), 150, 1e-9);
  EXPECT_NEAR(degreeDaysBetween(2024y / 1 / 31, 2024y / 2 / 28), 150.0 * 28 / 29, 1e-9);
  EXPECT_NEAR(degreeDaysBetween(2025y / 4 / 15, 2025y / 5 / 3), 80.0 * 15 / 30 + 40.0 * 3 / 31,
              1e-9);
  EXPECT_EQ(degreeDaysBetween(2025y / 5 / 3, 2025y / 5 / 3), 0);
  EXPECT_EQ(degreeDaysBetween(2025y / 5 / 3, 2025y / 4 / 15), 0);
}

// The profile is made so that a year's days come to about a year: most at its ends, least at the
// end of July.
TEST(Season, TheLoadProfileIsHighInWinterAndLowInSummer) {
  double sum = 0;
  int least = 1;
  for (int day = 1; day <= 365; ++day) {
    sum += h0DayFactor(day);
    if (h0DayFactor(day) < h0DayFactor(least)) least = day;
  }
  EXPECT_NEAR(sum, 365, 2);
  EXPECT_NEAR(h0DayFactor(1), 1.24203, 1e-5);
  EXPECT_NEAR(h0DayFactor(200), 0.7848, 1e-9);
  EXPECT_GT(least, 190);
  EXPECT_LT(least, 240);
}
