#include "base/TextCodec.h"

#include <algorithm>
#include <array>

namespace base {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Code page 1252, bytes 80 to 9F; all others equal their code point.
constexpr std::array<char16_t, 32> kHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void append(std::string& text, char32_t c) {
  if (c < 0x80) {
    text += static_cast<char>(c);
  } else if (c < 0x800) {
    text += static_cast<char>(0xC0 | (c >> 6));
    text += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    text += static_cast<char>(0xE0 | (c >> 12));
    text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    text += static_cast<char>(0xF0 | (c >> 18));
    text += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// The byte for a character, or -1.
int byteFor(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<int>(c);
  const auto found = std::find(kHigh.begin(), kHigh.end(), c);
  return found == kHigh.end() ? -1 : static_cast<int>(0x80 + (found - kHigh.begin()));
}

}  // namespace

std::u32string toUtf32(std::string_view utf8) {
  std::u32string result;
  result.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    const int length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
    if (length == 0 || lead > 0xF4 || i + static_cast<std::size_t>(length) > utf8.size()) {
      result += kReplacement;
      ++i;
      continue;
    }
    char32_t c = length == 1 ? lead : lead & (0x7F >> length);
    int used = 1;
    while (used < length && (static_cast<unsigned char>(utf8[i + used]) & 0xC0) == 0x80)
      c = (c << 6) | (static_cast<unsigned char>(utf8[i + used++]) & 0x3F);
    const bool overlong = (length == 3 && c < 0x800) || (length == 4 && c < 0x10000);
    const bool sound = used == length && !overlong && c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
    result += sound ? c : kReplacement;
    i += static_cast<std::size_t>(sound ? length : 1);
  }
  return result;
}

std::string fromUtf32(std::u32string_view text) {
  std::string result;
  for (char32_t c : text) append(result, c);
  return result;
}

std::u16string toUtf16(std::string_view utf8) {
  std::u16string result;
  for (char32_t c : toUtf32(utf8)) {
    if (c < 0x10000) {
      result += static_cast<char16_t>(c);
    } else {
      result += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
      result += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    }
  }
  return result;
}

std::string fromUtf16(std::u16string_view utf16) {
  std::string result;
  for (std::size_t i = 0; i < utf16.size(); ++i) {
    const char16_t c = utf16[i];
    const bool pair = c >= 0xD800 && c < 0xDC00 && i + 1 < utf16.size() && utf16[i + 1] >= 0xDC00 &&
                      utf16[i + 1] < 0xE000;
    if (pair) {
      append(result, 0x10000 + ((char32_t(c) - 0xD800) << 10) + (char32_t(utf16[++i]) - 0xDC00));
    } else {
      append(result, c >= 0xD800 && c < 0xE000 ? kReplacement : char32_t(c));
    }
  }
  return result;
}

std::string fromWindows1252(std::string_view bytes) {
  std::string result;
  result.reserve(bytes.size());
  for (char raw : bytes) {
    const auto byte = static_cast<unsigned char>(raw);
    append(result, byte >= 0x80 && byte < 0xA0 ? char32_t(kHigh[byte - 0x80]) : char32_t(byte));
  }
  return result;
}

std::string toWindows1252(std::string_view utf8) {
  std::string result;
  for (char32_t c : toUtf32(utf8)) {
    const int byte = byteFor(c);
    result += byte < 0 ? '?' : static_cast<char>(byte);
  }
  return result;
}

bool fitsWindows1252(std::string_view utf8) {
  const std::u32string text = toUtf32(utf8);
  return std::all_of(text.begin(), text.end(), [](char32_t c) { return byteFor(c) >= 0; });
}

}  // namespace base
