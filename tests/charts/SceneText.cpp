#include "SceneText.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace sample {
namespace {

using charts::Color;
using charts::Point;
using charts::Shape;
using charts::Text;

std::string decimal(double value) {
  const double rounded = std::round(value * 10) / 10;
  const auto tenths = static_cast<long long>(std::llround(std::fabs(rounded) * 10));
  std::string text = std::to_string(tenths / 10);
  if (tenths % 10 != 0) text += "." + std::to_string(tenths % 10);
  return rounded < 0 && tenths != 0 ? "-" + text : text;
}

std::string hex(Color color) {
  std::array<char, 8> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "#%02x%02x%02x", color.red, color.green, color.blue);
  return buffer.data();
}

std::string pointText(Point point) {
  return decimal(point.x) + "," + decimal(point.y);
}

std::string outlineText(const std::vector<Point>& points) {
  std::string text;
  for (const Point& point : points) text += " " + pointText(point);
  return text;
}

std::string itemText(const Shape& shape) {
  std::string text = shape.closed ? "area" : "line";
  if (shape.fill) text += " fill " + hex(*shape.fill);
  if (shape.stroke) {
    text += " stroke " + hex(shape.stroke->color) + " " + decimal(shape.stroke->width);
    if (shape.stroke->dashed) text += " dashed";
  }
  return text + outlineText(shape.points);
}

std::string itemText(const Text& item) {
  constexpr std::array<const char*, 3> kAligns = {"start", "middle", "end"};
  std::string text = "text " + pointText(item.at) + " " +
                     kAligns.at(static_cast<std::size_t>(item.align)) + " " +
                     decimal(item.font.size);
  if (item.font.bold) text += " bold";
  if (item.rotation != 0) text += " turned " + std::to_string(item.rotation);
  return text + " " + hex(item.color) + " \"" + item.text + "\"";
}

}  // namespace

std::string toText(const charts::Scene& scene) {
  std::string text = "scene " + decimal(scene.width) + " x " + decimal(scene.height) + " " +
                     hex(scene.background) + "\n";
  for (const auto& item : scene.items)
    text += std::visit([](const auto& one) { return itemText(one); }, item) + "\n";
  for (const charts::Mark& mark : scene.marks)
    text += "mark " + std::to_string(mark.series) + "/" + std::to_string(mark.point) +
            outlineText(mark.outline) + "\n";
  return text;
}

}  // namespace sample
