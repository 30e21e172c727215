#include "jet/engine/FieldValue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/TextCodec.h"
#include "jet/engine/Damage.h"

namespace jet {
namespace {

using base::Money;

template <class Stored>
auto stored(ByteSpan bytes) {
  Stored value;
  std::memcpy(&value, bytes.data(), sizeof value);
  return value.get();
}

// Sign byte, then four words of the magnitude, the most significant first, each little-endian.
constexpr std::uint8_t kNumericNegative = 0x80;

Decimal decodeNumeric(ByteSpan bytes, int scale) {
  Decimal value;
  value.negative = (bytes[0] & kNumericNegative) != 0;
  value.scale = static_cast<std::uint8_t>(scale);
  for (std::size_t i = 0; i < value.magnitude.size(); ++i)
    value.magnitude[i] = stored<base::le32>(bytes.subspan(1 + 4 * i, 4));
  return value;
}

base::Failure invalid(const char* reason) {
  return refuse(ErrorCode::InvalidValue, reason);
}
constexpr char kWrongKind[] = "the value is of another kind than the column";
constexpr char kOutOfRange[] = "the number does not fit the column";

template <class Stored, class Number>
Bytes packed(Number number) {
  const Stored raw = number;
  Bytes bytes(sizeof raw);
  std::memcpy(bytes.data(), &raw, sizeof raw);
  return bytes;
}

// Every number as a decimal. A binary fraction counts as the shortest decimal that stands for it:
// what a person reads is what has to fit.
template <class Float>
std::optional<Decimal> shortestDecimal(Float number) {
  if (!std::isfinite(number)) return std::nullopt;
  std::array<char, 512> text;
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
  return Decimal::parse({text.data(), static_cast<std::size_t>(end.ptr - text.data())});
}

std::optional<Decimal> exactDecimal(const Value& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value))
    return Decimal::parse(std::to_string(*number));
  if (const auto* number = std::get_if<float>(&value)) return shortestDecimal(*number);
  if (const auto* number = std::get_if<double>(&value)) return shortestDecimal(*number);
  if (const auto* decimal = std::get_if<Decimal>(&value)) return *decimal;
  if (const auto* money = std::get_if<Money>(&value)) {
    auto decimal = Decimal::parse(std::to_string(money->tenThousandths()));
    if (decimal) decimal->scale = 4;
    return decimal;
  }
  return std::nullopt;
}

bool isNumber(const Value& value) {
  return std::holds_alternative<std::int64_t>(value) || std::holds_alternative<float>(value) ||
         std::holds_alternative<double>(value) || std::holds_alternative<Money>(value) ||
         std::holds_alternative<Decimal>(value);
}

// The number times 10^scale, if that is whole and has 64 bits.
std::optional<std::int64_t> scaledInteger(const Value& value, std::uint8_t scale) {
  auto decimal = exactDecimal(value);
  if (decimal) decimal = decimal->rescaled(scale);
  if (!decimal || decimal->magnitude[0] != 0 || decimal->magnitude[1] != 0) return std::nullopt;
  const std::uint64_t magnitude =
      std::uint64_t{decimal->magnitude[2]} << 32 | decimal->magnitude[3];
  constexpr std::uint64_t kLimit = std::uint64_t{1} << 63;
  if (decimal->negative)
    return magnitude <= kLimit ? std::optional(static_cast<std::int64_t>(0 - magnitude))
                               : std::nullopt;
  return magnitude < kLimit ? std::optional(static_cast<std::int64_t>(magnitude)) : std::nullopt;
}

double roundedDouble(const Value& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) return static_cast<double>(*number);
  if (const auto* number = std::get_if<float>(&value)) return *number;
  if (const auto* money = std::get_if<Money>(&value)) return money->toDouble();
  if (const auto* decimal = std::get_if<Decimal>(&value)) return decimal->toDouble();
  return std::get<double>(value);
}

template <class Stored>
Result<Bytes> encodeInteger(const Value& value, std::int64_t lowest, std::int64_t highest) {
  const auto number = scaledInteger(value, 0);
  if (!number || *number < lowest || *number > highest) return invalid(kOutOfRange);
  return packed<Stored>(static_cast<decltype(Stored().get())>(*number));
}

Result<Bytes> encodeNumeric(const Column& column, const Value& value) {
  auto decimal = exactDecimal(value);
  if (decimal) decimal = decimal->rescaled(static_cast<std::uint8_t>(column.scale));
  if (!decimal) return invalid(kOutOfRange);
  std::string digits = decimal->toString();
  digits.erase(std::remove_if(digits.begin(), digits.end(), [](char c) { return c < '0'; }),
               digits.end());
  digits.erase(0, digits.find_first_not_of('0'));
  if (digits.size() > static_cast<std::size_t>(column.precision)) return invalid(kOutOfRange);
  Bytes bytes = {static_cast<std::uint8_t>(decimal->negative ? kNumericNegative : 0)};
  for (const std::uint32_t word : decimal->magnitude) {
    const Bytes raw = packed<base::le32>(word);
    bytes.insert(bytes.end(), raw.begin(), raw.end());
  }
  return bytes;
}

