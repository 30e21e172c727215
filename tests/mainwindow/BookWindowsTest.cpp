// The sheet of a month, the reading book and the next year, opened on a year.

#include "MainWindowFixture.h"
#include "nextyear/YearBefore.h"
#include "nextyear/ui/frmFortfuehren.h"
#include "readingbook/ui/frmAblesebuch.h"
#include "readingbook/ui/frmTabelleEinlesen.h"
#include "readings/ui/frmMonatErfassen.h"

using yearbook::Meter;

namespace {

class BookWindows : public MainWindowFixture {
 protected:
  // The sample year without the readings from a month on.
  std::unique_ptr<yearbook::YearSession> openUnread(int from) {
    makeSample();
    auto year = yearbook::YearSession::open(files, kSample, kFolder, clock);
    EXPECT_TRUE(year);
    std::vector<readings::MeterEntries> all;
    for (Meter meter : yearbook::kMeters) {
      auto stored = readingbook::storedMeter(**year, meter);
      std::fill(stored.readings.begin() + from, stored.readings.end(), 0);
      all.push_back({meter, stored.readings, from > 5 ? stored.change : readings::MeterChange()});
    }
    EXPECT_TRUE(readings::takeOver(**year, {"ungelesen"}, all));
    return std::move(*year);
  }
  static double reading(const yearbook::YearSession& year, Meter meter, int month) {
    return readingbook::storedMeter(year, meter).readings[month];
  }
};

TEST_F(BookWindows, AMonthOfAllMetersIsOneStep) {
  const auto year = openUnread(9);
  frmMonatErfassen sheet(services, *year, nullptr);
  sheet.show();
  EXPECT_TRUE(sheet.optMonat(9)->isChecked()) << "October is the first that is open";
  const std::pair<Meter, const char*> typed[] = {
      {Meter::Day, "925"}, {Meter::Night, "399"}, {Meter::Water, "543"}, {Meter::Gas, "11141"}};
  for (const auto& [meter, text] : typed)
    QTest::keyClicks(sheet.row(meter)->txtStand, QString::fromLatin1(text));
  EXPECT_EQ(sheet.row(Meter::Day)->lblVerbrauch->text(), QStringLiteral("255"));
  EXPECT_TRUE(sheet.row(Meter::WasteWater)->chkWieWasser->isChecked());
  QTest::keyClicks(sheet.txtAnmerkung, QStringLiteral("Heizung an"));
  sheet.cmdUebernehmen->click();
  EXPECT_TRUE(sheet.optMonat(10)->isChecked());
  EXPECT_EQ(reading(*year, Meter::Gas, 9), 11141);
  EXPECT_EQ(reading(*year, Meter::WasteWater, 9), 543);
  EXPECT_EQ(year->values().remarks[yearbook::Utility::Electricity][9], "Heizung an");
  ASSERT_TRUE(year->undo());
  EXPECT_EQ(reading(*year, Meter::Gas, 9), 0);
  EXPECT_EQ(reading(*year, Meter::Day, 9), 0);
}

// The household's year, month by month on the sheet, with the keys alone but for the box of the
// changed meters: cell for cell what the entry windows' rules make of it.
TEST_F(BookWindows, AYearOnTheSheetIsTheYearOfTheEntryWindows) {
  const auto year = openUnread(0);
  support::MemoryFileSystem otherDisk{{{"/daten/leer", {}}}};
  ASSERT_TRUE(sample::makeBoth(otherDisk, kFolder, support::emptyYear()));
  const auto typed = yearbook::YearSession::open(otherDisk, kSample, kFolder, clock);
  ASSERT_TRUE(typed);
  frmMonatErfassen sheet(services, *year, nullptr);
  sheet.show();
  const auto key = [&](const QString& text) {
    QTest::keyClicks(sheet.focusWidget(), text);
    QTest::keyClick(sheet.focusWidget(), Qt::Key_Return);
  };
  for (int month = 0; month < yearbook::kMonths; ++month) {
    ASSERT_TRUE(sheet.optMonat(month)->isChecked()) << month;
    for (Meter meter : {Meter::Day, Meter::Night, Meter::Water, Meter::Gas}) {
      ASSERT_EQ(sheet.focusWidget(), sheet.row(meter)->txtStand) << month;
      const auto change = readingbook::storedMeter(**typed, meter).change;
      const bool changed = month > 0 && change.position == month - 1;
      if (changed) sheet.row(meter)->chkWechsel->click();
      key(QString::number(reading(**typed, meter, month)));
      if (!changed) continue;
      key({});  // the old meter's last reading is there
      key(QString::number(change.newStart));
    }
    ASSERT_EQ(sheet.focusWidget(), sheet.txtAnmerkung);
    key({});
    ASSERT_EQ(sheet.focusWidget(), sheet.cmdUebernehmen);
    QTest::keyClick(sheet.focusWidget(), Qt::Key_Return);
  }
  const auto sources = [](const yearbook::YearSession& of) {
    return std::vector<const yearbook::RecordSource*>{&of.adoStrom, &of.adoWasser, &of.adoGas,
                                                      &of.adoZStaende};
  };
  for (std::size_t i = 0; i < sources(*year).size(); ++i)
    for (int row = 0; row < sources(*year)[i]->count(); ++row)
      for (const yearbook::Field* field : sources(*year)[i]->table().fields)
        EXPECT_EQ(sources(*year)[i]->raw(row, *field), sources(**typed)[i]->raw(row, *field))
            << field->name << ' ' << row;
  EXPECT_EQ(formatMoney(year->values().bill.meters[Meter::Day].amount), "870,62");
  EXPECT_EQ(year->values().bill.meters[Meter::Gas].consumption, 1408);
}

TEST_F(BookWindows, ASheetOfAYearThatIsReadIsAsHighAfterStoringAndBeginsInItsFirstField) {
  openSample();
  frmMonatErfassen sheet(services, window->session(), nullptr);
  sheet.show();
  settle();
  EXPECT_EQ(sheet.focusWidget(), sheet.row(Meter::Day)->txtStand);
  const int before = sheet.height();
  sheet.cmdUebernehmen->click();
  settle();
  EXPECT_EQ(sheet.height(), before);
}

TEST_F(BookWindows, TheFirstMonthOfAYearMovesNothingUnderTheHand) {
  const auto year = openUnread(0);
  frmMonatErfassen sheet(services, *year, nullptr);
  sheet.show();
  settle();
  const int width = sheet.minimumSizeHint().width();
  const QRect december = sheet.optMonat(11)->geometry();
  const auto places = [&] {
    return std::vector{sheet.row(Meter::Day)->lblKosten->geometry().right(),
                       sheet.row(Meter::Gas)->chkWechsel->mapTo(&sheet, QPoint()).x()};
  };
  const auto before = places();
  for (const Meter meter : {Meter::Day, Meter::Night, Meter::Water, Meter::Gas}) {
    const QString last = sheet.row(meter)->lblDavor->text().remove(QLatin1Char('.'));
    QTest::keyClicks(sheet.row(meter)->txtStand, QString::number(last.toInt() + 10));
  }
  settle();
  EXPECT_FALSE(sheet.row(Meter::Day)->lblKosten->text().isEmpty());
  EXPECT_EQ(sheet.minimumSizeHint().width(), width);
  EXPECT_EQ(places(), before);
  sheet.cmdUebernehmen->click();
  settle();
  EXPECT_TRUE(sheet.optMonat(0)->text().startsWith(u'✓'));
  EXPECT_EQ(sheet.optMonat(11)->geometry(), december);
}

TEST_F(BookWindows, MetersThatAreNotUsedAreFoldedAwayWithAllTheirLines) {
  const auto year = openUnread(0);
  std::vector<readings::MeterEntries> none = {{Meter::Gas, {}, {}, 0}};
  ASSERT_TRUE(readings::takeOver(*year, {"ohne Gas"}, none));
  frmMonatErfassen sheet(services, *year, nullptr);
  sheet.show();
  const auto cubicMetres = [&] {
    const auto labels = sheet.findChildren<QLabel*>();
    return std::count_if(labels.begin(), labels.end(), [](const QLabel* label) {
      return label->isVisible() && label->text() == QStringLiteral("m³");
    });
  };
  EXPECT_FALSE(sheet.row(Meter::Gas)->txtStand->isVisible());
  EXPECT_EQ(cubicMetres(), 2) << "water and waste water";
  sheet.cmdWeitere->click();
  EXPECT_TRUE(sheet.row(Meter::Gas)->txtStand->isVisible());
  EXPECT_EQ(cubicMetres(), 3);
  EXPECT_FALSE(sheet.cmdWeitere->isVisible());
}

TEST_F(BookWindows, TheLastReadingIsShownWithItsMonth) {
  const auto year = openUnread(9);
  auto gas = readingbook::storedMeter(*year, Meter::Gas);
  gas.readings[8] = 0;
  ASSERT_TRUE(readings::takeOver(*year, {"Gas"}, {{Meter::Gas, gas.readings, {}}}));
  frmMonatErfassen sheet(services, *year, nullptr);
  sheet.show();
  sheet.optMonat(9)->click();
  EXPECT_EQ(sheet.row(Meter::Day)->lblDavor->text(), QStringLiteral("670"));
  EXPECT_EQ(sheet.row(Meter::Gas)->lblDavor->text(), QStringLiteral("10.989 (August)"));
  sheet.optMonat(0)->click();
  EXPECT_EQ(sheet.row(Meter::Gas)->lblDavor->text(), QStringLiteral("10.114"));
}

TEST_F(BookWindows, AMonthThatCannotBeStoredStaysOnTheSheetAndNothingIsStored) {
  const auto year = openUnread(9);
  frmMonatErfassen sheet(services, *year, nullptr);
  sheet.show();
  for (Meter meter : {Meter::Water, Meter::Gas})
    QTest::keyClicks(sheet.row(meter)->txtStand, QStringLiteral("12000"));
  prompts.acceptTellings();
  files.arm({0, true});
  sheet.cmdUebernehmen->click();
  files.disarm();
  EXPECT_EQ(prompts.last().title, QStringLiteral("Fehler"));
  for (Meter meter : yearbook::kMeters) EXPECT_EQ(reading(*year, meter, 9), 0);
  EXPECT_EQ(sheet.row(Meter::Gas)->txtStand->value(), 12000);
  // Going elsewhere asks; "No" leaves the month as it was.
  prompts.answer(dialogs::Button::No);
  sheet.optMonat(3)->click();
  EXPECT_EQ(sheet.row(Meter::Gas)->txtStand->value(), 10855);
  EXPECT_EQ(reading(*year, Meter::Gas, 9), 0);
}

TEST_F(BookWindows, AMeterChangeOfTheBookTakesItsMonthsTogether) {
  const auto year = openUnread(9);
  frmAblesebuch book(services, *year, nullptr);
  book.show();
  book.optZaehler(4)->click();
  const auto enter = [&](const char* date, const char* reading, const char* newStart) {
    QTest::keyClicks(book.txtDatum, QString::fromLatin1(date));
    QTest::keyClicks(book.txtStand, QString::fromLatin1(reading));
    if (newStart) {
      book.chkWechsel->click();
      EXPECT_TRUE(book.txtNeuerAnfang->isVisible());
      QTest::keyClicks(book.txtNeuerAnfang, QString::fromLatin1(newStart));
    }
    book.cmdEintragen->click();
    EXPECT_EQ(book.lblFehler->text(), QString());
  };
  enter("30.09.2025", "11033", nullptr);
  enter("15.10.2025", "11083", "7");
  EXPECT_FALSE(book.chkWechsel->isChecked()) << "of the entry that is stored";
  enter("30.11.2025", "307", nullptr);
  EXPECT_EQ(book.lblZustand->text(), QStringLiteral("2 Monate angehakt"));
  book.grdMonate->item(10, 0)->setCheckState(Qt::Unchecked);
  EXPECT_EQ(book.grdMonate->item(11, 0)->checkState(), Qt::Unchecked);
  EXPECT_FALSE(book.cmdUebernehmen->isEnabled());
  book.grdMonate->item(11, 0)->setCheckState(Qt::Checked);
  book.cmdUebernehmen->click();
  const auto stored = readingbook::storedMeter(*year, Meter::Gas);
  EXPECT_EQ(stored.change.position, 9);
  EXPECT_EQ(stored.readings[10], 307);
  EXPECT_EQ(stored.readings[9] - 11033 + 307 - stored.change.newStart, 50 + 300)
      << "nothing is lost, nothing counts twice";
}

TEST_F(BookWindows, ABookWithoutReadingsLeadsToTheFirst) {
  const auto year = openUnread(0);
  frmAblesebuch book(services, *year, nullptr);
  book.show();
  EXPECT_TRUE(book.cmdErste->isVisible());
  EXPECT_FALSE(book.grdAblesungen->isVisible());
  book.cmdErste->click();
  EXPECT_EQ(book.focusWidget(), book.txtDatum);
  QTest::keyClicks(book.txtDatum, QStringLiteral("31.01.2025"));
  QTest::keyClicks(book.txtStand, QStringLiteral("44600"));
  book.cmdEintragen->click();
  EXPECT_FALSE(book.cmdErste->isVisible());
  EXPECT_TRUE(book.grdAblesungen->isVisible());
  book.grdAblesungen->selectRow(0);
  book.cmdLoeschen->click();
  EXPECT_TRUE(book.cmdErste->isVisible());
}

TEST_F(BookWindows, ABookThatCannotBeReadIsNotReplaced) {
  const auto year = openUnread(10);
  disk.put("/daten/Verbrauch2025_Ablesungen.dat", base::Bytes(17 << 20));
  frmAblesebuch book(services, *year, nullptr);
  book.show();
  EXPECT_FALSE(book.lblFehler->text().isEmpty());
  EXPECT_FALSE(book.cmdEintragen->isEnabled());
  EXPECT_FALSE(book.cmdTabelle->isEnabled());
}

TEST_F(BookWindows, ATableIsMappedByHandAndStoredOnlyWhenItIsSound) {
  const auto year = openUnread(10);
  disk.put("/daten/tabelle.csv",
           base::asBytes("Tag,Zähler,Gaszähler\n2025-11-30,x,11318\n2025-10-31,1,11141\n"));
  frmTabelleEinlesen import(services, *year, nullptr);
  prompts.answerPath(QStringLiteral("/daten/tabelle.csv"));
  ASSERT_TRUE(import.chooseFile());
  import.show();
  EXPECT_EQ(import.cboDatum->currentIndex(), 1) << "dates are found";
  EXPECT_FALSE(import.cmdUebernehmen->isEnabled());
  const auto choose = [](QComboBox* box, int column) {
    box->setCurrentIndex(column);
    Q_EMIT box->activated(column);
  };
  EXPECT_EQ(import.lblErgebnis->text(),
            QStringLiteral("Noch ist keinem Zähler eine Spalte zugeordnet."));
  EXPECT_EQ(import.grdVorschau->rowCount(), 0);
  choose(import.cboZaehler(0), 2);
  EXPECT_EQ(import.lblErgebnis->text(), QStringLiteral("1 Fehler, so wird nichts übernommen."));
  EXPECT_FALSE(import.cmdUebernehmen->isEnabled());
  choose(import.cboZaehler(4), 3);
  EXPECT_FALSE(import.cmdUebernehmen->isEnabled()) << "all or nothing";
  choose(import.cboZaehler(0), 0);
  EXPECT_EQ(import.lblErgebnis->text(), QStringLiteral("2 Ablesungen sind neu."));
  EXPECT_EQ(import.grdVorschau->item(0, 1)->text(), QStringLiteral("31.10.2025"));
  EXPECT_TRUE(import.book().of(Meter::Gas).size() == 2);
  EXPECT_FALSE(files.exists("/daten/Verbrauch2025_Ablesungen.dat")) << "nothing is stored yet";
  import.cmdUebernehmen->click();
  EXPECT_EQ(import.result(), QDialog::Accepted);
}

TEST_F(BookWindows, AChangedMeterIsTypedAndAnImpossibleOneKeepsTheMonthOut) {
  const auto year = openUnread(6);
  ASSERT_TRUE(readings::deleteMeterChange(*year, Meter::Day));
  frmMonatErfassen sheet(services, *year, nullptr);
  sheet.show();
  readings::MeterRow* row = sheet.row(Meter::Day);
  QTest::keyClicks(row->txtStand, QStringLiteral("238"));
  EXPECT_TRUE(row->isDoubtful());
  row->chkWechsel->click();
  EXPECT_EQ(row->txtAlterEndstand->value(), 45808);
  QTest::keyClicks(row->txtNeuerAnfang, QStringLiteral("300"));
  sheet.cmdUebernehmen->click();
  EXPECT_EQ(reading(*year, Meter::Day, 6), 0);
  EXPECT_FALSE(row->lblHinweis->text().isEmpty());
  row->txtNeuerAnfang->selectAll();
  QTest::keyClicks(row->txtNeuerAnfang, QStringLiteral("12"));
  sheet.cmdUebernehmen->click();
  EXPECT_EQ(reading(*year, Meter::Day, 6), 238);
  EXPECT_EQ(readingbook::storedMeter(*year, Meter::Day).change, (readings::MeterChange{5, 12}));
}

TEST_F(BookWindows, TheBookEntersRefusesAndTakesOver) {
  const auto year = openUnread(10);
  frmAblesebuch book(services, *year, nullptr);
  book.show();
  book.optZaehler(4)->click();
  const auto enter = [&](const char* date, const char* reading) {
    book.txtDatum->setText(QString::fromLatin1(date));
    book.txtStand->setFocus();
    book.txtStand->selectAll();
    QTest::keyClicks(book.txtStand, QString::fromLatin1(reading));
    book.cmdEintragen->click();
  };
  enter("30.09.2025", "11040");
  enter("31.10.2025", "11141");
  enter("30.11.2025", "11318");
  enter("31.12.2025", "11231");
  EXPECT_EQ(book.lblFehler->text(),
            QStringLiteral("✕ Niedriger als der Stand davor (11.318 am 30.11.2025)."));
  EXPECT_EQ(book.grdAblesungen->rowCount(), 3);
  EXPECT_EQ(book.txtStand->text(), QStringLiteral("11231"));
  EXPECT_EQ(book.lblZustand->text(), QStringLiteral("1 Monat angehakt"));
  book.cmdUebernehmen->click();
  EXPECT_EQ(reading(*year, Meter::Gas, 10), 11318);
  EXPECT_EQ(reading(*year, Meter::Gas, 8), 11033) << "differs, and is not ticked";
  EXPECT_FALSE(book.cmdUebernehmen->isEnabled());
}

TEST_F(BookWindows, AnEmptyYearIsOfferedTheOneBefore) {
  makeSample();
  disk.put("/daten/Verbrauch2026.kwd", support::emptyYear());
  auto year = yearbook::YearSession::open(files, "/daten/Verbrauch2026.kwd", kFolder, clock);
  ASSERT_TRUE(year);
  EXPECT_EQ(nextyear::yearBefore(**year), kSample);
  const base::Bytes before = disk.get(kSample);
  auto plan = nextyear::planNextYear(files, kSample, clock);
  ASSERT_TRUE(plan);
  frmFortfuehren next(services, **year, std::move(*plan), nullptr);
  next.show();
  next.trvAngaben->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
  next.optWieZuletzt->click();
  next.cmdUebernehmen->click();
  EXPECT_EQ(readingbook::storedMeter(**year, Meter::Gas).startReading, 11522);
  EXPECT_FALSE(yearbook::orZero((*year)->values().prices[Meter::Gas]) > 0);
  EXPECT_EQ(next.result(), QDialog::Accepted);
  EXPECT_EQ(disk.get(kSample), before);
  EXPECT_EQ((*year)->values().advances[yearbook::Utility::Gas][0],
            base::Money::fromTenThousandths(1420000));
}

TEST_F(BookWindows, MonthsThatAreMissingAreSaid) {
  openUnread(8).reset();
  openWindow(kSample);
  EXPECT_EQ(window->fraAblesen->lblAblesen->text(),
            QStringLiteral("September und Oktober sind noch nicht abgelesen."));
  EXPECT_TRUE(window->fraAblesen->isVisible());
}

TEST_F(BookWindows, AContractThatEndsIsSaidWhenAllIsRead) {
  makeSample();
  disk.put("/daten/Tarife.dat",
           base::asBytes("\"Strom\",\"Heim\",30,-1,#FALSE#,0,#FALSE#,0,\"31.12.2025\",\"\""));
  openWindow(kSample);
  EXPECT_EQ(window->fraAblesen->lblAblesen->text(),
            QStringLiteral("Die Preisgarantie von Heim (Strom) endet am 31.12.2025."));
  EXPECT_EQ(window->fraAblesen->cmdDorthin->text(), QStringLiteral("Tarife vergleichen…"));
}

}  // namespace
