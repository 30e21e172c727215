#include "app/Backup.h"

#include <algorithm>
#include <set>

#include "app/SafetyCopies.h"
#include "app/YearFiles.h"
#include "base/JointChange.h"
#include "base/Paths.h"

namespace app {
namespace {

// One run: who is told how far it is.
class Run {
 public:
  Run(base::FileSystem& files, const std::string& from, std::size_t count,
      const CopyProgress& progress)
      : files_(files), from_(from), count_(count), progress_(progress) {}

  // Into the change. A year with a waiting journal is completed first.
  base::Result<void> copy(base::JointChange& change, const std::string& name) {
    const std::string source = from_ + name;
    if (progress_ && !progress_(name, number_, count_))
      return base::fail(base::ErrorCode::Cancelled, {}, source);
    ++number_;
    if (base::hasExtension(name, kYearExtension))
      if (auto completed = completeWaitingJournal(files_, source); !completed) return completed;
    return change.copy(source, name);
  }

 private:
  base::FileSystem& files_;
  const std::string& from_;
  std::size_t count_;
  const CopyProgress& progress_;
  std::size_t number_ = 0;
};

// The names in groups that belong together: each year with its side files, then every other file
// by itself.
std::vector<std::vector<std::string>> units(const std::vector<std::string>& names) {
  std::vector<std::vector<std::string>> result;
  std::set<std::string> taken;
  for (const std::string& name : names) {
    if (!base::hasExtension(name, kYearExtension)) continue;
    result.push_back({name});
    for (const std::string& side : sideFilesOf(name, names))
      if (!base::hasExtension(side, kYearExtension) && taken.insert(side).second)
        result.back().push_back(side);
  }
  for (const std::string& name : names)
    if (!base::hasExtension(name, kYearExtension) && !taken.contains(name))
      result.push_back({name});
  return result;
}

bool isSameFolder(const std::string& a, const std::string& b) {
  return base::toPath(a).lexically_normal() == base::toPath(b).lexically_normal();
}

}  // namespace

base::Result<void> copyFiles(base::FileSystem& files, const std::string& from,
                             const std::string& to, const std::vector<std::string>& names,
                             const CopyProgress& progress) {
  const std::string source = base::withSeparator(from);
  const std::string target = base::withSeparator(to);
  if (isSameFolder(source, target)) return {};
  Run run(files, source, names.size(), progress);
  for (const std::vector<std::string>& unit : units(names)) {
    auto change = base::JointChange::begin(files, target);
    if (!change) return base::Failure(change.error());
    for (const std::string& name : unit)
      if (auto copied = run.copy(*change, name); !copied) return copied;
    if (auto stored = change->commit(); !stored) return stored;
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
  const std::string source = base::withSeparator(from);
  const std::string target = base::withSeparator(dataFolder);
  if (names.empty() || isSameFolder(source, target)) return {};
  auto change = base::JointChange::begin(files, target);
  if (!change) return base::Failure(change.error());
  Run run(files, source, names.size(), progress);
  for (const std::string& name : names)
    if (auto copied = run.copy(*change, name); !copied) return copied;
  // A journal that waits beside the year being replaced belongs to the old file.
  std::vector<std::string> gone;
  if (!yearName.empty()) gone.push_back(journalOf(yearName));
  if (!yearName.empty() && source.starts_with(SafetyCopies::folderIn(target))) {
    const auto sides = listFiles(files, target, kSideExtension);
    if (!sides) return base::Failure(sides.error());
    for (const std::string& side : sideFilesOf(yearName, *sides))
      if (std::find(names.begin(), names.end(), side) == names.end()) gone.push_back(side);
  }
  for (const std::string& name : gone)
    if (auto removed = change->remove(name); !removed) return removed;
  return change->commit();
}

}  // namespace app
