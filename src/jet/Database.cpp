#include "jet/Database.h"

#include <map>
#include <set>

#include "jet/Catalog.h"
#include "jet/Check.h"
#include "jet/Damage.h"
#include "jet/Pager.h"
#include "jet/Table.h"
#include "jet/TableEditor.h"
#include "jet/TableIndexes.h"

namespace jet {

using base::ErrorCode;
using base::Failure;
using base::Result;

namespace {

// The indexes of a table with up to so many rows are compared with them when it is opened. Those
// of a larger one are checked along the way of each change.
constexpr std::size_t kRowsCheckedAtOpening = 256;

}  // namespace

struct Database::State {
  std::unique_ptr<Pager> pager;
  Catalog catalog;
  std::map<std::uint32_t, std::shared_ptr<Table>> tables;  // opened so far, by definition page

  Result<std::shared_ptr<Table>> table(std::string_view name);
  // Indexes that were made anew are again what the file holds.
  void forgetRebuilt();
  std::set<std::uint32_t> rebuilt;  // tables, in the running transaction
};

struct RecordSet::State {
  Database::State* database = nullptr;
  std::shared_ptr<Table> table;
  std::vector<Column> columns;

  Result<void> checkPlace(std::size_t position, std::size_t column) const {
    if (position < table->rowCount() && column < columns.size()) return {};
    base::Error error;
    error.code = ErrorCode::InvalidValue;
    error.file = database->pager->path();
    error.subject = table->name();
    error.detail = "Datensatz oder Feld gibt es nicht";
    return base::fail(std::move(error));
  }
};

Result<std::shared_ptr<Table>> Database::State::table(std::string_view name) {
  const Catalog::Entry* entry = catalog.find(name);
  if (entry == nullptr) {
    Failure missing = base::fail(ErrorCode::MissingTable, "", pager->path());
    return about(std::string(name), missing.value());
  }
  if (auto it = tables.find(entry->definition); it != tables.end()) return it->second;
  auto opened = Table::open(*pager, entry->definition, entry->name);
  if (!opened) return Failure(opened.error());
  std::shared_ptr<Table> table = std::move(*opened);
  if (table->rowCount() <= kRowsCheckedAtOpening) TableIndexes(*pager, *table).verifyAll();
  tables[entry->definition] = table;
  return table;
}

// --- RecordSet ---

RecordSet::RecordSet(std::unique_ptr<State> state) : state_(std::move(state)) {}
RecordSet::~RecordSet() = default;
RecordSet::RecordSet(RecordSet&&) noexcept = default;
RecordSet& RecordSet::operator=(RecordSet&&) noexcept = default;

const std::string& RecordSet::tableName() const {
  return state_->table->name();
}
const std::vector<Column>& RecordSet::columns() const {
  return state_->columns;
}
const std::vector<Index>& RecordSet::indexes() const {
  return state_->table->def().logicalIndexes;
}

std::optional<std::size_t> RecordSet::columnIndex(std::string_view name) const {
  return state_->table->def().columnByName(name);
}

std::size_t RecordSet::count() const {
  return state_->table->rowCount();
}
Result<void> RecordSet::refresh() {
  return state_->table->scan();
}

Result<Value> RecordSet::value(std::size_t position, std::size_t column) const {
  if (auto sound = state_->checkPlace(position, column); !sound) return Failure(sound.error());
  return state_->table->value(position, column);
}

Result<std::vector<Value>> RecordSet::row(std::size_t position) const {
  if (auto sound = state_->checkPlace(position, 0); !sound) return Failure(sound.error());
  return state_->table->values(position);
}

Result<void> RecordSet::set(std::size_t position, std::size_t column, const Value& value) {
  if (auto sound = state_->checkPlace(position, column); !sound) return sound;
  Pager& pager = *state_->database->pager;
  Table& table = *state_->table;
  const auto located = [&](base::Error error) {
    if (error.subject.empty()) error.subject = table.name() + "." + state_->columns[column].name;
    return pager.located(std::move(error));
  };
  if (!pager.inTransaction()) {
    Failure outside = base::fail(ErrorCode::Unsupported, "Es läuft kein Änderungsvorgang");
    return located(outside.value());
  }
  auto done = TableEditor(pager, table).set(position, column, value);
  return done ? done : located(done.error());
}

// --- Database ---

Database::Database(std::unique_ptr<State> state) : state_(std::move(state)) {}
Database::~Database() = default;
Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&&) noexcept = default;

