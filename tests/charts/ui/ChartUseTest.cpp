// What somebody does in the chart windows, one wish after the other, and what must not happen when
// a wish cannot be met.
#include <QToolTip>

#include "ChartWindows.h"
#include "support/EmptyYear.h"
#include "support/FailingFileSystem.h"
#include "support/TemporaryFolder.h"

using namespace Qt::Literals::StringLiterals;

namespace {

using charts::ChartType;

class ChartUse : public ChartWindows {
 protected:
  // Texts of the drawing, in its order.
  static QStringList texts(const charts::ChartWindow& window) {
    QStringList found;
    for (const auto& item : window.Chart2D1->shownScene().items)
      if (const auto* text = std::get_if<charts::Text>(&item))
        found << QString::fromStdString(text->text);
    return found;
  }
  static const charts::Text* find(const charts::ChartWindow& window, const std::string& wanted) {
    for (const auto& item : window.Chart2D1->shownScene().items)
      if (const auto* text = std::get_if<charts::Text>(&item); text && text->text == wanted)
        return text;
    return nullptr;
  }
  static QPoint middleOf(const charts::ChartWindow& window, int series, int month) {
    const charts::Mark* mark = window.Chart2D1->shownScene().findMark(series, month);
    charts::Point sum;
    for (const charts::Point& point : mark->outline) sum = sum + point;
    sum = sum * (1.0 / static_cast<double>(mark->outline.size()));
    return {static_cast<int>(sum.x), static_cast<int>(sum.y)};
  }
};

TEST_F(ChartUse, EveryKindIsChosenByAClickAndDrawnAnew) {
  const auto window = monthly();
  window->show();
  QStringList names;
  for (int kind = 0; kind < charts::kChartTypeCount; ++kind) {
    QTest::mouseClick(window->lblChartType(kind), Qt::LeftButton);
    for (int other = 0; other < charts::kChartTypeCount; ++other)
      EXPECT_EQ(window->lblChartType(other)->isChecked(), other == kind);
    EXPECT_EQ(window->Chart2D1->options().type, static_cast<ChartType>(kind));
    EXPECT_TRUE(window->Chart2D1->accessibleDescription().contains(
        u"Darstellung %1."_s.arg(window->lblChartType(kind)->text())));
    names << window->lblChartType(kind)->text();
  }
  EXPECT_EQ(names, QStringList({u"Linien"_s, u"Balken"_s, u"Balken addiert"_s, u"Area"_s,
                                u"Torten"_s, u"Area addiert"_s}));
}

TEST_F(ChartUse, ArrowKeysGoRoundTheKindsAndSpaceChooses) {
  const auto window = monthly();
  window->show();
  window->lblChartType(0)->setFocus();
  QTest::keyClick(window->lblChartType(0), Qt::Key_Left);
  EXPECT_TRUE(window->lblChartType(5)->isChecked());
  QTest::keyClick(window->lblChartType(5), Qt::Key_Down);
  EXPECT_TRUE(window->lblChartType(0)->isChecked());
  QTest::keyClick(window->lblChartType(3), Qt::Key_Space);
  EXPECT_TRUE(window->lblChartType(3)->isChecked());
}

TEST_F(ChartUse, EverySelectionShowsItsMeter) {
  const auto window = monthly();
  window->show();
  const struct {
    int index;
    const char *caption, *title, *unit;
    double january;
  } rows[] = {{1, "Strom", "Verbrauch Strom", "kWh", 291},
              {2, "Gas", "Verbrauch Gas", "m³", 240},
              {3, "Wasser", "Verbrauch Wasser", "m³", 10},
              {4, "Abwasser", "Verbrauch Abwasser", "m³", 10},
              {5, "Wasser u. Abwasser", "Verbrauch Wasser und Abwasser", "m³", 10},
              {6, "Nachtstrom", "Verbrauch Nachtstrom", "kWh", 180}};
  for (const auto& row : rows) {
    window->Option1(row.index)->click();
    EXPECT_EQ(window->Option1(row.index)->text(), QString::fromUtf8(row.caption));
    EXPECT_EQ(modelOf(*window).title, row.title);
    EXPECT_EQ(modelOf(*window).unit, row.unit);
    EXPECT_EQ(modelOf(*window).series[0].values[0], row.january) << row.title;
    EXPECT_TRUE(texts(*window).contains(QString::fromUtf8(row.title)));
  }
}

TEST_F(ChartUse, LabelsAreTurnedMovedAndSized) {
  const auto window = monthly();
  window->show();
  QTest::mouseClick(window->lblChartType(1), Qt::LeftButton);
  const int rotations[] = {90, 270, 0};
  for (int i = 0; i < 3; ++i) {
    window->optDrehen(i)->click();
    ASSERT_NE(find(*window, "305"), nullptr);
    EXPECT_EQ(find(*window, "305")->rotation, rotations[i]);
  }
  const charts::Text before = *find(*window, "305");
  window->List2->setCurrentRow(5);
  EXPECT_EQ(window->lblAbstand->text(), u"10"_s);
  EXPECT_DOUBLE_EQ(find(*window, "305")->at.y, before.at.y - 6);
  window->List1->setCurrentRow(0);
  EXPECT_EQ(window->lblSchrift->text(), u"6"_s);
  EXPECT_LT(find(*window, "305")->font.size, before.font.size);
  window->chkTextOnOff->click();
  EXPECT_EQ(find(*window, "305"), nullptr);
}

TEST_F(ChartUse, DepthIsGivenByThreeSlidersAndFollowsTheMouse) {
  const auto window = monthly();
  window->show();
  window->opt3D->click();
  window->UpDown1->setValue(70);
  window->UpDown2->setValue(-20);
  window->UpDown3->setValue(30);
  const charts::View3D view = window->Chart2D1->options().view;
  EXPECT_EQ(view.depth, 70);
  EXPECT_EQ(view.elevation, -20);
  EXPECT_EQ(view.rotation, 30);
  EXPECT_EQ(window->lblDepth->text(), u"70"_s);
  EXPECT_EQ(window->lblRotation->text(), u"30"_s);
  QTest::mousePress(window->Chart2D1, Qt::LeftButton, {}, {200, 200});
  QTest::mouseMove(window->Chart2D1, {300, 140});
  QTest::mouseRelease(window->Chart2D1, Qt::LeftButton, {}, {300, 140});
  EXPECT_GT(window->UpDown2->value(), -20) << "up shows it from above";
  EXPECT_GT(window->UpDown3->value(), 30);
  const int turned = window->UpDown3->value();
  QTest::mouseMove(window->Chart2D1, {500, 140});
  EXPECT_EQ(window->UpDown3->value(), turned) << "the button is released";
  window->opt3D->click();
  EXPECT_FALSE(window->UpDown1->isEnabled());
  for (const QLabel* label : window->frOpt->findChildren<QLabel*>())
    EXPECT_FALSE(label->isEnabled()) << label->text().toStdString();
  EXPECT_TRUE(window->mnuUeblap50->isEnabled() && window->mnuRahmen->isEnabled());
  QTest::mousePress(window->Chart2D1, Qt::LeftButton, {}, {200, 200});
  QTest::mouseMove(window->Chart2D1, {300, 140});
  QTest::mouseRelease(window->Chart2D1, Qt::LeftButton, {}, {300, 140});
  EXPECT_EQ(window->UpDown3->value(), turned) << "a flat chart is not turned";
}

TEST_F(ChartUse, LegendGoesAndComesInEitherOrder) {
  const auto window = monthly("ww");
  window->show();
  const auto places = [&] {
    const QStringList all = texts(*window);
    return std::pair(all.indexOf(u"Wasser"_s), all.indexOf(u"Abwasser"_s));
  };
  EXPECT_LT(places().first, places().second);
  window->mnuReverse->trigger();
  EXPECT_GT(places().first, places().second);
  window->mnuEinAus->trigger();
  EXPECT_EQ(places(), std::pair(qsizetype(-1), qsizetype(-1)));
}

TEST_F(ChartUse, PercentIsWrittenAtTheAxisAndTheValues) {
  const auto window = monthly();
  window->show();
  window->mnuProzent->trigger();
  EXPECT_TRUE(texts(*window).contains(u"%"_s));
  EXPECT_TRUE(texts(*window).contains(u"9,7 %"_s)) << "291 of 2993 in January";
  window->mnuProzent->trigger();
  EXPECT_TRUE(texts(*window).contains(u"kWh"_s));
}

TEST_F(ChartUse, TheMenuTellsWhetherPercentIsOn) {
  const auto window = monthly();
  EXPECT_EQ(window->mnuProzent->text(), u"&Prozentuale Anzeigel "_s);
  window->mnuProzent->trigger();
  EXPECT_EQ(window->mnuProzent->text(), u"✓ &Prozentuale Anzeigel "_s);
  window->mnuProzent->trigger();
  EXPECT_EQ(window->mnuProzent->text(), u"&Prozentuale Anzeigel "_s);
}

// Gas in January 2025: 240 m³ of 10,523 kWh at 9,45 ct.
TEST_F(ChartUse, EveryChartShowsEurosInsteadOfConsumptions) {
  const auto window = monthly("gas");
  const double net = 240 * 10.523 * 9.45 / 100;
  window->mnuWerteNetto->trigger();
  EXPECT_NEAR(*modelOf(*window).series[0].values[0], net, 1e-4);
  EXPECT_EQ(modelOf(*window).title, "Kosten Gas, netto ohne Grundgebühr");
  EXPECT_EQ(modelOf(*window).unit, "Euro");
  window->mnuWerteBrutto->trigger();
  EXPECT_NEAR(*modelOf(*window).series[0].values[0], net * 1.19, 1e-4);
  window->Option1(1)->click();  // the other meters follow
  EXPECT_EQ(modelOf(*window).title, "Kosten Strom, brutto ohne Grundgebühr");
  window->mnuWerteVerbrauch->trigger();
  EXPECT_EQ(*modelOf(*window).series[0].values[0], 291);
}

TEST_F(ChartUse, EurosOfAllMetersHaveOneAxis) {
  const auto window = monthly("alle");
  EXPECT_FALSE(modelOf(*window).secondUnit.empty());
  window->mnuWerteNetto->trigger();
  EXPECT_TRUE(modelOf(*window).secondUnit.empty());
  ASSERT_EQ(modelOf(*window).series.size(), 4U);
  for (const charts::Series& series : modelOf(*window).series) {
    EXPECT_EQ(series.unit, "Euro");
    EXPECT_FALSE(series.secondAxis);
  }
  EXPECT_NEAR(*modelOf(*window).series[2].values[0], 22.5, 1e-9);  // 10 m³ of water at 2,25 euro
}

TEST_F(ChartUse, BothYearsAreComparedInEuros) {
  const auto window = comparison(u"/daten/Verbrauch2024.kwd"_s);
  window->Option1(2)->click();
  window->mnuWerteBrutto->trigger();
  EXPECT_NEAR(*modelOf(*window).series[1].values[0], 237 * 10.483 * 8.95 / 100 * 1.19, 1e-4);
  EXPECT_EQ(modelOf(*window).unit, "Euro");
}

TEST_F(ChartUse, TheComparisonGoesOnWithTheMeterThatItWasOpenedFrom) {
  prompts_.answerPath(u"/daten/Verbrauch2024.kwd"_s);
  frmDiagrVergleich window(services_, *year_);
  window.goOnWith(yearbook::Utility::Gas);
  EXPECT_EQ(modelOf(window).title, "Verbrauch Strom");
  window.show();
  QTest::qWait(1);
  EXPECT_EQ(modelOf(window).title, "Verbrauch Gas");
  EXPECT_EQ(modelOf(window).series.size(), 2U);
  EXPECT_TRUE(window.Option1(2)->isChecked());
}

TEST_F(ChartUse, APictureIsSavedUnderTheChartsTitleUnlessAnotherNameIsGiven) {
  const auto window = monthly("gas");
  prompts_.answerPath({});
  window->mnuSavePng->trigger();
  EXPECT_EQ(prompts_.last().preset, u"/daten/Verbrauch Gas"_s);
}

TEST_F(ChartUse, ColoursGoBackToTheStandard) {
  const auto window = monthly();
  const charts::Color usual = window->Chart2D1->shownScene().background;
  prompts_.answerColor(0x204060);
  window->mnuAussen->trigger();
  prompts_.answerColor(0x00ff00);
  window->mnuInnen->trigger();
  EXPECT_EQ(window->Chart2D1->options().inner, charts::Color::rgb(0x00ff00));
  EXPECT_EQ(window->Chart2D1->shownScene().background, charts::Color::rgb(0x604020));
  window->mnuStandardfarben->trigger();
  EXPECT_EQ(window->Chart2D1->shownScene().background, usual);
  EXPECT_FALSE(window->Chart2D1->options().inner);
}

TEST_F(ChartUse, PointingAtAValueTellsIt) {
  const auto window = monthly();
  window->show();
  QTest::mouseClick(window->lblChartType(1), Qt::LeftButton);
  QTest::mouseMove(window->Chart2D1, middleOf(*window, 0, 1));
  EXPECT_EQ(QToolTip::text(), u"Februar: 255 kWh (8,5 % des Jahres)"_s);
  const QImage chosen = window->Chart2D1->grab().toImage();
  QTest::mouseMove(window->Chart2D1, {3, 3});
  EXPECT_NE(window->Chart2D1->grab().toImage(), chosen) << "the value has an outline meanwhile";
}

TEST_F(ChartUse, ArrowKeysGoFromValueToValueAndStopAtTheEnds) {
  const auto window = monthly("ww");
  window->show();
  window->activateWindow();
  window->Chart2D1->setFocus();
  const auto said = [&](Qt::Key key) {
    QTest::keyClick(window->Chart2D1, key);
    return window->Chart2D1->accessibleName();
  };
  EXPECT_EQ(said(Qt::Key_Left), u"Wasser, Januar: 10 m³ (8,4 % des Jahres)"_s);
  EXPECT_EQ(said(Qt::Key_Left), u"Wasser, Januar: 10 m³ (8,4 % des Jahres)"_s);
  EXPECT_EQ(said(Qt::Key_Down), u"Abwasser, Januar: 10 m³ (8,4 % des Jahres)"_s);
  for (int month = 0; month < 14; ++month) QTest::keyClick(window->Chart2D1, Qt::Key_Right);
  EXPECT_TRUE(window->Chart2D1->accessibleName().contains(u"Dezember"_s));
}

// A picture for paper or another program is light, whatever the screen is.
TEST_F(ChartUse, PicturesAreLightInADarkWindow) {
  const auto window = monthly();
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(36, 36, 36));
  dark.setColor(QPalette::Text, QColor(240, 240, 240));
  const charts::Color light = window->Chart2D1->shownScene().background;
  window->Chart2D1->setPalette(dark);
  EXPECT_LT(luminance(window->Chart2D1->shownScene().background), 0.1);
  EXPECT_EQ(window->Chart2D1->picture().background, light);
  prompts_.answerPath(u"/daten/bild.bmp"_s);
  window->mnuSaveBmp->trigger();
  const QImage saved = QImage::fromData(QByteArray::fromStdString(stored("bild.bmp")), "BMP");
  EXPECT_GT(saved.pixelColor(0, 0).lightness(), 200);
}

