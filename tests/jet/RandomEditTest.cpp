#include <gtest/gtest.h>

#include <map>
#include <random>

#include "RealFiles.h"
#include "jet/Creator.h"
#include "jet/Database.h"
#include "support/JetDump.h"
#include "support/MemoryFileSystem.h"

namespace {

using base::ErrorCode;
using jet::Column;
using jet::ColumnType;
using jet::Value;

constexpr char kPath[] = "/model.mdb";

class RandomValues {
 public:
  explicit RandomValues(std::uint32_t seed) : random_(seed) {}

  std::size_t below(std::size_t limit) { return std::size_t{random_()} % limit; }

  Value of(const Column& column, bool jet4) {
    if (column.type == ColumnType::Boolean) return below(2) == 0;
    if (below(8) == 0) return jet::Null();
    switch (column.type) {
      case ColumnType::Byte:
        return static_cast<std::int64_t>(below(256));
      case ColumnType::Integer:
        return static_cast<std::int64_t>(below(65536)) - 32768;
      case ColumnType::Long:
        return static_cast<std::int64_t>(static_cast<std::int32_t>(random_()));
      case ColumnType::Currency:
        return base::Money::fromTenThousandths(static_cast<std::int64_t>(wide()) >> below(64));
      case ColumnType::Single:
        return static_cast<float>(number());
      case ColumnType::Double:
        return number();
      case ColumnType::DateTime:
        return jet::DateTime{std::round(number()) / 16};
      case ColumnType::Text:
        return text(static_cast<std::size_t>(column.length) / (jet4 ? 2 : 1), jet4);
      case ColumnType::Memo:
        return text(below(3) == 0 ? 9000 : 90, jet4);
      case ColumnType::Guid:
        return guid();
      case ColumnType::Numeric:
        return *jet::Decimal::parse(std::to_string(below(2000000)))
                    ->rescaled(static_cast<std::uint8_t>(column.scale));
      default:
        return bytes(column.type == ColumnType::Ole ? 12000
                                                    : static_cast<std::size_t>(column.length));
    }
  }

 private:
  std::uint64_t wide() { return std::uint64_t{random_()} << 32 | random_(); }
  double number() { return (static_cast<double>(below(4000001)) - 2000000) / 7; }
  std::string text(std::size_t limit, bool jet4) {
    static const std::vector<std::string> kLetters = {"a", "B", "z", "Ä", "ß", "é", " ",
                                                      "-", "'", "7", "ü", "°", "€"};
    std::string result;
    const std::size_t length =
        below(4) == 0 ? below(limit + 1) : below(std::min<std::size_t>(limit, 12) + 1);
    const std::size_t letters = below(3) == 0 ? kLetters.size() : kLetters.size() - 1;
    for (std::size_t i = 0; i < length; ++i) result += kLetters[below(letters)];
    if (jet4 && length > 0 && length < limit && below(20) == 0) result += "字";
    return result;
  }
  jet::Guid guid() {
    jet::Guid value;
    for (auto& byte : value.bytes) byte = static_cast<std::uint8_t>(random_());
    return value;
  }
  base::Bytes bytes(std::size_t limit) {
    base::Bytes value(below(limit + 1));
    for (auto& byte : value) byte = static_cast<std::uint8_t>(random_());
    return value;
  }
  std::mt19937 random_;
};

// A file of ours in which rows move, keys repeat and long texts come and go.
base::Bytes madeFile(jet::FileVersion version) {
  jet::NewTable table{"Alles",
                      {{"Nr", ColumnType::Long, 0, true},
                       {"Name", ColumnType::Text, 200},
                       {"Zahl", ColumnType::Integer},
                       {"Betrag", ColumnType::Currency},
                       {"Ja", ColumnType::Boolean},
                       {"Roh", ColumnType::Binary, 200},
                       {"Text", ColumnType::Memo},
                       {"Bild", ColumnType::Ole}},
                      {{"PrimaryKey", {{"Nr", true}}, true},
                       {"Name", {{"Name", false}}},
                       {"Paar", {{"Zahl", true}, {"Ja", true}}, false, true}},
                      {}};
  for (std::int64_t i = 0; i < 40; ++i)
    table.rows.push_back({jet::Null(), std::to_string(i), i, jet::Null(), false, jet::Null(),
                          jet::Null(), jet::Null()});
  jet::NewTable second = table;
  second.name = "Wenig";
  second.rows.resize(1);
  return *jet::createDatabase({table, second}, version);
}

// Every value of every table, as the edits should have left it.
using Rows = std::vector<std::vector<Value>>;
using Model = std::map<std::string, Rows>;

class RandomEdits : public testing::TestWithParam<std::string> {
 protected:
  void open() {
    database_.reset();
    auto opened =
        jet::Database::open(disk_, kPath, {.acceptPassword = true, .acceptEncryption = true});
    ASSERT_TRUE(opened) << germanMessage(opened.error());
    database_.emplace(std::move(*opened));
  }
  Model read() {
    Model model;
    for (const std::string& name : database_->tableNames()) {
      auto rows = database_->openTable(name);
      EXPECT_TRUE(rows) << germanMessage(rows.error());
      model[name];
      for (std::size_t i = 0; rows && i < rows->count(); ++i) {
        auto row = rows->row(i);
        EXPECT_TRUE(row) << germanMessage(row.error());
        model[name].push_back(row.value_or(std::vector<Value>()));
      }
    }
    return model;
  }
  // What is read back: texts of a fixed length are filled up with blanks, numbers given on.
  static bool isDerived(const Column& column) {
    return column.autoNumber || (column.type == ColumnType::Text && column.fixedLength);
  }
  void insert(jet::RecordSet& rows, Rows& model, RandomValues& random) {
    std::vector<Value> values;
    for (const Column& column : rows.columns())
      values.push_back(column.autoNumber ? Value() : random.of(column, isJet4()));
    auto place = rows.insert(values);
    if (!place) return expectRefusal(place.error());
    ++stored_;
    for (std::size_t i = 0; i < values.size(); ++i)
      if (isDerived(rows.columns()[i])) values[i] = *rows.value(*place, i);
    model.insert(model.begin() + static_cast<std::ptrdiff_t>(*place), std::move(values));
  }
  void erase(jet::RecordSet& rows, Rows& model, std::size_t row) {
    auto done = rows.erase(row);
    if (!done) return expectRefusal(done.error());
    ++stored_;
    model.erase(model.begin() + static_cast<std::ptrdiff_t>(row));
  }
  static void expectRefusal(const base::Error& error) {
    EXPECT_TRUE(error.code == ErrorCode::InvalidValue || error.code == ErrorCode::Unsupported)
        << germanMessage(error);
  }
  bool isJet4() const { return database_->formatName() == "Jet 4"; }

