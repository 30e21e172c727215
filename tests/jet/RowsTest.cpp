#include <gmock/gmock.h>

#include "jet/Creator.h"
#include "jet/Database.h"
#include "jet/format/Version.h"
#include "support/JetDump.h"
#include "support/MemoryFileSystem.h"

// Rows that come and go, and tables that are made, in files of both formats.
namespace {

using base::ErrorCode;
using jet::ColumnType;
using jet::FileVersion;
using jet::NewTable;
using jet::Value;

constexpr char kPath[] = "/zeilen.kwd";

NewTable meters() {
  return {"Zähler",
          {{"Nr", ColumnType::Long, 0, true},
           {"Ort", ColumnType::Text, 50},
           {"Etage", ColumnType::Integer},
           {"Verlauf", ColumnType::Memo}},
          {{"PrimaryKey", {{"Nr", true}}, true},
           {"Platz", {{"Ort", true}, {"Etage", false}}, false, true}},
          {}};
}

// Columns of bytes that fill a row to a given length.
NewTable raw(const jet::format::Version& version) {
  NewTable table{"Roh", {}, {}, {}};
  for (int i = 0; i < 5; ++i)
    table.columns.push_back({"R" + std::to_string(i), ColumnType::Binary,
                             static_cast<int>(version.column.longestBinary)});
  return table;
}

class MadeRows : public testing::TestWithParam<FileVersion> {
 protected:
  void SetUp() override { make({meters()}); }
  void make(const std::vector<NewTable>& tables) {
    auto made = jet::createDatabase(tables, GetParam());
    ASSERT_TRUE(made) << base::germanMessage(made.error());
    disk_.put(kPath, *made);
    open();
    if (!tables.empty()) rows_.emplace(std::move(*database_->openTable(tables[0].name)));
  }
  void open() {
    rows_.reset();
    database_.reset();
    auto opened = jet::Database::open(disk_, kPath);
    ASSERT_TRUE(opened) << base::germanMessage(opened.error());
    database_.emplace(std::move(*opened));
    ASSERT_TRUE(database_->begin());
  }
  base::Result<std::size_t> insert(const Value& place, const Value& floor,
                                   const Value& history = jet::Null()) {
    return rows_->insert({jet::Null(), place, floor, history});
  }
  void expectSound() {
    for (const jet::Finding& finding : database_->check())
      ADD_FAILURE() << base::describe(finding.error);
    EXPECT_TRUE(database_->warnings().empty());
  }
  std::string dump() { return support::dumpTables(*database_).value_or("unreadable"); }
  const jet::format::Version& version() const {
    return GetParam() == FileVersion::Jet3 ? jet::format::kJet3 : jet::format::kJet4;
  }

  support::MemoryFileSystem disk_;
  std::optional<jet::Database> database_;
  std::optional<jet::RecordSet> rows_;
};
INSTANTIATE_TEST_SUITE_P(Formats, MadeRows, testing::Values(FileVersion::Jet3, FileVersion::Jet4),
                         [](const auto& version) {
                           return version.param == FileVersion::Jet3 ? "Jet3" : "Jet4";
                         });

std::string text(const char* characters) {
  return characters;
}

TEST_P(MadeRows, CountOnWhateverGoes) {
  for (std::int64_t i = 1; i <= 3; ++i) ASSERT_TRUE(insert(text("Keller"), i));
  ASSERT_TRUE(rows_->erase(2));
  EXPECT_EQ(insert(text("Keller"), std::int64_t{4}), 2u);
  EXPECT_EQ(rows_->value(2, 0), Value(std::int64_t{4}));
  ASSERT_TRUE(rows_->insert({std::int64_t{90}, jet::Null(), jet::Null(), jet::Null()}));
  ASSERT_TRUE(rows_->insert({std::int64_t{-5}, jet::Null(), jet::Null(), jet::Null()}));
  ASSERT_TRUE(insert(text("Dach"), jet::Null()));
  EXPECT_EQ(rows_->value(5, 0), Value(std::int64_t{91}));
  ASSERT_TRUE(database_->commit());
  open();
  rows_.emplace(std::move(*database_->openTable("Zähler")));
  ASSERT_TRUE(insert(text("Dach"), jet::Null()));
  EXPECT_EQ(rows_->value(6, 0), Value(std::int64_t{92}));
  expectSound();
}

// A row takes the place of one that went, so the order is not that of coming.
TEST_P(MadeRows, TakeThePlaceOfThoseThatWent) {
  for (std::int64_t i = 0; i < 4; ++i) ASSERT_TRUE(insert(text("Keller"), i));
  ASSERT_TRUE(rows_->erase(1));
  EXPECT_EQ(rows_->value(1, 2), Value(std::int64_t{2}));
  EXPECT_EQ(insert(text("Keller"), std::int64_t{9}), 1u);
  EXPECT_EQ(rows_->value(2, 2), Value(std::int64_t{2}));
  auto again = database_->openTable("Zähler");
  ASSERT_TRUE(again && again->refresh());
  EXPECT_EQ(again->value(1, 2), Value(std::int64_t{9}));
}

// Two keys are equal only when no part of them is Null; that holds when the index is made anew too.
TEST_P(MadeRows, WithANullMayRepeatTheRestOfAUniqueKey) {
  ASSERT_TRUE(insert(text("Keller"), std::int64_t{1}));
  EXPECT_EQ(insert(text("KELLER"), std::int64_t{1}).error().code, ErrorCode::InvalidValue);
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(insert(text("Keller"), jet::Null()));
    ASSERT_TRUE(insert(jet::Null(), std::int64_t{1}));
    ASSERT_TRUE(insert(jet::Null(), jet::Null()));
  }
  EXPECT_EQ(rows_->count(), 7u);
  auto rebuilt = database_->rebuildIndexes("Zähler");
  EXPECT_TRUE(rebuilt) << base::germanMessage(rebuilt.error());
  EXPECT_EQ(rows_->set(1, 2, std::int64_t{1}).error().code, ErrorCode::InvalidValue);
  EXPECT_TRUE(rows_->set(1, 2, std::int64_t{2}));
  expectSound();
}

