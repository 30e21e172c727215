#include "analysis/ui/AnalysisMenu.h"

#include <QAction>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace analysis {

void buildMenu(QMenu* menu, QAction* allYears, QAction* forecast, QAction* tariffs) {
  menu->setTitle(u"Aus&wertung"_s);
  allYears->setText(u"&Alle Jahre..."_s);
  forecast->setText(u"&Prognose..."_s);
  tariffs->setText(u"&Tarife vergleichen..."_s);
  menu->addActions({allYears, forecast, tariffs});
}

}  // namespace analysis
