#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QMimeData>
#include <QWheelEvent>

#include "ChartWindows.h"
#include "support/TemporaryFolder.h"

#ifdef _WIN32
#include <windows.h>
#endif

using namespace Qt::Literals::StringLiterals;

namespace {

TEST_F(ChartWindows, OpensWithTheSavedTypeAndDepthButTheModesData) {
  put("DiagrEinst.txt", "4,3,1\r\n");
  const auto window = monthly("gas");
  EXPECT_TRUE(window->lblChartType(4)->isChecked());
  EXPECT_FALSE(window->lblChartType(0)->isChecked());
  EXPECT_TRUE(window->opt3D->isChecked());
  EXPECT_EQ(window->Chart2D1->options().type, charts::ChartType::Pie);
  EXPECT_TRUE(window->Option1(0)->isChecked());
  EXPECT_FALSE(window->Option1(3)->isChecked());
  EXPECT_EQ(modelOf(*window).title, "Verbrauch Gas");
}

TEST_F(ChartWindows, WriteTheSettingsWhenTheyClose) {
  auto window = monthly();
  window->show();
  QTest::mouseClick(window->lblChartType(2), Qt::LeftButton);
  window->opt3D->click();
  window->close();
  EXPECT_EQ(stored("DiagrEinst.txt"), "2,0,1\r\n") << "no selection was made";
  window = monthly();
  window->show();
  window->Option1(6)->click();
  window->opt3D->click();
  window->picBeenden->click();
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(stored("DiagrEinst.txt"), "2,6,0\r\n");
}

TEST_F(ChartWindows, CloseWhereTheSettingsCannotBeWritten) {
  put("DiagrEinst.txt", "0,0,0\r\n");
  files_.protectFolder("/daten");
  const auto window = monthly();
  window->show();
  window->mnuExit->trigger();
  EXPECT_FALSE(window->isVisible());
  EXPECT_TRUE(prompts_.shown.empty());
}

TEST_F(ChartWindows, WriteTheCaptionWithTwoBlanksUntilElectricityIsDrawn) {
  const auto window = monthly("strom");
  EXPECT_EQ(modelOf(*window).caption, "Startmonat ist  Januar");
  window->show();
  EXPECT_EQ(modelOf(*window).caption, "Startmonat ist Januar");
  window->Option1(2)->click();
  EXPECT_EQ(modelOf(*window).caption, "Startmonat ist  Januar");
}

TEST_F(ChartWindows, ReadTheYearAnewForEverySelection) {
  const auto window = monthly("alle");
  window->show();
  EXPECT_EQ(modelOf(*window).series.size(), 4u);
  ASSERT_TRUE(year_->transact({}, [](yearbook::YearRows& rows) {
    return rows.adoWasser.setNumber(0, yearbook::wasser::consumption, 99);
  }));
  window->Option1(5)->click();
  EXPECT_EQ(modelOf(*window).title, "Verbrauch Wasser und Abwasser");
  EXPECT_EQ(modelOf(*window).series[0].values[0], 99);
}

TEST_F(ChartWindows, TurnTheOptionsIntoTheChart) {
  const auto window = monthly();
  window->optDrehen(1)->click();
  window->List1->setCurrentRow(window->List1->count() - 1);
  window->List2->setCurrentRow(0);
  const auto& options = window->Chart2D1->options();
  EXPECT_EQ(options.labelRotation, 270);
  EXPECT_EQ(QString::number(options.labelSize), window->lblSchrift->text());
  EXPECT_EQ(QString::number(options.labelDistance), window->lblAbstand->text());
  window->chkTextOnOff->click();
  EXPECT_FALSE(options.labels);
  window->mnuEinAus->trigger();
  EXPECT_FALSE(options.legend);
  EXPECT_EQ(window->mnuEinAus->text(), u"Legende einschalten"_s);
  window->mnuEinAus->trigger();
  EXPECT_EQ(window->mnuEinAus->text(), u"Legende ausschalten"_s);
  window->mnuProzent->trigger();
  window->mnuReverse->trigger();
  window->mnuUeblap50->trigger();
  window->mnuRahmen->trigger();
  EXPECT_TRUE(options.percent && options.reverse && options.overlapBars && options.outlineBars);
}

TEST_F(ChartWindows, EnableWhatBelongsToTheMode) {
  const auto window = monthly();
  EXPECT_FALSE(window->UpDown1->isEnabled());
  EXPECT_FALSE(window->lblRotation->isEnabled());
  EXPECT_TRUE(window->mnuUeblap50->isEnabled());
  window->opt3D->click();
  EXPECT_TRUE(window->UpDown3->isEnabled());
  EXPECT_FALSE(window->mnuUeblap50->isEnabled());
  EXPECT_FALSE(window->mnuRahmen->isEnabled());
  window->UpDown2->setValue(1000);
  EXPECT_EQ(window->lblElevation->text(), u"45"_s);
  EXPECT_EQ(window->Chart2D1->options().view.elevation, 45);
}

TEST_F(ChartWindows, TurnWithTheMouse) {
  const auto window = monthly();
  window->opt3D->click();
  window->show();
  const int before = window->UpDown3->value();
  QTest::mousePress(window->Chart2D1, Qt::LeftButton, {}, {200, 200});
  QTest::mouseMove(window->Chart2D1, {120, 200});
  QTest::mouseRelease(window->Chart2D1, Qt::LeftButton, {}, {120, 200});
  EXPECT_LT(window->UpDown3->value(), before);
}

TEST_F(ChartWindows, LeaveValuesAloneWhenTheWheelPasses) {
  const auto window = monthly();
  window->opt3D->click();
  window->show();
  window->chkTextOnOff->setFocus();
  const int before = window->UpDown1->value();
  QWheelEvent wheel(QPointF(5, 5), window->UpDown1->mapToGlobal(QPointF(5, 5)), {}, {0, 120},
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(window->UpDown1, &wheel);
  EXPECT_EQ(window->UpDown1->value(), before);
}

TEST_F(ChartWindows, TakeColoursInTheOrderOfTheSystem) {
  const auto window = monthly();
  prompts_.answerColor(0x0000ff);
  window->mnuAussen->trigger();
  EXPECT_EQ(window->Chart2D1->options().outer, charts::Color::rgb(0xff0000));
  prompts_.answerColor(-1);
  window->mnuInnen->trigger();
  EXPECT_FALSE(window->Chart2D1->options().inner);
  EXPECT_EQ(window->Chart2D1->shownScene().background, charts::Color::rgb(0xff0000));
}

TEST_F(ChartWindows, AreReachedByKeyboardAndReadAloud) {
  const auto window = monthly();
  window->show();
  window->lblChartType(0)->setFocus();
  QTest::keyClick(window->lblChartType(0), Qt::Key_Right);
  EXPECT_TRUE(window->lblChartType(1)->isChecked());
  auto* accessible = QAccessible::queryAccessibleInterface(window->lblChartType(1));
  EXPECT_EQ(accessible->role(), QAccessible::RadioButton);
  EXPECT_TRUE(accessible->state().checked);
  window->Chart2D1->setFocus();
  QTest::keyClick(window->Chart2D1, Qt::Key_Right);
  QTest::keyClick(window->Chart2D1, Qt::Key_Right);
  EXPECT_EQ(window->Chart2D1->accessibleName(), u"Februar: 255 kWh (8,5 % des Jahres)"_s);
  QFocusEvent left(QEvent::FocusOut);
  QApplication::sendEvent(window->Chart2D1, &left);
  EXPECT_EQ(window->Chart2D1->accessibleName(), u"Verbrauch Strom"_s) << "the chart again";
  EXPECT_TRUE(window->Chart2D1->accessibleDescription().contains(u"Dezember 305"_s));
  for (const QWidget* widget : window->findChildren<QWidget*>()) {
    if (!(widget->focusPolicy() & Qt::TabFocus) || widget->objectName().startsWith(u"qt_"_s))
      continue;
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
  }
}

TEST_F(ChartWindows, TellTheChartsSize) {
  const auto window = monthly();
  window->show();
  const auto& chart = *window->Chart2D1;
  EXPECT_EQ(window->mnuDimensions->text().toStdString(),
            charts::dimensionText({chart.width() * 1440.0 / chart.logicalDpiX(),
                                   chart.height() * 1440.0 / chart.logicalDpiY()},
                                  1440.0 / chart.logicalDpiX(), 1440.0 / chart.logicalDpiY()));
  EXPECT_TRUE(window->mnuDimensions->text().contains(
      u"  %1 x %2 Pixel     ["_s.arg(chart.width()).arg(chart.height())));
}

TEST_F(ChartWindows, SavePicturesUnderTheChosenName) {
  const auto window = monthly();
  window->show();
  const struct {
    QAction* entry;
    const char *chosen, *written, *filter;
    std::string begin;
  } rows[] = {{window->mnuSaveBmp, "bild", "bild.bmp", "*.bmp (BMP Dateien)|*.bmp", "BM"},
              {window->mnuSaveBmp, "B.BMP", "B.BMP", "*.bmp (BMP Dateien)|*.bmp", "BM"},
              {window->mnuSaveWmf, "w", "w.wmf", "*.wmf (WMF Dateien)|*.wmf", "\xd7\xcd\xc6\x9a"},
              {window->mnuSaveEnhWmf, "e", "e.wmf", "*.wmf (WMF Dateien)|*.wmf",
               std::string("\1\0\0\0", 4)},
              {window->mnuSavePng, "p", "p.png", "*.png (PNG Dateien)|*.png", "\x89PNG"},
              {window->mnuSaveSvg, "s", "s.svg", "*.svg (SVG Dateien)|*.svg", "<?xml"}};
  for (const auto& row : rows) {
    prompts_.answerPath(u"/daten/"_s + QString::fromLatin1(row.chosen));
    row.entry->trigger();
    EXPECT_EQ(stored(row.written).substr(0, row.begin.size()), row.begin) << row.written;
    EXPECT_EQ(prompts_.last().title, u"Pfad für Sicherung auswählen"_s);
    EXPECT_EQ(prompts_.last().text, QString::fromLatin1(row.filter));
    EXPECT_EQ(prompts_.last().preset, u"/daten/Verbrauch Strom"_s);
  }
  const QImage bitmap = QImage::fromData(QByteArray::fromStdString(stored("bild.bmp")), "BMP");
  EXPECT_EQ(bitmap.size(), window->Chart2D1->size());
}

TEST_F(ChartWindows, SaveNothingWhenCancelledAndFailInSilence) {
  const auto window = monthly();
  const auto before = files_.contents();
  prompts_.answerPath({});
  window->mnuSaveBmp->trigger();
  prompts_.answerPath(u"/gibtesnicht/bild"_s);
  window->mnuSaveWmf->trigger();
  EXPECT_EQ(files_.contents(), before);
}

#ifdef _WIN32

// Forms that the system adds by itself come after those that were put there.
UINT firstFormOnClipboard() {
  if (!OpenClipboard(nullptr)) return 0;
  const UINT form = EnumClipboardFormats(0);
  CloseClipboard();
  return form;
}

TEST_F(ChartWindows, CopyTheBitmapWithEveryForm) {
  const auto window = monthly();
  window->show();
  const std::pair<QAction*, UINT> entries[] = {{window->mnuCopyWmf, CF_METAFILEPICT},
                                               {window->mnuCopyEnhWmf, CF_ENHMETAFILE}};
  for (const auto& [entry, form] : entries) {
    entry->trigger();
    EXPECT_EQ(firstFormOnClipboard(), form);
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_DIB));
  }
}

