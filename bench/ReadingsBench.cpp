// What a household waits for when it enters readings or a price: twelve readings taken over, and a
// price change that prices twelve months anew, stored and summed up, against the two syncs that no
// stored change can do without. Environment: KALVIRA_YEAR (a year file; a copy is edited).

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

#include "readings/MeterReading.h"
#include "readings/UnitPrices.h"

namespace {

constexpr const char* kCopy = "./readings-bench.kwd";

void bareTwoSyncs(benchmark::State& state) {
  constexpr std::size_t kPage = 4096;
  const auto files = base::makeDiskFileSystem();
  auto journal = files->open("readings-bench.a", base::OpenMode::Create);
  auto data = files->open("readings-bench.b", base::OpenMode::Create);
  if (!journal || !data) return state.SkipWithError("no files");
  base::Bytes page(kPage, 7);
  for (auto _ : state) {
    ++page[9];
    const bool written = (*journal)->writeAt(0, page) && (*journal)->sync() &&
                         (*data)->writeAt(0, page) && (*data)->sync();
    if (!written) return state.SkipWithError("not written");
  }
}

// Runs the edit on a copy of the year; it is told how often it ran.
template <class Edit>
void editYear(benchmark::State& state, const std::string& original, Edit edit) {
  const auto files = base::makeDiskFileSystem();
  if (!files->copyFile(original, kCopy)) return state.SkipWithError("no copy");
  const base::SystemClock clock;
  auto year = yearbook::YearSession::open(*files, kCopy, "./", clock);
  if (!year) return state.SkipWithError("the year could not be opened");
  int run = 0;
  for (auto _ : state)
    if (!edit(**year, ++run)) return state.SkipWithError("not stored");
}

void takeOver(benchmark::State& state, const std::string& original) {
  editYear(state, original, [](yearbook::YearSession& year, int run) {
    yearbook::PerMonth<double> readings{};
    for (int k = 0; k < yearbook::kMonths; ++k)
      readings[static_cast<std::size_t>(k)] = 50000 + run + 250.0 * k;
    return readings::takeOver(year, readings::kDayMeter, readings, {});
  });
}

void monthlyPrice(benchmark::State& state, const std::string& original) {
  editYear(state, original, [](yearbook::YearSession& year, int run) {
    readings::MonthTicks all;
    all.fill(true);
    return readings::storePrices(year, readings::kDayPrice, all, 20 + run % 1000 * 0.01);
  });
}

void priceField(benchmark::State& state, const std::string& original) {
  editYear(state, original, [](yearbook::YearSession& year, int run) {
    return year.storeDayPrice(20 + run % 1000 * 0.01);
  });
}

}  // namespace

int main(int argc, char** argv) {
  const char* path = std::getenv("KALVIRA_YEAR");
  const std::string year = path ? path : "";
  const auto timed = [](benchmark::internal::Benchmark* bench) {
    bench->MinTime(2)->UseRealTime()->Unit(benchmark::kMillisecond);
  };
  timed(benchmark::RegisterBenchmark("bare two syncs", bareTwoSyncs));
  timed(benchmark::RegisterBenchmark("twelve readings taken over", takeOver, year));
  timed(benchmark::RegisterBenchmark("twelve months priced anew", monthlyPrice, year));
  timed(benchmark::RegisterBenchmark("price field of the main window", priceField, year));
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
