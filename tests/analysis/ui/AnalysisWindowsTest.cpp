#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "analysis/ui/frmAlleJahre.h"
#include "analysis/ui/frmAngebot.h"
#include "analysis/ui/frmPrognose.h"
#include "analysis/ui/frmTarife.h"
#include "support/EmptyYear.h"
#include "support/SampleYears.h"
#include "support/ui/FakeNavigator.h"
#include "support/ui/FakePrompts.h"

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

class AnalysisWindows : public testing::Test {
 protected:
  AnalysisWindows() : session_(sample::openYear(disk_, "Verbrauch2025.kwd")) {
    paths_.DataFolder = "/daten/";
  }
  template <class Window>
  std::unique_ptr<Window> ofTheYear() {
    return std::make_unique<Window>(services_, analysis::yearOf(*session_), session_.get(),
                                    nullptr);
  }
  std::unique_ptr<frmAlleJahre> allYears() {
    return std::make_unique<frmAlleJahre>(services_, session_.get(), nullptr);
  }
  void click(QWidget* window, const char* name) {
    auto* button = window->findChild<QAbstractButton*>(QString::fromLatin1(name));
    ASSERT_NE(button, nullptr) << name;
    button->click();
  }
  std::string file(const std::string& name) { return std::string(base::asText(disk_.get(name))); }
  // Answers the offer's window, which is modal.
  void whenOfferOpens(const std::function<void(frmAngebot&)>& answer) {
    QTimer::singleShot(0, [answer] {
      auto* window = qobject_cast<frmAngebot*>(QApplication::activeModalWidget());
      ASSERT_NE(window, nullptr);
      answer(*window);
    });
  }
  static std::vector<std::string> texts(const charts::Scene& scene) {
    std::vector<std::string> texts;
    for (const auto& item : scene.items)
      if (const auto* text = std::get_if<charts::Text>(&item)) texts.push_back(text->text);
    return texts;
  }

  support::MemoryFileSystem disk_;
  std::unique_ptr<yearbook::YearSession> session_;
  base::PathState paths_;
  base::FixedClock clock_{std::chrono::year(2026) / 11 / 14};
  FakePrompts prompts_;
  FakeShell shell_;
  FakeNavigator navigator_;
  dialogs::Services services_{paths_, disk_, clock_, prompts_, shell_, navigator_};
};

}  // namespace

TEST_F(AnalysisWindows, AllYearsShowEveryYearWithItsMeters) {
  disk_.put("/daten/Kaputt.kwd", base::Bytes(50, 1));
  const auto window = allYears();
  ASSERT_EQ(window->lstJahre->topLevelItemCount(), 2);
  const QTreeWidgetItem* latest = window->lstJahre->topLevelItem(0);
  EXPECT_TRUE(latest->text(0).startsWith(u"2025"_s));
  EXPECT_EQ(latest->text(10), u"105,37"_s);
  ASSERT_EQ(latest->childCount(), 5);
  EXPECT_EQ(latest->child(4)->text(0), u"Gas"_s);
  EXPECT_EQ(latest->child(4)->text(3), u"+4,3 %"_s);
  EXPECT_EQ(window->lblJahre->text(), u"2 Jahre, dazu 1 leeres (Verbrauch.kwd)"_s);
  EXPECT_TRUE(window->lblFehlt->text().startsWith(u"Kaputt.kwd fehlt: "_s));
}

TEST_F(AnalysisWindows, AllYearsOfOneMeterAreSortedByAnyColumn) {
  const auto window = allYears();
  click(window.get(), "optZaehler_5");
  ASSERT_EQ(window->lstJahre->topLevelItemCount(), 2);
  const auto first = [&] { return window->lstJahre->topLevelItem(0)->text(1); };
  EXPECT_EQ(first(), u"1.408"_s);  // the latest year
  window->lstJahre->sortByColumn(1, Qt::AscendingOrder);
  EXPECT_EQ(first(), u"1.350"_s);
  window->lstJahre->sortByColumn(10, Qt::DescendingOrder);
  EXPECT_EQ(first(), u"1.350"_s);  // 117,14 is more than 107,66
}

TEST_F(AnalysisWindows, HeadsTakeTwoLinesWhereTheTableIsNarrow) {
  const auto window = allYears();
  const QTreeWidgetItem& heads = *window->lstJahre->headerItem();
  const auto widthAt = [&](int width) {
    window->resize(width, 500);
    QCoreApplication::processEvents();
    return window->lstJahre->header()->length();
  };
  window->show();
  const int whole = widthAt(1400);
  EXPECT_EQ(heads.text(7), u"Brutto je Einheit"_s);
  // What is left goes between the columns, and not between a number and its unit.
  EXPECT_GT(whole, widthAt(1200));
  const int unit = window->lstJahre->columnWidth(8);
  const int folded = widthAt(900);
  EXPECT_EQ(heads.text(7), u"Brutto je\nEinheit"_s);
  EXPECT_EQ(heads.text(1), u"Verbrauch"_s);
  EXPECT_LT(folded, 900);
  EXPECT_EQ(window->lstJahre->columnWidth(8), unit);
  EXPECT_EQ(widthAt(1400), whole);
  EXPECT_EQ(heads.text(7), u"Brutto je Einheit"_s);
}

