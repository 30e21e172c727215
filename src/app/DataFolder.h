#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/File.h"
#include "base/PathState.h"
#include "base/Paths.h"

// Where the year databases lie: beside the program on a removable drive, else in the home folder,
// or where the path file says.
namespace app {

inline constexpr std::string_view kPathFile = "Pfad_von_LRV.txt";

// What the home folder is made of; unset variables are empty.
struct Environment {
  std::string homeDrive;  // "HomeDrive"
  std::string homePath;   // "HomePath"
  std::string home;       // "HOME", counts where both others are unset
};

// The folder is there; a file of that name is no folder.
bool DataFolderExists(const base::FileSystem& files, const std::string& path);
// Something of exactly that name is there.
bool FileExists(const base::FileSystem& files, const std::string& path);
// Portable mode: the program lies on a medium that is taken along.
bool ProgramDriveIsRemovable(const std::string& programFolder);

// What the folders depend on, read once from the system.
struct SystemFacts {
  std::string programFolder;
  bool portable = false;  // the program lies on a removable drive
  Environment environment;
  std::string chosenDataFolder;  // for this run, from the command line; empty if none
};

// programFolder and environment of this process. SystemFactsPosix.cpp, SystemFactsWindows.cpp.
SystemFacts readSystemFacts();

// The home folder, ending with the separator.
std::string homeFolder(const Environment& environment, char separator = base::kPathSeparator);

std::string defaultDataFolder(const SystemFacts& facts, char separator = base::kPathSeparator);

// The data folder below a base folder that the user chose.
std::string dataFolderBelow(const std::string& baseFolder, char separator = base::kPathSeparator);

// The bytes of the path file and back: one quoted field. nullopt when there is none in it, or one
// that can be no folder.
std::string pathFileContent(const std::string& baseFolder);
std::optional<std::string> baseFolderIn(std::string_view content);

// Makes the folder if it is missing, one level only: its parent must exist. The product folder
// above the default data folder is made as well.
base::Result<void> makeDataFolder(base::FileSystem& files, const std::string& folder,
                                  const SystemFacts& facts);

// Start-up: ProgramFolder, DataFolder and UserBaseFolder; the data folder is made if it is missing
// and becomes the current one, and what an interrupted action left in it is finished. The paths are
// settled even when that fails; the error names the folder. A path file that names no folder that
// can be is an error, and the default folder counts.
base::Result<void> settleFolders(base::PathState& paths, base::FileSystem& files,
                                 const SystemFacts& facts);

// The data folder in force, for whoever only reads there: nothing is made or finished.
std::string dataFolderInForce(base::FileSystem& files, const SystemFacts& facts);

// For a year that was named at the start: its folder is the data folder, as its side files lie
// there, unless one was chosen for this run. Nothing is made beside the year.
void settleFoldersAt(base::PathState& paths, base::FileSystem& files, const SystemFacts& facts,
                     const std::string& year);

// Another base folder from now on: writes the path file into the data folder still in force (into
// the default one if that is gone), then moves over. A folder that cannot be used leaves paths and
// path file as they were; a path file that could not be written is an error although the paths have
// changed, until the program ends.
base::Result<void> changeBaseFolder(base::PathState& paths, base::FileSystem& files,
                                    const SystemFacts& facts, const std::string& baseFolder);

// Deletes the path file of the default data folder. False when there is none.
base::Result<bool> resetBaseFolder(base::FileSystem& files, const SystemFacts& facts);

// "8.08.0040" is "8.8.40": each number plain, without leading zeros.
std::string plainVersion(std::string_view version);

// Selects a year: YearDatabasePath, and YearDatabaseName as the file system reports it.
void selectYear(base::PathState& paths, const base::FileSystem& files, const std::string& name);

}  // namespace app
