#include "readings/ui/MarkedLabel.h"

#include <QApplication>
#include <QEvent>

namespace readings {
namespace {

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < 128;
}

}  // namespace

void MarkedLabel::setMark(Mark mark) {
  if (mark == mark_) return;
  mark_ = mark;
  applyColor();
}

void MarkedLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::ApplicationPaletteChange) applyColor();
}

void MarkedLabel::applyColor() {
  const QPalette ground = QApplication::palette(this);
  QPalette palette = ground;
  switch (mark_) {
    case Mark::None:
      break;
    case Mark::Current:
      palette.setColor(QPalette::WindowText,
                       isDark(ground) ? QColor(0x7A, 0xB4, 0xFF) : QColor(0, 0, 0xFF));
      break;
    case Mark::Doubt:
      palette.setColor(QPalette::WindowText,
                       isDark(ground) ? QColor(0xFF, 0xB3, 0x66) : QColor(0xA8, 0x3C, 0x00));
      break;
    case Mark::Quiet:
      palette.setColor(QPalette::WindowText, ground.color(QPalette::PlaceholderText));
      break;
  }
  setPalette(palette);
}

}  // namespace readings
