#pragma once

#include <QToolButton>
#include <functional>

#include "dialogs/frmBrutto.h"

namespace dialogs {

// The small button beside a field for a net figure: opens "Brutto umrechnen" and enters what comes
// out of it as if it had been typed. Ctrl+B in the field does the same; Tab and Enter pass the
// button by. Off while the field takes nothing.
class GrossButton final : public QToolButton {
  Q_OBJECT
 public:
  // With letters of the usual size.
  static constexpr int kHeight = 24;

  // The figure as it is when the button is pressed.
  GrossButton(widgets::NumberField* field, const Services& services,
              std::function<GrossFigure()> figure, QWidget* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void convert();

  widgets::NumberField* field_;
  const Services& services_;
  std::function<GrossFigure()> figure_;
};

}  // namespace dialogs
