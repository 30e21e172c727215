#pragma once

#include <string>

namespace base {

// The paths that every window works with; one instance, made at start-up and handed down.
// Folders end with the system's path separator. UTF-8.
struct PathState {
  std::string ProgramFolder;     // folder of the executable; template, sound and pictures lie there
  std::string DataFolder;        // year databases and side files
  std::string UserBaseFolder;    // base chosen by the user, empty for the default folder
  std::string YearDatabasePath;  // full path of the year to open
  std::string YearDatabaseName;  // its bare name as the file system reports it, empty if missing
};

}  // namespace base
