#include "charts/ui/frmDiagrVergleich.h"
#include "charts/ui/frmDiagramm.h"
#include "mainwindow/frmVerbrauch.h"
#include "projection/ui/frmHochrechnung.h"
#include "readings/ui/frmEingabeVerbrauch.h"
#include "readings/ui/frmEingabeVerbrauchAbW.h"
#include "readings/ui/frmEingabeVerbrauchNS.h"
#include "readings/ui/frmEingabeVerbrauchS.h"
#include "readings/ui/frmEingabeVerbrauchW.h"
#include "readings/ui/frmGrdGebMo.h"
#include "readings/ui/frmGrdGebMoAW.h"
#include "readings/ui/frmGrdGebMoG.h"
#include "readings/ui/frmGrdGebMoW.h"
#include "readings/ui/frmPreisJeKubikAbW.h"
#include "readings/ui/frmPreisJeKubikG.h"
#include "readings/ui/frmPreisJeKubikW.h"
#include "readings/ui/frmPreisJeKws.h"
#include "readings/ui/frmPreisJeKwsN.h"

// The windows that are opened from the main window, and what follows when they close.

using namespace Qt::Literals::StringLiterals;

// Opens the window on the year.
template <class Window>
void frmVerbrauch::opens(QPushButton* button) {
  connect(button, &QPushButton::clicked, this, [this] {
    Window window(services_, *session_, this);
    window.exec();
    reactivate();
  });
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
