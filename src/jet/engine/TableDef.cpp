#include "jet/engine/TableDef.h"

#include <algorithm>
#include <bitset>
#include <set>

#include "base/Paths.h"
#include "jet/engine/Damage.h"
#include "jet/engine/FieldValue.h"

namespace jet {
namespace {

using format::PageKind;

// Far above what 255 columns and 32 indexes need; stops a chain that leads through the whole file.
constexpr std::size_t kMaxDefinitionPages = 128;
constexpr std::size_t kMaxColumns = 255;  // deleted ones included

// The records of a definition one after the other.
class DefinitionReader {
 public:
  DefinitionReader(const Pager& pager, TableDef& table)
      : pager_(pager), format_(pager.version()), table_(table) {}

  Result<void> read();

 private:
  Result<void> collectPages();
  Result<ByteSpan> next(std::size_t length);
  Result<std::string> nextName();
  Result<void> readHead();
  Result<void> readColumns();
  Result<void> readColumn(ByteSpan record);
  Result<void> checkColumns();
  Result<void> readIndexes();
  Result<void> readIndex(ByteSpan record);
  Result<void> readLogicalIndexes();
  Result<void> readLongValueMaps();
  template <class... Arguments>
  Failure wrong(const char* reason, const Arguments&... arguments) const {
    return damaged(table_.page, reason, arguments...);
  }

