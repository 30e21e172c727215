#pragma once

#include <gmock/gmock.h>

#include "SampleYear.h"
#include "support/EmptyYear.h"
#include "support/FailingFileSystem.h"
#include "support/MemoryFileSystem.h"
#include "yearbook/YearSession.h"

// Years on a disk in memory: an empty one, the sample household's, and what they hold when they
// are opened again.
class YearFixture : public testing::Test {
 protected:
  static constexpr const char* kFolder = "/daten/";
  static constexpr const char* kEmpty = "/daten/Verbrauch.kwd";
  static constexpr const char* kSample = "/daten/Verbrauch2025.kwd";

  YearFixture() { disk.put(kEmpty, support::emptyYear()); }

  void makeSample() { ASSERT_TRUE(sample::makeBoth(disk, kFolder, support::emptyYear())); }

  std::unique_ptr<yearbook::YearSession> open(const std::string& path) {
    auto session = yearbook::YearSession::open(files, path, kFolder, clock);
    if (session) return std::move(*session);
    ADD_FAILURE() << base::germanMessage(session.error());
    return nullptr;
  }

  // Writes into a year as another program would: what follows from it is left as it was.
  void overwrite(const std::string& path, const yearbook::YearSession::Edit& edit) {
    auto database = jet::Database::open(files, path);
    ASSERT_TRUE(database);
    auto rows = yearbook::YearRows::open(*database);
    ASSERT_TRUE(rows);
    ASSERT_TRUE(done(database->begin()) && done(edit(*rows)) && done(database->commit()));
  }

  // Fails the test with the message of a failure.
  static bool done(const base::Result<void>& result) {
    EXPECT_TRUE(result.has_value()) << base::germanMessage(result.error());
    return result.has_value();
  }

  support::MemoryFileSystem disk{{{std::string(kFolder) + "leer", {}}}};
  support::FailingFileSystem files{disk};
  base::FixedClock clock{
      base::Date{std::chrono::year(2025), std::chrono::month(11), std::chrono::day(14)}};
};
