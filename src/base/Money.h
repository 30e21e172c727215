#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

namespace base {

// An amount in euro with four decimals, as the currency columns of the year files hold it: a count
// of ten-thousandths. No implicit conversion in or out. Expressions are worked out in double and
// rounded once, half to even, when they become Money.
class Money {
 public:
  constexpr Money() = default;
  static constexpr Money fromTenThousandths(std::int64_t count) { return Money(count); }
  // Rounds half to even to four decimals; out of range or not a number becomes nullopt.
  static std::optional<Money> tryRoundHalfEven(double euro);
  // For figures that are shown and never stored: beyond the range they stay at its end, as sums do.
  static Money roundHalfEven(double euro);

  constexpr std::int64_t tenThousandths() const { return count_; }
  double toDouble() const { return static_cast<double>(count_) / 10000.0; }

  // Sums are exact; beyond the range they stay at its end.
  friend Money operator+(Money a, Money b);
  friend Money operator-(Money a, Money b);
  Money operator-() const { return Money() - *this; }
  Money& operator+=(Money other) { return *this = *this + other; }
  friend constexpr auto operator<=>(Money, Money) = default;  // NOLINT(modernize-use-nullptr)

 private:
  explicit constexpr Money(std::int64_t count) : count_(count) {}
  std::int64_t count_ = 0;
};

// "#,##0.00": German separators, the four-decimal value rounded half away from zero to cents.
// -8.485 is "-8,49", 1234.5 "1.234,50"; a value that rounds to zero has no sign.
std::string formatMoney(Money amount);

}  // namespace base
