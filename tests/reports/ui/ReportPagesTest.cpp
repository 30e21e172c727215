#include <gmock/gmock.h>

#include <QAbstractItemModel>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QPrinter>
#include <QScrollBar>
#include <QTest>

#include "base/File.h"
#include "reports/ui/DetailPage.h"
#include "reports/ui/GridColors.h"
#include "reports/ui/OverviewPage.h"
#include "support/SampleYears.h"
#include "support/TemporaryFolder.h"
#include "support/ui/FakeNavigator.h"
#include "support/ui/FakePrompts.h"

using namespace Qt::StringLiterals;

namespace {

class ReportPages : public testing::Test {
 protected:
  ReportPages() { paths_.DataFolder = folder_.path(); }

  QString cellText(const QTableView& grid, int row, int column) {
    return grid.model()->index(row, column).data().toString();
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
  std::unique_ptr<yearbook::YearSession> year_ = sample::openYear(disk_, "Verbrauch2025.kwd");
  reports::OverviewPage overviewPage_{services_, *year_};
  reports::DetailPage detailPage_{services_, *year_};
};

TEST_F(ReportPages, OverviewIsBuiltAnewEachTimeItIsShown) {
  overviewPage_.show();
  EXPECT_EQ(cellText(*overviewPage_.grdDruck, 30, 1), u"25,99"_s);
  EXPECT_EQ(overviewPage_.grdDruck->columnSpan(0, 0), 8);
  const auto card = [this] {
    return overviewPage_.findChild<QWidget*>(u"fraErgebnisStrom"_s)->accessibleName();
  };
  EXPECT_EQ(card(),
            u"Strom. Nachzahlung 25,99 Euro. 1.657,99 brutto − 1.632,00 Abschläge. "
            u"Passender Abschlag: 138,17 Euro im Monat");
  overviewPage_.hide();
  ASSERT_TRUE(year_->zeroAdvances(yearbook::Utility::Electricity));
  overviewPage_.show();
  EXPECT_EQ(cellText(*overviewPage_.grdDruck, 30, 1), u"1.657,99"_s);
  EXPECT_TRUE(card().contains(u"Nachzahlung 1.657,99 Euro"));
  EXPECT_FALSE(overviewPage_.lblStand->isVisible()) << "cards and table agree in a whole year";
  overviewPage_.hide();
  ASSERT_TRUE(year_->transact({}, [](yearbook::YearRows& rows) {
    for (int row = 0; row < yearbook::kMonths; ++row)
      if (auto done = rows.adoWasser.setNumber(row, yearbook::wasser::wasteConsumption, 0); !done)
        return done;
    auto done = rows.adoGas.setNumber(11, yearbook::gas::reading, 0);
    return done ? rows.adoGas.setNumber(11, yearbook::gas::consumption, 0) : done;
  }));
  overviewPage_.show();
  EXPECT_TRUE(overviewPage_.findChild<QWidget*>(u"fraErgebnisWasser"_s)
                  ->accessibleName()
                  .contains(u"Abwasser ist noch nicht abgelesen."_s));
  overviewPage_.resize(900, 700);
  EXPECT_TRUE(overviewPage_.lblStand->isVisible()) << "gas is read until November";
  overviewPage_.resize(900, 300);
  EXPECT_FALSE(overviewPage_.lblStand->isVisible()) << "it would be cut";
}

TEST_F(ReportPages, OverviewExportWritesTellsAndOpens) {
  overviewPage_.show();
  prompts_.acceptTellings();
  overviewPage_.cmdExpHtml->click();
  const std::string path = folder_ / "Verbrauchsabrechnung 11.html";
  const auto page = files_->readText(path);
  ASSERT_TRUE(page);
  EXPECT_THAT(*page, testing::HasSubstr(">1.393,27</TD>"));
  const QString shown = QString::fromStdString(path);
  EXPECT_EQ(prompts_.last().text, u"Datei gespeichert unter "_s + shown);
  EXPECT_EQ(prompts_.last().icon, dialogs::Icon::None);
  EXPECT_EQ(shell_.opened, std::vector<QString>({shown}));
}

TEST_F(ReportPages, ExportThatFailsIsSilentAndStillOpensThePath) {
  paths_.DataFolder = folder_ / "fehlt/";
  overviewPage_.show();
  overviewPage_.cmdExpHtml->click();
  EXPECT_TRUE(prompts_.shown.empty());
  EXPECT_EQ(shell_.opened.size(), 1U);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(ReportPages, PrintingAsksWithNamePortraitAndCancelPrintsNothing) {
  overviewPage_.show();
  QString name;
  overviewPage_.printerChoice = [&](QPrinter& printer, QWidget*) {
    name = printer.docName();
    EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Portrait);
    return false;
  };
  overviewPage_.cmdDrucken->click();
  EXPECT_EQ(name, u"Verbrauchs-Abrechnung  14 November, 2026"_s);
  EXPECT_TRUE(prompts_.shown.empty());
}

TEST_F(ReportPages, AHiddenNightTariffIsNotTicked) {
  ASSERT_TRUE(year_->setNightShown(false));
  detailPage_.show();
  EXPECT_FALSE(detailPage_.chkStromNS->isChecked());
  EXPECT_EQ(cellText(*detailPage_.grdDruckAlle, 20, 0), u"Wasser"_s);
  detailPage_.chkStromNS->setChecked(true);
  detailPage_.hide();
  detailPage_.show();
  EXPECT_TRUE(detailPage_.chkStromNS->isChecked());
  EXPECT_EQ(cellText(*detailPage_.grdDruckAlle, 20, 0), u"Nachtstrom"_s);
}

TEST_F(ReportPages, PrinterThatTakesNothingIsReported) {
  detailPage_.show();
  const QString target = QString::fromStdString(folder_ / "Seiten.pdf");
  detailPage_.printerChoice = [&](QPrinter& printer, QWidget*) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(target);
    return true;
  };
  detailPage_.Command11->click();
  EXPECT_TRUE(files_->exists(target.toStdString()));
  EXPECT_TRUE(prompts_.shown.empty());

