#include "base/DateText.h"

#include <algorithm>

#include "base/Trim.h"

namespace base {
namespace {

std::string twoDigits(unsigned value) {
  return (value < 10 ? "0" : "") + std::to_string(value);
}

}  // namespace

std::string formatDate(Date date) {
  return twoDigits(static_cast<unsigned>(date.day())) + '.' +
         twoDigits(static_cast<unsigned>(date.month())) + '.' +
         std::to_string(static_cast<int>(date.year()));
}

std::optional<Date> parseTypedDate(std::string_view text) {
  std::string pointed(trimmed(text));
  std::replace(pointed.begin(), pointed.end(), ',', '.');
  const bool run = pointed.find_first_not_of("0123456789") == std::string::npos;
  if (run && (pointed.size() == 6 || pointed.size() == 8)) {
    pointed.insert(4, ".");
    pointed.insert(2, ".");
  }
  return parseDate(pointed);
}

}  // namespace base
