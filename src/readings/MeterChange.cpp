#include "readings/MeterChange.h"

#include "base/CsvRecord.h"
#include "base/Paths.h"
#include "base/Single.h"

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

std::string meterChangeLine(const MeterChange& change) {
  return base::RecordWriter()
      .number(change.position)
      .number(base::toSingle(change.newStart))
      .line();
}

yearbook::SideFile meterChangeFile(const YearSession& session, Meter meter,
                                   const MeterChange& change) {
  return {meterChangePath(session, meter), meterChangeLine(change)};
}

base::Result<void> deleteMeterChange(YearSession& session, Meter meter) {
  yearbook::Change change{"Zählerwechsel " + std::string(factsOf(meter).name) + " gelöscht"};
  change.sides = {meterChangeFile(session, meter, {})};
  return session.transact(change, [](YearRows&) -> base::Result<void> { return {}; });
}

}  // namespace readings
