#pragma once

#include <string>

#include "base/File.h"

// The sample household that lies beside the program, to be looked at and tried.
namespace app {

// A copy of its years in the folder "Beispiel" of the data folder, apart from the household's own;
// the path of the newest. What is there stays as it is: a copy in which something was tried is
// opened again. Both folders end with the separator.
base::Result<std::string> provideSample(base::FileSystem& files, const std::string& programFolder,
                                        const std::string& dataFolder);

// A year of such a copy.
bool isSample(const std::string& yearPath);

}  // namespace app
