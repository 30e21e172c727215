#pragma once

#include <vector>

#include "jet/Database.h"

namespace yearbook {

// Checks the file, and whether it has the tables, columns and rows that a year needs. A file of
// another name without any of the tables is no year and only has to be sound.
std::vector<jet::Finding> checkYear(jet::Database& database);

}  // namespace yearbook
