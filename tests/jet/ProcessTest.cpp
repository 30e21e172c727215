#include <gmock/gmock.h>

#include <random>
#include <thread>

#include "YearUnderTest.h"
#include "base/File.h"
#include "base/Paths.h"
#include "jet/Database.h"
#include "support/TemporaryFolder.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#endif

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

// Edits until the process is killed, and tells which rounds are stored.
template <class Tell>
void editForEver(const std::string& path, int start, Tell tell) {
  const auto files = base::makeDiskFileSystem();
  auto database = Database::open(*files, path);
  for (int round = start; database; ++round)
    if (!writeRound(*database, round) || !tell(round)) return;
}

constexpr int kPatienceMilliseconds = 20000;

#ifdef _WIN32

constexpr int kKills = 60;  // a process costs more there
constexpr const wchar_t* kFileVariable = L"KALVIRA_EDITED_FILE";
constexpr const wchar_t* kRoundVariable = L"KALVIRA_EDITED_ROUND";
constexpr const wchar_t* kPipeVariable = L"KALVIRA_EDITED_PIPE";

std::wstring variable(const wchar_t* name) {
  std::wstring value(32768, L'\0');
  value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return value;
}

// The part of the process that edits; Editor starts this program again for it alone.
TEST(EditorProcess, DISABLED_EditsUntilItIsKilled) {
  const auto pipe = reinterpret_cast<HANDLE>(std::stoull(variable(kPipeVariable)));
  editForEver(base::fromPath(variable(kFileVariable)), std::stoi(variable(kRoundVariable)),
              [pipe](int round) {
                DWORD count = 0;
                return WriteFile(pipe, &round, sizeof(round), &count, nullptr) != FALSE;
              });
}

class Editor {
 public:
  Editor(const std::string& path, int start) {
    SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
    HANDLE told = nullptr;
    EXPECT_TRUE(CreatePipe(&pipe_, &told, &inherited, 0));
    SetEnvironmentVariableW(kFileVariable, base::toPath(path).c_str());
    SetEnvironmentVariableW(kRoundVariable, std::to_wstring(start).c_str());
    SetEnvironmentVariableW(kPipeVariable,
                            std::to_wstring(reinterpret_cast<std::uintptr_t>(told)).c_str());
    std::wstring program(32768, L'\0');
    program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
    std::wstring line = L'"' + program +
                        L"\" --gtest_also_run_disabled_tests --gtest_brief=1"
                        L" --gtest_filter=EditorProcess.*";
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    EXPECT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                               &startup, &process_));
    CloseHandle(told);
  }
  ~Editor() {
    for (const HANDLE handle : {pipe_, process_.hThread, process_.hProcess}) CloseHandle(handle);
  }
  Editor(const Editor&) = delete;
  Editor& operator=(const Editor&) = delete;

  bool waitForItsFirstRound() {
    DWORD available = 0;
    for (int waited = 0; available == 0 && waited < kPatienceMilliseconds; ++waited) {
      if (!PeekNamedPipe(pipe_, nullptr, 0, nullptr, &available, nullptr)) return false;
      Sleep(1);
    }
    return available > 0;
  }
  bool kill() {
    constexpr UINT kMark = 77;
    TerminateProcess(process_.hProcess, kMark);
    WaitForSingleObject(process_.hProcess, INFINITE);
    DWORD code = 0;
    return GetExitCodeProcess(process_.hProcess, &code) && code == kMark;
  }
  int lastRound(int otherwise) {
    DWORD count = 0;
    int round = otherwise;
    while (ReadFile(pipe_, &round, sizeof(round), &count, nullptr) && count == sizeof(round))
      otherwise = round;
    return otherwise;
  }

 private:
  HANDLE pipe_ = nullptr;
  PROCESS_INFORMATION process_{};
};

#else

constexpr int kKills = 300;

class Editor {
 public:
  Editor(const std::string& path, int start) {
    int pipe[2];
    EXPECT_EQ(::pipe(pipe), 0);
    child_ = ::fork();
    if (child_ == 0) {
      editForEver(path, start, [&pipe](int round) {
        return ::write(pipe[1], &round, sizeof(round)) == sizeof(round);
      });
      ::_exit(1);
    }
    ::close(pipe[1]);
    pipe_ = pipe[0];
  }
  ~Editor() { ::close(pipe_); }
  Editor(const Editor&) = delete;
  Editor& operator=(const Editor&) = delete;

  bool waitForItsFirstRound() {
    pollfd ready{pipe_, POLLIN, 0};
    return ::poll(&ready, 1, kPatienceMilliseconds) == 1;
  }
  bool kill() {
    ::kill(child_, SIGKILL);
    int status = 0;
    return ::waitpid(child_, &status, 0) == child_ && WIFSIGNALED(status);
  }
  int lastRound(int otherwise) {
    for (int round = 0; ::read(pipe_, &round, sizeof(round)) == sizeof(round);) otherwise = round;
    return otherwise;
  }

 private:
  pid_t child_ = 0;
  int pipe_ = -1;
};

#endif

class Processes : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(files_->replaceFile(path_, year::file())); }

  support::TemporaryFolder folder_;
  std::unique_ptr<base::FileSystem> files_ = base::makeDiskFileSystem();
  std::string path_ = folder_ / "Verbrauch2024.kwd";
};

TEST_F(Processes, KilledAtAnyMomentTheEditedFileIsWholeAndNothingStoredIsLost) {
  std::mt19937 random(7);
  int stored = 0;
  {
    auto database = Database::open(*files_, path_);
    ASSERT_TRUE(database && writeRound(*database, stored));
  }
  for (int kill = 0; kill < kKills; ++kill) {
    Editor editor(path_, stored + 1);
    ASSERT_TRUE(editor.waitForItsFirstRound());
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 4000));
    ASSERT_TRUE(editor.kill()) << "it ended by itself";
    const int told = editor.lastRound(stored);

    auto database = Database::open(*files_, path_);
    ASSERT_TRUE(database) << base::germanMessage(database.error());
    stored = roundIn(*database);
    ASSERT_TRUE(stored == told || stored == told + 1)
        << "kill " << kill << ": " << stored << ", told " << told;
    ASSERT_THAT(database->check(), testing::IsEmpty()) << "kill " << kill;
  }
  EXPECT_GT(stored, kKills);
}

#ifndef _WIN32

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

#endif

}  // namespace
