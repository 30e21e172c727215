#include "reports/ui/GridColors.h"

#include <QPaintDevice>
#include <algorithm>
#include <array>

#ifdef _WIN32
#include <windows.h>
#endif

namespace reports {
namespace {

#ifndef _WIN32
CellColor fromQColor(const QColor& color) {
  return rgb(static_cast<unsigned>(color.red()), static_cast<unsigned>(color.green()),
             static_cast<unsigned>(color.blue()));
}

// By the number that the system colour has on Windows.
constexpr std::array<QPalette::ColorRole, 25> kRoles = {
    QPalette::Shadow,           // scroll bar
    QPalette::Window,           // desktop
    QPalette::Highlight,        // title of the active window
    QPalette::Mid,              // title of other windows
    QPalette::Window,           // menu
    QPalette::Base,             // window
    QPalette::Shadow,           // window frame
    QPalette::WindowText,       // text of menus
    QPalette::Text,             // text of windows
    QPalette::HighlightedText,  // text of the active title
    QPalette::Mid,              // border of the active window
    QPalette::Mid,              // border of other windows
    QPalette::Mid,              // work space
    QPalette::Highlight,        // selection
    QPalette::HighlightedText,  // text of the selection
    QPalette::Button,           // face of buttons
    QPalette::Dark,             // shadow of buttons
    QPalette::PlaceholderText,  // text that cannot be chosen
    QPalette::ButtonText,       // text of buttons
    QPalette::WindowText,       // text of other titles
    QPalette::Light,            // light edge of buttons
    QPalette::Shadow,           // dark shadow of buttons
    QPalette::Midlight,         // soft light edge of buttons
    QPalette::ToolTipText,      // text of tooltips
    QPalette::ToolTipBase,      // tooltips
};
#endif

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Base).lightness() < 128;
}

QColor turned(const QColor& color, double saturation, double lowest, double highest) {
  const double lightness = std::clamp(1.0 - color.lightnessF(), lowest, highest);
  return QColor::fromHslF(std::max(0.0F, color.hslHueF()),
                          static_cast<float>(color.hslSaturationF() * saturation),
                          static_cast<float>(lightness));
}

}  // namespace

CellColor currentSystemColor(int index, const QPalette& palette) {
#ifdef _WIN32
  static_cast<void>(palette);
  return GetSysColor(index);
#else
  if (index < 0 || index >= static_cast<int>(kRoles.size())) return 0;
  return fromQColor(palette.color(kRoles[static_cast<std::size_t>(index)]));
#endif
}

HtmlScreen screenOf(const QPaintDevice& device, const QPalette& palette) {
  return {static_cast<double>(kTwipsPerInch) / device.logicalDpiX(),
          [palette](int index) { return currentSystemColor(index, palette); }};
}

QColor paperColor(CellColor color, const QPalette& palette) {
  if (color & 0x80000000U) color = currentSystemColor(static_cast<int>(color & 0xFFFF), palette);
  return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                static_cast<int>(color >> 16 & 0xFF));
}

QColor screenBackground(CellColor color, const QPalette& palette) {
  const QColor plain = paperColor(color, palette);
  if (!isDark(palette)) return plain;
  const double base = palette.color(QPalette::Base).lightnessF();
  return turned(plain, 0.4, base + 0.08, base + 0.2);
}

QColor screenForeground(CellColor color, const QPalette& palette) {
  const QColor plain = paperColor(color, palette);
  return isDark(palette) ? turned(plain, 0.9, 0.72, 0.95) : plain;
}

}  // namespace reports
