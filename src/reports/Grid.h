#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/Money.h"

// A table as data: what the widget shows, the HTML writer and the text output write and the
// printer prints. It knows nothing of consumption. Lengths are twips (1/1440 inch), texts UTF-8.
namespace reports {

inline constexpr int kTwipsPerInch = 1440;

// 0x00BBGGRR, or 0x80000000 + the index of a system colour. 0 in a cell means "none of its own".
using CellColor = std::uint32_t;
constexpr CellColor rgb(unsigned red, unsigned green, unsigned blue) {
  return red | green << 8 | blue << 16;
}
constexpr CellColor systemColor(unsigned index) {
  return 0x80000000U | index;
}

// The values are those that grids of this family report and files keep.
enum class Alignment {
  LeftTop,
  LeftCenter,
  LeftBottom,
  CenterTop,
  CenterCenter,
  CenterBottom,
  RightTop,
  RightCenter,
  RightBottom,
  General,  // numbers right, everything else left
};

enum class DataType { Text, Number, Currency, Date, Boolean };

struct CellFont {
  std::string name;
  double pointSize = 9;
  bool bold = false;
  bool italic = false;
  bool underline = false;
};

struct Cell {
  std::variant<std::monostate, std::string, base::Money, double> value;
  std::string fontName;  // empty: the grid's
  double pointSize = 0;  // 0: the grid's
  bool bold = false;
  bool italic = false;
  bool underline = false;
  CellColor back = 0;
  CellColor fore = 0;
  CellColor lineAbove = 0;  // colour of the border line, 0 = none
  CellColor lineBelow = 0;
  // Where the text stands on screen and paper, if not where the column says.
  std::optional<Alignment> placed;
};

struct Row {
  int height = 255;
  bool hidden = false;
  bool subtotal = false;
  int outlineLevel = 0;
  int headingRow = -1;  // the row that is repeated above this one when a page begins here
};

struct Column {
  int width = 960;
  bool hidden = false;
  Alignment alignment = Alignment::General;
  DataType type = DataType::Text;
  std::string format;  // "" or "#,##0.00"
};

struct CellRange {
  int top = 0, left = 0, bottom = 0, right = 0;
  bool operator==(const CellRange&) const = default;
};

// Width of a text in twips. Screen and printer measure with their fonts; plainTextWidth is the
// same on every machine.
using TextWidth = std::function<int(std::string_view utf8, const CellFont&)>;
int plainTextWidth(std::string_view utf8, const CellFont& font);

class Grid {
 public:
  Grid(int rows, int columns);

  int rows() const { return static_cast<int>(rows_.size()); }
  int columns() const { return static_cast<int>(columns_.size()); }
  void appendRows(int count);

  Row& row(int index) { return rows_.at(static_cast<std::size_t>(index)); }
  const Row& row(int index) const { return rows_.at(static_cast<std::size_t>(index)); }
  Column& column(int index) { return columns_.at(static_cast<std::size_t>(index)); }
  const Column& column(int index) const { return columns_.at(static_cast<std::size_t>(index)); }
  Cell& cell(int row, int column) { return cells_.at(position(row, column)); }
  const Cell& cell(int row, int column) const { return cells_.at(position(row, column)); }

  // What is read in the cell: texts as they are, numbers in the column's format.
  std::string text(int row, int column) const;
  // The cell's font with the grid's name and size where it has none of its own.
  CellFont font(int row, int column) const;
  Alignment placement(int row, int column) const;

  // Merged ranges do not overlap; a cell outside of them is its own range.
  void merge(CellRange range) { merged_.push_back(range); }
  // Neighbours of equal text that is not empty become one cell.
  void mergeEqualNeighbours(int row);
  CellRange mergedRange(int row, int column) const;
  const std::vector<CellRange>& mergedRanges() const { return merged_; }

  // As wide as its widest text outside merged ranges asks for, but no narrower than least.
  void fitColumn(int column, const TextWidth& measure, int least = 0);
  int totalWidth() const;  // all columns, hidden ones included

  std::string fontName = "Arial";
  double pointSize = 9;
  CellColor backColor = rgb(255, 255, 255);
  CellColor gridColor = rgb(192, 192, 192);
  CellColor backColorFixed = systemColor(15);
  CellColor foreColorFixed = systemColor(18);
  CellColor gridColorFixed = systemColor(16);
  int fixedRows = 0;
  int fixedColumns = 0;
  int headRows = 0;      // printed again on every page
  int controlWidth = 0;  // of the control that shows it, 0 where there is none
  bool outlineBar = false;
  int outlineColumn = 0;

 private:
  std::size_t position(int row, int column) const;
  std::vector<Row> rows_;
  std::vector<Column> columns_;
  std::vector<Cell> cells_;
  std::vector<CellRange> merged_;
};

}  // namespace reports
