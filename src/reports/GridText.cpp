#include "reports/GridText.h"

#include <algorithm>
#include <map>

#include "base/GermanNumber.h"
#include "base/TextCodec.h"
#include "reports/FlexGridHTML.h"

namespace reports {
namespace {

bool isFirstOfRange(const CellRange& range, int row, int column) {
  return range.top == row && range.left == column;
}

std::vector<int> visibleColumns(const Grid& grid) {
  std::vector<int> columns;
  for (int c = 0; c < grid.columns(); ++c)
    if (!grid.column(c).hidden && grid.column(c).width > 0) columns.push_back(c);
  return columns;
}

bool isRowVisible(const Grid& grid, int row) {
  return !grid.row(row).hidden && grid.row(row).height > 0;
}

// --- plain text ---

constexpr std::size_t kColumnGap = 2;

std::size_t lengthOf(const std::string& text) {
  return base::toUtf32(text).size();
}

bool isRight(const Grid& grid, int row, int column) {
  const Alignment alignment = grid.placement(row, column);
  if (alignment == Alignment::General)
    return grid.cell(row, column).value.index() >= 2;  // an amount or a number
  return alignment >= Alignment::RightTop;
}

bool isCentered(const Grid& grid, int row, int column) {
  const Alignment alignment = grid.placement(row, column);
  return alignment >= Alignment::CenterTop && alignment <= Alignment::CenterBottom;
}

class PlainTextWriter {
 public:
  explicit PlainTextWriter(const Grid& grid) : grid_(grid), columns_(visibleColumns(grid)) {
    for (const int column : columns_) widths_.push_back(widest(column));
  }

  std::string write() {
    for (int row = 0; row < grid_.rows(); ++row) {
      if (!isRowVisible(grid_, row)) continue;
      const Cell& first = grid_.cell(row, columns_.front());
      if (first.lineAbove != 0) rule();
      line(row);
      if (first.lineBelow != 0) rule();
    }
    while (text_.ends_with("\n\n")) text_.pop_back();
    return std::move(text_);
  }

 private:
  std::size_t widest(int column) const {
    std::size_t width = 0;
    for (int row = 0; row < grid_.rows(); ++row) {
      const CellRange range = grid_.mergedRange(row, column);
      if (isRowVisible(grid_, row) && range.left == range.right)
        width = std::max(width, lengthOf(grid_.text(row, column)));
    }
    return width;
  }

  // An empty row beside a banded one gives its line to the rule, so that the table keeps its
  // height and does not fall apart.
  void rule() {
    if (afterRule_) return;
    if (text_.ends_with("\n\n")) text_.pop_back();
    std::size_t length = 0;
    for (const std::size_t width : widths_) length += width + kColumnGap;
    text_ += std::string(length - kColumnGap, '-') + '\n';
    afterRule_ = true;
  }

