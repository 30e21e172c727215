#include "analysis/Year.h"

#include <algorithm>

#include "base/Paths.h"
#include "jet/Database.h"
#include "yearbook/FlatRate.h"
#include "yearbook/YearSession.h"

namespace analysis {
namespace {

using namespace std::chrono;

int startMonthOr1(int startMonth) {
  return startMonth < 1 ? 1 : startMonth;
}

void findStart(Year& year, system_clock::time_point modified) {
  const int first = startMonthOr1(year.values.startMonths[Utility::Electricity]);
  const auto firstOf = [&](std::chrono::year number) {
    return base::Date(number / month(static_cast<unsigned>(first)) / day(1));
  };
  const base::Date changed(floor<days>(modified));
  if (const auto date = base::parseDate(year.values.startDate)) {
    year.start = *date;
    year.source = StartSource::StartDate;
  } else if (const auto number = yearInName(year.name)) {
    year.start = firstOf(std::chrono::year(*number));
    year.source = StartSource::FileName;
  } else {
    year.start = firstOf(changed.year());
    // What was entered last lies in the year, not before it.
    if (year.start > changed) year.start = firstOf(changed.year() - years(1));
    year.source = StartSource::FileDate;
  }
}

int monthsRead(const PerMonth<yearbook::MeterRow>& rows) {
  int months = 0;
  for (int i = 0; i < kMonths; ++i)
    if (yearbook::orZero(rows[i].reading) > 0 || yearbook::orZero(rows[i].consumption) != 0)
      months = i + 1;
  return months;
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace

int Year::startMonth(Meter meter) const {
  return startMonthOr1(values.startMonths[utilityOf(meter)]);
}

int Year::calendarMonth(Meter meter, int position) const {
  return yearbook::calendarMonth(startMonth(meter), position);
}

std::chrono::year_month Year::monthAt(Meter meter, int position) const {
  const auto first = start.year() / month(static_cast<unsigned>(startMonth(meter)));
  return first + std::chrono::months(position);
}

double Year::consumption(Meter meter, int position) const {
  return yearbook::orZero(rows[meter][position].consumption);
}

bool Year::isEmpty() const {
  return std::all_of(months.begin(), months.end(), [](int count) { return count == 0; });
}

std::string Year::label() const {
  const int first = static_cast<int>(start.year());
  std::string text = std::to_string(first);
  if (start.month() == January) return text;
  const std::string next = std::to_string(first + 1);
  return text + '/' + next.substr(next.size() - 2);
}

std::optional<int> yearInName(std::string_view name) {
  for (std::size_t at = 0; at < name.size();) {
    std::size_t end = at;
    while (end < name.size() && isDigit(name[end])) ++end;
    if (end - at == 4) {
      int number = 0;
      for (std::size_t i = at; i < end; ++i) number = number * 10 + (name[i] - '0');
      if (number >= 1900 && number <= 2099) return number;
    }
    at = end + 1;
  }
  return std::nullopt;
}

Year yearOf(const std::string& path, const yearbook::YearRows& rows, yearbook::FieldValues values,
            system_clock::time_point modified) {
  Year year;
  year.path = path;
  year.name = base::baseName(base::fileName(path));
  year.values = std::move(values);
  for (const Meter meter : kMeters) {
    const yearbook::MeterFacts& facts = factsOf(meter);
    if (year.values.cleared[facts.utility]) continue;
    year.rows[meter] = rows.months(meter);
    year.months[meter] = monthsRead(year.rows[meter]);
    for (int i = 0; i < kMonths; ++i)
      year.prices[meter][i] = rows.of(meter).number(i, *facts.price);
  }
  findStart(year, modified);
  return year;
}

Year yearOf(const yearbook::YearSession& session) {
  const auto found = session.files().info(session.path());
  return yearOf(session.path(), session.rows(), session.values(),
                found ? found->modified : system_clock::time_point(sys_days(session.openedOn())));
}

base::Result<Year> readYear(base::FileSystem& files, const std::string& path, bool flatRate) {
  const auto found = files.info(path);
  if (!found) return base::Failure(found.error());
  jet::OpenOptions options;
  options.readOnly = true;
  auto database = jet::Database::open(files, path, options);
  if (!database) return base::Failure(database.error());
  const auto rows = yearbook::YearRows::open(*database);
  if (!rows) return base::Failure(rows.error());
  yearbook::Modes modes;
  modes.flatRate = flatRate;
  return yearOf(path, *rows, yearbook::valuesOf(*rows, modes), found->modified);
}

const Year* YearFolder::yearBefore(const Year& year) const {
  // A year may begin some weeks early or late.
  constexpr int kLeast = 300, kMost = 430;
  const Year* before = nullptr;
  for (const Year& other : years) {
    const int distance = base::daysBetween(other.start, year.start);
    if (distance >= kLeast && distance <= kMost) before = &other;
  }
  return before;
}

base::Result<YearFolder> readFolder(base::FileSystem& files, const std::string& folder,
                                    const yearbook::YearSession* open) {
  const std::string place = base::withSeparator(folder);
  const auto names = files.list(folder);
  if (!names) return base::Failure(names.error());
  const bool flatRate = yearbook::readFlatRate(files, place);
  YearFolder found;
  for (const std::string& name : *names) {
    const std::string path = place + name;
    if (!base::hasExtension(name, ".kwd") || files.folderExists(path)) continue;
    auto year = open && open->path() == path ? yearOf(*open) : readYear(files, path, flatRate);
    if (!year)
      found.damaged.push_back({name, base::germanReason(year.error())});
    else if (year->isEmpty())
      found.empty.push_back(name);
    else
      found.years.push_back(std::move(*year));
  }
  std::stable_sort(found.years.begin(), found.years.end(),
                   [](const Year& a, const Year& b) { return a.start < b.start; });
  return found;
}

}  // namespace analysis
