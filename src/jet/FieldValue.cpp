#include "jet/FieldValue.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "base/TextCodec.h"

namespace jet {
namespace {

using base::Bytes;
using base::ByteSpan;
using base::ErrorCode;
using base::Money;
using base::Result;

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

std::optional<std::size_t> sizeOf(ColumnType type) {
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

}  // namespace

Result<Value> decodeField(const ColumnDef& def, ByteSpan bytes) {
  const ColumnType type = def.column.type;
  if (const auto size = sizeOf(type); size && bytes.size() != *size)
    return base::fail(ErrorCode::Damaged, "Wert hat die falsche Länge");
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

}  // namespace jet
