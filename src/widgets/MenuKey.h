#pragma once

class QMainWindow;

namespace widgets {

// F10 goes to the window's menus, as everywhere; Alt with a letter opens one at once.
void addMenuKey(QMainWindow& window);

}  // namespace widgets
