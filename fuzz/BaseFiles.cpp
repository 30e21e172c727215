#include "BaseFiles.h"

#include <cstdlib>
#include <string>

#include "FuzzInput.h"
#include "base/File.h"
#include "base/Paths.h"
#include "jet/Creator.h"
#include "jet/Database.h"
#include "support/MemoryFileSystem.h"

namespace fuzz {
namespace {

using jet::ColumnType;
using jet::NewTable;
using jet::Value;

const std::string kPath = "/basis.kwd";

NewTable year() {
  NewTable table{"Strom",
                 {{"Nr", ColumnType::Long, 0, true},
                  {"Monat", ColumnType::Text, 50},
                  {"VTagStrom", ColumnType::Double},
                  {"PTagStrom", ColumnType::Currency},
                  {"Anmerkungen", ColumnType::Text, 255},
                  {"Verlauf", ColumnType::Memo}},
                 {{"PrimaryKey", {{"Nr", true}}, true}, {"Monat", {{"Monat", true}}}},
                 {}};
  for (const char* month : {"Januar", "Februar", "März", "April", "Mai", "Juni", "Juli", "August",
                            "September", "Oktober", "November", "Dezember"})
    table.rows.push_back({jet::Null(), std::string(month), 1.5,
                          base::Money::fromTenThousandths(15000), std::string("Zähler"),
                          jet::Null()});
  table.rows[3][5] = std::string(50, 'm');
  table.rows[4][5] = std::string(2000, 'm');
  table.rows[5][5] = std::string(9000, 'm');
  return table;
}

NewTable everyType() {
  return {"Typen",
          {{"Wahr", ColumnType::Boolean},
           {"Byte", ColumnType::Byte},
           {"Integer", ColumnType::Integer},
           {"Single", ColumnType::Single},
           {"Datum", ColumnType::DateTime},
           {"Roh", ColumnType::Binary, 20},
           {"Bild", ColumnType::Ole},
           {"Kennung", ColumnType::Guid}},
          {{"Integer", {{"Integer", false}, {"Byte", true}}}, {"Kennung", {{"Kennung", true}}}},
          {{true, std::int64_t{1}, std::int64_t{-5}, 2.5F, jet::DateTime{45000.25},
            base::Bytes{1, 2, 3}, base::Bytes(100, 7), jet::Guid{{1, 2, 3, 4}}},
           {false, jet::Null(), jet::Null(), jet::Null(), jet::Null(), jet::Null(), jet::Null(),
            jet::Null()}}};
}

// Enough rows for an index with nodes, and enough columns for a definition of two pages.
NewTable large() {
  NewTable table{"Gross", {{"Text", ColumnType::Text, 100}}, {{"Text", {{"Text", true}}}}, {}};
  for (int i = 0; i < 50; ++i)
    table.columns.push_back(
        {"Eine Spalte mit langem Namen " + std::to_string(i), ColumnType::Byte});
  for (int i = 0; i < 60; ++i) {
    table.rows.emplace_back(51, jet::Null());
    table.rows.back()[0] = std::to_string(i * 7919 % 1000) + std::string(70, 'x');
  }
  return table;
}

// Remarks that no longer fit on their page, and one that came back home.
base::Bytes moved(const base::Bytes& file) {
  support::MemoryFileSystem files({{kPath, file}});
  {
    auto database = jet::Database::open(files, kPath);
    auto rows = database->openTable("Strom");
    std::string remark;
    for (int i = 0; i < 250; ++i) remark += "€";
    bool done = database->begin().has_value();
    for (std::size_t row = 0; row < 12; ++row) done = done && rows->set(row, 4, remark);
    done = done && rows->set(7, 4, std::string("kurz")) && database->commit();
    require(done, "a remark can be lengthened");
  }
  return files.get(kPath);
}

void addFilesOf(const std::string& folder, std::vector<base::Bytes>& files) {
  const auto disk = base::makeDiskFileSystem();
  for (const std::string& name : disk->list(folder).value_or(std::vector<std::string>())) {
    const auto content = disk->readText(base::withSeparator(folder) + name, 4 << 20);
    if (!content || content->size() < 4096) continue;
    const base::ByteSpan bytes = base::asBytes(*content);
    files.emplace_back(bytes.begin(), bytes.end());
  }
}

}  // namespace

const std::vector<base::Bytes>& baseFiles() {
  static const std::vector<base::Bytes> kFiles = [] {
    const base::Bytes small = *jet::createDatabase({year()});
    std::vector<base::Bytes> files = {small, moved(small), *jet::createDatabase({everyType()}),
                                      *jet::createDatabase({large()})};
    if (const char* folder = std::getenv("KALVIRA_FUZZ_FILES")) addFilesOf(folder, files);
    return files;
  }();
  return kFiles;
}

}  // namespace fuzz
