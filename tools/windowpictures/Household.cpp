#include "Household.h"

#include <algorithm>

#include "SampleYear.h"
#include "analysis/Tariffs.h"
#include "readingbook/BookOfYear.h"
#include "readings/MeterReading.h"
#include "support/EmptyYear.h"

namespace pictures {
namespace {

using yearbook::Meter;

constexpr char kProgramFolder[] = "/usr/lib/kalvira/";
constexpr std::chrono::year_month_day kToday = std::chrono::year(2025) / 12 / 31;

constexpr char kTable[] =
    "Datum;Strom;Nachtstrom;Wasser;Gas\r\n"
    "31.01.2026;1796;884;571;11760\r\n"
    "28.02.2026;2049;1033;580;11980\r\n"
    "31.03.2026;2310;1171;590;12155\r\n";

analysis::OfferFile offers() {
  analysis::Offer day;
  day.name = "Talwind fix";
  day.price = 31.2;
  day.baseFee = 198;
  day.guaranteedUntil = "30.06.2027";
  analysis::Offer both;
  both.name = "Heimatstrom 12";
  both.price = 33.49;
  both.nightPrice = 28.9;
  both.baseFee = 11.9;
  both.feePerMonth = true;
  both.bonus = 80;
  both.guaranteedUntil = both.contractEnd = "31.12.2026";
  return {{both, day}, {}};
}

// The gas meter, read on whatever day it was thought of.
readingbook::ReadingBook gasBook() {
  using std::chrono::year;
  readingbook::ReadingBook book;
  const std::pair<base::Date, int> entries[] = {
      {year(2025) / 1 / 4, 10146},  {year(2025) / 2 / 2, 10369},  {year(2025) / 3 / 30, 10752},
      {year(2025) / 6 / 15, 10931}, {year(2025) / 10 / 5, 11046}, {year(2025) / 11 / 2, 11150},
      {year(2025) / 11 / 28, 11303}};
  for (const auto& [date, reading] : entries)
    base::ignore(book.add(Meter::Gas, {date, reading * readingbook::kUnit}),
                 "an entry that is missing is seen");
  return book;
}

// Typing two years takes a while: once.
const support::MemoryFileSystem::Contents& samples() {
  static const support::MemoryFileSystem::Contents contents = [] {
    support::MemoryFileSystem disk(
        {{Household::folder() + "Verbrauch2026.kwd", support::emptyYear()}});
    base::ignore(sample::makeBoth(disk, Household::folder(), support::emptyYear()),
                 "a year that is missing is seen at once");
    return disk.contents();
  }();
  return contents;
}

}  // namespace

Household::Household()
    : disk(samples()), clock(kToday), services{paths,   disk,       clock,
                                               prompts, standstill, standstill} {
  disk.put(std::string(kProgramFolder) + "Vorlverbr8.kwx", support::emptyYear());
  base::ignore(analysis::writeOffers(disk, folder(), offers()), "seen in the window");
  disk.put(readingbook::bookPath(folder() + "Verbrauch2025.kwd"), base::asBytes(gasBook().text()));
  disk.put(std::string(kHome) + "Ablesungen.csv", base::asBytes(kTable));
  const std::string backup = std::string(kHome) + "Sicherung/";
  for (const auto& [path, bytes] : samples())
    disk.put(backup + std::string(base::fileName(path)), bytes);
  // By the system's own clock, which the windows turn into local time.
  disk.setModified(std::chrono::sys_days(kToday) + std::chrono::hours(10));
  facts.programFolder = paths.ProgramFolder = kProgramFolder;
  facts.environment.home = kHome;
  paths.DataFolder = folder();
}

std::unique_ptr<yearbook::YearSession> Household::take(const std::string& year) {
  paths.YearDatabaseName = year + ".kwd";
  paths.YearDatabasePath = folder() + paths.YearDatabaseName;
  auto opened = yearbook::YearSession::open(disk, paths.YearDatabasePath, folder(), clock);
  return opened ? std::move(*opened) : nullptr;
}

yearbook::YearSession& Household::open(const std::string& year) {
  year_.reset();
  year_ = take(year);
  return *year_;
}

void Household::forgetAfterOctober() {
  constexpr int kOctober = 9;
  std::vector<readings::MeterEntries> meters;
  for (Meter meter : yearbook::kMeters) {
    auto stored = readingbook::storedMeter(open("Verbrauch2025"), meter);
    std::fill(stored.readings.begin() + kOctober + 1, stored.readings.end(), 0);
    meters.push_back({meter, stored.readings, stored.change});
  }
  base::ignore(readings::takeOver(*year_, {"Stände"}, meters), "the year is seen as it is then");
  year_.reset();
}

}  // namespace pictures
