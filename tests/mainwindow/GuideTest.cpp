// Where the main window leads the hand: first steps, bars, keys.

#include <QMenuBar>

#include "MainWindowFixture.h"
#include "yearbook/FirstSteps.h"

using yearbook::FirstStep;

namespace {

using namespace Qt::Literals::StringLiterals;
using yearbook::Meter;

class Guide : public MainWindowFixture {
 protected:
  // An empty year whose question for the first reading has been answered.
  void openFirst() {
    prompts.answerInput(u"0"_s);
    openEmpty();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }
  mainwindow::FirstStepsPanel& steps() { return *window->fraErsteSchritte; }
  QString ticked() {
    QString marks;
    for (const QToolButton* step : steps().cmdSchritt)
      marks += step->text().startsWith(u'✓') ? u'x' : u'-';
    return marks;
  }
};

TEST_F(Guide, AnEmptyYearIsFilledStepByStep) {
  openFirst();
  ASSERT_TRUE(steps().isVisible());
  EXPECT_EQ(ticked(), u"-----"_s) << "a house without electricity has not said anything yet";
  const struct {
    QAbstractButton* way;
    QLineEdit* field;
    const char* typed;
    const char* marks;
  } path[] = {{steps().cmdZumFeld, window->Frame1->txtAnfStandST, "44309", "-----"},
              {steps().cmdSchritt(1), window->Frame1->txtTPreis, "28,9", "xx---"},
              {steps().cmdZumFeld, window->Frame1->txtGrundgebS, "120", "xx---"},
              {steps().cmdZumFeld, window->Frame1->txtMwStS, "19", "xxx--"},
              {steps().cmdZumFeld, window->Frame1->months->advance(0), "136", "xxxx-"}};
  for (const auto& step : path) {
    step.way->click();
    EXPECT_EQ(window->focusWidget(), step.field) << step.field->objectName().toStdString();
    type(step.field, QString::fromLatin1(step.typed));
    EXPECT_EQ(ticked(), QString::fromLatin1(step.marks));
  }
  EXPECT_TRUE(steps().cmdSchritt(4)->font().bold());
  const auto readMonth = [&](const QString& reading) {
    QTimer::singleShot(0, window.get(), [reading] {
      auto* sheet = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_TRUE(sheet && sheet->objectName() == u"frmMonatErfassen"_s);
      QTest::keyClicks(sheet->findChild<QLineEdit*>(u"txtStand_0"_s), reading);
      sheet->findChild<QPushButton*>(u"cmdUebernehmen"_s)->click();
      sheet->close();
    });
    steps().cmdZumFeld->click();
  };
  readMonth(u"44500"_s);
  EXPECT_FALSE(steps().isWanted()) << "all is done";
  EXPECT_TRUE(window->fraHinweis->lblHinweis->text().contains(u"Die Übersicht zeigt"_s));
  window->mnuUndo->trigger();
  EXPECT_TRUE(steps().isWanted());
  EXPECT_FALSE(window->fraHinweis->isWanted()) << "no longer true";
}

TEST_F(Guide, TheStepLeadsToTheUtilityThatLacksIt) {
  openFirst();
  window->TabStrip->setCurrentWidget(window->Frame3);
  steps().cmdSchritt(0)->click();
  EXPECT_EQ(window->focusWidget(), window->Frame3->txtAnfStandG);
  type(window->Frame3->txtAnfStandG, u"900"_s);
  steps().cmdSchritt(0)->click();
  EXPECT_EQ(window->focusWidget(), window->Frame1->txtAnfStandST) << "gas has its reading";
  window->TabStrip->setCurrentWidget(window->Frame2);
  steps().cmdSchritt(1)->click();
  EXPECT_EQ(window->focusWidget(), window->Frame2->cmdPreisJeEinheitW);
}

TEST_F(Guide, TheStepsLeadFromMeterToMeterAndNothingSlipsAwayBelow) {
  openFirst();
  type(window->Frame1->txtAnfStandST, u"44309"_s);
  EXPECT_TRUE(steps().lblSchritt->text().endsWith(u"Noch ohne: Wasser, Gas."_s));
  steps().cmdZumFeld->click();
  EXPECT_EQ(window->focusWidget(), window->Frame2->txtAnfStandW);
  type(window->Frame2->txtAnfStandW, u"318"_s);
  steps().cmdZumFeld->click();
  EXPECT_EQ(window->focusWidget(), window->Frame3->txtAnfStandG);
  QTest::qWait(0);
  const auto top = [&] { return window->TabStrip->mapToGlobal(QPoint()).y(); };
  const int before = top();
  window->fraGeaendert->offer(u"Preis für zwölf Monate"_s);
  QTest::qWait(0);
  EXPECT_FALSE(steps().isVisible());
  EXPECT_EQ(top(), before) << "a lower bar";
  QDialog other;
  const auto goAndComeBack = [&] {
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QTest::qWait(0);
  };
  goAndComeBack();
  EXPECT_EQ(top(), before) << "the steps wait behind it";
  steps().takeAway();
  window->fraGeaendert->offer({});
  QTest::qWait(0);
  EXPECT_EQ(top(), before) << "no bar";
  window->TabStrip->setCurrentWidget(window->Frame1);
  QTest::qWait(0);
  EXPECT_EQ(top(), before) << "another page";
  goAndComeBack();
  const int none = top();
  EXPECT_LT(none, before) << "back from another window there is no place to be kept";
  window->fraGeaendert->offer(u"Preis für zwölf Monate"_s);
  QTest::qWait(0);
  EXPECT_GT(top(), none);
  window->fraGeaendert->cmdHinweisZu->click();
  QTest::qWait(0);
  EXPECT_EQ(top(), none) << "who closes a bar wants its room";
}

TEST_F(Guide, ThePriceOfASecondMeterIsLedToAsWell) {
  openFirst();
  type(window->Frame1->txtAnfStandST, u"45815"_s);
  type(window->Frame1->txtAnfStandSN, u"25088"_s);
  type(window->Frame1->txtTPreis, u"28,9"_s);
  EXPECT_EQ(ticked(), u"x----"_s);
  steps().cmdZumFeld->click();
  EXPECT_EQ(window->focusWidget(), window->Frame1->cmdPreisJeEinheitSN);
}

TEST_F(Guide, DismissedStepsStayAwayAndAFilledYearHasNone) {
  openFirst();
  steps().cmdNichtMehr->click();
  EXPECT_FALSE(steps().isVisible());
  EXPECT_FALSE(window->fraHinweis->isWanted());
  openWindow(kEmpty);
  EXPECT_FALSE(steps().isWanted());
  widgets::userSettings().clear();
  openSample();
  EXPECT_FALSE(steps().isWanted());
  disk.protect(kEmpty);
  openWindow(kEmpty);
  EXPECT_FALSE(steps().isWanted()) << "it can only be read";
}

TEST_F(Guide, AnEmptyYearBesideAFilledOneCanBeginWithIt) {
  makeSample();
  disk.put("/daten/Verbrauch2026.kwd", support::emptyYear());
  prompts.answerInput(u"0"_s);
  openWindow("/daten/Verbrauch2026.kwd");
  EXPECT_EQ(steps().cmdAusVorjahr->text(), u"Aus Verbrauch2025 übernehmen..."_s);
  EXPECT_FALSE(window->fraAblesen->isVisible()) << "one bar at a time";
  steps().cmdNichtMehr->click();
  EXPECT_TRUE(window->fraAblesen->isVisible());
  window->fraHinweis->say(mainwindow::NoticeFrom::FlatRate, u"Fehler"_s);
  EXPECT_FALSE(window->fraAblesen->isVisible()) << "what went wrong comes first";
  window->fraHinweis->say(mainwindow::NoticeFrom::FlatRate, {});
  EXPECT_TRUE(window->fraAblesen->isVisible());
}

TEST_F(Guide, NoticesWaitForEachOtherByUrgency) {
  openSample();
  mainwindow::NoticeBar& bar = *window->fraHinweis;
  bar.say(mainwindow::NoticeFrom::SafetyCopy, u"Kopie"_s);
  bar.say(mainwindow::NoticeFrom::Storing, u"Speichern"_s);
  bar.say(mainwindow::NoticeFrom::Index, u"Index"_s);
  EXPECT_EQ(bar.lblHinweis->text(), u"Speichern"_s);
  EXPECT_EQ(bar.lblNochHinweise->text(), u"noch 2 Hinweise"_s);
  bar.say(mainwindow::NoticeFrom::Storing, {});
  EXPECT_EQ(bar.lblHinweis->text(), u"Index"_s);
  bar.cmdGelesen->click();
  EXPECT_EQ(bar.lblHinweis->text(), u"Kopie"_s);
  bar.cmdGelesen->click();
  EXPECT_FALSE(bar.isVisible());
}

TEST_F(Guide, TheManualOpensAtThePageThatIsInFront) {
  openSample();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  for (int page = 0; page < window->TabStrip->count(); ++page) {
    window->TabStrip->setCurrentIndex(page);
    QTest::keyClick(window.get(), Qt::Key_F1);
    EXPECT_EQ(navigator.calls.last(),
              u"showManual "_s + window->TabStrip->currentWidget()->objectName());
  }
  const int calls = int(navigator.calls.size());
  for (QAction* entry : window->mnuHilfe->actions()) entry->trigger();
  EXPECT_EQ(navigator.calls.mid(calls),
            QStringList({u"showHelp"_s, u"showMeterChangeHelp"_s, u"showManual fraDrucke"_s,
                         u"showManual Tastenkuerzel"_s, u"showSample"_s, u"showAbout"_s}));
}

TEST_F(Guide, ANewYearIsOneClickAwayAndTheOldOneSaysThatItIsOpen) {
  openSample();
  window->mnuNew->trigger();
  EXPECT_FALSE(window->fraNeuesJahr->isVisible()) << "none was made";
  navigator.made = "/daten/Haushalt 2026.kwd";
  window->mnuNew->trigger();
  ASSERT_TRUE(window->fraNeuesJahr->isVisible());
  EXPECT_TRUE(window->fraNeuesJahr->lblNeuesJahr->text().startsWith(u"Haushalt 2026 ist "_s));
  window->fraNeuesJahr->cmdNeuesJahr->click();
  EXPECT_EQ(navigator.calls.last(), u"openInstead /daten/Haushalt 2026.kwd"_s);
}

TEST_F(Guide, EscapeTakesBackWhatIsBeingTyped) {
  openSample();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  auto* field = window->Frame1->txtAnfStandST;
  for (const QString& typed : {u"5"_s, u"Q"_s, QString()}) {
    field->setFocus(Qt::TabFocusReason);
    if (typed.isEmpty()) QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, typed);
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(field->text(), u"44.309"_s);
    EXPECT_EQ(field->selectedText(), field->text());
    EXPECT_EQ(window->Frame1->txtVerbrauchTS->text(), u"2.993"_s);
    EXPECT_FALSE(window->mnuUndo->isEnabled()) << "nothing is left to be taken back";
    window->Frame1->txtMwStS->setFocus(Qt::TabFocusReason);
  }
  EXPECT_TRUE(window->isVisible());
}

