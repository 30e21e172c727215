// The sheet of a month, the reading book and the next year, opened on a year.

#include "MainWindowFixture.h"
#include "nextyear/YearBefore.h"
#include "nextyear/ui/frmFortfuehren.h"
#include "readingbook/ui/frmAblesebuch.h"
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
  EXPECT_EQ(sheet.row(Meter::Day)->lblVerbrauch->text(), QStringLiteral("255 kWh"));
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
  enter("31.10.2025", "11141");
  enter("30.11.2025", "11318");
  enter("31.12.2025", "11231");
  EXPECT_EQ(book.lblFehler->text(),
            QStringLiteral("✕ Niedriger als der Stand davor (11.318 am 30.11.2025)."));
  EXPECT_EQ(book.grdAblesungen->rowCount(), 2);
  EXPECT_EQ(book.txtStand->text(), QStringLiteral("11231"));
  EXPECT_EQ(book.lblZustand->text(), QStringLiteral("1 Monat angehakt"));
  book.cmdUebernehmen->click();
  EXPECT_EQ(reading(*year, Meter::Gas, 10), 11318);
  EXPECT_FALSE(book.cmdUebernehmen->isEnabled());
}

TEST_F(BookWindows, AnEmptyYearIsOfferedTheOneBefore) {
  makeSample();
  disk.put("/daten/Verbrauch2026.kwd", support::emptyYear());
  auto year = yearbook::YearSession::open(files, "/daten/Verbrauch2026.kwd", kFolder, clock);
  ASSERT_TRUE(year);
  EXPECT_EQ(nextyear::yearBefore(**year), kSample);
  auto plan = nextyear::planNextYear(files, kSample, clock);
  ASSERT_TRUE(plan);
  frmFortfuehren next(services, **year, std::move(*plan), nullptr);
  next.show();
  next.optWieZuletzt->click();
  next.trvAngaben->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
  next.cmdUebernehmen->click();
  EXPECT_EQ(readingbook::storedMeter(**year, Meter::Gas).startReading, 11522);
  EXPECT_FALSE(yearbook::orZero((*year)->values().prices[Meter::Gas]) > 0);
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
