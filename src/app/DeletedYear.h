#pragma once

#include <string>
#include <vector>

#include "app/SafetyCopies.h"

namespace app {

// A safety copy of all that goes with a year, and, of other years whose side files go, of those
// years themselves, so that each can be restored by its name. Gives the copy's folder.
base::Result<std::string> keepBeforeDeleting(base::FileSystem& files, SafetyCopies& copies,
                                             const std::string& dataFolder,
                                             const std::string& year);

// What the line under the list says afterwards: what went, whose it was, where the copy is (""
// when there is none).
std::string deletionReport(const std::string& year, const std::vector<std::string>& sideFiles,
                           const std::vector<std::string>& otherOwners, const std::string& copy);

}  // namespace app
