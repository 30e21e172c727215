#include "jet/engine/IndexKey.h"

#include <algorithm>

#include "base/TextCodec.h"
#include "jet/engine/Damage.h"
#include "jet/engine/IndexWeights.h"

namespace jet {
namespace {

using base::fail;

constexpr std::size_t kLongestText = 255;
constexpr std::uint8_t kZero = 0x00;
constexpr std::uint8_t kOnes = 0xFF;

// The value's bytes so that byte order is the order of values; descending comes afterwards.
void flip(Bytes& bytes, std::size_t from = 0) {
  for (std::size_t i = from; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(~bytes[i]);
}

// Big-endian, the top bit turned so that negative numbers come first.
Bytes integerBytes(std::int64_t value, std::size_t size) {
  Bytes bytes(size);
  for (std::size_t i = 0; i < size; ++i)
    bytes[size - 1 - i] = static_cast<std::uint8_t>(value >> (8 * i));
  bytes[0] ^= 0x80;
  return bytes;
}

template <class Unsigned, class Number>
Bytes floatingBytes(Number value) {
  const base::Stored<Unsigned, std::endian::big> stored = std::bit_cast<Unsigned>(value);
  Bytes bytes(sizeof(stored));
  std::memcpy(bytes.data(), &stored, sizeof(stored));
  if ((bytes[0] & 0x80) != 0)
    flip(bytes);
  else
    bytes[0] ^= 0x80;
  return bytes;
}

// Blocks of eight, each with a mark behind it: 9 when more follow, else its length.
Bytes binaryBytes(base::ByteSpan value, bool ascending) {
  constexpr std::size_t kBlock = 8;
  constexpr std::uint8_t kMore = 9;
  Bytes bytes;
  for (std::size_t start = 0; start < value.size(); start += kBlock) {
    const std::size_t length = std::min(kBlock, value.size() - start);
    const bool more = start + kBlock < value.size();
    Bytes block(value.begin() + static_cast<std::ptrdiff_t>(start),
                value.begin() + static_cast<std::ptrdiff_t>(start + length));
    block.resize(kBlock);
    if (!more) block.push_back(static_cast<std::uint8_t>(length));
    if (!ascending) flip(block);
    if (more) block.push_back(kMore);
    bytes.insert(bytes.end(), block.begin(), block.end());
  }
  return bytes;
}

// First three groups as numbers, as a GUID is shown.
Bytes displayOrder(const Guid& guid) {
  constexpr std::array<std::size_t, 16> kOrder = {3, 2, 1,  0,  5,  4,  7,  6,
                                                  8, 9, 10, 11, 12, 13, 14, 15};
  Bytes bytes;
  for (const std::size_t i : kOrder) bytes.push_back(guid.bytes[i]);
  return bytes;
}

// The sign byte is the same in both directions.
Bytes decimalBytes(const Decimal& value, bool ascending) {
  Bytes bytes;
  for (const std::uint32_t word : value.magnitude)
    for (const int shift : {24, 16, 8, 0})
      bytes.push_back(static_cast<std::uint8_t>(word >> shift));
  if (value.negative == ascending) flip(bytes);
  bytes.insert(bytes.begin(), value.negative ? kZero : kOnes);
  return bytes;
}

template <class Text>
void prepare(Text& text) {
  if (text.size() > kLongestText) text.resize(kLongestText);
  while (!text.empty() && text.back() == ' ') text.pop_back();
}

void addWeight(Bytes& bytes, const CharacterWeight& weight) {
  bytes.insert(bytes.end(), weight.bytes.begin(), weight.bytes.begin() + weight.count);
}

// Weights, then the accents, then the characters without weight and where they stand.
Result<Bytes> general4Bytes(const std::string& value, bool ascending) {
  constexpr std::uint8_t kEndOfPart = 1;
  constexpr std::uint8_t kNoAccent = 2;
  std::u32string text = base::toUtf32(value);
  prepare(text);
  Bytes bytes;
  Bytes accents;
  Bytes ignorable;
  std::size_t weighted = 0;
  for (const char32_t character : text) {
    if (character > 0xFF) return refuse(ErrorCode::Unsupported, "a character cannot be indexed");
    const CharacterWeight& weight = general4Weights()[character];
    if (weight.ignorableCode != 0) {
      const std::size_t place = 0x8000 | (7 + 4 * weighted);
      for (const std::size_t byte : {place >> 8, place & 0xFF, std::size_t{6}})
        ignorable.push_back(static_cast<std::uint8_t>(byte));
      ignorable.push_back(weight.ignorableCode);
    }
    if (weight.count == 0) continue;
    addWeight(bytes, weight);
    if (weight.accent != 0) {
      accents.resize(weighted, kNoAccent);
      accents.push_back(weight.accent);
    }
    ++weighted;
  }
  bytes.push_back(kEndOfPart);
  bytes.insert(bytes.end(), accents.begin(), accents.end());
  if (!ignorable.empty()) {
    bytes.insert(bytes.end(), 3, kEndOfPart);
    bytes.insert(bytes.end(), ignorable.begin(), ignorable.end());
  }
  bytes.push_back(0);
  if (!ascending) {
    flip(bytes);
    bytes.push_back(0);
  }
  return bytes;
}

// Weights, then the accents as nibbles between zeros.
Result<Bytes> general3Bytes(const std::string& value, bool ascending) {
  constexpr std::uint8_t kNoAccent = 2;
  if (!base::fitsWindows1252(value))
    return refuse(ErrorCode::Unsupported, "a character cannot be indexed");
  std::string text = base::toWindows1252(value);
  prepare(text);
  Bytes bytes;
  Bytes nibbles = {0};
  std::size_t letters = 0;
  for (const char character : text) {
    const CharacterWeight& weight = general3Weights()[static_cast<unsigned char>(character)];
    addWeight(bytes, weight);
    letters += weight.letters;
    if (weight.accent == 0) continue;
    nibbles.insert(nibbles.end(), letters, kNoAccent);
    nibbles.push_back(weight.accent);
    letters = 0;
  }
  if (nibbles.size() > 1) nibbles.push_back(0);
  if (nibbles.size() % 2 != 0) nibbles.push_back(0);
  for (std::size_t i = 0; i < nibbles.size(); i += 2)
    bytes.push_back(static_cast<std::uint8_t>(nibbles[i] << 4 | nibbles[i + 1]));
  if (!ascending) flip(bytes);
  return bytes;
}

Result<Bytes> textBytes(const KeyPart& part, const std::string& value) {
  switch (part.textOrder) {
    case TextOrder::General3:
      return general3Bytes(value, part.ascending);
    case TextOrder::General4:
      return general4Bytes(value, part.ascending);
    case TextOrder::Unknown:
      break;
  }
  return refuse(ErrorCode::Unsupported, "the file's sort order is not known");
}

// The simple types; the same bytes flipped when descending.
Result<Bytes> plainBytes(ColumnType type, const Value& value) {
  const auto* integer = std::get_if<std::int64_t>(&value);
  if (type == ColumnType::Byte && integer) return Bytes{static_cast<std::uint8_t>(*integer)};
  if (type == ColumnType::Integer && integer) return integerBytes(*integer, 2);
  if (type == ColumnType::Long && integer) return integerBytes(*integer, 4);
  const auto* truth = std::get_if<bool>(&value);
  if (type == ColumnType::Boolean && truth) return Bytes{*truth ? kZero : kOnes};
  const auto* money = std::get_if<base::Money>(&value);
  if (type == ColumnType::Currency && money) return integerBytes(money->tenThousandths(), 8);
  const auto* single = std::get_if<float>(&value);
  if (type == ColumnType::Single && single) return floatingBytes<std::uint32_t>(*single);
  const auto* real = std::get_if<double>(&value);
  if (type == ColumnType::Double && real) return floatingBytes<std::uint64_t>(*real);
  const auto* date = std::get_if<DateTime>(&value);
  if (type == ColumnType::DateTime && date) return floatingBytes<std::uint64_t>(date->days);
  return refuse(ErrorCode::Unsupported, "a column of this type cannot be indexed");
}

Result<Bytes> valueBytes(const KeyPart& part, const Value& value) {
  const bool text = part.type == ColumnType::Text || part.type == ColumnType::Memo;
  if (const auto* string = std::get_if<std::string>(&value); string && text)
    return textBytes(part, *string);
  if (const auto* guid = std::get_if<Guid>(&value); guid && part.type == ColumnType::Guid)
    return binaryBytes(displayOrder(*guid), part.ascending);
  if (const auto* binary = std::get_if<Bytes>(&value);
      binary && !binary->empty() && part.type == ColumnType::Binary)
    return binaryBytes(*binary, part.ascending);
  if (const auto* decimal = std::get_if<Decimal>(&value);
      decimal && part.type == ColumnType::Numeric)
    return decimalBytes(*decimal, part.ascending);
  auto bytes = plainBytes(part.type, value);
  if (bytes && !part.ascending) flip(*bytes);
  return bytes;
}

}  // namespace

Result<Bytes> encodeKeyPart(const KeyPart& part, const Value& value) {
  constexpr std::uint8_t kNull = 0x00;
  constexpr std::uint8_t kNotNull = 0x7F;
  const bool absent = isNull(value) && part.type != ColumnType::Boolean;
  std::uint8_t flag = absent ? kNull : kNotNull;
  if (!part.ascending) flag = static_cast<std::uint8_t>(~flag);
  if (absent) return Bytes{flag};
  auto bytes = valueBytes(part, isNull(value) ? Value(false) : value);
  if (bytes) bytes->insert(bytes->begin(), flag);
  return bytes;
}

Result<Bytes> encodeKey(const std::vector<KeyPart>& parts, const std::vector<Value>& values) {
  Bytes key;
  for (std::size_t i = 0; i < parts.size() && i < values.size(); ++i) {
    auto part = encodeKeyPart(parts[i], values[i]);
    if (!part) return part;
    key.insert(key.end(), part->begin(), part->end());
  }
  return key;
}

}  // namespace jet
