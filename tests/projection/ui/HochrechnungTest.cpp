#include <gmock/gmock.h>

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

#include "SampleYear.h"
#include "base/File.h"
#include "projection/ui/frmHochrechnung.h"
#include "readings/MeterReading.h"
#include "support/SampleYears.h"
#include "support/TemporaryFolder.h"
#include "support/ui/FakeNavigator.h"
#include "support/ui/FakePrintSystem.h"
#include "support/ui/FakePrompts.h"

using namespace Qt::StringLiterals;

namespace {

class Hochrechnung : public testing::Test {
 protected:
  Hochrechnung() : year_(sample::openYear(disk_, "Verbrauch2024.kwd")) {
    // 1.542 kWh in half a year.
    auto readings = sample::year2024().readings[yearbook::Meter::Day];
    std::fill(readings.begin() + 6, readings.end(), 0);
    EXPECT_TRUE(readings::takeOver(*year_, yearbook::Meter::Day, readings, {}));
  }
  std::unique_ptr<yearbook::YearSession> reopen() {
    auto year = yearbook::YearSession::open(disk_, "/daten/Verbrauch2024.kwd", "/daten/", clock_);
    EXPECT_TRUE(year);
    return std::move(*year);
  }
  std::string stored() const { return year_->adoZStaende.text(0, yearbook::zstaende::startDate); }

  frmHochrechnung& open() {
    window_ = std::make_unique<frmHochrechnung>(services_, *year_);
    window_->QWidget::show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    QCoreApplication::processEvents();
    return *window_;
  }

  // A window that has had its first calculation.
  frmHochrechnung& openAndAnswer() {
    prompts_.acceptTellings();
    frmHochrechnung& window = open();
    prompts_.shown.clear();
    return window;
  }

