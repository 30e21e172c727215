#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>

#include "OpenYear.h"
#include "readings/ui/frmEingabeVerbrauch.h"
#include "readings/ui/frmEingabeVerbrauchAbW.h"
#include "readings/ui/frmEingabeVerbrauchNS.h"
#include "readings/ui/frmEingabeVerbrauchS.h"
#include "readings/ui/frmEingabeVerbrauchW.h"
#include "support/ui/FakeKeeper.h"

using namespace Qt::Literals::StringLiterals;
using dialogs::Button;
using yearbook::Utility;
namespace strom = yearbook::strom;

namespace {

class MeterReadingWindow : public OpenYear {
 protected:
  // The twelve texts of an array of labels or fields.
  template <class Array>
  static std::vector<std::string> texts(const Array& array, int count = 12) {
    std::vector<std::string> all;
    all.reserve(static_cast<std::size_t>(count));
    for (int k = 0; k < count; ++k) all.push_back(array(k)->text().toStdString());
    return all;
  }
  // Rows whose reading stands in the column of the new meter.
  static std::vector<int> inChangeColumn(readings::MeterReadingWindow& window) {
    QCoreApplication::processEvents();
    std::vector<int> rows;
    for (int k = 0; k < 12; ++k) {
      const int left = window.txtVerbrauch(k)->x();
      if (left == window.txtWechsel->x())
        rows.push_back(k);
      else
        EXPECT_EQ(left, window.txtAnfStand->x());
    }
    return rows;
  }
  double stored(const yearbook::Field& field, int row) const {
    return yearbook::orZero(year->adoStrom.number(row, field));
  }
};

using testing::ElementsAre;
using testing::IsEmpty;

}  // namespace

TEST_F(MeterReadingWindow, WasteWaterTakesTheReadingsAndTheChangeOfTheWater) {
  openSample();
  readings::PerMonth<double> water = sample::year2025().readings[yearbook::Meter::Water];
  for (int k = 6; k < 12; ++k) water[k] -= 500;
  ASSERT_TRUE(readings::takeOver(*year, yearbook::Meter::Water, water, {5, 3}));
  EXPECT_EQ(show<frmEingabeVerbrauchW>()->cmdWieWasser, nullptr);
  const auto window = show<frmEingabeVerbrauchAbW>();
  EXPECT_EQ(window->txtVerbrauch(6)->text(), u"515");
  click(window->cmdWieWasser);
  EXPECT_EQ(window->txtVerbrauch(6)->text(), u"15");
  EXPECT_TRUE(window->optWechsel(5)->isChecked());
  EXPECT_TRUE(window->lblOffen->isVisible()) << "typed, not stored";
  EXPECT_EQ(year->adoWasser.number(6, yearbook::wasser::wasteReading), 515);
  click(window->Command1);
  for (int k = 0; k < 12; ++k)
    EXPECT_EQ(year->adoWasser.number(k, yearbook::wasser::wasteConsumption),
              year->adoWasser.number(k, yearbook::wasser::consumption))
        << k;
}

TEST_F(MeterReadingWindow, ShowsTheYearFromItsStartMonthOn) {
  openSample();
  ASSERT_TRUE(year->shiftStartMonth(Utility::Electricity, 7));
  const auto window = show<frmEingabeVerbrauchS>();
  EXPECT_EQ(window->windowTitle(), u"Eingabe Zählerstand Strom");
  EXPECT_EQ(window->txtAnfStand->text(), u"44.309");
  EXPECT_EQ(window->lblMo(0)->text(), u"Juli");
  EXPECT_EQ(window->lblMoV(11)->text(), u"Juni");
  EXPECT_EQ(window->optWechsel(0)->text(), u"Zählerwechsel im Juli");
  EXPECT_EQ(window->txtVerbrauch(0)->text(), u"238");
  EXPECT_EQ(window->lblVerbrauch(0)->text(), u"226");
  EXPECT_EQ(window->txtVerbrauch(11)->text(), u"45.808");
  for (int k = 0; k < 12; ++k)
    EXPECT_EQ(window->lblMo(k)->palette().color(QPalette::WindowText) == QColor(0, 0, 255), k == 2);
}

