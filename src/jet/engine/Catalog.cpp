#include "jet/engine/Catalog.h"

#include <algorithm>
#include <array>

#include "base/Paths.h"
#include "jet/engine/Damage.h"
#include "jet/engine/Row.h"
#include "jet/engine/Table.h"

namespace jet {
namespace {

constexpr std::int64_t kTypeTable = 1;
constexpr std::int64_t kDefinitionMask = 0x00FFFFFF;
constexpr std::int64_t kSystemFlags = 0x80000002;

// Positions of the columns that tell where a table is.
struct CatalogColumns {
  std::size_t id = 0, type = 0, name = 0, flags = 0;

  static Result<CatalogColumns> find(const TableDef& def) {
    std::array<std::size_t, 4> found{};
    constexpr std::array<const char*, 4> kNames = {"Id", "Type", "Name", "Flags"};
    for (std::size_t i = 0; i < kNames.size(); ++i) {
      const auto column = def.columnByName(kNames[i]);
      if (!column) return damaged(kCatalogPage, "the catalog has no column %1", kNames[i]);
      found[i] = *column;
    }
    return CatalogColumns{found[0], found[1], found[2], found[3]};
  }
};

std::int64_t numberOr0(const Value& value) {
  const auto* number = std::get_if<std::int64_t>(&value);
  return number == nullptr ? 0 : *number;
}

// Only the columns in question are decoded: others hold long values on pages of their own, and most
// rows are of no table.
Result<std::optional<Catalog::Entry>> readEntry(const Pager& pager, const Table& table,
                                                const CatalogColumns& columns, RowPointer where) {
  auto row = table.stored(where);
  if (!row) return at(where.page, row.error());
  auto view = RowView::parse(pager.version(), table.def(), row->bytes);
  if (!view) return at(row->place.page, view.error());
  std::array<Value, 4> values;
  const std::array<std::size_t, 4> wanted = {columns.type, columns.id, columns.flags, columns.name};
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    auto value = table.decode(*view, wanted[i]);
    if (!value) return at(row->place.page, value.error());
    values[i] = std::move(*value);
    if (numberOr0(values[0]) != kTypeTable) return std::nullopt;
  }
  auto* name = std::get_if<std::string>(&values[3]);
  if (name == nullptr) return std::nullopt;
  return Catalog::Entry{std::move(*name),
                        static_cast<std::uint32_t>(numberOr0(values[1]) & kDefinitionMask),
                        (numberOr0(values[2]) & kSystemFlags) != 0};
}

}  // namespace

Result<Catalog> Catalog::read(Pager& pager) {
  auto table = Table::open(pager, kCatalogPage, kCatalogName);
  if (!table) return Failure(table.error());
  auto columns = CatalogColumns::find((*table)->def());
  if (!columns) return pager.located(columns.error());
  Catalog catalog;
  for (std::size_t i = 0; i < (*table)->rowCount(); ++i) {
    auto entry = readEntry(pager, **table, *columns, (*table)->row(i));
    if (!entry) {
      return pager.located(about(kCatalogName, entry.error()));
    }
    if (*entry) catalog.tables.push_back(std::move(**entry));
  }
  std::vector<std::pair<std::string, Entry>> sorted;
  for (Entry& entry : catalog.tables) {
    std::string key = base::lowerCase(entry.name);
    sorted.emplace_back(std::move(key), std::move(entry));
  }
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  catalog.tables.clear();
  for (auto& [key, entry] : sorted) catalog.tables.push_back(std::move(entry));
  return catalog;
}

const Catalog::Entry* Catalog::find(std::string_view name) const {
  for (const Entry& entry : tables)
    if (base::equalsIgnoreCase(entry.name, name)) return &entry;
  return nullptr;
}

}  // namespace jet
