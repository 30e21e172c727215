#ifndef _WIN32

#include <fcntl.h>
#include <gmock/gmock.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <random>

#include "YearUnderTest.h"
#include "base/File.h"
#include "jet/Database.h"
#include "support/TemporaryFolder.h"

// Real processes on the real disk: one that is killed while it edits, several that want the same
// file.

namespace {

using jet::Database;
using jet::Value;

std::string remark(int round) {
  return std::string(static_cast<std::size_t>(round * 37 % 256), 'a');
}

// One transaction over all rows that touches numbers, growing texts and keys.
base::Result<void> writeRound(Database& database, int round) {
  return year::transact(database, [round](jet::RecordSet& rows) -> base::Result<void> {
    for (std::size_t row = 0; row < rows.count(); ++row) {
      auto done = year::set(rows, row, "VTagStrom", static_cast<double>(round));
      if (done) done = year::set(rows, row, "Anmerkungen", remark(round));
      const std::size_t month = (row + static_cast<std::size_t>(round)) % 12;
      if (done) done = year::set(rows, row, "Monat", std::string(year::kMonths[month]));
      if (!done) return done;
    }
    return {};
  });
}

// The round that all rows agree on; -1 when they do not.
int roundIn(Database& database) {
  auto rows = database.openTable("Strom");
  if (!rows || rows->count() != 12) return -1;
  const auto first = rows->value(0, *rows->columnIndex("VTagStrom"));
  const int round = static_cast<int>(std::get<double>(first.value_or(Value(-1.0))));
  for (std::size_t row = 0; row < 12; ++row) {
    const std::string month = year::kMonths[(row + static_cast<std::size_t>(round)) % 12];
    const bool same =
        rows->value(row, *rows->columnIndex("VTagStrom")) == Value(static_cast<double>(round)) &&
        rows->value(row, *rows->columnIndex("Anmerkungen")) == Value(remark(round)) &&
        rows->value(row, *rows->columnIndex("Monat")) == Value(month);
    if (!same) return -1;
  }
  return round;
}

class Processes : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(files_->replaceFile(path_, year::file())); }

  // Edits until it is killed, and tells over the pipe which rounds are stored.
  [[noreturn]] void editForEver(int start, int pipe) {
    auto database = Database::open(*files_, path_);
    for (int round = start; database; ++round) {
      if (!writeRound(*database, round)) break;
      if (::write(pipe, &round, sizeof(round)) != sizeof(round)) break;
    }
    ::_exit(1);
  }

  support::TemporaryFolder folder_;
  std::unique_ptr<base::FileSystem> files_ = base::makeDiskFileSystem();
  std::string path_ = folder_ / "Verbrauch2024.kwd";
};

TEST_F(Processes, KilledAtAnyMomentTheEditedFileIsWholeAndNothingStoredIsLost) {
  constexpr int kKills = 300;
  std::mt19937 random(7);
  int stored = 0;
  {
    auto database = Database::open(*files_, path_);
    ASSERT_TRUE(database && writeRound(*database, stored));
  }
  for (int kill = 0; kill < kKills; ++kill) {
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    const pid_t child = ::fork();
    if (child == 0) editForEver(stored + 1, pipe[1]);
    ::close(pipe[1]);
    // Once it edits, at a random moment.
    pollfd ready{pipe[0], POLLIN, 0};
    ASSERT_EQ(::poll(&ready, 1, 20000), 1);
    ::usleep(random() % 4000);
    ::kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    int told = stored;
    for (int round = 0; ::read(pipe[0], &round, sizeof(round)) == sizeof(round);) told = round;
    ::close(pipe[0]);

    auto database = Database::open(*files_, path_);
    ASSERT_TRUE(database) << base::germanMessage(database.error());
    stored = roundIn(*database);
    ASSERT_TRUE(stored == told || stored == told + 1)
        << "kill " << kill << ": " << stored << ", told " << told;
    ASSERT_THAT(database->check(), testing::IsEmpty()) << "kill " << kill;
  }
  EXPECT_GT(stored, kKills);
}

