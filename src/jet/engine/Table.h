#pragma once

#include <memory>
#include <string>
#include <vector>

#include "jet/engine/DataPage.h"
#include "jet/engine/Pager.h"
#include "jet/engine/Row.h"
#include "jet/engine/TableDef.h"

namespace jet {

// A table's definition and where its rows lie. Positions are those of the natural order: pages of
// the table ascending, slots ascending. A row keeps its position when it moves to another page,
// because the pointer stays behind.
class Table {
 public:
  static base::Result<std::unique_ptr<Table>> open(Pager& pager, std::uint32_t definition,
                                                   std::string name);

  // Without its rows: scan() finds them.
  static base::Result<std::unique_ptr<Table>> openDefinition(Pager& pager, std::uint32_t definition,
                                                             std::string name);

  const std::string& name() const { return name_; }
  const TableDef& def() const { return def_; }
  std::size_t rowCount() const { return rows_.size(); }
  RowPointer row(std::size_t position) const { return rows_[position]; }
  // Reads the definition anew, after a change of it was rolled back.
  base::Result<void> reload();
  TableDef& def() { return def_; }
  // What is known of each index: nothing, that it is sound, or what is wrong with it.
  struct IndexState {
    bool checked = false;
    std::optional<base::Error> damage;
  };
  std::vector<IndexState>& indexStates() { return indexStates_; }
  const std::vector<IndexState>& indexStates() const { return indexStates_; }
  // Finds the rows anew.
  base::Result<void> scan();
  // A row has come, or gone. Its position.
  std::size_t addRow(RowPointer row);
  void removeRow(std::size_t position);

  base::Result<Value> value(std::size_t position, std::size_t column) const;
  base::Result<std::vector<Value>> values(std::size_t position) const;

  // A row's bytes; where they really lie if the row was moved.
  struct StoredRow {
    RowPointer home;
    RowPointer place;
    PageRef page;
    base::ByteSpan bytes;
    int pointers = 0;  // followed on the way from home
  };
  base::Result<StoredRow> stored(RowPointer home) const;
  base::Result<Value> decode(const RowView& row, std::size_t column) const;

  // Adds the table's name and the file.
  base::Failure located(base::Error error, std::uint32_t page) const;

 private:
  Table(Pager& pager, std::uint32_t definition, std::string name);
  base::Result<Value> decodeLong(const ColumnDef& column, base::ByteSpan field) const;
  base::Result<Value> decodeStored(const ColumnDef& column, base::ByteSpan bytes) const;
  base::Result<DataPage> ownPage(std::uint32_t number, PageRef& page) const;
  base::Result<void> scanPage(std::uint32_t number, std::vector<RowPointer>& rows) const;

  Pager* pager_;
  std::string name_;
  TableDef def_;
  std::vector<RowPointer> rows_;
  std::vector<IndexState> indexStates_;
};

}  // namespace jet
