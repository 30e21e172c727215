#include "MainWindowFixture.h"
#include "dialogs/GrossButton.h"
#include "readings/ui/frmPreisJeKubikW.h"

using namespace Qt::Literals::StringLiterals;
using base::Money;
using yearbook::Meter;
using yearbook::Utility;

// What helps while figures are copied from the bills: the gross ones, a payment for many months,
// marks on what looks wrong.

namespace {

class EntryAids : public MainWindowFixture {
 protected:
  QWidget* find(const char16_t* name) const {
    return window->findChild<QWidget*>(QString::fromUtf16(name));
  }
  static QString doubt(const QLineEdit* field) {
    const auto* mark = field->findChild<QAction*>();
    return mark ? mark->toolTip() : QString();
  }
  // Handles the window that act opens.
  template <class Act, class Handler>
  static void convert(Act act, Handler handler) {
    bool met = false;
    QTimer::singleShot(0, qApp, [&] {
      auto* modal = qobject_cast<frmBrutto*>(QApplication::activeModalWidget());
      ASSERT_TRUE(modal);
      met = true;
      handler(*modal);
      if (modal->isVisible()) modal->close();
    });
    act();
    EXPECT_TRUE(met);
  }
  void press(const char16_t* name) const {
    auto* button = qobject_cast<QToolButton*>(find(name));
    ASSERT_TRUE(button);
    EXPECT_EQ(button->toolTip(), u"Brutto umrechnen"_s);
    EXPECT_EQ(button->accessibleName(), u"Brutto umrechnen"_s);
    button->click();
  }
};

}  // namespace

TEST_F(EntryAids, TheStartReadingQuestionSaysWhichMeterAndShowsIt) {
  prompts.answerInput(std::nullopt);
  openEmpty();
  window->TabStrip->setCurrentWidget(window->Frame2);
  const auto ground = [&] { return window->Frame1->txtAnfStandST->palette().base().color(); };
  const QColor plain = ground();
  prompts.whileAsked = [&] {
    EXPECT_EQ(window->TabStrip->currentWidget(), window->Frame1);
    EXPECT_NE(ground(), plain);
  };
  prompts.answerInput(u"0"_s);
  window->mnuNew->trigger();
  EXPECT_EQ(prompts.last().text, u"Anfangszählerstand eingeben"_s);
  EXPECT_EQ(prompts.last().note, u"Strom, Tagtarif\n0, wenn es keinen gibt"_s);
  EXPECT_EQ(window->TabStrip->currentWidget(), window->Frame2);
  EXPECT_EQ(ground(), plain);
  EXPECT_EQ(window->session().values().startReadings[Meter::Day], 0);
}

TEST_F(EntryAids, AGrossPriceIsTakenAsTheNetOneAndIsOneStep) {
  openSample();
  convert([&] { press(u"cmdBrutto_txtTPreis"); },
          [](frmBrutto& brutto) {
            EXPECT_EQ(brutto.focusWidget(), brutto.txtBrutto);
            EXPECT_FALSE(brutto.optMonat->isVisible());
            EXPECT_FALSE(brutto.cmdUebernehmen->isEnabled());
            type(brutto.txtMwSt, u"7"_s);
            EXPECT_EQ(brutto.txtMwSt->text(), u"19"_s) << "the year's";
            type(brutto.txtBrutto, u"34,39"_s);
            EXPECT_EQ(brutto.txtNetto->text(), u"28,8992"_s);
            type(brutto.txtBrutto, u"35,7"_s);
            EXPECT_EQ(brutto.txtNetto->text(), u"30,00"_s);
            QTest::keyClick(brutto.txtBrutto, Qt::Key_Return);
            EXPECT_EQ(brutto.focusWidget(), brutto.cmdUebernehmen);
            QTest::keyClick(brutto.cmdUebernehmen, Qt::Key_Return);
          });
  EXPECT_EQ(window->Frame1->txtTPreis->text(), u"30,00"_s);
  EXPECT_EQ(window->session().adoStrom.number(0, yearbook::strom::dayPrice), 30);
  EXPECT_TRUE(window->fraGeaendert->isVisible()) << "the months had prices of their own";
  window->mnuUndo->trigger();
  EXPECT_EQ(window->session().adoStrom.number(0, yearbook::strom::dayPrice), 29.6);
  EXPECT_FALSE(window->mnuUndo->isEnabled());
  // Closed without taking it, nothing changes.
  convert([&] { press(u"cmdBrutto_txtPreisGas"); },
          [](frmBrutto& brutto) { type(brutto.txtBrutto, u"1"_s); });
  EXPECT_EQ(window->Frame3->txtPreisGas->text(), u"9,25"_s);
}

