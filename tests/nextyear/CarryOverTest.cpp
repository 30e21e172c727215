#include "nextyear/CarryOver.h"

#include <gmock/gmock.h>

#include "nextyear/YearBefore.h"
#include "readingbook/BookOfYear.h"
#include "support/SampleYears.h"

using namespace nextyear;  // NOLINT(google-build-using-namespace)
using readingbook::storedMeter;

namespace {

class CarryOver : public testing::Test {
 protected:
  std::unique_ptr<YearSession> open(const std::string& name) {
    return sample::openYear(disk, name);
  }
  static Plan planOf(const YearSession& year) {
    const auto plan = planNextYear(year);
    EXPECT_TRUE(plan) << base::germanMessage(plan.error());
    return *plan;
  }
  static std::vector<double> starts(const YearSession& year) {
    std::vector<double> result;
    result.reserve(std::size(yearbook::kMeters));
    for (Meter meter : yearbook::kMeters) result.push_back(storedMeter(year, meter).startReading);
    return result;
  }
  static std::vector<std::string> advances(const YearSession& year, int position) {
    std::vector<std::string> result;
    result.reserve(std::size(yearbook::kUtilities));
    for (Utility utility : yearbook::kUtilities)
      result.push_back(formatMoney(yearbook::orZero(year.values().advances[utility][position])));
    return result;
  }
  // Takes the meters' readings away from a month on.
  static void unread(YearSession& year, int from) {
    std::vector<readings::MeterEntries> all;
    for (Meter meter : yearbook::kMeters) {
      auto stored = storedMeter(year, meter);
      std::fill(stored.readings.begin() + from, stored.readings.end(), 0);
      all.push_back({meter, stored.readings, stored.change});
    }
    EXPECT_TRUE(readings::takeOver(year, {"ungelesen"}, all));
  }

