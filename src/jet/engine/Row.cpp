#include "jet/engine/Row.h"

#include <algorithm>
#include <cassert>

#include "jet/engine/Damage.h"
namespace jet {
namespace {

base::Failure wrong(const char* reason) {
  return refuse(ErrorCode::Damaged, reason);
}

std::uint32_t number(ByteSpan bytes, std::size_t offset, std::size_t width) {
  return width == 1 ? bytes[offset] : bytes[offset] | std::uint32_t{bytes[offset + 1]} << 8;
}

void appendNumber(base::Bytes& bytes, std::size_t value, std::size_t width) {
  for (std::size_t i = 0; i < width; ++i, value >>= 8)
    bytes.push_back(static_cast<std::uint8_t>(value));
}

void append(base::Bytes& bytes, ByteSpan more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

}  // namespace

Result<RowView> RowView::parse(const format::Version& version, const TableDef& table,
                               ByteSpan bytes) {
  // Read where it is returned: a view is large.
  Result<RowView> row{RowView()};
  if (auto done = row->read(version.row, table, bytes); !done) row = base::Failure(done.error());
  return row;
}

Result<void> RowView::read(const format::RowFormat& layout, const TableDef& table, ByteSpan bytes) {
  bytes_ = bytes;
  if (bytes.size() < layout.numberWidth) return wrong("a row is empty");
  columnCount_ = number(bytes, 0, layout.numberWidth);
  const std::size_t maskSize = (columnCount_ + 7) / 8;
  if (columnCount_ > table.maxColumns) return wrong("a row has too many columns");
  if (bytes.size() < layout.numberWidth + maskSize) return wrong("a row is too short");
  mask_ = bytes.subspan(bytes.size() - maskSize);
  fixed_ = bytes.subspan(layout.numberWidth, bytes.size() - maskSize - layout.numberWidth);
  if (table.variableSlots > 0)
    if (auto done = readVariable(layout, table.variableSlots); !done) return done;
  // Only rows from before the last columns came have less.
  if (columnCount_ == table.maxColumns && fixed_.size() < table.fixedLength)
    return wrong("a row is too short");
  return {};
}

// From the back: null mask, number of variable columns, jump table, offsets in reverse, and the end
// of the last value in front of them.
Result<void> RowView::readVariable(const format::RowFormat& layout, std::size_t slots) {
  const std::size_t width = layout.numberWidth;
  const std::size_t size = bytes_.size() - mask_.size();
  if (size < 3 * width) return wrong("a row is too short");
  const std::size_t count = number(bytes_, size - width, width);
  if (count > slots || count + 1 >= starts_.size())
    return wrong("a row has too many columns of variable length");

  // Offsets of one byte: the jump table names the columns from which 256 more are to be added. It
  // has an entry for each 256 bytes of the row, the last of which may not be needed.
  const std::size_t entries = layout.jumpTable ? (bytes_.size() - 1) / 256 : 0;
  const std::size_t tableSize = entries + width * (count + 2);
  if (size < width + tableSize) return wrong("a row is too short");
  const std::size_t tableStart = size - tableSize;
  const std::size_t firstOffset = size - width - entries - width;
  const std::size_t jumps =
      entries > 0 && (firstOffset - count) / 256 < entries ? entries - 1 : entries;
  variableCount_ = count;
  std::size_t used = 0;
  std::size_t previous = width;
  for (std::size_t slot = 0; slot <= count; ++slot) {
    while (used < jumps && slot == bytes_[size - width - 1 - used]) ++used;
    const std::size_t start = number(bytes_, firstOffset - slot * width, width) + 256 * used;
    if (start < previous || start > tableStart)
      return wrong("the bounds of a row's columns are wrong");
    starts_[slot] = static_cast<std::uint16_t>(start);
    previous = start;
  }
  fixed_ = bytes_.subspan(width, starts_[0] - width);
  return {};
}

bool RowView::bit(int columnNumber) const {
  const auto index = static_cast<std::size_t>(columnNumber);
  return index < columnCount_ && (mask_[index / 8] >> (index % 8) & 1) != 0;
}

std::optional<ByteSpan> RowView::field(const ColumnDef& def) const {
  if (!bit(def.column.number)) return std::nullopt;
  if (!def.isFixed()) {
    if (def.slot >= variableCount()) return std::nullopt;
    return variable(def.slot);
  }
  const auto length = static_cast<std::size_t>(def.column.length);
  if (def.fixedOffset + length > fixed_.size()) return std::nullopt;
  return fixed_.subspan(def.fixedOffset, length);
}

RowContent::RowContent(const format::Version& version, const TableDef& table)
    : layout_(&version.row),
      columnCount_(table.maxColumns),
      hasVariable_(table.variableSlots > 0),
      fixed_(table.fixedLength),
      variable_(table.variableSlots),
      mask_((columnCount_ + 7) / 8) {}

RowContent::RowContent(const format::Version& version, const TableDef& table, const RowView& row)
    : RowContent(version, table) {
  // A deleted column at the end of the fixed part shows only in the row's own length.
  fixed_.resize(std::max(row.fixedPart().size(), table.fixedLength));
  std::copy(row.fixedPart().begin(), row.fixedPart().end(), fixed_.begin());
  std::copy(row.nullMask().begin(), row.nullMask().end(), mask_.begin());
  for (std::size_t slot = 0; slot < row.variableCount(); ++slot)
    variable_[slot].assign(row.variable(slot).begin(), row.variable(slot).end());
}

void RowContent::setBit(int columnNumber, bool value) {
  const auto index = static_cast<std::size_t>(columnNumber);
  const auto bit = static_cast<std::uint8_t>(1u << (index % 8));
  std::uint8_t& byte = mask_[index / 8];
  byte = static_cast<std::uint8_t>(value ? byte | bit : byte & ~bit);
}

void RowContent::setField(const ColumnDef& def, std::optional<ByteSpan> bytes) {
  setBit(def.column.number, bytes.has_value());
  if (!def.isFixed()) {
    variable_[def.slot].clear();
    if (bytes) append(variable_[def.slot], *bytes);
  } else if (bytes) {
    assert(def.fixedOffset + bytes->size() <= fixed_.size());
    std::copy(bytes->begin(), bytes->end(),
              fixed_.begin() + static_cast<std::ptrdiff_t>(def.fixedOffset));
  }
}

std::vector<std::size_t> RowContent::starts() const {
  std::vector<std::size_t> starts = {layout_->numberWidth + fixed_.size()};
  for (const base::Bytes& value : variable_) starts.push_back(starts.back() + value.size());
  return starts;
}

// An entry for each 256 bytes of the row: the first column that starts that far in. The table makes
// the row longer, which may call for one more entry.
base::Bytes RowContent::jumpTable(std::size_t lengthWithoutIt,
                                  const std::vector<std::size_t>& starts) const {
  base::Bytes table;
  if (!layout_->jumpTable) return table;
  constexpr std::uint8_t kNoColumn = 0xFF;
  while (table.size() < (lengthWithoutIt + table.size() - 1) / 256) {
    const std::size_t limit = 256 * (table.size() + 1);
    const auto first = std::lower_bound(starts.begin(), starts.end(), limit);
    table.push_back(first == starts.end() ? kNoColumn
                                          : static_cast<std::uint8_t>(first - starts.begin()));
  }
  std::reverse(table.begin(), table.end());
  return table;
}

Result<base::Bytes> RowContent::encode() const {
  const std::size_t width = layout_->numberWidth;
  base::Bytes bytes;
  appendNumber(bytes, columnCount_, width);
  append(bytes, fixed_);
  if (hasVariable_) {
    for (const base::Bytes& value : variable_) append(bytes, value);
    const std::vector<std::size_t> offsets = starts();
    const std::size_t length = bytes.size() + width * (offsets.size() + 1) + mask_.size();
    for (auto offset = offsets.rbegin(); offset != offsets.rend(); ++offset)
      appendNumber(bytes, *offset, width);
    append(bytes, jumpTable(length, offsets));
    appendNumber(bytes, variable_.size(), width);
  }
  append(bytes, mask_);
  if (bytes.size() > layout_->maxLength)
    return refuse(ErrorCode::InvalidValue, "the row gets too long");
  return bytes;
}

}  // namespace jet