#else

TEST_F(ChartWindows, CopyTheBitmapWithEveryForm) {
  const auto window = monthly();
  window->show();
  for (QAction* entry : {window->mnuCopyBmp, window->mnuCopyWmf, window->mnuCopyEnhWmf}) {
    entry->trigger();
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(qvariant_cast<QImage>(data->imageData()).size(), window->Chart2D1->size());
    EXPECT_EQ(data->hasFormat(u"image/x-wmf"_s), entry == window->mnuCopyWmf);
    EXPECT_EQ(data->hasFormat(u"image/x-emf"_s), entry == window->mnuCopyEnhWmf);
  }
}

#endif

// Pixels for all fits but the height, which goes as lines and areas.
TEST_F(ChartWindows, PrintOnePageInFiveWays) {
  const support::TemporaryFolder folder;
  const auto window = monthly();
  window->show();
  const QString path = QString::fromStdString(folder / "druck.pdf");
  window->setPrinterSource([path] {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(path);
    return printer;
  });
  for (QAction* entry : {window->mnuDruckNone, window->mnuDruckW, window->mnuDruckH,
                         window->mnuDruckAnp, window->mnuDruckMax}) {
    QFile::remove(path);
    entry->trigger();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << entry->text().toStdString();
    const QByteArray pdf = file.readAll();
    EXPECT_EQ(pdf.count("/Type /Page\n"), 1);
    EXPECT_EQ(pdf.contains("/Subtype /Image"), entry != window->mnuDruckH)
        << entry->text().toStdString();
  }
}

