#include "charts/Geometry.h"

#include <cmath>
#include <numbers>

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

std::vector<std::pair<Point, Point>> hatch(const std::vector<Point>& outline, double step) {
  if (outline.empty()) return {};
  // A stroke is where x + y is the same everywhere.
  const auto along = [](Point point) { return point.x + point.y; };
  double first = along(outline[0]), last = first;
  for (const Point& point : outline) {
    first = std::min(first, along(point));
    last = std::max(last, along(point));
  }
  const double apart = step * std::numbers::sqrt2;
  std::vector<std::pair<Point, Point>> strokes;
  const int count = static_cast<int>(std::ceil(last / apart) - std::floor(first / apart)) - 1;
  for (int i = 1; i <= count; ++i) {
    const double at = (std::floor(first / apart) + i) * apart;
    std::vector<Point> crossings;
    for (std::size_t n = 0, j = outline.size() - 1; n < outline.size(); j = n++) {
      const Point a = outline[j], b = outline[n];
      if ((along(a) <= at) != (along(b) <= at))
        crossings.push_back(a + (b - a) * ((at - along(a)) / (along(b) - along(a))));
    }
    std::sort(crossings.begin(), crossings.end(), [](Point a, Point b) { return a.x < b.x; });
    for (std::size_t n = 0; n + 1 < crossings.size(); n += 2)
      strokes.emplace_back(crossings[n], crossings[n + 1]);
  }
  return strokes;
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