// A picture that is there already stays whole when the disk fails at any call.
TEST_F(ChartUse, APictureIsReplacedWholeOrStaysAsItWas) {
  support::FailingFileSystem failing(files_);
  const dialogs::Services services{paths_, failing, clock_, prompts_, shell_, navigator_};
  frmDiagramm window(services, *year_, u"strom"_s);
  put("alt.bmp", "das alte Bild");
  for (std::size_t call = 0;; ++call) {
    failing.arm({call, true});
    prompts_.answerPath(u"/daten/alt.bmp"_s);
    window.mnuSaveBmp->trigger();
    const bool struck = failing.struck();
    failing.disarm();
    const std::string now = stored("alt.bmp");
    EXPECT_TRUE(now == "das alte Bild" || now.substr(0, 2) == "BM") << "at call " << call;
    if (!struck) {
      EXPECT_EQ(now.substr(0, 2), "BM");
      break;
    }
    ASSERT_LT(call, 50U);
    put("alt.bmp", "das alte Bild");
  }
  EXPECT_FALSE(window.isVisible());
  for (const auto& shown : prompts_.shown) EXPECT_EQ(shown.kind, u"saveFile"_s) << "no box";
}

// Those that the program has beyond the fixed ones say so.
TEST_F(ChartUse, APngOrSvgThatCannotBeWrittenIsTold) {
  const auto window = monthly();
  for (QAction* entry : {window->mnuSavePng, window->mnuSaveSvg}) {
    prompts_.acceptTellings();
    prompts_.answerPath(u"/gibtesnicht/bild"_s);
    entry->trigger();
    const FakePrompts::Shown box = prompts_.take();
    EXPECT_EQ(box.icon, dialogs::Icon::Warning);
    EXPECT_TRUE(box.text.contains(u"/gibtesnicht/bild"_s)) << box.text.toStdString();
  }
}

