#pragma once

class QWidget;

namespace dialogs {

// From now on the window, which has a name and has not been shown, opens where it was when it
// closed, as large as it was; the first time as large as it wants to be, but not beyond the free
// screen.
void keepPlace(QWidget& window);

}  // namespace dialogs
