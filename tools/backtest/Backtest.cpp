#include "Backtest.h"

#include <cmath>
#include <numeric>

#include "base/GermanDate.h"
#include "base/GermanNumber.h"
#include "yearbook/Season.h"

namespace made {
namespace {

using analysis::Course;
using analysis::kMonths;
using analysis::Meter;

double sumOf(const Course& course, int from, int to) {
  return std::accumulate(course.months.begin() + from, course.months.begin() + to, 0.0);
}

double expected(Way way, Meter meter, const Course& year, int read,
                const std::vector<Course>& earlier) {
  const double soFar = sumOf(year, 0, read);
  switch (way) {
    case Way::Forecast:
      return analysis::outlookOf(meter, year, read, earlier)->year;
    case Way::EvenDays: {
      const base::Date first = year.first / std::chrono::day(1);
      const auto end = year.first + std::chrono::months(read);
      return soFar / base::daysBetween(first, end / std::chrono::day(1)) * 365;
    }
    case Way::LastYear:
      return soFar + sumOf(earlier.back(), read, kMonths);
    case Way::Table:
      break;
  }
  const auto usual = analysis::usualShares(meter, year.first);
  return soFar / std::accumulate(usual.begin(), usual.begin() + read, 0.0);
}

void add(MeterErrors& errors, Meter meter, const Household& household) {
  for (int y = 1; y < kYears; ++y) {
    const auto& courses = household.courses[meter];
    const std::vector<Course> earlier(courses.begin(), courses.begin() + y);
    const Course& year = courses[static_cast<std::size_t>(y)];
    for (int read = 1; read <= kMonths; ++read) {
      for (const Way way : kWays)
        errors.byMonth[static_cast<std::size_t>(way)][read - 1] +=
            100 * std::fabs(expected(way, meter, year, read, earlier) / year.total() - 1);
      const auto outlook = analysis::outlookOf(meter, year, read, earlier);
      if (read < kMonths && outlook->low <= year.total() && year.total() <= outlook->high)
        errors.covered += 1;
    }
  }
}

}  // namespace

double MeterErrors::mean(Way way) const {
  const auto& months = byMonth[static_cast<std::size_t>(way)];
  return std::accumulate(months.begin(), months.end(), 0.0) / kMonths;
}

yearbook::PerMeter<MeterErrors> backtest(const std::vector<Household>& households) {
  yearbook::PerMeter<MeterErrors> errors;
  const double years = static_cast<double>(households.size()) * (kYears - 1);
  for (const Meter meter : yearbook::kMeters) {
    for (const Household& household : households) add(errors[meter], meter, household);
    for (auto& way : errors[meter].byMonth)
      for (double& month : way) month /= years;
    errors[meter].covered /= years * (kMonths - 1);
  }
  return errors;
}

std::string asTable(const yearbook::PerMeter<MeterErrors>& errors) {
  constexpr std::array kNames = {"Prognose", "Tage × 365", "Vorjahr", "Tabelle"};
  std::string text = "| Zähler | Verfahren |";
  std::string rule = "|---|---|";
  for (const auto month : base::kMonthNames) {
    text += ' ' + std::string(month.substr(0, month.starts_with("M\xC3") ? 4 : 3)) + " |";
    rule += "---:|";
  }
  text += " Mittel |\n" + rule + "---:|\n";
  for (const Meter meter : yearbook::kMeters) {
    for (const Way way : kWays) {
      const auto name = std::string(kNames[static_cast<std::size_t>(way)]);
      text += "| " + std::string(factsOf(meter).name) + " | " + name + " |";
      for (int month = 0; month < kMonths; ++month)
        text += ' ' + base::formatNumber(errors[meter].at(way, month), 1) + " |";
      text += ' ' + base::formatNumber(errors[meter].mean(way), 2) + " |\n";
    }
  }
  return text;
}

}  // namespace made
