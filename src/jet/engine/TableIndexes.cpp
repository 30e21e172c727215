#include "jet/engine/TableIndexes.h"

#include <algorithm>

#include "jet/engine/Damage.h"
#include "jet/engine/IndexKey.h"
#include "jet/engine/UsageMap.h"

namespace jet {
namespace {

bool allNull(const std::vector<Value>& values) {
  return std::all_of(values.begin(), values.end(), isNull);
}
bool anyNull(const std::vector<Value>& values) {
  return std::any_of(values.begin(), values.end(), isNull);
}

}  // namespace

Failure TableIndexes::named(const IndexDef& index, base::Error error) const {
  if (error.subject.empty()) error.subject = table_->name() + ", Index " + index.name;
  return pager_->located(std::move(error));
}

Result<std::vector<Value>> TableIndexes::keyValues(const IndexDef& index,
                                                   const RowChange::ValueOf& valueOf) {
  std::vector<Value> values;
  for (const IndexDef::Part& part : index.parts) {
    auto value = valueOf(part.column);
    if (!value) return Failure(value.error());
    values.push_back(std::move(*value));
  }
  return values;
}

Result<std::optional<IndexEntry>> TableIndexes::entryOf(const IndexDef& index, RowPointer row,
                                                        const std::vector<Value>& values) const {
  if (index.ignoreNulls && allNull(values)) return std::nullopt;
  std::vector<KeyPart> parts;
  for (const IndexDef::Part& part : index.parts) {
    const ColumnDef& column = table_->def().columns[part.column];
    parts.push_back({column.column.type, part.ascending, column.textOrder});
  }
  auto key = encodeKey(parts, values);
  if (!key) return named(index, key.error());
  return IndexEntry::of(*key, row);
}

// --- a change of one row ---

Result<std::vector<TableIndexes::KeyChange>> TableIndexes::plan(const RowChange& change) const {
  std::vector<KeyChange> changes;
  for (std::size_t i = 0; i < table_->def().indexes.size(); ++i) {
    const auto& parts = table_->def().indexes[i].parts;
    const auto concerned = [&](const IndexDef::Part& p) { return p.column == change.column; };
    if (change.column && std::none_of(parts.begin(), parts.end(), concerned)) continue;
    auto planned = planOne(i, change);
    if (!planned) return Failure(planned.error());
    if (*planned) changes.push_back(std::move(**planned));
  }
  return changes;
}

Result<std::optional<TableIndexes::KeyChange>> TableIndexes::planOne(
    std::size_t i, const RowChange& change) const {
  const IndexDef& index = table_->def().indexes[i];
  if (const auto& damage = table_->indexStates()[i].damage) return Failure(*damage);
  KeyChange planned;
  planned.index = i;
  std::vector<Value> values;
  for (const bool old : {true, false}) {
    const RowChange::ValueOf& valueOf = old ? change.before : change.after;
    if (!valueOf) continue;
    auto found = keyValues(index, valueOf);
    if (!found) return Failure(found.error());
    values = std::move(*found);
    auto entry = entryOf(index, change.row, values);
    if (!entry) return Failure(entry.error());
    (old ? planned.removed : planned.added) = std::move(*entry);
  }
  const bool same = planned.removed && planned.added
                        ? planned.removed->bytes == planned.added->bytes
                        : change.before && !planned.removed && !planned.added;
  if (same) return std::nullopt;
  if (!change.after) return planned;
  auto fresh = checkConstraints(index, values, planned.added);
  if (!fresh) return Failure(fresh.error());
  planned.counts = *fresh && !change.before;
  return planned;
}

Result<bool> TableIndexes::checkConstraints(const IndexDef& index, const std::vector<Value>& values,
                                            const std::optional<IndexEntry>& added) const {
  if (index.required && anyNull(values))
    return named(index, refuse(ErrorCode::InvalidValue, "the column must not be Null"));
  if (!added) return false;
  const IndexTree tree(*pager_, table_->def().page, index);
  auto present = tree.containsKey(added->key());
  if (!present) return named(index, present.error());
  if (!*present || !index.unique || anyNull(values)) return !*present;
  return named(index, refuse(ErrorCode::InvalidValue, "another row has the value already"));
}

Result<void> TableIndexes::apply(const std::vector<KeyChange>& changes) {
  for (const KeyChange& change : changes) {
    const IndexDef& index = table_->def().indexes[change.index];
    IndexTree tree(*pager_, table_->def().page, index);
    Result<void> done;
    if (change.removed) done = tree.remove(*change.removed);
    if (done && change.added) done = tree.insert(*change.added);
    if (done && change.counts) done = countKey(change.index);
    if (done) continue;
    Failure failure = named(index, done.error());
    if (failure.value().code == ErrorCode::IndexDamaged)
      table_->indexStates()[change.index] = {true, failure.value()};
    return failure;
  }
  return {};
}

// The definition counts the distinct keys of each index; it is never lowered.
Result<void> TableIndexes::countKey(std::size_t index) {
  const format::TableFormat& layout = pager_->version().table;
  auto page = pager_->edit(table_->def().page);
  if (!page) return Failure(page.error());
  const auto counter =
      page->subspan(layout.headSize + index * layout.counterSize, layout.counterSize);
  layout.distinctKeys.set(counter, layout.distinctKeys.get(counter) + 1);
  return {};
}

// --- the whole ---

Result<std::vector<IndexEntry>> TableIndexes::entriesOfRows(const IndexDef& index,
                                                            std::set<base::Bytes>* withNull) const {
  std::vector<IndexEntry> entries;
  for (std::size_t i = 0; i < table_->rowCount(); ++i) {
    const RowPointer home = table_->row(i);
    auto row = table_->stored(home);
    if (!row) return Failure(row.error());
    auto view = RowView::parse(pager_->version(), table_->def(), row->bytes);
    if (!view) return at(row->place.page, view.error());
    auto values =
        keyValues(index, [&](std::size_t column) { return table_->decode(*view, column); });
    if (!values) return at(row->place.page, values.error());
    auto entry = entryOf(index, home, *values);
    if (!entry) return Failure(entry.error());
    if (!*entry) continue;
    if (withNull != nullptr && anyNull(*values))
      withNull->emplace((**entry).key().begin(), (**entry).key().end());
    entries.push_back(std::move(**entry));
  }
  std::sort(entries.begin(), entries.end(),
            [](const IndexEntry& a, const IndexEntry& b) { return a.bytes < b.bytes; });
  return entries;
}

Result<void> TableIndexes::verify(std::size_t i, std::vector<std::uint32_t>* pages) const {
  const IndexDef& index = table_->def().indexes[i];
  const IndexTree tree(*pager_, table_->def().page, index);
  auto stored = tree.entries(table_->rowCount(), pages);
  if (!stored) return named(index, stored.error());
  auto wanted = entriesOfRows(index);
  if (!wanted && wanted.error().code == ErrorCode::Unsupported)
    return comparePointers(index, *stored);
  if (!wanted) return Failure(wanted.error());
  const auto same = [](const IndexEntry& a, const IndexEntry& b) { return a.bytes == b.bytes; };
  const auto [a, b] =
      std::mismatch(stored->begin(), stored->end(), wanted->begin(), wanted->end(), same);
  if (a == stored->end() && b == wanted->end()) return {};
  // The smaller of the two is the one that the other side lacks.
  const bool missing = a == stored->end() || (b != wanted->end() && b->bytes < a->bytes);
  const RowPointer row = missing ? b->row() : a->row();
  return named(index, indexDamaged(index.root,
                                   missing ? "row %1 of page %2 lacks its entry"
                                           : "an entry fits no value: row %1 of page %2",
                                   row.slot, row.page));
}

// For keys that this program cannot make: each entry has its row, no row has two.
Result<void> TableIndexes::comparePointers(const IndexDef& index,
                                           const std::vector<IndexEntry>& entries) const {
  std::set<RowPointer> rows;
  for (std::size_t i = 0; i < table_->rowCount(); ++i) rows.insert(table_->row(i));
  for (const IndexEntry& entry : entries) {
    if (rows.erase(entry.row()) == 1) continue;
    return named(index, indexDamaged(index.root, "an entry has no row"));
  }
  if (rows.empty() || index.ignoreNulls) return {};
  return named(index, indexDamaged(index.root, "a row has no entry"));
}

void TableIndexes::verifyAll() {
  for (std::size_t i = 0; i < table_->def().indexes.size(); ++i) {
    auto sound = verify(i);
    Table::IndexState& state = table_->indexStates()[i];
    state = {};
    if (sound) {
      state.checked = true;
    } else if (sound.error().code == ErrorCode::IndexDamaged) {
      state = {true, sound.error()};
    }
  }
}

// --- making anew ---

// Pages that the index's own list names, that look like pages of an index of this table or are the
// root, and that no other index of the table lists. Others stay where they are: they may be in use.
std::vector<std::uint32_t> TableIndexes::usablePages(std::size_t which) const {
  const TableDef& def = table_->def();
  std::set<std::uint32_t> foreign;
  for (std::size_t i = 0; i < def.indexes.size(); ++i) {
    if (i == which) continue;
    foreign.insert(def.indexes[i].root);
    auto pages = UsageMap(*pager_, def.indexes[i].pages).pages();
    if (pages) foreign.insert(pages->begin(), pages->end());
  }
  std::vector<std::uint32_t> usable;
  auto own = UsageMap(*pager_, def.indexes[which].pages).pages();
  if (!own) return usable;
  for (const std::uint32_t number : *own) {
    if (foreign.count(number) != 0) continue;
    auto page = pager_->page(number);
    if (!page) continue;
    const std::uint8_t kind = (**page)[0];
    const bool looksRight = (kind == static_cast<std::uint8_t>(format::PageKind::IndexLeaf) ||
                             kind == static_cast<std::uint8_t>(format::PageKind::IndexNode)) &&
                            pager_->version().indexPage.tableDef.get(**page) == def.page;
    if (looksRight || number == def.indexes[which].root) usable.push_back(number);
  }
  return usable;
}

Result<void> TableIndexes::rebuild(std::size_t i) {
  TableDef& def = table_->def();
  const IndexDef& index = def.indexes[i];
  std::set<base::Bytes> withNull;
  auto entries = entriesOfRows(index, &withNull);
  if (!entries) return Failure(entries.error());
  const auto sameKey = [&](const IndexEntry& a, const IndexEntry& b) {
    return std::equal(a.key().begin(), a.key().end(), b.key().begin(), b.key().end()) &&
           withNull.count(base::Bytes(a.key().begin(), a.key().end())) == 0;
  };
  const auto twice = std::adjacent_find(entries->begin(), entries->end(), sameKey);
  if (index.unique && twice != entries->end()) {
    const std::uint32_t page = twice->row().page;
    return named(index, at(page, refuse(ErrorCode::InvalidValue, "two rows have the same value")));
  }
  IndexTree tree(*pager_, def.page, index);
  auto root = tree.rebuild(*entries, usablePages(i));
  if (!root) return named(index, root.error());
  if (*root != index.root)
    if (auto done = def.changeRoot(*pager_, i, *root); !done) return named(index, done.error());
  table_->indexStates()[i] = {true, std::nullopt};
  return {};
}

Result<void> TableIndexes::rebuildAll() {
  for (std::size_t i = 0; i < table_->def().indexes.size(); ++i)
    if (auto done = rebuild(i); !done) return done;
  return {};
}

}  // namespace jet
