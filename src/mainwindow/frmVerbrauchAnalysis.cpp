#include "analysis/ui/AnalysisMenu.h"
#include "analysis/ui/frmAlleJahre.h"
#include "analysis/ui/frmPrognose.h"
#include "analysis/ui/frmTarife.h"
#include "mainwindow/frmVerbrauch.h"

// The windows that look at several years.

using namespace Qt::Literals::StringLiterals;

void frmVerbrauch::buildAnalysisMenu() {
  analysis::buildMenu(mnuAuswertung, mnuAlleJahre, mnuPrognose, mnuTarife);
  mnuDiagrammAlle->setText(u"Alle Zähler im &Jahr..."_s);
  mnuAuswertung->addSeparator()->setObjectName(u"sepDiagrammAlle"_s);
  mnuAuswertung->addAction(mnuDiagrammAlle);
  // What is being typed counts, and what is asked first is answered first.
  connect(mnuAlleJahre, &QAction::triggered, this, [this] {
    if (!finishEntry()) return;
    frmAlleJahre(services_, session_.get(), this).exec();
    reactivate();
  });
  connect(mnuPrognose, &QAction::triggered, this, [this] {
    if (!finishEntry()) return;
    frmPrognose(services_, analysis::yearOf(*session_), session_.get(), this).exec();
    reactivate();
  });
  connect(mnuTarife, &QAction::triggered, this, [this] {
    if (!finishEntry()) return;
    frmTarife(services_, analysis::yearOf(*session_), session_.get(), this).exec();
    reactivate();
  });
  connect(mnuDiagrammAlle, &QAction::triggered, this, [this] { showChart(u"alle"_s); });
}
