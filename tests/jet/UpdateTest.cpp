#include <gtest/gtest.h>

#include <algorithm>

#include "RealFiles.h"
#include "jet/Database.h"
#include "support/JetDump.h"
#include "support/MemoryFileSystem.h"

namespace {

using base::ErrorCode;
using base::Money;
using jet::ColumnType;
using jet::Value;

constexpr char kPath[] = "/year.kwd";

// A real file on a disk in memory, opened, edited and opened again.
class Update : public testing::Test {
 protected:
  void SetUp() override {
    if (!realfiles::present()) GTEST_SKIP() << "no Access files at hand";
  }
  void open(const std::string& name) {
    disk_.put(kPath, base::asBytes(realfiles::read(realfiles::folder() / name)));
    reopen();
  }
  void reopen() {
    database_.reset();
    auto opened = jet::Database::open(disk_, kPath, {.acceptEncryption = true});
    ASSERT_TRUE(opened) << germanMessage(opened.error());
    database_.emplace(std::move(*opened));
  }
  jet::RecordSet table(const std::string& name) {
    auto rows = database_->openTable(name);
    EXPECT_TRUE(rows) << germanMessage(rows.error());
    return std::move(*rows);
  }
  base::Result<void> set(const std::string& name, std::size_t row, const std::string& column,
                         const Value& value) {
    jet::RecordSet rows = table(name);
    return rows.set(row, *rows.columnIndex(column), value);
  }
  void store(const std::string& name, std::size_t row, const std::string& column,
             const Value& value) {
    ASSERT_TRUE(database_->begin());
    auto done = set(name, row, column, value);
    ASSERT_TRUE(done) << germanMessage(done.error());
    auto committed = database_->commit();
    ASSERT_TRUE(committed) << germanMessage(committed.error());
  }
  Value value(const std::string& name, std::size_t row, const std::string& column) {
    jet::RecordSet rows = table(name);
    auto found = rows.value(row, *rows.columnIndex(column));
    EXPECT_TRUE(found) << germanMessage(found.error());
    return found ? *found : Value();
  }
  std::vector<std::string> dump() {
    auto text = support::dumpTables(*database_);
    EXPECT_TRUE(text) << germanMessage(text.error());
    std::istringstream stream(text.value_or(""));
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
  }
  // Lines that differ between two dumps of equal length.
  static std::vector<std::string> changes(const std::vector<std::string>& before,
                                          const std::vector<std::string>& after) {
    std::vector<std::string> changed;
    EXPECT_EQ(before.size(), after.size());
    for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i)
      if (before[i] != after[i]) changed.push_back(after[i]);
    return changed;
  }

  support::MemoryFileSystem disk_;
  std::optional<jet::Database> database_;
};

TEST_F(Update, ChangesThatFieldAndNothingElse) {
  open("year/extra.kwd");
  const auto before = dump();
  store("Gas", 3, "VGas", std::int64_t{-7});
  store("Gas", 3, "AnmerkungenG", std::string("Zähler getauscht"));
  store("Gas", 3, "XDatum", jet::DateTime{40000.5});
  reopen();
  const auto changed = changes(before, dump());
  ASSERT_EQ(changed.size(), 1u);
  EXPECT_EQ(changed[0],
            "3\tApril\t1800\t-7\t21\t305.1234\t306.1234\tZähler getauscht\tfalse\t\\N\t"
            "2009-07-06T12:00\t\\N\t\\N\t\\N\t\\N\t\\N");
}

TEST_F(Update, StoresEveryType) {
  open("year/extra.kwd");
  const jet::Guid guid = {{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}};
  const base::Bytes picture(10000, 0x5A);
  jet::Decimal decimal;
  decimal.negative = true;
  decimal.scale = 4;
  decimal.magnitude = {0, 0, 1, 5};
  const std::vector<std::pair<std::string, Value>> values = {
      {"XJaNein", true},
      {"XByte", std::int64_t{255}},
      {"VGas", std::int64_t{-32768}},
      {"PGas", Money::fromTenThousandths(-1)},
      {"XDatum", jet::DateTime{-1.25}},
      {"XDezimal", decimal},
      {"XGuid", guid},
      {"XBild", picture},
      {"FreiZ2", std::string("Euro € und \xF0\x9F\x8F\xA0")},
      {"AnmerkungenG", std::string()}};
  for (const auto& [column, wanted] : values) {
    store("Gas", 3, column, wanted);
    reopen();
    EXPECT_EQ(value("Gas", 3, column), wanted) << column;
  }
  for (const auto& [column, wanted] : values) {
    store("Gas", 3, column, jet::Null());
    EXPECT_EQ(value("Gas", 3, column), column == "XJaNein" ? Value(false) : Value(jet::Null()));
  }
}