// Typed into the field, a price is that of all twelve months at once.
TEST_F(Guide, EscapeInThePriceGivesEveryMonthItsOwnBack) {
  openSample();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  auto* price = window->Frame1->txtTPreis;
  const auto prices = [&] {
    yearbook::PerMonth<std::optional<double>> all;
    for (int row = 0; row < yearbook::kMonths; ++row)
      all[row] = window->session().adoStrom.number(row, yearbook::strom::dayPrice);
    return all;
  };
  const auto before = prices();
  ASSERT_NE(before[0], before[11]);
  for (const QString& typed : {u"99"_s, u"9"_s, u"28,9"_s, u"28,90"_s}) {
    price->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(price, typed);
    EXPECT_NE(prices(), before) << typed.toStdString();
    EXPECT_FALSE(window->fraGeaendert->isVisible()) << "nothing moves while one types";
    QTest::keyClick(price, Qt::Key_Escape);
    EXPECT_EQ(prices(), before) << typed.toStdString();
    EXPECT_EQ(price->text(), u"28,90"_s);
    EXPECT_FALSE(window->mnuUndo->isEnabled());
    EXPECT_FALSE(window->fraGeaendert->isVisible());
    window->Frame1->txtMwStS->setFocus(Qt::TabFocusReason);
  }
  EXPECT_EQ(window->Frame1->txtIstwertS->text(), u"1.465,21"_s);
  price->setFocus(Qt::TabFocusReason);
  QTest::keyClicks(price, u"30"_s);
  window->Frame1->txtMwStS->setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(window->fraGeaendert->isVisible()) << "left, the field has its step";
}

