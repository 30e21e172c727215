#include "app/Backup.h"

#include "app/YearFiles.h"
#include "base/Paths.h"

namespace app {

base::Result<void> copyFiles(base::FileSystem& files, const std::string& from,
                             const std::string& to, const std::vector<std::string>& names,
                             const CopyProgress& progress) {
  const std::string source = base::withSeparator(from);
  const std::string target = base::withSeparator(to);
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (progress && !progress(names[i], i, names.size()))
      return base::fail(base::ErrorCode::Cancelled, {}, target + names[i]);
    if (base::hasExtension(names[i], kYearExtension))
      if (auto completed = completeWaitingJournal(files, source + names[i]); !completed)
        return completed;
    if (auto copied = files.copyFile(source + names[i], target + names[i]); !copied) return copied;
  }
  return {};
}

base::Result<std::vector<std::string>> backupNames(const base::FileSystem& files,
                                                   const std::string& dataFolder) {
  auto names = listFiles(files, dataFolder, kYearExtension);
  if (!names) return names;
  auto side = listFiles(files, dataFolder, kSideExtension);
  if (!side) return side;
  names->insert(names->end(), side->begin(), side->end());
  return names;
}

std::vector<std::string> sideFilesOf(std::string_view yearName,
                                     const std::vector<std::string>& sideFiles) {
  std::vector<std::string> result;
  if (yearName.empty()) return result;
  // A name as short as the extension leaves "_" alone, as a name without a base has it.
  const std::string prefix = base::baseName(std::string(yearName)) + "_";
  for (const std::string& name : sideFiles)
    if (name.starts_with(prefix)) result.push_back(name);
  return result;
}

base::Result<void> restore(base::FileSystem& files, const std::string& from,
                           const std::string& dataFolder, const std::string& yearName,
                           const std::vector<std::string>& sideFiles,
                           const CopyProgress& progress) {
  std::vector<std::string> names;
  if (!yearName.empty()) names.push_back(yearName);
  names.insert(names.end(), sideFiles.begin(), sideFiles.end());
  const std::string target = base::withSeparator(dataFolder);
  if (!yearName.empty()) {
    // A journal that waits beside the year being replaced belongs to the old file; it must not be
    // there to be applied to the saved one.
    base::ignore(completeWaitingJournal(files, target + yearName),
                 "the file is about to be replaced");
  }
  if (auto copied = copyFiles(files, from, target, names, progress); !copied) return copied;
  if (yearName.empty() || base::withSeparator(from) == target) return {};
  auto removed = files.remove(journalOf(target + yearName));
  if (!removed && removed.error().code != base::ErrorCode::NotFound) return removed;
  return {};
}

}  // namespace app
