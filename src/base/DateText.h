#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/GermanDate.h"

namespace base {

// "14.11.2026"
std::string formatDate(Date date);

// A date as a person types it: what parseDate() takes, the same with commas, which lie beside the
// digits on the number pad ("01,01,2026"), and without anything between ("01012026", "010126").
// For fields only: in a file a run of digits is a number.
std::optional<Date> parseTypedDate(std::string_view text);

}  // namespace base