TEST_F(MeterReadingWindow, TypedReadingsAreTakenOver) {
  openEmpty();
  ASSERT_TRUE(year->storeStartReading(yearbook::Meter::Day, 1000));
  ASSERT_TRUE(year->storePrice(yearbook::Meter::Day, 25));
  const auto window = show<frmEingabeVerbrauchS>();
  EXPECT_EQ(QApplication::focusWidget(), window->txtVerbrauch(0));
  for (const QString& reading : {u"1.100"_s, u"1250"_s, u"0"_s, u"1400"_s}) {
    QTest::keyClicks(QApplication::focusWidget(), reading);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  }
  EXPECT_EQ(QApplication::focusWidget(), window->txtVerbrauch(4));
  click(window->Command1);
  EXPECT_TRUE(window->isVisible());
  EXPECT_THAT(texts(window->lblVerbrauch, 5), ElementsAre("100", "150", "", "150", ""));
  EXPECT_EQ(bytes("Verbrauch2025_WechselStrom.dat"), "12,0\r\n");
  click(window->Command2);  // nothing left to ask
  EXPECT_FALSE(window->isVisible());

  open();
  EXPECT_EQ(stored(strom::dayReading, 1), 1250);
  EXPECT_EQ(stored(strom::dayAmount, 1), 37.5);
  EXPECT_EQ(stored(strom::monthAmount, 1), 37.5);
  EXPECT_EQ(year->values().bill.meters[yearbook::Meter::Day].consumption, 400);
}

TEST_F(MeterReadingWindow, EnterStaysInTheLastMonth) {
  openEmpty();
  const auto window = show<frmEingabeVerbrauchW>();
  window->txtVerbrauch(11)->setFocus();
  QTest::keyClick(window->txtVerbrauch(11), Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), window->txtVerbrauch(11));
  EXPECT_TRUE(window->isVisible());
  prompts.answer(Button::No);  // any key counts as a change
  click(window->Command2);
}

TEST_F(MeterReadingWindow, ClosingWithChangesAsksForThem) {
  openSample();
  for (const bool yes : {false, true}) {
    const auto window = show<frmEingabeVerbrauchS>();
    type(window->txtVerbrauch(11), u"1600"_s);
    prompts.answer(yes ? Button::Yes : Button::No);
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    const auto asked = prompts.take();
    EXPECT_EQ(asked.text,
              u"Sie haben  Änderungen vorgenommen\nSollen die Änderungen übernommen werden?");
    EXPECT_EQ(asked.title, u" Eingabe Zählerstand");
    EXPECT_EQ(asked.icon, dialogs::Icon::Question);
    EXPECT_EQ(asked.defaultButton, Button::No);
    EXPECT_EQ(stored(strom::dayReading, 11), yes ? 1600 : 1506);
  }
}

TEST_F(MeterReadingWindow, OnlyWholeUnitsAreRead) {
  openEmpty();
  const auto window = show<frmEingabeVerbrauchW>();
  prompts.acceptTellings();
  type(window->txtVerbrauch(0), u"1234,5"_s);
  EXPECT_EQ(window->txtVerbrauch(0)->value(), 12345);
  ASSERT_EQ(prompts.shown.size(), 1u);
  EXPECT_EQ(prompts.last().text, u"Bitte nur volle m³ eingeben!");
  EXPECT_EQ(prompts.last().title, u"Eingabe Anfangszählerstand");
  EXPECT_EQ(prompts.last().icon, dialogs::Icon::Information);
  type(window->txtVerbrauch(1), u"12.5"_s);
  type(window->txtVerbrauch(2), u"30"_s);
  EXPECT_EQ(window->lblHint(1)->text(), u"nur volle m³");
  const QColor plain = window->txtVerbrauch(0)->palette().color(QPalette::Base);
  click(window->Command1);
  EXPECT_EQ(prompts.shown.size(), 2u);
  EXPECT_THAT(texts(window->txtVerbrauch, 3), ElementsAre("12.345", "12,5", "30"));
  EXPECT_EQ(QApplication::focusWidget(), window->txtVerbrauch(1));
  EXPECT_NE(window->txtVerbrauch(1)->palette().color(QPalette::Base), plain);
  EXPECT_EQ(year->adoWasser.number(0, yearbook::wasser::reading), std::nullopt);
  type(window->txtVerbrauch(1), u"20"_s);
  EXPECT_EQ(window->txtVerbrauch(1)->palette().color(QPalette::Base), plain);
  EXPECT_TRUE(window->lblOffen->isVisible());
  click(window->Command1);
  EXPECT_EQ(year->adoWasser.number(1, yearbook::wasser::reading), 20);
  EXPECT_FALSE(window->lblOffen->isVisible());
}

