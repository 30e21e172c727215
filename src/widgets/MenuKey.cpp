#include "widgets/MenuKey.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QShortcut>

namespace widgets {

void addMenuKey(QMainWindow& window) {
  QMenuBar* bar = window.menuBar();
  const auto* key = new QShortcut(Qt::Key_F10, &window);
  // The focus stays where it is, so that leaving the menus comes back to it.
  QObject::connect(key, &QShortcut::activated, bar,
                   [bar] { bar->setActiveAction(bar->actions().value(0)); });
}

}  // namespace widgets
