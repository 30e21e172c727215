#include "readings/ui/ChangeOption.h"

#include <QMouseEvent>

namespace readings {

void ChangeOption::mousePressEvent(QMouseEvent* event) {
  QRadioButton::mousePressEvent(event);
  Q_EMIT mousePressed();
}

void ChangeOption::mouseReleaseEvent(QMouseEvent* event) {
  const bool over = rect().contains(event->position().toPoint());
  QRadioButton::mouseReleaseEvent(event);
  if (over) Q_EMIT mouseReleased();
}

}  // namespace readings
