#pragma once

#include <vector>

#include "jet/Database.h"
#include "jet/engine/Catalog.h"
#include "jet/engine/Pager.h"

namespace jet {

// Checks a whole file: every table with everything that belongs to it, then every page of the file
// against the map of free pages. Never writes. What is checked: docs/pruefen.md.
std::vector<Finding> checkDatabase(Pager& pager, const Catalog& catalog);

}  // namespace jet
