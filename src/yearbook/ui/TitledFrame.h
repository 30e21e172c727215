#pragma once

#include <QGroupBox>
#include <optional>

#include "yearbook/Meter.h"

namespace yearbook {

// A frame with a bold title over plain contents; before the name of a meter stands its mark.
class TitledFrame : public QGroupBox {
  Q_OBJECT
 public:
  using QGroupBox::QGroupBox;
  void setMeter(Meter meter) { meter_ = meter; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::optional<Meter> meter_;
};

}  // namespace yearbook