  support::MemoryFileSystem disk;
};

TEST_F(CarryOver, TheNextYearBeginsAsTheHouseholdTypedIt) {
  const auto last = open("Verbrauch2024.kwd");
  const Plan plan = planOf(*last);
  EXPECT_TRUE(plan.notes.empty());
  const auto next = open("Verbrauch.kwd");
  ASSERT_TRUE(isEmpty(*next));
  ASSERT_TRUE(carryOver(*next, plan, {}));
  EXPECT_FALSE(isEmpty(*next));
  EXPECT_EQ(starts(*next), (std::vector<double>{44309, 24371, 443, 443, 10114}));
  const auto& values = next->values();
  EXPECT_EQ(values.startDate, "01.01.2025");
  EXPECT_EQ(values.gasFactor, 10.483);
  for (Meter meter : yearbook::kMeters)
    EXPECT_EQ(yearbook::orZero(values.baseFees[meter]),
              yearbook::orZero(last->values().baseFees[meter]));
  EXPECT_EQ(values.vat, last->values().vat);
  const PerMeter<double> prices = {{{29.6, 24.4, 2.1, 2.86, 9.2}}};
  for (Meter meter : yearbook::kMeters)
    for (int k = 0; k < yearbook::kMonths; ++k)
      EXPECT_EQ(next->rows().of(meter).number(k, *factsOf(meter).price), prices[meter]);
  // A twelfth of the bill; the household has paid 150, 63 and 130.
  for (const int position : {0, 11})
    EXPECT_EQ(advances(*next, position), (std::vector<std::string>{"144,92", "62,29", "139,76"}));
  EXPECT_EQ(readings::readBaseFees(disk, "/daten/Verbrauch_GrdGebStrMon.dat")[7], 12.9);
  // One step.
  ASSERT_TRUE(next->undo());
  EXPECT_TRUE(isEmpty(*next));
  EXPECT_FALSE(disk.exists("/daten/Verbrauch_GrdGebStrMon.dat"));
  EXPECT_EQ(next->history().last(), nullptr);
}

TEST_F(CarryOver, TheLastYearIsOnlyRead) {
  std::unique_ptr<YearSession> last = open("Verbrauch2024.kwd");
  const auto before = disk.contents();
  planOf(*last);
  last.reset();
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(CarryOver, OnlyTheTickedGroupsAreTaken) {
  const Plan plan = planOf(*open("Verbrauch2024.kwd"));
  for (std::size_t only = 0; only < kGroups.size(); ++only) {
    const auto next = open("Verbrauch.kwd");
    Choice choice;
    choice.groups.fill(false);
    choice.groups[only] = true;
    choice.advances = Advances::AsLast;
    ASSERT_TRUE(carryOver(*next, plan, choice));
    const auto is = [&](Group group) { return choice.has(group); };
    const auto& values = next->values();
    EXPECT_EQ(starts(*next)[0], is(Group::StartReadings) ? 44309 : 0);
    EXPECT_EQ(yearbook::orZero(values.prices[Meter::Gas]), is(Group::Prices) ? 9.2 : 0);
    EXPECT_EQ(advances(*next, 3)[2], is(Group::Advances) ? "130,00" : "0,00");
    EXPECT_EQ(yearbook::orZero(values.gasFactor), is(Group::FeesAndTaxes) ? 10.483 : 0);
    EXPECT_EQ(values.startDate, is(Group::BeginAndNight) ? "01.01.2025" : "");
  }
}

TEST_F(CarryOver, PricesAndPaymentsAreThoseOfTheLastMonthThatHasThem) {
  const auto last = open("Verbrauch2025.kwd");
  ASSERT_TRUE(last->transact({"leer"}, [](yearbook::YearRows& rows) -> base::Result<void> {
    for (int month = 10; month < 12; ++month) {
      auto price = rows.of(Meter::Gas).setNumber(month, *factsOf(Meter::Gas).price, 0);
      if (!price) return price;
      auto paid = rows.of(Utility::Gas).setMoney(month, *factsOf(Utility::Gas).advance, Money());
      if (!paid) return paid;
    }
    return {};
  }));
  const Plan plan = planOf(*last);
  EXPECT_EQ(plan.prices[Meter::Gas]->value, 9.25);
  EXPECT_EQ(plan.prices[Meter::Gas]->source, "Preis im Oktober");
  EXPECT_EQ(plan.lastAdvances[Utility::Gas], Money::fromTenThousandths(1420000));
}

TEST(YearBefore, IsFoundByTheNames) {
  const auto before = [](const char* name, const std::vector<std::string>& names) {
    return nextyear::nameBefore(name, names).value_or("-");
  };
  EXPECT_EQ(before("Haus2025.kwd", {"Garten2024.kwd", "Haus2024.kwd", "Haus2025.kwd"}),
            "Haus2024.kwd");
  EXPECT_EQ(before("Haus2025.kwd", {"Garten2024.kwd"}), "Garten2024.kwd");
  EXPECT_EQ(before("Haus2025.kwd", {"HAUS2025.KWD", "Haus2023.kwd", "Haus2026.kwd"}), "-");
  EXPECT_EQ(before("Neu.kwd", {"Haus2024.kwd", "Haus2023.kwd"}), "Haus2024.kwd");
  EXPECT_EQ(before("Neu.kwd", {"Alt.kwd", "Neu.kwd"}), "Alt.kwd");
  EXPECT_EQ(before("Neu.kwd", {"Alt.kwd", "Neu.kwd", "Uralt.kwd"}), "-");
}

TEST_F(CarryOver, AYearThatIsNotFinishedSaysSo) {
  const auto last = open("Verbrauch2025.kwd");
  unread(*last, 10);
  Plan plan = planOf(*last);
  EXPECT_EQ(plan.startReadings[Meter::Gas]->value, 11141);
  EXPECT_EQ(plan.startReadings[Meter::Day]->source, "Stand Oktober");
  EXPECT_THAT(plan.notes,
              testing::ElementsAre(
                  "Oktober ist der letzte Stand (Strom, Nachtstrom, Wasser, Abwasser, Gas)."));
  EXPECT_FALSE(plan.hasFittingAdvances());
  EXPECT_EQ(plan.advance(Utility::Gas, Advances::AsConsumed), Money::fromTenThousandths(1420000));
  // The last reading is that of the month in which the meter was changed.
  unread(*last, 6);
  plan = planOf(*last);
  EXPECT_EQ(plan.startReadings[Meter::Day]->value, 12);
  EXPECT_EQ(plan.startReadings[Meter::Day]->source, "Neuer Zähler, Juni");
  EXPECT_EQ(plan.startReadings[Meter::Gas]->value, 10945);
}

TEST_F(CarryOver, WhatTheBookHoldsOfTheYearsEndGoesAlong) {
  const auto last = open("Verbrauch2025.kwd");
  unread(*last, 11);
  ASSERT_TRUE(readingbook::storeBook(
      *last,
      readingbook::ReadingBook::fromText(
          "Gas,30.11.2025,11318,Ablesung\r\nGas,31.12.2025,11530,Ablesung\r\n"
          "Gas,20.01.2026,11700,Ablesung\r\nWasser,15.12.2025,560,Ablesung\r\n"
          "Strom,31.12.2025,1490,Zaehlerwechsel,3\r\n"),
      "Buch"));
  const Plan plan = planOf(*last);
  EXPECT_EQ(plan.startReadings[Meter::Gas]->value, 11530);
  EXPECT_EQ(plan.startReadings[Meter::Gas]->source, "Ablesebuch, 31.12.2025");
  EXPECT_EQ(plan.startReadings[Meter::Day]->value, 3);
  EXPECT_EQ(plan.startReadings[Meter::Water]->value, 553);
  EXPECT_THAT(plan.notes, testing::ElementsAre(
                              "November ist der letzte Stand (Nachtstrom, Wasser, Abwasser)."));
  const auto next = open("Verbrauch.kwd");
  ASSERT_TRUE(carryOver(*next, plan, {}));
  EXPECT_EQ(disk.get("/daten/Verbrauch_Ablesungen.dat"), base::Bytes([] {
              const std::string text =
                  "\"Strom\",\"31.12.2025\",3,\"Ablesung\",0,\"\"\r\n"
                  "\"Gas\",\"31.12.2025\",11530,\"Ablesung\",0,\"\"\r\n"
                  "\"Gas\",\"20.01.2026\",11700,\"Ablesung\",0,\"\"\r\n";
              return base::Bytes(text.begin(), text.end());
            }()));
}

TEST_F(CarryOver, AYearThatBeginsElsewhereInTheCalendarGoesOnThere) {
  const auto last = open("Verbrauch2024.kwd");
  ASSERT_TRUE(last->shiftStartMonth(Utility::Gas, 10));
  ASSERT_TRUE(last->storeStartDate("29.02.2024"));
  ASSERT_TRUE(last->setNightShown(false));
  const Plan plan = planOf(*last);
  EXPECT_EQ(plan.startReadings[Meter::Gas]->value, 9612) << "September is the last month";
  const auto next = open("Verbrauch.kwd");
  ASSERT_TRUE(carryOver(*next, plan, {}));
  EXPECT_EQ(next->startMonth(Utility::Gas), 10);
  EXPECT_EQ(next->startMonth(Utility::Water), 1);
  EXPECT_EQ(next->values().startDate, "28.02.2025");
  EXPECT_FALSE(next->values().nightShown);
}

TEST_F(CarryOver, ThePreviewShowsWhatIsStored) {
  const auto lines = preview(planOf(*open("Verbrauch2024.kwd")), Advances::AsConsumed);
  std::vector<std::string> shown;
  shown.reserve(lines.size());
  for (const Line& line : lines)
    shown.push_back(line.name + '|' + line.from + '|' + line.to + '|' + line.unit + '|' +
                    line.source);
  EXPECT_THAT(shown,
              testing::IsSupersetOf({"Strom, Nacht|24.371|24.371|kWh|Stand Dezember",
                                     "Abwasser|2,86|2,86|Euro/m³|Preis im Dezember",
                                     "Strom|150,00|144,92|Euro im Monat|passend zum Verbrauch",
                                     "Grundgebühr Gas|129,60|129,60|Euro im Jahr, mit Monatsliste|",
                                     "MwSt Abwasser|0|0|%|", "Gasfaktor|10,483|10,483|kWh/m³|",
                                     "Startmonat Gas|Januar|Januar||",
                                     "Start-Datum|01.01.2024|01.01.2025||ein Jahr später"}));
}

}  // namespace
