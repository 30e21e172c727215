#include <gmock/gmock.h>

#include <QApplication>

#include "OpenYear.h"
#include "readings/ui/frmGrdGebMo.h"
#include "readings/ui/frmGrdGebMoW.h"
#include "readings/ui/frmPreisJeKubikG.h"
#include "readings/ui/frmPreisJeKubikW.h"
#include "readings/ui/frmPreisJeKws.h"

using namespace Qt::Literals::StringLiterals;
using yearbook::Utility;
namespace strom = yearbook::strom;

namespace {

class UnitPriceWindow : public OpenYear {};
class BaseFeeWindow : public OpenYear {
 protected:
  base::Money yearFee() const {
    return yearbook::orZero(year->adoZStaende.money(0, yearbook::zstaende::baseFeeElectricity));
  }
};

base::Money cents(std::int64_t count) {
  return base::Money::fromTenThousandths(count * 100);
}

}  // namespace

TEST_F(UnitPriceWindow, ANewYearIsPricedAsAWhole) {
  openEmpty();
  const auto window = show<frmPreisJeKws>();
  for (QCheckBox* box : window->Check1) EXPECT_TRUE(box->isChecked());
  type(window->newPrice, u"29,6"_s);
  EXPECT_EQ(window->monthPrice(11)->text(), u"29,60");
  EXPECT_EQ(year->adoStrom.number(11, strom::dayPrice), std::nullopt);
  click(window->Command1);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(year->adoStrom.number(0, strom::dayPrice), 29.6);
  EXPECT_EQ(year->values().prices[yearbook::Meter::Day], 29.6);
}

TEST_F(UnitPriceWindow, OnlyTickedMonthsArePricedAnew) {
  openSample();
  ASSERT_TRUE(year->shiftStartMonth(Utility::Electricity, 4));
  const auto window = show<frmPreisJeKws>();
  EXPECT_EQ(window->Check1(0)->text(), u"April");
  EXPECT_EQ(window->monthPrice(0)->text(), u"28,90");
  EXPECT_EQ(window->monthPrice(9)->text(), u"29,60");
  for (int k = 3; k < 12; ++k) window->Check1(k)->setChecked(true);
  click(window->cmdAbschlW2);
  EXPECT_TRUE(window->Check1(2)->isChecked());
  EXPECT_FALSE(window->Check1(3)->isChecked());
  type(window->newPrice, u"30"_s);
  EXPECT_EQ(window->monthPrice(2)->text(), u"30,00");
  EXPECT_EQ(window->monthPrice(3)->text(), u"28,90");
  click(window->Command1);
  EXPECT_EQ(year->adoStrom.money(0, strom::dayAmount), cents(7170));  // 239 kWh
  EXPECT_EQ(year->adoStrom.money(0, strom::monthAmount),
            cents(7170) + base::Money::fromTenThousandths(274850));
  EXPECT_EQ(year->adoStrom.money(3, strom::dayAmount), base::Money::fromTenThousandths(653140));
}

TEST_F(UnitPriceWindow, WithoutAPriceOrByClosingNothingIsWritten) {
  openSample();
  const base::Bytes before = disk.get(kPath);
  for (const char16_t* typed : {u"", u"-", u"9,1"}) {
    const auto window = show<frmPreisJeKubikG>();
    click(window->cmdAbschlW2);
    type(window->newPrice, QString::fromUtf16(typed));
    click(QStringView(typed).size() > 1 ? window->Command2 : window->Command1);
    EXPECT_FALSE(window->isVisible());
  }
  EXPECT_EQ(disk.get(kPath), before);
}

TEST_F(UnitPriceWindow, AFailureIsToldAndWhatWasTypedStays) {
  openSample();
  const auto window = show<frmPreisJeKubikW>();
  click(window->cmdAbschlW2);
  type(window->newPrice, u"2,5"_s);
  prompts.acceptTellings();
  fillDisk();
  click(window->Command1);
  EXPECT_TRUE(prompts.last().text.contains(u"kein Platz mehr"));
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(window->newPrice->text(), u"2,50");
  EXPECT_EQ(window->monthPrice(0)->text(), u"2,50");
  EXPECT_TRUE(window->lblOffen->isVisible());
  prompts.answer(dialogs::Button::Yes);
  click(window->Command2);
  EXPECT_TRUE(window->isVisible()) << "it failed again";
  freeDisk();
  click(window->Command1);
  EXPECT_EQ(year->adoWasser.money(0, yearbook::wasser::amount), cents(2500));  // 10 m³
}