TEST_F(ChartUse, PrintingToAFileThatNobodyNamedPrintsNothing) {
  const auto window = monthly();
  window->show();
  QPrinter nameless;
  nameless.setOutputFormat(QPrinter::PdfFormat);
  for (const auto format : {charts::PictureFormat::Bitmap, charts::PictureFormat::EnhancedMetafile})
    EXPECT_FALSE(printChart(*window->Chart2D1, nameless, charts::PrintFit::Page, format));
  int asked = 0;
  const support::TemporaryFolder folder;
  window->setPrinterSource([&] {
    ++asked;
    auto printer = std::make_unique<QPrinter>();
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(QString::fromStdString(folder / "fehlt/druck.pdf"));
    return printer;
  });
  window->mnuDruckMax->trigger();
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(prompts_.shown.empty());
  EXPECT_TRUE(window->isVisible());
}

TEST_F(ChartUse, FramesKeepTogetherInATallWindow) {
  const auto window = monthly();
  window->show();
  window->resize(1100, 700);
  const int usual = window->frOptionen->height();
  window->resize(1100, 1600);
  QTest::qWait(1);
  EXPECT_LE(window->frOptionen->height(), usual + 20);
}

TEST_F(ChartUse, TheSizeStandsBesideTheMenusAndIsNoneOfThem) {
  const auto window = monthly();
  window->show();
  window->resize(1100, 700);
  QTest::qWait(1);
  EXPECT_EQ(window->lblDimensions->text().trimmed(), window->mnuDimensions->text().trimmed());
  EXPECT_TRUE(window->lblDimensions->text().startsWith(u"Abmessungen"_s));
  EXPECT_FALSE(window->menuBar->actions().contains(window->mnuDimensions));
  window->resize(700, 700);
  QTest::qWait(1);
  EXPECT_TRUE(window->lblDimensions->isVisible());
  EXPECT_TRUE(window->rect().contains(
      window->lblDimensions->geometry().translated(window->menuBar->pos())));
  EXPECT_TRUE(window->lblDimensions->text().trimmed().endsWith(u" Pixel"_s));
  EXPECT_EQ(window->lblDimensions->toolTip(), window->mnuDimensions->text().trimmed());
  window->resize(830, 700);
  QTest::qWait(1);
  for (QAction* entry : window->menuBar->actions())
    EXPECT_LE(window->menuBar->actionGeometry(entry).right(), window->lblDimensions->x())
        << entry->text().toStdString() << " has its place before the size has";
}