TEST_F(Update, ConvertsNumbersThatFitAndRefusesTheRest) {
  open("year/extra.kwd");
  ASSERT_TRUE(database_->begin());
  const auto stored = [&](const char* column, const Value& given) {
    auto done = set("Gas", 1, column, given);
    return done ? value("Gas", 1, column) : Value(germanReason(done.error()));
  };
  EXPECT_EQ(stored("VGas", 12.0), Value(std::int64_t{12}));
  EXPECT_EQ(stored("VGas", Money::fromTenThousandths(30000)), Value(std::int64_t{3}));
  EXPECT_EQ(stored("PGas", 8.1234), Value(Money::fromTenThousandths(81234)));
  EXPECT_EQ(stored("PGas", 0.1f), Value(Money::fromTenThousandths(1000)));
  EXPECT_EQ(support::dumpValue({}, stored("XDezimal", -12.5)), "-12.5000");
  for (const Value& bad : {Value(12.5), Value(32768.0), Value(std::string("12")), Value(true)})
    EXPECT_EQ(set("Gas", 1, "VGas", bad).error().code, ErrorCode::InvalidValue);
  EXPECT_EQ(set("Gas", 1, "PGas", 0.00005).error().code, ErrorCode::InvalidValue);
  EXPECT_EQ(set("Gas", 1, "XByte", std::int64_t{-1}).error().code, ErrorCode::InvalidValue);
  EXPECT_EQ(set("Gas", 1, "FreiZ2", std::string(51, 'x')).error().code, ErrorCode::InvalidValue);
  const auto error = set("Gas", 1, "XDatum", std::string("heute")).error();
  EXPECT_EQ(error.subject, "Gas.XDatum");
  EXPECT_EQ(error.file, kPath);
}

TEST_F(Update, RolledBackLeavesNoTrace) {
  open("year/memo.kwd");
  const base::Bytes file = disk_.get(kPath);
  const auto before = dump();
  ASSERT_TRUE(database_->begin());
  for (std::size_t row = 0; row < 12; ++row)
    ASSERT_TRUE(set("Gas", row, "AnmerkungenG", std::string(5000 + row, 'x')));
  EXPECT_NE(dump(), before);
  database_->rollback();
  EXPECT_EQ(dump(), before);
  EXPECT_EQ(disk_.get(kPath), file);
}

TEST_F(Update, OfTheSameValueWritesNothing) {
  open("year/extra.kwd");
  const base::Bytes file = disk_.get(kPath);
  store("Gas", 1, "FreiZ2", std::string("frei 1"));
  store("Gas", 1, "XJaNein", false);
  EXPECT_EQ(disk_.get(kPath), file);
}

TEST_F(Update, NeedsATransactionAndAWritableFile) {
  open("year/plain.kwd");
  EXPECT_EQ(set("Gas", 0, "VGas", 1.0).error().code, ErrorCode::Unsupported);
  ASSERT_TRUE(database_->begin());
  EXPECT_EQ(database_->begin().error().code, ErrorCode::Unsupported);
  database_.reset();
  disk_.protect(kPath);
  reopen();
  EXPECT_EQ(database_->readOnlyReason()->code, ErrorCode::AccessDenied);
  EXPECT_EQ(database_->begin().error().code, ErrorCode::AccessDenied);
  EXPECT_EQ(database_->begin().error().file, kPath);
}