TEST_F(AnalysisWindows, ChartsFollowTheChosenRow) {
  const auto window = allYears();
  window->lstJahre->setCurrentItem(window->lstJahre->topLevelItem(0)->child(4));
  const auto shown = texts(window->picJahre->sceneFor({400, 300}));
  EXPECT_THAT(shown, testing::Contains("Gas je Jahr"));
  EXPECT_THAT(shown, testing::Contains("1.408"));
  EXPECT_THAT(texts(window->picPreise->sceneFor({400, 300})), testing::Contains("12,23"));
  EXPECT_THAT(texts(window->picMonate->sceneFor({700, 300})), testing::Contains("2024"));
  window->lstJahre->setCurrentItem(window->lstJahre->topLevelItem(0));
  EXPECT_THAT(texts(window->picJahre->sceneFor({400, 300})), testing::Contains("4.233"));
}

TEST_F(AnalysisWindows, TablesAreCopiedAndSaved) {
  const auto window = allYears();
  window->cmdKopieren->click();
  EXPECT_TRUE(QApplication::clipboard()->text().contains(u"Strom, Tag\t2.993"_s));
  const std::pair<QPushButton*, const char*> kinds[] = {{window->cmdCsv, "/daten/z.csv"},
                                                        {window->cmdHtml, "/daten/z.html"},
                                                        {window->cmdPdf, "/daten/z.pdf"}};
  for (const auto& [button, path] : kinds) {
    prompts_.answerPath(QString::fromLatin1(path));
    button->click();
  }
  EXPECT_THAT(file("/daten/z.csv"), HasSubstr("2025;Verbrauch2025.kwd;Gas;12;1408;"));
  EXPECT_THAT(file("/daten/z.html"), HasSubstr("1.408"));
  EXPECT_THAT(file("/daten/z.pdf"), testing::StartsWith("%PDF"));
  prompts_.acceptTellings();
  disk_.protect("/daten/z.csv");
  prompts_.answerPath(u"/daten/z.csv"_s);
  window->cmdCsv->click();
  EXPECT_EQ(prompts_.last().kind, u"message"_s);
}

TEST_F(AnalysisWindows, TheForecastShowsCardsTableAndMonths) {
  const auto window = ofTheYear<frmPrognose>();
  EXPECT_EQ(window->lblErgebnis->text(),
            u"Voraussichtlich 105 Euro Nachzahlung für das ganze Jahr"_s);
  EXPECT_EQ(window->windowTitle(), u"Prognose – Verbrauch2025, Stand Ende Dezember"_s);
  const auto* card = window->findChild<QWidget*>(u"fraKarteWasser"_s);
  ASSERT_NE(card, nullptr);
  EXPECT_TRUE(card->accessibleName().contains(u"Guthaben 28 Euro"_s));
  EXPECT_EQ(window->lstZaehler->topLevelItemCount(), 6);
  EXPECT_THAT(texts(window->picMonate->sceneFor({600, 300})), testing::Contains("Gas"));
}

TEST_F(AnalysisWindows, TheCardsBeginOnOneLineHoweverManyTheyHave) {
  const auto window = ofTheYear<frmPrognose>();
  window->resize(1160, 600);
  window->show();
  QCoreApplication::processEvents();
  const auto lineOf = [&](const char* card, int line) {
    return window->findChild<QFrame*>(QLatin1String(card))->findChildren<QLabel*>().at(line)->y();
  };
  for (const char* card : {"fraKarteWasser", "fraKarteGas"})
    for (const int line : {0, 1}) EXPECT_EQ(lineOf(card, line), lineOf("fraKarteStrom", line));
}