TEST_F(MeterReadingWindow, AnyTextMayBePasted) {
  openEmpty();
  const auto window = show<frmEingabeVerbrauchS>();
  const auto paste = [&](const QString& text) {
    QApplication::clipboard()->setText(text);
    type(window->txtVerbrauch(0), {});
    QTest::keyClick(window->txtVerbrauch(0), Qt::Key_V, Qt::ControlModifier);
    return window->txtVerbrauch(0)->valueOrZero();
  };
  EXPECT_EQ(paste(u" 44.600 kWh\n"_s), 44600);
  EXPECT_EQ(paste(u"-12"_s), -12);
  EXPECT_EQ(paste(u"999999999999999"_s), 999999999999999);
  prompts.acceptTellings();
  paste(QString(1'000'000, u'x') + QString(1'000'000, u'7'));
  click(window->Command1);
  EXPECT_TRUE(window->isVisible());
}

TEST_F(MeterReadingWindow, AMeterChangeMovesTheLaterReadings) {
  openEmpty();
  const auto window = show<frmEingabeVerbrauchNS>();
  EXPECT_FALSE(window->txtWechsel->isVisible() || window->Label4->isVisible() ||
               window->Command4->isVisible() || window->optWechsel(12)->isVisible());
  EXPECT_THAT(inChangeColumn(*window), IsEmpty());
  prompts.answerInput(u"18250,5"_s);
  click(window->optWechsel(8));
  EXPECT_EQ(prompts.last().text, u"Eingabe Anfangszählerstand bei Zählerwechsel");
  EXPECT_EQ(prompts.last().title, u"Anfangszählerstand eingeben");
  EXPECT_TRUE(window->txtWechsel->isVisible() && window->Label4->isVisible() &&
              window->Command4->isVisible());
  EXPECT_EQ(window->txtWechsel->value(), 18250.5);
  EXPECT_THAT(inChangeColumn(*window), ElementsAre(9, 10, 11));
  // An earlier month moves more of them, a later one moves none back.
  window->optWechsel(6)->setChecked(true);
  window->optWechsel(9)->setChecked(true);
  EXPECT_THAT(inChangeColumn(*window), ElementsAre(7, 8, 9, 10, 11));
  EXPECT_FALSE(window->optWechsel(6)->isChecked());

  click(window->Command1);
  EXPECT_EQ(bytes("Verbrauch2025_WechselNachtstrom.dat"), "9,18250.5\r\n");
  click(window->Command4);
  EXPECT_EQ(bytes("Verbrauch2025_WechselNachtstrom.dat"), "12,0\r\n");
  EXPECT_THAT(inChangeColumn(*window), IsEmpty());
  EXPECT_FALSE(window->txtWechsel->isVisible());
}

TEST_F(MeterReadingWindow, OnlyTheMouseAsksForTheNewMetersReading) {
  openEmpty();
  const auto window = show<frmEingabeVerbrauch>();
  window->optWechsel(3)->setFocus();
  QTest::keyClick(window->optWechsel(3), Qt::Key_Space);
  EXPECT_TRUE(window->optWechsel(3)->isChecked());
  EXPECT_THAT(prompts.shown, IsEmpty());
  type(window->txtWechsel, u"20"_s);
  for (const auto& answer : {std::optional<QString>(), std::optional(u""_s), std::optional(u"0"_s),
                             std::optional(u"-3"_s), std::optional(u"drei"_s)}) {
    prompts.answerInput(answer);
    click(window->optWechsel(3));
    EXPECT_EQ(window->txtWechsel->value(), 20);
  }
  prompts.answerInput(u"1.234"_s);
  click(window->optWechsel(3), Qt::RightButton);
  EXPECT_EQ(window->txtWechsel->value(), 1234);
  prompts.answer(Button::No);
  click(window->Command2);  // it was typed in
  const auto another = show<frmEingabeVerbrauch>();
  prompts.answerInput(u"5"_s);
  click(another->optWechsel(3));
  click(another->Command2);  // in the gas window a change option alone is no change
  EXPECT_FALSE(another->isVisible());
}

