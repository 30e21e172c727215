#pragma once

#include <QMenu>

namespace dialogs {

// "Ansicht": light, dark, or as the system is. Counts at once for all windows, and at the next
// start.
class LookMenu final : public QMenu {
  Q_OBJECT
 public:
  explicit LookMenu(QWidget* parent);
};

// The look that was chosen last.
void showRememberedLook();

}  // namespace dialogs
