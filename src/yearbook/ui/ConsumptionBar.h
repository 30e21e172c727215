#pragma once

#include <QWidget>

namespace yearbook {

// A quiet bar behind a month: its consumption as a share of the year's highest month.
class ConsumptionBar final : public QWidget {
  Q_OBJECT
 public:
  explicit ConsumptionBar(QWidget* parent = nullptr);
  void setShare(double share);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
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
