#include <QSet>

#include "MainWindowFixture.h"
#include "support/ui/FakeKeeper.h"
#include "yearbook/ui/WriteWatch.h"

using namespace Qt::Literals::StringLiterals;
using dialogs::Button;

// What the main window asks and tells, and when it looks at the year again.

class MainWindow : public MainWindowFixture {};

TEST_F(MainWindow, AnEmptyYearAsksForTheStartReadingOncePerActivation) {
  prompts.acceptTellings();
  prompts.answerInput(u"abc"_s);
  openEmpty();
  EXPECT_EQ(prompts.last().text, u"Anfangszählerstand eingeben"_s);
  EXPECT_EQ(prompts.last().title, u"Eingabe Anfangszählerstand"_s);
  EXPECT_EQ(prompts.shown.size(), 1u);
  // Boxes are no windows: nothing is asked again after them.
  window->mnuRechnen->trigger();
  settle();
  EXPECT_EQ(prompts.shown.size(), 2u);
  prompts.answerInput(u"41236"_s);
  window->mnuNew->trigger();
  EXPECT_EQ(navigator.calls, QStringList{u"showNewDatabase"_s});
  EXPECT_EQ(window->Frame1->txtAnfStandST->text(), u"41.236"_s);
  window->mnuNew->trigger();
  EXPECT_EQ(prompts.shown.size(), 3u);
  EXPECT_EQ(stored()->values().startReadings[yearbook::Meter::Day], 41236);
}

TEST_F(MainWindow, AStartReadingOfZeroIsOne) {
  prompts.answerInput(u"0"_s);
  openEmpty();
  window->mnuNew->trigger();
  EXPECT_EQ(prompts.shown.size(), 1u);
}

TEST_F(MainWindow, ClearingAsksAndWorksOnTheSelectedUtilityOnly) {
  openSample();
  window->TabStrip->setCurrentWidget(window->Frame3);
  prompts.answer(Button::No);
  window->mnuDelete->trigger();
  EXPECT_EQ(prompts.last().text,
            u"Sollen alle Eingaben für Gas in diesem Fenster gelöscht werden?"_s);
  EXPECT_EQ(prompts.last().title, u"Alle Werte löschen"_s);
  EXPECT_EQ(prompts.last().defaultButton, Button::No);
  EXPECT_EQ(window->Frame3->txtBetragG->text(), u"1.388,00"_s);
  prompts.answer(Button::Yes);
  window->mnuDelete->trigger();
  EXPECT_EQ(window->Frame3->txtBetragG->text(), QString());
  EXPECT_EQ(window->Frame3->txtFaktor->text(), QString());
  EXPECT_EQ(window->Frame3->months->consumption(0)->text(), QString());
  EXPECT_EQ(window->Frame1->txtBetragTS->text(), u"870,62"_s);
  EXPECT_EQ(prompts.shown.size(), 2u);
  EXPECT_EQ(stored()->values().gasFactor, 0);
}

// The copy holds the year as it was, and without it nothing changes unless the user goes on.
TEST_F(MainWindow, ACopyComesBeforeClearingAndBeforeAnotherStartMonth) {
  openSample();
  FakeKeeper keeper;
  services.keeper = &keeper;
  prompts.acceptTellings();
  const std::pair<dialogs::Harm, std::function<void()>> actions[] = {
      {dialogs::Harm::Clearing,
       [&] {
         prompts.answer(Button::Yes);
         window->mnuDelete->trigger();
       }},
      {dialogs::Harm::ShiftingStart, [&] {
         prompts.answerInput(u"4"_s);
         window->mnuStMoS->trigger();
       }}};
  const base::Bytes before = window->session().database().image().value();
  for (const auto& [harm, act] : actions) {
    keeper = FakeKeeper();
    keeper.goesOn = false;
    act();
    EXPECT_EQ(keeper.harms, std::vector{harm});
    EXPECT_EQ(window->session().database().image(), before);
    EXPECT_TRUE(navigator.calls.isEmpty());
  }
  for (const auto& [harm, act] : actions) {
    const base::Bytes old = window->session().database().image().value();
    keeper = FakeKeeper();
    act();
    EXPECT_EQ(keeper.harms, std::vector{harm});
    EXPECT_EQ(keeper.image, old);
    EXPECT_NE(window->session().database().image(), old);
  }
  EXPECT_EQ(navigator.calls, QStringList{u"endProgram"_s});
}

