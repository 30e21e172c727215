#pragma once

#include <QRadioButton>

namespace readings {

// The option of a month for a meter change. It tells the mouse apart from the keyboard: only the
// mouse asks for the new meter's reading.
class ChangeOption : public QRadioButton {
  Q_OBJECT
 public:
  using QRadioButton::QRadioButton;

 Q_SIGNALS:
  void mousePressed();
  // Whichever button, over the option.
  void mouseReleased();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
};

}  // namespace readings
