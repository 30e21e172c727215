#pragma once

#include <array>

#include "charts/Geometry.h"

namespace charts {

// What a series stands for; each has its own colour wherever it appears.
enum class Hue { Electricity, Gas, Water, WasteWater, NightElectricity, OtherYear };

// The colours of a chart. Series colours differ in lightness as well as in hue, so that they stay
// apart on a grey print and for eyes that confuse red and green.
struct Theme {
  Color outer;  // around the plot
  Color inner;  // behind the data
  Color text;
  Color quietText;  // captions, axis numbers
  Color grid;
  Color axis;
  Color labelFill;  // behind value labels
  Color labelText;
  std::array<Color, 6> series;   // by Hue
  std::array<Color, 12> months;  // pie slices, from January: the seasons round the year

  Color color(Hue hue) const { return series[static_cast<std::size_t>(hue)]; }

  static Theme light();
  // On a dark surface of that colour, with that text colour.
  static Theme dark(Color surface, Color text);
  // Colours outside and inside the plot that the user chose; texts stay readable on them.
  Theme withOuter(Color chosen) const;
  Theme withInner(Color chosen) const;
};

}  // namespace charts
