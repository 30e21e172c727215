#pragma once

#include "jet/NewTable.h"
#include "jet/engine/TableDef.h"

namespace jet {

// The definition of a table that a file is to get, as far as it is known before the table has
// pages. InvalidValue names the column or index that cannot be.
base::Result<TableDef> newTableDef(const format::Version& version, const NewTable& table);

// Adds a column behind the others and works out its place in the row. length: in bytes, for types
// without a fixed one. flags: without the one for fixed columns, which follows from the type.
ColumnDef& addColumn(TableDef& table, std::string name, ColumnType type, int length,
                     std::uint8_t flags);
void addIndex(TableDef& table, std::string name, std::vector<IndexDef::Part> parts, bool primary,
              std::uint8_t flags);

}  // namespace jet
