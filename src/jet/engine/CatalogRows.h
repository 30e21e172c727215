#pragma once

#include <string>

#include "jet/engine/TableMaker.h"

// The four tables that every Jet file has, as Jet makes them, and the rows by which a table is
// known and may be used.
namespace jet {

TableDef objectsTable(const format::Version& version);        // MSysObjects: every object
TableDef permissionsTable(const format::Version& version);    // MSysACEs: who may do what with it
TableDef queriesTable(const format::Version& version);        // MSysQueries, empty
TableDef relationshipsTable(const format::Version& version);  // MSysRelationships, empty

// The objects and permissions of a file without user tables.
base::Result<void> enterSystemTables(Pager& pager, CatalogTables tables, DateTime made);
// Those of one user table. Unsupported when the file does not tell whose a new table is to be.
base::Result<void> enterTable(Pager& pager, CatalogTables tables, const std::string& name,
                              std::uint32_t page, DateTime made);

}  // namespace jet
