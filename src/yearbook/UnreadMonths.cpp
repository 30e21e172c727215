#include "yearbook/UnreadMonths.h"

#include <algorithm>

#include "yearbook/CalendarYear.h"
#include "yearbook/YearSession.h"

namespace yearbook {
namespace {

using Rows = PerMeter<PerMonth<MeterRow>>;

bool isRead(const Rows& rows, const FieldValues& values, int month) {
  return std::any_of(kMeters.begin(), kMeters.end(), [&](Meter meter) {
    const int start = values.startMonths[utilityOf(meter)];
    for (int k = 0; k < kMonths; ++k)
      if (calendarMonth(start, k) == month && orZero(rows[meter][k].reading) != 0) return true;
    return false;
  });
}

std::string sentence(const std::vector<std::string>& months) {
  constexpr std::size_t kMostNamed = 3;
  if (months.size() > kMostNamed)
    return months.front() + " bis " + months.back() + " sind noch nicht abgelesen.";
  std::string text;
  for (std::size_t i = 0; i < months.size(); ++i)
    text += (i == 0 ? "" : i + 1 == months.size() ? " und " : ", ") + months[i];
  return text + (months.size() == 1 ? " ist" : " sind") + " noch nicht abgelesen.";
}

}  // namespace

std::string unreadMonths(const Rows& rows, const FieldValues& values, std::string_view path,
                         base::Date today) {
  const auto year = calendarYearOf(values.startDate, path);
  if (!year || std::none_of(kMeters.begin(), kMeters.end(),
                            [&](Meter meter) { return orZero(values.startReadings[meter]) != 0; }))
    return {};
  const int start = values.startMonths[Utility::Electricity];
  const YearDays days(*year, start);
  if (today > days.latest()) return {};
  const MonthNames names = rotatedMonthNames(start);
  std::vector<std::string> unread;
  for (int k = kMonths - 1; k >= 0 && !isRead(rows, values, calendarMonth(start, k)); --k)
    if (days.end(k) < today) unread.insert(unread.begin(), names[k]);
  return unread.empty() ? std::string() : sentence(unread);
}

std::string unreadMonths(const YearSession& session) {
  Rows rows;
  for (Meter meter : kMeters) rows[meter] = session.rows().months(meter);
  return unreadMonths(rows, session.values(), session.path(), session.openedOn());
}

}  // namespace yearbook
