#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "jet/Database.h"
#include "jet/engine/FieldText.h"
#include "jet/engine/IndexKey.h"
#include "jet/engine/Pager.h"
#include "jet/engine/RowPointer.h"

namespace jet {

// A column with what is needed to find its bytes in a row.
struct ColumnDef {
  Column column;
  std::uint8_t flags = 0;
  std::size_t slot = 0;         // variable columns: place in the row's offset table
  std::size_t fixedOffset = 0;  // fixed columns: place in the fixed part
  TextStorage storage;
  TextOrder textOrder = TextOrder::Unknown;
  // Pages of long values; nullopt when the file does not keep them or names them wrongly.
  std::optional<RowPointer> ownedPages;
  std::optional<RowPointer> freeSpacePages;

  bool isFixed() const { return column.fixedLength; }
  bool isLongValue() const {
    return column.type == ColumnType::Memo || column.type == ColumnType::Ole;
  }
};

// A tree of keys. Logical indexes stand for one of these; several may share one.
struct IndexDef {
  struct Part {
    std::size_t column = 0;  // position in TableDef::columns
    bool ascending = true;
  };
  std::string name;        // of the first logical index that stands for it
  std::size_t record = 0;  // where in the definition it is described
  std::vector<Part> parts;
  RowPointer pages;
  std::uint32_t root = 0;
  bool unique = false;
  bool ignoreNulls = false;
  bool required = false;
};

// The definition of a table: one or more pages, read and checked as a whole.
struct TableDef {
  std::uint32_t page = 0;
  std::vector<std::uint32_t> pages;  // all pages of the definition
  bool systemTable = false;
  std::uint32_t rowCount = 0;  // a hint: stale in some files
  std::uint32_t lastAutoNumber = 0;
  std::size_t maxColumns = 0;
  std::size_t variableSlots = 0;
  std::size_t fixedLength = 0;  // of a full row's fixed part, as far as present columns tell
  RowPointer ownedPages;
  RowPointer freeSpacePages;
  std::vector<ColumnDef> columns;  // by column number
  std::vector<IndexDef> indexes;
  std::vector<Index> logicalIndexes;  // as the file lists them

  // Errors carry the page; loops and lengths beyond the pages are Damaged.
  static base::Result<TableDef> read(const Pager& pager, std::uint32_t page);
  // The bytes of a new table's definition, heads of pages left out but the first's. Each logical
  // index stands for the tree of the same position; no rows are counted yet.
  base::Bytes encode(const format::Version& version) const;
  std::optional<std::size_t> columnByName(std::string_view name) const;
  // Writes another root page into the definition and keeps it here.
  base::Result<void> changeRoot(Pager& pager, std::size_t index, std::uint32_t root);
};

}  // namespace jet
