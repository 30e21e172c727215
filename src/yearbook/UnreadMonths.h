#pragma once

#include <string>

#include "base/GermanDate.h"
#include "yearbook/FieldValues.h"

namespace yearbook {

class YearSession;

// "Oktober und November sind noch nicht abgelesen." when the last month that any meter was read in
// lies more than one month behind the calendar; "" otherwise, for a year without start readings,
// and for one that is over. path tells the calendar year where the start date does not.
std::string unreadMonths(const PerMeter<PerMonth<MeterRow>>& rows, const FieldValues& values,
                         std::string_view path, base::Date today);
std::string unreadMonths(const YearSession& session);

}  // namespace yearbook
