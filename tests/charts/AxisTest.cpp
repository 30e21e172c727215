#include "charts/Axis.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using charts::Axis;

std::vector<std::string> labels(const Axis& axis) {
  std::vector<std::string> texts;
  for (const double tick : axis.ticks()) texts.push_back(axis.label(tick));
  return texts;
}
using Texts = std::vector<std::string>;

TEST(Axis, HasRoundNumbersInGermanForm) {
  EXPECT_EQ(labels(charts::makeAxis(0, 313, 8)),
            Texts({"0", "50", "100", "150", "200", "250", "300", "350"}));
  EXPECT_EQ(labels(charts::makeAxis(0, 4800, 5)),
            Texts({"0", "1.000", "2.000", "3.000", "4.000", "5.000"}));
  EXPECT_EQ(labels(charts::makeAxis(0, 0.7, 4)), Texts({"0,0", "0,2", "0,4", "0,6", "0,8"}));
  EXPECT_EQ(labels(charts::makeAxis(0, 9, 4)), Texts({"0,0", "2,5", "5,0", "7,5", "10,0"}));
}

TEST(Axis, ReachesBelowZeroOnlyForNegativeValues) {
  EXPECT_EQ(labels(charts::makeAxis(-120, 300, 6)),
            Texts({"-200", "-100", "0", "100", "200", "300"}));
  EXPECT_EQ(labels(charts::makeAxis(-8, -3, 4)), Texts({"-8", "-6", "-4", "-2", "0"}));
  EXPECT_EQ(charts::makeAxis(5, 20, 4).low, 0);
}

TEST(Axis, OfNothingGoesFromZeroToTen) {
  EXPECT_EQ(labels(charts::makeAxis(0, 0, 8)), Texts({"0", "2", "4", "6", "8", "10"}));
}

TEST(Axis, NamesMillionsInsteadOfWritingZeros) {
  const Axis axis = charts::makeAxis(0, 12.5e6, 5);
  EXPECT_EQ(axis.scaleName, "Mio.");
  EXPECT_EQ(labels(axis), Texts({"0,0", "2,5", "5,0", "7,5", "10,0", "12,5"}));
}

// Whatever a damaged file holds: the ticks enclose the values, are few, and zero is one of them.
TEST(Axis, EnclosesEveryRange) {
  for (const double largest : {1e-7, 0.003, 1.0, 7.3, 99.99, 100.01, 12345.6, 1e9, 1e200, 1e308})
    for (const double smallest : {0.0, -0.4 * largest, -3 * largest})
      for (const int intervals : {2, 3, 5, 10}) {
        const Axis axis = charts::makeAxis(smallest, largest, intervals);
        const auto ticks = axis.ticks();
        EXPECT_LE(axis.low, std::max(smallest, -1e300) * (1 - 1e-9));
        EXPECT_GE(axis.high * (1 + 1e-9), std::min(largest, 1e300));
        EXPECT_LE(ticks.size(), static_cast<std::size_t>(intervals + 1)) << largest;
        EXPECT_EQ(std::count(ticks.begin(), ticks.end(), 0.0), 1);
        for (const double tick : ticks) EXPECT_LE(axis.label(tick).size(), 14u) << largest;
      }
}

TEST(Axis, OfASecondUnitSharesTicksAndZero) {
  const Axis first = charts::makeAxis(-20, 240, 6);
  const Axis second = charts::makeAlignedAxis(first, -90, 305);
  EXPECT_EQ(second.intervals(), first.intervals());
  EXPECT_DOUBLE_EQ(first.share(0), second.share(0));
  EXPECT_LE(second.low, -90);
  EXPECT_GE(second.high, 305);
}

}  // namespace
