#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "base/File.h"
#include "base/Paths.h"
#include "support/TemporaryFolder.h"

#ifndef _WIN32
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

namespace {

using base::ErrorCode;
using base::OpenMode;

class DiskFile : public testing::Test {
 protected:
  void write(const std::string& name, const std::string& content) {
    std::ofstream(base::toPath(folder_ / name), std::ios::binary) << content;
  }
  std::string read(const std::string& name) {
    const auto text = files_->readText(folder_ / name);
    return text ? *text : base::germanMessage(text.error());
  }
  ErrorCode openError(const std::string& name, OpenMode mode) {
    const auto file = files_->open(folder_ / name, mode);
    EXPECT_FALSE(file.has_value()) << name << " opened";
    if (file) return ErrorCode::Cancelled;
    EXPECT_EQ(file.error().file, folder_ / name);
    return file.error().code;
  }
  void protect(const std::string& name) {
    std::filesystem::permissions(base::toPath(folder_ / name),
                                 std::filesystem::perms::owner_write |
                                     std::filesystem::perms::group_write |
                                     std::filesystem::perms::others_write,
                                 std::filesystem::perm_options::remove);
  }
  std::vector<std::string> names() { return *files_->list(folder_.path()); }

  support::TemporaryFolder folder_;
  std::unique_ptr<base::FileSystem> files_ = base::makeDiskFileSystem();
};

TEST_F(DiskFile, WritesReadsExtendsAndShrinks) {
  const std::string name = folder_ / "Zähler 2024.kwd";
  {
    auto file = *files_->open(name, OpenMode::Create);
    ASSERT_TRUE(file->writeAt(5, base::asBytes("hallo")));
    ASSERT_TRUE(file->resize(8));
    ASSERT_TRUE(file->sync());
    EXPECT_EQ(*file->size(), 8U);
  }
  ASSERT_TRUE(files_->syncFolder(folder_.path()));
  EXPECT_EQ(read("Zähler 2024.kwd"), std::string("\0\0\0\0\0hal", 8));
  auto file = *files_->open(name, OpenMode::Read);
  base::Bytes target(4);
  EXPECT_TRUE(file->readAt(4, target));
  const auto beyond = file->readAt(5, target);
  ASSERT_FALSE(beyond);
  EXPECT_EQ(beyond.error().code, ErrorCode::Truncated);
  EXPECT_EQ(beyond.error().file, name);
  EXPECT_FALSE(file->writeAt(0, base::asBytes("x")));
}

TEST_F(DiskFile, OneWriterOrManyReadersAlsoWithinOneProcess) {
  write("a.kwd", "alt");
  {
    const auto writer = files_->open(folder_ / "a.kwd", OpenMode::ReadWrite);
    ASSERT_TRUE(writer);
    EXPECT_EQ(openError("a.kwd", OpenMode::ReadWrite), ErrorCode::InUse);
    EXPECT_EQ(openError("a.kwd", OpenMode::Read), ErrorCode::InUse);
    EXPECT_EQ(openError("a.kwd", OpenMode::Create), ErrorCode::InUse);
    EXPECT_EQ(files_->remove(folder_ / "a.kwd").error().code, ErrorCode::InUse);
    write("b.kwd", "neu");
    EXPECT_EQ(files_->rename(folder_ / "b.kwd", folder_ / "a.kwd").error().code, ErrorCode::InUse);
    EXPECT_EQ(files_->replaceFile(folder_ / "a.kwd", base::asBytes("neu")).error().code,
              ErrorCode::InUse);
    EXPECT_EQ(files_->copyFile(folder_ / "a.kwd", folder_ / "c.kwd").error().code,
              ErrorCode::InUse);
    EXPECT_THAT(names(), testing::ElementsAre("a.kwd", "b.kwd"));
  }
  EXPECT_EQ(read("a.kwd"), "alt");
  const auto first = files_->open(folder_ / "a.kwd", OpenMode::Read);
  const auto second = files_->open(folder_ / "a.kwd", OpenMode::Read);
  EXPECT_TRUE(first && second);
  EXPECT_EQ(openError("a.kwd", OpenMode::ReadWrite), ErrorCode::InUse);
}

TEST_F(DiskFile, MissingFilesFoldersAndProtectedFilesAreToldApart) {
  EXPECT_EQ(openError("fehlt.kwd", OpenMode::Read), ErrorCode::NotFound);
  EXPECT_EQ(openError("fehlt/a.kwd", OpenMode::Create), ErrorCode::NotFound);
  EXPECT_EQ(files_->info(folder_ / "fehlt.kwd").error().code, ErrorCode::NotFound);
  EXPECT_EQ(files_->list(folder_ / "fehlt").error().code, ErrorCode::NotFound);
  EXPECT_EQ(files_->remove(folder_ / "fehlt.kwd").error().code, ErrorCode::NotFound);
  ASSERT_TRUE(files_->makeFolder(folder_ / "Ordner"));
  EXPECT_EQ(files_->makeFolder(folder_ / "Ordner").error().code, ErrorCode::AlreadyExists);
  EXPECT_EQ(files_->makeFolder(folder_ / "x/y").error().code, ErrorCode::NotFound);
  EXPECT_EQ(openError("Ordner", OpenMode::Read), ErrorCode::AccessDenied);
  EXPECT_TRUE(files_->folderExists(folder_ / "Ordner"));

  write("fest.kwd", "alt");
  protect("fest.kwd");
  EXPECT_FALSE(files_->info(folder_ / "fest.kwd")->writable);
  EXPECT_EQ(openError("fest.kwd", OpenMode::ReadWrite), ErrorCode::AccessDenied);
  EXPECT_EQ(openError("fest.kwd", OpenMode::Create), ErrorCode::AccessDenied);
  EXPECT_EQ(read("fest.kwd"), "alt");
  ASSERT_TRUE(files_->makeWritable(folder_ / "fest.kwd"));
  EXPECT_TRUE(files_->open(folder_ / "fest.kwd", OpenMode::ReadWrite));
}

TEST_F(DiskFile, ListIsSortedWithoutRegardToCaseAndHoldsHiddenNames) {
  for (const char* name : {"b.dat", "A.kwd", "Öl.kwd", ".Rest", "c.DAT"}) write(name, "");
  ASSERT_TRUE(files_->makeFolder(folder_ / "Bilder"));
  EXPECT_THAT(names(),
              testing::ElementsAre(".Rest", "A.kwd", "b.dat", "Bilder", "c.DAT", "Öl.kwd"));
}

TEST_F(DiskFile, ReplacingLeavesNoTraceAndRespectsProtection) {
  ASSERT_TRUE(files_->replaceFile(folder_ / "s.dat", base::asBytes("eins")));
  ASSERT_TRUE(files_->replaceFile(folder_ / "s.dat", base::asBytes("zwei")));
  protect("s.dat");
  EXPECT_EQ(files_->replaceFile(folder_ / "s.dat", base::asBytes("drei")).error().code,
            ErrorCode::AccessDenied);
  EXPECT_EQ(read("s.dat"), "zwei");
  EXPECT_THAT(names(), testing::ElementsAre("s.dat"));
  EXPECT_EQ(files_->readText(folder_ / "s.dat", 3).error().code, ErrorCode::InvalidValue);
}

TEST_F(DiskFile, CopyingReplacesWholeShowsProgressAndCanBeCancelled) {
  const std::string content(700'000, 'k');
  write("a.kwd", content);
  write("ziel.kwd", "alt");
  std::vector<std::uint64_t> steps;
  const auto cancel = [&](std::uint64_t done, std::uint64_t total) {
    EXPECT_EQ(total, content.size());
    steps.push_back(done);
    return done < 500'000;
  };
  const auto cancelled = files_->copyFile(folder_ / "a.kwd", folder_ / "ziel.kwd", cancel);
  ASSERT_FALSE(cancelled);
  EXPECT_EQ(cancelled.error().code, ErrorCode::Cancelled);
  EXPECT_EQ(read("ziel.kwd"), "alt");
  EXPECT_GT(steps.size(), 2U);
  EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));

