#include "yearbook/YearCheck.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <bit>

#include "jet/Creator.h"
#include "support/MemoryFileSystem.h"
#include "yearbook/Schema.h"

namespace {

using base::ErrorCode;
using jet::NewTable;
using testing::ElementsAre;

// What is found in a file with these tables: "MissingTable: Wasser".
std::vector<std::string> foundIn(const std::vector<NewTable>& tables,
                                 const std::string& path = "/Jahr.kwd") {
  auto bytes = jet::createDatabase(tables);
  EXPECT_TRUE(bytes) << base::describe(bytes.error());
  support::MemoryFileSystem disk({{path, *bytes}});
  auto database = jet::Database::open(disk, path, {.readOnly = true});
  std::vector<std::string> found;
  for (jet::Finding finding : yearbook::checkYear(*database)) {
    EXPECT_FALSE(finding.warning);
    finding.error.file.clear();
    finding.error.detail.clear();
    found.push_back(base::describe(finding.error));
  }
  return found;
}

NewTable& table(std::vector<NewTable>& tables, const std::string& name) {
  return *std::find_if(tables.begin(), tables.end(),
                       [&](const NewTable& t) { return t.name == name; });
}

std::size_t column(const NewTable& table, const std::string& name) {
  const auto found = std::find_if(table.columns.begin(), table.columns.end(),
                                  [&](const jet::NewColumn& c) { return c.name == name; });
  return static_cast<std::size_t>(found - table.columns.begin());
}

TEST(YearCheck, FindsNothingInANewYear) {
  EXPECT_THAT(foundIn(yearbook::templateTables()), ElementsAre());
}

TEST(YearCheck, TellsWhatAYearLacks) {
  auto tables = yearbook::templateTables();
  table(tables, "Gas").name = "Gaz";
  table(tables, "Wasser").rows.resize(4);
  NewTable& power = table(tables, "Strom");
  power.columns[column(power, "VTagStrom")].name = "VTag";
  EXPECT_THAT(foundIn(tables), ElementsAre("MissingColumn: Strom: Verbrauch Strom",
                                           "WrongShape: Wasser", "MissingTable: Gas"));
}

TEST(YearCheck, AsksAFileOfAnotherNameOnlyWhenItHasATableOfAYear) {
  EXPECT_EQ(foundIn({}, "/leer.KWX").size(), 5u);
  EXPECT_THAT(foundIn({}, "/Kunden.mdb"), ElementsAre());
  auto tables = yearbook::templateTables();
  tables.resize(2);
  EXPECT_EQ(foundIn(tables, "/Kunden.mdb").size(), 3u);
}

TEST(YearCheck, TellsNumbersThatAreAmountsAndAmountsThatAreNumbers) {
  auto tables = yearbook::templateTables();
  NewTable& power = table(tables, "Strom");
  const std::size_t consumption = column(power, "VTagStrom");
  power.columns[consumption].type = jet::ColumnType::Currency;
  for (const double number : {299.0, -0.01}) {
    power.rows[3][consumption] =
        base::Money::fromTenThousandths(std::bit_cast<std::int64_t>(number));
    EXPECT_THAT(foundIn(tables), ElementsAre("Damaged: Strom: Verbrauch Strom"));
  }
  power.columns[consumption].type = jet::ColumnType::Double;
  power.rows[3][consumption] = std::bit_cast<double>(std::int64_t{15'0000});
  EXPECT_THAT(foundIn(tables), ElementsAre("Damaged: Strom: Verbrauch Strom"));
  power.rows[3][consumption] = 0.0;
  EXPECT_THAT(foundIn(tables), ElementsAre());
}

}  // namespace
