#include "readings/SideFile.h"

namespace readings {

base::Result<void> writeSideFile(base::FileSystem& files, const std::string& path,
                                 const base::RecordWriter& record) {
  const std::string line = record.line();
  if (files.readText(path, line.size()) == line) return {};
  return files.replaceFile(path, base::asBytes(line));
}

}  // namespace readings