TEST_F(EntryAids, AFeeOfTheMonthBecomesOneOfTheYear) {
  openSample();
  window->Frame1->txtGrundgebS->setFocus();
  convert([&] { QTest::keyClick(window->Frame1->txtGrundgebS, Qt::Key_B, Qt::ControlModifier); },
          [](frmBrutto& brutto) {
            EXPECT_EQ(brutto.lblWofuer->text(), u"Grundgebühr im Jahr, Strom"_s);
            EXPECT_TRUE(brutto.optJahr->isChecked());
            type(brutto.txtBrutto, u"192,78"_s);
            EXPECT_EQ(brutto.txtNetto->text(), u"162,00"_s);
            brutto.optMonat->click();
            type(brutto.txtBrutto, u"16,07"_s);
            brutto.cmdUebernehmen->click();
          });
  EXPECT_EQ(stored()->values().baseFees[Meter::Day], Money::fromTenThousandths(1620504));
}

// Waste water has a rate of its own, and 0 is one.
TEST_F(EntryAids, WithoutTheYearsRateItIsAskedForAndEntered) {
  prompts.answerInput(u"0"_s);
  openEmpty();
  convert([&] { press(u"cmdBrutto_txtGrundgebAbW"); },
          [](frmBrutto& brutto) {
            EXPECT_EQ(brutto.focusWidget(), brutto.txtBrutto);
            EXPECT_TRUE(brutto.lblHinweis->isVisible());
            type(brutto.txtBrutto, u"24"_s);
            QTest::keyClick(brutto.txtBrutto, Qt::Key_Return);
            EXPECT_EQ(brutto.focusWidget(), brutto.txtMwSt) << "Enter goes on to the rate";
            EXPECT_EQ(brutto.txtNetto->text(), QString());
            EXPECT_FALSE(brutto.cmdUebernehmen->isEnabled());
            type(brutto.txtMwSt, u"0"_s);
            EXPECT_EQ(brutto.txtNetto->text(), u"24,00"_s);
            brutto.cmdUebernehmen->click();
          });
  EXPECT_EQ(window->Frame2->txtGrundgebAbW->text(), u"24,00"_s);
  const auto vat = [&](Meter meter) { return window->session().values().vat[meter]; };
  EXPECT_EQ(vat(Meter::WasteWater), 0);
  EXPECT_FALSE(vat(Meter::Water));
  window->mnuUndo->trigger();
  EXPECT_EQ(vat(Meter::WasteWater), 0) << "a step of its own";
  window->mnuUndo->trigger();
  EXPECT_FALSE(vat(Meter::WasteWater));

  convert([&] { press(u"cmdBrutto_txtGrundgebAbW"); },
          [](frmBrutto& brutto) {
            type(brutto.txtBrutto, u"24"_s);
            type(brutto.txtMwSt, u"19"_s);
            brutto.chkMwStEintragen->click();
            brutto.cmdUebernehmen->click();
          });
  EXPECT_EQ(window->Frame2->txtGrundgebAbW->text(), u"20,1681"_s);
  EXPECT_FALSE(vat(Meter::WasteWater)) << "not wanted";
}

// Water has its prices in a window of their own.
TEST_F(EntryAids, TheRateIsEnteredFromThePricesOfTheMonthsToo) {
  prompts.answerInput(u"0"_s);
  openEmpty();
  window->TabStrip->setCurrentWidget(window->Frame2);
  frmPreisJeKubikW prices(services, window->session(), window.get());
  prices.show();
  convert([&] { prices.findChild<dialogs::GrossButton*>()->click(); },
          [](frmBrutto& brutto) {
            type(brutto.txtBrutto, u"2,14"_s);
            type(brutto.txtMwSt, u"7"_s);
            brutto.cmdUebernehmen->click();
          });
  EXPECT_EQ(window->session().values().vat[Meter::Water], 7);
}

TEST_F(EntryAids, AYearWithItsRateGetsNoOther) {
  openSample();
  convert([&] { press(u"cmdBrutto_txtTPreis"); },
          [](frmBrutto& brutto) {
            EXPECT_FALSE(brutto.chkMwStEintragen->isVisible());
            type(brutto.txtBrutto, u"35,7"_s);
            EXPECT_FALSE(brutto.newVat());
          });
}

