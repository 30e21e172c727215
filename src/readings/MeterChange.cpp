#include "readings/MeterChange.h"

#include "base/CsvRecord.h"
#include "base/Paths.h"
#include "base/Single.h"
#include "readings/SideFile.h"

namespace readings {

std::string meterChangePath(const YearSession& session, const MeterVariant& meter) {
  return session.dataFolder() + base::baseName(base::fileName(session.path())) +
         std::string(meter.sideFile);
}

MeterChange readMeterChange(base::FileSystem& files, const std::string& path) {
  const auto bytes = files.readText(path);
  if (!bytes) return {};
  const base::RecordReader record(*bytes);
  const auto position = record.number(0);
  const auto newStart = record.number(1);
  if (!position || !newStart) return {};
  for (int row = 0; row <= MeterChange::kNone; ++row)
    if (*position == row) return {row, *newStart};
  return {};
}

base::Result<void> writeMeterChange(base::FileSystem& files, const std::string& path,
                                    const MeterChange& change) {
  // Single precision, as the file has always held it.
  return writeSideFile(
      files, path,
      base::RecordWriter().number(change.position).number(base::toSingle(change.newStart)));
}

}  // namespace readings
