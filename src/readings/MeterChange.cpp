#include "readings/MeterChange.h"

#include "base/CsvRecord.h"
#include "base/Paths.h"
#include "base/Single.h"
#include "readings/SideFile.h"

namespace readings {
namespace {

// Behind the name of the year.
constexpr PerMeter<const char*> kSuffixes = {"_WechselStrom.dat", "_WechselNachtstrom.dat",
                                             "_WechselWasser.dat", "_WechselAbWasser.dat",
                                             "_WechselGas.dat"};

}  // namespace

std::string meterChangePath(const YearSession& session, Meter meter) {
  return session.dataFolder() + base::baseName(base::fileName(session.path())) + kSuffixes[meter];
}

MeterChange readMeterChange(base::FileSystem& files, const std::string& path) {
  const auto bytes = files.readText(path);
  if (!bytes) return {};
  const base::RecordReader record(*bytes);
  const auto position = record.number(0);
  const auto newStart = record.number(1);
  if (!position || !newStart) return {};
  for (int row = 0; row <= MeterChange::kNone; ++row)
    if (*position == row) return {row, base::toSingle(*newStart)};
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
