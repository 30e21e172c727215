#pragma once

#include <gmock/gmock.h>

#include "SampleYear.h"
#include "analysis/Year.h"
#include "support/EmptyYear.h"
#include "support/MemoryFileSystem.h"
#include "yearbook/YearSession.h"

// The sample household's two years in "/daten/", and what can be done to them.
class HouseholdFixture : public testing::Test {
 protected:
  using Meter = yearbook::Meter;
  using Utility = yearbook::Utility;

  HouseholdFixture() { EXPECT_TRUE(sample::makeBoth(disk, "/daten/", support::emptyYear())); }

  static std::string pathOf(const std::string& name) { return "/daten/" + name; }
  void copy(const std::string& from, const std::string& to) {
    disk.put(pathOf(to), disk.get(pathOf(from)));
  }
  void edit(const std::string& name, const yearbook::YearSession::Edit& edit) {
    auto session = yearbook::YearSession::open(disk, pathOf(name), "/daten/", clock);
    ASSERT_TRUE(session);
    const auto done = (*session)->transact({}, edit);
    ASSERT_TRUE(done) << base::germanMessage(done.error());
  }
  // As if nothing had been read from that position on.
  void endAt(const std::string& name, int months) {
    edit(name, [months](yearbook::YearRows& rows) -> base::Result<void> {
      for (const Meter meter : yearbook::kMeters) {
        const yearbook::MeterFacts& facts = factsOf(meter);
        for (int i = months; i < yearbook::kMonths; ++i)
          for (const yearbook::Field* field : {facts.reading, facts.consumption, facts.amount})
            if (auto set = rows.of(meter).setNumber(i, *field, 0); !set) return set;
      }
      return {};
    });
  }
  analysis::YearFolder folder() {
    auto folder = analysis::readFolder(disk, "/daten/");
    EXPECT_TRUE(folder);
    return folder ? std::move(*folder) : analysis::YearFolder();
  }
  const analysis::Year& yearNamed(const analysis::YearFolder& folder, std::string_view name) {
    for (const analysis::Year& year : folder.years)
      if (year.name == name) return year;
    ADD_FAILURE() << "no year " << name;
    return folder.years.front();
  }

  support::MemoryFileSystem disk{{{"/daten/leer", {}}}};
  base::FixedClock clock{std::chrono::year(2025) / 11 / 14};
};
