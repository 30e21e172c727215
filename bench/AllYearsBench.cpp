// All years of a folder, from its listing to the finished table. A household keeps thirty of them,
// an office some hundreds.

#include <benchmark/benchmark.h>

#include <filesystem>

#include "Measure.h"
#include "analysis/AllYears.h"
#include "base/Paths.h"

namespace {

namespace fs = std::filesystem;

fs::path source;  // the sample year beside the program

void allYears(benchmark::State& state) {
  const fs::path folder = source.parent_path() / ("all-years-" + std::to_string(state.range(0)));
  fs::remove_all(folder);
  fs::create_directory(folder);
  for (int i = 0; i < state.range(0); ++i)
    fs::copy_file(source, folder / ("Haushalt " + std::to_string(i + 1) + ".kwd"));
  const auto files = base::makeDiskFileSystem();
  for (auto _ : state) {
    const auto read = analysis::readFolder(*files, base::fromPath(folder));
    if (!read || read->years.size() != static_cast<std::size_t>(state.range(0)))
      return state.SkipWithError("the years could not be read");
    const auto figures = analysis::figuresOf(*read);
    benchmark::DoNotOptimize(analysis::tableOf(figures));
  }
  fs::remove_all(folder);
}
BENCHMARK(allYears)->Arg(30)->Arg(500)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  const auto year = bench::beside(argv[0], "beispiel/Verbrauch2025.kwd");
  if (!year) return 1;
  source = base::toPath(*year);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
