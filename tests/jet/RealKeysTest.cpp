#include <gtest/gtest.h>

#include "RealFiles.h"
#include "jet/engine/Catalog.h"
#include "jet/engine/IndexKey.h"
#include "jet/engine/IndexTree.h"
#include "jet/engine/Table.h"

// Every key of every index in files of Access and Jet, worked out from its row and compared byte by
// byte with what they stored.

namespace {

using base::Result;

struct Count {
  int equal = 0;
  int beyondTables = 0;  // texts of other scripts, which we do not write into indexes
};

void compareEntry(const jet::Table& table, const jet::IndexDef& index, const jet::IndexEntry& entry,
                  const std::string& where, Count& count) {
  const auto stored = table.stored(entry.row());
  ASSERT_TRUE(stored) << where;
  std::vector<jet::KeyPart> parts;
  std::vector<jet::Value> values;
  const jet::format::Version& version =
      (*stored->page).size() == 2048 ? jet::format::kJet3 : jet::format::kJet4;
  const auto view = jet::RowView::parse(version, table.def(), stored->bytes);
  ASSERT_TRUE(view) << where;
  for (const jet::IndexDef::Part& part : index.parts) {
    const jet::ColumnDef& column = table.def().columns[part.column];
    const auto value = table.decode(*view, part.column);
    ASSERT_TRUE(value) << where;
    parts.push_back({column.column.type, part.ascending, column.textOrder});
    values.push_back(*value);
  }
  const auto key = jet::encodeKey(parts, values);
  if (!key) {
    EXPECT_EQ(key.error().code, base::ErrorCode::Unsupported) << where;
    ++count.beyondTables;
    return;
  }
  const base::ByteSpan found = entry.key();
  EXPECT_EQ(*key, base::Bytes(found.begin(), found.end())) << where;
  ++count.equal;
}

void compareFile(const std::string& name, Count& count) {
  const auto files = base::makeDiskFileSystem();
  auto pager =
      jet::Pager::open(*files, (realfiles::folder() / name).string(),
                       {.readOnly = true, .acceptPassword = true, .acceptEncryption = true});
  ASSERT_TRUE(pager) << name;
  const auto catalog = jet::Catalog::read(**pager);
  ASSERT_TRUE(catalog) << name;
  for (const jet::Catalog::Entry& listed : catalog->tables) {
    const auto table = jet::Table::open(**pager, listed.definition, listed.name);
    ASSERT_TRUE(table) << name << " " << listed.name;
    for (const jet::IndexDef& index : (*table)->def().indexes) {
      const std::string where = name + " " + listed.name + "." + index.name;
      const jet::IndexTree tree(**pager, listed.definition, index);
      const auto entries = tree.entries(100000);
      ASSERT_TRUE(entries) << where << base::germanMessage(entries.error());
      for (const jet::IndexEntry& entry : *entries)
        compareEntry(**table, index, entry, where, count);
    }
  }
}

TEST(RealKeys, AreWorkedOutFromTheirRowsToTheLastByte) {
  if (!realfiles::present()) GTEST_SKIP() << "no Access files at hand";
  Count access97;
  Count access2000;
  for (const std::string& name : realfiles::names({"jet3"})) compareFile(name, access97);
  for (const std::string& name : realfiles::names({"jet4", "year"})) compareFile(name, access2000);
  RecordProperty("access97", access97.equal);
  RecordProperty("access2000", access2000.equal);
  RecordProperty("beyond", access97.beyondTables + access2000.beyondTables);
  EXPECT_GT(access97.equal, 5000);
  EXPECT_GT(access2000.equal, 2000);
  EXPECT_EQ(access97.beyondTables, 0);
  EXPECT_LT(access2000.beyondTables, 20);
}

}  // namespace
