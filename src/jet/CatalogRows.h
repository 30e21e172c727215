#pragma once

#include <string>

#include "jet/NewTable.h"

// The four tables that every Jet file has, as Jet makes them, and the rows by which a table is
// known and may be used.
namespace jet {

TablePlan objectsPlan();        // MSysObjects: every object of the file
TablePlan permissionsPlan();    // MSysACEs: who may do what with it
TablePlan queriesPlan();        // MSysQueries, empty
TablePlan relationshipsPlan();  // MSysRelationships, empty

// The objects and permissions of a file without user tables.
base::Result<void> addSystemRows(TableWriter& objects, TableWriter& permissions);
// Those of one user table.
base::Result<void> addTableRows(TableWriter& objects, TableWriter& permissions,
                                const std::string& name, std::uint32_t page);

}  // namespace jet
