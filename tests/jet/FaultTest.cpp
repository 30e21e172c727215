#include <gmock/gmock.h>

#include "YearUnderTest.h"
#include "base/OpenOutcome.h"
#include "jet/Database.h"
#include "support/CrashFileSystem.h"
#include "support/FailingFileSystem.h"
#include "support/JetDump.h"
#include "support/MemoryFileSystem.h"

// Every call to the disk goes wrong in turn, once or for good: nothing crashes, the file holds the
// old or the new state, the message names the file, and what was reported as stored is stored.

namespace {

using base::ErrorCode;
using jet::Database;
using support::Fault;
using support::MemoryFileSystem;

const std::string kPath = "/daten/Verbrauch2024.kwd";

std::string dump(Database& database) {
  return support::dumpTables(database).value_or("unreadable");
}

std::string dumpFile(base::FileSystem& files) {
  auto database = Database::open(files, kPath);
  if (!database) return base::germanMessage(database.error());
  EXPECT_THAT(database->check(), testing::IsEmpty());
  return dump(*database);
}

struct Case {
  ErrorCode code;
  bool forGood;
  bool shortWrite;
  std::string file{};
};

const std::vector<Case> kCases = {
    {ErrorCode::NoSpace, false, true},      {ErrorCode::NoSpace, true, false},
    {ErrorCode::NoSpace, true, true},       {ErrorCode::AccessDenied, false, false},
    {ErrorCode::AccessDenied, true, false}, {ErrorCode::IoError, false, true},
    {ErrorCode::IoError, true, false},      {ErrorCode::IoError, true, true, kPath}};

class Faults : public testing::TestWithParam<std::size_t> {
 protected:
  Faults() { files_.put(kPath, year::file()); }

  const year::Action& action() const { return year::scenarios()[GetParam()].actions.front(); }

  void prepareDumps() {
    before_ = dumpFile(files_);
    MemoryFileSystem changed(files_.contents());
    auto database = Database::open(changed, kPath);
    ASSERT_TRUE(database && year::transact(*database, action()));
    after_ = dump(*database);
    ASSERT_NE(before_, after_);
  }
  static void expectNamed(const base::Error& error, const std::string& where) {
    EXPECT_THAT(error.file, testing::AnyOf(kPath, "/daten/")) << where;
  }
  // The commit was refused or cut short; false when the fault's turn had not come any more.
  bool commitWith(const Fault& fault, const std::string& where) {
    MemoryFileSystem disk(files_.contents());
    support::FailingFileSystem failing(disk);
    bool stored = false, refused = false;
    {
      auto database = Database::open(failing, kPath);
      EXPECT_TRUE(database);
      failing.arm(fault);
      const auto done = year::transact(*database, action());
      if (!failing.struck()) return false;
      failing.disarm();
      stored = done.has_value();
      if (!done) expectNamed(done.error(), where);
      if (database->needsReopen()) {
        EXPECT_FALSE(stored) << where;
        EXPECT_FALSE(database->begin()) << where;
        refused = !base::outcomeIsOpen(done.error());
        EXPECT_EQ(dump(*database), refused ? before_ : after_) << where;
        // The journal is sound: the disk can still tell what was said.
        EXPECT_TRUE(refused || fault.file.empty()) << where;
        takenBack_ += refused;
      } else {
        EXPECT_EQ(dump(*database), stored ? after_ : before_) << where;
        EXPECT_TRUE(year::transact(*database, action())) << where;
        stored = true;
      }
    }
    const std::string left = dumpFile(disk);
    EXPECT_THAT(left, testing::AnyOf(before_, after_)) << where;
    if (stored || refused) {
      EXPECT_EQ(left, stored ? after_ : before_) << where;
    }
    return true;
  }

