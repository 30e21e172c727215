#include "analysis/Reminder.h"

#include "HouseholdFixture.h"

using namespace analysis;
using namespace std::chrono;

namespace {

class Reminders : public HouseholdFixture {
 protected:
  std::string at(base::Date today) {
    const auto found = reminderOf(disk, "/daten/", today);
    return found ? found->text : std::string();
  }
  static Offer until(const std::string& guarantee, const std::string& end) {
    Offer offer;
    offer.name = "Heim";
    offer.guaranteedUntil = guarantee;
    offer.contractEnd = end;
    return offer;
  }
};

TEST_F(Reminders, AYearIsNamedFromTheSecondMonthThatIsMissing) {
  endAt("Verbrauch2025.kwd", 9);
  EXPECT_EQ(at(year(2025) / 10 / 31), "") << "October is not over";
  EXPECT_EQ(at(year(2025) / 11 / 1), "Verbrauch2025: Oktober ist noch nicht abgelesen.");
  EXPECT_EQ(at(year(2026) / 1 / 31),
            "Verbrauch2025: Oktober, November und Dezember sind noch nicht abgelesen.");
  EXPECT_EQ(at(year(2026) / 2 / 1), "") << "nobody reads it any more";
  EXPECT_EQ(reminderOf(disk, "/daten/", year(2025) / 12 / 1)->year, "Verbrauch2025.kwd");
}

TEST_F(Reminders, AYearWithoutAnyReadingIsNotNagged) {
  disk.put("/daten/Verbrauch2026.kwd", support::emptyYear());
  EXPECT_EQ(at(year(2026) / 6 / 1), "");
}

TEST_F(Reminders, AYearOfMonthsInAnotherOrderHasItsOwnEnd) {
  edit("Verbrauch2025.kwd", [](yearbook::YearRows& rows) -> base::Result<void> {
    return rows.adoZStaende.setText(0, yearbook::zstaende::startDate, "01.07.2025");
  });
  auto session = yearbook::YearSession::open(disk, pathOf("Verbrauch2025.kwd"), "/daten/", clock);
  ASSERT_TRUE(session);
  for (const Utility utility : yearbook::kUtilities)
    ASSERT_TRUE((*session)->shiftStartMonth(utility, 7));
  session->reset();  // the file is locked while it is open
  endAt("Verbrauch2025.kwd", 3);
  EXPECT_EQ(at(year(2026) / 2 / 1), "Verbrauch2025: Oktober bis Januar sind noch nicht abgelesen.");
}

TEST_F(Reminders, ContractsAreDueFromTwoMonthsBeforeToAMonthAfter) {
  const std::vector<Offer> offers = {until("30.06.2026", "30.09.2026")};
  EXPECT_EQ(endingContract(offers, year(2026) / 4 / 29), "");
  EXPECT_EQ(endingContract(offers, year(2026) / 4 / 30),
            "Die Preisgarantie von Heim (Strom) endet am 30.06.2026.");
  EXPECT_EQ(endingContract(offers, year(2026) / 6 / 30),
            "Die Preisgarantie von Heim (Strom) endet am 30.06.2026.");
  EXPECT_EQ(endingContract(offers, year(2026) / 7 / 31),
            "Die Preisgarantie von Heim (Strom) endete am 30.06.2026.");
  EXPECT_EQ(endingContract(offers, year(2026) / 8 / 1),
            "Der Vertrag Heim (Strom) endet am 30.09.2026.");
  EXPECT_EQ(endingContract({until("bald", "")}, year(2026) / 4 / 30), "");
}

TEST_F(Reminders, ReadingsComeBeforeContractsAndDamagedYearsDoNotCount) {
  ASSERT_TRUE(writeOffers(disk, "/daten/", {{until("", "15.12.2025")}, {}}));
  disk.put("/daten/Verbrauch2026.kwd", base::asBytes("kein Jahr"));
  const auto contract = reminderOf(disk, "/daten/", year(2025) / 11 / 14);
  ASSERT_TRUE(contract);
  EXPECT_EQ(contract->text, "Der Vertrag Heim (Strom) endet am 15.12.2025.");
  EXPECT_EQ(contract->way, Reminder::Way::CompareTariffs);
  EXPECT_EQ(contract->year, "Verbrauch2025.kwd") << "the latest one that has readings";
  endAt("Verbrauch2025.kwd", 9);
  EXPECT_EQ(reminderOf(disk, "/daten/", year(2025) / 11 / 14)->way, Reminder::Way::RecordMonth);
}

}  // namespace
