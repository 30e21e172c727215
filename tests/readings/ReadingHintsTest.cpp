#include "readings/ReadingHints.h"

#include <gmock/gmock.h>

using namespace readings;

namespace {

MeterYear gasYear() {
  MeterYear year;
  year.startReading = 10114;
  year.readings = {10354, 10580, 10759, 10855, 10917, 10945,
                   10969, 10989, 11033, 11141, 11318, 11522};
  return year;
}

// Months with a doubt, as "position:doubt".
std::vector<std::pair<int, Doubt>> doubts(const MeterYear& year) {
  std::vector<std::pair<int, Doubt>> found;
  const auto hints = readingHints(year);
  for (int k = 0; k < kMonths; ++k)
    if (const Doubt doubt = hints[k].doubt; doubt != Doubt::None) found.emplace_back(k, doubt);
  return found;
}

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

}  // namespace

TEST(ReadingHints, AHeatingSeasonIsNoReasonForDoubtInWhateverMonthTheYearBegins) {
  const MeterYear calendar = gasYear();
  std::vector<double> months = {240, 226, 179, 96, 62, 28, 24, 20, 44, 108, 177, 204};
  for (int start = 0; start < kMonths; ++start) {
    for (int entered = 1; entered <= kMonths; ++entered) {
      MeterYear year;
      double reading = year.startReading = 1000;
      for (int k = 0; k < entered; ++k) year.readings[k] = reading += months[(start + k) % kMonths];
      EXPECT_THAT(doubts(year), IsEmpty()) << "from month " << start << ", " << entered;
    }
  }
  EXPECT_EQ(readingHints(calendar)[8].consumption, 44);
}

TEST(ReadingHints, AReadingBelowTheOneBeforeIsMarked) {
  MeterYear year = gasYear();
  year.readings[5] = 10845;
  EXPECT_THAT(doubts(year), ElementsAre(Pair(5, Doubt::LowerThanBefore)));
}

TEST(ReadingHints, ADigitTooManyIsMarkedWithTheMonthAfterIt) {
  MeterYear year = gasYear();
  year.readings[3] = 108550;
  EXPECT_THAT(doubts(year), ElementsAre(Pair(3, Doubt::Unusual), Pair(4, Doubt::LowerThanBefore)));
}

TEST(ReadingHints, AfterAMeterChangeLowerReadingsAreRight) {
  MeterYear year = gasYear();
  year.readings = {10354, 10580, 10759, 110, 172, 200, 224, 244, 288, 396, 573, 777};
  EXPECT_THAT(doubts(year), ElementsAre(Pair(3, Doubt::LowerThanBefore)));
  year.change = {2, 14};
  EXPECT_THAT(doubts(year), IsEmpty());
  EXPECT_EQ(readingHints(year)[3].consumption, 96);
  year.change = {2, 120};
  EXPECT_THAT(doubts(year), ElementsAre(Pair(3, Doubt::LowerThanNewMeter)));
}

TEST(ReadingHints, AMonthAfterAGapIsMeasuredByTheMonthsThatItCovers) {
  MeterYear year;
  year.readings = {100, 200, 300, 0, 0, 0, 0, 800};
  EXPECT_THAT(doubts(year), IsEmpty());
  year.readings[7] = 2000;
  EXPECT_THAT(doubts(year), ElementsAre(Pair(7, Doubt::Unusual)));
}

TEST(ReadingHints, OneMonthAloneIsNoUsualConsumption) {
  MeterYear year;
  year.readings = {3, 40};
  EXPECT_THAT(doubts(year), IsEmpty());
  year.readings = {3, 6, 40};
  EXPECT_THAT(doubts(year), ElementsAre(Pair(2, Doubt::Unusual)));
}
