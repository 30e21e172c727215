#include <gmock/gmock.h>

#include "YearUnderTest.h"
#include "base/OpenOutcome.h"
#include "jet/Database.h"
#include "support/CrashSweep.h"
#include "support/FailingFileSystem.h"
#include "support/JetDump.h"

// The power fails at every moment of a commit, and what was not yet on the medium survives, is
// lost, torn or turned to rubble. Whatever is left, opening the year again finds the state before a
// transaction or after it, byte for byte, and no transaction is lost whose commit had returned.

namespace {

using base::Bytes;
using jet::Database;
using support::CrashPoint;
using support::MemoryFileSystem;

const std::string kPath = "/daten/Verbrauch2024.kwd";
// Random mixtures of fates at each moment.
constexpr std::size_t kMixtures = 200;

// The file after each transaction, the first before any.
struct History {
  std::vector<Bytes> states;
  std::vector<std::size_t> moments;  // from this moment on the state must not be lost
};

class CrashSafety : public testing::TestWithParam<std::size_t> {
 protected:
  const year::Scenario& scenario() const { return year::scenarios()[GetParam()]; }

  static MemoryFileSystem::Contents start() {
    static const Bytes kYear = year::file();
    return {{kPath, kYear}};
  }

  History run(support::CrashFileSystem& disk) {
    History history;
    auto database = Database::open(disk, kPath);
    EXPECT_TRUE(database) << base::germanMessage(database.error());
    history.states.push_back(start().at(kPath));
    history.moments.push_back(0);
    for (const year::Action& action : scenario().actions) {
      const auto done = year::transact(*database, action);
      EXPECT_TRUE(done) << base::germanMessage(done.error());
      history.moments.push_back(disk.moments() - 1);
      history.states.push_back(bytesOf(disk));
    }
    return history;
  }
  // The file as the running program sees it: what survives when everything is kept.
  static Bytes bytesOf(const support::CrashFileSystem& disk) {
    return disk
        .survivor(
            disk.moments() - 1, [](std::size_t) { return support::CrashFileSystem::Fate::Keep; },
            99, 0)
        .at(kPath);
  }
  static std::string dump(base::FileSystem& files) {
    auto database = Database::open(files, kPath, {.readOnly = true});
    if (!database) return base::germanMessage(database.error());
    std::string text = support::dumpTables(*database).value_or("unreadable");
    for (const jet::Finding& finding : database->check())
      text += "\n" + base::germanMessage(finding.error);
    return text;
  }
  // Opening must find one of the states that are possible at this moment.
  static void verify(const CrashPoint& point, const History& history) {
    MemoryFileSystem files(point.contents);
    {
      const auto database = Database::open(files, kPath);
      ASSERT_TRUE(database) << point.label << base::germanMessage(database.error());
    }
    const Bytes found = files.get(kPath);
    std::size_t oldest = 0;
    while (oldest + 1 < history.moments.size() && history.moments[oldest + 1] <= point.moment)
      ++oldest;
    const bool old = found == history.states[oldest];
    const bool next = oldest + 1 < history.states.size() && found == history.states[oldest + 1];
    ASSERT_TRUE(old || next) << point.label << ": neither state " << oldest << " nor the next";
  }
};

TEST_P(CrashSafety, EveryStateIsSound) {
  support::CrashFileSystem disk(start());
  const History history = run(disk);
  std::vector<std::string> dumps;
  for (const Bytes& state : history.states) {
    MemoryFileSystem files({{kPath, state}});
    auto database = Database::open(files, kPath, {.readOnly = true});
    ASSERT_TRUE(database);
    EXPECT_THAT(database->check(), testing::IsEmpty());
    dumps.push_back(dump(files));
    EXPECT_THAT(dumps, testing::Each(testing::HasSubstr("Strom")));
  }
  for (std::size_t i = 1; i < dumps.size(); ++i) EXPECT_NE(dumps[i], dumps[i - 1]);
}

TEST_P(CrashSafety, CommitLeavesTheOldOrTheNewState) {
  support::CrashFileSystem disk(start());
  const History history = run(disk);
  const std::size_t points = support::sweepCrashes(
      disk, kMixtures, [&](const CrashPoint& point) { verify(point, history); });
  RecordProperty("points", static_cast<int>(points));
  EXPECT_GT(points, 500U);
}

// Recovery itself is cut short, at every moment, and started again.
TEST_P(CrashSafety, RecoveryCanBeCutShortToo) {
  support::CrashFileSystem disk(start());
  const History history = run(disk);
  std::size_t points = 0;
  std::size_t recoveries = 0;
  support::sweepCrashes(disk, 2, [&](const CrashPoint& point) {
    support::CrashFileSystem again(point.contents);
    { ASSERT_TRUE(Database::open(again, kPath)) << point.label; }
    if (again.moments() < 3 || ++recoveries % 4 != 0) return;  // nothing was written, or enough
    points += support::sweepCrashes(again, 4, [&](const CrashPoint& second) {
      CrashPoint both = second;
      both.moment = point.moment;
      both.label = point.label + ", then " + second.label;
      verify(both, history);
    });
  });
  RecordProperty("points", static_cast<int>(points));
  EXPECT_GT(points, 50U);
}

// A reader who may not write sees the waiting transaction as if it were in place.
TEST_P(CrashSafety, ReadersSeeWhatRecoveryWouldWrite) {
  support::CrashFileSystem disk(start());
  const History history = run(disk);
  std::vector<std::string> dumps;
  for (const Bytes& state : history.states) {
    MemoryFileSystem files({{kPath, state}});
    dumps.push_back(dump(files));
  }
  support::sweepCrashes(disk, 2, [&](const CrashPoint& point) {
    MemoryFileSystem files(point.contents);
    ASSERT_THAT(dumps, testing::Contains(dump(files))) << point.label;
    ASSERT_EQ(files.contents(), point.contents) << point.label;
  });
}

// The commit fails half-way (the disk is full, a cable is loose), and then the power fails too.
// Once the user was told that nothing was stored, nothing may come back.
TEST_P(CrashSafety, AFailedCommitBeforeTheCrashDoesNoHarmEither) {
  support::CrashFileSystem whole(start());
  const Bytes after = run(whole).states[1];
  // Of any file, or of a bad spot in the year alone.
  for (const std::string& file : {std::string(), kPath}) {
    for (std::size_t call = 0;; ++call) {
      support::CrashFileSystem disk(start());
      support::FailingFileSystem failing(disk);
      const History possible{{start().at(kPath), after}, {0}};
      const History refused{{start().at(kPath)}, {0}};
      std::size_t refusedFrom = SIZE_MAX;
      {
        auto database = Database::open(failing, kPath);
        ASSERT_TRUE(database);
        failing.arm({call, call % 2 == 0, base::ErrorCode::NoSpace, call % 3 == 0, file});
        const auto done = year::transact(*database, scenario().actions.front());
        if (!failing.struck()) break;
        if (!done && !base::outcomeIsOpen(done.error())) refusedFrom = disk.moments() - 1;
        failing.disarm();
      }
      support::sweepCrashes(disk, 2, [&](const CrashPoint& point) {
        verify(point, point.moment >= refusedFrom ? refused : possible);
      });
    }
  }
}

std::string nameOf(const testing::TestParamInfo<std::size_t>& scenario) {
  return year::scenarios()[scenario.param].name;
}

INSTANTIATE_TEST_SUITE_P(Scenarios, CrashSafety,
                         testing::Range(std::size_t{0}, year::scenarios().size()), nameOf);

}  // namespace
