#pragma once

#include <QAction>
#include <QMenu>
#include <functional>

#include "dialogs/Navigator.h"

namespace dialogs {

// What the help menus of the start and the main window share.
struct HelpEntries {
  // window: which window or page one is in.
  HelpEntries(QWidget* owner, Navigator& navigator, std::function<QString()> window);
  void addTo(QMenu* menu) const;

  QAction* const mnuHandbuch;
  QAction* const mnuTastenkuerzel;
  QAction* const mnuBeispieljahr;
  QAction* const mnuUeber;
};

}  // namespace dialogs