TEST_F(MainWindow, TheToolbarsDeleteTellsItsHintEvenAfterNoAndOnOtherPages) {
  openSample();
  prompts.acceptTellings();
  prompts.answer(Button::No);
  window->toolButton(u"Löschen"_s)->trigger();
  ASSERT_EQ(prompts.shown.size(), 2u);
  EXPECT_EQ(prompts.last().title, u"Datenbank Verbrauch löschen"_s);
  EXPECT_TRUE(prompts.last().text.contains(u"Verbrauchsverwaltuing neu und benuzten"_s));
  window->TabStrip->setCurrentWidget(window->Frame5);
  window->toolButton(u"Löschen"_s)->trigger();
  EXPECT_EQ(prompts.shown.size(), 3u);
}

TEST_F(MainWindow, SavingExplainsTheBackup) {
  openSample();
  prompts.acceptTellings();
  window->toolButton(u"Speichern"_s)->trigger();
  EXPECT_TRUE(window->fraHinweis->lblHinweis->text().startsWith(u"Alles Eingegebene ist schon"_s));
  EXPECT_EQ(
      prompts.last().text,
      u"Wenn Sie die  Datenbank sichern wollen, schließen Sie die Verbrauchsverwaltung.\nStarten "
      u"Sie anschließend die Verbrauchsverwaltung neu und benuzten Sie die Schaltfläche [Daten "
      u"sichern] im Startfenster"_s);
  EXPECT_EQ(prompts.last().title, u"Datenbank Verbrauch löschen"_s);
}

TEST_F(MainWindow, AnotherStartMonthEndsTheProgram) {
  openSample();
  prompts.acceptTellings();
  for (const auto& [typed, text] : {std::pair{u"abc"_s, u"Nur Zahlen von 1 bis 12 eingeben!"_s},
                                    std::pair{u"13"_s, u"Falsche Eingabe"_s}}) {
    prompts.answerInput(typed);
    click(window->Frame1->cmdBeginnS);
    EXPECT_EQ(prompts.last().text, text);
    EXPECT_EQ(prompts.last().icon, dialogs::Icon::Critical);
  }
  prompts.answerInput(std::nullopt);
  window->mnuStMoS->trigger();
  EXPECT_TRUE(navigator.calls.isEmpty());
  prompts.answerInput(u"4"_s);
  click(window->Frame1->cmdBeginnS);
  EXPECT_EQ(prompts.last().text,
            u"Der Startmonat wurde angepasst \nDas Programm muß jetzt neu gestartet werden!"_s);
  EXPECT_EQ(prompts.last().title, u"Anpassen Startmonat"_s);
  EXPECT_EQ(navigator.calls, QStringList{u"endProgram"_s});
  EXPECT_EQ(window->Frame1->months->check(0)->text(), u"April"_s);
  EXPECT_EQ(window->Frame2->months->month(0)->text(), u"Januar"_s);
  EXPECT_EQ(stored()->adoStrom.text(0, yearbook::strom::month), "April");
}

TEST_F(MainWindow, AStartMonthThatCouldNotBeStoredDoesNotEndTheProgram) {
  openSample();
  prompts.acceptTellings();
  prompts.answerInput(u"4"_s);
  files.arm({0, true, base::ErrorCode::NoSpace, false});
  window->mnuStMoG->trigger();
  files.disarm();
  EXPECT_EQ(prompts.last().title, u"Fehler"_s);
  EXPECT_TRUE(navigator.calls.isEmpty());
  EXPECT_EQ(window->Frame3->months->month(0)->text(), u"Januar"_s);
}

TEST_F(MainWindow, PrintingShowsTheOverviewAndLocksTheUtilityButtons) {
  openSample();
  window->toolButton(u"Drucken"_s)->trigger();
  EXPECT_EQ(window->TabStrip->currentWidget(), window->Frame4);
  EXPECT_FALSE(window->toolButton(u"Nachtstrom"_s)->isEnabled());
  EXPECT_FALSE(window->toolButton(u"Löschen"_s)->isEnabled());
  window->TabStrip->setCurrentIndex(1);
  EXPECT_TRUE(window->toolButton(u"Löschen"_s)->isEnabled());
}