TEST_F(EntryAids, APriceWithoutARateSaysThatItIsMissing) {
  prompts.answerInput(u"0"_s);
  openEmpty();
  QWidget* missing = find(u"lblFehlt_txtMwStS");
  ASSERT_TRUE(missing);
  EXPECT_FALSE(missing->isVisible());
  enter(window->Frame1->txtTPreis, u"30"_s);
  EXPECT_TRUE(missing->isVisible());
  enter(window->Frame1->txtMwStS, u"0"_s);
  EXPECT_FALSE(missing->isVisible());
  window->TabStrip->setCurrentWidget(window->Frame2);
  enter(window->Frame2->txtGrundgebW, u"100"_s);
  EXPECT_TRUE(find(u"lblFehlt_txtMwStW")->isVisible());
}

TEST_F(EntryAids, ThePagesSayNetAndWhereAPriceIsEntered) {
  prompts.answerInput(u"0"_s);
  openEmpty();
  QStringList units;
  for (const QLabel* label : window->findChildren<QLabel*>())
    if (label->text().endsWith(u" netto"_s)) units += label->text();
  EXPECT_EQ(units.filter(u"Cent/kWh"_s).size(), 3);
  EXPECT_EQ(units.filter(u"Euro/m³"_s).size(), 2);
  EXPECT_EQ(units.filter(u"Euro netto"_s).size(), 4);
  EXPECT_TRUE(window->Frame1->txtTPreis->toolTip().contains(u"Ohne MwSt"_s));
  window->TabStrip->setCurrentWidget(window->Frame2);
  auto* note = qobject_cast<QLabel*>(find(u"lblPreiseAbwasser"));
  ASSERT_TRUE(note);
  EXPECT_TRUE(note->isVisible());
  EXPECT_TRUE(note->text().contains(window->Frame2->cmdPreisJeEinheitAbW->text()));
}