TEST_F(UnitPriceWindow, WhatWasTypedAndTickedCanBeTakenBack) {
  openSample();
  const auto window = show<frmPreisJeKubikW>();
  click(window->Check1(11));
  type(window->newPrice, u"2,5"_s);
  EXPECT_EQ(window->monthPrice(11)->text(), u"2,50");
  QTest::keyClick(window->newPrice, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(window->newPrice->text(), QString());
  EXPECT_NE(window->monthPrice(11)->text(), u"2,50");
  QTest::keyClick(window->newPrice, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(window->Check1(11)->isChecked());
}

TEST_F(UnitPriceWindow, ShiftTicksARangeAndAbTheRestOfTheYear) {
  openSample();
  const auto window = show<frmPreisJeKws>();
  const auto ticked = [&] {
    std::string marks;
    for (const QCheckBox* box : window->Check1) marks += box->isChecked() ? 'x' : '.';
    return marks;
  };
  click(window->cmdAb(4));
  EXPECT_EQ(window->cmdAb(4)->text(), u"ab Mai");
  EXPECT_EQ(ticked(), "....xxxxxxxx");
  click(window->cmdAb(9));
  EXPECT_EQ(ticked(), ".........xxx");
  QTest::keyClick(window->newPrice, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(ticked(), "............");
  click(window->Check1(7));
  QTest::mouseClick(window->Check1(2), Qt::LeftButton, Qt::ShiftModifier, QPoint(8, 8));
  EXPECT_EQ(ticked(), "..xxxxxx....");
  // As the box that is clicked: free here, and upwards as well as downwards.
  QTest::mouseClick(window->Check1(4), Qt::LeftButton, Qt::ShiftModifier, QPoint(8, 8));
  EXPECT_EQ(ticked(), ".....xxx....");
}

TEST_F(UnitPriceWindow, APriceForNoMonthOrThatLooksWrongIsSaid) {
  openSample();
  const auto window = show<frmPreisJeKws>();
  EXPECT_EQ(window->lblZweifel->text(), QString());
  const int height = window->height();
  type(window->newPrice, u"31,945"_s);
  EXPECT_TRUE(window->lblZweifel->text().contains(u"Kein Monat ist markiert"));
  click(window->cmdAb(6));
  EXPECT_EQ(window->lblZweifel->text(), QString());
  type(window->newPrice, u"31.945"_s);
  EXPECT_EQ(window->lblZweifel->text(), u"⚠ 31.945 Cent/kWh ist sehr viel");
  type(window->newPrice, u"-5"_s);
  EXPECT_EQ(window->lblZweifel->text(), u"⚠ unter 0");
  QCoreApplication::processEvents();
  EXPECT_EQ(window->height(), height) << "nothing moves";
  click(window->Command1);
  EXPECT_EQ(window->notTaken(), QString());
  EXPECT_EQ(year->adoStrom.number(6, strom::dayPrice), -5) << "a hint, not a refusal";
}

TEST_F(BaseFeeWindow, OneFeeForAllMonthsAndWhatItReplaces) {
  openEmpty();
  ASSERT_TRUE(year->storeBaseFee(yearbook::Meter::Day, cents(12000)));
  const auto window = show<frmGrdGebMo>();
  EXPECT_EQ(window->lblBisher->text(), u"bisher 120,00 Euro im Jahr");
  type(window->txtVerbrauch(0), u"11,5"_s);
  click(window->cmdAlleGleich);
  EXPECT_EQ(window->txtVerbrauch(11)->text(), u"11,50");
  EXPECT_EQ(window->lblSum->text(), u"138,00");
  QTest::keyClick(window->txtVerbrauch(0), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(window->txtVerbrauch(11)->text(), u"0,00");
  QTest::keyClick(window->txtVerbrauch(0), Qt::Key_Y, Qt::ControlModifier);
  type(window->txtVerbrauch(7), u"115"_s);
  EXPECT_EQ(window->lblZweifel->text(),
            u"⚠ August: mehr als das Dreifache, sonst 11,50 in diesem Jahr");
  type(window->txtVerbrauch(7), u"11,5"_s);
  EXPECT_EQ(window->lblZweifel->text(), QString());
  window->txtVerbrauch(11)->setFocus();
  QTest::keyClick(window->txtVerbrauch(11), Qt::Key_Return);
  EXPECT_EQ(QApplication::focusWidget(), window->Command1);
  QTest::keyClick(window->Command1, Qt::Key_Return);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(yearFee(), cents(13800));
  EXPECT_EQ(show<frmGrdGebMoW>()->lblBisher->text(), QString());
}

TEST_F(BaseFeeWindow, TheSumBecomesTheYearsFeeAndTheMonthsAreKept) {
  openEmpty();
  const auto window = show<frmGrdGebMo>();
  for (int k = 0; k < 12; ++k) {
    EXPECT_EQ(window->txtVerbrauch(k)->text(), u"0,00");
    type(window->txtVerbrauch(k), u"7,91"_s);
    QTest::keyClick(window->txtVerbrauch(k), Qt::Key_Return);
    if (k < 11) {
      EXPECT_EQ(QApplication::focusWidget(), window->txtVerbrauch(k + 1));
    }
  }
  type(window->txtVerbrauch(11), u"-4"_s);
  EXPECT_EQ(window->lblSum->text(), u"87,01");
  type(window->txtVerbrauch(11), u"7,91"_s);
  click(window->Command1);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(yearFee(), cents(9492));
  EXPECT_EQ(year->values().baseFees[yearbook::Meter::Day], cents(9492));
  EXPECT_EQ(bytes("Verbrauch2025_GrdGebStrMon.dat"),
            "7.91,7.91,7.91,7.91,7.91,7.91,7.91,7.91,7.91,7.91,7.91,7.91\r\n");
}

TEST_F(BaseFeeWindow, DeletingAllValuesChangesNothingUntilTheTakeOver) {
  openSample();
  {
    const auto window = show<frmGrdGebMo>();
    EXPECT_EQ(window->txtVerbrauch(3)->text(), u"13,50");
    click(window->Command3);
    EXPECT_EQ(window->lblSum->text(), u"0,00");
    click(window->Command2);
    EXPECT_EQ(yearFee(), cents(16200));
  }
  const auto window = show<frmGrdGebMo>();
  click(window->Command3);
  click(window->Command1);
  EXPECT_EQ(yearFee(), base::Money());
  EXPECT_EQ(bytes("Verbrauch2025_GrdGebStrMon.dat"), "0,0,0,0,0,0,0,0,0,0,0,0\r\n");
}

// Only the button closes without a question; a line says that it would.
TEST_F(BaseFeeWindow, EscapeAsksForWhatWasTypedAndTheButtonDoesNot) {
  openSample();
  for (const auto answer : {std::optional<dialogs::Button>(), std::optional(dialogs::Button::No),
                            std::optional(dialogs::Button::Yes)}) {
    const auto window = show<frmGrdGebMo>();
    EXPECT_FALSE(window->lblOffen->isVisible());
    type(window->txtVerbrauch(0), u"20"_s);
    EXPECT_TRUE(window->lblOffen->isVisible());
    if (answer) {
      prompts.answer(*answer);
      QTest::keyClick(window.get(), Qt::Key_Escape);
      EXPECT_EQ(prompts.take().defaultButton, dialogs::Button::No);
    } else {
      click(window->Command2);
    }
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(yearFee(), cents(answer == dialogs::Button::Yes ? 16850 : 16200));
  }
  const auto window = show<frmGrdGebMo>();
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(BaseFeeWindow, ASumThatIsTooLargeIsLaidToItsLargestFee) {
  openSample();
  const auto window = show<frmGrdGebMo>();
  type(window->txtVerbrauch(4), u"999999999999999"_s);
  prompts.acceptTellings();
  click(window->Command1);
  EXPECT_EQ(QApplication::focusWidget(), window->txtVerbrauch(4));
  EXPECT_EQ(window->txtVerbrauch(4)->valueOrZero(), 999999999999999);
  prompts.answer(dialogs::Button::No);
  click(window->Command2);  // asks, for it was to be stored
  EXPECT_FALSE(window->isVisible());
}

TEST_F(BaseFeeWindow, ItsMonthsRunAsThoseOfElectricity) {
  openEmpty();
  ASSERT_TRUE(year->shiftStartMonth(Utility::Water, 4));
  EXPECT_EQ(show<frmGrdGebMoW>()->lblMo(0)->text(), u"Januar");
  ASSERT_TRUE(year->shiftStartMonth(Utility::Electricity, 10));
  EXPECT_EQ(show<frmGrdGebMoW>()->lblMo(0)->text(), u"Oktober");
}

TEST_F(BaseFeeWindow, FailuresAreToldAndTheWindowStaysUsable) {
  openSample();
  const auto window = show<frmGrdGebMo>();
  type(window->txtVerbrauch(0), u"20"_s);
  prompts.acceptTellings();
  fillDisk();
  click(window->Command1);
  EXPECT_TRUE(prompts.last().text.contains(u"kein Platz mehr"));
  freeDisk();
  EXPECT_EQ(yearFee(), cents(16200));
  // Without the months no sum.
  disk.protect("/daten/Verbrauch2025_GrdGebStrMon.dat");
  click(window->Command1);
  EXPECT_TRUE(prompts.last().text.contains(u"Verbrauch2025_GrdGebStrMon.dat"));
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(window->txtVerbrauch(0)->text(), u"20,00");
  EXPECT_EQ(yearFee(), cents(16200));
}
