#pragma once

#include <QRadioButton>

namespace widgets {

// An option button that looks and acts like a push button: a click starts an action, and another
// member of the group takes the selection afterwards.
class ActionOption final : public QRadioButton {
  Q_OBJECT
 public:
  explicit ActionOption(QWidget* parent = nullptr);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace widgets
