#include "base/CsvRecord.h"

#include <array>
#include <charconv>
#include <cmath>

#include "base/Paths.h"
#include "base/TextCodec.h"
#include "base/Trim.h"

namespace base {
namespace {

template <class T>
std::string shortest(T value, int digits) {
  if (!std::isfinite(value) || value == 0) return "0";
  std::array<char, 400> buffer{};
  auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                           std::chars_format::general, digits);
  T rounded{};
  std::from_chars(buffer.data(), end.ptr, rounded);
  // Plain digits also for large values: old readers know no exponent without a sign.
  end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), rounded,
                      std::chars_format::fixed);
  return {buffer.data(), end.ptr};
}

}  // namespace

RecordWriter& RecordWriter::add(std::string_view value) {
  if (!line_.empty()) line_ += ',';
  line_ += value;
  return *this;
}

RecordWriter& RecordWriter::number(int value) {
  return add(std::to_string(value));
}
RecordWriter& RecordWriter::number(float value) {
  return add(shortest(value, 7));
}
RecordWriter& RecordWriter::number(double value) {
  return add(shortest(value, 15));
}
RecordWriter& RecordWriter::text(std::string_view utf8) {
  return add('"' + toWindows1252(utf8) + '"');
}
RecordWriter& RecordWriter::boolean(bool value) {
  return add(value ? "#TRUE#" : "#FALSE#");
}
std::string RecordWriter::line() const {
  return line_ + "\r\n";
}

RecordReader::RecordReader(std::string_view bytes) {
  std::string_view line = bytes.substr(0, bytes.find_first_of("\r\n"));
  if (line.size() > kLongestLine || trimmed(line).empty()) return;
  std::size_t at = 0;
  for (bool more = true; more;) {
    const std::size_t start = line.find_first_not_of(" \t", at);
    std::size_t comma;
    if (start != std::string_view::npos && line[start] == '"') {
      const std::size_t close = line.find('"', start + 1);
      comma = close == std::string_view::npos ? close : line.find(',', close);
    } else {
      comma = line.find(',', at);
    }
    more = comma != std::string_view::npos;
    fields_.emplace_back(trimmed(line.substr(at, more ? comma - at : comma)));
    at = comma + 1;
  }
}

std::optional<double> RecordReader::number(std::size_t index) const {
  if (index >= fields_.size()) return std::nullopt;
  std::string_view text = fields_[index];
  if (!text.empty() && text[0] == '+') text.remove_prefix(1);
  double value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (text.empty() || error != std::errc() || stop != end || !std::isfinite(value))
    return std::nullopt;
  return value;
}

std::optional<std::string> RecordReader::text(std::size_t index) const {
  if (index >= fields_.size()) return std::nullopt;
  std::string_view field = fields_[index];
  if (!field.empty() && field[0] == '"') {
    field.remove_prefix(1);
    field = field.substr(0, field.find('"'));
  }
  return fromWindows1252(field);
}

std::optional<bool> RecordReader::boolean(std::size_t index) const {
  if (index >= fields_.size()) return std::nullopt;
  std::string field = lowerCase(fields_[index]);
  if (field.size() >= 2 && field.front() == '#' && field.back() == '#')
    field = trimmed(std::string_view(field).substr(1, field.size() - 2));
  if (field == "true") return true;
  if (field == "false") return false;
  return std::nullopt;
}

}  // namespace base
