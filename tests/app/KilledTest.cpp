#ifndef _WIN32

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>

#include "app/Backup.h"
#include "app/YearFiles.h"
#include "support/TemporaryFolder.h"

// A program that is killed while it restores, on the real disk.

namespace {

constexpr int kKills = 100;

class Killed : public testing::Test {
 protected:
  Killed() {
    for (const char* folder : {"alt", "neu", "daten"}) {
      EXPECT_TRUE(files->makeFolder(home / folder));
      const std::string state = folder == std::string("daten") ? "alt" : folder;
      for (const char* name : {"Haus.kwd", "Haus_Gas.dat", "Haus_Strom.dat"})
        EXPECT_TRUE(files->replaceFile(home / folder + "/" + name, base::asBytes(state)));
    }
  }
  // Restores the one and the other in turn, until it is killed.
  [[noreturn]] void restoreForEver() {
    for (int round = 0;; ++round) {
      const std::string from = home / (round % 2 == 0 ? "neu" : "alt");
      if (!app::restore(*files, from, home / "daten", "Haus.kwd",
                        {"Haus_Gas.dat", "Haus_Strom.dat"}))
        ::_exit(1);
    }
  }
  std::string stateOf(const char* name) {
    return files->readText(home / "daten/" + name).value_or("fehlt");
  }

  support::TemporaryFolder home;
  std::unique_ptr<base::FileSystem> files = base::makeDiskFileSystem();
};

TEST_F(Killed, RestoringLeavesAYearOfOneMoment) {
  std::mt19937 random(7);
  int interrupted = 0;
  for (int kill = 0; kill < kKills; ++kill) {
    const pid_t child = ::fork();
    if (child == 0) restoreForEver();
    ::usleep(1000 + random() % 20000);
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "it has come to an end by itself";
    interrupted += files->list(home / "daten").value().size() > 3;
    ASSERT_TRUE(app::finishInterrupted(*files, home / "daten"));
    ASSERT_EQ(files->list(home / "daten").value(),
              (std::vector<std::string>{"Haus.kwd", "Haus_Gas.dat", "Haus_Strom.dat"}));
    ASSERT_EQ(stateOf("Haus.kwd"), stateOf("Haus_Gas.dat")) << kill;
    ASSERT_EQ(stateOf("Haus.kwd"), stateOf("Haus_Strom.dat")) << kill;
  }
  EXPECT_GT(interrupted, kKills / 4) << "most kills should hit a restore under way";
}

}  // namespace

#endif