Result<Database> Database::open(base::FileSystem& files, const std::string& path,
                                OpenOptions options) {
  auto state = std::make_unique<State>();
  auto pager = Pager::open(files, path,
                           {.readOnly = options.readOnly,
                            .acceptPassword = options.acceptPassword,
                            .acceptEncryption = options.acceptEncryption});
  if (!pager) return Failure(pager.error());
  state->pager = std::move(*pager);
  auto catalog = Catalog::read(*state->pager);
  if (!catalog) return Failure(catalog.error());
  state->catalog = std::move(*catalog);
  return Database(std::move(state));
}

const std::string& Database::path() const {
  return state_->pager->path();
}

std::string Database::formatName() const {
  return state_->pager->version().name;
}

std::optional<base::Error> Database::readOnlyReason() const {
  return state_->pager->readOnlyReason();
}

std::vector<std::string> Database::tableNames() const {
  std::vector<std::string> names;
  for (const Catalog::Entry& entry : state_->catalog.tables)
    if (!entry.system) names.push_back(entry.name);
  return names;
}

Result<RecordSet> Database::openTable(std::string_view name) {
  auto table = state_->table(name);
  if (!table) return Failure(table.error());
  auto state = std::make_unique<RecordSet::State>();
  state->database = state_.get();
  state->table = std::move(*table);
  state->columns.reserve(state->table->def().columns.size());
  for (const ColumnDef& def : state->table->def().columns) state->columns.push_back(def.column);
  return RecordSet(std::move(state));
}

Result<void> Database::begin() {
  return state_->pager->begin();
}
Result<void> Database::commit() {
  auto done = state_->pager->commit();
  if (!done) state_->forgetRebuilt();
  state_->rebuilt.clear();
  return done;
}

void Database::rollback() {
  state_->pager->rollback();
  state_->forgetRebuilt();
}

void Database::State::forgetRebuilt() {
  for (const std::uint32_t page : rebuilt) {
    Table& table = *tables[page];
    base::ignore(table.reload(), "it could be read before the transaction that is undone");
    if (table.rowCount() <= kRowsCheckedAtOpening) TableIndexes(*pager, table).verifyAll();
  }
  rebuilt.clear();
}

bool Database::inTransaction() const {
  return state_->pager->inTransaction();
}
bool Database::needsReopen() const {
  return state_->pager->needsReopen();
}

std::vector<Finding> Database::warnings() const {
  std::vector<Finding> findings;
  for (const auto& [page, table] : state_->tables)
    for (const Table::IndexState& index : table->indexStates())
      if (index.damage) findings.push_back({*index.damage, false, table->name()});
  return findings;
}

std::vector<Finding> Database::check() const {
  return checkDatabase(*state_->pager, state_->catalog);
}

Result<void> Database::rebuildIndexes(std::string_view name) {
  if (!state_->pager->inTransaction()) {
    Failure outside = base::fail(ErrorCode::Unsupported, "Es läuft kein Änderungsvorgang", path());
    return about(std::string(name), outside.value());
  }
  auto table = state_->table(name);
  if (!table) return Failure(table.error());
  state_->rebuilt.insert((*table)->def().page);
  Pager::Step step(*state_->pager);
  if (auto done = TableIndexes(*state_->pager, **table).rebuildAll(); !done)
    return (*table)->located(done.error(), (*table)->def().page);
  step.keep();
  return {};
}

}  // namespace jet