  support::TemporaryFolder folder_;
  base::PathState paths_;
  std::unique_ptr<base::FileSystem> files_ = base::makeDiskFileSystem();
  base::FixedClock clock_{std::chrono::year(2026) / 11 / 14};
  FakePrompts prompts_;
  FakeShell shell_;
  FakeNavigator navigator_;
  dialogs::Services services_{paths_, *files_, clock_, prompts_, shell_, navigator_};
  support::MemoryFileSystem disk_;
  std::unique_ptr<yearbook::YearSession> year_;
  std::unique_ptr<frmHochrechnung> window_;
};

TEST_F(Hochrechnung, EnterLeadsFromTheDatesToTheFigures) {
  frmHochrechnung& window = openAndAnswer();
  window.txtDatumStrom->setFocus();
  QTest::keyClick(window.txtDatumStrom, Qt::Key_Return);
  QTest::keyClicks(QApplication::focusWidget(), u"01.07.2024"_s);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(window.txtAnzTagBisher->text(), u"182");
  EXPECT_TRUE(window.isVisible());
}

// The readings end with June.
TEST_F(Hochrechnung, OpeningCalculatesToTheEndOfTheLastMonthRead) {
  frmHochrechnung& window = open();
  EXPECT_EQ(window.txtDatumStrom->text(), u"01.01.2024"_s);
  EXPECT_EQ(window.Text1->text(), u"30.06.2024"_s);
  EXPECT_EQ(window.txtAnzTagBisher->text(), u"181"_s);
  EXPECT_TRUE(window.lblFehlt->isHidden());
  EXPECT_TRUE(window.Text1->hasFocus());
  EXPECT_EQ(window.Text1->selectedText(), u"30.06.2024"_s);
}

// Nobody has asked for anything: no box, a line and the cursor where something is missing.
TEST_F(Hochrechnung, WhatIsMissingAtFirstIsSaidWithoutABox) {
  const auto opened = [&] {
    frmHochrechnung& window = open();
    EXPECT_TRUE(window.lblNetto->text().isEmpty());
    return std::pair(window.lblFehlt->text(), window.focusWidget()->objectName());
  };
  ASSERT_TRUE(year_->storeStartDate("01.04.2024"));
  EXPECT_TRUE(opened().first.startsWith(u"Der Startmonat Januar stimmt nicht"_s));
  ASSERT_TRUE(year_->storeStartDate({}));
  EXPECT_EQ(opened(), std::pair(u"Das Start-Datum fehlt noch."_s, u"txtDatumStrom"_s));
  ASSERT_TRUE(year_->storeStartDate("01.01.2024"));
  ASSERT_TRUE(readings::takeOver(*year_, yearbook::Meter::Day, {}, {}));
  EXPECT_EQ(opened(), std::pair(u"Das Datum der letzten Ablesung fehlt noch."_s, u"Text1"_s));
  // Asked for, it comes as a box, and the cursor stays where the fault is.
  prompts_.acceptTellings();
  window_->Command12->click();
  EXPECT_EQ(prompts_.last().title, u"Eingabe Datum"_s);
  EXPECT_EQ(prompts_.last().icon, dialogs::Icon::Warning);
  EXPECT_TRUE(prompts_.last().text.startsWith(u"Datum Ablesung ungültige"_s));
  EXPECT_TRUE(window_->Text1->hasFocus());
  QTest::keyClicks(window_->Text1, u"30062024"_s);
  window_->Command12->click();
  EXPECT_EQ(window_->Text1->text(), u"30.06.2024"_s);
  EXPECT_TRUE(window_->lblFehlt->isHidden());
  EXPECT_EQ(prompts_.shown.size(), 1U);
}

TEST_F(Hochrechnung, EscapeStoresNoDateThatWasNotLeft) {
  frmHochrechnung& window = open();
  window.txtDatumStrom->setFocus();
  window.txtDatumStrom->selectAll();
  QTest::keyClicks(window.txtDatumStrom, u"02,01,2024"_s);
  QTest::keyClick(window.txtDatumStrom, Qt::Key_Escape);
  QCoreApplication::processEvents();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(stored(), "01.01.2024");
  frmHochrechnung& again = open();
  again.txtDatumStrom->setFocus();
  again.txtDatumStrom->selectAll();
  QTest::keyClicks(again.txtDatumStrom, u"02,01,2024"_s);
  QTest::keyClick(again.txtDatumStrom, Qt::Key_Tab);
  QTest::keyClick(again.Text1, Qt::Key_Escape);
  EXPECT_EQ(stored(), "02.01.2024");
}

TEST_F(Hochrechnung, ShowsTheFiguresRounded) {
  frmHochrechnung& window = openAndAnswer();
  window.Text1->setText(u"30.06.2024"_s);
  window.Command12->click();
  EXPECT_EQ(window.txtAnzTagBisher->text(), u"181"_s);
  EXPECT_EQ(window.txtVerbrBisher->text(), u"1.542"_s);
  EXPECT_EQ(window.txtDurchschnitt->text(), u"8,52"_s);
  EXPECT_EQ(window.txtPreisJeTg->text(), u"2,52"_s);
  EXPECT_EQ(window.lblNetto->text(), u"920,43"_s);
  EXPECT_EQ(window.lblInklMwSt->text(), u"1.095,31"_s);
  EXPECT_TRUE(window.Label8->isHidden());
  EXPECT_TRUE(window.lblInklGrundgeb->isHidden());
  window.chkGrundgeb->click();
  EXPECT_EQ(window.lblInklGrundgeb->text(), u"1.279,52"_s);
  EXPECT_FALSE(window.Label8->isHidden());
  window.chkGrundgeb->click();
  EXPECT_TRUE(window.lblInklGrundgeb->isHidden());
  EXPECT_TRUE(prompts_.shown.empty());
}

TEST_F(Hochrechnung, SumWithBaseFeeGoesWithItsTickEvenWhenTheDateIsRefused) {
  frmHochrechnung& window = openAndAnswer();
  window.Text1->setText(u"30.06.2024"_s);
  window.chkGrundgeb->click();
  window.Text1->setText(u"30.06."_s);
  window.Command12->click();
  EXPECT_EQ(prompts_.shown.size(), 1U);
  EXPECT_EQ(window.lblInklGrundgeb->text(), u"1.279,52"_s);
  EXPECT_FALSE(window.lblInklGrundgeb->isHidden());
  window.chkGrundgeb->click();
  EXPECT_EQ(prompts_.shown.size(), 2U);
  EXPECT_TRUE(window.Label8->isHidden());
  EXPECT_TRUE(window.lblInklGrundgeb->isHidden());
  window.chkGrundgeb->click();
  EXPECT_TRUE(window.lblInklGrundgeb->isHidden());
  EXPECT_EQ(window.lblNetto->text(), u"920,43"_s);
}

TEST_F(Hochrechnung, WrongMonthPutsTheCursorIntoTheStartDate) {
  frmHochrechnung& window = openAndAnswer();
  window.Text1->setText(u"30.06.2024"_s);
  window.txtDatumStrom->setText(u"01.04.2024"_s);
  window.Command1->setFocus();
  QCoreApplication::processEvents();
  window.Command12->click();
  EXPECT_TRUE(prompts_.last().text.startsWith(u"Der Startmonat Januar stimmt nicht"_s));
  EXPECT_TRUE(window.txtDatumStrom->hasFocus());
  EXPECT_EQ(window.txtVerbrBisher->text(), u"1.542"_s);
  // What was shown before stays.
  EXPECT_EQ(window.lblNetto->text(), u"920,43"_s);
}

TEST_F(Hochrechnung, LeavingAFieldChecksItsDateAndKeepsAValidStart) {
  frmHochrechnung& window = openAndAnswer();
  window.txtDatumStrom->setFocus();
  window.txtDatumStrom->selectAll();
  QTest::keyClicks(window.txtDatumStrom, u"5x.1 .2024"_s);
  EXPECT_EQ(window.txtDatumStrom->text(), u"5.1.2024"_s);
  QTest::keyClick(window.txtDatumStrom, Qt::Key_Return);
  QCoreApplication::processEvents();
  EXPECT_TRUE(window.Text1->hasFocus());
  EXPECT_EQ(stored(), "5.1.2024");
  EXPECT_TRUE(prompts_.shown.empty());

  QTest::keyClicks(window.Text1, u"31.2.2024"_s);
  QTest::keyClick(window.Text1, Qt::Key_Tab);
  QCoreApplication::processEvents();
  ASSERT_EQ(prompts_.shown.size(), 1U);
  EXPECT_EQ(prompts_.last().text,
            u"Ungültige Datumseingabe! Bitte geben Sie ein gültiges Datum ein.\nBeispiel:  "
            "01.01.2009"_s);
  // Back to it, and no second box about the other date on the way.
  EXPECT_TRUE(window.Text1->hasFocus());
  window.txtDatumStrom->setText(u"30.2."_s);
  QTest::keyClick(window.Text1, Qt::Key_Backtab);
  QCoreApplication::processEvents();
  EXPECT_TRUE(window.Text1->hasFocus());
  EXPECT_EQ(prompts_.shown.size(), 2U);
}

TEST_F(Hochrechnung, ClosingWithAClickKeepsAValidStartAndAsksNothing) {
  frmHochrechnung& window = openAndAnswer();
  window.txtDatumStrom->setFocus();
  window.txtDatumStrom->selectAll();
  QTest::keyClicks(window.txtDatumStrom, u"2.1.2024"_s);
  QTest::mouseClick(window.Command2, Qt::LeftButton);
  QCoreApplication::processEvents();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(stored(), "2.1.2024");
  EXPECT_TRUE(prompts_.shown.empty());
}

TEST_F(Hochrechnung, DateThatCannotBeStoredIsToldAndTheStoredOneShown) {
  year_.reset();
  disk_.protect("/daten/Verbrauch2024.kwd");
  year_ = reopen();
  frmHochrechnung& window = openAndAnswer();
  window.txtDatumStrom->setFocus();
  window.txtDatumStrom->setText(u"2.1.2024"_s);
  window.Text1->setFocus();
  QCoreApplication::processEvents();
  ASSERT_EQ(prompts_.shown.size(), 1U);
  EXPECT_TRUE(prompts_.last().text.contains(u"Verbrauch2024.kwd"_s));
  EXPECT_EQ(window.txtDatumStrom->text(), u"01.01.2024"_s);
}

TEST_F(Hochrechnung, PrintingHidesTheControlsMeanwhile) {
  frmHochrechnung& window = openAndAnswer();
  const std::string target = folder_ / "Fenster.pdf";
  for (const bool cancel : {true, false}) {
    window.makePrintDialog = [&] {
      auto system = std::make_unique<FakePrintSystem>();
      system->reply.outcome =
          cancel ? dialogs::PrintReply::Outcome::Cancelled : dialogs::PrintReply::Outcome::Accepted;
      system->printer().setOutputFormat(QPrinter::PdfFormat);
      system->printer().setOutputFileName(QString::fromStdString(target));
      system->onAsk = [&] {
        // No field looks as if somebody were typing in it, and nobody is asked about its date.
        EXPECT_EQ(qobject_cast<QLineEdit*>(window.focusWidget()), nullptr);
        EXPECT_FALSE(window.Text1->hasSelectedText());
        EXPECT_TRUE(window.Command1->isHidden());
        EXPECT_TRUE(window.chkGrundgeb->isHidden());
      };
      return std::make_unique<clsPrintDialog>(prompts_, std::move(system));
    };
    QWidget* const before = cancel ? static_cast<QWidget*>(window.Command1) : window.Text1;
    window.Text1->setText(u"31.12.2024"_s);
    window.Text1->selectAll();
    before->setFocus();
    window.Command1->click();
    QCoreApplication::processEvents();
    EXPECT_FALSE(window.Command2->isHidden());
    EXPECT_EQ(QApplication::focusWidget(), before);
    EXPECT_EQ(files_->exists(target), !cancel);
  }
  if (QStandardPaths::findExecutable(u"pdftotext"_s).isEmpty())
    GTEST_SKIP() << "pdftotext (poppler-utils) is not installed; the text of the page is unread";
  QProcess reader;
  reader.start(u"pdftotext"_s, {u"-layout"_s, QString::fromStdString(target), u"-"_s});
  ASSERT_TRUE(reader.waitForFinished());
  const QString page = QString::fromUtf8(reader.readAllStandardOutput()).simplified();
  EXPECT_THAT(page.toStdString(), testing::HasSubstr("Hochrechnung auf das Jahr Verbrauch2024"));
  EXPECT_THAT(page.toStdString(), testing::HasSubstr("Datum der letzten Ablesung 31.12.2024"));
  EXPECT_THAT(page.toStdString(), testing::HasSubstr("Verbrauch2024 · Seite 1 von 1"));
}

}  // namespace
