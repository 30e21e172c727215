#include "MainWindowFixture.h"
#include "yearbook/ui/MeterMark.h"

using namespace Qt::Literals::StringLiterals;
using base::Money;
using yearbook::Utility;

// What the pages show of a year, and what typing into them does to it.

class YearPages : public MainWindowFixture {};

TEST_F(YearPages, TheBillOfTheSampleYear) {
  openSample();
  EXPECT_EQ(window->windowTitle(), u"Verbrauchsberechnung       /daten/Verbrauch2025.kwd"_s);
  EXPECT_EQ(window->Frame1->txtAnfStandST->text(), u"44.309"_s);
  EXPECT_EQ(window->Frame1->txtEndStandST->text(), u"1.506"_s);
  EXPECT_EQ(window->Frame1->txtVerbrauchTS->text(), u"2.993"_s);
  EXPECT_EQ(window->Frame1->txtTPreis->text(), u"28,90"_s);
  EXPECT_EQ(window->Frame1->txtBetragTS->text(), u"870,62"_s);
  EXPECT_EQ(window->Frame1->txtBetragNS->text(), u"360,65"_s);
  EXPECT_EQ(window->Frame1->txtMwStS->text(), u"19"_s);
  EXPECT_EQ(window->Frame1->txtDatumStrom->text(), u"01.01.2025"_s);
  EXPECT_EQ(window->Frame1->months->consumption(6)->text(), u"226"_s);
  EXPECT_EQ(window->Frame1->months->advanceSum->text(), u"1.632,00"_s);
  EXPECT_EQ(window->Frame2->txtBetragW->text(), u"267,75"_s);
  EXPECT_EQ(window->Frame2->txtBetragAbW->text(), u"362,95"_s);
  EXPECT_EQ(window->Frame3->txtFaktor->text(), u"10,523"_s);
  EXPECT_EQ(window->Frame3->txtBetragG->text(), u"1.388,00"_s);
  EXPECT_EQ(window->Frame3->txtGaskWh->text(), u"14.816,384"_s);
  EXPECT_EQ(window->Frame3->txtSummeG->text(), u"1.651,73"_s);
}

TEST_F(YearPages, EachMeterHasItsMarkInTabAndTitle) {
  openSample();
  const auto shows = [&](const QImage& picture, yearbook::Meter meter) {
    const QColor mark = yearbook::meterColor(meter, window->palette());
    for (int x = 0; x < picture.width(); ++x)
      for (int y = 0; y < std::min(20, picture.height()); ++y)
        if (picture.pixelColor(x, y) == mark) return true;
    return false;
  };
  const auto tab = [&](int at) { return window->TabStrip->tabIcon(at).pixmap(16).toImage(); };
  EXPECT_TRUE(shows(tab(0), yearbook::Meter::Day));
  EXPECT_TRUE(shows(tab(1), yearbook::Meter::Water));
  EXPECT_TRUE(shows(tab(2), yearbook::Meter::Gas));
  EXPECT_TRUE(window->TabStrip->tabIcon(3).isNull());
  const std::pair<const char*, yearbook::Meter> frames[] = {
      {"FrameTagstrom", yearbook::Meter::Day},
      {"FrameNachtstrom", yearbook::Meter::Night},
      {"FrameAbwasser", yearbook::Meter::WasteWater},
      {"FrameGas", yearbook::Meter::Gas}};
  for (const auto& [name, meter] : frames) {
    auto* frame = window->findChild<QWidget*>(QString::fromLatin1(name));
    EXPECT_TRUE(shows(frame->grab().toImage(), meter)) << name;
  }
}

// Two meters, a contract of two base fees: in what width they stand how.
TEST_F(YearPages, NothingOfWaterIsCutInWhateverWidth) {
  openSample();
  window->TabStrip->setCurrentWidget(window->Frame2);
  const auto part = [&](const char* name) {
    return window->Frame2->findChild<QWidget*>(QString::fromLatin1(name));
  };
  QStringList kinds;
  for (int width = 2400; width >= 880; width -= 40) {
    window->resize(width, 600);
    settle();
    QWidget* contract = part("FrameVertragW");
    EXPECT_GE(contract->width(), contract->minimumSizeHint().width()) << width;
    const bool beside = part("FrameWasser")->y() == part("FrameAbwasser")->y();
    const bool blocks = window->Frame2->txtGrundgebW->y() == window->Frame2->txtGrundgebAbW->y();
    const QString kind = QString(beside ? u"beside"_s : u"below"_s) + (blocks ? u"2"_s : u"1"_s);
    if (kinds.isEmpty() || kinds.last() != kind) kinds += kind;
  }
  ASSERT_GE(kinds.size(), 3) << kinds.join(u' ').toStdString();
  EXPECT_EQ(kinds[0], u"beside2"_s);
  EXPECT_EQ(kinds[1], u"beside1"_s) << "the contract gives way before the meters";
}

