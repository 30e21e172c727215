#pragma once

#include <string>

#include "reports/Grid.h"

// The looks that the overview and the detailed table share.
namespace reports {

inline constexpr CellColor kNavy = rgb(0, 0, 128);
inline constexpr CellColor kBlue = rgb(0, 0, 255);
inline constexpr CellColor kLightYellow = rgb(255, 255, 192);
inline constexpr CellColor kLightGrey = rgb(224, 224, 224);

inline constexpr int kLabelWidth = 1900;  // of a column with captions

// The text in every cell of the row, bold and centred, ready to be merged.
void writeHeading(Grid& grid, int row, const std::string& text, double pointSize);
// Light yellow between blue lines.
void markSumRow(Grid& grid, int row);
// Light grey between navy lines, bold.
void markBalanceRow(Grid& grid, int row);

}  // namespace reports
