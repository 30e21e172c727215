#pragma once

#include <optional>
#include <string>
#include <string_view>

// Numbers as a German household types and reads them: comma for decimals, points in groups of
// three. Independent of the system's locale.
namespace base {

// "4", "4,0", "-3", "1.234,5", ",5" and blanks around it. A point counts as a thousands separator
// only in exact groups ("1.234", "12.345.678"); any other single point without a comma is a decimal
// point ("12.5" is 12.5, never 125). Everything else, the empty text included, is nullopt.
std::optional<double> parseNumber(std::string_view text);

// The value with exactly that many decimals, rounded half away from zero, grouped by thousands:
// formatNumber(1234.5, 1) is "1.234,5". Not finite gives "".
std::string formatNumber(double value, int decimals);

// As many decimals as the value has, at most maxDecimals, no trailing zeros: "0,19", "19", "7,5".
std::string formatShort(double value, int maxDecimals = 6, bool grouped = false);

// Points between groups of three in a run of digits.
std::string groupThousands(std::string_view digits);

}  // namespace base
