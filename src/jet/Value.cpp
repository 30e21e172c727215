#include "jet/Value.h"

#include <algorithm>

namespace jet {
namespace {

using Words = std::array<std::uint32_t, 4>;  // most significant first

// words * 10 + digit; false when that needs more than 128 bits.
bool appendDigit(Words& words, std::uint32_t digit) {
  std::uint64_t carry = digit;
  for (auto word = words.rbegin(); word != words.rend(); ++word) {
    carry += std::uint64_t{*word} * 10;
    *word = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
  return carry == 0;
}

// Divides by 10 and returns the digit that drops out.
std::uint32_t dropDigit(Words& words) {
  std::uint64_t rest = 0;
  for (std::uint32_t& word : words) {
    rest = rest << 32 | word;
    word = static_cast<std::uint32_t>(rest / 10);
    rest %= 10;
  }
  return static_cast<std::uint32_t>(rest);
}

}  // namespace

double Decimal::toDouble() const {
  double value = 0;
  for (const std::uint32_t word : magnitude) value = value * 4294967296.0 + word;
  for (int i = 0; i < scale; ++i) value /= 10;
  return negative ? -value : value;
}

std::string Decimal::toString() const {
  std::string digits;
  Words rest = magnitude;
  while (rest != Words{}) digits += static_cast<char>('0' + dropDigit(rest));
  while (digits.size() <= scale) digits += '0';
  if (scale > 0) digits.insert(scale, 1, '.');
  if (negative && digits.find_first_not_of("0.") != std::string::npos) digits += '-';
  std::reverse(digits.begin(), digits.end());
  return digits;
}

std::optional<Decimal> Decimal::parse(std::string_view text) {
  Decimal value;
  value.negative = text.starts_with('-');
  if (value.negative) text.remove_prefix(1);
  bool fraction = false;
  bool anyDigit = false;
  for (const char c : text) {
    if (c == '.' && !fraction) {
      fraction = true;
      continue;
    }
    if (c < '0' || c > '9' || value.scale == UINT8_MAX) return std::nullopt;
    if (!appendDigit(value.magnitude, static_cast<std::uint32_t>(c - '0'))) return std::nullopt;
    if (fraction) ++value.scale;
    anyDigit = true;
  }
  if (!anyDigit) return std::nullopt;
  return value;
}

std::optional<Decimal> Decimal::rescaled(std::uint8_t newScale) const {
  Decimal value = *this;
  for (; value.scale < newScale; ++value.scale)
    if (!appendDigit(value.magnitude, 0)) return std::nullopt;
  for (; value.scale > newScale; --value.scale)
    if (dropDigit(value.magnitude) != 0) return std::nullopt;
  return value;
}

}  // namespace jet
