// Opening a year and reading its five tables: ours against libmdb on the same file, and ours on the
// same year with a big unrelated table.

#include <cstdio>
#include <string>

#include "Measure.h"
#include "base/File.h"
#include "jet/Creator.h"
#include "jet/Database.h"
#include "yearbook/Schema.h"

#ifdef KALVIRA_HAVE_LIBMDB
extern "C" {
#include <mdbtools.h>
}
#endif

namespace {

constexpr int kRounds = 101;

// A table that no year knows, with that many rows of about 400 bytes.
jet::NewTable diary(std::size_t rows) {
  jet::NewTable table;
  table.name = "Tagebuch";
  table.columns = {{"Nr", jet::ColumnType::Long}, {"Text", jet::ColumnType::Text, 255}};
  // Beyond Latin-1, so that the text is stored with two bytes a character.
  std::string text;
  for (int i = 0; i < 200; ++i) text += "Ω";
  table.rows.reserve(rows);
  for (std::size_t i = 0; i < rows; ++i) table.rows.push_back({static_cast<std::int64_t>(i), text});
  return table;
}

// The tables of a year with its rows; none when it cannot be read.
std::vector<jet::NewTable> tablesOf(base::FileSystem& files, const std::string& path) {
  auto database = jet::Database::open(files, path, {.readOnly = true});
  if (!database) return {};
  auto tables = yearbook::templateTables();
  for (jet::NewTable& table : tables) {
    auto stored = database->openTable(table.name);
    if (!stored) return {};
    table.rows.clear();
    for (std::size_t row = 0; row < stored->count(); ++row) {
      auto values = stored->row(row);
      if (!values) return {};
      table.rows.push_back(std::move(*values));
    }
  }
  return tables;
}

bool makeYears(base::FileSystem& files, const std::string& original, const std::string& year,
               const std::string& bigYear) {
  auto tables = tablesOf(files, original);
  if (tables.empty()) return false;
  auto small = jet::createDatabase(tables);
  tables.push_back(diary(450000));
  auto big = jet::createDatabase(tables);
  if (!small || !big) return false;
  std::printf("the big year has %zu MB\n", big->size() / 1000000);
  return files.replaceFile(year, *small) && files.replaceFile(bigYear, *big);
}

#ifdef KALVIRA_HAVE_LIBMDB
std::size_t readTable(MdbHandle* mdb, const char* name) {
  MdbTableDef* table = mdb_read_table_by_name(mdb, const_cast<char*>(name), MDB_TABLE);
  if (!table) return 0;
  mdb_read_columns(table);
  static char buffers[64][4096];
  static int lengths[64];
  for (unsigned i = 0; i < table->num_cols && i < 64; ++i)
    mdb_bind_column(table, static_cast<int>(i) + 1, buffers[i], &lengths[i]);
  mdb_rewind_table(table);
  std::size_t values = 0;
  while (mdb_fetch_row(table)) values += table->num_cols;
  mdb_free_tabledef(table);
  return values;
}

std::size_t readWithLibmdb(const std::string& path) {
  MdbHandle* mdb = mdb_open(path.c_str(), MDB_NOFLAGS);
  if (!mdb) return 0;
  mdb_read_catalog(mdb, MDB_TABLE);
  std::size_t values = 0;
  for (const yearbook::Table* table : yearbook::allTables())
    values += readTable(mdb, std::string(table->name).c_str());
  mdb_close(mdb);
  return values;
}
#endif

}  // namespace

int main(int, char** argv) {
  const auto original = bench::beside(argv[0], "beispiel/Verbrauch2025.kwd");
  if (!original) return 1;
  const auto files = base::makeDiskFileSystem();
  const std::string year = bench::scratch(argv[0], "open-bench.kwd");
  const std::string bigYear = bench::scratch(argv[0], "open-bench-big.kwd");
  if (!makeYears(*files, *original, year, bigYear)) {
    std::fprintf(stderr, "%s cannot be made\n", bigYear.c_str());
    return 1;
  }
  const std::size_t values = bench::readYear(*files, year);
  std::vector<bench::Work> works = {
      {"year", [&] { return bench::readYear(*files, year) == values; }},
      {"year with a big table beside its own",
       [&] { return bench::readYear(*files, bigYear) == values; }}};
#ifdef KALVIRA_HAVE_LIBMDB
  works.push_back({"year, libmdb", [&] { return readWithLibmdb(year) == values; }});
#endif
  const auto times = bench::compare(works, kRounds);
  for (const std::string& path : {year, bigYear})
    base::ignore(files->remove(path), "a copy that stays is replaced by the next run");
  if (!times || values == 0) return 1;
  bench::sayRatio("a year with a big table to the year alone", times->at(1), times->at(0), 1.5);
  if (times->size() > 2)
    bench::sayRatio("opening and reading a year to libmdb", times->at(0), times->at(2), 0.2);
  else
    std::printf("built without libmdb (Debian: mdbtools-dev): nothing to compare with\n");
  return 0;
}
