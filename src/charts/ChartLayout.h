#pragma once

#include "charts/ChartModel.h"
#include "charts/ChartOptions.h"
#include "charts/Scene.h"
#include "charts/TextMeasure.h"
#include "charts/Theme.h"

namespace charts {

// The whole chart for a sheet of that size. Deterministic: the same input gives the same scene.
// Marks carry the series' index in the model as given, whatever order it is drawn in.
Scene layoutChart(const ChartModel& model, const ChartOptions& options, const Theme& theme,
                  Size size, const TextMeasure& measure);

}  // namespace charts
