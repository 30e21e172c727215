#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <set>
#include <sstream>

#include "RealFiles.h"
#include "base/Paths.h"
#include "jet/Database.h"
#include "support/Command.h"
#include "support/JetDump.h"
#include "support/TemporaryFolder.h"

// What an independent program (mdbtools) reads after our edits. It lists moved rows in another
// order, so rows are compared as sets.
namespace {

using jet::Column;
using jet::ColumnType;
using jet::Value;

using Row = std::vector<std::string>;
using RowSet = std::multiset<Row>;

// The digits that both programs agree on: one prints all of them, the other some fifteen.
std::string comparable(const std::string& number, bool single) {
  char text[40];
  std::snprintf(text, sizeof text, single ? "%.6g" : "%.12g", std::strtod(number.c_str(), nullptr));
  return text;
}

// The other program writes the digits of the text that stands for a GUID, with one dash too few.
std::string guidDigits(const std::string& text) {
  std::string guid = text;
  if (!text.starts_with('{')) {
    guid.clear();
    for (std::size_t i = 0; i + 1 < text.size(); i += 2)
      guid += static_cast<char>(std::stoi(text.substr(i, 2), nullptr, 16));
  }
  std::erase(guid, '-');
  return guid;
}

std::string comparable(const Column& column, const std::string& text) {
  if (text == "\\N") return text;
  switch (column.type) {
    case ColumnType::Single:
    case ColumnType::Double:
      return comparable(text, column.type == ColumnType::Single);
    case ColumnType::Guid:
      return guidDigits(text);
    default:
      return text;
  }
}

// One value in the words of the other program.
std::string spoken(const Column& column, const Value& value) {
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "1" : "0";
  if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
  if (const auto* bytes = std::get_if<base::Bytes>(&value)) {
    std::string text;
    char digits[8];
    for (const unsigned byte : *bytes) {
      std::snprintf(digits, sizeof digits, "%02X", byte);
      text += digits;
    }
    return text;
  }
  std::string text = support::dumpValue(column, value);
  // Dates come with seconds always.
  if (std::holds_alternative<jet::DateTime>(value) && text.size() == 16) text += ":00";
  return comparable(column, text);
}

class IndependentReader : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    if (!support::isInstalled("mdb-export")) GTEST_SKIP() << "mdbtools is not installed";
    std::ofstream copy(base::toPath(path_), std::ios::binary);
    copy << realfiles::read(realfiles::folder() / GetParam());
  }
  void open() {
    database_.reset();
    auto opened = jet::Database::open(*files_, path_, {.acceptPassword = true});
    ASSERT_TRUE(opened) << germanMessage(opened.error());
    database_.emplace(std::move(*opened));
  }
  RowSet read(const jet::RecordSet& rows) const {
    const std::string output =
        support::run("mdb-export -H -Q -e -d '\t' -0 '\\N' -b hex -T '%Y-%m-%dT%H:%M:%S' '" +
                     path_ + "' '" + rows.tableName() + "'")
            .output;
    RowSet set;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
      Row row;
      std::istringstream fields(line);
      for (std::string field; std::getline(fields, field, '\t');) row.push_back(field);
      row.resize(rows.columns().size());
      for (std::size_t i = 0; i < row.size(); ++i) row[i] = comparable(rows.columns()[i], row[i]);
      set.insert(row);
    }
    return set;
  }
  static RowSet ours(const jet::RecordSet& rows) {
    RowSet set;
    for (std::size_t i = 0; i < rows.count(); ++i) {
      auto values = rows.row(i);
      EXPECT_TRUE(values) << germanMessage(values.error());
      Row row;
      for (std::size_t c = 0; values && c < values->size(); ++c)
        row.push_back(spoken(rows.columns()[c], (*values)[c]));
      set.insert(row);
    }
    return set;
  }

  support::TemporaryFolder folder_;
  std::string path_ = folder_ / "edited.mdb";
  std::unique_ptr<base::FileSystem> files_ = base::makeDiskFileSystem();
  std::optional<jet::Database> database_;
};
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(IndependentReader);

std::vector<std::string> readableFiles() {
  std::vector<std::string> names = realfiles::sound();
  // Encrypted pages and texts of every character are beyond the other program.
  std::erase_if(names, [](const std::string& name) {
    return name.find("enc.mdb") != std::string::npos ||
           name.find("testIndexCodes") != std::string::npos ||
           name.find("testUnicodeComp") != std::string::npos;
  });
  return names;
}
INSTANTIATE_TEST_SUITE_P(Access, IndependentReader, testing::ValuesIn(readableFiles()),
                         [](const auto& file) { return realfiles::testName(file.param); });

// The first field in which two sets differ; "" when they are equal.
std::string difference(const RowSet& theirs, const RowSet& ours) {
  if (theirs.size() != ours.size())
    return std::to_string(theirs.size()) + " rows instead of " + std::to_string(ours.size());
  for (auto a = theirs.begin(), b = ours.begin(); a != theirs.end(); ++a, ++b)
    for (std::size_t i = 0; i < a->size(); ++i)
      if ((*a)[i] != (*b)[i])
        return "field " + std::to_string(i) + ": " + (*a)[i] + " instead of " + (*b)[i];
  return "";
}

