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
using yearbook::Utility;

// Opens the window on the year; when it has closed, what it wrote about the utility is read again.
template <class Window>
void frmVerbrauch::opens(QPushButton* button, Utility utility) {
  connect(button, &QPushButton::clicked, this, [this, utility] {
    Window window(services_, *session_, this);
    window.exec();
    rowsChanged(utility);
    reactivate();
  });
}

void frmVerbrauch::rowsChanged(Utility utility) {
  editor_->run([&]() -> base::Result<void> {
    if (auto read = session_->reload(utility); !read) return read;
    return session_->copyToChartTable();
  });
}

void frmVerbrauch::connectEntryWindows() {
  opens<frmEingabeVerbrauchS>(Frame1->cmdEingabeVerbrauchS, Utility::Electricity);
  opens<frmEingabeVerbrauchNS>(Frame1->cmdEingabeVerbrauchNS, Utility::Electricity);
  opens<frmEingabeVerbrauchW>(Frame2->cmdEingabeVerbrauchW, Utility::Water);
  opens<frmEingabeVerbrauchAbW>(Frame2->cmdEingabeVerbrauchAbW, Utility::Water);
  opens<frmEingabeVerbrauch>(Frame3->cmdEingabeVerbrauchG, Utility::Gas);
  opens<frmPreisJeKws>(Frame1->cmdPreisJeEinheitS, Utility::Electricity);
  opens<frmPreisJeKwsN>(Frame1->cmdPreisJeEinheitSN, Utility::Electricity);
  opens<frmPreisJeKubikW>(Frame2->cmdPreisJeEinheitW, Utility::Water);
  opens<frmPreisJeKubikAbW>(Frame2->cmdPreisJeEinheitAbW, Utility::Water);
  opens<frmPreisJeKubikG>(Frame3->cmdPreisJeEinheitG, Utility::Gas);
  opens<frmGrdGebMo>(Frame1->cmdMonatlStrom, Utility::Electricity);
  opens<frmGrdGebMoW>(Frame2->cmdWMonatl, Utility::Water);
  opens<frmGrdGebMoAW>(Frame2->cmdWWMonatl, Utility::Water);
  opens<frmGrdGebMoG>(Frame3->cmdMonatlGas, Utility::Gas);
}

void frmVerbrauch::showProjection() {
  frmHochrechnung(services_, projection::projectionSource(*session_), this).exec();
  reactivate();
}

void frmVerbrauch::connectCharts() {
  const std::pair<QPushButton*, QString> modes[] = {
      {Frame1->cmdDiagrammStrom, u"strom"_s},   {Frame1->cmdDiagrammNachtstrom, u"nachtstrom"_s},
      {Frame2->cmdDiagrammWasser, u"wasser"_s}, {Frame2->cmdDiagrammAbwasser, u"abwasser"_s},
      {Frame2->cmdDiagrammWW, u"ww"_s},         {Frame3->cmdDiagrammGas, u"gas"_s}};
  for (const auto& [button, mode] : modes)
    connect(button, &QPushButton::clicked, this, [this, mode = mode] { showChart(mode); });
  for (QPushButton* button :
       {Frame1->cmdDiagrVergleich, Frame2->cmdDiagrVergleichW, Frame3->cmdDiagrVergleichG})
    connect(button, &QPushButton::clicked, this, &frmVerbrauch::showComparison);
}

void frmVerbrauch::showChart(const QString& mode) {
  if (!editor_->run([this] { return session_->copyToChartTable(); })) return;
  frmDiagramm(
      services_, [this] { return charts::readChartTable(*session_); }, mode, this)
      .exec();
  reactivate();
}

void frmVerbrauch::showComparison() {
  if (!editor_->run([this] { return session_->copyToChartTable(); })) return;
  charts::FileComparisonSource other(services_.files);
  frmDiagrVergleich(
      services_, [this] { return charts::readYear(session_->database()); }, other, this)
      .exec();
  reactivate();
}
