#include "readingbook/TableImport.h"

#include <algorithm>
#include <array>

#include "base/NumberColumn.h"
#include "base/Paths.h"
#include "base/TextCodec.h"
#include "base/Trim.h"

namespace readingbook {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\xC2\xA0";
constexpr std::string_view kNewMeter = " neu";

using Cells = std::vector<std::string>;

std::string toUtf8(std::string_view bytes) {
  if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  const std::string utf8(bytes);
  // What is no UTF-8 does not survive the way through another form.
  return base::fromUtf16(base::toUtf16(utf8)) == utf8 ? utf8 : base::fromWindows1252(bytes);
}

char separatorOf(std::string_view text) {
  const auto count = [&](char c) { return std::count(text.begin(), text.end(), c); };
  const auto semicolons = count(';');
  const auto tabs = count('\t');
  if (semicolons == 0 && tabs == 0) return ',';
  return tabs > semicolons ? '\t' : ';';
}

// Takes the text apart from the left.
class TableReader {
 public:
  explicit TableReader(std::string_view text) : text_(text), separator_(separatorOf(text)) {}

  bool more() const { return at_ < text_.size(); }
  TableRow row() {
    TableRow row{line_, {}};
    do row.cells.push_back(cell());
    while (more() && text_[at_ - 1] == separator_ && !ended_);
    return row;
  }

 private:
  // With what ends it: a separator, or the line's end.
  std::string cell() {
    std::string value;
    bool quoted = false;
    ended_ = true;
    while (at_ < text_.size()) {
      const char c = text_[at_++];
      if (c == '\n') ++line_;
      if (quoted && c == '"' && at_ < text_.size() && text_[at_] == '"') {
        value += text_[at_++];
      } else if (c == '"' && (quoted || base::trimmed(value, kBlanks).empty())) {
        quoted = !quoted;
      } else if (!quoted && (c == separator_ || c == '\n')) {
        ended_ = c == '\n';
        break;
      } else {
        value += c;
      }
    }
    return std::string(base::trimmed(base::trimmed(value, "\r"), kBlanks));
  }

  std::string_view text_;
  char separator_;
  std::size_t at_ = 0;
  int line_ = 1;
  bool ended_ = false;
};

bool isHeading(const std::string& cell, std::string_view name) {
  return base::equalsIgnoreCase(cell, name);
}

const std::string& cellOf(const TableRow& row, int column) {
  static const std::string none;
  const auto index = static_cast<std::size_t>(column);
  return column >= 0 && index < row.cells.size() ? row.cells[index] : none;
}

int indexOf(const Cells& cells, std::string_view name) {
  const auto found = std::find_if(cells.begin(), cells.end(),
                                  [&](const std::string& cell) { return isHeading(cell, name); });
  return found == cells.end() ? TableColumns::kNone : static_cast<int>(found - cells.begin());
}

TableColumns byHeadings(const TableRow& heading) {
  TableColumns columns;
  columns.headingLine = heading.line;
  columns.date = indexOf(heading.cells, "Datum");
  columns.remark = indexOf(heading.cells, "Anmerkung");
  for (Meter meter : yearbook::kMeters) {
    const std::string name(factsOf(meter).name);
    columns.readings[meter] = indexOf(heading.cells, name);
    columns.newStarts[meter] = indexOf(heading.cells, name + std::string(kNewMeter));
  }
  return columns;
}

// The meter whose name is the longest of those in the file's name: "Abwasser" is no "Wasser".
std::optional<Meter> meterOfName(std::string_view fileName) {
  const std::string name = base::lowerCase(base::fileName(fileName));
  std::optional<Meter> found;
  for (Meter meter : yearbook::kMeters) {
    const std::string_view word = factsOf(meter).name;
    if (name.find(base::lowerCase(word)) == std::string::npos) continue;
    if (!found || word.size() > factsOf(*found).name.size()) found = meter;
  }
  return found;
}

bool holdsNumbers(const std::vector<const TableRow*>& rows, int column) {
  Cells cells;
  for (const TableRow* row : rows) cells.push_back(cellOf(*row, column));
  const auto empty = [](const std::string& cell) { return cell.empty(); };
  return !std::all_of(cells.begin(), cells.end(), empty) && base::parseNumberColumn(cells);
}

// The columns of numbers beside the dates: the only one, or one for each meter.
void assignNumbers(TableColumns& columns, const std::vector<TableRow>& rows,
                   std::string_view fileName) {
  std::vector<const TableRow*> dated;
  std::size_t width = 0;
  for (const TableRow& row : rows)
    if (row.line > columns.headingLine && parseTableDate(cellOf(row, columns.date))) {
      dated.push_back(&row);
      width = std::max(width, row.cells.size());
    }
  std::vector<int> numbers;
  for (int column = 0; column < static_cast<int>(width); ++column)
    if (column != columns.date && holdsNumbers(dated, column)) numbers.push_back(column);
  const auto named = meterOfName(fileName);
  if (numbers.size() == 1 && named) columns.readings[*named] = numbers.front();
  if (numbers.size() == yearbook::kMeters.size())
    std::copy(numbers.begin(), numbers.end(), columns.readings.begin());
}

int dateColumnOf(const TableRow& row) {
  for (std::size_t i = 0; i < row.cells.size(); ++i)
    if (parseTableDate(row.cells[i])) return static_cast<int>(i);
  return TableColumns::kNone;
}

std::optional<Date> isoDate(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  return base::parseDate(std::string(text.substr(8, 2)) + '.' + std::string(text.substr(5, 2)) +
                         '.' + std::string(text.substr(0, 4)));
}

using Numbers = std::vector<std::optional<double>>;

// The numbers of a column; none, with its problem, when a cell is no number.
Numbers numbersOf(const std::vector<const TableRow*>& rows, int column,
                  std::vector<TableProblem>& problems) {
  if (column == TableColumns::kNone) return Numbers(rows.size());
  Cells cells;
  for (const TableRow* row : rows) cells.push_back(cellOf(*row, column));
  auto numbers = base::parseNumberColumn(cells);
  if (numbers) return std::move(*numbers);
  const std::size_t place = std::stoul(numbers.error().subject);
  problems.push_back({rows[place]->line, numbers.error().detail + "."});
  return Numbers(rows.size());
}

}  // namespace

