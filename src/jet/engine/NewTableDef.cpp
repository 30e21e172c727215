#include "jet/engine/NewTableDef.h"

#include <algorithm>
#include <set>

#include "base/Paths.h"
#include "base/TextCodec.h"
#include "jet/engine/Damage.h"
#include "jet/engine/FieldValue.h"

namespace jet {
namespace {

constexpr std::uint8_t kOrdinaryColumn = 0x02;
constexpr std::size_t kMostColumns = 255;
constexpr std::size_t kMostIndexes = 32;
constexpr std::size_t kLongestName = 64;
constexpr int kLongestText = 255;

template <class... Arguments>
Failure invalid(const std::string& subject, const char* reason, const Arguments&... arguments) {
  return about(subject, refuse(ErrorCode::InvalidValue, reason, arguments...));
}

// Names count without regard to letter case; each kind of thing has its own.
class Names {
 public:
  explicit Names(const format::Version& version) : storage_{version.text, 1252} {}

  Result<void> add(const std::string& name, const std::string& subject) {
    const std::size_t length = base::toUtf16(name).size();
    if (length == 0 || length > kLongestName || !encodeText(storage_, name))
      return invalid(subject, "the name is empty, too long or has characters that the file lacks");
    if (!seen_.insert(base::lowerCase(name)).second)
      return invalid(subject, "the name is there already");
    return {};
  }

 private:
  TextStorage storage_;
  std::set<std::string> seen_;
};

Result<void> addNewColumn(const format::Version& version, TableDef& def, const NewColumn& column,
                          const std::string& subject) {
  const bool text = column.type == ColumnType::Text;
  const bool binary = column.type == ColumnType::Binary;
  const int limit = text ? kLongestText : static_cast<int>(version.column.longestBinary);
  if ((text || binary) && (column.length < 1 || column.length > limit))
    return invalid(subject, "the column's length is not possible");
  if (column.type == ColumnType::Numeric || column.type == ColumnType::FixedBinary)
    return invalid(subject, "new columns cannot have this type");
  if (column.autoNumber && column.type != ColumnType::Long)
    return invalid(subject, "only a column of type Long can count by itself");
  const int width = text && version.text == format::TextForm::Unicode ? 2 : 1;
  ColumnDef& added =
      addColumn(def, column.name, column.type, text || binary ? width * column.length : 0,
                column.autoNumber ? kOrdinaryColumn | format::kColumnAutoNumber : kOrdinaryColumn);
  added.storage.compressed = text || column.type == ColumnType::Memo;
  return {};
}

Result<void> addNewIndex(TableDef& def, const NewIndex& index, const std::string& subject) {
  if (index.columns.empty() || index.columns.size() > format::kIndexColumns)
    return invalid(subject, "the index has no column or too many");
  std::vector<IndexDef::Part> parts;
  for (const IndexColumn& part : index.columns) {
    const auto column = def.columnByName(part.column);
    if (!column || def.columns[*column].column.type == ColumnType::Ole)
      return invalid(subject, "column %1 is not there or cannot be indexed", part.column);
    parts.push_back({*column, part.ascending});
  }
  const bool unique = index.primary || index.unique;
  addIndex(def, index.name, std::move(parts), index.primary,
           static_cast<std::uint8_t>((unique ? format::kIndexUnique : 0) |
                                     (index.primary ? format::kIndexRequired : 0)));
  return {};
}

}  // namespace

ColumnDef& addColumn(TableDef& table, std::string name, ColumnType type, int length,
                     std::uint8_t flags) {
  ColumnDef def;
  // A Boolean has a declared length of 1, but lies in the null mask.
  const bool bit = type == ColumnType::Boolean;
  const auto size = bit ? 1 : fixedSizeOf(type);
  def.column.name = std::move(name);
  def.column.type = type;
  def.column.length = size ? static_cast<int>(*size) : length;
  def.column.fixedLength = size.has_value();
  def.column.number = static_cast<int>(table.columns.size());
  def.flags = static_cast<std::uint8_t>(flags | (size ? format::kColumnFixed : 0));
  def.slot = table.variableSlots;
  if (!size) {
    ++table.variableSlots;
  } else if (!bit) {
    def.fixedOffset = table.fixedLength;
    table.fixedLength += *size;
  }
  ++table.maxColumns;
  return table.columns.emplace_back(std::move(def));
}

void addIndex(TableDef& table, std::string name, std::vector<IndexDef::Part> parts, bool primary,
              std::uint8_t flags) {
  IndexDef& index = table.indexes.emplace_back();
  index.parts = std::move(parts);
  index.unique = (flags & format::kIndexUnique) != 0;
  index.ignoreNulls = (flags & format::kIndexIgnoreNulls) != 0;
  index.required = (flags & format::kIndexRequired) != 0;
  Index& logical = table.logicalIndexes.emplace_back();
  logical.primary = primary;
  logical.name = index.name = std::move(name);
}

Result<TableDef> newTableDef(const format::Version& version, const NewTable& table) {
  TableDef def;
  Names names(version);
  if (auto named = names.add(table.name, table.name); !named) return Failure(named.error());
  if (table.columns.empty() || table.columns.size() > kMostColumns)
    return invalid(table.name, "the table has no column or too many");
  if (table.indexes.size() > kMostIndexes)
    return invalid(table.name, "the table has too many indexes");
  Names columns(version);
  for (const NewColumn& column : table.columns) {
    const std::string subject = table.name + "." + column.name;
    if (auto named = columns.add(column.name, subject); !named) return Failure(named.error());
    if (auto added = addNewColumn(version, def, column, subject); !added)
      return Failure(added.error());
  }
  Names indexes(version);
  for (const NewIndex& index : table.indexes) {
    const std::string subject = table.name + "." + index.name;
    if (auto named = indexes.add(index.name, subject); !named) return Failure(named.error());
    if (auto added = addNewIndex(def, index, subject); !added) return Failure(added.error());
  }
  return def;
}

}  // namespace jet
