#include <gtest/gtest.h>

#include <algorithm>

#include "jet/Creator.h"
#include "jet/Database.h"
#include "jet/engine/Catalog.h"
#include "jet/engine/IndexPage.h"
#include "jet/engine/TableDef.h"
#include "jet/engine/UsageMapEditor.h"
#include "support/MemoryFileSystem.h"

namespace {

using base::ErrorCode;
using jet::Value;

constexpr char kPath[] = "/repair.kwd";
constexpr std::size_t kPage = 4096;

// Twelve rows with two indexes, one of which gets broken in the file.
class IndexRepair : public testing::Test {
 protected:
  void SetUp() override {
    jet::NewTable table{"Strom",
                        {{"Nr", jet::ColumnType::Long},
                         {"Monat", jet::ColumnType::Text, 20},
                         {"Verbrauch", jet::ColumnType::Double}},
                        {{"PrimaryKey", {{"Nr", true}}, true}, {"Monat", {{"Monat", true}}}},
                        {}};
    for (int i = 0; i < 12; ++i)
      table.rows.push_back({std::int64_t{i}, "Monat " + std::to_string(11 - i), 1.5 * i});
    content_ = *jet::createDatabase({table});
  }
  // The leaf that starts with a text key.
  std::size_t monthLeaf() const {
    const auto& format = jet::format::kJet4.indexPage;
    for (std::size_t page = 16; page < content_.size() / kPage; ++page) {
      const base::ByteSpan bytes = base::ByteSpan(content_).subspan(page * kPage, kPage);
      if (bytes[0] == 4 && bytes[format.headSize] == 0x7F && bytes[format.headSize + 1] == 0x60)
        return page;
    }
    ADD_FAILURE() << "no leaf of texts";
    return 0;
  }
  void spoil(std::size_t offset, std::uint8_t byte) {
    content_[monthLeaf() * kPage + offset] = byte;
  }
  void open() {
    disk_.put(kPath, content_);
    reopen();
  }
  void reopen() {
    database_.reset();
    auto opened = jet::Database::open(disk_, kPath);
    ASSERT_TRUE(opened) << germanMessage(opened.error());
    database_.emplace(std::move(*opened));
    rows_.emplace(std::move(*database_->openTable("Strom")));
  }
  base::Result<void> set(std::size_t row, const char* column, const Value& value) {
    return rows_->set(row, *rows_->columnIndex(column), value);
  }

  // Has an index claim the root page of the other, and breaks the page.
  void addForeignPage(bool firstClaims) {
    support::MemoryFileSystem disk({{kPath, content_}});
    auto pager = *jet::Pager::open(disk, kPath, {});
    const auto catalog = *jet::Catalog::read(*pager);
    const auto def = *jet::TableDef::read(*pager, catalog.find("Strom")->definition);
    const auto& claiming = def.indexes[firstClaims ? 0 : 1];
    const std::uint32_t page = def.indexes[firstClaims ? 1 : 0].root;
    ASSERT_TRUE(pager->begin());
    ASSERT_TRUE(
        jet::UsageMapEditor(*pager, claiming.pages, jet::UsageMapEditor::Beyond::Absent, [&] {
          return pager->append();
        }).add(page));
    ASSERT_TRUE(pager->commit());
    content_ = disk.get(kPath);
    content_[page * kPage + 483] ^= 0x40;
  }
  bool hasErrors() const {
    const auto findings = database_->check();
    return std::any_of(findings.begin(), findings.end(),
                       [](const jet::Finding& finding) { return !finding.warning; });
  }

