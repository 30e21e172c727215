#include "reports/GridStyle.h"

namespace reports {
namespace {

void band(Grid& grid, int row, CellColor back, CellColor lines) {
  for (int column = 0; column < grid.columns(); ++column) {
    Cell& cell = grid.cell(row, column);
    cell.back = back;
    cell.lineAbove = lines;
    cell.lineBelow = lines;
  }
}

}  // namespace

void writeHeading(Grid& grid, int row, const std::string& text, double pointSize) {
  for (int column = 0; column < grid.columns(); ++column) {
    Cell& cell = grid.cell(row, column);
    cell.value = text;
    cell.bold = true;
    cell.pointSize = pointSize;
    cell.placed = Alignment::CenterCenter;
  }
}

void markSumRow(Grid& grid, int row) {
  band(grid, row, kLightYellow, kBlue);
}

void markBalanceRow(Grid& grid, int row) {
  band(grid, row, kLightGrey, kNavy);
  for (int column = 0; column < grid.columns(); ++column) grid.cell(row, column).bold = true;
}

}  // namespace reports
