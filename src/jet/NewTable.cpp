#include "jet/NewTable.h"

#include <algorithm>

#include "jet/DataPage.h"
#include "jet/FieldValue.h"
#include "jet/IndexLevels.h"

namespace jet {
namespace {

using base::Bytes;
using base::ErrorCode;
using base::Failure;
using base::Result;
using format::kJet4;

// Pages with less room than this are not offered for new rows.
constexpr std::size_t kWorthwhile = 4096 / 20;

int fixedSize(ColumnType type) {
  switch (type) {
    case ColumnType::Boolean:
    case ColumnType::Byte:
      return 1;
    case ColumnType::Integer:
      return 2;
    case ColumnType::Long:
    case ColumnType::Single:
      return 4;
    case ColumnType::Currency:
    case ColumnType::Double:
    case ColumnType::DateTime:
      return 8;
    case ColumnType::Guid:
      return 16;
    default:
      return 0;
  }
}

std::size_t variableColumns(const TablePlan& plan) {
  return static_cast<std::size_t>(std::count_if(plan.columns.begin(), plan.columns.end(),
                                                [](const ColumnDef& c) { return !c.isFixed(); }));
}

// A Boolean has a declared length of 1, but lies in the null mask.
std::size_t fixedPartLength(const TablePlan& plan) {
  std::size_t end = 0;
  for (const ColumnDef& column : plan.columns)
    if (column.isFixed() && column.column.type != ColumnType::Boolean)
      end = std::max(end, column.fixedOffset + static_cast<std::size_t>(column.column.length));
  return end;
}

void append16(Bytes& bytes, std::size_t value) {
  bytes.push_back(static_cast<std::uint8_t>(value));
  bytes.push_back(static_cast<std::uint8_t>(value >> 8));
}

}  // namespace

void addColumn(TablePlan& plan, std::string name, ColumnType type, int length, std::uint8_t flags) {
  ColumnDef def;
  const int size = fixedSize(type);
  def.column.name = std::move(name);
  def.column.type = type;
  def.column.length = size > 0 ? size : length;
  def.column.fixedLength = size > 0;
  def.column.number = static_cast<int>(plan.columns.size());
  def.column.autoNumber = (flags & format::kColumnAutoNumber) != 0;
  def.flags = static_cast<std::uint8_t>(flags | (size > 0 ? format::kColumnFixed : 0));
  def.slot = variableColumns(plan);
  if (size > 0 && type != ColumnType::Boolean) def.fixedOffset = fixedPartLength(plan);
  def.textOrder = TextOrder::General4;
  plan.columns.push_back(std::move(def));
}

TableWriter::TableWriter(NewFile& file, TablePlan plan, std::uint32_t page)
    : file_(file), plan_(std::move(plan)), definition_{page} {
  keys_.resize(plan_.indexes.size());
  entries_.resize(plan_.indexes.size());
  longValueMaps_.resize(plan_.columns.size());
  longValuePage_.resize(plan_.columns.size());
  if (plan_.order.empty())
    for (std::size_t i = 0; i < plan_.columns.size(); ++i) plan_.order.push_back(i);
  takeMaps();
  // The length is known now, whatever the counters will be.
  const std::size_t room = kJet4.pageSize - sizeof(format::TableDefPage);
  const std::size_t length = definition({}).size() - sizeof(format::TableDefPage);
  while (definition_.size() * room < length) definition_.push_back(file_.append());
  for (std::size_t i = 0; i < plan_.indexes.size(); ++i) roots_.push_back(file_.append());
}

void TableWriter::takeMaps() {
  maps_ = {file_.addMap(), file_.addMap()};
  for (std::size_t i = 0; i < plan_.columns.size(); ++i)
    if (plan_.columns[i].isLongValue()) longValueMaps_[i] = {file_.addMap(), file_.addMap()};
  for (std::size_t i = 0; i < plan_.indexes.size(); ++i) indexMaps_.push_back(file_.addMap());
}

Failure TableWriter::invalid(const std::string& detail, const std::string& column) const {
  Failure failure = base::fail(ErrorCode::InvalidValue, detail);
  failure.value().subject = column.empty() ? plan_.name : plan_.name + "." + column;
  return failure;
}

void TableWriter::startDataPage() {
  dataPage_ = file_.append();
  DataPageEditor::format(kJet4, file_.page(dataPage_), page());
  file_.setInMap(maps_.owned, dataPage_);
}

Result<void> TableWriter::addRow(std::vector<Value> values) {
  if (values.size() != plan_.columns.size()) return invalid("Zahl der Werte ist falsch");
  const auto row = encodeRow(values);
  if (!row) return Failure(row.error());
  if (row->size() > kJet4.row.maxLength) return invalid("Ein Datensatz ist zu lang");
  if (dataPage_ == 0) startDataPage();
  auto editor = DataPageEditor::open(kJet4, dataPage_, file_.page(dataPage_));
  if (!editor->hasRoomFor(row->size())) {
    startDataPage();
    editor = DataPageEditor::open(kJet4, dataPage_, file_.page(dataPage_));
  }
  const std::size_t slot = editor->insert(*row, SlotState::Row);
  ++rowCount_;
  return addKeys(values, {dataPage_, static_cast<std::uint8_t>(slot)});
}

// Column count, fixed part, variable values, their end and offsets backwards, their number, null
// mask. The values become what a reader will find.
Result<Bytes> TableWriter::encodeRow(std::vector<Value>& values) {
  const std::size_t count = plan_.columns.size();
  Bytes mask((count + 7) / 8);
  Bytes row;
  append16(row, count);
  row.resize(2 + fixedPartLength(plan_));
  std::vector<std::size_t> starts;
  for (std::size_t i = 0; i < count; ++i) {
    const ColumnDef& column = plan_.columns[i];
    if (column.column.autoNumber && isNull(values[i]))
      values[i] = std::int64_t{lastAutoNumber_} + 1;
    if (!column.isFixed()) starts.push_back(row.size());
    bool present = !isNull(values[i]);
    if (column.column.type == ColumnType::Boolean) {
      const bool* truth = std::get_if<bool>(&values[i]);
      if (present && truth == nullptr) return invalid("Wert ist kein Ja/Nein", column.column.name);
      present = present && *truth;
    } else if (present) {
      const auto bytes = encodeValue(i, values[i]);
      if (!bytes) return bytes;
      if (column.isFixed())
        std::copy(bytes->begin(), bytes->end(),
                  row.begin() + static_cast<std::ptrdiff_t>(2 + column.fixedOffset));
      else
        row.insert(row.end(), bytes->begin(), bytes->end());
    }
    if (present) mask[i / 8] |= static_cast<std::uint8_t>(1U << (i % 8));
  }
  if (!starts.empty()) {
    append16(row, row.size());
    for (auto start = starts.rbegin(); start != starts.rend(); ++start) append16(row, *start);
    append16(row, starts.size());
  }
  row.insert(row.end(), mask.begin(), mask.end());
  return row;
}

Result<Bytes> TableWriter::encodeValue(std::size_t index, Value& value) {
  const ColumnDef& column = plan_.columns[index];
  auto bytes = column.isLongValue() ? longValue(index, value) : encodeField(column, value);
  if (!bytes) {
    Failure failure = invalid(bytes.error().detail, column.column.name);
    return failure;
  }
  if (column.isLongValue()) return bytes;
  auto stored = decodeField(column, *bytes);
  if (!stored) return invalid(stored.error().detail, column.column.name);
  value = std::move(*stored);
  if (column.column.autoNumber) {
    const auto number = static_cast<std::uint32_t>(std::get<std::int64_t>(value));
    lastAutoNumber_ = std::max(lastAutoNumber_, number);
  }
  return bytes;
}

// In the row, in one row of its own, or in a chain, whose parts are written from the last one.
Result<Bytes> TableWriter::longValue(std::size_t index, const Value& value) {
  const ColumnDef& column = plan_.columns[index];
  Bytes content;
  if (const auto* text = std::get_if<std::string>(&value); text) {
    auto encoded = encodeText(column.storage, *text);
    if (!encoded) return encoded;
    content = std::move(*encoded);
  } else if (const auto* bytes = std::get_if<Bytes>(&value); bytes) {
    content = *bytes;
  } else {
    return invalid("Wert ist kein Text", column.column.name);
  }
  const bool inlined = content.size() <= kJet4.longValue.maxInline;
  const bool oneRow = content.size() <= kJet4.longValue.maxRow;
  const auto form = inlined  ? format::LongValueForm::Inline
                    : oneRow ? format::LongValueForm::OneRow
                             : format::LongValueForm::Chain;
  RowPointer first;
  if (!inlined && oneRow) first = putOnLongValuePage(index, content);
  const std::size_t part = kJet4.longValue.maxRow - 4;
  for (std::size_t end = content.size(); form == format::LongValueForm::Chain && end > 0;) {
    const std::size_t start = (end - 1) / part * part;
    const auto next = std::bit_cast<std::array<std::uint8_t, 4>>(base::le32(first.toNumber()));
    Bytes row(next.begin(), next.end());
    row.insert(row.end(), content.begin() + static_cast<std::ptrdiff_t>(start),
               content.begin() + static_cast<std::ptrdiff_t>(end));
    first = putOnLongValuePage(index, row);
    end = start;
  }
  format::LongValueHead head{};
  head.lengthAndForm = static_cast<std::uint32_t>(content.size()) |
                       static_cast<std::uint32_t>(form) << format::kLongValueFormShift;
  const auto pointer = std::bit_cast<std::array<std::uint8_t, 4>>(base::le32(first.toNumber()));
  head.first = std::bit_cast<format::RowPointerRecord>(pointer);
  Bytes bytes(sizeof(head));
  std::memcpy(bytes.data(), &head, sizeof(head));
  if (inlined) bytes.insert(bytes.end(), content.begin(), content.end());
  return bytes;
}

RowPointer TableWriter::putOnLongValuePage(std::size_t index, base::ByteSpan row) {
  std::uint32_t& number = longValuePage_[index];
  const bool fits = number != 0 &&
                    DataPageEditor::open(kJet4, number, file_.page(number))->hasRoomFor(row.size());
  if (!fits) {
    number = file_.append();
    DataPageEditor::format(kJet4, file_.page(number), format::kLongValueOwner);
    file_.setInMap(longValueMaps_[index].owned, number);
  }
  const std::size_t slot =
      DataPageEditor::open(kJet4, number, file_.page(number))->insert(row, SlotState::Row);
  return {number, static_cast<std::uint8_t>(slot)};
}

Result<void> TableWriter::addKeys(const std::vector<Value>& values, RowPointer row) {
  for (std::size_t i = 0; i < plan_.indexes.size(); ++i) {
    const PlannedIndex& index = plan_.indexes[i];
    Bytes key;
    bool complete = true;
    for (const IndexDef::Part& part : index.parts) {
      const ColumnDef& column = plan_.columns[part.column];
      const auto bytes = encodeKeyPart({column.column.type, part.ascending, column.textOrder},
                                       values[part.column]);
      if (!bytes) return invalid(bytes.error().detail, column.column.name);
      complete = complete && !isNull(values[part.column]);
      key.insert(key.end(), bytes->begin(), bytes->end());
    }
    if (index.primary && !complete) return invalid("Der Primärschlüssel ist leer", index.name);
    entries_[i].push_back(IndexEntry::of(key, row));
    const bool repeated = !keys_[i].insert(std::move(key)).second;
    if (repeated && complete && (index.flags & format::kIndexUnique) != 0)
      return invalid("Ein Schlüssel kommt doppelt vor", index.name);
  }
  return {};
}

// The number of distinct keys.
std::uint32_t TableWriter::writeIndex(std::size_t index) {
  std::vector<IndexEntry>& entries = entries_[index];
  std::sort(entries.begin(), entries.end(),
            [](const IndexEntry& a, const IndexEntry& b) { return a.bytes < b.bytes; });
  const auto take = [&](bool root) {
    const std::uint32_t number = root ? roots_[index] : file_.append();
    file_.setInMap(indexMaps_[index], number);
    return Result<std::uint32_t>(number);
  };
  const auto write = [&](std::uint32_t number, const IndexPage& content) {
    content.encode(kJet4, file_.page(number));
    return Result<void>();
  };
  base::ignore(writeIndexLevels(kJet4, page(), entries, take, write), "memory does not fail");
  return static_cast<std::uint32_t>(keys_[index].size());
}

void TableWriter::finish() {
  std::vector<std::uint32_t> distinct;
  for (std::size_t i = 0; i < plan_.indexes.size(); ++i) distinct.push_back(writeIndex(i));
  const auto offer = [this](std::uint32_t number, RowPointer map) {
    if (number == 0) return;
    const auto editor = DataPageEditor::open(kJet4, number, file_.page(number));
    if (editor->freeBytes() >= kWorthwhile) file_.setInMap(map, number);
  };
  offer(dataPage_, maps_.free);
  for (std::size_t i = 0; i < plan_.columns.size(); ++i)
    offer(longValuePage_[i], longValueMaps_[i].free);
  writeDefinition(definition(distinct));
}

}  // namespace jet