TEST_F(ChartUse, EnterPressesAButtonOrGoesOnAndEscapeCloses) {
  auto window = monthly();
  window->show();
  window->chkTextOnOff->setFocus();
  QTest::keyClick(window->chkTextOnOff, Qt::Key_Return);
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(window->chkTextOnOff->isChecked());
  QTest::mouseClick(window->lblChartType(3), Qt::LeftButton);
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(stored("DiagrEinst.txt"), "3,0,0\r\n");
  window = monthly();
  window->show();
  window->picBeenden->setFocus();
  QTest::keyClick(window->picBeenden, Qt::Key_Enter);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(ChartUse, EveryComparisonSetsBothYearsSideBySide) {
  const auto window = comparison(u"/daten/Verbrauch2024.kwd"_s);
  const struct {
    const char *name, *title, *unit;
    double here, there;
  } rows[] = {{"Strom", "Verbrauch Strom", "kWh", 291, 299},
              {"Gas", "Verbrauch Gas", "m³", 240, 237},
              {"Wasser", "Verbrauch Wasser", "m³", 10, 10},
              {"Abwasser", "Verbrauch Abwasser", "m³", 10, 10},
              {"Strom", "Verbrauch Nachtstrom", "kWh", 180, 183}};
  for (int index = 1; index <= 5; ++index) {
    const auto& row = rows[index - 1];
    window->Option1(index)->click();
    EXPECT_EQ(modelOf(*window).title, row.title);
    EXPECT_EQ(modelOf(*window).unit, row.unit);
    EXPECT_EQ(modelOf(*window).series[0].name, std::string(row.name) + " / Verbrauch2025");
    EXPECT_EQ(modelOf(*window).series[1].name, std::string(row.name) + " / Verbrauch2024");
    EXPECT_EQ(modelOf(*window).series[0].values[0], row.here);
    EXPECT_EQ(modelOf(*window).series[1].values[0], row.there);
  }
}

// The real source, over files that are none: a text, half a year, nothing at all, one that another
// program has open.
TEST_F(ChartUse, AYearThatCannotBeReadLeavesItsSeriesEmptyAndTheWindowAtWork) {
  put("Text.kwd", "kein Jahr");
  const base::Bytes& whole = support::emptyYear();
  files_.put("/daten/Halb.kwd", base::ByteSpan(whole).first(whole.size() / 2));
  files_.put("/daten/Offen.kwd", whole);
  auto other = files_.open("/daten/Offen.kwd", base::OpenMode::ReadWrite);
  ASSERT_TRUE(other);
  const auto before = files_.contents();
  prompts_.answerPath({});
  frmDiagrVergleich window(services_, *year_);
  window.show();
  QTest::qWait(1);
  for (const char* name : {"Text", "Halb", "Fehlt", "Offen"}) {
    prompts_.answerPath(u"/daten/%1.kwd"_s.arg(QString::fromLatin1(name)));
    window.cmdAnderesJahr->click();
    ASSERT_EQ(modelOf(window).series.size(), 2u);
    EXPECT_EQ(modelOf(window).series[1].name, std::string("Strom / ") + name);
    for (const auto& value : modelOf(window).series[1].values) EXPECT_FALSE(value) << name;
    EXPECT_EQ(modelOf(window).series[0].values[0], 291) << name;
  }
  EXPECT_EQ(files_.contents(), before);
  for (const auto& shown : prompts_.shown) EXPECT_EQ(shown.kind, u"openFile"_s) << "no box";
  window.Option1(2)->click();
  EXPECT_EQ(modelOf(window).title, "Verbrauch Gas");
}

}  // namespace
