#pragma once

#include "charts/Plot.h"

// Solids of a chart with depth, as the faces that are seen, each in the light that falls on it.
// Whoever draws several solids draws the hidden ones first: those at the back, then, where the back
// lies to the right (depth.x > 0), from left to right, else from right to left; likewise from below
// to above where the top is seen.
namespace charts {

// Front plane positions from z0 (nearer) to z1.
struct Layer {
  double z0 = 0;
  double z1 = 1;
};

// The layer of one of several series that stand one behind the other; index 0 is in front.
Layer layerOf(std::size_t index, std::size_t count);

bool seesTop(const Plot& plot);
bool seesRight(const Plot& plot);

void addBox(Scene& scene, const Plot& plot, const Rect& front, Layer layer, Color color);
// The strip above the line from a to b (front plane places, left to right).
void addRibbon(Scene& scene, const Plot& plot, Point a, Point b, Layer layer, Color color);
// A front-facing outline with nothing behind it.
void addFront(Scene& scene, const Plot& plot, const std::vector<Point>& outline, double z,
              Color color);
// The end of a solid that is cut off at x between two heights.
void addEnd(Scene& scene, const Plot& plot, double x, double top, double bottom, Layer layer,
            Color color);

// Month positions in the order in which their solids must be drawn.
std::vector<std::size_t> drawingOrder(const Plot& plot, std::size_t count);

}  // namespace charts