TEST_F(MeterReadingWindow, InTheDayWindowPressingAnOptionCountsAsAChange) {
  openEmpty();
  const auto window = show<frmEingabeVerbrauchS>();
  prompts.answerInput(u"5"_s);
  click(window->optWechsel(3));
  prompts.answer(Button::No);
  click(window->Command2);
}

TEST_F(MeterReadingWindow, TheSideFileBringsTheChangeBack) {
  openEmpty();
  put("Verbrauch2025_WechselGas.dat", "5,120\r\n");
  auto window = show<frmEingabeVerbrauch>();
  EXPECT_TRUE(window->optWechsel(5)->isChecked());
  EXPECT_EQ(window->txtWechsel->text(), u"120");
  EXPECT_THAT(inChangeColumn(*window), ElementsAre(6, 7, 8, 9, 10, 11));
  for (const std::string& foreign : {std::string(), std::string("5"), std::string("7;120"),
                                     std::string("<html>"), std::string(1'000'000, '5')}) {
    put("Verbrauch2025_WechselGas.dat", foreign);
    window = show<frmEingabeVerbrauch>();
    EXPECT_FALSE(window->txtWechsel->isVisible());
    EXPECT_THAT(inChangeColumn(*window), IsEmpty());
  }
}

TEST_F(MeterReadingWindow, DeletingAllKeepsTheStoredReadingsUntilTheNextTakeOver) {
  openSample();
  const auto window = show<frmEingabeVerbrauchS>();
  prompts.answer(Button::No);
  click(window->Command3);
  EXPECT_EQ(prompts.last().text, u"Sollen alle Zählerstände gelöscht werden?");
  EXPECT_EQ(prompts.last().title, u"Alle Zählerstände löschen");
  EXPECT_EQ(window->txtVerbrauch(0)->value(), 44600);
  prompts.answer(Button::Yes);
  click(window->Command3);
  EXPECT_THAT(texts(window->txtVerbrauch), testing::Each("0"));
  EXPECT_THAT(texts(window->lblVerbrauch), testing::Each(""));
  EXPECT_THAT(inChangeColumn(*window), IsEmpty());
  EXPECT_EQ(bytes("Verbrauch2025_WechselStrom.dat"), "12,0\r\n");
  EXPECT_EQ(stored(strom::dayReading, 0), 44600);
  EXPECT_EQ(stored(strom::dayConsumption, 0), 0);
  EXPECT_EQ(stored(strom::dayAmount, 0), 0);
  EXPECT_EQ(year->adoVerbrM.number(0, yearbook::verbrMonat::day), 0);
  EXPECT_EQ(year->values().bill.meters[yearbook::Meter::Day].consumption, 0);
  click(window->Command1);
  EXPECT_EQ(stored(strom::dayReading, 0), 0);
}

TEST_F(MeterReadingWindow, AHintShowsWhatATypedReadingWouldComeTo) {
  openSample();
  const auto window = show<frmEingabeVerbrauchW>();
  EXPECT_THAT(texts(window->lblHint), testing::Each(""));
  type(window->txtVerbrauch(3), u"484"_s);
  EXPECT_EQ(window->lblHint(3)->text(), u"ergibt 13");
  EXPECT_EQ(window->lblHint(4)->text(), u"ergibt 8");
  type(window->txtVerbrauch(3), u"470"_s);
  EXPECT_EQ(window->lblHint(3)->text(), u"ergibt -1: niedriger als der Stand davor");
  type(window->txtVerbrauch(11), u"5620"_s);
  EXPECT_EQ(window->lblHint(11)->text(), u"ergibt 5067: mehr als das Dreifache des Üblichen");
  click(window->Command1);  // a hint refuses nothing
  EXPECT_EQ(window->lblVerbrauch(3)->text(), u"-1");
  EXPECT_EQ(window->lblHint(3)->text(), u"niedriger als der Stand davor");
}

