#include "widgets/Tones.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <cstdlib>

#include "widgets/ProgramStyle.h"

using namespace Qt::Literals::StringLiterals;

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

// All other colours stay as they were chosen, or the system's.
void setHints() {
  QPalette palette = QApplication::palette();
  const QColor quiet = toneOf(Tone::Quiet, palette);
  if (palette.color(QPalette::Active, QPalette::PlaceholderText) == quiet) return;
  palette.setColor(QPalette::PlaceholderText, quiet);
  QApplication::setPalette(palette);
}

QPalette forcedPalette(bool dark) {
  const auto color = [dark](QRgb light, QRgb darkColor) {
    return QColor::fromRgb(dark ? darkColor : light);
  };
  const QColor window = color(0xEFEFEF, 0x323232);
  const QColor text = color(0x000000, 0xF0F0F0);
  const QColor faint = color(0x7F7F7F, 0x8A8A8A);
  // Works out the shades of raised and sunken edges.
  QPalette palette(window, window);
  palette.setColor(QPalette::Base, color(0xFFFFFF, 0x242424));
  palette.setColor(QPalette::AlternateBase, color(0xF7F7F7, 0x2B2B2B));
  palette.setColor(QPalette::ToolTipBase, color(0xFFFFE1, 0x3D3D3D));
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, faint);
  }
  palette.setColor(QPalette::ToolTipText, text);
  palette.setColor(QPalette::BrightText, Qt::white);
  palette.setColor(QPalette::Highlight, color(0x1C6FB5, 0x2B74B3));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, color(0x0A55B5, 0x7AB4FF));
  palette.setColor(QPalette::PlaceholderText, toneOf(Tone::Quiet, palette));
  return palette;
}

class PaletteWatch final : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange) setHints();
    return QObject::eventFilter(watched, event);
  }
};

// A colour that was set once stays what it was when the theme changes.
class ToneKeeper final : public QObject {
 public:
  ToneKeeper(QWidget* widget, Tone tone) : QObject(widget), widget_(widget), tone_(tone) {
    widget->installEventFilter(this);
    apply();
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == widget_ && event->type() == QEvent::PaletteChange) apply();
    return QObject::eventFilter(watched, event);
  }

 private:
  void apply() {
    const QPalette::ColorRole role = widget_->foregroundRole();
    const QColor wanted = toneOf(tone_, QApplication::palette(widget_));
    if (widget_->palette().color(QPalette::Active, role) == wanted) return;
    QPalette own;
    own.setColor(role, wanted);
    widget_->setPalette(own);
  }

  QWidget* widget_;
  Tone tone_;
};

}  // namespace

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Active, QPalette::Window).lightness() < 128;
}

bool isHighContrast(const QPalette& palette) {
  constexpr int kApart = 224;  // of lightness: white on #1F1F1F
  constexpr int kSaturated = 230;
  const auto of = [&](QPalette::ColorRole role) { return palette.color(QPalette::Active, role); };
  const auto saturated = [](const QColor& color) {
    return color.hsvSaturation() >= kSaturated && color.value() >= kSaturated;
  };
  return std::abs(of(QPalette::WindowText).lightness() - of(QPalette::Window).lightness()) >=
             kApart &&
         (saturated(of(QPalette::Window)) || saturated(of(QPalette::Highlight)));
}

QColor onGround(const QPalette& palette, QRgb forLight, QRgb forDark) {
  return QColor::fromRgb(isDark(palette) ? forDark : forLight);
}

QColor toneOf(Tone tone, const QPalette& palette) {
  const GroundColors colors = colorsOf(tone);
  return onGround(palette, colors.light, colors.dark);
}

void setTone(QWidget* widget, std::optional<Tone> tone) {
  for (QObject* child : QObjectList(widget->children()))
    if (dynamic_cast<ToneKeeper*>(child)) delete child;
  if (tone)
    new ToneKeeper(widget, *tone);
  else
    widget->setPalette(QPalette());
}

void showAs(Look look) {
  // The styles of some systems paint their own colours, whatever the palette.
  QApplication::setStyle(look == Look::System ? new ProgramStyle : new ProgramStyle(u"Fusion"_s));
  QApplication::setPalette(look == Look::System ? QPalette() : forcedPalette(look == Look::Dark));
  setHints();
}

QColor tinted(const QPalette& palette, QPalette::ColorRole ground, Tone tone) {
  constexpr float kShare = 0.25F;
  const QColor under = palette.color(ground);
  const QColor over = toneOf(tone, palette);
  const auto mixed = [](float part, float more) { return part + (more - part) * kShare; };
  return QColor::fromRgbF(mixed(under.redF(), over.redF()), mixed(under.greenF(), over.greenF()),
                          mixed(under.blueF(), over.blueF()));
}

void keepHintsReadable(QApplication& application) {
  setHints();
  application.installEventFilter(new PaletteWatch(&application));
}

}  // namespace widgets
