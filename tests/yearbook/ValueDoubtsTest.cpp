#include "yearbook/ValueDoubts.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;
using yearbook::Meter;

struct PriceCase {
  Meter meter;
  double price;
  std::vector<double> others;
  const char* words;
};

TEST(ValueDoubts, APriceThatLooksWrongIsSaidSo) {
  const PriceCase cases[] = {
      // A point for a comma, the sign, euro for cent.
      {Meter::Day, 31945, {}, "31.945 Cent/kWh ist sehr viel"},
      {Meter::Day, -5, {28.9}, "unter 0"},
      {Meter::Night, 0.2445, {}, "0,2445 Cent/kWh: in Euro statt in Cent?"},
      {Meter::Gas, 0.99, {}, "0,99 Cent/kWh: in Euro statt in Cent?"},
      {Meter::Water, 225, {}, "225 Euro/m³: in Cent statt in Euro?"},
      {Meter::WasteWater, 0.02, {}, "0,02 Euro/m³ ist sehr wenig"},
      // Beside the other months.
      {Meter::Day, 92.5, {28.9, 29.6, 29.6}, "mehr als das Dreifache, sonst 29,60 in diesem Jahr"},
      {Meter::Gas, 3.0, {9.45, 9.25}, "weniger als ein Drittel, sonst 9,45 in diesem Jahr"},
  };
  for (const PriceCase& c : cases)
    EXPECT_EQ(yearbook::priceDoubt(c.meter, c.price, c.others), c.words) << c.price;
}

TEST(ValueDoubts, WhatHappensOnBillsIsLeftAlone) {
  const PriceCase cases[] = {{Meter::Day, 31.945, {29.6, 28.9}, ""},
                             {Meter::Day, 150, {}, ""},
                             {Meter::Day, 1, {}, ""},
                             {Meter::Day, 30, {0, 0, 0}, ""},
                             {Meter::Day, 0, {28.9}, ""},
                             {Meter::Day, 86.7, {28.9}, ""},
                             {Meter::Gas, 12.5, {6.2, 0}, ""},
                             {Meter::Water, 2.25, {}, ""},
                             {Meter::WasteWater, 30, {}, ""}};
  for (const PriceCase& c : cases)
    EXPECT_EQ(yearbook::priceDoubt(c.meter, c.price, c.others), c.words) << c.price;
}

TEST(ValueDoubts, PaymentsAndFeesAreMeasuredByTheOtherMonths) {
  const std::vector<double> others(11, 136.0);
  EXPECT_EQ(yearbook::amountDoubt(-136, others), "unter 0");
  EXPECT_EQ(yearbook::amountDoubt(1360, others),
            "mehr als das Dreifache, sonst 136,00 in diesem Jahr");
  EXPECT_EQ(yearbook::amountDoubt(13600, {}), "13.600,00 Euro ist sehr viel");
  for (const double usual : {0.0, 20.0, 136.0, 408.0})
    EXPECT_EQ(yearbook::amountDoubt(usual, others), "") << usual;
  EXPECT_EQ(yearbook::amountDoubt(5000, std::vector<double>(11, 0.0)), "");
  // One that was typed wrong before does not make the right ones odd.
  const std::vector<double> oneWrong = {136, 136, 13.6, 136};
  EXPECT_EQ(yearbook::amountDoubt(136, oneWrong), "");
}

TEST(ValueDoubts, TheOthersAreAllButTheMonthItself) {
  yearbook::PerMonth<double> values{};
  for (int k = 0; k < yearbook::kMonths; ++k) values[k] = k;
  EXPECT_THAT(yearbook::othersThan(0, values),
              testing::ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11));
  EXPECT_THAT(yearbook::othersThan(11, values), testing::Not(testing::Contains(11)));
}

}  // namespace
