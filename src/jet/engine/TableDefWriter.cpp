#include <algorithm>
#include <cstring>
#include <numeric>

#include "base/Paths.h"
#include "jet/engine/FieldText.h"
#include "jet/engine/TableDef.h"

// The definition of a table, record by record in the order of the file.
namespace jet {
namespace {

using base::Bytes;

constexpr std::uint32_t kConstant = 0x659;
constexpr std::uint32_t kIndexConstant = 0x783;
constexpr std::uint32_t kNone = 0xFFFFFFFF;
constexpr std::uint32_t kNoCascade = 4;

class DefinitionWriter {
 public:
  DefinitionWriter(const format::Version& version, const TableDef& table)
      : version_(version), table_(table) {}

  Bytes write() {
    writeHead();
    record(table_.indexes.size() * version_.table.counterSize);
    writeColumns();
    for (const IndexDef& index : table_.indexes) writeIndex(index);
    writeLogicalIndexes();
    writeLongValueMaps();
    version_.table.length.set(bytes_, static_cast<std::uint32_t>(bytes_.size()));
    return std::move(bytes_);
  }

 private:
  // The next bytes of the definition, zeros; valid until there are more.
  std::span<std::uint8_t> record(std::size_t size) {
    bytes_.insert(bytes_.end(), size, 0);
    return std::span(bytes_).last(size);
  }
  static std::uint32_t count(std::size_t size) { return static_cast<std::uint32_t>(size); }

  void writeHead();
  void writeColumns();
  void writeColumn(const ColumnDef& column);
  void writeName(const std::string& name);
  void writeIndex(const IndexDef& index);
  void writeLogicalIndexes();
  void writeLongValueMaps();

