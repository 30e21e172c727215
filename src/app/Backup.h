#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/File.h"

// Copies of year databases and side files to another folder and back: flat, verified. A year and
// its side files are copied together, all of them or none, so that an older copy stays whole until
// the new one is. A failure ends the run; what was copied before stays copied.
namespace app {

// Before each file: its name, its number from 0, and how many there are. false cancels.
using CopyProgress =
    std::function<bool(const std::string& name, std::size_t number, std::size_t count)>;

// Copies the named files from one folder to the other. Year databases with a waiting journal are
// completed first.
base::Result<void> copyFiles(base::FileSystem& files, const std::string& from,
                             const std::string& to, const std::vector<std::string>& names,
                             const CopyProgress& progress = {});

// Every year database and every side file of the data folder.
base::Result<std::vector<std::string>> backupNames(const base::FileSystem& files,
                                                   const std::string& dataFolder);

// Of the listed side files those that belong to the year database: their names begin with its base
// name and "_", in exact letter case. None when the name is empty.
std::vector<std::string> sideFilesOf(std::string_view yearName,
                                     const std::vector<std::string>& sideFiles);

// Brings a saved year (empty name: none) and its side files back into the data folder, over
// whatever lies there: all of them or none. A safety copy holds all of a year, so side files of the
// year that are not in it go.
base::Result<void> restore(base::FileSystem& files, const std::string& from,
                           const std::string& dataFolder, const std::string& yearName,
                           const std::vector<std::string>& sideFiles,
                           const CopyProgress& progress = {});

}  // namespace app