TEST_F(ChartWindows, PrintNothingWithoutAPrinter) {
  const auto window = monthly();
  window->setPrinterSource([] { return std::unique_ptr<QPrinter>(); });
  window->mnuDruckAnp->trigger();
  EXPECT_TRUE(prompts_.shown.empty());
}

TEST_F(ChartWindows, ShowHelp) {
  const auto window = monthly();
  window->mnuHilfe->trigger();
  EXPECT_EQ(navigator_.calls, QStringList{u"showManual frmDiagramm"_s});
}

TEST_F(ChartWindows, CompareWithTheYearThatIsChosen) {
  const auto window = comparison(u"/daten/Verbrauch2024.kwd"_s);
  EXPECT_EQ(prompts_.last().title, u"Anderes Jahr öffnen"_s);
  EXPECT_EQ(prompts_.last().text, u"*.kwd (Datenbank)|*.kwd"_s);
  EXPECT_EQ(prompts_.last().preset, u"/daten/"_s);
  ASSERT_EQ(modelOf(*window).series.size(), 2u);
  EXPECT_EQ(modelOf(*window).series[0].name, "Strom / Verbrauch2025");
  EXPECT_EQ(modelOf(*window).series[1].name, "Strom / Verbrauch2024");
  window->Option1(4)->click();
  EXPECT_EQ(modelOf(*window).series[1].name, "Abwasser / Verbrauch2024");
}