TEST_P(MadeRows, ThatAreRefusedLeaveNothingBehind) {
  const std::string history(5000, 'v');
  ASSERT_TRUE(insert(text("Keller"), std::int64_t{1}, history));
  const std::string before = dump();
  const auto refused = [&](std::vector<Value> values) {
    const auto done = rows_->insert(std::move(values));
    EXPECT_EQ(done ? ErrorCode::Cancelled : done.error().code, ErrorCode::InvalidValue);
    return done ? std::string() : done.error().subject;
  };
  EXPECT_EQ(refused({jet::Null(), text("keller"), std::int64_t{1}, history}),
            "Zähler, Index Platz");
  EXPECT_EQ(refused({std::int64_t{1}, jet::Null(), jet::Null(), history}),
            "Zähler, Index PrimaryKey");
  EXPECT_EQ(refused({jet::Null(), text("Dach"), std::int64_t{70000}, history}), "Zähler.Etage");
  EXPECT_EQ(refused({jet::Null(), text("Dach")}), "Zähler");
  EXPECT_EQ(dump(), before);
  ASSERT_TRUE(insert(text("Dach"), jet::Null()));
  EXPECT_EQ(rows_->value(1, 0), Value(std::int64_t{2}));
  expectSound();
}

TEST_P(MadeRows, AreBackAfterARollback) {
  ASSERT_TRUE(insert(text("Keller"), std::int64_t{1}, std::string(5000, 'v')));
  ASSERT_TRUE(insert(text("Dach"), std::int64_t{2}));
  ASSERT_TRUE(database_->commit());
  ASSERT_TRUE(database_->begin());
  const std::string before = dump();
  ASSERT_TRUE(rows_->erase(0));
  ASSERT_TRUE(insert(text("Hof"), std::int64_t{3}));
  ASSERT_TRUE(insert(text("Flur"), std::int64_t{4}));
  database_->rollback();
  EXPECT_EQ(rows_->count(), 2u);
  EXPECT_EQ(dump(), before);
  ASSERT_TRUE(database_->begin());
  ASSERT_TRUE(insert(text("Hof"), std::int64_t{3}));
  EXPECT_EQ(rows_->value(2, 0), Value(std::int64_t{3}));
  expectSound();
}

// Moved rows and long texts free their pages as well.
TEST_P(MadeRows, LeaveTheirRoomToOthers) {
  std::uint64_t size = 0;
  for (int round = 0; round < 4; ++round) {
    for (std::int64_t i = 0; i < 60; ++i) {
      const auto place = insert(jet::Null(), i, std::string(static_cast<std::size_t>(i) * 99, 'v'));
      ASSERT_TRUE(place && rows_->set(*place, 1, std::string(50, 'w')));
    }
    while (rows_->count() > 0) ASSERT_TRUE(rows_->erase(rows_->count() / 2));
    ASSERT_TRUE(database_->commit());
    ASSERT_TRUE(database_->begin());
    EXPECT_TRUE(round == 0 || disk_.get(kPath).size() == size) << round;
    size = disk_.get(kPath).size();
  }
  expectSound();
}

