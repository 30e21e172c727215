#include "Measure.h"

#include <benchmark/benchmark.h>

#include <cstdio>

#include "base/Paths.h"

namespace bench {
namespace {

std::filesystem::path folderOf(const char* program) {
  return std::filesystem::absolute(base::toPath(program)).parent_path();
}

// Prints as usual and keeps the medians.
class Medians final : public benchmark::ConsoleReporter {
 public:
  Medians() : ConsoleReporter(OO_None) {}
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      failed = failed || run.error_occurred;
      if (run.aggregate_name == "median")
        times[run.run_name.function_name] = run.real_accumulated_time;
    }
  }
  std::map<std::string, double> times;
  bool failed = false;
};

}  // namespace

std::optional<std::vector<double>> compare(const std::vector<Work>& works, int repetitions) {
  std::string flags[] = {"bench", "--benchmark_enable_random_interleaving=true",
                         "--benchmark_min_time=0.01"};
  char* arguments[] = {flags[0].data(), flags[1].data(), flags[2].data(), nullptr};
  int count = 3;
  benchmark::Initialize(&count, arguments);
  for (const Work& work : works)
    benchmark::RegisterBenchmark(work.name.c_str(),
                                 [&work](benchmark::State& state) {
                                   for ([[maybe_unused]] auto _ : state)
                                     if (!work.run()) state.SkipWithError("could not be done");
                                 })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Repetitions(repetitions)
        ->ReportAggregatesOnly();
  Medians medians;
  benchmark::RunSpecifiedBenchmarks(&medians);
  if (medians.failed) return std::nullopt;
  std::vector<double> times;
  for (const Work& work : works) times.push_back(medians.times.at(work.name));
  return times;
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
