#pragma once

#include <gtest/gtest.h>

#include "jet/Database.h"
#include "support/CrashFileSystem.h"
#include "support/EmptyYear.h"

// A year in which the remark of a month is changed, on a disk whose power can fail at any moment.
class MidChange {
 public:
  using Contents = support::MemoryFileSystem::Contents;
  static constexpr const char* kRemark = "abgelesen am Abend";

  explicit MidChange(const std::string& path) : crash_({{path, support::emptyYear()}}) {
    auto database = jet::Database::open(crash_, path);
    auto table = database->openTable("Strom");
    EXPECT_TRUE(database->begin());
    EXPECT_TRUE(table->set(5, *table->columnIndex("Anmerkungen"), std::string(kRemark)));
    EXPECT_TRUE(database->commit());
  }
  std::size_t moments() const { return crash_.moments(); }
  Contents leftAt(std::size_t moment) const {
    return crash_.survivor(
        moment, [](std::size_t) { return support::CrashFileSystem::Fate::Tear; }, 9, moment);
  }

 private:
  support::CrashFileSystem crash_;
};
