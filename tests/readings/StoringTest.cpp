#include <gmock/gmock.h>

#include "SampleYear.h"
#include "readings/BaseFees.h"
#include "readings/MeterReading.h"
#include "readings/UnitPrices.h"
#include "support/EmptyYear.h"
#include "support/FailingFileSystem.h"
#include "support/MemoryFileSystem.h"

using namespace readings;

namespace {

// Entries stored on a disk that goes wrong at a chosen call.
class Storing : public testing::Test {
 protected:
  static constexpr char kFolder[] = "/daten/";
  static constexpr char kPath[] = "/daten/Verbrauch2025.kwd";

  Storing() {
    disk.put(kPath, support::emptyYear());
    auto year = open();
    EXPECT_TRUE(sample::enter(*year, sample::year2025()));
    year.reset();
    contents = disk.contents();
  }

  std::unique_ptr<YearSession> open() {
    auto session = YearSession::open(files, kPath, kFolder, clock);
    if (session) return std::move(*session);
    ADD_FAILURE() << base::germanMessage(session.error());
    return nullptr;
  }

  // Everything that an entry may change, as one text.
  static std::string rowsOf(const YearSession& year) {
    std::string rows;
    for (const yearbook::RecordSource* source :
         {&year.adoStrom, &year.adoVerbrM, &year.adoZStaende})
      for (int row = 0; row < source->count(); ++row)
        for (const yearbook::Field* field : source->table().fields)
          rows += source->text(row, *field) + ';';
    return rows;
  }

  // Lets every call of the entry fail in turn: afterwards the year holds all of it or nothing, an
  // error was returned whenever nothing was stored, and the program goes on.
  template <class Entry>
  void expectAllOrNothing(Entry entry) {
    disk = support::MemoryFileSystem(contents);
    std::string before, after;
    if (auto year = open()) {
      before = rowsOf(*year);
      ASSERT_TRUE(entry(*year));
      after = rowsOf(*year);
    }
    ASSERT_NE(before, after);
    std::size_t call = 0;
    for (bool struck = true; struck; ++call) {
      disk = support::MemoryFileSystem(contents);
      auto year = open();
      files.arm({call, false, base::ErrorCode::NoSpace, true});
      const bool done = entry(*year).has_value();
      struck = files.struck();
      files.disarm();
      EXPECT_EQ(rowsOf(*year), done ? after : before) << "kept rows, call " << call;
      year.reset();
      year = open();
      ASSERT_TRUE(year);
      const std::string stored = rowsOf(*year);
      EXPECT_TRUE(stored == after || (!done && stored == before)) << "call " << call;
      EXPECT_TRUE(entry(*year));
      EXPECT_EQ(rowsOf(*year), after);
    }
    EXPECT_GT(call, 4u);
  }

  base::FixedClock clock{
      base::Date{std::chrono::year(2025), std::chrono::month(9), std::chrono::day(3)}};
  support::MemoryFileSystem disk;
  support::FailingFileSystem files{disk};
  support::MemoryFileSystem::Contents contents;
};

}  // namespace

TEST_F(Storing, ATakeOverIsStoredWholeOrNotAtAll) {
  auto readings = sample::year2025().readings[Meter::Day];
  readings[11] = 1600;
  readings[2] = 0;
  expectAllOrNothing([&](YearSession& year) {
    return takeOver(year, Meter::Day, readings, {5, 10});
  });
}

TEST_F(Storing, DeletedConsumptionsAreStoredWholeOrNotAtAll) {
  expectAllOrNothing([](YearSession& year) { return deleteConsumptions(year, Meter::Night); });
}

TEST_F(Storing, APriceChangeIsStoredWholeOrNotAtAll) {
  MonthTicks ticks{};
  std::fill(ticks.begin() + 6, ticks.end(), true);
  expectAllOrNothing([&](YearSession& year) { return storePrices(year, Meter::Day, ticks, 31.5); });
}

TEST_F(Storing, TheYearFeeIsStoredWholeOrNotAtAll) {
  MonthlyFees fees;
  fees.fill(14);
  expectAllOrNothing([&](YearSession& year) { return storeYearFee(year, Meter::Day, fees); });
}

// The window of readings prices gas by its factor whatever it is, the one of prices leaves out a
// factor that nobody has entered.
TEST_F(Storing, WithoutAFactorGasIsPricedAsIfItWereReadInKwh) {
  auto year = open();
  ASSERT_TRUE(year->storeGasFactor(0));
  EXPECT_EQ(year->adoGas.money(0, yearbook::gas::amount), base::Money());
  MonthTicks ticks{};
  ticks[0] = true;
  ASSERT_TRUE(storePrices(*year, Meter::Gas, ticks, 9));
  EXPECT_EQ(year->adoGas.money(0, yearbook::gas::amount), base::Money::roundHalfEven(240 * 0.09));
  EXPECT_EQ(year->adoGas.money(1, yearbook::gas::amount), base::Money());
}