TEST_F(MainWindow, ReadingsTakenOverInTheirWindowShowAtOnce) {
  openSample();
  clickAndHandle(window->Frame1->cmdEingabeVerbrauchS, [](QDialog* dialog) {
    type(dialog->findChild<QLineEdit*>(u"txtVerbrauch_11"_s), u"1606"_s);
    dialog->findChild<QPushButton*>(u"Command1"_s)->click();
  });
  EXPECT_EQ(window->Frame1->txtEndStandST->text(), u"1.606"_s);
  EXPECT_EQ(window->Frame1->txtVerbrauchTS->text(), u"3.093"_s);
  EXPECT_EQ(window->Frame1->months->consumption(11)->text(), u"405"_s);
  const auto year = stored();
  EXPECT_EQ(year->adoVerbrM.number(11, yearbook::verbrMonat::day), 405);
  EXPECT_EQ(year->adoStrom.money(11, yearbook::strom::monthAmount),
            base::Money::fromTenThousandths(1170450) +
                yearbook::orZero(year->adoStrom.money(11, yearbook::strom::nightAmount)));
}

TEST_F(MainWindow, MonthlyPricesAndFeesComeBackIntoTheirFields) {
  openSample();
  clickAndHandle(window->Frame3->cmdPreisJeEinheitG, [](QDialog* dialog) {
    dialog->findChild<QCheckBox*>(u"Check1_11"_s)->setChecked(true);
    type(dialog->findChild<QLineEdit*>(u"txtJeKubik"_s), u"10"_s);
    dialog->findChild<QPushButton*>(u"Command1"_s)->click();
  });
  EXPECT_EQ(window->Frame3->txtPreisGas->text(), u"10,00"_s);
  EXPECT_EQ(window->session().adoGas.number(0, yearbook::gas::price), 9.45);
  clickAndHandle(window->Frame2->cmdWWMonatl, [](QDialog* dialog) {
    type(dialog->findChild<QLineEdit*>(u"txtVerbrauch_0"_s), u"7,91"_s);
    dialog->findChild<QPushButton*>(u"Command1"_s)->click();
  });
  EXPECT_EQ(window->Frame2->txtGrundgebAbW->text(), u"7,91"_s);
}

TEST_F(MainWindow, AChartShowsWhatTheUtilityTablesHold) {
  openSample();
  // Another program may have left an older copy.
  ASSERT_TRUE(window->session().transact({}, [](yearbook::YearRows& rows) {
    return rows.adoVerbrM.setNumber(3, yearbook::verbrMonat::wasteWater, 77);
  }));
  const std::pair<QPushButton*, const char*> windows[] = {
      {window->Frame2->cmdDiagrammWW, "frmDiagramm"},
      {window->Frame3->cmdDiagrammGas, "frmDiagramm"},
      {window->Frame2->cmdDiagrVergleichW, "frmDiagrVergleich"}};
  prompts.answerPath({});  // no other year to compare with
  for (const auto& [button, name] : windows)
    clickAndHandle(button, [name = name](QDialog* dialog) {
      EXPECT_STREQ(dialog->metaObject()->className(), name);
    });
  EXPECT_EQ(window->session().adoVerbrM.number(3, yearbook::verbrMonat::wasteWater), 10);
}

TEST_F(MainWindow, TheProjectionsStartDateIsTheMainWindows) {
  openSample();
  prompts.acceptTellings();
  QTimer::singleShot(0, window.get(), [] {
    auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_TRUE(modal);
    EXPECT_STREQ(modal->metaObject()->className(), "frmHochrechnung");
    enter(modal->findChild<QLineEdit*>(u"txtDatumStrom"_s), u"15.01.2025"_s);
    modal->close();
  });
  window->toolButton(u"Hochrechnung"_s)->trigger();
  EXPECT_EQ(window->Frame1->txtDatumStrom->text(), u"15.01.2025"_s);
}