// 1366 x 768 at 144 dpi.
TEST_F(YearPages, TheTwelveMonthsStandTogetherOnASmallScreen) {
  openSample();
  window->resize(895, 472);
  settle();
  const yearbook::MonthTable& months = *window->Frame1->months;
  EXPECT_LT(window->Frame1->FrameNachtstrom->x(), months.x()) << "below the other meter";
  EXPECT_GT(window->Frame1->FrameNachtstrom->y(), months.y());
  EXPECT_LE(months.month(11)->y() - months.month(0)->y(), 11 * 28);
  EXPECT_GE(months.advance(11)->visibleRegion().boundingRect().height(), 10) << "seen at once";
}

TEST_F(YearPages, OpeningAndClosingTheWindowLeavesTheFileAsItWas) {
  makeSample();
  const base::Bytes before = disk.get(kSample);
  openWindow(kSample);
  for (int i = 0; i < window->TabStrip->count(); ++i) window->TabStrip->setCurrentIndex(i);
  window->close();
  window.reset();
  EXPECT_EQ(disk.get(kSample), before);
}

TEST_F(YearPages, EveryKeystrokeThatMakesANumberIsStored) {
  openSample();
  type(window->Frame1->txtMwStS, u"7"_s);
  EXPECT_EQ(window->session().values().vat[yearbook::Meter::Day], 7);
  EXPECT_EQ(window->Frame1->txtMwStTS->text(), u"60,94"_s);
  type(window->Frame3->txtGrundgebG, u"1.234,5"_s);
  EXPECT_EQ(window->Frame3->txtGrundgebG->text(), u"1.234,5"_s);
  QTest::keyClick(window->Frame3->txtGrundgebG, Qt::Key_Return);
  EXPECT_EQ(window->Frame3->txtGrundgebG->text(), u"1.234,50"_s);
  const auto year = stored();
  EXPECT_EQ(year->values().vat[yearbook::Meter::Day], 7);
  EXPECT_EQ(year->values().baseFees[yearbook::Meter::Gas], Money::roundHalfEven(1234.5));
}

TEST_F(YearPages, AStartReadingRefusesTheCommaWithOneBox) {
  openSample();
  prompts.acceptTellings();
  type(window->Frame1->txtAnfStandST, u"1234,5"_s);
  EXPECT_EQ(window->Frame1->txtAnfStandST->text(), u"12345"_s);
  ASSERT_EQ(prompts.shown.size(), 1u);
  EXPECT_EQ(prompts.last().text, u"Bitte nur volle kWh eingeben!"_s);
  EXPECT_EQ(prompts.last().title, u"Eingabe Anfangszählerstand"_s);
  type(window->Frame2->txtAnfStandW, u","_s);
  EXPECT_EQ(prompts.last().text, u"Bitte nur volle m³ eingeben!"_s);
  EXPECT_EQ(stored()->values().startReadings[yearbook::Meter::Day], 12345);
}

TEST_F(YearPages, AFractionInAStartReadingIsNeitherRoundedNorTornTogether) {
  openSample();
  prompts.acceptTellings();
  enter(window->Frame1->txtAnfStandSN, u"12.5"_s);
  EXPECT_EQ(prompts.shown.size(), 1u);
  EXPECT_EQ(window->Frame1->txtAnfStandSN->text(), u"12"_s);
  enter(window->Frame1->txtAnfStandSN, u"12.345"_s);
  EXPECT_EQ(window->Frame1->txtAnfStandSN->text(), u"12.345"_s);
  EXPECT_EQ(stored()->values().startReadings[yearbook::Meter::Night], 12345);
}

TEST_F(YearPages, RatesTakeDigitsOnlyAndEnterMovesOn) {
  openSample();
  type(window->Frame1->txtMwStS, u"19%"_s);
  EXPECT_EQ(window->Frame1->txtMwStS->text(), u"19"_s);
  QTest::keyClick(window->Frame1->txtMwStS, Qt::Key_Return);
  EXPECT_TRUE(window->Frame1->txtDatumStrom->hasFocus());
  enter(window->Frame1->months->advance(4), u"1"_s);
  EXPECT_TRUE(window->Frame1->months->advance(5)->hasFocus());
}