// Each adds one to a field again and again; whoever finds the file in use tries again.
TEST_F(Processes, RacingForTheFileLoseNoUpdate) {
  constexpr int kProcesses = 3;
  constexpr int kUpdates = 40;
  std::vector<pid_t> children;
  for (int i = 0; i < kProcesses; ++i) {
    children.push_back(::fork());
    if (children.back() != 0) continue;
    for (int done = 0; done < kUpdates;) {
      auto database = Database::open(*files_, path_);
      if (!database && database.error().code != base::ErrorCode::InUse) ::_exit(1);
      if (!database) continue;
      const auto updated =
          year::transact(*database, [](jet::RecordSet& rows) -> base::Result<void> {
            const auto now = rows.value(0, *rows.columnIndex("VTagStrom"));
            if (!now) return base::Failure(now.error());
            return year::set(rows, 0, "VTagStrom", std::get<double>(*now) + 1);
          });
      if (!updated) ::_exit(2);
      ++done;
    }
    ::_exit(0);
  }
  for (const pid_t child : children) {
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  auto database = Database::open(*files_, path_);
  ASSERT_TRUE(database);
  auto rows = database->openTable("Strom");
  EXPECT_EQ(rows->value(0, *rows->columnIndex("VTagStrom")), Value(1.0 + kProcesses * kUpdates));
}

// Other programs rename, move or replace the file although it is locked. What were written then
// would lie in a file that nobody finds.
TEST_F(Processes, AFileThatHasLostItsNameIsNotWritten) {
  auto database = Database::open(*files_, path_);
  ASSERT_TRUE(database && writeRound(*database, 1));
  const std::string elsewhere = folder_ / "anderswo.kwd";
  ASSERT_EQ(std::rename(path_.c_str(), elsewhere.c_str()), 0);
  const auto refused = writeRound(*database, 2);
  ASSERT_FALSE(refused);
  EXPECT_EQ(refused.error().code, base::ErrorCode::ChangedOnDisk);
  EXPECT_EQ(refused.error().file, path_);
  EXPECT_FALSE(database->inTransaction());
  EXPECT_EQ(roundIn(*database), 1);

  ASSERT_TRUE(files_->replaceFile(path_, year::file()));
  EXPECT_FALSE(writeRound(*database, 2));
  ASSERT_EQ(std::rename(elsewhere.c_str(), path_.c_str()), 0);
  EXPECT_TRUE(writeRound(*database, 2));
  EXPECT_EQ(roundIn(*database), 2);

  // A copy with the same time stamp, as a backup program puts it back.
  std::filesystem::copy_file(path_, elsewhere);
  std::filesystem::last_write_time(elsewhere, std::filesystem::last_write_time(path_));
  ASSERT_EQ(std::rename(elsewhere.c_str(), path_.c_str()), 0);
  EXPECT_FALSE(writeRound(*database, 3));
}

// Access locks bytes far behind the end of "NAME.ldb" as long as somebody has the file open; after
// a crash the file is left without a lock.
TEST_F(Processes, AFileThatAccessHasOpenIsNotOpenedForWriting) {
  const std::string notes = path_.substr(0, path_.rfind('.')) + ".ldb";
  const int holder = open(notes.c_str(), O_RDWR | O_CREAT, 0666);
  ASSERT_GE(holder, 0);
  EXPECT_TRUE(Database::open(*files_, path_));

  struct flock user = {};
  user.l_type = F_WRLCK;
  user.l_start = 0x10000001;
  user.l_len = 1;
  ASSERT_EQ(fcntl(holder, F_OFD_SETLK, &user), 0);
  const auto refused = Database::open(*files_, path_);
  ASSERT_FALSE(refused);
  EXPECT_EQ(refused.error().code, base::ErrorCode::InUse);
  EXPECT_EQ(refused.error().file, path_);
  EXPECT_TRUE(Database::open(*files_, path_, {.readOnly = true}));
  close(holder);
  EXPECT_TRUE(Database::open(*files_, path_));
}

}  // namespace

#endif