std::vector<TableRow> readTable(std::string_view bytes) {
  const std::string text = toUtf8(bytes);
  std::vector<TableRow> rows;
  for (TableReader reader(text); reader.more();) {
    TableRow row = reader.row();
    const auto filled = [](const std::string& cell) { return !cell.empty(); };
    if (std::any_of(row.cells.begin(), row.cells.end(), filled)) rows.push_back(std::move(row));
  }
  return rows;
}

bool TableColumns::anyMeter() const {
  return std::any_of(readings.begin(), readings.end(), [](int column) { return column != kNone; });
}

TableColumns guessColumns(const std::vector<TableRow>& rows, std::string_view fileName) {
  TableColumns columns;
  for (const TableRow& row : rows)
    if (indexOf(row.cells, "Datum") != TableColumns::kNone) {
      columns = byHeadings(row);
      break;
    }
  for (const TableRow& row : rows) {
    if (columns.date != TableColumns::kNone) break;
    columns.date = dateColumnOf(row);
    columns.headingLine = row.line - 1;
  }
  if (columns.date != TableColumns::kNone && !columns.anyMeter())
    assignNumbers(columns, rows, fileName);
  return columns;
}

std::optional<Date> parseTableDate(std::string_view text) {
  text = base::trimmed(text, kBlanks);
  text = text.substr(0, text.find_first_of(" T"));
  const auto date = isoDate(text);
  return date ? date : base::parseDate(text);
}

TableReadings readingsOf(const std::vector<TableRow>& rows, const TableColumns& columns) {
  TableReadings result;
  std::vector<const TableRow*> dated;
  std::vector<Date> dates;
  for (const TableRow& row : rows) {
    if (row.line <= columns.headingLine) continue;
    const std::string& cell = cellOf(row, columns.date);
    if (const auto date = parseTableDate(cell)) {
      dated.push_back(&row);
      dates.push_back(*date);
    } else {
      result.problems.push_back(
          {row.line, cell.empty() ? "Das Datum fehlt." : "„" + cell + "“ ist kein Datum."});
    }
  }
  for (Meter meter : yearbook::kMeters) {
    const Numbers readings = numbersOf(dated, columns.readings[meter], result.problems);
    const Numbers starts = numbersOf(dated, columns.newStarts[meter], result.problems);
    for (std::size_t i = 0; i < dated.size(); ++i) {
      if (!readings[i] && !starts[i]) continue;
      const auto reading = toThousandths(readings[i].value_or(-1));
      const auto start = toThousandths(starts[i].value_or(0));
      if (!reading || !start) {
        result.problems.push_back(
            {dated[i]->line, std::string(factsOf(meter).name) + ": " +
                                 (readings[i] ? "Ein Zählerstand liegt zwischen 0 und 999.999.999."
                                              : "Zum neuen Zähler fehlt der Endstand des alten.")});
        continue;
      }
      Entry entry{dates[i], *reading, {}, cellOf(*dated[i], columns.remark)};
      if (starts[i]) entry.newStart = *start;
      result.entries.push_back({dated[i]->line, meter, std::move(entry)});
    }
  }
  std::stable_sort(
      result.entries.begin(), result.entries.end(),
      [](const TableEntry& a, const TableEntry& b) { return a.entry.date < b.entry.date; });
  return result;
}

BookImport addTo(ReadingBook book, const TableReadings& readings, const PerMeter<Days>& permitted) {
  BookImport result{std::move(book), 0, 0, readings.problems};
  for (const TableEntry& row : readings.entries) {
    const auto& there = result.book.of(row.meter);
    const auto same = [&](const Entry& entry) {
      return entry.date == row.entry.date && entry.reading == row.entry.reading &&
             entry.newStart == row.entry.newStart;
    };
    if (std::any_of(there.begin(), there.end(), same))
      ++result.alreadyThere;
    else if (auto added = result.book.add(row.meter, row.entry, permitted[row.meter]); added)
      ++result.added;
    else
      result.problems.push_back(
          {row.line, std::string(factsOf(row.meter).name) + ": " + added.error().detail});
  }
  std::stable_sort(result.problems.begin(), result.problems.end(),
                   [](const TableProblem& a, const TableProblem& b) { return a.line < b.line; });
  return result;
}

}  // namespace readingbook