TEST_F(YearPages, UndoTakesBackWhatWasTypedAndStored) {
  openSample();
  QLineEdit* field = window->Frame1->txtGrundgebS;
  type(field, u"200"_s);
  EXPECT_EQ(window->session().values().baseFees[yearbook::Meter::Day], Money::roundHalfEven(200));
  for (int i = 0; i < 4; ++i) field->undo();
  EXPECT_EQ(field->text(), u"162,00"_s);
  QTest::keyClick(field, Qt::Key_Return);
  EXPECT_EQ(stored()->values().baseFees[yearbook::Meter::Day], Money::roundHalfEven(162));
}

TEST_F(YearPages, OnePriceForAllMonthsButNotByLoading) {
  openSample();
  EXPECT_EQ(window->session().adoStrom.number(0, yearbook::strom::dayPrice), 29.6);
  enter(window->Frame1->txtTPreis, u"30"_s);
  EXPECT_EQ(window->Frame1->txtBetragTS->text(), u"897,90"_s);
  EXPECT_EQ(window->Frame1->txtTPreis->text(), u"30,00"_s);
  const auto year = stored();
  for (int i = 0; i < 12; ++i)
    EXPECT_EQ(year->adoStrom.number(i, yearbook::strom::dayPrice), 30) << i;
}

TEST_F(YearPages, AnEmptiedGasPriceComesBack) {
  openSample();
  window->Frame3->txtPreisGas->setFocus();
  window->Frame3->txtPreisGas->selectAll();
  QTest::keyClick(window->Frame3->txtPreisGas, Qt::Key_Delete);
  QTest::keyClick(window->Frame3->txtPreisGas, Qt::Key_Return);
  EXPECT_EQ(window->Frame3->txtPreisGas->text(), u"9,25"_s);
  EXPECT_EQ(window->session().adoGas.number(0, yearbook::gas::price), 9.45);
}

TEST_F(YearPages, AdvancePaymentsSingleAndAllAtOnce) {
  openSample();
  enter(window->Frame3->months->advance(0), u"99,5"_s);
  EXPECT_EQ(window->Frame3->months->advanceSum->text(), u"1.661,50"_s);
  click(window->Frame3->months->zeroAdvances);
  EXPECT_EQ(window->Frame3->months->advance(11)->text(), u"0,00"_s);
  EXPECT_EQ(stored()->values().advances[Utility::Gas][0], Money());
}

TEST_F(YearPages, TheStartDateMustBeADay) {
  openSample();
  prompts.acceptTellings();
  enter(window->Frame1->txtDatumStrom, u"31.02.2010"_s);
  EXPECT_EQ(prompts.last().title, u"Eingabe Datum"_s);
  EXPECT_EQ(prompts.last().text,
            u"Ungültige Datumseingabe! \nBitte geben Sie ein gültiges Datum ein.\n"
            u"Beispiel:  01.01.2009"_s);
  EXPECT_EQ(prompts.last().icon, dialogs::Icon::Warning);
  EXPECT_EQ(window->session().values().startDate, "01.01.2025");
  enter(window->Frame1->txtDatumStrom, u"1.1.2010"_s);
  EXPECT_EQ(window->Frame1->txtDatumStrom->text(), u"1.1.2010"_s);
  EXPECT_EQ(prompts.shown.size(), 1u);
  EXPECT_EQ(stored()->values().startDate, "1.1.2010");
}

