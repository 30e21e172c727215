// The year's overview, from the open year's figures to the finished file: to be done in less than
// 5 ms, so that showing the page is never noticed.
#include <benchmark/benchmark.h>

#include <cstdio>

#include "base/File.h"
#include "reports/Exports.h"
#include "reports/FlexGridHTML.h"

namespace {

using base::Money;

reports::OverviewInput fullYear() {
  reports::OverviewInput input;
  input.yearFileName = "Verbrauch2025.kwd";
  input.currentYear = 2026;
  std::int64_t amount = 1234567;
  for (auto* rows : {&input.electricity, &input.water, &input.gas})
    for (std::size_t i = 0; i < rows->size(); ++i)
      (*rows)[i] = {std::string(base::kMonthNames[i]), Money::fromTenThousandths(amount += 77777)};
  input.dayAmount = input.waterAmount = input.gasAmount = Money::fromTenThousandths(12345678);
  input.vatElectricity = input.vatGas = {"19", 19};
  input.vatWater = {"7", 7};
  return input;
}

void BuildOverview(benchmark::State& state) {
  const auto input = fullYear();
  for (auto _ : state) benchmark::DoNotOptimize(reports::buildOverview(input));
}
BENCHMARK(BuildOverview)->Unit(benchmark::kMicrosecond);

void BuildOverviewAndWritePage(benchmark::State& state) {
  const auto input = fullYear();
  const auto files = base::makeDiskFileSystem();
  const std::string path = "ReportBench.html";
  for (auto _ : state) {
    if (!reports::FlexGridHTML::write(reports::buildOverview(input), path, *files,
                                      reports::plainScreen()))
      state.SkipWithError("ReportBench.html cannot be written here");
  }
  std::remove(path.c_str());
}
BENCHMARK(BuildOverviewAndWritePage)->Unit(benchmark::kMicrosecond);

// Replaced whole and durable, as the command line writes it.
void BuildOverviewAndReplacePage(benchmark::State& state) {
  const auto input = fullYear();
  const auto files = base::makeDiskFileSystem();
  const std::string path = "ReportBench.html";
  for (auto _ : state)
    if (!reports::exportHtml(*files, path, input))
      state.SkipWithError("ReportBench.html cannot be written here");
  std::remove(path.c_str());
}
BENCHMARK(BuildOverviewAndReplacePage)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
