#include "app/YearFiles.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "app/Backup.h"
#include "app/RunTimeError.h"
#include "app/SafetyCopy.h"
#include "support/TemporaryFolder.h"

namespace {

using Names = std::vector<std::string>;
using namespace std::chrono_literals;

class YearFilesTest : public testing::Test {
 protected:
  YearFilesTest() {
    paths.ProgramFolder = programs.path();
    paths.DataFolder = data.path();
  }
  void put(const std::string& path, const std::string& content = "x") {
    ASSERT_TRUE(files->replaceFile(path, base::asBytes(content)));
  }
  std::string get(const std::string& path) const { return files->readText(path).value_or("-"); }
  Names in(const std::string& folder) const { return files->list(folder).value_or(Names{}); }

  support::TemporaryFolder programs, data, stick;
  std::unique_ptr<base::FileSystem> files = base::makeDiskFileSystem();
  base::PathState paths;
};

TEST_F(YearFilesTest, DefaultYearComesFromTheTemplateOnlyWhenItIsMissing) {
  EXPECT_EQ(app::CreateDefaultYearDatabase(*files, paths).error().file,
            programs / "Vorlverbr8.kwx");
  put(programs / "Vorlverbr8.kwx", "leer");
  std::filesystem::permissions(programs / "Vorlverbr8.kwx", std::filesystem::perms::owner_read);
  ASSERT_TRUE(app::CreateDefaultYearDatabase(*files, paths));
  EXPECT_EQ(get(data / "Verbrauch.kwd"), "leer");
  EXPECT_TRUE(files->info(data / "Verbrauch.kwd")->writable);
  EXPECT_TRUE(files->info(programs / "Vorlverbr8.kwx")->writable);
  put(data / "Verbrauch.kwd", "mein Jahr");
  ASSERT_TRUE(app::CreateDefaultYearDatabase(*files, paths));
  EXPECT_EQ(get(data / "Verbrauch.kwd"), "mein Jahr");
}

TEST_F(YearFilesTest, MissingTemplateLeavesAnExistingYearAlone) {
  put(data / "A.kwd", "alt");
  EXPECT_FALSE(app::createYear(*files, paths, data / "A.kwd"));
  EXPECT_EQ(get(data / "A.kwd"), "alt");
}

TEST_F(YearFilesTest, NewYearDoesNotInheritAJournal) {
  put(programs / "Vorlverbr8.kwx", "leer");
  put(data / "A.kwd", "alt");
  put(data / "A.kwd-journal", "alte Seiten");
  ASSERT_TRUE(app::createYear(*files, paths, data / "A.kwd"));
  EXPECT_EQ(in(data.path()), Names{"A.kwd"});
}

TEST(YearNames, RefusedCharactersAreSwallowed) {
  EXPECT_EQ(app::allowedYearName("Haus.2024"), "Haus2024");
  EXPECT_EQ(app::allowedYearName("a\\b/c<d>e*f?g:h;i,j|k"), "abcdefghijk");
  EXPECT_EQ(app::allowedYearName("M\xC3\xBCller \"Gas\"\n"), "M\xC3\xBCller \"Gas\"");
}

TEST_F(YearFilesTest, PatternsMatchInAnyLetterCaseAndOnlyFiles) {
  put(data / "b.KWD");
  put(data / "A.kwd");
  put(data / "A.kwdx");
  ASSERT_TRUE(files->makeFolder(data / "Ordner.kwd"));
  EXPECT_EQ(app::filesWithExtension(*files, data.path(), ".kwd"), (Names{"A.kwd", "b.KWD"}));
  EXPECT_EQ(app::filesWithExtension(*files, data / "fehlt", ".kwd"), Names{});
}

TEST_F(YearFilesTest, DeletingTakesEverySideFileThatBeginsWithTheName) {
  for (const char* name : {"Verbrauch.kwd", "Verbrauch_Gas.dat", "Verbrauch2_Gas.DAT",
                           "verbrauch_Wasser.dat", "Verbrauch2.kwd", "pauschale.dat"})
    put(data / name);
  ASSERT_TRUE(app::deleteYear(*files, data.path(), "Verbrauch.kwd"));
  EXPECT_EQ(in(data.path()), (Names{"pauschale.dat", "Verbrauch2.kwd", "verbrauch_Wasser.dat"}));
}

TEST_F(YearFilesTest, NamesWithoutABaseHaveNoSideFiles) {
  for (const char* name : {".kwd", "pauschale.dat", "_Gas.dat"}) put(data / name);
  ASSERT_TRUE(app::deleteYear(*files, data.path(), ".kwd"));
  EXPECT_EQ(in(data.path()), (Names{"_Gas.dat", "pauschale.dat"}));
}

TEST_F(YearFilesTest, AnOpenYearIsNeitherDeletedNorReplaced) {
  put(data / "A.kwd", "offen");
  put(data / "A_Gas.dat");
  put(stick / "A.kwd", "gesichert");
  const auto open = files->open(data / "A.kwd", base::OpenMode::ReadWrite);
  ASSERT_TRUE(open);
  EXPECT_EQ(app::deleteYear(*files, data.path(), "A.kwd").error().code, base::ErrorCode::InUse);
  EXPECT_EQ(app::restore(*files, stick.path(), data.path(), "A.kwd", {}).error().code,
            base::ErrorCode::InUse);
  EXPECT_EQ(in(data.path()), (Names{"A.kwd", "A_Gas.dat"}));
}

TEST_F(YearFilesTest, SideFilesAreCopiedWithTheirSubfolders) {
  for (const char* name : {"a.dat", "b.DAT", "cdat", "d.kwd"}) put(data / name, name);
  ASSERT_TRUE(files->makeFolder(data / "Tief"));
  ASSERT_TRUE(files->makeFolder(data / "Tief/Leer"));
  put(data / "Tief/e.dat");
  app::CopySideFiles(*files, data.path(), stick / "neu", {});
  EXPECT_EQ(in(stick / "neu"), (Names{"a.dat", "cdat", "Tief"}));
  EXPECT_EQ(in(stick / "neu/Tief"), (Names{"e.dat", "Leer"}));
}

TEST_F(YearFilesTest, SideFileThatCannotBeCopiedIsToldAndSkipped) {
  for (const char* name : {"a.dat", "b.dat"}) put(data / name, name);
  ASSERT_TRUE(files->makeFolder(stick / "a.dat"));
  Names failed;
  app::CopySideFiles(*files, data.path(), stick.path(),
                     [&](const std::string& message) { failed.push_back(message); });
  EXPECT_EQ(failed, Names{"Datei  a.dat  ist schreibgeschützt oder geöffnet und kann nicht "
                          "kopiert werden"});
  EXPECT_EQ(get(stick / "b.dat"), "b.dat");
}

TEST_F(YearFilesTest, CopyIntoItselfOrBelowItselfEnds) {
  put(data / "a.dat");
  app::CopySideFiles(*files, data.path(), data.path(), {});
  app::CopySideFiles(*files, data.path(), data / "Kopie", {});
  EXPECT_EQ(in(data / "Kopie"), Names{"a.dat"});
}

TEST_F(YearFilesTest, BackupTakesYearsAndSideFilesFlatAndReplaces) {
  for (const char* name : {"A.kwd", "B.KWD", "A_Gas.dat", "pauschale.DAT", "DiagrEinst.txt"})
    put(data / name, name);
  put(stick / "A.kwd", "alt");
  ASSERT_TRUE(app::copyFiles(*files, data.path(), stick.path(),
                             app::backupNames(*files, data.path()).value()));
  EXPECT_EQ(in(stick.path()), (Names{"A.kwd", "A_Gas.dat", "B.KWD", "pauschale.DAT"}));
  EXPECT_EQ(get(stick / "A.kwd"), "A.kwd");
}

TEST_F(YearFilesTest, BackupIntoTheDataFolderHarmsNothing) {
  put(data / "A.kwd", "Jahr");
  ASSERT_TRUE(app::copyFiles(*files, data.path(), data.path(), {"A.kwd"}));
  EXPECT_EQ(get(data / "A.kwd"), "Jahr");
}

TEST_F(YearFilesTest, CancelledOrFailedRunKeepsWhatIsCopied) {
  for (const char* name : {"A.kwd", "B.kwd", "C.kwd"}) put(data / name);
  const auto stopAtSecond = [](const std::string&, std::size_t number, std::size_t count) {
    EXPECT_EQ(count, 3U);
    return number < 1;
  };
  const auto outcome =
      app::copyFiles(*files, data.path(), stick.path(), {"A.kwd", "B.kwd", "C.kwd"}, stopAtSecond);
  EXPECT_EQ(outcome.error().code, base::ErrorCode::Cancelled);
  EXPECT_EQ(in(stick.path()), Names{"A.kwd"});
  EXPECT_EQ(app::copyFiles(*files, data.path(), stick.path(), {"B.kwd", "fehlt.kwd", "C.kwd"})
                .error()
                .file,
            data / "fehlt.kwd");
  EXPECT_EQ(in(stick.path()), (Names{"A.kwd", "B.kwd"}));
}

TEST_F(YearFilesTest, RestoreBringsOnlyTheYearsOwnSideFiles) {
  const Names listed = {"Verbrauch_Gas.dat", "Verbrauch2_Gas.dat", "verbrauch_Gas.dat",
                        "pauschale.dat"};
  EXPECT_EQ(app::sideFilesOf("Verbrauch.kwd", listed), Names{"Verbrauch_Gas.dat"});
  EXPECT_EQ(app::sideFilesOf("", listed), Names{});
  put(stick / "Verbrauch.kwd", "gesichert");
  put(stick / "Verbrauch_Gas.dat", "neu");
  put(data / "Verbrauch.kwd", "heute");
  ASSERT_TRUE(
      app::restore(*files, stick.path(), data.path(), "Verbrauch.kwd", {"Verbrauch_Gas.dat"}));
  EXPECT_EQ(get(data / "Verbrauch.kwd"), "gesichert");
  EXPECT_EQ(get(data / "Verbrauch_Gas.dat"), "neu");
}

TEST(RunTimeErrors, NameNumberSourceFileAndReason) {
  base::Error error;
  error.code = base::ErrorCode::InUse;
  error.file = "/media/stick/A.kwd";
  const std::string text = app::runTimeErrorText(error);
  EXPECT_TRUE(text.starts_with("Fehler # 70 wurde ausgelöst von ")) << text;
  EXPECT_NE(text.find("\n"), std::string::npos);
  EXPECT_NE(text.find("/media/stick/A.kwd"), std::string::npos);
}

class SafetyCopyTest : public YearFilesTest {
 protected:
  SafetyCopyTest() {
    put(data / "Haus.kwd", "Jahr 0");
    put(data / "Haus_Gas.dat", "Gas");
    put(data / "Haus2_Gas.dat", "fremd");
  }
  // One opening of the year on day d (counted from 1 March 2024).
  void open(int d, std::chrono::milliseconds budget = 1000ms) {
    const base::Date date{std::chrono::sys_days{std::chrono::year{2024} / 3 / 1} +
                          std::chrono::days{d}};
    app::SafetyCopy copy(*files, data.path(), "Haus.kwd", date);
    copy.prepare(budget);
    EXPECT_TRUE(copy.finish());
    EXPECT_TRUE(copy.afterClosing());
  }
  Names days() const { return in(data / "Sicherungen"); }
};

TEST_F(SafetyCopyTest, HoldsTheYearAndItsSideFilesAsTheyWere) {
  open(0);
  EXPECT_EQ(in(data / "Sicherungen/2024-03-01"), (Names{"Haus.kwd", "Haus_Gas.dat"}));
  EXPECT_EQ(get(data / "Sicherungen/2024-03-01/Haus.kwd"), "Jahr 0");
}

TEST_F(SafetyCopyTest, IsMadeOnceADayAndOnlyAfterAChange) {
  open(0);
  put(data / "Haus.kwd", "Jahr 1");
  open(0);
  EXPECT_EQ(get(data / "Sicherungen/2024-03-01/Haus.kwd"), "Jahr 0");
  open(1);
  open(2);
  EXPECT_EQ(days(), (Names{"2024-03-01", "2024-03-02"}));
  put(data / "Haus_Gas.dat", "anders");
  open(3);
  EXPECT_EQ(days().back(), "2024-03-04");
}

TEST_F(SafetyCopyTest, TheNewestTenOfEachYearStay) {
  put(data / "Sicherungen.txt");
  for (int day = 0; day < 12; ++day) {
    put(data / "Haus.kwd", "Jahr " + std::to_string(day));
    open(day);
    if (day == 0) put(data / "Sicherungen/2024-03-01/Garten.kwd");
  }
  ASSERT_EQ(days().size(), 11U);
  EXPECT_EQ(in(data / "Sicherungen/2024-03-01"), Names{"Garten.kwd"}) << "another year's copy";
  EXPECT_EQ(days()[1], "2024-03-03");
}

TEST_F(SafetyCopyTest, AYearTooLargeForTheBudgetIsCopiedAfterClosing) {
  open(0, 0ms);
  EXPECT_EQ(in(data / "Sicherungen/2024-03-01"), (Names{"Haus.kwd", "Haus_Gas.dat"}));
  open(1, 0ms);
  EXPECT_EQ(days().size(), 1U) << "nothing has changed";
}

TEST_F(SafetyCopyTest, AdvisesTheNewestCopyOfAYearThatIsBroken) {
  const auto advice = [&](base::ErrorCode code) {
    base::Error error;
    error.code = code;
    return app::SafetyCopy(*files, data.path(), "Haus.kwd", {}).advice(error);
  };
  EXPECT_EQ(advice(base::ErrorCode::Damaged), "");
  open(0);
  put(data / "Haus.kwd", "Jahr 1");
  open(8);
  EXPECT_NE(advice(base::ErrorCode::Damaged).find("vom 09.03.2024"), std::string::npos);
  EXPECT_NE(advice(base::ErrorCode::NotFound), "");
  EXPECT_EQ(advice(base::ErrorCode::InUse), "");
}

TEST_F(SafetyCopyTest, FailureNamesTheFolder) {
  put(data / "Sicherungen", "kein Ordner");
  app::SafetyCopy copy(*files, data.path(), "Haus.kwd",
                       base::Date{std::chrono::year{2024} / 3 / 1});
  copy.prepare(1000ms);
  const auto outcome = copy.finish();
  ASSERT_FALSE(outcome);
  EXPECT_NE(outcome.error().file.find("Sicherungen"), std::string::npos);
}

}  // namespace