TEST_F(MainWindow, AYearThatCanOnlyBeReadSaysSo) {
  makeSample();
  disk.protect(kSample);
  openWindow(kSample);
  EXPECT_TRUE(window->lblHinweis->isVisible());
  EXPECT_TRUE(window->lblHinweis->text().contains(u"nur gelesen"_s));
  const QString said = window->lblHinweis->text();
  window->fraHinweis->say(mainwindow::NoticeFrom::SafetyCopy, u"Keine Sicherheitskopie."_s);
  EXPECT_EQ(window->lblHinweis->text(), said) << "the later one waits";
  EXPECT_EQ(window->fraHinweis->lblNochHinweise->text(), u"noch 1 Hinweis"_s);
  window->fraHinweis->cmdGelesen->click();
  EXPECT_EQ(window->lblHinweis->text(), u"Keine Sicherheitskopie."_s);
  type(window->Frame1->txtMwStS, u"7"_s);
  EXPECT_EQ(window->Frame1->txtMwStS->text(), u"19"_s);
  EXPECT_FALSE(window->Frame1->months->zeroAdvances->isEnabled());
}

namespace {

// Lets the window look at once, not in some seconds, whether it can write again.
void lookAgain(frmVerbrauch& window) {
  auto* watch = window.findChild<yearbook::WriteWatch*>();
  ASSERT_TRUE(watch);
  auto* timer = watch->findChild<QTimer*>();
  timer->setInterval(0);
  QTest::qWait(20);
}

}  // namespace

// Its month sums must follow, and there is no start reading yet.
TEST_F(MainWindow, AYearInAFolderWithoutPermissionIsReadUntilThereIsOne) {
  disk.put(kEmpty, support::emptyYear());
  {
    auto database = jet::Database::open(disk, kEmpty);
    auto table = database->openTable("Strom");
    ASSERT_TRUE(database->begin());
    ASSERT_TRUE(
        table->set(0, *table->columnIndex("PGesammt"), base::Money::fromTenThousandths(77700)));
    ASSERT_TRUE(database->commit());
  }
  disk.protectFolder("/daten");
  openWindow(kEmpty);
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_TRUE(window->lblHinweis->isVisible());
  EXPECT_TRUE(window->lblHinweis->text().contains(u"Ordner /daten/: Der Zugriff"_s))
      << window->lblHinweis->text().toStdString();
  EXPECT_TRUE(window->Frame5->txtAnmerkungenS(0)->isReadOnly());
  EXPECT_TRUE(window->Frame1->txtDatumStrom->isReadOnly());
  EXPECT_FALSE(window->mnuDelete->isEnabled() || window->mnuStMoG->isEnabled());
  EXPECT_FALSE(window->Frame2->cmdBeginnW->isEnabled());
  EXPECT_EQ(window->session().adoStrom.money(0, yearbook::strom::monthAmount), base::Money());
  ASSERT_TRUE(disk.makeWritable("/daten"));
  lookAgain(*window);
  EXPECT_FALSE(window->lblHinweis->isVisible());
  EXPECT_TRUE(window->mnuDelete->isEnabled() && window->Frame2->cmdBeginnW->isEnabled());
  type(window->Frame1->txtMwStS, u"7"_s);
  const auto year = stored();
  EXPECT_EQ(year->values().vat[yearbook::Meter::Day], 7);
}

// One box for what could not be stored; then the fields take nothing until there is room.
TEST_F(MainWindow, ADiskThatGetsFullIsToldOnce) {
  openSample();
  prompts.acceptTellings();
  files.arm({0, true, base::ErrorCode::NoSpace});
  type(window->Frame1->txtMwStS, u"716"_s);
  EXPECT_EQ(prompts.shown.size(), 1u);
  EXPECT_EQ(window->Frame1->txtMwStS->text(), u"19"_s);
  EXPECT_TRUE(window->lblHinweis->text().contains(u"kein Platz"_s));
  lookAgain(*window);
  EXPECT_TRUE(window->Frame1->txtMwStS->isReadOnly());
  files.disarm();
  lookAgain(*window);
  EXPECT_FALSE(window->lblHinweis->isVisible());
  type(window->Frame1->txtMwStS, u"7"_s);
  EXPECT_EQ(prompts.shown.size(), 1u);
  EXPECT_EQ(stored()->values().vat[yearbook::Meter::Day], 7);
}

