#pragma once

#include <optional>
#include <string>
#include <vector>

#include "charts/Canvas.h"
#include "charts/ChartOptions.h"

namespace charts {

enum class LabelSide { Above, Below, Inside };

struct LabelRequest {
  Point anchor;          // edge or middle of the mark
  double clearance = 0;  // from the anchor to the edge of the mark, up and down
  LabelSide side = LabelSide::Above;
  Size room;  // Inside: what the mark offers
  // Another edge, taken if no label of the chart covers an obstacle there.
  std::optional<Point> preferred;
  std::string text;
  double weight = 0;  // the greater come first when there is no room for all
  // In its one place, clear of all marks unless it stands inside its own, or not at all; its
  // series' labels then all go.
  bool alike = false;
  int series = 0;
};

// The font of value labels.
Font labelFont(const ChartOptions& options);

// Writes the labels on their own background so that none touches another text or leaves the bounds.
// A label that finds no free place near its mark is left out; what obstacles cover is avoided as
// long as there is another place. Those that are alike are there for all marks of a series or for
// none. Returns how many were left out.
std::size_t placeLabels(Canvas& canvas, const Rect& bounds, std::vector<LabelRequest> requests,
                        const std::vector<Rect>& obstacles, const ChartOptions& options);

}  // namespace charts
