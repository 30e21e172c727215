#include "jet/Creator.h"

#include <gmock/gmock.h>

#include <fstream>

#include "base/Paths.h"
#include "support/Command.h"
#include "support/JetDump.h"
#include "support/MemoryFileSystem.h"
#include "support/TemporaryFolder.h"

namespace {

using base::Bytes;
using jet::ColumnType;
using jet::NewTable;
using jet::Value;

constexpr std::size_t kPage = 4096;

Bytes readFile(const std::string& path) {
  std::ifstream file(base::toPath(path), std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(file), {});
}

Bytes page(const Bytes& file, std::size_t number) {
  const auto start = file.begin() + static_cast<std::ptrdiff_t>(number * kPage);
  return Bytes(start, start + kPage);
}

// Every type that a new table may have, two indexes, rows over several pages, long remarks.
NewTable sampleTable(int rows) {
  NewTable table;
  table.name = "Zähler";
  table.columns = {{"Nr", ColumnType::Long, 0, true}, {"Monat", ColumnType::Text, 50},
                   {"Verbrauch", ColumnType::Double}, {"Preis", ColumnType::Currency},
                   {"Stand", ColumnType::Single},     {"Tage", ColumnType::Integer},
                   {"Art", ColumnType::Byte},         {"Gewechselt", ColumnType::Boolean},
                   {"Am", ColumnType::DateTime},      {"Anmerkung", ColumnType::Memo}};
  table.indexes = {{"PrimaryKey", {{"Nr", true}}, true},
                   {"Monat", {{"Monat", true}, {"Nr", false}}}};
  for (int i = 0; i < rows; ++i)
    table.rows.push_back({jet::Null(), "Monat " + std::to_string(i), 1.5 * i,
                          base::Money::fromTenThousandths(std::int64_t{12345} * i),
                          0.5F * static_cast<float>(i), std::int64_t{i}, std::int64_t{i % 200},
                          i % 2 == 0, jet::DateTime{45000.0 + i},
                          i % 5 == 0 ? Value(std::string(static_cast<std::size_t>(i) * 40, 'x'))
                                     : Value(jet::Null())});
  return table;
}

TEST(Creator, WithoutTablesMakesTheFileThatJetMakes) {
  const Bytes model = readFile(KALVIRA_JET_FILES "/jet4/adox_jet4.mdb");
  if (model.empty()) GTEST_SKIP() << "The folder with real Access files is missing";
  const auto made = jet::createDatabase({});
  ASSERT_TRUE(made);
  ASSERT_EQ(made->size(), model.size());
  for (std::size_t number = 0; number < 16; ++number) {
    if (number >= 2 && number <= 5) continue;
    EXPECT_EQ(page(*made, number), page(model, number)) << "page " << number;
  }
}

// Takes out what Jet leaves to chance: the fixed offset of variable columns, the order of unused
// index columns, the gap in index records, and the columns' display positions.
Bytes withoutGarbage(Bytes definition) {
  const std::size_t columns = definition[45];
  const std::size_t indexes = definition[51];
  std::size_t at = 63 + 12 * indexes;
  for (std::size_t i = 0; i < columns; ++i, at += 25) {
    std::fill_n(definition.begin() + static_cast<std::ptrdiff_t>(at + 9), 2, std::uint8_t{0});
    if ((definition[at + 15] & 1) != 0) continue;
    std::fill_n(definition.begin() + static_cast<std::ptrdiff_t>(at + 21), 2, std::uint8_t{0});
  }
  for (std::size_t i = 0; i < columns; ++i) at += 2U + definition[at];
  for (std::size_t i = 0; i < indexes; ++i, at += 52) {
    for (std::size_t k = at + 4; k < at + 34; k += 3)
      if (definition[k] == 0xFF) definition[k + 2] = 0;
    std::fill_n(definition.begin() + static_cast<std::ptrdiff_t>(at + 42), 4, std::uint8_t{0});
  }
  return definition;
}

TEST(Creator, SystemTablesAreDefinedAsByJet) {
  const Bytes model = readFile(KALVIRA_JET_FILES "/jet4/adox_jet4.mdb");
  if (model.empty()) GTEST_SKIP() << "The folder with real Access files is missing";
  const auto made = jet::createDatabase({});
  ASSERT_TRUE(made);
  for (std::size_t number = 2; number <= 5; ++number)
    EXPECT_EQ(withoutGarbage(page(*made, number)), withoutGarbage(page(model, number))) << number;
}

// Where Jet 4 counts a definition's free bytes, Jet 3 has two letters.
TEST(Creator, MarksTheDefinitionsOfJet3) {
  const auto made = jet::createDatabase({}, jet::FileVersion::Jet3);
  ASSERT_TRUE(made);
  for (std::size_t number = 2; number <= 5; ++number)
    EXPECT_EQ(base::asText(base::ByteSpan(*made).subspan(number * 2048, 4)), "\x02\x01VC");
}

TEST(Creator, SameInputGivesTheSameFile) {
  const auto first = jet::createDatabase({sampleTable(40)});
  ASSERT_TRUE(first) << base::germanMessage(first.error());
  EXPECT_EQ(*first, *jet::createDatabase({sampleTable(40)}));
}

class CreatedFile : public testing::Test {
 protected:
  void create(const std::vector<NewTable>& tables) {
    auto made = jet::createDatabase(tables);
    ASSERT_TRUE(made) << base::germanMessage(made.error());
    content_ = std::move(*made);
    std::ofstream(base::toPath(path_), std::ios::binary)
        .write(reinterpret_cast<const char*>(content_.data()),
               static_cast<std::streamsize>(content_.size()));
  }
  jet::Database open() {
    memory_.put("/neu.kwd", content_);
    auto database = jet::Database::open(memory_, "/neu.kwd");
    EXPECT_TRUE(database) << base::germanMessage(database.error());
    return std::move(*database);
  }

