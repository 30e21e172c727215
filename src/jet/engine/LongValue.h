#pragma once

#include "jet/engine/Pager.h"
#include "jet/engine/TableDef.h"

namespace jet {

// The bytes behind a memo or OLE field, whose row holds only a head (and short values). Every chain
// is bounded by the length that its head tells. Errors carry the page.
base::Result<base::Bytes> readLongValue(const Pager& pager, base::ByteSpan field);

// Stores a value and returns what the row holds of it. Unsupported for a value that needs pages of
// a column whose pages the file does not keep track of.
base::Result<base::Bytes> writeLongValue(Pager& pager, const ColumnDef& column,
                                         base::ByteSpan value);

// Frees the rows of a value that no row refers to any more.
base::Result<void> eraseLongValue(Pager& pager, const ColumnDef& column, base::ByteSpan field);

// Rows on pages of long values that a field refers to, in order; none for an inline one.
base::Result<std::vector<RowPointer>> longValueRows(const Pager& pager, base::ByteSpan field);

}  // namespace jet
