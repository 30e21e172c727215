#include "charts/ChartSettings.h"

#include <cmath>

#include "base/CsvRecord.h"

namespace charts {
namespace {

constexpr const char* kFileName = "DiagrEinst.txt";

// A number from 0 to 255; 0 for everything else.
int smallNumber(const base::RecordReader& record, std::size_t index) {
  const double value = std::nearbyint(record.number(index).value_or(0));
  return value >= 0 && value <= 255 ? static_cast<int>(value) : 0;
}

}  // namespace

ChartSettings parseSettings(std::string_view bytes) {
  const base::RecordReader record(bytes);
  ChartSettings settings;
  const int type = smallNumber(record, 0);
  if (type < kChartTypeCount) settings.type = static_cast<ChartType>(type);
  settings.selection = smallNumber(record, 1);
  settings.threeD = smallNumber(record, 2) == 1;
  return settings;
}

std::string settingsLine(const ChartSettings& settings) {
  return base::RecordWriter()
      .number(static_cast<int>(settings.type))
      .number(settings.selection)
      .number(settings.threeD ? 1 : 0)
      .line();
}

ChartSettings readSettings(base::FileSystem& files, const std::string& dataFolder) {
  const auto bytes = files.readText(dataFolder + kFileName);
  return bytes ? parseSettings(*bytes) : ChartSettings();
}

base::Result<void> writeSettings(base::FileSystem& files, const std::string& dataFolder,
                                 const ChartSettings& settings) {
  return files.replaceFile(dataFolder + kFileName, base::asBytes(settingsLine(settings)));
}

}  // namespace charts
