#include "base/GrossNet.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/Money.h"

namespace {

using base::netOf;

TEST(GrossNet, TakesTheVatOutOfWhatTheBillShows) {
  EXPECT_EQ(netOf(35.70, 19), 30);
  EXPECT_EQ(netOf(34.39, 19), 28.8992);  // 28.89915966...
  EXPECT_EQ(netOf(2.41, 7), 2.2523);     // 2.25233644...
  EXPECT_EQ(netOf(3.05, 0), 3.05);
  EXPECT_EQ(netOf(1.0, 5.5), 0.9479);  // 0.94786729...
  EXPECT_EQ(netOf(-11.90, 19), -10);
  EXPECT_EQ(netOf(0, 19), 0);
}

TEST(GrossNet, FeesGoFromTheMonthToTheYearAndBackBeforeTheyAreRounded) {
  EXPECT_EQ(netOf(16.07, 19, {12, 1}), 162.0504);  // not 12 times 13.5042
  EXPECT_EQ(netOf(192.78, 19, {1, 12}), 13.5);
  EXPECT_EQ(netOf(100, 19, {1, 12}), 7.0028);  // 7.00280112...
}

TEST(GrossNet, AHalfIsRoundedAwayFromZeroOnExactFigures) {
  EXPECT_EQ(netOf(0.0001, 100), 0.0001);
  EXPECT_EQ(netOf(-0.0001, 100), -0.0001);
  EXPECT_EQ(netOf(0.0003, 100), 0.0002);
}

TEST(GrossNet, WithTheVatOnItAgainItIsTheFigureOnTheBill) {
  for (const double vat : {0.0, 5.5, 7.0, 16.0, 19.0, 25.0})
    for (int cents = 1; cents <= 60000; cents += 7) {
      const auto net = netOf(cents / 100.0, vat);
      ASSERT_TRUE(net);
      const auto gross = base::Money::roundHalfEven(*net / 100 * (100 + vat));
      ASSERT_EQ((gross.tenThousandths() + 50) / 100, cents) << vat;
    }
}

TEST(GrossNet, WithoutARateOrBeyondAllBillsThereIsNone) {
  EXPECT_FALSE(netOf(35.70, std::nullopt));
  for (const double vat : {-100.0, -150.0, 1e9, std::nan("")}) EXPECT_FALSE(netOf(35.70, vat));
  for (const double gross :
       {30000001.0, -1e300, std::nan(""), std::numeric_limits<double>::infinity()})
    EXPECT_FALSE(netOf(gross, 19));
  EXPECT_EQ(netOf(30e6, 0, {12, 1}), 360e6);
}

}  // namespace
