#include "charts/Canvas.h"

#include <cmath>
#include <numbers>

#include "base/TextCodec.h"

namespace charts {

Size Canvas::boxOf(const std::string& text, const Font& font, int rotation) const {
  const TextExtent extent = measure(text, font);
  if (rotation != 0) return {extent.height(), extent.width};
  return {extent.width, extent.height()};
}

std::vector<Rect> Canvas::textBoxes() const {
  std::vector<Rect> boxes;
  for (const auto& item : scene_.items) {
    const auto* text = std::get_if<Text>(&item);
    if (!text) continue;
    const TextExtent extent = measure(text->text, text->font);
    const double share = text->align == Align::Start ? 0 : text->align == Align::Middle ? 0.5 : 1;
    const double before = extent.width * share, behind = extent.width - before;
    if (text->rotation == 90)
      boxes.push_back(
          {text->at.x - extent.ascent, text->at.y - behind, extent.height(), extent.width});
    else if (text->rotation == 270)
      boxes.push_back(
          {text->at.x - extent.descent, text->at.y - before, extent.height(), extent.width});
    else
      boxes.push_back(
          {text->at.x - before, text->at.y - extent.ascent, extent.width, extent.height()});
  }
  return boxes;
}

void Canvas::textAround(Point center, const std::string& text, const Font& font, Color color,
                        int rotation) {
  const TextExtent extent = measure(text, font);
  const double drop = (extent.ascent - extent.descent) / 2;  // middle of the box to the baseline
  Point at = center;
  if (rotation == 90)
    at.x += drop;
  else if (rotation == 270)
    at.x -= drop;
  else
    at.y += drop;
  scene_.items.emplace_back(Text{at, text, font, color, Align::Middle, rotation});
}

void Canvas::add(Point place, const std::string& text, const Font& font, Color color, Align align) {
  const TextExtent extent = measure(text, font);
  place.y += (extent.ascent - extent.descent) / 2;
  scene_.items.emplace_back(Text{place, text, font, color, align, 0});
}

void Canvas::textFrom(Point place, const std::string& text, const Font& font, Color color) {
  add(place, text, font, color, Align::Start);
}

void Canvas::textUpTo(Point place, const std::string& text, const Font& font, Color color) {
  add(place, text, font, color, Align::End);
}

void Canvas::pattern(const std::vector<Point>& outline, Hue hue) {
  if (hue == Hue::OtherYear) hatch(outline, theme_.inner, 1.3);
}

void Canvas::hatch(const std::vector<Point>& outline, Color color, double width) {
  constexpr double kStep = 5;
  for (const auto& [from, to] : charts::hatch(outline, kStep))
    scene_.line({from, to}, Stroke{color, width, false});
}

std::string Canvas::fit(std::string text, Font& font, double width) const {
  while (font.size > leastSize_ && measure(text, font).width > width)
    font.size = std::max(font.size - 1, leastSize_);
  if (measure(text, font).width <= width) return text;
  std::u32string shortened = base::toUtf32(text);
  while (!shortened.empty()) {
    shortened.pop_back();
    text = base::fromUtf32(shortened) + "…";
    if (measure(text, font).width <= width) return text;
  }
  return {};
}

std::vector<Point> circle(Point center, double radius, int corners) {
  std::vector<Point> points;
  for (int i = 0; i < corners; ++i) {
    const double angle = 2 * std::numbers::pi * i / corners;
    points.push_back({center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)});
  }
  return points;
}

}  // namespace charts
