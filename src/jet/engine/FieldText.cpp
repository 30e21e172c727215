#include "jet/engine/FieldText.h"

#include <algorithm>
#include <optional>

#include "base/TextCodec.h"
#include "jet/engine/Damage.h"

namespace jet {
namespace {

constexpr std::uint16_t kWindows1252 = 1252;
// A compressed text starts with the bytes FF FE; inside, a 0 byte changes between one and two bytes
// a character.
constexpr std::size_t kMarkSize = 2;
constexpr std::size_t kMinCompressed = 3;
constexpr std::size_t kMaxCompressed = 1024;

bool isCompressed(ByteSpan bytes) {
  return bytes.size() >= kMarkSize && bytes[0] == 0xFF && bytes[1] == 0xFE;
}

Result<std::u16string> decompress(ByteSpan bytes) {
  std::u16string text;
  text.reserve(bytes.size());
  bool single = true;
  for (std::size_t i = kMarkSize; i < bytes.size();) {
    if (bytes[i] == 0) {
      single = !single;
      ++i;
    } else if (single) {
      text += static_cast<char16_t>(bytes[i++]);
    } else {
      if (i + 1 == bytes.size())
        return refuse(ErrorCode::Damaged, "a text ends within a character");
      text += static_cast<char16_t>(bytes[i] | bytes[i + 1] << 8);
      i += 2;
    }
  }
  return text;
}

bool isAscii(ByteSpan bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t b) { return b - 1u < 0x7Fu; });
}

// Most texts and names are plain ASCII, which needs no way through UTF-16.
std::optional<std::string> decodePlain(ByteSpan bytes) {
  if (isCompressed(bytes)) {
    const ByteSpan text = bytes.subspan(kMarkSize);
    if (!isAscii(text)) return std::nullopt;
    return std::string(text.begin(), text.end());
  }
  std::string text(bytes.size() / 2, '\0');
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (bytes[2 * i] >= 0x80 || bytes[2 * i + 1] != 0) return std::nullopt;
    text[i] = static_cast<char>(bytes[2 * i]);
  }
  return bytes.size() % 2 == 0 ? std::optional(std::move(text)) : std::nullopt;
}

Result<std::string> decodeUnicode(ByteSpan bytes) {
  if (auto text = decodePlain(bytes)) return std::move(*text);
  if (isCompressed(bytes)) {
    auto text = decompress(bytes);
    if (!text) return base::Failure(text.error());
    return base::fromUtf16(*text);
  }
  if (bytes.size() % 2 != 0) return refuse(ErrorCode::Damaged, "a text ends within a character");
  std::u16string text;
  text.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i < bytes.size(); i += 2)
    text += static_cast<char16_t>(bytes[i] | bytes[i + 1] << 8);
  return base::fromUtf16(text);
}

}  // namespace

Result<std::string> decodeText(const TextStorage& storage, ByteSpan bytes) {
  if (storage.form == format::TextForm::Unicode) return decodeUnicode(bytes);
  const bool plain = std::all_of(bytes.begin(), bytes.end(), [](auto b) { return b < 0x80; });
  if (!plain && storage.codePage != kWindows1252)
    return refuse(ErrorCode::Unsupported, "code page %1 is not known", storage.codePage);
  return base::fromWindows1252(base::asText(bytes));
}

Result<Bytes> encodeText(const TextStorage& storage, std::string_view text) {
  if (storage.form == format::TextForm::CodePage) {
    const bool plain = std::all_of(text.begin(), text.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (!plain && (storage.codePage != kWindows1252 || !base::fitsWindows1252(text)))
      return refuse(ErrorCode::InvalidValue, "the text has a character that the file cannot store");
    const std::string bytes = base::toWindows1252(text);
    return Bytes(bytes.begin(), bytes.end());
  }
  const std::u16string units = base::toUtf16(text);
  if (!units.empty() && units[0] == 0xFEFF)
    return refuse(ErrorCode::InvalidValue, "the text begins with a character that cannot be there");
  const bool narrow =
      std::all_of(units.begin(), units.end(), [](char16_t c) { return c >= 0x01 && c <= 0xFF; });
  const bool compress = storage.compressed && narrow && units.size() >= kMinCompressed &&
                        units.size() <= kMaxCompressed;
  Bytes bytes;
  bytes.reserve(kMarkSize + 2 * units.size());
  if (compress) {
    bytes = {0xFF, 0xFE};
    for (char16_t c : units) bytes.push_back(static_cast<std::uint8_t>(c));
  } else {
    for (char16_t c : units) {
      bytes.push_back(static_cast<std::uint8_t>(c & 0xFF));
      bytes.push_back(static_cast<std::uint8_t>(c >> 8));
    }
  }
  return bytes;
}

}  // namespace jet
