#include "jet/engine/Table.h"

#include <algorithm>

#include "jet/engine/Damage.h"
#include "jet/engine/FieldValue.h"
#include "jet/engine/LongValue.h"
#include "jet/engine/UsageMap.h"

namespace jet {
namespace {

using format::PageKind;

// A pointer normally leads straight to its row.
constexpr int kMaxPointerSteps = 16;

}  // namespace

Result<std::unique_ptr<Table>> Table::open(Pager& pager, std::uint32_t definition,
                                           std::string name) {
  auto table = openDefinition(pager, definition, std::move(name));
  if (!table) return table;
  if (auto done = (*table)->scan(); !done) return Failure(done.error());
  return table;
}

Result<std::unique_ptr<Table>> Table::openDefinition(Pager& pager, std::uint32_t definition,
                                                     std::string name) {
  std::unique_ptr<Table> table(new Table(pager, definition, std::move(name)));
  if (auto done = table->reload(); !done) return Failure(done.error());
  return table;
}

Table::Table(Pager& pager, std::uint32_t definition, std::string name)
    : pager_(&pager), name_(std::move(name)) {
  def_.page = definition;
}

Result<void> Table::reload() {
  auto def = TableDef::read(*pager_, def_.page);
  if (!def) return located(def.error(), def_.page);
  def_ = std::move(*def);
  indexStates_.assign(def_.indexes.size(), {});
  return {};
}

Failure Table::located(base::Error error, std::uint32_t page) const {
  if (!error.page) error.page = page;
  if (error.subject.empty()) error.subject = name_;
  return pager_->located(std::move(error));
}

Result<void> Table::scan() {
  auto pages = UsageMap(*pager_, def_.ownedPages).pages();
  if (!pages) return located(pages.error(), def_.page);
  std::vector<RowPointer> rows;
  for (const std::uint32_t number : *pages)
    if (auto done = scanPage(number, rows); !done) return located(done.error(), number);
  rows_ = std::move(rows);
  return {};
}

std::size_t Table::addRow(RowPointer row) {
  const auto place = rows_.insert(std::lower_bound(rows_.begin(), rows_.end(), row), row);
  return static_cast<std::size_t>(place - rows_.begin());
}

void Table::removeRow(std::size_t position) {
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(position));
}

Result<DataPage> Table::ownPage(std::uint32_t number, PageRef& page) const {
  auto found = pager_->page(number, PageKind::Data);
  if (!found) return Failure(found.error());
  page = *found;
  auto data = DataPage::parse(pager_->version(), number, *page);
  if (!data) return data;
  if (data->owner() != def_.page) return damaged(number, "the page is one of another table");
  return data;
}

Result<void> Table::scanPage(std::uint32_t number, std::vector<RowPointer>& rows) const {
  PageRef page;
  auto data = ownPage(number, page);
  if (!data) return Failure(data.error());
  for (std::size_t i = 0; i < data->slotCount(); ++i) {
    auto slot = data->slot(i);
    if (!slot) return Failure(slot.error());
    if (slot->state == SlotState::Target || slot->state == SlotState::Deleted) continue;
    const RowPointer home{number, static_cast<std::uint8_t>(i)};
    if (slot->state == SlotState::Moved)
      if (auto target = stored(home); !target) return Failure(target.error());
    rows.push_back(home);
  }
  return {};
}

Result<Table::StoredRow> Table::stored(RowPointer home) const {
  StoredRow row{home, home, {}, {}, 0};
  for (; row.pointers < kMaxPointerSteps; ++row.pointers) {
    auto data = ownPage(row.place.page, row.page);
    if (!data) return Failure(data.error());
    auto slot = data->slot(row.place.slot);
    if (!slot) return Failure(slot.error());
    row.bytes = data->bytes(*slot);
    if (slot->state != SlotState::Moved) {
      const SlotState expected = row.pointers == 0 ? SlotState::Row : SlotState::Target;
      if (slot->state != expected)
        return damaged(row.place.page, "a pointer leads to the wrong row %1", row.place.slot);
      return row;
    }
    if (row.bytes.size() < sizeof(format::RowPointerRecord))
      return damaged(row.place.page, "a pointer to a row is too short");
    row.place = RowPointer::fromNumber(format::Field{0, 4}.get(row.bytes));
  }
  return damaged(home.page, "pointers to rows run in a circle");
}

Result<Value> Table::decode(const RowView& row, std::size_t column) const {
  const ColumnDef& def = def_.columns[column];
  if (def.column.type == ColumnType::Boolean) return row.bit(def.column.number);
  const auto field = row.field(def);
  if (!field) return Null();
  return def.isLongValue() ? decodeLong(def, *field) : decodeStored(def, *field);
}

Result<Value> Table::decodeLong(const ColumnDef& def, base::ByteSpan field) const {
  auto bytes = readLongValue(*pager_, field);
  if (!bytes) return about(name_ + "." + def.column.name, bytes.error());
  return decodeStored(def, *bytes);
}

Result<Value> Table::decodeStored(const ColumnDef& def, base::ByteSpan bytes) const {
  Result<Value> value = decodeField(def, bytes);
  if (!value) value = about(name_ + "." + def.column.name, value.error());
  return value;
}

Result<Value> Table::value(std::size_t position, std::size_t column) const {
  const RowPointer home = rows_[position];
  auto row = stored(home);
  if (!row) return located(row.error(), home.page);
  auto view = RowView::parse(pager_->version(), def_, row->bytes);
  if (!view) return located(view.error(), row->place.page);
  auto value = decode(*view, column);
  if (!value) return located(value.error(), row->place.page);
  return value;
}

Result<std::vector<Value>> Table::values(std::size_t position) const {
  const RowPointer home = rows_[position];
  auto row = stored(home);
  if (!row) return located(row.error(), home.page);
  auto view = RowView::parse(pager_->version(), def_, row->bytes);
  if (!view) return located(view.error(), row->place.page);
  std::vector<Value> values;
  values.reserve(def_.columns.size());
  for (std::size_t column = 0; column < def_.columns.size(); ++column) {
    auto value = decode(*view, column);
    if (!value) return located(value.error(), row->place.page);
    values.push_back(std::move(*value));
  }
  return values;
}

}  // namespace jet