  support::TemporaryFolder folder_;
  std::string path_ = folder_ / "neu.kwd";
  Bytes content_;
  support::MemoryFileSystem memory_;
};

TEST_F(CreatedFile, ReadsBackAsItWasWritten) {
  const NewTable table = sampleTable(300);
  create({table, {"Leer", {{"Feld", ColumnType::Text, 10}}, {}, {}}});
  auto database = open();
  EXPECT_THAT(database.tableNames(), testing::ElementsAre("Leer", "Zähler"));
  EXPECT_THAT(database.check(), testing::IsEmpty());
  auto rows = database.openTable("zähler");
  ASSERT_TRUE(rows);
  ASSERT_EQ(rows->count(), 300U);
  for (std::size_t i = 0; i < 300; ++i) {
    std::vector<Value> expected = table.rows[i];
    expected[0] = static_cast<std::int64_t>(i) + 1;
    EXPECT_EQ(rows->row(i), expected) << i;
  }
  EXPECT_TRUE(rows->columns()[0].autoNumber);
  EXPECT_EQ(rows->columns()[1].length, 100);
  ASSERT_EQ(rows->indexes().size(), 2U);
}

TEST_F(CreatedFile, OutgrowsTheUsualMaps) {
  NewTable table{"Groß", {{"Text", ColumnType::Text, 255}}, {{"Text", {{"Text", true}}}}, {}};
  for (int i = 0; i < 12000; ++i) table.rows.push_back({std::to_string(i) + std::string(200, 'x')});
  create({sampleTable(12), table});
  EXPECT_GT(content_.size(), 1000 * kPage);
  auto database = open();
  EXPECT_THAT(database.check(), testing::IsEmpty());
  EXPECT_EQ(database.openTable("Groß")->count(), 12000U);
}

TEST_F(CreatedFile, IsReadByAnIndependentProgram) {
  if (!support::isInstalled("mdb-export")) GTEST_SKIP() << "mdbtools is not installed";
  create({sampleTable(300)});
  EXPECT_EQ(support::run("mdb-ver " + path_).output, "JET4\n");
  EXPECT_EQ(support::run("mdb-tables -1 " + path_).output, "Zähler\n");
  const std::string rows = support::run("mdb-export -H -d '|' " + path_ + " Zähler").output;
  EXPECT_EQ(std::count(rows.begin(), rows.end(), '\n'), 300);
  EXPECT_THAT(rows, testing::StartsWith("1|\"Monat 0\"|0|0.0000|0|0|0|1|"));
  EXPECT_THAT(rows, testing::HasSubstr("\n201|\"Monat 200\"|300|246.9000|100|200|0|1|"));
  EXPECT_THAT(rows, testing::HasSubstr("|\"" + std::string(8000, 'x') + "\"\n"));
  const std::string schema = support::run("mdb-schema " + path_).output;
  EXPECT_THAT(schema, testing::HasSubstr("[Verbrauch]\t\t\tDouble"));
  EXPECT_THAT(schema, testing::HasSubstr("[Monat]\t\t\tText (50)"));
}

TEST(Creator, RefusesWhatCannotBeStoredAndNamesIt) {
  const auto errorOf = [](const NewTable& table) {
    const auto made = jet::createDatabase({table});
    return made ? std::string("created") : made.error().subject;
  };
  const NewTable good{"T",
                      {{"Nr", ColumnType::Byte}, {"Name", ColumnType::Text, 3}},
                      {{"PrimaryKey", {{"Nr", true}}, true}},
                      {{std::int64_t{1}, std::string("abc")}}};
  EXPECT_EQ(errorOf(good), "created");
  NewTable table = good;
  table.rows.push_back({std::int64_t{256}, std::string("a")});
  EXPECT_EQ(errorOf(table), "T.Nr");
  table = good;
  table.rows.push_back({std::int64_t{2}, std::string("abcd")});
  EXPECT_EQ(errorOf(table), "T.Name");
  table = good;
  table.rows.push_back(good.rows[0]);
  EXPECT_EQ(errorOf(table), "T, Index PrimaryKey");
  table = good;
  table.rows.push_back({jet::Null(), std::string("a")});
  EXPECT_EQ(errorOf(table), "T, Index PrimaryKey");
  table = good;
  table.columns[1].name = "NR";
  EXPECT_EQ(errorOf(table), "T.NR");
  table = good;
  table.indexes[0].columns[0].column = "Fehlt";
  EXPECT_EQ(errorOf(table), "T.PrimaryKey");
  table = good;
  table.columns[1].length = 256;
  EXPECT_EQ(errorOf(table), "T.Name");
}

}  // namespace
