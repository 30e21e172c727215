#include <algorithm>
#include <cstring>

#include "base/Paths.h"
#include "base/TextCodec.h"
#include "jet/NewTable.h"

// The definition of a new table, record by record in the order of the file.
namespace jet {
namespace {

using base::Bytes;
using format::kJet4;

constexpr std::uint32_t kConstant = 0x659;
constexpr std::uint32_t kIndexConstant = 0x783;
constexpr std::uint32_t kNone = 0xFFFFFFFF;
constexpr std::uint8_t kNoCascade = 4;

template <class Record>
void append(Bytes& bytes, const Record& record) {
  static_assert(std::is_trivially_copyable_v<Record>);
  bytes.resize(bytes.size() + sizeof(Record));
  std::memcpy(bytes.data() + bytes.size() - sizeof(Record), &record, sizeof(Record));
}

format::RowPointerRecord recordOf(RowPointer pointer) {
  return std::bit_cast<format::RowPointerRecord>(base::le32(pointer.toNumber()));
}

void appendName(Bytes& bytes, const std::string& name) {
  const std::u16string units = base::toUtf16(name);
  append(bytes, base::le16(static_cast<std::uint16_t>(2 * units.size())));
  for (const char16_t unit : units) append(bytes, base::le16(unit));
}

format::ColumnRecord4 columnRecord(const ColumnDef& def, bool system) {
  format::ColumnRecord4 record{};
  record.type = static_cast<std::uint8_t>(def.column.type);
  record.constant = kConstant;
  record.number = static_cast<std::uint16_t>(def.column.number);
  record.slot = static_cast<std::uint16_t>(def.slot);
  record.displayOrder = static_cast<std::uint16_t>(system ? 0 : def.column.number);
  record.sortOrder = format::kSortOrderGeneral;
  record.flags = def.flags;
  record.extendedFlags = def.storage.compressed ? format::kColumnCompressed : std::uint8_t{0};
  record.fixedOffset = static_cast<std::uint16_t>(def.fixedOffset);
  record.length = static_cast<std::uint16_t>(def.column.length);
  return record;
}

format::IndexRecord4 indexRecord(const TablePlan& plan, const PlannedIndex& index, RowPointer map,
                                 std::uint32_t root) {
  format::IndexRecord4 record{};
  record.constant = kIndexConstant;
  for (format::IndexColumnRecord& column : record.columns) column = {format::kIndexColumnUnused, 0};
  for (std::size_t i = 0; i < index.parts.size(); ++i) {
    const int number = plan.columns[index.parts[i].column].column.number;
    record.columns[i] = {static_cast<std::uint16_t>(number),
                         index.parts[i].ascending ? format::kIndexAscending : std::uint8_t{0}};
  }
  record.pages = recordOf(map);
  record.root = root;
  record.flags = index.flags;
  return record;
}

format::LogicalIndexRecord4 logicalRecord(std::size_t number, bool primary) {
  format::LogicalIndexRecord4 record{};
  record.constant = kConstant;
  record.number = static_cast<std::uint32_t>(number);
  record.index = static_cast<std::uint32_t>(number);
  record.otherNumber = kNone;
  record.cascadeUpdates = record.cascadeDeletes = kNoCascade;
  record.kind = primary ? format::kLogicalPrimary : std::uint8_t{0};
  return record;
}

// Logical indexes are sorted by name.
std::vector<std::size_t> byName(const std::vector<PlannedIndex>& indexes) {
  std::vector<std::size_t> order(indexes.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return base::lowerCase(indexes[a].name) < base::lowerCase(indexes[b].name);
  });
  return order;
}

}  // namespace

Bytes TableWriter::definition(const std::vector<std::uint32_t>& distinct) const {
  const auto count = [](auto size) { return static_cast<std::uint32_t>(size); };
  const auto count16 = [](auto size) { return static_cast<std::uint16_t>(size); };
  format::TableHead4 head{};
  head.page.kind = static_cast<std::uint8_t>(format::PageKind::TableDef);
  head.page.used = 1;
  head.constant = kConstant;
  head.rowCount = rowCount_;
  head.lastAutoNumber = lastAutoNumber_;
  head.autoNumberEnabled = 1;
  head.tableKind = plan_.system ? 'S' : 'N';
  head.maxColumns = head.columnCount = count16(plan_.columns.size());
  head.variableSlots = count16(std::count_if(plan_.columns.begin(), plan_.columns.end(),
                                             [](const ColumnDef& c) { return !c.isFixed(); }));
  head.logicalIndexCount = head.indexCount = count(plan_.indexes.size());
  head.ownedPages = recordOf(maps_.owned);
  head.freeSpacePages = recordOf(maps_.free);

  Bytes bytes;
  append(bytes, head);
  for (std::size_t i = 0; i < plan_.indexes.size(); ++i) {
    format::IndexCounter4 counter{};
    if (i < distinct.size()) counter.distinctKeys = distinct[i];
    append(bytes, counter);
  }
  for (const std::size_t i : plan_.order)
    append(bytes, columnRecord(plan_.columns[i], plan_.system));
  for (const std::size_t i : plan_.order) appendName(bytes, plan_.columns[i].column.name);
  for (std::size_t i = 0; i < plan_.indexes.size(); ++i)
    append(bytes,
           indexRecord(plan_, plan_.indexes[i], indexMaps_[i], i < roots_.size() ? roots_[i] : 0));
  const auto names = byName(plan_.indexes);
  for (const std::size_t i : names) append(bytes, logicalRecord(i, plan_.indexes[i].primary));
  for (const std::size_t i : names) appendName(bytes, plan_.indexes[i].name);
  for (const std::size_t i : plan_.order) {
    if (!plan_.columns[i].isLongValue()) continue;
    append(bytes,
           format::LongValueMaps{static_cast<std::uint16_t>(i), recordOf(longValueMaps_[i].owned),
                                 recordOf(longValueMaps_[i].free)});
  }
  append(bytes, base::le16(format::kLongValueMapsEnd));
  kJet4.table.length.set(bytes, count(bytes.size()));
  return bytes;
}

// Each page begins with a head of its own; the definition runs on behind it.
void TableWriter::writeDefinition(const Bytes& bytes) {
  const std::size_t headSize = sizeof(format::TableDefPage);
  const std::size_t room = kJet4.pageSize - headSize;
  for (std::size_t i = 0; i < definition_.size(); ++i) {
    const std::size_t start = headSize + i * room;
    const std::size_t length = std::min(room, bytes.size() - start);
    format::TableDefPage head{};
    head.kind = static_cast<std::uint8_t>(format::PageKind::TableDef);
    head.used = 1;
    // A page of the definition keeps eight bytes of what is left to itself.
    head.freeBytes = static_cast<std::uint16_t>(std::max<std::size_t>(room - length, 8) - 8);
    head.next = i + 1 < definition_.size() ? definition_[i + 1] : 0;
    const auto target = file_.page(definition_[i]);
    std::memcpy(target.data(), &head, headSize);
    std::memcpy(target.data() + headSize, bytes.data() + start, length);
  }
}

}  // namespace jet