TEST_F(EntryAids, APaymentIsFilledDownAndTheOldOnesComeBack) {
  openSample();
  auto* months = window->Frame3->months;
  window->TabStrip->setCurrentWidget(window->Frame3);
  enter(months->advance(3), u"150"_s);
  months->advance(3)->setFocus();
  EXPECT_TRUE(months->fillAdvances->toolTip().contains(u"April"_s));
  QTest::keyClick(months->advance(3), Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(months->advance(2)->text(), u"142,00"_s);
  for (int i = 3; i < 12; ++i) EXPECT_EQ(months->advance(i)->text(), u"150,00"_s) << i;
  EXPECT_EQ(window->fraGeaendert->lblGeaendert->text(),
            u"Abschlag Gas ab April je 150,00 Euro (vorher je 142,00 Euro)."_s);
  click(window->fraGeaendert->cmdRueckgaengig);
  EXPECT_EQ(months->advance(4)->text(), u"142,00"_s);
  EXPECT_EQ(months->advance(3)->text(), u"150,00"_s);
  // Unequal ones are said by their sum; where nothing changes there is no step.
  enter(months->advance(11), u"0"_s);
  months->advance(9)->setFocus();
  click(months->fillAdvances);
  EXPECT_EQ(window->fraGeaendert->lblGeaendert->text(),
            u"Abschlag Gas ab Oktober je 142,00 Euro (vorher zusammen 142,00 Euro)."_s);
  const QString last = window->mnuUndo->text();
  click(months->fillAdvances);
  EXPECT_EQ(window->mnuUndo->text(), last);
  click(months->zeroAdvances);
  click(window->fraGeaendert->cmdRueckgaengig);
  EXPECT_EQ(months->advance(11)->text(), u"142,00"_s);
}

TEST_F(EntryAids, WhatLooksWrongIsMarkedAndTakenAllTheSame) {
  openSample();
  EXPECT_EQ(doubt(window->Frame1->txtTPreis), QString());
  enter(window->Frame1->txtTPreis, u"31.945"_s);
  EXPECT_TRUE(doubt(window->Frame1->txtTPreis).contains(u"31.945 Cent/kWh ist sehr viel"_s));
  EXPECT_EQ(window->Frame1->txtTPreis->accessibleDescription(), doubt(window->Frame1->txtTPreis));
  enter(window->Frame1->txtTPreis, u"31,945"_s);
  EXPECT_EQ(doubt(window->Frame1->txtTPreis), QString());
  enter(window->Frame1->months->advance(2), u"-5"_s);
  EXPECT_EQ(doubt(window->Frame1->months->advance(2)), u"unter 0"_s);
  enter(window->Frame1->txtGrundgebS, u"16200"_s);
  EXPECT_FALSE(doubt(window->Frame1->txtGrundgebS).isEmpty());
  EXPECT_EQ(stored()->values().advances[Utility::Electricity][2], Money::roundHalfEven(-5));
}

TEST_F(EntryAids, ANegativeMonthIsMarkedAndLargeOnesAreGrouped) {
  openSample();
  const auto& months = *window->Frame1->months;
  EXPECT_FALSE(find(u"lblVerbrS_3_Zweifel")->isVisible());
  ASSERT_TRUE(window->session().transact({}, [](yearbook::YearRows& rows) -> base::Result<void> {
    auto done = rows.adoStrom.setNumber(3, yearbook::strom::dayConsumption, -56);
    return done ? rows.adoStrom.setNumber(4, yearbook::strom::dayConsumption, 12345) : done;
  }));
  window->mnuNew->trigger();
  EXPECT_EQ(months.consumption(3)->text(), u"-56"_s);
  EXPECT_TRUE(find(u"lblVerbrS_3_Zweifel")->isVisible());
  EXPECT_FALSE(find(u"lblVerbrS_4_Zweifel")->isVisible());
  EXPECT_EQ(months.consumption(4)->text(), u"12.345"_s);
}

TEST_F(EntryAids, TheWasteWaterBeginsWhereTheWaterDoes) {
  prompts.answerInput(u"0"_s);
  openEmpty();
  window->TabStrip->setCurrentWidget(window->Frame2);
  EXPECT_FALSE(window->Frame2->cmdWieWasser->isEnabled());
  enter(window->Frame2->txtAnfStandW, u"443"_s);
  click(window->Frame2->cmdWieWasser);
  EXPECT_EQ(window->Frame2->txtAnfStandAbW->text(), u"443"_s);
  EXPECT_EQ(stored()->values().startReadings[Meter::WasteWater], 443);
}

TEST_F(EntryAids, ARefusedDateStaysToBeMended) {
  openSample();
  prompts.acceptTellings();
  enter(window->Frame1->txtDatumStrom, u"31.02.2025"_s);
  settle();
  EXPECT_TRUE(window->Frame1->txtDatumStrom->hasFocus());
  EXPECT_FALSE(doubt(window->Frame1->txtDatumStrom).isEmpty());
  // What happens elsewhere does not take it away.
  enter(window->Frame1->txtMwStS, u"7"_s);
  EXPECT_EQ(window->Frame1->txtDatumStrom->text(), u"31.02.2025"_s);
  enter(window->Frame1->txtDatumStrom, u"28,02,2025"_s);
  EXPECT_EQ(window->Frame1->txtDatumStrom->text(), u"28.02.2025"_s);
  EXPECT_EQ(doubt(window->Frame1->txtDatumStrom), QString());
  EXPECT_EQ(prompts.shown.size(), 1u);
  EXPECT_EQ(stored()->values().startDate, "28.02.2025");
}

// The window closes as ever; the price does not go without a word.
TEST_F(EntryAids, APriceForNoMonthIsSaidUntilTheNextPrice) {
  openSample();
  clickAndHandle(window->Frame1->cmdPreisJeEinheitS, [](QDialog* modal) {
    type(modal->findChild<QLineEdit*>(u"txtJeKwsTag"_s), u"31,9"_s);
    EXPECT_TRUE(modal->findChild<QLabel*>(u"lblZweifel"_s)->text().contains(u"Kein Monat"_s));
    click(modal->findChild<QPushButton*>(u"Command1"_s));
  });
  EXPECT_TRUE(window->fraHinweis->lblHinweis->isVisible());
  EXPECT_EQ(window->fraHinweis->lblHinweis->text(),
            u"Der neue Preis 31,90 ist nicht übernommen: kein Monat war markiert."_s);
  EXPECT_EQ(window->session().adoStrom.number(0, yearbook::strom::dayPrice), 29.6);
  clickAndHandle(window->Frame1->cmdPreisJeEinheitS, [](QDialog*) {});
  EXPECT_FALSE(window->fraHinweis->lblHinweis->isVisible());
}