TEST_F(Update, OfRemarksMovesRowsAwayAndBringsThemHome) {
  open("year/plain.kwd");
  const std::string shortText = "kurz", longText(255, 'W');
  for (const std::string& text : {longText, shortText, longText, std::string()}) {
    for (std::size_t row = 0; row < 12; ++row)
      store("Strom", row, "Anmerkungen", text + std::to_string(row).substr(0, text.size() < 255));
    reopen();
    ASSERT_EQ(table("Strom").count(), 12u);
    for (std::size_t row = 0; row < 12; ++row)
      EXPECT_EQ(value("Strom", row, "Anmerkungen"),
                Value(text + std::to_string(row).substr(0, text.size() < 255)));
  }
}

TEST_F(Update, OfAnEncryptedFileStaysEncrypted) {
  open("jet3/db97-enc.mdb");
  const auto before = dump();
  store("Table1", 1, "col1", std::string("Grüße"));
  reopen();
  EXPECT_EQ(changes(before, dump()), std::vector<std::string>{"1\t2\tGrüße\t42"});
}

TEST_F(Update, FillsUpShortRowsOfJet3) {
  open("jet3/overflowTestV1997.mdb");
  const auto before = dump();
  store("Table1", 0, "data10", std::string("neu"));
  reopen();
  EXPECT_EQ(changes(before, dump()),
            std::vector<std::string>{"0\trow1col1\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\tneu"});
}

TEST_F(Update, KeepsEveryIndexOfAChangedField) {
  open("year/filled.kwd");
  const std::vector<std::string> names = {"Zürich", "ämter", "Apfel-Baum", "", "Straße"};
  for (std::size_t row = 0; row < 12; ++row) store("Gas", row, "Monat", names[row % names.size()]);
  store("Gas", 5, "Monat", jet::Null());
  store("Gas", 5, "VGas", 3.0);
  reopen();
  EXPECT_EQ(value("Gas", 0, "Monat"), Value(std::string("Zürich")));
  EXPECT_TRUE(database_->warnings().empty()) << germanMessage(database_->warnings()[0].error);
}

TEST_F(Update, RefusesASecondEqualValueInAUniqueIndex) {
  open("jet4/testIndexPropertiesV2000.mdb");
  ASSERT_TRUE(database_->begin());
  EXPECT_EQ(set("TableUnique1_temp", 0, "data", std::string("MORE")).error().code,
            ErrorCode::InvalidValue);
  EXPECT_EQ(set("TableUnique1_temp", 0, "row", jet::Null()).error().code, ErrorCode::InvalidValue);
  EXPECT_TRUE(set("TableUnique1_temp", 0, "data", jet::Null()));
  EXPECT_TRUE(set("TableUnique1_temp", 1, "data", std::string("new")));
  ASSERT_TRUE(database_->commit());
  reopen();
  table("TableUnique1_temp");
  EXPECT_TRUE(database_->warnings().empty());
}

struct BigIndex {
  const char* file;
  const char* table;
  const char* column;
  std::size_t width;  // of the longest texts that are stored; 0 = a number column
};

// Keys get long and short again in every row, so leaves split, empty and are given back.
TEST_F(Update, SplitsAndEmptiesTheLeavesOfBigIndexes) {
  for (const BigIndex& index : {BigIndex{"jet3/testIndexCodesV1997.mdb", "Table1", "data", 100},
                                BigIndex{"jet4/compIndexTestV2000.mdb", "Table1", "CD_AGENTE", 0},
                                BigIndex{"year/filled.kwd", "Gas", "Monat", 20}}) {
    open(index.file);
    const auto warnings = database_->check().size();
    jet::RecordSet rows = table(index.table);
    const std::size_t column = *rows.columnIndex(index.column);
    for (const std::size_t width : {index.width, std::size_t{1}, index.width}) {
      ASSERT_TRUE(database_->begin());
      for (std::size_t row = 0; row < rows.count(); ++row) {
        const auto number = static_cast<std::int64_t>((row * 7919 + width) % 100000);
        std::string text = std::to_string(number);
        if (text.size() < width) text.resize(width, 'w');
        const Value wanted = index.width == 0 ? Value(number) : Value(text);
        auto done = rows.set(row, column, wanted);
        ASSERT_TRUE(done) << germanMessage(done.error());
      }
      ASSERT_TRUE(database_->commit());
      const auto findings = database_->check();
      EXPECT_EQ(findings.size(), warnings) << germanMessage(findings[0].error);
    }
  }
}

}  // namespace
