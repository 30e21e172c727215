#pragma once

#include <set>
#include <string>
#include <vector>

#include "base/Result.h"
#include "jet/IndexPage.h"
#include "jet/NewFile.h"
#include "jet/TableDef.h"
#include "jet/Value.h"

namespace jet {

struct PlannedIndex {
  std::string name;
  std::vector<IndexDef::Part> parts;  // columns by position
  std::uint8_t flags = 0;             // as in the file
  bool primary = false;
};

// What is written into a table's definition.
struct TablePlan {
  std::string name;
  bool system = false;
  std::vector<ColumnDef> columns;  // by column number
  std::vector<std::size_t> order;  // in which the definition lists them; empty = by number
  std::vector<PlannedIndex> indexes;
};

// Adds a column behind the others and works out its place in the row. flags: without the one for
// fixed columns, which follows from the type.
void addColumn(TablePlan& plan, std::string name, ColumnType type, int length, std::uint8_t flags);

// Writes one table of a file in the making: pages first, rows, then definition and indexes.
class TableWriter {
 public:
  // Takes the definition's pages (page, which exists, and more behind the last if needed), the maps
  // and the roots of the indexes.
  TableWriter(NewFile& file, TablePlan plan, std::uint32_t page);

  // One value per column; Null in an AutoNumber column takes the next number. InvalidValue names
  // the field that cannot be stored, or the unique index that the row breaks.
  base::Result<void> addRow(std::vector<Value> values);
  void startDataPage();
  // Writes definition and indexes.
  void finish();

  const TablePlan& plan() const { return plan_; }
  std::uint32_t page() const { return definition_.front(); }

 private:
  struct Maps {
    RowPointer owned;
    RowPointer free;
  };
  void takeMaps();
  base::Result<base::Bytes> encodeRow(std::vector<Value>& values);
  base::Result<base::Bytes> encodeValue(std::size_t column, Value& value);
  base::Result<base::Bytes> longValue(std::size_t column, const Value& value);
  RowPointer putOnLongValuePage(std::size_t column, base::ByteSpan row);
  base::Result<void> addKeys(const std::vector<Value>& values, RowPointer row);
  std::uint32_t writeIndex(std::size_t index);
  base::Bytes definition(const std::vector<std::uint32_t>& distinct) const;
  void writeDefinition(const base::Bytes& bytes);
  base::Failure invalid(const std::string& detail, const std::string& column = {}) const;

  NewFile& file_;
  TablePlan plan_;
  std::vector<std::uint32_t> definition_;  // its pages
  Maps maps_;
  std::vector<Maps> longValueMaps_;  // by column; of others unused
  std::vector<std::uint32_t> longValuePage_;
  std::vector<RowPointer> indexMaps_;
  std::vector<std::uint32_t> roots_;
  std::vector<std::vector<IndexEntry>> entries_;  // per index
  std::vector<std::set<base::Bytes>> keys_;
  std::uint32_t dataPage_ = 0;
  std::uint32_t rowCount_ = 0;
  std::uint32_t lastAutoNumber_ = 0;
};

}  // namespace jet
