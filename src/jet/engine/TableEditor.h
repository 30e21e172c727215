#pragma once

#include "jet/engine/RowSpace.h"
#include "jet/engine/Table.h"

namespace jet {

// Adds, changes and deletes a table's rows within a transaction. Untouched columns keep their
// bytes, and every index of the table is kept right. What a failure leaves half done the caller
// undoes.
class TableEditor {
 public:
  TableEditor(Pager& pager, Table& table);

  base::Result<void> set(std::size_t position, std::size_t column, const Value& value);
  // One value per column; the row's position.
  base::Result<std::size_t> insert(std::vector<Value> values);
  base::Result<void> erase(std::size_t position);

 private:
  using OptionalBytes = std::optional<base::Bytes>;

  static base::Result<Value> asStored(const ColumnDef& column, const Value& value);
  base::Result<void> checkAllowed(const ColumnDef& column) const;
  // The row at a position, taken apart.
  struct OpenRow {
    Table::StoredRow stored;
    RowView view;
  };
  base::Result<OpenRow> open(std::size_t position) const;
  base::Result<base::Bytes> encodeRow(std::vector<Value>& values);
  base::Result<void> encodeInto(RowContent& row, const ColumnDef& column, Value& value);
  base::Result<void> countRows(std::uint32_t rows, std::uint32_t lastAutoNumber);
  base::Result<void> changeField(const Table::StoredRow& row, const RowView& view,
                                 const ColumnDef& column, const Value& value);
  // What the row is to hold; long values go to their pages.
  base::Result<OptionalBytes> encode(const ColumnDef& column, const Value& value);
  base::Result<bool> patch(const Table::StoredRow& row, const RowView& view,
                           const ColumnDef& column, const OptionalBytes& bytes);
  base::Result<void> store(const Table::StoredRow& row, base::ByteSpan bytes);
  base::Result<bool> storeAt(RowPointer place, base::ByteSpan bytes);
  base::Result<bool> bringHome(const Table::StoredRow& row, base::ByteSpan bytes);
  base::Result<void> relocate(const Table::StoredRow& row, base::ByteSpan bytes);

  Pager* pager_;
  Table* table_;
  RowSpace space_;
};

}  // namespace jet
