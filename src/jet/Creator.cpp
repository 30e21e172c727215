#include "jet/Creator.h"

#include <algorithm>
#include <memory>
#include <set>

#include "base/Paths.h"
#include "base/TextCodec.h"
#include "jet/CatalogRows.h"
#include "jet/NewFile.h"
#include "jet/NewTable.h"

namespace jet {
namespace {

using base::ErrorCode;
using base::Failure;
using base::Result;

constexpr std::uint8_t kOrdinaryColumn = 0x02;
constexpr std::uint8_t kOrdinaryIndex = 0x80;
constexpr std::size_t kMostColumns = 255;
constexpr std::size_t kMostIndexes = 32;
constexpr std::size_t kLongestName = 64;
constexpr int kLongestText = 255;
constexpr int kLongestBinary = 510;

Failure invalid(const std::string& subject, const std::string& detail) {
  Failure failure = base::fail(ErrorCode::InvalidValue, detail);
  failure.value().subject = subject;
  return failure;
}

// Names count without regard to letter case; each kind of thing has its own.
class Names {
 public:
  Result<void> add(const std::string& name, const std::string& subject) {
    const std::size_t length = base::toUtf16(name).size();
    if (length == 0 || length > kLongestName)
      return invalid(subject, "Der Name ist leer oder zu lang");
    if (!seen_.insert(base::lowerCase(name)).second)
      return invalid(subject, "Der Name kommt doppelt vor");
    return {};
  }

 private:
  std::set<std::string> seen_;
};

Result<void> addNewColumn(TablePlan& plan, const NewColumn& column, const std::string& subject) {
  const bool text = column.type == ColumnType::Text;
  const bool binary = column.type == ColumnType::Binary;
  const int limit = text ? kLongestText : kLongestBinary;
  if ((text || binary) && (column.length < 1 || column.length > limit))
    return invalid(subject, "Die Feldlänge ist ungültig");
  if (column.type == ColumnType::Numeric || column.type == ColumnType::FixedBinary)
    return invalid(subject, "Der Feldtyp wird nicht unterstützt");
  if (column.autoNumber && column.type != ColumnType::Long)
    return invalid(subject, "Nur ein Feld vom Typ Long kann selbst zählen");
  const std::uint8_t flags =
      column.autoNumber ? kOrdinaryColumn | format::kColumnAutoNumber : kOrdinaryColumn;
  addColumn(plan, column.name, column.type, text ? 2 * column.length : column.length, flags);
  const bool characters = text || column.type == ColumnType::Memo;
  plan.columns.back().storage.compressed = characters;
  plan.columns.back().column.compressed = characters;
  if (!text && !binary && !plan.columns.back().isFixed()) plan.columns.back().column.length = 0;
  return {};
}

Result<void> addNewIndex(TablePlan& plan, const NewIndex& index, const std::string& subject) {
  PlannedIndex planned;
  planned.name = index.name;
  planned.primary = index.primary;
  planned.flags = kOrdinaryIndex;
  if (index.primary || index.unique) planned.flags |= format::kIndexUnique;
  if (index.primary) planned.flags |= format::kIndexRequired;
  if (index.columns.empty() || index.columns.size() > format::kIndexColumns)
    return invalid(subject, "Zahl der Felder des Index ist ungültig");
  for (const IndexColumn& part : index.columns) {
    const auto found = std::find_if(
        plan.columns.begin(), plan.columns.end(),
        [&](const ColumnDef& c) { return base::equalsIgnoreCase(c.column.name, part.column); });
    if (found == plan.columns.end() || found->column.type == ColumnType::Ole)
      return invalid(subject, "Das Feld " + part.column + " gibt es nicht oder es taugt nicht");
    planned.parts.push_back(
        {static_cast<std::size_t>(found - plan.columns.begin()), part.ascending});
  }
  plan.indexes.push_back(std::move(planned));
  return {};
}

Result<TablePlan> planOf(const NewTable& table) {
  TablePlan plan;
  plan.name = table.name;
  if (table.columns.empty() || table.columns.size() > kMostColumns)
    return invalid(table.name, "Zahl der Felder ist ungültig");
  if (table.indexes.size() > kMostIndexes) return invalid(table.name, "Zu viele Indizes");
  Names columns;
  for (const NewColumn& column : table.columns) {
    const std::string subject = table.name + "." + column.name;
    if (auto named = columns.add(column.name, subject); !named) return Failure(named.error());
    if (auto added = addNewColumn(plan, column, subject); !added) return Failure(added.error());
  }
  Names indexes;
  for (const NewIndex& index : table.indexes) {
    const std::string subject = table.name + "." + index.name;
    if (auto named = indexes.add(index.name, subject); !named) return Failure(named.error());
    if (auto added = addNewIndex(plan, index, subject); !added) return Failure(added.error());
  }
  return plan;
}

// A whole file whose usage maps have this length.
class Build {
 public:
  Build(MapKind kind, std::size_t mapLength) : mapLength_(mapLength), file_(kind, mapLength) {}

