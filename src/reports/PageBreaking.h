#pragma once

#include <vector>

#include "reports/Grid.h"

namespace reports {

// The rows of each page from top to bottom, repeated ones included. A page is `bodyHeight` twips
// high. Pages begin with the grid's head rows, and with the heading of the block in whose middle
// they begin; empty rows at their top and before a break are left out. Rows that a merged cell
// joins stay together, and a block that fits on one page is not torn. A row that is higher than a
// page has one alone. Qt's documents break tables as well, but repeat no heading of a block and
// tear what is merged.
std::vector<std::vector<int>> breakIntoPages(const Grid& grid, int bodyHeight);

}  // namespace reports