TEST_F(MeterReadingWindow, WhatCannotBeStoredIsToldAndStaysTyped) {
  openSample();
  const base::Bytes before = disk.get(kPath);
  const auto window = show<frmEingabeVerbrauchS>();
  type(window->txtVerbrauch(11), u"1600"_s);
  prompts.acceptTellings();
  fillDisk();
  click(window->Command1);
  EXPECT_TRUE(prompts.last().text.contains(u"kein Platz mehr"));
  EXPECT_TRUE(prompts.last().text.contains(u"/daten/"));
  EXPECT_EQ(window->txtVerbrauch(11)->text(), u"1.600");
  EXPECT_EQ(window->lblVerbrauch(11)->text(), u"305");
  EXPECT_EQ(year->values().bill.meters[yearbook::Meter::Day].consumption, 2993);
  freeDisk();
  EXPECT_EQ(disk.get(kPath), before);
  click(window->Command1);
  EXPECT_EQ(stored(strom::dayReading, 11), 1600);
  EXPECT_EQ(window->lblVerbrauch(11)->text(), u"399");
}

TEST_F(MeterReadingWindow, WithoutItsChangeFileNoReadingIsStored) {
  openSample();
  disk.protect("/daten/Verbrauch2025_WechselStrom.dat");
  const auto window = show<frmEingabeVerbrauchS>();
  type(window->txtWechsel, u"10"_s);
  type(window->txtVerbrauch(11), u"1600"_s);
  prompts.acceptTellings();
  click(window->Command1);
  EXPECT_TRUE(prompts.last().text.contains(u"Verbrauch2025_WechselStrom.dat"));
  EXPECT_EQ(stored(strom::dayConsumption, 6), 226);
  EXPECT_EQ(stored(strom::dayReading, 11), 1506);
  EXPECT_EQ(bytes("Verbrauch2025_WechselStrom.dat"), "5,12\r\n");
  prompts.answer(Button::No);
  click(window->Command2);
}

TEST_F(MeterReadingWindow, AnAmountBeyondAnyMoneyFieldIsRefused) {
  openSample();
  const auto window = show<frmEingabeVerbrauchW>();
  type(window->txtVerbrauch(11), u"999999999999999"_s);
  prompts.acceptTellings();
  click(window->Command1);
  EXPECT_TRUE(prompts.last().text.contains(u"Dezember: der Betrag ist zu groß"_s));
  EXPECT_EQ(yearbook::orZero(year->adoWasser.number(11, yearbook::wasser::reading)), 562);
  EXPECT_EQ(window->txtVerbrauch(11)->text(), u"999.999.999.999.999");
  EXPECT_EQ(QApplication::focusWidget(), window->txtVerbrauch(11));
  prompts.answer(Button::No);
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_EQ(prompts.last().title, u" Eingabe Zählerstand");
}

TEST_F(MeterReadingWindow, AReadOnlyYearCanBeLookedAt) {
  openSample();
  year.reset();
  disk.protect(kPath);
  open();
  const auto window = show<frmEingabeVerbrauchS>();
  EXPECT_EQ(window->txtVerbrauch(0)->text(), u"44.600");
  type(window->txtVerbrauch(0), u"44601"_s);
  EXPECT_EQ(window->txtVerbrauch(0)->text(), u"44.600");
  for (QWidget* off :
       {static_cast<QWidget*>(window->Command1), static_cast<QWidget*>(window->Command3),
        static_cast<QWidget*>(window->optWechsel(2))})
    EXPECT_FALSE(off->isEnabled());
  EXPECT_TRUE(window->lblOffen->text().contains(u"nur gelesen"));
}

TEST_F(MeterReadingWindow, ANewMetersReadingTypedByHandIsAChange) {
  openSample();
  const auto window = show<frmEingabeVerbrauchS>();
  EXPECT_FALSE(window->lblOffen->isVisible());
  type(window->txtWechsel, u"13"_s);
  EXPECT_TRUE(window->lblOffen->isVisible());
  prompts.answer(Button::Yes);
  click(window->Command2);
  EXPECT_EQ(bytes("Verbrauch2025_WechselStrom.dat"), "5,13\r\n");
}

// Without the copy the consumptions stay.
TEST_F(MeterReadingWindow, ACopyComesBeforeDeletingAll) {
  openSample();
  FakeKeeper keeper;
  services.keeper = &keeper;
  const base::Bytes before = year->database().image().value();
  for (const bool goesOn : {false, true}) {
    keeper.goesOn = goesOn;
    const auto window = show<frmEingabeVerbrauchS>();
    prompts.answer(Button::Yes);
    click(window->Command3);
    EXPECT_EQ(keeper.image, before);
    EXPECT_EQ(stored(strom::dayConsumption, 0), goesOn ? 0 : 291);
  }
  EXPECT_EQ(keeper.harms, std::vector(2, dialogs::Harm::DeletingReadings));
}

