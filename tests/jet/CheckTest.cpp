#include <gmock/gmock.h>

#include <algorithm>
#include <array>

#include "app/Findings.h"
#include "jet/Creator.h"
#include "jet/Database.h"
#include "jet/engine/DataPage.h"
#include "jet/format/Version.h"
#include "support/MemoryFileSystem.h"

namespace {

using base::ErrorCode;
using testing::HasSubstr;

constexpr char kPath[] = "/pruefen.kwd";
constexpr std::size_t kPage = 4096;

// A sound file with one thing of each kind, and a way to spoil it.
class Check : public testing::Test {
 protected:
  void SetUp() override {
    jet::NewTable table{"Strom",
                        {{"Nr", jet::ColumnType::Long},
                         {"Monat", jet::ColumnType::Text, 20},
                         {"Anmerkung", jet::ColumnType::Memo},
                         {"Tage", jet::ColumnType::Integer}},
                        {{"PrimaryKey", {{"Nr", true}}, true}},
                        {}};
    for (int i = 0; i < 12; ++i)
      table.rows.push_back({std::int64_t{i}, "Monat " + std::to_string(i),
                            std::string(i < 2 ? 3000 : 10, 'm'), std::int64_t{i}});
    bytes_ = *jet::createDatabase({table});
    definition_ = pageOf([this](base::ByteSpan page) { return page[0] == 2; }, 16);
  }
  template <class Test>
  std::uint32_t pageOf(const Test& test, std::uint32_t from) const {
    for (std::uint32_t page = from; page < bytes_.size() / kPage; ++page)
      if (test(base::ByteSpan(bytes_).subspan(page * kPage, kPage))) return page;
    ADD_FAILURE() << "no such page";
    return 0;
  }
  std::uint32_t rowsPage() const {
    return pageOf(
        [this](base::ByteSpan page) {
          return page[0] == 1 && jet::format::kJet4.dataPage.owner.get(page) == definition_;
        },
        16);
  }
  std::uint32_t textPage() const {
    return pageOf(
        [](base::ByteSpan page) {
          return page[0] == 1 &&
                 jet::format::kJet4.dataPage.owner.get(page) == jet::format::kLongValueOwner;
        },
        16);
  }
  std::uint8_t& at(std::uint32_t page, std::size_t offset) { return bytes_[page * kPage + offset]; }
  std::vector<std::string> findings() {
    support::MemoryFileSystem disk;
    disk.put(kPath, bytes_);
    auto database = jet::Database::open(disk, kPath, {.readOnly = true});
    EXPECT_TRUE(database) << germanMessage(database.error());
    found_ = database->check();
    EXPECT_EQ(disk.get(kPath), bytes_);
    std::vector<std::string> lines;
    for (const jet::Finding& finding : found_)
      lines.push_back((finding.warning ? "Hinweis: " : "") + app::describe(finding));
    return lines;
  }
  static std::string page(std::uint32_t number) { return "Seite " + std::to_string(number) + ": "; }

