#include "MainWindowFixture.h"
#include "readings/ui/frmEingabeVerbrauchS.h"

using namespace Qt::Literals::StringLiterals;
using dialogs::Button;

// What was changed in the year can be taken back from the main window, by menu, key and bar.

namespace {

class UndoInMainWindow : public MainWindowFixture {
 protected:
  void press(Qt::Key key, Qt::KeyboardModifiers more = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, Qt::ControlModifier | more);
  }
  QString bar() const {
    return window->fraGeaendert->isVisible() ? window->fraGeaendert->lblGeaendert->text()
                                             : QString();
  }
};

}  // namespace

TEST_F(UndoInMainWindow, OneDigitOverDifferingPricesIsSaidAndTakenBack) {
  openSample();
  auto* note = window->Frame1->findChild<QLabel*>(u"lblPreiseStrom"_s);
  ASSERT_TRUE(note);
  EXPECT_EQ(note->text(), u"ab April 28,90, davor 29,60");
  EXPECT_FALSE(window->mnuUndo->isEnabled());
  type(window->Frame1->txtTPreis, u"3"_s);
  EXPECT_FALSE(note->isVisible());
  EXPECT_EQ(bar(), QString()) << "nothing moves while one types";
  window->Frame1->txtMwStS->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(bar(), u"Preis Strom für 12 Monate (vorher ab April 28,90, davor 29,60).");
  EXPECT_EQ(window->mnuUndo->text(), u"&Rückgängig: Preis Strom für 12 Monate");
  click(window->fraGeaendert->cmdRueckgaengig);
  EXPECT_EQ(window->Frame1->txtTPreis->text(), u"28,90");
  EXPECT_EQ(window->Frame1->txtBetragTS->text(), u"870,62");
  EXPECT_EQ(bar(), QString());
  EXPECT_EQ(note->text(), u"ab April 28,90, davor 29,60");
  EXPECT_EQ(window->mnuRedo->text(), u"&Wiederherstellen: Preis Strom für 12 Monate");
}

TEST_F(UndoInMainWindow, TheKeysTakeBackTheYearAndNotTheFieldsText) {
  openSample();
  widgets::NumberField* field = window->Frame1->txtTPreis;
  type(field, u"3"_s);
  type(field, u"35,5"_s);
  press(Qt::Key_Z);
  EXPECT_EQ(field->text(), u"28,90");
  EXPECT_EQ(window->session().adoStrom.number(0, yearbook::strom::dayPrice), 29.6);
  press(Qt::Key_Y);
  EXPECT_EQ(window->session().adoStrom.number(0, yearbook::strom::dayPrice), 35.5);
  press(Qt::Key_Z);
  press(Qt::Key_Z, Qt::ShiftModifier);
  EXPECT_EQ(stored()->adoStrom.number(0, yearbook::strom::dayPrice), 35.5);
}

TEST_F(UndoInMainWindow, EachFieldLeftIsAStepOfItsOwn) {
  openSample();
  enter(window->Frame1->months->advance(0), u"150"_s);
  enter(window->Frame1->months->advance(0), u"160"_s);
  type(window->Frame1->months->advance(1), u"170"_s);
  EXPECT_EQ(window->mnuUndo->text(), u"&Rückgängig: Abschlag Strom Februar");
  EXPECT_EQ(bar(), QString());
  window->mnuUndo->trigger();
  EXPECT_EQ(window->Frame1->months->advance(1)->text(), u"136,00");
  window->mnuUndo->trigger();
  EXPECT_EQ(window->Frame1->months->advance(0)->text(), u"150,00");
  window->mnuUndo->trigger();
  EXPECT_EQ(window->Frame1->months->advance(0)->text(), u"136,00");
  EXPECT_FALSE(window->mnuUndo->isEnabled());
}

TEST_F(UndoInMainWindow, ARemarkInTheMakingIsTakenBackToo) {
  openSample();
  window->TabStrip->setCurrentWidget(window->Frame5);
  widgets::EntryField* remark = window->Frame5->txtAnmerkungenS(2);
  const QString before = remark->text();
  type(remark, u"undicht"_s);
  press(Qt::Key_Z);
  EXPECT_EQ(remark->text(), before);
  press(Qt::Key_Y);
  EXPECT_EQ(remark->text(), u"undicht");
}

TEST_F(UndoInMainWindow, WhatWasClearedComesBackAndTheBarCanBeClosed) {
  openSample();
  window->TabStrip->setCurrentWidget(window->Frame3);
  prompts.answer(Button::Yes);
  window->mnuDelete->trigger();
  EXPECT_EQ(bar(), u"Alle Werte Gas gelöscht.");
  window->fraGeaendert->cmdHinweisZu->click();
  EXPECT_EQ(bar(), QString());
  // It is not said a second time.
  window->mnuNew->trigger();
  EXPECT_EQ(bar(), QString());
  window->mnuNachtstrom->trigger();
  EXPECT_EQ(bar(), QString());
  window->mnuUndo->trigger();
  // What lies before it is not new.
  EXPECT_EQ(bar(), QString());
  window->mnuUndo->trigger();
  EXPECT_EQ(window->Frame3->txtBetragG->text(), u"1.388,00");
}

TEST_F(UndoInMainWindow, AnEntryWindowsTakeOverIsOneStep) {
  openSample();
  clickAndHandle(window->Frame1->cmdEingabeVerbrauchS, [this](QDialog* modal) {
    auto* readings = qobject_cast<frmEingabeVerbrauchS*>(modal);
    ASSERT_TRUE(readings);
    type(readings->txtVerbrauch(11), u"1600"_s);
    click(readings->Command1);
  });
  EXPECT_EQ(window->mnuUndo->text(), u"&Rückgängig: Stand Strom Dezember");
  EXPECT_EQ(bar(), QString());
  window->mnuUndo->trigger();
  EXPECT_EQ(window->Frame1->txtVerbrauchTS->text(), u"2.993");
}
