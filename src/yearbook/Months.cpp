#include "yearbook/Months.h"

#include "base/GermanDate.h"

namespace yearbook {

int calendarMonth(int startMonth, int position) {
  const int start = startMonth >= 1 && startMonth <= kMonths ? startMonth : 1;
  return (start - 1 + position) % kMonths + 1;
}

MonthNames rotatedMonthNames(int startMonth) {
  MonthNames names;
  for (int i = 0; i < kMonths; ++i)
    names[i] = base::kMonthNames[static_cast<std::size_t>(calendarMonth(startMonth, i) - 1)];
  return names;
}

}  // namespace yearbook
