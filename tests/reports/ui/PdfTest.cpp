#include <gmock/gmock.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <map>

#include "reports/ui/GridPrinter.h"
#include "reports/ui/PdfExport.h"
#include "support/SampleYears.h"
#include "support/TemporaryFolder.h"

using namespace Qt::StringLiterals;

namespace {

// Reads the text of a PDF with an independent program.
class PdfText : public testing::Test {
 protected:
  void SetUp() override {
    if (QStandardPaths::findExecutable(u"pdftotext"_s).isEmpty())
      GTEST_SKIP() << "pdftotext (poppler-utils) is not installed; the text of the PDF is unread";
  }

  QString run(const QString& program, const QStringList& arguments) {
    QProcess reader;
    reader.start(program, arguments);
    EXPECT_TRUE(reader.waitForFinished());
    return QString::fromUtf8(reader.readAllStandardOutput());
  }
  QString textOf(const std::string& path) {
    return run(u"pdftotext"_s,
               {u"-layout"_s, u"-enc"_s, u"UTF-8"_s, QString::fromStdString(path), u"-"_s});
  }

  // Of all words, in points; a table in the middle is as far from the left as from the right, give
  // or take what a column leaves free.
  double leftOf(const std::string& path) { return edgesOf(path).first; }
  double rightOf(const std::string& path) { return edgesOf(path).second; }
  std::pair<double, double> edgesOf(const std::string& path) {
    const QString box = run(u"pdftotext"_s, {u"-bbox"_s, QString::fromStdString(path), u"-"_s});
    static const QRegularExpression word(u"xMin=\"([\\d.]+)\".*xMax=\"([\\d.]+)\""_s);
    std::pair<double, double> edges(595, 0);
    for (auto found = word.globalMatch(box); found.hasNext();) {
      const auto at = found.next();
      edges = {std::min(edges.first, at.captured(1).toDouble()),
               std::max(edges.second, at.captured(2).toDouble())};
    }
    return edges;
  }

  // Every text of the grid stands in the PDF's text, as often as in the grid at least.
  void expectAllTexts(const reports::Grid& grid, const QString& text) {
    std::map<QString, int> wanted;
    for (int row = 0; row < grid.rows(); ++row)
      for (int column = 0; column < grid.columns(); ++column)
        if (grid.mergedRange(row, column).left == column)
          ++wanted[QString::fromStdString(grid.text(row, column)).simplified()];
    const QString read = text.simplified();
    wanted.erase(QString());
    for (const auto& [cell, count] : wanted)
      EXPECT_GE(read.count(cell), count) << cell.toStdString();
  }

  support::TemporaryFolder folder_;
  std::unique_ptr<base::FileSystem> files_ = base::makeDiskFileSystem();
};

TEST_F(PdfText, OverviewHasEveryFigureOnOnePage) {
  const std::string path = folder_ / "Übersicht.pdf";
  ASSERT_TRUE(reports::exportPdf(*files_, path, sample::overviewFlatRate(),
                                 "Verbrauchs-Abrechnung  14 November, 2026"));
  const QString text = textOf(path);
  expectAllTexts(buildOverview(sample::overviewFlatRate()), text);
  EXPECT_TRUE(text.contains(u"-433,50"_s));
  for (const QString& said :
       {u"Strom: "_s, u"Wasser und Abwasser: Guthaben 28,28 Euro."_s,
        u"Gas: Nachzahlung 107,66 Euro. Passender Abschlag: 150,97 Euro im Monat."_s})
    EXPECT_TRUE(text.contains(said)) << said.toStdString();
  EXPECT_TRUE(text.contains(u"Seite 1 von 1"_s));
  EXPECT_FALSE(text.contains(reports::asOfLastReadingNote()));
}

TEST_F(PdfText, LinesOfAYearUnderWayAreNotWiderThanItsTable) {
  auto input = sample::overview2025();
  for (auto& months : input.monthsCovered) months = 9;
  const std::string path = folder_ / "Übersicht.pdf";
  ASSERT_TRUE(reports::exportPdf(*files_, path, input, "Verbrauchs-Abrechnung"));
  EXPECT_TRUE(textOf(path).contains(u"Wasser und Abwasser: Bis September: "_s));
  EXPECT_TRUE(textOf(path).contains(reports::asOfLastReadingNote()));
  EXPECT_NEAR(leftOf(path), 595 - rightOf(path), 12);
}

TEST_F(PdfText, DetailedTableRepeatsItsTitleOnEveryPage) {
  const reports::Grid grid = buildDetailTable(sample::detail2025(), {true, true, true, true, true});
  const QByteArray pdf =
      reports::GridPrinter(grid, u"Verbrauchs-Abrechnung"_s, {540, 540}, {u"Haushalt 2025"_s, {}})
          .toPdf();
  const std::string path = folder_ / "Monate.pdf";
  QFile file(QString::fromStdString(path));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size());
  file.close();
  const QString text = textOf(path);
  expectAllTexts(grid, text);
  EXPECT_EQ(text.count(u"Jahresübersicht alle Beträge in Euro"_s), 2);
  EXPECT_TRUE(text.contains(u"Haushalt 2025 · Seite 2 von 2"_s));
  EXPECT_NEAR(leftOf(path), 595 - rightOf(path), 12);
}

TEST_F(PdfText, LinesBelowTheTableHaveTheirRoomOnTheLastPage) {
  const reports::Grid grid = buildDetailTable(sample::detail2025(), {true, true, true, true, true});
  QStringList lines;
  for (int i = 0; i < 12; ++i) lines += u"Zeile %1."_s.arg(i);
  const std::string path = folder_ / "Zeilen.pdf";
  const QByteArray pdf = reports::GridPrinter(grid, {}, {540, 540}, {{}, lines}).toPdf();
  ASSERT_TRUE(files_->replaceFile(path, base::asBytes({pdf.constData(), std::size_t(pdf.size())})));
  const QStringList pages = textOf(path).split(u'\f', Qt::SkipEmptyParts);
  ASSERT_EQ(pages.size(), 3) << "two of them without the lines";
  const QString& last = pages.last();
  EXPECT_FALSE(pages[1].contains(u"Zeile"_s));
  EXPECT_LT(last.indexOf(u"Summe Gesamt"_s), last.indexOf(u"Zeile 0."_s));
  EXPECT_LT(last.indexOf(u"Zeile 11."_s), last.indexOf(u"Seite 3 von 3"_s));
}

TEST_F(PdfText, TargetThatCannotBeWrittenIsNamed) {
  const auto done =
      reports::exportPdf(*files_, folder_ / "fehlt/x.pdf", sample::overview2024(), "x");
  ASSERT_FALSE(done);
  EXPECT_THAT(done.error().file, testing::HasSubstr("fehlt"));
}

}  // namespace
