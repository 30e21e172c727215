#include "jet/Database.h"

#include <chrono>
#include <map>
#include <set>

#include "jet/engine/Catalog.h"
#include "jet/engine/Check.h"
#include "jet/engine/Damage.h"
#include "jet/engine/Journal.h"
#include "jet/engine/Pager.h"
#include "jet/engine/Table.h"
#include "jet/engine/TableEditor.h"
#include "jet/engine/TableIndexes.h"
#include "jet/engine/TableMaker.h"

namespace jet {

namespace {

DateTime now() {
  constexpr double kEpoch = 25569;  // 1970-01-01
  const std::chrono::duration<double, std::ratio<86400>> days =
      std::chrono::system_clock::now().time_since_epoch();
  return {kEpoch + days.count()};
}

// The indexes of a table with up to so many rows are compared with them when it is opened. Those
// of a larger one are checked along the way of each change.
constexpr std::size_t kRowsCheckedAtOpening = 256;

}  // namespace

struct Database::State {
  std::unique_ptr<Pager> pager;
  Catalog catalog;
  std::map<std::uint32_t, std::shared_ptr<Table>> tables;  // opened so far, by definition page

  Result<std::shared_ptr<Table>> table(std::string_view name);
  Result<void> checkTransaction() const;
  // What is known of tables that the running transaction has changed beyond single fields.
  std::set<std::uint32_t> changed;
  bool catalogChanged = false;
  // It was undone: they are again what the file holds.
  void forgetChanges();
  void readAgain(std::uint32_t table);
};

struct RecordSet::State {
  Database::State* database = nullptr;
  std::shared_ptr<Table> table;
  std::vector<Column> columns;

  Result<void> checkPlace(std::size_t position, std::size_t column) const {
    if (position < table->rowCount() && column < columns.size()) return {};
    return database->pager->located(
        about(table->name(), refuse(ErrorCode::InvalidValue, "there is no such row or column")));
  }
};

Result<std::shared_ptr<Table>> Database::State::table(std::string_view name) {
  const Catalog::Entry* entry = catalog.find(name);
  if (entry == nullptr)
    return pager->located(about(std::string(name), base::fail(ErrorCode::MissingTable, "")));
  if (auto it = tables.find(entry->definition); it != tables.end()) return it->second;
  auto opened = Table::open(*pager, entry->definition, entry->name);
  if (!opened) return Failure(opened.error());
  std::shared_ptr<Table> table = std::move(*opened);
  if (table->rowCount() <= kRowsCheckedAtOpening) TableIndexes(*pager, *table).verifyAll();
  tables[entry->definition] = table;
  return table;
}

Result<void> Database::State::checkTransaction() const {
  if (pager->inTransaction()) return {};
  return pager->located(refuse(ErrorCode::Unsupported, "no transaction is running"));
}

// A table that was made in the transaction is no more.
void Database::State::readAgain(std::uint32_t page) {
  const auto found = tables.find(page);
  if (found == tables.end()) return;
  Table& table = *found->second;
  if (!table.reload() || !table.scan())
    tables.erase(found);
  else if (table.rowCount() <= kRowsCheckedAtOpening)
    TableIndexes(*pager, table).verifyAll();
}

void Database::State::forgetChanges() {
  for (const std::uint32_t page : changed) readAgain(page);
  changed.clear();
  if (!std::exchange(catalogChanged, false)) return;
  if (auto read = Catalog::read(*pager)) catalog = std::move(*read);
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

// Within a transaction, whole or not at all. What the table knows of itself is read again when the
// transaction is rolled back, and at once when the change fails half-way.
template <class Change>
auto RecordSet::change(const Change& change, const std::string& subject) {
  Database::State& database = *state_->database;
  using Outcome = decltype(change(std::declval<TableEditor>()));
  const auto located = [&](base::Error error) -> Outcome {
    if (error.subject.empty()) error.subject = subject;
    return database.pager->located(std::move(error));
  };
  if (auto begun = database.checkTransaction(); !begun) return located(begun.error());
  Table& table = *state_->table;
  if (table.def().systemTable)
    return located(refuse(ErrorCode::Unsupported, "system tables are not changed").value());
  Pager::Step step(*database.pager);
  auto done = change(TableEditor(*database.pager, table));
  if (!done) return located(done.error());
  step.keep();
  return done;
}

Result<void> RecordSet::set(std::size_t position, std::size_t column, const Value& value) {
  if (auto sound = state_->checkPlace(position, column); !sound) return sound;
  return change([&](TableEditor editor) { return editor.set(position, column, value); },
                tableName() + "." + state_->columns[column].name);
}

Result<std::size_t> RecordSet::insert(std::vector<Value> values) {
  state_->database->changed.insert(state_->table->def().page);
  return change([&](TableEditor editor) { return editor.insert(std::move(values)); }, tableName());
}

Result<void> RecordSet::erase(std::size_t position) {
  if (auto sound = state_->checkPlace(position, 0); !sound) return sound;
  state_->database->changed.insert(state_->table->def().page);
  return change([&](TableEditor editor) { return editor.erase(position); }, tableName());
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

Result<bool> Database::ownsJournal(base::FileSystem& files, const std::string& path,
                                   const std::string& journal) {
  return Journal::belongs(files, journal, path);
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

std::optional<base::Error> Database::writeObstacle() const {
  return state_->pager->obstacle();
}

bool Database::tryWriting() {
  return state_->pager->tryWriting();
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
  if (!done) state_->forgetChanges();
  state_->changed.clear();
  state_->catalogChanged = false;
  return done;
}

void Database::rollback() {
  state_->pager->rollback();
  state_->forgetChanges();
}

bool Database::inTransaction() const {
  return state_->pager->inTransaction();
}
bool Database::needsReopen() const {
  return state_->pager->needsReopen();
}

Result<base::Bytes> Database::image() const {
  return state_->pager->image();
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
  if (auto begun = state_->checkTransaction(); !begun)
    return about(std::string(name), begun.error());
  auto table = state_->table(name);
  if (!table) return Failure(table.error());
  state_->changed.insert((*table)->def().page);
  Pager::Step step(*state_->pager);
  if (auto done = TableIndexes(*state_->pager, **table).rebuildAll(); !done)
    return (*table)->located(done.error(), (*table)->def().page);
  step.keep();
  return {};
}

Result<RecordSet> Database::createTable(const NewTable& table) {
  const auto failed = [&](const base::Error& error) {
    return state_->pager->located(about(table.name, error));
  };
  if (auto begun = state_->checkTransaction(); !begun) return failed(begun.error());
  auto objects = state_->table(kCatalogName);
  if (!objects) return failed(objects.error());
  auto permissions = state_->table(kPermissionsName);
  if (!permissions) return failed(permissions.error());
  Result<std::uint32_t> made = 0u;
  {
    Pager::Step step(*state_->pager);
    made = makeTable(*state_->pager, {**objects, **permissions}, table, now());
    if (made) step.keep();
  }
  if (!made) {
    state_->readAgain((*objects)->def().page);
    state_->readAgain((*permissions)->def().page);
    return failed(made.error());
  }
  state_->changed.insert({(*objects)->def().page, (*permissions)->def().page, *made});
  state_->catalogChanged = true;
  auto catalog = Catalog::read(*state_->pager);
  if (!catalog) return failed(catalog.error());
  state_->catalog = std::move(*catalog);
  return openTable(table.name);
}

}  // namespace jet