  const Pager& pager_;
  const format::Version& format_;
  TableDef& table_;
  ByteSpan bytes_;      // the whole definition
  PageRef firstPage_;   // which holds it, unless there are more pages
  base::Bytes joined_;  // their content then
  std::size_t position_ = 0;
  std::size_t columnCount_ = 0;
  std::size_t indexCount_ = 0;
  std::size_t logicalCount_ = 0;
};

Result<void> DefinitionReader::read() {
  if (auto done = collectPages(); !done) return done;
  if (auto done = readHead(); !done) return done;
  if (auto done = next(indexCount_ * format_.table.counterSize); !done)
    return Failure(done.error());
  if (auto done = readColumns(); !done) return done;
  if (auto done = readIndexes(); !done) return done;
  if (auto done = readLogicalIndexes(); !done) return done;
  if (auto done = readLongValueMaps(); !done) return done;
  // Two passes, as the maps name columns by number in the order of their records.
  const auto before = [](const ColumnDef& a, const ColumnDef& b) {
    return a.column.number < b.column.number;
  };
  if (!std::is_sorted(table_.columns.begin(), table_.columns.end(), before))
    std::sort(table_.columns.begin(), table_.columns.end(), before);
  return {};
}

Result<void> DefinitionReader::collectPages() {
  constexpr format::Field kNext = JET_FIELD(format::TableDefPage, next);
  std::vector<std::uint32_t>& seen = table_.pages;
  std::uint32_t number = table_.page;
  do {
    const bool known = std::find(seen.begin(), seen.end(), number) != seen.end();
    if (known || seen.size() == kMaxDefinitionPages)
      return damaged(number, "the table's definition runs in a circle");
    auto page = pager_.page(number, PageKind::TableDef);
    if (!page) return Failure(page.error());
    const ByteSpan content(**page);
    const bool first = seen.empty();
    const std::uint32_t following = kNext.get(content);
    if (first) {
      firstPage_ = *page;
      bytes_ = content;
    }
    if (first && following != 0) joined_.assign(content.begin(), content.end());
    if (!first)
      joined_.insert(joined_.end(), content.begin() + sizeof(format::TableDefPage), content.end());
    seen.push_back(number);
    number = following;
  } while (number != 0);
  if (!joined_.empty()) bytes_ = joined_;
  const std::size_t length = format_.table.length.get(bytes_);
  if (length < format_.table.headSize || length > bytes_.size())
    return wrong("the length of the table's definition is wrong");
  bytes_ = bytes_.first(length);
  return {};
}

Result<ByteSpan> DefinitionReader::next(std::size_t length) {
  if (length > bytes_.size() - position_) return wrong("the table's definition ends too early");
  position_ += length;
  return bytes_.subspan(position_ - length, length);
}

Result<std::string> DefinitionReader::nextName() {
  auto prefix = next(format_.table.nameLengthWidth);
  if (!prefix) return Failure(prefix.error());
  const format::Field width{0, static_cast<std::uint8_t>(prefix->size())};
  auto bytes = next(width.get(*prefix));
  if (!bytes) return Failure(bytes.error());
  auto name = decodeText({.form = format_.text, .codePage = 1252}, *bytes);
  if (!name) return at(table_.page, name.error());
  return name;
}

Result<void> DefinitionReader::readHead() {
  auto head = next(format_.table.headSize);
  if (!head) return Failure(head.error());
  const format::TableFormat& layout = format_.table;
  const std::uint32_t kind = layout.tableKind.get(*head);
  if (kind != 'N' && kind != 'S') return wrong("the kind of the table is unknown");
  table_.systemTable = kind == 'S';
  table_.rowCount = layout.rowCount.get(*head);
  table_.lastAutoNumber = layout.lastAutoNumber.get(*head);
  table_.maxColumns = layout.maxColumns.get(*head);
  table_.variableSlots = layout.variableSlots.get(*head);
  table_.ownedPages = RowPointer::fromNumber(layout.ownedPages.get(*head));
  table_.freeSpacePages = RowPointer::fromNumber(layout.freeSpacePages.get(*head));
  columnCount_ = layout.columnCount.get(*head);
  indexCount_ = layout.indexCount.get(*head);
  logicalCount_ = layout.logicalIndexCount.get(*head);
  const bool sound = columnCount_ <= table_.maxColumns && table_.maxColumns <= kMaxColumns &&
                     table_.variableSlots <= table_.maxColumns;
  if (!sound) return wrong("the number of columns is wrong");
  // Also keeps the products of counts and record sizes small. The counters lie on the first page.
  if (indexCount_ > bytes_.size() || logicalCount_ > bytes_.size() ||
      layout.headSize + indexCount_ * layout.counterSize > format_.pageSize)
    return wrong("the number of indexes is wrong");
  return {};
}

Result<void> DefinitionReader::readColumns() {
  table_.columns.reserve(columnCount_);
  for (std::size_t i = 0; i < columnCount_; ++i) {
    auto record = next(format_.column.size);
    if (!record) return Failure(record.error());
    if (auto done = readColumn(*record); !done) return done;
  }
  for (ColumnDef& column : table_.columns) {
    auto name = nextName();
    if (!name) return Failure(name.error());
    column.column.name = std::move(*name);
  }
  return checkColumns();
}

TextOrder textOrderOf(const format::Version& format, ByteSpan record) {
  const bool general = format.column.sortOrder.get(record) == format::kSortOrderGeneral &&
                       format.column.sortVersion.get(record) == 0;
  if (!general) return TextOrder::Unknown;
  if (format.text == format::TextForm::Unicode) return TextOrder::General4;
  return format.column.codePage.get(record) == 1252 ? TextOrder::General3 : TextOrder::Unknown;
}

Result<void> DefinitionReader::readColumn(ByteSpan record) {
  const format::ColumnFormat& layout = format_.column;
  ColumnDef& def = table_.columns.emplace_back();
  Column& column = def.column;
  column.type = static_cast<ColumnType>(layout.type.get(record));
  column.number = static_cast<int>(layout.number.get(record));
  column.length = static_cast<int>(layout.length.get(record));
  def.flags = static_cast<std::uint8_t>(layout.flags.get(record));
  column.fixedLength = (def.flags & format::kColumnFixed) != 0;
  column.autoNumber = (def.flags & (format::kColumnAutoNumber | format::kColumnAutoGuid)) != 0;
  column.compressed = (layout.extendedFlags.get(record) & format::kColumnCompressed) != 0;
  if (column.type == ColumnType::Numeric) {
    column.precision = static_cast<int>(layout.sortOrder.get(record) & 0xFF);
    column.scale = static_cast<int>(layout.sortOrder.get(record) >> 8);
  } else {
    def.textOrder = textOrderOf(format_, record);
  }
  def.slot = layout.slot.get(record);
  def.fixedOffset = layout.fixedOffset.get(record);
  def.storage = {format_.text, static_cast<std::uint16_t>(layout.codePage.get(record)),
                 column.compressed};
  const bool isBit = column.type == ColumnType::Boolean;
  if (column.fixedLength && !isBit)
    table_.fixedLength =
        std::max(table_.fixedLength, def.fixedOffset + static_cast<std::size_t>(column.length));
  return {};
}

// What a column's type says about its length.
bool lengthFits(const format::Version& format, const Column& column) {
  const auto length = static_cast<std::size_t>(column.length);
  switch (column.type) {
    case ColumnType::Boolean:
      return length == 1;
    case ColumnType::Memo:
    case ColumnType::Ole:
      return length == 0;
    case ColumnType::Text:
    case ColumnType::Binary:
      return length >= 1 && length <= format.column.longestBinary;
    case ColumnType::FixedBinary:
      return length >= 1;
    default:
      return length == fixedSizeOf(column.type);
  }
}

// Every column has a place of its own, whose size is that of its type. Where no column was deleted,
// there is no place without a column either.
Result<void> DefinitionReader::checkColumns() {
  const bool complete = columnCount_ == table_.maxColumns;
  std::bitset<kMaxColumns> numbers;
  std::bitset<kMaxColumns> slots;
  std::set<std::string> names;
  std::vector<bool> fixed(std::min(table_.fixedLength, format_.pageSize));
  if (table_.fixedLength > format_.pageSize) return wrong("fixed columns are longer than a page");
  for (const ColumnDef& def : table_.columns) {
    const Column& column = def.column;
    const auto number = static_cast<std::size_t>(column.number);
    bool sound = number < table_.maxColumns && !numbers[number] && lengthFits(format_, column) &&
                 names.insert(base::lowerCase(column.name)).second;
    if (sound && column.type != ColumnType::Boolean && def.isFixed()) {
      const auto place = fixed.begin() + static_cast<std::ptrdiff_t>(def.fixedOffset);
      sound = std::find(place, place + column.length, true) == place + column.length;
      std::fill(place, place + column.length, true);
    } else if (sound && column.type != ColumnType::Boolean) {
      sound = def.slot < table_.variableSlots && !slots[def.slot];
      if (sound) slots.set(def.slot);
    }
    if (!sound) return wrong("column %1 is described wrongly", column.name);
    numbers.set(number);
  }
  const bool gap = slots.count() < table_.variableSlots ||
                   std::find(fixed.begin(), fixed.end(), false) != fixed.end();
  if (complete && gap) return wrong("a place in the rows has no column");
  return {};
}

Result<void> DefinitionReader::readIndexes() {
  for (std::size_t i = 0; i < indexCount_; ++i) {
    const std::size_t start = position_;
    auto record = next(format_.index.size);
    if (!record) return Failure(record.error());
    if (auto done = readIndex(*record); !done) return done;
    table_.indexes.back().record = start;
  }
  return {};
}

Result<void> DefinitionReader::readIndex(ByteSpan record) {
  const format::IndexFormat& layout = format_.index;
  IndexDef index;
  index.pages = RowPointer::fromNumber(layout.pages.get(record));
  index.root = layout.root.get(record);
  const std::uint32_t flags = layout.flags.get(record);
  index.unique = (flags & format::kIndexUnique) != 0;
  index.ignoreNulls = (flags & format::kIndexIgnoreNulls) != 0;
  index.required = (flags & format::kIndexRequired) != 0;
  constexpr format::Field kNumber = JET_FIELD(format::IndexColumnRecord, number);
  constexpr format::Field kOrder = JET_FIELD(format::IndexColumnRecord, order);
  for (std::size_t i = 0; i < format::kIndexColumns; ++i) {
    const ByteSpan part = record.subspan(layout.columns + i * sizeof(format::IndexColumnRecord),
                                         sizeof(format::IndexColumnRecord));
    if (kNumber.get(part) == format::kIndexColumnUnused) continue;
    const int number = static_cast<int>(kNumber.get(part));
    // Columns get sorted by number at the end, so this is their later position.
    const auto has = [&](const ColumnDef& def) { return def.column.number == number; };
    if (std::none_of(table_.columns.begin(), table_.columns.end(), has))
      return wrong("index %1 names a column that is not there", table_.indexes.size());
    const auto before = [&](const ColumnDef& def) { return def.column.number < number; };
    const auto position = std::count_if(table_.columns.begin(), table_.columns.end(), before);
    index.parts.push_back(
        {static_cast<std::size_t>(position), (kOrder.get(part) & format::kIndexAscending) != 0});
  }
  table_.indexes.push_back(std::move(index));
  return {};
}

Result<void> DefinitionReader::readLogicalIndexes() {
  const format::IndexFormat& layout = format_.index;
  if (logicalCount_ == 0) return {};
  std::vector<const ColumnDef*> byNumber;
  for (const ColumnDef& column : table_.columns) byNumber.push_back(&column);
  std::sort(byNumber.begin(), byNumber.end(), [](const ColumnDef* a, const ColumnDef* b) {
    return a->column.number < b->column.number;
  });
  std::vector<std::size_t> targets;
  for (std::size_t i = 0; i < logicalCount_; ++i) {
    auto record = next(layout.logicalSize);
    if (!record) return Failure(record.error());
    const std::size_t target = layout.logicalIndex.get(*record);
    if (target >= table_.indexes.size()) return wrong("an index names a tree that is not there");
    const IndexDef& tree = table_.indexes[target];
    Index index;
    for (const IndexDef::Part& part : tree.parts)
      index.columns.push_back({byNumber[part.column]->column.name, part.ascending});
    index.primary = layout.logicalKind.get(*record) == format::kLogicalPrimary;
    index.foreign = layout.logicalKind.get(*record) == format::kLogicalForeign;
    index.unique = tree.unique;
    index.ignoreNulls = tree.ignoreNulls;
    index.required = tree.required;
    targets.push_back(target);
    table_.logicalIndexes.push_back(std::move(index));
  }
  for (std::size_t i = 0; i < targets.size(); ++i) {
    auto name = nextName();
    if (!name) return Failure(name.error());
    IndexDef& tree = table_.indexes[targets[i]];
    if (tree.name.empty()) tree.name = *name;
    table_.logicalIndexes[i].name = std::move(*name);
  }
  return {};
}

// Some of Access' own tables name maps that do not exist; their columns read all the same.
Result<void> DefinitionReader::readLongValueMaps() {
  constexpr format::Field kColumn = JET_FIELD(format::LongValueMaps, column);
  constexpr format::Field kOwned = JET_FIELD(format::LongValueMaps, owned);
  constexpr format::Field kFreeSpace = JET_FIELD(format::LongValueMaps, freeSpace);
  while (bytes_.size() - position_ >= sizeof(format::LongValueMaps)) {
    const ByteSpan record = *next(sizeof(format::LongValueMaps));
    if (kColumn.get(record) == format::kLongValueMapsEnd) break;
    for (ColumnDef& def : table_.columns) {
      if (def.column.number != static_cast<int>(kColumn.get(record))) continue;
      const std::uint32_t owned = kOwned.get(record);
      const std::uint32_t freeSpace = kFreeSpace.get(record);
      if (owned == 0 || freeSpace == 0) continue;
      def.ownedPages = RowPointer::fromNumber(owned);
      def.freeSpacePages = RowPointer::fromNumber(freeSpace);
    }
  }
  return {};
}

}  // namespace

Result<TableDef> TableDef::read(const Pager& pager, std::uint32_t page) {
  TableDef table;
  table.page = page;
  DefinitionReader reader(pager, table);
  if (auto done = reader.read(); !done) return at(page, done.error());
  return table;
}

// The number may lie across the border of two pages of the definition.
Result<void> TableDef::changeRoot(Pager& pager, std::size_t index, std::uint32_t root) {
  const format::Version& version = pager.version();
  const std::size_t headSize = sizeof(format::TableDefPage);
  const std::size_t perPage = version.pageSize - headSize;
  for (unsigned i = 0; i < version.index.root.width; ++i) {
    const std::size_t position = indexes[index].record + version.index.root.offset + i - headSize;
    auto bytes = pager.edit(pages[position / perPage]);
    if (!bytes) return Failure(bytes.error());
    (*bytes)[headSize + position % perPage] = static_cast<std::uint8_t>(root >> (8 * i));
  }
  indexes[index].root = root;
  return {};
}

std::optional<std::size_t> TableDef::columnByName(std::string_view name) const {
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (base::equalsIgnoreCase(columns[i].column.name, name)) return i;
  return std::nullopt;
}

}  // namespace jet
