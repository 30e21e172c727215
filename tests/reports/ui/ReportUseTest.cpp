// What somebody does on the two pages with tables: tick, print, look at the pages, export, copy;
// and what is left when it goes wrong.
#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QTest>
#include <QTimer>

#include "reports/ui/DetailPage.h"
#include "reports/ui/OverviewPage.h"
#include "support/FailingFileSystem.h"
#include "support/MemoryFileSystem.h"
#include "support/SampleYears.h"
#include "support/TemporaryFolder.h"
#include "support/ui/FakeNavigator.h"
#include "support/ui/FakePrompts.h"

using namespace Qt::StringLiterals;

namespace {

class ReportUse : public testing::Test {
 protected:
  ReportUse() {
    paths_.DataFolder = "/daten/";
    files_.put("/daten/Verbrauch2025.kwd", {});
    prompts_.acceptTellings();
  }

  QStringList firstColumn() const {
    QStringList texts;
    const auto* model = detailPage_.grdDruckAlle->model();
    for (int row = 0; row < model->rowCount(); ++row)
      texts << model->index(row, 0).data().toString();
    return texts;
  }
  std::string stored(const std::string& name) const {
    const base::Bytes bytes = files_.get("/daten/" + name);
    return {bytes.begin(), bytes.end()};
  }
  static bool intoFile(QPrinter& printer, const std::string& path) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(path));
    return true;
  }
  static qsizetype pagesIn(const std::string& path) {
    const auto bytes = base::makeDiskFileSystem()->readText(path);
    return bytes ? QByteArray::fromStdString(*bytes).count("/Type /Page\n") : 0;
  }

  base::PathState paths_;
  support::MemoryFileSystem disk_;
  support::FailingFileSystem failing_{disk_};
  support::MemoryFileSystem& files_ = disk_;
  base::FixedClock clock_{std::chrono::year(2026) / 11 / 14};
  FakePrompts prompts_;
  FakeShell shell_;
  FakeNavigator navigator_;
  dialogs::Services services_{paths_, failing_, clock_, prompts_, shell_, navigator_};
  std::unique_ptr<yearbook::YearSession> year_ = sample::openYear(disk_, "Verbrauch2025.kwd");
  reports::OverviewPage overviewPage_{services_, *year_};
  reports::DetailPage detailPage_{services_, *year_};
};

// Ticking alone changes nothing; the button below rebuilds the table from what is ticked.
TEST_F(ReportUse, EveryMetersBlockComesAndGoesWithItsTick) {
  detailPage_.show();
  const std::pair<QCheckBox*, QString> blocks[] = {{detailPage_.chkStrom, u"Strom"_s},
                                                   {detailPage_.chkStromNS, u"Nachtstrom"_s},
                                                   {detailPage_.chkWasser, u"Wasser"_s},
                                                   {detailPage_.chkAbwasser, u"Abwasser"_s},
                                                   {detailPage_.chkGas, u"Gas"_s}};
  const auto rows = firstColumn().size();
  for (const auto& [box, title] : blocks) {
    EXPECT_EQ(box->text(), title);
    EXPECT_EQ(firstColumn().count(title), 1);
    box->click();
    EXPECT_EQ(firstColumn().size(), rows) << title.toStdString();
    detailPage_.cmdTabelle->click();
    EXPECT_EQ(firstColumn().count(title), 0) << title.toStdString();
    EXPECT_LT(firstColumn().size(), rows);
    box->click();
    detailPage_.cmdTabelle->click();
    EXPECT_EQ(firstColumn().size(), rows);
  }
  ASSERT_TRUE(year_->clear(yearbook::Utility::Electricity));
  const auto amount = [&] { return detailPage_.grdDruckAlle->model()->index(4, 1).data(); };
  const QVariant before = amount();
  detailPage_.cmdTabelle->click();
  EXPECT_NE(amount(), before) << "the year as it is now";
}

TEST_F(ReportUse, WhatIsPrintedIsWhatTheTableShows) {
  const support::TemporaryFolder folder;
  detailPage_.show();
  detailPage_.printerChoice = [&](QPrinter& printer, QWidget* owner) {
    EXPECT_EQ(owner, &detailPage_);
    EXPECT_EQ(printer.docName(), u"Verbrauchs-Abrechnung  14 November, 2026"_s);
    return intoFile(printer, folder / "alle.pdf");
  };
  detailPage_.Command11->click();
  EXPECT_EQ(pagesIn(folder / "alle.pdf"), 2);
  for (QCheckBox* box : {detailPage_.chkStrom, detailPage_.chkStromNS, detailPage_.chkWasser,
                         detailPage_.chkAbwasser})
    box->click();
  detailPage_.cmdTabelle->click();
  detailPage_.printerChoice = [&](QPrinter& printer, QWidget*) {
    return intoFile(printer, folder / "gas.pdf");
  };
  detailPage_.Command11->click();
  EXPECT_EQ(pagesIn(folder / "gas.pdf"), 1);
  EXPECT_TRUE(prompts_.shown.empty());
}

