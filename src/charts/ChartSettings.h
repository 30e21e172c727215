#pragma once

#include <string>
#include <string_view>

#include "base/File.h"
#include "charts/ChartModel.h"
#include "charts/ChartOptions.h"

namespace charts {

// What the chart window remembers from one opening to the next, in "DiagrEinst.txt" of the data
// folder: three small numbers in one record.
struct ChartSettings {
  ChartType type = ChartType::Line;
  int selection = 0;  // index of the selection button, 0 to 6; kept, but not applied
  bool threeD = false;
  bool operator==(const ChartSettings&) const = default;
};

// Whatever cannot be read stays 0.
ChartSettings parseSettings(std::string_view bytes);
std::string settingsLine(const ChartSettings& settings);

ChartSettings readSettings(base::FileSystem& files, const std::string& dataFolder);
base::Result<void> writeSettings(base::FileSystem& files, const std::string& dataFolder,
                                 const ChartSettings& settings);

}  // namespace charts
