#include "base/Money.h"

#include <cmath>
#include <limits>

#include "base/GermanNumber.h"

namespace base {
namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

std::int64_t clampedSum(std::int64_t a, std::int64_t b) {
  if (b > 0 && a > kMax - b) return kMax;
  if (b < 0 && a < kMin - b) return kMin;
  return a + b;
}

}  // namespace

std::optional<Money> Money::tryRoundHalfEven(double euro) {
  // nearbyint in the default rounding mode is half to even.
  const double scaled = std::nearbyint(euro * 10000.0);
  if (!(scaled > -9.2e18 && scaled < 9.2e18)) return std::nullopt;
  return Money(static_cast<std::int64_t>(scaled));
}

Money Money::roundHalfEven(double euro) {
  if (const auto money = tryRoundHalfEven(euro)) return *money;
  return Money(euro < 0 ? kMin : kMax);
}

Money operator+(Money a, Money b) {
  return Money(clampedSum(a.count_, b.count_));
}

Money operator-(Money a, Money b) {
  if (b.count_ == kMin) return Money(clampedSum(clampedSum(a.count_, kMax), 1));
  return Money(clampedSum(a.count_, -b.count_));
}

std::string formatMoney(Money amount) {
  const std::int64_t count = amount.tenThousandths();
  const bool negative = count < 0;
  const std::uint64_t size =
      negative ? 0 - static_cast<std::uint64_t>(count) : static_cast<std::uint64_t>(count);
  const std::uint64_t cents = (size + 50) / 100;
  std::string text = groupThousands(std::to_string(cents / 100)) + ',';
  text += static_cast<char>('0' + cents % 100 / 10);
  text += static_cast<char>('0' + cents % 10);
  return negative && cents != 0 ? '-' + text : text;
}

}  // namespace base
