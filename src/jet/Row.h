#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/Bytes.h"
#include "base/Result.h"
#include "jet/TableDef.h"
#include "jet/format/Version.h"

namespace jet {

// The bytes of one row taken apart, without a copy: valid as long as the bytes are.
class RowView {
 public:
  // Damaged (without a page) when the parts contradict each other or the table.
  static base::Result<RowView> parse(const format::Version& version, const TableDef& table,
                                     base::ByteSpan bytes);

  std::size_t columnCount() const { return columnCount_; }
  // A Boolean's value; for others whether there is one.
  bool bit(int columnNumber) const;
  // The stored bytes; nullopt for Null. Rows that are shorter than the definition have Null in the
  // columns that came later. Not for Booleans.
  std::optional<base::ByteSpan> field(const ColumnDef& column) const;

  base::ByteSpan fixedPart() const { return fixed_; }
  base::ByteSpan nullMask() const { return mask_; }
  std::size_t variableCount() const { return starts_.empty() ? 0 : starts_.size() - 1; }
  base::ByteSpan variable(std::size_t slot) const {
    return bytes_.subspan(starts_[slot], starts_[slot + 1] - starts_[slot]);
  }

 private:
  base::Result<void> parseVariable(const format::RowFormat& layout, std::size_t slots);

  base::ByteSpan bytes_;
  base::ByteSpan fixed_;
  base::ByteSpan mask_;
  std::size_t columnCount_ = 0;
  std::vector<std::size_t> starts_;  // of the variable columns, and the end of the last
};

}  // namespace jet
