#include "AllWindows.h"

#include <QApplication>

#include "analysis/ui/frmAlleJahre.h"
#include "analysis/ui/frmAngebot.h"
#include "analysis/ui/frmPrognose.h"
#include "analysis/ui/frmTarife.h"
#include "app/ui/frmNeuVerbrauch.h"
#include "app/ui/frmRuecksichern.h"
#include "app/ui/frmSichern.h"
#include "app/ui/frmUeber.h"
#include "charts/ui/frmDiagrVergleich.h"
#include "charts/ui/frmDiagramm.h"
#include "dialogs/frmBrutto.h"
#include "mainwindow/frmVerbrauch.h"
#include "manual/frmHandbuch.h"
#include "nextyear/YearBefore.h"
#include "nextyear/ui/frmFortfuehren.h"
#include "projection/ui/frmHochrechnung.h"
#include "readingbook/ui/frmAblesebuch.h"
#include "readingbook/ui/frmTabelleEinlesen.h"
#include "readings/ui/frmEingabeVerbrauch.h"
#include "readings/ui/frmEingabeVerbrauchAbW.h"
#include "readings/ui/frmEingabeVerbrauchNS.h"
#include "readings/ui/frmEingabeVerbrauchS.h"
#include "readings/ui/frmEingabeVerbrauchW.h"
#include "readings/ui/frmGrdGebMo.h"
#include "readings/ui/frmGrdGebMoAW.h"
#include "readings/ui/frmGrdGebMoG.h"
#include "readings/ui/frmGrdGebMoW.h"
#include "readings/ui/frmMonatErfassen.h"
#include "readings/ui/frmPreisJeKubikAbW.h"
#include "readings/ui/frmPreisJeKubikG.h"
#include "readings/ui/frmPreisJeKubikW.h"
#include "readings/ui/frmPreisJeKws.h"
#include "readings/ui/frmPreisJeKwsN.h"
#include "widgets/Tones.h"

using namespace Qt::Literals::StringLiterals;

