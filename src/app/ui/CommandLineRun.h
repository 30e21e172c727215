#pragma once

#include <ostream>

#include "app/CommandLine.h"
#include "base/File.h"
#include "base/GermanDate.h"

namespace app {

// Where the commands without a window read and write.
struct Console {
  base::FileSystem& files;
  const base::Clock& clock;
  std::ostream& out;
  std::ostream& err;
  std::string programFolder = {};  // with the template of new years; ends with the separator
};

// Carries out every action but Windows. 0 on success; else 1 and a German message on err that
// names file and reason. Year files are only read, but by Import and Continue. Pdf needs a
// QGuiApplication (offscreen will do).
int runCommandLine(const CommandLine& line, const Console& console);

}  // namespace app
