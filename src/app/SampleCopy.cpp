#include "app/SampleCopy.h"

#include <iterator>

#include "base/Paths.h"

namespace app {
namespace {

constexpr std::string_view kFolder = "Beispiel";
constexpr std::string_view kPrefix = "Beispiel ";
constexpr std::string_view kYears[] = {"2024", "2025"};
constexpr std::string_view kExtension = ".kwd";

// "Verbrauch2025_WechselGas.dat" becomes "Beispiel 2025_WechselGas.dat". The year comes last: while
// it is missing, the copy is not there yet.
base::Result<void> copyYear(base::FileSystem& files, const std::string& from, const std::string& to,
                            std::string_view year) {
  const std::string name = "Verbrauch" + std::string(year);
  const std::string copy = to + std::string(kPrefix) + std::string(year);
  if (files.exists(copy + std::string(kExtension))) return {};
  const auto listed = files.list(from);
  if (!listed) return base::Failure(listed.error());
  for (const std::string& file : *listed) {
    if (!file.starts_with(name + "_")) continue;
    const std::string target = copy + file.substr(name.size());
    if (files.exists(target)) continue;
    if (auto done = files.copyFile(from + file, target); !done) return done;
  }
  const std::string yearFile = copy + std::string(kExtension);
  if (auto done = files.copyFile(from + name + std::string(kExtension), yearFile); !done)
    return done;
  return files.makeWritable(yearFile);
}

}  // namespace

base::Result<std::string> provideSample(base::FileSystem& files, const std::string& programFolder,
                                        const std::string& dataFolder) {
  const std::string from = base::withSeparator(programFolder + "beispiel");
  const std::string to = base::withSeparator(dataFolder + std::string(kFolder));
  if (!files.folderExists(to))
    if (auto made = files.makeFolder(dataFolder + std::string(kFolder)); !made)
      return base::Failure(made.error());
  for (const std::string_view year : kYears)
    if (auto done = copyYear(files, from, to, year); !done) return base::Failure(done.error());
  return to + std::string(kPrefix) + std::string(*std::rbegin(kYears)) + std::string(kExtension);
}

bool isSample(const std::string& yearPath) {
  const std::string folder = base::kPathSeparator + base::withSeparator(std::string(kFolder));
  return base::folderOf(yearPath).ends_with(folder) &&
         base::fileName(yearPath).starts_with(kPrefix);
}

}  // namespace app
