#include "base/JointChange.h"

#include <gmock/gmock.h>

#include "support/CrashSweep.h"
#include "support/FailingFileSystem.h"
#include "support/MemoryFileSystem.h"

// Files that change together are all old or all new, whatever fails and whenever the power goes.

namespace {

using base::ErrorCode;
using base::JointChange;
using base::OpenMode;
using base::Result;
using support::CrashFileSystem;
using support::FailingFileSystem;
using support::MemoryFileSystem;
using Contents = MemoryFileSystem::Contents;

base::Bytes bytes(std::string_view text) {
  return {text.begin(), text.end()};
}

const std::string kFolder = "/daten/";
const Contents kBefore = {{"/daten/Haus.kwd", bytes("altes Jahr")},
                          {"/daten/Haus_Gas.dat", bytes("alter Wechsel")},
                          {"/daten/Haus_Alt.dat", bytes("geht")},
                          {"/daten/Garten.kwd", bytes("Garten")},
                          {"/stick/Haus.kwd", base::Bytes(3000, 'n')}};
const Contents kAfter = {{"/daten/Haus.kwd", base::Bytes(3000, 'n')},
                         {"/daten/Haus_Gas.dat", bytes("neuer Wechsel")},
                         {"/daten/Haus_Neu.dat", bytes("kommt")},
                         {"/daten/Garten.kwd", bytes("Garten")},
                         {"/stick/Haus.kwd", base::Bytes(3000, 'n')}};

Result<void> stageAll(JointChange& change) {
  if (auto staged = change.copy("/stick/Haus.kwd", "Haus.kwd"); !staged) return staged;
  if (auto staged = change.replace("Haus_Gas.dat", bytes("neuer Wechsel")); !staged) return staged;
  if (auto staged = change.replace("Haus_Neu.dat", bytes("kommt")); !staged) return staged;
  if (auto staged = change.remove("gibt es nicht.dat"); !staged) return staged;
  return change.remove("Haus_Alt.dat");
}

struct Outcome {
  Result<void> result;
  bool pending = false;
};

Outcome changeAll(base::FileSystem& files) {
  auto change = JointChange::begin(files, kFolder);
  if (!change) return {base::Failure(change.error())};
  if (auto staged = stageAll(*change); !staged) return {staged};
  Result<void> result = change->commit();
  return {result, change->isPending()};
}

// What the next start makes of it.
Contents afterFinish(const Contents& left) {
  MemoryFileSystem disk(left);
  const auto finished = JointChange::finish(disk, kFolder);
  EXPECT_TRUE(finished);
  return disk.contents();
}

// As seen by a person: our own small files do not count as long as finish() takes them away.
const char* nameOf(const Contents& contents) {
  if (contents == kBefore) return "before";
  return contents == kAfter ? "after" : "mixed";
}

TEST(JointChange, PutsEveryFileInItsPlaceAndLeavesNothingElse) {
  MemoryFileSystem disk(kBefore);
  ASSERT_TRUE(changeAll(disk).result);
  EXPECT_STREQ(nameOf(disk.contents()), "after");
}

TEST(JointChange, WithoutACommitEverythingStays) {
  MemoryFileSystem disk(kBefore);
  {
    auto change = JointChange::begin(disk, "/daten");
    ASSERT_TRUE(change);
    ASSERT_TRUE(stageAll(*change));
    EXPECT_EQ(JointChange::begin(disk, kFolder).error().code, ErrorCode::InUse);
    EXPECT_EQ(JointChange::finish(disk, kFolder), false) << "a change that is under way";
    EXPECT_TRUE(disk.exists("/daten/Haus.kwd-vorhaben"));
  }
  EXPECT_STREQ(nameOf(disk.contents()), "before");
}

TEST(JointChange, ForeseesWhatCannotBeReplaced) {
  for (const char* held : {"/daten/Haus.kwd", "/daten/Haus_Gas.dat", "/daten/Haus_Alt.dat"}) {
    MemoryFileSystem disk(kBefore);
    const auto file = disk.open(held, OpenMode::Read);
    const auto outcome = changeAll(disk);
    ASSERT_FALSE(outcome.result);
    EXPECT_EQ(outcome.result.error().code, ErrorCode::InUse);
    EXPECT_EQ(outcome.result.error().file, held);
    EXPECT_STREQ(nameOf(disk.contents()), "before");
  }
  MemoryFileSystem disk(kBefore);
  disk.protect("/daten/Haus_Gas.dat");
  EXPECT_EQ(changeAll(disk).result.error().code, ErrorCode::AccessDenied);
  auto change = JointChange::begin(disk, kFolder);
  EXPECT_EQ(change->replace("zwei\nZeilen", {}).error().code, ErrorCode::InvalidName);
  disk.protectFolder("/daten");
  EXPECT_EQ(JointChange::begin(disk, kFolder).error().file, kFolder) << "names no file of ours";
}

TEST(JointChange, IsAllOrNothingWhateverCallFails) {
  std::size_t pending = 0;
  for (const bool forGood : {false, true}) {
    for (const bool shortWrite : {false, true}) {
      for (std::size_t call = 0;; ++call) {
        MemoryFileSystem disk(kBefore);
        FailingFileSystem files(disk);
        files.arm({call, forGood, ErrorCode::IoError, shortWrite});
        const Outcome outcome = changeAll(files);
        if (!files.struck()) break;
        SCOPED_TRACE("call " + std::to_string(call) + (forGood ? " for good" : ""));
        const bool stored = outcome.result.has_value();
        ASSERT_TRUE(stored || !outcome.result.error().file.empty());
        const std::string finished = nameOf(afterFinish(disk.contents()));
        if (outcome.pending) {
          ++pending;
          EXPECT_TRUE(forGood) << "a single failure is got over, or nothing is done";
          EXPECT_NE(finished, "mixed");
          continue;
        }
        // What was said is true at once, for who looks before anything is finished, and for good.
        EXPECT_EQ(finished, stored ? "after" : "before");
        for (const auto& [path, content] : stored ? kAfter : kBefore)
          EXPECT_EQ(disk.get(path), content) << path;
      }
    }
  }
  EXPECT_GT(pending, 0U);
}

TEST(JointChange, SurvivesEveryPowerCutOfTheChangeAndOfFinishingIt) {
  CrashFileSystem disk(kBefore);
  ASSERT_TRUE(changeAll(disk).result);
  std::size_t cutAgain = 0;
  std::size_t befores = 0;
  std::size_t points = support::sweepCrashes(disk, 12, [&](const support::CrashPoint& point) {
    const std::string left = nameOf(afterFinish(point.contents));
    ASSERT_NE(left, "mixed") << point.label;
    befores += left == "before";
    if (point.moment + 1 == disk.moments()) {
      ASSERT_EQ(left, "after") << point.label;
    }
    if (++cutAgain % 5 != 0) return;
    CrashFileSystem second(point.contents);
    ASSERT_TRUE(JointChange::finish(second, kFolder));
    support::sweepCrashes(second, 1, [&](const support::CrashPoint& again) {
      ASSERT_EQ(nameOf(afterFinish(again.contents)), left) << point.label << "; " << again.label;
    });
  });
  EXPECT_GT(points, 200U);
  EXPECT_GT(befores, 20U);
  EXPECT_LT(befores, points - 20);
}

// An intention that comes back after it was carried out, when its removal did not reach the medium.
TEST(JointChange, CarriedOutAgainItLeavesWhatHasComeSince) {
  MemoryFileSystem disk(kBefore);
  base::Bytes intention;
  {
    CrashFileSystem recorded(kBefore);
    ASSERT_TRUE(changeAll(recorded).result);
    support::sweepCrashes(recorded, 0, [&](const support::CrashPoint& point) {
      const auto found = point.contents.find("/daten/Kalvira-Vorhaben");
      if (found != point.contents.end() && found->second.size() > intention.size())
        intention = found->second;
    });
  }
  ASSERT_TRUE(changeAll(disk).result);
  disk.put("/daten/Haus_Alt.dat", bytes("eine neue dieses Namens"));
  disk.put("/daten/Haus_Gas.dat", bytes("noch neuer"));
  disk.put("/daten/Haus.kwd-vorhaben", bytes("Rest eines anderen"));
  const Contents since = disk.contents();
  disk.put("/daten/Kalvira-Vorhaben", intention);
  ASSERT_EQ(JointChange::finish(disk, kFolder), true);
  Contents expected = since;
  expected.erase("/daten/Haus.kwd-vorhaben");
  EXPECT_EQ(disk.contents(), expected);
}

TEST(JointChange, AnyDamageToAnIntentionSweepsItAway) {
  CrashFileSystem recorded(kBefore);
  ASSERT_TRUE(changeAll(recorded).result);
  Contents waiting;
  support::sweepCrashes(recorded, 0, [&](const support::CrashPoint& point) {
    if (waiting.empty() && nameOf(afterFinish(point.contents)) == std::string("after"))
      waiting = point.contents;
  });
  const base::Bytes intention = waiting.at("/daten/Kalvira-Vorhaben");
  ASSERT_GT(intention.size(), 100U);
  for (std::size_t at = 0; at < intention.size(); ++at) {
    waiting["/daten/Kalvira-Vorhaben"] = intention;
    waiting["/daten/Kalvira-Vorhaben"][at] ^= 1;
    ASSERT_STREQ(nameOf(afterFinish(waiting)), "before") << at;
    waiting["/daten/Kalvira-Vorhaben"] = {intention.begin(),
                                          intention.begin() + static_cast<std::ptrdiff_t>(at)};
    ASSERT_STREQ(nameOf(afterFinish(waiting)), "before") << at;
  }
}

// --- tied to a file that changes in place ---

// Stands for a database: one byte more, as one transaction.
Result<void> commitDatabase(base::File& database) {
  const auto size = database.size();
  if (!size) return base::Failure(size.error());
  const std::uint8_t byte = '!';
  if (auto written = database.writeAt(*size, {&byte, 1}); !written) return written;
  return database.sync();
}

Result<void> changeWithDatabase(base::FileSystem& files, bool databaseFails = false) {
  const auto database = files.open("/daten/Haus.kwd", OpenMode::ReadWrite);
  if (!database) return base::Failure(database.error());
  const auto size = (*database)->size();
  if (!size) return base::Failure(size.error());
  base::Bytes before(static_cast<std::size_t>(*size));
  if (auto read = (*database)->readAt(0, before); !read) return read;
  auto change = JointChange::begin(files, kFolder);
  if (!change) return base::Failure(change.error());
  if (auto staged = change->replace("Haus_Gas.dat", bytes("neuer Wechsel")); !staged) return staged;
  if (auto staged = change->remove("Haus_Alt.dat"); !staged) return staged;
  if (auto prepared = change->prepare("Haus.kwd", before); !prepared) return prepared;
  if (databaseFails) return base::fail(ErrorCode::IoError, {}, "/daten/Haus.kwd");
  if (auto stored = commitDatabase(**database); !stored) {
    change->leaveToFinish();
    return stored;
  }
  return change->complete();
}

void expectTogether(const Contents& contents, const std::string& where) {
  const bool year = contents.at("/daten/Haus.kwd") == bytes("altes Jahr!");
  EXPECT_TRUE(year || contents.at("/daten/Haus.kwd") == bytes("altes Jahr")) << where;
  EXPECT_EQ(contents.at("/daten/Haus_Gas.dat"), bytes(year ? "neuer Wechsel" : "alter Wechsel"))
      << where;
  EXPECT_EQ(contents.contains("/daten/Haus_Alt.dat"), !year) << where;
  EXPECT_EQ(contents.size(), year ? 4U : 5U) << where;
}

TEST(TiedChange, CountsOnceItsDatabaseHasChanged) {
  MemoryFileSystem disk(kBefore);
  ASSERT_FALSE(changeWithDatabase(disk, true));
  EXPECT_STREQ(nameOf(disk.contents()), "before");
  ASSERT_TRUE(changeWithDatabase(disk));
  EXPECT_EQ(disk.get("/daten/Haus.kwd"), bytes("altes Jahr!"));
  expectTogether(disk.contents(), "");
}

TEST(TiedChange, GoesWithItsDatabaseWheneverThePowerGoes) {
  CrashFileSystem disk(kBefore);
  ASSERT_TRUE(changeWithDatabase(disk));
  std::size_t completed = 0;
  support::sweepCrashes(disk, 4, [&](const support::CrashPoint& point) {
    Contents left = point.contents;
    // The database's own journal has brought it back if the byte was damaged on the way.
    base::Bytes& year = left.at("/daten/Haus.kwd");
    if (year != bytes("altes Jahr!")) year = bytes("altes Jahr");
    MemoryFileSystem again(left);
    int settled = 0;
    const auto finished = JointChange::finish(again, kFolder, [&](const std::string& path) {
      EXPECT_EQ(path, "/daten/Haus.kwd");
      ++settled;
      return Result<void>();
    });
    ASSERT_TRUE(finished);
    if (*finished) {
      ++completed;
      EXPECT_EQ(settled, 1);
    }
    expectTogether(again.contents(), point.label);
  });
  EXPECT_GT(completed, 5U);
}

TEST(TiedChange, GoesWithItsDatabaseWhateverCallFails) {
  for (const bool forGood : {false, true}) {
    for (std::size_t call = 0;; ++call) {
      MemoryFileSystem disk(kBefore);
      FailingFileSystem files(disk);
      files.arm({call, forGood, ErrorCode::NoSpace, false});
      const auto outcome = changeWithDatabase(files);
      if (!files.struck()) break;
      const std::string where = "call " + std::to_string(call);
      if (outcome) {
        EXPECT_EQ(disk.get("/daten/Haus.kwd"), bytes("altes Jahr!")) << where;
      }
      expectTogether(afterFinish(disk.contents()), where);
    }
  }
}

}  // namespace
