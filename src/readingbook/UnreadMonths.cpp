#include "readingbook/UnreadMonths.h"

#include <algorithm>

#include "readingbook/BookOfYear.h"

namespace readingbook {
namespace {

bool isReadIn(const YearSession& session, Meter meter, int month) {
  const int start = session.startMonth(utilityOf(meter));
  for (int k = 0; k < kMonths; ++k)
    if (yearbook::calendarMonth(start, k) == month &&
        yearbook::orZero(session.rows().of(meter).number(k, *factsOf(meter).reading)) != 0)
      return true;
  return false;
}

bool isInUse(const YearSession& session, Meter meter) {
  return yearbook::orZero(session.values().startReadings[meter]) != 0;
}

std::string sentence(const std::vector<std::string>& months) {
  std::string text;
  for (std::size_t i = 0; i < months.size(); ++i)
    text += (i == 0 ? "" : i + 1 == months.size() ? " und " : ", ") + months[i];
  return text + (months.size() == 1 ? " ist" : " sind") + " noch nicht abgelesen.";
}

}  // namespace

std::string unreadMonths(const YearSession& session) {
  const auto year = calendarYear(session, std::nullopt);
  const auto& meters = yearbook::kMeters;
  if (!year || std::none_of(meters.begin(), meters.end(),
                            [&](Meter meter) { return isInUse(session, meter); }))
    return {};
  const YearDays days = daysOf(session, Meter::Day, *year);
  if (session.openedOn() > days.latest()) return {};
  const auto names = session.monthNames(yearbook::Utility::Electricity);
  const int start = session.startMonth(yearbook::Utility::Electricity);
  std::vector<std::string> unread;
  for (int k = kMonths - 1; k >= 0; --k) {
    const int month = yearbook::calendarMonth(start, k);
    if (std::any_of(meters.begin(), meters.end(),
                    [&](Meter meter) { return isReadIn(session, meter, month); }))
      break;
    if (days.end(k) < session.openedOn()) unread.insert(unread.begin(), names[k]);
  }
  return unread.empty() ? std::string() : sentence(unread);
}

}  // namespace readingbook