Result<Bytes> encodeNumber(const Column& column, const Value& value) {
  if (!isNumber(value)) return invalid(kWrongKind);
  switch (column.type) {
    case ColumnType::Byte:
      return encodeInteger<base::Stored<std::uint8_t, std::endian::little>>(value, 0, 255);
    case ColumnType::Integer:
      return encodeInteger<base::le16s>(value, INT16_MIN, INT16_MAX);
    case ColumnType::Long:
      return encodeInteger<base::le32s>(value, INT32_MIN, INT32_MAX);
    case ColumnType::Currency: {
      const auto count = scaledInteger(value, 4);
      if (!count) return invalid(kOutOfRange);
      return packed<base::le64s>(*count);
    }
    case ColumnType::Single: {
      const double number = roundedDouble(value);
      if (!(std::abs(number) <= std::numeric_limits<float>::max())) return invalid(kOutOfRange);
      return packed<base::lef32>(static_cast<float>(number));
    }
    case ColumnType::Double: {
      const double number = roundedDouble(value);
      if (!std::isfinite(number)) return invalid(kOutOfRange);
      return packed<base::lef64>(number);
    }
    default:
      return encodeNumeric(column, value);
  }
}

Result<Bytes> encodeTextField(const ColumnDef& def, const std::string& text) {
  TextStorage storage = def.storage;
  const bool fixed = def.isFixed();
  if (fixed) storage.compressed = false;
  const std::size_t width = storage.form == format::TextForm::Unicode ? 2 : 1;
  const std::size_t limit = static_cast<std::size_t>(def.column.length) / width;
  std::size_t length = width == 2 ? base::toUtf16(text).size() : base::toUtf32(text).size();
  if (def.column.type == ColumnType::Text && length > limit)
    return invalid("the text is too long for the column");
  if (!fixed) return encodeText(storage, text);
  return encodeText(storage, text + std::string(limit - length, ' '));
}

Result<Bytes> encodeBinary(const ColumnDef& def, const Bytes& value) {
  const auto limit = static_cast<std::size_t>(def.column.length);
  if (def.column.type == ColumnType::Ole) return value;
  if (value.size() > limit) return invalid("the data are too long for the column");
  Bytes bytes = value;
  if (def.isFixed()) bytes.resize(limit);
  return bytes;
}

Result<Bytes> encodeDate(DateTime date) {
  // The years 100 to 9999.
  constexpr double kFirst = -657434, kEnd = 2958466;
  if (!(date.days >= kFirst && date.days < kEnd)) return invalid("the date is out of range");
  return packed<base::lef64>(date.days);
}

}  // namespace

std::optional<std::size_t> fixedSizeOf(ColumnType type) {
  switch (type) {
    case ColumnType::Byte:
      return 1;
    case ColumnType::Integer:
      return 2;
    case ColumnType::Long:
    case ColumnType::Single:
      return 4;
    case ColumnType::Currency:
    case ColumnType::Double:
    case ColumnType::DateTime:
      return 8;
    case ColumnType::Guid:
      return 16;
    case ColumnType::Numeric:
      return 17;
    default:
      return std::nullopt;
  }
}

Result<Value> decodeField(const ColumnDef& def, ByteSpan bytes) {
  const ColumnType type = def.column.type;
  if (const auto size = fixedSizeOf(type); size && bytes.size() != *size)
    return refuse(ErrorCode::Damaged, "a value has the wrong length");
  switch (type) {
    case ColumnType::Byte:
      return std::int64_t{bytes[0]};
    case ColumnType::Integer:
      return std::int64_t{stored<base::le16s>(bytes)};
    case ColumnType::Long:
      return std::int64_t{stored<base::le32s>(bytes)};
    case ColumnType::Currency:
      return Money::fromTenThousandths(stored<base::le64s>(bytes));
    case ColumnType::Single:
      return stored<base::lef32>(bytes);
    case ColumnType::Double:
      return stored<base::lef64>(bytes);
    case ColumnType::DateTime:
      return DateTime{stored<base::lef64>(bytes)};
    case ColumnType::Guid: {
      Guid guid;
      std::copy(bytes.begin(), bytes.end(), guid.bytes.begin());
      return guid;
    }
    case ColumnType::Numeric:
      return decodeNumeric(bytes, def.column.scale);
    case ColumnType::Text:
    case ColumnType::Memo: {
      auto text = decodeText(def.storage, bytes);
      if (!text) return base::Failure(text.error());
      return std::move(*text);
    }
    default:
      return Bytes(bytes.begin(), bytes.end());
  }
}

Result<Bytes> encodeField(const ColumnDef& def, const Value& value) {
  switch (def.column.type) {
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::Long:
    case ColumnType::Currency:
    case ColumnType::Single:
    case ColumnType::Double:
    case ColumnType::Numeric:
      return encodeNumber(def.column, value);
    case ColumnType::DateTime:
      if (const auto* date = std::get_if<DateTime>(&value)) return encodeDate(*date);
      return invalid(kWrongKind);
    case ColumnType::Guid:
      if (const auto* guid = std::get_if<Guid>(&value))
        return Bytes(guid->bytes.begin(), guid->bytes.end());
      return invalid(kWrongKind);
    case ColumnType::Text:
    case ColumnType::Memo:
      if (const auto* text = std::get_if<std::string>(&value)) return encodeTextField(def, *text);
      return invalid(kWrongKind);
    case ColumnType::Binary:
    case ColumnType::Ole:
    case ColumnType::FixedBinary:
      if (const auto* bytes = std::get_if<Bytes>(&value)) return encodeBinary(def, *bytes);
      return invalid(kWrongKind);
    default:
      return refuse(ErrorCode::Unsupported, "columns of this kind cannot be changed");
  }
}

}  // namespace jet
