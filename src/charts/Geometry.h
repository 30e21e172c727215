#pragma once

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

// Points, rectangles and colours of a chart. The unit is the pixel at 96 per inch, y grows
// downwards.
namespace charts {

struct Point {
  double x = 0;
  double y = 0;
  bool operator==(const Point&) const = default;
};

inline Point operator+(Point a, Point b) {
  return {a.x + b.x, a.y + b.y};
}
inline Point operator-(Point a, Point b) {
  return {a.x - b.x, a.y - b.y};
}
inline Point operator*(Point a, double factor) {
  return {a.x * factor, a.y * factor};
}

struct Size {
  double width = 0;
  double height = 0;
};

struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  double right() const { return x + width; }
  double bottom() const { return y + height; }
  Point center() const { return {x + width / 2, y + height / 2}; }
  static Rect around(Point center, Size size) {
    return {center.x - size.width / 2, center.y - size.height / 2, size.width, size.height};
  }
  Rect grown(double by) const { return {x - by, y - by, width + 2 * by, height + 2 * by}; }
  bool contains(const Rect& inner) const {
    return inner.x >= x && inner.y >= y && inner.right() <= right() && inner.bottom() <= bottom();
  }
  bool intersects(const Rect& other) const {
    return x < other.right() && other.x < right() && y < other.bottom() && other.y < bottom();
  }
  std::vector<Point> corners() const {
    return {{x, y}, {right(), y}, {right(), bottom()}, {x, bottom()}};
  }
};

// Is the point inside of the closed outline (even-odd rule)?
bool isInside(const std::vector<Point>& outline, Point point);

// Strokes at 45 degrees, rising to the right, within the closed outline; those of outlines that
// meet go on in each other. The step is counted across the strokes.
std::vector<std::pair<Point, Point>> hatch(const std::vector<Point>& outline, double step);

struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Color&) const = default;
  static constexpr Color rgb(unsigned value) {
    return {static_cast<std::uint8_t>(value >> 16 & 0xff),
            static_cast<std::uint8_t>(value >> 8 & 0xff), static_cast<std::uint8_t>(value & 0xff)};
  }
};

// share 0 is a, share 1 is b.
Color mix(Color a, Color b, double share);
// Brighter for amounts above 0 (1 = white), darker below (-1 = black).
Color shade(Color color, double amount);
// 0 = black to 1 = white, as the eye weighs the channels.
double luminance(Color color);

}  // namespace charts
