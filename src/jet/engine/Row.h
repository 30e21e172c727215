#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "base/Bytes.h"
#include "base/Result.h"
#include "jet/engine/TableDef.h"
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
  std::size_t variableCount() const { return variableCount_; }
  base::ByteSpan variable(std::size_t slot) const {
    return bytes_.subspan(starts_[slot], std::size_t{starts_[slot + 1]} - starts_[slot]);
  }

 private:
  RowView() = default;
  base::Result<void> read(const format::RowFormat& layout, const TableDef& table,
                          base::ByteSpan bytes);
  base::Result<void> readVariable(const format::RowFormat& layout, std::size_t slots);

  base::ByteSpan bytes_;
  base::ByteSpan fixed_;
  base::ByteSpan mask_;
  std::size_t columnCount_ = 0;
  std::size_t variableCount_ = 0;
  // Of the variable columns, and the end of the last. Not on the heap: rows are many.
  std::array<std::uint16_t, 257> starts_;
};

// The parts of a row with copies of its values, to change some and write it anew. Raw bytes of
// every other column stay what they were, those of deleted columns included.
class RowContent {
 public:
  // A full row of the table: what the stored one lacks is Null.
  RowContent(const format::Version& version, const TableDef& table, const RowView& row);
  // A new row in which all is Null.
  RowContent(const format::Version& version, const TableDef& table);

  // nullopt for Null. Fixed columns keep their length.
  void setField(const ColumnDef& column, std::optional<base::ByteSpan> bytes);
  void setBit(int columnNumber, bool value);

  // InvalidValue when the row gets longer than the format allows.
  base::Result<base::Bytes> encode() const;

 private:
  std::vector<std::size_t> starts() const;
  base::Bytes jumpTable(std::size_t lengthWithoutIt, const std::vector<std::size_t>& starts) const;

  const format::RowFormat* layout_;
  std::size_t columnCount_;
  bool hasVariable_;
  base::Bytes fixed_;
  std::vector<base::Bytes> variable_;
  base::Bytes mask_;
};

}  // namespace jet