// Two rows that fill a page to the last byte, and the longest text that is one row of a page.
TEST_P(MadeRows, FillAPageExactly) {
  NewTable table = raw(version());
  table.columns.push_back({"Lang", ColumnType::Ole});
  make({table});
  const std::size_t page = version().pageSize - version().dataPage.headSize;
  const auto free = [&] {
    std::vector<std::size_t> found;
    const base::Bytes file = disk_.get(kPath);
    for (std::size_t at = 0; at < file.size(); at += version().pageSize) {
      const auto bytes = base::ByteSpan(file).subspan(at, version().pageSize);
      const std::uint32_t owner = version().dataPage.owner.get(bytes);
      const bool rows = owner > 5 && owner < 100;
      if (bytes[0] == 1 && (rows || owner == jet::format::kLongValueOwner))
        found.push_back(version().dataPage.freeBytes.get(bytes));
    }
    return found;
  };
  const auto insertRow = [&](std::size_t length, std::size_t longLength) {
    const std::size_t frame = GetParam() == FileVersion::Jet3 ? 10 + (length - 1) / 256 : 19;
    const std::size_t head = longLength > 0 ? 12 : 0;
    std::vector<Value> values;
    for (std::size_t left = length - frame - head; values.size() < 5;) {
      const std::size_t part = std::min(left, version().column.longestBinary);
      values.emplace_back(base::Bytes(part, 1));
      left -= part;
    }
    values.emplace_back(jet::Null());
    if (longLength > 0) values[5] = base::Bytes(longLength, 7);
    auto done = rows_->insert(values);
    ASSERT_TRUE(done) << base::germanMessage(done.error());
    EXPECT_EQ(rows_->row(*done), values);
  };
  insertRow(page / 2 - 2, 0);
  insertRow(page / 2 - 2, 0);
  ASSERT_TRUE(database_->commit());
  EXPECT_EQ(free(), std::vector<std::size_t>{0});
  ASSERT_TRUE(database_->begin());
  insertRow(page / 2 - 2, version().longValue.maxRow);
  ASSERT_TRUE(database_->commit());
  EXPECT_THAT(free(),
              testing::UnorderedElementsAre(0, page / 2, page - 2 - version().longValue.maxRow));
  expectSound();
}

// --- tables ---

TEST_P(MadeRows, OfANewTableAreStoredWithIt) {
  NewTable table = meters();
  table.name = "Neu";
  table.rows = {{jet::Null(), text("Hof"), std::int64_t{0}, std::string(9000, 'h')}};
  auto made = database_->createTable(table);
  ASSERT_TRUE(made) << base::germanMessage(made.error());
  EXPECT_EQ(made->count(), 1u);
  EXPECT_TRUE(made->insert({jet::Null(), text("Flur"), jet::Null(), jet::Null()}));
  ASSERT_TRUE(database_->commit());
  open();
  EXPECT_THAT(database_->tableNames(), testing::ElementsAre("Neu", "Zähler"));
  auto rows = database_->openTable("NEU");
  ASSERT_TRUE(rows);
  EXPECT_EQ(rows->value(1, 0), Value(std::int64_t{2}));
  EXPECT_EQ(rows->indexes().size(), 2u);
  expectSound();
}

TEST_P(MadeRows, OfATableThatIsRefusedOrRolledBackAreGone) {
  const std::string before = dump();
  const base::Bytes file = disk_.get(kPath);
  auto objects = database_->openTable("MSysObjects");
  ASSERT_TRUE(objects);
  const std::size_t known = objects->count();
  NewTable table = meters();
  EXPECT_EQ(database_->createTable(table).error().subject, "Zähler");
  table.name = "Neu";
  table.rows = {{jet::Null(), std::string(51, 'x'), jet::Null(), jet::Null()}};
  EXPECT_EQ(database_->createTable(table).error().subject, "Neu.Ort");
  EXPECT_EQ(objects->count(), known);
  EXPECT_EQ(dump(), before);
  expectSound();
  table.rows.clear();
  ASSERT_TRUE(database_->createTable(table));
  EXPECT_EQ(database_->tableNames().size(), 2u);
  database_->rollback();
  EXPECT_EQ(database_->tableNames().size(), 1u);
  EXPECT_EQ(database_->openTable("Neu").error().code, ErrorCode::MissingTable);
  EXPECT_EQ(database_->createTable(table).error().code, ErrorCode::Unsupported);
  EXPECT_EQ(disk_.get(kPath), file);
  ASSERT_TRUE(database_->begin());
  ASSERT_TRUE(database_->createTable(table));
  expectSound();
}

TEST_P(MadeRows, OfSystemTablesAreNotChanged) {
  auto objects = database_->openTable("MSysObjects");
  ASSERT_TRUE(objects);
  EXPECT_EQ(objects->erase(0).error().code, ErrorCode::Unsupported);
  EXPECT_EQ(objects->insert(*objects->row(0)).error().code, ErrorCode::Unsupported);
  EXPECT_EQ(objects->set(0, 0, std::int64_t{7}).error().code, ErrorCode::Unsupported);
}

}  // namespace
