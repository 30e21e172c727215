#pragma once

#include <optional>
#include <string_view>

#include "yearbook/RecordSource.h"

namespace yearbook {

// What a typed start month means: whole numbers are rounded half to even before the range is
// looked at, blanks around them do not count.
struct StartMonthAnswer {
  enum class Kind { Cancelled, NotANumber, OutOfRange, Month };
  Kind kind = Kind::Cancelled;
  int month = 0;
};
StartMonthAnswer parseStartMonth(std::string_view text);

// Gives the twelve rows of a utility new month names from the start month on and moves the data of
// each month to the row that now bears its name. A row whose old name is no month keeps new name
// and old data. Within a transaction.
base::Result<void> shiftRows(RecordSource& rows, int startMonth);

}  // namespace yearbook
