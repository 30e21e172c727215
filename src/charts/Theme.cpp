#include "charts/Theme.h"

#include "yearbook/MeterColors.h"

namespace charts {
namespace {

constexpr Color kInk = Color::rgb(0x1f2933);
constexpr Color kPaper = Color::rgb(0xffffff);

using yearbook::GroundColors;
using yearbook::Meter;

// In the order in which the charts count their series.
auto seriesColors(std::uint32_t GroundColors::*ground) {
  const auto color = [&](Meter meter) { return Color::rgb(yearbook::kMeterColors[meter].*ground); };
  return decltype(Theme::series){color(Meter::Day),   color(Meter::Gas),
                                 color(Meter::Water), color(Meter::WasteWater),
                                 color(Meter::Night), Color::rgb(yearbook::kOtherColors.*ground)};
}

}  // namespace

Theme Theme::light() {
  Theme theme;
  theme.outer = kPaper;
  theme.inner = Color::rgb(0xf8fafc);
  theme.text = kInk;
  theme.quietText = Color::rgb(0x56616f);
  theme.grid = Color::rgb(0xdde3ea);
  theme.axis = Color::rgb(0x8793a1);
  theme.labelFill = kPaper;
  theme.labelText = kInk;
  theme.series = seriesColors(&GroundColors::light);
  theme.months = {Color::rgb(0x2b4c7e), Color::rgb(0x3a6ea5), Color::rgb(0x4a98b8),
                  Color::rgb(0x5fb8a4), Color::rgb(0x8fcb8c), Color::rgb(0xc5dc7a),
                  Color::rgb(0xf2d65c), Color::rgb(0xf5b945), Color::rgb(0xe88f3c),
                  Color::rgb(0xcf6638), Color::rgb(0xa1493f), Color::rgb(0x6a4160)};
  return theme;
}

Theme Theme::dark(Color surface, Color text) {
  Theme theme = light();
  theme.outer = surface;
  theme.inner = mix(surface, text, 0.04);
  theme.text = text;
  theme.quietText = mix(text, surface, 0.28);
  theme.grid = mix(surface, text, 0.16);
  theme.axis = mix(surface, text, 0.5);
  theme.labelFill = theme.inner;
  theme.labelText = text;
  theme.series = seriesColors(&GroundColors::dark);
  return theme;
}

Theme Theme::withOuter(Color chosen) const {
  Theme theme = *this;
  const bool bright = luminance(chosen) > 0.30;
  theme.outer = chosen;
  theme.text = bright ? kInk : kPaper;
  theme.quietText = mix(theme.text, chosen, 0.12);
  theme.axis = mix(chosen, theme.text, 0.55);
  return theme;
}

Theme Theme::withInner(Color chosen) const {
  Theme theme = *this;
  theme.inner = chosen;
  theme.grid = mix(chosen, luminance(chosen) > 0.30 ? kInk : kPaper, 0.16);
  return theme;
}

}  // namespace charts