TEST_F(MeterReadingWindow, WhatWasTypedAndChosenCanBeTakenBack) {
  openSample();
  const auto window = show<frmEingabeVerbrauchW>();
  type(window->txtVerbrauch(10), u"570"_s);
  type(window->txtVerbrauch(11), u"600"_s);
  window->txtVerbrauch(11)->finish();
  window->optWechsel(3)->click();
  EXPECT_TRUE(window->txtWechsel->isVisible());
  QCoreApplication::processEvents();
  const int column = window->txtVerbrauch(0)->x();
  EXPECT_GT(window->txtVerbrauch(11)->x(), column);
  const auto press = [&](Qt::Key key, Qt::KeyboardModifiers more = {}) {
    QTest::keyClick(window->txtVerbrauch(11), key, Qt::ControlModifier | more);
  };
  press(Qt::Key_Z);
  EXPECT_FALSE(window->txtWechsel->isVisible());
  EXPECT_TRUE(window->optWechsel(12)->isChecked());
  QCoreApplication::processEvents();
  EXPECT_EQ(window->txtVerbrauch(11)->x(), column);
  press(Qt::Key_Z);
  EXPECT_EQ(window->txtVerbrauch(11)->text(), u"562");
  EXPECT_EQ(window->txtVerbrauch(10)->text(), u"570");
  press(Qt::Key_Z);
  press(Qt::Key_Z);
  EXPECT_NE(window->txtVerbrauch(10)->text(), u"570");
  press(Qt::Key_Y);
  EXPECT_EQ(window->txtVerbrauch(10)->text(), u"570");
  press(Qt::Key_Z, Qt::ShiftModifier);
  EXPECT_EQ(window->txtVerbrauch(11)->text(), u"600");
  // A new entry ends the way forward.
  type(window->txtVerbrauch(11), u"610"_s);
  press(Qt::Key_Y);
  EXPECT_EQ(window->txtVerbrauch(11)->text(), u"610");
  EXPECT_FALSE(window->txtWechsel->isVisible());
  EXPECT_EQ(year->adoWasser.number(11, yearbook::wasser::reading), 562);
}

TEST_F(MeterReadingWindow, APastedColumnRunsDownFromItsField) {
  openSample();
  const auto window = show<frmEingabeVerbrauchW>();
  const auto paste = [&](int month, const QString& column) {
    QApplication::clipboard()->setText(column);
    window->txtVerbrauch(month)->setFocus();
    QTest::keyClick(window->txtVerbrauch(month), Qt::Key_V, Qt::ControlModifier);
  };
  const QString april = window->txtVerbrauch(3)->text();
  paste(1, u"1.460\r\n1.470\r\n\r\n1.490\r\n"_s);
  EXPECT_EQ(window->txtVerbrauch(1)->text(), u"1.460");
  EXPECT_EQ(window->txtVerbrauch(3)->text(), april);
  EXPECT_EQ(window->txtVerbrauch(4)->text(), u"1.490");
  EXPECT_TRUE(window->lblHint(4)->text().contains(u"ergibt"));
  prompts.acceptTellings();
  paste(10, u"1\n2\n3"_s);
  EXPECT_EQ(prompts.last().text, u"3 Werte, aber ab hier nur 2 Felder.");
  paste(5, u"1500\nviel"_s);
  EXPECT_TRUE(prompts.last().text.startsWith(u"Zeile 2"));
  EXPECT_NE(window->txtVerbrauch(5)->text(), u"1.500");
  click(window->Command1);
  EXPECT_EQ(year->adoWasser.number(4, yearbook::wasser::reading), 1490);
}

TEST_F(MeterReadingWindow, TheHelpButtonShowsTheMeterChangeAndF1TheManual) {
  openEmpty();
  const auto window = show<frmEingabeVerbrauchS>();
  click(window->Command5);
  QTest::keyClick(window.get(), Qt::Key_F1);
  EXPECT_EQ(navigator.calls,
            QStringList({u"showMeterChangeHelp"_s, u"showManual "_s + window->objectName()}));
}
