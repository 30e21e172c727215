#include "charts/Geometry.h"

#include <cmath>

namespace charts {

bool isInside(const std::vector<Point>& outline, Point point) {
  bool inside = false;
  for (std::size_t i = 0, j = outline.size() - 1; i < outline.size(); j = i++) {
    const Point a = outline[i], b = outline[j];
    if ((a.y > point.y) != (b.y > point.y) &&
        point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x)
      inside = !inside;
  }
  return inside;
}

Color mix(Color a, Color b, double share) {
  const auto channel = [share](std::uint8_t from, std::uint8_t to) {
    const double value = from + (static_cast<double>(to) - from) * std::clamp(share, 0.0, 1.0);
    return static_cast<std::uint8_t>(std::lround(value));
  };
  return {channel(a.red, b.red), channel(a.green, b.green), channel(a.blue, b.blue)};
}

Color shade(Color color, double amount) {
  return amount >= 0 ? mix(color, Color::rgb(0xffffff), amount) : mix(color, Color(), -amount);
}

double luminance(Color color) {
  const auto linear = [](std::uint8_t channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

}  // namespace charts