TEST_F(Guide, EscapeTakesBackNothingThatWasEnteredBefore) {
  openSample();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  enter(window->Frame1->txtMwStS, u"20"_s);
  auto* fee = window->Frame1->txtGrundgebS;
  fee->setFocus(Qt::TabFocusReason);
  QTest::keyClick(fee, Qt::Key_Escape);
  // Typed and typed back: no step of its own.
  QTest::keyClicks(fee, u"1620"_s);
  QTest::keyClick(fee, Qt::Key_Backspace);
  EXPECT_EQ(fee->text(), u"162"_s);
  QTest::keyClick(fee, Qt::Key_Escape);
  EXPECT_EQ(window->session().values().vat[Meter::Day], 20);
  // Set by another road while the hand is in the field.
  ASSERT_TRUE(window->session().storeBaseFee(Meter::Day, base::Money::roundHalfEven(200)));
  window->mnuUndo->trigger();
  window->mnuRedo->trigger();
  EXPECT_EQ(fee->text(), u"200,00"_s);
  QTest::keyClick(fee, Qt::Key_Escape);
  EXPECT_EQ(fee->text(), u"200,00"_s);
  QTest::keyClicks(fee, u"7"_s);
  QTest::keyClick(fee, Qt::Key_Escape);
  EXPECT_EQ(fee->text(), u"200,00"_s);
  EXPECT_EQ(window->session().values().baseFees[Meter::Day], base::Money::roundHalfEven(200));
}

