#include "yearbook/FirstSteps.h"

#include <gmock/gmock.h>

using yearbook::FirstStep;
using yearbook::Meter;
using yearbook::Utility;

namespace {

class FirstSteps : public testing::Test {
 protected:
  std::string marks() const {
    std::string text;
    for (const bool done : yearbook::firstStepsDone(values)) text += done ? 'x' : '-';
    return text;
  }
  std::string advice(FirstStep step) const { return adviceFor(step, values); }

  yearbook::FieldValues values;
};

const base::Money kSome = base::Money::fromTenThousandths(1);

TEST_F(FirstSteps, TakeEveryMeterAlongThatTheHouseHas) {
  EXPECT_EQ(marks(), "-----");
  values.startReadings[Meter::Day] = 0;  // the answer of a house without electricity
  EXPECT_FALSE(hasBegun(values));
  EXPECT_EQ(advice(FirstStep::StartReadings), adviceFor(FirstStep::StartReadings));
  values.startReadings[Meter::Gas] = 900;
  EXPECT_TRUE(hasBegun(values));
  EXPECT_EQ(marks(), "-----") << "there may be water and electricity";
  EXPECT_THAT(advice(FirstStep::StartReadings), testing::EndsWith(" Noch ohne: Strom, Wasser."));
  values.prices[Meter::Gas] = 9;
  EXPECT_EQ(marks(), "xx---") << "the house has nothing but gas";
  values.prices[Meter::WasteWater] = 3;
  EXPECT_EQ(marks(), "-x---") << "and water, as it shows";
  EXPECT_EQ(lackingIn(FirstStep::StartReadings, values), std::vector{Utility::Water});
  values.startReadings[Meter::Water] = 318;
  EXPECT_EQ(marks(), "x----") << "waste water has a price, water has none";
  EXPECT_THAT(advice(FirstStep::Prices), testing::EndsWith(" Noch ohne: Wasser."));
  values.prices[Meter::Water] = 2;
  EXPECT_EQ(marks(), "xx---");
  values.startReadings[Meter::WasteWater] = 318;
  values.prices[Meter::WasteWater] = 0;
  EXPECT_THAT(advice(FirstStep::Prices), testing::EndsWith(" Noch ohne: Abwasser."));
  values.prices[Meter::WasteWater] = 3;
  values.baseFees[Meter::Gas] = kSome;
  values.vat[Meter::Water] = 7;
  EXPECT_EQ(marks(), "xx---") << "fee and tax of one meter";
  values.vat[Meter::Gas] = 19;
  EXPECT_THAT(advice(FirstStep::FeesAndVat), testing::EndsWith(" Noch ohne: Wasser."));
  values.baseFees[Meter::Water] = kSome;
  EXPECT_EQ(marks(), "xxx--");
  EXPECT_EQ(advice(FirstStep::FeesAndVat), adviceFor(FirstStep::FeesAndVat));
}

TEST_F(FirstSteps, ANightMeterHasAPriceOfItsOwnUnlessItIsHidden) {
  values.startReadings[Meter::Day] = values.startReadings[Meter::Night] = 300;
  values.prices[Meter::Day] = 30;
  EXPECT_EQ(marks(), "x----");
  EXPECT_THAT(advice(FirstStep::Prices), testing::EndsWith(" Noch ohne: Nachtstrom."));
  values.nightShown = false;
  EXPECT_EQ(marks(), "xx---") << "where it would be entered nobody can see";
}

// Water may have no base fee, and its payments may go with the rent.
TEST_F(FirstSteps, EndWithTheFirstReadingWhateverAMeterHasNot) {
  values.startReadings[Meter::Day] = values.startReadings[Meter::Water] = 300;
  values.prices[Meter::Day] = values.prices[Meter::Water] = 2;
  values.baseFees[Meter::Day] = kSome;
  values.vat[Meter::Day] = values.vat[Meter::Water] = 19;
  values.advanceSums[Utility::Electricity] = kSome;
  EXPECT_EQ(marks(), "xx---");
  values.consumptions[Meter::Night][11] = 1;
  EXPECT_EQ(marks(), "xx---") << "the day meter has a price, too";
  EXPECT_TRUE(isBegun(FirstStep::FirstReading, values));
  values.consumptions[Meter::Day][11] = 1;
  EXPECT_EQ(marks(), "xx---");
  EXPECT_THAT(advice(FirstStep::FirstReading), testing::EndsWith(" Noch ohne: Wasser."));
  values.consumptions[Meter::Water][0] = 1;
  EXPECT_EQ(marks(), "xxxxx");
  values.prices[Meter::WasteWater] = 3;
  EXPECT_EQ(marks(), "xxxx-");
  EXPECT_THAT(advice(FirstStep::FirstReading), testing::EndsWith(" Noch ohne: Abwasser."));
  values.consumptions[Meter::WasteWater][0] = 1;
  EXPECT_EQ(marks(), "xxxxx");
}

}  // namespace
