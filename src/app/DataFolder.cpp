#include "app/DataFolder.h"

#include "app/YearFiles.h"
#include "base/CsvRecord.h"
#include "base/CurrentFolder.h"
#include "base/Drives.h"
#include "base/Paths.h"
#include "base/TextCodec.h"

namespace app {
namespace {

constexpr std::string_view kDataFolderName = "Verbrauchserfassung";
constexpr std::string_view kProductFolderName = "Larvando";
// Marks a path file as UTF-8, for a path with letters that windows-1252 does not have.
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::string below(const std::string& folder, std::string_view name, char separator) {
  return base::withSeparator(folder, separator) + std::string(name) + separator;
}

// Drive and path as the system keeps them, joined whatever separators they come with. Each test
// looks at what the one before has left.
std::string joinHome(const std::string& drive, std::string path, char separator) {
  const auto pathStarts = [&] { return !path.empty() && path.front() == separator; };
  const bool driveEnds = !drive.empty() && drive.back() == separator;
  if (!pathStarts() && driveEnds) path = drive + path;
  if (!pathStarts() && !driveEnds) path = drive + separator + path;
  if (pathStarts() && driveEnds) path = drive.substr(0, 2) + path;
  if (pathStarts() && !driveEnds) path = drive + path;
  return path;
}

std::optional<std::string> possible(std::optional<std::string> folder) {
  if (folder && (folder->empty() || folder->find('\0') != std::string::npos)) return std::nullopt;
  return folder;
}

}  // namespace

bool DataFolderExists(const base::FileSystem& files, const std::string& path) {
  return files.folderExists(path);
}

bool FileExists(const base::FileSystem& files, const std::string& path) {
  return files.exists(path);
}

bool ProgramDriveIsRemovable(const std::string& programFolder) {
  return base::onRemovableDrive(programFolder);
}

std::string homeFolder(const Environment& environment, char separator) {
  const bool unset = environment.homeDrive.empty() && environment.homePath.empty();
  const std::string path = unset ? joinHome({}, environment.home, separator)
                                 : joinHome(environment.homeDrive, environment.homePath, separator);
  return base::withSeparator(path, separator);
}

std::string dataFolderBelow(const std::string& baseFolder, char separator) {
  return below(baseFolder, kDataFolderName, separator);
}

std::string defaultDataFolder(const SystemFacts& facts, char separator) {
  if (facts.portable) return dataFolderBelow(facts.programFolder, separator);
  return dataFolderBelow(
      below(homeFolder(facts.environment, separator), kProductFolderName, separator), separator);
}

std::string pathFileContent(const std::string& baseFolder) {
  if (base::fitsWindows1252(baseFolder)) return base::RecordWriter().text(baseFolder).line();
  return std::string(kUtf8Mark) + '"' + baseFolder + "\"\r\n";
}

std::optional<std::string> baseFolderIn(std::string_view content) {
  if (content.substr(0, kUtf8Mark.size()) == kUtf8Mark) {
    content.remove_prefix(kUtf8Mark.size());
    const std::size_t first = content.find('"');
    const std::size_t last = content.find('"', first + 1);
    if (first == std::string_view::npos || last == std::string_view::npos) return std::nullopt;
    return possible(std::string(content.substr(first + 1, last - first - 1)));
  }
  return possible(base::RecordReader(content).text(0));
}

base::Result<void> makeDataFolder(base::FileSystem& files, const std::string& folder,
                                  const SystemFacts& facts) {
  if (DataFolderExists(files, folder)) return {};
  if (!facts.portable && folder == defaultDataFolder(facts)) {
    const std::string product =
        below(homeFolder(facts.environment), kProductFolderName, base::kPathSeparator);
    if (!DataFolderExists(files, product))
      if (auto made = files.makeFolder(product); !made) return made;
  }
  return files.makeFolder(folder);
}

namespace {

// The folder that the path file names; the default stays when it names none that can be.
base::Result<void> followPathFile(base::PathState& paths, base::FileSystem& files) {
  const std::string pathFile = paths.DataFolder + std::string(kPathFile);
  const auto content = files.readText(pathFile);
  if (!content && content.error().code == base::ErrorCode::NotFound) return {};
  if (!content) return base::Failure(content.error());
  const auto folder = baseFolderIn(*content);
  if (!folder)
    return base::fail(base::ErrorCode::InvalidValue,
                      "Sie nennt keinen Ordner; es gilt der Standard-Datenordner", pathFile);
  const std::string base = base::withSeparator(*folder);
  // As long as what the program itself puts into the folder.
  const auto there = files.info(dataFolderBelow(base) + journalOf(std::string(kDefaultYear)));
  if (!there && there.error().code == base::ErrorCode::InvalidName)
    return base::fail(base::ErrorCode::InvalidValue,
                      "Der Ordner darin ist zu lang; es gilt der Standard-Datenordner", pathFile);
  paths.UserBaseFolder = base;
  paths.DataFolder = dataFolderBelow(base);
  return {};
}

// Looks only.
base::Result<void> nameFolders(base::PathState& paths, base::FileSystem& files,
                               const SystemFacts& facts) {
  paths.ProgramFolder = base::withSeparator(facts.programFolder);
  paths.DataFolder = defaultDataFolder(facts);
  paths.UserBaseFolder.clear();
  if (facts.chosenDataFolder.empty()) return followPathFile(paths, files);
  paths.DataFolder = base::withSeparator(facts.chosenDataFolder);
  return {};
}

}  // namespace

std::string dataFolderInForce(base::FileSystem& files, const SystemFacts& facts) {
  base::PathState paths;
  base::ignore(nameFolders(paths, files, facts), "the default folder counts then");
  return paths.DataFolder;
}

base::Result<void> settleFolders(base::PathState& paths, base::FileSystem& files,
                                 const SystemFacts& facts) {
  const base::Result<void> settled = nameFolders(paths, files, facts);
  if (auto made = makeDataFolder(files, paths.DataFolder, facts); !made) return made;
  if (auto current = base::makeCurrent(paths.DataFolder); !current) return current;
  auto finished = finishInterrupted(files, paths.DataFolder);
  return settled ? finished : settled;
}

void settleFoldersAt(base::PathState& paths, base::FileSystem& files, const SystemFacts& facts,
                     const std::string& year) {
  if (facts.chosenDataFolder.empty()) {
    paths.ProgramFolder = base::withSeparator(facts.programFolder);
    paths.DataFolder = base::folderOf(year);
    paths.UserBaseFolder.clear();
    base::ignore(base::makeCurrent(paths.DataFolder), "the opening says what is wrong");
  } else {
    base::ignore(settleFolders(paths, files, facts), "the opening says what is wrong");
  }
  paths.YearDatabasePath = year;
  const auto found = files.info(year);
  paths.YearDatabaseName = found && !found->isFolder ? base::fileName(year) : std::string_view();
}

base::Result<void> changeBaseFolder(base::PathState& paths, base::FileSystem& files,
                                    const SystemFacts& facts, const std::string& baseFolder) {
  // A folder in force that is gone can keep nothing: then where the next start looks.
  const std::string keeper =
      DataFolderExists(files, paths.DataFolder) ? paths.DataFolder : defaultDataFolder(facts);
  const std::string pathFile = keeper + std::string(kPathFile);
  const auto oldContent = files.readText(pathFile);
  base::PathState changed = paths;
  changed.UserBaseFolder = base::withSeparator(baseFolder);
  changed.DataFolder = dataFolderBelow(changed.UserBaseFolder);
  auto stored = files.replaceFile(pathFile, base::asBytes(pathFileContent(changed.UserBaseFolder)));
  auto moved = makeDataFolder(files, changed.DataFolder, facts);
  if (moved) moved = base::makeCurrent(changed.DataFolder);
  if (moved) {
    paths = changed;
    return stored;
  }
  if (stored)
    base::ignore(oldContent ? files.replaceFile(pathFile, base::asBytes(*oldContent))
                            : files.remove(pathFile),
                 "the folder that cannot be used is the error to tell");
  return moved;
}

base::Result<bool> resetBaseFolder(base::FileSystem& files, const SystemFacts& facts) {
  const std::string pathFile = defaultDataFolder(facts) + std::string(kPathFile);
  if (!FileExists(files, pathFile)) return false;
  if (auto removed = files.remove(pathFile); !removed) return base::Failure(removed.error());
  return true;
}

std::string plainVersion(std::string_view version) {
  std::string plain;
  while (true) {
    std::string_view number = version.substr(0, version.find('.'));
    const std::size_t length = number.size();
    while (number.size() > 1 && number.front() == '0') number.remove_prefix(1);
    plain += number;
    if (length == version.size()) return plain;
    plain += '.';
    version.remove_prefix(length + 1);
  }
}

void selectYear(base::PathState& paths, const base::FileSystem& files, const std::string& name) {
  paths.YearDatabasePath = paths.DataFolder + name;
  // An empty name would be the folder itself, which is no file.
  const auto found = files.info(paths.YearDatabasePath);
  paths.YearDatabaseName = found && !found->isFolder ? name : std::string();
}

}  // namespace app
