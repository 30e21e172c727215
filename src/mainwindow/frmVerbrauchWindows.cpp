#include "analysis/Reminder.h"
#include "base/Paths.h"
#include "charts/ui/frmDiagrVergleich.h"
#include "charts/ui/frmDiagramm.h"
#include "dialogs/Prompts.h"
#include "mainwindow/frmVerbrauch.h"
#include "nextyear/YearBefore.h"
#include "nextyear/ui/frmFortfuehren.h"
#include "projection/ui/frmHochrechnung.h"
#include "readingbook/ui/frmAblesebuch.h"
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
#include "yearbook/UnreadMonths.h"

// The windows that are opened from the main window, and what follows when they close.

using namespace Qt::Literals::StringLiterals;

// Opens the window on the year.
template <class Window>
void frmVerbrauch::opens(QPushButton* button) {
  connect(button, &QPushButton::clicked, this, [this] {
    Window window(services_, *session_, this);
    window.exec();
    reactivate();
    if constexpr (std::is_base_of_v<readings::UnitPriceWindow, Window>)
      fraHinweis->say(mainwindow::NoticeFrom::NewPrice, window.notTaken());
  });
}

template <class Window>
void frmVerbrauch::opens(QAction* action) {
  connect(action, &QAction::triggered, this, [this] {
    if (!finishEntry()) return;
    Window window(services_, *session_, this);
    window.exec();
    reactivate();
  });
}

void frmVerbrauch::connectBookWindows() {
  opens<frmMonatErfassen>(mnuMonatErfassen);
  for (const yearbook::MonthTable* months : {Frame1->months, Frame2->months, Frame3->months})
    connect(months->recordMonth, &QPushButton::clicked, mnuMonatErfassen, &QAction::trigger);
  opens<frmAblesebuch>(mnuAblesebuch);
  connect(mnuFortfuehren, &QAction::triggered, this, &frmVerbrauch::showCarryOver);
  connect(fraErsteSchritte->cmdAusVorjahr, &QPushButton::clicked, mnuFortfuehren,
          &QAction::trigger);
  connect(fraErsteSchritte, &mainwindow::FirstStepsPanel::chosen, this, &frmVerbrauch::goToStep);
  connect(fraAblesen->cmdDorthin, &QPushButton::clicked, this, [this] { fraAblesen->follow(); });
}

// From the year whose name comes before this one's in the data folder.
void frmVerbrauch::showCarryOver() {
  if (!finishEntry()) return;
  const auto before = nextyear::yearBefore(*session_);
  if (!before) {
    services_.prompts.tell(this, u"Neben diesem Jahr liegt keines, das vor ihm endet."_s,
                           u"Aus dem Vorjahr übernehmen"_s, dialogs::Icon::Information);
    return;
  }
  if (!nextyear::isEmpty(*session_)) {
    services_.prompts.tell(
        this, u"In dieses Jahr ist schon etwas eingetragen; übernommen wird nur in ein leeres."_s,
        u"Aus dem Vorjahr übernehmen"_s, dialogs::Icon::Information);
    return;
  }
  auto plan = nextyear::planNextYear(session_->files(), *before, services_.clock);
  if (!plan) {
    services_.prompts.tell(this, QString::fromStdString(base::germanMessage(plan.error())),
                           u"Aus dem Vorjahr übernehmen"_s, dialogs::Icon::Warning);
    return;
  }
  frmFortfuehren(services_, *session_, std::move(*plan), this).exec();
  reactivate();
}

// The quiet bar: an empty year beside a filled one, months that have not been read yet, or a
// contract that ends.
void frmVerbrauch::followReadings() {
  if (session_->readOnlyReason()) return;
  const std::string unread = yearbook::unreadMonths(*session_);
  const auto before = unread.empty() && nextyear::isEmpty(*session_)
                          ? nextyear::yearBefore(*session_)
                          : std::nullopt;
  followFirstSteps(before);
  if (before)
    fraAblesen->offer(u"Dieses Jahr ist noch leer."_s,
                      u"Aus %1 übernehmen…"_s.arg(
                          QString::fromStdString(base::baseName(base::fileName(*before)))),
                      mnuFortfuehren);
  else if (!unread.empty())
    fraAblesen->offer(QString::fromStdString(unread), u"Monat erfassen…"_s, mnuMonatErfassen);
  else
    fraAblesen->offer(QString::fromStdString(analysis::endingContract(
                          session_->files(), session_->dataFolder(), session_->openedOn())),
                      u"Tarife vergleichen…"_s, mnuTarife);
}

void frmVerbrauch::connectEntryWindows() {
  opens<frmEingabeVerbrauchS>(Frame1->cmdEingabeVerbrauchS);
  opens<frmEingabeVerbrauchNS>(Frame1->cmdEingabeVerbrauchNS);
  opens<frmEingabeVerbrauchW>(Frame2->cmdEingabeVerbrauchW);
  opens<frmEingabeVerbrauchAbW>(Frame2->cmdEingabeVerbrauchAbW);
  opens<frmEingabeVerbrauch>(Frame3->cmdEingabeVerbrauchG);
  opens<frmPreisJeKws>(Frame1->cmdPreisJeEinheitS);
  opens<frmPreisJeKwsN>(Frame1->cmdPreisJeEinheitSN);
  opens<frmPreisJeKubikW>(Frame2->cmdPreisJeEinheitW);
  opens<frmPreisJeKubikAbW>(Frame2->cmdPreisJeEinheitAbW);
  opens<frmPreisJeKubikG>(Frame3->cmdPreisJeEinheitG);
  opens<frmGrdGebMo>(Frame1->cmdMonatlStrom);
  opens<frmGrdGebMoW>(Frame2->cmdWMonatl);
  opens<frmGrdGebMoAW>(Frame2->cmdWWMonatl);
  opens<frmGrdGebMoG>(Frame3->cmdMonatlGas);
}

void frmVerbrauch::showProjection() {
  frmHochrechnung(services_, *session_, this).exec();
  reactivate();
}

void frmVerbrauch::connectCharts() {
  const std::pair<QPushButton*, QString> modes[] = {
      {Frame1->cmdDiagrammStrom, u"strom"_s},   {Frame1->cmdDiagrammNachtstrom, u"nachtstrom"_s},
      {Frame2->cmdDiagrammWasser, u"wasser"_s}, {Frame2->cmdDiagrammAbwasser, u"abwasser"_s},
      {Frame2->cmdDiagrammWW, u"ww"_s},         {Frame3->cmdDiagrammGas, u"gas"_s}};
  for (const auto& [button, mode] : modes)
    connect(button, &QPushButton::clicked, this, [this, mode = mode] { showChart(mode); });
  const std::pair<QPushButton*, yearbook::Utility> comparisons[] = {
      {Frame1->cmdDiagrVergleich, yearbook::Utility::Electricity},
      {Frame2->cmdDiagrVergleichW, yearbook::Utility::Water},
      {Frame3->cmdDiagrVergleichG, yearbook::Utility::Gas}};
  for (const auto& [button, utility] : comparisons)
    connect(button, &QPushButton::clicked, this,
            [this, utility = utility] { showComparison(utility); });
}

void frmVerbrauch::showChart(const QString& mode) {
  if (!editor_->run([this] { return session_->bringUpToDate(); })) return;
  frmDiagramm(services_, *session_, mode, this).exec();
  reactivate();
}

void frmVerbrauch::showComparison(yearbook::Utility utility) {
  if (!editor_->run([this] { return session_->bringUpToDate(); })) return;
  frmDiagrVergleich window(services_, *session_, this);
  window.goOnWith(utility);
  window.exec();
  reactivate();
}