  base::Bytes bytes_;
  std::uint32_t definition_ = 0;
  std::vector<jet::Finding> found_;
};

TEST_F(Check, OfASoundFileFindsNothing) {
  EXPECT_THAT(findings(), testing::IsEmpty());
  EXPECT_EQ(app::advice(found_), "");
}

// The header page is the definition of no table, though a chain of pages ends with 0 as well.
TEST_F(Check, TellsATableWhoseDefinitionIsTheHeaderPage) {
  const std::uint32_t catalog = pageOf(
      [](base::ByteSpan page) {
        return page[0] == 1 && jet::format::kJet4.dataPage.owner.get(page) == 2;
      },
      3);
  const std::array<std::uint8_t, 4> id = {static_cast<std::uint8_t>(definition_), 0, 0, 0};
  const auto start = bytes_.begin() + static_cast<std::ptrdiff_t>(catalog * kPage);
  const auto found = std::search(start, start + kPage, id.begin(), id.end());
  ASSERT_NE(found, start + kPage);
  *found = 0;
  EXPECT_THAT(findings(), testing::Contains(HasSubstr("Seite 0: ")));
  support::MemoryFileSystem disk({{kPath, bytes_}});
  auto database = jet::Database::open(disk, kPath);
  ASSERT_TRUE(database);
  const auto table = database->openTable("Strom");
  ASSERT_FALSE(table);
  EXPECT_EQ(table.error().code, ErrorCode::Damaged);
}

TEST_F(Check, TellsARowOutOfPlace) {
  const std::uint32_t rows = rowsPage();
  at(rows, 14) = 5;
  at(rows, 15) = 0;
  EXPECT_THAT(findings(),
              testing::ElementsAre("Strom, " + page(rows) + "Datensatz 0 hat die falsche Lage 5."));
  EXPECT_THAT(app::advice(found_), HasSubstr("aus einer Sicherung"));
}

TEST_F(Check, TellsAPageThatIsUsedAndFree) {
  const std::uint32_t rows = rowsPage();
  // The bits of the global map lie at the end of page 1, behind 5 bytes of head.
  at(1, kPage - 64 + rows / 8) |= static_cast<std::uint8_t>(1u << (rows % 8));
  EXPECT_THAT(findings(),
              testing::ElementsAre(page(rows) + "Seite wird verwendet, gilt aber als frei."));
}

// A file of more than 7 MB in which another program has moved the list of free pages on.
TEST_F(Check, TakesNoPageBeforeTheListOfFreePagesForFree) {
  constexpr std::size_t kRows = 1800;
  support::MemoryFileSystem disk({{kPath, bytes_}});
  const auto grow = [&](std::int64_t first) {
    auto database = jet::Database::open(disk, kPath);
    auto table = database->openTable("Strom");
    ASSERT_TRUE(database->begin());
    for (std::int64_t nr = first; nr < first + static_cast<std::int64_t>(kRows); ++nr)
      ASSERT_TRUE(table->insert({nr, "Monat", std::string(3500, 'm'), std::int64_t{1}}));
    ASSERT_TRUE(database->commit());
  };
  grow(100);
  bytes_ = disk.get(kPath);
  ASSERT_GT(bytes_.size(), 7U << 20);
  const std::size_t pages = bytes_.size() / kPage;
  const auto map = std::span(bytes_).subspan(kPage, kPage);
  auto rows = jet::DataPageEditor::open(jet::format::kJet4, 1, map);
  rows->resize(0, 69);
  const auto row = rows->bytes(0);
  std::fill(row.begin(), row.end(), std::uint8_t{0});
  const std::size_t start = (pages - 256) / 8 * 8;
  JET_FIELD(jet::format::InlineMapHead, firstPage).set(row, static_cast<std::uint32_t>(start));
  for (std::size_t page = pages; page < start + 512; ++page)
    row[5 + (page - start) / 8] |= static_cast<std::uint8_t>(1u << (page - start) % 8);
  EXPECT_THAT(findings(), testing::IsEmpty());
  disk.put(kPath, bytes_);
  grow(100 + kRows);
  bytes_ = disk.get(kPath);
  EXPECT_THAT(findings(), testing::IsEmpty());
}

TEST_F(Check, TellsARowWithoutItsIndexEntry) {
  const std::uint32_t rows = rowsPage();
  // Deletes the first row behind the back of the index and of the table's count.
  at(rows, 15) |= 0xC0;
  const auto lines = findings();
  EXPECT_THAT(lines, testing::Contains(HasSubstr("Strom, Index PrimaryKey, Seite ")));
  EXPECT_THAT(lines, testing::Contains("Strom, " + page(definition_) +
                                       "Tabelle hat 11 Datensätze statt 12."));
  EXPECT_THAT(app::advice(found_), HasSubstr("aus einer Sicherung"));
}

TEST_F(Check, TellsATextThatIsCutOff) {
  const std::uint32_t text = textPage();
  at(text, 15) |= 0xC0;
  EXPECT_THAT(findings(),
              testing::Contains(HasSubstr("Strom.Anmerkung, " + page(text) +
                                          "Verweis auf einen gelöschten langen Text.")));
}

TEST_F(Check, TellsAPageOfAnotherKindOrOwner) {
  const std::uint32_t rows = rowsPage();
  at(rows, 0) = 4;
  EXPECT_THAT(findings(),
              testing::Contains(HasSubstr("Strom, " + page(rows) + "Seite hat die Art")));
  at(rows, 0) = 1;
  at(rows, 4) = 2;
  EXPECT_THAT(findings(),
              testing::Contains("Strom, " + page(rows) + "Seite gehört zu einer anderen Tabelle."));
}

// The page of the rows is taken out of the table's list, or the table out of the catalog.
TEST_F(Check, TellsRowsThatNobodyFinds) {
  const std::uint32_t rows = rowsPage();
  const base::ByteSpan head = base::ByteSpan(bytes_).subspan(definition_ * kPage, kPage);
  const auto owned = jet::RowPointer::fromNumber(jet::format::kJet4.table.ownedPages.get(head));
  auto maps = jet::DataPageEditor::open(jet::format::kJet4, owned.page,
                                        std::span(bytes_).subspan(owned.page * kPage, kPage));
  maps->bytes(owned.slot)[5 + rows / 8] = 0;
  EXPECT_THAT(findings(), testing::IsSupersetOf(
                              {"Strom, " + page(definition_) + "Tabelle hat 0 Datensätze statt 12.",
                               page(rows) + "Seite gehört zu einer Tabelle, die sie nicht nennt; "
                                            "ihre Datensätze fehlen."}));
  SetUp();
  const std::uint32_t catalog = pageOf(
      [](base::ByteSpan page) {
        return page[0] == 1 && jet::format::kJet4.dataPage.owner.get(page) == 2;
      },
      3);
  auto objects = jet::DataPageEditor::open(jet::format::kJet4, catalog,
                                           std::span(bytes_).subspan(catalog * kPage, kPage));
  objects->erase(objects->slotCount() - 1);
  EXPECT_THAT(findings(),
              testing::Contains(page(definition_) + "Eine Tabelle fehlt im Tabellenverzeichnis."));
}

// Where a column was deleted, places without a column are sound, but two columns in one are not.
TEST_F(Check, TellsColumnsThatShareAPlace) {
  const auto& version = jet::format::kJet4;
  const auto definition = std::span(bytes_).subspan(definition_ * kPage, kPage);
  version.table.maxColumns.set(definition, 5);
  const auto days = definition.subspan(version.table.headSize + version.table.counterSize +
                                       3 * version.column.size);
  version.column.fixedOffset.set(days, 6);
  EXPECT_THAT(findings(), testing::IsEmpty());
  version.column.fixedOffset.set(days, 3);
  EXPECT_THAT(findings(), testing::Contains("Strom, " + page(definition_) +
                                            "Feld \"Tage\" ist falsch beschrieben."));
}

// One bit of a definition is another: either every value is the same or the check tells.
TEST_F(Check, OverlooksNoBitOfADefinitionThatChangesAValue) {
  const auto values = [this]() -> std::optional<std::vector<std::vector<jet::Value>>> {
    support::MemoryFileSystem disk({{kPath, bytes_}});
    auto database = jet::Database::open(disk, kPath, {.readOnly = true});
    if (!database) return std::nullopt;
    const auto findings = database->check();
    const auto isError = [](const jet::Finding& finding) { return !finding.warning; };
    if (std::any_of(findings.begin(), findings.end(), isError)) return std::nullopt;
    std::vector<std::vector<jet::Value>> rows;
    const auto table = database->openTable("Strom");
    for (std::size_t i = 0; table && i < table->count(); ++i) rows.push_back(*table->row(i));
    return rows;
  };
  const auto sound = values();
  ASSERT_TRUE(sound);
  const base::ByteSpan head = base::ByteSpan(bytes_).subspan(definition_ * kPage, kPage);
  const std::size_t length = jet::format::kJet4.table.length.get(head);
  // Numbers of four bytes, a Long or a Single: the same file with the other type is as sound.
  const std::size_t typeOfNr = 8 * (jet::format::kJet4.table.headSize + 12) + 1;
  for (std::size_t bit = 0; bit < 8 * length; ++bit) {
    if (bit == typeOfNr) continue;
    at(definition_, bit / 8) ^= static_cast<std::uint8_t>(1u << bit % 8);
    const auto found = values();
    EXPECT_TRUE(!found || *found == *sound) << "offset " << bit / 8 << ", bit " << bit % 8;
    at(definition_, bit / 8) ^= static_cast<std::uint8_t>(1u << bit % 8);
  }
}

TEST_F(Check, TellsLeftoversAsHarmless) {
  bytes_.resize(bytes_.size() + 2 * kPage);
  const auto last = static_cast<std::uint32_t>(bytes_.size() / kPage - 1);
  for (const std::uint32_t lost : {last - 1, last})
    at(1, kPage - 64 + lost / 8) &= static_cast<std::uint8_t>(~(1u << (lost % 8)));
  EXPECT_THAT(findings(),
              testing::ElementsAre(HasSubstr("Hinweis: " + page(last - 1) + "2 Seiten")));
  EXPECT_THAT(app::advice(found_), HasSubstr("Es fehlt nichts"));
}

}  // namespace