namespace pictures {
namespace {

constexpr char kYear[] = "Verbrauch2025";

using Made = std::unique_ptr<QWidget>;

// A window that is opened on the finished year.
template <class Window>
Made onYear(Household& home) {
  return std::make_unique<Window>(home.services, home.open(kYear), nullptr);
}

// One in which something is entered, while the year is running.
template <class Window>
Made onRunningYear(Household& home) {
  home.forgetAfterOctober();
  return onYear<Window>(home);
}

template <class Window>
Made onAllYears(Household& home) {
  yearbook::YearSession& year = home.open(kYear);
  return std::make_unique<Window>(home.services, analysis::yearOf(year), &year, nullptr);
}

template <class Window>
Made ofFiles(Household& home) {
  return std::make_unique<Window>(home.services, nullptr);
}

Made start(Household& home) {
  return std::make_unique<frmVerbrStart>(home.services, home.facts, home.standstill);
}

Made allYears(Household& home) {
  return std::make_unique<frmAlleJahre>(home.services, &home.open(kYear), nullptr);
}

Made offer(Household& home) {
  analysis::Offer entered;
  entered.name = "Heimatstrom 12";
  entered.price = 33.49;
  entered.nightPrice = 28.9;
  return std::make_unique<frmAngebot>(entered, home.services, nullptr);
}

Made chart(Household& home) {
  return std::make_unique<frmDiagramm>(home.services, home.open(kYear), u"strom"_s);
}

Made comparison(Household& home) {
  home.prompts.file = QString::fromStdString(Household::folder()) + u"Verbrauch2024.kwd"_s;
  return std::make_unique<frmDiagrVergleich>(home.services, home.open(kYear));
}

Made gross(Household& home, std::optional<double> vat) {
  using dialogs::GrossFigure;
  const GrossFigure fee{u"Grundgebühr im Jahr, Strom"_s, u"Euro"_s, GrossFigure::Period::Year, vat};
  auto window = std::make_unique<frmBrutto>(home.services, fee, nullptr);
  window->optMonat->setChecked(true);
  window->txtBrutto->enterValue(16.07);
  return window;
}

Made table(Household& home) {
  home.prompts.file = QString::fromLatin1(Household::kHome) + u"Ablesungen.csv"_s;
  auto window =
      std::make_unique<frmTabelleEinlesen>(home.services, home.open("Verbrauch2026"), nullptr);
  window->chooseFile();
  return window;
}

Made carryOver(Household& home) {
  yearbook::YearSession& target = home.open("Verbrauch2026");
  auto plan = nextyear::planNextYear(home.disk, Household::folder() + kYear + ".kwd", home.clock);
  return std::make_unique<frmFortfuehren>(home.services, target, std::move(*plan), nullptr);
}

template <class Window>
Made help(Household&) {
  return std::make_unique<Window>();
}

// The file of a year at work in the main window.
Made mainWindow(Household& home, const char* year = kYear) {
  return std::make_unique<frmVerbrauch>(home.services, home.take(year));
}

frmVerbrauch& yearWindow(QWidget& window) {
  return static_cast<frmVerbrauch&>(window);
}

void typeOver(QLineEdit& field, const QString& text) {
  field.setFocus();
  field.selectAll();
  field.insert(text);
}

View page(const QString& name, int tab) {
  return {u"frmVerbrauch-"_s + name, [](Household& home) { return mainWindow(home); },
          [tab](QWidget& window) { yearWindow(window).TabStrip->setCurrentIndex(tab); }};
}

std::vector<View> mainWindowViews() {
  return {
      page(u"strom"_s, 0),
      page(u"wasser"_s, 1),
      page(u"gas"_s, 2),
      page(u"uebersicht"_s, 3),
      page(u"anmerkungen"_s, 4),
      page(u"drucken"_s, 5),
      {u"frmVerbrauch-gespeichert"_s, [](Household& home) { return mainWindow(home); },
       [](QWidget& window) {
         yearWindow(window).TabStrip->setCurrentIndex(5);
         reports::sayWhere(yearWindow(window).fraDrucke->lblAusgabe,
                           u"/home/familie/Hausverwaltung_und_Nebenkosten/Haushalt 2025.pdf"_s);
       }},
      {u"frmVerbrauch-leer"_s, [](Household& home) { return mainWindow(home, "Verbrauch2026"); }},
      {u"frmVerbrauch-november-fehlt"_s,
       [](Household& home) {
         home.forgetAfterOctober();
         return mainWindow(home);
       }},
      {u"frmVerbrauch-uebersicht-bis-oktober"_s,
       [](Household& home) {
         home.forgetAfterOctober();
         return mainWindow(home);
       },
       [](QWidget& window) { yearWindow(window).TabStrip->setCurrentIndex(3); }},
      {u"frmVerbrauch-pauschale"_s, [](Household& home) { return mainWindow(home); },
       [](QWidget& window) {
         yearWindow(window).mnuNachtstrom->trigger();
         yearWindow(window).mnuPauschale->trigger();
       }},
      {u"frmVerbrauch-zweifel"_s, [](Household& home) { return mainWindow(home); },
       [](QWidget& window) {
         auto& page = *yearWindow(window).Frame1;
         page.txtTPreis->enterValue(31945);
         page.txtMwStS->enterValue(std::nullopt);
         page.months->advance(2)->enterValue(-5);
       }},
      {u"frmVerbrauch-rueckgaengig"_s, [](Household& home) { return mainWindow(home); },
       [](QWidget& window) { yearWindow(window).Frame1->months->zeroAdvances->click(); }},
  };
}

std::vector<View> entryViews() {
  return {
      {u"frmEingabeVerbrauchS"_s, onYear<frmEingabeVerbrauchS>},
      {u"frmEingabeVerbrauchNS"_s, onYear<frmEingabeVerbrauchNS>},
      {u"frmEingabeVerbrauchW"_s, onRunningYear<frmEingabeVerbrauchW>},
      {u"frmEingabeVerbrauchAbW"_s, onRunningYear<frmEingabeVerbrauchAbW>},
      {u"frmEingabeVerbrauch"_s, onRunningYear<frmEingabeVerbrauch>},
      {u"frmPreisJeKws"_s, onYear<frmPreisJeKws>},
      {u"frmPreisJeKwsN"_s, onYear<frmPreisJeKwsN>},
      {u"frmPreisJeKubikW"_s, onYear<frmPreisJeKubikW>},
      {u"frmPreisJeKubikAbW"_s, onYear<frmPreisJeKubikAbW>},
      {u"frmPreisJeKubikG"_s, onYear<frmPreisJeKubikG>,
       [](QWidget& window) {
         auto& prices = static_cast<frmPreisJeKubikG&>(window);
         typeOver(*prices.newPrice, u"9,45"_s);
         for (const int month : {9, 10, 11}) prices.Check1(month)->click();
       }},
      {u"frmGrdGebMo"_s, onYear<frmGrdGebMo>},
      {u"frmGrdGebMoW"_s, onYear<frmGrdGebMoW>},
      {u"frmGrdGebMoAW"_s, onYear<frmGrdGebMoAW>},
      {u"frmGrdGebMoG"_s, onYear<frmGrdGebMoG>},
      {u"frmPreisJeKws-zweifel"_s, onYear<frmPreisJeKws>,
       [](QWidget& window) {
         auto& prices = static_cast<frmPreisJeKws&>(window);
         prices.cmdAb(4)->click();
         prices.newPrice->enterValue(31945);
       }},
      {u"frmGrdGebMo-zweifel"_s, onYear<frmGrdGebMo>,
       [](QWidget& window) { static_cast<frmGrdGebMo&>(window).txtVerbrauch(7)->enterValue(135); }},
      {u"frmBrutto"_s, [](Household& home) { return gross(home, 19); }},
      {u"frmBrutto-ohne-satz"_s, [](Household& home) { return gross(home, std::nullopt); }},
      {u"frmMonatErfassen"_s, onRunningYear<frmMonatErfassen>,
       [](QWidget& window) {
         const auto& sheet = static_cast<frmMonatErfassen&>(window);
         typeOver(*sheet.row(yearbook::Meter::Day)->txtStand, u"1201"_s);
         typeOver(*sheet.row(yearbook::Meter::Night)->txtStand, u"546"_s);
         typeOver(*sheet.row(yearbook::Meter::Water)->txtStand, u"553"_s);
         typeOver(*sheet.row(yearbook::Meter::Gas)->txtStand, u"11231"_s);
       }},
      {u"frmAblesebuch"_s, onRunningYear<frmAblesebuch>,
       [](QWidget& window) { static_cast<frmAblesebuch&>(window).optZaehler(4)->click(); }},
      {u"frmTabelleEinlesen"_s, table},
      {u"frmFortfuehren"_s, carryOver},
  };
}

std::vector<View> otherViews() {
  return {
      {u"frmVerbrStart"_s, start},
      {u"frmNeuVerbrauch"_s, ofFiles<frmNeuVerbrauch>},
      {u"frmSichern"_s, ofFiles<frmSichern>},
      {u"frmRuecksichern"_s, ofFiles<frmRuecksichern>,
       [](QWidget& window) {
         auto& restore = static_cast<frmRuecksichern&>(window);
         const QString folder = QString::fromLatin1(Household::kHome) + u"Sicherung/"_s;
         restore.Dir1->setPath(u"/"_s, folder);
         Q_EMIT restore.Dir1->chosen(folder);
         Q_EMIT restore.File3->chosen(u"Verbrauch2025.kwd"_s);
       }},
      {u"frmHochrechnung"_s, onRunningYear<frmHochrechnung>,
       [](QWidget& window) {
         auto& projection = static_cast<frmHochrechnung&>(window);
         typeOver(*projection.Text1, u"31.10.2025"_s);
         projection.Command12->click();
       }},
      {u"frmDiagramm"_s, chart},
      {u"frmDiagrVergleich"_s, comparison},
      {u"frmAlleJahre"_s, allYears},
      {u"frmPrognose"_s,
       [](Household& home) {
         home.forgetAfterOctober();
         return onAllYears<frmPrognose>(home);
       }},
      {u"frmTarife"_s, onAllYears<frmTarife>},
      {u"frmAngebot"_s, offer},
      {u"frmHilfe"_s, help<frmHilfe>},
      {u"frmHilfeZaehlerWechs"_s, help<frmHilfeZaehlerWechs>},
      {u"frmHandbuch"_s, help<frmHandbuch>,
       [](QWidget& window) {
         static_cast<frmHandbuch&>(window).showPlace(u"handbuch/preise.md"_s);
       }},
      {u"frmUeber"_s, ofFiles<frmUeber>},
  };
}

}  // namespace

const std::vector<View>& allViews() {
  static const std::vector<View> views = [] {
    std::vector<View> all = otherViews();
    for (const auto& more : {mainWindowViews(), entryViews()})
      all.insert(all.end(), more.begin(), more.end());
    return all;
  }();
  return views;
}

bool showIn(const QString& colors) {
  using widgets::Look;
  if (colors == u"light") widgets::showAs(Look::Light);
  if (colors == u"dark") widgets::showAs(Look::Dark);
  if (colors == u"contrast") {
    QPalette strong(Qt::white, Qt::black, Qt::white, Qt::black, Qt::white, Qt::white, Qt::black);
    strong.setColor(QPalette::Highlight, Qt::yellow);
    strong.setColor(QPalette::HighlightedText, Qt::black);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
      strong.setColor(QPalette::Disabled, role, QColor(0x3FF23F));
    QApplication::setPalette(strong);
  }
  return QStringList{u"light"_s, u"dark"_s, u"contrast"_s}.contains(colors);
}

void settle() {
  constexpr int kRounds = 5;
  for (int i = 0; i < kRounds; ++i) QCoreApplication::processEvents();
}

}  // namespace pictures