TEST_F(ChartWindows, CompareTheOpenYearWithItself) {
  const auto window = comparison(u"/daten/Verbrauch2025.kwd"_s);
  // The file is locked by the open year.
  ASSERT_EQ(modelOf(*window).series.size(), 2u);
  EXPECT_EQ(modelOf(*window).series[0].name, modelOf(*window).series[1].name);
  EXPECT_EQ(modelOf(*window).series[0].values, modelOf(*window).series[1].values);
}

TEST_F(ChartWindows, KeepTheComparisonWhenTheChoiceIsCancelled) {
  const auto window = comparison({});
  EXPECT_EQ(modelOf(*window).series.size(), 1u);
  prompts_.answerPath(u"/daten/Verbrauch2024.kwd"_s);
  window->cmdAnderesJahr->click();
  EXPECT_EQ(modelOf(*window).series.size(), 2u);
  prompts_.answerPath({});
  window->mnuAnderesJahr->trigger();
  EXPECT_EQ(modelOf(*window).series.size(), 2u);
}

TEST_F(ChartWindows, LeaveADamagedYearsSeriesEmpty) {
  put("kaputt.kwd", "kein Jahr");
  const auto window = comparison(u"/daten/kaputt.kwd"_s);
  ASSERT_EQ(modelOf(*window).series.size(), 2u);
  EXPECT_EQ(modelOf(*window).series[1].name, "Strom / kaputt");
  for (const auto& value : modelOf(*window).series[1].values) EXPECT_FALSE(value);
  EXPECT_EQ(prompts_.shown.size(), 1u) << "the file dialog, and no box";
}

TEST_F(ChartWindows, ComparisonHasNoSettingsOfItsOwn) {
  const auto window = comparison({});
  window->close();
  EXPECT_EQ(stored("DiagrEinst.txt"), "");
}

// Geometry without text, so that every machine gives the same pixels.
TEST(ScenePainter, PaintsAreasLinesAndBackground) {
  charts::Scene scene;
  scene.width = 20;
  scene.height = 10;
  scene.background = charts::Color::rgb(0x102030);
  scene.fill({{2, 2}, {8, 2}, {8, 8}, {2, 8}}, charts::Color::rgb(0xff0000));
  scene.line({{10, 5}, {18, 5}}, {charts::Color::rgb(0x00ff00), 2, false});
  const QImage image = charts::sceneImage(scene, 2);
  EXPECT_EQ(image.size(), QSize(40, 20));
  EXPECT_EQ(image.pixelColor(0, 0), QColor(0x10, 0x20, 0x30));
  EXPECT_EQ(image.pixelColor(10, 10), QColor(255, 0, 0));
  EXPECT_EQ(image.pixelColor(28, 10), QColor(0, 255, 0));
  EXPECT_EQ(image.pixelColor(28, 14), QColor(0x10, 0x20, 0x30));
}

}  // namespace
