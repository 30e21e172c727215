#include "app/YearFiles.h"

#include <algorithm>

#include "app/DataFolder.h"
#include "base/Paths.h"
#include "jet/Database.h"

namespace app {
namespace {

bool isFolder(const base::FileSystem& files, const std::string& path) {
  return files.folderExists(path);
}

base::Result<void> removeIfPresent(base::FileSystem& files, const std::string& path) {
  auto removed = files.remove(path);
  if (!removed && removed.error().code == base::ErrorCode::NotFound) return {};
  return removed;
}

// target is left out on the way down, for it may lie inside of the source.
void copyTree(base::FileSystem& files, const std::string& source, const std::string& target,
              const std::string& root, const std::function<void(const std::string&)>& failed) {
  if (!files.folderExists(target))
    base::ignore(files.makeFolder(target), "the copies into it report their own failure");
  for (const std::string& name : ListFiles(files, source, "*.*")) {
    if (!std::string_view(name).ends_with("dat")) continue;
    if (!files.copyFile(source + name, target + name))
      failed("Datei  " + name +
             "  ist schreibgeschützt oder geöffnet und kann nicht kopiert werden");
  }
  for (const std::string& name : ListSubfolders(files, source)) {
    const std::string folder = source + name + base::kPathSeparator;
    if (folder != root) copyTree(files, folder, target + name + base::kPathSeparator, root, failed);
  }
}

}  // namespace

base::Result<std::vector<std::string>> listFiles(const base::FileSystem& files,
                                                 const std::string& folder,
                                                 std::string_view extensionWithDot) {
  auto names = files.list(folder);
  if (!names) return names;
  std::erase_if(*names, [&](const std::string& name) {
    return !base::hasExtension(name, extensionWithDot) ||
           isFolder(files, base::withSeparator(folder) + name);
  });
  return names;
}

std::vector<std::string> filesWithExtension(const base::FileSystem& files,
                                            const std::string& folder,
                                            std::string_view extensionWithDot) {
  return listFiles(files, folder, extensionWithDot).value_or(std::vector<std::string>());
}

std::string allowedYearName(std::string_view typed) {
  constexpr std::string_view kRefused = "\\/<>*.?:;,|";
  std::string kept;
  for (const char c : typed) {
    const bool control = static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
    if (!control && kRefused.find(c) == std::string_view::npos) kept += c;
  }
  return kept;
}

base::Result<void> createYear(base::FileSystem& files, const base::PathState& paths,
                              const std::string& target) {
  const std::string source = paths.ProgramFolder + std::string(kTemplate);
  if (auto copied = files.copyFile(source, target); !copied) return copied;
  return removeIfPresent(files, journalOf(target));
}

base::Result<void> CreateDefaultYearDatabase(base::FileSystem& files,
                                             const base::PathState& paths) {
  const std::string source = paths.ProgramFolder + std::string(kTemplate);
  if (const auto found = files.info(source); found && !found->writable)
    base::ignore(files.makeWritable(source), "a program folder may be write-protected for good");
  const std::string target = paths.DataFolder + std::string(kDefaultYear);
  if (FileExists(files, target)) return {};
  return createYear(files, paths, target);
}

base::Result<void> deleteYear(base::FileSystem& files, const std::string& dataFolder,
                              const std::string& name) {
  const std::string folder = base::withSeparator(dataFolder);
  base::Result<void> outcome = files.remove(folder + name);
  if (!outcome) return outcome;
  const auto alsoRemove = [&](const std::string& path) {
    auto removed = removeIfPresent(files, path);
    if (!removed && outcome) outcome = removed;
  };
  alsoRemove(journalOf(folder + name));
  const std::string prefix = base::baseName(name);
  if (prefix.empty()) return outcome;
  const auto sides = listFiles(files, folder, kSideExtension);
  if (!sides) return base::Failure(sides.error());
  for (const std::string& side : *sides)
    if (side.starts_with(prefix)) alsoRemove(folder + side);
  return outcome;
}

std::string journalOf(const std::string& database) {
  return database + "-journal";
}

base::Result<void> completeWaitingJournal(base::FileSystem& files, const std::string& database) {
  if (!files.exists(journalOf(database))) return {};
  auto opened = jet::Database::open(files, database);
  if (!opened) return base::Failure(opened.error());
  if (const auto reason = opened->readOnlyReason()) return base::fail(*reason);
  return {};
}

std::vector<std::string> ListFiles(const base::FileSystem& files, const std::string& folder,
                                   std::string_view pattern) {
  const bool all = pattern == "*.*" || pattern == "*";
  return filesWithExtension(files, folder, all ? std::string_view() : pattern.substr(1));
}

std::vector<std::string> ListSubfolders(const base::FileSystem& files, const std::string& folder) {
  auto names = files.list(folder).value_or(std::vector<std::string>());
  std::erase_if(names, [&](const std::string& name) {
    return !isFolder(files, base::withSeparator(folder) + name);
  });
  return names;
}

void CopySideFiles(base::FileSystem& files, const std::string& sourceFolder,
                   const std::string& targetFolder,
                   const std::function<void(const std::string& message)>& failed) {
  if (sourceFolder == targetFolder) return;
  const std::string target = base::withSeparator(targetFolder);
  copyTree(files, base::withSeparator(sourceFolder), target, target, failed);
}

}  // namespace app
