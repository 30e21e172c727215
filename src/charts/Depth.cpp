#include "charts/Depth.h"

#include <cmath>

namespace charts {
namespace {

constexpr double kTopLight = 0.30;
constexpr double kBottomLight = -0.34;
constexpr double kRightLight = -0.24;
constexpr double kLeftLight = -0.14;
constexpr double kMargin = 0.12;  // of the depth that a layer leaves free before and behind

// Faces meet without a seam when each is drawn a hair larger than it is.
void addFace(Scene& scene, std::vector<Point> points, Color color) {
  scene.fill(std::move(points), color, Stroke{color, 0.6, false});
}

}  // namespace

Layer layerOf(std::size_t index, std::size_t count) {
  const double share = 1.0 / static_cast<double>(count);
  return {(static_cast<double>(index) + kMargin) * share,
          (static_cast<double>(index) + 1 - kMargin) * share};
}

bool seesTop(const Plot& plot) {
  return plot.depth.y < 0;
}
bool seesRight(const Plot& plot) {
  return plot.depth.x > 0;
}

void addFront(Scene& scene, const Plot& plot, const std::vector<Point>& outline, double z,
              Color color) {
  std::vector<Point> points;
  points.reserve(outline.size());
  for (const Point& point : outline) points.push_back(plot.at(point, z));
  addFace(scene, std::move(points), color);
}

void addEnd(Scene& scene, const Plot& plot, double x, double top, double bottom, Layer layer,
            Color color) {
  if (plot.depth.x == 0 || top == bottom) return;
  addFace(scene,
          {plot.at(x, top, layer.z0), plot.at(x, top, layer.z1), plot.at(x, bottom, layer.z1),
           plot.at(x, bottom, layer.z0)},
          shade(color, seesRight(plot) ? kRightLight : kLeftLight));
}

void addRibbon(Scene& scene, const Plot& plot, Point a, Point b, Layer layer, Color color) {
  // Which side is seen: the upward normal of the line against the way to the eye, which is opposite
  // to the depth.
  const double dx = b.x - a.x, dy = b.y - a.y;
  const double length = std::hypot(dx, dy);
  const double facing = dy * plot.depth.x - dx * plot.depth.y;
  if (length == 0 || std::fabs(facing) < 1e-9) return;
  // Light comes from above and a little from the left.
  const double upward = (0.92 * dx + 0.38 * -dy) / length;
  const double light = facing > 0 ? -0.18 + 0.48 * upward : kBottomLight;
  addFace(scene,
          {plot.at(a, layer.z0), plot.at(a, layer.z1), plot.at(b, layer.z1), plot.at(b, layer.z0)},
          shade(color, light));
}

void addBox(Scene& scene, const Plot& plot, const Rect& front, Layer layer, Color color) {
  if (front.height > 0)
    addEnd(scene, plot, seesRight(plot) ? front.right() : front.x, front.y, front.bottom(), layer,
           color);
  if (plot.depth.y != 0) {
    const double y = seesTop(plot) ? front.y : front.bottom();
    addFace(scene,
            {plot.at(front.x, y, layer.z0), plot.at(front.x, y, layer.z1),
             plot.at(front.right(), y, layer.z1), plot.at(front.right(), y, layer.z0)},
            shade(color, seesTop(plot) ? kTopLight : kBottomLight));
  }
  if (front.height > 0) addFront(scene, plot, front.corners(), layer.z0, color);
}

std::vector<std::size_t> drawingOrder(const Plot& plot, std::size_t count) {
  std::vector<std::size_t> order(count);
  for (std::size_t i = 0; i < count; ++i) order[i] = plot.depth.x < 0 ? count - 1 - i : i;
  return order;
}

}  // namespace charts
