#include <algorithm>
#include <map>
#include <set>

#include "base/DateText.h"
#include "base/GermanNumber.h"
#include "readingbook/BookOfYear.h"

// Tables of readings in and out.
namespace readingbook {
namespace {

using base::Result;

std::optional<Date> earlier(std::optional<Date> a, std::optional<Date> b) {
  return a && b ? std::min(*a, *b) : a ? a : b;
}

std::string inUnits(double value) {
  return base::formatShort(value, 3, true);
}

// What becomes of a meter by a table: the months that the book knows from its readings.
class MeterImport {
 public:
  MeterImport(const YearSession& session, const ReadingBook& book, Meter meter, int year)
      : meter_(meter),
        days_(daysOf(session, meter, year)),
        names_(session.monthNames(utilityOf(meter))),
        plan_(planMonths(session, book, meter, year)) {}

  MonthsTaken taken(const std::set<Date>& fromTable) const {
    MonthsTaken result{meter_, plan_, {}};
    const auto isNew = [&](const PlannedReading& reading) {
      return reading.differs() && (plan_.changeDiffers || fromTable.contains(reading.before) ||
                                   fromTable.contains(reading.after));
    };
    // A start reading that was read is not replaced by one that is worked out.
    result.taken.start = isNew(plan_.start) && (plan_.start.isRead() || plan_.start.stored == 0);
    for (int k = 0; k < kMonths; ++k) result.taken.months[k] = isNew(plan_.months[k]);
    return result;
  }

  std::vector<std::string> report(const Taken& taken) const {
    std::vector<std::string> lines = {std::string(factsOf(meter_).name) + ":"};
    if (plan_.start.fromBook)
      lines.push_back(
          line("Anfangsstand " + base::formatDate(days_.end(-1)), plan_.start, taken.start));
    for (int k = 0; k < kMonths; ++k)
      if (plan_.months[k].fromBook)
        lines.push_back(line(names_[k], plan_.months[k], taken.months[k]));
    if (plan_.changeDiffers && plan_.change.position < kMonths)
      lines.push_back("  Zählerwechsel im " + names_[plan_.change.position] + ", Anfang " +
                      inUnits(plan_.change.newStart));
    if (lines.size() == 1) lines.emplace_back("  noch kein Monat zwischen zwei Ablesungen");
    return lines;
  }

  const std::string& refusal() const { return plan_.refusal; }

 private:
  static std::string line(const std::string& what, const PlannedReading& reading, bool taken) {
    const std::string text = "  " + what + ": ";
    if (!taken) {
      const bool same = !reading.differs();
      return text + inUnits(reading.stored) + (same ? " (wie gespeichert)" : " (bleibt)");
    }
    std::string result = text + inUnits(*reading.fromBook);
    if (!reading.isRead()) result += " (errechnet)";
    if (reading.stored != 0) result += ", vorher " + inUnits(reading.stored);
    return result;
  }

  Meter meter_;
  YearDays days_;
  yearbook::MonthNames names_;
  MonthsPlan plan_;
};

std::string cell(std::optional<double> value) {
  return ';' + (value ? base::formatShort(*value) : std::string());
}

}  // namespace

Result<BookImport> previewImport(const YearSession& session, const TableReadings& readings) {
  auto book = readBook(session);
  if (!book) return base::Failure(book.error());
  BookImport import{std::move(*book), 0, 0, readings.problems};
  if (readings.entries.empty() && import.problems.empty())
    import.problems.push_back({0, "Die Tabelle enthält keine Ablesung."});
  if (readings.entries.empty()) return import;
  const auto year =
      calendarYear(session, earlier(import.book.firstDay(), readings.entries.front().entry.date));
  return addTo(std::move(import.book), readings, permittedDays(session, *year));
}

Result<ImportReport> importTable(YearSession& session, const TableReadings& readings) {
  auto imported = previewImport(session, readings);
  if (!imported) return base::Failure(imported.error());
  ImportReport report{std::move(imported->problems), {}};
  if (!report.problems.empty()) return report;
  const auto year = calendarYear(session, imported->book.firstDay());
  std::vector<MonthsTaken> meters;
  for (Meter meter : yearbook::kMeters) {
    std::set<Date> dates;
    for (const TableEntry& row : readings.entries)
      if (row.meter == meter) dates.insert(row.entry.date);
    if (dates.empty()) continue;
    const MeterImport import(session, imported->book, meter, *year);
    meters.push_back(import.taken(dates));
    const auto lines = import.report(meters.back().taken);
    report.lines.insert(report.lines.end(), lines.begin(), lines.end());
    if (!import.refusal().empty())
      report.problems.push_back({0, std::string(factsOf(meter).name) + ": " + import.refusal()});
  }
  if (!report.problems.empty()) return report;
  const auto stored = takeOverMonths(session, meters, "Tabelle eingelesen", &imported->book);
  if (!stored) return base::Failure(stored.error());
  return report;
}

std::string readingsTable(const YearSession& session) {
  const auto year = calendarYear(session, std::nullopt);
  if (!year) return {};
  struct Row {
    PerMeter<std::optional<double>> readings, newStarts;
  };
  std::map<Date, Row> rows;
  PerMeter<bool> changed{};
  for (Meter meter : yearbook::kMeters) {
    const StoredMeter stored = storedMeter(session, meter);
    const YearDays days = daysOf(session, meter, *year);
    if (stored.startReading != 0) rows[days.end(-1)].readings[meter] = stored.startReading;
    for (int k = 0; k < kMonths; ++k)
      if (stored.readings[k] != 0) rows[days.end(k)].readings[meter] = stored.readings[k];
    const int position = stored.change.position;
    if (position == MeterChange::kNone || stored.readings[position] == 0) continue;
    rows[days.end(position)].newStarts[meter] = stored.change.newStart;
    changed[meter] = true;
  }
  std::string text = "Datum";
  for (Meter meter : yearbook::kMeters) {
    const std::string name(factsOf(meter).name);
    text += ';' + name + (changed[meter] ? ';' + name + " neu" : std::string());
  }
  text += "\r\n";
  for (const auto& [date, row] : rows) {
    text += base::formatDate(date);
    for (Meter meter : yearbook::kMeters) {
      text += cell(row.readings[meter]);
      if (changed[meter]) text += cell(row.newStarts[meter]);
    }
    text += "\r\n";
  }
  return text;
}

}  // namespace readingbook