  // One edit of the model and the file; both change or neither does.
  void edit(Model& model, RandomValues& random) {
    auto table = model.begin();
    std::advance(table, static_cast<std::ptrdiff_t>(random.below(model.size())));
    auto rows = database_->openTable(table->first);
    ASSERT_TRUE(rows);
    ++edits_;
    // Some stretches grow the table, others empty it.
    const std::size_t chance = random.below(12);
    if (table->second.empty() || chance < (growing_ ? 3u : 1u))
      return insert(*rows, table->second, random);
    const std::size_t row = random.below(table->second.size());
    if (chance >= (growing_ ? 11u : 8u)) return erase(*rows, table->second, row);
    const std::size_t column = random.below(rows->columns().size());
    if (rows->columns()[column].autoNumber) return;
    const Value value = random.of(rows->columns()[column], isJet4());
    auto done = rows->set(row, column, value);
    if (!done) return expectRefusal(done.error());
    ++stored_;
    table->second[row][column] =
        isDerived(rows->columns()[column]) ? *rows->value(row, column) : value;
  }
  std::size_t damage() {
    std::size_t errors = 0;
    for (const jet::Finding& finding : database_->check()) {
      if (!finding.warning) ADD_FAILURE() << germanMessage(finding.error);
      ++errors;
    }
    return errors;
  }

  support::MemoryFileSystem disk_;
  std::optional<jet::Database> database_;
  int edits_ = 0;
  int stored_ = 0;
  bool growing_ = true;
};
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(RandomEdits);
INSTANTIATE_TEST_SUITE_P(Access, RandomEdits, testing::ValuesIn(realfiles::sound()),
                         [](const auto& file) { return realfiles::testName(file.param); });

INSTANTIATE_TEST_SUITE_P(Made, RandomEdits, testing::Values("Jet 3", "Jet 4"),
                         [](const auto& file) { return realfiles::testName(file.param); });

TEST_P(RandomEdits, LeaveTheFileAsTheModelSays) {
  if (GetParam() == "Jet 3" || GetParam() == "Jet 4")
    disk_.put(kPath,
              madeFile(GetParam() == "Jet 3" ? jet::FileVersion::Jet3 : jet::FileVersion::Jet4));
  else
    disk_.put(kPath, base::asBytes(realfiles::read(realfiles::folder() / GetParam())));
  open();
  Model model = read();
  if (model.empty()) return;  // a file without tables has nothing to edit
  const std::size_t leftovers = damage();
  RandomValues random(static_cast<std::uint32_t>(model.size()) * 7919);
  for (int transaction = 0; transaction < 120; ++transaction) {
    const Model before = model;
    growing_ = transaction % 60 < 30;
    ASSERT_TRUE(database_->begin());
    for (std::size_t i = 0; i <= random.below(16); ++i) edit(model, random);
    if (random.below(5) == 0) {
      database_->rollback();
      model = before;
    } else {
      auto done = database_->commit();
      ASSERT_TRUE(done) << germanMessage(done.error());
    }
    if (transaction % 30 != 29) continue;
    EXPECT_LE(damage(), leftovers);
    open();
    ASSERT_TRUE(read() == model) << "after transaction " << transaction;
    EXPECT_TRUE(database_->warnings().empty());
  }
  EXPECT_GT(stored_ * 3, edits_) << stored_ << " of " << edits_;
}

}  // namespace
