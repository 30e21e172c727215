#include <QMenuBar>

#include "analysis/ui/AnalysisMenu.h"
#include "analysis/ui/frmAlleJahre.h"
#include "analysis/ui/frmPrognose.h"
#include "analysis/ui/frmTarife.h"
#include "app/ui/frmVerbrStart.h"
#include "dialogs/Prompts.h"
#include "yearbook/FlatRate.h"

// The windows that look at several years; forecast and tariffs are those of the selected file.

using namespace Qt::Literals::StringLiterals;

void frmVerbrStart::buildAnalysisMenu() {
  analysis::buildMenu(mnuAuswertung, mnuAlleJahre, mnuPrognose, mnuTarife);
  menuBar()->addMenu(mnuAuswertung);
  connect(mnuAlleJahre, &QAction::triggered, this, [this] {
    frmAlleJahre(services_, nullptr, this).exec();
    activate();
  });
  connect(mnuPrognose, &QAction::triggered, this, &frmVerbrStart::showAnalysis<frmPrognose>);
  connect(mnuTarife, &QAction::triggered, this, &frmVerbrStart::showAnalysis<frmTarife>);
}

template <class Window>
void frmVerbrStart::showAnalysis() {
  if (!hasSelection()) return;
  const std::string& folder = services_.paths.DataFolder;
  auto year = analysis::readYear(services_.files, folder + lblFilename->text().toStdString(),
                                 yearbook::readFlatRate(services_.files, folder));
  if (year)
    Window(services_, std::move(*year), nullptr, this).exec();
  else
    services_.prompts.tell(this, QString::fromStdString(base::germanMessage(year.error())),
                           u"Jahr öffnen"_s, dialogs::Icon::Warning);
  activate();
}
