#pragma once

class QAction;
class QMenu;

namespace analysis {

// The menu "Auswertung", which the start window and the main window have alike.
void buildMenu(QMenu* menu, QAction* allYears, QAction* forecast, QAction* tariffs);

}  // namespace analysis
