#include "widgets/Tones.h"

#include <QApplication>
#include <QEvent>

namespace widgets {
namespace {

struct GroundColors {
  QRgb light, dark;
};

GroundColors colorsOf(Tone tone) {
  switch (tone) {
    case Tone::Quiet:
      return {0x545454, 0xAEAEAE};
    case Tone::Doubt:
      return {0x8F3A00, 0xFFB366};
    case Tone::Error:
      return {0xA8161A, 0xFF9A8F};
    case Tone::Good:
      return {0x1B6B35, 0x7FD69A};
    case Tone::Link:
      return {0x0A55B5, 0x7AB4FF};
    case Tone::Accent:
      break;
  }
  return {0x1C6FB5, 0x4C9FE0};
}

void setHints() {
  const QColor quiet = toneOf(Tone::Quiet, QApplication::palette());
  if (QApplication::palette().color(QPalette::Active, QPalette::PlaceholderText) == quiet) return;
  // Of this palette only the one role counts; the others follow the system.
  QPalette hints;
  hints.setResolveMask(0);
  hints.setColor(QPalette::PlaceholderText, quiet);
  QApplication::setPalette(hints);
}

class PaletteWatch final : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange) setHints();
    return QObject::eventFilter(watched, event);
  }
};

}  // namespace

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Active, QPalette::Window).lightness() < 128;
}

QColor toneOf(Tone tone, const QPalette& palette) {
  const GroundColors colors = colorsOf(tone);
  return QColor::fromRgb(isDark(palette) ? colors.dark : colors.light);
}

void keepHintsReadable(QApplication& application) {
  setHints();
  application.installEventFilter(new PaletteWatch(&application));
}

}  // namespace widgets
