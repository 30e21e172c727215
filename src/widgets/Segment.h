#pragma once

class QAbstractButton;

namespace widgets {

// A button of a row in which one is chosen: bold while it is, for in dark it looks like the others.
void showChosen(QAbstractButton* button);

}  // namespace widgets
