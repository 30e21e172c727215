#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Code pages at the borders of the program; inside, every text is UTF-8.
namespace base {

// windows-1252. The five bytes that the code page leaves undefined (81 8D 8F 90 9D) become the
// control characters of the same number, so that a text survives the way there and back.
std::string fromWindows1252(std::string_view bytes);
// Characters that the code page does not have become "?".
std::string toWindows1252(std::string_view utf8);
bool fitsWindows1252(std::string_view utf8);

std::u16string toUtf16(std::string_view utf8);  // malformed input becomes U+FFFD
std::string fromUtf16(std::u16string_view utf16);
std::u32string toUtf32(std::string_view utf8);
std::string fromUtf32(std::u32string_view text);

}  // namespace base
