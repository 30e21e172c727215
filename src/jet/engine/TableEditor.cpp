#include "jet/engine/TableEditor.h"

#include <algorithm>

#include "jet/engine/Damage.h"
#include "jet/engine/FieldValue.h"
#include "jet/engine/LongValue.h"
#include "jet/engine/TableIndexes.h"

namespace jet {
namespace {

constexpr std::size_t kPointerSize = sizeof(format::RowPointerRecord);

}  // namespace

TableEditor::TableEditor(Pager& pager, Table& table)
    : pager_(&pager),
      table_(&table),
      space_(pager, table.def().page, table.def().ownedPages, table.def().freeSpacePages) {}

Result<TableEditor::OpenRow> TableEditor::open(std::size_t position) const {
  auto row = table_->stored(table_->row(position));
  if (!row) return Failure(row.error());
  if (row->pointers > 1) return refuse(ErrorCode::Unsupported, "the row was moved more than once");
  auto view = RowView::parse(pager_->version(), table_->def(), row->bytes);
  if (!view) return at(row->place.page, view.error());
  return OpenRow{std::move(*row), *view};
}

Result<void> TableEditor::set(std::size_t position, std::size_t column, const Value& given) {
  const ColumnDef& def = table_->def().columns[column];
  if (auto allowed = checkAllowed(def); !allowed) return allowed;
  auto normalized = asStored(def, given);
  if (!normalized) return Failure(normalized.error());
  const Value& value = *normalized;
  auto row = open(position);
  if (!row) return Failure(row.error());
  const auto decode = [&](std::size_t c) { return table_->decode(row->view, c); };
  auto old = decode(column);
  if (!old) return at(row->stored.place.page, old.error());
  if (*old == value) return {};
  TableIndexes indexes(*pager_, *table_);
  const auto changed = [&](std::size_t c) {
    return c == column ? Result<Value>(value) : decode(c);
  };
  auto keys = indexes.plan({row->stored.home, decode, changed, column});
  if (!keys) return Failure(keys.error());
  if (auto done = changeField(row->stored, row->view, def, value); !done) return done;
  return indexes.apply(*keys);
}

// --- rows that come and go ---

Result<std::size_t> TableEditor::insert(std::vector<Value> values) {
  if (values.size() != table_->def().columns.size())
    return refuse(ErrorCode::InvalidValue, "there are too few or too many values");
  std::uint32_t last = table_->def().lastAutoNumber;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Column& column = table_->def().columns[i].column;
    if (!column.autoNumber || column.type != ColumnType::Long) continue;
    if (isNull(values[i])) values[i] = std::int64_t{last} + 1;
    const auto* number = std::get_if<std::int64_t>(&values[i]);
    if (number != nullptr && *number > last) last = static_cast<std::uint32_t>(*number);
  }
  auto bytes = encodeRow(values);
  if (!bytes) return Failure(bytes.error());
  auto row = space_.insert(*bytes, SlotState::Row);
  if (!row) return Failure(row.error());
  TableIndexes indexes(*pager_, *table_);
  auto keys = indexes.plan({*row, {}, [&](std::size_t c) { return Result<Value>(values[c]); }, {}});
  if (!keys) return Failure(keys.error());
  if (auto done = indexes.apply(*keys); !done) return Failure(done.error());
  if (auto done = countRows(table_->def().rowCount + 1, last); !done) return Failure(done.error());
  return table_->addRow(*row);
}

// The values become what a reader will find.
Result<base::Bytes> TableEditor::encodeRow(std::vector<Value>& values) {
  RowContent content(pager_->version(), table_->def());
  for (std::size_t i = 0; i < values.size(); ++i) {
    const ColumnDef& def = table_->def().columns[i];
    if (auto done = encodeInto(content, def, values[i]); !done)
      return about(table_->name() + "." + def.column.name, done.error());
  }
  return content.encode();
}

Result<void> TableEditor::encodeInto(RowContent& row, const ColumnDef& def, Value& value) {
  auto normalized = asStored(def, value);
  if (!normalized) return Failure(normalized.error());
  value = std::move(*normalized);
  if (def.column.type == ColumnType::Boolean) {
    row.setBit(def.column.number, std::get<bool>(value));
    return {};
  }
  auto field = encode(def, value);
  if (!field) return Failure(field.error());
  row.setField(def, *field ? std::optional<ByteSpan>(**field) : std::nullopt);
  return {};
}

