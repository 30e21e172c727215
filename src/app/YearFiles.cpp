#include "app/YearFiles.h"

#include <algorithm>

#include "app/Backup.h"
#include "app/DataFolder.h"
#include "app/SafetyCopies.h"
#include "base/DataFiles.h"
#include "base/JointChange.h"
#include "base/Paths.h"
#include "jet/Database.h"

namespace app {
namespace {

bool isFolder(const base::FileSystem& files, const std::string& path) {
  return files.folderExists(path);
}

// What is written beside a file until it is whole: of years, side files, settings, pages, pictures.
bool isOurTemporary(const std::string& name) {
  constexpr std::string_view kMark = "-tmp";
  constexpr std::string_view kExtensions[] = {
      kYearExtension, kSideExtension, ".html", ".pdf", ".csv", ".bmp", ".wmf", ".png", ".svg"};
  if (!name.ends_with(kMark)) return false;
  const std::string_view file = std::string_view(name).substr(0, name.size() - kMark.size());
  return file == kPathFile || file == "DiagrEinst.txt" ||
         std::any_of(
             std::begin(kExtensions), std::end(kExtensions),
             [&](std::string_view extension) { return base::hasExtension(file, extension); });
}

// Those that somebody is writing just now cannot be removed.
void removeTemporaries(base::FileSystem& files, const std::string& folder,
                       const std::string& prefix) {
  for (const std::string& name : files.list(folder).value_or(std::vector<std::string>()))
    if (name.starts_with(prefix) && isOurTemporary(name))
      base::ignore(files.remove(folder + name), "it does no harm, and the next start tries again");
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

bool isNamedAsYear(std::string_view path) {
  return base::hasExtension(path, kYearExtension) || base::hasExtension(path, ".kwx");
}

base::Result<void> checkIsNoYear(base::FileSystem& files, const std::string& target) {
  const auto refused = [&] {
    return base::fail(base::ErrorCode::AlreadyExists, "eine Datenbank wird nicht überschrieben",
                      target);
  };
  if (isNamedAsYear(target)) return refused();
  if (!files.exists(target)) return {};
  const auto file = files.open(target, base::OpenMode::Read);
  if (!file) return base::Failure(file.error());
  // The name of the format behind a magic number, of the old files and of the new.
  constexpr std::size_t kMagic = 4;
  constexpr std::string_view kFormats[] = {"Standard Jet DB", "Standard ACE DB"};
  base::Bytes start(kMagic + kFormats[0].size());
  auto read = (*file)->readAt(0, start);
  if (!read && read.error().code == base::ErrorCode::Truncated) return {};
  if (!read) return read;
  for (const std::string_view format : kFormats)
    if (base::asText(start).substr(kMagic) == format) return refused();
  return {};
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

std::string trimmedYearName(std::string_view typed) {
  constexpr std::string_view kNoBreak = "\xC2\xA0";
  const auto blanks = [&](std::string_view text, bool atEnd) {
    if (text.empty()) return std::size_t{0};
    if ((atEnd ? text.back() : text.front()) == ' ') return std::size_t{1};
    return (atEnd ? text.ends_with(kNoBreak) : text.starts_with(kNoBreak)) ? kNoBreak.size() : 0;
  };
  while (const std::size_t front = blanks(typed, false)) typed.remove_prefix(front);
  while (const std::size_t back = blanks(typed, true)) typed.remove_suffix(back);
  return std::string(typed);
}

bool isNameTooLong(const base::FileSystem& files, const std::string& folder,
                   const std::string& name) {
  // The longest of the names that are made of it, and of those written beside it.
  const std::string longest =
      base::withSeparator(folder) + name + "_WechselNachtstrom.dat-vorhaben";
  const auto found = files.info(longest);
  return !found && found.error().code == base::ErrorCode::InvalidName;
}

base::Result<void> createYear(base::FileSystem& files, const base::PathState& paths,
                              const std::string& target) {
  const std::string folder(base::folderOf(target));
  const std::string name(base::fileName(target));
  auto change = base::JointChange::begin(files, folder);
  if (!change) return base::Failure(change.error());
  const auto found = files.info(target);
  const bool replaces = found || found.error().code != base::ErrorCode::NotFound;
  if (auto copied = change->copy(paths.ProgramFolder + std::string(kTemplate), name); !copied)
    return copied;
  if (auto removed = change->remove(journalOf(name)); !removed) return removed;
  const auto sides = listFiles(files, folder, kSideExtension);
  if (!sides) return base::Failure(sides.error());
  if (replaces)
    for (const std::string& side : sideFilesOf(name, *sides))
      if (auto removed = change->remove(side); !removed) return removed;
  return change->commit();
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

base::Result<std::vector<std::string>> deletedWith(const base::FileSystem& files,
                                                   const std::string& dataFolder,
                                                   const std::string& name) {
  const std::string prefix = base::baseName(name);
  if (prefix.empty()) return std::vector<std::string>();
  auto sides = listFiles(files, dataFolder, kSideExtension);
  if (sides)
    std::erase_if(*sides, [&](const std::string& side) {
      return !side.starts_with(prefix) || base::equalsIgnoreCase(side, base::kOfferFile);
    });
  return sides;
}

base::Result<void> deleteYear(base::FileSystem& files, const std::string& dataFolder,
                              const std::string& name) {
  const std::string folder = base::withSeparator(dataFolder);
  if (const auto found = files.info(folder + name); !found) return base::Failure(found.error());
  const auto sides = deletedWith(files, folder, name);
  if (!sides) return base::Failure(sides.error());
  auto change = base::JointChange::begin(files, folder);
  if (!change) return base::Failure(change.error());
  std::vector<std::string> names{name, journalOf(name)};
  names.insert(names.end(), sides->begin(), sides->end());
  for (const std::string& each : names)
    if (auto removed = change->remove(each); !removed) return removed;
  return change->commit();
}

std::vector<std::string> otherOwners(const std::vector<std::string>& sideFiles,
                                     const std::vector<std::string>& years,
                                     const std::string& except) {
  std::vector<std::string> owners = years;
  std::erase_if(owners, [&](const std::string& year) {
    return year == except || sideFilesOf(year, sideFiles).empty();
  });
  return owners;
}

std::vector<std::string> yearsWithCommonBeginning(const std::string& newName,
                                                  const std::vector<std::string>& years) {
  std::vector<std::string> similar;
  for (const std::string& year : years) {
    const std::string base = base::baseName(year);
    if (base.empty() || newName.empty() || base == newName) continue;
    if (base.starts_with(newName) || newName.starts_with(base)) similar.push_back(year);
  }
  return similar;
}

std::string namesHint(const std::vector<std::string>& similarYears) {
  if (similarYears.empty()) return {};
  return "Der Name beginnt wie das vorhandene Jahr " + similarYears.front() +
         ". Beim Löschen des einen gehen auch Zählerwechsel und Grundgebühren des anderen mit. "
         "Besser ist ein Name ohne gemeinsamen Anfang, etwa Haushalt 2026.";
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

base::Result<void> finishInterrupted(base::FileSystem& files, const std::string& folder,
                                     const std::string& year) {
  const std::string path = base::withSeparator(folder);
  const auto finished = base::JointChange::finish(files, path, [&](const std::string& database) {
    return completeWaitingJournal(files, database);
  });
  removeTemporaries(files, path, base::baseName(year));
  const std::string copies = SafetyCopies::folderIn(path);
  if (year.empty())
    for (const std::string& moment : ListSubfolders(files, copies))
      removeTemporaries(files, copies + moment + base::kPathSeparator, {});
  // A year that is open elsewhere is looked after there.
  if (finished || finished.error().code == base::ErrorCode::InUse) return {};
  return base::Failure(finished.error());
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
