#include "app/DataFolder.h"

#include <gtest/gtest.h>

#include "HomeFolder.h"
#include "base/Drives.h"
#include "support/TemporaryFolder.h"

using app::SystemFacts;

namespace {

SystemFacts homeOf(const std::string& drive, const std::string& path) {
  SystemFacts facts;
  facts.environment.homeDrive = drive;
  facts.environment.homePath = path;
  return facts;
}

struct HomeCase {
  const char* name;
  const char* drive;
  const char* path;
  const char* folder;
};

class HomeJoining : public testing::TestWithParam<HomeCase> {};

TEST_P(HomeJoining, GivesTheDefaultDataFolder) {
  EXPECT_EQ(app::defaultDataFolder(homeOf(GetParam().drive, GetParam().path), '\\'),
            GetParam().folder);
}

INSTANTIATE_TEST_SUITE_P(
    Windows, HomeJoining,
    testing::Values(
        HomeCase{"PathWithSeparator", "C:", "\\Users\\a",
                 "C:\\Users\\a\\Larvando\\Verbrauchserfassung\\"},
        HomeCase{"BothWithSeparator", "C:\\", "\\Users\\a",
                 "C:\\Users\\a\\Larvando\\Verbrauchserfassung\\"},
        HomeCase{"DriveWithSeparator", "C:\\", "Users\\a",
                 "C:\\Users\\a\\Larvando\\Verbrauchserfassung\\"},
        HomeCase{"NeitherWithSeparator", "C:", "Users\\a",
                 "C:\\Users\\a\\Larvando\\Verbrauchserfassung\\"},
        HomeCase{"PathEndsWithSeparator", "C:", "\\", "C:\\Larvando\\Verbrauchserfassung\\"},
        HomeCase{"LongDrive", "H:\\Profile\\", "\\a", "H:\\a\\Larvando\\Verbrauchserfassung\\"},
        // The first test leaves a path that starts with a separator to the third.
        HomeCase{"TestsFollowEachOther", "\\\\srv\\h\\", "a",
                 "\\\\\\\\srv\\h\\a\\Larvando\\Verbrauchserfassung\\"}),
    [](const auto& test) { return test.param.name; });

TEST(DataFolder, WithoutDriveAndPathTheHomeVariableCounts) {
  SystemFacts facts;
  facts.environment.home = "/home/anna";
  EXPECT_EQ(app::defaultDataFolder(facts, '/'), "/home/anna/Larvando/Verbrauchserfassung/");
}

TEST(DataFolder, OnARemovableDriveTheDataStayBesideTheProgram) {
  SystemFacts facts = homeOf("C:", "\\Users\\a");
  facts.programFolder = "E:\\Kalvira\\";
  facts.portable = true;
  EXPECT_EQ(app::defaultDataFolder(facts, '\\'), "E:\\Kalvira\\Verbrauchserfassung\\");
}

TEST(DataFolder, PathFileHoldsOneQuotedFieldInWindowsText) {
  EXPECT_EQ(app::pathFileContent("D:\\Meine B\xC3\xBC"
                                 "cher\\"),
            "\"D:\\Meine B\xFC"
            "cher\\\"\r\n");
  EXPECT_EQ(app::baseFolderIn("\"D:\\Meine Daten\""), "D:\\Meine Daten");
  EXPECT_EQ(app::baseFolderIn(""), std::nullopt);
  EXPECT_EQ(app::baseFolderIn("\"\"\r\n"), std::nullopt);
  const std::string japanese = "/home/\xE6\x97\xA5/";
  EXPECT_EQ(app::baseFolderIn(app::pathFileContent(japanese)), japanese);
}

class SettledFolders : public testing::Test {
 protected:
  SettledFolders() { facts.environment = environmentAt(home.path()); }
  ~SettledFolders() override { std::filesystem::current_path("/"); }
  void write(const std::string& path, const std::string& content) {
    ASSERT_TRUE(files->replaceFile(path, base::asBytes(content)));
  }
  support::TemporaryFolder home;
  std::unique_ptr<base::FileSystem> files = base::makeDiskFileSystem();
  SystemFacts facts;
  base::PathState paths;
  const std::string defaultFolder = home / "Larvando/Verbrauchserfassung/";
};

TEST_F(SettledFolders, FirstStartMakesTheProductFolderAndBecomesCurrent) {
  facts.programFolder = home / "bin";
  ASSERT_TRUE(app::settleFolders(paths, *files, facts));
  EXPECT_EQ(paths.DataFolder, defaultFolder);
  EXPECT_EQ(paths.ProgramFolder, home / "bin/");
  EXPECT_TRUE(files->folderExists(defaultFolder));
  EXPECT_EQ(std::filesystem::canonical(defaultFolder), std::filesystem::current_path());
}

TEST_F(SettledFolders, ChangedFolderIsFoundAtTheNextStartAndReset) {
  ASSERT_TRUE(app::settleFolders(paths, *files, facts));
  ASSERT_TRUE(files->makeFolder(home / "Daten"));
  ASSERT_TRUE(app::changeBaseFolder(paths, *files, facts, home / "Daten"));
  EXPECT_EQ(paths.DataFolder, home / "Daten/Verbrauchserfassung/");
  EXPECT_TRUE(files->folderExists(paths.DataFolder));

  base::PathState next;
  ASSERT_TRUE(app::settleFolders(next, *files, facts));
  EXPECT_EQ(next.DataFolder, paths.DataFolder);
  EXPECT_EQ(next.UserBaseFolder, home / "Daten/");

  EXPECT_EQ(app::resetBaseFolder(*files, facts), true);
  EXPECT_EQ(app::resetBaseFolder(*files, facts), false);
  ASSERT_TRUE(app::settleFolders(next, *files, facts));
  EXPECT_EQ(next.DataFolder, defaultFolder);
}

TEST_F(SettledFolders, SecondChangeOfARunIsWrittenWhereTheNextStartDoesNotLook) {
  ASSERT_TRUE(app::settleFolders(paths, *files, facts));
  for (const char* folder : {"Eins", "Zwei"}) {
    ASSERT_TRUE(files->makeFolder(home / folder));
    ASSERT_TRUE(app::changeBaseFolder(paths, *files, facts, home / folder));
  }
  EXPECT_TRUE(files->exists(home / "Eins/Verbrauchserfassung/Pfad_von_LRV.txt"));
  ASSERT_TRUE(app::settleFolders(paths, *files, facts));
  EXPECT_EQ(paths.UserBaseFolder, home / "Eins/");
}

TEST_F(SettledFolders, MissingParentOfAChosenFolderIsNamedAndNotMade) {
  ASSERT_TRUE(app::settleFolders(paths, *files, facts));
  write(defaultFolder + "Pfad_von_LRV.txt", "\"" + (home / "weg/tief") + "\"\r\n");
  const auto settled = app::settleFolders(paths, *files, facts);
  ASSERT_FALSE(settled);
  EXPECT_EQ(settled.error().file, home / "weg/tief/Verbrauchserfassung/");
  EXPECT_EQ(paths.DataFolder, home / "weg/tief/Verbrauchserfassung/");
  EXPECT_FALSE(files->exists(home / "weg"));
}

TEST_F(SettledFolders, APathFileThatNamesNoPossibleFolderIsToldAndTheDefaultCounts) {
  ASSERT_TRUE(app::settleFolders(paths, *files, facts));
  const std::string contents[] = {
      "",
      "\"\"\r\n",
      std::string("\"/tmp/a\0b/\"\r\n", 13),
      std::string("\xEF\xBB\xBF\"/tmp/\0/\"", 12),
      "\"/tmp/" + std::string(300, 'a') + "/\"\r\n",
      "\"" + (home / "tief/") + std::string(4080 - home.path().size(), '/') + "\"\r\n",
      "\"" + std::string(5000, 'a') + "\"\r\n"};
  for (const std::string& content : contents) {
    write(defaultFolder + "Pfad_von_LRV.txt", content);
    base::PathState next;
    const auto settled = app::settleFolders(next, *files, facts);
    ASSERT_FALSE(settled) << content;
    EXPECT_EQ(settled.error().file, defaultFolder + "Pfad_von_LRV.txt");
    EXPECT_EQ(next.DataFolder, defaultFolder);
    EXPECT_EQ(next.UserBaseFolder, "");
  }
}

TEST_F(SettledFolders, AYearNamedAtTheStartMakesNothingBesideIt) {
  ASSERT_TRUE(files->makeFolder(home / "Stick"));
  write(home / "Stick/Haus.kwd", "x");
  app::settleFoldersAt(paths, *files, facts, home / "Stick/Haus.kwd");
  EXPECT_EQ(paths.DataFolder, home / "Stick/");
  EXPECT_EQ(paths.YearDatabaseName, "Haus.kwd");
  EXPECT_EQ(paths.YearDatabasePath, home / "Stick/Haus.kwd");
  for (const char* missing : {"Stick", "weg/tief/Haus.kwd", "weg/Haus.kwd"}) {
    app::settleFoldersAt(paths, *files, facts, home / missing);
    EXPECT_EQ(paths.YearDatabaseName, "");
  }
  EXPECT_EQ(files->list(home.path()).value(), std::vector<std::string>{"Stick"});
  facts.chosenDataFolder = home / "Daten";
  app::settleFoldersAt(paths, *files, facts, home / "Stick/Haus.kwd");
  EXPECT_EQ(paths.DataFolder, home / "Daten/") << "chosen for this run";
  EXPECT_EQ(paths.YearDatabasePath, home / "Stick/Haus.kwd");
}

TEST_F(SettledFolders, AFileInTheFoldersPlaceIsNoFolder) {
  ASSERT_TRUE(files->makeFolder(home / "Larvando"));
  write(home / "Larvando/Verbrauchserfassung", "x");
  EXPECT_FALSE(app::settleFolders(paths, *files, facts));
}

TEST_F(SettledFolders, FolderOfTheCommandLineGoesBeforeThePathFile) {
  ASSERT_TRUE(app::settleFolders(paths, *files, facts));
  write(defaultFolder + "Pfad_von_LRV.txt", "\"/nirgends\"\r\n");
  facts.chosenDataFolder = home / "Heute";
  ASSERT_TRUE(app::settleFolders(paths, *files, facts));
  EXPECT_EQ(paths.DataFolder, home / "Heute/");
  EXPECT_EQ(paths.UserBaseFolder, "");
}

TEST_F(SettledFolders, SelectedYearHasANameOnlyWhenItExists) {
  ASSERT_TRUE(app::settleFolders(paths, *files, facts));
  write(defaultFolder + "Alt.KWD", "x");
  app::selectYear(paths, *files, "Alt.KWD");
  EXPECT_EQ(paths.YearDatabaseName, "Alt.KWD");
  app::selectYear(paths, *files, "Neu.kwd");
  EXPECT_EQ(paths.YearDatabasePath, defaultFolder + "Neu.kwd");
  EXPECT_EQ(paths.YearDatabaseName, "");
}

// "A:\", "C:\", "E:\" as the system lists them, each with its NUL.
const std::string kDrives("A:\\\0C:\\\0E:\\\0", 12);

TEST(PortableMode, OnlyTheProgramsOwnRemovableDriveCounts) {
  const auto removable = [](const std::string& root) { return root != "C:\\"; };
  EXPECT_TRUE(base::driveLetterIsRemovable("E:\\Kalvira\\", kDrives, removable));
  EXPECT_FALSE(base::driveLetterIsRemovable("C:\\Programme\\", kDrives, removable));
  EXPECT_FALSE(base::driveLetterIsRemovable("A:\\", kDrives, removable)) << "floppy";
  EXPECT_FALSE(base::driveLetterIsRemovable("F:\\", kDrives, removable));
  EXPECT_FALSE(base::driveLetterIsRemovable("E:\\", "E:\\", removable)) << "behind the last NUL";
}

constexpr const char* kMountInfo =
    "22 1 8:2 / / rw,relatime shared:1 - ext4 /dev/sda2 rw\n"
    "23 22 0:5 / /proc rw - proc proc rw\n"
    "40 22 8:17 / /media/anna/MEIN\\040STICK rw,nosuid shared:9 - vfat /dev/sdb1 rw\n"
    "41 22 8:33 / /daten rw - ext4 /dev/sdc1 rw\n";

TEST(Mounts, DrivesAreTheRootAndWhatCanBeTakenOut) {
  const auto mounts = base::parseMountInfo(kMountInfo);
  ASSERT_EQ(mounts.size(), 4U);
  const auto none = [](const base::Mount&) { return false; };
  const auto third = [](const base::Mount& mount) { return mount.device == "8:33"; };
  using Roots = std::vector<std::string>;
  EXPECT_EQ(base::mediaRoots(mounts, none), (Roots{"/", "/media/anna/MEIN STICK/"}));
  EXPECT_EQ(base::mediaRoots(mounts, third), (Roots{"/", "/daten/", "/media/anna/MEIN STICK/"}));
}

TEST(Mounts, AFolderLiesOnTheMountWithTheLongestName) {
  const auto mounts = base::parseMountInfo(kMountInfo);
  EXPECT_EQ(base::mountHolding(mounts, "/daten/kalvira/bin/")->device, "8:33");
  EXPECT_EQ(base::mountHolding(mounts, "/daten2/bin/")->device, "8:2");
}

}  // namespace