Result<void> TableEditor::erase(std::size_t position) {
  auto row = open(position);
  if (!row) return Failure(row.error());
  TableIndexes indexes(*pager_, *table_);
  auto keys = indexes.plan(
      {row->stored.home, [&](std::size_t c) { return table_->decode(row->view, c); }, {}, {}});
  if (!keys) return Failure(keys.error());
  for (const ColumnDef& def : table_->def().columns) {
    const auto field = def.isLongValue() ? row->view.field(def) : std::nullopt;
    if (!field) continue;
    if (auto done = eraseLongValue(*pager_, def, *field); !done) return done;
  }
  if (row->stored.place != row->stored.home)
    if (auto done = space_.erase(row->stored.place); !done) return done;
  if (auto done = space_.erase(row->stored.home); !done) return done;
  if (auto done = indexes.apply(*keys); !done) return done;
  const std::uint32_t rows = table_->def().rowCount;
  if (auto done = countRows(rows > 0 ? rows - 1 : 0, table_->def().lastAutoNumber); !done)
    return done;
  table_->removeRow(position);
  return {};
}

Result<void> TableEditor::countRows(std::uint32_t rows, std::uint32_t lastAutoNumber) {
  TableDef& def = table_->def();
  auto head = pager_->edit(def.page);
  if (!head) return Failure(head.error());
  pager_->version().table.rowCount.set(*head, rows);
  pager_->version().table.lastAutoNumber.set(*head, lastAutoNumber);
  def.rowCount = rows;
  def.lastAutoNumber = lastAutoNumber;
  return {};
}

// --- one field ---

// The value in the column's own kind, as it will be read.
Result<Value> TableEditor::asStored(const ColumnDef& def, const Value& value) {
  if (def.column.type == ColumnType::Boolean && isNull(value)) return Value(false);
  if (def.column.type == ColumnType::Boolean && !std::holds_alternative<bool>(value))
    return refuse(ErrorCode::InvalidValue, "the value is of another kind than the column");
  if (def.column.type == ColumnType::Boolean || isNull(value)) return value;
  auto bytes = encodeField(def, value);
  if (!bytes) return Failure(bytes.error());
  return decodeField(def, *bytes);
}

Result<void> TableEditor::checkAllowed(const ColumnDef& def) const {
  if (def.column.autoNumber)
    return refuse(ErrorCode::Unsupported, "an AutoNumber cannot be changed");
  if ((def.flags & format::kColumnMasked) != 0)
    return refuse(ErrorCode::Unsupported, "system tables are not changed");
  return {};
}

Result<void> TableEditor::changeField(const Table::StoredRow& row, const RowView& view,
                                      const ColumnDef& def, const Value& value) {
  if (def.column.type == ColumnType::Boolean) {
    RowContent content(pager_->version(), table_->def(), view);
    content.setBit(def.column.number, std::get<bool>(value));
    auto bytes = content.encode();
    if (!bytes) return Failure(bytes.error());
    return store(row, *bytes);
  }
  // A copy: the page changes below.
  base::Bytes oldField;
  if (const auto bytes = view.field(def)) oldField.assign(bytes->begin(), bytes->end());
  auto field = encode(def, value);
  if (!field) return Failure(field.error());
  auto patched = patch(row, view, def, *field);
  if (!patched) return Failure(patched.error());
  if (!*patched) {
    RowContent content(pager_->version(), table_->def(), view);
    content.setField(def, *field ? std::optional<ByteSpan>(**field) : std::nullopt);
    auto bytes = content.encode();
    if (!bytes) return Failure(bytes.error());
    if (auto done = store(row, *bytes); !done) return done;
  }
  if (def.isLongValue()) return eraseLongValue(*pager_, def, oldField);
  return {};
}

