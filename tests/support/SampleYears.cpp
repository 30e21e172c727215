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

const support::MemoryFileSystem::Contents& sampleFolder() {
  static const support::MemoryFileSystem::Contents contents = [] {
    support::MemoryFileSystem disk;
    disk.put("/daten/Verbrauch.kwd", support::emptyYear());
    EXPECT_TRUE(makeBoth(disk, kFolder, support::emptyYear()));
    return disk.contents();
  }();
  return contents;
}

reports::OverviewInput overviewOf(const std::string& name) {
  support::MemoryFileSystem disk;
  return reports::overviewInput(*openYear(disk, name));
}
reports::DetailInput detailOf(const std::string& name) {
  support::MemoryFileSystem disk;
  return reports::detailInput(*openYear(disk, name), kClock.today());
}

}  // namespace

std::unique_ptr<yearbook::YearSession> openYear(support::MemoryFileSystem& disk,
                                                const std::string& name) {
  for (const auto& [path, bytes] : sampleFolder()) disk.put(path, bytes);
  auto year = yearbook::YearSession::open(disk, kFolder + name, kFolder, kClock);
  EXPECT_TRUE(year) << name;
  return std::move(*year);
}

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
  support::MemoryFileSystem disk;
  const auto year = openYear(disk, "Verbrauch2025.kwd");
  EXPECT_TRUE(year->storeFreeKwh(1500));
  EXPECT_TRUE(year->storeFlatRate(true));
  return reports::overviewInput(*year);
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
