#pragma once

#include <QColor>
#include <QPalette>
#include <optional>

class QApplication;
class QWidget;

// Colours with a meaning, readable on the ground of the palette (text at least 4.5:1).
namespace widgets {

enum class Tone {
  Quiet,   // what can be passed over: hints, notes
  Doubt,   // may be right
  Error,   // is not stored
  Good,    // money that comes back, done
  Link,    // leads somewhere
  Accent,  // notice, focus
};

bool isDark(const QPalette& palette);
// A theme for those who need strong edges: text far from its ground, and a saturated ground or
// selection. Nothing is tinted there.
bool isHighContrast(const QPalette& palette);
// Of two colours the one for the palette's ground.
QColor onGround(const QPalette& palette, QRgb forLight, QRgb forDark);
QColor toneOf(Tone tone, const QPalette& palette);

// The text of the widget has that tone from now on, in whatever theme comes; without one it is the
// text of its window again.
void setTone(QWidget* widget, std::optional<Tone> tone);

// Light or dark whatever the system is.
enum class Look { System, Light, Dark };

// All windows look so from now on.
void showAs(Look look);

// A ground with some of the tone in it: text on it stays as readable as before.
QColor tinted(const QPalette& palette, QPalette::ColorRole ground, Tone tone);

// Hints are drawn in QPalette::PlaceholderText, which many systems set too faint to be read. From
// now on it is Tone::Quiet, in whatever theme; all other colours stay the system's.
void keepHintsReadable(QApplication& application);

}  // namespace widgets