TEST_F(Guide, EscapeLeavesTheAnsweredStartReadingAlone) {
  prompts.answerInput(u"30"_s);
  openEmpty();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  ASSERT_EQ(window->session().values().startReadings[Meter::Day], 30);
  window->Frame1->txtGrundgebS->setFocus(Qt::TabFocusReason);
  QTest::keyClick(window->Frame1->txtGrundgebS, Qt::Key_Escape);
  EXPECT_EQ(window->session().values().startReadings[Meter::Day], 30);
}

// A meter that is not read any more is no reason to begin anew.
TEST_F(Guide, AYearThatIsReadHasNoFirstSteps) {
  openSample();
  ASSERT_TRUE(window->session().transact({}, [](yearbook::YearRows& rows) -> base::Result<void> {
    for (int row = 0; row < yearbook::kMonths; ++row)
      if (auto done = rows.adoWasser.setNumber(row, yearbook::wasser::wasteConsumption, 0); !done)
        return done;
    return {};
  }));
  window->mnuNew->trigger();
  EXPECT_FALSE(window->fraErsteSchritte->isWanted());
}

TEST_F(Guide, EscapeTakesBackADateAndARemark) {
  openSample();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  auto* date = window->Frame1->txtDatumStrom;
  date->setFocus(Qt::TabFocusReason);
  for (const QString& typed : {u"02.03.2024"_s, u"02.0"_s}) {
    date->selectAll();
    QTest::keyClicks(date, typed);
    QTest::keyClick(date, Qt::Key_Escape);
    EXPECT_EQ(date->text(), u"01.01.2025"_s);
    EXPECT_EQ(window->session().values().startDate, "01.01.2025");
  }
  window->TabStrip->setCurrentWidget(window->Frame5);
  auto* remark = window->Frame5->txtAnmerkungenW(0);
  const QString before = remark->text();
  remark->setFocus(Qt::TabFocusReason);
  remark->selectAll();
  QTest::keyClicks(remark, u"Rohrbruch"_s);
  QTest::keyClick(remark, Qt::Key_Escape);
  EXPECT_EQ(remark->text(), before);
  EXPECT_EQ(QString::fromStdString(window->session().values().remarks[yearbook::Utility::Water][0]),
            before);
  EXPECT_FALSE(window->mnuUndo->isEnabled());
}

TEST_F(Guide, TheHandLiesOnTheMonthlyJobAndEnterDoesIt) {
  openSample();
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  QPushButton* job = window->Frame1->cmdEingabeVerbrauchS;
  EXPECT_EQ(window->focusWidget(), job);
  const auto entryOpens = [&](const std::function<void()>& press) {
    bool opened = false;
    QTimer::singleShot(0, window.get(), [&] {
      auto* modal = QApplication::activeModalWidget();
      opened = modal && modal->objectName() == u"frmEingabeVerbrauchS"_s;
      if (modal) modal->close();
    });
    press();
    QTest::qWait(150);
    return opened;
  };
  EXPECT_TRUE(entryOpens([&] { QTest::keyClick(job, Qt::Key_Return); }));
  EXPECT_EQ(job->text(), u"Eingabe &Zählerstand..."_s);
  EXPECT_FALSE(window->Frame1->cmdEingabeVerbrauchNS->text().contains(u'&'));
  QTest::keyClick(job, Qt::Key_Tab);
  EXPECT_EQ(window->focusWidget(), window->Frame1->txtAnfStandST);
  QTest::keyClick(window->focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(window->TabStrip->currentWidget(), window->Frame2);
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  QTest::keyClick(window.get(), Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(window->TabStrip->currentWidget(), window->Frame4);
  QTest::keyClick(window.get(), Qt::Key_F10);
  EXPECT_EQ(QApplication::activePopupWidget(), window->mnuVerbrauch);
  window->mnuVerbrauch->close();
  EXPECT_NE(window->focusWidget(), window->menuBar()) << "the focus is where it was";
}

}  // namespace
