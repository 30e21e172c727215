#include "yearbook/CalendarYear.h"

#include <algorithm>

#include "base/Paths.h"
#include "yearbook/Months.h"

namespace yearbook {
namespace {

using std::chrono::months;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

base::Date lastDay(std::chrono::year_month month) {
  return base::Date(month / std::chrono::last);
}

}  // namespace

std::optional<int> calendarYearOf(std::string_view startDate, std::string_view fileName) {
  if (const auto date = base::parseDate(startDate)) return static_cast<int>(date->year());
  const std::string_view name = base::fileName(fileName);
  for (std::size_t i = 0; i + 4 <= name.size(); ++i) {
    const std::string_view digits = name.substr(i, 4);
    if (!std::all_of(digits.begin(), digits.end(), isDigit)) continue;
    const int year = std::stoi(std::string(digits));
    if (year >= 1900 && year <= 2099) return year;
  }
  return std::nullopt;
}

YearDays::YearDays(int calendarYear, int startMonth)
    : first_(std::chrono::year(calendarYear) /
             std::chrono::month(static_cast<unsigned>(calendarMonth(startMonth, 0)))) {}

base::Date YearDays::end(int position) const {
  return lastDay(first_ + months(position));
}

base::Date YearDays::earliest() const {
  return base::Date((first_ - months(1)) / 1);
}

base::Date YearDays::latest() const {
  return lastDay(first_ + months(kMonths));
}

}  // namespace yearbook
