#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/Bytes.h"
#include "base/Money.h"

namespace jet {

// Column types by their number in the file.
enum class ColumnType : std::uint8_t {
  Boolean = 1,
  Byte = 2,
  Integer = 3,  // 16 bits
  Long = 4,     // 32 bits
  Currency = 5,
  Single = 6,
  Double = 7,
  DateTime = 8,
  Binary = 9,
  Text = 10,
  Ole = 11,
  Memo = 12,
  Guid = 15,
  Numeric = 16,      // decimal with the column's scale
  FixedBinary = 17,  // Access' own tables
};

// Days since 1899-12-30, time as fraction; before that day the time still counts forwards.
struct DateTime {
  double days = 0;
  bool operator==(const DateTime&) const = default;
};

struct Guid {
  std::array<std::uint8_t, 16> bytes{};  // as stored
  bool operator==(const Guid&) const = default;
};

// value = (negative ? -1 : 1) * magnitude / 10^scale; words most significant first.
struct Decimal {
  bool negative = false;
  std::uint8_t scale = 0;
  std::array<std::uint32_t, 4> magnitude{};
  bool operator==(const Decimal&) const = default;
  double toDouble() const;
  std::string toString() const;  // "-12.50", point as separator

  // Digits with an optional sign and one point; nullopt for anything else and for what needs more
  // than 128 bits.
  static std::optional<Decimal> parse(std::string_view text);
  // The same number with another scale; nullopt when that would lose digits or not fit.
  std::optional<Decimal> rescaled(std::uint8_t newScale) const;
};

struct Null {
  bool operator==(const Null&) const = default;
};

// One field of one row. Byte, Integer and Long are int64; Single is float, Double double; texts
// are UTF-8. A Boolean column is never Null.
using Value = std::variant<Null, bool, std::int64_t, float, double, base::Money, DateTime,
                           std::string, base::Bytes, Guid, Decimal>;

inline bool isNull(const Value& value) {
  return std::holds_alternative<Null>(value);
}

}  // namespace jet
