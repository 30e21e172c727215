#include "readings/ui/MarkedLabel.h"

#include <QApplication>
#include <QEvent>

#include "widgets/Tones.h"

namespace readings {
namespace {

QColor colorOf(MarkedLabel::Mark mark, const QPalette& ground) {
  using Mark = MarkedLabel::Mark;
  switch (mark) {
    case Mark::Doubt:
      return widgets::toneOf(widgets::Tone::Doubt, ground);
    case Mark::Error:
      return widgets::toneOf(widgets::Tone::Error, ground);
    case Mark::Quiet:
      return widgets::toneOf(widgets::Tone::Quiet, ground);
    case Mark::Current:
      return widgets::isDark(ground) ? QColor(0x7A, 0xB4, 0xFF) : QColor(0, 0, 0xFF);
    case Mark::None:
      break;
  }
  return ground.color(QPalette::WindowText);
}

}  // namespace

void MarkedLabel::setMark(Mark mark) {
  if (mark == mark_) return;
  mark_ = mark;
  applyColor();
}

void MarkedLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) applyColor();
}

void MarkedLabel::applyColor() {
  QPalette own;
  if (mark_ != Mark::None)
    own.setColor(QPalette::WindowText, colorOf(mark_, QApplication::palette(this)));
  // The new palette comes back here as a change of it.
  if (own.color(QPalette::WindowText) != palette().color(QPalette::WindowText)) setPalette(own);
}

}  // namespace readings
