#pragma once

#include "jet/RowSpace.h"
#include "jet/Table.h"

namespace jet {

// Changes fields of a table's rows within a transaction. Untouched columns keep their bytes, rows
// their position, and every index that holds a changed column gets the new key.
class TableEditor {
 public:
  TableEditor(Pager& pager, Table& table);

  // The whole change or none of it.
  base::Result<void> set(std::size_t position, std::size_t column, const Value& value);

 private:
  using OptionalBytes = std::optional<base::Bytes>;

  static base::Result<Value> asStored(const ColumnDef& column, const Value& value);
  base::Result<void> checkAllowed(const ColumnDef& column, const Value& value) const;
  base::Result<void> change(const Table::StoredRow& row, const RowView& view, std::size_t column,
                            const Value& value);
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