  Result<void> run(const std::vector<NewTable>& tables, const std::vector<TablePlan>& plans) {
    makeSystemTables();
    if (auto added = addSystemRows(*objects_, *permissions_); !added) return added;
    std::vector<std::unique_ptr<TableWriter>> writers;
    for (const TablePlan& plan : plans) {
      const std::uint32_t page = file_.append();
      file_.startMapPage(mapLength_);
      writers.push_back(std::make_unique<TableWriter>(file_, plan, page));
      auto added = addTableRows(*objects_, *permissions_, plan.name, page);
      if (!added) return added;
    }
    for (std::size_t i = 0; i < tables.size(); ++i) {
      writers[i]->startDataPage();
      for (const std::vector<Value>& row : tables[i].rows)
        if (auto added = writers[i]->addRow(row); !added) return added;
      writers[i]->finish();
    }
    for (const auto& table : system_) table->finish();
    return {};
  }

  NewFile& file() { return file_; }

 private:
  // Definitions on pages 2 to 5, all maps on the next, the rest in turn.
  void makeSystemTables() {
    std::vector<std::uint32_t> definitions;
    for (int i = 0; i < 4; ++i) definitions.push_back(file_.append());
    file_.startMapPage(kUsualMapLength);
    TablePlan plans[] = {objectsPlan(), permissionsPlan(), queriesPlan(), relationshipsPlan()};
    for (std::size_t i = 0; i < definitions.size(); ++i)
      system_.push_back(std::make_unique<TableWriter>(file_, std::move(plans[i]), definitions[i]));
    objects_ = system_[0].get();
    permissions_ = system_[1].get();
  }

  std::size_t mapLength_;
  NewFile file_;
  std::vector<std::unique_ptr<TableWriter>> system_;
  TableWriter* objects_ = nullptr;
  TableWriter* permissions_ = nullptr;
};

}  // namespace

// A file that outgrows the usual maps is built once more with longer ones, as Jet lengthens them;
// beyond what a row can hold the maps refer to pages of bits.
Result<base::Bytes> createDatabase(const std::vector<NewTable>& tables) {
  Names names;
  std::vector<TablePlan> plans;
  for (const NewTable& table : tables) {
    if (auto named = names.add(table.name, table.name); !named) return Failure(named.error());
    auto plan = planOf(table);
    if (!plan) return Failure(plan.error());
    plans.push_back(std::move(*plan));
  }
  for (std::size_t mapLength = kUsualMapLength; mapLength <= kLongestMap;) {
    Build build(MapKind::Inline, mapLength);
    if (auto built = build.run(tables, plans); !built) return Failure(built.error());
    if (!build.file().mapsTooShort()) return build.file().finish();
    const std::size_t bits = build.file().pageCount() + build.file().pageCount() / 16;
    mapLength = std::max(mapLength + 4, kUsualMapLength + (bits / 32) * 4);
  }
  Build build(MapKind::Reference, kUsualMapLength);
  if (auto built = build.run(tables, plans); !built) return Failure(built.error());
  if (build.file().mapsTooShort())
    return base::fail(ErrorCode::Unsupported, "Die Datei würde zu groß");
  return build.file().finish();
}

}  // namespace jet
