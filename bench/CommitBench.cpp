// One edited field durably committed, against a bare program that writes and syncs the same bytes
// twice (once to a journal, once in place). Environment: KALVIRA_YEAR (a year file; a copy is
// edited).

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "base/Bytes.h"
#include "base/File.h"
#include "base/Paths.h"
#include "jet/Database.h"

namespace {

constexpr const char* kCopy = "commit-bench.kwd";

void kalviraCommit(benchmark::State& state, const std::string& year) {
  const auto files = base::makeDiskFileSystem();
  const std::string copy = base::fromPath(std::filesystem::current_path() / kCopy);
  if (!files->copyFile(year, copy)) return state.SkipWithError("no copy");
  auto database = jet::Database::open(*files, copy);
  if (!database) return state.SkipWithError("the year could not be opened");
  auto rows = database->openTable("Strom");
  if (!rows) return state.SkipWithError("no table Strom");
  const auto column = rows->columnIndex("ZTagStrom");
  double value = 1;
  for (auto _ : state) {
    const bool stored =
        database->begin() && rows->set(3, *column, value += 1) && database->commit();
    if (!stored) return state.SkipWithError("not stored");
  }
}

// The least that any engine with a journal writes: the page and a small header, then the page.
void bareTwoSyncs(benchmark::State& state) {
  constexpr std::size_t kPage = 4096;
  constexpr std::size_t kHeader = 64;
  const auto files = base::makeDiskFileSystem();
  auto journal = files->open("commit-bench.a", base::OpenMode::Create);
  auto data = files->open("commit-bench.b", base::OpenMode::Create);
  if (!journal || !data) return state.SkipWithError("no files");
  base::Bytes bytes(kPage + kHeader, 7);
  if (!(*data)->resize(50 * kPage)) return state.SkipWithError("no space");
  for (auto _ : state) {
    ++bytes[9];
    const bool written = (*journal)->writeAt(0, bytes) && (*journal)->sync() &&
                         (*data)->writeAt(20 * kPage, base::ByteSpan(bytes).first(kPage)) &&
                         (*data)->sync();
    if (!written) return state.SkipWithError("not written");
  }
}

}  // namespace

int main(int argc, char** argv) {
  const char* year = std::getenv("KALVIRA_YEAR");
  benchmark::RegisterBenchmark("bare two syncs", bareTwoSyncs)->MinTime(2)->UseRealTime();
  benchmark::RegisterBenchmark("kalvira commit", kalviraCommit, std::string(year ? year : ""))
      ->MinTime(2)
      ->UseRealTime();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
