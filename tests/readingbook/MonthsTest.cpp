// The months of a year as its reading book says, against hand-made figures and against a slow
// calculation that walks from day to day.
#include <gmock/gmock.h>

#include <random>

#include "readingbook/MonthsPlan.h"

using namespace readingbook;  // NOLINT(google-build-using-namespace)
using base::daysBetween;

namespace {

Date day(const char* text) {
  return *base::parseDate(text);
}
Date after(Date date, int days) {
  return Date(std::chrono::sys_days(date) + std::chrono::days(days));
}

MonthsPlan planOf(const std::vector<Entry>& entries, Meter meter = Meter::Day,
                  const StoredMeter& stored = {}, int startMonth = 1) {
  return planMonths(entries, meter, YearDays(2025, startMonth), stored);
}

// The book's readings from January on, "-" for none.
std::string shown(const MonthsPlan& plan) {
  std::string text;
  for (const PlannedReading& month : plan.months)
    text += (month.fromBook ? std::to_string(static_cast<long>(*month.fromBook)) : "-") + " ";
  return text;
}

PerMonth<double> consumptions(const StoredMeter& meter) {
  readings::MeterYear year;
  year.readings = meter.readings;
  year.startReading = meter.startReading;
  year.change = meter.change;
  PerMonth<double> result;
  const auto months = readings::workOut(yearbook::PriceRule::EuroPerUnit, year);
  for (int k = 0; k < kMonths; ++k) result[k] = months[k].consumption;
  return result;
}

StoredMeter taken(const MonthsPlan& plan, const StoredMeter& stored = {}) {
  return applied(plan, stored, allThatDiffer(plan));
}

TEST(Months, ByDaysBetweenTheNeighboursExactOnALastDay) {
  // 31 + 28 days, 59 kWh; then 10 kWh in 4 days.
  const auto plan = planOf({{day("31.12.2024"), 1000000},
                            {day("28.02.2025"), 1059000},
                            {day("29.03.2025"), 1100000},
                            {day("02.04.2025"), 1110000}});
  EXPECT_EQ(shown(plan), "1031 1059 1105 - - - - - - - - - ");
  EXPECT_EQ(plan.start.fromBook, 1000);
  EXPECT_TRUE(plan.start.isRead() && plan.months[1].isRead());
  EXPECT_FALSE(plan.months[0].isRead());
  EXPECT_EQ(plan.months[2].before, day("29.03.2025"));
  EXPECT_EQ(plan.months[2].after, day("02.04.2025"));
}

TEST(Months, HalvesAreRoundedUpAndThousandthsCount) {
  // One kWh in two days; a thousandth less is rounded down.
  EXPECT_EQ(planOf({{day("30.01.2025"), 7000}, {day("01.02.2025"), 8000}}).months[0].fromBook, 8);
  EXPECT_EQ(planOf({{day("30.01.2025"), 7000}, {day("01.02.2025"), 7999}}).months[0].fromBook, 7);
  EXPECT_EQ(planOf({{day("31.01.2025"), 7500}}).months[0].fromBook, 8);
}

TEST(Months, GasByDegreeDays) {
  const std::vector<Entry> book = {{day("31.12.2024"), 10114000}, {day("28.02.2025"), 10580000},
                                   {day("15.04.2025"), 10809000}, {day("30.06.2025"), 10945000},
                                   {day("31.08.2025"), 10989000}, {day("10.10.2025"), 11065000},
                                   {day("30.11.2025"), 11318000}};
  EXPECT_EQ(shown(planOf(book, Meter::Gas)),
            "10362 10580 10755 10867 10926 10945 10967 10989 11030 11144 11318 - ");
  // Water knows no cold.
  EXPECT_EQ(planOf(book, Meter::Water).months[0].fromBook, 10359);
}

TEST(Months, AChangeOnAMonthsLastDayIsStoredAsItIsTyped) {
  const auto plan = planOf({{day("31.05.2025"), 45585000},
                            {day("30.06.2025"), 45808000, 12000},
                            {day("31.07.2025"), 238000}});
  EXPECT_EQ(shown(plan), "- - - - 45585 45808 238 - - - - - ");
  EXPECT_EQ(plan.change, (MeterChange{5, 12}));
  EXPECT_EQ(consumptions(taken(plan))[6], 226);
}

TEST(Months, AChangeInMidMonthGetsAVirtualReadingOfTheOldMeter) {
  // 16 days on the old meter: 40 kWh; 15 days on the new one until the month's end: 30 kWh.
  const auto plan = planOf({{day("30.06.2025"), 5000000},
                            {day("16.07.2025"), 5040000, 7000},
                            {day("15.08.2025"), 67000}});
  EXPECT_EQ(plan.months[6].fromBook, 5070);
  EXPECT_EQ(plan.change, (MeterChange{6, 37}));
  EXPECT_FALSE(plan.months[7].fromBook);
  // Without a reading after it nothing is known of its month.
  EXPECT_FALSE(planOf({{day("30.06.2025"), 5000000}, {day("16.07.2025"), 5040000, 7000}})
                   .months[6]
                   .fromBook);
}

TEST(Months, OfTwoChangesTheLastOneIsStoredAndNothingIsLost) {
  const auto plan = planOf({{day("31.01.2025"), 100000},
                            {day("28.02.2025"), 110000, 0},
                            {day("31.03.2025"), 20000},
                            {day("30.04.2025"), 30000, 500000},
                            {day("31.05.2025"), 540000}});
  EXPECT_EQ(shown(plan), "100 110 130 140 540 - - - - - - - ");
  EXPECT_EQ(plan.change, (MeterChange{3, 500}));
}

TEST(Months, ANewMeterThatStandsAtZeroForAMonthIsNoMonthLeftOut) {
  const auto plan =
      planOf({{day("31.01.2025"), 100000, 0}, {day("28.02.2025"), 0}, {day("31.03.2025"), 4000}});
  EXPECT_EQ(plan.change, (MeterChange{1, 0}));
  const auto months = consumptions(taken(plan));
  EXPECT_EQ(months[1], 0);
  EXPECT_EQ(months[2], 4);
}

TEST(Months, ChangesOfEarlierYearsLeaveNoTrace) {
  const auto plan = planOf({{day("30.06.2024"), 900000, 10000},
                            {day("31.12.2024"), 50000, 60000},
                            {day("31.01.2025"), 80000}});
  EXPECT_EQ(plan.start.fromBook, 60);
  EXPECT_EQ(plan.months[0].fromBook, 80);
  EXPECT_EQ(plan.change, MeterChange());
}

TEST(Months, AYearMayBeginInAnyMonth) {
  const auto plan =
      planOf({{day("30.06.2025"), 100000}, {day("30.06.2026"), 465000}}, Meter::Day, {}, 7);
  EXPECT_EQ(plan.start.fromBook, 100);
  EXPECT_EQ(shown(plan), "131 162 192 223 253 284 315 343 374 404 435 465 ");
  const YearDays days(2025, 7);
  EXPECT_EQ(days.earliest(), day("01.06.2025"));
  EXPECT_EQ(days.latest(), day("31.07.2026"));
}

TEST(Months, AStoredChangeStaysGoesOrStandsInTheWay) {
  StoredMeter stored;
  stored.readings = {{{10, 20, 30, 5, 15}}};
  stored.change = {2, 0};
  // Nothing is known of March and April.
  EXPECT_EQ(
      planOf({{day("31.05.2025"), 15000}, {day("30.06.2025"), 25000}}, Meter::Day, stored).change,
      stored.change);
  // Read in both months, and never changed.
  const auto denied =
      planOf({{day("28.02.2025"), 20000}, {day("30.04.2025"), 40000}}, Meter::Day, stored);
  EXPECT_EQ(denied.change, MeterChange());
  EXPECT_TRUE(denied.changeDiffers);
  EXPECT_TRUE(newOnly(denied).months[3]) << "a month that is stored on the other meter";
  // Two changes, of which the book knows one.
  EXPECT_NE(planOf({{day("31.05.2025"), 15000, 0}, {day("30.06.2025"), 9000}}, Meter::Day, stored)
                .refusal,
            "");
  // Behind the year's last month there is none that could tell.
  stored.change = {11, 5};
  EXPECT_EQ(
      planOf({{day("31.10.2025"), 90000}, {day("31.12.2025"), 95000}}, Meter::Day, stored).change,
      MeterChange());
}

TEST(Months, OnlyWhatIsNewIsOfferedFirst) {
  StoredMeter stored;
  stored.startReading = 990;
  stored.readings[0] = 1030;
  stored.readings[4] = 1200;
  const auto plan =
      planOf({{day("31.12.2024"), 1000000}, {day("28.02.2025"), 1059000}}, Meter::Day, stored);
  const Taken first = newOnly(plan);
  EXPECT_TRUE(first.start);
  EXPECT_FALSE(first.months[0]);
  EXPECT_TRUE(first.months[1]);
  const StoredMeter after = applied(plan, stored, first);
  EXPECT_EQ(after.startReading, 1000);
  EXPECT_EQ(after.readings[0], 1030);
  EXPECT_EQ(after.readings[1], 1059);
  EXPECT_EQ(after.readings[4], 1200);
  // A start reading that is worked out does not take the place of one that is there.
  const auto between =
      planOf({{day("15.12.2024"), 970000}, {day("28.02.2025"), 1059000}}, Meter::Day, stored);
  ASSERT_TRUE(between.start.differs());
  EXPECT_FALSE(newOnly(between).start);
  EXPECT_TRUE(newOnly(planOf({{day("15.12.2024"), 970000}, {day("28.02.2025"), 1059000}})).start);
}

// --- any book ---

class AnyBook {
 public:
  explicit AnyBook(unsigned seed) : random_(seed) {}