TEST_F(YearPages, AnEntryThatIsRefusedKeepsTheWindowOpenOnce) {
  openSample();
  prompts.acceptTellings();
  window->activateWindow();
  const std::pair<QLineEdit*, QString> entries[] = {
      {window->Frame1->txtDatumStrom, u"31.02.2010"_s}, {window->Frame1->txtAnfStandST, u"12.3"_s}};
  for (const auto& [field, typed] : entries) {
    type(field, typed);
    EXPECT_FALSE(window->close());
    EXPECT_EQ(prompts.take().title.first(7), u"Eingabe"_s);
    EXPECT_TRUE(prompts.shown.empty());
    EXPECT_TRUE(field->hasFocus());
    type(field, typed);
    window->mnuOpen->trigger();
    EXPECT_TRUE(navigator.calls.isEmpty());
    prompts.take();
  }
  EXPECT_TRUE(window->close());
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(YearPages, MakingAnIconOfTheWindowIsNotLeavingTheField) {
  openSample();
  type(window->Frame1->txtDatumStrom, u"31.02.2010"_s);
  QHideEvent minimized;
  QSpontaneKeyEvent::setSpontaneous(&minimized);
  qApp->notify(window->Frame1->txtDatumStrom, &minimized);
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(window->Frame1->txtDatumStrom->text(), u"31.02.2010"_s);
  prompts.acceptTellings();
}

TEST_F(YearPages, WhatCannotBeStoredIsToldAndTheFieldShowsWhatIs) {
  openSample();
  prompts.acceptTellings();
  files.arm({0, true, base::ErrorCode::NoSpace, false});
  type(window->Frame1->txtMwStS, u"7"_s);
  files.disarm();
  ASSERT_FALSE(prompts.shown.empty());
  EXPECT_TRUE(prompts.shown.front().text.contains(u"kein Platz"_s))
      << prompts.last().text.toStdString();
  EXPECT_EQ(window->Frame1->txtMwStS->text(), u"19"_s);
  EXPECT_EQ(window->Frame1->txtMwStTS->text(), u"165,42"_s);
}

TEST_F(YearPages, RemarksAreStoredWhenTheirFieldIsLeft) {
  openSample();
  window->TabStrip->setCurrentWidget(window->Frame5);
  enter(window->Frame5->txtAnmerkungenG(2), u"Heizung gewartet"_s);
  type(window->Frame5->txtAnmerkungenS(0), u"Ablesung am 14."_s);
  window->TabStrip->setCurrentIndex(0);
  const auto year = stored();
  EXPECT_EQ(year->values().remarks[Utility::Gas][2], "Heizung gewartet");
  EXPECT_EQ(year->values().remarks[Utility::Electricity][0], "Ablesung am 14.");
}

TEST_F(YearPages, HidingTheNightTariffClosesTheGap) {
  openSample();
  window->resize(1400, 800);  // side by side
  settle();
  const int before = window->Frame1->months->mapTo(window.get(), QPoint()).x();
  const auto* onlyDay = window->findChild<QLabel*>(u"lblNurTagstrom"_s);
  EXPECT_TRUE(onlyDay->isVisible());
  window->mnuNachtstrom->trigger();
  EXPECT_FALSE(onlyDay->isVisible()) << "there is no other";
  settle();
  EXPECT_FALSE(window->Frame1->FrameNachtstrom->isVisible());
  EXPECT_FALSE(window->Frame1->Frame22->isVisible());
  EXPECT_FALSE(window->Frame1->Frame23->isVisible());
  EXPECT_LT(window->Frame1->months->mapTo(window.get(), QPoint()).x(), before);
  EXPECT_EQ(window->mnuNachtstrom->text(), u"Nachtstrom einblenden"_s);
  EXPECT_EQ(window->Frame1->txtIstwertS->text(), u"1.465,21"_s);
  EXPECT_EQ(stored()->adoZStaende.text(0, yearbook::zstaende::nightDisplay), "off");
}

TEST_F(YearPages, FlatRateShowsTheFreeKwhAndSwitchesTheProjectionOff) {
  openSample();
  EXPECT_FALSE(window->Frame1->txtKwImJahrFrei->isVisible());
  window->mnuPauschale->trigger();
  EXPECT_TRUE(window->Frame1->txtKwImJahrFrei->isVisible());
  EXPECT_EQ(window->Frame1->txtKwImJahrFrei->text(), u"0"_s);
  EXPECT_TRUE(window->Frame1->lblPauschale->isVisible());
  EXPECT_FALSE(window->mnuHochrechnung->isEnabled());
  EXPECT_EQ(window->mnuHochrechnung->text(),
            u"Hochrechnung nicht aktiv wenn Pauschale aktiviert"_s);
  EXPECT_FALSE(window->toolButton(u"Hochrechnung"_s)->isEnabled());
  enter(window->Frame1->txtKwImJahrFrei, u"1500"_s);
  EXPECT_EQ(window->Frame1->txtBetragTS->text(), u"431,48"_s);
  window->mnuPauschale->trigger();
  EXPECT_EQ(window->Frame1->txtBetragTS->text(), u"870,62"_s);
  EXPECT_EQ(window->mnuHochrechnung->text(), u"Hochrechnung auf das Jahr"_s);
  EXPECT_EQ(disk.readText("/daten/pauschale.dat"), "#FALSE#\r\n");
}
