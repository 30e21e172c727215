#include "readingbook/ReadingBook.h"

#include <algorithm>
#include <cmath>

#include "base/DateText.h"
#include "base/GermanNumber.h"
#include "base/Paths.h"
#include "base/TextCodec.h"
#include "base/Trim.h"
#include "readingbook/BookRecord.h"
#include "yearbook/SideFileSize.h"

namespace readingbook {
namespace {

using base::ErrorCode;
using base::Result;

constexpr char kSuffix[] = "_Ablesungen.dat";
// Forty years of daily readings are three million bytes.

// Old programs end a text with the last of them.
constexpr std::string_view kLineEnds = "\r\n\x1a";

// The first entry of that day or later. Files are read in the order of the days.
std::vector<Entry>::iterator placeOf(std::vector<Entry>& entries, Date date) {
  if (entries.empty() || entries.back().date < date) return entries.end();
  return std::lower_bound(entries.begin(), entries.end(), date,
                          [](const Entry& entry, Date day) { return entry.date < day; });
}

std::string standing(const char* relation, Thousandths reading, Date date) {
  return relation + std::string(" (") + formatReading(reading) + " am " + base::formatDate(date) +
         ").";
}

// Why the entry cannot stand between its neighbours; "" when it can.
std::string contradiction(const Entry& entry, const Entry* before, const Entry* after) {
  if (before && entry.reading < before->atEnd())
    return standing(entry.newStart
                        ? "Der Endstand des alten Zählers ist niedriger als der Stand davor"
                        : "Niedriger als der Stand davor",
                    before->atEnd(), before->date);
  if (after && entry.atEnd() > after->reading)
    return standing(entry.newStart ? "Der Anfang des neuen Zählers ist höher als der Stand danach"
                                   : "Höher als der Stand danach",
                    after->reading, after->date);
  return {};
}

bool isCount(Thousandths value) {
  return value >= 0 && value <= kMostReading;
}

// What is wrong with the entry by itself; "" when nothing is.
std::string defect(const Entry& entry) {
  if (!isCount(entry.reading) || !isCount(entry.newStart.value_or(0)))
    return "Ein Zählerstand liegt zwischen 0 und 999.999.999.";
  if (!base::fitsWindows1252(entry.remark))
    return "Die Anmerkung enthält Zeichen, die in der Datei nicht gespeichert werden können.";
  return {};
}

}  // namespace

std::optional<Thousandths> toThousandths(double value) {
  const double thousandths = std::round(value * kUnit);
  if (!(thousandths >= 0 && thousandths <= static_cast<double>(kMostReading))) return std::nullopt;
  return static_cast<Thousandths>(thousandths);
}

double toUnits(Thousandths value) {
  return static_cast<double>(value) / kUnit;
}

std::string formatReading(Thousandths value) {
  return base::formatShort(toUnits(value), 3, true);
}

bool ReadingBook::empty() const {
  return !firstDay();
}

std::optional<Date> ReadingBook::firstDay() const {
  std::optional<Date> first;
  for (const auto& entries : entries_)
    if (!entries.empty() && (!first || entries.front().date < *first)) first = entries.front().date;
  return first;
}

Result<void> ReadingBook::add(Meter meter, Entry entry) {
  std::vector<Entry>& all = entries_[meter];
  const auto place = placeOf(all, entry.date);
  std::string reason = defect(entry);
  if (reason.empty() && place != all.end() && place->date == entry.date)
    reason =
        standing("Für diesen Tag ist schon ein Stand eingetragen", place->reading, place->date);
  if (reason.empty())
    reason = contradiction(entry, place != all.begin() ? &*(place - 1) : nullptr,
                           place != all.end() ? &*place : nullptr);
  if (!reason.empty()) return base::fail(ErrorCode::InvalidValue, reason);
  all.insert(place, std::move(entry));
  return {};
}

Result<void> ReadingBook::add(Meter meter, Entry entry, const Days& permitted) {
  if (entry.date < permitted.first || entry.date > permitted.last)
    return base::fail(ErrorCode::InvalidValue, "Das Datum " + base::formatDate(entry.date) +
                                                   " liegt außerhalb des Jahres (" +
                                                   base::formatDate(permitted.first) + " bis " +
                                                   base::formatDate(permitted.last) + ").");
  return add(meter, std::move(entry));
}

void ReadingBook::remove(Meter meter, Date date) {
  std::vector<Entry>& all = entries_[meter];
  const auto place = placeOf(all, date);
  if (place != all.end() && place->date == date) all.erase(place);
}

ReadingBook ReadingBook::fromText(std::string_view bytes) {
  struct Line {
    BookRecord record;
    std::string_view bytes;
  };
  ReadingBook book;
  std::vector<Line> lines;
  const auto keep = [&](std::string_view line, std::string reason) {
    book.kept_.push_back({std::string(line), std::move(reason)});
  };
  lines.reserve(static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1);
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    const std::string_view line = base::trimmed(bytes.substr(0, end), kLineEnds);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    if (line.find_first_not_of(" \t") == std::string_view::npos) continue;
    if (auto record = parseRecord(line))
      lines.push_back({std::move(*record), line});
    else
      keep(line, "Die Zeile ist keine Ablesung.");
  }
  const auto byDay = [](const Line& a, const Line& b) {
    return a.record.entry.date < b.record.entry.date;
  };
  if (!std::is_sorted(lines.begin(), lines.end(), byDay))
    std::stable_sort(lines.begin(), lines.end(), byDay);
  for (Line& line : lines)
    if (auto added = book.add(line.record.meter, std::move(line.record.entry)); !added)
      keep(line.bytes, added.error().detail);
  return book;
}

std::string ReadingBook::text() const {
  struct Place {
    const Entry* entry;
    Meter meter;
  };
  std::vector<Place> places;
  for (Meter meter : yearbook::kMeters)
    for (const Entry& entry : entries_[meter]) places.push_back({&entry, meter});
  std::stable_sort(places.begin(), places.end(),
                   [](const Place& a, const Place& b) { return a.entry->date < b.entry->date; });
  std::string bytes;
  for (const Place& place : places) bytes += recordLine({place.meter, *place.entry});
  for (const KeptLine& line : kept_) bytes += line.bytes + "\r\n";
  return bytes;
}

std::string bookPath(const std::string& yearPath) {
  return base::baseName(yearPath) + kSuffix;
}

Result<ReadingBook> readBook(base::FileSystem& files, const std::string& path) {
  const auto bytes = files.readText(path, yearbook::kLargestSideFile);
  if (bytes) return ReadingBook::fromText(*bytes);
  if (bytes.error().code == ErrorCode::NotFound) return ReadingBook();
  return base::Failure(bytes.error());
}

}  // namespace readingbook
