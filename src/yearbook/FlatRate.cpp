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

base::Result<void> writeFlatRate(base::FileSystem& files, const std::string& dataFolder, bool on) {
  const std::string line = base::RecordWriter().boolean(on).line();
  return files.replaceFile(dataFolder + kFileName, base::asBytes(line));
}

}  // namespace yearbook
