#include "base/GermanDate.h"

#include <charconv>
#include <ctime>

namespace base {
namespace {

std::optional<int> digits(std::string_view text, std::size_t most) {
  if (text.empty() || text.size() > most) return std::nullopt;
  int value = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || stop != text.data() + text.size() || text[0] == '-')
    return std::nullopt;
  return value;
}

std::optional<int> fullYear(std::string_view text) {
  const auto year = digits(text, 4);
  if (!year) return std::nullopt;
  if (text.size() <= 2) return *year < 30 ? 2000 + *year : 1900 + *year;
  if (*year < 100) return std::nullopt;
  return year;
}

std::string twoDigits(unsigned value) {
  return {static_cast<char>('0' + value / 10), static_cast<char>('0' + value % 10)};
}

}  // namespace

int monthNumber(std::string_view name) {
  for (std::size_t i = 0; i < kMonthNames.size(); ++i)
    if (kMonthNames[i] == name) return static_cast<int>(i) + 1;
  return 0;
}

std::optional<Date> parseDate(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  const std::size_t first = text.find('.');
  if (first == std::string_view::npos) return std::nullopt;
  const std::size_t second = text.find('.', first + 1);
  if (second == std::string_view::npos) return std::nullopt;
  const auto day = digits(text.substr(0, first), 2);
  const auto month = digits(text.substr(first + 1, second - first - 1), 2);
  const auto year = fullYear(text.substr(second + 1));
  if (!day || !month || !year) return std::nullopt;
  const Date date{std::chrono::year(*year), std::chrono::month(static_cast<unsigned>(*month)),
                  std::chrono::day(static_cast<unsigned>(*day))};
  if (!date.ok()) return std::nullopt;
  return date;
}

std::string formatLongDate(Date date) {
  return twoDigits(static_cast<unsigned>(date.day())) + ' ' +
         std::string(kMonthNames[static_cast<unsigned>(date.month()) - 1]) + ", " +
         std::to_string(static_cast<int>(date.year()));
}

int daysBetween(Date a, Date b) {
  return static_cast<int>((std::chrono::sys_days(b) - std::chrono::sys_days(a)).count());
}

Moment SystemClock::now() const {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  const Date date{std::chrono::year(local.tm_year + 1900),
                  std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)),
                  std::chrono::day(static_cast<unsigned>(local.tm_mday))};
  return {date, std::chrono::hours(local.tm_hour) + std::chrono::minutes(local.tm_min) +
                    std::chrono::seconds(local.tm_sec)};
}

}  // namespace base
