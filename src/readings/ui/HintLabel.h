#pragma once

#include "readings/ui/MarkedLabel.h"

namespace readings {

// What is said about the field of its row. It is as wide as it may be: what does not fit is left
// out at the end, and the tooltip has the whole of it.
class HintLabel final : public MarkedLabel {
  Q_OBJECT
 public:
  explicit HintLabel(QWidget* parent = nullptr) : MarkedLabel(parent) {}
  // The window opens with room for that.
  void setUsualText(const QString& text);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QString usual_;
};

}  // namespace readings
