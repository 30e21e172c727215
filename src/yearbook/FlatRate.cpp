#include "yearbook/FlatRate.h"

#include "base/CsvRecord.h"

namespace yearbook {
namespace {
constexpr const char* kFileName = "pauschale.dat";
}

bool readFlatRate(base::FileSystem& files, const std::string& dataFolder) {
  const auto content = files.readText(dataFolder + kFileName);
  return content && base::RecordReader(*content).boolean(0).value_or(false);
}

SideFile flatRateFile(const std::string& dataFolder, bool on) {
  return {dataFolder + kFileName, base::RecordWriter().boolean(on).line()};
}

}  // namespace yearbook
