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
  std::optional<Point>
      preferred;  // another edge, taken if no label of the chart covers an obstacle there
  std::string text;
  double weight = 0;  // the greater come first when there is no room for all
  // Beyond its mark and clear of all others, or not at all; its series' labels then all are.
  bool outside = false;
  int series = 0;
};

// The font of value labels.
Font labelFont(const ChartOptions& options);

// Writes the labels on their own background so that none touches another text or leaves the bounds.
// A label that finds no free place near its mark is left out; what obstacles cover is avoided as
// long as there is another place. Those that stand outside are there for all marks of a series or
// for none. False where a series went without.
bool placeLabels(Canvas& canvas, const Rect& bounds, std::vector<LabelRequest> requests,
                 const std::vector<Rect>& obstacles, const ChartOptions& options);

}  // namespace charts