  ASSERT_TRUE(files_->copyFile(folder_ / "a.kwd", folder_ / "ziel.kwd"));
  EXPECT_EQ(read("ziel.kwd"), content);
  EXPECT_THAT(names(), testing::ElementsAre("a.kwd", "ziel.kwd"));
}

TEST_F(DiskFile, CopyOntoItselfByWhateverNameHarmsNothing) {
  write("a.kwd", "Inhalt");
  EXPECT_TRUE(files_->copyFile(folder_ / "a.kwd", folder_ / "a.kwd"));
  EXPECT_TRUE(files_->copyFile(folder_ / "a.kwd", folder_ / "./a.kwd"));
  std::filesystem::create_hard_link(base::toPath(folder_ / "a.kwd"),
                                    base::toPath(folder_ / "b.kwd"));
  EXPECT_TRUE(files_->copyFile(folder_ / "a.kwd", folder_ / "b.kwd"));
  EXPECT_EQ(read("a.kwd"), "Inhalt");
  EXPECT_EQ(read("b.kwd"), "Inhalt");
}

#ifndef _WIN32

TEST_F(DiskFile, APipeIsRefusedInsteadOfWaitedFor) {
  ASSERT_EQ(::mkfifo((folder_ / "rohr.kwd").c_str(), 0600), 0);
  EXPECT_EQ(openError("rohr.kwd", OpenMode::Read), ErrorCode::AccessDenied);
}

// The child says over the pipe that it has the lock, and is then killed without a chance to clean
// up.
TEST_F(DiskFile, LockHoldsAgainstOtherProcessesAndDiesWithThem) {
  write("a.kwd", "alt");
  int pipe[2];
  ASSERT_EQ(::pipe(pipe), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    const auto held = files_->open(folder_ / "a.kwd", OpenMode::ReadWrite);
    const char sign = held ? 'j' : 'n';
    if (::write(pipe[1], &sign, 1) != 1) ::_exit(1);
    for (;;) ::pause();
  }
  char sign = 0;
  ASSERT_EQ(::read(pipe[0], &sign, 1), 1);
  EXPECT_EQ(sign, 'j');
  EXPECT_EQ(openError("a.kwd", OpenMode::ReadWrite), ErrorCode::InUse);
  EXPECT_EQ(openError("a.kwd", OpenMode::Read), ErrorCode::InUse);
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  EXPECT_TRUE(files_->open(folder_ / "a.kwd", OpenMode::ReadWrite));
  ::close(pipe[0]);
  ::close(pipe[1]);
}

#endif

}  // namespace
