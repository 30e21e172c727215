// Opening a year and reading its five tables: ours against libmdb on the same file, and ours on the
// same year with a big unrelated table. The year is the one in the environment's KALVIRA_YEAR, or
// an empty one.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <iostream>
#include <string>

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

constexpr const char* kYear = "open-bench.kwd";
constexpr const char* kBigYear = "open-bench-big.kwd";

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

bool makeYears(base::FileSystem& files) {
  const char* given = std::getenv("KALVIRA_YEAR");
  auto tables = given ? tablesOf(files, given) : yearbook::templateTables();
  if (tables.empty()) return false;
  auto year = jet::createDatabase(tables);
  tables.push_back(diary(450000));
  auto big = jet::createDatabase(tables);
  if (!big) std::cerr << base::germanMessage(big.error()) << std::endl;
  if (!year || !big) return false;
  std::cerr << kBigYear << ": " << big->size() / 1000000 << " MB" << std::endl;
  return files.replaceFile(kYear, *year) && files.replaceFile(kBigYear, *big);
}

// Every field of every row of the five tables; the number of values keeps it honest.
std::size_t readYear(base::FileSystem& files, const std::string& path) {
  auto database = jet::Database::open(files, path);
  if (!database) return 0;
  std::size_t values = 0;
  for (const yearbook::Table* table : yearbook::allTables()) {
    auto rows = database->openTable(table->name);
    if (!rows) return 0;
    for (std::size_t row = 0; row < rows->count(); ++row) {
      auto fields = rows->row(row);
      if (!fields) return 0;
      values += fields->size();
    }
  }
  return values;
}

void openWithKalvira(benchmark::State& state, const std::string& path) {
  const auto files = base::makeDiskFileSystem();
  std::size_t values = 0;
  for (auto _ : state) {
    values = readYear(*files, path);
    benchmark::DoNotOptimize(values);
  }
  if (values == 0) state.SkipWithError("the year could not be read");
  state.counters["values"] = static_cast<double>(values);
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

void openWithLibmdb(benchmark::State& state, const std::string& path) {
  std::size_t values = 0;
  for (auto _ : state) {
    MdbHandle* mdb = mdb_open(path.c_str(), MDB_NOFLAGS);
    mdb_read_catalog(mdb, MDB_TABLE);
    values = 0;
    for (const yearbook::Table* table : yearbook::allTables())
      values += readTable(mdb, std::string(table->name).c_str());
    mdb_close(mdb);
    benchmark::DoNotOptimize(values);
  }
  state.counters["values"] = static_cast<double>(values);
}
#endif

}  // namespace

int main(int argc, char** argv) {
  if (!makeYears(*base::makeDiskFileSystem())) return 1;
  benchmark::RegisterBenchmark("kalvira/year", openWithKalvira, kYear);
#ifdef KALVIRA_HAVE_LIBMDB
  benchmark::RegisterBenchmark("libmdb/year", openWithLibmdb, kYear);
#endif
  benchmark::RegisterBenchmark("kalvira/year of 200 MB", openWithKalvira, kBigYear);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
