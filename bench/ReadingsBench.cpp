// What a household waits for when it enters readings or a price: twelve readings taken over, and a
// price change that prices twelve months anew, stored and summed up, against the two syncs that no
// stored change can do without.

#include <cstdio>

#include "Measure.h"
#include "readings/MeterReading.h"
#include "readings/UnitPrices.h"

namespace {

constexpr int kRounds = 101;

struct BareFiles {
  std::unique_ptr<base::File> journal, data;
  base::Bytes page = base::Bytes(4096, 7);

  bool writeTwice() {
    ++page[9];
    return journal->writeAt(0, page) && journal->sync() && data->writeAt(0, page) && data->sync();
  }
};

bool takeOver(yearbook::YearSession& year, int run) {
  yearbook::PerMonth<double> readings{};
  for (int k = 0; k < yearbook::kMonths; ++k) readings[k] = 50000 + run + 250.0 * k;
  return static_cast<bool>(readings::takeOver(year, yearbook::Meter::Day, readings, {}));
}

bool monthlyPrice(yearbook::YearSession& year, int run) {
  readings::MonthTicks all;
  all.fill(true);
  return static_cast<bool>(
      readings::storePrices(year, yearbook::Meter::Day, all, 20 + run % 1000 * 0.01));
}

bool priceField(yearbook::YearSession& year, int run) {
  return static_cast<bool>(year.storePrice(yearbook::Meter::Day, 20 + run % 1000 * 0.01));
}

}  // namespace

int main(int, char** argv) {
  const auto original = bench::beside(argv[0], "beispiel/Verbrauch2025.kwd");
  if (!original) return 1;
  const auto files = base::makeDiskFileSystem();
  const std::string copy = bench::scratch(argv[0], "readings-bench.kwd");
  const std::string paths[] = {bench::scratch(argv[0], "readings-bench.a"),
                               bench::scratch(argv[0], "readings-bench.b")};
  auto journal = files->open(paths[0], base::OpenMode::Create);
  auto data = files->open(paths[1], base::OpenMode::Create);
  if (!journal || !data || !files->copyFile(*original, copy)) {
    std::fprintf(stderr, "%s cannot be written\n", copy.c_str());
    return 1;
  }
  std::optional<std::vector<bench::Measured>> times;
  {
    BareFiles bare{std::move(*journal), std::move(*data)};
    const base::SystemClock clock;
    auto year = yearbook::YearSession::open(*files, copy, bench::scratch(argv[0], ""), clock);
    if (!year) return 1;
    int run = 0;
    times = bench::compare(
        {{"two bare syncs", [&] { return bare.writeTwice(); }},
         {"twelve readings taken over", [&] { return takeOver(**year, ++run); }},
         {"twelve months priced anew", [&] { return monthlyPrice(**year, ++run); }},
         {"price field of the main window", [&] { return priceField(**year, ++run); }}},
        kRounds);
  }
  for (const std::string& path : {copy, paths[0], paths[1]})
    base::ignore(files->remove(path), "a copy that stays is overwritten by the next run");
  if (!times) return 1;
  bench::sayRatio("twelve readings taken over to two bare syncs", times->at(1), times->at(0));
  bench::sayRatio("twelve months priced anew to two bare syncs", times->at(2), times->at(0));
  bench::sayRatio("a price stored to two bare syncs", times->at(3), times->at(0));
  return 0;
}
