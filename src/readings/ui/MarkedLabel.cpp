#include "readings/ui/MarkedLabel.h"

#include <QApplication>
#include <QEvent>

#include "widgets/Tones.h"

namespace readings {

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
  const auto color = [&](widgets::Tone tone) {
    palette.setColor(QPalette::WindowText, widgets::toneOf(tone, ground));
  };
  switch (mark_) {
    case Mark::None:
      break;
    case Mark::Current:
      palette.setColor(QPalette::WindowText,
                       widgets::isDark(ground) ? QColor(0x7A, 0xB4, 0xFF) : QColor(0, 0, 0xFF));
      break;
    case Mark::Doubt:
      color(widgets::Tone::Doubt);
      break;
    case Mark::Error:
      color(widgets::Tone::Error);
      break;
    case Mark::Quiet:
      color(widgets::Tone::Quiet);
      break;
  }
  setPalette(palette);
}

}  // namespace readings
