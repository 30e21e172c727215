#include "app/SampleCopy.h"

#include <gtest/gtest.h>

#include "SampleYear.h"
#include "support/EmptyYear.h"
#include "support/MemoryFileSystem.h"

namespace {

constexpr char kProgram[] = "/programm/";
constexpr char kData[] = "/daten/";
constexpr char kCopy[] = "/daten/Beispiel/Beispiel 2025.kwd";

struct SampleCopy : testing::Test {
  SampleCopy() {
    EXPECT_TRUE(disk.makeFolder("/programm/beispiel"));
    EXPECT_TRUE(sample::makeBoth(disk, "/programm/beispiel/", support::emptyYear()));
  }
  base::Result<std::string> provide() { return app::provideSample(disk, kProgram, kData); }

  support::MemoryFileSystem disk{{{"/programm/x", {}}, {"/daten/Verbrauch2025.kwd", {7}}}};
};

TEST_F(SampleCopy, IsAYearOfItsOwnWithItsSideFiles) {
  EXPECT_EQ(provide(), kCopy);
  const base::FixedClock clock(std::chrono::year(2026) / 1 / 1);
  const auto year = yearbook::YearSession::open(disk, kCopy, "/daten/Beispiel/", clock);
  ASSERT_TRUE(year);
  EXPECT_EQ((*year)->values().startReadings[yearbook::Meter::Day],
            sample::year2025().start[yearbook::Meter::Day]);
  const base::Bytes change = disk.get("/daten/Beispiel/Beispiel 2025_WechselStrom.dat");
  EXPECT_FALSE(change.empty());
  EXPECT_EQ(change, disk.get("/programm/beispiel/Verbrauch2025_WechselStrom.dat"));
  EXPECT_TRUE(disk.exists("/daten/Beispiel/Beispiel 2024.kwd"));
  EXPECT_EQ(disk.get("/daten/Verbrauch2025.kwd"), base::Bytes{7}) << "the household's own year";
}

TEST_F(SampleCopy, WhatWasTriedInItStays) {
  ASSERT_TRUE(provide());
  disk.put(kCopy, base::asBytes("ausprobiert"));
  ASSERT_TRUE(disk.remove("/daten/Beispiel/Beispiel 2025_WechselStrom.dat"));
  ASSERT_TRUE(disk.remove("/daten/Beispiel/Beispiel 2024.kwd"));
  EXPECT_EQ(provide(), kCopy);
  EXPECT_EQ(disk.readText(kCopy), "ausprobiert");
  EXPECT_FALSE(disk.exists("/daten/Beispiel/Beispiel 2025_WechselStrom.dat"))
      << "a change that was deleted does not come back";
  EXPECT_TRUE(disk.exists("/daten/Beispiel/Beispiel 2024.kwd")) << "a year that is gone does";
}

TEST_F(SampleCopy, AMissingSampleIsSaidAndLeavesNoHalf) {
  ASSERT_TRUE(disk.remove("/programm/beispiel/Verbrauch2025.kwd"));
  const auto outcome = provide();
  ASSERT_FALSE(outcome);
  EXPECT_EQ(outcome.error().code, base::ErrorCode::NotFound);
  EXPECT_FALSE(disk.exists(kCopy));
}

TEST(SampleName, IsTheFolderAndTheName) {
  EXPECT_TRUE(app::isSample(kCopy));
  EXPECT_FALSE(app::isSample("/daten/Verbrauch2025.kwd"));
  EXPECT_FALSE(app::isSample("/daten/Beispiel 2025.kwd"));
  EXPECT_FALSE(app::isSample("/daten/Beispiel/Verbrauch2025.kwd"));
  EXPECT_FALSE(app::isSample("/daten/MeinBeispiel/Beispiel 2025.kwd"));
}

}  // namespace
