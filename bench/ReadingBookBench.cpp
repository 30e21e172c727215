// A reading book of forty years with a reading of all five meters on every day: the file taken
// apart, and what its 480 months come to.

#include <benchmark/benchmark.h>

#include <algorithm>

#include "readingbook/DayEnds.h"

namespace {

using readingbook::Date;
using readingbook::ReadingBook;

constexpr int kYears = 40;
constexpr int kFirstYear = 1985;

const std::string& dailyBook() {
  static const std::string text = []() -> std::string {
    ReadingBook book;
    const std::chrono::sys_days first = std::chrono::year(kFirstYear) / 1 / 1;
    const std::chrono::sys_days last = std::chrono::year(kFirstYear + kYears) / 1 / 1;
    int count = 0;
    for (auto day = first; day < last; day += std::chrono::days(1), ++count)
      for (yearbook::Meter meter : yearbook::kMeters)
        if (!book.add(meter, {Date(day), (count * 7 + count % 5) * readingbook::kUnit})) return {};
    return book.text();
  }();
  return text;
}

std::vector<Date> monthEnds() {
  std::vector<Date> days;
  for (int month = 0; month < kYears * yearbook::kMonths; ++month)
    days.push_back(std::chrono::year(kFirstYear) / 1 / std::chrono::last);
  for (std::size_t month = 1; month < days.size(); ++month) {
    const auto next = std::chrono::year_month(days[month - 1].year(), days[month - 1].month()) +
                      std::chrono::months(1);
    days[month] = next / std::chrono::last;
  }
  return days;
}

void openedAndWorkedOut(benchmark::State& state) {
  const std::string& text = dailyBook();
  const std::vector<Date> days = monthEnds();
  for (auto _ : state) {
    const ReadingBook book = ReadingBook::fromText(text);
    for (yearbook::Meter meter : yearbook::kMeters) {
      const auto ends = dayEnds(book.of(meter), readingbook::spreadOf(meter), days);
      if (!ends.front() || !ends.back()) state.SkipWithError("months are missing");
      benchmark::DoNotOptimize(ends.data());
    }
  }
  state.counters["lines"] = static_cast<double>(std::count(text.begin(), text.end(), '\n'));
}
BENCHMARK(openedAndWorkedOut)->Unit(benchmark::kMillisecond);

void written(benchmark::State& state) {
  const ReadingBook book = ReadingBook::fromText(dailyBook());
  for (auto _ : state) benchmark::DoNotOptimize(book.text());
}
BENCHMARK(written)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
