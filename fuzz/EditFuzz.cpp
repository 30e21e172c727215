#include <map>

#include "FuzzInput.h"
#include "jet/Database.h"
#include "support/MemoryFileSystem.h"

// Edits fields of a file at random. Whatever its bytes are, that ends. A sound file stays sound and
// holds what was committed, and nothing of what was rolled back.

namespace {

using jet::Value;

const std::string kPath = "/eingabe.kwd";
constexpr int kMostEdits = 24;

std::string textFrom(fuzz::Input& input, std::size_t length) {
  const std::uint8_t kind = input.byte();
  std::string text;
  for (std::size_t i = 0; i < length; ++i) {
    if (kind % 4 == 0)
      text += "€";
    else
      text += static_cast<char>('A' + (kind + i) % 60);
  }
  return text;
}

Value valueFor(jet::ColumnType type, fuzz::Input& input) {
  const std::uint8_t choice = input.byte();
  if (choice % 8 == 0) return jet::Null();
  const std::uint64_t number = input.longNumber();
  switch (type) {
    case jet::ColumnType::Boolean:
      return choice % 2 == 0;
    case jet::ColumnType::Currency:
      return base::Money::fromTenThousandths(static_cast<std::int64_t>(number));
    case jet::ColumnType::Single:
      return std::bit_cast<float>(static_cast<std::uint32_t>(number));
    case jet::ColumnType::Double:
      return std::bit_cast<double>(number);
    case jet::ColumnType::DateTime:
      return jet::DateTime{static_cast<double>(number % 100000)};
    case jet::ColumnType::Text:
      return textFrom(input, number % 260);
    case jet::ColumnType::Memo:
      return textFrom(input, number % 10000);
    case jet::ColumnType::Binary:
    case jet::ColumnType::Ole:
      return base::Bytes(number % 600, choice);
    case jet::ColumnType::Guid:
      return jet::Guid{{choice, static_cast<std::uint8_t>(number)}};
    default:
      return static_cast<std::int64_t>(choice % 2 == 0 ? number : number % 256);
  }
}

// What all tables hold, compared bit for bit where numbers are concerned.
using Content = std::map<std::string, std::vector<std::vector<Value>>>;

Content contentOf(jet::Database& database) {
  Content content;
  for (const std::string& name : database.tableNames()) {
    auto rows = database.openTable(name);
    if (!rows) continue;
    for (std::size_t i = 0; i < rows->count(); ++i)
      content[name].push_back(rows->row(i).value_or(std::vector<Value>()));
  }
  return content;
}

bool isNotANumber(const Value& value) {
  const auto* single = std::get_if<float>(&value);
  const auto* real = std::get_if<double>(&value);
  return (single != nullptr && *single != *single) || (real != nullptr && *real != *real);
}

void editOnce(jet::Database& database, fuzz::Input& input) {
  const auto names = database.tableNames();
  if (names.empty()) return;
  const std::string& name = names[input.byte() % names.size()];
  auto rows = database.openTable(name);
  if (!rows || rows->count() == 0) return;
  if (input.byte() == 0xFF) {
    base::ignore(database.rebuildIndexes(name), "damaged tables refuse");
    return;
  }
  const std::size_t row = input.number() % rows->count();
  const std::size_t column = input.byte() % rows->columns().size();
  const Value value = valueFor(rows->columns()[column].type, input);
  if (isNotANumber(value)) return;
  const auto before = rows->value(row, column);
  const auto done = rows->set(row, column, value);
  const auto after = rows->value(row, column);
  if (done && before) {
    const bool falseForNull = jet::isNull(value) && after == Value(false);
    const bool rounded = after && after->index() != value.index();
    fuzz::require(after == value || falseForNull || rounded, "the field holds the value");
  }
  if (!done && before) fuzz::require(after == before, "a refused change changes nothing");
}

bool isSound(const jet::Database& database) {
  for (const jet::Finding& finding : database.check())
    if (!finding.warning) return false;
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  support::MemoryFileSystem files({{kPath, fuzz::databaseFrom(input)}});
  auto database = jet::Database::open(files, kPath);
  if (!database) return 0;
  const bool sound = isSound(*database);
  for (int edits = 0; edits < kMostEdits && !input.empty();) {
    const Content before = sound ? contentOf(*database) : Content();
    if (!database->begin()) break;
    for (int count = 1 + input.byte() % 4; count > 0; --count, ++edits) editOnce(*database, input);
    if (input.byte() % 8 == 0) {
      database->rollback();
      if (sound) fuzz::require(contentOf(*database) == before, "rolled back");
      continue;
    }
    const auto stored = database->commit();
    if (!stored) continue;
    if (!sound) continue;
    fuzz::require(isSound(*database), "a sound file stays sound");
    support::MemoryFileSystem copy({{kPath, files.get(kPath)}});
    auto reopened = jet::Database::open(copy, kPath);
    fuzz::require(reopened.has_value(), "the file opens again");
    fuzz::require(contentOf(*reopened) == contentOf(*database), "the file holds what is shown");
  }
  return 0;
}
