#include "readings/SideFile.h"

namespace readings {

base::Result<void> writeSideFile(base::FileSystem& files, const std::string& path,
                                 const base::RecordWriter& record) {
  const std::string line = record.line();
  if (files.readText(path, line.size()) == line) return {};
  // Who may read the year may read what belongs to it: NAME_....dat to NAME.kwd.
  return files.replaceFile(path, base::asBytes(line), path.substr(0, path.rfind('_')) + ".kwd");
}

}  // namespace readings