TEST_F(AnalysisWindows, OffersAreEnteredChangedAndDeletedForGood) {
  const auto window = ofTheYear<frmTarife>();
  click(window.get(), "optEnergie_1");
  EXPECT_EQ(window->txtVerbrauch->text(), u"14.816"_s);
  EXPECT_FALSE(window->cmdAendern->isEnabled());
  whenOfferOpens([](frmAngebot& offer) {
    offer.cmdUebernehmen->click();
    EXPECT_EQ(offer.lblFehler->text(), u"✕ Der Name fehlt."_s);
    offer.txtName->setText(u"Festpreis"_s);
    offer.txtPreis->setValue(10.49);
    offer.txtGrundgebuehr->setValue(178.8);
    offer.txtGarantie->setText(u"31.02.2026"_s);
    offer.cmdUebernehmen->click();
    EXPECT_TRUE(offer.isVisible());
    offer.txtGarantie->setText(u"31.12.2026"_s);
    offer.cmdUebernehmen->click();
    EXPECT_FALSE(offer.isVisible());
  });
  window->cmdNeu->click();
  ASSERT_EQ(window->lstAngebote->topLevelItemCount(), 2);
  EXPECT_EQ(window->lstAngebote->topLevelItem(1)->text(6), u"-57,81"_s);
  EXPECT_THAT(file("/daten/Tarife.dat"), HasSubstr("\"Gas\",\"Festpreis\",10.49,-1,#FALSE#,178.8"));

  window->lstAngebote->setCurrentItem(window->lstAngebote->topLevelItem(1));
  whenOfferOpens([](frmAngebot& offer) {
    EXPECT_EQ(offer.txtName->text(), u"Festpreis"_s);
    offer.cboGebuehr->setCurrentIndex(1);
    offer.txtGrundgebuehr->setValue(10);
    offer.cmdUebernehmen->click();
  });
  window->cmdAendern->click();
  EXPECT_EQ(window->lstAngebote->topLevelItem(1)->text(2), u"120,00"_s);
  prompts_.answer(dialogs::Button::No);
  window->cmdLoeschen->click();
  EXPECT_EQ(window->lstAngebote->topLevelItemCount(), 2);
  prompts_.answer(dialogs::Button::Yes);
  window->cmdLoeschen->click();
  EXPECT_EQ(window->lstAngebote->topLevelItemCount(), 1);
  EXPECT_EQ(file("/daten/Tarife.dat"), "");
}

TEST_F(AnalysisWindows, OffersThatCannotBeStoredAreToldAndNotShown) {
  const auto window = ofTheYear<frmTarife>();
  disk_.protectFolder("/daten/");
  prompts_.acceptTellings();
  whenOfferOpens([](frmAngebot& offer) {
    offer.txtName->setText(u"Neu"_s);
    offer.txtPreis->setValue(30);
    offer.cmdUebernehmen->click();
  });
  window->cmdNeu->click();
  EXPECT_TRUE(prompts_.last().text.startsWith(u"Die Änderung konnte nicht"_s));
  EXPECT_EQ(window->lstAngebote->topLevelItemCount(), 1);
}

TEST_F(AnalysisWindows, TariffsCompareForATypedConsumption) {
  const auto window = ofTheYear<frmTarife>();
  click(window.get(), "optEnergie_1");
  EXPECT_TRUE(window->txtVerbrauch->isReadOnly());
  window->cboVerbrauch->setCurrentIndex(2);
  Q_EMIT window->cboVerbrauch->activated(2);
  window->txtVerbrauch->clear();
  QTest::keyClicks(window->txtVerbrauch, u"10.000"_s);
  // 10.000 kWh at 11,0075 ct and 159,936 euro.
  EXPECT_EQ(window->lstAngebote->topLevelItem(0)->text(5), u"1.260,69"_s);
}

TEST_F(AnalysisWindows, AFolderWithoutYearsIsNoError) {
  paths_.DataFolder = "/leer/";
  disk_.put("/leer/Neu.kwd", support::emptyYear());
  const frmAlleJahre window(services_, nullptr, nullptr);
  EXPECT_EQ(window.lstJahre->topLevelItemCount(), 0);
  EXPECT_EQ(window.lblJahre->text(), u"0 Jahre, dazu 1 leeres (Neu.kwd)"_s);
  const auto year = analysis::readYear(disk_, "/leer/Neu.kwd", false);
  ASSERT_TRUE(year);
  const frmPrognose forecast(services_, *year, nullptr, nullptr);
  EXPECT_EQ(forecast.lblErgebnis->text(), u"Noch keine Ablesung und kein früheres Jahr"_s);
}

// Every control says what it is to those who do not see it.
TEST_F(AnalysisWindows, EveryControlHasANameThatIsSpoken) {
  const auto years = allYears();
  const auto forecast = ofTheYear<frmPrognose>();
  const auto tariffs = ofTheYear<frmTarife>();
  for (const QWidget* window :
       std::initializer_list<const QWidget*>{years.get(), forecast.get(), tariffs.get()})
    for (const QWidget* control : window->findChildren<QWidget*>()) {
      if (control->focusPolicy() == Qt::NoFocus || control->objectName().startsWith(u"qt_"_s))
        continue;
      // Labels speak their text; what has no name is a part of another control.
      if (control->inherits("QLabel") || control->inherits("QHeaderView")) continue;
      if (control->objectName().isEmpty() || !control->isEnabled()) continue;
      EXPECT_FALSE(control->accessibleName().isEmpty())
          << window->objectName().toStdString() << ": " << control->objectName().toStdString();
    }
}