// A value of the column's kind that differs from row to row.
Value valueFor(const Column& column, std::size_t row, bool wide) {
  const auto number = static_cast<std::int64_t>(row);
  const auto limit = static_cast<std::size_t>(column.length) / (wide ? 2 : 1);
  switch (column.type) {
    case ColumnType::Boolean:
      return row % 3 == 0;
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::Long:
      return 100 - number % 50;
    case ColumnType::Currency:
      return base::Money::fromTenThousandths(123456 + 7 * number);
    case ColumnType::Single:
      return static_cast<float>(number) / 4 - 1;
    case ColumnType::Double:
      return static_cast<double>(number) / 3;
    case ColumnType::DateTime:
      return jet::DateTime{44000.25 + static_cast<double>(number)};
    case ColumnType::Text:
      return ("Zähler " + std::to_string(row) + std::string(row % 2 == 0 ? 150 : 0, 'w'))
          .substr(0, limit);
    case ColumnType::Memo:
      return "Anmerkung äöü " + std::string(row % 4 * 1500, 'm');
    case ColumnType::Numeric:
      return number;
    case ColumnType::Guid: {
      jet::Guid guid;
      guid.bytes.fill(static_cast<std::uint8_t>(row));
      return guid;
    }
    default:
      return base::Bytes(std::min<std::size_t>(column.type == ColumnType::Ole ? 5000 : 8, 5000),
                         static_cast<std::uint8_t>(row));
  }
}

TEST_P(IndependentReader, AgreesAfterEditsOfEveryType) {
  open();
  const bool wide = database_->formatName() == "Jet 4";
  std::size_t stored = 0;
  ASSERT_TRUE(database_->begin());
  for (const std::string& name : database_->tableNames()) {
    auto rows = database_->openTable(name);
    ASSERT_TRUE(rows) << germanMessage(rows.error());
    EXPECT_EQ(difference(read(*rows), ours(*rows)), "") << name << " before";
    for (std::size_t row = 0; row < rows->count(); ++row)
      for (std::size_t c = row % 3; c < rows->columns().size(); c += 2)
        if (rows->set(row, c, valueFor(rows->columns()[c], row, wide))) ++stored;
  }
  auto done = database_->commit();
  ASSERT_TRUE(done) << germanMessage(done.error());
  open();
  for (const std::string& name : database_->tableNames()) {
    auto rows = database_->openTable(name);
    ASSERT_TRUE(rows);
    EXPECT_EQ(difference(read(*rows), ours(*rows)), "") << name;
    const std::string json = support::run("mdb-json '" + path_ + "' '" + name + "'").output;
    EXPECT_EQ(std::count(json.begin(), json.end(), '\n'),
              static_cast<std::ptrdiff_t>(rows->count()));
  }
  RecordProperty("stored", static_cast<int>(stored));
}

// Rows that go, rows that come, and a table that was not there before.
TEST_P(IndependentReader, AgreesWhenRowsAndTablesComeAndGo) {
  open();
  const bool wide = database_->formatName() == "Jet 4";
  ASSERT_TRUE(database_->begin());
  jet::NewTable fresh{"Neu",
                      {{"Nr", ColumnType::Long, 0, true},
                       {"Name", ColumnType::Text, 200},
                       {"Wert", ColumnType::Double},
                       {"Text", ColumnType::Memo}},
                      {{"PrimaryKey", {{"Nr", true}}, true}, {"Name", {{"Name", true}}}},
                      {}};
  auto made = database_->createTable(fresh);
  ASSERT_TRUE(made) << germanMessage(made.error());
  for (const std::string& name : database_->tableNames()) {
    auto rows = database_->openTable(name);
    ASSERT_TRUE(rows) << germanMessage(rows.error());
    const std::size_t before = rows->count();
    for (std::size_t row = 0; row < 40; ++row) {
      std::vector<Value> values;
      for (const Column& column : rows->columns())
        values.push_back(column.autoNumber ? Value() : valueFor(column, before + row, wide));
      const auto added = rows->insert(values);
      EXPECT_TRUE(added || name != fresh.name);
    }
    for (std::size_t row = rows->count(); row-- > 0;)
      if (row % 3 == 0) base::ignore(rows->erase(row), "keys beyond our tables stay");
  }
  auto done = database_->commit();
  ASSERT_TRUE(done) << germanMessage(done.error());
  open();
  EXPECT_EQ(database_->openTable(fresh.name)->count(), 26u);
  for (const std::string& name : database_->tableNames()) {
    auto rows = database_->openTable(name);
    ASSERT_TRUE(rows);
    EXPECT_EQ(difference(read(*rows), ours(*rows)), "") << name;
  }
  EXPECT_TRUE(database_->warnings().empty());
}

// Before and after the change of one field: one row differs, in that field.
TEST_P(IndependentReader, SeesOneFieldChange) {
  open();
  for (const std::string& name : database_->tableNames()) {
    auto rows = database_->openTable(name);
    ASSERT_TRUE(rows);
    const RowSet before = read(*rows);
    const std::size_t step = 1 + rows->columns().size() / 4;
    for (std::size_t c = 0; rows->count() > 0 && c < rows->columns().size(); c += step) {
      ASSERT_TRUE(database_->begin());
      const std::size_t row = rows->count() / 2;
      auto old = rows->row(row);
      ASSERT_TRUE(old);
      const Value wanted = valueFor(rows->columns()[c], 2, database_->formatName() == "Jet 4");
      if (!rows->set(row, c, wanted) || !database_->commit()) {
        database_->rollback();
        continue;
      }
      RowSet expected = before;
      Row changed;
      for (std::size_t i = 0; i < old->size(); ++i)
        changed.push_back(spoken(rows->columns()[i], (*old)[i]));
      const auto position = expected.find(changed);
      ASSERT_NE(position, expected.end());
      expected.erase(position);
      changed[c] = spoken(rows->columns()[c], *rows->value(row, c));
      expected.insert(changed);
      EXPECT_EQ(difference(read(*rows), expected), "") << name << "." << rows->columns()[c].name;
      ASSERT_TRUE(database_->begin());
      ASSERT_TRUE(rows->set(row, c, (*old)[c]));
      ASSERT_TRUE(database_->commit());
    }
  }
}

}  // namespace
