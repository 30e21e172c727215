#pragma once

#include <QSize>

class QWidget;

namespace dialogs {

// Title bar and frame, which no system tells before the window is there.
constexpr QSize kDecoration(16, 40);

// From now on the window, which has a name and has not been shown, opens where it was when it
// closed, as large as it was; the first time as large as it wants to be, but not beyond the free
// screen.
void keepPlace(QWidget& window);

}  // namespace dialogs
