#include "readingbook/BookRecord.h"

#include <charconv>

#include "base/DateText.h"
#include "base/Paths.h"
#include "base/TextCodec.h"
#include "base/Trim.h"

namespace readingbook {
namespace {

constexpr std::string_view kReading = "Ablesung";
constexpr std::string_view kChange = "Zaehlerwechsel";
constexpr std::string_view kChangeAsSpoken = "Zählerwechsel";
constexpr int kDecimals = 3;

// Takes a line apart from the left. A text in quotes holds a quote as two of them.
class Values {
 public:
  explicit Values(std::string_view line) : rest_(line) {}

  bool more() const { return more_; }
  // The next value without its quotes; those that a text holds are still doubled.
  std::string_view take() {
    std::size_t at = rest_.find_first_not_of(" \t");
    if (at == std::string_view::npos || rest_[at] != '"') {
      const std::size_t comma = rest_.find(',');
      const std::string_view value = base::trimmed(rest_.substr(0, comma));
      next(comma);
      return value;
    }
    const std::size_t start = ++at;
    while ((at = rest_.find('"', at)) != std::string_view::npos && rest_.substr(at, 2) == "\"\"")
      at += 2;
    const std::string_view value =
        rest_.substr(start, at == std::string_view::npos ? at : at - start);
    next(at == std::string_view::npos ? at : rest_.find(',', at));
    return value;
  }

 private:
  void next(std::size_t comma) {
    more_ = comma != std::string_view::npos;
    rest_ = more_ ? rest_.substr(comma + 1) : std::string_view();
  }

  std::string_view rest_;
  bool more_ = true;
};

std::optional<Meter> meterNamed(std::string_view name) {
  for (Meter meter : yearbook::kMeters)
    if (name == factsOf(meter).name) return meter;
  for (Meter meter : yearbook::kMeters)
    if (base::equalsIgnoreCase(name, factsOf(meter).name)) return meter;
  return std::nullopt;
}

std::string unquoted(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    plain += text[i];
    if (text.substr(i, 2) == "\"\"") ++i;
  }
  return base::fromWindows1252(plain);
}

std::string inQuotes(std::string_view utf8) {
  std::string text = "\"";
  for (const char c : base::toWindows1252(utf8)) {
    // A line of the file is a record.
    text += c == '\r' || c == '\n' ? ' ' : c;
    if (c == '"') text += c;
  }
  return text + '"';
}

std::string numberText(Thousandths value) {
  std::string text = std::to_string(value / kUnit);
  if (value % kUnit == 0) return text;
  std::string fraction = std::to_string(kUnit + value % kUnit);
  fraction[0] = '.';
  return text + fraction.substr(0, fraction.find_last_not_of('0') + 1);
}

}  // namespace

std::optional<Thousandths> parseThousandths(std::string_view text, char decimalSign) {
  const std::size_t sign = text.find(decimalSign);
  const std::string_view whole = text.substr(0, sign);
  std::string_view fraction;
  if (sign != std::string_view::npos) fraction = text.substr(sign + 1);
  if (whole.empty() || whole.size() > 9) return std::nullopt;
  if (sign != std::string_view::npos && fraction.empty()) return std::nullopt;
  while (fraction.size() > kDecimals && fraction.back() == '0') fraction.remove_suffix(1);
  if (fraction.size() > kDecimals) return std::nullopt;
  Thousandths value = 0;
  for (std::size_t i = 0; i < whole.size() + kDecimals; ++i) {
    const std::size_t behind = i - whole.size();
    const char c = i < whole.size() ? whole[i] : behind < fraction.size() ? fraction[behind] : '0';
    if (c < '0' || c > '9') return std::nullopt;
    value = 10 * value + (c - '0');
  }
  return value;
}

std::optional<BookRecord> parseRecord(std::string_view line) {
  Values values(line);
  const auto meter = meterNamed(values.take());
  if (!meter) return std::nullopt;
  const auto date = base::parseDate(values.take());
  const auto reading = parseThousandths(values.take(), '.');
  if (!date || !reading) return std::nullopt;
  BookRecord record{*meter, {*date, *reading}};
  const std::string_view kind = values.take();
  const auto newStart = parseThousandths(values.take(), '.');
  if (kind != kReading) {
    const std::string spoken = base::fromWindows1252(kind);
    const bool change =
        base::equalsIgnoreCase(spoken, kChange) || base::equalsIgnoreCase(spoken, kChangeAsSpoken);
    if (!change && !base::equalsIgnoreCase(spoken, kReading)) return std::nullopt;
    if (change && !newStart) return std::nullopt;
    if (change) record.entry.newStart = newStart;
  }
  if (values.more()) record.entry.remark = unquoted(values.take());
  return record;
}

std::string recordLine(const BookRecord& record) {
  const Entry& entry = record.entry;
  std::string line = '"' + std::string(factsOf(record.meter).name) + "\",\"" +
                     base::formatDate(entry.date) + "\"," + numberText(entry.reading) + ",\"";
  line += entry.newStart ? kChange : kReading;
  return line + "\"," + numberText(entry.newStart.value_or(0)) + ',' + inQuotes(entry.remark) +
         "\r\n";
}

}  // namespace readingbook
