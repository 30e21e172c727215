#include <gtest/gtest.h>

#include <map>
#include <random>

#include "RealFiles.h"
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
      for (std::size_t i = 0; rows && i < rows->count(); ++i) {
        auto row = rows->row(i);
        EXPECT_TRUE(row) << germanMessage(row.error());
        model[name].push_back(row.value_or(std::vector<Value>()));
      }
    }
    return model;
  }
  // One edit of the model and the file; both change or neither does.
  void edit(Model& model, RandomValues& random) {
    auto table = model.begin();
    std::advance(table, static_cast<std::ptrdiff_t>(random.below(model.size())));
    auto rows = database_->openTable(table->first);
    ASSERT_TRUE(rows);
    const std::size_t row = random.below(table->second.size());
    const std::size_t column = random.below(rows->columns().size());
    if (rows->columns()[column].autoNumber) return;
    const Value value = random.of(rows->columns()[column], database_->formatName() == "Jet 4");
    auto done = rows->set(row, column, value);
    ++edits_;
    if (done) {
      ++stored_;
      // Texts of a fixed length are filled up with blanks.
      const bool padded =
          rows->columns()[column].type == ColumnType::Text && rows->columns()[column].fixedLength;
      table->second[row][column] = padded ? *rows->value(row, column) : value;
      return;
    }
    const ErrorCode code = done.error().code;
    EXPECT_TRUE(code == ErrorCode::InvalidValue || code == ErrorCode::Unsupported)
        << germanMessage(done.error());
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
};
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(RandomEdits);
INSTANTIATE_TEST_SUITE_P(Access, RandomEdits, testing::ValuesIn(realfiles::sound()),
                         [](const auto& file) { return realfiles::testName(file.param); });

TEST_P(RandomEdits, LeaveTheFileAsTheModelSays) {
  disk_.put(kPath, base::asBytes(realfiles::read(realfiles::folder() / GetParam())));
  open();
  Model model = read();
  std::erase_if(model, [](const auto& table) { return table.second.empty(); });
  if (model.empty()) return;  // a file without rows has nothing to edit
  const std::size_t leftovers = damage();
  RandomValues random(static_cast<std::uint32_t>(model.size()) * 7919);
  for (int transaction = 0; transaction < 120; ++transaction) {
    const Model before = model;
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
    Model now = read();
    std::erase_if(now, [](const auto& table) { return table.second.empty(); });
    ASSERT_TRUE(now == model) << "after transaction " << transaction;
    EXPECT_TRUE(database_->warnings().empty());
  }
  EXPECT_GT(stored_ * 2, edits_) << stored_ << " of " << edits_;
}

}  // namespace
