#include "base/GermanNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/Trim.h"

namespace base {
namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// "1.234", "12.345.678": one to three digits without a leading zero, then groups of three.
bool isGrouped(std::string_view whole) {
  const std::size_t first = whole.find('.');
  if (first == std::string_view::npos || first == 0 || first > 3 || whole[0] == '0') return false;
  for (std::size_t i = first; i < whole.size(); i += 4) {
    if (whole[i] != '.' || i + 4 > whole.size()) return false;
    if (!std::all_of(whole.begin() + i + 1, whole.begin() + i + 4, isDigit)) return false;
  }
  return true;
}

}  // namespace

std::optional<double> parseNumber(std::string_view text) {
  text = trimmed(text);
  std::string plain;
  if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
    if (text[0] == '-') plain = '-';
    text.remove_prefix(1);
  }
  const auto allowed = [](char c) { return isDigit(c) || c == ',' || c == '.'; };
  if (text.empty() || !std::all_of(text.begin(), text.end(), allowed)) return std::nullopt;
  if (std::none_of(text.begin(), text.end(), isDigit)) return std::nullopt;

  const std::size_t comma = text.find(',');
  std::string_view whole = text.substr(0, comma);
  const std::string_view fraction =
      comma == std::string_view::npos ? std::string_view() : text.substr(comma + 1);
  if (fraction.find_first_of(",.") != std::string_view::npos) return std::nullopt;
  const auto points = std::count(whole.begin(), whole.end(), '.');
  if (points > 0 && isGrouped(whole)) {
    std::copy_if(whole.begin(), whole.end(), std::back_inserter(plain), isDigit);
  } else if (points == 0 || (points == 1 && comma == std::string_view::npos)) {
    plain += whole;
  } else {
    return std::nullopt;
  }
  if (comma != std::string_view::npos) (plain += '.') += fraction;

  double value = 0;
  const char* end = plain.data() + plain.size();
  const auto [stop, error] = std::from_chars(plain.data(), end, value, std::chars_format::fixed);
  if (error != std::errc() || stop != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::string groupThousands(std::string_view digits) {
  std::string result;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) result += '.';
    result += digits[i];
  }
  return result;
}

namespace {

// The value as decimal digits with that many decimals, point, rounded half away from zero on its
// shortest decimal form: 2.675 becomes 2.68, as a person would round what they see.
std::string fixedDigits(double magnitude, int decimals) {
  std::array<char, 400> buffer{};
  const auto shortest = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                      std::chars_format::fixed);
  std::string text(buffer.data(), shortest.ptr);
  std::size_t point = text.find('.');
  if (point == std::string::npos) {
    point = text.size();
    text += '.';
  }
  const std::size_t wanted = point + 1 + static_cast<std::size_t>(decimals);
  const bool up = text.size() > wanted && text[wanted] >= '5';
  text.resize(wanted, '0');
  for (std::size_t i = text.size(); up && i-- > 0;) {
    if (text[i] == '.') continue;
    if (text[i] != '9') {
      ++text[i];
      return text;
    }
    text[i] = '0';
    if (i == 0) text.insert(text.begin(), '1');
  }
  return text;
}

}  // namespace

std::string formatNumber(double value, int decimals) {
  if (!std::isfinite(value)) return {};
  const std::string digits = fixedDigits(std::fabs(value), decimals);
  const std::size_t point = digits.find('.');
  std::string text = groupThousands(std::string_view(digits).substr(0, point));
  if (decimals > 0) (text += ',') += digits.substr(point + 1);
  const bool zero = digits.find_first_of("123456789") == std::string::npos;
  return value < 0 && !zero ? '-' + text : text;
}

std::string formatShort(double value, int maxDecimals, bool grouped) {
  std::string text = formatNumber(value, maxDecimals);
  if (text.find(',') != std::string::npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == ',') text.pop_back();
  }
  if (!grouped) std::erase(text, '.');
  return text;
}

}  // namespace base
