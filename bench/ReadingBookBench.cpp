// A reading book of forty years with a reading of all five meters on every day: the file taken
// apart, and what its 480 months come to, against finding the same lines and taking one number out
// of each, the least that anybody does who opens it. The file as the book writes it, likewise.

#include <algorithm>
#include <charconv>
#include <cstdio>

#include "Measure.h"
#include "readingbook/DayEnds.h"

namespace {

using readingbook::Date;
using readingbook::ReadingBook;

constexpr int kYears = 40;
constexpr int kFirstYear = 1985;
constexpr int kRounds = 21;
constexpr double kWantedMilliseconds = 50;

std::string dailyBook() {
  ReadingBook book;
  const std::chrono::sys_days first = std::chrono::year(kFirstYear) / 1 / 1;
  const std::chrono::sys_days last = std::chrono::year(kFirstYear + kYears) / 1 / 1;
  int count = 0;
  for (auto day = first; day < last; day += std::chrono::days(1), ++count)
    for (yearbook::Meter meter : yearbook::kMeters)
      if (!book.add(meter, {Date(day), (count * 7 + count % 5) * readingbook::kUnit})) return {};
  return book.text();
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

bool openedAndWorkedOut(const std::string& text, const std::vector<Date>& days) {
  const ReadingBook book = ReadingBook::fromText(text);
  return std::all_of(
      yearbook::kMeters.begin(), yearbook::kMeters.end(), [&](yearbook::Meter meter) {
        const auto ends = dayEnds(book.of(meter), readingbook::spreadOf(meter), days);
        return ends.front() && ends.back();
      });
}

// The sum of the readings, each the third value of its line.
std::int64_t numbersAlone(std::string_view text) {
  std::int64_t sum = 0;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    std::int64_t reading = 0;
    const std::size_t second = line.find(',', line.find(',') + 1) + 1;
    std::from_chars(line.data() + second, line.data() + line.size(), reading);
    sum += reading;
  }
  return sum;
}

}  // namespace

int main() {
  const std::string text = dailyBook();
  const std::vector<Date> days = monthEnds();
  const ReadingBook book = ReadingBook::fromText(text);
  const std::int64_t sum = numbersAlone(text);
  if (text.empty() || !book.kept().empty() || sum == 0) return 1;
  std::printf("%ld lines\n", std::count(text.begin(), text.end(), '\n'));
  const auto times =
      bench::compare({{"one number a line", [&] { return numbersAlone(text) == sum; }},
                      {"opened and worked out", [&] { return openedAndWorkedOut(text, days); }},
                      {"written", [&] { return book.text() == text; }}},
                     kRounds);
  if (!times) return 1;
  bench::sayRatio("forty years of daily readings opened to one number a line", times->at(1),
                  times->at(0));
  bench::sayRatio("forty years of daily readings opened to what may be noticed", times->at(1),
                  {kWantedMilliseconds}, 1);
  return 0;
}
