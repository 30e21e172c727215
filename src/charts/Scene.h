#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "charts/Geometry.h"

// A chart as plain drawing: what the screen, the printer and every picture file render, in this
// order, later items over earlier ones.
namespace charts {

struct Stroke {
  Color color;
  double width = 1;
  bool dashed = false;
};

// A closed area, or an open line when closed is false (which is never filled).
struct Shape {
  std::vector<Point> points;
  std::optional<Color> fill;
  std::optional<Stroke> stroke;
  bool closed = true;
};

struct Font {
  double size = 12;  // pixels
  bool bold = false;
};

enum class Align { Start, Middle, End };

// One line of text in "Arial" (or what stands in for it).
struct Text {
  Point at;  // on the baseline: its start, middle or end as align says
  std::string text;
  Font font;
  Color color;
  Align align = Align::Start;
  int rotation = 0;  // degrees counter-clockwise: 0, 90 (reads upwards) or 270 (downwards)
};

// The place of one value, for pointing at it.
struct Mark {
  std::vector<Point> outline;
  int series = 0;  // index in the model's series
  int point = 0;   // 0 to 11
};

struct Scene {
  double width = 0;
  double height = 0;
  Color background;
  std::vector<std::variant<Shape, Text>> items;
  std::vector<Mark> marks;  // later ones lie in front

  void fill(std::vector<Point> points, Color color, std::optional<Stroke> stroke = std::nullopt) {
    items.emplace_back(Shape{std::move(points), color, stroke, true});
  }
  void line(std::vector<Point> points, const Stroke& stroke) {
    items.emplace_back(Shape{std::move(points), std::nullopt, stroke, false});
  }
  // The front-most mark at a place, nullptr if there is none.
  const Mark* markAt(Point place) const;
  const Mark* findMark(int series, int point) const;
};

}  // namespace charts
