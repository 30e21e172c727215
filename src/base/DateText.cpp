#include "base/DateText.h"

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

}  // namespace base
