#include "jet/Value.h"

#include <algorithm>

namespace jet {

double Decimal::toDouble() const {
  double value = 0;
  for (const std::uint32_t word : magnitude) value = value * 4294967296.0 + word;
  for (int i = 0; i < scale; ++i) value /= 10;
  return negative ? -value : value;
}

std::string Decimal::toString() const {
  std::string digits;
  std::array<std::uint32_t, 4> rest = magnitude;
  while (std::any_of(rest.begin(), rest.end(), [](std::uint32_t word) { return word != 0; })) {
    std::uint64_t carry = 0;
    for (std::uint32_t& word : rest) {
      carry = carry << 32 | word;
      word = static_cast<std::uint32_t>(carry / 10);
      carry %= 10;
    }
    digits += static_cast<char>('0' + carry);
  }
  while (digits.size() <= scale) digits += '0';
  if (scale > 0) digits.insert(scale, 1, '.');
  if (negative && digits.find_first_not_of("0.") != std::string::npos) digits += '-';
  std::reverse(digits.begin(), digits.end());
  return digits;
}

}  // namespace jet