TEST_F(ReportUse, OnlyTheWantedPagesArePrinted) {
  const support::TemporaryFolder folder;
  detailPage_.show();
  detailPage_.printerChoice = [&](QPrinter& printer, QWidget*) {
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 2);
    return intoFile(printer, folder / "zwei.pdf");
  };
  detailPage_.Command11->click();
  EXPECT_EQ(pagesIn(folder / "zwei.pdf"), 1);
}

TEST_F(ReportUse, PrintDialogCancelledOnEitherPageChangesNothing) {
  overviewPage_.show();
  detailPage_.show();
  int asked = 0;
  const auto cancel = [&](QPrinter& printer, QWidget*) {
    ++asked;
    // As far as somebody gets before changing their mind.
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(u"/gibtesnicht/x.pdf"_s);
    return false;
  };
  overviewPage_.printerChoice = detailPage_.printerChoice = cancel;
  const auto before = disk_.contents();
  overviewPage_.cmdDrucken->click();
  detailPage_.Command11->click();
  EXPECT_EQ(asked, 2);
  EXPECT_TRUE(prompts_.shown.empty());
  EXPECT_EQ(disk_.contents(), before);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(ReportUse, ThePreviewShowsThePagesThatWouldBePrinted) {
  overviewPage_.show();
  detailPage_.show();
  for (const auto& [button, pages] :
       {std::pair(overviewPage_.cmdVorschau, 1), std::pair(detailPage_.cmdVorschauAlle, 2)}) {
    int shown = 0;
    QTimer::singleShot(0, qApp, [&] {
      auto* dialog = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      EXPECT_EQ(dialog->objectName(), u"Druckvorschau"_s);
      auto* preview = dialog->findChild<QPrintPreviewWidget*>();
      preview->updatePreview();
      shown = preview->pageCount();
      dialog->reject();
    });
    button->click();
    EXPECT_EQ(shown, pages);
  }
  EXPECT_TRUE(prompts_.shown.empty());
}

// A page of last month is there already; whatever call of the disk fails, it is whole or the new
// one is, and nobody is told that it was saved when it was not.
TEST_F(ReportUse, ExportThatFailsSaysNothingOfSaving) {
  overviewPage_.show();
  detailPage_.show();
  const auto exportWith = [&](QPushButton* button, const std::string& name) {
    for (std::size_t call = 0;; ++call) {
      ASSERT_LT(call, 60U);
      disk_.put("/daten/" + name, base::asBytes(std::string("alt")));
      prompts_.shown.clear();
      failing_.arm({call, true});
      button->click();
      const bool struck = failing_.struck();
      failing_.disarm();
      const bool told = !prompts_.shown.empty();
      const bool whole = stored(name).find("</HTML>") != std::string::npos;
      EXPECT_TRUE(whole || !told) << name << " at call " << call;
      EXPECT_EQ(QApplication::overrideCursor(), nullptr);
      if (struck) continue;
      EXPECT_TRUE(told && whole);
      EXPECT_EQ(prompts_.last().text,
                u"Datei gespeichert unter /daten/"_s + QString::fromStdString(name));
      break;
    }
  };
  exportWith(overviewPage_.cmdExpHtml, "Verbrauchsabrechnung 11.html");
  exportWith(detailPage_.Command10, "Verbrauchsabrechnung 11 Monate.html");
}

// The dialog has asked whether it may.
TEST_F(ReportUse, ATableThatIsThereIsReplacedUnderItsWholeName) {
  detailPage_.show();
  disk_.put("/daten/Monate.csv", base::asBytes(std::string("alt")));
  prompts_.answerPath(u"/daten/Monate"_s);
  detailPage_.cmdCsv->click();
  EXPECT_THAT(stored("Monate.csv"), testing::HasSubstr(";"));
  prompts_.answerPath(u"/daten/Neu.CSV"_s);
  detailPage_.cmdCsv->click();
  EXPECT_EQ(stored("Neu.CSV"), stored("Monate.csv"));
  const auto before = disk_.contents();
  prompts_.answerPath({});
  detailPage_.cmdCsv->click();
  EXPECT_EQ(disk_.contents(), before);
  disk_.protect("/daten/Monate.csv");
  disk_.protectFolder("/daten");
  detailPage_.chkGas->click();
  detailPage_.cmdTabelle->click();
  prompts_.answerPath(u"/daten/Monate.csv"_s);
  detailPage_.cmdCsv->click();
  EXPECT_EQ(prompts_.last().title, u"Tabelle als CSV speichern"_s);
  EXPECT_EQ(prompts_.last().icon, dialogs::Icon::Warning);
  EXPECT_EQ(disk_.contents(), before);
}

TEST_F(ReportUse, CopyTakesTheTableAsItIsShown) {
  detailPage_.show();
  detailPage_.chkStrom->click();
  detailPage_.cmdTabelle->click();
  detailPage_.cmdKopierenAlle->click();
  const QString copied = QApplication::clipboard()->text();
  EXPECT_TRUE(copied.contains(u"Nachtstrom"_s));
  EXPECT_FALSE(copied.contains(u"\nStrom"_s));
  overviewPage_.show();
  overviewPage_.cmdKopieren->click();
  EXPECT_TRUE(QApplication::clipboard()->text().contains(u"Saldo Gas"_s));
}

}  // namespace
