#include "yearbook/FirstSteps.h"

#include <gtest/gtest.h>

using yearbook::FirstStep;
using yearbook::Meter;
using yearbook::Utility;

namespace {

TEST(FirstSteps, EachStepIsDoneByAnyMeterOfTheHouse) {
  yearbook::FieldValues values;
  const auto marks = [&] {
    std::string text;
    for (const bool done : yearbook::firstStepsDone(values)) text += done ? 'x' : '-';
    return text;
  };
  EXPECT_EQ(marks(), "-----");
  values.startReadings[Meter::Day] = 0;  // the answer of a house without electricity
  EXPECT_EQ(marks(), "-----");
  values.startReadings[Meter::Gas] = 900;
  EXPECT_EQ(marks(), "x----");
  values.prices[Meter::WasteWater] = 3;
  EXPECT_EQ(marks(), "xx---");
  values.baseFees[Meter::Gas] = base::Money::fromTenThousandths(1);
  values.vat[Meter::Water] = 7;
  EXPECT_EQ(marks(), "xx---") << "fee and tax of one meter";
  values.vat[Meter::Gas] = 19;
  EXPECT_EQ(marks(), "xxx--");
  values.advanceSums[Utility::Water] = base::Money::fromTenThousandths(1);
  values.consumptions[Meter::Night][11] = 1;
  EXPECT_EQ(marks(), "xxxxx");
  EXPECT_TRUE(isDone(FirstStep::Prices, values, Utility::Water));
  EXPECT_FALSE(isDone(FirstStep::Prices, values, Utility::Gas));
}

}  // namespace
