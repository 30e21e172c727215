#include "support/SampleYears.h"

#include <gtest/gtest.h>

#include "SampleYear.h"
#include "reports/YearReport.h"
#include "support/EmptyYear.h"
#include "support/MemoryFileSystem.h"

namespace sample {
namespace {

constexpr char kFolder[] = "/daten/";
const base::FixedClock kClock(std::chrono::year(2026) / 11 / 14);

std::unique_ptr<yearbook::YearSession> openYear(const std::string& name) {
  static support::MemoryFileSystem files = [] {
    support::MemoryFileSystem disk;
    disk.put("/daten/Verbrauch.kwd", support::emptyYear());
    EXPECT_TRUE(makeBoth(disk, kFolder, support::emptyYear()));
    return disk;
  }();
  auto year = yearbook::YearSession::open(files, kFolder + name, kFolder, kClock);
  EXPECT_TRUE(year) << name;
  return std::move(*year);
}

reports::OverviewInput overviewOf(const std::string& name) {
  return reports::overviewInput(*openYear(name));
}
reports::DetailInput detailOf(const std::string& name) {
  return reports::detailInput(*openYear(name), kClock.today());
}

}  // namespace

reports::OverviewInput overview2024() {
  return overviewOf("Verbrauch2024.kwd");
}
reports::OverviewInput overview2025() {
  return overviewOf("Verbrauch2025.kwd");
}
reports::OverviewInput overviewFresh() {
  return overviewOf("Verbrauch.kwd");
}

reports::OverviewInput overviewFlatRate() {
  const auto year = openYear("Verbrauch2025.kwd");
  EXPECT_TRUE(year->storeFreeKwh(1500));
  year->setFlatRate(true);
  reports::OverviewInput input = reports::overviewInput(*year);
  EXPECT_TRUE(year->storeFreeKwh({}));
  return input;
}

reports::DetailInput detail2024() {
  return detailOf("Verbrauch2024.kwd");
}
reports::DetailInput detail2025() {
  return detailOf("Verbrauch2025.kwd");
}
reports::DetailInput detailFresh() {
  return detailOf("Verbrauch.kwd");
}

}  // namespace sample
