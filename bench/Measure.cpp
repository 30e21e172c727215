#include "Measure.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>

#include "base/Paths.h"
#include "jet/Database.h"
#include "yearbook/Schema.h"

namespace bench {
namespace {

std::filesystem::path folderOf(const char* program) {
  return std::filesystem::absolute(base::toPath(program)).parent_path();
}

// Prints as usual and keeps medians and spreads.
class Outcomes final : public benchmark::ConsoleReporter {
 public:
  Outcomes() : ConsoleReporter(OO_None) {}
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      failed = failed || run.error_occurred;
      Measured& measured = works[run.run_name.function_name];
      if (run.aggregate_name == "median") measured.time = run.GetAdjustedRealTime();
      if (run.aggregate_name == "cv") measured.spread = run.real_accumulated_time;
    }
  }
  std::map<std::string, Measured> works;
  bool failed = false;
};

}  // namespace

std::optional<std::vector<Measured>> compare(const std::vector<Work>& works, int repetitions) {
  std::string flags[] = {"bench", "--benchmark_enable_random_interleaving=true",
                         "--benchmark_min_time=0.01"};
  char* arguments[] = {flags[0].data(), flags[1].data(), flags[2].data(), nullptr};
  int count = 3;
  benchmark::Initialize(&count, arguments);
  for (const Work& work : works)
    benchmark::RegisterBenchmark(work.name.c_str(),
                                 [&work](benchmark::State& state) {
                                   for ([[maybe_unused]] auto _ : state) {
                                     if (!work.run()) state.SkipWithError("could not be done");
                                     if (!work.after) continue;
                                     state.PauseTiming();
                                     work.after();
                                     state.ResumeTiming();
                                   }
                                 })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Repetitions(repetitions)
        ->ReportAggregatesOnly();
  Outcomes outcomes;
  benchmark::RunSpecifiedBenchmarks(&outcomes);
  benchmark::ClearRegisteredBenchmarks();  // their works end with this call
  if (outcomes.failed) return std::nullopt;
  std::vector<Measured> measured;
  for (const Work& work : works) measured.push_back(outcomes.works.at(work.name));
  return measured;
}

void sayRatio(const std::string& what, const Measured& ours, const Measured& least, double wanted) {
  std::printf("ratio, %s: %.2f (spread %.0f %%", what.c_str(), ours.time / least.time,
              100 * std::max(ours.spread, least.spread));
  if (wanted > 0) std::printf(", wanted: %.2f", wanted);
  std::printf(")\n");
}

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

std::optional<std::string> beside(const char* program, const std::string& name) {
  const std::filesystem::path path = folderOf(program) / base::toPath(name);
  std::error_code unreadable;
  if (std::filesystem::exists(path, unreadable)) return base::fromPath(path);
  std::fprintf(stderr, "%s is missing; the build target \"years\" makes it.\n",
               base::fromPath(path).c_str());
  return std::nullopt;
}

std::string scratch(const char* program, const std::string& name) {
  return base::fromPath(folderOf(program) / base::toPath(name));
}

}  // namespace bench
