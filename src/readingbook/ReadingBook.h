#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "base/File.h"
#include "base/GermanDate.h"
#include "yearbook/Meter.h"

// The reading book of a year: dated readings of its meters on any day, kept in the side file
// NAME_Ablesungen.dat (docs/ablesebuch.md).
namespace readingbook {

using base::Date;
using yearbook::Meter;
using yearbook::PerMeter;

// A count of a meter in thousandths of its unit, so that whatever a meter shows is exact.
using Thousandths = std::int64_t;
inline constexpr Thousandths kUnit = 1000;
inline constexpr Thousandths kMostReading = 1'000'000'000 * kUnit - 1;

// "10114", "10114.567" with the given decimal sign; nullopt for anything else, for more than three
// decimals and for more than a meter shows.
std::optional<Thousandths> parseThousandths(std::string_view text, char decimalSign);
std::optional<Thousandths> toThousandths(double value);
double toUnits(Thousandths value);
// "10.114", "10.114,567"
std::string formatReading(Thousandths value);

struct Entry {
  Date date;                                           // stands for the end of the day
  Thousandths reading = 0;                             // of a change: the old meter's last one
  std::optional<Thousandths> newStart = std::nullopt;  // of a change: the new meter's first one
  std::string remark = {};

  // What the meter shows that is there at the end of the day.
  Thousandths atEnd() const { return newStart.value_or(reading); }
  bool operator==(const Entry&) const = default;
};

// A line of the file that does not count. It stays in the file as it is.
struct KeptLine {
  std::string bytes;
  std::string reason;
};

// The days on which readings of a year's meter may lie.
struct Days {
  Date first, last;
};

class ReadingBook {
 public:
  // Ascending by day, each day once, no reading lower than the one before it without a change.
  const std::vector<Entry>& of(Meter meter) const { return entries_[meter]; }
  const std::vector<KeptLine>& kept() const { return kept_; }
  bool empty() const;
  // The earliest of all entries.
  std::optional<Date> firstDay() const;

  // InvalidValue when the entry cannot be, with the reason for the household as detail ("Niedriger
  // als der Stand davor (11.318 am 30.11.2025)."); then nothing is added.
  base::Result<void> add(Meter meter, Entry entry);
  base::Result<void> add(Meter meter, Entry entry, const Days& permitted);
  void remove(Meter meter, Date date);

  // Lenient: in any order, a line that is no entry or contradicts an earlier day is kept aside.
  static ReadingBook fromText(std::string_view bytes);
  // Ascending by day, then by meter; what does not count comes last.
  std::string text() const;

 private:
  PerMeter<std::vector<Entry>> entries_;
  std::vector<KeptLine> kept_;
};

// "/daten/Verbrauch2025_Ablesungen.dat" of "/daten/Verbrauch2025.kwd".
std::string bookPath(const std::string& yearPath);
// An empty book when there is no file.
base::Result<ReadingBook> readBook(base::FileSystem& files, const std::string& path);

}  // namespace readingbook