Result<TableEditor::OptionalBytes> TableEditor::encode(const ColumnDef& def, const Value& value) {
  if (isNull(value)) return std::nullopt;
  auto bytes = encodeField(def, value);
  if (bytes && def.isLongValue()) bytes = writeLongValue(*pager_, def, *bytes);
  if (!bytes) return Failure(bytes.error());
  if (def.isFixed() && bytes->size() != static_cast<std::size_t>(def.column.length))
    return damaged(table_->def().page, "the length of a column is described wrongly");
  return std::move(*bytes);
}

// A fixed column of a row that has room for it: nothing else of the page changes.
Result<bool> TableEditor::patch(const Table::StoredRow& row, const RowView& view,
                                const ColumnDef& def, const OptionalBytes& bytes) {
  const auto number = static_cast<std::size_t>(def.column.number);
  const auto length = static_cast<std::size_t>(def.column.length);
  const bool hasRoom = def.isFixed() && number < view.columnCount() &&
                       def.fixedOffset + length <= view.fixedPart().size();
  if (!hasRoom) return false;
  auto page = space_.edit(row.place.page);
  if (!page) return Failure(page.error());
  const auto target = page->bytes(row.place.slot);
  if (bytes) {
    const std::size_t offset = pager_->version().row.numberWidth + def.fixedOffset;
    std::copy(bytes->begin(), bytes->end(), target.begin() + static_cast<std::ptrdiff_t>(offset));
  }
  std::uint8_t& mask = target[target.size() - view.nullMask().size() + number / 8];
  const auto bit = static_cast<std::uint8_t>(1u << (number % 8));
  mask = static_cast<std::uint8_t>(bytes ? mask | bit : mask & ~bit);
  return true;
}

Result<void> TableEditor::store(const Table::StoredRow& row, ByteSpan bytes) {
  if (row.place != row.home) {
    auto home = bringHome(row, bytes);
    if (!home) return Failure(home.error());
    if (*home) return {};
  }
  auto stored = storeAt(row.place, bytes);
  if (!stored) return Failure(stored.error());
  return *stored ? Result<void>() : relocate(row, bytes);
}

// False when the page has no room for the row where it is.
Result<bool> TableEditor::storeAt(RowPointer place, ByteSpan bytes) {
  auto page = space_.edit(place.page);
  if (!page) return Failure(page.error());
  const std::size_t old = page->slot(place.slot).length();
  if (bytes.size() > old + page->freeBytes()) return false;
  page->resize(place.slot, bytes.size());
  std::copy(bytes.begin(), bytes.end(), page->bytes(place.slot).begin());
  if (bytes.size() != old)
    if (auto done = space_.changed(place.page); !done) return Failure(done.error());
  return true;
}

Result<bool> TableEditor::bringHome(const Table::StoredRow& row, ByteSpan bytes) {
  // The row's place may be on the same page; freeing it first makes room at home.
  auto home = space_.edit(row.home.page);
  if (!home) return Failure(home.error());
  const std::size_t freed =
      row.home.page == row.place.page ? home->slot(row.place.slot).length() : 0;
  if (bytes.size() > home->slot(row.home.slot).length() + home->freeBytes() + freed) return false;
  if (auto done = space_.erase(row.place); !done) return Failure(done.error());
  home->setState(row.home.slot, SlotState::Row);
  return storeAt(row.home, bytes);
}

// The row goes to another page; its place keeps a pointer, so that indexes need not know.
Result<void> TableEditor::relocate(const Table::StoredRow& row, ByteSpan bytes) {
  if (row.place != row.home)
    if (auto done = space_.erase(row.place); !done) return done;
  auto target = space_.insert(bytes, SlotState::Target);
  if (!target) return Failure(target.error());
  auto home = space_.edit(row.home.page);
  if (!home) return Failure(home.error());
  const std::size_t length = home->slot(row.home.slot).length();
  const bool resized =
      length < kPointerSize || (pager_->version().row.shrinkMovedRows && length > kPointerSize);
  if (length < kPointerSize && home->freeBytes() < kPointerSize - length)
    return damaged(row.home.page, "there is no room for the pointer to a row");
  if (resized) home->resize(row.home.slot, kPointerSize);
  home->setState(row.home.slot, SlotState::Moved);
  const format::Field pointer{0, kPointerSize};
  pointer.set(home->bytes(row.home.slot), target->toNumber());
  return resized ? space_.changed(row.home.page) : Result<void>();
}

}  // namespace jet