  base::Bytes content_;
  support::MemoryFileSystem disk_;
  std::optional<jet::Database> database_;
  std::optional<jet::RecordSet> rows_;
};

TEST_F(IndexRepair, OfASoundFileIsNotNeeded) {
  open();
  EXPECT_TRUE(database_->warnings().empty());
  EXPECT_TRUE(database_->check().empty());
}

class Spoiled : public IndexRepair, public testing::WithParamInterface<std::pair<int, int>> {};
INSTANTIATE_TEST_SUITE_P(Leaf, Spoiled,
                         testing::Values(std::pair{0, 9},        // no index page any more
                                         std::pair{4, 0xFF},     // of another table
                                         std::pair{16, 0x07},    // a successor
                                         std::pair{24, 0xFF},    // a prefix longer than the key
                                         std::pair{28, 0xFF},    // ends of entries
                                         std::pair{480, 0x80},   // the first key
                                         std::pair{483, 0x01}),  // in the first key
                         [](const auto& change) {
                           return "Byte" + std::to_string(change.param.first);
                         });

TEST_P(Spoiled, IndexLeavesTheRowsReadableAndIsMadeAnew) {
  spoil(static_cast<std::size_t>(GetParam().first), static_cast<std::uint8_t>(GetParam().second));
  open();
  ASSERT_EQ(database_->warnings().size(), 1u);
  const jet::Finding warning = database_->warnings()[0];
  EXPECT_EQ(warning.error.code, ErrorCode::IndexDamaged);
  EXPECT_EQ(warning.error.subject, "Strom, Index Monat");
  EXPECT_EQ(warning.error.file, kPath);
  EXPECT_EQ(warning.table, "Strom");
  EXPECT_TRUE(warning.error.page);
  EXPECT_EQ(rows_->value(3, 1), Value(std::string("Monat 8")));

  ASSERT_TRUE(database_->begin());
  EXPECT_TRUE(set(3, "Verbrauch", 7.0));
  EXPECT_EQ(set(3, "Monat", std::string("April")).error().code, ErrorCode::IndexDamaged);
  auto rebuilt = database_->rebuildIndexes("strom");
  ASSERT_TRUE(rebuilt) << germanMessage(rebuilt.error());
  EXPECT_TRUE(set(3, "Monat", std::string("April")));
  ASSERT_TRUE(database_->commit());
  EXPECT_TRUE(database_->warnings().empty());
  reopen();
  EXPECT_TRUE(database_->warnings().empty());
  // A page that no longer belongs to the index may stay behind, unused.
  for (const jet::Finding& finding : database_->check())
    EXPECT_TRUE(finding.warning) << germanMessage(finding.error);
  EXPECT_EQ(rows_->value(3, 1), Value(std::string("April")));
  EXPECT_EQ(rows_->value(3, 2), Value(7.0));
}

// An index that lists a page of another one as its own leaves it to that when both are made anew,
// whichever of them comes first.
TEST_F(IndexRepair, LeavesPagesToTheIndexThatUsesThem) {
  for (const bool first : {true, false}) {
    SetUp();
    addForeignPage(first);
    open();
    EXPECT_TRUE(hasErrors());
    ASSERT_TRUE(database_->begin());
    ASSERT_TRUE(database_->rebuildIndexes("Strom"));
    ASSERT_TRUE(database_->commit());
    reopen();
    EXPECT_FALSE(hasErrors());
    EXPECT_TRUE(database_->warnings().empty());
    // Pages that were given back by mistake would now be handed out a second time.
    ASSERT_TRUE(database_->begin());
    for (std::int64_t i = 0; i < 400; ++i)
      ASSERT_TRUE(rows_->insert({100 + i, "Monat " + std::to_string(i), 1.0}));
    ASSERT_TRUE(database_->commit());
    reopen();
    EXPECT_FALSE(hasErrors());
    EXPECT_EQ(rows_->count(), 412u);
  }
}

TEST_F(IndexRepair, ThatIsRolledBackLeavesTheDamageKnown) {
  spoil(480, 0x80);
  open();
  ASSERT_TRUE(database_->begin());
  ASSERT_TRUE(database_->rebuildIndexes("Strom"));
  EXPECT_TRUE(database_->warnings().empty());
  database_->rollback();
  EXPECT_EQ(database_->warnings().size(), 1u);
  ASSERT_TRUE(database_->begin());
  EXPECT_EQ(set(3, "Monat", std::string("April")).error().code, ErrorCode::IndexDamaged);
}

TEST_F(IndexRepair, NeedsATransactionAndATable) {
  open();
  EXPECT_EQ(database_->rebuildIndexes("Strom").error().code, ErrorCode::Unsupported);
  ASSERT_TRUE(database_->begin());
  EXPECT_EQ(database_->rebuildIndexes("Öl").error().code, ErrorCode::MissingTable);
}

}  // namespace