  void line(int row) {
    std::string line;
    for (std::size_t i = 0; i < columns_.size();) {
      const CellRange range = grid_.mergedRange(row, columns_[i]);
      std::size_t width = widths_[i];
      std::size_t next = i + 1;
      for (; next < columns_.size() && columns_[next] <= range.right; ++next)
        width += kColumnGap + widths_[next];
      if (i > 0) line += std::string(kColumnGap, ' ');
      line += padded(row, columns_[i], width);
      i = next;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    const bool empty = line.empty();
    if (!empty || !afterRule_) text_ += line + '\n';
    afterRule_ = false;
  }

  std::string padded(int row, int column, std::size_t width) const {
    std::string text = grid_.text(row, column);
    const std::size_t length = lengthOf(text);
    if (length >= width) return text;
    const std::size_t room = width - length;
    const std::size_t before = isRight(grid_, row, column)      ? room
                               : isCentered(grid_, row, column) ? room / 2
                                                                : 0;
    return std::string(before, ' ') + text + std::string(room - before, ' ');
  }

  const Grid& grid_;
  const std::vector<int> columns_;
  std::vector<std::size_t> widths_;
  std::string text_;
  bool afterRule_ = false;
};

// --- comma-separated ---

std::string quoted(const std::string& text) {
  // A text that begins like a formula would be worked out by the spreadsheet.
  const bool formula =
      !text.empty() && std::string_view("=+-@\t\r").find(text[0]) != std::string_view::npos;
  if (!formula && text.find_first_of(";\"\r\n") == std::string::npos) return text;
  std::string doubled = formula ? "'" + text : text;
  FlexGridHTML::replaceAll(doubled, "\"", "\"\"");
  return '"' + doubled + '"';
}

// All four decimals that an amount has, at least two.
std::string plainAmount(base::Money amount) {
  std::string text = base::formatNumber(amount.toDouble(), 4);
  std::erase(text, '.');
  while (text.ends_with('0') && text[text.size() - 3] != ',') text.pop_back();
  return text;
}

std::size_t decimalsOf(const std::string& number) {
  const std::size_t comma = number.find(',');
  return comma == std::string::npos ? 0 : number.size() - comma - 1;
}

// A cell as it stands alone.
struct CsvField {
  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(const std::string& text) const { return quoted(text); }
  std::string operator()(base::Money amount) const { return plainAmount(amount); }
  std::string operator()(double number) const { return base::formatShort(number); }
};

bool isNumber(const Cell& cell) {
  return std::holds_alternative<base::Money>(cell.value) ||
         std::holds_alternative<double>(cell.value);
}

// Of the column's most exact number.
std::size_t decimalsOf(const Grid& grid, int column) {
  std::size_t most = 0;
  for (int row = 0; row < grid.rows(); ++row)
    if (isRowVisible(grid, row) && isNumber(grid.cell(row, column)))
      most = std::max(most, decimalsOf(std::visit(CsvField{}, grid.cell(row, column).value)));
  return most;
}

std::string csvField(const Cell& cell, std::size_t decimals) {
  std::string text = std::visit(CsvField{}, cell.value);
  if (!isNumber(cell)) return text;
  const std::size_t own = decimalsOf(text);
  if (own == 0 && decimals > 0) text += ',';
  return text.append(decimals - own, '0');
}

// --- clipboard ---

// A cell must not break the row: tabs and line ends inside it become blanks.
std::string onOneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
  return text;
}

std::string span(const char* attribute, std::ptrdiff_t count) {
  return count > 1 ? attribute + std::to_string(count) + '"' : std::string();
}

std::string htmlCell(const Grid& grid, int row, int column, const CellRange& range) {
  std::ptrdiff_t rows = 0;
  for (int r = range.top; r <= range.bottom; ++r) rows += isRowVisible(grid, r) ? 1 : 0;
  const std::vector<int> columns = visibleColumns(grid);
  const auto inRange = [&](int c) { return c >= range.left && c <= range.right; };
  std::string cell = "<td";
  cell += span(" colspan=\"", std::count_if(columns.begin(), columns.end(), inRange));
  cell += span(" rowspan=\"", rows);
  if (isRight(grid, row, column)) cell += " align=\"right\"";
  if (isCentered(grid, row, column)) cell += " align=\"center\"";
  const std::string text = FlexGridHTML::escape(grid.text(row, column));
  return cell + (grid.cell(row, column).bold ? "><b>" + text + "</b></td>" : '>' + text + "</td>");
}

}  // namespace

std::string toPlainText(const Grid& grid) {
  if (visibleColumns(grid).empty()) return {};
  return PlainTextWriter(grid).write();
}

std::string toCsv(const Grid& grid) {
  const std::vector<int> columns = visibleColumns(grid);
  std::map<int, std::size_t> decimals;
  for (const int column : columns) decimals[column] = decimalsOf(grid, column);
  std::string csv = "\xEF\xBB\xBF";
  for (int row = 0; row < grid.rows(); ++row) {
    if (!isRowVisible(grid, row)) continue;
    for (const int column : columns) {
      if (column != columns.front()) csv += ';';
      if (isFirstOfRange(grid.mergedRange(row, column), row, column))
        csv += csvField(grid.cell(row, column), decimals[column]);
    }
    csv += "\r\n";
  }
  return csv;
}

std::string toTabSeparated(const Grid& grid) {
  const std::vector<int> columns = visibleColumns(grid);
  std::string text;
  for (int row = 0; row < grid.rows(); ++row) {
    if (!isRowVisible(grid, row)) continue;
    for (const int column : columns) {
      if (column != columns.front()) text += '\t';
      if (isFirstOfRange(grid.mergedRange(row, column), row, column))
        text += onOneLine(grid.text(row, column));
    }
    text += "\r\n";
  }
  return text;
}

std::string toClipboardHtml(const Grid& grid) {
  const std::vector<int> columns = visibleColumns(grid);
  std::string html = "<table>\n";
  for (int row = 0; row < grid.rows(); ++row) {
    if (!isRowVisible(grid, row)) continue;
    html += "<tr>";
    for (const int column : columns) {
      const CellRange range = grid.mergedRange(row, column);
      if (isFirstOfRange(range, row, column)) html += htmlCell(grid, row, column, range);
    }
    html += "</tr>\n";
  }
  return html + "</table>\n";
}

}  // namespace reports
