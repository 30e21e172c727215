#include "reports/Grid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

#include "base/GermanNumber.h"
#include "base/TextCodec.h"

namespace reports {
namespace {

// Room between a text and the two edges of its cell.
constexpr int kCellPadding = 150;

// Widths of the printable ASCII characters of a plain sans-serif face, thousandths of its size.
constexpr std::array<int, 95> kCharWidths = {
    278,  278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333, 278, 278,  //  to /
    556,  556, 556, 556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556,  // 0 to ?
    1015, 667, 667, 722, 722, 667, 611, 778, 722, 278, 500, 667, 556, 833, 722, 778,  // @ to O
    667,  778, 722, 667, 611, 722, 667, 944, 667, 667, 611, 278, 278, 278, 469, 556,  // P to _
    333,  556, 556, 500, 556, 556, 278, 556, 556, 222, 222, 500, 222, 833, 556, 556,  // ` to o
    556,  556, 333, 500, 278, 556, 500, 722, 500, 500, 500, 334, 260, 334, 584};      // p to ~

struct Shown {
  const std::string& format;
  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(base::Money amount) const {
    return format.empty() ? base::formatShort(amount.toDouble(), 4) : base::formatMoney(amount);
  }
  std::string operator()(double number) const {
    return format.empty() ? base::formatShort(number) : base::formatNumber(number, 2);
  }
};

}  // namespace

int plainTextWidth(std::string_view utf8, const CellFont& font) {
  double thousandths = 0;
  for (const char32_t c : base::toUtf32(utf8))
    thousandths += c >= 32 && c < 127 ? kCharWidths[c - 32] : 600;
  const double points = thousandths / 1000 * font.pointSize * (font.bold ? 1.08 : 1.0);
  return static_cast<int>(std::ceil(points * 20));
}

Grid::Grid(int rows, int columns)
    : rows_(static_cast<std::size_t>(rows)),
      columns_(static_cast<std::size_t>(columns)),
      cells_(rows_.size() * columns_.size()) {}

void Grid::appendRows(int count) {
  rows_.resize(rows_.size() + static_cast<std::size_t>(count));
  cells_.resize(rows_.size() * columns_.size());
}

std::size_t Grid::position(int row, int column) const {
  const auto r = static_cast<std::size_t>(row);
  const auto c = static_cast<std::size_t>(column);
  if (r >= rows_.size() || c >= columns_.size()) throw std::out_of_range("Grid::cell");
  return r * columns_.size() + c;
}

std::string Grid::text(int row, int column) const {
  return std::visit(Shown{this->column(column).format}, cell(row, column).value);
}

CellFont Grid::font(int row, int column) const {
  const Cell& c = cell(row, column);
  return {c.fontName.empty() ? fontName : c.fontName, c.pointSize > 0 ? c.pointSize : pointSize,
          c.bold, c.italic, c.underline};
}

Alignment Grid::placement(int row, int column) const {
  return cell(row, column).placed.value_or(this->column(column).alignment);
}

void Grid::mergeEqualNeighbours(int row) {
  for (int left = 0; left < columns();) {
    const std::string shared = text(row, left);
    int right = left;
    while (!shared.empty() && right + 1 < columns() && text(row, right + 1) == shared) ++right;
    if (right > left) merge({row, left, row, right});
    left = right + 1;
  }
}

CellRange Grid::mergedRange(int row, int column) const {
  for (const CellRange& range : merged_)
    if (row >= range.top && row <= range.bottom && column >= range.left && column <= range.right)
      return range;
  return {row, column, row, column};
}

void Grid::fitColumn(int column, const TextWidth& measure, int least) {
  int widest = 0;
  for (int r = 0; r < rows(); ++r) {
    if (mergedRange(r, column) != CellRange{r, column, r, column}) continue;
    widest = std::max(widest, measure(text(r, column), font(r, column)));
  }
  this->column(column).width = std::max(widest + kCellPadding, least);
}

int Grid::totalWidth() const {
  int sum = 0;
  for (const Column& column : columns_) sum += column.width;
  return sum;
}

}  // namespace reports