// The disk goes while a change is on its way into the file. The next opening completes or drops it;
// until then nothing more can be stored.
TEST_F(MainWindow, AYearLeftInMidChangeAsksToBeOpenedAgain) {
  prompts.acceptTellings();
  bool met = false;
  for (std::size_t call = 0; call < 60 && !met; ++call) {
    window.reset();
    openSample();
    prompts.shown.clear();
    files.arm({call, true, base::ErrorCode::IoError, false});
    type(window->Frame1->txtMwStS, u"7"_s);
    files.disarm();
    met = window->session().database().needsReopen();
    if (!met) continue;
    EXPECT_TRUE(window->lblHinweis->isVisible());
    EXPECT_TRUE(window->lblHinweis->text().contains(u"schließen Sie dieses Jahr und öffnen"_s));
    ASSERT_EQ(prompts.shown.size(), 1u);
    const bool refused = prompts.take().text.contains(u"konnte nicht gespeichert werden"_s);
    type(window->Frame1->txtTPreis, u"1"_s);
    EXPECT_TRUE(prompts.shown.empty());
    const auto year = stored();
    const auto vat = year->values().vat[yearbook::Meter::Day];
    EXPECT_TRUE(vat == 19 || (vat == 7 && !refused));
    EXPECT_EQ(year->values().prices[yearbook::Meter::Day], 28.9);
  }
  EXPECT_TRUE(met);
}

namespace {

// An empty year with an index on the month, one key of which is wrong.
base::Bytes yearWithDamagedIndex() {
  auto tables = yearbook::templateTables();
  tables[0].indexes.push_back({"Monat", {{"Monat", true}}, false, false});
  base::Bytes bytes = jet::createDatabase(tables).value_or(base::Bytes());
  constexpr std::size_t kPage = 4096;
  constexpr std::uint8_t kIndexLeaf = 4;
  const std::size_t entries = 0x1E0;  // where the keys begin in a page of an index
  // The last leaf is that of the table added last with an index: Strom's.
  for (std::size_t page = bytes.size() / kPage; page-- > 0;) {
    if (bytes[page * kPage] != kIndexLeaf) continue;
    bytes[page * kPage + entries + 3] ^= 0x10;
    return bytes;
  }
  return {};
}

}  // namespace

TEST_F(MainWindow, ADamagedIndexIsRebuiltWhenTheUserAgrees) {
  disk.put(kEmpty, yearWithDamagedIndex());
  prompts.answer(Button::Yes);
  prompts.answerInput(u"1"_s);
  openWindow(kEmpty);
  ASSERT_EQ(prompts.shown.size(), 2u);
  EXPECT_TRUE(prompts.shown[0].text.contains(u"Strom"_s));
  EXPECT_EQ(prompts.shown[0].defaultButton, Button::No);
  EXPECT_TRUE(window->session().database().check().empty());
  openWindow(kEmpty);
  EXPECT_EQ(prompts.shown.size(), 2u);
}

TEST_F(MainWindow, ADamagedIndexMayStayAndTheYearIsStillReadable) {
  disk.put(kEmpty, yearWithDamagedIndex());
  prompts.answer(Button::No);
  prompts.answerInput(u"1"_s);
  openWindow(kEmpty);
  window->mnuNew->trigger();
  EXPECT_EQ(prompts.shown.size(), 2u);
  EXPECT_EQ(window->Frame1->txtAnfStandST->text(), u"1"_s);
}

// What can be wrong with any window: a control without a spoken name, a name twice, a field that
// the wheel changes, a text wider than its control.
TEST_F(MainWindow, EveryControlCanBeNamedReadAndReached) {
  openSample();
  window->resize(window->sizeHint().expandedTo(QSize(1366, 700)));
  QSet<QString> names;
  for (int page = 0; page < 3; ++page) {
    window->TabStrip->setCurrentIndex(page);
    settle();
    EXPECT_EQ(window->TabStrip->currentWidget()->focusPolicy(), Qt::NoFocus);
    for (QWidget* control : window->TabStrip->currentWidget()->findChildren<QWidget*>()) {
      const bool typed = qobject_cast<QLineEdit*>(control) != nullptr;
      const auto* button = qobject_cast<QAbstractButton*>(control);
      if ((!typed && button == nullptr) || !control->isVisible()) continue;
      if (control->objectName().startsWith(u"qt_"_s)) continue;
      EXPECT_FALSE(control->objectName().isEmpty());
      EXPECT_FALSE(names.contains(control->objectName())) << control->objectName().toStdString();
      names.insert(control->objectName());
      EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
      EXPECT_GE(control->width(), control->minimumSizeHint().width())
          << control->objectName().toStdString();
    }
  }
  EXPECT_GT(names.size(), 100);
}
