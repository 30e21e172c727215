#pragma once

#include <vector>

#include "yearbook/YearRows.h"

namespace yearbook {

// "Alle Werte löschen" for one utility: its data columns and its settings become 0. Month names and
// remarks stay, and so do the settings of waste water, of the flat rate and of the display.
base::Result<void> clearUtility(YearRows& rows, Utility utility);

// The cells whose fields are shown empty afterwards, those of waste water with those of water.
std::vector<Cell> emptiedByClearing(Utility utility);

}  // namespace yearbook