  const format::Version& version_;
  const TableDef& table_;
  std::vector<std::size_t> columnOrder_;
  Bytes bytes_;
};

void DefinitionWriter::writeHead() {
  const format::TableFormat& layout = version_.table;
  const auto head = record(layout.headSize);
  layout.constant.set(head, kConstant);
  layout.autoNumberEnabled.set(head, 1);
  layout.tableKind.set(head, table_.systemTable ? 'S' : 'N');
  layout.maxColumns.set(head, count(table_.maxColumns));
  layout.columnCount.set(head, count(table_.columns.size()));
  layout.variableSlots.set(head, count(table_.variableSlots));
  layout.logicalIndexCount.set(head, count(table_.logicalIndexes.size()));
  layout.indexCount.set(head, count(table_.indexes.size()));
  layout.ownedPages.set(head, table_.ownedPages.toNumber());
  layout.freeSpacePages.set(head, table_.freeSpacePages.toNumber());
}

// The order in which a list is written: sorted by name, without regard to letter case.
template <class List, class Name>
std::vector<std::size_t> byName(const List& list, const Name& name) {
  std::vector<std::size_t> order(list.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return base::lowerCase(name(list[a])) < base::lowerCase(name(list[b]));
  });
  return order;
}

// System tables list their columns by name.
void DefinitionWriter::writeColumns() {
  columnOrder_ = byName(table_.columns, [](const ColumnDef& def) { return def.column.name; });
  if (!table_.systemTable) std::iota(columnOrder_.begin(), columnOrder_.end(), std::size_t{0});
  for (const std::size_t i : columnOrder_) writeColumn(table_.columns[i]);
  for (const std::size_t i : columnOrder_) writeName(table_.columns[i].column.name);
}

void DefinitionWriter::writeColumn(const ColumnDef& def) {
  const format::ColumnFormat& layout = version_.column;
  const auto bytes = record(layout.size);
  layout.type.set(bytes, static_cast<std::uint32_t>(def.column.type));
  layout.constant.set(bytes, kConstant);
  layout.number.set(bytes, count(static_cast<std::size_t>(def.column.number)));
  layout.slot.set(bytes, count(def.slot));
  if (!table_.systemTable) layout.displayOrder.set(bytes, layout.number.get(bytes));
  layout.sortOrder.set(bytes, format::kSortOrderGeneral);
  layout.codePage.set(bytes, 1252);
  layout.flags.set(bytes, def.flags);
  layout.extendedFlags.set(bytes, def.storage.compressed ? format::kColumnCompressed : 0u);
  layout.fixedOffset.set(bytes, count(def.fixedOffset));
  layout.length.set(bytes, count(static_cast<std::size_t>(def.column.length)));
}

void DefinitionWriter::writeName(const std::string& name) {
  // A name that the code page lacks has been refused with the table.
  const Bytes text = encodeText({.form = version_.text, .codePage = 1252}, name).value_or(Bytes());
  const format::Field width{0, static_cast<std::uint8_t>(version_.table.nameLengthWidth)};
  width.set(record(width.width), count(text.size()));
  bytes_.insert(bytes_.end(), text.begin(), text.end());
}

void DefinitionWriter::writeIndex(const IndexDef& index) {
  const format::IndexFormat& layout = version_.index;
  const auto bytes = record(layout.size);
  layout.constant.set(bytes, kIndexConstant);
  for (std::size_t i = 0; i < format::kIndexColumns; ++i) {
    format::IndexColumnRecord part = {format::kIndexColumnUnused, 0};
    if (i < index.parts.size()) {
      const int number = table_.columns[index.parts[i].column].column.number;
      part = {static_cast<std::uint16_t>(number),
              index.parts[i].ascending ? format::kIndexAscending : std::uint8_t{0}};
    }
    std::memcpy(bytes.data() + layout.columns + i * sizeof part, &part, sizeof part);
  }
  layout.pages.set(bytes, index.pages.toNumber());
  layout.root.set(bytes, index.root);
  layout.flags.set(bytes, layout.everyFlag | (index.unique ? format::kIndexUnique : 0u) |
                              (index.ignoreNulls ? format::kIndexIgnoreNulls : 0u) |
                              (index.required ? format::kIndexRequired : 0u));
}

// Each stands for the tree of the same number.
void DefinitionWriter::writeLogicalIndexes() {
  const format::IndexFormat& layout = version_.index;
  const auto order = byName(table_.logicalIndexes, [](const Index& index) { return index.name; });
  for (const std::size_t i : order) {
    const auto bytes = record(layout.logicalSize);
    layout.logicalConstant.set(bytes, kConstant);
    layout.logicalNumber.set(bytes, count(i));
    layout.logicalIndex.set(bytes, count(i));
    layout.logicalOtherNumber.set(bytes, kNone);
    layout.cascadeUpdates.set(bytes, kNoCascade);
    layout.cascadeDeletes.set(bytes, kNoCascade);
    layout.logicalKind.set(bytes, table_.logicalIndexes[i].primary ? format::kLogicalPrimary : 0u);
  }
  for (const std::size_t i : order) writeName(table_.logicalIndexes[i].name);
}

void DefinitionWriter::writeLongValueMaps() {
  for (const std::size_t i : columnOrder_) {
    const ColumnDef& def = table_.columns[i];
    if (!def.isLongValue()) continue;
    const auto bytes = record(sizeof(format::LongValueMaps));
    JET_FIELD(format::LongValueMaps, column)
        .set(bytes, count(static_cast<std::size_t>(def.column.number)));
    JET_FIELD(format::LongValueMaps, owned)
        .set(bytes, def.ownedPages.value_or(RowPointer()).toNumber());
    JET_FIELD(format::LongValueMaps, freeSpace)
        .set(bytes, def.freeSpacePages.value_or(RowPointer()).toNumber());
  }
  format::Field{0, 2}.set(record(2), format::kLongValueMapsEnd);
}

}  // namespace

Bytes TableDef::encode(const format::Version& version) const {
  return DefinitionWriter(version, *this).write();
}

}  // namespace jet
