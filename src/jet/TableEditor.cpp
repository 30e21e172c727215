#include "jet/TableEditor.h"

#include <algorithm>

#include "jet/Damage.h"
#include "jet/FieldValue.h"
#include "jet/LongValue.h"
#include "jet/TableIndexes.h"

namespace jet {
namespace {

using base::ByteSpan;
using base::ErrorCode;
using base::Failure;
using base::Result;

constexpr std::size_t kPointerSize = sizeof(format::RowPointerRecord);

}  // namespace

TableEditor::TableEditor(Pager& pager, Table& table)
    : pager_(&pager),
      table_(&table),
      space_(pager, table.def().page, table.def().ownedPages, table.def().freeSpacePages) {}

Result<void> TableEditor::set(std::size_t position, std::size_t column, const Value& given) {
  const ColumnDef& def = table_->def().columns[column];
  if (auto allowed = checkAllowed(def, given); !allowed) return allowed;
  auto normalized = asStored(def, given);
  if (!normalized) return Failure(normalized.error());
  const Value& value = *normalized;
  auto row = table_->stored(table_->row(position));
  if (!row) return Failure(row.error());
  if (row->pointers > 1)
    return base::fail(ErrorCode::Unsupported, "Der Datensatz wurde mehrfach verschoben");
  auto view = RowView::parse(pager_->version(), table_->def(), row->bytes);
  if (!view) return at(row->place.page, view.error());
  auto old = table_->decode(*view, column);
  if (!old) return at(row->place.page, old.error());
  if (*old == value) return {};
  Pager::Step step(*pager_);
  if (auto done = change(*row, *view, column, value); !done) return done;
  step.keep();
  return {};
}

// The value in the column's own kind, as it will be read.
Result<Value> TableEditor::asStored(const ColumnDef& def, const Value& value) {
  if (def.column.type == ColumnType::Boolean) return isNull(value) ? Value(false) : value;
  if (isNull(value)) return value;
  auto bytes = encodeField(def, value);
  if (!bytes) return Failure(bytes.error());
  return decodeField(def, *bytes);
}

Result<void> TableEditor::checkAllowed(const ColumnDef& def, const Value& value) const {
  if (def.column.autoNumber)
    return base::fail(ErrorCode::Unsupported, "Ein AutoWert-Feld kann nicht geändert werden");
  if ((def.flags & format::kColumnMasked) != 0 || table_->def().systemTable)
    return base::fail(ErrorCode::Unsupported, "Systemtabellen werden nicht geändert");
  if (def.column.type == ColumnType::Boolean && !isNull(value) &&
      !std::holds_alternative<bool>(value))
    return base::fail(ErrorCode::InvalidValue, "Der Wert passt nicht zur Art des Feldes");
  return {};
}

Result<void> TableEditor::change(const Table::StoredRow& row, const RowView& view,
                                 std::size_t column, const Value& value) {
  TableIndexes indexes(*pager_, *table_);
  auto keys = indexes.plan(row.home, view, column, value);
  if (!keys) return Failure(keys.error());
  if (auto done = changeField(row, view, table_->def().columns[column], value); !done) return done;
  return indexes.apply(*keys);
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
    return damaged(table_->def().page, "Länge eines Feldes ist falsch beschrieben");
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
    return damaged(row.home.page, "Kein Platz für den Verweis auf einen Datensatz");
  if (resized) home->resize(row.home.slot, kPointerSize);
  home->setState(row.home.slot, SlotState::Moved);
  const format::Field pointer{0, kPointerSize};
  pointer.set(home->bytes(row.home.slot), target->toNumber());
  return resized ? space_.changed(row.home.page) : Result<void>();
}

}  // namespace jet