  detailPage_.printerChoice = [&](QPrinter& printer, QWidget*) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(folder_ / "fehlt/x.pdf"));
    return true;
  };
  prompts_.acceptTellings();
  detailPage_.Command11->click();
  ASSERT_EQ(prompts_.shown.size(), 1U);
  EXPECT_EQ(prompts_.last().icon, dialogs::Icon::Warning);
}

TEST_F(ReportPages, DetailButtonsWorkOnlyWhileTheTableHoldsABlock) {
  detailPage_.show();
  EXPECT_TRUE(detailPage_.Command11->isEnabled());
  for (const char* name : {"chkStrom", "chkStromNS", "chkWasser", "chkAbwasser", "chkGas"})
    detailPage_.findChild<QCheckBox*>(QString::fromLatin1(name))->setChecked(false);
  EXPECT_TRUE(detailPage_.Command10->isEnabled());
  detailPage_.cmdTabelle->click();
  EXPECT_FALSE(detailPage_.Command11->isEnabled());
  EXPECT_FALSE(detailPage_.Command10->isEnabled());
  EXPECT_EQ(detailPage_.grdDruckAlle->model()->rowCount(), 2);
  detailPage_.chkGas->setChecked(true);
  detailPage_.cmdTabelle->click();
  EXPECT_TRUE(detailPage_.Command10->isEnabled());
  EXPECT_EQ(cellText(*detailPage_.grdDruckAlle, 3, 0), u"Gas"_s);
}

TEST_F(ReportPages, DetailExportLeavesTheOverviewsPageAlone) {
  detailPage_.show();
  prompts_.acceptTellings();
  detailPage_.Command10->click();
  EXPECT_TRUE(files_->exists(folder_ / "Verbrauchsabrechnung 11 Monate.html"));
  EXPECT_FALSE(files_->exists(folder_ / "Verbrauchsabrechnung 11.html"));
}

TEST_F(ReportPages, CsvGoesWhereTheUserSaysAndAFailureIsTold) {
  detailPage_.show();
  prompts_.answerPath(QString::fromStdString(folder_ / "Monate"));
  detailPage_.cmdCsv->click();
  EXPECT_TRUE(files_->readText(folder_ / "Monate.csv"));
  prompts_.answerPath(QString::fromStdString(folder_ / "fehlt/Monate.csv"));
  prompts_.acceptTellings();
  detailPage_.cmdCsv->click();
  EXPECT_EQ(prompts_.last().icon, dialogs::Icon::Warning);
}

TEST_F(ReportPages, WhereAFileWentIsReadWholeInItsColumn) {
  detailPage_.resize(900, 500);
  detailPage_.show();
  QLabel& note = *detailPage_.lblAusgabe;
  const QString name(80, u'm');
  note.setText(u"Gespeichert unter /"_s + name);
  note.show();
  QCoreApplication::processEvents();
  const int lines = note.fontMetrics().horizontalAdvance(name) / note.width();
  ASSERT_GE(lines, 4);
  EXPECT_GE(note.height(), lines * note.fontMetrics().height());
  const QImage picture = note.grab().toImage();
  const int last = (lines - 1) * note.fontMetrics().lineSpacing() + note.fontMetrics().ascent() / 2;
  int drawn = 0;
  for (int x = 0; x < picture.width(); ++x)
    drawn += picture.pixel(x, last) != picture.pixel(picture.width() - 1, 0);
  EXPECT_GT(drawn, picture.width() / 4) << "the last line but one";
}

// The next file is offered where the last one went, by a name that says what it is.
TEST_F(ReportPages, FilesAreProposedByNameInTheFolderOfTheLastOne) {
  ASSERT_TRUE(files_->makeFolder(folder_ / "Rechnungen"));
  const QString chosen = QString::fromStdString(folder_ / "Rechnungen/");
  detailPage_.show();
  EXPECT_FALSE(detailPage_.lblAusgabe->isVisible());
  prompts_.answerPath(chosen + u"A.pdf"_s);
  detailPage_.cmdPdf->click();
  EXPECT_TRUE(prompts_.take().preset.endsWith(u"/Verbrauch2025 – Monate.pdf"));
  const auto pdf = files_->readText(folder_ / "Rechnungen/A.pdf");
  ASSERT_TRUE(pdf);
  EXPECT_EQ(pdf->substr(0, 5), "%PDF-");
  EXPECT_EQ(detailPage_.lblAusgabe->text(), u"Gespeichert unter "_s + chosen + u"A.pdf"_s);

  prompts_.answerPath({});
  overviewPage_.cmdPdf->click();
  EXPECT_EQ(prompts_.take().preset, chosen + u"Verbrauch2025 – Übersicht.pdf"_s);
}

