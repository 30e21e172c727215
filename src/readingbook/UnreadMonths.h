#pragma once

#include <string>

#include "yearbook/YearSession.h"

namespace readingbook {

// "Oktober und November sind noch nicht abgelesen." when the last month that any meter was read in
// lies more than one month behind the calendar; "" otherwise, for a year without start readings,
// and for one that is over.
std::string unreadMonths(const yearbook::YearSession& session);

}  // namespace readingbook
