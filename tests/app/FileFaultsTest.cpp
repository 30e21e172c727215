#include <gtest/gtest.h>

#include "app/Backup.h"
#include "app/OpeningCopy.h"
#include "app/SafetyCopies.h"
#include "app/YearFiles.h"
#include "base/Paths.h"
#include "jet/Database.h"
#include "support/CrashSweep.h"
#include "support/EmptyYear.h"
#include "support/FailingFileSystem.h"
#include "support/MemoryFileSystem.h"

// What is left on the disk when any one of the calls to it fails, once or from then on.

namespace {

using support::FailingFileSystem;
using support::Fault;
using support::MemoryFileSystem;
using Contents = MemoryFileSystem::Contents;

base::Bytes bytes(std::string_view text) {
  return {text.begin(), text.end()};
}

const Contents kBefore = {
    {"/programm/Vorlverbr8.kwx", bytes("leer")}, {"/daten/Haus.kwd", bytes("heute")},
    {"/daten/Haus_Gas.dat", bytes("Gas heute")}, {"/daten/Garten.kwd", bytes("Garten")},
    {"/stick/Haus.kwd", bytes("gesichert")},     {"/stick/Haus_Gas.dat", bytes("Gas gesichert")}};

base::PathState programPaths() {
  base::PathState paths;
  paths.ProgramFolder = "/programm/";
  paths.DataFolder = "/daten/";
  return paths;
}

struct FileAction {
  const char* name;
  std::function<base::Result<void>(base::FileSystem&)> run;
};

base::Result<void> makeSafetyCopy(base::FileSystem& files) {
  const base::FixedClock clock(base::Date{std::chrono::year{2024} / 3 / 1});
  app::OpeningCopy copy(files, "/daten", "Haus.kwd", clock);
  copy.prepare(std::chrono::milliseconds(1000));
  if (auto finished = copy.finish(); !finished) return finished;
  return copy.afterClosing();
}

const FileAction kActions[] = {
    {"NewYear",
     [](base::FileSystem& files) {
       return app::createYear(files, programPaths(), "/daten/Haus.kwd");
     }},
    {"Backup",
     [](base::FileSystem& files) {
       const auto names = app::backupNames(files, "/daten/");
       if (!names) return base::Result<void>(base::Failure(names.error()));
       return app::copyFiles(files, "/daten/", "/stick/", *names);
     }},
    {"Restore",
     [](base::FileSystem& files) {
       return app::restore(files, "/stick/", "/daten/", "Haus.kwd", {"Haus_Gas.dat"});
     }},
    {"SafetyCopy", makeSafetyCopy},
};

class FileFaults : public testing::TestWithParam<FileAction> {};

// Every file is as before or as a run without faults leaves it.
void expectOldOrNew(const Contents& found, const Contents& after) {
  for (const auto& [path, content] : found) {
    // The removal of what is only of use on the way can fail as well.
    if (path.ends_with("-tmp") || path.ends_with("orhaben")) continue;
    const std::string name(base::fileName(path));
    const auto old =
        kBefore.find(path.find("Sicherungen") == std::string::npos ? path : "/daten/" + name);
    const auto fresh = after.find(path);
    EXPECT_TRUE((old != kBefore.end() && old->second == content) ||
                (fresh != after.end() && fresh->second == content))
        << path;
  }
  for (const auto& [path, content] : kBefore)
    EXPECT_TRUE(found.contains(path) || !after.contains(path)) << path;
}

TEST_P(FileFaults, LeaveEveryFileOldOrNewAndAnErrorThatNamesOne) {
  MemoryFileSystem whole(kBefore);
  ASSERT_TRUE(GetParam().run(whole));
  for (const bool forGood : {false, true}) {
    for (const bool shortWrite : {false, true}) {
      for (std::size_t call = 0;; ++call) {
        MemoryFileSystem disk(kBefore);
        FailingFileSystem files(disk);
        files.arm({call, forGood, base::ErrorCode::NoSpace, shortWrite});
        const auto outcome = GetParam().run(files);
        if (!files.struck()) break;
        SCOPED_TRACE("call " + std::to_string(call));
        EXPECT_TRUE(outcome || !outcome.error().file.empty());
        expectOldOrNew(disk.contents(), whole.contents());
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, FileFaults, testing::ValuesIn(kActions),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(SafetyCopyFaults, ACopyThatCountsAsMadeIsWhole) {
  for (const bool forGood : {false, true}) {
    for (std::size_t call = 0;; ++call) {
      MemoryFileSystem disk(kBefore);
      FailingFileSystem files(disk);
      files.arm({call, forGood, base::ErrorCode::NoSpace, false});
      base::ignore(makeSafetyCopy(files), "what lies on the disk counts");
      if (!files.struck()) break;
      if (!disk.exists("/daten/Sicherungen/2024-03-01/Haus.kwd")) continue;
      EXPECT_EQ(disk.get("/daten/Sicherungen/2024-03-01/Haus_Gas.dat"), bytes("Gas heute")) << call;
    }
  }
}

TEST(BackupFaults, AFolderThatCannotBeListedIsNoSuccess) {
  MemoryFileSystem disk(kBefore);
  FailingFileSystem files(disk);
  files.arm({0, true, base::ErrorCode::IoError, false});
  EXPECT_FALSE(app::backupNames(files, "/daten/"));
}

// --- a year and its side files are one -----------------------------------------------------------

// Over kBefore with an older backup that is larger.
const Contents kWithBackup = [] {
  Contents contents = kBefore;
  contents["/sicherung/Haus.kwd"] = bytes("uralt");
  contents["/sicherung/Haus_Gas.dat"] = bytes("Gas uralt");
  return contents;
}();

const FileAction kJoint[] = {
    kActions[0],
    {"BackupOverBackup",
     [](base::FileSystem& files) {
       return app::copyFiles(files, "/daten/", "/sicherung/", {"Haus.kwd", "Haus_Gas.dat"});
     }},
    kActions[2],
    {"Deletion",
     [](base::FileSystem& files) { return app::deleteYear(files, "/daten", "Haus.kwd"); }},
};

class TogetherOrNot : public testing::TestWithParam<FileAction> {
 protected:
  TogetherOrNot() {
    MemoryFileSystem whole(kWithBackup);
    EXPECT_TRUE(GetParam().run(whole));
    after = whole.contents();
    EXPECT_NE(after, kWithBackup);
  }
  static Contents finished(const Contents& left) {
    MemoryFileSystem disk(left);
    for (const char* folder : {"/daten", "/sicherung"})
      EXPECT_TRUE(app::finishInterrupted(disk, folder));
    return disk.contents();
  }
  Contents after;
};

TEST_P(TogetherOrNot, WhateverCallFails) {
  for (const bool forGood : {false, true}) {
    for (std::size_t call = 0;; ++call) {
      MemoryFileSystem disk(kWithBackup);
      FailingFileSystem files(disk);
      files.arm({call, forGood, base::ErrorCode::NoSpace, true});
      const auto outcome = GetParam().run(files);
      if (!files.struck()) break;
      SCOPED_TRACE("call " + std::to_string(call));
      const Contents left = finished(disk.contents());
      EXPECT_TRUE(left == kWithBackup || left == after);
      if (outcome) {
        EXPECT_EQ(left, after);
      } else if (!forGood) {
        EXPECT_EQ(left, kWithBackup) << "what is said to have failed does not come later";
      }
    }
  }
}

TEST_P(TogetherOrNot, WheneverThePowerGoes) {
  support::CrashFileSystem disk(kWithBackup);
  ASSERT_TRUE(GetParam().run(disk));
  std::size_t done = 0;
  const std::size_t points = support::sweepCrashes(disk, 5, [&](const support::CrashPoint& point) {
    const Contents left = finished(point.contents);
    ASSERT_TRUE(left == kWithBackup || left == after) << point.label;
    done += left == after;
    if (point.moment + 1 == disk.moments()) {
      ASSERT_EQ(left, after) << point.label;
    }
  });
  EXPECT_GT(done, 5U);
  EXPECT_GT(points - done, 5U);
}

INSTANTIATE_TEST_SUITE_P(All, TogetherOrNot, testing::ValuesIn(kJoint),
                         [](const auto& test) { return std::string(test.param.name); });

// --- years that a crash left with their journal --------------------------------------------------

constexpr double kOld = 0;
constexpr double kNew = 4711;

base::Result<void> setReading(base::FileSystem& files) {
  auto database = jet::Database::open(files, "/daten/Haus.kwd");
  if (!database) return base::Failure(database.error());
  auto table = database->openTable("ZStaende");
  if (!table) return base::Failure(table.error());
  if (auto begun = database->begin(); !begun) return begun;
  if (auto set = table->set(0, *table->columnIndex("AnfStandTagS"), kNew); !set) return set;
  return database->commit();
}

double numberIn(const jet::Value& value) {
  if (const auto* single = std::get_if<float>(&value)) return double{*single};
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  return kOld;
}

// The reading in a copy that lies alone, without a journal beside it.
double readingIn(const base::Bytes& database) {
  MemoryFileSystem disk({{"/kopie.kwd", database}});
  auto opened = jet::Database::open(disk, "/kopie.kwd");
  EXPECT_TRUE(opened);
  if (!opened) return -1;
  EXPECT_TRUE(opened->check().empty());
  const auto table = opened->openTable("ZStaende");
  const auto value = table->value(0, *table->columnIndex("AnfStandTagS"));
  return value ? numberIn(*value) : -1;
}

TEST(WaitingJournal, IsCompletedBeforeAYearIsCopied) {
  int waiting = 0;
  for (std::size_t call = 0;; ++call) {
    MemoryFileSystem disk({{"/daten/Haus.kwd", support::emptyYear()}, {"/stick/x", {}}});
    FailingFileSystem files(disk);
    files.arm({call, true, base::ErrorCode::IoError, false});
    const bool stored = setReading(files).has_value();
    if (!files.struck()) break;
    const bool journal = disk.exists("/daten/Haus.kwd-journal");
    ASSERT_TRUE(app::copyFiles(disk, "/daten/", "/stick/", {"Haus.kwd"})) << call;
    const double copied = readingIn(disk.get("/stick/Haus.kwd"));
    EXPECT_TRUE(copied == kNew || (!stored && copied == kOld)) << copied;
    if (journal && copied == kNew) ++waiting;
  }
  EXPECT_GT(waiting, 0) << "no journal was left to complete";
}

TEST(WaitingJournal, OfAReplacedYearIsNotAppliedToTheRestoredOne) {
  // Edits that die with the journal written, over a year that is then restored as it was before.
  int waiting = 0;
  for (std::size_t call = 0;; ++call) {
    MemoryFileSystem disk(
        {{"/daten/Haus.kwd", support::emptyYear()}, {"/stick/Haus.kwd", support::emptyYear()}});
    FailingFileSystem files(disk);
    files.arm({call, true, base::ErrorCode::IoError, false});
    base::ignore(setReading(files), "the state on the disk counts");
    if (!files.struck()) break;
    waiting += disk.exists("/daten/Haus.kwd-journal");
    ASSERT_TRUE(app::restore(disk, "/stick/", "/daten/", "Haus.kwd", {}));
    EXPECT_FALSE(disk.exists("/daten/Haus.kwd-journal"));
    EXPECT_EQ(readingIn(disk.get("/daten/Haus.kwd")), kOld);
  }
  EXPECT_GT(waiting, 0);
}

}  // namespace
