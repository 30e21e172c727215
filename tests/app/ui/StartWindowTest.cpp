#include "app/ui/frmVerbrStart.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>

#include "SampleYear.h"
#include "StartFixture.h"
#include "app/ui/frmNeuVerbrauch.h"
#include "app/ui/frmSichern.h"
#include "mainwindow/LinkBar.h"
#include "readings/MeterReading.h"
#include "support/EmptyYear.h"

using dialogs::Button;
using namespace Qt::Literals::StringLiterals;

namespace {

class StartWindow : public StartFixture {
 protected:
  // Opens the window as the program does.
  frmVerbrStart& open() {
    window_ = std::make_unique<frmVerbrStart>(services, facts, opener);
    window_->setAttribute(Qt::WA_DeleteOnClose, false);
    window_->show();
    QApplication::processEvents();
    return *window_;
  }
  void click(const QString& name) {
    auto* item = window_->filFiles->findItems(name, Qt::MatchExactly).value(0);
    ASSERT_NE(item, nullptr);
    QTest::mouseClick(window_->filFiles->viewport(), Qt::LeftButton, {},
                      window_->filFiles->visualItemRect(item).center());
  }
  void confirmDeletion() { prompts.answer(Button::Ok); }

 private:
  std::unique_ptr<frmVerbrStart> window_;
};

TEST_F(StartWindow, ShowsNameAndVersionInItsCaption) {
  EXPECT_EQ(open().windowTitle(), u"Kalvira    Version 8.8.40"_s);
}

TEST_F(StartWindow, SaysWhatIsDueAndLeadsThere) {
  ASSERT_TRUE(sample::makeBoth(*files, dataFolder(), support::emptyYear()));
  auto& window = open();
  auto* bar = window.findChild<mainwindow::LinkBar*>();
  ASSERT_NE(bar, nullptr);
  EXPECT_FALSE(bar->isVisible()) << "March 2024, and 2024 is read to its end";
  put("Tarife.dat", "\"Gas\",\"Heim\",10,-1,#FALSE#,0,#FALSE#,0,\"\",\"31.03.2024\"\r\n");
  window.activate();
  EXPECT_EQ(bar->lblAblesen->text(), u"Der Vertrag Heim (Gas) endet am 31.03.2024."_s);
  EXPECT_EQ(bar->cmdDorthin->text(), u"Tarife vergleichen…"_s);
  {
    auto year = yearbook::YearSession::open(*files, dataFolder() + "Verbrauch2024.kwd",
                                            dataFolder(), clock);
    ASSERT_TRUE(year);
    std::vector<readings::MeterEntries> unread;
    unread.reserve(yearbook::kMeters.size());
    for (yearbook::Meter meter : yearbook::kMeters) unread.push_back({meter, {}, {}});
    ASSERT_TRUE(readings::takeOver(**year, {"ungelesen"}, unread));
  }
  window.activate();
  EXPECT_TRUE(bar->isVisible());
  EXPECT_EQ(bar->lblAblesen->text(),
            u"Verbrauch2024: Januar und Februar sind noch nicht abgelesen."_s);
  bar->cmdDorthin->click();
  EXPECT_EQ(window.lblFilename->text(), u"Verbrauch2024.kwd"_s);
  EXPECT_EQ(opener.openedAt, u"mnuMonatErfassen"_s);
  bar->cmdAblesenZu->click();
  window.activate();
  EXPECT_FALSE(bar->isVisible()) << "once closed, the same sentence stays away";
}

TEST_F(StartWindow, EmptyFolderGetsAYearFromTheTemplateAndSelectsIt) {
  auto& window = open();
  EXPECT_EQ(window.filFiles->names(), QStringList(u"Verbrauch.kwd"_s));
  EXPECT_EQ(window.lblFilename->text(), u"Verbrauch.kwd"_s);
  EXPECT_EQ(paths.YearDatabasePath, dataFolder() + "Verbrauch.kwd");
  EXPECT_EQ(paths.YearDatabaseName, "Verbrauch.kwd");
}

TEST_F(StartWindow, MissingTemplateIsToldOnceWithItsName) {
  EXPECT_TRUE(files->remove(program / "Vorlverbr8.kwx"));
  prompts.acceptTellings();
  auto& window = open();
  window.activate();
  QApplication::processEvents();
  ASSERT_EQ(prompts.shown.size(), 1U);
  EXPECT_TRUE(prompts.last().text.startsWith(u"Fehler # 53 wurde ausgelöst von "_s));
  EXPECT_TRUE(prompts.last().text.contains(u"Vorlverbr8.kwx"_s));
}

TEST_F(StartWindow, FolderThatCannotBeMadeIsNamed) {
  facts.chosenDataFolder = home / "weg/tief";
  prompts.acceptTellings();
  open();
  ASSERT_EQ(prompts.shown.size(), 1U);
  EXPECT_TRUE(prompts.last().text.contains(QString::fromStdString(home / "weg/tief")));
}

TEST_F(StartWindow, ClickSelectsTheYear) {
  put("Haus.kwd");
  put("Verbrauch.kwd");
  auto& window = open();
  click(u"Haus.kwd"_s);
  EXPECT_EQ(window.lblFilename->text(), u"Haus.kwd"_s);
  EXPECT_EQ(paths.YearDatabaseName, "Haus.kwd");
  window.activate();
  EXPECT_EQ(window.lblFilename->text(), u"Verbrauch.kwd"_s) << "any activation selects it";
}

TEST_F(StartWindow, WithoutADefaultYearTheSelectionStays) {
  put("Haus.kwd");
  put("Garten.kwd");
  auto& window = open();
  EXPECT_EQ(window.lblFilename->text(), QString());
  click(u"Haus.kwd"_s);
  window.activate();
  EXPECT_EQ(window.lblFilename->text(), u"Haus.kwd"_s);
}

TEST_F(StartWindow, TheFirstKeyChoosesTheNameWithTheFocus) {
  put("Haus.kwd");
  put("Wohnung.kwd");
  auto& window = open();
  window.activateWindow();
  window.filFiles->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(window.lblFilename->text(), QString());
  QTest::keyClick(window.filFiles, Qt::Key_Down);
  EXPECT_EQ(window.lblFilename->text(), u"Haus.kwd"_s);
  QTest::keyClick(window.filFiles, Qt::Key_Down);
  EXPECT_EQ(window.lblFilename->text(), u"Wohnung.kwd"_s);
  QTest::keyClick(window.filFiles, Qt::Key_Return);
  EXPECT_EQ(opener.openedOver, 1);
}

TEST_F(StartWindow, ButtonPlaysTheClickAndOpens) {
  auto& window = open();
  window.cmdHausrat->click();
  EXPECT_EQ(shell.played, std::vector<QString>{QString::fromStdString(program / "click.wav")});
  EXPECT_EQ(opener.opened, 1);
}

TEST_F(StartWindow, OnlyTheButtonTestsForAnEmptyList) {
  auto& window = open();
  EXPECT_TRUE(files->remove(dataFolder() + "Verbrauch.kwd"));
  window.filFiles->refresh();
  prompts.acceptTellings();
  window.cmdHausrat->click();
  EXPECT_EQ(prompts.take().text,
            u"Sie müssen erst über die Schaltfläche Anlegen eine neue Datei erstellen"_s);
  EXPECT_EQ(opener.opened, 0);
  window.mnuOpen->trigger();
  EXPECT_EQ(opener.opened, 1);
  EXPECT_EQ(paths.YearDatabaseName, "");
}

TEST_F(StartWindow, DoubleClickOpensOverTheWindowAndLooksAgainAfterwards) {
  put("Haus.kwd");
  auto& window = open();
  opener.whileOver = [&] {
    EXPECT_EQ(paths.YearDatabaseName, "Haus.kwd");
    put("Verbrauch.kwd");
  };
  click(u"Haus.kwd"_s);
  Q_EMIT window.filFiles->opened(u"Haus.kwd"_s);
  EXPECT_EQ(opener.openedOver, 1);
  EXPECT_EQ(window.lblFilename->text(), u"Verbrauch.kwd"_s);
}

TEST_F(StartWindow, DeletingAsksWithTheNameAndTakesTheSideFiles) {
  put("Verbrauch.kwd");
  put("Haus.kwd");
  put("Haus_WechselGas.dat");
  put("Haus2_WechselGas.dat");
  put("pauschale.dat");
  auto& window = open();
  click(u"Haus.kwd"_s);
  confirmDeletion();
  window.Option1(1)->click();
  const auto box = prompts.take();
  EXPECT_EQ(box.text, u"Die Datei  Haus.kwd  wird gelöscht !!!"_s);
  EXPECT_EQ(box.title, u" Achtung !!!"_s);
  EXPECT_EQ(box.icon, dialogs::Icon::Critical);
  EXPECT_EQ(box.buttons, dialogs::Buttons::OkCancel);
  EXPECT_EQ(box.defaultButton, Button::Cancel);
  EXPECT_EQ(inDataFolder(),
            (std::vector<std::string>{"pauschale.dat", "Sicherungen", "Verbrauch.kwd"}));
  EXPECT_TRUE(window.Option1(5)->isChecked());
  EXPECT_EQ(window.lblFilename->text(), QString());
  const std::string copy = dataFolder() + "Sicherungen/2024-03-01 00.00.00 vor dem Löschen";
  EXPECT_TRUE(window.lblGeloescht->isVisible());
  EXPECT_EQ(window.lblGeloescht->text().toStdString(),
            "Gelöscht: Haus.kwd, Haus2_WechselGas.dat und Haus_WechselGas.dat. Kopie: " + copy);
  EXPECT_EQ(files->readText(copy + "/Haus2_WechselGas.dat"), "x");
}

TEST_F(StartWindow, WithoutACopyADeletionNeedsAnotherYes) {
  put("Haus.kwd");
  put("Verbrauch.kwd");
  put("Sicherungen", "kein Ordner");
  auto& window = open();
  for (const Button answer : {Button::No, Button::Yes}) {
    click(u"Haus.kwd"_s);
    confirmDeletion();
    prompts.answer(answer);
    window.mnuDatDel->trigger();
    EXPECT_EQ(prompts.last().title, u"Sicherheitskopie"_s);
    EXPECT_EQ(prompts.last().defaultButton, Button::No);
    EXPECT_TRUE(prompts.last().text.contains(u"Sicherungen"_s));
    EXPECT_EQ(files->exists(dataFolder() + "Haus.kwd"), answer == Button::No);
    EXPECT_EQ(window.lblGeloescht->isVisible(), answer == Button::Yes);
    if (answer == Button::No) continue;
    EXPECT_TRUE(window.lblGeloescht->text().contains(u"keine Sicherheitskopie"_s));
  }
}

TEST_F(StartWindow, WhatAnInterruptionLeftIsFinishedAtTheStart) {
  put("Haus.kwd");
  put("Haus_Gas.dat-tmp");
  put("Haus.kwd-vorhaben");
  open();
  EXPECT_EQ(inDataFolder(), std::vector<std::string>{"Haus.kwd"});
}

TEST_F(StartWindow, CancelledDeletionChangesNothing) {
  put("Haus.kwd");
  auto& window = open();
  click(u"Haus.kwd"_s);
  prompts.answer(Button::Cancel);
  window.mnuDatDel->trigger();
  EXPECT_EQ(inDataFolder(), std::vector<std::string>{"Haus.kwd"});
}

TEST_F(StartWindow, OpenYearCannotBeDeleted) {
  auto& window = open();
  const auto held = files->open(dataFolder() + "Verbrauch.kwd", base::OpenMode::ReadWrite);
  prompts.answer(Button::Ok);
  prompts.acceptTellings();
  window.mnuDatDel->trigger();
  EXPECT_TRUE(prompts.last().text.contains(u"ist geöffnet"_s)) << prompts.last().text.toStdString();
  EXPECT_EQ(inDataFolder(), std::vector<std::string>{"Verbrauch.kwd"});
}

TEST_F(StartWindow, DeletingTheLastYearLeadsToTheNewDatabaseWindowAndAFreshYear) {
  auto& window = open();
  confirmDeletion();
  bool shown = false;
  QTimer::singleShot(0, [&] {
    auto* fresh = qobject_cast<frmNeuVerbrauch*>(QApplication::activeModalWidget());
    ASSERT_NE(fresh, nullptr);
    shown = true;
    EXPECT_EQ(inDataFolder(), std::vector<std::string>{"Sicherungen"});
    fresh->Command2->click();
  });
  window.mnuDatDel->trigger();
  EXPECT_TRUE(shown);
  EXPECT_EQ(inDataFolder(), (std::vector<std::string>{"Sicherungen", "Verbrauch.kwd"}));
}

TEST_F(StartWindow, SavingOpensTheBackupWindow) {
  auto& window = open();
  bool shown = false;
  QTimer::singleShot(0, [&] {
    auto* backup = qobject_cast<frmSichern*>(QApplication::activeModalWidget());
    ASSERT_NE(backup, nullptr);
    shown = true;
    backup->Command2->click();
  });
  window.Option1(2)->click();
  EXPECT_TRUE(shown);
}

TEST_F(StartWindow, ImportIsStartedFromTheMenuAndNotByItsOption) {
  auto& window = open();
  shell.succeeds = false;
  window.Option1(3)->click();
  EXPECT_TRUE(shell.started.empty());
  window.mnuImport->trigger();
  EXPECT_EQ(shell.started,
            std::vector<QString>{QString::fromStdString(program / "Kalvimport.exe")});
}

TEST_F(StartWindow, ChangingTheFolderMovesOverAndTellsWhere) {
  auto& window = open();
  EXPECT_TRUE(files->makeFolder(home / "Daten"));
  prompts.answerPath(QString::fromStdString(home / "Daten"));
  prompts.acceptTellings();
  window.mnuPfadLRV->trigger();
  const std::string folder = home / "Daten/Verbrauchserfassung/";
  EXPECT_EQ(prompts.take().text,
            u"Der Pfad zur Datenbank wurde geändert auf:  "_s + QString::fromStdString(folder));
  const auto dialog = prompts.take();
  EXPECT_EQ(dialog.title, u"Wählen Sie einen Ordner aus"_s);
  EXPECT_EQ(dialog.preset, u"C:\\"_s);
  EXPECT_EQ(paths.DataFolder, folder);
  EXPECT_EQ(paths.YearDatabasePath, folder + "Verbrauch.kwd");
  EXPECT_EQ(files->readText(dataFolder() + "Pfad_von_LRV.txt"),
            "\"" + (home / "Daten/") + "\"\r\n");

  window.mnuPfadDel->trigger();
  EXPECT_EQ(prompts.take().text,
            u"Die Datei Pfad_von_LRV.txt wurde gelöscht!\n"
            "Sie müssen jetzt die Verbrauchserfassung neu starten!"_s);
  EXPECT_EQ(paths.DataFolder, folder) << "takes effect at the next start";
  window.mnuPfadDel->trigger();
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(StartWindow, AFolderThatCannotBeUsedLeavesEverythingAsItWas) {
  put("Haus.kwd");
  auto& window = open();
  click(u"Haus.kwd"_s);
  for (int attempt = 0; attempt < 2; ++attempt) {
    prompts.answerPath(QString::fromStdString(home / "weg"));
    prompts.acceptTellings();
    window.mnuPfadLRV->trigger();
    const auto told = prompts.take();
    EXPECT_EQ(told.title, u"Pfadeinstellungen ändern"_s);
    EXPECT_TRUE(told.text.contains(u"Ordner: "_s + QString::fromStdString(home / "weg/Verbrauchs")))
        << told.text.toStdString();
    prompts.take();
    EXPECT_TRUE(prompts.shown.empty());
    EXPECT_EQ(paths.DataFolder, dataFolder());
    EXPECT_EQ(paths.UserBaseFolder, "");
    EXPECT_EQ(window.lblFilename->text(), u"Haus.kwd"_s);
    EXPECT_EQ(files->exists(dataFolder() + "Pfad_von_LRV.txt"), attempt == 1);
    put("Pfad_von_LRV.txt", "\"/anderswo/\"\r\n");
  }
  EXPECT_EQ(files->readText(dataFolder() + "Pfad_von_LRV.txt"), "\"/anderswo/\"\r\n");
}

// A stick that is not there; the next start must find the new choice.
TEST_F(StartWindow, AMissingChosenFolderDoesNotHinderAnotherChoice) {
  put("Pfad_von_LRV.txt", "\"" + (home / "stick/") + "\"\r\n");
  prompts.acceptTellings();
  auto& window = open();
  QApplication::processEvents();
  prompts.shown.clear();
  EXPECT_TRUE(files->makeFolder(home / "Daten"));
  prompts.answerPath(QString::fromStdString(home / "Daten"));
  window.mnuPfadLRV->trigger();
  ASSERT_EQ(prompts.shown.size(), 2u) << "the choice and one box";
  EXPECT_EQ(prompts.last().icon, dialogs::Icon::Information);
  base::PathState next;
  EXPECT_TRUE(app::settleFolders(next, *files, facts));
  EXPECT_EQ(next.DataFolder, home / "Daten/Verbrauchserfassung/");
}

TEST_F(StartWindow, AChoiceThatCannotBeKeptIsToldInOneBox) {
  auto& window = open();
  EXPECT_TRUE(files->makeFolder(dataFolder() + "Pfad_von_LRV.txt"));
  EXPECT_TRUE(files->makeFolder(home / "Daten"));
  prompts.answerPath(QString::fromStdString(home / "Daten"));
  prompts.acceptTellings();
  window.mnuPfadLRV->trigger();
  ASSERT_EQ(prompts.shown.size(), 2u);
  const auto told = prompts.take();
  EXPECT_EQ(told.icon, dialogs::Icon::Warning);
  for (const QString& part : {u"wurde geändert auf:  "_s, u"bis zum Ende des Programms"_s,
                              u"Pfad_von_LRV.txt"_s, u"Pfad Datenbank löschen"_s})
    EXPECT_TRUE(told.text.contains(part)) << told.text.toStdString();
  EXPECT_EQ(paths.DataFolder, home / "Daten/Verbrauchserfassung/");
}

TEST_F(StartWindow, AYearOfTheSameNameInTheNewFolderIsNotSelected) {
  put("Haus.kwd");
  auto& window = open();
  click(u"Haus.kwd"_s);
  EXPECT_TRUE(files->makeFolder(home / "Daten"));
  EXPECT_TRUE(files->makeFolder(home / "Daten/Verbrauchserfassung"));
  EXPECT_TRUE(files->replaceFile(home / "Daten/Verbrauchserfassung/Haus.kwd", base::asBytes("x")));
  prompts.answerPath(QString::fromStdString(home / "Daten"));
  prompts.acceptTellings();
  window.mnuPfadLRV->trigger();
  EXPECT_EQ(window.filFiles->names(), QStringList{u"Haus.kwd"_s});
  EXPECT_EQ(window.filFiles->selectedName(), window.lblFilename->text());
}

TEST_F(StartWindow, CancelledFolderChoiceChangesNothing) {
  auto& window = open();
  prompts.answerPath({});
  window.mnuPfadLRV->trigger();
  EXPECT_EQ(paths.DataFolder, dataFolder());
}

TEST_F(StartWindow, HelpLooksAgainWhenItCloses) {
  auto& window = open();
  window.mnuHilfe->trigger();
  auto* help = window.findChild<QWidget*>(u"frmHilfe"_s);
  ASSERT_NE(help, nullptr);
  put("Neu.kwd");
  help->close();
  QApplication::sendPostedEvents(help, QEvent::DeferredDelete);
  EXPECT_TRUE(window.filFiles->names().contains(u"Neu.kwd"_s));
}

TEST_F(StartWindow, HelpGoesWithTheWindow) {
  auto* window = new frmVerbrStart(services, facts, opener);
  window->show();
  QApplication::processEvents();
  window->mnuHilfe->trigger();
  window->mnuHilfe->trigger();
  EXPECT_EQ(window->findChildren<QWidget*>(u"frmHilfe"_s).size(), 1);
  window->close();
  QApplication::sendPostedEvents(window, QEvent::DeferredDelete);
  EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

}  // namespace
