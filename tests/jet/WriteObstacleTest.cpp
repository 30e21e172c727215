#include <gmock/gmock.h>

#include <filesystem>

#include "YearUnderTest.h"
#include "base/Paths.h"
#include "support/FailingFileSystem.h"
#include "support/JetDump.h"
#include "support/MemoryFileSystem.h"
#include "support/TemporaryFolder.h"

// Why nothing can be stored at present, and that it is found out when that is over.

namespace {

using base::ErrorCode;
using jet::Database;

const jet::Value kMark = std::string("neu");

base::Result<void> mark(Database& database) {
  return year::transact(database,
                        [](jet::RecordSet& rows) { return year::set(rows, 3, "Monat", kMark); });
}

std::string marked(base::FileSystem& files, const std::string& path) {
  auto database = Database::open(files, path, {.readOnly = true});
  if (!database) return base::germanMessage(database.error());
  auto table = database->openTable("Strom");
  const auto value = table->value(3, *table->columnIndex("Monat"));
  return std::get<std::string>(*value);
}

TEST(WriteObstacle, OfAFileOrFolderWithoutPermissionIsKnownFromTheStart) {
  const std::string path = "/daten/Haus.kwd";
  for (const std::string& what : {path, std::string("/daten")}) {
    support::MemoryFileSystem disk({{path, year::file()}});
    what == path ? disk.protect(path) : disk.protectFolder("/daten");
    auto database = Database::open(disk, path);
    ASSERT_TRUE(database);
    ASSERT_TRUE(database->writeObstacle());
    EXPECT_EQ(database->writeObstacle()->file, what == path ? path : "/daten/");
    const auto refused = mark(*database);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().file, what == path ? path : "/daten/");
    EXPECT_FALSE(database->tryWriting());
    EXPECT_EQ(disk.contents().size(), 1U);
    ASSERT_TRUE(disk.makeWritable(what));
    EXPECT_TRUE(database->tryWriting());
    EXPECT_FALSE(database->writeObstacle());
    EXPECT_FALSE(database->readOnlyReason());
    ASSERT_TRUE(mark(*database));
    database = base::fail(ErrorCode::Cancelled, "");
    EXPECT_EQ(marked(disk, path), "neu");
  }
}

// What is asked for reading is never written, whatever may be.
TEST(WriteObstacle, OfAnOpeningForReadingStays) {
  support::MemoryFileSystem disk({{"/Haus.kwd", year::file()}});
  auto database = Database::open(disk, "/Haus.kwd", {.readOnly = true});
  EXPECT_TRUE(database->writeObstacle());
  EXPECT_FALSE(database->tryWriting());
  EXPECT_FALSE(mark(*database));
}

// Every call of the commit fails in turn; afterwards the disk is sound again.
TEST(WriteObstacle, OfAFailedCommitLastsUntilTheDiskIsSound) {
  int obstacles = 0;
  for (std::size_t call = 0;; ++call) {
    support::MemoryFileSystem disk({{"/daten/Haus.kwd", year::file()}});
    support::FailingFileSystem failing(disk);
    auto database = Database::open(failing, "/daten/Haus.kwd");
    auto table = database->openTable("Strom");
    ASSERT_TRUE(database->begin());
    ASSERT_TRUE(year::set(*table, 3, "Monat", kMark));
    failing.arm({call, true, ErrorCode::NoSpace, true});
    const auto done = database->commit();
    const bool struck = failing.struck();
    EXPECT_EQ(database->writeObstacle().has_value(), !done) << call;
    if (!done) {
      EXPECT_EQ(database->writeObstacle(), done.error()) << call;
      EXPECT_FALSE(database->tryWriting()) << call;
    }
    failing.disarm();
    if (!struck) break;
    EXPECT_EQ(database->tryWriting(), !database->needsReopen()) << call;
    if (done || database->needsReopen()) continue;
    ++obstacles;
    EXPECT_TRUE(mark(*database)) << call;
    EXPECT_FALSE(database->writeObstacle()) << call;
  }
  EXPECT_GT(obstacles, 3);
}

#ifndef _WIN32  // there a folder with an open file cannot be moved

// A stick with the year on it, as a folder of the real disk.
class TakenOut : public testing::Test {
 protected:
  TakenOut() {
    EXPECT_TRUE(files->makeFolder(home / "stick"));
    EXPECT_TRUE(files->replaceFile(path, year::file()));
    database.emplace(*Database::open(*files, path));
    // A first change leaves a journal beside the year, as usual.
    EXPECT_TRUE(year::transact(
        *database, [](jet::RecordSet& rows) { return year::set(rows, 0, "Monat", kMark); }));
    move("stick", "weg");
    EXPECT_EQ(mark(*database).error().code, ErrorCode::ChangedOnDisk);
    EXPECT_FALSE(database->tryWriting());
    EXPECT_TRUE(support::dumpTables(*database)) << "what was read is shown";
  }
  void move(const std::string& from, const std::string& to) {
    std::filesystem::rename(base::toPath(home / from), base::toPath(home / to));
  }
  // Another medium with the same on it, as far as the system can tell.
  void copyBack() {
    std::filesystem::copy(base::toPath(home / "weg"), base::toPath(home / "stick"));
    const auto year = base::toPath(path);
    std::filesystem::last_write_time(
        year, std::filesystem::last_write_time(year) + std::chrono::seconds(2));
  }

  support::TemporaryFolder home;
  const std::string path = home / "stick/Haus.kwd";
  std::unique_ptr<base::FileSystem> files = base::makeDiskFileSystem();
  std::optional<Database> database;
};

TEST_F(TakenOut, ComesBackAndIsWrittenOn) {
  move("weg", "stick");
  EXPECT_TRUE(database->tryWriting());
  ASSERT_TRUE(mark(*database));
  database.reset();
  EXPECT_EQ(marked(*files, path), "neu");
}

TEST_F(TakenOut, ComesBackAsANewFileOfTheSameContent) {
  copyBack();
  EXPECT_TRUE(database->tryWriting());
  ASSERT_TRUE(mark(*database));
  database.reset();
  EXPECT_EQ(marked(*files, path), "neu");
  EXPECT_FALSE(files->exists(path + "-journal"));
  EXPECT_NE(marked(*files, home / "weg/Haus.kwd"), "neu");
}

TEST_F(TakenOut, ComesBackChangedAndIsLeftAlone) {
  copyBack();
  {
    auto other = Database::open(*files, path);
    ASSERT_TRUE(year::transact(*other, [](jet::RecordSet& rows) {
      return year::set(rows, 7, "Monat", std::string("anders"));
    }));
  }
  const auto before = files->readText(path);
  EXPECT_FALSE(database->tryWriting());
  EXPECT_FALSE(mark(*database));
  database.reset();
  EXPECT_EQ(files->readText(path), before);
}

#endif

}  // namespace