TEST_F(ReportPages, WhatIsPutOutIsWhatIsTicked) {
  detailPage_.show();
  for (const auto& box : {detailPage_.chkStrom, detailPage_.chkStromNS, detailPage_.chkWasser,
                          detailPage_.chkAbwasser})
    box->setChecked(false);
  EXPECT_TRUE(detailPage_.lblAusgabe->text().contains(u"noch nicht, was angekreuzt ist"));
  EXPECT_EQ(cellText(*detailPage_.grdDruckAlle, 3, 0), u"Strom"_s);
  detailPage_.cmdKopierenAlle->click();
  EXPECT_FALSE(QApplication::clipboard()->text().contains(u"Strom"));
  EXPECT_EQ(cellText(*detailPage_.grdDruckAlle, 3, 0), u"Gas"_s);
  EXPECT_FALSE(detailPage_.lblAusgabe->isVisible());

  detailPage_.chkGas->setChecked(false);
  detailPage_.cmdPdf->click();  // nothing is asked: there is nothing to put out
  EXPECT_FALSE(detailPage_.cmdPdf->isEnabled());
}

// The page's name tells the month only: that of another year is said and kept before it goes.
TEST_F(ReportPages, AnotherYearsPageIsKept) {
  prompts_.acceptTellings();
  overviewPage_.show();
  overviewPage_.cmdExpHtml->click();
  overviewPage_.cmdExpHtml->click();
  const std::string page = folder_ / "Verbrauchsabrechnung 11.html";
  const std::string kept = folder_ / "Verbrauchsabrechnung 11 (Verbrauch2025).html";
  EXPECT_FALSE(files_->exists(kept)) << "its own page is replaced";
  const auto first = files_->readText(page);

  const auto other = sample::openYear(disk_, "Verbrauch2024.kwd");
  reports::OverviewPage next(services_, *other);
  next.show();
  EXPECT_TRUE(next.lblAusgabe->text().contains(u"Verbrauchsabrechnung 11 (Verbrauch2025).html"));
  next.cmdExpHtml->click();
  EXPECT_EQ(*files_->readText(kept), *first);
  EXPECT_NE(*files_->readText(page), *first);
  EXPECT_FALSE(next.lblAusgabe->isVisible());
}

TEST_F(ReportPages, CopyGivesTheSelectionOrTheWholeTable) {
  overviewPage_.show();
  auto* grid = overviewPage_.grdDruck;
  overviewPage_.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&overviewPage_));
  grid->setFocus();
  QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
  const QMimeData* copied = QApplication::clipboard()->mimeData();
  ASSERT_NE(copied, nullptr);
  EXPECT_TRUE(copied->text().contains(u"Januar\t130,06\t\tJanuar\t53,00\t\tJanuar\t238,66\r\n"_s));
  EXPECT_TRUE(copied->html().contains(u"Saldo Gas"_s));
  grid->selectionModel()->select(
      QItemSelection(grid->model()->index(3, 0), grid->model()->index(4, 1)),
      QItemSelectionModel::ClearAndSelect);
  grid->copyToClipboard();
  EXPECT_EQ(QApplication::clipboard()->text(), u"Januar\t130,06\r\nFebruar\t113,79\r\n"_s);
}

TEST_F(ReportPages, TableFillsTheRoomWithoutScrolling) {
  overviewPage_.show();
  for (int height = 610; height < 1200; height += 17) {
    overviewPage_.resize(1340, height);
    for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
    const auto* grid = overviewPage_.grdDruck;
    EXPECT_EQ(grid->verticalScrollBar()->maximum(), 0) << height;
    EXPECT_EQ(grid->horizontalScrollBar()->maximum(), 0) << height;
  }
}

// Difference in lightness that text needs to be read.
TEST(GridColors, TextStaysReadableInDarkPalettes) {
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(30, 30, 32));
  dark.setColor(QPalette::Text, Qt::white);
  const reports::CellColor backs[] = {reports::rgb(255, 255, 192), reports::rgb(224, 224, 224)};
  for (const reports::CellColor back : backs) {
    EXPECT_LT(reports::screenBackground(back, dark).lightness(), 100);
    EXPECT_GT(reports::screenBackground(back, dark).lightness(),
              dark.color(QPalette::Base).lightness());
  }
  EXPECT_GT(reports::screenForeground(reports::rgb(0, 0, 128), dark).lightness(), 170);
  QPalette light;
  light.setColor(QPalette::Base, Qt::white);
  EXPECT_EQ(reports::screenBackground(backs[0], light), QColor(255, 255, 192));
}

}  // namespace
