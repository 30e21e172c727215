#pragma once

#include <optional>

#include "charts/Geometry.h"

namespace charts {

// In the order of the chart type captions; the number is kept in the settings file.
enum class ChartType { Line, Bar, StackedBar, Area, Pie, StackedArea };
inline constexpr int kChartTypeCount = 6;

// How far the chart is turned out of the plane. Depth in percent of the greatest depth; elevation
// and rotation in degrees. Front faces keep their true size; what lies behind moves sideways with
// the rotation and up with the elevation. A pie is tilted back by the elevation and turned on its
// own axis by the rotation.
struct View3D {
  int depth = 28;
  int elevation = 25;
  int rotation = 30;
  static constexpr int kMaxDepth = 100;
  static constexpr int kMaxAngle = 45;  // both ways
};

struct ChartOptions {
  ChartType type = ChartType::Line;
  bool threeD = false;
  View3D view;
  bool labels = true;        // value labels
  int labelRotation = 0;     // 0, 90, 270 degrees
  double labelSize = 9;      // points
  double leastSize = 6;      // points; no text is smaller, whatever else is wanted
  double labelDistance = 4;  // pixels between a value's mark and its label
  bool overlapBars = false;  // by 50 percent; flat bars only
  bool outlineBars = false;  // flat bars only
  bool percent = false;
  bool legend = true;
  bool reverse = false;  // order of the series
  std::optional<Color> outer;
  std::optional<Color> inner;
};

}  // namespace charts
