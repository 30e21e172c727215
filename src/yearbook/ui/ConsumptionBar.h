#pragma once

#include <QWidget>

#include "yearbook/Meter.h"

namespace yearbook {

// A bar behind a month in the colour of its meter: its consumption as a share of the year's highest
// month.
class ConsumptionBar final : public QWidget {
  Q_OBJECT
 public:
  ConsumptionBar(Meter meter, QWidget* parent);
  void setShare(double share);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Meter meter_;
  double share_ = 0;
};

// The tinted ground under the line of the current month.
class LineMark final : public QWidget {
  Q_OBJECT
 public:
  explicit LineMark(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace yearbook