  MemoryFileSystem files_;
  std::string before_;
  std::string after_;
  int takenBack_ = 0;
};

TEST_P(Faults, OfACommitLeaveTheOldOrTheNewState) {
  prepareDumps();
  for (const Case& fault : kCases) {
    for (std::size_t call = 0;; ++call) {
      const std::string where = "call " + std::to_string(call) + ", error " +
                                std::to_string(static_cast<int>(fault.code)) +
                                (fault.forGood ? " for good" : " once") +
                                (fault.shortWrite ? ", short write" : "");
      if (!commitWith({call, fault.forGood, fault.code, fault.shortWrite, fault.file}, where))
        break;
      ASSERT_LT(call, 1000U);
    }
  }
  EXPECT_GT(takenBack_, 0);
}

std::string nameOf(const testing::TestParamInfo<std::size_t>& scenario) {
  return year::scenarios()[scenario.param].name;
}
INSTANTIATE_TEST_SUITE_P(Scenarios, Faults,
                         testing::Range(std::size_t{0}, year::scenarios().size()), nameOf);

TEST(OpeningFaults, GiveAnErrorOrASoundFileAndNeverWrite) {
  MemoryFileSystem disk({{kPath, year::file()}});
  const auto contents = disk.contents();
  const std::string whole = dumpFile(disk);
  for (const Case& fault : kCases) {
    for (std::size_t call = 0;; ++call) {
      support::FailingFileSystem failing(disk);
      failing.arm({call, fault.forGood, fault.code, fault.shortWrite, fault.file});
      auto database = Database::open(failing, kPath);
      if (!failing.struck()) break;
      if (database) {
        failing.disarm();
        EXPECT_EQ(dump(*database), whole) << call;
      } else {
        EXPECT_THAT(base::germanMessage(database.error()), testing::HasSubstr(kPath)) << call;
      }
      EXPECT_EQ(disk.contents(), contents) << call;
      ASSERT_LT(call, 1000U);
    }
  }
}

// A transaction waits in the journal and the disk fails while it is completed: whoever gets to see
// the file sees the transaction, and in the end it is there.
TEST(OpeningFaults, OfARecoveryNeverLoseTheWaitingTransaction) {
  support::CrashFileSystem power({{kPath, year::file()}});
  std::string after;
  {
    auto database = Database::open(power, kPath);
    ASSERT_TRUE(database);
    ASSERT_TRUE(year::transact(*database, year::scenarios()[4].actions.front()));
    after = dump(*database);
  }
  // The journal and its name have just become durable: the last moment before pages are written.
  MemoryFileSystem::Contents waiting;
  for (std::size_t moment = 0; waiting.empty(); ++moment) {
    const auto left = power.survivor(
        moment, [](std::size_t) { return support::CrashFileSystem::Fate::Drop; }, 0, 0);
    MemoryFileSystem files(left);
    if (left.size() == 2 && dumpFile(files) == after) waiting = left;
  }
  for (const Case& fault : kCases) {
    for (std::size_t call = 0;; ++call) {
      MemoryFileSystem disk(waiting);
      support::FailingFileSystem failing(disk);
      failing.arm({call, fault.forGood, fault.code, fault.shortWrite, fault.file});
      auto database = Database::open(failing, kPath);
      if (!failing.struck()) break;
      failing.disarm();
      if (database) {
        EXPECT_EQ(dump(*database), after) << call;
      } else {
        EXPECT_THAT(base::germanMessage(database.error()), testing::HasSubstr(kPath)) << call;
      }
      database = base::fail(ErrorCode::Cancelled, "");
      EXPECT_EQ(dumpFile(disk), after) << call;
      ASSERT_LT(call, 1000U);
    }
  }
}

// Reading on while the disk goes away: an error that names the file, never fewer rows.
TEST(ReadingFaults, GiveAnErrorOrEveryRow) {
  MemoryFileSystem disk({{kPath, year::file()}});
  const std::string whole = dumpFile(disk);
  support::FailingFileSystem failing(disk);
  for (std::size_t call = 0;; ++call) {
    auto database = Database::open(failing, kPath);
    ASSERT_TRUE(database);
    failing.arm({call, call % 2 == 0, ErrorCode::IoError, false});
    const auto text = support::dumpTables(*database);
    const bool struck = failing.struck();
    failing.disarm();
    if (text) {
      EXPECT_EQ(*text, whole) << call;
    } else {
      EXPECT_THAT(base::germanMessage(text.error()), testing::HasSubstr(kPath)) << call;
    }
    if (!struck) break;
  }
}

}  // namespace
