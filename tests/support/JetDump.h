#pragma once

#include <string>

#include "jet/Database.h"

namespace support {

// All user tables as text: columns, indexes, rows in natural order as tab-separated values,
// "\N" for Null. The form of the dumps that independent programs left beside the real files.
base::Result<std::string> dumpTables(jet::Database& database);
base::Result<std::string> dumpTable(jet::Database& database, const std::string& name);

// One value as it stands in a dump.
std::string dumpValue(const jet::Column& column, const jet::Value& value);

}  // namespace support
