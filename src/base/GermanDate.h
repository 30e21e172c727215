#pragma once

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace base {

using Date = std::chrono::year_month_day;

inline constexpr std::array<std::string_view, 12> kMonthNames = {
    "Januar", "Februar", "März",      "April",   "Mai",      "Juni",
    "Juli",   "August",  "September", "Oktober", "November", "Dezember"};

// 1 to 12 for exactly one of the names above, 0 for any other text.
int monthNumber(std::string_view name);

// "1.1.2010", "01.01.2010"; a two-digit year is 2000 to 2029 or 1930 to 1999. Blanks around it are
// allowed. Years 100 to 9999. A day that the calendar does not have is no date.
std::optional<Date> parseDate(std::string_view text);

// "14 November, 2026"
std::string formatLongDate(Date date);

// Calendar days from a to b (b - a).
int daysBetween(Date a, Date b);

// A moment of a day.
struct Moment {
  Date date;
  std::chrono::seconds time{};  // since midnight
};

// Today's date comes from here, so that tests can set it.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual Moment now() const = 0;
  Date today() const { return now().date; }
};

class SystemClock final : public Clock {
 public:
  Moment now() const override;  // local time
};

class FixedClock final : public Clock {
 public:
  explicit FixedClock(Date date) : now_{date} {}
  Moment now() const override { return now_; }
  void set(Date date) { now_.date = date; }
  void setTime(std::chrono::seconds sinceMidnight) { now_.time = sinceMidnight; }

 private:
  Moment now_;
};

}  // namespace base
