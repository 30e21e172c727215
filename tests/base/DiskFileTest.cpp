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

#include <atomic>
#include <csignal>
#include <thread>
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

TEST_F(DiskFile, ANewFileFollowsNoLinkThatLiesInItsPlace) {
  write("fremd", "fremd");
  write("Haus.kwd", "alt");
  const auto link = [&](const char* name, const std::string& target) {
    ASSERT_EQ(::symlink(target.c_str(), (folder_ / name).c_str()), 0);
  };
  link("Haus.kwd-tmp", folder_ / "fremd");
  EXPECT_TRUE(files_->replaceFile(folder_ / "Haus.kwd", base::asBytes("neu")));
  link("Kopie.kwd-tmp", folder_ / "fehlt");
  EXPECT_TRUE(files_->copyFile(folder_ / "Haus.kwd", folder_ / "Kopie.kwd"));
  link("Kopie.kwd-journal", folder_ / "fremd");
  EXPECT_TRUE(
      files_->createLike(folder_ / "Kopie.kwd-journal", folder_ / "Kopie.kwd", base::Rights::Same));
  // A second name of a file is no link, but its content is the other's all the same.
  ASSERT_EQ(::link((folder_ / "fremd").c_str(), (folder_ / "zweit").c_str()), 0);
  EXPECT_TRUE((*files_->open(folder_ / "zweit", OpenMode::Create))->writeAt(0, base::asBytes("x")));
  EXPECT_EQ(read("fremd"), "fremd");
  EXPECT_EQ(read("Haus.kwd"), "neu");
  EXPECT_EQ(read("Kopie.kwd"), "neu");
  for (const std::string& name : names())
    EXPECT_FALSE(std::filesystem::is_symlink(folder_ / name)) << name;
  ASSERT_EQ(::mkfifo((folder_ / "Rohr").c_str(), 0600), 0);
  EXPECT_EQ(openError("Rohr", OpenMode::Create), ErrorCode::AccessDenied);
}

TEST_F(DiskFile, ALinkThatComesAtTheLastMomentIsNotFollowedEither) {
  write("fremd", "fremd");
  const std::string target = folder_ / "fremd";
  const std::string place = folder_ / "Haus.kwd-tmp";
  std::atomic<bool> ended = false;
  std::thread intruder([&] {
    while (!ended) static_cast<void>(::symlink(target.c_str(), place.c_str()) == 0);
  });
  for (int attempt = 0; attempt < 3000; ++attempt) {
    const auto file = files_->open(place, OpenMode::Create);
    if (file) {
      EXPECT_TRUE((*file)->writeAt(0, base::asBytes("x")));
    }
  }
  ended = true;
  intruder.join();
  EXPECT_EQ(read("fremd"), "fremd");
}

TEST_F(DiskFile, RightsOfNewFilesFollowTheFileThatTheyBelongTo) {
  const mode_t before = ::umask(022);
  const auto rights = [&](const std::string& name) {
    struct stat status = {};
    EXPECT_EQ(::stat((folder_ / name).c_str(), &status), 0) << name;
    return status.st_mode & 0777;
  };
  const auto make = [&](const char* name, mode_t mode) {
    write(name, "x");
    ASSERT_EQ(::chmod((folder_ / name).c_str(), mode), 0);
  };
  make("eigen.kwd", 0600);
  make("Familie.kwd", 0664);
  make("Stick.kwd", 0777);
  make("Vorlage.kwx", 0444);
  using base::Rights;
  EXPECT_TRUE(files_->createLike(folder_ / "a", folder_ / "eigen.kwd", Rights::Same));
  EXPECT_TRUE(files_->createLike(folder_ / "b", folder_ / "Familie.kwd", Rights::Same));
  EXPECT_TRUE(files_->createLike(folder_ / "c", folder_ / "fehlt.kwd", Rights::Same));
  EXPECT_EQ(rights("a"), 0600);
  EXPECT_EQ(rights("b"), 0664);
  EXPECT_EQ(rights("c"), 0644);

  EXPECT_TRUE(
      files_->replaceFile(folder_ / "eigen_Gas.dat", base::asBytes("1"), folder_ / "eigen.kwd"));
  EXPECT_TRUE(
      files_->replaceFile(folder_ / "Familie.kwd", base::asBytes("1"), folder_ / "eigen.kwd"));
  EXPECT_EQ(rights("eigen_Gas.dat"), 0600);
  EXPECT_EQ(rights("Familie.kwd"), 0664) << "its own";

  const std::pair<const char*, mode_t> copies[] = {
      {"eigen.kwd", 0600}, {"Familie.kwd", 0644}, {"Stick.kwd", 0644}, {"Vorlage.kwx", 0644}};
  for (const auto& [name, expected] : copies) {
    EXPECT_TRUE(files_->copyFile(folder_ / name, folder_ / "Kopie"));
    EXPECT_EQ(rights("Kopie"), expected) << name;
    EXPECT_TRUE(files_->remove(folder_ / "Kopie"));
  }
  make("Kopie", 0640);
  EXPECT_TRUE(files_->copyFile(folder_ / "Stick.kwd", folder_ / "Kopie"));
  EXPECT_EQ(rights("Kopie"), 0640) << "its own";
  ::umask(before);
}

#endif

}  // namespace