  int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }
  bool oneIn(int count) { return upTo(count - 1) == 0; }

  // Readings from before the year until after it, on month-ends more often than not.
  std::vector<Entry> entries(const YearDays& days, bool whole) {
    std::vector<Entry> book;
    Thousandths now = upTo(20000) * kUnit;
    for (Date date = after(days.end(-1), -upTo(20)); date <= days.latest(); date = nextDay(date)) {
      Entry entry{date, now};
      if (oneIn(6)) entry.newStart = now = oneIn(2) ? 0 : upTo(300) * kUnit;
      book.push_back(entry);
      now += oneIn(4) ? 0 : whole ? upTo(400) * kUnit : upTo(400000);
    }
    return book;
  }

 private:
  Date nextDay(Date date) {
    const Date end{date.year() / date.month() / std::chrono::last};
    if (date < end && oneIn(2)) return end;
    return after(date, 1 + upTo(oneIn(5) ? 120 : 30));
  }

  std::mt19937 random_;
};

// Exact as well, in other parts: of each month the tenths of the table times 28 * 29 * 30 * 31 / n.
std::int64_t dayWeight(Meter meter, Date date) {
  constexpr int kTenths[] = {1700, 1500, 1300, 800, 400, 133, 133, 133, 300, 800, 1200, 1600};
  if (meter != Meter::Gas) return 1;
  const Date last{date.year() / date.month() / std::chrono::last};
  return kTenths[static_cast<unsigned>(date.month()) - 1] *
         (28LL * 29 * 30 * 31 / static_cast<unsigned>(last.day()));
}

