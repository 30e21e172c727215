#pragma once

#include "jet/NewTable.h"
#include "jet/engine/TableDef.h"

namespace jet {

class Table;

// Rows for the usage maps of new tables, on pages that have nothing else.
class MapPages {
 public:
  explicit MapPages(Pager& pager) : pager_(&pager) {}
  // An empty map.
  base::Result<RowPointer> add();

 private:
  Pager* pager_;
  std::uint32_t page_ = 0;  // 0 = none yet
};

// Gives a table that is only described what it needs in the file: maps, pages of its definition
// behind the first, which is there, and the roots of its indexes. Writes the definition.
base::Result<void> layOut(Pager& pager, MapPages& maps, TableDef& table);

// The file's own tables of objects and of what may be done with them, in which a table is entered.
struct CatalogTables {
  Table& objects;
  Table& permissions;
};

// Makes a table with its rows and enters it; the page of its definition. Unsupported when the
// catalog does not tell who may use new tables.
base::Result<std::uint32_t> makeTable(Pager& pager, CatalogTables catalog, const NewTable& table,
                                      DateTime made);

}  // namespace jet
