#pragma once

#include <string>

#include "base/File.h"
#include "yearbook/StepHistory.h"

namespace yearbook {

// The flat-rate mode ("Pauschale") is a setting of the data folder, kept in "pauschale.dat" as one
// truth value. A missing or unreadable file means off.
bool readFlatRate(base::FileSystem& files, const std::string& dataFolder);
SideFile flatRateFile(const std::string& dataFolder, bool on);

}  // namespace yearbook
