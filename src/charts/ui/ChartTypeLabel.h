#pragma once

#include <QLabel>

#include "charts/ChartOptions.h"

namespace charts {

// One of the chart types to choose from: a small drawing with its caption, marked when it is the
// chosen one. Behaves like an option button for mouse, keyboard and screen readers.
class ChartTypeLabel : public QLabel {
  Q_OBJECT
  Q_PROPERTY(bool checked READ isChecked WRITE setChecked NOTIFY toggled)
 public:
  explicit ChartTypeLabel(QWidget* parent = nullptr);

  void setType(ChartType type);
  bool isChecked() const { return checked_; }
  void setChecked(bool checked);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 Q_SIGNALS:
  void clicked();
  void toggled(bool checked);
  // An arrow key asks for the neighbour (1 next, -1 previous).
  void neighbourWanted(int step);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  ChartType type_ = ChartType::Line;
  bool checked_ = false;
};

}  // namespace charts
