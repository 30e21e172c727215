#include "app/YearFiles.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "app/Backup.h"
#include "app/DeletedYear.h"
#include "app/OpeningCopy.h"
#include "app/RunTimeError.h"
#include "base/Paths.h"
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

TEST_F(YearFilesTest, NewYearDoesNotInheritJournalAndSideFiles) {
  put(programs / "Vorlverbr8.kwx", "leer");
  for (const char* name : {"A.kwd", "A.kwd-journal", "A_WechselGas.dat", "A2_WechselGas.dat"})
    put(data / name, "alt");
  ASSERT_TRUE(app::createYear(*files, paths, data / "A.kwd"));
  EXPECT_EQ(in(data.path()), (Names{"A.kwd", "A2_WechselGas.dat"}));
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

TEST_F(YearFilesTest, OffersStayWhenAYearOfTheirNameGoes) {
  for (const char* name : {"Tarife.kwd", "Tarife_Gas.dat", "T.kwd"}) put(data / name);
  put(data / "Tarife.dat", "Angebote");
  for (const char* year : {"Tarife.kwd", "T.kwd"})
    ASSERT_TRUE(app::deleteYear(*files, data.path(), year));
  EXPECT_EQ(in(data.path()), Names{"Tarife.dat"});
  put(programs / "Vorlverbr8.kwx", "leer");
  put(data / "Tarife.kwd");
  ASSERT_TRUE(app::createYear(*files, paths, data / "Tarife.kwd"));
  EXPECT_EQ(get(data / "Tarife.dat"), "Angebote");
}

TEST_F(YearFilesTest, TheReadingBookGoesWithItsYear) {
  put(data / "Haus.kwd", "Jahr");
  put(data / "Haus_Ablesungen.dat", "Buch");
  put(data / "Garten_Ablesungen.dat", "fremd");
  const auto saved = app::backupNames(*files, data.path());
  ASSERT_TRUE(saved);
  ASSERT_TRUE(app::copyFiles(*files, data.path(), stick.path(), *saved));
  EXPECT_EQ(get(stick / "Haus_Ablesungen.dat"), "Buch");
  const base::FixedClock clock{std::chrono::year(2025) / 1 / 1};
  app::SafetyCopies copies(*files, data.path(), clock);
  const auto kept = app::keepBeforeDeleting(*files, copies, data.path(), "Haus.kwd");
  ASSERT_TRUE(kept);
  EXPECT_EQ(get(base::withSeparator(*kept) + "Haus_Ablesungen.dat"), "Buch");
  ASSERT_TRUE(app::deleteYear(*files, data.path(), "Haus.kwd"));
  EXPECT_EQ(get(data / "Haus_Ablesungen.dat"), "-");
  EXPECT_EQ(get(data / "Garten_Ablesungen.dat"), "fremd");
  const Names sides = app::sideFilesOf("Haus.kwd", in(stick.path()));
  ASSERT_TRUE(app::restore(*files, stick.path(), data.path(), "Haus.kwd", sides));
  EXPECT_EQ(get(data / "Haus_Ablesungen.dat"), "Buch");
  put(programs / "Vorlverbr8.kwx", "leer");
  ASSERT_TRUE(app::createYear(*files, paths, data / "Haus.kwd"));
  EXPECT_EQ(get(data / "Haus_Ablesungen.dat"), "-") << "it is not the new year's";
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

TEST_F(YearFilesTest, AnOlderBackupOfAYearStaysWholeUntilTheNewOneIs) {
  for (const char* name : {"A.kwd", "A_Gas.dat", "B.kwd", "B_Gas.dat", "C.kwd"}) {
    put(data / name, "neu");
    put(stick / name, "alt");
  }
  const auto held = files->open(stick / "B_Gas.dat", base::OpenMode::Read);
  EXPECT_FALSE(app::copyFiles(*files, data.path(), stick.path(),
                              app::backupNames(*files, data.path()).value()));
  for (const char* name : {"A.kwd", "A_Gas.dat"}) EXPECT_EQ(get(stick / name), "neu") << name;
  for (const char* name : {"B.kwd", "B_Gas.dat", "C.kwd"}) EXPECT_EQ(get(stick / name), "alt");
  EXPECT_EQ(in(stick.path()).size(), 5U);
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

TEST_F(YearFilesTest, ASafetyCopyIsAllOfAYear) {
  EXPECT_TRUE(files->makeFolder(data / "Sicherungen"));
  const std::string copy = data / "Sicherungen/2024-03-01/";
  EXPECT_TRUE(files->makeFolder(copy));
  put(copy + "A.kwd", "damals");
  for (const char* name : {"A.kwd", "A_Gas.dat", "A2_Gas.dat"}) put(data / name, "heute");
  ASSERT_TRUE(app::restore(*files, copy, data.path(), "A.kwd", {}));
  EXPECT_EQ(in(data.path()), (Names{"A.kwd", "A2_Gas.dat", "Sicherungen"}));
  EXPECT_EQ(get(data / "A.kwd"), "damals");
}

TEST_F(YearFilesTest, WhatIsNamedOrBeginsLikeADatabaseIsNoTarget) {
  for (const char* name : {"a.kwd", "a.KWX", "b.Kwd"})
    EXPECT_FALSE(app::checkIsNoYear(*files, stick / name)) << name;
  put(stick / "alt.csv", std::string("\0\1\0\0Standard Jet DB\0", 20));
  put(stick / "neu.csv", std::string("\0\1\0\0Standard ACE DB\0", 20));
  put(stick / "kurz.csv", "Standard Jet DB");
  put(stick / "lang.csv", std::string(100, 'x'));
  for (const char* name : {"alt.csv", "neu.csv"})
    EXPECT_EQ(app::checkIsNoYear(*files, stick / name).error().code,
              base::ErrorCode::AlreadyExists);
  for (const char* name : {"kurz.csv", "lang.csv", "fehlt.csv"})
    EXPECT_TRUE(app::checkIsNoYear(*files, stick / name)) << name;
}

TEST(RunTimeErrors, NameNumberSourceFileAndReason) {
  base::Error error;
  error.code = base::ErrorCode::InUse;
  error.file = "/media/stick/A.kwd";
  const std::string text = app::runTimeErrorText(error);
  EXPECT_TRUE(text.starts_with("Fehler # 70 wurde ausgelöst von ")) << text;
  EXPECT_NE(text.find('\n'), std::string::npos);
  EXPECT_NE(text.find("/media/stick/A.kwd"), std::string::npos);
}

class SafetyCopyTest : public YearFilesTest {
 protected:
  SafetyCopyTest() {
    put(data / "Haus.kwd", "Jahr 0");
    put(data / "Haus_Gas.dat", "Gas");
    put(data / "Haus2_Gas.dat", "fremd");
  }
  void goTo(int d) {  // counted from 1 March 2024
    clock.set(
        base::Date{std::chrono::sys_days{std::chrono::year{2024} / 3 / 1} + std::chrono::days{d}});
  }
  // One opening of the year, with a change in it.
  void open(int d, const std::string& changed = {}, std::chrono::milliseconds budget = 1000ms) {
    goTo(d);
    app::OpeningCopy copy(*files, data.path(), "Haus.kwd", clock);
    copy.prepare(budget);
    EXPECT_TRUE(copy.finish());
    if (!changed.empty()) put(data / "Haus.kwd", changed);
    EXPECT_TRUE(copy.afterClosing());
  }
  app::SafetyCopies copies() { return {*files, data.path(), clock}; }
  std::string keep(app::CopyMoment moment) { return copies().keep(moment, "Haus.kwd").value(); }
  Names moments() const { return in(data / "Sicherungen"); }
  std::string copyOf(const std::string& moment, const std::string& name = "Haus.kwd") const {
    return get(data / ("Sicherungen/" + moment + "/" + name));
  }

  base::FixedClock clock{base::Date{std::chrono::year{2024} / 3 / 1}};
};

#ifndef _WIN32  // there folders have no such right
// The year does not change there either, until the folder can be written and the year is closed.
TEST_F(SafetyCopyTest, WaitsForAFolderThatCannotBeWritten) {
  using std::filesystem::perms;
  app::OpeningCopy copy(*files, data.path(), "Haus.kwd", clock);
  copy.prepare(1000ms);
  std::filesystem::permissions(data.path(), perms::owner_read | perms::owner_exec);
  EXPECT_TRUE(copy.finish());
  EXPECT_FALSE(files->exists(data / "Sicherungen"));
  std::filesystem::permissions(data.path(), perms::owner_all);
  put(data / "Haus.kwd", "Jahr 1");
  EXPECT_TRUE(copy.finish());
  EXPECT_EQ(copyOf("2024-03-01"), "Jahr 0");
}
#endif

TEST_F(SafetyCopyTest, HoldsTheYearAndItsSideFilesAsTheyWere) {
  open(0, "Jahr 1");
  EXPECT_EQ(in(data / "Sicherungen/2024-03-01"), (Names{"Haus.kwd", "Haus_Gas.dat"}));
  EXPECT_EQ(copyOf("2024-03-01"), "Jahr 0");
}

TEST_F(SafetyCopyTest, IsMadeAtTheFirstOpeningOfADayAndWhenAChangedYearCloses) {
  open(0);
  EXPECT_EQ(moments(), Names{"2024-03-01"});
  clock.setTime(17h + 27min + 5s);
  open(0, "Jahr 1");
  const std::string closed = "2024-03-01 17.27.05 nach dem Schließen";
  EXPECT_EQ(moments(), (Names{"2024-03-01", closed}));
  EXPECT_EQ(copyOf("2024-03-01"), "Jahr 0");
  EXPECT_EQ(copyOf(closed), "Jahr 1");
  EXPECT_EQ(copyOf(closed, "Haus_Gas.dat"), "Gas");
  open(1);
  open(2);
  EXPECT_EQ(moments().size(), 2U) << "nothing has changed";
  put(data / "Haus_Gas.dat", "anders");
  open(3);
  EXPECT_EQ(moments().back(), "2024-03-04");
  EXPECT_TRUE(files->remove(data / "Haus_Gas.dat"));
  open(4);
  EXPECT_EQ(moments().back(), "2024-03-05") << "a side file less is a change";
}

TEST_F(SafetyCopyTest, EqualCopiesAreKeptOnceAndTheNewestOfThem) {
  open(0);
  EXPECT_EQ(keep(app::CopyMoment::Deleting), data / "Sicherungen/2024-03-01");
  put(data / "Haus.kwd", "Jahr 1");
  open(1);
  put(data / "Haus.kwd", "Jahr 0");
  open(2);
  EXPECT_EQ(moments(), (Names{"2024-03-02", "2024-03-03"})) << "its equal of the first day went";
  put(data / "Haus.kwd", "Jahr 2");
  EXPECT_NE(keep(app::CopyMoment::Clearing), data / "Sicherungen/2024-03-03");
  put(data / "Haus.kwd", "Jahr 0");
  EXPECT_EQ(keep(app::CopyMoment::Clearing), data / "Sicherungen/2024-03-03") << "of today";
}

TEST_F(SafetyCopyTest, TwoOfOneSecondAreToldApart) {
  const std::string first = keep(app::CopyMoment::Replacing);
  put(data / "Haus.kwd", "Jahr 1");
  EXPECT_EQ(keep(app::CopyMoment::Replacing), first + " 2");
  EXPECT_EQ(get(first + "/Haus.kwd"), "Jahr 0");
}

TEST_F(SafetyCopyTest, OfAnOpenYearTheHolderGivesTheDatabase) {
  const auto held = files->open(data / "Haus.kwd", base::OpenMode::ReadWrite);
  EXPECT_EQ(copies().keep(app::CopyMoment::Clearing, "Haus.kwd").error().code,
            base::ErrorCode::InUse);
  const base::ByteSpan bytes = base::asBytes("Jahr offen");
  const auto folder = copies().keepOpen(app::CopyMoment::Clearing, "Haus.kwd",
                                        base::Bytes(bytes.begin(), bytes.end()));
  ASSERT_TRUE(folder);
  EXPECT_EQ(in(*folder), (Names{"Haus.kwd", "Haus_Gas.dat"}));
  EXPECT_EQ(get(*folder + "/Haus.kwd"), "Jahr offen");
}

TEST_F(SafetyCopyTest, OfEachYearTenDaysStay) {
  put(data / "Sicherungen.txt");
  for (int day = 0; day < 12; ++day) {
    put(data / "Haus.kwd", "Jahr " + std::to_string(day));
    open(day, "Abend " + std::to_string(day));
    if (day == 0) put(data / "Sicherungen/2024-03-01/Garten.kwd");
  }
  Names expected{"2024-03-01"};
  for (int day = 3; day <= 12; ++day) {
    const std::string name = std::string("2024-03-") + (day < 10 ? "0" : "") + std::to_string(day);
    expected.insert(expected.end(), {name, name + " 00.00.00 nach dem Schließen"});
  }
  EXPECT_EQ(moments(), expected);
  EXPECT_EQ(in(data / "Sicherungen/2024-03-01"), Names{"Garten.kwd"}) << "another year's copy";
}

TEST_F(SafetyCopyTest, TodaysStaysWhateverTheClockSaidBefore) {
  EXPECT_TRUE(files->makeFolder(data / "Sicherungen"));
  for (int day = 10; day < 20; ++day) {
    const std::string folder = data / ("Sicherungen/2099-01-" + std::to_string(day));
    EXPECT_TRUE(files->makeFolder(folder));
    put(folder + "/Haus.kwd", "verstellte Uhr " + std::to_string(day));
  }
  for (int day = 0; day < 3; ++day) {
    put(data / "Haus.kwd", "Jahr " + std::to_string(day));
    open(day);
  }
  Names found = moments();
  EXPECT_EQ(Names(found.begin(), found.begin() + 3),
            (Names{"2024-03-01", "2024-03-02", "2024-03-03"}));
  EXPECT_EQ(found.size(), 10U);
  EXPECT_EQ(found[3], "2099-01-13") << "days that have not come yet go first";
}

TEST_F(SafetyCopyTest, BeforeRestoringNoCopyGoesForItMayBeTheOneThatIsWanted) {
  for (int day = 0; day < 10; ++day) {
    put(data / "Haus.kwd", "Jahr " + std::to_string(day));
    open(day);
  }
  put(data / "Haus.kwd", "Jahr 0");
  goTo(11);
  keep(app::CopyMoment::Restoring);
  EXPECT_EQ(copyOf("2024-03-01"), "Jahr 0");
  EXPECT_EQ(moments().size(), 11U);
}

TEST_F(SafetyCopyTest, AYearTooLargeForTheBudgetIsCopiedWhenItCloses) {
  open(0, {}, 0ms);
  ASSERT_EQ(moments().size(), 1U);
  EXPECT_EQ(in(data / ("Sicherungen/" + moments()[0])), (Names{"Haus.kwd", "Haus_Gas.dat"}));
  open(1, {}, 0ms);
  EXPECT_EQ(moments().size(), 1U) << "nothing has changed";
}

TEST_F(SafetyCopyTest, AdvisesTheNewestCopyOfAYearThatIsBroken) {
  const auto advice = [&](base::ErrorCode code) {
    base::Error error;
    error.code = code;
    return copies().advice("Haus.kwd", error);
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
  const auto outcome = copies().keep(app::CopyMoment::Deleting, "Haus.kwd");
  ASSERT_FALSE(outcome);
  EXPECT_NE(outcome.error().file.find("Sicherungen"), std::string::npos);
}

TEST_F(SafetyCopyTest, BeforeADeletionEveryYearThatLosesAFileIsCopiedWhole) {
  put(data / "Haus2.kwd", "zweites");
  put(data / "Haus3_Gas.dat", "ohne Jahr");
  put(data / "Garten.kwd");
  auto all = copies();
  const auto folder = app::keepBeforeDeleting(*files, all, data.path(), "Haus.kwd");
  ASSERT_TRUE(folder);
  EXPECT_EQ(in(*folder),
            (Names{"Haus.kwd", "Haus2.kwd", "Haus2_Gas.dat", "Haus3_Gas.dat", "Haus_Gas.dat"}));
  ASSERT_TRUE(app::deleteYear(*files, data.path(), "Haus.kwd"));
  EXPECT_EQ(in(data.path()), (Names{"Garten.kwd", "Haus2.kwd", "Sicherungen"}));
  ASSERT_TRUE(app::restore(*files, *folder, data.path(), "Haus2.kwd", {"Haus2_Gas.dat"}));
  EXPECT_EQ(get(data / "Haus2_Gas.dat"), "fremd");
}

TEST(DeletionReport, SaysWhatWentWhoseItWasAndWhereTheCopyIs) {
  EXPECT_EQ(app::deletionReport("Haus.kwd", {"Haus_Gas.dat", "Haus2_Gas.dat", "Haus2_Strom.dat"},
                                {"Haus2.kwd"}, "/daten/Sicherungen/2024-03-01"),
            "Gelöscht: Haus.kwd, Haus_Gas.dat, Haus2_Gas.dat und Haus2_Strom.dat. Haus2_Gas.dat "
            "und Haus2_Strom.dat gehörten zu Haus2.kwd. Kopie: /daten/Sicherungen/2024-03-01");
  EXPECT_EQ(app::deletionReport("Haus.kwd", {}, {}, ""),
            "Gelöscht: Haus.kwd. Es gibt keine Sicherheitskopie davon.");
}

TEST(YearNames, ACommonBeginningIsNoticedInBothDirections) {
  const Names years{"Verbrauch.kwd", "Verbrauch2025.kwd", "Haushalt 2025.kwd", ".kwd"};
  EXPECT_EQ(app::yearsWithCommonBeginning("Verbrauch2026", years), Names{"Verbrauch.kwd"});
  EXPECT_EQ(app::yearsWithCommonBeginning("Verb", years),
            (Names{"Verbrauch.kwd", "Verbrauch2025.kwd"}));
  EXPECT_EQ(app::yearsWithCommonBeginning("Haushalt 2026", years), Names{});
  EXPECT_EQ(app::yearsWithCommonBeginning("Verbrauch", {"Verbrauch.kwd"}), Names{});
  EXPECT_EQ(app::yearsWithCommonBeginning("", years), Names{});
  EXPECT_EQ(app::namesHint({}), "");
}

class Interrupted : public YearFilesTest {};

TEST_F(Interrupted, TemporaryFilesOfOursGoAndNoOthers) {
  for (const char* name : {"A.kwd-tmp", "A_Gas.dat-tmp", "Pfad_von_LRV.txt-tmp",
                           "DiagrEinst.txt-tmp", "Verbrauchsabrechnung 3.html-tmp", "Jahr.pdf-tmp",
                           "Brief.txt-tmp", "A.kwd", "B_Gas.DAT-tmp", "x-tmp"})
    put(data / name);
  EXPECT_TRUE(files->makeFolder(data / "Sicherungen"));
  EXPECT_TRUE(files->makeFolder(data / "Sicherungen/2024-03-01"));
  put(data / "Sicherungen/2024-03-01/A.kwd-tmp");
  ASSERT_TRUE(app::finishInterrupted(*files, data.path(), "B.kwd"));
  EXPECT_FALSE(files->exists(data / "B_Gas.DAT-tmp"));
  EXPECT_TRUE(files->exists(data / "A_Gas.dat-tmp")) << "of another year";
  const auto held = files->open(data / "A_Gas.dat-tmp", base::OpenMode::ReadWrite);
  ASSERT_TRUE(app::finishInterrupted(*files, data.path()));
  EXPECT_EQ(in(data.path()),
            (Names{"A.kwd", "A_Gas.dat-tmp", "Brief.txt-tmp", "Sicherungen", "x-tmp"}));
  EXPECT_EQ(in(data / "Sicherungen/2024-03-01"), Names{});
}

}  // namespace
