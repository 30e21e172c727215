#include <cmath>

#include "FuzzInput.h"
#include "app/DataFolder.h"
#include "base/CsvRecord.h"
#include "readings/BaseFees.h"
#include "readings/MeterChange.h"
#include "support/MemoryFileSystem.h"
#include "yearbook/FlatRate.h"

// The small files of the data folder, holding anything: they are read leniently, and what comes of
// it can be written and read again.

namespace {

void readRecord(std::string_view text) {
  const base::RecordReader record(text);
  base::RecordWriter copy;
  for (std::size_t i = 0; i <= record.size(); ++i) {
    base::ignore(base::Result<bool>(record.boolean(i).value_or(false)), "only has to return");
    if (const auto number = record.number(i); number && std::isfinite(*number))
      copy.number(*number);
    else
      copy.text(record.text(i).value_or(""));
  }
  const std::string line = copy.line();
  if (line.size() > base::RecordReader::kLongestLine) return;  // quotes have made it longer
  fuzz::require(base::RecordReader(line).size() == record.size() + 1, "fields are kept");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const base::ByteSpan bytes(data, size);
  readRecord(base::asText(bytes));
  base::ignore(base::Result<bool>(app::baseFolderIn(base::asText(bytes)).has_value()),
               "only has to return");

  const std::string path = "/daten/Seite.dat";
  support::MemoryFileSystem files({{path, {data, data + size}}, {"/daten/pauschale.dat", {}}});
  files.put("/daten/pauschale.dat", bytes);
  base::ignore(base::Result<bool>(yearbook::readFlatRate(files, "/daten/")), "only has to return");
  const readings::MeterChange change = readings::readMeterChange(files, path);
  fuzz::require(change.position >= 0 && change.position <= readings::MeterChange::kNone,
                "the month is one of twelve, or none");
  const readings::MonthlyFees fees = readings::readBaseFees(files, path);
  for (const double fee : fees) fuzz::require(std::isfinite(fee), "a fee is a number");
  files.put(path, base::asBytes(readings::baseFeeLine(fees)));
  for (const double fee : readings::readBaseFees(files, path))
    fuzz::require(fee >= 0, "written fees are not negative");
  return 0;
}
