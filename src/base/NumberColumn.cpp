#include "base/NumberColumn.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/Trim.h"

namespace base {
namespace {

constexpr std::string_view kBlanks = " \t\xC2\xA0";

struct Style {
  char decimal;
  char group;
};
constexpr Style kGerman = {',', '.'};
constexpr Style kEnglish = {'.', ','};

bool isDigits(std::string_view text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Digits, or groups of three behind one to three digits of which the first is none of "0"; without
// the signs between the groups.
std::optional<std::string> wholePart(std::string_view text, char group) {
  const std::size_t first = text.find(group);
  if (first == std::string_view::npos)
    return isDigits(text) ? std::optional(std::string(text)) : std::nullopt;
  std::string digits(text.substr(0, first));
  if (!isDigits(digits) || digits.size() > 3 || digits[0] == '0') return std::nullopt;
  for (std::size_t at = first; at < text.size(); at += 4) {
    const std::string_view next = text.substr(at + 1, 3);
    if (text[at] != group || next.size() != 3 || !isDigits(next)) return std::nullopt;
    digits += next;
  }
  return digits;
}

std::optional<double> parseStyled(std::string_view text, Style style) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  const std::size_t sign = text.find(style.decimal);
  const auto whole = wholePart(text.substr(0, sign), style.group);
  if (!whole) return std::nullopt;
  std::string plain = (negative ? "-" : "") + *whole;
  if (sign != std::string_view::npos) {
    const std::string_view fraction = text.substr(sign + 1);
    if (!isDigits(fraction)) return std::nullopt;
    (plain += '.') += fraction;
  }
  double value = 0;
  const auto read = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (read.ec != std::errc() || !std::isfinite(value)) return std::nullopt;
  return value;
}

// The places of the cells that are no number in this style.
std::vector<std::size_t> unreadable(const std::vector<std::string_view>& cells, Style style) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < cells.size(); ++i)
    if (!cells[i].empty() && !parseStyled(cells[i], style)) places.push_back(i);
  return places;
}

}  // namespace

Result<std::vector<std::optional<double>>> parseNumberColumn(
    const std::vector<std::string>& cells) {
  std::vector<std::string_view> texts;
  texts.reserve(cells.size());
  for (const std::string& cell : cells) texts.push_back(trimmed(cell, kBlanks));
  auto wrong = unreadable(texts, kGerman);
  const auto wrongInEnglish = unreadable(texts, kEnglish);
  const bool english = wrongInEnglish.size() < wrong.size();
  if (english) wrong = wrongInEnglish;
  if (!wrong.empty()) {
    Error error;
    error.code = ErrorCode::InvalidValue;
    error.subject = std::to_string(wrong.front());
    error.detail = "„" + std::string(texts[wrong.front()]) + "“ ist keine Zahl";
    return Failure(error);
  }
  std::vector<std::optional<double>> numbers;
  numbers.reserve(texts.size());
  for (const std::string_view text : texts)
    numbers.push_back(text.empty() ? std::nullopt
                                   : parseStyled(text, english ? kEnglish : kGerman));
  return numbers;
}

Result<std::vector<std::optional<double>>> parsePastedColumn(std::string_view text,
                                                             std::size_t most) {
  std::vector<std::string> cells;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    cells.emplace_back(trimmed(text.substr(0, end), "\r"));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  while (!cells.empty() && trimmed(cells.back(), kBlanks).empty()) cells.pop_back();
  if (cells.size() > most)
    return fail(ErrorCode::InvalidValue, std::to_string(cells.size()) +
                                             " Werte, aber ab hier nur " + std::to_string(most) +
                                             " Felder.");
  for (std::size_t i = 0; i < cells.size(); ++i)
    if (trimmed(cells[i], kBlanks).find('\t') != std::string_view::npos)
      return fail(ErrorCode::InvalidValue,
                  "Zeile " + std::to_string(i + 1) + " hat mehrere Spalten.");
  auto numbers = parseNumberColumn(cells);
  if (numbers) return numbers;
  const std::size_t place = std::stoul(numbers.error().subject);
  return fail(ErrorCode::InvalidValue,
              "Zeile " + std::to_string(place + 1) + ": " + numbers.error().detail + ".");
}

}  // namespace base