// The meter's reading at the end of a day in whole units, walking there day by day.
std::optional<std::int64_t> slowly(const std::vector<Entry>& book, Meter meter, Date wanted) {
  for (std::size_t i = 0; i < book.size(); ++i) {
    if (book[i].date == wanted) return (book[i].atEnd() + 500) / 1000;
    if (i + 1 == book.size() || book[i].date > wanted || book[i + 1].date <= wanted) continue;
    std::int64_t whole = 0;
    for (Date d = after(book[i].date, 1); d <= book[i + 1].date; d = after(d, 1))
      whole += dayWeight(meter, d);
    Thousandths now = book[i].atEnd();
    const Thousandths between = book[i + 1].reading - now;
    std::int64_t rest = 0;
    for (Date d = after(book[i].date, 1); d <= wanted; d = after(d, 1)) {
      rest += between * dayWeight(meter, d);
      now += rest / whole;
      rest %= whole;
    }
    return (now + 500) / 1000;
  }
  return std::nullopt;
}

TEST(AnyBook, IsWorkedOutAsByWalkingFromDayToDay) {
  for (unsigned seed = 0; seed < 10000; ++seed) {
    AnyBook any(seed);
    const Meter meter = seed % 2 == 0 ? Meter::Gas : Meter::Water;
    const YearDays days(2020 + any.upTo(8), 1 + any.upTo(11));
    const auto book = any.entries(days, any.oneIn(2));
    std::vector<Date> wanted;
    for (int k = -1; k < kMonths; ++k) wanted.push_back(days.end(k));
    const auto ends = dayEnds(book, spreadOf(meter), wanted);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
      const auto expected = slowly(book, meter, wanted[i]);
      ASSERT_EQ(ends[i].has_value(), expected.has_value()) << "book " << seed;
      if (expected) {
        ASSERT_EQ(ends[i]->meter, *expected) << "book " << seed;
      }
    }
  }
}

// What the household consumed between two days of reading, from the readings alone.
Thousandths consumedBetween(const std::vector<Entry>& book, Date from, Date to) {
  Thousandths sum = 0;
  for (std::size_t i = 0; i + 1 < book.size(); ++i)
    if (book[i].date >= from && book[i + 1].date <= to)
      sum += book[i + 1].reading - book[i].atEnd();
  return sum;
}

TEST(AnyBook, TheMonthsBetweenTwoReadingsAddUpToTheirDifference) {
  int compared = 0;
  for (unsigned seed = 0; seed < 10000; ++seed) {
    AnyBook any(seed);
    const Meter meter = seed % 2 == 0 ? Meter::Gas : Meter::Water;
    const YearDays days(2020 + any.upTo(8), 1 + any.upTo(11));
    const auto book = any.entries(days, true);
    const auto plan = planMonths(book, meter, days, {});
    const auto months = consumptions(taken(plan));
    for (int from = -1; from < kMonths; ++from) {
      const auto& first = from < 0 ? plan.start : plan.months[from];
      if (!first.isRead()) continue;
      double sum = 0;
      for (int to = from + 1; to < kMonths; ++to) {
        sum += months[to];
        if (!plan.months[to].isRead()) continue;
        ASSERT_EQ(sum, toUnits(consumedBetween(book, days.end(from), days.end(to))))
            << "book " << seed << ", months " << from << " to " << to;
        ++compared;
      }
    }
  }
  EXPECT_GT(compared, 100000);
}

}  // namespace
