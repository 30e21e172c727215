#pragma once

#include <QLabel>

namespace readings {

// A text whose colour says something and stays readable on light and dark windows.
class MarkedLabel : public QLabel {
  Q_OBJECT
 public:
  enum class Mark { None, Current, Doubt, Error, Quiet };

  explicit MarkedLabel(QWidget* parent = nullptr) : QLabel(parent) {}
  void setMark(Mark mark);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void applyColor();

  Mark mark_ = Mark::None;
};

}  // namespace readings
